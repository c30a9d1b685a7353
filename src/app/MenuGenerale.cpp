#include "app/MenuGenerale.h"

#include "app/VisualizzaInformazioni.h"

#include "app/Avvio.h"
#include "app/ConfigurazioniGenerali.h"
#include "app/VisualizzaInformazioni.h"
#include "archive/Archivi.h"
#include "archive/IstruzioniArchivio.h"
#include "base/Bip.h"
#include "base/Configurazione.h"
#include "base/MappaErrori.h"
#include "base/Misure.h"
#include "base/ScrittaModulo.h"
#include "base/Utilita.h"
#include "drawing/AmbienteDisegno.h"
#include "input/QuadroMessaggi.h"
#include "panels/Elaborazioni.h"
#include "panels/EtichettaLista.h"
#include "panels/QuadroMostraLista.h"

#include <QFile>
#include <QGuiApplication>
#include <QLabel>
#include <QPainter>
#include <QSaveFile>
#include <QScreen>
#include <QSqlQuery>
#include <QSvgRenderer>

#include <memory>

namespace {

std::unique_ptr<MenuGenerale>& Menu() {
    static std::unique_ptr<MenuGenerale> menu;
    return menu;
}

QLabel* Scritta(QWidget* genitore, const QString& testo, int sinistra, int alto, int larghezza,
                int altezza, int punti, bool grassetto) {
    QLabel* l =
        ScrittaModulo(genitore, testo, QRect(sinistra, alto, larghezza, altezza), punti, grassetto);
    l->setAlignment(Qt::AlignCenter);
    return l;
}

QIcon Icona(const QString& risorsa) {
    QPixmap immagine(96, 96);
    immagine.fill(Qt::transparent);
    QSvgRenderer svg(risorsa);
    QPainter p(&immagine);
    svg.render(&p);
    return QIcon(immagine);
}

} // namespace

void ScriviFileCartellaAttiva() {
    const QString percorso = PercorsoCartellaAttiva();
    QSaveFile file(percorso);
    if (!file.open(QIODevice::WriteOnly)) throw ErroreFile(file.error(), percorso);
    file.write(TestoNumero(CodiceCartellaAttiva).toLatin1());
    if (!file.commit()) throw ErroreFile(file.error(), percorso);
}

MenuGenerale::MenuGenerale() : FormScansione(101, 105) {
    setWindowTitle(QStringLiteral("Programma «ZANTO»"));
    setFixedSize(Px(15360), Px(11520));
    QPalette p = palette();
    p.setColor(QPalette::Window, ColoreRGB(0xFFFBE6));
    setPalette(p);
    setAutoFillBackground(true);

    CreaTasti({{101, 405, 270, 2070, 1050, QStringLiteral("Disegno"),
                QStringLiteral("Disegnare nella Cartella attiva")},
               {102, 3495, 270, 2070, 1050, QStringLiteral("Cartelle"),
                QStringLiteral("Scegliere la Cartella attiva dei Disegni")},
               {103, 6585, 270, 2070, 1050, QStringLiteral("Informazioni"),
                QStringLiteral("Informazioni sul Programma")},
               {104, 9690, 270, 2070, 1050, QStringLiteral("Configurazioni"),
                QStringLiteral("Configurazioni Generali della scansione")},
               {105, 12780, 270, 2070, 1050, QStringLiteral("Esci"),
                QStringLiteral("Uscire dal Programma")}},
              105);
    const char* icone[] = {":/icone/disegno.svg", ":/icone/cartelle.svg",
                           ":/icone/informazioni.svg", ":/icone/configurazioni.svg",
                           ":/icone/esci.svg"};
    const QFont carattere = Carattere(QStringLiteral("Arial"), 11, true);
    for (int16_t i = 101; i <= 105; ++i) {
        TastoZanto* tasto = Tasti.value(i);
        tasto->setIcon(Icona(QString::fromLatin1(icone[i - 101])));
        tasto->setIconSize(QSize(Px(480), Px(480)));
        tasto->setFont(carattere);
    }

    ImmagineMenu = new QLabel(this);
    ImmagineMenu->setGeometry(RettangoloTwips(3180, 2100, 9000, 2400));
    {
        QPixmap logo(ImmagineMenu->size());
        logo.fill(Qt::transparent);
        QSvgRenderer svg(QStringLiteral(":/logo-zanto.svg"));
        QPainter pl(&logo);
        svg.render(&pl);
        ImmagineMenu->setPixmap(logo);
    }
    ScrittaInformazioni[0] = Scritta(this, {}, 405, 5000, 14445, 600, 18, true);
    ScrittaInformazioni[1] = Scritta(this, {}, 405, 5700, 14445, 500, 13, false);
    ScrittaInformazioni[2] = Scritta(this, {}, 405, 6300, 14445, 500, 13, false);
    Scritta(this, QStringLiteral("CARTELLA ATTIVA:"), 405, 8200, 14445, 500, 14, true);
    ScrittaCartellaAttiva = Scritta(this, {}, 1905, 8800, 11445, 700, 18, true);
    ScrittaCartellaAttiva->setObjectName(QStringLiteral("ScrittaCartellaAttiva"));
    ScrittaCartellaAttiva->setFrameShape(QFrame::Box);
    QPalette pc = ScrittaCartellaAttiva->palette();
    pc.setColor(QPalette::WindowText, ColoreRGB(0x1A3D7C));
    ScrittaCartellaAttiva->setPalette(pc);
}

void MenuGenerale::AttivaMenùGenerale() {
    for (int i = 0; i < 3; ++i)
        ScrittaInformazioni[i]->setText(MessaggiAvvio.value(5 + i));
    for (int16_t i = 101; i <= 105; ++i) {
        Corone.value(i)->hide();
        Tasti.value(i)->Predefinito = false;
    }
    Motore.TastoCorrente = 101;
    ImpostaColoreCorona(101, ColoriCorona::Verde);
    Corone.value(101)->show();
    if (ModalitàFunzionamento == 4) ImpostaPredefinito(101);
    if (CodiceCartellaAttiva != 0) {
        ScrittaCartellaAttiva->setText(FormaCartella(NomeCartellaAttiva, CodiceCartellaAttiva));
        return;
    }
    LeggiCartellaAttiva();
}

void MenuGenerale::LeggiCartellaAttiva() {
    const QString percorso = PercorsoCartellaAttiva();
    if (!FileEsiste(percorso)) return;
    int32_t codice = 0;
    RecordAssente = 0;
    EseguiPassi({
        {2700,
         [&] {
             QFile file(percorso);
             if (!file.open(QIODevice::ReadOnly)) throw ErroreFile(file.error(), percorso);
             bool ok = false;
             codice = QString::fromLatin1(file.readLine()).trimmed().toInt(&ok);
             if (!ok) codice = 0;
         }},
        {2710,
         [&] {
             if (codice == 0) return;
             QSqlQuery q = Prepara(Archivio(ArchivioDisegni),
                                   QStringLiteral("SELECT NomeCartella FROM TabCartelle"
                                                  " WHERE CodiceCartella = ?"));
             q.addBindValue(codice);
             Esegui(q);
             if (!q.next()) {
                 if (q.lastError().isValid()) throw ErroreSql(q.lastError());
                 // A folder deleted since: no folder is active, and no one is told.
                 RecordAssente = 1;
                 return;
             }
             CodiceCartellaAttiva = codice;
             NomeCartellaAttiva = q.value(0).toString();
             ScrittaCartellaAttiva->setText(
                 FormaCartella(NomeCartellaAttiva, CodiceCartellaAttiva));
         }},
    });
}

void MenuGenerale::Riprendi() {
    if (ModalitàFunzionamento == 1 || ModalitàFunzionamento == 2) Motore.AvviaScansione();
}

void MenuGenerale::ClickTasto(int16_t indice) {
    TastoMenùZanto_Click(indice);
}

void MenuGenerale::TastoMenùZanto_Click(int16_t indice) {
    switch (indice) {
    case 101:
        if (CodiceCartellaAttiva == 0) {
            Bip();
            ParcheggiaMouse();
            Messaggio(Righe({QStringLiteral("ATTENZIONE!"),
                             QStringLiteral("Non esiste alcuna Cartella Attiva!"),
                             QStringLiteral("E' impossibile disegnare!"),
                             QStringLiteral("E' necessario scegliere prima una Cartella!"),
                             QStringLiteral("Premere «OK» per proseguire!")}),
                      1, 1);
            Riprendi();
            return;
        }
        PuntatoreClessidra();
        CaricaAmbienteDisegno();
        ScaricaMenùGenerale();
        PuntatorePredefinito();
        return;
    case 102:
        // The key routine restarts the ring afterwards.
        ScegliCartella();
        return;
    case 103:
        PuntatoreClessidra();
        CaricaVisualizzaInformazioni();
        ScaricaMenùGenerale();
        PuntatorePredefinito();
        return;
    case 104:
        PuntatoreClessidra();
        // Reached by the switch, the form must also be left by it.
        CaricaConfigurazioniGenerali(SceltaDaTasto);
        ScaricaMenùGenerale();
        PuntatorePredefinito();
        return;
    case 105:
        // With a ring that walks by itself one mistimed press must not end the
        // user's time: the program asks first, with the ring on "NO".
        if (ModalitàFunzionamento == 1 || ModalitàFunzionamento == 2) {
            ParcheggiaMouse();
            const int16_t esito = Messaggio(
                Righe({QStringLiteral("ATTENZIONE!"), QStringLiteral("Si vuole davvero uscire"),
                       QStringLiteral("dal Programma «ZANTO»?"),
                       QStringLiteral("Premere «S I» per uscire"),
                       QStringLiteral("oppure «NO» per restare!")}),
                3, 2);
            if (esito != 1) {
                Riprendi();
                return;
            }
        }
        ChiudiZanto();
        return;
    default:
        return;
    }
}

void MenuGenerale::ScegliCartella() {
    TipoLista = GenereLista::Cartelle;
    ModoCartelle = 2;
    ScegliDaLista();
    if (!VoceScelta.isEmpty()) {
        const EtichettaLetta voce = LeggiEtichetta(VoceScelta);
        const int64_t codice = voce.Valore();
        if (codice >= 1 && codice <= INT32_MAX) {
            CodiceCartellaAttiva = static_cast<int32_t>(codice);
            NomeCartellaAttiva = voce.Nome;
        }
    }
    // The active folder may also have been deleted in the list.
    ScrittaCartellaAttiva->setText(CodiceCartellaAttiva != 0
                                       ? FormaCartella(NomeCartellaAttiva, CodiceCartellaAttiva)
                                       : QString());
}

void MenuGenerale::RoutineTastoGiu(int codice, int modificatori) {
    if (Motore.TastoDiretto(codice)) return;
    const MotoreScansione::Esito esito = Motore.RoutineTasti(codice, modificatori);
    // 102 is the one button after which the menu stays open.
    if (esito == MotoreScansione::Esito::Scelta && Motore.TastoCorrente == 102 &&
        (ModalitàFunzionamento == 1 || ModalitàFunzionamento == 2) && MenùGeneraleAperto() == this)
        Motore.AvviaScansione();
}

MenuGenerale* MenùGeneraleAperto() {
    return Menu().get();
}

MenuGenerale* CaricaMenùGenerale() {
    Menu() = std::make_unique<MenuGenerale>();
    MenuGenerale* menu = Menu().get();
    menu->AttivaMenùGenerale();
    const QRect schermo = QGuiApplication::primaryScreen()->availableGeometry();
    menu->move(schermo.center() - menu->rect().center());
    menu->show();
    menu->repaint();
    return menu;
}

namespace {
// Wherever the menu is linked in, the drawing screen goes back to it on closing.
const bool RitornoRegistrato = [] {
    RitornoAlMenu = [] { CaricaMenùGenerale(); };
    return true;
}();
} // namespace

void ScaricaMenùGenerale() {
    if (!Menu()) return;
    Menu()->hide();
    Menu()->Motore.FermaScansione();
    // Its own click routine may be on the stack: the object goes when events allow.
    Menu().release()->deleteLater();
}

void DistruggiMenùGenerale() {
    Menu().reset();
}
