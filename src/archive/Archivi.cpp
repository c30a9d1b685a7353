#include "archive/Archivi.h"

#include "base/MappaErrori.h"
#include "base/Sessione.h"
#include "base/Utilita.h"

#include <QDir>
#include <QFileInfo>
#include <QSqlQuery>

namespace {
QString Radice(const QString& radice) {
    return radice.isEmpty() ? RadiceDati : radice;
}
} // namespace

QString PercorsoConfigurazione(const QString& radice) {
    return Radice(radice) + '/' + NomiArchivi::CartellaProgramma + '/' +
           NomiArchivi::FileConfigurazione;
}

QString PercorsoArchivioDisegni(const QString& radice) {
    return Radice(radice) + '/' + NomiArchivi::CartellaArchivi + '/' + NomiArchivi::FileDisegni;
}

QString PercorsoArchivioOggetti(const QString& radice) {
    return Radice(radice) + '/' + NomiArchivi::CartellaArchivi + '/' + NomiArchivi::FileOggetti;
}

QString PercorsoCartellaAttiva(const QString& radice) {
    return Radice(radice) + '/' + NomiArchivi::CartellaProgramma + '/' +
           NomiArchivi::FileCartellaAttiva;
}

QString PercorsoInformazioni(const QString& radice) {
    return Radice(radice) + '/' + NomiArchivi::CartellaProgramma + '/' +
           NomiArchivi::FileInformazioni;
}

QString PercorsoCartellaDisegni(const QString& nomeCartella, int32_t codiceCartella,
                                const QString& radice) {
    return Radice(radice) + '/' + NomiArchivi::SottocartellaDisegni + '/' +
           NomeSicuro(nomeCartella, codiceCartella);
}

QString PercorsoFile(const QString& radice) {
    return Radice(radice) + '/' + NomiArchivi::SottocartellaFile;
}

void ApriArchivio(const QString& connessione, const QString& percorso) {
    // SQLite would quietly create a missing file: an archive must already exist.
    if (!QFileInfo(percorso).isFile()) throw ErroreFileAssente(percorso);
    QSqlDatabase db = QSqlDatabase::contains(connessione)
                          ? QSqlDatabase::database(connessione, false)
                          : QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), connessione);
    db.setDatabaseName(percorso);
    if (!db.open()) throw ErroreSql(db.lastError());
    QSqlQuery q(db);
    // Dependent rows go with their owner; the schema carries the cascades.
    if (!q.exec(QStringLiteral("PRAGMA foreign_keys = ON"))) throw ErroreSql(q.lastError());
    // A file that is not an archive fails here rather than at the first read;
    // so does an empty one (a file cut to 0 bytes), which SQLite would accept.
    const auto rifiuta = [&](const ErroreZanto& e) {
        q = QSqlQuery();
        db.close();
        return e;
    };
    if (!q.exec(QStringLiteral("SELECT count(*) FROM sqlite_master")))
        throw rifiuta(ErroreSql(q.lastError()));
    if (!q.next()) throw rifiuta(ErroreSql(q.lastError()));
    if (q.value(0).toInt() == 0)
        throw rifiuta({3343, QStringLiteral("Formato di archivio non riconosciuto: ") +
                                 QDir::toNativeSeparators(percorso) +
                                 QStringLiteral(" non contiene alcuna tabella")});
    q.finish();
}

void ChiudiArchivio(const QString& connessione) {
    if (!QSqlDatabase::contains(connessione)) return;
    {
        QSqlDatabase db = QSqlDatabase::database(connessione, false);
        db.close();
    }
    QSqlDatabase::removeDatabase(connessione);
}

QSqlDatabase Archivio(const QString& connessione) {
    QSqlDatabase db = QSqlDatabase::database(connessione, false);
    if (!db.isOpen())
        throw ErroreZanto{3420, QStringLiteral("Archivio non aperto: ") + connessione};
    return db;
}
