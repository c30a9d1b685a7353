#include "drawing/ComandiDisegno.h"

#include "base/GestioneErrori.h"
#include "drawing/AmbienteDisegno.h"
#include "model/StatoAmbiente.h"

int16_t MarcaComando(int16_t indice) {
    const VoceComando* voce = VoceComandoDi(indice);
    return voce != nullptr ? voce->Marca : MarcaDisegno::Ingresso;
}

void ComandiDisegno::TastoDisegno_Click(int16_t indice) {
    SezioneCorrente = MarcaDisegno::Ingresso;
    // The routine's own trap: a fault of any command reaches the error routine
    // with the command's mark, and the screen goes on.
    a_.Protetto([this, indice] { Comando(indice); });
}

void ComandiDisegno::Comando(int16_t indice) {
    SezioneCorrente = MarcaComando(indice);
    // The red button ends its edit command before it means anything else.
    if (indice == ComandoModifica && ComandoModifica > 0) {
        primitive_.FineComandoModifica();
        return;
    }
    const VoceComando* voce = VoceComandoDi(indice);
    if (voce == nullptr || (voce->Condizione != nullptr && !voce->Condizione())) {
        a_.Rifiuta();
        return;
    }
    voce->Routine(*this, indice);
}
