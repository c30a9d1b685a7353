#include "drawing/ComandiFile.h"

#include "archive/ArchivioAzioni.h"
#include "archive/CopiaLavoro.h"
#include "archive/IstruzioniArchivio.h"
#include "base/Bip.h"
#include "base/CartellaAttiva.h"
#include "base/GestioneErrori.h"
#include "base/Utilita.h"
#include "drawing/AmbienteDisegno.h"
#include "drawing/CodiciComando.h"
#include "input/QuadroMessaggi.h"
#include "model/RecordAzione.h"
#include "model/Selezione.h"
#include "model/StatoAmbiente.h"
#include "model/TracciaAzioni.h"
#include "model/VistaSuperficie.h"
#include "panels/ChiediNome.h"
#include "panels/Elaborazioni.h"
#include "panels/EtichettaLista.h"
#include "panels/QuadroMostraLista.h"
#include "panels/QuadroScriviTesto.h"

#include <QLabel>

namespace {

// The working copies go all together; the counter starts again.
void NuovaStoria() {
    EliminaCopieLavoro();
    CodiceCopiaLavoro = BaseCopieLavoro;
}

} // namespace

bool ComandiFile::NomeGiaUsato(const QString& nome) {
    QList<RigaDanneggiata> danneggiate;
    for (const RigaArchivio& riga : DisegniDellaCartella(CodiceCartellaAttiva, &danneggiate))
        if (StessoNome(riga.Nome, nome)) return true;
    // A damaged row still holds its name: a new drawing must not take it too.
    for (const RigaDanneggiata& riga : danneggiate)
        if (!riga.Nome.isEmpty() && StessoNome(riga.Nome, nome)) return true;
    return false;
}

void ComandiFile::MostraNome() {
    a_.ScrittaNomeDisegno->setText(QStringLiteral("« ") + NomeDisegnoCorrente +
                                   QStringLiteral(" »"));
}

void ComandiFile::NuovoDisegno() {
    ParcheggiaMouse();
    if (Messaggio(QStringLiteral("Iniziare un Nuovo Disegno?"), 3, 2) == 2) {
        a_.Riprendi();
        return;
    }
    // Twice, as it has always been: the second finds nothing and does no harm.
    EseguiPassi({{MarcaDisegno::NuovoDisegno, [] {
                      NuovaStoria();
                      EliminaCopieLavoro();
                  }}});
    a_.DisegnoVuoto();
    a_.Riprendi();
}

void ComandiFile::Registrate() {
    registrate_ = Azioni.mid(1, NumeroAzioni);
}

bool ComandiFile::Modificato() const {
    return Azioni.mid(1, NumeroAzioni) != registrate_;
}

void ComandiFile::LeggiDisegno() {
    // A drawing just read or saved loses nothing: no warning for it.
    if (!NomeDisegnoCorrente.trimmed().isEmpty() && Modificato()) {
        ParcheggiaMouse();
        const int16_t esito =
            Messaggio(Righe({QStringLiteral("E' stato richiesto il Caricamento di un"),
                             QStringLiteral("Nuovo Disegno."), QStringLiteral("ATTENZIONE!"),
                             QStringLiteral("Tutte le modifiche finora effettuate sul"),
                             QStringLiteral("Disegno Attivo verranno perse se non"),
                             QStringLiteral("sono state salvate!"),
                             QStringLiteral("Premere «OK» per continuare"),
                             QStringLiteral("o «Annulla» per abbandonare!")}),
                      2, 3);
        if (esito == 3) {
            ComandoModifica = 0;
            a_.Riprendi();
            return;
        }
    }
    ComandoModifica = TastoDisegno::LeggiDisegno;
    TipoLista = GenereLista::Disegni;
    ScegliDaLista();
    // The list may have deleted the drawing on the canvas.
    MostraNome();
    const EtichettaLetta voce = LeggiEtichetta(VoceScelta);
    const int64_t codice = voce.Valore();
    if (VoceScelta.isEmpty() || codice < 1 || codice >= BaseCopieLavoro) {
        ComandoModifica = 0;
        a_.Riprendi();
        return;
    }
    // The rows are read first: a drawing that does not read leaves the one on
    // the canvas as it was.
    CodiceDisegnoDaCaricare = static_cast<int32_t>(codice);
    if (!EseguiPassi({{MarcaDisegno::LeggiDisegno, [] { CaricaAzioniDisegno(); }}})) {
        ComandoModifica = 0;
        a_.Riprendi();
        return;
    }
    CodiceDisegnoCorrente = static_cast<int32_t>(codice);
    NomeDisegnoCorrente = voce.Nome;
    MostraNome();
    StatoDisegno = 1;
    NumeroAzioni = NumeroAzioniUndo;
    Azioni = AzioniUndo;
    // A selection pointed into the drawing that has gone.
    AzzeraSelezione();
    // A background chosen on the settings panel does not survive a load.
    ColoreSfondo = Predefiniti::ColoreSfondo;
    a_.Quadro.ImpostaBackColor(ColoreSfondo);
    a_.RidisegnoCompleto();
    a_.Quadro.Refresh();
    Registrate();
    // The loaded drawing is the first step of a new history.
    EseguiPassi({{MarcaDisegno::LeggiDisegno, [] {
                      NuovaStoria();
                      RegistraCopiaLavoro();
                  }}});
    ComandoModifica = 0;
    a_.Riprendi();
}

RichiestaNome ComandiFile::RichiestaNomeDisegno() {
    RichiestaNome r;
    r.Limite = LarghezzaNomeEtichetta;
    r.Cosa = QStringLiteral("Nome del Disegno");
    r.Sezione = MarcaDisegno::SalvaDisegno;
    if (StatoDisegno == 1) r.Proposto = NomeDisegnoCorrente;
    r.Giudica = [](const QString& nome) {
        SezioneCorrente = MarcaDisegno::SalvaNomeDisegno;
        if (StatoDisegno == 1 && StessoNome(nome, NomeDisegnoCorrente))
            return GiudizioNome::Esistente;
        // A second drawing of the same name in the folder would be one line
        // too many in the list: a new name must be free, whatever the path.
        bool libero = false;
        EseguiPassi({{MarcaDisegno::SalvaNomeDisegno, [&] { libero = !NomeGiaUsato(nome); }}});
        return libero ? GiudizioNome::Libero : GiudizioNome::Occupato;
    };
    r.DomandaSovrascrittura = {QStringLiteral("ATTENZIONE! Il Disegno è già esistente!"),
                               QStringLiteral("Se si prosegue,  il vecchio Disegno verrà"),
                               QStringLiteral("cancellato e sovrapposto con il presente."),
                               QStringLiteral("Premere «OK» per proseguire o «Annulla»"),
                               QStringLiteral("per non registrare e tornare a disegnare.")};
    r.RifiutoOccupato = {QStringLiteral("ATTENZIONE!"),
                         QStringLiteral("Il Nome del Disegno è già esistente!"),
                         QStringLiteral("La registrazione è impossibile!"),
                         QStringLiteral("Si prega di cambiare il Nome scelto."),
                         QStringLiteral("Premere «OK» per proseguire!")};
    return r;
}

void ComandiFile::SalvaDisegno() {
    const QString nomeAttuale = NomeDisegnoCorrente.trimmed();
    ParcheggiaMouse();
    const QString domanda = nomeAttuale.isEmpty() ? QStringLiteral("Salvare il Disegno?")
                                                  : QStringLiteral("Salvare il Disegno \r« ") +
                                                        nomeAttuale + QStringLiteral(" »?");
    if (Messaggio(domanda, 3, 1) == 2) {
        a_.Riprendi();
        return;
    }
    ComandoModifica = TastoDisegno::SalvaDisegno;
    const NomeChiesto chiesto = ChiediNome(RichiestaNomeDisegno());
    if (chiesto.Esito == EsitoNome::Lasciato || chiesto.Esito == EsitoNome::Fallito) {
        ComandoModifica = 0;
        a_.Riprendi();
        return;
    }
    const QString nome = chiesto.Nome;
    RegistraComeNuovo = chiesto.Esito == EsitoNome::Nuovo ? 1 : 0;
    SezioneCorrente = MarcaDisegno::SalvaRegistrazione;
    // The name becomes the drawing's only with the rows: after a failed save
    // the next one must not overwrite another drawing under this name.
    const bool salvato = RegistraDisegno(a_.Quadro, nome);
    MostraNome();
    ComandoModifica = 0;
    // A save that failed has had its box from the error routine: no word of success.
    if (salvato) {
        Registrate();
        ParcheggiaMouse();
        Messaggio(Righe({QStringLiteral("Il Disegno è stato correttamente salvato"),
                         QStringLiteral("nella Cartella denominata:"),
                         QStringLiteral("« ") + NomeCartellaAttiva + QStringLiteral(" »."),
                         QStringLiteral("Premere «OK» per continuare!")}),
                  1, 1);
    }
    a_.Riprendi();
}

void ComandiFile::ChiudiAmbiente() {
    ParcheggiaMouse();
    const int16_t esito =
        Messaggio(Righe({QStringLiteral("E' stata richiesta l'USCITA dal Disegno Attivo."),
                         QStringLiteral("ATTENZIONE!"),
                         QStringLiteral("Tutte le modifiche finora effettuate saranno"),
                         QStringLiteral("PERSE se non sono state salvate!"),
                         QStringLiteral("Premere «OK» per continuare o «Annulla»"),
                         QStringLiteral("per abbandonare!")}),
                  2, 3);
    if (esito == 3) {
        a_.Riprendi();
        return;
    }
    EseguiPassi({{MarcaDisegno::ChiudiAmbiente, [] { EliminaCopieLavoro(); }}});
    CodiceDisegnoCorrente = 0;
    CodiceDisegnoDaCaricare = 0;
    CodiceDisegnoDaRegistrare = 0;
    NomeDisegnoCorrente.clear();
    ChiudiAmbienteDisegno();
}
