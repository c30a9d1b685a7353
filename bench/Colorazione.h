#pragma once

// The canvases the flood-fill benchmarks share.

#include "model/Paint.h"
#include "model/RecordAzione.h"
#include "model/Superficie.h"

#include <QImage>
#include <QPoint>
#include <QRandomGenerator>

constexpr int32_t SfondoColorazione = 0xC0C0C0;

// 200 outlines of boxes, ellipses and lines in black, always at the same places.
inline void DuecentoForme(Superficie& s) {
    QRandomGenerator caso(7);
    s.FillStyle = 1;
    s.DrawWidth = 2;
    for (int i = 0; i < 200; ++i) {
        const float x = float(caso.bounded(LarghezzaQuadroDisegno));
        const float y = float(caso.bounded(AltezzaQuadroDisegno));
        const float l = float(300 + caso.bounded(3000));
        const float h = float(300 + caso.bounded(3000));
        switch (i % 3) {
        case 0:
            s.Box(x, y, x + l, y + h, 0);
            break;
        case 1:
            s.Circle(x, y, l, 0, h / l);
            break;
        default:
            s.Line(x, y, x + l, y - h, 0);
            break;
        }
    }
}

// The background between the shapes: the pixel of a coarse grid whose region
// is the largest, and that region's size.
inline QPoint RegionePiuGrande(const QImage& bitmap, int& area) {
    QPoint migliore;
    area = 0;
    for (int gx = 1; gx < 16; ++gx)
        for (int gy = 1; gy < 12; ++gy) {
            QImage prova = bitmap.copy();
            const int px = gx * prova.width() / 16;
            const int py = gy * prova.height() / 12;
            if (!RiempiZona(prova, px, py, prova.pixel(px, py), qRgb(1, 2, 3))) continue;
            int n = 0;
            for (int yy = 0; yy < prova.height(); ++yy)
                for (int xx = 0; xx < prova.width(); ++xx)
                    if (prova.pixel(xx, yy) == qRgb(1, 2, 3)) ++n;
            if (n > area) {
                area = n;
                migliore = QPoint(px, py);
            }
        }
    return migliore;
}

// The background with a black pixel at every odd column of every odd row:
// every other row is a string of one-pixel spans, each joining the two full
// rows around it.
inline QImage Reticolo(int larghezza, int altezza) {
    QImage img(larghezza, altezza, QImage::Format_RGB32);
    img.fill(QColor(0xC0, 0xC0, 0xC0));
    for (int y = 1; y < altezza; y += 2)
        for (int x = 1; x < larghezza; x += 2)
            img.setPixel(x, y, qRgb(0, 0, 0));
    return img;
}

// Black walls on every odd column, open at the top and the bottom in turn:
// one path that winds down and up the whole canvas, one pixel wide.
inline QImage Serpentina(int larghezza, int altezza) {
    QImage img(larghezza, altezza, QImage::Format_RGB32);
    img.fill(QColor(0xC0, 0xC0, 0xC0));
    for (int x = 1; x < larghezza; x += 2) {
        const int aperta = x % 4 == 1 ? 0 : altezza - 1;
        for (int y = 0; y < altezza; ++y)
            if (y != aperta) img.setPixel(x, y, qRgb(0, 0, 0));
    }
    return img;
}
