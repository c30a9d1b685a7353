#pragma once

#include <QImage>

#include <cmath>
#include <cstdint>

// Pixel probes of the surface tests.
namespace SondePixel {

// The colour at a pixel, as the program keeps colours.
inline int32_t Colore(const QImage& img, int x, int y) {
    const QRgb c = img.pixel(x, y);
    return qRed(c) | (qGreen(c) << 8) | (qBlue(c) << 16);
}

// The pixel that holds a point given in twips.
inline int Px(double twips) {
    return static_cast<int>(std::lrint(twips / 15.0));
}

} // namespace SondePixel
