#pragma once

#include <QColor>
#include <QImage>
#include <QPointF>
#include <QPolygonF>

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <span>
#include <utility>

// The drawing of lines, curves and ellipses straight on a bitmap's pixels, for
// the wide and dotted pens and the ellipses that a replay draws by the thousand.
namespace Raster {

// Direct drawing on a layer's pixels, for the wide and dotted pens that Qt
// strokes slowly. A pixel belongs to a shape when its sample point lies
// inside, and a sample on the edge belongs to the pixel left of or above it,
// as in Qt's aliased drawing. A pen samples at the pixel's centre; a fill
// that the program has moved by half a pixel samples at its corner.
class Tela {
public:
    Tela(QImage& strato, const QColor& colore, bool penna)
        : pixel_(reinterpret_cast<QRgb*>(strato.bits())), passo_(strato.bytesPerLine() / 4),
          larghezza_(strato.width()), altezza_(strato.height()), colore_(colore.rgb()),
          centro_(penna ? 0.5 : 0.0) {}

    // Where row y samples the shape.
    double Campione(int y) const { return y + centro_; }

    // The pixels of row y whose samples lie in (xa, xb].
    void Tratto(int y, double xa, double xb) const {
        if (y < 0 || y >= altezza_ || !(xa < xb)) return;
        const auto [da, fino] = Pixel(xa, xb, larghezza_);
        if (da >= fino) return;
        QRgb* riga = pixel_ + qsizetype(y) * passo_;
        std::fill(riga + da, riga + fino, colore_);
    }

    // The rows whose samples lie in (ya, yb], within the layer.
    std::pair<int, int> Righe(double ya, double yb) const { return Pixel(ya, yb, altezza_); }

private:
    // The pixels from `da` up to `fino` left out whose samples lie in (a, b].
    std::pair<int, int> Pixel(double a, double b, int limite) const {
        if (std::isnan(a) || std::isnan(b)) return {0, 0};
        // Clamped first: far outside values must not overflow an int.
        const double da = std::floor(std::clamp(a - centro_, -2.0, limite + 1.0)) + 1;
        const double fino = std::floor(std::clamp(b - centro_, -2.0, limite + 1.0)) + 1;
        return {std::max(static_cast<int>(da), 0), std::min(static_cast<int>(fino), limite)};
    }

    QRgb* pixel_;
    qsizetype passo_;
    int larghezza_;
    int altezza_;
    QRgb colore_;
    double centro_;
};

// The segment from a to b drawn `r` to each side: a band with flat ends, or
// with round ones, as a wide pen draws it.
void Segmento(const Tela& tela, QPointF a, QPointF b, double r, bool tondo);
// Closed polygons filled by the odd-even rule, one row at a time.
void RiempiPoligoni(const Tela& tela, std::initializer_list<std::span<const QPointF>> contorni);
// A wide broken pen of style 1 to 4 along a path.
void Tratteggia(const Tela& tela, std::span<const QPointF> punti, bool chiusa, int larghezza,
                int16_t stile);

struct Raggi {
    double X;
    double Y;
};
// The surface's rule: the radius is the longer axis, the aspect is vertical over
// horizontal.
Raggi RaggiEllisse(double raggio, double aspetto);
// Points on the ellipse from `a` to `b` by the angle's parameter.
QPolygonF PuntiEllisse(QPointF centro, double rx, double ry, double a, double b);
// Half the width of an ellipse of radii rx, ry at height dy from its centre;
// negative outside it.
double MezzaCorda(double rx, double ry, double dy);
// A whole ellipse, or the ring between it grown and shrunk by `meta`.
void Ellisse(const Tela& tela, QPointF centro, double rx, double ry, double meta);
// A solid pen wider than a pixel along an arc or a whole ellipse.
void Fascia(const Tela& tela, QPointF centro, double rx, double ry, double a, double b,
            int larghezza, bool chiusa);

} // namespace Raster
