#include "base/Bip.h"

#include "base/Configurazione.h"
#include "base/Orologio.h"

#include <QApplication>
#include <QCursor>

void Bip() {
    ++ContatoreBip;
    // A refusal is heard, never covered by a name being spoken.
    if (ScansioneParlata == 1) {
        IstanteUltimoBip = OrologioCorrente().Adesso();
        if (ZittisciAlBip != nullptr) ZittisciAlBip();
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
