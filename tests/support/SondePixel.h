#pragma once

#include <QImage>
#include <QPoint>
#include <QRect>

#include <cmath>
#include <cstdint>

// Pixel probes of the surface tests. Colours are the program's 0x00BBGGRR longs.
namespace SondePixel {

inline constexpr int32_t Sfondo = 0xC0C0C0; // the canvas background
inline constexpr int32_t Nero = 0x000000;
inline constexpr int32_t Rosso = 0x0000FF;
inline constexpr int32_t Verde = 0x00FF00;
inline constexpr int32_t Blu = 0xFF0000;
inline constexpr int32_t Giallo = 0x00FFFF;
inline constexpr int32_t Bianco = 0xFFFFFF;

// The colour at a pixel, as the program keeps colours.
inline int32_t Colore(const QImage& img, int x, int y) {
    const QRgb c = img.pixel(x, y);
    return qRed(c) | (qGreen(c) << 8) | (qBlue(c) << 16);
}

// The pixel that holds a point given in twips.
inline int Px(double twips) {
    return static_cast<int>(std::lrint(twips / 15.0));
}

inline int32_t Colore(const QImage& img, QPoint p) {
    return Colore(img, p.x(), p.y());
}

// The pixel of a point in twips.
inline QPoint Punto(double x, double y) {
    return {Px(x), Px(y)};
}

// The colour at a point in twips.
inline int32_t ColoreA(const QImage& img, double xTwips, double yTwips) {
    return Colore(img, Px(xTwips), Px(yTwips));
}

// Does a pixel within `raggio` pixels of (x, y), across or along, have the colour?
inline bool Intorno(const QImage& img, int x, int y, int raggio, int32_t colore) {
    for (int dy = -raggio; dy <= raggio; ++dy)
        for (int dx = -raggio; dx <= raggio; ++dx)
            if (Colore(img, x + dx, y + dy) == colore) return true;
    return false;
}

// Does the pixel of a point in twips, or one of its eight neighbours, have the
// colour? A curve's pixels lie within one pixel of the exact point.
inline bool Vicino(const QImage& img, double xTwips, double yTwips, int32_t colore) {
    return Intorno(img, Px(xTwips), Px(yTwips), 1, colore);
}

// How many pixels of the picture have the colour.
inline int ContaColore(const QImage& img, int32_t colore) {
    int n = 0;
    for (int y = 0; y < img.height(); ++y)
        for (int x = 0; x < img.width(); ++x)
            if (Colore(img, x, y) == colore) ++n;
    return n;
}

// Every pixel of a picture that is not background.
inline int Disegnati(const QImage& img, int32_t sfondo = Sfondo) {
    return img.width() * img.height() - ContaColore(img, sfondo);
}

// How many pixels of `colore` a row holds from x1 to x2, both included.
inline int InRiga(const QImage& img, int y, int x1, int x2, int32_t colore) {
    int n = 0;
    for (int x = x1; x <= x2; ++x)
        if (Colore(img, x, y) == colore) ++n;
    return n;
}

inline int InColonna(const QImage& img, int x, int y1, int y2, int32_t colore) {
    int n = 0;
    for (int y = y1; y <= y2; ++y)
        if (Colore(img, x, y) == colore) ++n;
    return n;
}

// The box of the pixels that are not background within `raggio` of a point.
inline QRect Macchia(const QImage& img, QPoint centro, int raggio, int32_t sfondo = Sfondo) {
    QRect r;
    for (int y = centro.y() - raggio; y <= centro.y() + raggio; ++y)
        for (int x = centro.x() - raggio; x <= centro.x() + raggio; ++x)
            if (Colore(img, x, y) != sfondo) r |= QRect(x, y, 1, 1);
    return r;
}

} // namespace SondePixel
