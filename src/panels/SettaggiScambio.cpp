// Drawings that travel, on the settings panel: the drawing on the canvas
// exported as pictures and as an exchange file, and an exchange file taken in
// as a new drawing of the active folder.
#include "archive/Archivi.h"
#include "archive/ArchivioAzioni.h"
#include "archive/FileScambio.h"
#include "archive/ImportaScambio.h"
#include "archive/IstruzioniArchivio.h"
#include "base/Bip.h"
#include "base/CartellaAttiva.h"
#include "base/GestioneErrori.h"
#include "base/Utilita.h"
#include "input/QuadroMessaggi.h"
#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"
#include "panels/Elaborazioni.h"
#include "panels/EtichettaLista.h"
#include "panels/QuadroMostraLista.h"
#include "panels/QuadroScriviTesto.h"
#include "panels/QuadroSettaggi.h"
#include "printing/EsportaDisegno.h"

#include <QDir>
#include <QFileInfo>

namespace {

// A name as long as a line of the lists.
constexpr int16_t LunghezzaNome = 40;
const QString NomeEsportato = QStringLiteral("Nome del Disegno Esportato");
const QString NomeImportato = QStringLiteral("Nome del Disegno Importato");

// A name written on an empty keyboard, whose title says what it names; empty
// when the keyboard was left without one. A name made only of blanks is
// refused with a beep.
QString NomeSullaTastiera(const QString& cosa) {
    for (;;) {
        NumeroRigheScritte = 0;
        RigheScritte = QStringList{QString()};
        if (ScriviTesto(LunghezzaNome, cosa) == 0 || NumeroRigheScritte == 0) return {};
        const QString nome = PulisciTesto(RigheScritte.at(1));
        if (!nome.isEmpty()) return nome;
        Bip();
    }
}

void Avviso(const QStringList& righe) {
    ParcheggiaMouse();
    Messaggio(Righe(righe), 1, 1);
}

// The file a line of the list names: the path the search found, or the name
// inside the files folder; never a path of its own.
QString FileDellaVoce(const EtichettaLetta& voce) {
    const int64_t indice = voce.Valore();
    if (indice >= 1 && indice <= NumeroFile &&
        QFileInfo(ElencoFile.at(indice)).fileName() == voce.Nome)
        return ElencoFile.at(indice);
    if (voce.Nome.isEmpty() || voce.Nome.contains(u'/') || voce.Nome == QStringLiteral("..") ||
        voce.Nome == QStringLiteral("."))
        return {};
    return PercorsoFile() + u'/' + voce.Nome;
}

} // namespace

void QuadroSettaggi::Esporta() {
    if (!ManiLibere() || NumeroAzioni == 0) {
        Bip();
        Riprendi();
        return;
    }
    ParcheggiaMouse();
    if (Messaggio(Righe({QStringLiteral("Esportare il Disegno Attivo?"),
                         QStringLiteral("Verrà scritto nella cartella dei File"),
                         QStringLiteral("come immagine, PDF, SVG e file «.zanto»."),
                         QStringLiteral("Premere «OK» per proseguire o"),
                         QStringLiteral("«Annulla» per abbandonare!")}),
                  2, 1) == 3) {
        Riprendi();
        return;
    }
    QString nome = PulisciTesto(NomeDisegnoCorrente);
    const bool conNome = !nome.isEmpty();
    if (!conNome) nome = NomeSullaTastiera(NomeEsportato);
    FileEsportati file;
    for (;;) {
        // Left without a name, the ring stands still until the next pick.
        if (nome.isEmpty()) return;
        file = PercorsiEsportazione(nome, conNome ? CodiceDisegnoCorrente : 0);
        const StatoEsportazione stato = EsportazioneEsistente(file);
        if (stato == StatoEsportazione::Libera) break;
        if (stato == StatoEsportazione::Occupata) {
            // Some other file, perhaps a picture of this very drawing: never covered.
            Avviso({QStringLiteral("ATTENZIONE! Nella cartella dei File c'è già"),
                    QStringLiteral("un file di nome « ") + QFileInfo(file.Png).completeBaseName() +
                        QStringLiteral(" »."),
                    QStringLiteral("Scrivere un altro nome per il Disegno esportato."),
                    QStringLiteral("Premere «OK» per continuare!")});
            nome = NomeSullaTastiera(NomeEsportato);
            continue;
        }
        ParcheggiaMouse();
        const int16_t esito =
            Messaggio(Righe({QStringLiteral("ATTENZIONE! Un Disegno con questo nome"),
                             QStringLiteral("è già stato esportato."),
                             QStringLiteral("Premere «OK» per sovrascriverlo o «Annulla»"),
                             QStringLiteral("per scegliere un altro nome.")}),
                      2, 3);
        if (esito == 1) break;
        nome = NomeSullaTastiera(NomeEsportato);
    }
    PuntatoreClessidra();
    bool scritto = false;
    try {
        scritto = EseguiPassi({{5100, [&] { EsportaDisegno(file, tela_, nome); }}});
    } catch (const ScambioRifiutato& rifiuto) {
        // What the import would refuse is never written.
        PuntatorePredefinito();
        Bip();
        Avviso({QStringLiteral("ATTENZIONE! Il Disegno NON può essere esportato."), rifiuto.Motivo,
                QStringLiteral("Nessun file è stato scritto."),
                QStringLiteral("Premere «OK» per continuare!")});
        Riprendi();
        return;
    }
    PuntatorePredefinito();
    if (scritto)
        Avviso(
            {QStringLiteral("Il Disegno è stato esportato nella cartella:"),
             QStringLiteral("« ") + QDir::toNativeSeparators(PercorsoFile()) + QStringLiteral(" »"),
             QStringLiteral("come « ") + QFileInfo(file.Png).completeBaseName() +
                 QStringLiteral(" » (.png, .pdf, .svg, .zanto)."),
             QStringLiteral("Premere «OK» per continuare!")});
    Riprendi();
}

void QuadroSettaggi::Importa() {
    if (!ManiLibere()) {
        Bip();
        Riprendi();
        return;
    }
    TipoLista = GenereLista::Scambi;
    ModoCartelle = 1;
    ScegliDaLista();
    if (VoceScelta.isEmpty()) {
        Riprendi();
        return;
    }
    const QString percorso = FileDellaVoce(LeggiEtichetta(VoceScelta));
    ContenutoScambio contenuto;
    try {
        if (percorso.isEmpty()) throw ScambioRifiutato{QStringLiteral("Il file non c'è più.")};
        PuntatoreClessidra();
        contenuto = LeggiFileScambio(percorso);
        PuntatorePredefinito();
    } catch (const ScambioRifiutato& rifiuto) {
        PuntatorePredefinito();
        Bip();
        Avviso({QStringLiteral("ATTENZIONE! Il Disegno NON può essere importato."), rifiuto.Motivo,
                QStringLiteral("L'archivio dei Disegni non è stato modificato."),
                QStringLiteral("Premere «OK» per continuare!")});
        Riprendi();
        return;
    }
    QString nome = NomeDisegnoPulito(contenuto.NomeDisegno);
    for (;;) {
        int32_t trovato = 0;
        if (!nome.isEmpty() &&
            !EseguiPassi(
                {{5110, [&] { trovato = CercaNomeDisegno(nome, CodiceCartellaAttiva); }}})) {
            Riprendi();
            return;
        }
        if (!nome.isEmpty() && trovato == 0) break;
        if (!nome.isEmpty())
            Avviso({QStringLiteral("ATTENZIONE! Nella Cartella Attiva c'è già"),
                    QStringLiteral("un Disegno di nome « ") + nome + QStringLiteral(" »."),
                    QStringLiteral("Scrivere un altro nome per il Disegno importato."),
                    QStringLiteral("Premere «OK» per continuare!")});
        nome = NomeSullaTastiera(NomeImportato);
        // Left without a name, the ring stands still until the next pick.
        if (nome.isEmpty()) return;
    }
    PuntatoreClessidra();
    const int32_t codice = RegistraDisegnoImportato(contenuto, nome);
    PuntatorePredefinito();
    if (codice != 0)
        Avviso({QStringLiteral("Il Disegno « ") + nome + QStringLiteral(" » è stato importato"),
                QStringLiteral("nella Cartella denominata:"),
                QStringLiteral("« ") + NomeCartellaAttiva + QStringLiteral(" »."),
                QStringLiteral("Premere «OK» per continuare!")});
    Riprendi();
}
