// The installer: a complete fresh data folder, and no change to an existing one.
#include "app/Avvio.h"
#include "archive/Archivi.h"
#include "archive/Installatore.h"
#include "support/AmbienteProva.h"

#include <QDir>
#include <QFile>
#include <QSqlError>
#include <QSqlQuery>
#include <QSqlRecord>
#include <QtTest>

namespace {

// Opens an archive file by itself for the duration of one check.
class Lettore {
public:
    explicit Lettore(const QString& percorso) {
        db_ = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("lettore"));
        db_.setDatabaseName(percorso);
        db_.open();
        QSqlQuery(db_).exec(QStringLiteral("PRAGMA foreign_keys = ON"));
    }
    ~Lettore() {
        db_.close();
        db_ = QSqlDatabase();
        QSqlDatabase::removeDatabase(QStringLiteral("lettore"));
    }
    QSqlQuery Esegui(const QString& sql) {
        QSqlQuery q(db_);
        if (!q.exec(sql)) qWarning("%s: %s", qPrintable(sql), qPrintable(q.lastError().text()));
        return q;
    }
    QVariant Valore(const QString& sql) {
        QSqlQuery q = Esegui(sql);
        return q.next() ? q.value(0) : QVariant();
    }
    // Column name -> declared type, in order.
    QList<QPair<QString, QString>> Colonne(const QString& tabella) {
        QList<QPair<QString, QString>> colonne;
        QSqlQuery q = Esegui(QStringLiteral("PRAGMA table_info(%1)").arg(tabella));
        while (q.next())
            colonne.append({q.value(1).toString(), q.value(2).toString()});
        return colonne;
    }
    QStringList Tabelle() {
        QStringList t;
        QSqlQuery q = Esegui(
            QStringLiteral("SELECT name FROM sqlite_master WHERE type = 'table' ORDER BY name"));
        while (q.next())
            t.append(q.value(0).toString());
        return t;
    }

private:
    QSqlDatabase db_;
};

QList<QPair<QString, QString>> ColonneAzione(const QString& proprietario) {
    return {{proprietario, "INTEGER"}, {"NumAzione", "SMALLINT"},
            {"TipoAzione", "INTEGER"}, {"XInizio", "INTEGER"},
            {"YInizio", "INTEGER"},    {"XFine", "INTEGER"},
            {"YFine", "INTEGER"},      {"ColLinea", "INTEGER"},
            {"ColZona", "INTEGER"},    {"FlagPienoVuoto", "INTEGER"},
            {"SpessLinea", "INTEGER"}, {"XCentro", "REAL"},
            {"YCentro", "REAL"},       {"RadIniz", "REAL"},
            {"RadFine", "REAL"},       {"RaggioVert", "REAL"},
            {"RaggioOriz", "REAL"},    {"InterlineaTesto", "SMALLINT"},
            {"Testo", "TEXT"},         {"NomeFont", "TEXT"},
            {"SizeFont", "INTEGER"},   {"Corsivo", "INTEGER"},
            {"Grassetto", "INTEGER"},  {"NomeFileImmagine", "TEXT"}};
}

} // namespace

class ProvaInstallatore : public QObject {
    Q_OBJECT

private slots:
    void crea_le_cartelle_del_disco() {
        AmbienteProva amb;
        for (const QString& c :
             {QStringLiteral("Programma"), QStringLiteral("Archivi"),
              QStringLiteral("Disegni/·Disegni Generale"), QStringLiteral("File")})
            QVERIFY2(QDir(RadiceDati + '/' + c).exists(), qPrintable(c));
        QVERIFY(QFile::exists(PercorsoConfigurazione()));
        QVERIFY(QFile::exists(PercorsoArchivioDisegni()));
        QVERIFY(QFile::exists(PercorsoArchivioOggetti()));
    }

    void il_sistema_dei_disegni_e_la_cartella_attiva_di_un_nuovo_utente() {
        AmbienteProva amb;
        QFile file(PercorsoCartellaAttiva());
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), QByteArray(" 1 \r\n"));
    }

    void la_configurazione_ha_una_riga_con_i_valori_iniziali() {
        AmbienteProva amb;
        Lettore l(PercorsoConfigurazione());
        QCOMPARE(l.Valore("SELECT count(*) FROM ConfigurazioniGenerali").toInt(), 1);
        QSqlQuery q = l.Esegui("SELECT \"ModalitàFunzionamento\", TastoScelta, TastoScansione,"
                               " TipoInversioneScansione, TempoLatenzaScansione"
                               " FROM ConfigurazioniGenerali");
        QVERIFY(q.next());
        QCOMPARE(q.value(0).toInt(), 1);
        QCOMPARE(q.value(1).toInt(), 1);
        QCOMPARE(q.value(2).toInt(), 2);
        QCOMPARE(q.value(3).toInt(), 1);
        QCOMPARE(q.value(4).toInt(), 1000);
    }

    void l_archivio_dei_disegni_ha_le_sue_tre_tabelle_e_i_campi() {
        AmbienteProva amb;
        Lettore l(PercorsoArchivioDisegni());
        QCOMPARE(l.Tabelle(), (QStringList{"TabAzioniDisegno", "TabCartelle", "TabDisegni"}));
        QCOMPARE(l.Colonne("TabCartelle"),
                 (QList<QPair<QString, QString>>{{"CodiceCartella", "INTEGER"},
                                                 {"NomeCartella", "TEXT"}}));
        QCOMPARE(l.Colonne("TabDisegni"),
                 (QList<QPair<QString, QString>>{{"CodiceDisegno", "INTEGER"},
                                                 {"NomeDisegno", "TEXT"},
                                                 {"CodiceCartella", "INTEGER"}}));
        QCOMPARE(l.Colonne("TabAzioniDisegno"), ColonneAzione("CodiceDisegno"));
        QCOMPARE(
            l.Valore("SELECT NomeCartella FROM TabCartelle WHERE CodiceCartella = 1").toString(),
            QStringLiteral("·Disegni Generale"));
        QCOMPARE(l.Valore("SELECT count(*) FROM TabCartelle").toInt(), 1);
        QCOMPARE(l.Valore("SELECT count(*) FROM TabDisegni").toInt(), 0);
    }

    void l_archivio_degli_oggetti_ha_le_sue_tre_tabelle_e_i_campi() {
        AmbienteProva amb;
        Lettore l(PercorsoArchivioOggetti());
        QCOMPARE(l.Tabelle(), (QStringList{"TabAzioniOggetto", "TabCartelleObj", "TabOggetti"}));
        QCOMPARE(l.Colonne("TabCartelleObj"),
                 (QList<QPair<QString, QString>>{{"CodiceCartellaObj", "INTEGER"},
                                                 {"NomeCartellaObj", "TEXT"}}));
        QCOMPARE(l.Colonne("TabOggetti"),
                 (QList<QPair<QString, QString>>{{"CodiceOggetto", "SMALLINT"},
                                                 {"NomeOggetto", "TEXT"},
                                                 {"CodiceCartellaObj", "INTEGER"}}));
        QCOMPARE(l.Colonne("TabAzioniOggetto"), ColonneAzione("CodiceOggetto"));
        QCOMPARE(l.Valore("SELECT NomeCartellaObj FROM TabCartelleObj WHERE CodiceCartellaObj = 1")
                     .toString(),
                 QStringLiteral("·Oggetti Generale"));
    }

    void eliminare_una_cartella_porta_via_disegni_e_azioni() {
        AmbienteProva amb;
        Lettore l(PercorsoArchivioDisegni());
        l.Esegui("INSERT INTO TabCartelle VALUES (2, 'Mare')");
        l.Esegui("INSERT INTO TabDisegni VALUES (5, 'Barca', 2)");
        l.Esegui("INSERT INTO TabDisegni VALUES (6, 'Sole', 1)");
        l.Esegui("INSERT INTO TabAzioniDisegno (CodiceDisegno, NumAzione) VALUES (5, 1)");
        l.Esegui("INSERT INTO TabAzioniDisegno (CodiceDisegno, NumAzione) VALUES (6, 1)");
        l.Esegui("DELETE FROM TabCartelle WHERE CodiceCartella = 2");
        QCOMPARE(l.Valore("SELECT count(*) FROM TabDisegni").toInt(), 1);
        QCOMPARE(l.Valore("SELECT count(*) FROM TabAzioniDisegno").toInt(), 1);
        l.Esegui("DELETE FROM TabDisegni WHERE CodiceDisegno = 6");
        QCOMPARE(l.Valore("SELECT count(*) FROM TabAzioniDisegno").toInt(), 0);
    }

    void eliminare_una_cartella_di_oggetti_porta_via_oggetti_e_azioni() {
        AmbienteProva amb;
        Lettore l(PercorsoArchivioOggetti());
        l.Esegui("INSERT INTO TabCartelleObj VALUES (2, 'Animali')");
        l.Esegui("INSERT INTO TabOggetti VALUES (3, 'Gatto', 2)");
        l.Esegui("INSERT INTO TabAzioniOggetto (CodiceOggetto, NumAzione) VALUES (3, 1)");
        l.Esegui("DELETE FROM TabCartelleObj WHERE CodiceCartellaObj = 2");
        QCOMPARE(l.Valore("SELECT count(*) FROM TabOggetti").toInt(), 0);
        QCOMPARE(l.Valore("SELECT count(*) FROM TabAzioniOggetto").toInt(), 0);
    }

    void rifiuta_una_cartella_dei_dati_esistente_senza_cambiare_nulla() {
        AmbienteProva amb;
        {
            Lettore l(PercorsoConfigurazione());
            l.Esegui("UPDATE ConfigurazioniGenerali SET TempoLatenzaScansione = 2500");
        }
        const QString esito = InstallaDatiZanto(RadiceDati);
        QVERIFY(esito.contains(QStringLiteral("esiste già")));
        Lettore l(PercorsoConfigurazione());
        QCOMPARE(l.Valore("SELECT TempoLatenzaScansione FROM ConfigurazioniGenerali").toInt(),
                 2500);
    }

    void rifiuta_un_file_al_posto_della_cartella() {
        AmbienteProva amb(false);
        QFile f(RadiceDati);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write("x");
        f.close();
        QVERIFY(!InstallaDatiZanto(RadiceDati).isEmpty());
        QVERIFY(QFileInfo(RadiceDati).isFile());
        QFile::remove(RadiceDati);
    }

    void una_cartella_vuota_viene_riempita() {
        AmbienteProva amb(false);
        QVERIFY(QDir().mkpath(RadiceDati));
        QCOMPARE(InstallaDatiZanto(RadiceDati), QString());
        QVERIFY(QFile::exists(PercorsoConfigurazione()));
        const QStringList resti =
            QDir(RadiceDati + QStringLiteral("/.."))
                .entryList({QStringLiteral("zanto.installazione-*")}, QDir::Dirs);
        QVERIFY(resti.isEmpty());
    }
};

QTEST_MAIN(ProvaInstallatore)
#include "test_installatore.moc"
