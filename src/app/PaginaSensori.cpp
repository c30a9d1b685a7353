#include "app/PaginaSensori.h"

#include "app/ControlliConfigurazione.h"
#include "base/Configurazione.h"
#include "base/GestioneErrori.h"
#include "base/Misure.h"
#include "base/Orologio.h"
#include "base/ScrittaModulo.h"
#include "input/Voce.h"

#include <QGroupBox>
#include <QLabel>
#include <QRadioButton>
#include <QSpinBox>

namespace {

// A line of a frame: what the number means, then the number.
QSpinBox* Riga(QWidget* quadro, int alto, const QString& testo, int massimo, int passo,
               const QString& unita, const QString& zero) {
    ScrittaModulo(quadro, testo, QRect(300, alto + 50, 9800, 450), 10, false);
    return NumeroModulo(quadro, QRect(10300, alto, 2600, 500), 0, massimo, passo, unita, zero);
}

} // namespace

PaginaSensori::PaginaSensori(QWidget* genitore) : QWidget(genitore) {
    setObjectName(QStringLiteral("PaginaSensori"));
    setAutoFillBackground(true);

    auto* tempi =
        QuadroModulo(this, QStringLiteral("TEMPI  PER  I  SENSORI"), QRect(405, 100, 14445, 3700));
    ImmiAccettazione =
        Riga(tempi, 450, QStringLiteral("Tempo di accettazione: il tasto conta se tenuto premuto"),
             2000, 50, QStringLiteral(" ms"), QStringLiteral("subito"));
    ImmiIgnora =
        Riga(tempi, 1050, QStringLiteral("Tempo di rifiuto: pressioni ignorate dopo una scelta"),
             2000, 50, QStringLiteral(" ms"), QStringLiteral("nessuno"));
    ScrittaModulo(tempi, QStringLiteral("Prima attesa quando l'anello parte:"),
                  QRect(300, 1700, 5200, 450), 10, false);
    const char* const attese[3] = {"normale", "doppia", "tripla"};
    for (int i = 0; i < 3; ++i) {
        OpzionePrimaAttesa[i] = OpzioneModulo(tempi, QString::fromUtf8(attese[i]),
                                              QRect(5600 + i * 1800, 1650, 1700, 450));
        const int16_t attesa = int16_t(i + 1);
        connect(OpzionePrimaAttesa[i], &QRadioButton::clicked, this,
                [this, attesa] { Cambia([&] { Attesa = attesa; }); });
    }
    ImmiGiri =
        Riga(tempi, 2250, QStringLiteral("L'anello si ferma dopo tanti giri senza pressioni"), 20,
             1, QStringLiteral(" giri"), QStringLiteral("mai"));
    ScrittaModulo(tempi,
                  QStringLiteral("Fermo, il primo tasto lo risveglia soltanto: non sceglie."),
                  QRect(300, 2950, 12600, 450), 9, false);

    auto* voce =
        QuadroModulo(this, QStringLiteral("SCANSIONE  PARLATA"), QRect(405, 4100, 14445, 2500));
    const char* const voci[2] = {"Voce spenta", "Voce accesa: dice il tasto sotto l'anello"};
    const char* const fini[2] = {"L'anello non aspetta la voce",
                                 "L'anello aspetta la fine del nome"};
    for (int i = 0; i < 2; ++i) {
        OpzioneVoce[i] = OpzioneModulo(voce, QString::fromUtf8(voci[i]),
                                       QRect(i == 0 ? 300 : 4600, 450, i == 0 ? 4000 : 8200, 450));
        OpzioneAttendiVoce[i] =
            OpzioneModulo(voce, QString::fromUtf8(fini[i]),
                          QRect(i == 0 ? 300 : 4600, 1000, i == 0 ? 4200 : 8200, 450));
        const int16_t valore = int16_t(i);
        connect(OpzioneVoce[i], &QRadioButton::clicked, this, [this, valore] {
            Cambia([&] { Parlata = valore; });
            MostraServizio();
        });
        connect(OpzioneAttendiVoce[i], &QRadioButton::clicked, this,
                [this, valore] { Cambia([&] { AttendiFine = valore; }); });
    }
    ScrittaServizioVoce = ScrittaModulo(voce, QString(), QRect(300, 1650, 13800, 450), 10, false);
    ScrittaServizioVoce->setObjectName(QStringLiteral("ScrittaServizioVoce"));

    auto* ripresa =
        QuadroModulo(this, QStringLiteral("DOPO  UNA  SCELTA"), QRect(405, 6800, 14445, 1600));
    const char* const riprese[2] = {
        "L'anello resta sul tasto scelto",
        "L'anello riparte dal tasto che di solito segue: la «A», i comandi"
        " della figura aperta, le figure dopo «Fissa»"};
    for (int i = 0; i < 2; ++i) {
        OpzioneRipresa[i] = OpzioneModulo(ripresa, QString::fromUtf8(riprese[i]),
                                          QRect(300, 450 + i * 550, 13800, 450));
        const int16_t valore = int16_t(i);
        connect(OpzioneRipresa[i], &QRadioButton::clicked, this,
                [this, valore] { Cambia([&] { Ripresa = valore; }); });
    }

    for (QSpinBox* numero : {ImmiAccettazione, ImmiIgnora, ImmiGiri})
        connect(numero, &QSpinBox::valueChanged, this, [this] {
            Cambia([&] {
                Accettazione = ImmiAccettazione->value();
                Ignora = ImmiIgnora->value();
                Giri = int16_t(ImmiGiri->value());
            });
        });
}

PaginaSensori::~PaginaSensori() {
    if (sveglia_ != 0) OrologioCorrente().Annulla(sveglia_);
}

void PaginaSensori::Cambia(const std::function<void()>& cambio) {
    if (caricamento_) return;
    EseguiProtetto([&] {
        cambio();
        Colora();
        if (Modificato) Modificato();
    });
}

void PaginaSensori::Carica() {
    caricamento_ = true;
    Accettazione = TempoAccettazione;
    Ignora = TempoIgnoraDopoScelta;
    Attesa = PrimaAttesa;
    Giri = GiriPrimaDelRiposo;
    Parlata = ScansioneParlata;
    AttendiFine = AttendiVoce;
    Ripresa = RipresaSuccessiva;
    ImmiAccettazione->setValue(Accettazione);
    ImmiIgnora->setValue(Ignora);
    ImmiGiri->setValue(Giri);
    Colora();
    caricamento_ = false;
    MostraServizio();
}

void PaginaSensori::Applica() const {
    TempoAccettazione = Accettazione;
    TempoIgnoraDopoScelta = Ignora;
    PrimaAttesa = Attesa;
    GiriPrimaDelRiposo = Giri;
    ScansioneParlata = Parlata;
    AttendiVoce = AttendiFine;
    RipresaSuccessiva = Ripresa;
}

void PaginaSensori::Colora() {
    ColoraGruppo(OpzionePrimaAttesa, 3, Attesa - 1);
    ColoraGruppo(OpzioneVoce, 2, Parlata);
    ColoraGruppo(OpzioneAttendiVoce, 2, AttendiFine);
    ColoraGruppo(OpzioneRipresa, 2, Ripresa);
}

void PaginaSensori::MostraServizio() {
    if (sveglia_ != 0) OrologioCorrente().Annulla(sveglia_);
    sveglia_ = 0;
    // The service is looked for only when the voice is wanted.
    if (Parlata != 1) {
        ScrittaServizioVoce->setText(
            QStringLiteral("Servizio vocale: si cerca quando la voce è accesa."));
        return;
    }
    switch (VoceCorrente().StatoServizio()) {
    case Voce::Servizio::Presente:
        ScrittaServizioVoce->setText(QStringLiteral("Servizio vocale: presente."));
        break;
    case Voce::Servizio::Assente:
        ScrittaServizioVoce->setText(
            QStringLiteral("Servizio vocale NON trovato: il programma funziona senza voce."));
        break;
    case Voce::Servizio::InCerca:
        ScrittaServizioVoce->setText(QStringLiteral("Servizio vocale: ricerca in corso..."));
        sveglia_ = OrologioCorrente().Programma(500, [this] {
            sveglia_ = 0;
            EseguiProtetto([this] { MostraServizio(); });
        });
        break;
    }
}
