// Where the ring starts again after a choice, as a setting: its column brought
// into an archive of the earlier version, its range, and its two options on the
// page "Sensori e voce", stored by Registra with the other settings.
#include "app/ConfigurazioniGenerali.h"
#include "app/MenuGenerale.h"
#include "app/PaginaSensori.h"
#include "archive/Archivi.h"
#include "archive/RigaConfigurazione.h"
#include "archive/Schema.h"
#include "support/Copione.h"
#include "support/MondoMenu.h"
#include "support/Sonde.h"

#include <QPushButton>
#include <QRadioButton>
#include <QSqlQuery>
#include <QtTest>

namespace {

void Sql(const QString& sql) {
    QSqlQuery q(Archivio(ArchivioConfigurazione));
    QVERIFY2(q.exec(sql), qPrintable(sql));
}

QVariant Valore(const QString& sql) {
    QSqlQuery q(Archivio(ArchivioConfigurazione));
    if (!q.exec(sql) || !q.next()) return {};
    return q.value(0);
}

bool Rossa(const QRadioButton* o) {
    return o->palette().color(QPalette::WindowText) == QColor(Qt::red);
}

void Clicca(QRadioButton* opzione) {
    QTest::mouseClick(opzione, Qt::LeftButton, {}, QPoint(8, opzione->height() / 2));
}

} // namespace

class ProvaRipresaSuccessiva : public QObject, MondoMenu {
    Q_OBJECT

    // The table as the installer of the switch timings and the voice left it.
    void TabellaVersione3() {
        Sql(QStringLiteral("DROP TABLE ConfigurazioniGenerali"));
        Sql(QStringLiteral("CREATE TABLE ConfigurazioniGenerali ("
                           " \"ModalitàFunzionamento\" SMALLINT NOT NULL,"
                           " TastoScelta SMALLINT NOT NULL,"
                           " TastoScansione SMALLINT NOT NULL,"
                           " TipoInversioneScansione SMALLINT NOT NULL,"
                           " TempoLatenzaScansione INTEGER NOT NULL,"
                           " StampanteScelta TEXT NOT NULL DEFAULT '',"
                           " LarghezzaAnello SMALLINT NOT NULL DEFAULT 1,"
                           " AltoContrasto SMALLINT NOT NULL DEFAULT 0,"
                           " TempoAccettazione INTEGER NOT NULL DEFAULT 0,"
                           " TempoIgnoraDopoScelta INTEGER NOT NULL DEFAULT 0,"
                           " PrimaAttesa SMALLINT NOT NULL DEFAULT 1,"
                           " GiriPrimaDelRiposo SMALLINT NOT NULL DEFAULT 0,"
                           " ScansioneParlata SMALLINT NOT NULL DEFAULT 0,"
                           " AttendiVoce SMALLINT NOT NULL DEFAULT 0)"));
        Sql(QStringLiteral("INSERT INTO ConfigurazioniGenerali VALUES"
                           " (2, 1, 2, 2, 1500, 'Aula', 2, 1, 300, 200, 3, 5, 1, 1)"));
        Sql(QStringLiteral("PRAGMA user_version = 3"));
    }

private slots:
    void init() { Prepara(); }
    void cleanup() { Libera(); }

    void il_programma_nuovo_non_riparte() {
        LeggiConfigurazione();
        QCOMPARE(RipresaSuccessiva, int16_t(0));
        QCOMPARE(
            Valore(QStringLiteral("SELECT RipresaSuccessiva FROM ConfigurazioniGenerali")).toInt(),
            0);
    }

    void un_archivio_della_versione_3_prende_la_ripresa_spenta() {
        TabellaVersione3();
        RipresaSuccessiva = 1; // whatever a previous run left, the archive decides
        QSqlDatabase db = Archivio(ArchivioConfigurazione);
        AggiornaSchemaConfigurazione(db);
        QCOMPARE(Valore(QStringLiteral("PRAGMA user_version")).toInt(), 4);
        QCOMPARE(VersioneConfigurazione, 4);
        LeggiConfigurazione();
        QCOMPARE(RipresaSuccessiva, int16_t(0));
        // The rest of the row stands as it was.
        QCOMPARE(ModalitàFunzionamento, int16_t(2));
        QCOMPARE(TempoLatenzaScansione, 1500);
        QCOMPARE(StampanteScelta, QStringLiteral("Aula"));
        QCOMPARE(LarghezzaAnello, int16_t(2));
        QCOMPARE(TempoAccettazione, 300);
        QCOMPARE(TempoIgnoraDopoScelta, 200);
        QCOMPARE(PrimaAttesa, int16_t(3));
        QCOMPARE(GiriPrimaDelRiposo, int16_t(5));
        QCOMPARE(AttendiVoce, int16_t(1));
        QCOMPARE(Valore(QStringLiteral("SELECT count(*) FROM ConfigurazioniGenerali")).toInt(), 1);
        // Written with the others, and read back.
        RipresaSuccessiva = 1;
        RegistraConfigurazione();
        RipresaSuccessiva = 0;
        LeggiConfigurazione();
        QCOMPARE(RipresaSuccessiva, int16_t(1));
        QCOMPARE(Valore(QStringLiteral("SELECT RipresaSuccessiva || ' ' || TempoLatenzaScansione"
                                       " FROM ConfigurazioniGenerali"))
                     .toString(),
                 QStringLiteral("1 1500"));
    }

    void fuori_dai_limiti_vale_quella_dell_installatore_data() {
        QTest::addColumn<QString>("valore");
        QTest::addColumn<int>("atteso");
        QTest::newRow("0") << "0" << 0;
        QTest::newRow("1") << "1" << 1;
        QTest::newRow("2") << "2" << 0;
        QTest::newRow("-1") << "-1" << 0;
        QTest::newRow("0.5") << "0.5" << 0;
        QTest::newRow("testo") << "'sì'" << 0;
        QTest::newRow("NULL") << "NULL" << 0;
    }

    void fuori_dai_limiti_vale_quella_dell_installatore() {
        QFETCH(QString, valore);
        QFETCH(int, atteso);
        // A row from outside the program: no constraint stops a NULL.
        Sql(QStringLiteral("CREATE TABLE copia AS SELECT * FROM ConfigurazioniGenerali"));
        Sql(QStringLiteral("DROP TABLE ConfigurazioniGenerali"));
        Sql(QStringLiteral("CREATE TABLE ConfigurazioniGenerali AS SELECT * FROM copia"));
        Sql(QStringLiteral("UPDATE ConfigurazioniGenerali SET RipresaSuccessiva = ") + valore);
        RipresaSuccessiva = 1 - int16_t(atteso);
        LeggiConfigurazione();
        QCOMPARE(RipresaSuccessiva, int16_t(atteso));
    }

    void la_pagina_dei_sensori_cambia_e_registra_la_ripresa() {
        MenuGenerale* m = Menu(4);
        QTest::mouseClick(m->Tasti.value(104), Qt::LeftButton);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        ConfigurazioniGenerali* c = ConfigurazioniAperte();
        QVERIFY(c != nullptr);
        QTest::mouseClick(c->TastoSensori, Qt::LeftButton);
        QVERIFY(c->Sensori->isVisible());
        PaginaSensori* p = c->Sensori;
        QVERIFY(p->OpzioneRipresa[0]->isVisible());
        QVERIFY(p->OpzioneRipresa[1]->isVisible());
        // As stored: off.
        QVERIFY(p->OpzioneRipresa[0]->isChecked());
        QVERIFY(Rossa(p->OpzioneRipresa[0]));
        QVERIFY(!Rossa(p->OpzioneRipresa[1]));
        QCOMPARE(c->ModificheEffettuate, int16_t(0));
        Clicca(p->OpzioneRipresa[1]);
        QVERIFY(p->OpzioneRipresa[1]->isChecked());
        QVERIFY(Rossa(p->OpzioneRipresa[1]));
        QVERIFY(!Rossa(p->OpzioneRipresa[0]));
        QCOMPARE(p->Ripresa, int16_t(1));
        QCOMPARE(c->ModificheEffettuate, int16_t(1));
        QCOMPARE(RipresaSuccessiva, int16_t(0)); // nothing stored before Registra
        Copione s(*orologio);
        s.Tasto(Qt::Key_Return);
        s.Avvia();
        QTest::mouseClick(c->TastoRegistraConfigurazioniGenerali, Qt::LeftButton);
        QVERIFY(s.Finito());
        QCOMPARE(RipresaSuccessiva, int16_t(1));
        RipresaSuccessiva = 0;
        LeggiConfigurazione();
        QCOMPARE(RipresaSuccessiva, int16_t(1));
        // The page shows what is stored when it loads again.
        p->Carica();
        QVERIFY(p->OpzioneRipresa[1]->isChecked());
        QVERIFY(Rossa(p->OpzioneRipresa[1]));
    }
};

QTEST_MAIN(ProvaRipresaSuccessiva)
#include "test_ripresa_successiva.moc"
