// The start routine on a data folder made by the installer, and its failures.
#include "app/Avvio.h"
#include "app/MenuGenerale.h"
#include "archive/Archivi.h"
#include "archive/RigaConfigurazione.h"
#include "archive/Schema.h"
#include "base/BaseVuoto.h"
#include "base/Bip.h"
#include "base/Misure.h"
#include "base/ScalaSchermo.h"
#include "input/QuadroMessaggi.h"
#include "printing/Stampe.h"
#include "support/AmbienteProva.h"
#include "support/Copione.h"
#include "support/MondoProva.h"
#include "support/OrologioVirtuale.h"
#include "support/Sonde.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QScreen>
#include <QSqlError>
#include <QSqlQuery>
#include <QtTest>

#include <cerrno>
#include <csignal>
#include <fcntl.h>
#include <memory>
#include <sys/file.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

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

// The configuration table as an older installer made it: the five settings,
// then `altre` (", name TYPE, ...") of the versions it knew.
void TabellaConfigurazione(const QString& percorso, const QString& altre) {
    EseguiSql(percorso, QStringLiteral("DROP TABLE ConfigurazioniGenerali"));
    EseguiSql(percorso, QStringLiteral("CREATE TABLE ConfigurazioniGenerali ("
                                       " \"ModalitàFunzionamento\" SMALLINT NOT NULL,"
                                       " TastoScelta SMALLINT NOT NULL,"
                                       " TastoScansione SMALLINT NOT NULL,"
                                       " TipoInversioneScansione SMALLINT NOT NULL,"
                                       " TempoLatenzaScansione INTEGER NOT NULL") +
                            altre + u')');
}

// The settings row as an outside tool could leave it: same table, no NOT NULL.
void ScriviImpostazioniSenzaVincoli(int modo, int scelta, int scansione, int inversione,
                                    int latenza) {
    const QString percorso = PercorsoConfigurazione();
    EseguiSql(percorso, QStringLiteral("DROP TABLE ConfigurazioniGenerali"));
    EseguiSql(percorso, QStringLiteral("CREATE TABLE ConfigurazioniGenerali ("
                                       " \"ModalitàFunzionamento\" SMALLINT, TastoScelta SMALLINT,"
                                       " TastoScansione SMALLINT, TipoInversioneScansione SMALLINT,"
                                       " TempoLatenzaScansione INTEGER)"));
    EseguiSql(percorso,
              QStringLiteral("INSERT INTO ConfigurazioniGenerali VALUES (%1, %2, %3, %4, %5)")
                  .arg(modo)
                  .arg(scelta)
                  .arg(scansione)
                  .arg(inversione)
                  .arg(latenza));
}

bool CopertinaVisibile() {
    for (QWidget* w : QApplication::topLevelWidgets())
        if (dynamic_cast<BaseVuoto*>(w) != nullptr && w->isVisible()) return true;
    return false;
}

QString FileBlocco() {
    return CartellaSistema + NomiArchivi::FileBlocco;
}

// A hold of the lock through a description of the test's own: flock locks
// belong to the open file description, so it conflicts even in this process.
class Presa {
public:
    Presa() {
        fd_ =
            ::open(QFile::encodeName(FileBlocco()).constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
        if (fd_ >= 0 && ::flock(fd_, LOCK_EX | LOCK_NB) != 0) {
            errore_ = errno;
            ::close(fd_);
            fd_ = -1;
        }
    }
    ~Presa() {
        if (fd_ >= 0) ::close(fd_);
    }
    Presa(const Presa&) = delete;
    Presa& operator=(const Presa&) = delete;
    bool Tenuta() const { return fd_ >= 0; }
    int Errore() const { return errore_; }

private:
    int fd_ = -1;
    int errore_ = 0;
};

// While it lives, no file of this process may grow by a byte, as on a full
// disk; SIGXFSZ is ignored so that the write itself reports the failure.
class DiscoPieno {
public:
    DiscoPieno() {
        getrlimit(RLIMIT_FSIZE, &prima_);
        rlimit zero = prima_;
        zero.rlim_cur = 0;
        struct sigaction ignora = {};
        ignora.sa_handler = SIG_IGN;
        sigemptyset(&ignora.sa_mask);
        sigaction(SIGXFSZ, &ignora, &segnalePrima_);
        attivo_ = setrlimit(RLIMIT_FSIZE, &zero) == 0;
    }
    ~DiscoPieno() {
        setrlimit(RLIMIT_FSIZE, &prima_);
        sigaction(SIGXFSZ, &segnalePrima_, nullptr);
    }
    DiscoPieno(const DiscoPieno&) = delete;
    DiscoPieno& operator=(const DiscoPieno&) = delete;
    bool Attivo() const { return attivo_; }

private:
    rlimit prima_{};
    struct sigaction segnalePrima_ {};
    bool attivo_ = false;
};

QStringList FileProvvisori() {
    return QDir(RadiceDati).entryList({QStringLiteral("zanto*.tmp")}, QDir::Files | QDir::Hidden);
}

void ScriviFile(const QString& percorso, const QByteArray& contenuto) {
    QFile f(percorso);
    QVERIFY(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
    QCOMPARE(f.write(contenuto), contenuto.size());
}

bool NessunArchivioAperto() {
    return !QSqlDatabase::contains(ArchivioConfigurazione) &&
           !QSqlDatabase::contains(ArchivioDisegni) && !QSqlDatabase::contains(ArchivioOggetti);
}

} // namespace

class ProvaAvvio : public QObject, MondoProva {
    Q_OBJECT

private slots:
    void init() { PreparaPerLAvvio(); }
    void cleanup() {
        GuastoProvaScrittura = 0;
        DistruggiMenùGenerale();
        Libera();
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

    void una_seconda_istanza_dice_che_zanto_e_aperto_e_finisce() {
        Presa altra;
        QVERIFY(altra.Tenuta());
        {
            Presa seconda; // a second description in the same process conflicts
            QVERIFY(!seconda.Tenuta());
            QCOMPARE(seconda.Errore(), EWOULDBLOCK);
        }
        QCOMPARE(AvviaZanto(), 0);
        QCOMPARE(amb->Scatole.size(), 1);
        QCOMPARE(amb->Scatole[0].Testo, MessaggiAvvio[11]);
        QCOMPARE(ContatoreBip, 0);
        QVERIFY(MenùGeneraleAperto() == nullptr);
        QVERIFY(NessunArchivioAperto());
        QVERIFY(!CopertinaVisibile());
        QVERIFY(FileProvvisori().isEmpty());
    }

    void un_file_di_blocco_vuoto_non_ferma_l_avvio() {
        ScriviFile(FileBlocco(), QByteArray());
        QCOMPARE(AvviaZanto(), -1);
        QVERIFY(MenùGeneraleAperto() != nullptr);
        QVERIFY(amb->Scatole.isEmpty());
    }

    void un_file_di_blocco_con_dati_qualsiasi_non_ferma_l_avvio() {
        QByteArray dati = QByteArray::number(::getpid()) + "\nzanto\nmacchina\n";
        for (int i = 0; i < 300; ++i)
            dati.append(static_cast<char>((i * 37) & 0xFF));
        ScriviFile(FileBlocco(), dati);
        QCOMPARE(AvviaZanto(), -1);
        QVERIFY(MenùGeneraleAperto() != nullptr);
    }

    void il_blocco_di_un_processo_ucciso_non_ferma_l_avvio() {
        const QByteArray nome = QFile::encodeName(FileBlocco());
        int canale[2];
        QCOMPARE(::pipe(canale), 0);
        const pid_t figlio = ::fork();
        QVERIFY(figlio >= 0);
        if (figlio == 0) {
            // Only async-signal-safe calls here: take the lock, say so, die unannounced.
            const int fd = ::open(nome.constData(), O_RDWR | O_CREAT | O_CLOEXEC, 0644);
            const char esito = fd >= 0 && ::flock(fd, LOCK_EX | LOCK_NB) == 0 ? 'S' : 'N';
            if (fd >= 0) (void)!::write(fd, "morto\n", 6);
            (void)!::write(canale[1], &esito, 1);
            ::kill(::getpid(), SIGKILL);
            ::_exit(3);
        }
        ::close(canale[1]);
        char esito = 0;
        QCOMPARE(::read(canale[0], &esito, 1), ssize_t(1));
        ::close(canale[0]);
        int stato = 0;
        QCOMPARE(::waitpid(figlio, &stato, 0), figlio);
        QCOMPARE(esito, 'S');
        QVERIFY(WIFSIGNALED(stato) && WTERMSIG(stato) == SIGKILL);
        QVERIFY(QFileInfo(FileBlocco()).size() > 0);
        QCOMPARE(AvviaZanto(), -1);
        QVERIFY(MenùGeneraleAperto() != nullptr);
    }

    void il_blocco_e_tenuto_per_tutta_la_vita_e_lasciato_a_esci() {
        QCOMPARE(AvviaZanto(), -1);
        {
            Presa altra;
            QVERIFY(!altra.Tenuta());
            QCOMPARE(altra.Errore(), EWOULDBLOCK);
        }
        ChiudiZanto();
        Presa dopo;
        QVERIFY(dopo.Tenuta());
    }

    // A lock that cannot be taken lets a second instance in beside this one:
    // a folder under its name, a link that leads nowhere, a link to a file.
    void un_blocco_che_non_si_puo_aprire_ferma_l_avvio_con_un_messaggio_data() {
        QTest::addColumn<int>("caso");
        QTest::newRow("cartella") << 0;
        QTest::newRow("collegamento interrotto") << 1;
        QTest::newRow("collegamento a un file") << 2;
    }
    void un_blocco_che_non_si_puo_aprire_ferma_l_avvio_con_un_messaggio() {
        QFETCH(int, caso);
        const QString altrove = RadiceDati + QStringLiteral("/altrove.lck");
        if (caso == 0) QVERIFY(QDir().mkdir(FileBlocco()));
        if (caso == 2) ScriviFile(altrove, QByteArray());
        if (caso != 0)
            QVERIFY(QFile::link(caso == 1 ? RadiceDati + QStringLiteral("/manca/x.lck") : altrove,
                                FileBlocco()));
        QCOMPARE(AvviaZanto(), 1);
        QCOMPARE(amb->Scatole.size(), 1);
        QVERIFY(amb->Scatole[0].Testo.startsWith(
            QStringLiteral("ERRORE FATALE!\rIl file di blocco dei dati non si può aprire:")));
        QVERIFY(amb->Scatole[0].Testo.contains(FileBlocco()));
        QVERIFY(MenùGeneraleAperto() == nullptr);
        QVERIFY(NessunArchivioAperto());
        QVERIFY(!CopertinaVisibile());
    }

    void disco_pieno_all_avvio_lo_dice_e_fine() {
        int esito = 0;
        {
            DiscoPieno pieno;
            QVERIFY(pieno.Attivo());
            esito = AvviaZanto();
        }
        QCOMPARE(esito, 1);
        QCOMPARE(ScritturaFallita, int16_t(1));
        QCOMPARE(amb->Scatole.size(), 1);
        // A full disk, not a question of rights.
        QCOMPARE(amb->Scatole[0].Titolo, QStringLiteral("ZANTO"));
        QCOMPARE(amb->Scatole[0].Icona, IconaScatola::Critica);
        QCOMPARE(amb->Scatole[0].Testo, TestoErrore(61, 105, QString()));
        QCOMPARE(ContatoreBip, 1);
        QVERIFY(NessunArchivioAperto());
        QVERIFY(MenùGeneraleAperto() == nullptr);
        QVERIFY(!CopertinaVisibile());
        QVERIFY(FileProvvisori().isEmpty());
    }

    // A folder the user may not write: the write test is refused access. The
    // seam says it even to root, as CI runs, which writes through any mode.
    void cartella_dei_dati_senza_diritto_di_scrittura_scatola_perlux_e_fine() {
        QVERIFY(QFile::remove(PercorsoCartellaAttiva()) ||
                !QFile::exists(PercorsoCartellaAttiva()));
        GuastoProvaScrittura = EACCES;
        const int esito = AvviaZanto();
        GuastoProvaScrittura = 0;
        QCOMPARE(esito, 1);
        QCOMPARE(amb->Scatole.size(), 1);
        QCOMPARE(amb->Scatole[0].Titolo, QStringLiteral("PERLUX"));
        QCOMPARE(amb->Scatole[0].Testo, MessaggiAvvio[1]);
        QVERIFY(NessunArchivioAperto());
        QVERIFY(FileProvvisori().isEmpty());
        QVERIFY(!QFile::exists(PercorsoCartellaAttiva()));
        Presa dopo; // the lock went with the start
        QVERIFY(dopo.Tenuta());
    }

    void senza_cartella_dei_dati_scatola_fatale_dell_archivio_di_configurazione() {
        const QString radice = RadiceDati;
        QVERIFY(QDir(radice).removeRecursively());
        QCOMPARE(AvviaZanto(), 1);
        QCOMPARE(amb->Scatole.size(), 1);
        QCOMPARE(amb->Scatole[0].Titolo, QStringLiteral("ZANTO"));
        QCOMPARE(amb->Scatole[0].Icona, IconaScatola::Critica);
        QVERIFY(amb->Scatole[0].Testo.startsWith(MessaggiAvvio[3]));
        QVERIFY(amb->Scatole[0].Testo.contains(QStringLiteral("Sezione 130")));
        QVERIFY(amb->Scatole[0].Testo.contains(QDir::toNativeSeparators(PercorsoConfigurazione())));
        QCOMPARE(ScritturaFallita, int16_t(0));
        QVERIFY(NessunArchivioAperto());
        QVERIFY(!CopertinaVisibile());
        QVERIFY(!QFileInfo::exists(radice)); // nothing made in its place
    }

    void un_archivio_del_primo_installatore_si_aggiorna_una_volta() {
        // The configuration archive as the first installer made it.
        const QString percorso = PercorsoConfigurazione();
        TabellaConfigurazione(percorso, QString());
        EseguiSql(percorso,
                  QStringLiteral("INSERT INTO ConfigurazioniGenerali VALUES (2, 2, 1, 2, 2500)"));
        EseguiSql(percorso, QStringLiteral("PRAGMA user_version = 0"));
        StampanteScelta = QStringLiteral("resto di una prova precedente");
        QCOMPARE(AvviaZanto(), -1);
        QVERIFY(amb->Scatole.isEmpty());
        QCOMPARE(ModalitàFunzionamento, int16_t(2));
        QCOMPARE(TastoScelta, int16_t(2));
        QCOMPARE(TastoScansione, int16_t(1));
        QCOMPARE(TipoInversioneScansione, int16_t(2));
        QCOMPARE(TempoLatenzaScansione, 2500);
        QCOMPARE(StampanteScelta, QString());
        QCOMPARE(LarghezzaAnello, int16_t(1));
        QCOMPARE(AltoContrasto, int16_t(0));
        QSqlDatabase db = Archivio(ArchivioConfigurazione);
        QSqlQuery q(db);
        QVERIFY(q.exec(QStringLiteral("PRAGMA user_version")) && q.next());
        QCOMPARE(q.value(0).toInt(), VersioneConfigurazione);
        QVERIFY(q.exec(QStringLiteral("SELECT StampanteScelta, count(*) FROM"
                                      " ConfigurazioniGenerali")) &&
                q.next());
        QCOMPARE(q.value(0).toString(), QString());
        QCOMPARE(q.value(1).toInt(), 1);
        q.finish();
        // Once brought up, the archive is not written again.
        QFile file(percorso);
        QVERIFY(file.open(QIODevice::ReadOnly));
        const QByteArray prima = file.readAll();
        file.close();
        AggiornaSchemaConfigurazione(db);
        QVERIFY(file.open(QIODevice::ReadOnly));
        QCOMPARE(file.readAll(), prima);
    }

    void un_archivio_della_versione_2_prende_i_tempi_e_la_voce_spenti() {
        // The archive as the installer of the ring's options made it.
        const QString percorso = PercorsoConfigurazione();
        TabellaConfigurazione(percorso,
                              QStringLiteral(", StampanteScelta TEXT NOT NULL DEFAULT '',"
                                             " LarghezzaAnello SMALLINT NOT NULL DEFAULT 1,"
                                             " AltoContrasto SMALLINT NOT NULL DEFAULT 0"));
        EseguiSql(percorso, QStringLiteral("INSERT INTO ConfigurazioniGenerali VALUES"
                                           " (3, 2, 1, 1, 1800, 'Aula', 3, 1)"));
        EseguiSql(percorso, QStringLiteral("PRAGMA user_version = 2"));
        // Whatever a previous run left in the globals, the archive decides.
        TempoAccettazione = 700;
        GiriPrimaDelRiposo = 4;
        ScansioneParlata = 1;
        QCOMPARE(AvviaZanto(), -1);
        QVERIFY(amb->Scatole.isEmpty());
        QCOMPARE(ModalitàFunzionamento, int16_t(3));
        QCOMPARE(TastoScelta, int16_t(2));
        QCOMPARE(TastoScansione, int16_t(1));
        QCOMPARE(TipoInversioneScansione, int16_t(1));
        QCOMPARE(TempoLatenzaScansione, 1800);
        QCOMPARE(StampanteScelta, QStringLiteral("Aula"));
        QCOMPARE(LarghezzaAnello, int16_t(3));
        QCOMPARE(AltoContrasto, int16_t(1));
        QCOMPARE(TempoAccettazione, 0);
        QCOMPARE(TempoIgnoraDopoScelta, 0);
        QCOMPARE(PrimaAttesa, int16_t(1));
        QCOMPARE(GiriPrimaDelRiposo, int16_t(0));
        QCOMPARE(ScansioneParlata, int16_t(0));
        QCOMPARE(AttendiVoce, int16_t(0));
        QCOMPARE(LeggiValore(percorso, QStringLiteral("PRAGMA user_version")).toInt(),
                 VersioneConfigurazione);
        QCOMPARE(
            LeggiValore(percorso, QStringLiteral("SELECT count(*) FROM ConfigurazioniGenerali"))
                .toInt(),
            1);
        // The new settings are written with the five in one row.
        TempoAccettazione = 250;
        AttendiVoce = 1;
        RegistraConfigurazione();
        QCOMPARE(LeggiValore(percorso, QStringLiteral("SELECT TempoAccettazione || ' ' ||"
                                                      " AttendiVoce || ' ' || TempoLatenzaScansione"
                                                      " FROM ConfigurazioniGenerali"))
                     .toString(),
                 QStringLiteral("250 1 1800"));
    }

    void la_stampante_scelta_torna_all_avvio() {
        ElencoStampanti = [] {
            return QStringList{QStringLiteral("Aula"), QStringLiteral("Casa")};
        };
        EseguiSql(PercorsoConfigurazione(),
                  QStringLiteral("UPDATE ConfigurazioniGenerali SET StampanteScelta = 'Casa'"));
        StampanteProgramma.clear();
        QCOMPARE(AvviaZanto(), -1);
        QCOMPARE(StampanteScelta, QStringLiteral("Casa"));
        QCOMPARE(StampanteProgramma, QStringLiteral("Casa"));
        ElencoStampanti = nullptr;
    }

    void impostazioni_fuori_dai_limiti_valgono_quelle_dell_installatore_data() {
        QTest::addColumn<QString>("campo");
        QTest::addColumn<QString>("valore");
        QTest::addColumn<int>("atteso");
        const QString modo = QStringLiteral("\"ModalitàFunzionamento\"");
        QTest::newRow("modo 0") << modo << "0" << 1;
        QTest::newRow("modo 99") << modo << "99" << 1;
        QTest::newRow("modo 4") << modo << "4" << 4;
        QTest::newRow("modo NULL") << modo << "NULL" << 1;
        QTest::newRow("modo testo") << modo << "'tre'" << 1;
        QTest::newRow("modo 2.5") << modo << "2.5" << 1;
        QTest::newRow("scelta 0") << "TastoScelta"
                                  << "0" << 1;
        QTest::newRow("scelta 3") << "TastoScelta"
                                  << "3" << 1;
        QTest::newRow("scelta NULL") << "TastoScelta"
                                     << "NULL" << 1;
        QTest::newRow("scansione 0") << "TastoScansione"
                                     << "0" << 2;
        QTest::newRow("scansione NULL") << "TastoScansione"
                                        << "NULL" << 2;
        QTest::newRow("inversione 3") << "TipoInversioneScansione"
                                      << "3" << 1;
        QTest::newRow("inversione NULL") << "TipoInversioneScansione"
                                         << "NULL" << 1;
        QTest::newRow("latenza 499") << "TempoLatenzaScansione"
                                     << "499" << 1000;
        QTest::newRow("latenza 500") << "TempoLatenzaScansione"
                                     << "500" << 500;
        QTest::newRow("latenza 5000") << "TempoLatenzaScansione"
                                      << "5000" << 5000;
        QTest::newRow("latenza 5001") << "TempoLatenzaScansione"
                                      << "5001" << 1000;
        QTest::newRow("latenza -1") << "TempoLatenzaScansione"
                                    << "-1" << 1000;
        QTest::newRow("latenza NULL") << "TempoLatenzaScansione"
                                      << "NULL" << 1000;
    }

    void impostazioni_fuori_dai_limiti_valgono_quelle_dell_installatore() {
        QFETCH(QString, campo);
        QFETCH(QString, valore);
        QFETCH(int, atteso);
        // A row from outside the program: no constraint stops a NULL.
        ScriviImpostazioniSenzaVincoli(2, 2, 1, 2, 1500);
        EseguiSql(PercorsoConfigurazione(),
                  QStringLiteral("UPDATE ConfigurazioniGenerali SET %1 = %2").arg(campo, valore));
        QCOMPARE(AvviaZanto(), -1);
        QVERIFY(amb->Scatole.isEmpty());
        const QList<QPair<QString, int>> letti = {
            {QStringLiteral("\"ModalitàFunzionamento\""), ModalitàFunzionamento},
            {QStringLiteral("TastoScelta"), TastoScelta},
            {QStringLiteral("TastoScansione"), TastoScansione},
            {QStringLiteral("TipoInversioneScansione"), TipoInversioneScansione},
            {QStringLiteral("TempoLatenzaScansione"), TempoLatenzaScansione},
        };
        const QList<int> scritti = {2, 2, 1, 2, 1500};
        for (qsizetype i = 0; i < letti.size(); ++i)
            QCOMPARE(letti[i].second, letti[i].first == campo ? atteso : scritti[i]);
    }

    void un_modo_fuori_dai_limiti_lascia_il_giro_dell_anello() {
        EseguiSql(PercorsoConfigurazione(),
                  QStringLiteral("UPDATE ConfigurazioniGenerali SET \"ModalitàFunzionamento\" = 99,"
                                 " TempoLatenzaScansione = 100"));
        QCOMPARE(AvviaZanto(), -1);
        QCoreApplication::processEvents();
        MenuGenerale* menu = MenùGeneraleAperto();
        QVERIFY(menu != nullptr);
        QCOMPARE(menu->Motore.TastoCorrente, int16_t(101));
        orologio->Avanza(1000);
        QCOMPARE(menu->Motore.TastoCorrente, int16_t(102));
        orologio->Avanza(1000);
        QCOMPARE(menu->Motore.TastoCorrente, int16_t(103));
    }

    void un_tasto_di_scansione_nullo_in_modo_3_torna_lo_spazio() {
        ScriviImpostazioniSenzaVincoli(3, 1, 2, 1, 1000);
        EseguiSql(PercorsoConfigurazione(),
                  QStringLiteral("UPDATE ConfigurazioniGenerali SET TastoScansione = NULL"));
        QCOMPARE(AvviaZanto(), -1);
        QCoreApplication::processEvents();
        MenuGenerale* menu = MenùGeneraleAperto();
        QVERIFY(menu != nullptr);
        QVERIFY(PremiTasto(Qt::Key_Space));
        QCOMPARE(menu->Motore.TastoCorrente, int16_t(102));
        QVERIFY(PremiTasto(Qt::Key_F12)); // the direct keys write a whole valid row
        QCOMPARE(ModalitàFunzionamento, int16_t(4));
        QCOMPARE(LeggiValore(PercorsoConfigurazione(),
                             QStringLiteral("SELECT TastoScansione FROM ConfigurazioniGenerali"))
                     .toInt(),
                 2);
    }

    void un_archivio_dei_disegni_di_0_byte_e_un_formato_non_riconosciuto() {
        ScriviFile(PercorsoArchivioDisegni(), QByteArray());
        QCOMPARE(AvviaZanto(), 1);
        QCOMPARE(amb->Scatole.size(), 1);
        const QString testo = amb->Scatole[0].Testo;
        QVERIFY2(testo.startsWith(QStringLiteral("ERRORE 3343/160: \rFormato di archivio non "
                                                 "riconosciuto: ")),
                 qPrintable(testo));
        QVERIFY(!testo.contains(QStringLiteral("Parameter count mismatch")));
        QVERIFY(NessunArchivioAperto());
    }

    void senza_la_tabella_delle_cartelle_la_3078() {
        EseguiSql(PercorsoArchivioDisegni(), QStringLiteral("DROP TABLE TabCartelle"));
        ScriviFile(PercorsoCartellaAttiva(), " 1 \r\n");
        QCOMPARE(AvviaZanto(), 1);
        QCOMPARE(amb->Scatole.size(), 1);
        const QString testo = amb->Scatole[0].Testo;
        QVERIFY2(testo.startsWith(QStringLiteral("ERRORE 3078/2710: \rTabella dell'archivio non "
                                                 "trovata: ")),
                 qPrintable(testo));
        QVERIFY(testo.contains(QStringLiteral("TabCartelle")));
        QVERIFY(NessunArchivioAperto());
        QVERIFY(MenùGeneraleAperto() == nullptr);
    }

    void pagine_guaste_nell_archivio_dei_disegni_la_3343() {
        QFile f(PercorsoArchivioDisegni());
        QVERIFY(f.open(QIODevice::ReadOnly));
        QByteArray dati = f.readAll();
        f.close();
        QVERIFY(dati.size() >= 4096);
        // The header stays SQLite's; the schema's page is garbage.
        for (qsizetype i = 100; i < 4096; ++i)
            dati[i] = static_cast<char>(0xA5 ^ (i * 7));
        ScriviFile(PercorsoArchivioDisegni(), dati);
        QCOMPARE(AvviaZanto(), 1);
        QCOMPARE(amb->Scatole.size(), 1);
        QVERIFY2(amb->Scatole[0].Testo.startsWith(QStringLiteral("ERRORE 3343/160: \r")),
                 qPrintable(amb->Scatole[0].Testo));
        QVERIFY(NessunArchivioAperto());
    }

    void lo_schermo_idoneo_e_almeno_1024_per_768_a_ogni_dpi() {
        QVERIFY(SchermoIdoneo(1280, 1024));
        QVERIFY(SchermoIdoneo(1024, 768));
        QVERIFY(SchermoIdoneo(2560, 1440));
        QVERIFY(!SchermoIdoneo(1023, 768));
        QVERIFY(!SchermoIdoneo(1024, 767));
        QVERIFY(!SchermoIdoneo(819, 614));
    }

    void la_scala_riempie_lo_schermo_senza_uscirne_e_mai_sotto_uno() {
        QCOMPARE(ScalaPerSchermo(1024, 768), 1.0);
        QCOMPARE(ScalaPerSchermo(1366, 768), 1.0);
        QCOMPARE(ScalaPerSchermo(1920, 1080), 1080.0 / 768.0);
        QCOMPARE(ScalaPerSchermo(2560, 1440), 1440.0 / 768.0);
        QCOMPARE(ScalaPerSchermo(2048, 1536), 2.0);
        QCOMPARE(ScalaPerSchermo(1280, 1024), 1.25); // the width is the limit here
        QCOMPARE(ScalaPerSchermo(800, 600), 1.0);
    }

    void l_avvio_sceglie_la_scala_dallo_schermo_e_la_da_ai_caratteri() {
        const double punti = QApplication::font().pointSizeF();
        QCOMPARE(AvviaZanto(), -1);
        // The tests' screen is 1280 x 1024: the width sets the scale, with room
        // left for a window's borders.
        QCOMPARE(ScalaInterfaccia, 1264.0 / 1024.0);
        QCOMPARE(Px(15360), 1264);
        QCOMPARE(QApplication::font().pointSizeF(), punti * 1264.0 / 1024.0);
        QCOMPARE(Carattere(QStringLiteral("Arial"), 10).pointSizeF(), 12.34375);
        RipristinaScala();
        QCOMPARE(ScalaInterfaccia, 1.0);
        QCOMPARE(QApplication::font().pointSizeF(), punti);
    }

    void su_uno_schermo_idoneo_nessun_avviso() {
        QCOMPARE(AvviaZanto(), -1);
        QCOMPARE(EsitoQuadroMessaggi, int16_t(0));
        QCOMPARE(TestoQuadroMessaggi, QString());
    }
};

QTEST_MAIN(ProvaAvvio)
#include "test_avvio.moc"
