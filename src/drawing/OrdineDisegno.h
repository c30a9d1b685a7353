#pragma once

#include "drawing/CodiciComando.h"

#include <array>
#include <cstdint>

// A drawing's usual order: a shape is opened, placed by its first grip (or its
// own shape, for an ellipse), and fixed; after "Fissa" the next shape follows.
// Each entry is a choice and the button the user most likely picks after it.
struct PassoDisegno {
    TastoDisegno::Comando Scelto;
    TastoDisegno::Comando Seguente;
};

inline constexpr std::array<PassoDisegno, 5> OrdineDisegno = {{
    {TastoDisegno::PrimitivaLinea, TastoDisegno::ModificaInizioLinea},
    {TastoDisegno::PrimitivaArco, TastoDisegno::ModificaInizioArco},
    {TastoDisegno::PrimitivaRettangolo, TastoDisegno::ModificaGrandezza1},
    {TastoDisegno::PrimitivaEllisse, TastoDisegno::ModificaFormaEllisseArco},
    {TastoDisegno::Fissa, TastoDisegno::PrimitivaLinea},
}};

// Where the ring stands after `scelto`: the button that follows it when the
// restart is on and a ring walks (modes 1 to 3), otherwise `scelto` itself.
int16_t TastoDopoLaScelta(int16_t scelto);
