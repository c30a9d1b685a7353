#include "panels/QuadroSceltaDirezione.h"

#include "base/Configurazione.h"
#include "base/IconaSvg.h"
#include "base/Misure.h"
#include "model/StatoAmbiente.h"

QuadroSceltaDirezione::QuadroSceltaDirezione(QWidget* genitore)
    : FormScansione(101, 105, genitore) {
    setObjectName(QStringLiteral("QuadroSceltaDirezione"));
    // No title: the panel is a strip of buttons above the drawing.
    setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
    setFixedSize(Px(3975), Px(780));
    InformaAmbiente = true;
    CreaTasti({{101, 45, 75, 705, 660, QString(), QStringLiteral("Direzione «Sinistra»")},
               {102, 840, 75, 705, 660, QString(), QStringLiteral("Direzione «Destra»")},
               {103, 1635, 75, 705, 660, QString(), QStringLiteral("Direzione «Alto»")},
               {104, 2430, 75, 705, 660, QString(), QStringLiteral("Direzione «Basso»")},
               {105, 3225, 75, 705, 660, QString(), QStringLiteral("Chiudi")}},
              45);
    const char* immagini[] = {
        ":/icone/pannelli/direzione-sinistra.svg", ":/icone/pannelli/direzione-destra.svg",
        ":/icone/pannelli/direzione-alto.svg", ":/icone/pannelli/direzione-basso.svg",
        ":/icone/pannelli/chiudi.svg"};
    for (int16_t i = 101; i <= 105; ++i)
        ImpostaIcona(Tasti.value(i), QString::fromLatin1(immagini[i - 101]));
}

void QuadroSceltaDirezione::AttivaQuadroSceltaDirezione() {
    setWindowIcon(IconaSvg(QStringLiteral(":/logo-zanto.svg"), QSize(32, 32)));
    for (int16_t i = 101; i <= 105; ++i) {
        Corone.value(i)->hide();
        ImpostaColoreCorona(i, ColoriCorona::Verde);
    }
    // The ring starts on the last direction; in mode 3 only on a real one.
    const int16_t ultima = DirezioneScelta;
    const bool sullUltima =
        ModalitàFunzionamento == 3 ? ultima >= 1 && ultima <= 4 : ultima >= 1 && ultima <= 5;
    Motore.TastoCorrente = sullUltima ? static_cast<int16_t>(100 + ultima) : int16_t{101};
    TastoMarcato = ultima >= 1 && ultima <= 4 ? static_cast<int16_t>(100 + ultima) : int16_t{0};
    AggiornaCorone();
}

void QuadroSceltaDirezione::RoutineTastoGiu(int codice, int modificatori) {
    // Mode 4 moves with the arrows directly: this panel is never up then.
    if (ModalitàFunzionamento == 4) {
        Motore.ShiftPremuto = (modificatori & 1) ? -1 : 0;
        Motore.CtrlPremuto = (modificatori & 2) ? -1 : 0;
        Motore.AltPremuto = (modificatori & 4) ? -1 : 0;
        return;
    }
    Motore.RoutineTasti(codice, modificatori);
}

void QuadroSceltaDirezione::ClickTasto(int16_t indice) {
    if (indice < 101 || indice > 105) return;
    DirezioneScelta = static_cast<int16_t>(indice - 100);
    Motore.FermaScansione();
    done(DirezioneScelta);
}

void ApriQuadroSceltaDirezione() {
    QuadroSceltaDirezione quadro;
    quadro.AttivaQuadroSceltaDirezione();
    // Centred under the canvas' lower edge, clear of the element in the middle
    // and of the strip of labels below.
    quadro.PosizionaSopra((15270 - 3975) / 2, 780 + 10000 - 780 - 90);
    quadro.exec();
}
