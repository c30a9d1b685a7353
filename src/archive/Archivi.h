#pragma once

#include <QSqlDatabase>
#include <QString>

// Names of the data tree and of the three archives, all under RadiceDati.
namespace NomiArchivi {
inline const QString FileInformazioni = QStringLiteral("Informazioni.rtf");
inline const QString CartellaProgramma = QStringLiteral("Programma");
inline const QString CartellaArchivi = QStringLiteral("Archivi");
inline const QString SottocartellaDisegni = QStringLiteral("Disegni");
inline const QString SottocartellaFile = QStringLiteral("File");
inline const QString FileConfigurazione = QStringLiteral("Configurazione.zdb");
inline const QString FileDisegni = QStringLiteral("Disegni.zdb");
inline const QString FileOggetti = QStringLiteral("Oggetti.zdb");
inline const QString FileCartellaAttiva = QStringLiteral("CartellaZanto.Crt");
inline const QString FileBlocco = QStringLiteral("zanto.lck");
inline const QString CartellaSistemaDisegni = QStringLiteral("·Disegni Generale");
inline const QString CartellaSistemaOggetti = QStringLiteral("·Oggetti Generale");
} // namespace NomiArchivi

// Connection names of the open archives.
inline const QString ArchivioConfigurazione = QStringLiteral("ArchivioConfigurazione");
inline const QString ArchivioDisegni = QStringLiteral("ArchivioDisegni");
inline const QString ArchivioOggetti = QStringLiteral("ArchivioOggetti");

// Full paths under a data root (RadiceDati when none is given).
QString PercorsoConfigurazione(const QString& radice = {});
QString PercorsoArchivioDisegni(const QString& radice = {});
QString PercorsoArchivioOggetti(const QString& radice = {});
QString PercorsoCartellaAttiva(const QString& radice = {});
// The program's information text, a rich text file in the program folder.
QString PercorsoInformazioni(const QString& radice = {});
// The directory of a folder of drawings: its name made safe, so that no name
// ever leads outside the drawings' directory and two folders never share one.
QString PercorsoCartellaDisegni(const QString& nomeCartella, int32_t codiceCartella,
                                const QString& radice = {});
QString PercorsoFile(const QString& radice = {});

// Opens the archive file under the connection name; throws ErroreZanto on failure.
void ApriArchivio(const QString& connessione, const QString& percorso);
// Closes and forgets a connection; nothing happens if it is not open.
void ChiudiArchivio(const QString& connessione);
// The open connection; throws ErroreZanto 3420 when it is not open.
QSqlDatabase Archivio(const QString& connessione);
