#include "panels/QuadroSceltaColore1.h"

#include "base/Bip.h"
#include "base/Configurazione.h"
#include "base/GestioneErrori.h"
#include "base/IconaSvg.h"
#include "base/Misure.h"
#include "input/QuadroMessaggi.h"

#include <QApplication>
#include <QGuiApplication>
#include <QScreen>
#include <QVariant>

namespace {

constexpr int16_t Primo = 101;
constexpr int16_t Ultimo = 124;
constexpr int16_t UltimoColore = 122;
constexpr int16_t Arcobaleno = 123;
constexpr int16_t Annulla = 124;

// Where a button keeps its colour, as the program keeps colours.
constexpr char ProprietaColore[] = "coloreSfondo";

constexpr int32_t DaRGB(int rosso, int verde, int blu) {
    return rosso | (verde << 8) | (blu << 16);
}

struct VoceTavolozza {
    int32_t Colore;
    const char* Nome; // the button's tooltip and accessible name
};

// 101 to 115: the sixteen colours of the text-mode palette from 15 down,
// light grey left out; then seven of the program's own.
const VoceTavolozza Tavolozza[UltimoColore - Primo + 1] = {{DaRGB(255, 255, 255), "Bianco"},
                                                           {DaRGB(255, 255, 0), "Giallo"},
                                                           {DaRGB(255, 0, 255), "Magenta"},
                                                           {DaRGB(255, 0, 0), "Rosso"},
                                                           {DaRGB(0, 255, 255), "Azzurro"},
                                                           {DaRGB(0, 255, 0), "Verde"},
                                                           {DaRGB(0, 0, 255), "Blu"},
                                                           {DaRGB(128, 128, 128), "Grigio"},
                                                           {DaRGB(128, 128, 0), "Verde Oliva"},
                                                           {DaRGB(128, 0, 128), "Viola"},
                                                           {DaRGB(128, 0, 0), "Rosso Scuro"},
                                                           {DaRGB(0, 128, 128), "Verde Acqua"},
                                                           {DaRGB(0, 128, 0), "Verde Scuro"},
                                                           {DaRGB(0, 0, 128), "Blu Scuro"},
                                                           {DaRGB(0, 0, 0), "Nero"},
                                                           {DaRGB(128, 64, 0), "Marrone"},
                                                           {DaRGB(64, 0, 0), "Marrone Scuro"},
                                                           {DaRGB(255, 128, 0), "Arancione"},
                                                           {DaRGB(255, 128, 64), "Arancio Chiaro"},
                                                           {DaRGB(255, 166, 166), "Rosa"},
                                                           {DaRGB(255, 136, 136), "Rosa Salmone"},
                                                           {DaRGB(91, 242, 167), "Verde Chiaro"}};

QList<FormScansione::DefinizioneTasto> TabellaTasti() {
    QList<FormScansione::DefinizioneTasto> tabella;
    for (int16_t i = Primo; i <= Ultimo; ++i) {
        const int posto = i - Primo;
        QString suggerimento;
        if (i <= UltimoColore) suggerimento = QString::fromUtf8(Tavolozza[posto].Nome);
        if (i == Arcobaleno) suggerimento = QStringLiteral("Altri Colori");
        if (i == Annulla) suggerimento = QStringLiteral("Annulla");
        tabella.append(
            {i, 75 + 735 * (posto % 8), 75 + 735 * (posto / 8), 630, 630, QString(), suggerimento});
    }
    return tabella;
}

// The canvas of the screen the panel opens above, in global pixels; or that
// screen; or the display.
QRect AreaDaCentrare() {
    FormScansione* davanti = FormScansione::InPrimoPiano();
    QList<QWidget*> candidati;
    if (davanti != nullptr) candidati.append(davanti);
    // A panel of the drawing screen may be in front: the canvas is behind it.
    for (QWidget* w : QApplication::topLevelWidgets())
        if (w != davanti && w->isVisible() && dynamic_cast<FormScansione*>(w) != nullptr)
            candidati.append(w);
    for (QWidget* w : std::as_const(candidati)) {
        const auto* quadro = w->findChild<QWidget*>(QStringLiteral("QuadroDisegno"));
        if (quadro != nullptr && quadro->isVisible())
            return {quadro->mapToGlobal(QPoint(0, 0)), quadro->size()};
    }
    if (davanti != nullptr) return davanti->frameGeometry();
    if (const QScreen* schermo = QGuiApplication::primaryScreen())
        return schermo->availableGeometry();
    return {};
}

} // namespace

QuadroSceltaColore1::QuadroSceltaColore1(QWidget* genitore)
    : FormScansione(Primo, Ultimo, genitore) {
    setObjectName(QStringLiteral("QuadroSceltaColore1"));
    setWindowTitle(QStringLiteral("Programma «ZANTO»  -  Scelta Colore"));
    setFixedSize(Px(5925), Px(2190));
    CreaTasti(TabellaTasti(), 45);
    // The arrows of mode 4 walk the grid: left and right in the row, up and down by rows.
    Motore.Colonne = 8;
    // The rainbow is a picture of 32 by 32 pixels, not fitted to the face.
    TastoZanto* arcobaleno = Tasti.value(Arcobaleno);
    const QString risorsa = QStringLiteral(":/icone/pannelli/arcobaleno.svg");
    ImpostaIcona(arcobaleno, risorsa);
    const QSize trentadue(Px(480), Px(480));
    arcobaleno->setIcon(IconaSvg(risorsa, trentadue));
    arcobaleno->setIconSize(trentadue);
    ImpostaIcona(Tasti.value(Annulla), QStringLiteral(":/icone/pannelli/annulla-colore.svg"));
}

void QuadroSceltaColore1::ColoraTasto(int16_t indice, int32_t colore) {
    TastoZanto* tasto = Tasti.value(indice);
    tasto->setProperty(ProprietaColore, QVariant::fromValue(colore));
    // A style of its own: the platform's style would shade the colour.
    tasto->setStyleSheet(
        QStringLiteral("QPushButton { background-color: %1; border: 1px solid #404040; }")
            .arg(ColoreQt(colore).name()));
}

int32_t QuadroSceltaColore1::ColoreTasto(int16_t indice) const {
    const TastoZanto* tasto = Tasti.value(indice);
    if (tasto == nullptr) return -1;
    const QVariant colore = tasto->property(ProprietaColore);
    return colore.isValid() ? colore.value<int32_t>() : -1;
}

void QuadroSceltaColore1::AttivaQuadroSceltaColore1() {
    EseguiPassi(
        {{1700,
          [this] { setWindowIcon(IconaSvg(QStringLiteral(":/logo-zanto.svg"), QSize(32, 32))); }},
         {1710,
          [this] {
              for (int16_t i = Primo; i <= UltimoColore; ++i)
                  ColoraTasto(i, Tavolozza[i - Primo].Colore);
          }},
         {1720,
          [this] {
              for (int16_t i = Primo; i <= Ultimo; ++i) {
                  Tasti.value(i)->Predefinito = false;
                  Corone.value(i)->hide();
                  ImpostaColoreCorona(i, ColoriCorona::Verde);
              }
          }},
         {1730, [this] { Motore.TastoCorrente = Primo; }},
         {1740,
          [this] {
              // Black is 0, not above it: with black in use the ring starts on 101.
              if (ColoreScelto <= 0) return;
              for (int16_t i = Primo; i <= Ultimo; ++i) {
                  if (ColoreTasto(i) == ColoreScelto) {
                      Motore.TastoCorrente = i;
                      return;
                  }
              }
          }},
         {1790, [this] { AggiornaCorone(); }}});
}

void QuadroSceltaColore1::ClickTasto(int16_t indice) {
    if (indice < Primo || indice > Ultimo) return;
    if (indice == Arcobaleno) {
        Bip();
        Messaggio(TestoTastoNonOperativo, 1, 1);
        if (ModalitàFunzionamento == 1 || ModalitàFunzionamento == 2) Motore.AvviaScansione();
        return;
    }
    ColoreScelto = indice == Annulla ? -1 : ColoreTasto(indice);
    Motore.FermaScansione();
    done(indice);
}

void ApriQuadroSceltaColore1() {
    const QRect area = AreaDaCentrare();
    QuadroSceltaColore1 quadro;
    quadro.AttivaQuadroSceltaColore1();
    // The client area, buttons and all, is what stands in the middle; a frame
    // of the platform goes round it.
    quadro.setGeometry(QRect(area.center() - quadro.rect().center(), quadro.size()));
    ParcheggiaMouse();
    quadro.exec();
}
