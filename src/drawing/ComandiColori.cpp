#include "drawing/ComandiColori.h"

#include "base/Bip.h"
#include "drawing/AmbienteDisegno.h"
#include "model/StatoAmbiente.h"
#include "panels/QuadroSceltaColore1.h"

void ComandiColori::SceltaColoreZona() {
    ColoreScelto = ColoreZonaCorrente;
    ApriQuadroSceltaColore1();
    ParcheggiaMouse();
    // Below 0 the panel was left without a choice.
    if (ColoreScelto >= 0) {
        ColoreZonaCorrente = ColoreScelto;
        a_.MostraColori();
    }
    a_.Riprendi();
}
