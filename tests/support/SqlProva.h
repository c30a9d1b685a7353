#pragma once

#include "archive/Archivi.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QVariant>

// Statements of the tests on an open archive. A fault here is the test's own,
// not the program's: it stops the test program.
namespace SqlProva {

inline QSqlQuery Interroga(const QString& connessione, const QString& testo,
                           const QVariantList& valori = {}) {
    QSqlQuery q(Archivio(connessione));
    if (!q.prepare(testo)) qFatal("%s", qPrintable(q.lastError().text()));
    for (const QVariant& v : valori)
        q.addBindValue(v);
    if (!q.exec()) qFatal("%s", qPrintable(q.lastError().text()));
    return q;
}

inline void Sql(const QString& connessione, const QString& testo, const QVariantList& valori = {}) {
    Interroga(connessione, testo, valori);
}

// The number the statement counts.
inline int Conta(const QString& connessione, const QString& testo) {
    QSqlQuery q = Interroga(connessione, testo);
    if (!q.next()) qFatal("nessuna riga: %s", qPrintable(testo));
    return q.value(0).toInt();
}

} // namespace SqlProva
