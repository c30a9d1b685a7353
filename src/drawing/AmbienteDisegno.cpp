#include "drawing/AmbienteDisegno.h"

#include "archive/ArchivioAzioni.h"
#include "archive/IstruzioniArchivio.h"
#include "base/Bip.h"
#include "base/CartellaAttiva.h"
#include "base/Configurazione.h"
#include "base/GestioneErrori.h"
#include "base/IconaSvg.h"
#include "base/Misure.h"
#include "base/Numeri.h"
#include "base/Orologio.h"
#include "drawing/CodiciComando.h"
#include "drawing/ComandiDisegno.h"
#include "drawing/MotoreMovimento.h"
#include "model/ElementoAttivo.h"
#include "model/RecordAzione.h"
#include "model/Selezione.h"
#include "model/StatoAmbiente.h"
#include "model/TracciaAzioni.h"
#include "model/VistaSuperficie.h"
#include "panels/QuadroSceltaDirezione.h"
#include "panels/QuadroSettaggi.h"

#include <QEventLoop>
#include <QGuiApplication>
#include <QLabel>
#include <QScreen>

#include <array>

namespace {

std::unique_ptr<AmbienteDisegno>& Ambiente() {
    static std::unique_ptr<AmbienteDisegno> ambiente;
    return ambiente;
}

const std::array<const char*, 33> Suggerimenti = {
    "Primitiva Linea",
    "Primitiva Arco",
    "Primitiva Rettangolo",
    "Primitiva Ellisse",
    "Modifica Inizio Linea",
    "Modifica Fine Linea",
    "Modifica Inizio Arco",
    "Modifica Fine Arco",
    "Ruota Intero Arco",
    "Modifica Forma Ellisse o Arco",
    "Modifica Grandezza 1",
    "Modifica Grandezza 2",
    "Muove l'Elemento Attivo",
    "Colora Zona",
    "Scelta Colore Zona",
    "Scelta Forme Piene o Vuote",
    "Fissa le modifiche sul Disegno",
    "Annulla Operazioni",
    "Nuovo Disegno",
    "Seleziona un Oggetto",
    "Sceglie/Cambia l'Elemento Attivo",
    "Duplica l'Ultima Primitiva disegnata",
    "Ribalta l'Oggetto Attivo",
    "Accesso ad Utilità e Settaggi",
    "Disegna l'Ultimo Oggetto Attivo",
    "Sceglie fra Copia o Sposta l'Oggetto Selezionato",
    "Elimina Oggetto Selezionato",
    "Scrittura Testi",
    "Importa Immagine Da File",
    "Leggi Disegno",
    "Salva Disegno",
    "Stampa Disegno",
    "Chiudi l'Ambiente di Disegno",
};

QList<FormScansione::DefinizioneTasto> TabellaTasti() {
    using namespace TastoDisegno;
    QList<FormScansione::DefinizioneTasto> tabella;
    // The row runs from the primitives to "Annulla Operazioni", the column
    // from "Nuovo Disegno", shorter, to the close.
    const int sinistreRiga[] = {90,   885,  1680, 2475, 3375,  4170,  4965,  5760,  6555,
                                7350, 8145, 8940, 9735, 10530, 11325, 12120, 12915, 13710};
    for (int16_t i = Primo; i <= AnnullaOperazioni; ++i)
        tabella.append(
            {i, sinistreRiga[i - Primo], 75, 705, 660, QString(), SuggerimentoTastoDisegno(i)});
    const int altiColonna[] = {690,  1440, 2190, 2940, 3690, 4440, 5190,
                               5940, 6690, 7440, 8190, 8940, 9690, 10440};
    tabella.append(
        {NuovoDisegno, 14505, 75, 705, 525, QString(), SuggerimentoTastoDisegno(NuovoDisegno)});
    for (int16_t i = SelezionaOggetto; i <= Ultimo; ++i)
        tabella.append({i, i == ScritturaTesti ? 14520 : 14505, altiColonna[i - SelezionaOggetto],
                        705, 660, QString(), SuggerimentoTastoDisegno(i)});
    return tabella;
}

QLabel* Etichetta(QWidget* genitore, int sinistra, int alto, int larghezza, int altezza,
                  uint32_t sfondo, double punti) {
    auto* l = new QLabel(genitore);
    l->setGeometry(RettangoloTwips(sinistra, alto, larghezza, altezza));
    l->setAutoFillBackground(true);
    QPalette p = l->palette();
    p.setColor(QPalette::Window, ColoreRGB(sfondo));
    l->setPalette(p);
    l->setFont(Carattere(QStringLiteral("Times New Roman"), punti, true));
    l->setAlignment(Qt::AlignCenter);
    return l;
}

} // namespace

QString SuggerimentoTastoDisegno(int16_t indice) {
    if (indice < TastoDisegno::Primo || indice > TastoDisegno::Ultimo) return {};
    return QString::fromUtf8(Suggerimenti[static_cast<size_t>(indice - TastoDisegno::Primo)]);
}

AmbienteDisegno::AmbienteDisegno()
    : FormScansione(TastoDisegno::Primo, TastoDisegno::Ultimo),
      Quadro(LarghezzaQuadroDisegno, AltezzaQuadroDisegno) {
    setFixedSize(Px(15270), Px(11145));
    QPalette p = palette();
    p.setColor(QPalette::Window, ColoreRGB(0x808080));
    setPalette(p);
    setAutoFillBackground(true);
    CostruisciControlli();
    Comandi = std::make_unique<ComandiDisegno>(*this);
    InformaAmbiente = true;
    AvvisoComandoAmbiente = [this](const QString& s) { ScriviComando(s); };
    SpostaIconaMirino = [this](float sinistra, float alto) {
        IconaMirino->move(Px(static_cast<int>(Arrotonda(sinistra))),
                          Px(static_cast<int>(Arrotonda(alto))));
    };
}

AmbienteDisegno::~AmbienteDisegno() {
    AvvisoComandoAmbiente = nullptr;
    SpostaIconaMirino = nullptr;
}

void AmbienteDisegno::CostruisciControlli() {
    QuadroDisegno = new VistaSuperficie(Quadro, this);
    QuadroDisegno->setObjectName(QStringLiteral("QuadroDisegno"));
    QuadroDisegno->setGeometry(RettangoloTwips(15, 780, 14144, 10000));
    QuadroDisegno->setAccessibleName(QStringLiteral("Disegno"));
    UsaComeFocus(QuadroDisegno);

    CorniceDx = Etichetta(this, 14160, 780, 285, 10005, 0xC0C0C0, 8.25);
    CorniceDx->setFrameShape(QFrame::Box);
    DivisorePrimitive = Etichetta(this, 3255, 0, 45, 795, 0xFFFFFF, 8.25);

    CreaTasti(TabellaTasti(), 45);
    for (TastoZanto* tasto : std::as_const(Tasti))
        ImpostaIcona(tasto, QStringLiteral(":/icone/ambiente/tasto%1.svg").arg(tasto->Indice()));

    MostraColoreLinea[0] = Etichetta(this, 30, 10800, 2520, 345, 0x000000, 8.25);
    MostraColoreLinea[1] = Etichetta(this, 720, 10800, 1080, 225, 0x808080, 8.25);
    MostraColoreLinea[1]->setText(QStringLiteral("Colore Linea"));
    MostraColoreZona[0] = Etichetta(this, 2790, 10800, 2520, 345, 0xFFFFFF, 8.25);
    MostraColoreZona[1] = Etichetta(this, 3405, 10800, 1320, 225, 0x808080, 8.25);
    MostraColoreZona[1]->setText(QStringLiteral("Colore Zona"));
    for (QLabel* l : {MostraColoreLinea[1], MostraColoreZona[1]}) {
        QPalette pl = l->palette();
        pl.setColor(QPalette::WindowText, Qt::white);
        l->setPalette(pl);
    }
    ScrittaNomeDisegno = Etichetta(this, 5445, 10800, 4770, 345, 0xC0C0C0, 8.25);
    ScrittaNomeDisegno->setObjectName(QStringLiteral("ScrittaNomeDisegno"));
    MostraInfo = Etichetta(this, 10350, 10800, 4095, 345, 0xFFFFC0, 11.25);
    MostraInfo->setObjectName(QStringLiteral("MostraInfo"));

    // The crosshair stands on the canvas, at a fill's point.
    IconaMirino = new QLabel(QuadroDisegno);
    IconaMirino->setGeometry(RettangoloTwips(10575, 45, 480, 480));
    IconaMirino->setPixmap(
        IconaSvg(QStringLiteral(":/icone/ambiente/mirino.svg"), IconaMirino->size())
            .pixmap(IconaMirino->size()));
    IconaMirino->setAttribute(Qt::WA_TransparentForMouseEvents);
    IconaMirino->hide();

    QuadroImmagine = new QLabel(QuadroDisegno);
    QuadroImmagine->setObjectName(QStringLiteral("QuadroImmagine"));
    QuadroImmagine->setGeometry(RettangoloTwips(555, 15, 2445, 1695));
    QuadroImmagine->setAttribute(Qt::WA_TransparentForMouseEvents);
    QuadroImmagine->hide();
}

void AmbienteDisegno::ComponiTitolo(const QString& inizio) {
    TitoloAmbiente = inizio + NomeCartellaAttiva.trimmed() + QStringLiteral("   [ ") +
                     QStringLiteral("%1").arg(CodiceCartellaAttiva, 4, 10, QChar(u'0')) +
                     QStringLiteral(" ] » ");
}

void AmbienteDisegno::ApriSettaggi() {
    // Above the right edge of the canvas, level with the column of buttons.
    const int sinistra = LarghezzaQuadroDisegno - 795 + 220;
    const int alto = Twips(Corone.value(TastoDisegno::SelezionaOggetto)->y()) + 520;
    ApriQuadroSettaggi(
        Quadro, [this] { MostraColori(); }, sinistra, alto);
    // After a first visit the title keeps the program's word in front.
    ComponiTitolo(QStringLiteral("Programma «ZANTO»  -  AMBIENTE  DI  DISEGNO  #  Cartella "
                                 "Attiva: « "));
    if (TastoZanto* tasto = Tasti.value(Motore.TastoCorrente)) ScriviComando(tasto->toolTip());
}

void AmbienteDisegno::AttivaAmbienteDisegno() {
    EseguiPassi({
        {1000,
         [this] {
             ComponiTitolo(QStringLiteral("«ZANTO»  -  AMBIENTE  DI  DISEGNO  #  Cartella "
                                          "Attiva: « "));
             CentroSchermoX = Intero16(static_cast<int64_t>(Px(LarghezzaQuadroDisegno / 2 + 15)));
             CentroSchermoY = Intero16(static_cast<int64_t>(Px(AltezzaQuadroDisegno / 2 + 780)));
             ParcheggiaMouse();
         }},
        {1010,
         [this] {
             AzzeraStatoAmbiente();
             // What a selection of an earlier visit pointed at is gone with it.
             AzzeraSelezione();
             setCursor(Qt::ArrowCursor);
             QuadroDisegno->setCursor(Qt::ArrowCursor);
             Quadro.ImpostaBackColor(ColoreSfondo);
             for (int16_t i = TastoDisegno::Primo; i <= TastoDisegno::Ultimo; ++i) {
                 Corone.value(i)->hide();
                 ImpostaColoreCorona(i, ColoriCorona::Verde);
             }
             TastoMarcato = 0;
             Motore.TastoCorrente = ModalitàFunzionamento == 4 ? TastoDisegno::NuovoDisegno
                                                               : TastoDisegno::PrimitivaLinea;
             AggiornaCorone();
             CambiaIcona(TastoDisegno::SceltaFormePieneVuote, QStringLiteral("forme-vuote"));
             CambiaIcona(TastoDisegno::SceltaCopiaSposta, QStringLiteral("copia"));
             MostraColori();
         }},
        {1020,
         [] {
             IndiceElementoInModifica = 0;
             SvuotaAzioni();
             NumeroElementiAttivi = 0;
             ElementiAttivi = QList<RecordAzione>{RecordAzione{}};
         }},
        {1030,
         [] {
             // Copies left by a run that did not end well: reached through "Annulla Operazioni".
             CodiceCopiaLavoro = RiprendiCopieLavoro();
         }},
    });
}

void AmbienteDisegno::MostraColori() {
    for (auto [etichetta, colore] : {std::pair{MostraColoreLinea[0], ColoreLineaCorrente},
                                     std::pair{MostraColoreZona[0], ColoreZonaCorrente}}) {
        QPalette p = etichetta->palette();
        p.setColor(QPalette::Window, ColoreQt(colore));
        etichetta->setPalette(p);
    }
}

void AmbienteDisegno::ScriviComando(const QString& suggerimento) {
    setWindowTitle(TitoloAmbiente + QStringLiteral("  #  COMANDO: « ") + suggerimento +
                   QStringLiteral(" »"));
    QFont f = MostraInfo->font();
    f.setPointSizeF(PuntiSchermo(13));
    MostraInfo->setFont(f);
    MostraInfo->setText(suggerimento);
}

void AmbienteDisegno::AggiornaCorone() {
    // The open element's button keeps its mark while the ring walks.
    TastoMarcato = PrimitivaAttiva;
    FormScansione::AggiornaCorone();
}

void AmbienteDisegno::PrimaAttivazione() {
    QuadroDisegno->setFocus(Qt::OtherFocusReason);
    if (ModalitàFunzionamento == 1 || ModalitàFunzionamento == 2) Motore.AvviaScansione();
}

void AmbienteDisegno::Riprendi() {
    if (ModalitàFunzionamento == 1 || ModalitàFunzionamento == 2) Motore.AvviaScansione();
}

void AmbienteDisegno::Rifiuta() {
    Bip();
    Riprendi();
}

void AmbienteDisegno::ClickTasto(int16_t indice) {
    // A click while the element walks is the choice key there: the walk stops
    // and the direction panel comes again; no command starts under the walk.
    if (attesaMovimento_ != nullptr) {
        FermaCammino();
        return;
    }
    Comandi->TastoDisegno_Click(indice);
}

void AmbienteDisegno::RidisegnoCompleto() {
    RitracciaTutto(Quadro);
}

void AmbienteDisegno::DisegnoVuoto() {
    StatoDisegno = 2;
    OggettoAttivo = 0;
    SvuotaAzioni();
    AzzeraSelezione();
    PrimaAzioneTraccia = 0;
    UltimaAzioneTraccia = 0;
    CodiceDisegnoCorrente = 0;
    CodiceDisegnoDaCaricare = 0;
    CodiceDisegnoDaRegistrare = 0;
    NomeDisegnoCorrente.clear();
    // An empty drawing has no name yet: the old one must not stay under it.
    ScrittaNomeDisegno->clear();
    Quadro.ImmagineVuota();
    QuadroDisegno->update();
}

void AmbienteDisegno::PosizionaMirino() {
    const RecordAzione& e = ElementoInCostruzione;
    IconaMirino->move(Px(static_cast<int>(Arrotonda(e.XCentro - ScostamentoMirino))),
                      Px(static_cast<int>(Arrotonda(e.YCentro - ScostamentoMirino))));
}

void AmbienteDisegno::RoutineTastoGiu(int codice, int modificatori) {
    Motore.ShiftPremuto = (modificatori & 1) ? -1 : 0;
    Motore.CtrlPremuto = (modificatori & 2) ? -1 : 0;
    Motore.AltPremuto = (modificatori & 4) ? -1 : 0;
    // Direct keys only while nothing is open.
    if (ComandoModifica == 0 && PrimitivaAttiva == 0 && OggettoAttivo == 0 &&
        Motore.TastoDiretto(codice))
        return;
    if (ComandoModifica == 0 &&
        Motore.RoutineTasti(codice, modificatori) != MotoreScansione::Esito::Ignorato)
        return;
    const int16_t modo = ModalitàFunzionamento;
    if (modo >= 1 && modo <= 3 && MotoreScansione::TastoDiScelta(codice) && MovimentoAttivo == 1) {
        // The choice key stops the walk of the element.
        MovimentoAttivo = 0;
        if (attesaMovimento_ != nullptr) attesaMovimento_->quit();
        return;
    }
    if (modo == 3 && MovimentoAttivo == 1 && MotoreScansione::TastoDiScansione(codice)) {
        static const int frecce[] = {0, CodiciTasto::Sinistra, CodiciTasto::Destra, CodiciTasto::Su,
                                     CodiciTasto::Giu};
        if (DirezioneScelta >= 1 && DirezioneScelta <= 4) codice = frecce[DirezioneScelta];
    }
    TastoMovimento = static_cast<int16_t>(codice);
    // A step that fails stops the walk: the user gets the box once, not at
    // every dwell, and then the direction panel again.
    if (!EseguiProtetto([this] { ApplicaTastoMovimento(Quadro); })) FermaCammino();
}

void AmbienteDisegno::FermaCammino() {
    MovimentoAttivo = 0;
    if (attesaMovimento_ != nullptr) attesaMovimento_->quit();
}

bool AmbienteDisegno::TastoRipetuto(int codice) const {
    // With five keys an element walks while its arrow is held.
    return ModalitàFunzionamento == 4 && ComandoModifica != 0 &&
           (codice == CodiciTasto::Sinistra || codice == CodiciTasto::Destra ||
            codice == CodiciTasto::Su || codice == CodiciTasto::Giu);
}

void AmbienteDisegno::DopoErrore() {
    // In modes 1 and 2 a red button that is not walking can never be reached
    // again: the edit command ends, as the end of its walk would end it.
    const int16_t modo = ModalitàFunzionamento;
    if ((modo == 1 || modo == 2) && ComandoModifica > 0 && attesaMovimento_ == nullptr) {
        if (ComandoModifica != PrimitivaAttiva)
            ImpostaColoreCorona(ComandoModifica, ColoriCorona::Verde);
        ComandoModifica = 0;
        MovimentoAttivo = 0;
    }
    FormScansione::DopoErrore();
}

void AmbienteDisegno::ApriSceltaDirezione() {
    const int16_t modo = ModalitàFunzionamento;
    if (modo == 4) return;
    MovimentoAttivo = 1;
    ParcheggiaMouse();
    ApriQuadroSceltaDirezione();
    if (modo == 3) return;
    // "Chiudi" on the first opening ends the command at once: a walk with no
    // direction would wait for a press with no ring anywhere.
    if (DirezioneScelta != 5) CicloMovimento();
    ImpostaColoreCorona(ComandoModifica, ColoriCorona::Verde);
    ComandoModifica = 0;
    Motore.AvviaScansione();
}

void AmbienteDisegno::AttendiPasso() {
    // Waits one dwell on the program's clock, or less if the choice key stops the walk.
    QEventLoop attesa;
    attesaMovimento_ = &attesa;
    const int sveglia =
        OrologioCorrente().Programma(TempoLatenzaScansione, [&attesa] { attesa.quit(); });
    attesa.exec();
    OrologioCorrente().Annulla(sveglia);
    attesaMovimento_ = nullptr;
}

void AmbienteDisegno::CicloMovimento() {
    static const int frecce[] = {0, CodiciTasto::Sinistra, CodiciTasto::Destra, CodiciTasto::Su,
                                 CodiciTasto::Giu};
    for (;;) {
        if (MovimentoAttivo == 1) AttendiPasso();
        if (MovimentoAttivo == 1) {
            const int freccia =
                DirezioneScelta >= 1 && DirezioneScelta <= 4 ? frecce[DirezioneScelta] : 0;
            RoutineTastoGiu(freccia, 0);
        }
        if (MovimentoAttivo == 1) continue;
        ParcheggiaMouse();
        ApriQuadroSceltaDirezione();
        MovimentoAttivo = 1;
        if (DirezioneScelta == 5) return;
    }
}

AmbienteDisegno* AmbienteDisegnoAperto() {
    return Ambiente().get();
}

AmbienteDisegno* CaricaAmbienteDisegno() {
    Ambiente() = std::make_unique<AmbienteDisegno>();
    AmbienteDisegno* ambiente = Ambiente().get();
    ambiente->AttivaAmbienteDisegno();
    const QRect schermo = QGuiApplication::primaryScreen()->availableGeometry();
    ambiente->move(schermo.center() - ambiente->rect().center());
    ambiente->show();
    return ambiente;
}

void ChiudiAmbienteDisegno() {
    PuntatoreClessidra();
    if (RitornoAlMenu != nullptr) RitornoAlMenu();
    if (Ambiente()) {
        Ambiente()->hide();
        Ambiente()->Motore.FermaScansione();
        // Its own click routine is on the stack: the object goes when events allow.
        Ambiente().release()->deleteLater();
    }
    PuntatorePredefinito();
}

void DistruggiAmbienteDisegno() {
    Ambiente().reset();
}

void AmbienteDisegno::CambiaIcona(int16_t indice, const QString& nome) {
    TastoZanto* tasto = Tasti.value(indice);
    ImpostaIcona(tasto, QStringLiteral(":/icone/ambiente/%1.svg").arg(nome));
    tasto->repaint();
}
