#pragma once

// The messages that reach the user on their own, after a while, as the print
// service answers: each one is kept and answered "OK" by the key of the mode,
// as a switch user would, once it is in front.
#include "input/QuadroMessaggi.h"
#include "support/Copione.h"

#include <QApplication>
#include <QEvent>
#include <QStringList>
#include <QTimer>

class RispostaMessaggi : public QObject {
public:
    RispostaMessaggi() { qApp->installEventFilter(this); }
    ~RispostaMessaggi() override { qApp->removeEventFilter(this); }
    RispostaMessaggi(const RispostaMessaggi&) = delete;
    RispostaMessaggi& operator=(const RispostaMessaggi&) = delete;

    QStringList Testi; // each message's text, lines joined by a blank

protected:
    bool eventFilter(QObject* oggetto, QEvent* evento) override {
        // Only the messages with "OK" alone: the questions belong to the script.
        if (evento->type() == QEvent::Show && dynamic_cast<QuadroMessaggi*>(oggetto) != nullptr &&
            TipoQuadroMessaggi == 1) {
            Testi << QString(TestoQuadroMessaggi).replace(u'\r', u' ');
            QTimer::singleShot(0, this, [] { PremiTasto(Qt::Key_Return); });
        }
        return false;
    }
};
