#include "archive/IstruzioniArchivio.h"

#include "archive/Archivi.h"
#include "base/MappaErrori.h"
#include "base/Utilita.h"
#include "model/RecordAzione.h"

#include <QSqlRecord>
#include <QVariant>

#include <cfloat>
#include <cmath>
#include <limits>

#include <sqlite3.h>

namespace {

// What a row read from an archive may hold, and the error when it doesn't:
//
//   | the row holds                                          | error |
//   |--------------------------------------------------------|-------|
//   | NULL where a value must be                             | 3021  |
//   | another type: text, real or blob in an integer column, |       |
//   |   text or blob in a real column, anything but text in  |       |
//   |   a text column                                        | 3021  |
//   | an integer outside its field's range                   | 6     |
//   | a real beyond a float, or not finite                   | 6     |
//   | a list of more than 32767 actions                      | 6     |
//
// Either way the caller's list or value stays as it was: nothing read is
// handed over until the whole read went through.
[[noreturn]] void ValoreMancante(const QString& campo) {
    throw ErroreZanto{3021, QStringLiteral("Valore mancante o di tipo errato nel campo ") + campo};
}

[[noreturn]] void FuoriIntervallo(const QString& campo) {
    throw ErroreZanto{6, QStringLiteral("Overflow nel campo ") + campo};
}

bool TipoIntero(const QVariant& v) {
    switch (v.typeId()) {
    case QMetaType::Short:
    case QMetaType::UShort:
    case QMetaType::Int:
    case QMetaType::UInt:
    case QMetaType::LongLong:
    case QMetaType::ULongLong:
        return true;
    default:
        return false;
    }
}

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

// What can still be told of a row that does not read: its code and its name,
// where each is of the right kind.
RigaDanneggiata DescriviRiga(const QSqlQuery& q) {
    RigaDanneggiata d;
    const QVariant codice = q.value(0);
    if (TipoIntero(codice)) d.Codice = codice.toLongLong();
    const QVariant nome = q.value(1);
    if (nome.typeId() == QMetaType::QString) d.Nome = nome.toString();
    return d;
}

// Reads head rows: code, name and, where there is one, the folder. Without
// `danneggiate` a bad row is an error; with it the row is left out, told there,
// and the rest is read.
QList<RigaArchivio> LeggiRighe(QSqlQuery& q, bool conCartella,
                               QList<RigaDanneggiata>* danneggiate = nullptr) {
    Esegui(q);
    const QSqlRecord campi = q.record();
    QList<RigaArchivio> righe;
    while (q.next()) {
        RigaArchivio r;
        try {
            r.Codice = LeggiCodice(q.value(0), campi.fieldName(0));
            r.Nome = LeggiTesto(q.value(1), campi.fieldName(1));
            if (conCartella) r.Cartella = LeggiCodice(q.value(2), campi.fieldName(2));
        } catch (const ErroreZanto&) {
            if (!danneggiate) throw;
            danneggiate->append(DescriviRiga(q));
            continue;
        }
        righe.append(r);
    }
    if (q.lastError().isValid()) throw ErroreSql(q.lastError());
    return righe;
}

QList<RigaArchivio> Elenco(const QString& connessione, const QString& sql, bool conCartella) {
    QSqlQuery q = Prepara(Archivio(connessione), sql);
    return LeggiRighe(q, conCartella);
}

// Names compare as the user reads them (StessoNome), which SQLite's NOCASE
// cannot do beyond A to Z; a name that does not read matches none.
int32_t CercaNome(const QString& connessione, const QString& sql, const QString& nome,
                  int32_t cartella) {
    QSqlQuery q = Prepara(Archivio(connessione), sql);
    q.addBindValue(cartella);
    Esegui(q);
    while (q.next()) {
        const QVariant valore = q.value(1);
        if (valore.typeId() != QMetaType::QString || !StessoNome(valore.toString(), nome)) continue;
        // The name is taken: a code that does not read is an error, not a free name.
        return LeggiCodice(q.value(0), q.record().fieldName(0));
    }
    if (q.lastError().isValid()) throw ErroreSql(q.lastError());
    return 0;
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

int64_t LeggiIntero(const QVariant& valore, const QString& campo, int64_t minimo, int64_t massimo) {
    if (valore.isNull() || !TipoIntero(valore)) ValoreMancante(campo);
    if (valore.typeId() == QMetaType::ULongLong &&
        valore.toULongLong() > qulonglong(std::numeric_limits<int64_t>::max()))
        FuoriIntervallo(campo);
    const int64_t n = valore.toLongLong();
    if (n < minimo || n > massimo) FuoriIntervallo(campo);
    return n;
}

int32_t LeggiCodice(const QVariant& valore, const QString& campo) {
    return static_cast<int32_t>(LeggiIntero(valore, campo, 1, std::numeric_limits<int32_t>::max()));
}

float LeggiReale(const QVariant& valore, const QString& campo) {
    if (valore.isNull()) ValoreMancante(campo);
    const int tipo = valore.typeId();
    // A whole number is a float's value too: an archive of another engine may
    // keep 2.0 as 2.
    if (tipo != QMetaType::Double && tipo != QMetaType::Float && !TipoIntero(valore))
        ValoreMancante(campo);
    const double d = valore.toDouble();
    if (!std::isfinite(d) || std::fabs(d) > double(FLT_MAX)) FuoriIntervallo(campo);
    return static_cast<float>(d);
}

QString LeggiTesto(const QVariant& valore, const QString& campo) {
    if (valore.isNull() || valore.typeId() != QMetaType::QString) ValoreMancante(campo);
    return valore.toString();
}

// Qt's driver turns an INTEGER into a qint64, a REAL into a double, a TEXT
// into a QString and a BLOB into a QByteArray: the storage class decides here
// exactly as the value's type decides above.
int64_t LeggiIntero(sqlite3_value* valore, const QString& campo, int64_t minimo, int64_t massimo) {
    if (sqlite3_value_type(valore) != SQLITE_INTEGER) ValoreMancante(campo);
    const int64_t n = sqlite3_value_int64(valore);
    if (n < minimo || n > massimo) FuoriIntervallo(campo);
    return n;
}

float LeggiReale(sqlite3_value* valore, const QString& campo) {
    const int tipo = sqlite3_value_type(valore);
    if (tipo != SQLITE_FLOAT && tipo != SQLITE_INTEGER) ValoreMancante(campo);
    const double d = sqlite3_value_double(valore);
    if (!std::isfinite(d) || std::fabs(d) > double(FLT_MAX)) FuoriIntervallo(campo);
    return static_cast<float>(d);
}

QString LeggiTesto(sqlite3_value* valore, const QString& campo) {
    if (sqlite3_value_type(valore) != SQLITE_TEXT) ValoreMancante(campo);
    // UTF-16 from SQLite itself, as the driver reads it: an odd byte sequence
    // comes out the same either way.
    const auto* testo = static_cast<const QChar*>(sqlite3_value_text16(valore));
    if (testo == nullptr) throw ErroreZanto{7, QStringLiteral("Memoria esaurita")};
    return QString(testo, sqlite3_value_bytes16(valore) / qsizetype(sizeof(QChar)));
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
    bool buco = false;
    while (!buco && q.next()) {
        const int64_t codice =
            LeggiIntero(q.value(0), t.ColonnaCodice, std::numeric_limits<int64_t>::min(),
                        std::numeric_limits<int64_t>::max());
        // No code the program gives is below 1: such a row must not drag the
        // next code down to 0 or below.
        if (codice < 1) continue;
        if (precedente + 1 < codice)
            buco = true;
        else
            precedente = codice;
    }
    if (!buco && q.lastError().isValid()) throw ErroreSql(q.lastError());
    if (precedente >= std::numeric_limits<int32_t>::max()) FuoriIntervallo(t.ColonnaCodice);
    return static_cast<int32_t>(precedente + 1);
}

int32_t NumeroCopieLavoro() {
    QSqlQuery q =
        Prepara(Archivio(ArchivioDisegni),
                QStringLiteral("SELECT COUNT(*) FROM TabDisegni WHERE CodiceDisegno >= ?"));
    q.addBindValue(BaseCopieLavoro);
    Esegui(q);
    if (!q.next()) throw ErroreSql(q.lastError());
    return static_cast<int32_t>(LeggiIntero(q.value(0), QStringLiteral("CodiceDisegno"), 0,
                                            std::numeric_limits<int32_t>::max()));
}

int32_t UltimaCopiaLavoro() {
    QSqlQuery q = Prepara(
        Archivio(ArchivioDisegni),
        QStringLiteral("SELECT MAX(CodiceDisegno) FROM TabDisegni WHERE CodiceDisegno >= ?"));
    q.addBindValue(BaseCopieLavoro);
    Esegui(q);
    if (!q.next()) throw ErroreSql(q.lastError());
    if (q.value(0).isNull()) return BaseCopieLavoro;
    return LeggiCodice(q.value(0), QStringLiteral("CodiceDisegno"));
}

int32_t RiprendiCopieLavoro() {
    QSqlDatabase db = Archivio(ArchivioDisegni);
    Transazione transazione(db);
    {
        // A head without rows is what an older version left when it stopped
        // between the two: it holds no step of the work.
        QSqlQuery q = Prepara(db, QStringLiteral("DELETE FROM TabDisegni WHERE CodiceDisegno >= ?"
                                                 " AND NOT EXISTS (SELECT 1 FROM TabAzioniDisegno"
                                                 " WHERE TabAzioniDisegno.CodiceDisegno ="
                                                 " TabDisegni.CodiceDisegno)"));
        q.addBindValue(BaseCopieLavoro);
        Esegui(q);
    }
    const int32_t ultima = UltimaCopiaLavoro();
    transazione.Conferma();
    return ultima;
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
                                 " ORDER BY NomeCartella COLLATE NOCASE ASC, CodiceCartella ASC"),
                  false);
}

QList<RigaArchivio> CartelleObjInOrdineDiNome() {
    return Elenco(
        ArchivioOggetti,
        QStringLiteral("SELECT CodiceCartellaObj, NomeCartellaObj FROM TabCartelleObj"
                       " ORDER BY NomeCartellaObj COLLATE NOCASE ASC, CodiceCartellaObj ASC"),
        false);
}

QList<RigaArchivio> DisegniDellaCartella(int32_t codiceCartella,
                                         QList<RigaDanneggiata>* danneggiate) {
    QSqlQuery q = Prepara(Archivio(ArchivioDisegni),
                          QStringLiteral("SELECT CodiceDisegno, NomeDisegno, CodiceCartella"
                                         " FROM TabDisegni WHERE CodiceDisegno < ? AND"
                                         " CodiceCartella = ? ORDER BY NomeDisegno COLLATE NOCASE"
                                         " ASC"));
    q.addBindValue(BaseCopieLavoro);
    q.addBindValue(codiceCartella);
    QList<RigaDanneggiata> tralasciate;
    return LeggiRighe(q, true, danneggiate ? danneggiate : &tralasciate);
}

QList<RigaArchivio> OggettiDellaCartella(int32_t codiceCartellaObj,
                                         QList<RigaDanneggiata>* danneggiate) {
    QSqlQuery q = Prepara(Archivio(ArchivioOggetti),
                          QStringLiteral("SELECT CodiceOggetto, NomeOggetto, CodiceCartellaObj"
                                         " FROM TabOggetti WHERE CodiceCartellaObj = ?"
                                         " ORDER BY NomeOggetto COLLATE NOCASE ASC"));
    q.addBindValue(codiceCartellaObj);
    QList<RigaDanneggiata> tralasciate;
    return LeggiRighe(q, true, danneggiate ? danneggiate : &tralasciate);
}

int32_t CercaNomeDisegno(const QString& nome, int32_t codiceCartella) {
    return CercaNome(ArchivioDisegni,
                     QStringLiteral("SELECT CodiceDisegno, NomeDisegno FROM TabDisegni"
                                    " WHERE CodiceCartella = ? ORDER BY CodiceDisegno ASC"),
                     nome, codiceCartella);
}

int32_t CercaNomeOggetto(const QString& nome, int32_t codiceCartellaObj) {
    return CercaNome(ArchivioOggetti,
                     QStringLiteral("SELECT CodiceOggetto, NomeOggetto FROM TabOggetti"
                                    " WHERE CodiceCartellaObj = ? ORDER BY CodiceOggetto ASC"),
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
