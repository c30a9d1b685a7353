#include "input/FormScansione.h"

#include "base/Bip.h"
#include "base/Configurazione.h"
#include "base/GestioneErrori.h"
#include "base/Misure.h"
#include "base/Orologio.h"
#include "input/AccessibilitaAnello.h"
#include "input/Voce.h"

#include <QChildEvent>
#include <QKeyEvent>
#include <QScopedValueRollback>

namespace {
QList<FormScansione*>& FormAperti() {
    static QList<FormScansione*> forms;
    return forms;
}

// What the voice said last, and where: it says nothing twice for one place.
struct Detto {
    const FormScansione* Form = nullptr;
    int Insieme = 0;
    int16_t Indice = 0;
    QString Nome;
};
Detto& UltimoDetto() {
    static Detto detto;
    return detto;
}

// The keys a switch sends: the only ones the timings for switches apply to.
bool DaInterruttore(int codice) {
    return codice == CodiciTasto::Invio || codice == CodiciTasto::Spazio ||
           (codice >= CodiciTasto::Sinistra && codice <= CodiciTasto::Giu);
}

void Colora(QLabel* corona, uint32_t rgb) {
    QPalette p = corona->palette();
    // High contrast: the ring where the choice would fall has two bands, black
    // and yellow, that stand apart on any colour. The outer one, which meets the
    // form, is the one of the two that stands further from the form's colour.
    const bool contrasto = AltoContrasto == 1 && rgb == ColoriCorona::Verde;
    QColor dentro = ColoreRGB(rgb);
    QColor fuori = Qt::black;
    if (contrasto) {
        const QWidget* form = corona->parentWidget();
        const QColor sfondo =
            form != nullptr ? form->palette().color(QPalette::Window) : QColor(Qt::white);
        const QColor giallo = ColoreRGB(ColoriCorona::Giallo);
        const bool chiaro =
            RapportoContrasto(Qt::black, sfondo) >= RapportoContrasto(giallo, sfondo);
        fuori = chiaro ? QColor(Qt::black) : giallo;
        dentro = chiaro ? giallo : QColor(Qt::black);
    }
    p.setColor(QPalette::Window, dentro);
    p.setColor(QPalette::WindowText, fuori);
    corona->setPalette(p);
    corona->setFrameStyle(contrasto ? QFrame::Box | QFrame::Plain : QFrame::NoFrame);
}
} // namespace

FormScansione::FormScansione(int16_t primo, int16_t ultimo, QWidget* genitore)
    : QDialog(genitore), Motore(primo, ultimo) {
    setFocusPolicy(Qt::NoFocus);
    setModal(false);
    // A real, focusable widget that the user never sees: keys rest on it.
    FocusFix = new QWidget(this);
    FocusFix->setObjectName(QStringLiteral("FocusFix"));
    FocusFix->setFocusPolicy(Qt::StrongFocus);
    FocusFix->setGeometry(0, 0, 1, 1);
    // Assistive technology sees the buttons, never this.
    InstallaAccessibilitaAnello();
    Motore.AggiornaCorone = [this] {
        AggiornaCorone();
        AnnunciaAnello();
    };
    Motore.Click = [this](int16_t indice) { ClickTasto(indice); };
    installEventFilter(this);
    FocusFix->installEventFilter(this);
}

FormScansione::~FormScansione() {
    AnnullaTastoInAttesa();
    FormAperti().removeAll(this);
    if (UltimoDetto().Form == this) UltimoDetto() = Detto{};
}

FormScansione* FormScansione::InPrimoPiano() {
    const auto& forms = FormAperti();
    for (auto it = forms.crbegin(); it != forms.crend(); ++it)
        if ((*it)->isVisible()) return *it;
    return nullptr;
}

QMap<int16_t, TastoZanto*>& FormScansione::TastiDi(int insieme) {
    return insieme == 0 ? Tasti : tastiAltri_[insieme];
}

QMap<int16_t, QLabel*>& FormScansione::CoroneDi(int insieme) {
    return insieme == 0 ? Corone : coroneAltre_[insieme];
}

void FormScansione::AttivaInsieme(int insieme) {
    if (insieme == Motore.InsiemeAttivo()) return;
    for (QLabel* corona : std::as_const(CoroneAttive()))
        corona->hide();
    for (TastoZanto* tasto : std::as_const(TastiAttivi()))
        tasto->Predefinito = false;
    Motore.AttivaInsieme(insieme);
    AggiornaCorone();
    AnnunciaAnello();
}

void FormScansione::CreaTasti(const QList<DefinizioneTasto>& tabella, int margine, int insieme) {
    for (const DefinizioneTasto& d : tabella) {
        // The ring is made first so that it lies behind its button.
        auto* corona = new QLabel(this);
        // A wider ring for users who see little: the same ring, standing further out.
        const int m = margine * std::clamp<int>(LarghezzaAnello, 1, 3);
        // Grown from the button's own pixels, so that on any scale the ring is as
        // wide on every side.
        const int bordo = Px(m);
        QRect posto = RettangoloTwips(d.Sinistra, d.Alto, d.Larghezza, d.Altezza)
                          .adjusted(-bordo, -bordo, bordo, bordo);
        // A wide ring near an edge stops at the form's edge, its frame whole.
        if (m != margine && testAttribute(Qt::WA_Resized)) posto &= rect();
        corona->setGeometry(posto);
        // The outer band of the high-contrast ring: half of what shows round the
        // button, so that it grows with the ring's width and the scale.
        corona->setLineWidth(std::max(1, (bordo + 1) / 2));
        corona->setAutoFillBackground(true);
        corona->hide();
        CoroneDi(insieme).insert(d.Indice, corona);
        auto* tasto = new TastoZanto(d.Indice, this);
        tasto->setGeometry(RettangoloTwips(d.Sinistra, d.Alto, d.Larghezza, d.Altezza));
        tasto->ImpostaTesto(d.Didascalia, d.Suggerimento);
        tasto->installEventFilter(this);
        const int16_t indice = d.Indice;
        connect(tasto, &QPushButton::clicked, this, [this, indice, insieme] {
            if (TastiDelLavoro) return;
            // A click is a choice: the ring stops as it does for the choice key.
            Protetto([this, indice, insieme] {
                Motore.FermaScansione();
                AttivaInsieme(insieme);
                ClickTasto(indice);
            });
            AnnunciaAnello();
        });
        TastiDi(insieme).insert(d.Indice, tasto);
        Colora(corona, ColoriCorona::Verde);
    }
}

void FormScansione::ImpostaColoreCorona(int16_t indice, uint32_t rgb) {
    QLabel* corona = CoroneAttive().value(indice);
    if (corona == nullptr) return;
    // A button marked under the ring shows both: magenta, not the mark's blue.
    if (rgb == ColoriCorona::Blu && indice == Motore.TastoCorrente) rgb = ColoriCorona::Magenta;
    Colora(corona, rgb);
    // Where wide rings overlap, the ring lies above its neighbours': another
    // colour never covers a part of it.
    if (indice != Motore.TastoCorrente) return;
    for (QLabel* altra : std::as_const(CoroneAttive()))
        if (altra != corona && altra->geometry().intersects(corona->geometry()))
            altra->stackUnder(corona);
}

void FormScansione::CopriAnello() {
    QLabel* corona = CoroneAttive().value(Motore.TastoCorrente);
    if (corona == nullptr || corona->isHidden() || anelloCoperto_) return;
    anelloCoperto_ = true;
    // Only the ring of the screen in front shows where a choice falls; a
    // marked button here keeps its mark.
    if (Motore.TastoCorrente == TastoMarcato)
        Colora(corona, ColoriCorona::Blu);
    else
        corona->hide();
}

void FormScansione::ScopriAnello() {
    if (!anelloCoperto_) return;
    anelloCoperto_ = false;
    QLabel* corona = CoroneAttive().value(Motore.TastoCorrente);
    if (corona == nullptr) return;
    if (Motore.TastoCorrente == TastoMarcato) Colora(corona, ColoriCorona::Magenta);
    corona->show();
    // The words that named the panel's buttons name this screen's again.
    if (InformaAmbiente && AvvisoComandoAmbiente)
        if (TastoZanto* tasto = TastiAttivi().value(Motore.TastoCorrente))
            AvvisoComandoAmbiente(tasto->toolTip());
}

void FormScansione::ImpostaPredefinito(int16_t indice) {
    for (TastoZanto* tasto : std::as_const(TastiAttivi()))
        tasto->Predefinito = tasto->Indice() == indice;
}

void FormScansione::AggiornaCorone() {
    const int16_t corrente = Motore.TastoCorrente;
    const QMap<int16_t, TastoZanto*>& tasti = TastiAttivi();
    const QMap<int16_t, QLabel*>& corone = CoroneAttive();
    for (auto it = tasti.cbegin(); it != tasti.cend(); ++it) {
        if (it.key() == TastoMarcato) continue;
        corone.value(it.key())->hide();
        it.value()->Predefinito = false;
    }
    ImpostaColoreCorona(corrente, ColoriCorona::Verde);
    if (TastoMarcato != 0)
        ImpostaColoreCorona(TastoMarcato,
                            corrente == TastoMarcato ? ColoriCorona::Magenta : ColoriCorona::Blu);
    if (QLabel* corona = corone.value(corrente)) corona->show();
    const int16_t modo = ModalitàFunzionamento;
    if (modo == 4 || (modo == 3 && PredefinitoInModo3())) {
        ImpostaPredefinito(corrente);
    }
    if (InformaAmbiente && AvvisoComandoAmbiente)
        if (TastoZanto* tasto = tasti.value(corrente)) AvvisoComandoAmbiente(tasto->toolTip());
}

QString FormScansione::NomeParlato(int16_t indice) const {
    const TastoZanto* tasto = Tasti.value(indice);
    if (Motore.InsiemeAttivo() != 0)
        tasto = const_cast<FormScansione*>(this)->TastiAttivi().value(indice);
    if (tasto == nullptr) return {};
    QString nome = tasto->text().trimmed();
    if (nome.isEmpty()) nome = tasto->toolTip().trimmed();
    if (nome.isEmpty()) nome = tasto->accessibleName().trimmed();
    return nome.simplified();
}

bool FormScansione::EAnello(const QObject* oggetto) const {
    for (const QLabel* corona : Corone)
        if (corona == oggetto) return true;
    for (const auto& corone : coroneAltre_)
        for (const QLabel* corona : corone)
            if (corona == oggetto) return true;
    return false;
}

void FormScansione::AnnunciaAnello() {
    if (!isVisible() || InPrimoPiano() != this) return;
    const QString nome = NomeParlato(Motore.TastoCorrente);
    Detto& detto = UltimoDetto();
    if (detto.Form == this && detto.Insieme == Motore.InsiemeAttivo() &&
        detto.Indice == Motore.TastoCorrente && detto.Nome == nome)
        return;
    detto = {this, Motore.InsiemeAttivo(), Motore.TastoCorrente, nome};
    SegnalaAnello(TastiAttivi().value(Motore.TastoCorrente));
    if (ScansioneParlata != 1) return;
    // An item without a name cuts the last one short all the same: the voice
    // never tells of a place the ring has left.
    if (nome.isEmpty())
        Zittisci();
    else
        Pronuncia(nome);
}

void FormScansione::RoutineTastoGiu(int codice, int modificatori) {
    Motore.RoutineTasti(codice, modificatori);
}

int FormScansione::CodiceDi(const QKeyEvent* evento) const {
    return CodiceTasto(evento);
}

void FormScansione::RoutineCarattere(int tastoQt, const QString& testo) {
    Q_UNUSED(tastoQt);
    Q_UNUSED(testo);
}

void FormScansione::PrimaAttivazione() {
    FocusFix->setFocus(Qt::OtherFocusReason);
    if (ModalitàFunzionamento == 1 || ModalitàFunzionamento == 2) Motore.AvviaScansione();
}

void FormScansione::UsaComeFocus(QWidget* controllo) {
    delete FocusFix; // a child made here, before any event could reach it
    FocusFix = controllo;
    FocusFix->setFocusPolicy(Qt::StrongFocus);
    FocusFix->installEventFilter(this);
}

void FormScansione::Attiva() {
    if (Motore.FormAttivato == 1 || !isVisible()) return;
    Motore.FormAttivato = 1;
    PrimaAttivazione();
    AnnunciaAnello();
}

void FormScansione::PosizionaSopra(int sinistraTwips, int altoTwips) {
    QPoint punto(Px(sinistraTwips), Px(altoTwips));
    for (FormScansione* sotto : std::as_const(FormAperti())) {
        if (sotto == this || !sotto->isVisible()) continue;
        punto = sotto->mapToGlobal(punto);
        break;
    }
    move(punto);
}

QPoint FormScansione::PostoInTwips() const {
    QPoint origine(0, 0);
    for (FormScansione* sotto : std::as_const(FormAperti())) {
        if (!sotto->isVisible()) continue;
        origine = sotto->mapToGlobal(QPoint(0, 0));
        break;
    }
    const QPoint px = frameGeometry().topLeft() - origine;
    return {Twips(px.x()), Twips(px.y())};
}

void FormScansione::Protetto(const std::function<void()>& corpo) {
    if (!EseguiProtetto(corpo)) DopoErrore();
}

void FormScansione::DopoErrore() {
    if (!isVisible()) return;
    if (ModalitàFunzionamento == 1 || ModalitàFunzionamento == 2) {
        Motore.AvviaScansione();
    } else {
        Motore.FermaScansione();
        AggiornaCorone();
    }
}

bool FormScansione::TastoRipetuto(int codice) const {
    Q_UNUSED(codice);
    return false;
}

bool FormScansione::GestisciTasto(QKeyEvent* e) {
    if (TastiDelLavoro) {
        TastiDelLavoro(e);
        return true;
    }
    const int codice = CodiceDi(e);
    // A held switch must not fire again and again; only a screen that walks
    // something with a held arrow takes the repeats, once the press counts.
    if (e->isAutoRepeat()) {
        if (inAttesa_ || !TastoRipetuto(codice)) return true;
        EseguiTasto(codice, MaschereModificatori(e), e->key(), e->text());
        return true;
    }
    if (DaInterruttore(codice)) {
        const int64_t adesso = OrologioCorrente().Adesso();
        if (TempoIgnoraDopoScelta > 0 && adesso - IstanteUltimaScelta < TempoIgnoraDopoScelta)
            return true;
        if (TempoAccettazione > 0) {
            // Counted only once held long enough; a new press starts again.
            AnnullaTastoInAttesa();
            inAttesa_ = TastoInAttesa{codice, MaschereModificatori(e), e->key(), e->text(), 0};
            inAttesa_->Sveglia =
                OrologioCorrente().Programma(TempoAccettazione, [this] { Accetta(); });
            Motore.Trattieni();
            return true;
        }
    }
    EseguiTasto(codice, MaschereModificatori(e), e->key(), e->text());
    return true;
}

bool FormScansione::RilascioTasto(QKeyEvent* e) {
    // Let go too soon: the press never happened, and the ring walks on.
    if (!e->isAutoRepeat() && inAttesa_ && inAttesa_->TastoQt == e->key()) {
        AnnullaTastoInAttesa();
        Motore.Lascia();
    }
    return true;
}

void FormScansione::Accetta() {
    if (!inAttesa_) return;
    const TastoInAttesa tasto = *inAttesa_;
    inAttesa_.reset();
    Motore.Lascia();
    EseguiTasto(tasto.Codice, tasto.Modificatori, tasto.TastoQt, tasto.Testo);
}

void FormScansione::AnnullaTastoInAttesa() {
    if (!inAttesa_) return;
    OrologioCorrente().Annulla(inAttesa_->Sveglia);
    inAttesa_.reset();
}

void FormScansione::EseguiTasto(int codice, int modificatori, int tastoQt, const QString& testo) {
    if (TastiDelLavoro) return; // a held press accepted while a job runs
    const int16_t modo = ModalitàFunzionamento;
    // A resting ring is only woken: nobody was watching where it stood.
    if (Motore.InRiposo() && (modo == 1 || modo == 2) &&
        (MotoreScansione::TastoDiScelta(codice) || MotoreScansione::TastoDiScansione(codice))) {
        UltimoDetto() = Detto{}; // woken, it says again where it stands
        Protetto([this] { Motore.AvviaScansione(); });
        return;
    }
    const bool scelta =
        modo == 4 ? codice == CodiciTasto::Invio : MotoreScansione::TastoDiScelta(codice);
    if (scelta) IstanteUltimaScelta = OrologioCorrente().Adesso();
    Protetto([this, codice, modificatori, tastoQt, testo] {
        const QScopedValueRollback<bool> daTasto(SceltaDaTasto, true);
        if (codice == CodiciTasto::Invio) {
            for (TastoZanto* tasto : std::as_const(TastiAttivi())) {
                if (tasto->Predefinito && tasto->isVisible() && tasto->isEnabled()) {
                    ClickTasto(tasto->Indice());
                    return;
                }
            }
        }
        if (codice != 0) RoutineTastoGiu(codice, modificatori);
        // A key whose key-down closed the form types nothing.
        if (isVisible()) RoutineCarattere(tastoQt, testo);
    });
    AnnunciaAnello();
}

bool FormScansione::eventFilter(QObject* oggetto, QEvent* evento) {
    switch (evento->type()) {
    case QEvent::KeyPress:
        return GestisciTasto(static_cast<QKeyEvent*>(evento));
    case QEvent::KeyRelease:
        return RilascioTasto(static_cast<QKeyEvent*>(evento));
    case QEvent::ShortcutOverride:
        return true;
    case QEvent::ChildAdded:
        // A control made after the form was shown must not take a key either.
        Filtra(static_cast<QChildEvent*>(evento)->child());
        return QDialog::eventFilter(oggetto, evento);
    default:
        return QDialog::eventFilter(oggetto, evento);
    }
}

void FormScansione::Filtra(QObject* radice) {
    if (radice == nullptr || !radice->isWidgetType()) return;
    radice->installEventFilter(this);
    for (QObject* figlio : radice->children())
        Filtra(figlio);
}

void FormScansione::showEvent(QShowEvent* evento) {
    QDialog::showEvent(evento);
    Filtra(this);
    // Shown again, this screen is in front: nothing of it stays covered.
    anelloCoperto_ = false;
    // The screens below hold their rings while this one stands above them.
    for (FormScansione* sotto : std::as_const(FormAperti())) {
        if (sotto == this) continue;
        sotto->Motore.Sospendi();
        sotto->CopriAnello();
    }
    FormAperti().removeAll(this);
    FormAperti().append(this);
    Motore.RiprendiDopoPannello();
    activateWindow();
    // Offscreen and without a window manager no activation may ever come; and a
    // ring that starts later than its form shows would lose part of a dwell.
    Attiva();
}

void FormScansione::hideEvent(QHideEvent* evento) {
    AnnullaTastoInAttesa();
    Motore.Lascia();
    FormAperti().removeAll(this);
    if (FormScansione* sotto = InPrimoPiano()) {
        sotto->ScopriAnello();
        sotto->Motore.RiprendiDopoPannello();
    }
    QDialog::hideEvent(evento);
}

void FormScansione::changeEvent(QEvent* evento) {
    QDialog::changeEvent(evento);
    if (evento->type() == QEvent::ActivationChange && isActiveWindow()) Attiva();
}

void FormScansione::mousePressEvent(QMouseEvent* evento) {
    // The background, a label, a picture: nothing to do there.
    evento->accept();
    Bip();
}

void FormScansione::keyPressEvent(QKeyEvent* evento) {
    evento->accept();
}

void FormScansione::closeEvent(QCloseEvent* evento) {
    evento->ignore();
}

void FormScansione::reject() {}
