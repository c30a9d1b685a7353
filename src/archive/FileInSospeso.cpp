#include "archive/FileInSospeso.h"

#include "archive/Archivi.h"
#include "archive/IstruzioniArchivio.h"
#include "start/MappaErrori.h"
#include "start/Utilita.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QSqlQuery>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>

namespace {

const QString SuffissoNuovo = QStringLiteral(".nuovo");
const QString SuffissoVecchio = QStringLiteral(".vecchio");
const QString SuffissoNota = QStringLiteral(".insieme");

QByteArray Nome(const QString& percorso) {
    return QFile::encodeName(percorso);
}

// A renamed entry reaches the disk only when its directory is synced.
void Sincronizza(const QString& cartella) {
    const int fd = ::open(Nome(cartella).constData(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (fd < 0) return;
    ::fsync(fd);
    ::close(fd);
}

void Rinomina(const QString& da, const QString& a) {
    if (::rename(Nome(da).constData(), Nome(a).constData()) != 0) throw ErroreSistema(errno, a);
}

bool Esiste(const QString& percorso) {
    return QFileInfo(percorso).exists() || QFileInfo(percorso).isSymLink();
}

// Puts in place what the note names and drops the old copies and the note.
void Completa(const QString& nota) {
    QFile file(nota);
    if (!file.open(QIODevice::ReadOnly)) return;
    const QString cartella = QFileInfo(nota).absolutePath();
    const QStringList nomi = QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts);
    file.close();
    for (const QString& nome : nomi) {
        // A note of our own holds names, never paths.
        if (nome.contains(u'/') || nome == QStringLiteral("..") || nome == QStringLiteral("."))
            continue;
        const QString percorso = cartella + u'/' + nome;
        if (QFileInfo(FileAParte(percorso)).isFile())
            ::rename(Nome(FileAParte(percorso)).constData(), Nome(percorso).constData());
    }
    Sincronizza(cartella);
    for (const QString& nome : nomi)
        if (!nome.contains(u'/')) QFile::remove(cartella + u'/' + nome + SuffissoVecchio);
    QFile::remove(nota);
}

// Whether a drawing of the archive names the picture `percorso`; throws
// ErroreZanto when the archive cannot say.
bool NominataDaUnDisegno(const QString& percorso) {
    QSqlQuery q =
        Prepara(Archivio(ArchivioDisegni), QStringLiteral("SELECT 1 FROM TabAzioniDisegno WHERE"
                                                          " NomeFileImmagine = ? LIMIT 1"));
    q.addBindValue(percorso);
    Esegui(q);
    return q.next();
}

} // namespace

QString FileAParte(const QString& percorso) {
    return percorso + SuffissoNuovo;
}

QString NotaInsieme(const QStringList& percorsi) {
    // The file names of the set, one to a line.
    return percorsi.value(0) + SuffissoNota;
}

void SostituisciInsieme(const QStringList& percorsi) {
    if (percorsi.isEmpty()) return;
    const QString cartella = QFileInfo(percorsi.first()).absolutePath();
    const QString nota = NotaInsieme(percorsi);
    QStringList messi;
    const auto annulla = [&] {
        // Back as it was: the old copy over what was put in place, or nothing.
        for (const QString& percorso : std::as_const(messi)) {
            const QString vecchio = percorso + SuffissoVecchio;
            if (QFileInfo(vecchio).isFile())
                ::rename(Nome(vecchio).constData(), Nome(percorso).constData());
            else
                QFile::remove(percorso);
        }
        for (const QString& percorso : percorsi) {
            QFile::remove(FileAParte(percorso));
            QFile::remove(percorso + SuffissoVecchio);
        }
        QFile::remove(nota);
        Sincronizza(cartella);
    };
    try {
        for (const QString& percorso : percorsi) {
            // Only a plain file is ever replaced: anything else in the way stops
            // the set before any of it is touched.
            if (Esiste(percorso) && !QFileInfo(percorso).isFile())
                throw ErroreZanto{75, QStringLiteral("Un file che non si può sostituire: ") +
                                          QDir::toNativeSeparators(percorso)};
            if (!QFileInfo(FileAParte(percorso)).isFile())
                throw ErroreFileAssente(FileAParte(percorso));
            const QString vecchio = percorso + SuffissoVecchio;
            QFile::remove(vecchio);
            // A second name for the old file; a copy where links are not known.
            if (QFileInfo(percorso).isFile() &&
                ::link(Nome(percorso).constData(), Nome(vecchio).constData()) != 0 &&
                !QFile::copy(percorso, vecchio))
                throw ErroreFile(QFileDevice::CopyError, vecchio);
        }
        {
            QStringList nomi;
            for (const QString& percorso : percorsi)
                nomi << QFileInfo(percorso).fileName();
            QSaveFile file(nota);
            if (!file.open(QIODevice::WriteOnly)) throw ErroreFile(file.error(), nota);
            file.write(nomi.join(u'\n').toUtf8() + '\n');
            if (!file.commit()) throw ErroreFile(file.error(), nota);
        }
        Sincronizza(cartella);
        for (const QString& percorso : percorsi) {
            Rinomina(FileAParte(percorso), percorso);
            messi << percorso;
        }
        Sincronizza(cartella);
    } catch (...) {
        annulla();
        throw;
    }
    for (const QString& percorso : percorsi)
        QFile::remove(percorso + SuffissoVecchio);
    QFile::remove(nota);
}

void CompletaFileInSospeso() {
    const QDir cartella(PercorsoFile());
    if (!cartella.exists()) return;
    const QStringList note =
        cartella.entryList({QStringLiteral("*") + SuffissoNota}, QDir::Files | QDir::Hidden);
    for (const QString& nota : note)
        Completa(cartella.filePath(nota));
    const QStringList lasciati = cartella.entryList(
        {QStringLiteral("*") + SuffissoNuovo, QStringLiteral("*") + SuffissoVecchio,
         QStringLiteral("*") + SuffissoNuovo + QStringLiteral("-journal")},
        QDir::Files | QDir::Hidden | QDir::System);
    for (const QString& nome : lasciati) {
        const QString percorso = cartella.filePath(nome);
        if (nome.endsWith(SuffissoNuovo)) {
            const QString posto = percorso.chopped(SuffissoNuovo.size());
            bool nominata = false;
            try {
                nominata = !Esiste(posto) && NominataDaUnDisegno(posto);
            } catch (const ErroreZanto&) {
                continue; // an archive that cannot be asked: kept for the next start
            }
            if (nominata) {
                ::rename(Nome(percorso).constData(), Nome(posto).constData());
                continue;
            }
        }
        QFile::remove(percorso);
    }
    Sincronizza(cartella.path());
}
