// The child of test_copia_lavoro_interrotta: opens the drawings archive of the
// data folder that XDG_DATA_HOME points at, runs the opening step of the
// drawing screen, then fixes one working copy after another until it is
// killed. A byte on standard output marks each step that went through.

#include "PilotaCopiaLavoro.h"

#include "app/Avvio.h"
#include "app/MenuGenerale.h"
#include "archive/Archivi.h"
#include "archive/CopiaLavoro.h"
#include "archive/IstruzioniArchivio.h"
#include "base/GestioneErrori.h"
#include "model/RecordAzione.h"

#include <QGuiApplication>

#include <cstdio>
#include <cstdlib>
#include <unistd.h>

namespace {

// Unbuffered: the parent must see the byte the moment the step is done.
void Segnala(char segno) {
    if (::write(STDOUT_FILENO, &segno, 1) != 1) std::_Exit(4);
}

} // namespace

int main(int argc, char** argv) {
    // The error routine beeps and resets the cursor: it needs a GUI application.
    QGuiApplication app(argc, argv);
    // Any box is a failure of the test: say why and stop.
    MostraScatolaPiattaforma = [](IconaScatola, const QString&, const QString& testo) {
        std::fprintf(stderr, "%s\n", qPrintable(QString(testo).replace(QChar(u'\r'), u' ')));
        std::fflush(stderr);
        std::_Exit(2);
    };
    CalcolaRadiceDati();
    CodiceCartellaAttiva = 1;
    try {
        ApriArchivio(ArchivioDisegni, PercorsoArchivioDisegni());
        Segnala(PilotaCopiaLavoro::Apertura);
        CodiceCopiaLavoro = RiprendiCopieLavoro();
    } catch (const ErroreZanto& e) {
        std::fprintf(stderr, "%d %s\n", e.Numero, qPrintable(e.Descrizione));
        return 2;
    }
    Segnala(PilotaCopiaLavoro::Aperto);
    for (;;) {
        Azioni = PilotaCopiaLavoro::Lista(CodiceCopiaLavoro + 1);
        NumeroAzioni = PilotaCopiaLavoro::Lunghezza(CodiceCopiaLavoro + 1);
        if (!RegistraCopiaLavoro()) return 3;
        Segnala(PilotaCopiaLavoro::Copia);
    }
}
