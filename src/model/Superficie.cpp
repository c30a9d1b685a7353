#include "model/Superficie.h"

#include "start/GestioneErrori.h"
#include "start/MappaErrori.h"
#include "start/Misure.h"
#include "start/Numeri.h"
#include "start/Utilita.h"

#include <QBuffer>
#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QFontMetricsF>
#include <QGlyphRun>
#include <QImageReader>
#include <QImageWriter>
#include <QPainter>
#include <QPolygonF>
#include <QTextLayout>

#include <algorithm>
#include <cmath>
#include <deque>
#include <limits>
#include <numbers>
#include <span>
#include <vector>

namespace {

// 96 dots per inch, so that font sizes in points come out as on the screen.
constexpr int PuntiPerMetro = 3780;

constexpr double DuePi = 2 * std::numbers::pi;

// Twips in one unit of each fixed scale mode; pixels are handled apart.
double TwipsPerUnita(int16_t modo) {
    switch (modo) {
    case ScalaPunti:
        return 20.0;
    case ScalaPollici:
        return 1440.0;
    case ScalaMillimetri:
        return 1440.0 / 25.4;
    case ScalaCentimetri:
        return 1440.0 / 2.54;
    default:
        return 1.0;
    }
}

QImage NuovoStrato(int larghezza, int altezza, int32_t sfondo) {
    QImage img(std::max(1, larghezza), std::max(1, altezza), QImage::Format_RGB32);
    img.setDotsPerMeterX(PuntiPerMetro);
    img.setDotsPerMeterY(PuntiPerMetro);
    img.fill(ColoreQt(sfondo));
    return img;
}

// A painter for one operation: never antialiased, whatever the platform's default.
void PreparaPittore(QPainter& p) {
    p.setRenderHint(QPainter::Antialiasing, false);
    p.setRenderHint(QPainter::TextAntialiasing, false);
    p.setRenderHint(QPainter::SmoothPixmapTransform, false);
}

QString SenzaFineRiga(QString testo) {
    testo.remove(QChar(u'\r'));
    testo.remove(QChar(u'\n'));
    return testo;
}

} // namespace

Superficie::Superficie(int32_t larghezzaTwips, int32_t altezzaTwips) {
    const int w = static_cast<int>(Arrotonda(double(larghezzaTwips) / TwipsPerPixel));
    const int h = static_cast<int>(Arrotonda(double(altezzaTwips) / TwipsPerPixel));
    bitmap_ = NuovoStrato(w, h, sfondo_);
    schermo_ = bitmap_;
    ImpostaScaleMode(ScalaTwips);
}

Superficie::~Superficie() {
    ChiudiPittore();
}

QPainter& Superficie::Pittore() {
    QImage& strato = AutoRedraw ? bitmap_ : schermo_;
    if (pittore_ && stratoPittore_ == &strato) return *pittore_;
    ChiudiPittore();
    pittore_ = std::make_unique<QPainter>(&strato);
    stratoPittore_ = &strato;
    PreparaPittore(*pittore_);
    return *pittore_;
}

void Superficie::ChiudiPittore() const {
    if (!pittore_) return;
    pittore_->end();
    pittore_.reset();
    stratoPittore_ = nullptr;
}

const QImage& Superficie::Immagine() const {
    ChiudiPittore();
    return bitmap_;
}

const QImage& Superficie::Schermo() const {
    ChiudiPittore();
    return schermo_;
}

QImage& Superficie::StratoAttivo() {
    ChiudiPittore();
    return AutoRedraw ? bitmap_ : schermo_;
}

const QImage& Superficie::StratoAttivo() const {
    ChiudiPittore();
    return AutoRedraw ? bitmap_ : schermo_;
}

void Superficie::ImpostaBackColor(int32_t colore) {
    ChiudiPittore();
    sfondo_ = colore;
    bitmap_.fill(ColoreQt(colore));
    schermo_ = bitmap_;
    Avvisa();
}

void Superficie::ImpostaScaleMode(int16_t modo) {
    modoScala_ = modo;
    if (modo == ScalaUtente) return; // keeps the edges it has
    sinistra_ = 0;
    alto_ = 0;
    if (modo == ScalaPixel) {
        larghezza_ = float(bitmap_.width());
        altezza_ = float(bitmap_.height());
        return;
    }
    if (modo == ScalaCaratteri) {
        // A character cell is 120 twips wide and 240 high.
        larghezza_ = float(bitmap_.width() * TwipsPerPixel / 120.0);
        altezza_ = float(bitmap_.height() * TwipsPerPixel / 240.0);
        return;
    }
    const double unita = TwipsPerUnita(modo);
    larghezza_ = float(bitmap_.width() * TwipsPerPixel / unita);
    altezza_ = float(bitmap_.height() * TwipsPerPixel / unita);
}

void Superficie::Scale(float x1, float y1, float x2, float y2) {
    modoScala_ = ScalaUtente;
    sinistra_ = x1;
    alto_ = y1;
    larghezza_ = x2 - x1;
    altezza_ = y2 - y1;
}

double Superficie::PixelX(double x) const {
    return (x - sinistra_) * bitmap_.width() / double(larghezza_);
}

double Superficie::PixelY(double y) const {
    return (y - alto_) * bitmap_.height() / double(altezza_);
}

namespace {
// Far enough off any bitmap to draw nothing, near enough that sizes and
// differences of two points still fit an int.
constexpr double LimitePixel = 1 << 28;

int PixelIntero(double p) {
    if (std::isnan(p)) return static_cast<int>(LimitePixel);
    return static_cast<int>(Arrotonda(std::clamp(p, -LimitePixel, LimitePixel)));
}
} // namespace

int Superficie::PuntoPixelX(double x) const {
    return PixelIntero(PixelX(x));
}
int Superficie::PuntoPixelY(double y) const {
    return PixelIntero(PixelY(y));
}

bool Superficie::EllisseFuori(float x, float y, double rx, double ry) const {
    const double cx = PixelX(x);
    const double cy = PixelY(y);
    if (!std::isfinite(cx) || !std::isfinite(cy) || !std::isfinite(rx) || !std::isfinite(ry))
        return true;
    // A rim this far away never crosses the bitmap.
    if (rx > LimitePixel / 4 || ry > LimitePixel / 4) return true;
    const double margine = DrawWidth + 2;
    return cx + rx + margine < 0 || cy + ry + margine < 0 || cx - rx - margine > bitmap_.width() ||
           cy - ry - margine > bitmap_.height();
}

QFont Superficie::FontCorrente() const {
    return CaratteriCorrenti().Font;
}

const Superficie::Caratteri& Superficie::CaratteriCorrenti() const {
    const Caratteri* ultimi = ultimiCaratteri_;
    if (ultimi && ultimi->Nome == FontName && ultimi->Dimensione == FontSize &&
        ultimi->Grassetto == FontBold && ultimi->Corsivo == FontItalic)
        return *ultimi;
    // A replay goes back and forth between the fonts of its texts.
    QString chiave = FontName;
    chiave += QChar(u'\x1f') + QString::number(double(FontSize), 'g', 9) +
              QChar(FontBold ? u'B' : u'-') + QChar(FontItalic ? u'I' : u'-');
    auto trovati = caratteri_.find(chiave);
    if (trovati == caratteri_.end()) {
        if (caratteri_.size() >= 256) caratteri_.clear();
        Caratteri c;
        c.Nome = FontName;
        c.Dimensione = FontSize;
        c.Grassetto = FontBold;
        c.Corsivo = FontItalic;
        c.Font = QFont(FontName);
        c.Font.setPointSizeF(FontSize > 0 ? FontSize : 1.0);
        c.Font.setBold(FontBold);
        c.Font.setItalic(FontItalic);
        c.Font.setStyleStrategy(QFont::NoAntialias);
        // The bitmap gives the metrics its 96 dots per inch; the painter is not
        // needed for that and may stay open.
        c.Metriche.emplace(c.Font, &bitmap_);
        c.Chiave = chiave + QChar(u'\x1e');
        c.Ascesa = c.Metriche->ascent();
        c.AltezzaRiga = c.Metriche->height();
        trovati = caratteri_.emplace(chiave, std::move(c)).first;
    }
    ultimiCaratteri_ = &trovati->second;
    return trovati->second;
}

const Superficie::Scritta& Superficie::ScrittaDi(const QString& riga) const {
    const Caratteri& c = CaratteriCorrenti();
    const QString chiave = c.Chiave + riga;
    auto trovata = scritte_.constFind(chiave);
    if (trovata != scritte_.constEnd()) return *trovata;
    // Bounded: a long session prints many different words.
    if (scritte_.size() >= 4096) scritte_.clear();
    QTextLayout impaginato(riga, c.Font, &bitmap_);
    impaginato.beginLayout();
    QTextLine linea = impaginato.createLine();
    impaginato.endLayout();
    Scritta scritta;
    const QList<QGlyphRun> pezzi = linea.isValid() ? impaginato.glyphRuns() : QList<QGlyphRun>();
    QRectF ingombro;
    for (const QGlyphRun& pezzo : pezzi)
        ingombro |= pezzo.boundingRect();
    if (!pezzi.isEmpty() && ingombro.isValid()) {
        // Printed once on a scratch layer with the baseline's start on a whole
        // pixel, as Print puts it: glyphs moved by whole pixels keep their pixels.
        const int margine = 4 + static_cast<int>(std::ceil(c.AltezzaRiga));
        const int ox = margine - static_cast<int>(std::floor(ingombro.left()));
        const int oy = margine - static_cast<int>(std::floor(ingombro.top() - linea.ascent()));
        QImage prova(static_cast<int>(std::ceil(ingombro.width())) + 2 * margine + 2,
                     static_cast<int>(std::ceil(ingombro.height())) + 2 * margine + 2,
                     QImage::Format_RGB32);
        prova.setDotsPerMeterX(PuntiPerMetro);
        prova.setDotsPerMeterY(PuntiPerMetro);
        prova.fill(Qt::black);
        {
            QPainter p(&prova);
            PreparaPittore(p);
            p.setPen(Qt::white);
            for (const QGlyphRun& pezzo : pezzi)
                p.drawGlyphRun(QPointF(ox, oy - linea.ascent()), pezzo);
        }
        const QRgb inchiostro = qRgb(255, 255, 255);
        for (int y = 0; y < prova.height(); ++y) {
            const QRgb* punti = reinterpret_cast<const QRgb*>(prova.constScanLine(y));
            for (int x = 0; x < prova.width(); ++x) {
                if (punti[x] != inchiostro) continue;
                int fino = x + 1;
                while (fino < prova.width() && punti[fino] == inchiostro)
                    ++fino;
                scritta.Pezzi.push_back({y - oy, x - ox, fino - ox});
                x = fino;
            }
        }
    }
    return *scritte_.insert(chiave, std::move(scritta));
}

void Superficie::Avvisa() {
    if (AvvisoSchermo) AvvisoSchermo();
}

namespace {

// The pen of the surface's state in `colore`; a dotted style holds at any width
// so that the construction overlay always reads as dotted.
QPen PennaDi(int16_t larghezza, int16_t stile, int32_t colore, Qt::PenJoinStyle giunto) {
    if (stile == 5) return QPen(Qt::NoPen);
    QPen penna(ColoreQt(colore));
    penna.setWidth(std::max<int>(1, larghezza));
    // One pixel wide needs no joins nor caps: the cosmetic pen is much faster.
    penna.setCosmetic(larghezza <= 1);
    penna.setCapStyle(Qt::RoundCap);
    penna.setJoinStyle(giunto);
    switch (stile) {
    case 1:
        penna.setStyle(Qt::DashLine);
        break;
    case 2:
        penna.setStyle(Qt::DotLine);
        penna.setCapStyle(Qt::FlatCap);
        break;
    case 3:
        penna.setStyle(Qt::DashDotLine);
        break;
    case 4:
        penna.setStyle(Qt::DashDotDotLine);
        break;
    default:
        penna.setStyle(Qt::SolidLine);
        break;
    }
    return penna;
}

QBrush PennelloDi(int16_t stile, int32_t colore) {
    switch (stile) {
    case 0:
        return QBrush(ColoreQt(colore));
    case 2:
        return QBrush(ColoreQt(colore), Qt::HorPattern);
    case 3:
        return QBrush(ColoreQt(colore), Qt::VerPattern);
    case 4:
        return QBrush(ColoreQt(colore), Qt::BDiagPattern);
    case 5:
        return QBrush(ColoreQt(colore), Qt::FDiagPattern);
    case 6:
        return QBrush(ColoreQt(colore), Qt::CrossPattern);
    case 7:
        return QBrush(ColoreQt(colore), Qt::DiagCrossPattern);
    default:
        return QBrush(Qt::NoBrush);
    }
}

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

// Solid, or drawn as solid: "inside" draws as solid here.
bool Pieno(int16_t stile) {
    return stile == 0 || stile == 6;
}

} // namespace

QImage& Superficie::StratoDiretto() {
    // The painter open on the layer has made its pixels its own: no copy here.
    Pittore();
    return AutoRedraw ? bitmap_ : schermo_;
}

void Superficie::Line(float x1, float y1, float x2, float y2, int32_t colore) {
    const QPoint a(PuntoPixelX(x1), PuntoPixelY(y1));
    const QPoint b(PuntoPixelX(x2), PuntoPixelY(y2));
    if (DrawWidth > 1 && DrawStyle != 5 && a != b) {
        const Tela tela(StratoDiretto(), ColoreQt(colore), true);
        if (Pieno(DrawStyle)) {
            Segmento(tela, a, b, DrawWidth / 2.0, true);
        } else {
            const QPointF estremi[] = {a, b};
            Tratteggia(tela, estremi, false, DrawWidth, DrawStyle);
        }
    } else {
        QPainter& p = Pittore();
        p.setPen(PennaDi(DrawWidth, DrawStyle, colore, Qt::RoundJoin));
        if (a == b)
            p.drawPoint(a);
        else
            p.drawLine(a, b);
    }
    CurrentX = x2;
    CurrentY = y2;
    if (!AutoRedraw) Avvisa();
}

void Superficie::Box(float x1, float y1, float x2, float y2, int32_t colore) {
    {
        const int l = std::min(PuntoPixelX(x1), PuntoPixelX(x2));
        const int r = std::max(PuntoPixelX(x1), PuntoPixelX(x2));
        const int t = std::min(PuntoPixelY(y1), PuntoPixelY(y2));
        const int b = std::max(PuntoPixelY(y1), PuntoPixelY(y2));
        const QBrush pennello = PennelloDi(FillStyle, FillColor);
        if (pennello.style() != Qt::NoBrush)
            Pittore().fillRect(QRect(QPoint(l, t), QPoint(r, b)), pennello);
        if (DrawWidth > 1 && DrawStyle != 5) {
            const Tela tela(StratoDiretto(), ColoreQt(colore), true);
            const double m = DrawWidth / 2.0;
            if (l == r || t == b) {
                if (Pieno(DrawStyle)) {
                    Segmento(tela, QPointF(l, t), QPointF(r, b), m, true);
                } else {
                    const QPointF estremi[] = {QPointF(l, t), QPointF(r, b)};
                    Tratteggia(tela, estremi, false, DrawWidth, DrawStyle);
                }
            } else if (Pieno(DrawStyle)) {
                // Mitred corners: the frame is the outer box less the inner one.
                const auto [da, fino] = tela.Righe(t - m, b + m);
                for (int y = da; y < fino; ++y) {
                    if (y >= t + m && y < b - m) {
                        tela.Tratto(y, l - m, std::min(l + m, r - m));
                        tela.Tratto(y, std::max(r - m, l + m), r + m);
                    } else {
                        tela.Tratto(y, l - m, r + m);
                    }
                }
            } else {
                const QPointF giro[] = {QPointF(l, t), QPointF(r, t), QPointF(r, b), QPointF(l, b)};
                Tratteggia(tela, giro, true, DrawWidth, DrawStyle);
            }
        } else {
            QPainter& p = Pittore();
            p.setBrush(Qt::NoBrush);
            p.setPen(PennaDi(DrawWidth, DrawStyle, colore, Qt::MiterJoin));
            if (l == r || t == b)
                p.drawLine(l, t, r, b);
            else
                p.drawRect(l, t, r - l, b - t);
        }
    }
    CurrentX = x2;
    CurrentY = y2;
    if (!AutoRedraw) Avvisa();
}

namespace {

struct Raggi {
    double X;
    double Y;
};

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

} // namespace

const Superficie::Timbro& Superficie::TimbroEllisse(double rx, double ry, bool pieno) {
    const auto chiave = std::make_tuple(rx, ry, DrawStyle, pieno);
    auto trovato = timbri_.find(chiave);
    if (trovato != timbri_.end()) return trovato->second;
    if (timbri_.size() >= 4096) timbri_.clear();
    // Drawn once by Qt on a scratch layer, in one colour for the pen and one
    // for the inside: a shape moved by whole pixels has the same pixels moved.
    const int mx = static_cast<int>(std::ceil(rx)) + 4;
    const int my = static_cast<int>(std::ceil(ry)) + 4;
    QImage prova(2 * mx + 1, 2 * my + 1, QImage::Format_RGB32);
    prova.fill(Qt::black);
    const QRgb penna = qRgb(255, 0, 0);
    const QRgb pennello = qRgb(0, 255, 0);
    {
        QPainter p(&prova);
        PreparaPittore(p);
        p.setPen(PennaDi(DrawWidth, DrawStyle, 0x0000FF, Qt::RoundJoin));
        p.setBrush(pieno ? QBrush(QColor(pennello)) : QBrush(Qt::NoBrush));
        p.drawEllipse(QPointF(mx, my), rx, ry);
    }
    Timbro timbro;
    for (int y = 0; y < prova.height(); ++y) {
        const QRgb* riga = reinterpret_cast<const QRgb*>(prova.constScanLine(y));
        for (int x = 0; x < prova.width();) {
            const QRgb c = riga[x];
            int fino = x + 1;
            while (fino < prova.width() && riga[fino] == c)
                ++fino;
            if (c == penna) timbro.Penna.push_back({y - my, x - mx, fino - mx});
            if (c == pennello) timbro.Pennello.push_back({y - my, x - mx, fino - mx});
            x = fino;
        }
    }
    return timbri_.emplace(chiave, std::move(timbro)).first->second;
}

void Superficie::Timbra(const std::vector<Timbro::Pezzo>& pezzi, QPoint centro,
                        const QColor& colore) {
    QImage& strato = StratoDiretto();
    const Tela tela(strato, colore, false);
    for (const Timbro::Pezzo& pezzo : pezzi)
        tela.Tratto(centro.y() + pezzo.Y, centro.x() + pezzo.Da - 1, centro.x() + pezzo.Fino - 1);
}

void Superficie::Circle(float x, float y, float raggio, int32_t colore, float aspetto) {
    do {
        const Raggi r = RaggiEllisse(raggio, aspetto);
        const QPointF centro(PuntoPixelX(x), PuntoPixelY(y));
        const double rx = r.X * bitmap_.width() / std::fabs(double(larghezza_));
        const double ry = r.Y * bitmap_.height() / std::fabs(double(altezza_));
        if (EllisseFuori(x, y, rx, ry)) break;
        const QBrush pennello = PennelloDi(FillStyle, FillColor);
        if (DrawWidth > 1 && Pieno(DrawStyle)) {
            if (pennello.style() == Qt::SolidPattern) {
                Ellisse(Tela(StratoDiretto(), pennello.color(), false), centro, rx, ry, 0);
            } else if (pennello.style() != Qt::NoBrush) {
                // A hatch lines up with the layer: Qt's own pattern fill.
                QPainter& p = Pittore();
                p.setPen(Qt::NoPen);
                p.setBrush(pennello);
                p.setTransform(QTransform::fromTranslate(0.5, 0.5));
                p.drawPolygon(PuntiEllisse(centro, rx, ry, 0, DuePi));
                p.resetTransform();
            }
            Fascia(Tela(StratoDiretto(), ColoreQt(colore), false), centro, rx, ry, 0, DuePi,
                   DrawWidth, true);
        } else if (DrawWidth > 1 && DrawStyle != 5) {
            if (pennello.style() != Qt::NoBrush) {
                QPainter& p = Pittore();
                p.setPen(Qt::NoPen);
                p.setBrush(pennello);
                p.drawEllipse(centro, rx, ry);
            }
            // Qt's ellipse runs clockwise from its right end: the dots fall where they did.
            QPolygonF giro = PuntiEllisse(centro, rx, ry, 0, DuePi);
            std::reverse(giro.begin(), giro.end());
            Tratteggia(Tela(StratoDiretto(), ColoreQt(colore), true), giro, true, DrawWidth,
                       DrawStyle);
        } else if (!AutoRedraw && Pieno(DrawStyle) && rx <= 256 && ry <= 256 &&
                   (pennello.style() == Qt::SolidPattern || pennello.style() == Qt::NoBrush)) {
            const bool pieno = pennello.style() == Qt::SolidPattern;
            const Timbro& timbro = TimbroEllisse(rx, ry, pieno);
            const QPoint punto = centro.toPoint();
            if (pieno) Timbra(timbro.Pennello, punto, pennello.color());
            Timbra(timbro.Penna, punto, ColoreQt(colore));
        } else {
            QPainter& p = Pittore();
            p.setPen(PennaDi(DrawWidth, DrawStyle, colore, Qt::RoundJoin));
            p.setBrush(pennello);
            p.drawEllipse(centro, rx, ry);
        }
    } while (false);
    CurrentX = x;
    CurrentY = y;
    if (!AutoRedraw) Avvisa();
}

void Superficie::Circle(float x, float y, float raggio, int32_t colore, float inizio, float fine,
                        float aspetto) {
    if (!std::isfinite(inizio) || !std::isfinite(fine) || std::fabs(inizio) > DuePi ||
        std::fabs(fine) > DuePi)
        throw ErroreZanto{5, QStringLiteral("Chiamata di routine o argomento non valido.")};
    do {
        const Raggi r = RaggiEllisse(raggio, aspetto);
        const QPointF centro(PuntoPixelX(x), PuntoPixelY(y));
        const double rx = r.X * bitmap_.width() / std::fabs(double(larghezza_));
        const double ry = r.Y * bitmap_.height() / std::fabs(double(altezza_));
        if (EllisseFuori(x, y, rx, ry)) break;
        const double a = std::fabs(double(inizio));
        double b = std::fabs(double(fine));
        if (b <= a) b += DuePi; // counter-clockwise from start to end; equal is a full turn
        const QPolygonF arco = PuntiEllisse(centro, rx, ry, a, b);
        if (inizio < 0 && fine < 0) {
            QPainter& p = Pittore();
            // A pie: both radii drawn, and the inside filled as FillStyle says.
            QPolygonF torta = arco;
            torta.prepend(centro);
            torta.append(centro);
            p.setPen(PennaDi(DrawWidth, DrawStyle, colore, Qt::BevelJoin));
            p.setBrush(PennelloDi(FillStyle, FillColor));
            p.drawPolygon(torta);
        } else if (DrawWidth > 1 && DrawStyle != 5) {
            const Tela tela(StratoDiretto(), ColoreQt(colore), true);
            if (Pieno(DrawStyle))
                Fascia(Tela(StratoDiretto(), ColoreQt(colore), false), centro, rx, ry, a, b,
                       DrawWidth, false);
            else
                Tratteggia(tela, arco, false, DrawWidth, DrawStyle);
            // A radius is a line of its own.
            const auto raggio = [&](QPointF estremo) {
                if (Pieno(DrawStyle)) {
                    Segmento(tela, centro, estremo, DrawWidth / 2.0, true);
                } else {
                    const QPointF estremi[] = {centro, estremo};
                    Tratteggia(tela, estremi, false, DrawWidth, DrawStyle);
                }
            };
            if (inizio < 0) raggio(arco.first());
            if (fine < 0) raggio(arco.last());
        } else {
            QPainter& p = Pittore();
            // The chords meet at tiny angles: a bevel looks like a round join.
            p.setPen(PennaDi(DrawWidth, DrawStyle, colore, Qt::BevelJoin));
            p.setBrush(Qt::NoBrush);
            p.drawPolyline(arco);
            p.setPen(PennaDi(DrawWidth, DrawStyle, colore, Qt::RoundJoin));
            if (inizio < 0) p.drawLine(centro, arco.first());
            if (fine < 0) p.drawLine(centro, arco.last());
        }
    } while (false);
    CurrentX = x;
    CurrentY = y;
    if (!AutoRedraw) Avvisa();
}

void Superficie::Print(const QString& testo) {
    QString riga = SenzaFineRiga(testo);
    const Caratteri& c = CaratteriCorrenti();
    const int px = PuntoPixelX(CurrentX);
    if (px >= bitmap_.width()) riga.clear();
    // Of a long line only what can reach the bitmap is printed: the rest would
    // cost time in proportion to its length and show nothing.
    if (riga.size() > 256) {
        double avanzo = px;
        qsizetype fino = 0;
        while (fino < riga.size() && avanzo <= bitmap_.width())
            avanzo += c.Metriche->horizontalAdvance(riga[fino++]);
        riga.truncate(std::min(riga.size(), fino + 4));
    }
    if (!riga.isEmpty()) {
        const int base = PuntoPixelY(CurrentY) + static_cast<int>(std::round(c.Ascesa));
        const Scritta& scritta = ScrittaDi(riga);
        const Tela tela(StratoDiretto(), ColoreQt(ForeColor), false);
        for (const Timbro::Pezzo& pezzo : scritta.Pezzi)
            tela.Tratto(base + pezzo.Y, px + pezzo.Da - 1, px + pezzo.Fino - 1);
    }
    CurrentY += TextHeight(riga);
    CurrentX = sinistra_;
    if (!AutoRedraw) Avvisa();
}

float Superficie::TextWidth(const QString& testo) const {
    const QFontMetricsF& m = *CaratteriCorrenti().Metriche;
    double massimo = 0;
    for (const QString& riga :
         QString(testo).replace(QStringLiteral("\r\n"), QStringLiteral("\r")).split(QChar(u'\r')))
        massimo = std::max(massimo, m.horizontalAdvance(SenzaFineRiga(riga)));
    return float(massimo * larghezza_ / bitmap_.width());
}

float Superficie::TextHeight(const QString& testo) const {
    // Counting the line breaks gives the lines that a split would.
    qsizetype righe = 1;
    for (qsizetype i = 0; i < testo.size(); ++i) {
        if (testo[i] == u'\r') {
            ++righe;
            if (i + 1 < testo.size() && testo[i + 1] == u'\n') ++i;
        }
    }
    const bool finisceACapo = testo.endsWith(u'\r') || testo.endsWith(QStringLiteral("\r\n"));
    if (righe > 1 && finisceACapo) --righe;
    const double altezzaRiga = std::ceil(CaratteriCorrenti().AltezzaRiga);
    return float(altezzaRiga * double(righe) * altezza_ / bitmap_.height());
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
    lettore.setAutoTransform(false);
    QImage immagine = lettore.read();
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

int32_t Superficie::Point(float x, float y) const {
    const QImage& strato = StratoAttivo();
    const int px = PuntoPixelX(x);
    const int py = PuntoPixelY(y);
    if (px < 0 || py < 0 || px >= strato.width() || py >= strato.height()) return -1;
    const QRgb c = reinterpret_cast<const QRgb*>(strato.constScanLine(py))[px];
    return int32_t(qRed(c) | (qGreen(c) << 8) | (qBlue(c) << 16));
}

void Superficie::Cls() {
    ChiudiPittore();
    if (AutoRedraw) bitmap_.fill(ColoreQt(sfondo_));
    schermo_ = bitmap_;
    CurrentX = 0;
    CurrentY = 0;
    Avvisa();
}

void Superficie::ImmagineVuota() {
    ChiudiPittore();
    bitmap_.fill(ColoreQt(sfondo_));
    schermo_ = bitmap_;
    Avvisa();
}

void Superficie::Refresh() {
    ChiudiPittore();
    schermo_ = bitmap_;
    Avvisa();
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
