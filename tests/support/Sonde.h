#pragma once

#include "input/FormScansione.h"

#include <QDir>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QVariant>

#include <cstdint>

// Small probes the tests share.

// The indices whose ring is on the screen, in order.
inline QList<int16_t> CoroneVisibili(const FormScansione& form) {
    QList<int16_t> visibili;
    for (auto it = form.Corone.cbegin(); it != form.Corone.cend(); ++it)
        if (it.value()->isVisible()) visibili.append(it.key());
    return visibili;
}

// The RGB colour of a ring.
inline uint32_t ColoreCorona(const FormScansione& form, int16_t indice) {
    return form.Corone.value(indice)->palette().color(QPalette::Window).rgb() & 0xFFFFFFu;
}

// The one index with the default flag, or 0.
inline int16_t TastoPredefinito(const FormScansione& form) {
    for (auto it = form.Tasti.cbegin(); it != form.Tasti.cend(); ++it)
        if (it.value()->Predefinito) return it.key();
    return 0;
}

// Reads one value from an archive file through a connection of its own.
inline QVariant LeggiValore(const QString& percorso, const QString& sql) {
    QVariant valore;
    {
        QSqlDatabase db =
            QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("sonda"));
        db.setDatabaseName(percorso);
        if (db.open()) {
            QSqlQuery q(db);
            if (q.exec(sql) && q.next()) valore = q.value(0);
        }
        db.close();
    }
    QSqlDatabase::removeDatabase(QStringLiteral("sonda"));
    return valore;
}

// Saves what a screen shows when ZANTO_SCHERMATE names a folder: a way to look
// at every state of a screen without a display.
inline void Schermata(QWidget* w, const QString& nome) {
    const QString cartella = qEnvironmentVariable("ZANTO_SCHERMATE");
    if (cartella.isEmpty() || w == nullptr) return;
    QDir().mkpath(cartella);
    w->grab().save(cartella + '/' + nome + QStringLiteral(".png"));
}
