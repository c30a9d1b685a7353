#include "start/Bip.h"

#include <QApplication>
#include <QCursor>

void Bip() {
    ++ContatoreBip;
    QApplication::beep();
}

void ParcheggiaMouse() {
    QCursor::setPos(10000, 10000);
}

void PuntatoreClessidra() {
    QApplication::setOverrideCursor(Qt::WaitCursor);
}

void PuntatorePredefinito() {
    while (QApplication::overrideCursor() != nullptr)
        QApplication::restoreOverrideCursor();
}
