#include "drawing/ComandiStoria.h"

#include "archive/ArchivioAzioni.h"
#include "base/Bip.h"
#include "base/GestioneErrori.h"
#include "drawing/AmbienteDisegno.h"
#include "drawing/CodiciComando.h"
#include "input/QuadroMessaggi.h"
#include "model/RecordAzione.h"
#include "model/Selezione.h"
#include "model/StatoAmbiente.h"
#include "model/TracciaAzioni.h"
#include "panels/QuadroUndo.h"

void ComandiStoria::TornaNellaStoria() {
    if (CodiceCopiaLavoro == BaseCopieLavoro) {
        a_.Rifiuta();
        return;
    }
    ApriQuadroUndo();
    ParcheggiaMouse();
    if (Messaggio(QStringLiteral("Recupero precedente Disegno?"), 2, 3) == 3) {
        a_.Riprendi();
        return;
    }
    if (PassoUndo != 0) {
        // The copy becomes Azioni only once it has been read whole: a copy that
        // does not read leaves the drawing as it was.
        EseguiPassi({
            {MarcaDisegno::AnnullaOperazioni,
             [] {
                 CodiceDisegnoDaCaricare = BaseCopieLavoro + PassoUndo;
                 CaricaAzioniDisegno();
                 CopiaAzioniUndoInAzioni(); // NumeroAzioni too, the whole copy
                 // A selection pointed into the drawing that has gone.
                 AzzeraSelezione();
             }},
            {MarcaDisegno::AnnullaOperazioni, [this] { a_.RidisegnoCompleto(); }},
        });
        a_.Riprendi();
        return;
    }
    a_.DisegnoVuoto();
    a_.Riprendi();
}
