#include "drawing/ComandiDisegno.h"

#include "base/GestioneErrori.h"
#include "drawing/AmbienteDisegno.h"
#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"
#include "printing/Stampe.h"

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
        primitive_.FineComandoModifica();
        return;
    }
    SezioneCorrente = MarcaComando(indice);
    const bool liberoDaElementi = ComandoModifica < 1 && PrimitivaAttiva < 1;
    switch (indice) {
    case 117:
        primitive_.Fissa();
        return;
    case 118:
        // Nothing open: back in the history; else the open thing is dropped.
        if (OggettoAttivo != 1 && liberoDaElementi)
            storia_.TornaNellaStoria();
        else
            primitive_.Annulla();
        return;
    case 101:
    case 102:
    case 103:
    case 104:
        if (liberoDaElementi && OggettoAttivo != 1)
            primitive_.ApriPrimitiva(indice);
        else
            a_.Rifiuta();
        return;
    case 105:
    case 106:
        PrimitivaAttiva == 101 ? primitive_.ComandoDiModifica(indice) : a_.Rifiuta();
        return;
    case 107:
    case 108:
    case 109:
        PrimitivaAttiva == 102 ? primitive_.ComandoDiModifica(indice) : a_.Rifiuta();
        return;
    case 110:
        PrimitivaAttiva == 102 || PrimitivaAttiva == 104 ? primitive_.ComandoDiModifica(indice)
                                                         : a_.Rifiuta();
        return;
    case 111:
    case 112:
        OggettoAttivo != 0 || PrimitivaAttiva == 102 || PrimitivaAttiva == 103 ||
                PrimitivaAttiva == 104 || PrimitivaAttiva == 120
            ? primitive_.ComandoDiModifica(indice)
            : a_.Rifiuta();
        return;
    case 113:
        OggettoAttivo != 0 || PrimitivaAttiva != 0 ? primitive_.ComandoDiModifica(indice)
                                                   : a_.Rifiuta();
        return;
    case 114:
        NumeroAzioni != 0 && liberoDaElementi ? primitive_.ColoraZona() : a_.Rifiuta();
        return;
    case 115:
        colori_.SceltaColoreZona();
        return;
    case 116:
        primitive_.SceltaFormePieneVuote();
        return;
    case 120:
        NumeroAzioni != 0 && liberoDaElementi&& OggettoAttivo != 1 ? oggetti_.SelezionaOggetto()
                                                                   : a_.Rifiuta();
        return;
    case 123:
        liberoDaElementi&& OggettoAttivo != 0 ? oggetti_.Ribalta() : a_.Rifiuta();
        return;
    case 125:
        OggettoAttivo != 1 && NumeroElementiAttivi != 0 ? oggetti_.DisegnaUltimoOggetto()
                                                        : a_.Rifiuta();
        return;
    case 126:
        oggetti_.CopiaOSposta_Click();
        return;
    case 127:
        NumeroAzioni != 0 && liberoDaElementi&& OggettoAttivo != 0 ? oggetti_.EliminaOggetto()
                                                                   : a_.Rifiuta();
        return;
    case 121:
        NumeroAzioni != 0 && liberoDaElementi&& OggettoAttivo != 1 ? elementi_.ScegliElemento()
                                                                   : a_.Rifiuta();
        return;
    case 122:
        if (NumeroAzioni != 0 && PrimitivaAttiva < 1 && OggettoAttivo != 1 &&
            Azioni[NumeroAzioni].TipoAzione != TipiAzione::Colorazione)
            primitive_.DuplicaUltima();
        else
            a_.Rifiuta();
        return;
    case 119:
        liberoDaElementi ? file_.NuovoDisegno() : a_.Rifiuta();
        return;
    case 130:
        liberoDaElementi&& OggettoAttivo != 1 ? file_.LeggiDisegno() : a_.Rifiuta();
        return;
    case 131:
        NumeroAzioni != 0 && liberoDaElementi&& OggettoAttivo != 1 ? file_.SalvaDisegno()
                                                                   : a_.Rifiuta();
        return;
    case 124:
        settaggi_.AccessoSettaggi();
        return;
    case 128:
        // The text tests its own state: a reopened text passes where a new one would not.
        elementi_.ScritturaTesti();
        return;
    case 129:
        liberoDaElementi&& OggettoAttivo != 1 ? elementi_.ImportaImmagine() : a_.Rifiuta();
        return;
    case 132:
        StampaDisegno(a_.Quadro);
        a_.Riprendi();
        return;
    case 133:
        file_.ChiudiAmbiente();
        return;
    default:
        a_.Rifiuta();
        return;
    }
}
