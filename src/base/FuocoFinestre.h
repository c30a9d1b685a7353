#pragma once

#include <QList>
#include <QObject>
#include <QPointer>

class QWidget;

// Keeps the keyboard on the program's front window. Without a window manager
// nobody gives the focus back when a window goes: it falls to the desktop and
// the switch does nothing until someone clicks. So when one of the program's
// windows is hidden, the front one is activated again: the open modal panel,
// or else the window shown last that is still on the screen.
class FuocoFinestre : public QObject {
public:
    explicit FuocoFinestre(QObject* genitore = nullptr);

    // The window that should have the keys now, or nullptr.
    QWidget* Davanti() const;

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override;

private:
    void Riattiva();

    QList<QPointer<QWidget>> finestre_; // in the order they were shown
    bool inCoda_ = false;
};

// Watches every window of the application from now on.
void InstallaFuocoFinestre();
