// The colour panel opened as "Scelta Colore Zona" opens it: the time from the
// call to the panel built, prepared, shown and painted once. Against it stands
// the flip panel, the smallest panel of the program, opened the same way in
// the same run. The first opening of each pays for the styles and pictures
// made once; it is printed apart.
#include "Misura.h"
#include "base/Configurazione.h"
#include "panels/QuadroSceltaColore1.h"
#include "panels/QuadroSceltaRibaltamenti.h"

#include <QApplication>
#include <QTimer>

#include <functional>
#include <vector>

namespace {

// Opens a panel by `apri`, and, from the panel's own loop, takes the time at
// its first paint and closes it with the button `chiudi`.
double Apertura(const std::function<void()>& apri, int16_t chiudi) {
    QElapsedTimer orologio;
    double ms = -1;
    QTimer::singleShot(0, [&] {
        FormScansione* quadro = FormScansione::InPrimoPiano();
        if (quadro == nullptr) return;
        // Offscreen a repaint may find nothing exposed: the panel is rendered whole.
        quadro->grab();
        ms = double(orologio.nsecsElapsed()) / 1e6;
        quadro->ClickTasto(chiudi);
    });
    orologio.start();
    apri();
    return ms;
}

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    ModalitàFunzionamento = 4; // no ring walking while it is measured
    const auto colore = [] {
        ColoreScelto = 0x0000FF;
        ApriQuadroSceltaColore1();
    };
    const auto ribaltamenti = [] { ApriQuadroSceltaRibaltamenti(9000, 1500); };

    const double primaColore = Apertura(colore, 124);
    const double primaRibaltamenti = Apertura(ribaltamenti, 105);
    std::vector<double> aperture, riferimenti;
    for (int giro = 0; giro < 31; ++giro) {
        aperture.push_back(Apertura(colore, 124));
        riferimenti.push_back(Apertura(ribaltamenti, 105));
    }
    const double apertura = Mediana(aperture);
    const double riferimento = Mediana(riferimenti);
    Stampa("scelta_colore_apertura", apertura, "ms");
    Stampa("scelta_colore_prima_apertura", primaColore, "ms");
    Stampa("ribaltamenti_apertura", riferimento, "ms");
    Stampa("ribaltamenti_prima_apertura", primaRibaltamenti, "ms");
    Stampa("rapporto_scelta_colore_su_ribaltamenti", apertura / riferimento, "x");
    Stampa("scelta_colore_su_obiettivo_50ms", apertura / 50.0, "x");
    return 0;
}
