#include "base/FileRegolari.h"

#include <QFile>

#include <algorithm>
#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

bool FileRegolare(const QString& percorso) {
    struct stat info {};
    return ::stat(QFile::encodeName(percorso).constData(), &info) == 0 && S_ISREG(info.st_mode);
}

std::optional<QByteArray> LeggiFileRegolare(const QString& percorso, qint64 massimo) {
    // Opened without waiting, then asked what it is: nothing can change in between.
    const int fd = ::open(QFile::encodeName(percorso).constData(),
                          O_RDONLY | O_NONBLOCK | O_CLOEXEC | O_NOCTTY);
    if (fd < 0) return std::nullopt;
    struct Chiudi {
        int Fd;
        ~Chiudi() { ::close(Fd); }
    } chiudi{fd};
    struct stat info {};
    if (::fstat(fd, &info) != 0 || !S_ISREG(info.st_mode) || info.st_size > massimo)
        return std::nullopt;
    QByteArray dati;
    dati.resize(qsizetype(info.st_size));
    qsizetype letti = 0;
    for (;;) {
        if (letti == dati.size()) {
            // A file that grew while it was read: one byte more tells.
            if (dati.size() > massimo) return std::nullopt;
            dati.resize(dati.size() + std::max<qsizetype>(4096, dati.size() / 2));
        }
        const ssize_t n = ::read(fd, dati.data() + letti, size_t(dati.size() - letti));
        if (n < 0 && errno == EINTR) continue;
        if (n < 0) return std::nullopt;
        if (n == 0) break;
        letti += n;
    }
    if (letti > massimo) return std::nullopt;
    dati.truncate(letti);
    return dati;
}
