#include "archive/ScritturaDisegno.h"

#include "archive/Archivi.h"
#include "archive/ArchivioAzioni.h"
#include "archive/BitmapDisegni.h"
#include "archive/IstruzioniArchivio.h"
#include "archive/RigheAzioni.h"
#include "base/CartellaAttiva.h"
#include "base/GestioneErrori.h"
#include "base/MappaErrori.h"

#include <QFile>
#include <QFileInfo>
#include <QSqlQuery>

#include <optional>

namespace {

// What a writer knows as it goes.
struct CorsoScrittura {
    explicit CorsoScrittura(const ScritturaDisegno& s) : S(s), Codice(s.Codice) {}
    const ScritturaDisegno& S;
    // A new drawing's code, and so its bitmap's name, is known only once chosen.
    int32_t Codice = 0;
    QString Percorso;
    // The bitmap of the same drawing under its old name (another case, other
    // accents): it goes once the new one stands, or it would stay for ever.
    QString PercorsoVecchio;
    std::optional<Transazione> TransazioneAperta;
    // A file left aside by an earlier save marks its drawing until the start
    // repairs it: only one this save made may go when the save fails.
    bool AParteEsisteva = false;
    bool ScrittaAParte = false;
    bool ConfermaTentata = false;
    bool Confermato = false;
    int PassiFatti = 0;
};

void ApriTransazione(CorsoScrittura& c) {
    c.TransazioneAperta.emplace(Archivio(ArchivioDisegni));
}

void SovrascriviTesta(CorsoScrittura& c, const QSqlDatabase& db) {
    const RigaArchivio vecchia = TestaDisegno(c.Codice);
    if (vecchia.Cartella == CodiceCartellaAttiva)
        c.PercorsoVecchio =
            PercorsoBitmapDisegno(NomeCartellaAttiva, CodiceCartellaAttiva, vecchia.Nome, c.Codice);
    QSqlQuery q = Prepara(db, QStringLiteral("UPDATE TabDisegni SET NomeDisegno = ?,"
                                             " CodiceCartella = ?"
                                             " WHERE CodiceDisegno = ?"));
    q.addBindValue(c.S.Nome);
    q.addBindValue(CodiceCartellaAttiva);
    q.addBindValue(c.Codice);
    Esegui(q);
    if (q.numRowsAffected() < 1) throw ErroreNessunRecord();
    EliminaAzioniDisegno(c.Codice);
}

void ScriviTesta(CorsoScrittura& c) {
    const QSqlDatabase db = Archivio(ArchivioDisegni);
    if (!c.S.Nuovo) return SovrascriviTesta(c, db);
    c.Codice = CodiceLiberoMinimo(TipoCodice::Disegno);
    InserisciTestaDisegno(c.Codice, c.S.Nome, CodiceCartellaAttiva);
}

void ScriviRighe(CorsoScrittura& c) {
    if (c.S.PrimaDelleRighe) c.S.PrimaDelleRighe(c.Codice);
    ScriviRigheAzioni(TabellaAzioniDisegno(), c.Codice, *c.S.Azioni, *c.S.NumeroAzioni);
}

void ScriviBitmap(CorsoScrittura& c) {
    c.Percorso =
        PercorsoBitmapDisegno(NomeCartellaAttiva, CodiceCartellaAttiva, c.S.Nome, c.Codice);
    const QByteArray dati = c.S.Bitmap();
    c.AParteEsisteva = QFileInfo(PercorsoBitmapNuova(c.Percorso)).isFile();
    c.ScrittaAParte = true;
    ScriviBitmapAParte(c.Percorso, dati);
}

void Conferma(CorsoScrittura& c) {
    c.ConfermaTentata = true;
    c.TransazioneAperta->Conferma();
    c.Confermato = true;
}

void PosaBitmap(CorsoScrittura& c) {
    if (c.S.PrimaDellaBitmap) c.S.PrimaDellaBitmap();
    SostituisciBitmap(c.Percorso);
    if (!c.PercorsoVecchio.isEmpty() && c.PercorsoVecchio != c.Percorso)
        QFile::remove(c.PercorsoVecchio);
}

void Fine(CorsoScrittura&) {}

// Before a commit was tried the old rows stand, and the old bitmap shows them.
// A commit that failed keeps the file aside: whether the rows went in, the
// start will tell. A drawing never in the archive keeps nothing.
void ChiudiScrittura(CorsoScrittura& c) {
    const BitmapNonConfermata regola = c.S.SeNonConferma;
    if (regola == BitmapNonConfermata::LasciaAllAvvio && c.ScrittaAParte && !c.ConfermaTentata &&
        !c.AParteEsisteva)
        QFile::remove(PercorsoBitmapNuova(c.Percorso));
    c.TransazioneAperta.reset();
    if (regola == BitmapNonConfermata::Togli && c.ScrittaAParte && !c.Confermato)
        QFile::remove(PercorsoBitmapNuova(c.Percorso));
}

} // namespace

void InserisciTestaDisegno(int32_t codice, const QString& nome, int32_t codiceCartella) {
    QSqlQuery q = Prepara(Archivio(ArchivioDisegni),
                          QStringLiteral("INSERT INTO TabDisegni (CodiceDisegno, NomeDisegno,"
                                         " CodiceCartella) VALUES (?, ?, ?)"));
    q.addBindValue(codice);
    q.addBindValue(nome);
    q.addBindValue(codiceCartella);
    Esegui(q);
}

EsitoScrittura ScriviDisegno(const ScritturaDisegno& scrittura) {
    CorsoScrittura c(scrittura);
    // Each step runs only after the one before it went through.
    const auto passo = [&c](int indice, void (*corpo)(CorsoScrittura&)) {
        const int16_t sezione = c.S.Sezioni.at(size_t(indice));
        return Passo{sezione, [&c, indice, sezione, corpo] {
                         if (c.PassiFatti != indice) return;
                         if (c.S.Sonda) c.S.Sonda(sezione);
                         corpo(c);
                         ++c.PassiFatti;
                     }};
    };
    const bool riuscito = EseguiPassi({
        passo(0, ApriTransazione),
        passo(1, ScriviTesta),
        passo(2, ScriviRighe),
        passo(3, ScriviBitmap),
        passo(4, Conferma),
        passo(5, PosaBitmap),
        passo(6, Fine),
    });
    ChiudiScrittura(c);
    return {riuscito && c.PassiFatti == 7, c.Confermato, c.Codice};
}
