// The start routine on a data folder made by the installer, and its failures.
#include "archive/Archivi.h"
#include "input/QuadroMessaggi.h"
#include "start/Avvio.h"
#include "start/BaseVuoto.h"
#include "start/Bip.h"
#include "start/Configurazione.h"
#include "start/MenuGenerale.h"
#include "support/AmbienteProva.h"
#include "support/OrologioVirtuale.h"
#include "support/Sonde.h"

#include <QDir>
#include <QFile>
#include <QLockFile>
#include <QSqlError>
#include <QSqlQuery>
#include <QtTest>

#include <memory>

namespace {

void EseguiSql(const QString& percorso, const QString& sql) {
    {
        QSqlDatabase db =
            QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("prep"));
        db.setDatabaseName(percorso);
        QVERIFY(db.open());
        QSqlQuery q(db);
        QVERIFY2(q.exec(sql), qPrintable(q.lastError().text()));
        db.close();
    }
    QSqlDatabase::removeDatabase(QStringLiteral("prep"));
}

bool CopertinaVisibile() {
    for (QWidget* w : QApplication::topLevelWidgets())
        if (dynamic_cast<BaseVuoto*>(w) != nullptr && w->isVisible()) return true;
    return false;
}

bool NessunArchivioAperto() {
    return !QSqlDatabase::contains(ArchivioConfigurazione) &&
           !QSqlDatabase::contains(ArchivioDisegni) && !QSqlDatabase::contains(ArchivioOggetti);
}

} // namespace

class ProvaAvvio : public QObject {
    Q_OBJECT

    std::unique_ptr<AmbienteProva> amb;
    std::unique_ptr<OrologioVirtuale> orologio;

private slots:
    void init() {
        amb = std::make_unique<AmbienteProva>();
        orologio = std::make_unique<OrologioVirtuale>();
    }
    void cleanup() {
        DistruggiMenùGenerale();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        orologio.reset();
        amb.reset();
    }

    void avvio_completo_legge_le_impostazioni_e_mostra_il_menu() {
        EseguiSql(PercorsoConfigurazione(),
                  QStringLiteral("UPDATE ConfigurazioniGenerali SET \"ModalitàFunzionamento\" = 3,"
                                 " TastoScelta = 2, TastoScansione = 1,"
                                 " TipoInversioneScansione = 2, TempoLatenzaScansione = 1500"));
        QCOMPARE(AvviaZanto(), -1);
        QCOMPARE(FaseAvvio, int16_t(0));
        QCOMPARE(ModalitàFunzionamento, int16_t(3));
        QCOMPARE(TastoScelta, int16_t(2));
        QCOMPARE(TastoScansione, int16_t(1));
        QCOMPARE(TipoInversioneScansione, int16_t(2));
        QCOMPARE(TempoLatenzaScansione, 1500);
        QVERIFY(MenùGeneraleAperto() != nullptr && MenùGeneraleAperto()->isVisible());
        QVERIFY(Archivio(ArchivioDisegni).isOpen());
        QVERIFY(Archivio(ArchivioOggetti).isOpen());
        QVERIFY(Archivio(ArchivioConfigurazione).isOpen());
        QVERIFY(!CopertinaVisibile());
        QVERIFY(amb->Scatole.isEmpty());
        QVERIFY(QApplication::overrideCursor() == nullptr);
        QCOMPARE(CartellaSistema, RadiceDati + '/');
    }

    void senza_archivio_di_configurazione_scatola_fatale_col_segno() {
        QVERIFY(QFile::remove(PercorsoConfigurazione()));
        QCOMPARE(AvviaZanto(), 1);
        QCOMPARE(amb->Scatole.size(), 1);
        QCOMPARE(amb->Scatole[0].Titolo, QStringLiteral("ZANTO"));
        QCOMPARE(amb->Scatole[0].Icona, IconaScatola::Critica);
        QVERIFY(amb->Scatole[0].Testo.contains(QStringLiteral("Sezione 130")));
        QVERIFY(NessunArchivioAperto());
        QVERIFY(MenùGeneraleAperto() == nullptr);
        QVERIFY(!CopertinaVisibile());
    }

    void tabella_delle_impostazioni_vuota_e_un_errore_che_termina() {
        EseguiSql(PercorsoConfigurazione(), QStringLiteral("DELETE FROM ConfigurazioniGenerali"));
        ModalitàFunzionamento = 4; // must not survive as a default
        QCOMPARE(AvviaZanto(), 1);
        QCOMPARE(amb->Scatole.size(), 1);
        QCOMPARE(amb->Scatole[0].Titolo, QStringLiteral("ZANTO"));
        QVERIFY2(amb->Scatole[0].Testo.startsWith(QStringLiteral("ERRORE 3021/150: \r")),
                 qPrintable(amb->Scatole[0].Testo));
        QVERIFY(amb->Scatole[0].Testo.endsWith(
            QStringLiteral("Registrare la situazione e CHIAMARE L'ASSISTENZA!")));
        QVERIFY(NessunArchivioAperto());
        QVERIFY(MenùGeneraleAperto() == nullptr);
    }

    void archivio_dei_disegni_guasto_termina_con_la_scatola() {
        QFile f(PercorsoArchivioDisegni());
        QVERIFY(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        f.write(QByteArray(4096, 'x'));
        f.close();
        QCOMPARE(AvviaZanto(), 1);
        QCOMPARE(amb->Scatole.size(), 1);
        QVERIFY2(amb->Scatole[0].Testo.contains(QStringLiteral("/160: ")),
                 qPrintable(amb->Scatole[0].Testo));
        QVERIFY(NessunArchivioAperto());
    }

    void cartella_dei_dati_non_scrivibile_scatola_perlux_e_fine() {
        // A file where the folder should be: no one, not even root, can write in it.
        const QString radice = RadiceDati;
        QVERIFY(QDir(radice).removeRecursively());
        QFile f(radice);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.close();
        QCOMPARE(AvviaZanto(), 1);
        QCOMPARE(ScritturaFallita, int16_t(1));
        QCOMPARE(amb->Scatole.size(), 1);
        QCOMPARE(amb->Scatole[0].Titolo, QStringLiteral("PERLUX"));
        QCOMPARE(amb->Scatole[0].Icona, IconaScatola::Esclamazione);
        QCOMPARE(amb->Scatole[0].Testo, MessaggiAvvio[1]);
        QVERIFY(amb->Scatole[0].Testo.startsWith(
            QStringLiteral("ATTENZIONE!\rPer eseguire il Programma «ZANTO» è necessario\r")));
        QCOMPARE(ContatoreBip, 1);
        QVERIFY(!CopertinaVisibile());
        QVERIFY(NessunArchivioAperto());
        QVERIFY(QFile::remove(radice));
    }

    void la_prova_di_scrittura_non_lascia_file() {
        const QStringList prima = QDir(RadiceDati).entryList(QDir::Files);
        QCOMPARE(AvviaZanto(), -1);
        QStringList dopo = QDir(RadiceDati).entryList(QDir::Files);
        dopo.removeAll(NomiArchivi::FileBlocco);
        QCOMPARE(dopo, prima);
    }

    void una_seconda_istanza_finisce_in_silenzio() {
        QLockFile altra(CartellaSistema + NomiArchivi::FileBlocco);
        QVERIFY(altra.tryLock(0));
        QCOMPARE(AvviaZanto(), 0);
        QVERIFY(amb->Scatole.isEmpty());
        QCOMPARE(ContatoreBip, 0);
        QVERIFY(MenùGeneraleAperto() == nullptr);
        QVERIFY(NessunArchivioAperto());
        QVERIFY(altra.isLocked());
    }

    void lo_schermo_idoneo_e_di_96_dpi_e_almeno_1024_per_768() {
        QVERIFY(SchermoIdoneo(1280, 1024, 96, 96));
        QVERIFY(SchermoIdoneo(1024, 768, 96, 96));
        QVERIFY(!SchermoIdoneo(1024, 768, 120, 120));
        QVERIFY(!SchermoIdoneo(1920, 1200, 120, 96));
        QVERIFY(!SchermoIdoneo(1023, 768, 96, 96));
        QVERIFY(!SchermoIdoneo(1024, 767, 96, 96));
    }

    void su_uno_schermo_idoneo_nessun_avviso() {
        QCOMPARE(AvviaZanto(), -1);
        QCOMPARE(EsitoQuadroMessaggi, int16_t(0));
        QCOMPARE(TestoQuadroMessaggi, QString());
    }
};

QTEST_MAIN(ProvaAvvio)
#include "test_avvio.moc"
