#pragma once

#include "drawing/ComandiColori.h"
#include "drawing/ComandiElementi.h"
#include "drawing/ComandiFile.h"
#include "drawing/ComandiOggetti.h"
#include "drawing/ComandiPrimitive.h"
#include "drawing/ComandiSettaggi.h"
#include "drawing/ComandiStoria.h"
#include "drawing/TabellaComandi.h"

#include <cstdint>

class AmbienteDisegno;

// The location mark of each command of the drawing screen.
int16_t MarcaComando(int16_t indice);

// The click routine of the 33 buttons of the drawing screen: the red button
// first, then the button's entry in TabellaComandi, its condition and its
// routine. It only tests and routes; each family of commands is a unit of its own.
class ComandiDisegno {
public:
    explicit ComandiDisegno(AmbienteDisegno& ambiente)
        : a_(ambiente), primitive_(ambiente), oggetti_(ambiente), file_(ambiente),
          storia_(ambiente), elementi_(ambiente), colori_(ambiente), settaggi_(ambiente) {}

    void TastoDisegno_Click(int16_t indice);

private:
    friend const TabellaComandiDisegno& TabellaComandi();

    void Comando(int16_t indice);

    AmbienteDisegno& a_;
    ComandiPrimitive primitive_;
    ComandiOggetti oggetti_;
    ComandiFile file_;
    ComandiStoria storia_;
    ComandiElementi elementi_;
    ComandiColori colori_;
    ComandiSettaggi settaggi_;
};
