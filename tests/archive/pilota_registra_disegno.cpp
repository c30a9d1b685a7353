// The child of test_registra_disegno_interrotto: opens the drawings archive
// of the data folder that XDG_DATA_HOME points at and saves drawings, new ones
// and over old ones, until it is killed. Run `giro` (the one argument) saves
// the versions of PilotaRegistraDisegno. A byte on standard output marks each
// step, so that the parent knows where the child was when it died.

#include "PilotaRegistraDisegno.h"

#include "AvvioPilota.h"
#include "app/Avvio.h"
#include "app/MenuGenerale.h"
#include "archive/Archivi.h"
#include "archive/ArchivioAzioni.h"
#include "archive/BitmapDisegni.h"
#include "archive/IstruzioniArchivio.h"
#include "base/GestioneErrori.h"
#include "model/RecordAzione.h"
#include "model/Superficie.h"
#include "model/TracciaAzioni.h"

#include <QGuiApplication>

#include <cstdio>
#include <cstdlib>
#include <unistd.h>

namespace {

// Unbuffered: the parent must see the byte the moment the step begins.
void Segnala(char segno) {
    if (::write(STDOUT_FILENO, &segno, 1) != 1) std::_Exit(4);
}

} // namespace

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    if (argc != 2) return 5;
    const int32_t giro = std::atoi(argv[1]);
    SondaRegistraDisegno = [](int16_t sezione) { Segnala(PilotaRegistraDisegno::FaseDi(sezione)); };
    if (!AvviaPilota()) return 2;
    Superficie quadro(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    for (int32_t salvataggio = 1;; ++salvataggio) {
        using namespace PilotaRegistraDisegno;
        const int32_t versione = Versione(giro, salvataggio);
        Segnala(Preparazione);
        CodiceCartellaAttiva = Cartella(versione);
        NomeCartellaAttiva =
            CodiceCartellaAttiva == 1 ? NomiArchivi::CartellaSistemaDisegni : NomeSecondaCartella;
        NomeDisegnoCorrente = Nome(versione);
        // Over the drawing of that name if there is one, as "Salva Disegno" does.
        int32_t codice = 0;
        try {
            codice = CercaNomeDisegno(NomeDisegnoCorrente, CodiceCartellaAttiva);
        } catch (const ErroreZanto& e) {
            std::fprintf(stderr, "%d %s\n", e.Numero, qPrintable(e.Descrizione));
            return 2;
        }
        StatoDisegno = codice > 0 ? 1 : 2;
        RegistraComeNuovo = 0;
        CodiceDisegnoCorrente = codice;
        Azioni = Lista(versione);
        NumeroAzioni = Lunghezza(versione);
        quadro.ImpostaBackColor(Predefiniti::ColoreSfondo);
        PrimaAzioneTraccia = 1;
        UltimaAzioneTraccia = int16_t(NumeroAzioni);
        TracciaAzioni(quadro);
        if (!RegistraDisegno(quadro)) return 3;
        Segnala(Salvato);
    }
}
