#include "input/QuadroMessaggi.h"

#include "base/Bip.h"
#include "base/Configurazione.h"
#include "base/Misure.h"

#include <QApplication>
#include <QFontMetrics>
#include <QTextEdit>

#include <algorithm>

QuadroMessaggi::QuadroMessaggi(QWidget* genitore) : FormScansione(101, 103, genitore) {
    setWindowTitle(QStringLiteral("Programma «ZANTO»  -  INFORMAZIONI  E  SCELTE"));
    // Wide enough for the title to show whole in the window's title bar; the
    // buttons keep their places in the middle.
    const int larghezza = std::max(Px(4800), LarghezzaPerTitolo(windowTitle()));
    const int spostamento = (larghezza - Px(4800)) / 2;
    setFixedSize(larghezza, Px(5100));
    ImmiTestoMessaggio = new QTextEdit(this);
    ImmiTestoMessaggio->setObjectName(QStringLiteral("ImmiTestoMessaggio"));
    ImmiTestoMessaggio->setGeometry(
        RettangoloTwips(-30, 15, 4800, 4335).adjusted(0, 0, larghezza - Px(4800), 0));
    ImmiTestoMessaggio->setReadOnly(true);
    // The box scrolls by its own bar; no key ever reaches it.
    ImmiTestoMessaggio->setFocusPolicy(Qt::NoFocus);
    ImmiTestoMessaggio->setTextInteractionFlags(Qt::NoTextInteraction);
    ImmiTestoMessaggio->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    ImmiTestoMessaggio->setFont(Carattere(QStringLiteral("Times New Roman"), 11, true));
    ImmiTestoMessaggio->setAccessibleName(QStringLiteral("Messaggio"));

    CreaTasti({{101, 330, 4410, 1260, 570, QString(), QString()},
               {102, 1710, 4410, 1260, 570, QString(), QString()},
               {103, 3090, 4410, 1260, 570, QString(), QString()}},
              60);
    const QFont carattereTasti = Carattere(QStringLiteral("Arial"), 11, true);
    for (TastoZanto* tasto : std::as_const(Tasti)) {
        tasto->setFont(carattereTasti);
        // A black face: the green, red and yellow of the captions all stand out on it.
        QPalette p = tasto->palette();
        p.setColor(QPalette::Button, Qt::black);
        tasto->setPalette(p);
        tasto->move(tasto->pos() + QPoint(spostamento, 0));
    }
    for (QLabel* corona : std::as_const(Corone))
        corona->move(corona->pos() + QPoint(spostamento, 0));

    // A pause does not hold here: every tick that is not backwards goes forward.
    Motore.PassoCiclo = [this](int16_t passo) {
        if (passo < 0)
            ArretraTastoVisibile();
        else
            AvanzaTastoVisibile();
    };
    Motore.Avanti = [this] { AvanzaTastoVisibile(); };
    Motore.Indietro = [this] { ArretraTastoVisibile(); };
}

bool QuadroMessaggi::Visibile(int16_t indice) const {
    const TastoZanto* tasto = Tasti.value(indice);
    return tasto != nullptr && !tasto->isHidden();
}

void QuadroMessaggi::AttivaQuadroMessaggi() {
    for (int16_t i = 101; i <= 103; ++i) {
        Corone.value(i)->hide();
        Tasti.value(i)->hide();
        Tasti.value(i)->Predefinito = false;
    }
    struct Voce {
        int16_t Indice;
        const char* Didascalia;
        uint32_t Colore;
    };
    const Voce ok{101, "OK", 0x00FF00};
    const Voce si{101, "S I", 0x00FF00};
    const Voce no3{103, "NO", 0xFF0000};
    const Voce annulla{103, "Annulla", 0xFFFF00};
    QList<Voce> voci;
    int16_t& corrente = Motore.TastoCorrente;
    const int16_t predefinito = TastoPredefinitoQuadroMessaggi;
    switch (TipoQuadroMessaggi) {
    case 1:
        voci = {{102, "OK", 0x00FF00}};
        corrente = 102;
        break;
    case 2:
        voci = {ok, annulla};
        corrente = predefinito == 1 ? 101 : predefinito == 3 ? 103 : 0;
        break;
    case 3:
        voci = {si, no3};
        corrente = predefinito == 1 ? 101 : predefinito == 2 ? 103 : 0;
        break;
    case 4:
        voci = {si, {102, "NO", 0xFF0000}, annulla};
        corrente =
            predefinito >= 1 && predefinito <= 3 ? static_cast<int16_t>(100 + predefinito) : 0;
        break;
    default:
        corrente = 0;
        break;
    }
    for (const Voce& v : voci) {
        TastoZanto* tasto = Tasti.value(v.Indice);
        tasto->ImpostaTesto(QString::fromUtf8(v.Didascalia));
        tasto->ImpostaColoreTesto(ColoreRGB(v.Colore));
        tasto->show();
    }
    if ((TastoPredefinitoQuadroMessaggi > 0 || TipoQuadroMessaggi == 1) && Tasti.contains(corrente))
        ImpostaPredefinito(corrente);
    if (Corone.contains(corrente)) {
        ImpostaColoreCorona(corrente, ColoriCorona::Verde);
        Corone.value(corrente)->show();
    }
    ImmiTestoMessaggio->setPlainText(
        QString(TestoQuadroMessaggi).replace(QChar(u'\r'), QChar(u'\n')));
    EsitoQuadroMessaggi = 0;
}

void QuadroMessaggi::AvanzaTastoVisibile() {
    // Three tries at most: a set with no visible button must not hang the program.
    for (int prova = 0; prova < 3; ++prova) {
        Motore.TastoCorrente = static_cast<int16_t>(Motore.TastoCorrente + 1);
        if (Motore.TastoCorrente > 103) Motore.TastoCorrente = 101;
        if (Visibile(Motore.TastoCorrente)) return;
    }
}

void QuadroMessaggi::ArretraTastoVisibile() {
    for (int prova = 0; prova < 3; ++prova) {
        Motore.TastoCorrente = static_cast<int16_t>(Motore.TastoCorrente - 1);
        if (Motore.TastoCorrente < 101) Motore.TastoCorrente = 103;
        if (Visibile(Motore.TastoCorrente)) return;
    }
}

void QuadroMessaggi::AggiornaCorone() {
    for (int16_t i = 101; i <= 103; ++i) {
        Corone.value(i)->hide();
        Tasti.value(i)->Predefinito = false;
    }
    const int16_t corrente = Motore.TastoCorrente;
    if (!Corone.contains(corrente)) return;
    ImpostaColoreCorona(corrente, ColoriCorona::Verde);
    Corone.value(corrente)->show();
    if (ModalitàFunzionamento == 4) ImpostaPredefinito(corrente);
}

void QuadroMessaggi::RoutineTastoGiu(int codice, int modificatori) {
    Motore.RoutineTasti(codice, modificatori);
}

void QuadroMessaggi::PrimaAttivazione() {
    FocusFix->setFocus(Qt::OtherFocusReason);
    Bip();
    if (TipoQuadroMessaggi != 1 && (ModalitàFunzionamento == 1 || ModalitàFunzionamento == 2))
        Motore.AvviaScansione();
}

void QuadroMessaggi::ClickTasto(int16_t indice) {
    if (!Visibile(indice)) return;
    static const int16_t esiti[5][3] = {{0, 0, 0}, {0, 1, 0}, {1, 0, 3}, {1, 0, 2}, {1, 2, 3}};
    if (TipoQuadroMessaggi < 1 || TipoQuadroMessaggi > 4 || indice < 101 || indice > 103) return;
    EsitoQuadroMessaggi = esiti[TipoQuadroMessaggi][indice - 101];
    Motore.FermaScansione();
    done(EsitoQuadroMessaggi);
}

int16_t MostraQuadroMessaggi() {
    QuadroMessaggi quadro;
    quadro.AttivaQuadroMessaggi();
    quadro.exec();
    return EsitoQuadroMessaggi;
}

int16_t Messaggio(const QString& testo, int16_t tipo, int16_t predefinito) {
    TestoQuadroMessaggi = testo;
    TipoQuadroMessaggi = tipo;
    TastoPredefinitoQuadroMessaggi = predefinito;
    return MostraQuadroMessaggi();
}

QString Righe(const QStringList& righe) {
    return righe.join(QChar(u'\r'));
}

int LarghezzaPerTitolo(const QString& titolo) {
    // Title bars write in a bold face of about the program's size, beside the
    // window's icon and its three buttons.
    QFont carattere = QApplication::font();
    carattere.setBold(true);
    const QFontMetrics misura(carattere);
    return misura.horizontalAdvance(titolo) + 6 * misura.height();
}
