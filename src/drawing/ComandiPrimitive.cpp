#include "drawing/ComandiPrimitive.h"

#include "archive/CopiaLavoro.h"
#include "base/Bip.h"
#include "base/Configurazione.h"
#include "base/GestioneErrori.h"
#include "drawing/AmbienteDisegno.h"
#include "drawing/CodiciComando.h"
#include "drawing/OrdineDisegno.h"
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
        return TastoDisegno::PrimitivaLinea;
    case TipiAzione::Arco:
        return TastoDisegno::PrimitivaArco;
    case TipiAzione::Rettangolo:
        return TastoDisegno::PrimitivaRettangolo;
    case TipiAzione::Ellisse:
        return TastoDisegno::PrimitivaEllisse;
    case TipiAzione::Colorazione:
        return TastoDisegno::ColoraZona;
    case TipiAzione::Testo:
        return TastoDisegno::ScritturaTesti;
    case TipiAzione::Immagine:
        return TastoDisegno::ImportaImmagine;
    default:
        return 0;
    }
}

void ComandiPrimitive::FineComandoModifica() {
    if (OggettoAttivo == 1 && ComandoModifica >= TastoDisegno::ModificaGrandezza1 &&
        ComandoModifica <= TastoDisegno::MuoveElementoAttivo) {
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
    const bool angoli =
        indice == TastoDisegno::PrimitivaLinea || indice == TastoDisegno::PrimitivaRettangolo;
    e.TipoAzione = indice - 100; // the type is the button's place among the four
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
    if (indice == TastoDisegno::PrimitivaArco) {
        e.RadIniz = Predefiniti::RadIniz;
        e.RadFine = Predefiniti::RadFine;
    }
    if (indice == TastoDisegno::PrimitivaRettangolo || indice == TastoDisegno::PrimitivaEllisse)
        e.FlagPienoVuoto = RiempimentoCorrente;
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
    if (const int16_t seguente = TastoDopoLaScelta(indice); seguente != indice) {
        a_.Motore.TastoCorrente = seguente;
        a_.AggiornaCorone();
    }
    a_.Riprendi();
}

void ComandiPrimitive::ComandoDiModifica(int16_t indice) {
    ComandoModifica = indice;
    a_.ImpostaColoreCorona(indice, ColoriCorona::Rosso);
    a_.ApriSceltaDirezione();
}

void ComandiPrimitive::ColoraZona() {
    PrimitivaAttiva = TastoDisegno::ColoraZona;
    ComandoModifica = TastoDisegno::ColoraZona;
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
    a_.ImpostaColoreCorona(TastoDisegno::ColoraZona, ColoriCorona::Blu);
    a_.TastoMarcato = TastoDisegno::ColoraZona;
    a_.PosizionaMirino();
    a_.IconaMirino->show();
    a_.ApriSceltaDirezione();
}

void ComandiPrimitive::SceltaFormePieneVuote() {
    RiempimentoCorrente = RiempimentoCorrente == 1 ? 2 : 1;
    a_.CambiaIcona(TastoDisegno::SceltaFormePieneVuote, RiempimentoCorrente == 2
                                                            ? QStringLiteral("forme-piene")
                                                            : QStringLiteral("forme-vuote"));
    a_.Riprendi();
}

void ComandiPrimitive::Fissa() {
    Superficie& q = a_.Quadro;
    if (PrimitivaAttiva > 0) {
        if (PrimitivaAttiva == TastoDisegno::ColoraZona) {
            ComandoModifica = 0;
            a_.IconaMirino->hide();
            MirinoX = ElementoInCostruzione.XCentro;
            MirinoY = ElementoInCostruzione.YCentro;
            q.Refresh();
        }
        if (PrimitivaAttiva == TastoDisegno::SelezionaOggetto) {
            // The box is no action: it only says what to select.
            EseguiPassi(
                {{MarcaDisegno::Fissa, [] { PrendiRettangoloSelezione(ElementoInCostruzione); }}});
            a_.ImpostaColoreCorona(TastoDisegno::SelezionaOggetto, ColoriCorona::Verde);
            PrimitivaAttiva = 0;
            a_.Motore.TastoCorrente = TastoDisegno::Fissa;
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
        EseguiPassi({{MarcaDisegno::Fissa, [&q] { FissaElemento(q); }}});
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
        a_.Motore.TastoCorrente = TastoDopoLaScelta(TastoDisegno::Fissa);
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
        a_.Motore.TastoCorrente = TastoDopoLaScelta(TastoDisegno::Fissa);
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
    if (PrimitivaAttiva == TastoDisegno::ColoraZona) {
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
