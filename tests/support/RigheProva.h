#pragma once

#include "base/Configurazione.h"

#include <QtTest>

#include <initializer_list>

// Rows of a test run once in each of the modes given, in a column "modo".
inline void RigheModo(std::initializer_list<int> modi, const char* colonna = "modo") {
    QTest::addColumn<int>(colonna);
    for (const int m : modi)
        QTest::addRow("modo %d", m) << m;
}

// A test run twice: with Enter and with the space bar as the choice key.
inline void RigheTastoScelta() {
    QTest::addColumn<int>("scelta");
    QTest::newRow("scelta Invio") << 1;
    QTest::newRow("scelta Barra") << 2;
}

// The row's choice key takes its place, the other key scans; gives the key
// the user presses to choose.
inline Qt::Key UsaTastoScelta(int scelta) {
    TastoScelta = int16_t(scelta);
    TastoScansione = int16_t(3 - scelta);
    return scelta == 2 ? Qt::Key_Space : Qt::Key_Return;
}
