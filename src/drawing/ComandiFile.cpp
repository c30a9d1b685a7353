#include "drawing/ComandiFile.h"

#include "archive/ArchivioAzioni.h"
#include "archive/IstruzioniArchivio.h"
#include "drawing/AmbienteDisegno.h"
#include "input/QuadroMessaggi.h"
#include "model/CopiaLavoro.h"
#include "model/StatoAmbiente.h"
#include "start/Bip.h"
#include "start/GestioneErrori.h"

void ComandiFile::ChiudiAmbiente() {
    ParcheggiaMouse();
    const int16_t esito =
        Messaggio(Righe({QStringLiteral("E' stata richiesta l'USCITA dal Disegno Attivo."),
                         QStringLiteral("ATTENZIONE!"),
                         QStringLiteral("Tutte le modifiche finora effettuate saranno"),
                         QStringLiteral("PERSE se non sono state salvate!"),
                         QStringLiteral("Premere «OK» per continuare o «Annulla»"),
                         QStringLiteral("per abbandonare!")}),
                  2, 3);
    if (esito == 3) {
        a_.Riprendi();
        return;
    }
    EseguiPassi({{1278, [] { EliminaCopieLavoro(); }}});
    CodiceDisegnoCorrente = 0;
    CodiceDisegnoDaCaricare = 0;
    CodiceDisegnoDaRegistrare = 0;
    NomeDisegnoCorrente.clear();
    ChiudiAmbienteDisegno();
}
