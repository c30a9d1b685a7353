// Real SQLite and system failures, and the numbers the program gives them.
#include "base/MappaErrori.h"
#include "support/AmbienteProva.h"

#include <QFile>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QtTest>

#include <cerrno>

namespace {

const QString Connessione = QStringLiteral("mappa");

// One archive file of the test's own, open for the duration of one check.
class ArchivioProva {
public:
    explicit ArchivioProva(const QString& percorso, const QString& opzioni = {}) {
        db_ = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), Connessione);
        db_.setDatabaseName(percorso);
        db_.setConnectOptions(opzioni);
        aperto_ = db_.open();
    }
    ~ArchivioProva() {
        db_.close();
        db_ = QSqlDatabase();
        QSqlDatabase::removeDatabase(Connessione);
    }
    bool Aperto() const { return aperto_; }
    bool Esegui(const QString& sql) { return QSqlQuery(db_).exec(sql); }
    // The fault of a statement that must fail, through the exec or the first fetch.
    QSqlError Guasto(const QString& sql) {
        QSqlQuery q(db_);
        if (!q.exec(sql)) return q.lastError();
        q.next();
        return q.lastError();
    }

private:
    QSqlDatabase db_;
    bool aperto_ = false;
};

void ScriviFile(const QString& percorso, const QByteArray& contenuto) {
    QFile f(percorso);
    QVERIFY(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QCOMPARE(f.write(contenuto), contenuto.size());
}

// An archive whose first page, past the file header, is garbage: the header
// says SQLite, the schema's page cannot be read.
QByteArray PaginaGuasta(const QString& percorso) {
    QFile f(percorso);
    if (!f.open(QIODevice::ReadOnly)) return {};
    QByteArray dati = f.readAll();
    for (qsizetype i = 100; i < 4096 && i < dati.size(); ++i)
        dati[i] = static_cast<char>(0xA5 ^ (i * 7));
    return dati;
}

} // namespace

class ProvaMappaErrori : public QObject {
    Q_OBJECT

    QTemporaryDir cartella;
    QString percorso;
    int prove = 0;

private slots:
    void init() {
        RipristinaGlobali();
        percorso = cartella.filePath(QStringLiteral("prova-%1.db").arg(++prove));
        ArchivioProva a(percorso);
        QVERIFY(a.Aperto());
        QVERIFY(a.Esegui(QStringLiteral("CREATE TABLE t (id INTEGER PRIMARY KEY, nome TEXT)")));
        QVERIFY(a.Esegui(QStringLiteral("INSERT INTO t VALUES (1, 'uno')")));
    }

    void un_campo_che_si_chiama_fullname_non_e_disco_pieno() {
        ArchivioProva a(percorso);
        const ErroreZanto e = ErroreSql(a.Guasto(QStringLiteral("SELECT fullname FROM t")));
        QCOMPARE(e.Numero, 3265);
        QVERIFY2(e.Descrizione.contains(QStringLiteral("fullname")), qPrintable(e.Descrizione));
    }

    void una_colonna_assente_in_un_inserimento_e_un_campo_non_trovato() {
        ArchivioProva a(percorso);
        const ErroreZanto e =
            ErroreSql(a.Guasto(QStringLiteral("INSERT INTO t (id, fullname) VALUES (2, 'x')")));
        QCOMPARE(e.Numero, 3265);
    }

    void una_tabella_assente_e_la_3078() {
        ArchivioProva a(percorso);
        QCOMPARE(ErroreSql(a.Guasto(QStringLiteral("SELECT * FROM fulltable"))).Numero, 3078);
    }

    void un_errore_di_sintassi_con_la_parola_full_resta_generico() {
        ArchivioProva a(percorso);
        QCOMPARE(ErroreSql(a.Guasto(QStringLiteral("SELECT full full FROM t"))).Numero, 3001);
    }

    void un_archivio_davvero_pieno_e_la_61() {
        ArchivioProva a(percorso);
        QVERIFY(a.Esegui(QStringLiteral("PRAGMA max_page_count = 3")));
        const QSqlError guasto =
            a.Guasto(QStringLiteral("INSERT INTO t (nome) VALUES (zeroblob(100000))"));
        QVERIFY2(guasto.isValid(), "the insert should not fit");
        QCOMPARE(ErroreSql(guasto).Numero, 61);
    }

    void un_archivio_in_sola_lettura_e_la_70() {
        ArchivioProva a(percorso, QStringLiteral("QSQLITE_OPEN_READONLY"));
        QVERIFY(a.Aperto());
        QCOMPARE(ErroreSql(a.Guasto(QStringLiteral("INSERT INTO t (nome) VALUES ('due')"))).Numero,
                 70);
    }

    void una_chiave_doppia_e_la_3022() {
        ArchivioProva a(percorso);
        QCOMPARE(ErroreSql(a.Guasto(QStringLiteral("INSERT INTO t VALUES (1, 'ancora')"))).Numero,
                 3022);
    }

    void un_file_che_non_e_un_archivio_e_la_3343() {
        ScriviFile(percorso, QByteArray(8192, 'x'));
        ArchivioProva a(percorso);
        QCOMPARE(ErroreSql(a.Guasto(QStringLiteral("SELECT count(*) FROM sqlite_master"))).Numero,
                 3343);
    }

    void una_pagina_guasta_e_la_3343_non_l_archivio_che_non_si_apre() {
        const QByteArray guasto = PaginaGuasta(percorso);
        QVERIFY(guasto.size() >= 4096);
        ScriviFile(percorso, guasto);
        ArchivioProva a(percorso);
        QVERIFY(a.Aperto());
        const ErroreZanto e =
            ErroreSql(a.Guasto(QStringLiteral("SELECT count(*) FROM sqlite_master")));
        QCOMPARE(e.Numero, 3343);
        QVERIFY(e.Descrizione.startsWith(QStringLiteral("Formato di archivio non riconosciuto")));
    }

    void una_pagina_guasta_trovata_leggendo_le_righe_e_la_3343() {
        {
            ArchivioProva a(percorso);
            QVERIFY(a.Esegui(QStringLiteral("CREATE TABLE lunga (testo TEXT)")));
            for (int i = 0; i < 400; ++i)
                QVERIFY(
                    a.Esegui(QStringLiteral("INSERT INTO lunga VALUES (printf('%.100c', 'a'))")));
        }
        QFile f(percorso);
        QVERIFY(f.open(QIODevice::ReadWrite));
        const qint64 dimensione = f.size();
        QVERIFY(dimensione >= 8 * 4096);
        // The last leaf of the long table: its rows come after the first ones.
        QVERIFY(f.seek(dimensione - 4096));
        QCOMPARE(f.write(QByteArray(4096, '\xA5')), qint64(4096));
        f.close();
        ArchivioProva a(percorso);
        QSqlQuery q(QSqlDatabase::database(Connessione));
        QVERIFY(q.exec(QStringLiteral("SELECT testo FROM lunga")));
        int righe = 0;
        while (q.next())
            ++righe;
        QVERIFY(righe > 0);
        QVERIFY(q.lastError().isValid());
        const ErroreZanto e = ErroreSql(q.lastError());
        QCOMPARE(e.Numero, 3343);
    }

    void il_codice_esteso_vale_per_il_suo_codice_primario() {
        // 2067 is SQLITE_CONSTRAINT_UNIQUE, 1032 SQLITE_READONLY_DBMOVED, 3850 an IOERR.
        const auto numero = [](const char* codice) {
            return ErroreSql(QSqlError(QStringLiteral("driver"), QStringLiteral("motivo"),
                                       QSqlError::StatementError, QString::fromLatin1(codice)))
                .Numero;
        };
        QCOMPARE(numero("2067"), 3022);
        QCOMPARE(numero("1032"), 70);
        QCOMPARE(numero("3850"), 57);
        QCOMPARE(numero("13"), 61);
    }

    void un_messaggio_senza_codice_non_si_legge_a_parole() {
        const ErroreZanto e =
            ErroreSql(QSqlError(QStringLiteral("database or disk is full"),
                                QStringLiteral("no such table: x"), QSqlError::StatementError));
        QCOMPARE(e.Numero, 3001);
    }

    void i_guasti_del_sistema_hanno_i_loro_numeri() {
        const QString nome = cartella.filePath(QStringLiteral("f.tmp"));
        QCOMPARE(ErroreSistema(ENOSPC, nome).Numero, 61);
        QCOMPARE(ErroreSistema(EFBIG, nome).Numero, 61);
        QCOMPARE(ErroreSistema(EROFS, nome).Numero, 70);
        QCOMPARE(ErroreSistema(EACCES, nome).Numero, 70);
        QCOMPARE(ErroreSistema(EIO, nome).Numero, 57);
        QCOMPARE(ErroreSistema(ENOENT, nome).Numero, 53);
        QCOMPARE(ErroreSistema(ENOENT, cartella.filePath(QStringLiteral("manca/f.tmp"))).Numero,
                 76);
    }

    void un_disco_pieno_e_la_61_comunque_qt_chiami_il_guasto() {
        // A file saved aside and renamed reports a full disk as a rename or
        // an unspecified fault: errno still says what happened.
        const QString nome = cartella.filePath(QStringLiteral("f.png"));
        for (const QFileDevice::FileError guasto :
             {QFileDevice::RenameError, QFileDevice::UnspecifiedError, QFileDevice::WriteError,
              QFileDevice::OpenError, QFileDevice::CopyError}) {
            errno = ENOSPC;
            QCOMPARE(ErroreFile(guasto, nome).Numero, 61);
        }
        errno = EDQUOT;
        QCOMPARE(ErroreFile(QFileDevice::RenameError, nome).Numero, 61);
        errno = EFBIG;
        QCOMPARE(ErroreFile(QFileDevice::WriteError, nome).Numero, 61);
        errno = EXDEV;
        QCOMPARE(ErroreFile(QFileDevice::RenameError, nome).Numero, 75);
    }
};

QTEST_MAIN(ProvaMappaErrori)
#include "test_mappa_errori.moc"
