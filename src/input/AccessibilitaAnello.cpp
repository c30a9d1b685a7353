#include "input/AccessibilitaAnello.h"

#include "input/FormScansione.h"
#include "input/TastoZanto.h"

#include <QAccessible>
#include <QAccessibleWidget>

namespace {

FormScansione* FormDi(const QWidget* w) {
    return w == nullptr ? nullptr : dynamic_cast<FormScansione*>(w->parentWidget());
}

// A button of a scanning screen: focused where the ring stands, since the real
// focus never leaves the widget that takes the keys.
class AccessibileTasto : public QAccessibleWidget {
public:
    explicit AccessibileTasto(TastoZanto* tasto) : QAccessibleWidget(tasto, QAccessible::Button) {}

    TastoZanto* Tasto() const { return static_cast<TastoZanto*>(widget()); }

    QString text(QAccessible::Text t) const override {
        if (t == QAccessible::Description) return Tasto()->toolTip();
        if (t != QAccessible::Name) return QAccessibleWidget::text(t);
        if (!Tasto()->accessibleName().isEmpty()) return Tasto()->accessibleName();
        QString nome = Tasto()->text();
        nome.remove(u'&');
        return nome.isEmpty() ? Tasto()->toolTip() : nome;
    }

    QAccessible::State state() const override {
        QAccessible::State s = QAccessibleWidget::state();
        s.focusable = true;
        const FormScansione* form = FormDi(Tasto());
        s.focused =
            form != nullptr && FormScansione::InPrimoPiano() == form &&
            form->Motore.TastoCorrente == Tasto()->Indice() &&
            const_cast<FormScansione*>(form)->TastiAttivi().value(Tasto()->Indice()) == Tasto();
        return s;
    }

    QStringList actionNames() const override { return {QAccessibleActionInterface::pressAction()}; }
    void doAction(const QString& azione) override {
        if (azione == QAccessibleActionInterface::pressAction()) Tasto()->click();
    }
};

// A scanning screen without its rings and without the widget that holds the keys.
class AccessibileForm : public QAccessibleWidget {
public:
    explicit AccessibileForm(FormScansione* form) : QAccessibleWidget(form, QAccessible::Dialog) {}

    int childCount() const override { return int(Figli().size()); }
    QAccessibleInterface* child(int indice) const override { return Figli().value(indice); }
    int indexOfChild(const QAccessibleInterface* figlio) const override {
        return int(Figli().indexOf(const_cast<QAccessibleInterface*>(figlio)));
    }

private:
    QList<QAccessibleInterface*> Figli() const {
        const auto* form = static_cast<const FormScansione*>(widget());
        QList<QAccessibleInterface*> figli;
        const int tutti = QAccessibleWidget::childCount();
        for (int i = 0; i < tutti; ++i) {
            QAccessibleInterface* figlio = QAccessibleWidget::child(i);
            if (figlio == nullptr) continue;
            const QObject* o = figlio->object();
            if (o == form->FocusFix && o->objectName() == QLatin1String("FocusFix")) continue;
            if (form->EAnello(o)) continue;
            figli << figlio;
        }
        return figli;
    }
};

QAccessibleInterface* Fabbrica(const QString& classe, QObject* oggetto) {
    Q_UNUSED(classe);
    if (auto* tasto = dynamic_cast<TastoZanto*>(oggetto)) return new AccessibileTasto(tasto);
    if (auto* form = dynamic_cast<FormScansione*>(oggetto)) return new AccessibileForm(form);
    return nullptr;
}

} // namespace

void InstallaAccessibilitaAnello() {
    static const bool fatto = [] {
        QAccessible::installFactory(Fabbrica);
        return true;
    }();
    Q_UNUSED(fatto);
}

void SegnalaAnello(TastoZanto* tasto) {
    if (tasto == nullptr || !QAccessible::isActive()) return;
    QAccessibleEvent evento(tasto, QAccessible::Focus);
    QAccessible::updateAccessibility(&evento);
}
