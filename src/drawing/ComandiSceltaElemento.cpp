// Button 121: any action of the drawing taken back into the hands.
#include "base/Bip.h"
#include "base/Configurazione.h"
#include "base/Utilita.h"
#include "drawing/AmbienteDisegno.h"
#include "drawing/CodiciComando.h"
#include "drawing/ComandiElementi.h"
#include "drawing/ComandiPrimitive.h"
#include "model/ElementoAttivo.h"
#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"
#include "model/TracciaAzioni.h"
#include "panels/QuadroSelectPrimitiva.h"

#include <QLabel>

void ComandiElementi::ScegliElemento() {
    ParcheggiaMouse();
    ApriQuadroSelectPrimitiva(a_.Quadro);
    // The panel may have deleted the very action it hands back.
    if (AzioneScelta < 1 || AzioneScelta > NumeroAzioni) {
        a_.Riprendi();
        return;
    }
    // What the fills rest on is about to change: they become dots.
    ColorazioniInTondini();
    IndiceElementoInModifica = AzioneScelta;
    ElementoInCostruzione = Azioni[AzioneScelta];

    // The drawing without this action, the others in their order.
    Superficie& q = a_.Quadro;
    q.DrawStyle = 0;
    q.FillStyle = 1;
    q.ImmagineVuota();
    TracciaLista(q, Azioni, 1, AzioneScelta - 1);
    TracciaLista(q, Azioni, AzioneScelta + 1, NumeroAzioni);

    const int32_t tipo = ElementoInCostruzione.TipoAzione;
    PrimitivaAttiva = TastoDelTipo(tipo);
    if (tipo == TipiAzione::Colorazione) {
        ComandoModifica = TastoDisegno::ColoraZona;
        a_.PosizionaMirino();
        a_.IconaMirino->show();
    }
    if (tipo == TipiAzione::Testo) {
        TestoDaDividere = ElementoInCostruzione.Testo;
        DividiTestoInRighe();
        RigheScritte = RigheTesto;
        NumeroRigheScritte = NumeroRigheTesto;
    }
    a_.Motore.TastoCorrente = PrimitivaAttiva;
    a_.AggiornaCorone();
    a_.ImpostaColoreCorona(PrimitivaAttiva, ColoriCorona::Blu);
    if (tipo == TipiAzione::Testo || tipo == TipiAzione::Immagine) {
        ComandoModifica = TastoDisegno::MuoveElementoAttivo;
        a_.Motore.TastoCorrente = TastoDisegno::MuoveElementoAttivo;
        a_.AggiornaCorone();
        a_.ImpostaColoreCorona(TastoDisegno::MuoveElementoAttivo, ColoriCorona::Rosso);
    }
    // A reopened and cancelled element comes back thin: the width is the record's.
    ElementoInCostruzione.SpessLinea = 1;
    Azioni[AzioneScelta].SpessLinea = 1;
    q.DrawStyle = 2;
    q.DrawWidth = 1;
    TracciaElementoAttivo(q);
    ElementoRiaperto = 1;
    const int16_t modo = ModalitàFunzionamento;
    // With one or two switches nothing could end a shift started without the
    // direction panel: these elements get it, as when they are made.
    if ((modo == 1 || modo == 2) && ComandoModifica > 0) {
        a_.ApriSceltaDirezione();
        return;
    }
    a_.Riprendi();
}
