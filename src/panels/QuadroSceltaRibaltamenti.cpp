#include "panels/QuadroSceltaRibaltamenti.h"

#include "base/GestioneErrori.h"
#include "base/IconaSvg.h"
#include "base/Misure.h"

QuadroSceltaRibaltamenti::QuadroSceltaRibaltamenti(QWidget* genitore)
    : FormScansione(101, 105, genitore) {
    setObjectName(QStringLiteral("QuadroSceltaRibaltamenti"));
    setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
    setFixedSize(Px(795), Px(3780));
    InformaAmbiente = true;
    CreaTasti({{101, 45, 75, 705, 660, QString(), QStringLiteral("Ribalta per Asse Destro")},
               {102, 45, 825, 705, 660, QString(), QStringLiteral("Ribalta per Asse Sinistro")},
               {103, 45, 1575, 705, 660, QString(), QStringLiteral("Ribalta per Asse Inferiore")},
               {104, 45, 2325, 705, 660, QString(), QStringLiteral("Ribalta per Asse Superiore")},
               {105, 45, 3060, 705, 660, QString(), QStringLiteral("Chiudi")}},
              45);
    const char* immagini[] = {
        ":/icone/pannelli/ribalta-destro.svg", ":/icone/pannelli/ribalta-sinistro.svg",
        ":/icone/pannelli/ribalta-inferiore.svg", ":/icone/pannelli/ribalta-superiore.svg",
        ":/icone/pannelli/chiudi.svg"};
    for (int16_t i = 101; i <= 105; ++i)
        ImpostaIcona(Tasti.value(i), QString::fromLatin1(immagini[i - 101]));
}

void QuadroSceltaRibaltamenti::AttivaQuadroSceltaRibaltamenti() {
    EseguiPassi({{3000,
                  [this] {
                      setWindowIcon(IconaSvg(QStringLiteral(":/logo-zanto.svg"), QSize(32, 32)));
                      for (int16_t i = 101; i <= 105; ++i) {
                          Corone.value(i)->hide();
                          ImpostaColoreCorona(i, ColoriCorona::Verde);
                      }
                  }},
                 {3010, [this] {
                      Motore.TastoCorrente = 101;
                      AggiornaCorone();
                  }}});
}

void QuadroSceltaRibaltamenti::ClickTasto(int16_t indice) {
    if (indice < 101 || indice > 105) return;
    RibaltamentoScelto = static_cast<int16_t>(indice - 100);
    Motore.FermaScansione();
    done(RibaltamentoScelto);
}

void ApriQuadroSceltaRibaltamenti(int sinistraTwips, int altoTwips) {
    QuadroSceltaRibaltamenti quadro;
    quadro.AttivaQuadroSceltaRibaltamenti();
    quadro.PosizionaSopra(sinistraTwips, altoTwips);
    quadro.exec();
}
