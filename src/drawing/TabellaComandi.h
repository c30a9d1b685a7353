#pragma once

#include "drawing/CodiciComando.h"

#include <array>
#include <cstdint>

class ComandiDisegno;

// One command of the drawing screen: its button, its location mark, when it
// may act (no condition: in any state) and the routine that runs it. Where
// the condition fails the command refuses: a beep, and the ring goes on.
struct VoceComando {
    TastoDisegno::Comando Codice;
    MarcaDisegno::Marca Marca;
    bool (*Condizione)();
    void (*Routine)(ComandiDisegno& comandi, int16_t indice);
};

using TabellaComandiDisegno = std::array<VoceComando, TastoDisegno::Numero>;

// The 33 commands in the order of their buttons, built once.
const TabellaComandiDisegno& TabellaComandi();

// The entry of a button; nullptr for an index that is no button.
const VoceComando* VoceComandoDi(int16_t indice);
