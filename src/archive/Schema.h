#pragma once

#include <QSqlDatabase>
#include <QString>

// The tables of the three archives. Each call creates its tables in an empty
// archive and throws ErroreZanto on failure.
void CreaSchemaConfigurazione(QSqlDatabase& db);
void CreaSchemaDisegni(QSqlDatabase& db);
void CreaSchemaOggetti(QSqlDatabase& db);

// The 22 columns of an action, in the record's order, for CREATE TABLE.
QString ColonneAzione();
