#pragma once

#include "model/RecordAzione.h"

#include <cstdint>
#include <vector>

class Superficie;

// Completes ElementoInCostruzione with the current colours, width and fill, and
// draws it for good on the canvas's bitmap, over all that stands there. A text
// is printed from RigheScritte with InterlineaCorrente as its spacing.
void FissaElemento(Superficie& quadro);

// Measures ElementiAttivi into IngombroXMin..IngombroYMax and the two halves;
// ModoIngombro 1 counts an arc by its whole ellipse, any other value by its
// true outline.
void CalcolaIngombro();

// The same measure while a step walks a group element by element, each element
// changing only after its own measure: Misura(i) leaves exactly what
// CalcolaIngombro would leave at that moment, but measures again only the
// elements that changed since the previous call. Any other order of calls, or
// another ModoIngombro or number of elements, measures the whole group afresh.
class IngombroProgressivo {
public:
    void Misura(int16_t indice);

    struct Scatola {
        int32_t XMin, YMin, XMax, YMax;
    };

private:
    void Prepara(int16_t indice);
    void Avanza(int16_t indice);

    std::vector<Scatola> dopo_; // [i]: elements i..last as they stood when prepared
    Scatola prima_{};           // elements 1..indice_ - 1 as they stand now
    int16_t indice_ = 0;        // index of the previous call, 0 before the first
    int16_t modo_ = 0;
    int16_t numero_ = 0;
};

// One end of an arc at `angolo`, in whole twips as the selection compares them.
struct PuntoArco {
    int16_t X = 0;
    int16_t Y = 0;
};
PuntoArco EstremoArco(const RecordAzione& arco, float angolo);
