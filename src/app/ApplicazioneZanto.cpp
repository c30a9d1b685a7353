#include "app/ApplicazioneZanto.h"

#include "base/FuocoFinestre.h"
#include "base/GestioneErrori.h"

ApplicazioneZanto::ApplicazioneZanto(int& argc, char** argv) : QApplication(argc, argv) {
    // With or without a window manager, the keys stay on the front window.
    InstallaFuocoFinestre();
}

bool ApplicazioneZanto::notify(QObject* destinatario, QEvent* evento) {
    bool esito = false;
    try {
        EseguiProtetto([&] { esito = QApplication::notify(destinatario, evento); });
    } catch (const FineProgramma& fine) {
        // An end asked for inside a nested loop cannot unwind through Qt: leave
        // through the loop instead.
        exit(fine.Codice);
    }
    return esito;
}
