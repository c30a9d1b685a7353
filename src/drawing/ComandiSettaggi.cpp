#include "drawing/ComandiSettaggi.h"

#include "drawing/AmbienteDisegno.h"
#include "model/ElementoAttivo.h"
#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"

void ComandiSettaggi::AccessoSettaggi() {
    a_.ApriSettaggi();
    Superficie& q = a_.Quadro;
    if (OggettoAttivo == 1) {
        // An object read from the library stands in the hands, dotted.
        q.DrawWidth = 1;
        q.DrawStyle = 2;
        TracciaElementoAttivo(q);
        a_.Riprendi();
        return;
    }
    // The open element takes the new line colour at once.
    if (ColoreLineaCorrente != ElementoInCostruzione.ColLinea &&
        ElementoInCostruzione.TipoAzione > 0)
        ElementoInCostruzione.ColLinea = ColoreLineaCorrente;
    // A replay on the panel (fills to dots and back, a new ground) cleared the
    // overlay: the element in the hands shows again.
    if (PrimitivaAttiva > 0) TracciaElementoAttivo(q);
    a_.Riprendi();
}
