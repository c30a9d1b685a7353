#include "model/Superficie.h"

#include "model/Rasterizzatore.h"
#include "model/SuperficieComune.h"

#include "base/GestioneErrori.h"
#include "base/Misure.h"
#include "base/Numeri.h"

#include <QPainter>
#include <QPolygonF>

#include <algorithm>
#include <cmath>
#include <numbers>
#include <vector>

using namespace Raster;

namespace {

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
