#include "start/Bip.h"

#include "input/Orologio.h"
#include "input/Voce.h"
#include "start/Configurazione.h"

#include <QApplication>
#include <QCursor>

void Bip() {
    ++ContatoreBip;
    // A refusal is heard, never covered by a name being spoken.
    if (ScansioneParlata == 1) {
        IstanteUltimoBip = OrologioCorrente().Adesso();
        Zittisci();
    }
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
