#include "panels/QuadroScriviTesto.h"

#include "base/Bip.h"
#include "base/Configurazione.h"
#include "base/GestioneErrori.h"
#include "base/IconaSvg.h"
#include "base/Misure.h"
#include "base/Numeri.h"
#include "base/Utilita.h"
#include "input/QuadroMessaggi.h"
#include "input/Voce.h"
#include "model/LimitiTesto.h"
#include "panels/Elaborazioni.h"
#include "panels/EtichettaLista.h"
#include "panels/QuadroMostraLista.h"
#include "panels/QuadroSettaggiFont.h"
#include "text/LettoreRtf.h"

#include <QFrame>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QPlainTextEdit>
#include <QScreen>

namespace {

constexpr int16_t InsiemeLettere = 0;
constexpr int16_t InsiemeFunzioni = 1;

// Codes of the key-down routine beyond those of the common pattern.
constexpr int CodiceBackspace = 8;
constexpr int CodiceCanc = 46;
// Any other key the keyboard does not use: it only beeps.
constexpr int CodiceAltro = 255;

const char* const Didascalie[70] = {
    "A",  "B", "C", "D", "E", "F", "G", "H", "I", "J", "K", "L",  "M", "N", "O", "P",   "Q",  "R",
    "S",  "T", "U", "V", "W", "X", "Y", "Z", "@", "€", "«", "»",  "!", "?", "'", "Del", "__", "Ret",
    "BS", "%", "(", ")", "à", "è", "ì", "ò", "ù", ".", ",", ";",  ":", "°", "1", "2",   "3",  "4",
    "5",  "6", "7", "8", "9", "0", "+", "-", "*", "/", "=", "Fn", ">", "<", "[", "]"};

struct Funzione {
    const char* Suggerimento;
    const char* Immagine;
};
const Funzione Funzioni[12] = {{"", "tastiera/conferma"},
                               {"Accesso alla Scrittura Testi", "tastiera/lettere"},
                               {"Sposta Cursore a Sinistra", "tastiera/cursore-sinistra"},
                               {"Sposta Cursore a Destra ", "tastiera/cursore-destra"},
                               {"Sposta Cursore ad Inizio Testo", "tastiera/cursore-inizio"},
                               {"Sposta Cursore a Fine Testo", "tastiera/cursore-fine"},
                               {"Chiudi", "pannelli/chiudi"},
                               {"Maiuscolo / Minuscolo", "tastiera/maiuscole"},
                               {"Settaggio Font, Dimensioni, Corsivo, Grassetto", "tastiera/font"},
                               {"Importa Testo Da File", "tastiera/importa"},
                               {"Sposta Cursore in Alto", "tastiera/cursore-alto"},
                               {"Sposta Cursore in Basso", "tastiera/cursore-basso"}};

QString Risorsa(const char* nome) {
    return QStringLiteral(":/icone/%1.svg").arg(QLatin1String(nome));
}

// Layout in twips: the letters from the top, the function frame under them.
constexpr int SinistraLettere = 60;
constexpr int AltoLettere = 60;
constexpr int PassoLettere = 555;
constexpr int LatoLettera = 465;
constexpr int SinistraFrame = -30;
constexpr int AltoFrame = 3930;
constexpr int PassoFunzioniX = 900;
constexpr int PassoFunzioniY = 765;
constexpr int MargineFunzioniX = 202;
constexpr int MargineFunzioniY = 105;
constexpr int MargineCorona = 45;

// The character codes the physical keyboard may type in mode 4.
bool CodiceAmmesso(int c) {
    return c == 8 || c == 32 || c == 33 || c == 37 || (c >= 39 && c <= 90) || c == 91 || c == 93 ||
           c == 128 || c == 171 || c == 187 || c == 224 || c == 232 || c == 236 || c == 242 ||
           c == 249;
}

// The code of a typed character in the program's single-byte character set.
int CodiceCarattere(int tastoQt, const QString& testo) {
    if (tastoQt == Qt::Key_Backspace) return 8;
    if (testo.size() != 1) return 0;
    const char16_t c = testo.at(0).unicode();
    if (c == u'€') return 128;
    return c < 256 ? c : 0;
}

// After a letter or a blank the next key is most likely a letter: with the
// restart on, the ring starts again on "A" instead of walking on from here.
void TornaAllaPrima(QuadroScriviTesto& quadro) {
    if (RipresaSuccessiva != 1 || ModalitàFunzionamento == 4) return;
    quadro.Motore.TastoCorrente = 101;
    quadro.AggiornaCorone();
}

} // namespace

QuadroScriviTesto::QuadroScriviTesto(QWidget* genitore) : FormScansione(101, 170, genitore) {
    setObjectName(QStringLiteral("QuadroScriviTesto"));
    setWindowTitle(QStringLiteral("Programma «ZANTO»  -  Scrittura Testi"));
    setFixedSize(Px(5565), Px(8640));

    QList<DefinizioneTasto> lettere;
    for (int16_t i = 0; i < 70; ++i)
        lettere.append({static_cast<int16_t>(101 + i), SinistraLettere + (i % 10) * PassoLettere,
                        AltoLettere + (i / 10) * PassoLettere, LatoLettera, LatoLettera,
                        QString::fromUtf8(Didascalie[i]), QString()});
    lettere[65].Suggerimento = QStringLiteral("Accesso a Tasti Funzione");
    CreaTasti(lettere, MargineCorona, InsiemeLettere);
    Motore.Colonne = 10;
    Motore.TastoCorrente = 101;
    // Captions a child can read: as large as the key allows.
    for (TastoZanto* tasto : std::as_const(Tasti)) {
        QFont carattere(QStringLiteral("Arial"));
        carattere.setBold(true);
        const qsizetype n = tasto->text().size();
        carattere.setPixelSize(Px(n == 1 ? 330 : n == 2 ? 240 : 195));
        tasto->setFont(carattere);
    }

    // The frame first, so that the keys and their rings lie on it.
    QuadroTastiFunzioneTesto = new QFrame(this);
    QuadroTastiFunzioneTesto->setObjectName(QStringLiteral("QuadroTastiFunzioneTesto"));
    QuadroTastiFunzioneTesto->setFrameShape(QFrame::StyledPanel);
    QuadroTastiFunzioneTesto->setGeometry(RettangoloTwips(SinistraFrame, AltoFrame, 5610, 1635));
    QList<DefinizioneTasto> funzioni;
    for (int16_t i = 0; i < 12; ++i)
        funzioni.append({static_cast<int16_t>(101 + i),
                         SinistraFrame + MargineFunzioniX + (i % 6) * PassoFunzioniX,
                         AltoFrame + MargineFunzioniY + (i / 6) * PassoFunzioniY, 705, 660,
                         QString(), QString::fromUtf8(Funzioni[i].Suggerimento)});
    Motore.AggiungiInsieme(101, 112, 6, 101);
    CreaTasti(funzioni, MargineCorona, InsiemeFunzioni);
    for (int16_t i = 0; i < 12; ++i)
        ImpostaIcona(TastoFunzTesto().value(static_cast<int16_t>(101 + i)),
                     Risorsa(Funzioni[i].Immagine));
    TastoFunzTesto().value(101)->setAccessibleName(QStringLiteral("Conferma"));

    for (int16_t i : {int16_t{101}, int16_t{102}}) {
        auto* immagine = new QLabel(this);
        immagine->setObjectName(QStringLiteral("IconaSwap%1").arg(i));
        immagine->setProperty(ProprietaRisorsaIcona,
                              Risorsa(i == 101 ? "tastiera/minuscole" : "tastiera/maiuscole"));
        immagine->hide();
        IconaSwap.insert(i, immagine);
    }

    ImmiTesto = new QPlainTextEdit(this);
    ImmiTesto->setObjectName(QStringLiteral("ImmiTesto"));
    ImmiTesto->setGeometry(RettangoloTwips(15, 5565, 5520, 3075));
    ImmiTesto->setReadOnly(true);
    // The cursor is the "_" of the text: no caret, no selection, no focus.
    ImmiTesto->setFocusPolicy(Qt::NoFocus);
    ImmiTesto->setFocusProxy(FocusFix);
    ImmiTesto->setTextInteractionFlags(Qt::NoTextInteraction);
    ImmiTesto->setWordWrapMode(QTextOption::WrapAtWordBoundaryOrAnywhere);
    QFont carattereTesto(QStringLiteral("Arial"));
    carattereTesto.setPixelSize(Px(330));
    carattereTesto.setBold(true);
    ImmiTesto->setFont(carattereTesto);
    ImmiTesto->setAccessibleName(QStringLiteral("Testo"));

    if (const QScreen* schermo = QGuiApplication::primaryScreen())
        move(schermo->availableGeometry().center() - rect().center());
    MostraMaiuscole();
    Mostra();
}

void QuadroScriviTesto::AttivaQuadroScriviTesto() {
    EseguiPassi(
        {{1800,
          [this] {
              setWindowIcon(IconaSvg(QStringLiteral(":/logo-zanto.svg"), QSize(32, 32)));
              MaiuscoleMinuscole = 1;
              MostraMaiuscole();
          }},
         {1810,
          [this] {
              for (int insieme : {InsiemeLettere, InsiemeFunzioni}) {
                  for (QLabel* corona : std::as_const(CoroneDi(insieme)))
                      corona->hide();
                  for (TastoZanto* tasto : std::as_const(TastiDi(insieme)))
                      tasto->Predefinito = false;
              }
          }},
         {1820,
          [] {
              // Lines are read by index: a count the list does not hold is refused.
              if (NumeroRigheScritte < 0 || NumeroRigheScritte >= RigheScritte.size())
                  throw ErroreZanto{9, QStringLiteral("Indice non compreso nell'intervallo.")};
          }},
         {1830,
          [this] {
              if (NumeroRigheScritte == 0) {
                  testo_.Imposta(QString(TestoConCursore::Cursore));
                  AttivaInsieme(InsiemeLettere);
                  Motore.TastoCorrente = 101;
                  DipingiTastiScriviTesto();
              } else {
                  // A text that comes back starts on confirm, the cursor at its end.
                  testo_.Imposta(TestoConCursore::Unisci(RigheScritte, NumeroRigheScritte) +
                                 TestoConCursore::Cursore);
                  AttivaInsieme(InsiemeFunzioni);
                  Motore.TastoCorrente = 101;
                  DipingiTastiFunzTesto();
              }
          }},
         {1890, [this] { Mostra(); }}});
}

QString QuadroScriviTesto::NomeParlato(int16_t indice) const {
    // A letter is said as a letter, a sign by its name.
    if (Motore.InsiemeAttivo() == InsiemeLettere)
        if (const TastoZanto* tasto = Tasti.value(indice)) return NomeDelTasto(tasto->text());
    return FormScansione::NomeParlato(indice);
}

void QuadroScriviTesto::AggiornaCorone() {
    if (Motore.TastoCorrente == 0) Motore.TastoCorrente = 101;
    FormScansione::AggiornaCorone();
}

void QuadroScriviTesto::DipingiTastiScriviTesto() {
    if (Motore.InsiemeAttivo() != InsiemeLettere)
        AttivaInsieme(InsiemeLettere);
    else
        AggiornaCorone();
}

void QuadroScriviTesto::DipingiTastiFunzTesto() {
    if (Motore.InsiemeAttivo() != InsiemeFunzioni)
        AttivaInsieme(InsiemeFunzioni);
    else
        AggiornaCorone();
}

void QuadroScriviTesto::Mostra() {
    QString vista = testo_.Testo();
    vista.replace(QStringLiteral("\r\n"), QStringLiteral("\n"));
    vista.replace(TestoConCursore::Cr, TestoConCursore::Lf);
    ImmiTesto->setPlainText(vista);
    // Keep the "_" in sight in a text longer than the box.
    QTextCursor cursore(ImmiTesto->document());
    cursore.setPosition(
        static_cast<int>(qMax<qsizetype>(0, vista.indexOf(TestoConCursore::Cursore))));
    ImmiTesto->setTextCursor(cursore);
    ImmiTesto->ensureCursorVisible();
}

void QuadroScriviTesto::MostraMaiuscole() {
    const int16_t immagine = MaiuscoleMinuscole == 2 ? 101 : 102;
    ImpostaIcona(TastoFunzTesto().value(108),
                 IconaSwap.value(immagine)->property(ProprietaRisorsaIcona).toString());
    TastoFunzTesto().value(108)->update();
    // The letters show the case they will write.
    for (int16_t i = 0; i < 70; ++i) {
        const QString didascalia = QString::fromUtf8(Didascalie[i]);
        if (didascalia.size() != 1 || !didascalia.at(0).isLetter()) continue;
        TastoZanto* tasto = Tasti.value(static_cast<int16_t>(101 + i));
        const QString vista = MaiuscoleMinuscole == 1 ? didascalia.toUpper() : didascalia.toLower();
        if (tasto != nullptr && tasto->text() != vista)
            tasto->ImpostaTesto(vista, tasto->toolTip());
    }
}

bool QuadroScriviTesto::OltreIlLimite() const {
    // The "_" counts: exactly LunghezzaMassimaTesto characters get in.
    return LunghezzaMassimaTesto > 0 && testo_.Lunghezza() > LunghezzaMassimaTesto;
}

bool QuadroScriviTesto::OltreIlMassimo(const QString& aggiunta) {
    if (TestoSullaTastieraNeiLimiti(testo_.SenzaCursore() + aggiunta)) return false;
    Bip();
    ParcheggiaMouse();
    Messaggio(Righe(AvvisoTestoTroppoLungo()), 1, 1);
    Mostra();
    Riprendi();
    return true;
}

void QuadroScriviTesto::Riprendi() {
    if (ModalitàFunzionamento == 1 || ModalitàFunzionamento == 2) Motore.AvviaScansione();
}

void QuadroScriviTesto::PrimaAttivazione() {
    FocusFix->setFocus(Qt::OtherFocusReason);
    AggiornaCorone();
    Riprendi();
}

void QuadroScriviTesto::ClickTasto(int16_t indice) {
    if (Motore.InsiemeAttivo() == InsiemeLettere)
        ClickLettera(indice);
    else
        ClickFunzione(indice);
}

void QuadroScriviTesto::ClickLettera(int16_t indice) {
    fermoInAlto_ = false;
    switch (indice) {
    case 134:
        if (!testo_.CancellaDopo()) Bip();
        break;
    case 135:
        if (OltreIlMassimo(QStringLiteral(" "))) return;
        testo_.Inserisci(QStringLiteral(" "));
        TornaAllaPrima(*this);
        break;
    case 136:
        if (OltreIlMassimo(QString(TestoConCursore::Cr))) return;
        testo_.Inserisci(QString(TestoConCursore::Cr));
        break;
    case 137:
        if (!testo_.CancellaPrima()) Bip();
        break;
    case 166:
        AttivaInsieme(InsiemeFunzioni);
        Motore.TastoCorrente = 101;
        DipingiTastiFunzTesto();
        Riprendi();
        return;
    default: {
        const TastoZanto* tasto = Tasti.value(indice);
        if (tasto == nullptr) return;
        if (OltreIlLimite()) {
            Bip();
            break;
        }
        const QString lettera =
            MaiuscoleMinuscole == 1 ? tasto->text().toUpper() : tasto->text().toLower();
        if (OltreIlMassimo(lettera)) return;
        testo_.Inserisci(lettera);
        TornaAllaPrima(*this);
        break;
    }
    }
    Mostra();
    Riprendi();
}

void QuadroScriviTesto::ImportaTesto() {
    TipoLista = GenereLista::Testi;
    ScegliDaLista();
    if (VoceScelta.isEmpty()) return;
    const int64_t indice = LeggiEtichetta(VoceScelta).Valore();
    if (indice < 1 || indice > NumeroFile) return;
    // The file replaces the text, with no limit of the names but the measure of
    // every text; a "_" it holds takes the cursor.
    QString letto;
    if (!EseguiPassi({{1880, [&letto, indice] { letto = LeggiFileRtf(ElencoFile.at(indice)); }}}))
        return;
    if (!TestoSullaTastieraNeiLimiti(letto)) {
        Bip();
        ParcheggiaMouse();
        Messaggio(Righe(AvvisoTestoTroppoLungo(
                      QStringLiteral("ATTENZIONE! Il testo del file non è stato letto:"))),
                  1, 1);
        return;
    }
    testo_.Imposta(letto + TestoConCursore::Cursore);
}

void QuadroScriviTesto::ClickFunzione(int16_t indice) {
    const bool eraFermoInAlto = fermoInAlto_;
    fermoInAlto_ = false;
    switch (indice) {
    case 101:
        Conferma();
        return;
    case 102:
        DipingiTastiScriviTesto();
        break;
    case 103:
        if (!testo_.Indietro()) {
            Bip();
            break;
        }
        // The ring stays here a while: each further pick moves one more
        // character left; left alone, it walks on, however long the text.
        Mostra();
        if (ModalitàFunzionamento == 1 || ModalitàFunzionamento == 2)
            Motore.AvviaScansioneConSosta(MotoreScansione::SostaSulTasto);
        return;
    case 104:
        if (!testo_.Avanti()) Bip();
        break;
    case 105:
        testo_.Inizio();
        break;
    case 106:
        testo_.Fine();
        break;
    case 107:
        NumeroRigheScritte = 0;
        RigheScritte = QStringList{QString()};
        Chiudi();
        return;
    case 108:
        MaiuscoleMinuscole = MaiuscoleMinuscole == 1 ? 2 : 1;
        MostraMaiuscole();
        break;
    case 109: {
        const QPoint posto = PostoInTwips();
        ApriQuadroSettaggiFont(posto.x() - 820, posto.y());
        break;
    }
    case 110:
        ImportaTesto();
        break;
    case 111:
        switch (testo_.Su()) {
        case TestoConCursore::EsitoRiga::SolaRiga:
            Bip();
            break;
        case TestoConCursore::EsitoRiga::Bordo:
            Bip();
            Mostra();
            // The ring stops on line 1; a second refusal in a row lets it walk
            // again, so that a one-switch user is never held here.
            if (!eraFermoInAlto) {
                fermoInAlto_ = true;
                return;
            }
            break;
        case TestoConCursore::EsitoRiga::Spostato:
            break;
        }
        break;
    case 112:
        if (testo_.Giu() != TestoConCursore::EsitoRiga::Spostato) Bip();
        break;
    default:
        return;
    }
    Mostra();
    Riprendi();
}

void QuadroScriviTesto::Conferma() {
    const QStringList righe = TestoConCursore::Righe(testo_.SenzaCursore());
    NumeroRigheScritte = Intero16(static_cast<int64_t>(righe.size() - 1));
    RigheScritte = righe;
    Chiudi();
}

void QuadroScriviTesto::Chiudi() {
    Motore.FermaScansione();
    done(0);
}

int QuadroScriviTesto::CodiceDi(const QKeyEvent* evento) const {
    if (const int codice = FormScansione::CodiceDi(evento); codice != 0) return codice;
    const int tasto = evento->key();
    switch (tasto) {
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
    case 0:
        // A modifier alone is no key press: Shift + letter beeps once, not twice.
        return 0;
    case Qt::Key_Delete:
        return CodiceCanc;
    case Qt::Key_Backspace:
        return CodiceBackspace;
    default:
        break;
    }
    if ((tasto >= Qt::Key_A && tasto <= Qt::Key_Z) || (tasto >= Qt::Key_0 && tasto <= Qt::Key_9))
        return tasto;
    return CodiceAltro;
}

void QuadroScriviTesto::RoutineTastoGiu(int codice, int modificatori) {
    if (Motore.RoutineTasti(codice, modificatori) != MotoreScansione::Esito::Ignorato) return;
    Bip();
    if (codice != CodiceCanc) return;
    // The Delete key works as "Del" in every mode; the ring goes on undisturbed.
    if (!testo_.CancellaDopo()) Bip();
    Mostra();
}

void QuadroScriviTesto::RoutineCarattere(int tastoQt, const QString& testo) {
    if (ModalitàFunzionamento != 4) return;
    const int codice = CodiceCarattere(tastoQt, testo);
    if (!CodiceAmmesso(codice)) return;
    if (OltreIlLimite()) {
        Bip();
        return;
    }
    if (codice == CodiceBackspace) {
        if (!testo_.CancellaPrima()) Bip();
    } else if (codice >= 'A' && codice <= 'Z') {
        // Typed with Shift or Caps Lock; the case is the keyboard's own.
        const QString lettera(QChar(static_cast<char16_t>(codice)));
        const QString scritta = MaiuscoleMinuscole == 1 ? lettera : lettera.toLower();
        if (OltreIlMassimo(scritta)) return;
        testo_.Inserisci(scritta);
    } else {
        if (OltreIlMassimo(testo)) return;
        testo_.Inserisci(testo);
    }
    Mostra();
}

int16_t ScriviTesto(int16_t limite, const QString& cosa) {
    const StatoScriviTesto sotto = DatiScriviTesto;
    LunghezzaMassimaTesto = limite;
    {
        QuadroScriviTesto quadro;
        if (!cosa.isEmpty()) quadro.setWindowTitle(QStringLiteral("Programma «ZANTO»  -  ") + cosa);
        quadro.AttivaQuadroScriviTesto();
        ParcheggiaMouse();
        quadro.exec();
    }
    DatiScriviTesto = sotto;
    return NumeroRigheScritte;
}
