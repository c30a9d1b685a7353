#include "panels/QuadroSettaggiFont.h"

#include "base/Bip.h"
#include "base/Configurazione.h"
#include "base/GestioneErrori.h"
#include "base/IconaSvg.h"
#include "base/Misure.h"
#include "model/StatoAmbiente.h"
#include "panels/Elaborazioni.h"
#include "panels/EtichettaLista.h"
#include "panels/QuadroMostraLista.h"

#include <QListWidget>

QuadroSettaggiFont::QuadroSettaggiFont(QWidget* genitore) : FormScansione(101, 105, genitore) {
    setObjectName(QStringLiteral("QuadroSettaggiFont"));
    setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
    setFixedSize(Px(795), Px(3780));
    InformaAmbiente = true;
    CreaTasti({{101, 45, 75, 705, 660, QString(), QStringLiteral("Scelta Font")},
               {102, 45, 825, 705, 660, QString(), QStringLiteral("Dimensione Font")},
               {103, 45, 1575, 705, 660, QString(), QStringLiteral("Grassetto")},
               {104, 45, 2325, 705, 660, QString(), QStringLiteral("Corsivo")},
               {105, 45, 3060, 705, 660, QString(), QStringLiteral("Chiudi")}},
              45);
    ImpostaIcona(Tasti.value(101), QStringLiteral(":/icone/pannelli/font-scelta.svg"));
    ImpostaIcona(Tasti.value(102), QStringLiteral(":/icone/pannelli/font-dimensione.svg"));
    ImpostaIcona(Tasti.value(105), QStringLiteral(":/icone/pannelli/chiudi.svg"));

    ListaFont = new QListWidget(this);
    ListaFont->setObjectName(QStringLiteral("ListaFont"));
    ListaFont->setGeometry(RettangoloTwips(60, 330, 3120, 9));
    ListaFont->setSortingEnabled(true);
    ListaFont->setFocusPolicy(Qt::NoFocus);
    ListaFont->hide();
}

void QuadroSettaggiFont::AttivaQuadroSettaggiFont() {
    EseguiPassi({{3000,
                  [this] {
                      setWindowIcon(IconaSvg(QStringLiteral(":/logo-zanto.svg"), QSize(32, 32)));
                      for (int16_t i = 101; i <= 105; ++i) {
                          Corone.value(i)->hide();
                          ImpostaColoreCorona(i, ColoriCorona::Verde);
                      }
                  }},
                 {3010,
                  [this] {
                      Motore.TastoCorrente = 101;
                      AggiornaCorone();
                  }},
                 {3020, [this] {
                      MostraGrassetto();
                      MostraCorsivo();
                  }}});
}

void QuadroSettaggiFont::MostraGrassetto() {
    // The picture tells the state as it is: 1 bold, 2 not.
    ImpostaIcona(Tasti.value(103), GrassettoCorrente == 1
                                       ? QStringLiteral(":/icone/pannelli/grassetto-si.svg")
                                       : QStringLiteral(":/icone/pannelli/grassetto-no.svg"));
    Tasti.value(103)->update();
}

void QuadroSettaggiFont::MostraCorsivo() {
    ImpostaIcona(Tasti.value(104), CorsivoCorrente == 1
                                       ? QStringLiteral(":/icone/pannelli/corsivo-si.svg")
                                       : QStringLiteral(":/icone/pannelli/corsivo-no.svg"));
    Tasti.value(104)->update();
}

void QuadroSettaggiFont::Riprendi() {
    if (ModalitàFunzionamento == 1 || ModalitàFunzionamento == 2) Motore.AvviaScansione();
}

void QuadroSettaggiFont::PrimaAttivazione() {
    // The panel may be shown while disabled by its caller: the focus waits then.
    if (isEnabled()) FocusFix->setFocus(Qt::OtherFocusReason);
    if (ModalitàFunzionamento == 1 || ModalitàFunzionamento == 2) Motore.AvviaScansione();
}

void QuadroSettaggiFont::ClickTasto(int16_t indice) {
    switch (indice) {
    case 101:
        ModoCartelle = 0;
        TipoLista = GenereLista::Font;
        ScegliDaLista();
        if (!VoceScelta.isEmpty()) FontCorrente = LeggiEtichetta(VoceScelta).Nome;
        Riprendi();
        return;
    case 102:
        ModoCartelle = 0;
        TipoLista = GenereLista::Dimensioni;
        ScegliDaLista();
        if (!VoceScelta.isEmpty()) {
            // A size's label is the bare number.
            bool numero = false;
            const int dimensione = LeggiEtichetta(VoceScelta).Nome.toInt(&numero);
            if (numero && dimensione > 0) DimensioneFontCorrente = dimensione;
        }
        Riprendi();
        return;
    case 103:
        GrassettoCorrente = GrassettoCorrente == 1 ? 2 : 1;
        MostraGrassetto();
        Riprendi();
        return;
    case 104:
        CorsivoCorrente = CorsivoCorrente == 1 ? 2 : 1;
        MostraCorsivo();
        Riprendi();
        return;
    case 105:
        Motore.FermaScansione();
        done(0);
        return;
    default:
        return;
    }
}

void ApriQuadroSettaggiFont(int sinistraTwips, int altoTwips) {
    QuadroSettaggiFont quadro;
    quadro.AttivaQuadroSettaggiFont();
    quadro.PosizionaSopra(sinistraTwips, altoTwips);
    quadro.exec();
}
