#include "base/MappaErrori.h"

#include <QDir>
#include <QFileInfo>

#include <cerrno>
#include <cstring>

ErroreZanto ErroreNessunRecord() {
    return {3021, QStringLiteral("Nessun record corrente.")};
}

ErroreZanto ErroreSql(const QSqlError& errore) {
    const QString testo = errore.text();
    // The driver gives SQLite's result code, extended or not: the low byte is the primary one.
    bool numerico = false;
    const int nativo = errore.nativeErrorCode().toInt(&numerico);
    const int codice = numerico ? (nativo & 0xFF) : -1;
    switch (codice) {
    case 13: // SQLITE_FULL
        return {61, QStringLiteral("Disco pieno: ") + testo};
    case 8: // SQLITE_READONLY
        return {70, QStringLiteral("Archivio protetto da scrittura: ") + testo};
    case 11: // SQLITE_CORRUPT
    case 26: // SQLITE_NOTADB
        return {3343, QStringLiteral("Formato di archivio non riconosciuto: ") + testo};
    case 14: // SQLITE_CANTOPEN
        return {3051, QStringLiteral("Impossibile aprire l'archivio: ") + testo};
    case 19: // SQLITE_CONSTRAINT
        return {3022, QStringLiteral("Valore duplicato o vincolo violato nell'archivio: ") + testo};
    case 10: // SQLITE_IOERR
        return {57, QStringLiteral("Errore di lettura o scrittura dell'archivio: ") + testo};
    case 1: { // SQLITE_ERROR: only its message tells a missing table from a missing field
        const QString motivo = errore.databaseText();
        if (motivo.startsWith(QLatin1String("no such table:")))
            return {3078, QStringLiteral("Tabella dell'archivio non trovata: ") + testo};
        if (motivo.startsWith(QLatin1String("no such column:")) ||
            motivo.contains(QLatin1String(" has no column named ")))
            return {3265, QStringLiteral("Campo dell'archivio non trovato: ") + testo};
        break;
    }
    default:
        break;
    }
    if (codice < 0 && errore.type() == QSqlError::ConnectionError)
        return {3051, QStringLiteral("Impossibile aprire l'archivio: ") + testo};
    return {3001, QStringLiteral("Errore dell'archivio: ") + testo};
}

ErroreZanto ErroreFileAssente(const QString& percorso) {
    return {53, QStringLiteral("File non trovato: ") + QDir::toNativeSeparators(percorso)};
}

ErroreZanto ErroreCartellaAssente(const QString& percorso) {
    return {76, QStringLiteral("Percorso non trovato: ") + QDir::toNativeSeparators(percorso)};
}

ErroreZanto ErroreStampante(const QString& stampante) {
    QString testo = QStringLiteral("Errore della stampante.");
    if (!stampante.trimmed().isEmpty())
        testo += QStringLiteral(" « ") + stampante + QStringLiteral(" »");
    return {482, testo};
}

ErroreZanto ErroreSistema(int codice, const QString& percorso) {
    const QString nome = QDir::toNativeSeparators(percorso);
    const QFileInfo info(percorso);
    switch (codice) {
    case ENOSPC:
    case EDQUOT:
    case EFBIG: // the file may grow no more: as full as a full disk
        return {61, QStringLiteral("Disco pieno: ") + nome};
    case EROFS:
    case EACCES:
    case EPERM:
        return {70, QStringLiteral("Accesso negato: ") + nome};
    case ENOENT:
    case ENOTDIR:
        if (!info.absoluteDir().exists()) return ErroreCartellaAssente(info.absolutePath());
        return ErroreFileAssente(percorso);
    case EIO:
        return {57, QStringLiteral("Errore di lettura o scrittura: ") + nome};
    default:
        return {75, QStringLiteral("Errore di accesso al file: ") + nome + QStringLiteral(" (") +
                        QString::fromLocal8Bit(std::strerror(codice)) + ')'};
    }
}

ErroreZanto ErroreFile(QFileDevice::FileError errore, const QString& percorso,
                       const QString& dettaglio) {
    // Whatever Qt calls the failure, a full disk says so in errno, read before
    // anything else can change it.
    const int codice = errno;
    const QString nome = QDir::toNativeSeparators(percorso);
    if (errore != QFileDevice::NoError &&
        (codice == ENOSPC || codice == EDQUOT ||
         (codice == EFBIG &&
          (errore == QFileDevice::WriteError || errore == QFileDevice::ResizeError))))
        return {61, QStringLiteral("Disco pieno: ") + nome};
    const QFileInfo info(percorso);
    switch (errore) {
    case QFileDevice::PermissionsError:
        return {70, QStringLiteral("Accesso negato: ") + nome};
    case QFileDevice::ResizeError:
    case QFileDevice::WriteError:
        return {57, QStringLiteral("Errore di scrittura: ") + nome};
    case QFileDevice::OpenError:
        if (!info.absoluteDir().exists()) return ErroreCartellaAssente(info.absolutePath());
        if (codice == EACCES || codice == EROFS)
            return {70, QStringLiteral("Accesso negato: ") + nome};
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
