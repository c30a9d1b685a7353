#include "drawing/ComandiPrimitive.h"

#include "archive/CopiaLavoro.h"
#include "base/Bip.h"
#include "base/Configurazione.h"
#include "base/GestioneErrori.h"
#include "drawing/AmbienteDisegno.h"
#include "input/QuadroMessaggi.h"
#include "model/ElementoAttivo.h"
#include "model/RecordAzione.h"
#include "model/Selezione.h"
#include "model/StatoAmbiente.h"
#include "panels/QuadroSceltaDirezione.h"

#include <QLabel>

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

void ComandiPrimitive::FineComandoModifica() {
    if (OggettoAttivo == 1 && ComandoModifica >= 111 && ComandoModifica <= 113) {
        // The box a resize stretches against is the one the group has now.
        PrendiBoxRiferimento();
    }
    if (ModalitàFunzionamento == 3 && MovimentoAttivo == 1) {
        ParcheggiaMouse();
        ApriQuadroSceltaDirezione();
        if (DirezioneScelta != 5) return;
    }
    a_.ImpostaColoreCorona(ComandoModifica, ColoriCorona::Verde);
    ComandoModifica = 0;
    RecordLavoro.TipoAzione = 0;
    a_.Riprendi();
}

void ComandiPrimitive::ApriPrimitiva(int16_t indice) {
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
    a_.ImpostaColoreCorona(indice, ColoriCorona::Blu);
    a_.TastoMarcato = indice;
    a_.Riprendi();
}

void ComandiPrimitive::ComandoDiModifica(int16_t indice) {
    ComandoModifica = indice;
    a_.ImpostaColoreCorona(indice, ColoriCorona::Rosso);
    a_.ApriSceltaDirezione();
}

void ComandiPrimitive::ColoraZona() {
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
    a_.ImpostaColoreCorona(114, ColoriCorona::Blu);
    a_.TastoMarcato = 114;
    a_.PosizionaMirino();
    a_.IconaMirino->show();
    a_.ApriSceltaDirezione();
}

void ComandiPrimitive::SceltaFormePieneVuote() {
    RiempimentoCorrente = RiempimentoCorrente == 1 ? 2 : 1;
    a_.CambiaIcona(116, RiempimentoCorrente == 2 ? QStringLiteral("forme-piene")
                                                 : QStringLiteral("forme-vuote"));
    a_.Riprendi();
}

void ComandiPrimitive::Fissa() {
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
            a_.ImpostaColoreCorona(120, ColoriCorona::Verde);
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
        const bool ripreso = IndiceElementoInModifica != 0;
        if (ripreso)
            SostituisciElementoInModifica();
        else
            AggiungiElementoInCostruzione();
        a_.ImpostaColoreCorona(PrimitivaAttiva, ColoriCorona::Verde);
        PrimitivaAttiva = 0;
        // An action taken back keeps its place in the list, under what came
        // after it: the canvas shows it there, as every later replay will.
        if (ripreso) a_.RidisegnoCompleto();
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

void ComandiPrimitive::Annulla() {
    Superficie& q = a_.Quadro;
    if (OggettoAttivo == 1) {
        OggettoAttivo = 0;
        q.Refresh();
        a_.Riprendi();
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
        a_.ImpostaColoreCorona(*aperto, ColoriCorona::Verde);
        a_.ImpostaPredefinito(*aperto);
        *aperto = 0;
    }
    a_.TastoMarcato = 0;
    ElementoRiaperto = 0;
    // The action taken back stays what it was; a later new element must not
    // take its place in the list.
    IndiceElementoInModifica = 0;
    a_.RidisegnoCompleto();
    q.Refresh();
    a_.Corone.value(a_.Motore.TastoCorrente)->show();
    a_.Riprendi();
}

void ComandiPrimitive::DuplicaUltima() {
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
