#include "app/ConfigurazioniGenerali.h"

#include "app/AnelloConfigurazioni.h"
#include "app/ControlliConfigurazione.h"
#include "app/MenuGenerale.h"
#include "app/PaginaSensori.h"
#include "archive/RigaConfigurazione.h"
#include "base/Bip.h"
#include "base/GestioneErrori.h"
#include "base/Misure.h"
#include "base/ScrittaModulo.h"
#include "base/Sessione.h"
#include "input/QuadroMessaggi.h"
#include "printing/SceltaStampanti.h"
#include "printing/Stampe.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QCursor>
#include <QGroupBox>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QPointer>
#include <QPushButton>
#include <QRadioButton>
#include <QScreen>
#include <QSpinBox>

#include <memory>

namespace {

std::unique_ptr<ConfigurazioniGenerali>& Modulo() {
    static std::unique_ptr<ConfigurazioniGenerali> modulo;
    return modulo;
}

// Where "Chiudi" stands, in twips.
const QRect PostoChiudi(11800, 9700, 2700, 900);

const char* const EtichetteModi[4] = {
    "SCANSIONE AUTOMATICA ad 1 Tasto    (Solo Tasto Scelta = Invio) ",
    "SCANSIONE AUTOMATICA  a  2 Tasti     (Tasto Inversione Scansione + Tasto Scelta) ",
    "SCANSIONE MANUALE a  2 Tasti              (Tasto Avanzamento Scansione + Tasto Scelta) ",
    "PRESSIONE  a  5  Tasti                             (Tasti delle 4 Frecce + Tasto Invio) "};
// The direct key shown beside each mode, in the order of the modes.
const char* const ScritteRapide[4] = {"Scelta rapida: « F6 »", "Scelta rapida « F7 »",
                                      "Scelta rapida: « F11 »", "Scelta rapida: « F12 »"};

QLabel* Titolo(QWidget* genitore, const QString& testo, const QRect& posto, int punti) {
    return ScrittaModulo(genitore, testo, posto, punti, true);
}

// A latency as the value test reads it: the digits before the first blank.
int64_t ValoreLatenza(const QString& testo) {
    int64_t valore = 0;
    for (const QChar c : testo) {
        if (!c.isDigit()) break;
        valore = std::min<int64_t>(valore * 10 + c.digitValue(), 1000000);
    }
    return valore;
}

void AvvisoLatenza(const QString& seconda, const QString& terza) {
    ParcheggiaMouse();
    Messaggio(Righe({QStringLiteral("ATTENZIONE!"), seconda, terza,
                     QStringLiteral("Premere «OK» per continuare!")}),
              1, 1);
}

} // namespace

ConfigurazioniGenerali::ConfigurazioniGenerali() {
    setObjectName(QStringLiteral("ConfigurazioniGenerali"));
    setWindowTitle(QStringLiteral("Programma «ZANTO» - CONFIGURAZIONI GENERALI"));
    setFixedSize(Px(15360), Px(11520));

    Titolo(this, QStringLiteral("CONFIGURAZIONI   GENERALI"), QRect(405, 150, 14445, 600), 18)
        ->setAlignment(Qt::AlignCenter);
    CostruisciModi();
    CostruisciTastiEInversione();
    CostruisciLatenza();
    CostruisciAccessibilità();
    CostruisciStampante();
    CostruisciSensori();
    CostruisciTastiModulo();
    // The direct keys reach the form from wherever the focus stands.
    for (QWidget* w : findChildren<QWidget*>())
        if (w != ImmiTempoLatenzaScans) w->installEventFilter(this);
}

void ConfigurazioniGenerali::CostruisciModi() {
    Titolo(this, QStringLiteral("MODALITA'  DI  FUNZIONAMENTO"), QRect(405, 900, 14445, 450), 11);
    for (int i = 0; i < 4; ++i) {
        OpzioneModalitàFunzionamento[i] = OpzioneModulo(this, QString::fromUtf8(EtichetteModi[i]),
                                                        QRect(600, 1400 + i * 480, 10600, 450));
        auto* rapida = new QLabel(QString::fromUtf8(ScritteRapide[i]), this);
        rapida->setGeometry(RettangoloTwips(11400, 1400 + i * 480, 3400, 450));
        const int16_t indice = int16_t(101 + i);
        connect(OpzioneModalitàFunzionamento[i], &QRadioButton::clicked, this,
                [this, indice] { EseguiProtetto([&] { ClickModo(indice); }); });
    }
}

void ConfigurazioniGenerali::CostruisciTastiEInversione() {
    QuadroTastiSceltaScansione =
        QuadroModulo(this, QStringLiteral("CONFIGURAZIONE TASTI «SCELTA» E «SCANSIONE»:"),
                     QRect(405, 3500, 14445, 1500));
    OpzioneTastiSceltaScansione[0] = OpzioneModulo(
        QuadroTastiSceltaScansione,
        QStringLiteral("Tasto «Scelta» = Invio   ||  Tasto «Scansione» = Barra           "
                       "(Scelta rapida: F4)"),
        QRect(300, 400, 13800, 450));
    OpzioneTastiSceltaScansione[1] = OpzioneModulo(
        QuadroTastiSceltaScansione,
        QStringLiteral("Tasto «Scelta» = Barra  ||  Tasto «Scansione» = Invio            "
                       "(Scelta rapida: F5)"),
        QRect(300, 900, 13800, 450));
    QuadroModalitàInversioneScansione = QuadroModulo(
        this, QStringLiteral("MODALITA' INVERSIONE SCANSIONE"), QRect(405, 5200, 14445, 1500));
    OpzioneInversioneScan[0] =
        OpzioneModulo(QuadroModalitàInversioneScansione,
                      QStringLiteral("Inversione semplice    (F8)"), QRect(300, 400, 13800, 450));
    OpzioneInversioneScan[1] =
        OpzioneModulo(QuadroModalitàInversioneScansione,
                      QStringLiteral("Inversione con fermo intermedio          (F9)"),
                      QRect(300, 900, 13800, 450));
    for (int i = 0; i < 2; ++i) {
        const int16_t indice = int16_t(101 + i);
        connect(OpzioneTastiSceltaScansione[i], &QRadioButton::clicked, this,
                [this, indice] { EseguiProtetto([&] { ClickTasti(indice); }); });
        connect(OpzioneInversioneScan[i], &QRadioButton::clicked, this,
                [this, indice] { EseguiProtetto([&] { ClickInversione(indice); }); });
    }
}

void ConfigurazioniGenerali::CostruisciLatenza() {
    QuadroTempoLatenzaScans = QuadroModulo(this, QStringLiteral("TEMPO  LATENZA  SCANSIONE"),
                                           QRect(405, 6900, 7500, 1400));
    auto* etichetta = new QLabel(QStringLiteral("Tempo in millisecondi:"), QuadroTempoLatenzaScans);
    etichetta->setGeometry(RettangoloTwips(300, 550, 3600, 450));
    ImmiTempoLatenzaScans = new QLineEdit(QuadroTempoLatenzaScans);
    ImmiTempoLatenzaScans->setObjectName(QStringLiteral("ImmiTempoLatenzaScans"));
    ImmiTempoLatenzaScans->setGeometry(RettangoloTwips(4000, 500, 2400, 500));
    ImmiTempoLatenzaScans->installEventFilter(this);
    connect(ImmiTempoLatenzaScans, &QLineEdit::textChanged, this, [this] {
        if (CaricamentoConfigurazioni != 1) ModificheEffettuate = 1;
    });
}

void ConfigurazioniGenerali::CostruisciAccessibilità() {
    QuadroAccessibilità =
        QuadroModulo(this, QStringLiteral("ACCESSIBILITÀ"), QRect(8100, 6900, 6750, 1400));
    const char* const anelli[3] = {"Anello normale", "doppio", "triplo"};
    for (int i = 0; i < 3; ++i) {
        OpzioneLarghezzaAnello[i] =
            OpzioneModulo(QuadroAccessibilità, QString::fromUtf8(anelli[i]),
                          QRect(i == 0 ? 300 : 1400 + i * 1500, 400, i == 0 ? 2500 : 1400, 450));
        const int16_t larghezza = int16_t(i + 1);
        connect(OpzioneLarghezzaAnello[i], &QRadioButton::clicked, this,
                [this, larghezza] { EseguiProtetto([&] { ClickAnello(larghezza); }); });
    }
    const char* const contrasti[2] = {"Colori normali", "Alto contrasto (giallo su nero)"};
    for (int i = 0; i < 2; ++i) {
        OpzioneContrasto[i] =
            OpzioneModulo(QuadroAccessibilità, QString::fromUtf8(contrasti[i]),
                          QRect(i == 0 ? 300 : 2800, 900, i == 0 ? 2500 : 3800, 450));
        const int16_t contrasto = int16_t(i);
        connect(OpzioneContrasto[i], &QRadioButton::clicked, this,
                [this, contrasto] { EseguiProtetto([&] { ClickContrasto(contrasto); }); });
    }
}

void ConfigurazioniGenerali::CostruisciStampante() {
    ScrittaStampante = new QLabel(this);
    ScrittaStampante->setObjectName(QStringLiteral("ScrittaStampante"));
    ScrittaStampante->setGeometry(RettangoloTwips(405, 8600, 14445, 450));
    ScrittaStampante->setFont(Carattere(QStringLiteral("Arial"), 10));
    ScrittaStampante->setTextFormat(Qt::PlainText);
    TastoStampante = new QPushButton(QStringLiteral("Stampante"), this);
    TastoStampante->setObjectName(QStringLiteral("TastoStampante"));
    TastoStampante->setGeometry(RettangoloTwips(5600, 9700, 2700, 900));
    connect(TastoStampante, &QPushButton::clicked, this,
            [this] { EseguiProtetto([this] { Stampante(); }); });
}

void ConfigurazioniGenerali::CostruisciSensori() {
    Sensori = new PaginaSensori(this);
    Sensori->setGeometry(RettangoloTwips(0, 850, 15360, 8700));
    Sensori->hide();
    Sensori->Modificato = [this] { ModificheEffettuate = 1; };
    TastoSensori = new QPushButton(QStringLiteral("Sensori e voce"), this);
    TastoSensori->setObjectName(QStringLiteral("TastoSensori"));
    TastoSensori->setGeometry(RettangoloTwips(2500, 9700, 2700, 900));
    connect(TastoSensori, &QPushButton::clicked, this,
            [this] { EseguiProtetto([this] { CambiaPagina(); }); });
}

void ConfigurazioniGenerali::CostruisciTastiModulo() {
    TastoRegistraConfigurazioniGenerali = new QPushButton(QStringLiteral("Registra"), this);
    TastoRegistraConfigurazioniGenerali->setGeometry(RettangoloTwips(8700, 9700, 2700, 900));
    TastoChiudiConfigurazioniGenerali = new QPushButton(QStringLiteral("Chiudi"), this);
    TastoChiudiConfigurazioniGenerali->setGeometry(RettangoloTwips(
        PostoChiudi.x(), PostoChiudi.y(), PostoChiudi.width(), PostoChiudi.height()));
    for (QPushButton* b : {TastoSensori, TastoStampante, TastoRegistraConfigurazioniGenerali,
                           TastoChiudiConfigurazioniGenerali}) {
        b->setFocusPolicy(Qt::NoFocus);
        b->setAutoDefault(false);
        b->setFont(Carattere(QStringLiteral("Arial"), 12, true));
    }
    connect(TastoRegistraConfigurazioniGenerali, &QPushButton::clicked, this,
            [this] { EseguiProtetto([this] { Registra(); }); });
    connect(TastoChiudiConfigurazioniGenerali, &QPushButton::clicked, this,
            [this] { EseguiProtetto([this] { Chiudi(); }); });
}

void ConfigurazioniGenerali::AttivaConfigurazioniGenerali() {
    ModificheEffettuate = 0;
    CaricamentoConfigurazioni = 1;
    Modo = ModalitàFunzionamento;
    Scelta = TastoScelta;
    Scansione = TastoScansione;
    Inversione = TipoInversioneScansione;
    Anello = LarghezzaAnello;
    Contrasto = AltoContrasto;
    MostraQuadri();
    Colora();
    ImmiTempoLatenzaScans->setText(QString::number(TempoLatenzaScansione));
    MostraStampante();
    Sensori->Carica();
    CaricamentoConfigurazioni = 0;
}

void ConfigurazioniGenerali::CambiaPagina() {
    const bool seconda = !Sensori->isVisible();
    Sensori->setVisible(seconda);
    TastoSensori->setText(seconda ? QStringLiteral("Indietro") : QStringLiteral("Sensori e voce"));
    if (seconda) {
        Sensori->MostraServizio();
        Sensori->ImmiAccettazione->setFocus(Qt::OtherFocusReason);
    } else {
        ImmiTempoLatenzaScans->setFocus(Qt::OtherFocusReason);
    }
}

void ConfigurazioniGenerali::MostraStampante() {
    ScriviStampante();
    // The print service's answer comes off the screen's thread, the line with it.
    QPointer<ConfigurazioniGenerali> modulo(this);
    AggiornaStampanti([modulo](bool) {
        if (modulo != nullptr) modulo->ScriviStampante();
    });
}

void ConfigurazioniGenerali::ScriviStampante() {
    // The printer a page goes to now, the system's own included.
    QString nome = StampanteInUso();
    if (nome.isEmpty()) nome = QStringLiteral("nessuna");
    QString testo = QStringLiteral("Stampante attiva:  « ") + nome + QStringLiteral(" »");
    // A choice the system does not have now is kept and shown for what it is.
    if (!StampanteScelta.isEmpty() && StampanteScelta != StampanteProgramma)
        testo += QStringLiteral("   (scelta « ") + StampanteScelta +
                 QStringLiteral(" » non disponibile)");
    ScrittaStampante->setText(testo);
}

void ConfigurazioniGenerali::Stampante() {
    ApriSceltaStampanti(this);
    MostraStampante();
    activateWindow();
    ImmiTempoLatenzaScans->setFocus(Qt::OtherFocusReason);
}

void ConfigurazioniGenerali::MostraQuadri() {
    // Keys, inversion and latency, by the mode being chosen.
    static const bool visibili[5][3] = {{false, false, false},
                                        {false, false, true},
                                        {true, true, true},
                                        {true, false, false},
                                        {false, false, false}};
    const int m = std::clamp<int>(Modo, 1, 4);
    QuadroTastiSceltaScansione->setVisible(visibili[m][0]);
    QuadroModalitàInversioneScansione->setVisible(visibili[m][1]);
    QuadroTempoLatenzaScans->setVisible(visibili[m][2]);
}

void ConfigurazioniGenerali::Colora() {
    ColoraGruppo(OpzioneModalitàFunzionamento, 4, Modo - 1);
    ColoraGruppo(OpzioneTastiSceltaScansione, 2, Scelta - 1);
    ColoraGruppo(OpzioneInversioneScan, 2, Inversione - 1);
    ColoraGruppo(OpzioneLarghezzaAnello, 3, Anello - 1);
    ColoraGruppo(OpzioneContrasto, 2, Contrasto);
}

void ConfigurazioniGenerali::ClickAnello(int16_t larghezza) {
    if (CaricamentoConfigurazioni == 1) return;
    Anello = larghezza;
    ModificheEffettuate = 1;
    Colora();
}

void ConfigurazioniGenerali::ClickContrasto(int16_t contrasto) {
    if (CaricamentoConfigurazioni == 1) return;
    Contrasto = contrasto;
    ModificheEffettuate = 1;
    Colora();
}

void ConfigurazioniGenerali::ClickModo(int16_t indice) {
    if (CaricamentoConfigurazioni == 1) return;
    Modo = int16_t(indice - 100);
    ModificheEffettuate = 1;
    MostraQuadri();
    Colora();
}

void ConfigurazioniGenerali::ClickTasti(int16_t indice) {
    if (CaricamentoConfigurazioni == 1) return;
    Scelta = indice == 101 ? 1 : 2;
    Scansione = indice == 101 ? 2 : 1;
    ModificheEffettuate = 1;
    Colora();
}

void ConfigurazioniGenerali::ClickInversione(int16_t indice) {
    if (CaricamentoConfigurazioni == 1) return;
    Inversione = int16_t(indice - 100);
    ModificheEffettuate = 1;
    Colora();
}

void ConfigurazioniGenerali::Registra() {
    const QString testo = ImmiTempoLatenzaScans->text().trimmed();
    const int64_t valore = ValoreLatenza(testo);
    QString seconda;
    QString terza;
    if (testo.isEmpty()) {
        seconda = QStringLiteral("Il «Tempo Latenza Scansione» NON");
        terza = QStringLiteral("può essere vuoto!");
    } else if (valore < 500) {
        seconda = QStringLiteral("Il «Tempo Latenza Scansione» NON può");
        terza = QStringLiteral("essere inferiore a 500 millisecondi!");
    } else if (valore > 5000) {
        seconda = QStringLiteral("Il «Tempo Latenza Scansione» NON può");
        terza = QStringLiteral("essere maggiore di 5000 millisecondi!");
    }
    if (!seconda.isEmpty()) {
        RegistrazioneSilenziosa = 0;
        AvvisoLatenza(seconda, terza);
        // The wrong value is shown where it is written.
        if (Sensori->isVisible()) CambiaPagina();
        ImmiTempoLatenzaScans->setFocus(Qt::OtherFocusReason);
        return;
    }
    // The value tested is the value stored: a dwell never leaves its range.
    ModalitàFunzionamento = Modo;
    TastoScelta = Scelta;
    TastoScansione = Scansione;
    TipoInversioneScansione = Inversione;
    TempoLatenzaScansione = int32_t(valore);
    LarghezzaAnello = Anello;
    AltoContrasto = Contrasto;
    Sensori->Applica();
    RegistraConfigurazione();
    ModificheEffettuate = 0;
    if (RegistrazioneSilenziosa == 0) {
        ParcheggiaMouse();
        Messaggio(Righe({QStringLiteral("ATTENZIONE!"),
                         QStringLiteral("La registrazione delle Configurazioni Generali"),
                         QStringLiteral("è avvenuta correttamente!"),
                         QStringLiteral("Premere «OK» per continuare!")}),
                  1, 1);
    }
    RegistrazioneSilenziosa = 0;
}

void ConfigurazioniGenerali::Chiudi() {
    if (ModificheEffettuate == 1) {
        ParcheggiaMouse();
        const int16_t esito =
            Messaggio(Righe({QStringLiteral("ATTENZIONE!"),
                             QStringLiteral("Sono state modificate le Configurazioni Gene-"),
                             QStringLiteral("rali ma NON è stata effettuata la loro registra-"),
                             QStringLiteral("zione!"),
                             QStringLiteral("Se si prosegue TUTTI i cambiamenti apportati"),
                             QStringLiteral("verranno PERSI DEFINITIVAMENTE!"),
                             QStringLiteral("Premere «OK» per proseguire ugualmente"),
                             QStringLiteral("oppure «Annulla» per Abbandonare!")}),
                      2, 3);
        if (esito == 3) return;
    }
    PuntatoreClessidra();
    CaricaMenùGenerale();
    hide();
    // Its own routine is on the stack: the object goes when events allow.
    Modulo().release()->deleteLater();
    PuntatorePredefinito();
}

void ConfigurazioniGenerali::MettiAnello() {
    if (AnelloChiudi != nullptr) return;
    AnelloChiudi = new AnelloConfigurazioni(
        this, PostoChiudi, [this] { Chiudi(); }, [this](int tasto) { return TastoDiretto(tasto); });
    // One "Chiudi" on the form: the ring's.
    TastoChiudiConfigurazioniGenerali->hide();
    TastoChiudiConfigurazioniGenerali = AnelloChiudi->TastoChiudi();
}

bool ConfigurazioniGenerali::AlAnello(QEvent* evento) {
    if (AnelloChiudi == nullptr || !AnelloChiudi->isVisible()) return false;
    if (evento->type() != QEvent::KeyPress && evento->type() != QEvent::KeyRelease) return false;
    if (!AnelloConfigurazioni::TastoDelAnello(CodiceTasto(static_cast<QKeyEvent*>(evento))))
        return false;
    // The switch reaches the ring from wherever the focus was left.
    QCoreApplication::sendEvent(AnelloChiudi->FocusFix, evento);
    return true;
}

void ConfigurazioniGenerali::closeEvent(QCloseEvent* evento) {
    // The window's own close button is "Chiudi", question and all: the
    // program ends only through "Esci", which writes the active folder.
    evento->ignore();
    if (isVisible() && ConfigurazioniAperte() == this) EseguiProtetto([this] { Chiudi(); });
}

bool ConfigurazioniGenerali::TastoDiretto(int tasto) {
    int16_t modo = 0;
    int16_t tasti = 0;
    int16_t inversione = 0;
    switch (tasto) {
    case Qt::Key_F6:
        modo = 101;
        break;
    case Qt::Key_F7:
        modo = 102;
        break;
    case Qt::Key_F11:
        modo = 103;
        break;
    case Qt::Key_F12:
        modo = 104;
        break;
    // Here F4 and F5 act in mode 1 too.
    case Qt::Key_F4:
        tasti = 101;
        break;
    case Qt::Key_F5:
        tasti = 102;
        break;
    case Qt::Key_F8:
        inversione = 101;
        break;
    case Qt::Key_F9:
        inversione = 102;
        break;
    default:
        return false;
    }
    if (tasti != 0 && (Modo < 1 || Modo > 3)) return true;
    if (inversione != 0 && Modo != 2) return true;
    RegistrazioneSilenziosa = 1;
    if (modo != 0) ClickModo(modo);
    if (tasti != 0) ClickTasti(tasti);
    if (inversione != 0) ClickInversione(inversione);
    Registra();
    if (AnelloChiudi != nullptr) AnelloChiudi->Riprendi();
    return true;
}

bool ConfigurazioniGenerali::FiltroLatenza(QKeyEvent* evento) {
    const QString testo = evento->text();
    if (evento->key() == Qt::Key_Tab || evento->key() == Qt::Key_Return ||
        evento->key() == Qt::Key_Enter)
        return true;
    if (testo.isEmpty()) return false; // arrows, Delete, Home: the box's own
    const QChar c = testo.at(0);
    if (c.isDigit() || c == u' ' || c == QChar(8)) return false;
    Bip();
    return true;
}

bool ConfigurazioniGenerali::eventFilter(QObject* oggetto, QEvent* evento) {
    if (AlAnello(evento)) return true;
    if (evento->type() != QEvent::KeyPress) return QWidget::eventFilter(oggetto, evento);
    auto* tasto = static_cast<QKeyEvent*>(evento);
    bool preso = false;
    EseguiProtetto([&] {
        if (tasto->key() == Qt::Key_Tab) {
            preso = true;
            return;
        }
        if (TastoDiretto(tasto->key())) {
            preso = true;
            return;
        }
        if (oggetto == ImmiTempoLatenzaScans) preso = FiltroLatenza(tasto);
    });
    return preso || QWidget::eventFilter(oggetto, evento);
}

void ConfigurazioniGenerali::keyPressEvent(QKeyEvent* evento) {
    if (AlAnello(evento)) return;
    EseguiProtetto([&] {
        if (evento->key() != Qt::Key_Tab) TastoDiretto(evento->key());
    });
}

void ConfigurazioniGenerali::keyReleaseEvent(QKeyEvent* evento) {
    if (!AlAnello(evento)) QWidget::keyReleaseEvent(evento);
}

ConfigurazioniGenerali* ConfigurazioniAperte() {
    return Modulo().get();
}

ConfigurazioniGenerali* CaricaConfigurazioniGenerali(bool conAnello) {
    Modulo() = std::make_unique<ConfigurazioniGenerali>();
    ConfigurazioniGenerali* modulo = Modulo().get();
    modulo->AttivaConfigurazioniGenerali();
    if (conAnello) modulo->MettiAnello();
    const QRect schermo = QGuiApplication::primaryScreen()->availableGeometry();
    modulo->move(schermo.center() - modulo->rect().center());
    modulo->show();
    modulo->activateWindow();
    // Reached by the switch, the keys rest on the ring.
    if (modulo->AnelloChiudi != nullptr)
        modulo->AnelloChiudi->FocusFix->setFocus(Qt::OtherFocusReason);
    else
        modulo->ImmiTempoLatenzaScans->setFocus(Qt::OtherFocusReason);
    // The one form on which a pointer is wanted: in its middle.
    QCursor::setPos(modulo->mapToGlobal(modulo->rect().center()));
    return modulo;
}

void DistruggiConfigurazioniGenerali() {
    Modulo().reset();
}
