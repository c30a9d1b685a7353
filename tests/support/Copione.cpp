#include "support/Copione.h"

#include "input/FormScansione.h"

#include <QCoreApplication>
#include <QEventLoop>
#include <QKeyEvent>
#include <QPointer>

bool PremiTasto(int tastoQt, Qt::KeyboardModifiers modificatori) {
    FormScansione* form = FormScansione::InPrimoPiano();
    if (form == nullptr) return false;
    QWidget* bersaglio = form->focusWidget() != nullptr ? form->focusWidget() : form->FocusFix;
    QKeyEvent giu(QEvent::KeyPress, tastoQt, modificatori);
    QCoreApplication::sendEvent(bersaglio, &giu);
    QKeyEvent su(QEvent::KeyRelease, tastoQt, modificatori);
    // The press may have closed the form; the release then goes nowhere.
    if (FormScansione::InPrimoPiano() == form) QCoreApplication::sendEvent(bersaglio, &su);
    return true;
}

bool TieniTasto(OrologioVirtuale& orologio, int tastoQt, int64_t ms) {
    FormScansione* form = FormScansione::InPrimoPiano();
    if (form == nullptr) return false;
    QPointer<QWidget> bersaglio =
        form->focusWidget() != nullptr ? form->focusWidget() : form->FocusFix;
    QKeyEvent giu(QEvent::KeyPress, tastoQt, Qt::NoModifier);
    QCoreApplication::sendEvent(bersaglio, &giu);
    orologio.Avanza(ms);
    QKeyEvent su(QEvent::KeyRelease, tastoQt, Qt::NoModifier);
    if (bersaglio != nullptr) QCoreApplication::sendEvent(bersaglio, &su);
    return true;
}

Copione& Copione::Tieni(int tastoQt, int64_t ms) {
    passi_.append([this, tastoQt, ms] {
        if (!TieniTasto(orologio_, tastoQt, ms))
            Problemi.append(
                QStringLiteral("nessun form in primo piano per il tasto %1").arg(tastoQt));
    });
    return *this;
}

Copione& Copione::Tasto(int tastoQt, Qt::KeyboardModifiers modificatori) {
    passi_.append([this, tastoQt, modificatori] {
        if (!PremiTasto(tastoQt, modificatori))
            Problemi.append(
                QStringLiteral("nessun form in primo piano per il tasto %1").arg(tastoQt));
    });
    return *this;
}

Copione& Copione::Attendi(int64_t ms) {
    passi_.append([this, ms] { orologio_.Avanza(ms); });
    return *this;
}

Copione& Copione::Esegui(std::function<void()> azione) {
    passi_.append(std::move(azione));
    return *this;
}

void Copione::Avvia() {
    indice_ = 0;
    finito_ = false;
    std::weak_ptr<int> vivo = vita_;
    QMetaObject::invokeMethod(
        QCoreApplication::instance(),
        [this, vivo] {
            if (!vivo.expired()) Prossimo();
        },
        Qt::QueuedConnection);
}

void Copione::Prossimo() {
    if (indice_ >= passi_.size()) {
        finito_ = true;
        if (allaFine_) allaFine_();
        return;
    }
    std::function<void()> passo = passi_[indice_++];
    // The step first, then the next one: if the step opens a modal panel, the
    // panel's own loop runs the rest of the script.
    std::weak_ptr<int> vivo = vita_;
    QMetaObject::invokeMethod(
        QCoreApplication::instance(),
        [passo, vivo] {
            if (!vivo.expired()) passo();
        },
        Qt::QueuedConnection);
    QMetaObject::invokeMethod(
        QCoreApplication::instance(),
        [this, vivo] {
            if (!vivo.expired()) Prossimo();
        },
        Qt::QueuedConnection);
}

void Copione::EseguiFinoAllaFine() {
    QEventLoop ciclo;
    allaFine_ = [&ciclo] { ciclo.quit(); };
    Avvia();
    if (!finito_) ciclo.exec();
    allaFine_ = nullptr;
}
