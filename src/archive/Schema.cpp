#include "archive/Schema.h"

#include "base/MappaErrori.h"

#include <QSqlQuery>
#include <QStringList>

namespace {

void Esegui(QSqlDatabase& db, const QString& sql) {
    QSqlQuery q(db);
    if (!q.exec(sql)) throw ErroreSql(q.lastError());
}

} // namespace

QString ColonneAzione() {
    // Types: INTEGER for signed 32-bit, SMALLINT for signed 16-bit, REAL for
    // 32-bit floats (stored exactly), TEXT for strings.
    return QStringLiteral("TipoAzione INTEGER NOT NULL DEFAULT 0,"
                          " XInizio INTEGER NOT NULL DEFAULT 0,"
                          " YInizio INTEGER NOT NULL DEFAULT 0,"
                          " XFine INTEGER NOT NULL DEFAULT 0,"
                          " YFine INTEGER NOT NULL DEFAULT 0,"
                          " ColLinea INTEGER NOT NULL DEFAULT 0,"
                          " ColZona INTEGER NOT NULL DEFAULT 0,"
                          " FlagPienoVuoto INTEGER NOT NULL DEFAULT 0,"
                          " SpessLinea INTEGER NOT NULL DEFAULT 0,"
                          " XCentro REAL NOT NULL DEFAULT 0,"
                          " YCentro REAL NOT NULL DEFAULT 0,"
                          " RadIniz REAL NOT NULL DEFAULT 0,"
                          " RadFine REAL NOT NULL DEFAULT 0,"
                          " RaggioVert REAL NOT NULL DEFAULT 0,"
                          " RaggioOriz REAL NOT NULL DEFAULT 0,"
                          " InterlineaTesto SMALLINT NOT NULL DEFAULT 0,"
                          " Testo TEXT NOT NULL DEFAULT '',"
                          " NomeFont TEXT NOT NULL DEFAULT '',"
                          " SizeFont INTEGER NOT NULL DEFAULT 0,"
                          " Corsivo INTEGER NOT NULL DEFAULT 0,"
                          " Grassetto INTEGER NOT NULL DEFAULT 0,"
                          " NomeFileImmagine TEXT NOT NULL DEFAULT ''");
}

void CreaSchemaConfigurazione(QSqlDatabase& db) {
    Esegui(db, QStringLiteral("CREATE TABLE ConfigurazioniGenerali ("
                              " \"ModalitàFunzionamento\" SMALLINT NOT NULL,"
                              " TastoScelta SMALLINT NOT NULL,"
                              " TastoScansione SMALLINT NOT NULL,"
                              " TipoInversioneScansione SMALLINT NOT NULL,"
                              " TempoLatenzaScansione INTEGER NOT NULL)"));
    AggiornaSchemaConfigurazione(db);
}

void AggiornaSchemaConfigurazione(QSqlDatabase& db) {
    QSqlQuery versione(db);
    if (!versione.exec(QStringLiteral("PRAGMA user_version")) || !versione.next())
        throw ErroreSql(versione.lastError());
    const int letta = versione.value(0).toInt();
    versione.finish();

    // The columns are looked at whatever the version says: a table rebuilt by
    // an outside tool may have lost one.
    QStringList colonne;
    QSqlQuery info(db);
    if (!info.exec(QStringLiteral("PRAGMA table_info(ConfigurazioniGenerali)")))
        throw ErroreSql(info.lastError());
    while (info.next())
        colonne << info.value(1).toString();
    info.finish();
    // Version 1: the printer chosen on the printer list, empty for the system's own.
    // Version 2: the ring's width and the high-contrast scheme, as defined.
    // Version 3: the timings for real switches and spoken scanning, all off.
    // Version 4: the ring's restart where the user most likely goes next, off.
    const QStringList nuove = {
        QStringLiteral("StampanteScelta TEXT NOT NULL DEFAULT ''"),
        QStringLiteral("LarghezzaAnello SMALLINT NOT NULL DEFAULT 1"),
        QStringLiteral("AltoContrasto SMALLINT NOT NULL DEFAULT 0"),
        QStringLiteral("TempoAccettazione INTEGER NOT NULL DEFAULT 0"),
        QStringLiteral("TempoIgnoraDopoScelta INTEGER NOT NULL DEFAULT 0"),
        QStringLiteral("PrimaAttesa SMALLINT NOT NULL DEFAULT 1"),
        QStringLiteral("GiriPrimaDelRiposo SMALLINT NOT NULL DEFAULT 0"),
        QStringLiteral("ScansioneParlata SMALLINT NOT NULL DEFAULT 0"),
        QStringLiteral("AttendiVoce SMALLINT NOT NULL DEFAULT 0"),
        QStringLiteral("RipresaSuccessiva SMALLINT NOT NULL DEFAULT 0"),
    };
    QStringList mancanti;
    for (const QString& nuova : nuove)
        if (!colonne.contains(nuova.section(u' ', 0, 0))) mancanti << nuova;
    if (letta >= VersioneConfigurazione && mancanti.isEmpty()) return;

    // A savepoint nests inside the installer's transaction as well as standing alone.
    Esegui(db, QStringLiteral("SAVEPOINT aggiornamento"));
    try {
        for (const QString& colonna : mancanti)
            Esegui(db, QStringLiteral("ALTER TABLE ConfigurazioniGenerali ADD COLUMN ") + colonna);
        if (letta < VersioneConfigurazione)
            Esegui(db, QStringLiteral("PRAGMA user_version = %1").arg(VersioneConfigurazione));
        Esegui(db, QStringLiteral("RELEASE aggiornamento"));
    } catch (...) {
        QSqlQuery indietro(db);
        indietro.exec(QStringLiteral("ROLLBACK TO aggiornamento"));
        indietro.exec(QStringLiteral("RELEASE aggiornamento"));
        throw;
    }
}

void CreaSchemaDisegni(QSqlDatabase& db) {
    Esegui(db, QStringLiteral("CREATE TABLE TabCartelle ("
                              " CodiceCartella INTEGER PRIMARY KEY NOT NULL,"
                              " NomeCartella TEXT NOT NULL)"));
    Esegui(db, QStringLiteral("CREATE TABLE TabDisegni ("
                              " CodiceDisegno INTEGER PRIMARY KEY NOT NULL,"
                              " NomeDisegno TEXT NOT NULL,"
                              " CodiceCartella INTEGER NOT NULL"
                              "  REFERENCES TabCartelle(CodiceCartella) ON DELETE CASCADE)"));
    Esegui(db, QStringLiteral("CREATE INDEX TabDisegniCartella ON TabDisegni(CodiceCartella)"));
    Esegui(db, QStringLiteral("CREATE TABLE TabAzioniDisegno ("
                              " CodiceDisegno INTEGER NOT NULL"
                              "  REFERENCES TabDisegni(CodiceDisegno) ON DELETE CASCADE,"
                              " NumAzione SMALLINT NOT NULL, ") +
                   ColonneAzione() + QStringLiteral(", PRIMARY KEY (CodiceDisegno, NumAzione))"));
}

void CreaSchemaOggetti(QSqlDatabase& db) {
    Esegui(db, QStringLiteral("CREATE TABLE TabCartelleObj ("
                              " CodiceCartellaObj INTEGER PRIMARY KEY NOT NULL,"
                              " NomeCartellaObj TEXT NOT NULL)"));
    Esegui(db, QStringLiteral("CREATE TABLE TabOggetti ("
                              " CodiceOggetto SMALLINT PRIMARY KEY NOT NULL,"
                              " NomeOggetto TEXT NOT NULL,"
                              " CodiceCartellaObj INTEGER NOT NULL"
                              "  REFERENCES TabCartelleObj(CodiceCartellaObj) ON DELETE CASCADE)"));
    Esegui(db, QStringLiteral("CREATE INDEX TabOggettiCartella ON TabOggetti(CodiceCartellaObj)"));
    Esegui(db, QStringLiteral("CREATE TABLE TabAzioniOggetto ("
                              " CodiceOggetto INTEGER NOT NULL"
                              "  REFERENCES TabOggetti(CodiceOggetto) ON DELETE CASCADE,"
                              " NumAzione SMALLINT NOT NULL, ") +
                   ColonneAzione() + QStringLiteral(", PRIMARY KEY (CodiceOggetto, NumAzione))"));
}
