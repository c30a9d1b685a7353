#pragma once

#include "base/GestioneErrori.h"

#include <QFileDevice>
#include <QSqlError>

// The one place where faults of Qt, SQLite and the file system become the
// program's numbered errors.

// A failed SQL statement or connection.
ErroreZanto ErroreSql(const QSqlError& errore);
// A read that expected a current row and found none (3021).
ErroreZanto ErroreNessunRecord();
// A file that could not be opened, written or removed; `percorso` names it.
ErroreZanto ErroreFile(QFileDevice::FileError errore, const QString& percorso,
                       const QString& dettaglio = {});
// A system call on `percorso` that failed with errno `codice`.
ErroreZanto ErroreSistema(int codice, const QString& percorso);
// A file that must exist and does not (53), or a directory (76).
ErroreZanto ErroreFileAssente(const QString& percorso);
ErroreZanto ErroreCartellaAssente(const QString& percorso);
// A printer that would not start or finish a page (482), named when known.
ErroreZanto ErroreStampante(const QString& stampante);
