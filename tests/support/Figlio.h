#pragma once

#include <QElapsedTimer>
#include <QProcess>
#include <QtTest>

// The child process of the tests that kill a program at a random instant.

// Busy wait: the child must be caught at any instant, not at a tick of a timer.
inline void Gira(qint64 microsecondi) {
    QElapsedTimer t;
    t.start();
    while (t.nsecsElapsed() < microsecondi * 1000) {
    }
}

// Kills the child and waits for it: it must end by the kill, not by itself.
inline void Uccidi(QProcess& figlio) {
    figlio.kill();
    QVERIFY(figlio.waitForFinished(60000));
    if (figlio.exitStatus() != QProcess::CrashExit)
        QFAIL(qPrintable(QStringLiteral("il figlio è uscito da sé (%1): ").arg(figlio.exitCode()) +
                         QString::fromLocal8Bit(figlio.readAllStandardError())));
}
