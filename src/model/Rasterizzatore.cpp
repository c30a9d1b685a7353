#include "model/Rasterizzatore.h"

#include <limits>
#include <vector>

namespace {

// The span of a row that a convex shape covers, grown piece by piece.
struct Campata {
    double A = std::numeric_limits<double>::infinity();
    double B = -std::numeric_limits<double>::infinity();
    void Unisci(double a, double b) {
        if (!(a < b)) return;
        A = std::min(A, a);
        B = std::max(B, b);
    }
};

// The part of row y inside the disc of radius r round c.
void UnisciDisco(Campata& campata, double y, QPointF c, double r) {
    const double dy = y - c.y();
    if (dy <= -r || dy > r) return;
    const double dx = std::sqrt(std::max(0.0, r * r - dy * dy));
    campata.Unisci(c.x() - dx, c.x() + dx);
}

// Qt's dash patterns in pen widths, dash first.
std::span<const double> Trattini(int16_t stile) {
    static constexpr double Tratto[] = {4, 2};
    static constexpr double Punto[] = {1, 2};
    static constexpr double TrattoPunto[] = {4, 2, 1, 2};
    static constexpr double TrattoPuntoPunto[] = {4, 2, 1, 2, 1, 2};
    switch (stile) {
    case 1:
        return Tratto;
    case 2:
        return Punto;
    case 3:
        return TrattoPunto;
    default:
        return TrattoPuntoPunto;
    }
}

} // namespace

namespace Raster {

// The segment from a to b drawn `r` to each side: a band with flat ends, or
// with round ones, as a wide pen draws it.
void Segmento(const Tela& tela, QPointF a, QPointF b, double r, bool tondo) {
    const double dx = b.x() - a.x();
    const double dy = b.y() - a.y();
    const double lunghezza = std::hypot(dx, dy);
    if (!std::isfinite(lunghezza)) return;
    const auto [da, fino] = tela.Righe(std::min(a.y(), b.y()) - r, std::max(a.y(), b.y()) + r + 1);
    const double ux = lunghezza > 0 ? dx / lunghezza : 1;
    const double uy = lunghezza > 0 ? dy / lunghezza : 0;
    constexpr double Quasi = 1e-12;
    for (int riga = da; riga < fino; ++riga) {
        const double y = tela.Campione(riga);
        Campata campata;
        const double oy = y - a.y();
        if (lunghezza > 0) {
            if (std::fabs(uy) < Quasi) {
                if (oy > -r && oy <= r)
                    campata.Unisci(std::min(a.x(), b.x()), std::max(a.x(), b.x()));
            } else if (std::fabs(ux) < Quasi) {
                if (y > std::min(a.y(), b.y()) && y <= std::max(a.y(), b.y()))
                    campata.Unisci(a.x() - r, a.x() + r);
            } else {
                // Along the segment 0..lunghezza, across it -r..r.
                double s0 = a.x() - oy * uy / ux;
                double s1 = a.x() + (lunghezza - oy * uy) / ux;
                double t0 = a.x() + (oy * ux - r) / uy;
                double t1 = a.x() + (oy * ux + r) / uy;
                if (s0 > s1) std::swap(s0, s1);
                if (t0 > t1) std::swap(t0, t1);
                campata.Unisci(std::max(s0, t0), std::min(s1, t1));
            }
        }
        if (tondo) {
            UnisciDisco(campata, y, a, r);
            UnisciDisco(campata, y, b, r);
        }
        tela.Tratto(riga, campata.A, campata.B);
    }
}

// Closed polygons filled by the odd-even rule, one row at a time.
void RiempiPoligoni(const Tela& tela, std::initializer_list<std::span<const QPointF>> contorni) {
    struct Lato {
        double Y0;
        double Y1;
        double X0;
        double Pendenza;
    };
    // Kept from one call to the next: a replay fills thousands of shapes.
    static thread_local std::vector<Lato> lati;
    static thread_local std::vector<int> attivi;
    static thread_local std::vector<double> incroci;
    lati.clear();
    double alto = std::numeric_limits<double>::infinity();
    double basso = -alto;
    for (const std::span<const QPointF> punti : contorni) {
        const size_t n = punti.size();
        for (size_t i = 0; i < n; ++i) {
            QPointF p = punti[i];
            QPointF q = punti[(i + 1) % n];
            if (p.y() == q.y() || !std::isfinite(p.y()) || !std::isfinite(q.y())) continue;
            if (p.y() > q.y()) std::swap(p, q);
            lati.push_back({p.y(), q.y(), p.x(), (q.x() - p.x()) / (q.y() - p.y())});
            alto = std::min(alto, p.y());
            basso = std::max(basso, q.y());
        }
    }
    if (lati.empty()) return;
    std::sort(lati.begin(), lati.end(), [](const Lato& l, const Lato& m) { return l.Y0 < m.Y0; });
    attivi.clear();
    const auto [da, fino] = tela.Righe(alto, basso);
    size_t prossimo = 0;
    for (int riga = da; riga < fino; ++riga) {
        const double y = tela.Campione(riga);
        // A side covers the samples below its top down to its bottom included.
        for (; prossimo < lati.size() && lati[prossimo].Y0 < y; ++prossimo)
            if (lati[prossimo].Y1 >= y) attivi.push_back(int(prossimo));
        std::erase_if(attivi, [&](int i) { return lati[size_t(i)].Y1 < y; });
        incroci.clear();
        for (const int i : attivi) {
            const Lato& l = lati[size_t(i)];
            incroci.push_back(l.X0 + (y - l.Y0) * l.Pendenza);
        }
        std::sort(incroci.begin(), incroci.end());
        for (size_t k = 0; k + 1 < incroci.size(); k += 2)
            tela.Tratto(riga, incroci[k], incroci[k + 1]);
    }
}

// A wide broken pen along a path: the pattern runs on from one side to the
// next, and each dash is a short solid band, square for dots and round ended
// for the rest, as Qt's caps for those styles are.
void Tratteggia(const Tela& tela, std::span<const QPointF> punti, bool chiusa, int larghezza,
                int16_t stile) {
    const std::span<const double> trattini = Trattini(stile);
    const double r = larghezza / 2.0;
    const bool tondo = stile != 2;
    size_t fase = 0;
    double resta = trattini[0] * larghezza;
    const size_t lati = chiusa ? punti.size() : punti.size() - 1;
    for (size_t i = 0; i < lati && punti.size() > 1; ++i) {
        const QPointF a = punti[i];
        const QPointF b = punti[(i + 1) % punti.size()];
        const double lunghezza = std::hypot(b.x() - a.x(), b.y() - a.y());
        if (!std::isfinite(lunghezza) || lunghezza <= 0) continue;
        const QPointF verso = (b - a) / lunghezza;
        double fatto = 0;
        while (fatto < lunghezza) {
            const double passo = std::min(resta, lunghezza - fatto);
            if (fase % 2 == 0)
                Segmento(tela, a + verso * fatto, a + verso * (fatto + passo), r, tondo);
            fatto += passo;
            resta -= passo;
            if (resta <= 1e-9) {
                fase = (fase + 1) % trattini.size();
                resta = trattini[fase] * larghezza;
            }
        }
    }
}

// The surface's rule: the radius is the longer axis, the aspect is vertical over
// horizontal.
Raggi RaggiEllisse(double raggio, double aspetto) {
    raggio = std::fabs(raggio);
    aspetto = std::fabs(aspetto);
    if (aspetto <= 1.0) return {raggio, raggio * aspetto};
    return {raggio / aspetto, raggio};
}

// Points on the ellipse from `a` to `b` by the angle's parameter, so that the
// ends are exactly where the selection and the bounding box look for them.
// Chords of about six pixels stray from the curve by far less than a pixel.
QPolygonF PuntiEllisse(QPointF centro, double rx, double ry, double a, double b) {
    const double giro = std::max(rx, ry) * (b - a);
    const int passi = std::clamp(static_cast<int>(std::ceil(giro / 6.0)), 8, 2048);
    // Each point is the previous one turned by one step: two products instead
    // of a sine and a cosine.
    const double passo = (b - a) / passi;
    const double cosPasso = std::cos(passo);
    const double sinPasso = std::sin(passo);
    double c = std::cos(a);
    double s = std::sin(a);
    QPolygonF punti(passi + 1);
    for (int i = 0; i < passi; ++i) {
        punti[i] = QPointF(centro.x() + rx * c, centro.y() - ry * s);
        const double c1 = c * cosPasso - s * sinPasso;
        s = s * cosPasso + c * sinPasso;
        c = c1;
    }
    // The last point exactly at the end angle.
    punti[passi] = QPointF(centro.x() + rx * std::cos(b), centro.y() - ry * std::sin(b));
    return punti;
}

// Half the width of an ellipse of radii rx, ry at height dy from its centre;
// negative outside it.
double MezzaCorda(double rx, double ry, double dy) {
    if (rx <= 0 || ry <= 0 || dy <= -ry || dy > ry) return -1;
    const double t = dy / ry;
    return rx * std::sqrt(std::max(0.0, 1 - t * t));
}

// A whole ellipse, or the ring between it grown and shrunk by `meta`, one row
// at a time from its equation: no outline to build and sort for a shape that
// replays draw by the thousand.
void Ellisse(const Tela& tela, QPointF centro, double rx, double ry, double meta) {
    const double ex = rx + meta;
    const double ey = ry + meta;
    const auto [da, fino] = tela.Righe(centro.y() - ey, centro.y() + ey);
    for (int riga = da; riga < fino; ++riga) {
        const double dy = tela.Campione(riga) - centro.y();
        const double fuori = MezzaCorda(ex, ey, dy);
        if (fuori < 0) continue;
        const double dentro = meta > 0 ? MezzaCorda(rx - meta, ry - meta, dy) : -1;
        if (dentro < 0) {
            tela.Tratto(riga, centro.x() - fuori, centro.x() + fuori);
        } else {
            tela.Tratto(riga, centro.x() - fuori, centro.x() - dentro);
            tela.Tratto(riga, centro.x() + dentro, centro.x() + fuori);
        }
    }
}

// A solid pen wider than a pixel draws a curve as the band between two curves
// half a width inside and outside it: the look of a stroke, for a fraction of
// the cost, which a replay of thousands of curves needs.
void Fascia(const Tela& tela, QPointF centro, double rx, double ry, double a, double b,
            int larghezza, bool chiusa) {
    const double meta = larghezza / 2.0;
    if (chiusa) {
        Ellisse(tela, centro, rx, ry, meta);
        return;
    }
    const QPolygonF esterno = PuntiEllisse(centro, rx + meta, ry + meta, a, b);
    QPolygonF interno =
        PuntiEllisse(centro, std::max(0.0, rx - meta), std::max(0.0, ry - meta), a, b);
    std::reverse(interno.begin(), interno.end());
    RiempiPoligoni(tela, {esterno + interno});
    // Round ends, as a stroke has them.
    const QPointF inizio(centro.x() + rx * std::cos(a), centro.y() - ry * std::sin(a));
    const QPointF fine(centro.x() + rx * std::cos(b), centro.y() - ry * std::sin(b));
    Segmento(tela, inizio, inizio, meta, true);
    Segmento(tela, fine, fine, meta, true);
}

} // namespace Raster
