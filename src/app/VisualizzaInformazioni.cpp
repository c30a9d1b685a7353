#include "app/VisualizzaInformazioni.h"

#include "app/Avvio.h"
#include "app/MenuGenerale.h"
#include "archive/Archivi.h"
#include "archive/Installatore.h"
#include "base/Bip.h"
#include "base/Configurazione.h"
#include "base/GestioneErrori.h"
#include "base/IconaSvg.h"
#include "base/MappaErrori.h"
#include "base/Misure.h"
#include "base/Orologio.h"
#include "base/ScrittaModulo.h"
#include "input/FormScansione.h"
#include "input/MotoreScansione.h"
#include "text/LettoreRtf.h"

#include <QCloseEvent>
#include <QFile>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPainter>
#include <QPushButton>
#include <QScreen>
#include <QSvgRenderer>
#include <QTextCursor>
#include <QTextEdit>

#include <memory>

namespace {

std::unique_ptr<VisualizzaInformazioni>& Modulo() {
    static std::unique_ptr<VisualizzaInformazioni> modulo;
    return modulo;
}

QLabel* Scritta(QWidget* genitore, int alto, int altezza, int punti, bool grassetto) {
    QLabel* l = ScrittaModulo(genitore, {}, QRect(405, alto, 13200, altezza), punti, grassetto);
    l->setAlignment(Qt::AlignCenter);
    return l;
}

bool TastoSoloModificatore(int tasto) {
    return tasto == Qt::Key_Shift || tasto == Qt::Key_Control || tasto == Qt::Key_Alt ||
           tasto == Qt::Key_AltGr || tasto == Qt::Key_Meta || tasto == 0;
}

// Enter, and the choice key of the mode whatever it is: a single switch on
// the bar must get out as one on Enter does.
bool TastoDiUscita(int codice) {
    if (codice == CodiciTasto::Invio) return true;
    return ModalitàFunzionamento != 4 && MotoreScansione::TastoDiScelta(codice);
}

} // namespace

VisualizzaInformazioni::VisualizzaInformazioni() {
    setObjectName(QStringLiteral("VisualizzaInformazioni"));
    setWindowTitle(QStringLiteral("Progetto «ZANTO» - Informazioni Programma"));
    setFixedSize(Px(15360), Px(11520));
    setAttribute(Qt::WA_DeleteOnClose, false);

    auto* logo = new QLabel(this);
    logo->setGeometry(RettangoloTwips(405, 150, 4500, 1200));
    {
        RegistraRisorse();
        QPixmap immagine(logo->size());
        immagine.fill(Qt::transparent);
        QSvgRenderer svg(QStringLiteral(":/logo-zanto.svg"));
        svg.setAspectRatioMode(Qt::KeepAspectRatio);
        QPainter p(&immagine);
        svg.render(&p);
        logo->setPixmap(immagine);
    }
    ScrittaInformazioni[0] = Scritta(this, 1500, 600, 18, true);
    ScrittaInformazioni[1] = Scritta(this, 2150, 450, 12, false);
    ScrittaInformazioni[2] = Scritta(this, 2650, 450, 12, false);
    ScrittaInformazioni[3] = Scritta(this, 3150, 450, 12, false);
    auto* realizzazione = Scritta(this, 3800, 500, 13, true);
    realizzazione->setText(QStringLiteral("REALIZZAZIONE"));

    CasellaInformazioni = new QTextEdit(this);
    CasellaInformazioni->setObjectName(QStringLiteral("CasellaInformazioni"));
    CasellaInformazioni->setGeometry(RettangoloTwips(1620, 4530, 12075, 6390));
    CasellaInformazioni->setReadOnly(true);
    CasellaInformazioni->setFont(Carattere(QStringLiteral("Arial"), 12));
    CasellaInformazioni->installEventFilter(this);

    TastoRitornoMenùGenerale = new QPushButton(QStringLiteral("Chiudi"), this);
    TastoRitornoMenùGenerale->setObjectName(QStringLiteral("TastoRitornoMenùGenerale"));
    TastoRitornoMenùGenerale->setGeometry(RettangoloTwips(13830, 120, 1245, 1080));
    TastoRitornoMenùGenerale->setFocusPolicy(Qt::NoFocus);
    TastoRitornoMenùGenerale->setAutoDefault(false);
    connect(TastoRitornoMenùGenerale, &QPushButton::clicked, this,
            [this] { EseguiProtetto([this] { Chiudi(); }); });
}

void VisualizzaInformazioni::AttivaVisualizzaInformazioni() {
    ScrittaInformazioni[0]->setText(MessaggiAvvio.value(5));
    ScrittaInformazioni[1]->setText(MessaggiAvvio.value(6));
    ScrittaInformazioni[2]->setText(MessaggiAvvio.value(7));
    ScrittaInformazioni[3]->setText(
        ModalitàFunzionamento != 4 && TastoScelta == 2
            ? QStringLiteral("Per uscire da questa pagina premere la Barra, Invio oppure «Chiudi».")
            : QStringLiteral("Per uscire da questa pagina premere Invio oppure «Chiudi»."));
    // The program folder's copy, which a therapist may rewrite; without it the
    // program's own.
    const QString percorso = PercorsoInformazioni();
    RegistraRisorse();
    QString testo;
    EseguiPassi({{150, [&] {
                      if (QFile::exists(percorso)) {
                          testo = LeggiFileRtf(percorso);
                          return;
                      }
                      // The program's own copy lives in its resources, not on disk.
                      QFile risorsa(RisorsaInformazioni);
                      if (!risorsa.open(QIODevice::ReadOnly))
                          throw ErroreFileAssente(RisorsaInformazioni);
                      testo = TestoDaRtf(risorsa.readAll());
                  }}});
    CasellaInformazioni->setPlainText(QString(testo).replace(u'\r', u'\n'));
    CasellaInformazioni->moveCursor(QTextCursor::Start);
}

bool VisualizzaInformazioni::eventFilter(QObject* oggetto, QEvent* evento) {
    if (oggetto == CasellaInformazioni && evento->type() == QEvent::KeyPress) {
        EseguiProtetto([&] { Tasto(static_cast<QKeyEvent*>(evento)); });
        return true;
    }
    return QWidget::eventFilter(oggetto, evento);
}

void VisualizzaInformazioni::keyPressEvent(QKeyEvent* evento) {
    EseguiProtetto([&] { Tasto(evento); });
}

void VisualizzaInformazioni::mousePressEvent(QMouseEvent*) {
    Bip();
}

void VisualizzaInformazioni::closeEvent(QCloseEvent* evento) {
    // The window's own close button goes back to the menu like "Chiudi": the
    // program ends only through "Esci", which writes the active folder.
    evento->ignore();
    if (isVisible() && InformazioniAperte() == this) EseguiProtetto([this] { Chiudi(); });
}

void VisualizzaInformazioni::Tasto(QKeyEvent* evento) {
    if (evento->isAutoRepeat() || TastoSoloModificatore(evento->key())) return;
    const int codice = CodiceTasto(evento);
    if (codice == CodiciTasto::Invio || codice == CodiciTasto::Spazio) {
        // The tremor that follows the choice which opened the form is no press.
        const int64_t adesso = OrologioCorrente().Adesso();
        if (TempoIgnoraDopoScelta > 0 && adesso - IstanteUltimaScelta < TempoIgnoraDopoScelta)
            return;
    }
    if (TastoDiUscita(codice)) {
        IstanteUltimaScelta = OrologioCorrente().Adesso();
        Chiudi();
        return;
    }
    Bip();
}

void VisualizzaInformazioni::Chiudi() {
    PuntatoreClessidra();
    CaricaMenùGenerale();
    hide();
    // Its own key or click routine is on the stack: it goes when events allow.
    Modulo().release()->deleteLater();
    PuntatorePredefinito();
}

VisualizzaInformazioni* InformazioniAperte() {
    return Modulo().get();
}

VisualizzaInformazioni* CaricaVisualizzaInformazioni() {
    Modulo() = std::make_unique<VisualizzaInformazioni>();
    VisualizzaInformazioni* modulo = Modulo().get();
    modulo->AttivaVisualizzaInformazioni();
    const QRect schermo = QGuiApplication::primaryScreen()->availableGeometry();
    modulo->move(schermo.center() - modulo->rect().center());
    modulo->show();
    modulo->activateWindow();
    modulo->CasellaInformazioni->setFocus(Qt::OtherFocusReason);
    return modulo;
}

void DistruggiVisualizzaInformazioni() {
    Modulo().reset();
}
