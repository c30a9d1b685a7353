#pragma once

#include <QSqlDatabase>
#include <QString>

// The tables of the three archives. Each call creates its tables in an empty
// archive and throws ErroreZanto on failure.
void CreaSchemaConfigurazione(QSqlDatabase& db);
void CreaSchemaDisegni(QSqlDatabase& db);
void CreaSchemaOggetti(QSqlDatabase& db);

// The configuration archive's own version, in SQLite's user_version.
inline constexpr int VersioneConfigurazione = 4;
// Brings a configuration archive of an earlier version up to this one, all in
// one savepoint: an archive is either wholly brought up or left as it was. An
// archive already up to date is not written at all.
void AggiornaSchemaConfigurazione(QSqlDatabase& db);

// The 22 columns of an action, in the record's order, for CREATE TABLE.
QString ColonneAzione();
