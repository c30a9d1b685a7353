// The library of objects on the settings panel: an object read back into the
// hands, and the object in the hands saved under a name.
#include "archive/ArchivioAzioni.h"
#include "archive/IstruzioniArchivio.h"
#include "base/Bip.h"
#include "base/Configurazione.h"
#include "base/GestioneErrori.h"
#include "base/Utilita.h"
#include "input/QuadroMessaggi.h"
#include "model/RecordAzione.h"
#include "model/Selezione.h"
#include "model/StatoAmbiente.h"
#include "panels/ChiediNome.h"
#include "panels/Elaborazioni.h"
#include "panels/EtichettaLista.h"
#include "panels/QuadroMostraLista.h"
#include "panels/QuadroScriviTesto.h"
#include "panels/QuadroSettaggi.h"

namespace {

// A name as long as a line of the lists.
constexpr int16_t LunghezzaNomeOggetto = 40;

// The folder of objects picked on the list becomes the active one; false when
// the list was left without a choice.
bool ScegliCartellaOggetti() {
    TipoLista = GenereLista::CartelleObj;
    ModoCartelle = 1;
    ScegliDaLista();
    if (VoceScelta.isEmpty()) return false;
    const EtichettaLetta voce = LeggiEtichetta(VoceScelta);
    CodiceCartellaObjAttiva = int32_t(voce.Valore());
    NomeCartellaObjAttiva = voce.Nome;
    return true;
}

// How the save asks for the object's name; `trovato` is the code of the
// object of that name in the active folder of objects, 0 for none.
RichiestaNome RichiestaNomeOggetto(int32_t& trovato) {
    RichiestaNome r;
    r.Limite = LunghezzaNomeOggetto;
    r.Cosa = QStringLiteral("Nome dell'Oggetto");
    r.Sezione = 1366;
    r.Giudica = [&trovato](const QString& nome) {
        trovato = 0;
        if (!EseguiPassi(
                {{1367, [&] { trovato = CercaNomeOggetto(nome, CodiceCartellaObjAttiva); }}}))
            return GiudizioNome::Fallito;
        return trovato == 0 ? GiudizioNome::Libero : GiudizioNome::Esistente;
    };
    r.DomandaSovrascrittura = {QStringLiteral("ATTENZIONE! L'Oggetto è già esistente!"),
                               QStringLiteral("Se si prosegue,  il vecchio Oggetto verrà"),
                               QStringLiteral("cancellato e sovrapposto con il presente."),
                               QStringLiteral("Premere «OK» per proseguire o «Annulla»"),
                               QStringLiteral("per modificare il nome dell'Oggetto.")};
    r.AnnullaRiapreTastiera = true;
    return r;
}

} // namespace

void QuadroSettaggi::LeggiOggetto() {
    if (ComandoModifica >= 1 || PrimitivaAttiva >= 1 || OggettoAttivo == 1) {
        Bip();
        Riprendi();
        return;
    }
    auto nienteScelto = [this] {
        ComandoModifica = 0;
        Riprendi();
    };
    if (!ScegliCartellaOggetti()) return nienteScelto();
    TipoLista = GenereLista::Oggetti;
    ScegliDaLista();
    if (VoceScelta.isEmpty()) return nienteScelto();
    const EtichettaLetta voce = LeggiEtichetta(VoceScelta);
    CodiceOggettoDaCaricare = int32_t(voce.Valore());
    NomeOggettoDaRegistrare = voce.Nome;
    bool letto = false;
    EseguiPassi({{1362, [&] {
                      CaricaAzioniOggetto();
                      letto = true;
                  }}});
    // An object that does not read has had its box: the hands stay empty.
    if (!letto) {
        Riprendi();
        return;
    }
    NumeroElementiAttivi = int16_t(NumeroAzioniOggetto);
    ElementiAttivi = AzioniOggetto;
    ElementiAttivi.resize(qsizetype(NumeroElementiAttivi) + 1);
    // Nothing of the drawing was taken: a move must remove nothing from it.
    NumeroElementiSelezionati = 0;
    ElementiSelezionati = QList<int16_t>{0};
    // Measured like a selection, so that it is moved and stretched like one.
    PrendiRiferimento();
    Chiudi();
}

void QuadroSettaggi::SalvaOggetto() {
    if (OggettoAttivo == 0 || NumeroAzioni == 0 || ComandoModifica > 0 || PrimitivaAttiva > 0) {
        Bip();
        Riprendi();
        return;
    }
    ParcheggiaMouse();
    if (Messaggio(QStringLiteral("Salvare l'Oggetto Attivo?"), 2, 1) == 3) {
        Riprendi();
        return;
    }
    if (!ScegliCartellaOggetti()) {
        Riprendi();
        return;
    }
    int32_t trovato = 0;
    const NomeChiesto chiesto = ChiediNome(RichiestaNomeOggetto(trovato));
    // Left without a name, the ring stands still until the next pick.
    if (chiesto.Esito == EsitoNome::Lasciato) return;
    if (chiesto.Esito == EsitoNome::Fallito) {
        Riprendi();
        return;
    }
    const QString nome = chiesto.Nome;
    const int32_t daSostituire = chiesto.Esito == EsitoNome::Sovrascrivi ? trovato : 0;
    NomeOggettoDaRegistrare = nome;
    SezioneCorrente = 1368;
    if (RegistraOggetto(daSostituire)) {
        ParcheggiaMouse();
        Messaggio(Righe({QStringLiteral("L'Oggetto è stato correttamente salvato nella"),
                         QStringLiteral("Cartella denominata:"),
                         QStringLiteral("« ") + NomeCartellaObjAttiva + QStringLiteral(" »."),
                         QStringLiteral("Premere «OK» per continuare!")}),
                  1, 1);
    }
    Riprendi();
}
