#include "panels/QuadroSettaggi.h"

#include "base/Bip.h"
#include "base/Configurazione.h"
#include "base/GestioneErrori.h"
#include "base/IconaSvg.h"
#include "base/Misure.h"
#include "input/QuadroMessaggi.h"
#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"
#include "model/Superficie.h"
#include "model/TracciaAzioni.h"
#include "panels/Elaborazioni.h"
#include "panels/QuadroMostraLista.h"
#include "panels/QuadroSceltaColore1.h"
#include "panels/QuadroSettaggiFont.h"

#include <utility>

namespace {

constexpr int16_t Primo = 134;
constexpr int16_t Ultimo = 146;

QString Icona(const QString& nome) {
    return QStringLiteral(":/icone/settaggi/%1.svg").arg(nome);
}

QList<FormScansione::DefinizioneTasto> TabellaTasti() {
    struct Riga {
        int16_t Indice;
        int Alto;
        const char* Suggerimento;
    };
    static const Riga righe[] = {
        {134, 75, "Selezione Cartelle"},
        {135, 810, "Scelta Passo Spostamento"},
        {136, 1560, "Scelta Spessore Linea"},
        {137, 2310, "Scelta caratteristice del Testo"},
        {138, 3060, "Scelta Colore Linea"},
        {139, 3810, "Scelta Colore Sfondo"},
        {140, 4560, "Chiudi"},
        {141, 5295, "Da Tondini a Colorazione"},
        {142, 6045, "Da Colorazione a Tondini"},
        {143, 6795, "Leggi Oggetto"},
        {144, 7545, "Salva Oggetto"},
        {145, 8295, "Importa Disegno"},
        {146, 9045, "Esporta Disegno"},
    };
    QList<FormScansione::DefinizioneTasto> tabella;
    for (const Riga& r : righe)
        tabella.append(
            {r.Indice, 45, r.Alto, 705, 660, QString(), QString::fromUtf8(r.Suggerimento)});
    return tabella;
}

// Nothing open in the hands: no element, no edit command, no object.
} // namespace

bool ManiLibere() {
    return ComandoModifica < 1 && PrimitivaAttiva < 1 && OggettoAttivo != 1;
}

int32_t PassoDellIndice(int16_t indice) {
    static const int32_t passi[] = {15, 50, 150, 300};
    return passi[std::clamp<int>(indice, 1, 4) - 1];
}

int32_t SpessoreDellIndice(int16_t indice) {
    static const int32_t spessori[] = {1, 2, 4, 6};
    return spessori[std::clamp<int>(indice, 1, 4) - 1];
}

QuadroSettaggi::QuadroSettaggi(Superficie& tela, std::function<void()> coloriCambiati,
                               QWidget* genitore)
    : FormScansione(Primo, Ultimo, genitore), tela_(tela),
      coloriCambiati_(std::move(coloriCambiati)) {
    setObjectName(QStringLiteral("QuadroSettaggi"));
    setWindowFlags(Qt::Dialog | Qt::FramelessWindowHint);
    setFixedSize(Px(795), Px(9765));
    InformaAmbiente = true;
    CreaTasti(TabellaTasti(), 45);
    for (int16_t i = Primo; i <= Ultimo; ++i)
        if (i != 135 && i != 136)
            ImpostaIcona(Tasti.value(i), Icona(QStringLiteral("tasto%1").arg(i)));
}

void QuadroSettaggi::AttivaQuadroSettaggi() {
    EseguiPassi(
        {{1900,
          [this] { setWindowIcon(IconaSvg(QStringLiteral(":/logo-zanto.svg"), QSize(32, 32))); }},
         {1910,
          [this] {
              for (int16_t i = Primo; i <= Ultimo; ++i) {
                  Corone.value(i)->hide();
                  ImpostaColoreCorona(i, ColoriCorona::Verde);
              }
          }},
         {1920,
          [this] {
              Motore.TastoCorrente = Primo;
              AggiornaCorone();
          }},
         {1930, [this] {
              MostraPasso();
              MostraSpessore();
          }}});
}

void QuadroSettaggi::MostraPasso() {
    TastoZanto* tasto = Tasti.value(135);
    ImpostaIcona(tasto, Icona(QStringLiteral("passo%1").arg(IndicePasso)));
    tasto->repaint();
}

void QuadroSettaggi::MostraSpessore() {
    TastoZanto* tasto = Tasti.value(136);
    ImpostaIcona(tasto, Icona(QStringLiteral("spessore%1").arg(IndiceSpessore)));
    tasto->repaint();
}

void QuadroSettaggi::Riprendi() {
    if (isVisible() && (ModalitàFunzionamento == 1 || ModalitàFunzionamento == 2))
        Motore.AvviaScansione();
}

void QuadroSettaggi::Chiudi() {
    Motore.FermaScansione();
    done(0);
}

void QuadroSettaggi::ClickTasto(int16_t indice) {
    SezioneCorrente = int16_t(1300 + (indice - Primo) * 70 / 12);
    switch (indice) {
    case 134:
        CartelleOggetti();
        return;
    case 135:
        IndicePasso = int16_t(IndicePasso % 4 + 1);
        PassoSpostamento = PassoDellIndice(IndicePasso);
        FattoreRidimensione = float(PassoSpostamento) / 2000;
        PassoAngolo = float(PassoSpostamento) / 2500;
        MostraPasso();
        break;
    case 136:
        IndiceSpessore = int16_t(IndiceSpessore % 4 + 1);
        SpessoreCorrente = SpessoreDellIndice(IndiceSpessore);
        MostraSpessore();
        break;
    case 137: {
        const QPoint posto = PostoInTwips();
        ApriQuadroSettaggiFont(posto.x() - 820, posto.y() + 740);
        break;
    }
    case 138:
        ColoreLinea();
        break;
    case 139:
        ColoreDiSfondo();
        return;
    case 140:
        Chiudi();
        return;
    case 141:
    case 142:
        CambiaColorazioni(indice == 142);
        break;
    case 143:
        LeggiOggetto();
        return;
    case 144:
        SalvaOggetto();
        return;
    case 145:
        Importa();
        return;
    case 146:
        Esporta();
        return;
    default:
        return;
    }
    SezioneCorrente = 1390;
    Riprendi();
}

void QuadroSettaggi::CartelleOggetti() {
    if (!ManiLibere()) {
        Bip();
        Riprendi();
        return;
    }
    // The folders are managed here; the one chosen does not become active.
    TipoLista = GenereLista::CartelleObj;
    ModoCartelle = 2;
    ScegliDaLista();
    Riprendi();
}

void QuadroSettaggi::ColoreLinea() {
    ColoreScelto = ColoreLineaCorrente;
    ApriQuadroSceltaColore1();
    ParcheggiaMouse();
    if (ColoreScelto < 0) return;
    ColoreLineaCorrente = ColoreScelto;
    if (coloriCambiati_) coloriCambiati_();
}

void QuadroSettaggi::ColoreDiSfondo() {
    if (OggettoAttivo == 1 || ComandoModifica > 0 || PrimitivaAttiva > 0) {
        Bip();
        Riprendi();
        return;
    }
    ColoreScelto = ColoreSfondo;
    ApriQuadroSceltaColore1();
    ParcheggiaMouse();
    // Left without a colour, the ring stands on this button a while for a
    // second try, then walks on: a single switch is never held here.
    if (ColoreScelto < 0) {
        if (isVisible() && (ModalitàFunzionamento == 1 || ModalitàFunzionamento == 2))
            Motore.AvviaScansioneConSosta(MotoreScansione::SostaSulTasto);
        return;
    }
    ColoreSfondo = ColoreScelto;
    ApplicaSfondo(tela_, ColoreSfondo);
    Riprendi();
}

void QuadroSettaggi::CambiaColorazioni(bool inTondini) {
    if (NumeroAzioni == 0 || OggettoAttivo == 1) {
        Bip();
        return;
    }
    if (inTondini)
        ColorazioniInTondini();
    else
        TondiniInColorazioni();
    RitracciaTutto(tela_);
}

void ApriQuadroSettaggi(Superficie& tela, const std::function<void()>& coloriCambiati,
                        int sinistraTwips, int altoTwips) {
    QuadroSettaggi quadro(tela, coloriCambiati);
    quadro.AttivaQuadroSettaggi();
    quadro.PosizionaSopra(sinistraTwips, altoTwips);
    ParcheggiaMouse();
    quadro.exec();
}
