#include "model/StatoAmbiente.h"

#include "model/TracciaAzioni.h"

void AzzeraStatoAmbiente() {
    // The direction panel's walk is kept from one opening to the next.
    const int16_t direzione = DirezioneScelta;
    DatiAmbiente = StatoAmbiente{};
    DirezioneScelta = direzione;
    ImmaginiSegnalate.clear();
}
