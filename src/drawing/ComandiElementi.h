#pragma once

#include <QString>

#include <cstdint>

class AmbienteDisegno;

// The elements that get their size from what the user gives: a text written
// on the keyboard and a picture chosen from the files folder, both opened
// straight into a shift; and any action of the drawing taken back into the
// hands to be changed, moved in the order or deleted.
class ComandiElementi {
public:
    explicit ComandiElementi(AmbienteDisegno& ambiente) : a_(ambiente) {}

    void ScritturaTesti(); // a new text, or the one taken back into the hands
    void ImportaImmagine();
    void ScegliElemento(); // in ComandiSceltaElemento.cpp

private:
    // The text's box in twips, measured on the canvas with the record's font.
    struct Misura {
        int64_t Larghezza = 0;
        int64_t Altezza = 0;
        // Does it fit the drawing's 16-bit positions once centred?
        bool Centrabile() const;
    };
    Misura MisuraTesto() const;
    // A text or a picture of size w by h twips, centred on the canvas.
    void Centra(int32_t larghezza, int32_t altezza);
    // Into the shift: 113 red, the element's button marked, the direction panel.
    void InMovimento(int16_t primitiva);
    // The picture's size in twips, as QuadroImmagine takes it; a picture that
    // cannot be read leaves the size of the last one.
    void CaricaQuadroImmagine(const QString& percorso);

    AmbienteDisegno& a_;
};
