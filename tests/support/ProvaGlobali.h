#pragma once

#include "support/AmbienteProva.h"

#include <QObject>

// The base of a test class whose every case starts, and leaves, the program's
// state as it is at start. A class that must do more declares its own.
class ProvaGlobali : public QObject {
    Q_OBJECT

private slots:
    void init() { RipristinaGlobali(); }
    void cleanup() { RipristinaGlobali(); }
};
