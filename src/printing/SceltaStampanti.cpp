#include "printing/SceltaStampanti.h"

#include "archive/RigaConfigurazione.h"
#include "base/Bip.h"
#include "base/GestioneErrori.h"
#include "base/IconaSvg.h"
#include "base/Misure.h"
#include "base/ScrittaModulo.h"
#include "base/Sessione.h"
#include "printing/Stampe.h"

#include <QCoreApplication>
#include <QEvent>
#include <QFrame>
#include <QKeyEvent>
#include <QLabel>
#include <QListWidget>
#include <QPointer>
#include <QPushButton>

SceltaStampanti::SceltaStampanti() {
    setObjectName(QStringLiteral("SceltaStampanti"));
    setWindowTitle(QStringLiteral("Programma «ZANTO» - SCELTA STAMPANTE"));
    setFixedSize(Px(7200), Px(5700));
    setModal(true);

    ScrittaModulo(this, QStringLiteral("ELENCO STAMPANTI"), QRect(240, 120, 6720, 400), 12, true)
        ->setAlignment(Qt::AlignCenter);
    ListaStampanti = new QListWidget(this);
    ListaStampanti->setObjectName(QStringLiteral("ListaStampanti"));
    ListaStampanti->setGeometry(RettangoloTwips(240, 560, 6720, 2100));
    ListaStampanti->setFont(Carattere(QStringLiteral("Arial"), 11));
    ListaStampanti->installEventFilter(this);
    // The highlighted name goes to the label, which the confirm reads.
    connect(ListaStampanti, &QListWidget::currentTextChanged, this, [this](const QString& nome) {
        if (!attivando_) ScrittaStampanteAttiva->setText(nome);
    });
    connect(ListaStampanti, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* riga) { ScrittaStampanteAttiva->setText(riga->text()); });
    connect(ListaStampanti, &QListWidget::itemDoubleClicked, this,
            [this] { EseguiProtetto([this] { Conferma(); }); });

    ScrittaModulo(this, QStringLiteral("Stampante attiva:"), QRect(240, 2800, 2100, 400), 10, true);
    ScrittaStampanteAttiva = ScrittaModulo(this, {}, QRect(2400, 2760, 4560, 480), 10, false);
    ScrittaStampanteAttiva->setObjectName(QStringLiteral("ScrittaStampanteAttiva"));
    ScrittaStampanteAttiva->setFrameStyle(QFrame::Panel | QFrame::Sunken);
    ScrittaStampanteAttiva->setTextFormat(Qt::PlainText);

    ScrittaModulo(this, QStringLiteral("NOTA:"), QRect(240, 3400, 900, 400), 9, true);
    auto* nota =
        ScrittaModulo(this,
                      QStringLiteral("Evidenziare il nome di una Stampante e premere Invio per "
                                     "renderla attiva."),
                      QRect(1140, 3400, 5820, 700), 9, false);
    nota->setWordWrap(true);

    const char* const didascalie[3] = {"", "Scegli", "Annulla"};
    const char* const suggerimenti[3] = {"Conferma la stampante attiva", "Scegli", "Annulla"};
    for (int i = 0; i < 3; ++i) {
        const QRect posto = RettangoloTwips(300 + i * 2340, 4380, 1920, 900);
        CoronaTastoSelectAzione[i] = new QFrame(this);
        CoronaTastoSelectAzione[i]->setGeometry(posto.adjusted(-Px(60), -Px(60), Px(60), Px(60)));
        CoronaTastoSelectAzione[i]->setStyleSheet(
            QStringLiteral("background-color: red; border: none;"));
        CoronaTastoSelectAzione[i]->hide();
        auto* b = new QPushButton(QString::fromUtf8(didascalie[i]), this);
        b->setObjectName(QStringLiteral("TastoSceltaStampante%1").arg(101 + i));
        b->setGeometry(posto);
        b->setToolTip(QString::fromUtf8(suggerimenti[i]));
        b->setFocusPolicy(Qt::NoFocus);
        b->setAutoDefault(false);
        b->setFont(Carattere(QStringLiteral("Arial"), 11, true));
        b->installEventFilter(this);
        TastoSceltaStampante[i] = b;
    }
    ImpostaIcona(TastoSceltaStampante[0], QStringLiteral(":/icone/lista/conferma.svg"));
    connect(TastoSceltaStampante[0], &QPushButton::clicked, this,
            [this] { EseguiProtetto([this] { Conferma(); }); });
    // "Scegli" has no action of its own.
    connect(TastoSceltaStampante[2], &QPushButton::clicked, this,
            [this] { EseguiProtetto([this] { Annulla(); }); });
}

void SceltaStampanti::AttivaSceltaStampanti() {
    attivando_ = true;
    // The printer a page goes to now, until a choice is made.
    ScrittaStampanteAttiva->setText(StampanteScelta.isEmpty() ? StampanteInUso() : StampanteScelta);
    RiempiLista();
    // The line current from the start is that printer's, where the list has it.
    const auto attiva = ListaStampanti->findItems(ScrittaStampanteAttiva->text(), Qt::MatchExactly);
    if (!attiva.isEmpty()) ListaStampanti->setCurrentItem(attiva.first());
    attivando_ = false;
    ListaStampanti->setFocus(Qt::OtherFocusReason);
    // The list shows what the print service said last; its new answer,
    // gathered off the screen's thread, replaces it while the form is open.
    QPointer<SceltaStampanti> modulo(this);
    AggiornaStampanti([modulo](bool) {
        if (modulo == nullptr) return;
        const QString evidenziata = modulo->ListaStampanti->currentItem() != nullptr
                                        ? modulo->ListaStampanti->currentItem()->text()
                                        : QString();
        modulo->attivando_ = true;
        modulo->RiempiLista();
        const auto righe = modulo->ListaStampanti->findItems(evidenziata, Qt::MatchExactly);
        if (!righe.isEmpty()) modulo->ListaStampanti->setCurrentItem(righe.first());
        if (modulo->ScrittaStampanteAttiva->text().isEmpty() && StampanteScelta.isEmpty())
            modulo->ScrittaStampanteAttiva->setText(StampanteInUso());
        modulo->attivando_ = false;
    });
}

void SceltaStampanti::RiempiLista() {
    ListaStampanti->clear();
    ListaStampanti->addItems(StampantiDiSistema());
    if (ListaStampanti->count() > 0) ListaStampanti->setCurrentRow(0);
}

void SceltaStampanti::SelezionaPrima() {
    if (ListaStampanti->count() > 0) ListaStampanti->setCurrentRow(0);
    ListaStampanti->setFocus(Qt::OtherFocusReason);
}

void SceltaStampanti::Conferma() {
    const QString nome = ScrittaStampanteAttiva->text().trimmed();
    if (nome.isEmpty()) {
        Bip();
        ListaStampanti->setFocus(Qt::OtherFocusReason);
        return;
    }
    // Stored even when the system has no such printer now: it may come back.
    StampanteScelta = nome;
    ImpostaStampanteProgramma(nome);
    EseguiPassi({{5010, [] { RegistraStampanteScelta(); }}});
    accept();
}

void SceltaStampanti::Annulla() {
    Annullata = true;
    reject();
}

bool SceltaStampanti::eventFilter(QObject* oggetto, QEvent* evento) {
    for (int i = 0; i < 3; ++i) {
        if (oggetto != TastoSceltaStampante[i]) continue;
        if (evento->type() == QEvent::Enter) CoronaTastoSelectAzione[i]->show();
        if (evento->type() == QEvent::Leave) CoronaTastoSelectAzione[i]->hide();
    }
    if (oggetto == ListaStampanti && evento->type() == QEvent::KeyPress) {
        const int tasto = static_cast<QKeyEvent*>(evento)->key();
        if (tasto == Qt::Key_Return || tasto == Qt::Key_Enter) {
            // The label follows the highlight once it moves: Enter on a list
            // just opened keeps the active printer, not the first line.
            EseguiProtetto([this] { Conferma(); });
            return true;
        }
        if (tasto == Qt::Key_Escape) {
            EseguiProtetto([this] { Annulla(); });
            return true;
        }
    }
    return QDialog::eventFilter(oggetto, evento);
}

void SceltaStampanti::keyPressEvent(QKeyEvent* evento) {
    // The keys of the list work wherever the focus stands on the form (a window
    // manager, or none, may have left it off the list). A key the list leaves
    // comes back up here: it is not sent again.
    static bool inoltrando = false;
    if (inoltrando) {
        evento->accept();
        return;
    }
    switch (evento->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Escape:
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_Home:
    case Qt::Key_End:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        ListaStampanti->setFocus(Qt::OtherFocusReason);
        inoltrando = true;
        QCoreApplication::sendEvent(ListaStampanti, evento);
        inoltrando = false;
        evento->accept();
        return;
    default:
        QDialog::keyPressEvent(evento);
    }
}

bool ApriSceltaStampanti(QWidget* sopra) {
    bool confermata = false;
    EseguiProtetto([&] {
        SceltaStampanti modulo;
        modulo.AttivaSceltaStampanti();
        if (sopra != nullptr)
            modulo.move(sopra->mapToGlobal(sopra->rect().center()) - modulo.rect().center());
        confermata = modulo.exec() == QDialog::Accepted;
    });
    return confermata;
}
