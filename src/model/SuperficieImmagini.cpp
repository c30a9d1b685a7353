// The pictures of the surface: reading a picture file, drawing it, and the
// bitmap written out.
#include "model/Superficie.h"

#include "base/GestioneErrori.h"
#include "base/MappaErrori.h"
#include "base/Misure.h"
#include "base/Utilita.h"
#include "model/SuperficieComune.h"

#include <QBuffer>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QImageWriter>
#include <QPainter>

#include <algorithm>
#include <cstdlib>
#include <deque>

namespace {

QImage Decodifica(QImageReader& lettore) {
    lettore.setAutoTransform(false);
    // A photo far larger than the canvas is decoded straight at the canvas's
    // size: a camera's picture would otherwise take seconds and hundreds of MB.
    const QSize intera = lettore.size();
    if (intera.width() > MassimoFiguraPixel.width() ||
        intera.height() > MassimoFiguraPixel.height())
        lettore.setScaledSize(intera.scaled(MassimoFiguraPixel, Qt::KeepAspectRatio));
    return lettore.read();
}

} // namespace

bool Superficie::FiguraLeggibile(const QByteArray& dati, const QString& estensione) {
    QBuffer memoria;
    memoria.setData(dati);
    if (!memoria.open(QIODevice::ReadOnly)) return false;
    QImageReader lettore(&memoria, estensione.toLatin1());
    return !Decodifica(lettore).isNull();
}

QImage Superficie::LoadPicture(const QString& percorso) {
    const QFileInfo info(percorso);
    if (!info.exists() || info.isDir()) throw ErroreFileAssente(percorso);
    // A pipe or a device would block the replay for good: only plain files are read.
    if (!info.isFile()) throw ErroreZanto{481, QStringLiteral("Immagine non valida: ") + percorso};
    // A drawing often shows the same picture many times: the last ones read are
    // kept while their file stays the same, so a replay decodes each only once.
    struct Letta {
        QString Percorso;
        QDateTime Modifica;
        qint64 Dimensione;
        QImage Immagine;
    };
    static std::deque<Letta> lette;
    const QDateTime modifica = info.lastModified();
    for (const Letta& l : lette)
        if (l.Percorso == percorso && l.Modifica == modifica && l.Dimensione == info.size())
            return l.Immagine;
    QImageReader lettore(percorso);
    QImage immagine = Decodifica(lettore);
    if (immagine.isNull())
        throw ErroreZanto{481, QStringLiteral("Immagine non valida: ") + percorso};
    constexpr qsizetype MassimoTenuto = 64 * 1024 * 1024;
    if (immagine.sizeInBytes() <= MassimoTenuto / 4) {
        lette.push_front({percorso, modifica, info.size(), immagine});
        qsizetype totale = 0;
        for (auto it = lette.begin(); it != lette.end(); ++it) {
            totale += it->Immagine.sizeInBytes();
            if (totale > MassimoTenuto) {
                lette.erase(it, lette.end());
                break;
            }
        }
    }
    return immagine;
}

void Superficie::PaintPicture(const QImage& immagine, float x, float y, float larghezza,
                              float altezza) {
    if (immagine.isNull()) return;
    const int x1 = PuntoPixelX(x);
    const int y1 = PuntoPixelY(y);
    const int x2 = PuntoPixelX(double(x) + larghezza);
    const int y2 = PuntoPixelY(double(y) + altezza);
    if (x1 == x2 || y1 == y2) return;
    if (std::max(x1, x2) < 0 || std::max(y1, y2) < 0 || std::min(x1, x2) > bitmap_.width() ||
        std::min(y1, y2) > bitmap_.height())
        return;
    // A negative size turns the picture over on that axis.
    const QImage voltata = immagine.mirrored(x2 < x1, y2 < y1);
    {
        QPainter& p = Pittore();
        p.drawImage(QRect(QPoint(std::min(x1, x2), std::min(y1, y2)),
                          QSize(std::abs(x2 - x1), std::abs(y2 - y1))),
                    voltata);
    }
    if (!AutoRedraw) Avvisa();
}

QByteArray Superficie::ImmagineBmp() const {
    ChiudiPittore();
    QByteArray dati;
    QBuffer memoria(&dati);
    memoria.open(QIODevice::WriteOnly);
    QImageWriter scrittore(&memoria, "bmp");
    if (!scrittore.write(bitmap_))
        throw ErroreZanto{7, QStringLiteral("Memoria esaurita: ") + scrittore.errorString()};
    return dati;
}

void Superficie::SalvaImmagine(const QString& percorso) const {
    const QByteArray dati = ImmagineBmp();
    QFile file(percorso);
    if (!file.open(QIODevice::WriteOnly | QIODevice::Truncate))
        throw ErroreFile(file.error(), percorso, file.errorString());
    if (file.write(dati) != dati.size() || !file.flush()) {
        const ErroreZanto errore = ErroreFile(file.error(), percorso, file.errorString());
        file.close();
        file.remove();
        throw errore;
    }
    file.close();
}
