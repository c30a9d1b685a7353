#include "drawing/ComandiDisegno.h"

#include "archive/ArchivioAzioni.h"
#include "archive/IstruzioniArchivio.h"
#include "drawing/AmbienteDisegno.h"
#include "input/IconaSvg.h"
#include "input/QuadroMessaggi.h"
#include "model/CopiaLavoro.h"
#include "model/ElementoAttivo.h"
#include "model/RecordAzione.h"
#include "model/Selezione.h"
#include "model/StatoAmbiente.h"
#include "panels/QuadroSceltaDirezione.h"
#include "panels/QuadroSceltaRibaltamenti.h"
#include "start/Bip.h"
#include "start/Configurazione.h"
#include "start/GestioneErrori.h"

#include <QLabel>

namespace {

constexpr uint32_t Verde = 0x00FF00;
constexpr uint32_t Blu = 0x0000FF;
constexpr uint32_t Rosso = 0xFF0000;

// The button that an element of this type is opened and marked with.
int16_t TastoDelTipo(int32_t tipo) {
    switch (tipo) {
    case TipiAzione::Linea:
        return 101;
    case TipiAzione::Arco:
        return 102;
    case TipiAzione::Rettangolo:
        return 103;
    case TipiAzione::Ellisse:
        return 104;
    case TipiAzione::Colorazione:
        return 114;
    case TipiAzione::Testo:
        return 128;
    case TipiAzione::Immagine:
        return 129;
    default:
        return 0;
    }
}

} // namespace

int16_t MarcaComando(int16_t indice) {
    // In the order the routine tests them: 117 and 118 first, then 101 upwards;
    // 121, 124 and 131 keep room for the finer marks of their steps.
    if (indice == 117) return 1202;
    if (indice == 118) return 1204;
    if (indice >= 101 && indice <= 116) return static_cast<int16_t>(1206 + 2 * (indice - 101));
    static const int16_t marche[] = {1242, 1244, 1246, 1250, 1252, 1254, 1258, 1260,
                                     1262, 1264, 1266, 1268, 1270, 1276, 1278};
    if (indice >= 119 && indice <= 133) return marche[indice - 119];
    return 1200;
}

void ComandiDisegno::TastoDisegno_Click(int16_t indice) {
    SezioneCorrente = 1200;
    // The routine's own trap: a fault of any command reaches the error routine
    // with the command's mark, and the screen goes on.
    a_.Protetto([this, indice] { Comando(indice); });
}

void ComandiDisegno::Comando(int16_t indice) {
    if (indice == ComandoModifica && ComandoModifica > 0) {
        SezioneCorrente = MarcaComando(indice);
        FineComandoModifica();
        return;
    }
    SezioneCorrente = MarcaComando(indice);
    const bool liberoDaElementi = ComandoModifica < 1 && PrimitivaAttiva < 1;
    switch (indice) {
    case 117:
        Fissa();
        return;
    case 118:
        Annulla();
        return;
    case 101:
    case 102:
    case 103:
    case 104:
        if (liberoDaElementi && OggettoAttivo != 1)
            ApriPrimitiva(indice);
        else
            a_.Rifiuta();
        return;
    case 105:
    case 106:
        PrimitivaAttiva == 101 ? ComandoDiModifica(indice) : a_.Rifiuta();
        return;
    case 107:
    case 108:
    case 109:
        PrimitivaAttiva == 102 ? ComandoDiModifica(indice) : a_.Rifiuta();
        return;
    case 110:
        PrimitivaAttiva == 102 || PrimitivaAttiva == 104 ? ComandoDiModifica(indice) : a_.Rifiuta();
        return;
    case 111:
    case 112:
        OggettoAttivo != 0 || PrimitivaAttiva == 102 || PrimitivaAttiva == 103 ||
                PrimitivaAttiva == 104 || PrimitivaAttiva == 120
            ? ComandoDiModifica(indice)
            : a_.Rifiuta();
        return;
    case 113:
        OggettoAttivo != 0 || PrimitivaAttiva != 0 ? ComandoDiModifica(indice) : a_.Rifiuta();
        return;
    case 114:
        NumeroAzioni != 0 && liberoDaElementi ? ColoraZona() : a_.Rifiuta();
        return;
    case 116:
        SceltaFormePieneVuote();
        return;
    case 120:
        NumeroAzioni != 0 && liberoDaElementi&& OggettoAttivo != 1 ? SelezionaOggetto()
                                                                   : a_.Rifiuta();
        return;
    case 123:
        liberoDaElementi&& OggettoAttivo != 0 ? Ribalta() : a_.Rifiuta();
        return;
    case 125:
        OggettoAttivo != 1 && NumeroElementiAttivi != 0 ? DisegnaUltimoOggetto() : a_.Rifiuta();
        return;
    case 126:
        CopiaOSposta_Click();
        return;
    case 127:
        NumeroAzioni != 0 && liberoDaElementi&& OggettoAttivo != 0 ? EliminaOggetto()
                                                                   : a_.Rifiuta();
        return;
    case 122:
        if (NumeroAzioni != 0 && PrimitivaAttiva < 1 && OggettoAttivo != 1 &&
            Azioni[NumeroAzioni].TipoAzione != TipiAzione::Colorazione)
            DuplicaUltima();
        else
            a_.Rifiuta();
        return;
    case 133:
        ChiudiAmbiente();
        return;
    default:
        // The colour, settings, element choice, text, picture, file and print commands
        // come with their own panels; until then they only answer with a beep.
        a_.Rifiuta();
        return;
    }
}

void ComandiDisegno::FineComandoModifica() {
    if (OggettoAttivo == 1 && ComandoModifica >= 111 && ComandoModifica <= 113) {
        // The box a resize stretches against is the one the group has now.
        ModoIngombro = 1;
        CalcolaIngombro();
        RiferimentoXMin = IngombroXMin;
        RiferimentoYMin = IngombroYMin;
        RiferimentoXMax = IngombroXMax;
        RiferimentoYMax = IngombroYMax;
    }
    if (ModalitàFunzionamento == 3 && MovimentoAttivo == 1) {
        ParcheggiaMouse();
        ApriQuadroSceltaDirezione();
        if (DirezioneScelta != 5) return;
    }
    a_.ImpostaColoreCorona(ComandoModifica, Verde);
    ComandoModifica = 0;
    RecordLavoro.TipoAzione = 0;
    a_.Riprendi();
}

void ComandiDisegno::ApriPrimitiva(int16_t indice) {
    PrimitivaAttiva = indice;
    RecordAzione e;
    e.ColLinea = ColoreLineaCorrente;
    e.ColZona = ColoreZonaCorrente;
    e.SpessLinea = 1;
    const bool angoli = indice == 101 || indice == 103;
    e.TipoAzione = indice - 100;
    if (angoli) {
        e.XInizio = Predefiniti::XInizio;
        e.YInizio = Predefiniti::YInizio;
        e.XFine = Predefiniti::XFine;
        e.YFine = Predefiniti::YFine;
    } else {
        e.XCentro = Predefiniti::CentroX;
        e.YCentro = Predefiniti::CentroY;
        e.RaggioVert = Predefiniti::Raggio;
        e.RaggioOriz = Predefiniti::Raggio;
    }
    if (indice == 102) {
        e.RadIniz = Predefiniti::RadIniz;
        e.RadFine = Predefiniti::RadFine;
    }
    if (indice == 103 || indice == 104) e.FlagPienoVuoto = RiempimentoCorrente;
    ElementoInCostruzione = e;
    Superficie& q = a_.Quadro;
    q.DrawStyle = 2;
    q.DrawWidth = static_cast<int16_t>(e.SpessLinea);
    q.ForeColor = ColoreLineaCorrente;
    q.FillStyle = 1;
    q.AutoRedraw = true;
    q.AutoRedraw = false;
    TracciaElementoAttivo(q);
    a_.ImpostaColoreCorona(indice, Blu);
    a_.TastoMarcato = indice;
    a_.Riprendi();
}

void ComandiDisegno::ComandoDiModifica(int16_t indice) {
    ComandoModifica = indice;
    a_.ImpostaColoreCorona(indice, Rosso);
    a_.ApriSceltaDirezione();
}

void ComandiDisegno::ColoraZona() {
    PrimitivaAttiva = 114;
    ComandoModifica = 114;
    RecordAzione e;
    e.TipoAzione = TipiAzione::Colorazione;
    e.ColLinea = ColoreLineaCorrente;
    e.ColZona = ColoreZonaCorrente;
    e.FlagPienoVuoto = FlagPieno;
    e.XCentro = MirinoX;
    e.YCentro = MirinoY;
    ElementoInCostruzione = e;
    Superficie& q = a_.Quadro;
    q.ForeColor = ColoreLineaCorrente;
    q.FillStyle = 1;
    q.AutoRedraw = true;
    q.AutoRedraw = false;
    a_.ImpostaColoreCorona(114, Blu);
    a_.TastoMarcato = 114;
    a_.PosizionaMirino();
    a_.IconaMirino->show();
    a_.ApriSceltaDirezione();
}

void ComandiDisegno::SceltaFormePieneVuote() {
    RiempimentoCorrente = RiempimentoCorrente == 1 ? 2 : 1;
    ImpostaIcona(a_.Tasti.value(116), RiempimentoCorrente == 2
                                          ? QStringLiteral(":/icone/ambiente/forme-piene.svg")
                                          : QStringLiteral(":/icone/ambiente/forme-vuote.svg"));
    a_.Tasti.value(116)->repaint();
    a_.Riprendi();
}

void ComandiDisegno::Fissa() {
    if (PrimitivaAttiva == 0 && OggettoAttivo == 0) {
        a_.Rifiuta();
        return;
    }
    Superficie& q = a_.Quadro;
    if (PrimitivaAttiva > 0) {
        if (PrimitivaAttiva == 114) {
            ComandoModifica = 0;
            a_.IconaMirino->hide();
            MirinoX = ElementoInCostruzione.XCentro;
            MirinoY = ElementoInCostruzione.YCentro;
            q.Refresh();
        }
        if (PrimitivaAttiva == 120) {
            // The box is no action: it only says what to select.
            EseguiPassi({{1202, [] { PrendiRettangoloSelezione(ElementoInCostruzione); }}});
            a_.ImpostaColoreCorona(120, Verde);
            PrimitivaAttiva = 0;
            a_.Motore.TastoCorrente = 117;
            a_.AggiornaCorone();
            SelezionaElementi();
            if (NumeroElementiAttivi == 0) {
                // The box stays in sight while the message says it took nothing.
                ParcheggiaMouse();
                Messaggio(TestoNessunElementoSelezionato, 1, 1);
                q.Refresh();
            } else {
                q.DrawWidth = 1;
                q.DrawStyle = 2;
                TracciaElementoAttivo(q);
            }
            a_.Riprendi();
            return;
        }
        EseguiPassi({{1202, [&q] { FissaElemento(q); }}});
        if (IndiceElementoInModifica != 0)
            SostituisciElementoInModifica();
        else
            AggiungiElementoInCostruzione();
        a_.ImpostaColoreCorona(PrimitivaAttiva, Verde);
        PrimitivaAttiva = 0;
        RegistraCopiaLavoro();
        a_.Motore.TastoCorrente = 117;
        a_.AggiornaCorone();
        q.Refresh();
        // An object open beside the element is stored too, after it.
        if (OggettoAttivo != 1) {
            a_.Riprendi();
            return;
        }
    }
    if (OggettoAttivo == 1) {
        if (CopiaOSposta == 2) RimuoviSelezione();
        AggiungiElementiAttivi();
        q.DrawStyle = 0;
        a_.RidisegnoCompleto();
        OggettoAttivo = 0;
        RegistraCopiaLavoro();
        a_.Motore.TastoCorrente = 117;
        a_.AggiornaCorone();
        a_.Riprendi();
    }
}

void ComandiDisegno::Annulla() {
    Superficie& q = a_.Quadro;
    if (OggettoAttivo == 1) {
        OggettoAttivo = 0;
        q.Refresh();
        a_.Riprendi();
        return;
    }
    if (ComandoModifica < 1 && PrimitivaAttiva < 1) {
        // Going back in the history needs the undo panel, which comes with its own work.
        a_.Rifiuta();
        return;
    }
    if (PrimitivaAttiva == 114) {
        a_.IconaMirino->hide();
        ComandoModifica = 0;
    }
    a_.Corone.value(a_.Motore.TastoCorrente)->hide();
    for (int16_t* aperto : {&PrimitivaAttiva, &ComandoModifica}) {
        if (*aperto <= 0) continue;
        a_.Motore.TastoCorrente = *aperto;
        a_.ImpostaColoreCorona(*aperto, Verde);
        a_.ImpostaPredefinito(*aperto);
        *aperto = 0;
    }
    a_.TastoMarcato = 0;
    ElementoRiaperto = 0;
    a_.RidisegnoCompleto();
    q.Refresh();
    a_.Corone.value(a_.Motore.TastoCorrente)->show();
    a_.Riprendi();
}

void ComandiDisegno::SelezionaOggetto() {
    PrimitivaAttiva = 120;
    RecordAzione e;
    e.TipoAzione = TipiAzione::RettangoloSelezione;
    e.XInizio = Predefiniti::XInizio;
    e.YInizio = Predefiniti::YInizio;
    e.XFine = Predefiniti::XFine;
    e.YFine = Predefiniti::YFine;
    e.FlagPienoVuoto = FlagPieno;
    e.SpessLinea = 1;
    ElementoInCostruzione = e;
    Superficie& q = a_.Quadro;
    q.DrawStyle = 2;
    q.DrawWidth = 1;
    q.ForeColor = 0;
    q.FillStyle = 1;
    q.AutoRedraw = true;
    q.AutoRedraw = false;
    TracciaElementoAttivo(q);
    a_.ImpostaColoreCorona(120, Blu);
    // The box starts moving at once.
    ComandoModifica = 113;
    a_.Motore.TastoCorrente = 113;
    a_.AggiornaCorone();
    a_.ImpostaColoreCorona(113, Rosso);
    a_.ApriSceltaDirezione();
}

void ComandiDisegno::Ribalta() {
    ParcheggiaMouse();
    // At the canvas's right edge, a little below the ring of 121.
    ApriQuadroSceltaRibaltamenti(14144 - 795, 1440 - 45 + 260);
    if (RibaltamentoScelto == 5) {
        a_.Riprendi();
        return;
    }
    RibaltaElementiAttivi(RibaltamentoScelto);
    TracciaElementoAttivo(a_.Quadro);
    a_.Riprendi();
}

void ComandiDisegno::DisegnaUltimoOggetto() {
    RidisegnaUltimoOggetto();
    a_.Quadro.DrawWidth = 1;
    a_.Quadro.DrawStyle = 2;
    OggettoAttivo = 1;
    TracciaElementoAttivo(a_.Quadro);
    a_.Riprendi();
}

void ComandiDisegno::CopiaOSposta_Click() {
    CopiaOSposta = CopiaOSposta == 1 ? 2 : 1;
    ImpostaIcona(a_.Tasti.value(126), CopiaOSposta == 2
                                          ? QStringLiteral(":/icone/ambiente/sposta.svg")
                                          : QStringLiteral(":/icone/ambiente/copia.svg"));
    a_.Tasti.value(126)->repaint();
    a_.Riprendi();
}

void ComandiDisegno::EliminaOggetto() {
    RimuoviSelezione();
    OggettoAttivo = 0;
    a_.RidisegnoCompleto();
    a_.Riprendi();
}

void ComandiDisegno::DuplicaUltima() {
    RecordAzione e = Azioni[NumeroAzioni];
    e.SpessLinea = 1;
    switch (e.TipoAzione) {
    case TipiAzione::Linea:
    case TipiAzione::Rettangolo:
    case TipiAzione::Testo:
    case TipiAzione::Immagine:
        e.XInizio += 100;
        e.YInizio += 100;
        e.XFine += 100;
        e.YFine += 100;
        break;
    case TipiAzione::Arco:
    case TipiAzione::Ellisse:
        e.XCentro += 100;
        e.YCentro += 100;
        break;
    default:
        break;
    }
    ElementoInCostruzione = e;
    a_.Quadro.DrawStyle = 2;
    a_.Quadro.DrawWidth = 1;
    PrimitivaAttiva = TastoDelTipo(e.TipoAzione);
    a_.Motore.TastoCorrente = PrimitivaAttiva;
    a_.AggiornaCorone();
    TracciaElementoAttivo(a_.Quadro);
    a_.Riprendi();
}

void ComandiDisegno::ChiudiAmbiente() {
    ParcheggiaMouse();
    const int16_t esito =
        Messaggio(Righe({QStringLiteral("E' stata richiesta l'USCITA dal Disegno Attivo."),
                         QStringLiteral("ATTENZIONE!"),
                         QStringLiteral("Tutte le modifiche finora effettuate saranno"),
                         QStringLiteral("PERSE se non sono state salvate!"),
                         QStringLiteral("Premere «OK» per continuare o «Annulla»"),
                         QStringLiteral("per abbandonare!")}),
                  2, 3);
    if (esito == 3) {
        a_.Riprendi();
        return;
    }
    EseguiPassi({{1278, [] { EliminaCopieLavoro(); }}});
    CodiceDisegnoCorrente = 0;
    CodiceDisegnoDaCaricare = 0;
    CodiceDisegnoDaRegistrare = 0;
    NomeDisegnoCorrente.clear();
    ChiudiAmbienteDisegno();
}
