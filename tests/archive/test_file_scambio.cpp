// The exchange file and the import below the panel: a round trip of every
// field and every picture byte, and each kind of bad file refused with its
// reason while nothing is written anywhere; hostile names kept inside the
// files folder; an import that fails leaves the archive and the folder as
// they were.
#include "archive/Archivi.h"
#include "archive/ArchivioAzioni.h"
#include "archive/FileScambio.h"
#include "archive/ImportaScambio.h"
#include "archive/IstruzioniArchivio.h"
#include "start/Avvio.h"
#include "start/MenuGenerale.h"
#include "support/AmbienteProva.h"

#include "FileScambioProva.h"

#include <QDir>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QtTest>

#include <memory>

namespace {

QByteArray Leggi(const QString& percorso) {
    QFile f(percorso);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

void Scrivi(const QString& percorso, const QByteArray& dati) {
    QFile f(percorso);
    QVERIFY(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    f.write(dati);
}

// One statement on an exchange file, as an outside tool would change it.
void Altera(const QString& percorso, const QString& sql) {
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("a"));
        db.setDatabaseName(percorso);
        QVERIFY(db.open());
        QSqlQuery q(db);
        QVERIFY2(q.exec(sql), qPrintable(q.lastError().text()));
    }
    QSqlDatabase::removeDatabase(QStringLiteral("a"));
}

int RigheDisegni() {
    QSqlQuery q(Archivio(ArchivioDisegni));
    if (!q.exec(QStringLiteral("SELECT (SELECT count(*) FROM TabDisegni) +"
                               " (SELECT count(*) FROM TabAzioniDisegno)")) ||
        !q.next())
        return -1;
    return q.value(0).toInt();
}

} // namespace

class ProvaFileScambio : public QObject {
    Q_OBJECT

    std::unique_ptr<AmbienteProva> amb;
    QString file_;
    QString figura_;

    // Reads `percorso` expecting a refusal; gives its reason.
    static QString Rifiuto(const QString& percorso) {
        try {
            LeggiFileScambio(percorso);
        } catch (const ScambioRifiutato& r) {
            return r.Motivo;
        }
        return QStringLiteral("<accettato>");
    }

private slots:
    void init() {
        amb = std::make_unique<AmbienteProva>();
        amb->ApriArchivi();
        CodiceCartellaAttiva = 1;
        NomeCartellaAttiva = NomiArchivi::CartellaSistemaDisegni;
        file_ = PercorsoFile() + QStringLiteral("/prova.zanto");
        figura_ = PercorsoFile() + QStringLiteral("/foglia.png");
        ScriviFileScambio(file_, ScambioDiProva(figura_));
    }
    void cleanup() { amb.reset(); }

    void andata_e_ritorno_di_ogni_campo_e_byte() {
        const ContenutoScambio atteso = ScambioDiProva(figura_);
        const ContenutoScambio letto = LeggiFileScambio(file_);
        QCOMPARE(letto.NomeDisegno, atteso.NomeDisegno);
        QCOMPARE(letto.NumeroAzioni, atteso.NumeroAzioni);
        for (int32_t i = 1; i <= atteso.NumeroAzioni; ++i)
            QCOMPARE(letto.Azioni.at(i), atteso.Azioni.at(i));
        QCOMPARE(letto.Immagini.size(), 1);
        QCOMPARE(letto.Immagini.at(0).Nome, figura_);
        QCOMPARE(letto.Immagini.at(0).Dati, atteso.Immagini.at(0).Dati);
        // Nothing is left beside it.
        QCOMPARE(QDir(PercorsoFile()).entryList(QDir::Files), QStringList{"prova.zanto"});
    }

    void un_file_vuoto_o_di_altro_genere() {
        Scrivi(file_, {});
        QVERIFY(Rifiuto(file_).contains(QStringLiteral("danneggiato")));
        Scrivi(file_, QByteArray("{\\rtf1 non sono un disegno}"));
        QVERIFY(Rifiuto(file_).contains(QStringLiteral("danneggiato")));
        QByteArray caso(5000, '\0');
        for (int i = 0; i < caso.size(); ++i)
            caso[i] = char((i * 7919) % 251);
        Scrivi(file_, QByteArray("SQLite format 3") + '\0' + caso);
        QVERIFY(Rifiuto(file_).contains(QStringLiteral("danneggiato")));
        QVERIFY(Rifiuto(PercorsoFile() + QStringLiteral("/manca.zanto"))
                    .contains(QStringLiteral("danneggiato")));
    }

    void un_file_troncato_a_ogni_lunghezza() {
        const QByteArray intero = Leggi(file_);
        for (qsizetype n : {qsizetype(16), qsizetype(100), qsizetype(1024), intero.size() / 2,
                            intero.size() - 1}) {
            Scrivi(file_, intero.left(n));
            QVERIFY2(Rifiuto(file_).contains(QStringLiteral("danneggiato")),
                     qPrintable(QString::number(n)));
        }
    }

    void una_versione_piu_recente() {
        Altera(file_, QStringLiteral("UPDATE Formato SET Versione = 2"));
        QVERIFY(Rifiuto(file_).contains(QStringLiteral("versione più recente")));
    }

    void intestazione_o_righe_fuori_posto_data() {
        QTest::addColumn<QString>("sql");
        QTest::newRow("altro programma") << "UPDATE Formato SET Programma = 'ALTRO'";
        QTest::newRow("due formati") << "INSERT INTO Formato VALUES (1, 'ZANTO')";
        QTest::newRow("versione zero") << "UPDATE Formato SET Versione = 0";
        QTest::newRow("versione testo") << "UPDATE Formato SET Versione = 'uno'";
        QTest::newRow("senza nome") << "DELETE FROM Disegno";
        QTest::newRow("nome binario") << "UPDATE Disegno SET NomeDisegno = x'00ff'";
        QTest::newRow("senza azioni") << "DELETE FROM TabAzioniDisegno";
        QTest::newRow("tipo testo") << "UPDATE TabAzioniDisegno SET TipoAzione = 'x'";
        QTest::newRow("intero enorme") << "UPDATE TabAzioniDisegno SET XInizio = 99999999999";
        QTest::newRow("reale infinito") << "UPDATE TabAzioniDisegno SET XCentro = 1e999";
        QTest::newRow("figura testo") << "UPDATE Immagini SET Dati = 'abc'";
        QTest::newRow("senza tabella") << "DROP TABLE Immagini";
        QTest::newRow("tabella in piu") << "CREATE TABLE Altra (x)";
        QTest::newRow("innesco") << "CREATE TRIGGER t AFTER INSERT ON Disegno BEGIN SELECT 1; END";
        QTest::newRow("modo wal") << "PRAGMA journal_mode = WAL";
        QTest::newRow("carattere enorme") << "UPDATE TabAzioniDisegno SET SizeFont = 2000000000";
        QTest::newRow("penna enorme") << "UPDATE TabAzioniDisegno SET SpessLinea = 30000";
    }
    void intestazione_o_righe_fuori_posto() {
        QFETCH(QString, sql);
        Altera(file_, sql);
        QVERIFY(Rifiuto(file_).contains(QStringLiteral("danneggiato")));
        // Refused without a journal or a log written beside it.
        QCOMPARE(QDir(PercorsoFile()).entryList(QDir::Files | QDir::Hidden),
                 QStringList{"prova.zanto"});
    }

    void una_vista_al_posto_delle_azioni() {
        Altera(file_, QStringLiteral("CREATE TABLE Copia AS SELECT * FROM TabAzioniDisegno"));
        Altera(file_, QStringLiteral("DROP TABLE TabAzioniDisegno"));
        Altera(file_, QStringLiteral("CREATE VIEW TabAzioniDisegno AS SELECT * FROM Copia"));
        QVERIFY(Rifiuto(file_).contains(QStringLiteral("danneggiato")));
    }

    void importa_nella_cartella_attiva_con_la_bitmap() {
        const int prima = RigheDisegni();
        ContenutoScambio c = LeggiFileScambio(file_);
        const int32_t codice = RegistraDisegnoImportato(c, QStringLiteral("Foglie"));
        QVERIFY(codice > 0);
        QCOMPARE(RigheDisegni(), prima + 1 + 4);
        QList<RecordAzione> lette;
        int32_t numero = 0;
        LeggiAzioniDisegno(codice, lette, numero);
        QCOMPARE(numero, 4);
        QCOMPARE(lette.at(4).NomeFileImmagine, figura_);
        QCOMPARE(Leggi(figura_), c.Immagini.at(0).Dati);
        QVERIFY(QFile::exists(PercorsoBitmapDisegno(NomeCartellaAttiva, CodiceCartellaAttiva,
                                                    QStringLiteral("Foglie"), codice)));
    }

    void nomi_ostili_restano_nella_cartella_dei_file() {
        ContenutoScambio c = ScambioDiProva(figura_);
        const QByteArray dati = c.Immagini.at(0).Dati;
        const QStringList ostili = {QStringLiteral("../../fuori.png"),
                                    QStringLiteral("/tmp/zanto-assoluto.png"),
                                    QStringLiteral("..\\..\\windows.png"),
                                    QStringLiteral(".."),
                                    QString(),
                                    QStringLiteral("script.sh")};
        c.Immagini.clear();
        for (const QString& nome : ostili) {
            RecordAzione a = c.Azioni.at(4);
            a.NomeFileImmagine = nome;
            c.Azioni.append(a);
            c.Immagini.append({nome, dati});
        }
        // And a picture the file does not carry, named by a path of the system.
        RecordAzione estranea = c.Azioni.at(4);
        estranea.NomeFileImmagine = QStringLiteral("/etc/passwd");
        c.Azioni.append(estranea);
        c.NumeroAzioni = int32_t(c.Azioni.size()) - 1;
        const int32_t codice = RegistraDisegnoImportato(c, QStringLiteral("Ostile"));
        QVERIFY(codice > 0);
        QList<RecordAzione> lette;
        int32_t numero = 0;
        LeggiAzioniDisegno(codice, lette, numero);
        const QString cartella = QDir(PercorsoFile()).canonicalPath();
        for (int32_t i = 4; i <= numero; ++i) {
            const QFileInfo posto(lette.at(i).NomeFileImmagine);
            QCOMPARE(QDir(posto.absolutePath()).canonicalPath(), cartella);
        }
        QVERIFY(!QFile::exists(RadiceDati + QStringLiteral("/fuori.png")));
        QVERIFY(!QFile::exists(QStringLiteral("/tmp/zanto-assoluto.png")));
        QVERIFY(!QFileInfo(lette.at(numero).NomeFileImmagine).fileName().contains(u'/'));
        QVERIFY(!QFile::exists(lette.at(numero).NomeFileImmagine));
    }

    void un_import_che_fallisce_non_lascia_nulla() {
        // The archive refuses action rows from now on.
        {
            QSqlQuery q(Archivio(ArchivioDisegni));
            QVERIFY(q.exec(QStringLiteral("CREATE TRIGGER rifiuta BEFORE INSERT ON"
                                          " TabAzioniDisegno BEGIN SELECT RAISE(ABORT, 'no');"
                                          " END")));
        }
        ContenutoScambio c = ScambioDiProva(PercorsoFile() + QStringLiteral("/nuova.png"));
        const int prima = RigheDisegni();
        const QStringList filePrima = QDir(PercorsoFile()).entryList(QDir::Files);
        QCOMPARE(RegistraDisegnoImportato(c, QStringLiteral("Mai")), 0);
        QCOMPARE(RigheDisegni(), prima);
        QCOMPARE(QDir(PercorsoFile()).entryList(QDir::Files), filePrima);
        QVERIFY(!amb->Scatole.isEmpty());
        const QString cartella = PercorsoCartellaDisegni(NomeCartellaAttiva, CodiceCartellaAttiva);
        QCOMPARE(QDir(cartella).entryList(QDir::Files), QStringList());
    }

    void una_scrittura_che_fallisce_lascia_il_file_di_prima() {
        const QByteArray prima = Leggi(file_);
        ContenutoScambio c = ScambioDiProva(figura_);
        c.Azioni[1].XCentro = std::numeric_limits<float>::infinity();
        QVERIFY_THROWS_EXCEPTION(ErroreZanto, ScriviFileScambio(file_, c));
        QCOMPARE(Leggi(file_), prima);
        QCOMPARE(QDir(PercorsoFile()).entryList(QDir::Files), QStringList{"prova.zanto"});
    }
};

QTEST_MAIN(ProvaFileScambio)
#include "test_file_scambio.moc"
