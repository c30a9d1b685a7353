// The ring walking in mode 1 with a 500 ms dwell on the real clock for ten
// seconds: how far each dwell is from 500 ms, and how much processor it costs;
// then the same with spoken scanning on, the speech service left out: a voice
// that takes each name and says it has finished 300 ms later.
#include "base/Configurazione.h"
#include "input/FormScansione.h"
#include "input/Voce.h"

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

class VoceMisura final : public Voce {
public:
    void Di(const QString& testo) override {
        Nomi += testo.size() > 0 ? 1 : 0;
        parlando_ = true;
        QTimer::singleShot(300, [this] {
            parlando_ = false;
            FineVoce();
        });
    }
    void Taci() override { parlando_ = false; }
    bool StaParlando() const override { return parlando_; }
    Servizio StatoServizio() override { return Servizio::Presente; }
    int Nomi = 0;

private:
    bool parlando_ = false;
};

struct Esito {
    size_t Soste;
    double Mediana;
    double Massimo;
    double Processore;
};

Esito Misura(int durata) {
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
    return {errori.size(), errori.empty() ? 0.0 : errori[errori.size() / 2],
            errori.empty() ? 0.0 : errori.back(), 100.0 * processore / parete};
}

void Scrivi(const char* nome, const Esito& e) {
    std::printf("%s_soste: %zu dwells\n", nome, e.Soste);
    std::printf("%s_errore_mediano: %.3f ms (bound 2)\n", nome, e.Mediana);
    std::printf("%s_errore_massimo: %.3f ms (bound 15)\n", nome, e.Massimo);
    std::printf("%s_processore: %.3f %% of one core (bound 2)\n", nome, e.Processore);
}

} // namespace

int main(int argc, char* argv[]) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    ModalitàFunzionamento = 1;
    TempoLatenzaScansione = 500;
    const int durata = 10000;

    Scrivi("scansione", Misura(durata));

    VoceMisura voce;
    ImpostaVoce(&voce);
    ScansioneParlata = 1;
    const Esito parlata = Misura(durata);
    Scrivi("scansione_parlata", parlata);
    std::printf("scansione_parlata_nomi: %d said\n", voce.Nomi);
    ImpostaVoce(nullptr);
    return 0;
}
