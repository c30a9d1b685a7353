#include "archive/RigheAzioni.h"

#include "archive/Archivi.h"
#include "archive/IstruzioniArchivio.h"
#include "base/GestioneErrori.h"
#include "base/MappaErrori.h"
#include "base/Numeri.h"

#include <QSqlDriver>
#include <QSqlError>
#include <QSqlRecord>
#include <QVariant>

#include <algorithm>
#include <array>
#include <cfloat>
#include <cmath>
#include <limits>

#include <sqlite3.h>

TabellaAzioni TabellaAzioniDisegno() {
    return {ArchivioDisegni, QStringLiteral("TabAzioniDisegno"), QStringLiteral("CodiceDisegno")};
}

TabellaAzioni TabellaAzioniOggetto() {
    return {ArchivioOggetti, QStringLiteral("TabAzioniOggetto"), QStringLiteral("CodiceOggetto")};
}

namespace {

// The 22 fields of an action, in the record's order.
const std::array<QString, 22> CampiAzione = {
    QStringLiteral("TipoAzione"), QStringLiteral("XInizio"),
    QStringLiteral("YInizio"),    QStringLiteral("XFine"),
    QStringLiteral("YFine"),      QStringLiteral("ColLinea"),
    QStringLiteral("ColZona"),    QStringLiteral("FlagPienoVuoto"),
    QStringLiteral("SpessLinea"), QStringLiteral("XCentro"),
    QStringLiteral("YCentro"),    QStringLiteral("RadIniz"),
    QStringLiteral("RadFine"),    QStringLiteral("RaggioVert"),
    QStringLiteral("RaggioOriz"), QStringLiteral("InterlineaTesto"),
    QStringLiteral("Testo"),      QStringLiteral("NomeFont"),
    QStringLiteral("SizeFont"),   QStringLiteral("Corsivo"),
    QStringLiteral("Grassetto"),  QStringLiteral("NomeFileImmagine"),
};

[[noreturn]] void Overflow(const QString& campo) {
    throw ErroreZanto{6, QStringLiteral("Overflow nel campo ") + campo};
}

// The most actions a list may hold: replay, save and NumAzione are 16-bit.
constexpr int32_t MassimoAzioni = std::numeric_limits<int16_t>::max();

// The range of each integer field of an action as the record defines it; the
// errors follow the table in IstruzioniArchivio.cpp.
struct Intervallo {
    int64_t Minimo, Massimo;
};
constexpr int64_t Min32 = std::numeric_limits<int32_t>::min();
constexpr int64_t Max32 = std::numeric_limits<int32_t>::max();
constexpr int64_t Max16 = std::numeric_limits<int16_t>::max();
constexpr Intervallo QualsiasiIntero32{Min32, Max32};
constexpr Intervallo Colore{0, 0xFFFFFF};  // 0x00BBGGRR: the top byte is 0
constexpr Intervallo UnoDueOZero{0, 2};    // FlagPienoVuoto, Corsivo, Grassetto
constexpr Intervallo Spessore{0, Max16};   // narrowed to 16 bits when drawn
constexpr Intervallo Dimensione{0, Max32}; // a size in points
constexpr Intervallo Tipo{TipiAzione::Linea, TipiAzione::Immagine}; // 8 is never stored

// SQLite's own handle under a Qt connection, or nullptr for another driver.
sqlite3* ManigliaSqlite(const QSqlDatabase& db) {
    const QVariant v = db.driver()->handle();
    if (!v.isValid() || qstrcmp(v.typeName(), "sqlite3*") != 0) return nullptr;
    return *static_cast<sqlite3* const*>(v.constData());
}

[[noreturn]] void GuastoSqlite(sqlite3* db) {
    const int codice = sqlite3_extended_errcode(db) & 0xFF;
    throw ErroreSql(QSqlError(QStringLiteral("SQLite"), QString::fromUtf8(sqlite3_errmsg(db)),
                              QSqlError::StatementError, QString::number(codice)));
}

// Rows read through SQLite's own interface: Qt builds a QVariant for every
// value of a row, which on a long list is most of the time of a load.
class LetturaNativa {
public:
    LetturaNativa(sqlite3* db, const QString& sql) : db_(db) {
        if (sqlite3_prepare_v2(db_, sql.toUtf8().constData(), -1, &istruzione_, nullptr) !=
            SQLITE_OK)
            GuastoSqlite(db_);
    }
    ~LetturaNativa() { sqlite3_finalize(istruzione_); }
    LetturaNativa(const LetturaNativa&) = delete;
    LetturaNativa& operator=(const LetturaNativa&) = delete;

    void Lega(int posizione, int64_t valore) {
        if (sqlite3_bind_int64(istruzione_, posizione, valore) != SQLITE_OK) GuastoSqlite(db_);
    }
    void Esegui() {}
    // How many rows the list will have, so that it is made once at its size:
    // grown a step at a time, it would be copied whole at every step.
    qsizetype Righe(const QString& sqlConteggio, int64_t codice) {
        LetturaNativa conteggio(db_, sqlConteggio);
        conteggio.Lega(1, codice);
        if (!conteggio.Avanti()) return 0;
        return qsizetype(
            std::clamp<int64_t>(sqlite3_column_int64(conteggio.istruzione_, 0), 0, MassimoAzioni));
    }
    // Found as Qt's record finds a field: by name, whatever the case.
    int Colonna(const QString& nome) const {
        const int colonne = sqlite3_column_count(istruzione_);
        for (int i = 0; i < colonne; ++i)
            if (QString::fromUtf8(sqlite3_column_name(istruzione_, i))
                    .compare(nome, Qt::CaseInsensitive) == 0)
                return i;
        return -1;
    }
    bool Avanti() {
        const int esito = sqlite3_step(istruzione_);
        if (esito == SQLITE_ROW) return true;
        if (esito != SQLITE_DONE) GuastoSqlite(db_);
        return false;
    }
    int64_t Intero(int colonna, const QString& campo, int64_t minimo, int64_t massimo) {
        return LeggiIntero(Valore(colonna), campo, minimo, massimo);
    }
    float Reale(int colonna, const QString& campo) { return LeggiReale(Valore(colonna), campo); }
    QString Testo(int colonna, const QString& campo) { return LeggiTesto(Valore(colonna), campo); }

private:
    // One call per value where sqlite3_column_type and then the value would
    // take the connection's lock twice. The value is read at once, on the
    // thread that owns the connection, as Qt requires of every connection.
    sqlite3_value* Valore(int colonna) { return sqlite3_column_value(istruzione_, colonna); }

    sqlite3* db_;
    sqlite3_stmt* istruzione_ = nullptr;
};

// The same reading through Qt, for a driver other than SQLite.
class LetturaQt {
public:
    LetturaQt(const QSqlDatabase& db, const QString& sql) : q_(Prepara(db, sql)) {}
    void Lega(int posizione, int64_t valore) { q_.bindValue(posizione - 1, qlonglong(valore)); }
    void Esegui() {
        ::Esegui(q_);
        record_ = q_.record();
    }
    qsizetype Righe(const QString&, int64_t) { return 0; }
    int Colonna(const QString& nome) const { return record_.indexOf(nome); }
    bool Avanti() {
        if (q_.next()) return true;
        if (q_.lastError().isValid()) throw ErroreSql(q_.lastError());
        return false;
    }
    int64_t Intero(int colonna, const QString& campo, int64_t minimo, int64_t massimo) {
        return LeggiIntero(q_.value(colonna), campo, minimo, massimo);
    }
    float Reale(int colonna, const QString& campo) { return LeggiReale(q_.value(colonna), campo); }
    QString Testo(int colonna, const QString& campo) {
        return LeggiTesto(q_.value(colonna), campo);
    }

private:
    QSqlQuery q_;
    QSqlRecord record_;
};

// Reads the list of `codice` in NumAzione order. The rows' own numbers are not
// used, only their place in the order.
template <typename Lettura>
void LeggiRighe(Lettura& q, const TabellaAzioni& t, int32_t codice, QList<RecordAzione>& lista,
                int32_t& numero) {
    const qsizetype righe =
        q.Righe(QStringLiteral("SELECT COUNT(*) FROM ") + t.Nome + QStringLiteral(" WHERE ") +
                    t.ColonnaCodice + QStringLiteral(" = ?"),
                codice);
    q.Lega(1, codice);
    q.Esegui();
    std::array<int, 22> colonna{};
    for (size_t i = 0; i < CampiAzione.size(); ++i) {
        colonna[i] = q.Colonna(CampiAzione[i]);
        if (colonna[i] < 0)
            throw ErroreZanto{3265,
                              QStringLiteral("Campo dell'archivio non trovato: ") + CampiAzione[i]};
    }
    QList<RecordAzione> letti{RecordAzione{}};
    letti.reserve(righe + 1);
    auto intero = [&](size_t i, Intervallo r) {
        return static_cast<int32_t>(q.Intero(colonna[i], CampiAzione[i], r.Minimo, r.Massimo));
    };
    auto reale = [&](size_t i) { return q.Reale(colonna[i], CampiAzione[i]); };
    auto testo = [&](size_t i) { return q.Testo(colonna[i], CampiAzione[i]); };
    while (q.Avanti()) {
        // Caught here, before a redraw or a save meets it outside any trap.
        if (letti.size() > MassimoAzioni) Overflow(QStringLiteral("NumAzione"));
        RecordAzione& a = letti.emplace_back();
        a.TipoAzione = intero(0, Tipo);
        a.XInizio = intero(1, QualsiasiIntero32);
        a.YInizio = intero(2, QualsiasiIntero32);
        a.XFine = intero(3, QualsiasiIntero32);
        a.YFine = intero(4, QualsiasiIntero32);
        a.ColLinea = intero(5, Colore);
        a.ColZona = intero(6, Colore);
        a.FlagPienoVuoto = intero(7, UnoDueOZero);
        a.SpessLinea = intero(8, Spessore);
        a.XCentro = reale(9);
        a.YCentro = reale(10);
        a.RadIniz = reale(11);
        a.RadFine = reale(12);
        a.RaggioVert = reale(13);
        a.RaggioOriz = reale(14);
        a.InterlineaTesto =
            static_cast<int16_t>(intero(15, {std::numeric_limits<int16_t>::min(), Max16}));
        a.Testo = testo(16);
        a.NomeFont = testo(17);
        a.SizeFont = intero(18, Dimensione);
        a.Corsivo = intero(19, UnoDueOZero);
        a.Grassetto = intero(20, UnoDueOZero);
        a.NomeFileImmagine = testo(21);
    }
    // An owner without rows has no current record to move to.
    if (letti.size() == 1) throw ErroreNessunRecord();
    numero = static_cast<int32_t>(letti.size() - 1);
    lista = std::move(letti);
}

} // namespace

void LeggiRigheAzioni(const TabellaAzioni& t, int32_t codice, QList<RecordAzione>& lista,
                      int32_t& numero) {
    const QString sql = QStringLiteral("SELECT * FROM ") + t.Nome + QStringLiteral(" WHERE ") +
                        t.ColonnaCodice + QStringLiteral(" = ? ORDER BY NumAzione ASC");
    QSqlDatabase db = Archivio(t.Connessione);
    if (sqlite3* nativo = ManigliaSqlite(db)) {
        LetturaNativa q(nativo, sql);
        LeggiRighe(q, t, codice, lista, numero);
    } else {
        LetturaQt q(db, sql);
        LeggiRighe(q, t, codice, lista, numero);
    }
}

namespace {

// The text columns take no NULL: an unset string is written empty.
QString NonNullo(const QString& testo) {
    return testo.isNull() ? QString(0, QChar()) : testo;
}

// Qt binds every value by building a placeholder name; on a long list that is
// most of the time of a save. With SQLite underneath, rows go straight in.
class InserimentoNativo {
public:
    InserimentoNativo(sqlite3* db, const QString& sql) : db_(db) {
        if (sqlite3_prepare_v2(db_, sql.toUtf8().constData(), -1, &istruzione_, nullptr) !=
            SQLITE_OK)
            GuastoSqlite(db_);
    }
    ~InserimentoNativo() { sqlite3_finalize(istruzione_); }
    InserimentoNativo(const InserimentoNativo&) = delete;
    InserimentoNativo& operator=(const InserimentoNativo&) = delete;

    void Intero(int posizione, int64_t valore) {
        Controlla(sqlite3_bind_int64(istruzione_, posizione, valore));
    }
    void Reale(int posizione, double valore) {
        Controlla(sqlite3_bind_double(istruzione_, posizione, valore));
    }
    void Testo(int posizione, const QString& valore) {
        const QByteArray utf8 = valore.toUtf8();
        Controlla(sqlite3_bind_text(istruzione_, posizione, utf8.constData(),
                                    static_cast<int>(utf8.size()), SQLITE_TRANSIENT));
    }
    void Esegui() {
        if (sqlite3_step(istruzione_) != SQLITE_DONE) GuastoSqlite(db_);
        sqlite3_reset(istruzione_);
    }

private:
    void Controlla(int esito) {
        if (esito != SQLITE_OK) GuastoSqlite(db_);
    }

    sqlite3* db_;
    sqlite3_stmt* istruzione_ = nullptr;
};

// The same row writing through Qt, for a driver other than SQLite.
class InserimentoQt {
public:
    InserimentoQt(const QSqlDatabase& db, const QString& sql) : q_(Prepara(db, sql)) {}
    void Intero(int posizione, int64_t valore) { q_.bindValue(posizione - 1, qlonglong(valore)); }
    void Reale(int posizione, double valore) { q_.bindValue(posizione - 1, valore); }
    void Testo(int posizione, const QString& valore) {
        q_.bindValue(posizione - 1, NonNullo(valore));
    }
    void Esegui() { ::Esegui(q_); }

private:
    QSqlQuery q_;
};

template <typename Inserimento>
void ScriviRighe(Inserimento& q, int32_t codice, const QList<RecordAzione>& lista, int32_t numero) {
    for (int32_t i = 1; i <= numero; ++i) {
        const int16_t numAzione = Intero16(static_cast<int64_t>(i));
        if (i >= lista.size())
            throw ErroreZanto{9, QStringLiteral("Indice non compreso nell'intervallo.")};
        const RecordAzione& a = lista[i];
        q.Intero(1, codice);
        q.Intero(2, numAzione);
        q.Intero(3, a.TipoAzione);
        q.Intero(4, a.XInizio);
        q.Intero(5, a.YInizio);
        q.Intero(6, a.XFine);
        q.Intero(7, a.YFine);
        q.Intero(8, a.ColLinea);
        q.Intero(9, a.ColZona);
        q.Intero(10, a.FlagPienoVuoto);
        q.Intero(11, a.SpessLinea);
        // Floats go as doubles: every float is a double exactly, so it comes back whole.
        q.Reale(12, double(a.XCentro));
        q.Reale(13, double(a.YCentro));
        q.Reale(14, double(a.RadIniz));
        q.Reale(15, double(a.RadFine));
        q.Reale(16, double(a.RaggioVert));
        q.Reale(17, double(a.RaggioOriz));
        q.Intero(18, a.InterlineaTesto);
        q.Testo(19, a.Testo);
        q.Testo(20, a.NomeFont);
        q.Intero(21, a.SizeFont);
        q.Intero(22, a.Corsivo);
        q.Intero(23, a.Grassetto);
        q.Testo(24, a.NomeFileImmagine);
        q.Esegui();
    }
}

// Refuses, before any row goes in, a list that could not be read back whole:
// SQLite keeps a NaN as NULL and would fail on it with a misleading message.
void ControllaRighe(const QList<RecordAzione>& lista, int32_t numero) {
    if (numero > MassimoAzioni) Overflow(QStringLiteral("NumAzione"));
    if (numero >= lista.size())
        throw ErroreZanto{9, QStringLiteral("Indice non compreso nell'intervallo.")};
    for (int32_t i = 1; i <= numero; ++i) {
        const RecordAzione& a = lista[i];
        const std::array<float, 6> reali = {a.XCentro, a.YCentro,    a.RadIniz,
                                            a.RadFine, a.RaggioVert, a.RaggioOriz};
        for (size_t k = 0; k < reali.size(); ++k)
            if (!std::isfinite(reali[k])) Overflow(CampiAzione[9 + k]);
    }
}

} // namespace

// Adds rows 1..numero of `lista` for `codice`, NumAzione from 1. The caller
// holds the transaction.
void ScriviRigheAzioni(const TabellaAzioni& t, int32_t codice, const QList<RecordAzione>& lista,
                       int32_t numero) {
    ControllaRighe(lista, numero);
    QString segnaposti = QStringLiteral("?, ?");
    for (size_t i = 0; i < CampiAzione.size(); ++i)
        segnaposti += QStringLiteral(", ?");
    QStringList colonne{t.ColonnaCodice, QStringLiteral("NumAzione")};
    for (const QString& campo : CampiAzione)
        colonne.append(campo);
    const QString sql = QStringLiteral("INSERT INTO ") + t.Nome + QStringLiteral(" (") +
                        colonne.join(QStringLiteral(", ")) + QStringLiteral(") VALUES (") +
                        segnaposti + ')';
    QSqlDatabase db = Archivio(t.Connessione);
    if (sqlite3* nativo = ManigliaSqlite(db)) {
        InserimentoNativo q(nativo, sql);
        ScriviRighe(q, codice, lista, numero);
    } else {
        InserimentoQt q(db, sql);
        ScriviRighe(q, codice, lista, numero);
    }
}
