// The ring walking in mode 1 with a 500 ms dwell on the real clock for ten
// seconds: how far each dwell is from 500 ms, and how much processor it costs.
#include "input/FormScansione.h"
#include "start/Configurazione.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QTimer>

#include <sys/resource.h>

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <vector>

namespace {

class FormMisura : public FormScansione {
public:
    FormMisura() : FormScansione(101, 105) {
        QList<DefinizioneTasto> tabella;
        for (int16_t i = 101; i <= 105; ++i)
            tabella.append({i, 405 + (i - 101) * 3090, 270, 2070, 1050, QString::number(i), {}});
        CreaTasti(tabella, 90);
        resize(1024, 200);
    }
    void ClickTasto(int16_t) override {}
    void AggiornaCorone() override {
        FormScansione::AggiornaCorone();
        Istanti.push_back(Orologio.nsecsElapsed());
    }
    QElapsedTimer Orologio;
    std::vector<qint64> Istanti;
};

double TempoProcessore() {
    rusage uso{};
    getrusage(RUSAGE_SELF, &uso);
    return static_cast<double>(uso.ru_utime.tv_sec + uso.ru_stime.tv_sec) +
           static_cast<double>(uso.ru_utime.tv_usec + uso.ru_stime.tv_usec) / 1e6;
}

} // namespace

int main(int argc, char* argv[]) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    ModalitàFunzionamento = 1;
    TempoLatenzaScansione = 500;
    const int durata = 10000;

    FormMisura form;
    form.Orologio.start();
    form.Motore.TastoCorrente = 101;
    form.show();
    QApplication::processEvents();
    form.Motore.FermaScansione();
    form.Istanti.clear();

    const double processoreInizio = TempoProcessore();
    form.Motore.AvviaScansione();
    QTimer::singleShot(durata, [&] {
        form.Motore.FermaScansione();
        QCoreApplication::exit(0); // quit() would ask the windows, which refuse to close
    });
    QApplication::exec();
    const double processore = TempoProcessore() - processoreInizio;
    const double parete = static_cast<double>(form.Orologio.nsecsElapsed()) / 1e9;

    std::vector<double> errori;
    for (size_t i = 1; i < form.Istanti.size(); ++i) {
        const double sosta = static_cast<double>(form.Istanti[i] - form.Istanti[i - 1]) / 1e6;
        if (qEnvironmentVariableIsSet("ZANTO_BENCH_DETTAGLI"))
            std::printf("sosta: %.3f ms\n", sosta);
        errori.push_back(std::fabs(sosta - 500.0));
    }
    std::sort(errori.begin(), errori.end());
    const double mediana = errori.empty() ? 0.0 : errori[errori.size() / 2];
    const double massimo = errori.empty() ? 0.0 : errori.back();
    std::printf("scansione_soste: %zu dwells\n", errori.size());
    std::printf("scansione_errore_mediano: %.3f ms (bound 2)\n", mediana);
    std::printf("scansione_errore_massimo: %.3f ms (bound 15)\n", massimo);
    std::printf("scansione_processore: %.3f %% of one core (bound 2)\n",
                100.0 * processore / parete);
    return 0;
}
