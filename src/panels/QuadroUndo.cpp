#include "panels/QuadroUndo.h"

#include "archive/ArchivioAzioni.h"
#include "base/Bip.h"
#include "base/Configurazione.h"
#include "base/GestioneErrori.h"
#include "base/IconaSvg.h"
#include "base/Misure.h"
#include "base/Numeri.h"
#include "model/RecordAzione.h"
#include "model/TracciaAzioni.h"
#include "model/VistaSuperficie.h"
#include "panels/ScrittaPannello.h"

#include <QSlider>

#include <algorithm>

namespace {

// The layout, in twips of the panel's client area.
constexpr int SinistraScala = 375;
constexpr int AltoScala = 10005;
constexpr int LarghezzaScala = 14535;
constexpr int AltezzaScala = 510;
// The strip lies over the top band of the slider's box, whose groove and
// ticks stand in the lower band: the surface above fills the height up to it.
// It runs a little past the slider's right end, so that the number, which
// steps (width - 300) / steps from 60 twips in, stays over the thumb, which
// steps a handle's length less than the slider's width.
constexpr int AltezzaLinea = 180;
constexpr int LarghezzaLinea = LarghezzaScala + 150;
constexpr int SinistraDisegno = SinistraScala + (LarghezzaScala - LarghezzaQuadroDisegno) / 2;
constexpr int AltoScritte = AltoScala + AltezzaScala + 30;
constexpr int AltezzaScritte = 285;
constexpr int LarghezzaScritta = 1500;
// At least as wide as its strip; opened over the drawing screen it grows to
// that screen's width (ApriQuadroUndo).
constexpr int LarghezzaQuadro = SinistraScala + LarghezzaLinea;
constexpr int AltezzaQuadro = AltoScritte + AltezzaScritte + 45;

constexpr uint32_t SfondoQuadro = 0x808080; // RGB
constexpr int32_t SfondoLinea = 0x808080;   // BGR, the same grey
constexpr int32_t ColoreNumero = 0xFFFFFF;
constexpr int32_t SfondoDisegnoUndo = 0xC0C0C0;

QLabel* Scritta(QWidget* genitore, int sinistra, const QString& testo, Qt::Alignment allineamento) {
    return ScrittaPannello(genitore, QRect(sinistra, AltoScritte, LarghezzaScritta, AltezzaScritte),
                           testo, 9, allineamento);
}

} // namespace

QuadroUndo::QuadroUndo(QWidget* genitore)
    : FormScansione(0, 0, genitore), LineaTempoUndo(LarghezzaLinea, AltezzaLinea),
      QuadroDisegnoUndo(LarghezzaQuadroDisegno, AltezzaQuadroDisegno) {
    setObjectName(QStringLiteral("QuadroUndo"));
    setWindowTitle(QStringLiteral("Programma «ZANTO»  -  Annullamento Azioni"));
    setFixedSize(Px(LarghezzaQuadro), Px(AltezzaQuadro));
    QPalette p = palette();
    p.setColor(QPalette::Window, ColoreRGB(SfondoQuadro));
    setPalette(p);
    setAutoFillBackground(true);

    QuadroDisegnoUndo.ImpostaBackColor(SfondoDisegnoUndo);
    VistaDisegnoUndo = new VistaSuperficie(QuadroDisegnoUndo, this);
    VistaDisegnoUndo->setObjectName(QStringLiteral("QuadroDisegnoUndo"));
    VistaDisegnoUndo->setGeometry(
        RettangoloTwips(SinistraDisegno, 0, LarghezzaQuadroDisegno, AltezzaQuadroDisegno));
    VistaDisegnoUndo->setAccessibleName(QStringLiteral("Disegno del passo"));

    // A slider only shows where the step stands: no key and no pointer reach it.
    ScalaUndo = new QSlider(Qt::Horizontal, this);
    ScalaUndo->setObjectName(QStringLiteral("ScalaUndo"));
    ScalaUndo->setGeometry(RettangoloTwips(SinistraScala, AltoScala, LarghezzaScala, AltezzaScala));
    ScalaUndo->setFocusPolicy(Qt::NoFocus);
    ScalaUndo->setAttribute(Qt::WA_TransparentForMouseEvents);
    ScalaUndo->setTickPosition(QSlider::TicksBothSides);
    ScalaUndo->setAccessibleName(QStringLiteral("Passo"));

    LineaTempoUndo.ImpostaBackColor(SfondoLinea);
    LineaTempoUndo.ForeColor = ColoreNumero;
    VistaLineaTempo = new VistaSuperficie(LineaTempoUndo, this);
    VistaLineaTempo->setObjectName(QStringLiteral("LineaTempoUndo"));
    VistaLineaTempo->setGeometry(
        RettangoloTwips(SinistraScala, AltoScala, LarghezzaLinea, AltezzaLinea));

    ScrittaUndo.insert(101, Scritta(this, SinistraScala, QStringLiteral("PRIMA"), Qt::AlignLeft));
    ScrittaUndo.insert(
        102, Scritta(this, SinistraScala + LarghezzaScritta, QString(), Qt::AlignHCenter));
    ScrittaUndo.value(102)->resize(Px(LarghezzaScala - 2 * LarghezzaScritta), Px(AltezzaScritte));
    ScrittaUndo.insert(103, Scritta(this, SinistraScala + LarghezzaScala - LarghezzaScritta,
                                    QStringLiteral("ADESSO"), Qt::AlignRight));
    for (QLabel* l : std::as_const(ScrittaUndo))
        l->hide();

    Motore.PassoCiclo = [this](int16_t passo) { Scorri(passo); };
    Motore.PassiPerGiro = [this] { return int(PassiDisponibili) + 1; };
    Motore.Avanti = [this] { Avanti(); };
    Motore.Indietro = [this] { Indietro(); };
}

void QuadroUndo::AttivaQuadroUndo() {
    EseguiPassi({
        {6200,
         [this] {
             setWindowIcon(IconaSvg(QStringLiteral(":/logo-zanto.svg"), QSize(32, 32)));
             PassiDisponibili = CodiceCopiaLavoro - BaseCopieLavoro;
             ScalaUndo->setMinimum(0);
             ScalaUndo->setMaximum(PassiDisponibili);
             ScalaUndo->setSingleStep(1);
             ScalaUndo->setPageStep(1);
             ScalaUndo->setTickInterval(1);
             ScalaUndo->show();
         }},
        {6210,
         [this] {
             for (QLabel* l : std::as_const(ScrittaUndo))
                 l->show();
             LineaTempoUndo.FontSize = 9;
             LineaTempoUndo.ImmagineVuota();
         }},
        {6220,
         [this] {
             PassoUndo = Intero16(static_cast<int64_t>(PassiDisponibili));
             if (PassiDisponibili == 0) throw ErroreZanto{11, QStringLiteral("Divisione per zero")};
             LarghezzaPasso =
                 Intero16(Arrotonda(double(LarghezzaLinea - 300) / double(PassiDisponibili)));
         }},
        {6230,
         [this] {
             MostraPasso();
             DisegnaPasso();
         }},
    });
}

void QuadroUndo::MostraPasso() {
    ScalaUndo->setValue(PassoUndo);
    ScalaUndo->repaint();
    Superficie& s = LineaTempoUndo;
    s.AutoRedraw = true;
    s.ImmagineVuota();
    const QString numero = QString::number(PassoUndo);
    s.CurrentX = float(int32_t(LarghezzaPasso) * PassoUndo + 60 -
                       static_cast<int32_t>(s.TextWidth(numero) / 2));
    s.CurrentY = 0;
    s.Print(numero);
    s.AutoRedraw = false;
    s.Refresh();
}

void QuadroUndo::DisegnaPasso() {
    passoDisegnato_ = PassoUndo;
    Superficie& s = QuadroDisegnoUndo;
    s.ImmagineVuota();
    s.Refresh();
    if (PassoUndo == 0 || guasti_.contains(PassoUndo)) return;
    QList<RecordAzione> copia;
    int32_t numero = -1;
    EseguiPassi({
        {6310,
         [&] {
             CodiceDisegnoDaCaricare = BaseCopieLavoro + PassoUndo;
             CaricaAzioniDisegno();
             copia = AzioniUndo;
             numero = NumeroAzioniUndo;
         }},
        {6320,
         [&] {
             if (numero < 0) return;
             s.AutoRedraw = true;
             s.DrawStyle = 0;
             TracciaLista(s, copia, 1, numero, true);
         }},
    });
    if (numero < 0) guasti_.insert(PassoUndo);
    // Whatever a fault left, the keep switch goes off and the step shows.
    s.AutoRedraw = false;
    s.Refresh();
}

QString QuadroUndo::NomeParlato(int16_t indice) const {
    Q_UNUSED(indice);
    return QStringLiteral("passo %1").arg(PassoUndo);
}

void QuadroUndo::AggiornaCorone() {
    MostraPasso();
    // A pause redraws the same step at each tick: the copy is read once.
    if (PassoUndo != passoDisegnato_) DisegnaPasso();
}

void QuadroUndo::Scorri(int16_t passo) {
    const int32_t nuovo = PassoUndo + passo;
    if (passo < 0 && nuovo < 0)
        PassoUndo = Intero16(static_cast<int64_t>(PassiDisponibili));
    else if (nuovo > PassiDisponibili)
        PassoUndo = 0;
    else
        PassoUndo = static_cast<int16_t>(nuovo);
}

void QuadroUndo::Avanti() {
    // With five keys the ends hold; the scan key of mode 3 goes round.
    if (ModalitàFunzionamento == 4 && PassoUndo >= PassiDisponibili) {
        Bip();
        return;
    }
    Scorri(1);
}

void QuadroUndo::Indietro() {
    if (PassoUndo <= 0) {
        Bip();
        return;
    }
    Scorri(-1);
}

void QuadroUndo::RoutineTastoGiu(int codice, int modificatori) {
    // With no button to carry the default flag, Enter of mode 4 ends the panel here.
    if (ModalitàFunzionamento == 4 && codice == CodiciTasto::Invio) {
        ClickTasto(0);
        return;
    }
    Motore.RoutineTasti(codice, modificatori);
}

void QuadroUndo::ClickTasto(int16_t indice) {
    Q_UNUSED(indice);
    Motore.FermaScansione();
    done(PassoUndo);
}

void ApriQuadroUndo() {
    // The screen below, before the panel stands in front of it.
    const FormScansione* sotto = FormScansione::InPrimoPiano();
    QuadroUndo quadro;
    quadro.AttivaQuadroUndo();
    // Over the canvas and the row of buttons: the step is seen at full size.
    // It covers the screen's buttons on the right and at the bottom whole,
    // frame included (the same window manager gives it the frame of the screen
    // below), rather than leave a sliver of some showing.
    if (sotto != nullptr) {
        const QSize cornice = sotto->frameGeometry().size() - sotto->size();
        quadro.setFixedSize(std::max(quadro.width(), sotto->width() - cornice.width()),
                            std::max(quadro.height(), sotto->height() - cornice.height()));
    }
    quadro.PosizionaSopra(0, 0);
    quadro.exec();
}
