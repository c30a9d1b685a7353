// The exchange file and the import below the panel: a round trip of every
// field and every picture byte, and each kind of bad file refused with its
// reason while nothing is written anywhere; hostile names kept inside the
// files folder; an import that fails leaves the archive and the folder as
// they were.
#include "app/Avvio.h"
#include "app/MenuGenerale.h"
#include "archive/Archivi.h"
#include "archive/ArchivioAzioni.h"
#include "archive/FileInSospeso.h"
#include "archive/FileScambio.h"
#include "archive/ImportaScambio.h"
#include "archive/IstruzioniArchivio.h"
#include "model/LimitiTesto.h"
#include "support/AmbienteProva.h"
#include "support/CostruttoriAzioni.h"

#include "FileScambioProva.h"

#include <QDir>
#include <QSqlDatabase>
#include <QSqlError>
#include <QSqlQuery>
#include <QtTest>

#include <csignal>
#include <memory>
#include <sys/resource.h>
#include <sys/stat.h>

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

    void un_testo_oltre_la_misura_si_rifiuta_come_lo_divide_il_disegno() {
        // 40,000 carriage returns and no line feed: the drawing cuts lines on CR.
        ContenutoScambio c = ScambioDiProva(figura_);
        c.Azioni[3].Testo = QString(40000, QChar(u'\r'));
        ScriviFileScambio(file_, c);
        QVERIFY(Rifiuto(file_).contains(QStringLiteral("testo")));
        c.Azioni[3].Testo = QString(MassimoCaratteriTesto + 1, QChar(u'a'));
        ScriviFileScambio(file_, c);
        QVERIFY(Rifiuto(file_).contains(QStringLiteral("testo")));
        // At the measure it is taken: as many lines as a text may have, CR LF.
        QString righe;
        for (int32_t k = 1; k < MassimoRigheTesto; ++k)
            righe += QStringLiteral("riga\r\n");
        righe += QStringLiteral("ultima");
        c.Azioni[3].Testo = righe;
        ScriviFileScambio(file_, c);
        QCOMPARE(LeggiFileScambio(file_).Azioni.at(3).Testo, righe);
        c.Azioni[3].Testo = righe + QStringLiteral("\runa di troppo");
        ScriviFileScambio(file_, c);
        QVERIFY(Rifiuto(file_).contains(QStringLiteral("testo")));
    }

    void un_immagine_che_non_si_legge_si_rifiuta() {
        ContenutoScambio c = ScambioDiProva(figura_);
        c.Immagini[0].Dati = QByteArray("\x89PNG\r\n\x1a\n questo non è un disegno");
        ScriviFileScambio(file_, c);
        QVERIFY(Rifiuto(file_).contains(QStringLiteral("immagine")));
        // And nothing of it is taken in: no drawing, no picture, no box.
        QVERIFY(!QFile::exists(figura_));
        QVERIFY(amb->Scatole.isEmpty());
    }

    void un_elemento_che_il_disegno_non_sa_tracciare_si_rifiuta() {
        // An ellipse with no radius at all is 0/0 at every replay.
        ContenutoScambio c = ScambioDiProva(figura_);
        c.Azioni << CostruttoriAzioni::Ellisse(3000, 3000, 0, 0, FlagNonApplicabile);
        c.NumeroAzioni = 5;
        ScriviFileScambio(file_, c);
        QVERIFY(Rifiuto(file_).contains(QStringLiteral("non si possono disegnare")));
        QVERIFY(amb->Scatole.isEmpty());
    }

    void il_nome_si_pulisce_come_quelli_della_tastiera() {
        QCOMPARE(NomeDisegnoPulito(QStringLiteral("  Il   mio\r\ndisegno  ")),
                 QStringLiteral("Il mio disegno"));
        QCOMPARE(NomeDisegnoPulito(QString(QChar(u'\0')) + QStringLiteral("A") + QChar(u'\0') +
                                   QStringLiteral("B")),
                 QStringLiteral("A B"));
        QCOMPARE(NomeDisegnoPulito(QStringLiteral("   ")), QString());
        QCOMPARE(NomeDisegnoPulito(QString()), QString());
        const QString lungo = NomeDisegnoPulito(QString(1024 * 1024, QChar(u'x')));
        QCOMPARE(lungo, QString(LunghezzaNomeDisegno, QChar(u'x')));
        // As read from a file: a megabyte of a name with NULs in it.
        ContenutoScambio c = ScambioDiProva(figura_);
        c.NomeDisegno = QString(1024 * 1024, QChar(u'\0')) + QStringLiteral("Casa");
        ScriviFileScambio(file_, c);
        QCOMPARE(LeggiFileScambio(file_).NomeDisegno, QStringLiteral("Casa"));
        // An empty name is never stored.
        const int prima = RigheDisegni();
        QCOMPARE(RegistraDisegnoImportato(ScambioDiProva(figura_), QStringLiteral(" \t ")), 0);
        QCOMPARE(RigheDisegni(), prima);
    }

    void una_figura_che_e_un_tubo_non_ferma_nulla() {
        // A picture in a pipe of the files folder is no picture, and the reader does not wait.
        const QString tubo = PercorsoFile() + QStringLiteral("/tubo.png");
        QVERIFY(::mkfifo(QFile::encodeName(tubo).constData(), 0600) == 0);
        QList<RecordAzione> azioni{RecordAzione{}};
        RecordAzione a;
        a.TipoAzione = TipiAzione::Immagine;
        a.XFine = 1000, a.YFine = 1000, a.NomeFileImmagine = tubo;
        azioni << a;
        QVERIFY(ImmaginiNominate(azioni, 1).isEmpty());
        QCOMPARE(azioni.at(1).NomeFileImmagine, QStringLiteral("tubo.png"));
        QVERIFY(Rifiuto(tubo).contains(QStringLiteral("danneggiato")));
    }

    void un_import_interrotto_all_avvio_si_completa_o_si_toglie() {
        const QByteArray png = ScambioDiProva(figura_).Immagini.at(0).Dati;
        // Killed before its commit: the picture waits aside and no drawing names it.
        const QString orfana = PercorsoFile() + QStringLiteral("/orfana.png");
        Scrivi(FileAParte(orfana), png);
        // Killed after its commit: the drawing names a picture still aside.
        const QString fiore = PercorsoFile() + QStringLiteral("/fiore.png");
        QVERIFY(RegistraDisegnoImportato(ScambioDiProva(fiore), QStringLiteral("Fiore")) > 0);
        QVERIFY(QFile::rename(fiore, FileAParte(fiore)));
        // What a killed export of an earlier version left.
        Scrivi(PercorsoFile() + QStringLiteral("/Prato.png.nuovo"), png);
        Scrivi(PercorsoFile() + QStringLiteral("/Prato.zanto.nuovo.nuovo"), "x");
        Scrivi(PercorsoFile() + QStringLiteral("/Prato.zanto.nuovo.nuovo-journal"), "x");
        CompletaFileInSospeso();
        QVERIFY(!QFile::exists(orfana));
        QCOMPARE(Leggi(fiore), png);
        QCOMPARE(QDir(PercorsoFile()).entryList(QDir::Files | QDir::Hidden),
                 (QStringList{"fiore.png", "prova.zanto"}));
    }

    void un_esportazione_interrotta_all_avvio_resta_com_era_o_si_completa() {
        const QStringList quattro = {PercorsoFile() + QStringLiteral("/Prato.png"),
                                     PercorsoFile() + QStringLiteral("/Prato.pdf"),
                                     PercorsoFile() + QStringLiteral("/Prato.svg"),
                                     PercorsoFile() + QStringLiteral("/Prato.zanto")};
        for (const QString& f : quattro) {
            Scrivi(f, "vecchio");
            Scrivi(FileAParte(f), "nuovo");
        }
        // Killed before the note: the old four stay, nothing aside.
        CompletaFileInSospeso();
        for (const QString& f : quattro) {
            QCOMPARE(Leggi(f), QByteArray("vecchio"));
            QVERIFY(!QFile::exists(FileAParte(f)));
        }
        // Killed after the note, two of four in place: the start puts the rest.
        for (const QString& f : quattro)
            Scrivi(FileAParte(f), "nuovo");
        Scrivi(NotaInsieme(quattro),
               "+Prato.png\n+Prato.pdf\n+Prato.svg\n+Prato.zanto\n-../../fuori\n");
        QVERIFY(QFile::copy(quattro.at(0), quattro.at(0) + QStringLiteral(".vecchio")));
        for (int k = 0; k < 2; ++k) {
            QFile::remove(quattro.at(k));
            QVERIFY(QFile::rename(FileAParte(quattro.at(k)), quattro.at(k)));
        }
        CompletaFileInSospeso();
        for (const QString& f : quattro)
            QCOMPARE(Leggi(f), QByteArray("nuovo"));
        QCOMPARE(QDir(PercorsoFile()).entryList(QDir::Files | QDir::Hidden).size(), 5);
        // Killed while a failed set was being undone: the start undoes the rest.
        // The PNG's old version is back already; the PDF had none.
        QVERIFY(QFile::remove(quattro.at(1)));
        for (const QString& f : quattro)
            Scrivi(FileAParte(f), "nuovissimo");
        QVERIFY(QFile::rename(FileAParte(quattro.at(1)), quattro.at(1)));
        for (int k : {2, 3})
            QVERIFY(QFile::copy(quattro.at(k), quattro.at(k) + QStringLiteral(".vecchio")));
        Scrivi(NotaInsieme(quattro), "annulla\n+Prato.png\n-Prato.pdf\n+Prato.svg\n+Prato.zanto\n");
        QVERIFY(QFile::remove(quattro.at(2)));
        QVERIFY(QFile::rename(FileAParte(quattro.at(2)), quattro.at(2)));
        CompletaFileInSospeso();
        QCOMPARE(Leggi(quattro.at(0)), QByteArray("nuovo"));
        QVERIFY(!QFile::exists(quattro.at(1)));
        QCOMPARE(Leggi(quattro.at(2)), QByteArray("nuovo"));
        QCOMPARE(Leggi(quattro.at(3)), QByteArray("nuovo"));
        QCOMPARE(QDir(PercorsoFile()).entryList(QDir::Files | QDir::Hidden).size(), 4);
    }

    void un_import_su_un_disco_pieno_lo_dice_e_non_lascia_nulla() {
        ContenutoScambio c = ScambioDiProva(PercorsoFile() + QStringLiteral("/nuova.png"));
        const int prima = RigheDisegni();
        const QStringList filePrima = QDir(PercorsoFile()).entryList(QDir::Files);
        int32_t codice = -1;
        {
            // No file of this process may grow by a byte, as on a full disk.
            rlimit limite{};
            getrlimit(RLIMIT_FSIZE, &limite);
            const rlimit vecchio = limite;
            limite.rlim_cur = 0;
            struct sigaction ignora = {};
            struct sigaction segnale = {};
            ignora.sa_handler = SIG_IGN;
            sigemptyset(&ignora.sa_mask);
            sigaction(SIGXFSZ, &ignora, &segnale);
            QVERIFY(setrlimit(RLIMIT_FSIZE, &limite) == 0);
            codice = RegistraDisegnoImportato(c, QStringLiteral("Pieno"));
            setrlimit(RLIMIT_FSIZE, &vecchio);
            sigaction(SIGXFSZ, &segnale, nullptr);
        }
        QCOMPARE(codice, 0);
        QCOMPARE(amb->Scatole.size(), 1);
        QVERIFY2(amb->Scatole[0].Testo.contains(QStringLiteral("TROPPO PIENO")),
                 qPrintable(amb->Scatole[0].Testo));
        QCOMPARE(RigheDisegni(), prima);
        QCOMPARE(QDir(PercorsoFile()).entryList(QDir::Files), filePrima);
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
