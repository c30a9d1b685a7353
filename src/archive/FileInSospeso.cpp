#include "archive/FileInSospeso.h"

#include "archive/Archivi.h"
#include "archive/IstruzioniArchivio.h"
#include "base/MappaErrori.h"
#include "base/Utilita.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QSqlQuery>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

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

// A set as its note tells it: the files' names, each marked by whether an
// old version was kept, and whether the set is to be undone.
struct Insieme {
    QString Cartella;
    QList<std::pair<QString, bool>> Nomi; // name, old version kept
    bool Indietro = false;
};

const QString RigaIndietro = QStringLiteral("annulla");

void ScriviNota(const QString& nota, const Insieme& insieme) {
    QStringList righe;
    if (insieme.Indietro) righe << RigaIndietro;
    for (const auto& [nome, vecchio] : insieme.Nomi)
        righe << (vecchio ? u'+' : u'-') + nome;
    QSaveFile file(nota);
    if (!file.open(QIODevice::WriteOnly)) throw ErroreFile(file.error(), nota);
    file.write(righe.join(u'\n').toUtf8() + '\n');
    if (!file.commit()) throw ErroreFile(file.error(), nota);
    Sincronizza(insieme.Cartella);
}

Insieme LeggiNota(const QString& nota) {
    Insieme insieme;
    insieme.Cartella = QFileInfo(nota).absolutePath();
    QFile file(nota);
    if (!file.open(QIODevice::ReadOnly)) return insieme;
    for (const QString& riga : QString::fromUtf8(file.readAll()).split(u'\n', Qt::SkipEmptyParts)) {
        if (riga == RigaIndietro) {
            insieme.Indietro = true;
            continue;
        }
        const QString nome = riga.mid(1);
        // A note of our own holds names, never paths.
        if (nome.isEmpty() || nome.contains(u'/') || nome == QStringLiteral("..") ||
            nome == QStringLiteral("."))
            continue;
        insieme.Nomi.append({nome, riga.startsWith(u'+')});
    }
    return insieme;
}

// Every new file in place, then the old copies gone. Run again, it does no harm.
void Avanti(const Insieme& insieme) {
    for (const auto& [nome, vecchio] : insieme.Nomi) {
        const QString percorso = insieme.Cartella + u'/' + nome;
        if (QFileInfo(FileAParte(percorso)).isFile())
            ::rename(Nome(FileAParte(percorso)).constData(), Nome(percorso).constData());
    }
    Sincronizza(insieme.Cartella);
    for (const auto& [nome, vecchio] : insieme.Nomi)
        QFile::remove(insieme.Cartella + u'/' + nome + SuffissoVecchio);
}

// Every old file back, a file that had none gone, the new ones dropped. Run
// again, it does no harm.
void Indietro(const Insieme& insieme) {
    for (const auto& [nome, vecchio] : insieme.Nomi) {
        const QString percorso = insieme.Cartella + u'/' + nome;
        if (vecchio) {
            if (QFileInfo(percorso + SuffissoVecchio).isFile())
                ::rename(Nome(percorso + SuffissoVecchio).constData(), Nome(percorso).constData());
        } else if (!QFileInfo(FileAParte(percorso)).exists()) {
            QFile::remove(percorso); // the new one was put in place
        }
        QFile::remove(FileAParte(percorso));
    }
    Sincronizza(insieme.Cartella);
}

// Finishes or undoes the set a note names, and drops the note.
void Completa(const QString& nota) {
    const Insieme insieme = LeggiNota(nota);
    if (insieme.Indietro)
        Indietro(insieme);
    else
        Avanti(insieme);
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
    const QString nota = NotaInsieme(percorsi);
    Insieme insieme;
    insieme.Cartella = QFileInfo(percorsi.first()).absolutePath();
    bool annotato = false;
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
            const bool conVecchio = QFileInfo(percorso).isFile();
            if (conVecchio && ::link(Nome(percorso).constData(), Nome(vecchio).constData()) != 0 &&
                !QFile::copy(percorso, vecchio))
                throw ErroreFile(QFileDevice::CopyError, vecchio);
            insieme.Nomi.append({QFileInfo(percorso).fileName(), conVecchio});
        }
        // From here the set is finished, now or by the next start.
        ScriviNota(nota, insieme);
        annotato = true;
        for (const QString& percorso : percorsi)
            Rinomina(FileAParte(percorso), percorso);
        Sincronizza(insieme.Cartella);
    } catch (...) {
        // Undone, and said so first: a kill while undoing is undone by the start.
        if (annotato) {
            insieme.Indietro = true;
            try {
                ScriviNota(nota, insieme);
            } catch (const ErroreZanto&) {
                // Undone all the same, here and now.
            }
            Indietro(insieme);
        }
        for (const QString& percorso : percorsi) {
            QFile::remove(FileAParte(percorso));
            QFile::remove(percorso + SuffissoVecchio);
        }
        QFile::remove(nota);
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
