#include "archive/BitmapDisegni.h"

#include "archive/Archivi.h"
#include "archive/ArchivioAzioni.h"
#include "archive/IstruzioniArchivio.h"
#include "base/GestioneErrori.h"
#include "base/MappaErrori.h"
#include "base/Sessione.h"
#include "model/RecordAzione.h"
#include "model/Superficie.h"
#include "model/TracciaAzioni.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSet>
#include <QSqlQuery>

#include <cerrno>
#include <fcntl.h>
#include <unistd.h>
#include <utility>

namespace {

const QString SuffissoNuova = QStringLiteral(".nuovo");

int Apri(const QByteArray& nome, int modi, mode_t permessi = 0) {
    int fd = -1;
    do {
        fd = ::open(nome.constData(), modi | O_CLOEXEC, permessi);
    } while (fd < 0 && errno == EINTR);
    return fd;
}

// A new or renamed entry of a directory reaches the disk only when the
// directory itself is synced.
void SincronizzaCartella(const QString& cartella) {
    const int fd = Apri(QFile::encodeName(cartella), O_RDONLY | O_DIRECTORY);
    if (fd < 0) throw ErroreSistema(errno, cartella);
    // Some file systems cannot sync a directory and say so: they have nothing to sync.
    if (::fsync(fd) != 0 && errno != EINVAL) {
        const int codice = errno;
        ::close(fd);
        throw ErroreSistema(codice, cartella);
    }
    ::close(fd);
}

// A drawing whose bitmap RiparaBitmapDisegni looks at.
struct DisegnoSalvato {
    int32_t Codice = 0;
    QString Percorso;
};

// The user's drawings, with where their bitmaps stand, in code order.
QList<DisegnoSalvato> DisegniConBitmap() {
    QSqlQuery q = Prepara(Archivio(ArchivioDisegni),
                          QStringLiteral("SELECT d.CodiceDisegno, d.NomeDisegno, d.CodiceCartella,"
                                         " c.NomeCartella FROM TabDisegni d JOIN TabCartelle c"
                                         " ON c.CodiceCartella = d.CodiceCartella"
                                         " WHERE d.CodiceDisegno < ? ORDER BY d.CodiceDisegno"));
    q.addBindValue(BaseCopieLavoro);
    Esegui(q);
    QList<DisegnoSalvato> disegni;
    while (q.next()) {
        const int32_t codice = LeggiCodice(q.value(0), QStringLiteral("CodiceDisegno"));
        const QString nome = LeggiTesto(q.value(1), QStringLiteral("NomeDisegno"));
        const int32_t cartella = LeggiCodice(q.value(2), QStringLiteral("CodiceCartella"));
        const QString nomeCartella = LeggiTesto(q.value(3), QStringLiteral("NomeCartella"));
        disegni.append(
            {codice, QDir::cleanPath(PercorsoBitmapDisegno(nomeCartella, cartella, nome, codice))});
    }
    return disegni;
}

// Draws the bitmap of `codice` again from its committed rows, as a load shows
// it: a fresh canvas on the starting background, every action replayed.
void RidisegnaBitmap(const DisegnoSalvato& disegno) {
    QList<RecordAzione> lista{RecordAzione{}};
    int32_t numero = 0;
    SezioneCorrente = 4610;
    try {
        LeggiAzioniDisegno(disegno.Codice, lista, numero);
    } catch (const ErroreZanto& e) {
        // A drawing saved with no actions is an empty canvas.
        if (e.Numero != 3021) throw;
    }
    SezioneCorrente = 4620;
    Superficie quadro(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    quadro.ImpostaBackColor(Predefiniti::ColoreSfondo);
    const int16_t prima = std::exchange(PrimaAzioneTraccia, int16_t(1));
    const int16_t ultima = std::exchange(UltimaAzioneTraccia, int16_t(numero));
    TracciaAzioni(quadro, lista);
    PrimaAzioneTraccia = prima;
    UltimaAzioneTraccia = ultima;
    SezioneCorrente = 4630;
    ScriviBitmapAParte(disegno.Percorso, quadro.ImmagineBmp());
    SezioneCorrente = 4640;
    SostituisciBitmap(disegno.Percorso);
}

} // namespace

QString PercorsoBitmapNuova(const QString& percorso) {
    return percorso + SuffissoNuova;
}

void ScriviBitmapAParte(const QString& percorso, const QByteArray& dati) {
    const QString nuova = PercorsoBitmapNuova(percorso);
    // Never through a link: no path may lead outside the data folder.
    const int fd = Apri(QFile::encodeName(nuova), O_WRONLY | O_CREAT | O_TRUNC | O_NOFOLLOW, 0644);
    if (fd < 0) throw ErroreSistema(errno, nuova);
    const auto guasto = [&](int codice) {
        ::close(fd);
        return ErroreSistema(codice, nuova);
    };
    qsizetype scritti = 0;
    while (scritti < dati.size()) {
        const ssize_t n = ::write(fd, dati.constData() + scritti, size_t(dati.size() - scritti));
        if (n < 0 && errno == EINTR) continue;
        if (n <= 0) throw guasto(n < 0 ? errno : ENOSPC);
        scritti += n;
    }
    // Down to the disk before the rows are committed: a commit that outlives
    // a power cut must find the whole file beside the old one.
    if (::fdatasync(fd) != 0) throw guasto(errno);
    if (::close(fd) != 0) throw ErroreSistema(errno, nuova);
    SincronizzaCartella(QFileInfo(percorso).absolutePath());
}

void SostituisciBitmap(const QString& percorso) {
    const QByteArray nuova = QFile::encodeName(PercorsoBitmapNuova(percorso));
    // rename() replaces the old file in one step: at no instant is there none.
    if (::rename(nuova.constData(), QFile::encodeName(percorso).constData()) != 0)
        throw ErroreSistema(errno, percorso);
    SincronizzaCartella(QFileInfo(percorso).absolutePath());
}

int32_t RiparaBitmapDisegni() {
    // The bitmaps come from rows that are safe: one that cannot be drawn is
    // reported, never a reason for the start to end the program.
    struct FuoriDallAvvio {
        int16_t Prima = std::exchange(FaseAvvio, int16_t(0));
        ~FuoriDallAvvio() { FaseAvvio = Prima; }
    } fuori;

    // One listing of each folder's directory: what is there, what was left aside.
    QSet<QString> cartelle;
    QSet<QString> presenti;
    QSet<QString> nuove;
    QList<DisegnoSalvato> disegni;
    const bool letti = EseguiProtetto([&] {
        SezioneCorrente = 4600;
        // Clean paths on both sides, so that the rows' paths and the listing's meet.
        const QDir radice(QDir::cleanPath(RadiceDati + '/' + NomiArchivi::SottocartellaDisegni));
        const QFileInfoList sottocartelle =
            radice.entryInfoList(QDir::Dirs | QDir::NoDotAndDotDot | QDir::Hidden);
        for (const QFileInfo& sottocartella : sottocartelle) {
            const QString percorso = radice.filePath(sottocartella.fileName());
            cartelle.insert(percorso);
            const QStringList file =
                QDir(percorso).entryList(QDir::Files | QDir::Hidden | QDir::System);
            for (const QString& nome : file) {
                const QString completo = percorso + '/' + nome;
                if (nome.endsWith(SuffissoNuova))
                    nuove.insert(completo);
                else
                    presenti.insert(completo);
            }
        }
        disegni = DisegniConBitmap();
    });
    if (!letti) return 0;

    int32_t ridisegnati = 0;
    QSet<QString> tenute; // left aside for a drawing that could not be drawn
    for (const DisegnoSalvato& disegno : std::as_const(disegni)) {
        // A folder without its directory has nowhere to keep a bitmap; its
        // next save reports that.
        if (!cartelle.contains(QFileInfo(disegno.Percorso).path())) continue;
        const QString nuova = PercorsoBitmapNuova(disegno.Percorso);
        if (!nuove.contains(nuova) && presenti.contains(disegno.Percorso)) continue;
        if (EseguiProtetto([&] { RidisegnaBitmap(disegno); })) {
            ++ridisegnati;
            presenti.insert(disegno.Percorso);
            nuove.remove(nuova);
        } else if (QFileInfo::exists(nuova)) {
            tenute.insert(nuova);
        }
    }
    // What is left aside for no drawing was a save whose rows never went in.
    for (const QString& nuova : std::as_const(nuove))
        if (!tenute.contains(nuova))
            EseguiProtetto([&] {
                SezioneCorrente = 4690;
                if (::unlink(QFile::encodeName(nuova).constData()) != 0 && errno != ENOENT)
                    throw ErroreSistema(errno, nuova);
            });
    return ridisegnati;
}
