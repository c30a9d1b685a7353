#include "panels/VideaAvanzamento.h"

#include "base/Configurazione.h"
#include "base/GestioneErrori.h"
#include "base/Misure.h"
#include "input/FormScansione.h"
#include "input/MotoreScansione.h"
#include "model/VistaSuperficie.h"

#include <QCloseEvent>
#include <QCoreApplication>
#include <QKeyEvent>
#include <QLabel>
#include <QPointer>
#include <QPushButton>
#include <QScopedValueRollback>

#include <algorithm>

namespace {

constexpr int LarghezzaBox = 8565;
constexpr int AltezzaBox = 570;

QPointer<VideaAvanzamento>& Aperta() {
    static QPointer<VideaAvanzamento> forma;
    return forma;
}

void Colori(QLabel* etichetta, const QColor& sfondo, const QColor& testo) {
    QPalette p = etichetta->palette();
    p.setColor(QPalette::Window, sfondo);
    p.setColor(QPalette::WindowText, testo);
    etichetta->setPalette(p);
}

} // namespace

VideaAvanzamento::VideaAvanzamento(QWidget* genitore)
    : QDialog(genitore), Barra(LarghezzaBox, AltezzaBox) {
    setWindowTitle(QStringLiteral("Programma «ZANTO» - Visualizzazione avanzamento procedura"));
    setModal(false);
    setFixedSize(Px(10410), Px(1275));

    ScrittaAttendereAvanzamento = new QLabel(QStringLiteral("ATTENDERE !"), this);
    ScrittaAttendereAvanzamento->setGeometry(RettangoloTwips(135, 135, LarghezzaBox, 435));
    ScrittaAttendereAvanzamento->setAlignment(Qt::AlignCenter);
    ScrittaAttendereAvanzamento->setFrameShape(QFrame::Panel);
    ScrittaAttendereAvanzamento->setAutoFillBackground(true);
    ScrittaAttendereAvanzamento->setFont(Carattere(QStringLiteral("Arial"), 12, true));

    Barra.ImpostaBackColor(0xFFFFFF);
    Barra.FontName = QStringLiteral("Arial");
    Barra.FontSize = 10;
    Barra.FontBold = true;
    BoxLineaAvanzamento = new VistaSuperficie(Barra, this);
    BoxLineaAvanzamento->setGeometry(RettangoloTwips(135, 600, LarghezzaBox, AltezzaBox));

    TastoAnnullaProcesso = new QPushButton(QStringLiteral("Annulla"), this);
    TastoAnnullaProcesso->setGeometry(RettangoloTwips(8835, 135, 1440, 1005));
    TastoAnnullaProcesso->setFocusPolicy(Qt::NoFocus);
    TastoAnnullaProcesso->setAutoDefault(false);
    connect(TastoAnnullaProcesso, &QPushButton::clicked, this, [] { AnnullaProcesso = 1; });

    AltezzaBarra = static_cast<int16_t>(AltezzaBox - 40);
    LarghezzaBarra = static_cast<int16_t>(LarghezzaBox - 40);
    CentroBarra = static_cast<int16_t>(LarghezzaBox / 2 - 280);
    PassoBarra = static_cast<int16_t>(LarghezzaBarra / 10);
    Aperta() = this;
}

VideaAvanzamento::~VideaAvanzamento() {
    if (Aperta() == this) Aperta() = nullptr;
}

VideaAvanzamento* VideaAvanzamentoAperta() {
    return Aperta();
}

void VideaAvanzamento::keyPressEvent(QKeyEvent* evento) {
    evento->accept();
    if (evento->isAutoRepeat()) return;
    // A switch user cannot point at the button: the key that chooses
    // everywhere else asks the job to stop here.
    const int codice = CodiceTasto(evento);
    if (MotoreScansione::TastoDiScelta(codice) ||
        (ModalitàFunzionamento == 4 && codice == CodiciTasto::Invio))
        AnnullaProcesso = 1;
}

void VideaAvanzamento::closeEvent(QCloseEvent* evento) {
    evento->ignore();
}

void VideaAvanzamento::reject() {}

void AvanzamentoProcesso() {
    VideaAvanzamento* f = Aperta();
    if (f == nullptr) return;
    QLabel* scritta = f->ScrittaAttendereAvanzamento;
    if (ModoAvanzamento == 1) {
        Colori(scritta, ColoreRGB(0xFFFF00), Qt::black);
        scritta->setText(TestoAvanzamento);
        f->BoxLineaAvanzamento->hide();
        scritta->repaint();
        f->repaint();
    } else {
        Superficie& barra = f->Barra;
        if (PassiAvanzamento == 0) {
            PosizioneBarra = 0;
            const QPalette cornice = f->palette();
            Colori(scritta, cornice.color(QPalette::Window), cornice.color(QPalette::WindowText));
            scritta->setText(TestoAvanzamento);
            f->BoxLineaAvanzamento->show();
            f->repaint();
        }
        PassiAvanzamento = static_cast<int16_t>(std::min<int>(PassiAvanzamento + 1, 32767));
        // Past nine steps the bar still grows under the last figure.
        if (PassiAvanzamento >= 1 && PassiAvanzamento <= 9)
            f->Percentuale = QStringLiteral("%1%").arg(PassiAvanzamento * 10);
        PosizioneBarra =
            static_cast<int16_t>(std::clamp<int>(PosizioneBarra + PassoBarra, -32768, 32767));
        barra.Cls();
        barra.FillStyle = 0;
        barra.FillColor = 0x0000FF;
        barra.Box(10, 10, PosizioneBarra + 10, AltezzaBarra, 0x0000FF);
        barra.CurrentX = CentroBarra;
        barra.CurrentY = 50;
        barra.ForeColor = 0;
        barra.Print(f->Percentuale);
    }
    // The events that wait run, but a key meant for a screen is the job's: it
    // may ask to stop it, never start a routine a second time.
    const QPointer<VideaAvanzamento> forma(f);
    const QScopedValueRollback<std::function<void(QKeyEvent*)>> tasti(
        TastiDelLavoro, [forma](QKeyEvent* evento) {
            if (forma != nullptr && evento->type() == QEvent::KeyPress)
                QCoreApplication::sendEvent(forma, evento);
        });
    QCoreApplication::processEvents();
}
