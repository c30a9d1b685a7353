#include "start/Avvio.h"

#include "archive/Archivi.h"
#include "input/QuadroMessaggi.h"
#include "start/BaseVuoto.h"
#include "start/Bip.h"
#include "start/Configurazione.h"
#include "start/GestioneErrori.h"
#include "start/MappaErrori.h"
#include "start/MenuGenerale.h"
#include "start/Utilita.h"

#include <QApplication>
#include <QDir>
#include <QFile>
#include <QLockFile>
#include <QPrinterInfo>
#include <QRandomGenerator>
#include <QScreen>
#include <QStandardPaths>

#include <memory>

namespace {

std::unique_ptr<QLockFile>& Blocco() {
    static std::unique_ptr<QLockFile> blocco;
    return blocco;
}

std::unique_ptr<BaseVuoto>& Copertina() {
    static std::unique_ptr<BaseVuoto> copertina;
    return copertina;
}

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
}

void Ferma() {
    ChiudiArchivio(ArchivioDisegni);
    ChiudiArchivio(ArchivioOggetti);
    ChiudiArchivio(ArchivioConfigurazione);
    Copertina().reset();
    Blocco().reset();
    PuntatorePredefinito();
}

void ProvaScrittura() {
    const QString nome = CartellaSistema + QStringLiteral("zanto") +
                         QString::number(QRandomGenerator::global()->bounded(10000000, 99999999)) +
                         QStringLiteral(".tmp");
    QFile file(nome);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Text)) throw ErroreFile(file.error(), nome);
    if (file.write("ZANTO\n") < 0) throw ErroreFile(file.error(), nome);
    file.close();
    if (!file.remove()) throw ErroreFile(file.error(), nome);
}

} // namespace

void CalcolaRadiceDati() {
    RadiceDati =
        QDir::cleanPath(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                        QStringLiteral("/zanto"));
    CartellaSistema = RadiceDati + '/';
}

bool SchermoIdoneo(int larghezza, int altezza, double dpiX, double dpiY) {
    // 96 dpi is 15 twips to the pixel on both axes; a larger screen is fine.
    return dpiX == 96.0 && dpiY == 96.0 && larghezza >= DimensioneMinimaX &&
           altezza >= DimensioneMinimaY;
}

int AvviaZanto() {
    Q_INIT_RESOURCE(zanto);
    try {
        PuntatoreClessidra();
        FaseAvvio = 1;
        RiempiMessaggiAvvio();
        CalcolaRadiceDati();

        // A second instance ends without a word.
        Blocco() = std::make_unique<QLockFile>(CartellaSistema + NomiArchivi::FileBlocco);
        if (!Blocco()->tryLock(0) && Blocco()->error() == QLockFile::LockFailedError) {
            Ferma();
            return 0;
        }

        ScritturaFallita = 0;
        EseguiPassi({{105, [] { ProvaScrittura(); }}});
        if (ScritturaFallita == 1) {
            PuntatorePredefinito();
            Bip();
            MostraScatolaPiattaforma(IconaScatola::Esclamazione, QStringLiteral("PERLUX"),
                                     MessaggiAvvio[1]);
            Ferma();
            return 1;
        }

        Copertina() = std::make_unique<BaseVuoto>();
        Copertina()->show();
        Copertina()->repaint();

        const QScreen* schermo = QGuiApplication::primaryScreen();
        if (!SchermoIdoneo(schermo->size().width(), schermo->size().height(),
                           schermo->logicalDotsPerInchX(), schermo->logicalDotsPerInchY())) {
            PuntatorePredefinito();
            Bip();
            if (Messaggio(MessaggiAvvio[2], 2, 1) == 3) {
                Ferma();
                return 0;
            }
            PuntatoreClessidra();
        }

        SezioneCorrente = 130;
        if (!FileEsiste(PercorsoConfigurazione())) {
            PuntatorePredefinito();
            MostraScatolaPiattaforma(
                IconaScatola::Critica, QStringLiteral("ZANTO"),
                MessaggiAvvio[3] + QChar(u'\r') +
                    QStringLiteral("(%1 - Sezione %2)")
                        .arg(QDir::toNativeSeparators(PercorsoConfigurazione()))
                        .arg(SezioneCorrente));
            Ferma();
            return 1;
        }

        EseguiPassi({
            {140, [] { ApriArchivio(ArchivioConfigurazione, PercorsoConfigurazione()); }},
            {150, [] { LeggiConfigurazione(); }},
            {160, [] { ApriArchivio(ArchivioDisegni, PercorsoArchivioDisegni()); }},
            {165, [] { ApriArchivio(ArchivioOggetti, PercorsoArchivioOggetti()); }},
            {170, [] { StampanteDiSistema = QPrinterInfo::defaultPrinterName(); }},
            {180, [] { CaricaMenùGenerale(); }},
        });
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
    Blocco().reset();
    QCoreApplication::exit(0);
}
