#include "drawing/OrdineDisegno.h"

#include "base/Configurazione.h"

int16_t TastoDopoLaScelta(int16_t scelto) {
    // Mode 4 has no ring to save steps on: its arrows stay where the user left them.
    if (RipresaSuccessiva != 1 || ModalitàFunzionamento == 4) return scelto;
    for (const PassoDisegno& passo : OrdineDisegno)
        if (passo.Scelto == scelto) return passo.Seguente;
    return scelto;
}
