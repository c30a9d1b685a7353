#include "panels/ChiediNome.h"

#include "base/Bip.h"
#include "base/GestioneErrori.h"
#include "base/Utilita.h"
#include "input/QuadroMessaggi.h"
#include "model/StatoAmbiente.h"
#include "panels/QuadroScriviTesto.h"

namespace {

void SvuotaTastiera() {
    NumeroRigheScritte = 0;
    RigheScritte = QStringList{QString()};
}

} // namespace

NomeChiesto ChiediNome(const RichiestaNome& richiesta) {
    if (richiesta.Proposto) {
        NumeroRigheScritte = 1;
        RigheScritte = QStringList{QString(), *richiesta.Proposto};
    } else {
        SvuotaTastiera();
    }
    for (;;) {
        SezioneCorrente = richiesta.Sezione;
        if (ScriviTesto(richiesta.Limite, richiesta.Cosa) == 0) return {EsitoNome::Lasciato, {}};
        const QString nome = PulisciTesto(RigheScritte.at(1));
        if (nome.isEmpty()) {
            // Nothing to name it by: the keyboard opens again.
            Bip();
            SvuotaTastiera();
            continue;
        }
        switch (richiesta.Giudica(nome)) {
        case GiudizioNome::Libero:
            return {EsitoNome::Nuovo, nome};
        case GiudizioNome::Fallito:
            return {EsitoNome::Fallito, nome};
        case GiudizioNome::Occupato:
            ParcheggiaMouse();
            Messaggio(Righe(richiesta.RifiutoOccupato), 1, 1);
            continue;
        case GiudizioNome::Esistente:
            break;
        }
        ParcheggiaMouse();
        const int16_t esito = Messaggio(Righe(richiesta.DomandaSovrascrittura), 2, 3);
        if (!richiesta.AnnullaRiapreTastiera)
            return {esito == 3 ? EsitoNome::Lasciato : EsitoNome::Sovrascrivi, nome};
        if (esito == 1) return {EsitoNome::Sovrascrivi, nome};
        // Back to the keyboard on the same name.
    }
}
