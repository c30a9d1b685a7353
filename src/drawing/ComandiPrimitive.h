#pragma once

#include <cstdint>

class AmbienteDisegno;

// The button that an element of this type is opened and marked with; 0 for none.
int16_t TastoDelTipo(int32_t tipo);

// The commands that make and change one element: the four primitives, the
// edit commands and their end, the fill, full or empty shapes, the copy of the
// last element, Fissa, and Annulla when an element or an object is open.
class ComandiPrimitive {
public:
    explicit ComandiPrimitive(AmbienteDisegno& ambiente) : a_(ambiente) {}

    void ApriPrimitiva(int16_t indice);
    void ComandoDiModifica(int16_t indice);
    void FineComandoModifica();
    void ColoraZona();
    void SceltaFormePieneVuote();
    void DuplicaUltima();
    void Fissa(); // something is open: its condition stands in TabellaComandi
    void Annulla();

private:
    AmbienteDisegno& a_;
};
