#include "start/MappaErrori.h"

#include <QDir>
#include <QFileInfo>

#include <cerrno>

ErroreZanto ErroreNessunRecord() {
    return {3021, QStringLiteral("Nessun record corrente.")};
}

ErroreZanto ErroreSql(const QSqlError& errore) {
    const QString testo = errore.text();
    const QString nativo = errore.nativeErrorCode();
    // SQLite's own result codes, where the driver gives them.
    if (nativo == QLatin1String("13") || testo.contains(QLatin1String("full"), Qt::CaseInsensitive))
        return {61, QStringLiteral("Disco pieno: ") + testo};
    if (nativo == QLatin1String("8") || testo.contains(QLatin1String("readonly")))
        return {70, QStringLiteral("Archivio protetto da scrittura: ") + testo};
    if (testo.contains(QLatin1String("no such table")))
        return {3078, QStringLiteral("Tabella dell'archivio non trovata: ") + testo};
    if (testo.contains(QLatin1String("no such column")) ||
        testo.contains(QLatin1String("has no column")))
        return {3265, QStringLiteral("Campo dell'archivio non trovato: ") + testo};
    if (testo.contains(QLatin1String("UNIQUE")) || testo.contains(QLatin1String("constraint")))
        return {3022, QStringLiteral("Valore duplicato o vincolo violato nell'archivio: ") + testo};
    if (errore.type() == QSqlError::ConnectionError)
        return {3051, QStringLiteral("Impossibile aprire l'archivio: ") + testo};
    if (nativo == QLatin1String("26") || testo.contains(QLatin1String("not a database")))
        return {3343, QStringLiteral("Formato di archivio non riconosciuto: ") + testo};
    return {3001, QStringLiteral("Errore dell'archivio: ") + testo};
}

ErroreZanto ErroreFileAssente(const QString& percorso) {
    return {53, QStringLiteral("File non trovato: ") + QDir::toNativeSeparators(percorso)};
}

ErroreZanto ErroreCartellaAssente(const QString& percorso) {
    return {76, QStringLiteral("Percorso non trovato: ") + QDir::toNativeSeparators(percorso)};
}

ErroreZanto ErroreFile(QFileDevice::FileError errore, const QString& percorso,
                       const QString& dettaglio) {
    const QString nome = QDir::toNativeSeparators(percorso);
    const QFileInfo info(percorso);
    switch (errore) {
    case QFileDevice::PermissionsError:
        return {70, QStringLiteral("Accesso negato: ") + nome};
    case QFileDevice::ResizeError:
    case QFileDevice::WriteError:
        if (errno == ENOSPC) return {61, QStringLiteral("Disco pieno: ") + nome};
        return {57, QStringLiteral("Errore di scrittura: ") + nome};
    case QFileDevice::OpenError:
        if (!info.absoluteDir().exists()) return ErroreCartellaAssente(info.absolutePath());
        if (errno == EACCES || errno == EROFS)
            return {70, QStringLiteral("Accesso negato: ") + nome};
        if (errno == ENOSPC) return {61, QStringLiteral("Disco pieno: ") + nome};
        if (!info.exists()) return ErroreFileAssente(percorso);
        return {75, QStringLiteral("Errore di accesso al percorso o al file: ") + nome};
    case QFileDevice::ReadError:
        return {57, QStringLiteral("Errore di lettura: ") + nome};
    case QFileDevice::RemoveError:
        return {75, QStringLiteral("Impossibile eliminare il file: ") + nome};
    default:
        return {75, QStringLiteral("Errore di accesso al file: ") + nome +
                        (dettaglio.isEmpty() ? QString() : QStringLiteral(" (") + dettaglio + ')')};
    }
}
