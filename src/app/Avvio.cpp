#include "app/Avvio.h"

#include "app/MenuGenerale.h"
#include "archive/Archivi.h"
#include "archive/BitmapDisegni.h"
#include "archive/FileInSospeso.h"
#include "archive/RigaConfigurazione.h"
#include "archive/Schema.h"
#include "base/BaseVuoto.h"
#include "base/Bip.h"
#include "base/GestioneErrori.h"
#include "base/MappaErrori.h"
#include "base/ScalaSchermo.h"
#include "base/Utilita.h"
#include "input/QuadroMessaggi.h"
#include "printing/Stampe.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRandomGenerator>
#include <QScreen>
#include <QStandardPaths>

#include <cerrno>
#include <fcntl.h>
#include <memory>
#include <optional>
#include <sys/file.h>
#include <unistd.h>

namespace {

// The descriptor that holds the single-instance lock for the whole run; the
// system lets go of it when the process dies, however it dies.
int DescrittoreBlocco = -1;

enum class EsitoBlocco { Preso, Occupato, Impossibile };

void LasciaBlocco() {
    if (DescrittoreBlocco < 0) return;
    ::close(DescrittoreBlocco);
    DescrittoreBlocco = -1;
}

EsitoBlocco PrendiBlocco() {
    LasciaBlocco();
    const QByteArray nome = QFile::encodeName(CartellaSistema + NomiArchivi::FileBlocco);
    int fd = -1;
    do {
        // Never through a link: each instance must lock the same file.
        fd = ::open(nome.constData(), O_RDWR | O_CREAT | O_CLOEXEC | O_NOFOLLOW, 0644);
    } while (fd < 0 && errno == EINTR);
    if (fd < 0) return EsitoBlocco::Impossibile;
    int esito = 0;
    do {
        esito = ::flock(fd, LOCK_EX | LOCK_NB);
    } while (esito != 0 && errno == EINTR);
    if (esito != 0) {
        // Only a live holder says "another instance"; anything else is for the write test.
        const bool occupato = errno == EWOULDBLOCK;
        ::close(fd);
        return occupato ? EsitoBlocco::Occupato : EsitoBlocco::Impossibile;
    }
    DescrittoreBlocco = fd;
    return EsitoBlocco::Preso;
}

std::unique_ptr<BaseVuoto>& Copertina() {
    static std::unique_ptr<BaseVuoto> copertina;
    return copertina;
}

void Ferma() {
    ChiudiArchivio(ArchivioDisegni);
    ChiudiArchivio(ArchivioOggetti);
    ChiudiArchivio(ArchivioConfigurazione);
    Copertina().reset();
    LasciaBlocco();
    PuntatorePredefinito();
}

// Buffered bytes prove nothing: the test goes down to the disk and back.
void ProvaScrittura() {
    const QString nome = CartellaSistema + QStringLiteral("zanto") +
                         QString::number(QRandomGenerator::global()->bounded(10000000, 99999999)) +
                         QStringLiteral(".tmp");
    const QByteArray percorso = QFile::encodeName(nome);
    if (GuastoProvaScrittura != 0) throw ErroreSistema(GuastoProvaScrittura, nome);
    const int fd = ::open(percorso.constData(), O_WRONLY | O_CREAT | O_EXCL | O_CLOEXEC, 0600);
    if (fd < 0) throw ErroreSistema(errno, nome);
    // Whatever fails after the file exists, it must not stay behind.
    const auto abbandona = [&](int codice) {
        ::close(fd);
        ::unlink(percorso.constData());
        return ErroreSistema(codice, nome);
    };
    static constexpr char riga[] = "ZANTO\n";
    std::size_t scritti = 0;
    while (scritti < sizeof riga - 1) {
        const ssize_t n = ::write(fd, riga + scritti, sizeof riga - 1 - scritti);
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) throw abbandona(n < 0 ? errno : ENOSPC);
        scritti += static_cast<std::size_t>(n);
    }
    if (::fsync(fd) != 0) throw abbandona(errno);
    if (::close(fd) != 0) {
        const int codice = errno;
        ::unlink(percorso.constData());
        throw ErroreSistema(codice, nome);
    }
    if (::unlink(percorso.constData()) != 0) throw ErroreSistema(errno, nome);
}

void ScatolaConfigurazioneAssente() {
    PuntatorePredefinito();
    MostraScatolaPiattaforma(IconaScatola::Critica, QStringLiteral("ZANTO"),
                             MessaggiAvvio[3] + QChar(u'\r') +
                                 QStringLiteral("(%1 - Sezione %2)")
                                     .arg(QDir::toNativeSeparators(PercorsoConfigurazione()))
                                     .arg(SezioneCorrente));
}

int Termina(int codice) {
    Ferma();
    return codice;
}

// The checks of the start before the archives open: each gives the program's
// exit code when the start ends there.

std::optional<int> CartellaDatiAssente() {
    // Without the data folder the configuration archive is missing too, and
    // the write test would only blame the user's rights.
    SezioneCorrente = 130;
    if (QFileInfo::exists(RadiceDati)) return std::nullopt;
    ScatolaConfigurazioneAssente();
    return 1;
}

// A second instance says so and ends: the one running keeps the data.
std::optional<int> AltraIstanzaAperta(EsitoBlocco blocco) {
    if (blocco != EsitoBlocco::Occupato) return std::nullopt;
    PuntatorePredefinito();
    MostraScatolaPiattaforma(IconaScatola::Esclamazione, QStringLiteral("ZANTO"),
                             MessaggiAvvio[11]);
    return 0;
}

std::optional<int> ScritturaImpossibile() {
    ScritturaFallita = 0;
    ErroreZanto scrittura;
    EseguiPassi({{105, [&scrittura] {
                      try {
                          ProvaScrittura();
                      } catch (const ErroreZanto& errore) {
                          scrittura = errore;
                          throw;
                      }
                  }}});
    if (ScritturaFallita != 1) return std::nullopt;
    PuntatorePredefinito();
    Bip();
    if (scrittura.Numero == 61) {
        // A full disk is no question of rights: it is said as it is.
        MostraScatolaPiattaforma(IconaScatola::Critica, QStringLiteral("ZANTO"),
                                 TestoErrore(scrittura.Numero, 105, scrittura.Descrizione));
    } else {
        MostraScatolaPiattaforma(IconaScatola::Esclamazione, QStringLiteral("PERLUX"),
                                 MessaggiAvvio[1]);
    }
    return 1;
}

// A folder that can be written but not locked would let a second instance
// write beside this one: no start without the lock.
std::optional<int> BloccoImpossibile(EsitoBlocco blocco) {
    if (blocco != EsitoBlocco::Impossibile) return std::nullopt;
    PuntatorePredefinito();
    Bip();
    MostraScatolaPiattaforma(
        IconaScatola::Critica, QStringLiteral("ZANTO"),
        MessaggiAvvio[12].arg(QDir::toNativeSeparators(CartellaSistema + NomiArchivi::FileBlocco)));
    return 1;
}

// Every form is built after this, at the size this screen gives it; the
// cover stands behind them. A screen too small is said, and may be refused.
std::optional<int> SchermoRifiutato() {
    const QScreen& schermo = *QGuiApplication::primaryScreen();
    AdattaAlloSchermo(schermo);

    Copertina() = std::make_unique<BaseVuoto>();
    Copertina()->show();
    Copertina()->repaint();

    if (SchermoIdoneo(schermo.size().width(), schermo.size().height())) return std::nullopt;
    PuntatorePredefinito();
    Bip();
    if (Messaggio(MessaggiAvvio[2], 2, 1) == 3) return 0;
    PuntatoreClessidra();
    return std::nullopt;
}

std::optional<int> ConfigurazioneAssente() {
    SezioneCorrente = 130;
    if (FileEsiste(PercorsoConfigurazione())) return std::nullopt;
    ScatolaConfigurazioneAssente();
    return 1;
}

void ApriArchivi() {
    EseguiPassi({
        {140, [] { ApriArchivio(ArchivioConfigurazione, PercorsoConfigurazione()); }},
        // An archive of an earlier version gains its new columns once.
        {145,
         [] {
             QSqlDatabase db = Archivio(ArchivioConfigurazione);
             AggiornaSchemaConfigurazione(db);
         }},
        {150, [] { LeggiConfigurazione(); }},
        {160, [] { ApriArchivio(ArchivioDisegni, PercorsoArchivioDisegni()); }},
        {165, [] { ApriArchivio(ArchivioOggetti, PercorsoArchivioOggetti()); }},
        {170,
         [] {
             // The print service answers off the screen's thread: one that
             // does not answer holds up neither the start nor the ring.
             StampanteProgramma.clear();
             AggiornaStampanti();
         }},
        {180, [] { CaricaMenùGenerale(); }},
        // Pictures of an import cut short go in place first: the bitmaps
        // drawn again below show them.
        {183, [] { CompletaFileInSospeso(); }},
        // A save cut short by a crash may have left a bitmap behind its rows.
        // After the menu has read the folders: a broken archive ends the
        // start there, with its own mark, and never here.
        {185, [] { RiparaBitmapDisegni(); }},
    });
}

} // namespace

void RiempiMessaggiAvvio() {
    MessaggiAvvio = QStringList(13);
    MessaggiAvvio[1] = Righe({
        QStringLiteral("ATTENZIONE!"),
        QStringLiteral("Per eseguire il Programma «ZANTO» è necessario"),
        QStringLiteral("possedere i privilegi di «Amministratore»!"),
        QString(),
        QStringLiteral("Da Windows «Vista» in poi è possibile lanciare il Programma"),
        QStringLiteral("«ZANTO» facendo click col tasto destro del Mouse sulla sua"),
        QStringLiteral("icona e cliccando, poi, su «Esegui come Amministratore!"),
        QString(),
        QStringLiteral("Premere «OK» per proseguire!"),
    });
    MessaggiAvvio[2] = Righe({
        QStringLiteral("ATTENZIONE!"),
        QStringLiteral("L'Utente sta utilizzando una risoluzione video inadatta"),
        QStringLiteral("al funzionamento del presente Programma!"),
        QStringLiteral("La risoluzione corretta è 1024 x 768 pixel con Caratteri"),
        QStringLiteral("Piccoli (96 dpi) in Video con proporzione 4:3 (no 16:9)."),
        QStringLiteral("L'Utente può modificare le suddette impostazioni acce-"),
        QStringLiteral("dendo alle «Proprietà dello Schermo» ed  inserendo la"),
        QStringLiteral("corretta risoluzione video."),
        QStringLiteral("E' possibile proseguire comunque  ma  il Programma,"),
        QStringLiteral("oppure alcune sue parti, potrebbero non funzionare re-"),
        QStringLiteral("golarmente!"),
        QStringLiteral("Premere «OK» per proseguire oppure «Abbandona»"),
        QStringLiteral("per chiudere il presente Programma!"),
    });
    MessaggiAvvio[3] = Righe({
        QStringLiteral("ERRORE FATALE!"),
        QStringLiteral("Manca l'archivio delle Configurazioni Generali:"),
        QStringLiteral("il Programma «ZANTO» non può proseguire."),
        QString(),
        QStringLiteral("Reinstallare la cartella dei dati e CHIAMARE L'ASSISTENZA!"),
    });
    MessaggiAvvio[5] = QStringLiteral("Progetto «ZANTO»");
    MessaggiAvvio[6] = QStringLiteral("Disegnare con un solo tasto, con due tasti o con le frecce");
    MessaggiAvvio[7] =
        QStringLiteral("F6, F7, F11, F12: modalità di funzionamento  -  F4, F5, F8, F9: tasti");
    MessaggiAvvio[11] = Righe({
        QStringLiteral("ATTENZIONE!"),
        QStringLiteral("Il Programma «ZANTO» è già aperto"),
        QStringLiteral("con la stessa cartella dei dati:"),
        QStringLiteral("si prega di tornare alla sua finestra."),
        QStringLiteral("Premere «OK» per proseguire!"),
    });
    MessaggiAvvio[12] = Righe({
        QStringLiteral("ERRORE FATALE!"),
        QStringLiteral("Il file di blocco dei dati non si può aprire:"),
        QStringLiteral("« %1 »"),
        QStringLiteral("(è una cartella, o un collegamento)."),
        QStringLiteral("Senza di esso due Programmi «ZANTO» potrebbero"),
        QStringLiteral("scrivere sugli stessi dati: il Programma non parte."),
        QString(),
        QStringLiteral("Togliere quel file e riavviare, o CHIAMARE L'ASSISTENZA!"),
    });
}

void CalcolaRadiceDati() {
    RadiceDati =
        QDir::cleanPath(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                        QStringLiteral("/zanto"));
    CartellaSistema = RadiceDati + '/';
}

bool SchermoIdoneo(int larghezza, int altezza) {
    return larghezza >= DimensioneMinimaX && altezza >= DimensioneMinimaY;
}

int AvviaZanto() {
    Q_INIT_RESOURCE(zanto);
    try {
        PuntatoreClessidra();
        FaseAvvio = 1;
        RiempiMessaggiAvvio();
        CalcolaRadiceDati();
        if (const auto fine = CartellaDatiAssente()) return Termina(*fine);
        const EsitoBlocco blocco = PrendiBlocco();
        if (const auto fine = AltraIstanzaAperta(blocco)) return Termina(*fine);
        if (const auto fine = ScritturaImpossibile()) return Termina(*fine);
        if (const auto fine = BloccoImpossibile(blocco)) return Termina(*fine);
        if (const auto fine = SchermoRifiutato()) return Termina(*fine);
        if (const auto fine = ConfigurazioneAssente()) return Termina(*fine);
        ApriArchivi();
        FaseAvvio = 0;
        Copertina().reset();
        PuntatorePredefinito();
        return -1;
    } catch (const FineProgramma& fine) {
        DistruggiMenùGenerale();
        Ferma();
        FaseAvvio = 0;
        return fine.Codice;
    }
}

void ChiudiZanto() {
    EseguiPassi({
        {2480,
         [] {
             ChiudiArchivio(ArchivioDisegni);
             ChiudiArchivio(ArchivioOggetti);
             ChiudiArchivio(ArchivioConfigurazione);
         }},
        {2485, [] { ScriviFileCartellaAttiva(); }},
    });
    ScaricaMenùGenerale();
    LasciaBlocco();
    QCoreApplication::exit(0);
}
