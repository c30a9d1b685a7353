#include "base/FuocoFinestre.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>
#include <QWindow>

namespace {
// Windows that take the keys: forms and panels, never tooltips or menus.
bool FinestraDelProgramma(const QObject* oggetto) {
    if (oggetto == nullptr || !oggetto->isWidgetType()) return false;
    const auto* w = static_cast<const QWidget*>(oggetto);
    if (!w->isWindow()) return false;
    const Qt::WindowType tipo = w->windowType();
    return tipo == Qt::Window || tipo == Qt::Dialog;
}
} // namespace

FuocoFinestre::FuocoFinestre(QObject* genitore) : QObject(genitore) {}

QWidget* FuocoFinestre::Davanti() const {
    if (QWidget* modale = QApplication::activeModalWidget()) return modale;
    for (auto it = finestre_.crbegin(); it != finestre_.crend(); ++it)
        if (*it != nullptr && (*it)->isVisible()) return *it;
    return nullptr;
}

bool FuocoFinestre::eventFilter(QObject* oggetto, QEvent* evento) {
    const QEvent::Type tipo = evento->type();
    if ((tipo != QEvent::Show && tipo != QEvent::Hide) || !FinestraDelProgramma(oggetto))
        return false;
    auto* finestra = static_cast<QWidget*>(oggetto);
    finestre_.removeAll(finestra);
    finestre_.removeAll(nullptr);
    if (tipo == QEvent::Show) {
        finestre_.append(finestra);
        return false;
    }
    // Once the hide is through, and once for many windows going together.
    if (!inCoda_) {
        inCoda_ = true;
        QMetaObject::invokeMethod(
            this, [this] { Riattiva(); }, Qt::QueuedConnection);
    }
    return false;
}

void FuocoFinestre::Riattiva() {
    inCoda_ = false;
    QWidget* davanti = Davanti();
    if (davanti == nullptr) return;
    const QWindow* fuoco = QGuiApplication::focusWindow();
    if (fuoco != nullptr && fuoco->isVisible() && fuoco == davanti->windowHandle()) return;
    davanti->activateWindow();
}

void InstallaFuocoFinestre() {
    static FuocoFinestre* fuoco = nullptr;
    if (fuoco != nullptr || qApp == nullptr) return;
    fuoco = new FuocoFinestre(qApp);
    qApp->installEventFilter(fuoco);
}
