#pragma once

// A printed page read back as the paper would show it: the PDF utilities'
// text, and the page rasterised at 96 dpi.
#include <QImage>
#include <QProcess>
#include <QRect>
#include <QString>
#include <QStringList>

#include <cstdint>

namespace PaginaStampata {

// A tool of the PDF utilities; an empty result when it failed.
inline QByteArray Esegui(const QString& programma, const QStringList& argomenti) {
    QProcess p;
    p.start(programma, argomenti);
    if (!p.waitForFinished(60000) || p.exitCode() != 0) return {};
    return p.readAllStandardOutput();
}

inline bool Vicino(QRgb p, int32_t bgr, int tolleranza = 10) {
    return qAbs(qRed(p) - (bgr & 0xFF)) <= tolleranza &&
           qAbs(qGreen(p) - ((bgr >> 8) & 0xFF)) <= tolleranza &&
           qAbs(qBlue(p) - ((bgr >> 16) & 0xFF)) <= tolleranza;
}

// The box of the pixels of one colour inside `dove`.
inline QRect BoxDi(const QImage& img, int32_t bgr, const QRect& dove) {
    QRect r;
    for (int y = dove.top(); y <= dove.bottom(); ++y)
        for (int x = dove.left(); x <= dove.right(); ++x)
            if (Vicino(img.pixel(x, y), bgr)) r |= QRect(x, y, 1, 1);
    return r;
}

// The first page of `pdf` at 96 dpi, kept as `radice`.png beside the test's files.
inline QImage Rasterizza(const QString& pdf, const QString& radice) {
    Esegui(QStringLiteral("pdftoppm"),
           {QStringLiteral("-r"), QStringLiteral("96"), QStringLiteral("-png"),
            QStringLiteral("-singlefile"), pdf, radice});
    return QImage(radice + QStringLiteral(".png"));
}

// The words of the page.
inline QString Testo(const QString& pdf) {
    return QString::fromUtf8(Esegui(QStringLiteral("pdftotext"), {pdf, QStringLiteral("-")}));
}

} // namespace PaginaStampata
