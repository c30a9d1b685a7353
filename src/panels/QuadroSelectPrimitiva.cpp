#include "panels/QuadroSelectPrimitiva.h"
#include "base/Bip.h"
#include "base/Configurazione.h"
#include "base/GestioneErrori.h"
#include "base/IconaSvg.h"
#include "base/Misure.h"
#include "base/Numeri.h"
#include "model/Selezione.h"
#include "model/StatoAmbiente.h"
#include "model/TracciaAzioni.h"
#include "model/TracciaSelezione.h"
#include "model/VistaSuperficie.h"
#include "panels/ScrittaPannello.h"

#include <QLabel>

namespace {

// The layout, in twips of the panel's client area: the drawing screen's own
// size, so that the panel covers it whole.
constexpr int LarghezzaQuadro = 15270;
constexpr int AltezzaQuadro = 11145;
constexpr int SinistraDisegno = 563;
constexpr int AltoTasti = 10245;
constexpr int LarghezzaTasto = 705;
constexpr int AltezzaTasto = 660;
constexpr int MargineCorona = 45;
constexpr int AltoScritte = AltoTasti + (AltezzaTasto - 360) / 2;
constexpr int AltezzaScritte = 360;
constexpr int LarghezzaScritta = 2700;
constexpr int LarghezzaNumero = 1300;

constexpr uint32_t SfondoQuadro = 0x808080; // RGB

struct Tasto {
    int16_t Indice;
    int Sinistra;
    const char* Suggerimento;
    const char* Icona;
};

const Tasto TastiSelezione[] = {
    {101, 4980, "Rende Attiva l'Azione evidenziata", "selezione/rende-attiva"},
    {102, 5925, "Elimina l'Azione evidenziata", "selezione/elimina"},
    {103, 6870, "Sposta all'Azione precedente", "selezione/precedente"},
    {104, 7815, "Sposta all'Azione successiva", "selezione/successiva"},
    {105, 8760, "Sposta alla Prima Azione", "selezione/prima"},
    {106, 9705, "Sposta all'Ultima Azione", "selezione/ultima"},
    {107, 10635, "Sposta l'Azione alla posizione precedente", "selezione/sposta-prima"},
    {108, 11565, "Sposta l'Azione alla posizione successiva", "selezione/sposta-dopo"},
    // The one close picture of every panel.
    {109, 12495, "Chiudi", "pannelli/chiudi"},
};

QLabel* Scritta(QWidget* genitore, int sinistra, int larghezza, const QString& testo,
                Qt::Alignment allineamento) {
    return ScrittaPannello(genitore, QRect(sinistra, AltoScritte, larghezza, AltezzaScritte), testo,
                           11, allineamento);
}

} // namespace

QuadroSelectPrimitiva::QuadroSelectPrimitiva(Superficie& tela, QWidget* genitore)
    : FormScansione(101, 109, genitore),
      QuadroDisegnoPrimitive(LarghezzaQuadroDisegno, AltezzaQuadroDisegno), tela_(tela) {
    setObjectName(QStringLiteral("QuadroSelectPrimitiva"));
    setFixedSize(Px(LarghezzaQuadro), Px(AltezzaQuadro));
    QPalette p = palette();
    p.setColor(QPalette::Window, ColoreRGB(SfondoQuadro));
    setPalette(p);
    setAutoFillBackground(true);

    // A copy of the drawing shows on the drawing's own background.
    QuadroDisegnoPrimitive.ImpostaBackColor(tela_.BackColor());
    VistaDisegnoPrimitive = new VistaSuperficie(QuadroDisegnoPrimitive, this);
    VistaDisegnoPrimitive->setObjectName(QStringLiteral("QuadroDisegnoPrimitive"));
    VistaDisegnoPrimitive->setGeometry(
        RettangoloTwips(SinistraDisegno, 0, LarghezzaQuadroDisegno, AltezzaQuadroDisegno));
    VistaDisegnoPrimitive->setAccessibleName(QStringLiteral("Disegno con l'Azione evidenziata"));

    ScrittaAzioneAttiva = Scritta(this, SinistraDisegno, LarghezzaScritta,
                                  QStringLiteral("Numero Azione Attiva:"), Qt::AlignRight);
    ScrittaNumAzioneAttiva = Scritta(this, SinistraDisegno + LarghezzaScritta + 90, LarghezzaNumero,
                                     QString(), Qt::AlignLeft);
    ScrittaNumAzioneAttiva->setObjectName(QStringLiteral("ScrittaNumAzioneAttiva"));

    QList<DefinizioneTasto> tabella;
    for (const Tasto& t : TastiSelezione)
        tabella.append({t.Indice, t.Sinistra, AltoTasti, LarghezzaTasto, AltezzaTasto, QString(),
                        QString::fromUtf8(t.Suggerimento)});
    CreaTasti(tabella, MargineCorona);
    for (const Tasto& t : TastiSelezione)
        ImpostaIcona(Tasti.value(t.Indice),
                     QStringLiteral(":/icone/%1.svg").arg(QLatin1String(t.Icona)));
}

void QuadroSelectPrimitiva::AttivaQuadroSelectPrimitiva() {
    EseguiPassi({
        {2100,
         [this] {
             setWindowIcon(IconaSvg(QStringLiteral(":/logo-zanto.svg"), QSize(32, 32)));
             for (int16_t i = 101; i <= 109; ++i) {
                 Corone.value(i)->hide();
                 ImpostaColoreCorona(i, ColoriCorona::Verde);
             }
         }},
        {2110,
         [this] { TitoloSelezione = QStringLiteral("Programma «ZANTO»  -  Selezione Elemento"); }},
        {2120,
         [this] {
             Motore.TastoCorrente = 103;
             AggiornaCorone();
         }},
        {2130, [] { AzioneScelta = Intero16(static_cast<int64_t>(NumeroAzioni)); }},
        {2140, [this] { DisegnaQuadroPrimitive(); }},
    });
}

void QuadroSelectPrimitiva::AggiornaCorone() {
    FormScansione::AggiornaCorone();
    // The title speaks the command under the ring at every step.
    const TastoZanto* tasto = Tasti.value(Motore.TastoCorrente);
    setWindowTitle(TitoloSelezione + QStringLiteral("  #  COMANDO: « ") +
                   (tasto != nullptr ? tasto->toolTip() : QString()) + QStringLiteral(" » "));
}

void QuadroSelectPrimitiva::DisegnaQuadroPrimitive() {
    Superficie& s = QuadroDisegnoPrimitive;
    TracciaSelezione(s, Azioni, NumeroAzioni, AzioneScelta);
    // Whatever a fault left, the keep switch goes off and the drawing shows.
    s.AutoRedraw = false;
    s.Refresh();
    ScrittaNumAzioneAttiva->setText(QStringLiteral("%1").arg(AzioneScelta, 4, 10, QChar(u'0')));
}

void QuadroSelectPrimitiva::ClickTasto(int16_t indice) {
    switch (indice) {
    case 101:
        Motore.FermaScansione();
        done(1);
        return;
    case 109:
        AzioneScelta = 0;
        Motore.FermaScansione();
        done(0);
        return;
    case 102:
        Elimina();
        break;
    case 103:
    case 104:
    case 105:
    case 106:
        Seleziona(indice);
        break;
    case 107:
        Sposta(-1);
        break;
    case 108:
        Sposta(1);
        break;
    default:
        return;
    }
    Riprendi();
}

void QuadroSelectPrimitiva::Seleziona(int16_t indice) {
    // With every action deleted there is nothing left to walk through.
    if (NumeroAzioni < 1) {
        Bip();
        return;
    }
    const int16_t ultima = Intero16(static_cast<int64_t>(NumeroAzioni));
    switch (indice) {
    case 103:
        if (AzioneScelta - 1 < 1) {
            AzioneScelta = 1;
            Bip();
            return;
        }
        --AzioneScelta;
        break;
    case 104:
        if (AzioneScelta + 1 > NumeroAzioni) {
            AzioneScelta = ultima;
            Bip();
            return;
        }
        ++AzioneScelta;
        break;
    case 105:
        AzioneScelta = 1;
        break;
    default:
        AzioneScelta = ultima;
        break;
    }
    DisegnaQuadroPrimitive();
}

void QuadroSelectPrimitiva::Elimina() {
    if (NumeroAzioni < 1) {
        Bip();
        return;
    }
    // What the fills rested on has changed: they become dots.
    ColorazioniInTondini();
    EliminaAzione(AzioneScelta);
    // The indices of a selection no longer name what was selected.
    AzzeraSelezione();
    RidisegnaTela();
    Motore.TastoCorrente = 104;
    AggiornaCorone();
    AzioneScelta = 1;
    DisegnaQuadroPrimitive();
}

void QuadroSelectPrimitiva::Sposta(int32_t verso) {
    const int32_t vicina = AzioneScelta + verso;
    if (vicina < 1 || vicina > NumeroAzioni || AzioneScelta < 1 || AzioneScelta > NumeroAzioni) {
        Bip();
        return;
    }
    ColorazioniInTondini();
    RecordScambio = Azioni[AzioneScelta];
    Azioni[AzioneScelta] = Azioni[vicina];
    Azioni[vicina] = RecordScambio;
    AzzeraSelezione();
    RidisegnaTela();
    // The selection follows the action, and the ring stays on the key, so
    // that picking it again moves the same action on.
    AzioneScelta = Intero16(static_cast<int64_t>(vicina));
    DisegnaQuadroPrimitive();
}

void QuadroSelectPrimitiva::RidisegnaTela() {
    RitracciaTutto(tela_);
}

void QuadroSelectPrimitiva::Riprendi() {
    if (ModalitàFunzionamento == 1 || ModalitàFunzionamento == 2) Motore.AvviaScansione();
}

void ApriQuadroSelectPrimitiva(Superficie& tela) {
    QuadroSelectPrimitiva quadro(tela);
    quadro.AttivaQuadroSelectPrimitiva();
    // Over the whole drawing screen, its title bar too: below a title of its
    // own the row of keys would not fit on a screen of 768 lines.
    QPoint posto(0, 0);
    if (const FormScansione* sotto = FormScansione::InPrimoPiano()) posto = sotto->PostoInTwips();
    quadro.PosizionaSopra(posto.x(), posto.y());
    quadro.exec();
}
