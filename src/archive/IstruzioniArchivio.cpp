#include "archive/IstruzioniArchivio.h"

#include "archive/Archivi.h"
#include "model/RecordAzione.h"
#include "start/MappaErrori.h"

#include <QVariant>

namespace {

struct Tabella {
    const QString& Connessione;
    QString Nome;
    QString ColonnaCodice;
};

Tabella TabellaDi(TipoCodice tipo) {
    switch (tipo) {
    case TipoCodice::Disegno:
        return {ArchivioDisegni, QStringLiteral("TabDisegni"), QStringLiteral("CodiceDisegno")};
    case TipoCodice::Oggetto:
        return {ArchivioOggetti, QStringLiteral("TabOggetti"), QStringLiteral("CodiceOggetto")};
    case TipoCodice::Cartella:
        return {ArchivioDisegni, QStringLiteral("TabCartelle"), QStringLiteral("CodiceCartella")};
    case TipoCodice::CartellaObj:
        return {ArchivioOggetti, QStringLiteral("TabCartelleObj"),
                QStringLiteral("CodiceCartellaObj")};
    }
    return {ArchivioDisegni, QString(), QString()};
}

// Reads head rows: code, name and, where there is one, the folder.
QList<RigaArchivio> LeggiRighe(QSqlQuery& q, bool conCartella) {
    Esegui(q);
    QList<RigaArchivio> righe;
    while (q.next()) {
        RigaArchivio r;
        r.Codice = q.value(0).toInt();
        r.Nome = q.value(1).toString();
        if (conCartella) r.Cartella = q.value(2).toInt();
        righe.append(r);
    }
    if (q.lastError().isValid()) throw ErroreSql(q.lastError());
    return righe;
}

QList<RigaArchivio> Elenco(const QString& connessione, const QString& sql, bool conCartella) {
    QSqlQuery q = Prepara(Archivio(connessione), sql);
    return LeggiRighe(q, conCartella);
}

int32_t CercaNome(const QString& connessione, const QString& sql, const QString& nome,
                  int32_t cartella) {
    QSqlQuery q = Prepara(Archivio(connessione), sql);
    q.addBindValue(nome);
    q.addBindValue(cartella);
    Esegui(q);
    if (!q.next()) {
        if (q.lastError().isValid()) throw ErroreSql(q.lastError());
        return 0;
    }
    return q.value(0).toInt();
}

void EliminaPerCodice(const QString& connessione, const QString& sql, int32_t codice) {
    QSqlQuery q = Prepara(Archivio(connessione), sql);
    q.addBindValue(codice);
    Esegui(q);
}

} // namespace

QSqlQuery Prepara(const QSqlDatabase& db, const QString& sql) {
    QSqlQuery q(db);
    q.setForwardOnly(true);
    if (!q.prepare(sql)) throw ErroreSql(q.lastError());
    return q;
}

void Esegui(QSqlQuery& q) {
    if (!q.exec()) throw ErroreSql(q.lastError());
}

Transazione::Transazione(const QSqlDatabase& db) : db_(db) {
    if (!db_.transaction()) throw ErroreSql(db_.lastError());
    aperta_ = true;
}

Transazione::~Transazione() {
    if (aperta_) db_.rollback();
}

void Transazione::Conferma() {
    if (!db_.commit()) {
        const ErroreZanto errore = ErroreSql(db_.lastError());
        db_.rollback();
        aperta_ = false;
        throw errore;
    }
    aperta_ = false;
}

int32_t CodiceLiberoMinimo(TipoCodice tipo) {
    const Tabella t = TabellaDi(tipo);
    QSqlQuery q =
        Prepara(Archivio(t.Connessione),
                QStringLiteral("SELECT ") + t.ColonnaCodice + QStringLiteral(" FROM ") + t.Nome +
                    QStringLiteral(" ORDER BY ") + t.ColonnaCodice + QStringLiteral(" ASC"));
    Esegui(q);
    // Walk up from 0: the first code that does not follow the previous one
    // leaves a gap, and the gap's first code is free.
    int64_t precedente = 0;
    bool vuota = true;
    while (q.next()) {
        vuota = false;
        const int64_t codice = q.value(0).toLongLong();
        if (precedente + 1 < codice) return static_cast<int32_t>(precedente + 1);
        precedente = codice;
    }
    if (q.lastError().isValid()) throw ErroreSql(q.lastError());
    if (vuota) return 1;
    if (precedente >= INT32_MAX) throw ErroreZanto{6, QStringLiteral("Overflow")};
    return static_cast<int32_t>(precedente + 1);
}

int32_t NumeroCopieLavoro() {
    QSqlQuery q =
        Prepara(Archivio(ArchivioDisegni),
                QStringLiteral("SELECT COUNT(*) FROM TabDisegni WHERE CodiceDisegno >= ?"));
    q.addBindValue(BaseCopieLavoro);
    Esegui(q);
    if (!q.next()) throw ErroreSql(q.lastError());
    return q.value(0).toInt();
}

void EliminaCopieLavoro() {
    EliminaPerCodice(ArchivioDisegni,
                     QStringLiteral("DELETE FROM TabDisegni WHERE CodiceDisegno >= ?"),
                     BaseCopieLavoro);
}

QList<RigaArchivio> DisegniInOrdineDiCodice() {
    return Elenco(ArchivioDisegni,
                  QStringLiteral("SELECT CodiceDisegno, NomeDisegno, CodiceCartella FROM TabDisegni"
                                 " ORDER BY CodiceDisegno ASC"),
                  true);
}

QList<RigaArchivio> OggettiInOrdineDiCodice() {
    return Elenco(ArchivioOggetti,
                  QStringLiteral("SELECT CodiceOggetto, NomeOggetto, CodiceCartellaObj"
                                 " FROM TabOggetti ORDER BY CodiceOggetto ASC"),
                  true);
}

QList<RigaArchivio> CartelleInOrdineDiCodice() {
    return Elenco(ArchivioDisegni,
                  QStringLiteral("SELECT CodiceCartella, NomeCartella FROM TabCartelle"
                                 " ORDER BY CodiceCartella ASC"),
                  false);
}

QList<RigaArchivio> CartelleObjInOrdineDiCodice() {
    return Elenco(ArchivioOggetti,
                  QStringLiteral("SELECT CodiceCartellaObj, NomeCartellaObj FROM TabCartelleObj"
                                 " ORDER BY CodiceCartellaObj ASC"),
                  false);
}

QList<RigaArchivio> CartelleInOrdineDiNome() {
    return Elenco(ArchivioDisegni,
                  QStringLiteral("SELECT CodiceCartella, NomeCartella FROM TabCartelle"
                                 " ORDER BY NomeCartella COLLATE NOCASE ASC"),
                  false);
}

QList<RigaArchivio> CartelleObjInOrdineDiNome() {
    return Elenco(ArchivioOggetti,
                  QStringLiteral("SELECT CodiceCartellaObj, NomeCartellaObj FROM TabCartelleObj"
                                 " ORDER BY NomeCartellaObj COLLATE NOCASE ASC"),
                  false);
}

QList<RigaArchivio> DisegniDellaCartella(int32_t codiceCartella) {
    QSqlQuery q = Prepara(Archivio(ArchivioDisegni),
                          QStringLiteral("SELECT CodiceDisegno, NomeDisegno, CodiceCartella"
                                         " FROM TabDisegni WHERE CodiceDisegno < ? AND"
                                         " CodiceCartella = ? ORDER BY NomeDisegno COLLATE NOCASE"
                                         " ASC"));
    q.addBindValue(BaseCopieLavoro);
    q.addBindValue(codiceCartella);
    return LeggiRighe(q, true);
}

QList<RigaArchivio> OggettiDellaCartella(int32_t codiceCartellaObj) {
    QSqlQuery q = Prepara(Archivio(ArchivioOggetti),
                          QStringLiteral("SELECT CodiceOggetto, NomeOggetto, CodiceCartellaObj"
                                         " FROM TabOggetti WHERE CodiceCartellaObj = ?"
                                         " ORDER BY NomeOggetto COLLATE NOCASE ASC"));
    q.addBindValue(codiceCartellaObj);
    return LeggiRighe(q, true);
}

int32_t CercaNomeDisegno(const QString& nome, int32_t codiceCartella) {
    return CercaNome(ArchivioDisegni,
                     QStringLiteral("SELECT CodiceDisegno FROM TabDisegni WHERE NomeDisegno = ?"
                                    " COLLATE NOCASE AND CodiceCartella = ?"
                                    " ORDER BY CodiceDisegno ASC"),
                     nome, codiceCartella);
}

int32_t CercaNomeOggetto(const QString& nome, int32_t codiceCartellaObj) {
    return CercaNome(ArchivioOggetti,
                     QStringLiteral("SELECT CodiceOggetto FROM TabOggetti WHERE NomeOggetto = ?"
                                    " COLLATE NOCASE AND CodiceCartellaObj = ?"
                                    " ORDER BY CodiceOggetto ASC"),
                     nome, codiceCartellaObj);
}

RigaArchivio TestaDisegno(int32_t codiceDisegno) {
    QSqlQuery q = Prepara(Archivio(ArchivioDisegni),
                          QStringLiteral("SELECT CodiceDisegno, NomeDisegno, CodiceCartella"
                                         " FROM TabDisegni WHERE CodiceDisegno = ?"));
    q.addBindValue(codiceDisegno);
    const QList<RigaArchivio> righe = LeggiRighe(q, true);
    if (righe.isEmpty()) throw ErroreNessunRecord();
    return righe.first();
}

void EliminaDisegno(int32_t codiceDisegno) {
    EliminaPerCodice(ArchivioDisegni,
                     QStringLiteral("DELETE FROM TabDisegni WHERE CodiceDisegno = ?"),
                     codiceDisegno);
}

void EliminaOggetto(int32_t codiceOggetto) {
    EliminaPerCodice(ArchivioOggetti,
                     QStringLiteral("DELETE FROM TabOggetti WHERE CodiceOggetto = ?"),
                     codiceOggetto);
}

void EliminaCartella(int32_t codiceCartella) {
    EliminaPerCodice(ArchivioDisegni,
                     QStringLiteral("DELETE FROM TabCartelle WHERE CodiceCartella = ?"),
                     codiceCartella);
}

void EliminaCartellaObj(int32_t codiceCartellaObj) {
    EliminaPerCodice(ArchivioOggetti,
                     QStringLiteral("DELETE FROM TabCartelleObj WHERE CodiceCartellaObj = ?"),
                     codiceCartellaObj);
}

void EliminaAzioniDisegno(int32_t codiceDisegno) {
    EliminaPerCodice(ArchivioDisegni,
                     QStringLiteral("DELETE FROM TabAzioniDisegno WHERE CodiceDisegno = ?"),
                     codiceDisegno);
}
