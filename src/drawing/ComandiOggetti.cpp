#include "drawing/ComandiOggetti.h"

#include "base/Bip.h"
#include "drawing/AmbienteDisegno.h"
#include "drawing/CodiciComando.h"
#include "model/ElementoAttivo.h"
#include "model/RecordAzione.h"
#include "model/Selezione.h"
#include "model/StatoAmbiente.h"
#include "panels/QuadroSceltaDirezione.h"
#include "panels/QuadroSceltaRibaltamenti.h"

void ComandiOggetti::SelezionaOggetto() {
    PrimitivaAttiva = TastoDisegno::SelezionaOggetto;
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
    a_.ImpostaColoreCorona(TastoDisegno::SelezionaOggetto, ColoriCorona::Blu);
    // The box starts moving at once.
    ComandoModifica = TastoDisegno::MuoveElementoAttivo;
    a_.Motore.TastoCorrente = TastoDisegno::MuoveElementoAttivo;
    a_.AggiornaCorone();
    a_.ImpostaColoreCorona(TastoDisegno::MuoveElementoAttivo, ColoriCorona::Rosso);
    a_.ApriSceltaDirezione();
}

void ComandiOggetti::Ribalta() {
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

void ComandiOggetti::DisegnaUltimoOggetto() {
    RidisegnaUltimoOggetto();
    a_.Quadro.DrawWidth = 1;
    a_.Quadro.DrawStyle = 2;
    OggettoAttivo = 1;
    TracciaElementoAttivo(a_.Quadro);
    a_.Riprendi();
}

void ComandiOggetti::CopiaOSposta_Click() {
    CopiaOSposta = CopiaOSposta == 1 ? 2 : 1;
    a_.CambiaIcona(TastoDisegno::SceltaCopiaSposta,
                   CopiaOSposta == 2 ? QStringLiteral("sposta") : QStringLiteral("copia"));
    a_.Riprendi();
}

void ComandiOggetti::EliminaOggetto() {
    RimuoviSelezione();
    OggettoAttivo = 0;
    a_.RidisegnoCompleto();
    a_.Riprendi();
}
