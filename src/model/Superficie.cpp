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
#include <QImageReader>
#include <QImageWriter>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>

#include <algorithm>
#include <cmath>
#include <deque>
#include <numbers>

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

int Superficie::PuntoPixelX(double x) const {
    return static_cast<int>(Arrotonda(PixelX(x)));
}
int Superficie::PuntoPixelY(double y) const {
    return static_cast<int>(Arrotonda(PixelY(y)));
}

QFont Superficie::FontCorrente() const {
    QFont font(FontName);
    font.setPointSizeF(FontSize > 0 ? FontSize : 1.0);
    font.setBold(FontBold);
    font.setItalic(FontItalic);
    font.setStyleStrategy(QFont::NoAntialias);
    return font;
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

} // namespace

void Superficie::Line(float x1, float y1, float x2, float y2, int32_t colore) {
    {
        QPainter& p = Pittore();
        p.setPen(PennaDi(DrawWidth, DrawStyle, colore, Qt::RoundJoin));
        const QPoint a(PuntoPixelX(x1), PuntoPixelY(y1));
        const QPoint b(PuntoPixelX(x2), PuntoPixelY(y2));
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
        QPainter& p = Pittore();
        const int l = std::min(PuntoPixelX(x1), PuntoPixelX(x2));
        const int r = std::max(PuntoPixelX(x1), PuntoPixelX(x2));
        const int t = std::min(PuntoPixelY(y1), PuntoPixelY(y2));
        const int b = std::max(PuntoPixelY(y1), PuntoPixelY(y2));
        const QBrush pennello = PennelloDi(FillStyle, FillColor);
        if (pennello.style() != Qt::NoBrush)
            p.fillRect(QRect(QPoint(l, t), QPoint(r, b)), pennello);
        p.setBrush(Qt::NoBrush);
        p.setPen(PennaDi(DrawWidth, DrawStyle, colore, Qt::MiterJoin));
        if (l == r || t == b)
            p.drawLine(l, t, r, b);
        else
            p.drawRect(l, t, r - l, b - t);
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

// A solid pen wider than a pixel draws a curve as the band between two curves
// half a width inside and outside it: the look of a stroke, for a fraction of
// the cost, which a replay of thousands of curves needs.
bool FasciaPiena(int16_t larghezza, int16_t stile) {
    return larghezza > 1 && (stile == 0 || stile == 6);
}

void Fascia(QPainter& p, QPointF centro, double rx, double ry, double a, double b, int larghezza,
            const QColor& colore, bool chiusa) {
    const double meta = larghezza / 2.0;
    const QPolygonF esterno = PuntiEllisse(centro, rx + meta, ry + meta, a, b);
    QPolygonF interno =
        PuntiEllisse(centro, std::max(0.0, rx - meta), std::max(0.0, ry - meta), a, b);
    p.setPen(Qt::NoPen);
    p.setBrush(colore);
    // A fill takes the pixels whose centres lie inside; our pixel x is centred
    // on x, the fill's on x + 0.5.
    p.setTransform(QTransform::fromTranslate(0.5, 0.5));
    if (chiusa) {
        QPainterPath anello;
        anello.setFillRule(Qt::OddEvenFill);
        anello.addPolygon(esterno);
        anello.addPolygon(interno);
        p.drawPath(anello);
        p.resetTransform();
        return;
    }
    std::reverse(interno.begin(), interno.end());
    p.drawPolygon(esterno + interno);
    // Round ends, as a stroke has them.
    p.drawEllipse(QPointF(centro.x() + rx * std::cos(a), centro.y() - ry * std::sin(a)), meta,
                  meta);
    p.drawEllipse(QPointF(centro.x() + rx * std::cos(b), centro.y() - ry * std::sin(b)), meta,
                  meta);
    p.resetTransform();
}

} // namespace

void Superficie::Circle(float x, float y, float raggio, int32_t colore, float aspetto) {
    {
        const Raggi r = RaggiEllisse(raggio, aspetto);
        const QPointF centro(PuntoPixelX(x), PuntoPixelY(y));
        const double rx = r.X * bitmap_.width() / std::fabs(double(larghezza_));
        const double ry = r.Y * bitmap_.height() / std::fabs(double(altezza_));
        QPainter& p = Pittore();
        const QBrush pennello = PennelloDi(FillStyle, FillColor);
        if (FasciaPiena(DrawWidth, DrawStyle)) {
            if (pennello.style() != Qt::NoBrush) {
                p.setPen(Qt::NoPen);
                p.setBrush(pennello);
                p.setTransform(QTransform::fromTranslate(0.5, 0.5));
                p.drawPolygon(PuntiEllisse(centro, rx, ry, 0, DuePi));
                p.resetTransform();
            }
            Fascia(p, centro, rx, ry, 0, DuePi, DrawWidth, ColoreQt(colore), true);
        } else {
            p.setPen(PennaDi(DrawWidth, DrawStyle, colore, Qt::RoundJoin));
            p.setBrush(pennello);
            p.drawEllipse(centro, rx, ry);
        }
    }
    CurrentX = x;
    CurrentY = y;
    if (!AutoRedraw) Avvisa();
}

void Superficie::Circle(float x, float y, float raggio, int32_t colore, float inizio, float fine,
                        float aspetto) {
    if (!std::isfinite(inizio) || !std::isfinite(fine) || std::fabs(inizio) > DuePi ||
        std::fabs(fine) > DuePi)
        throw ErroreZanto{5, QStringLiteral("Chiamata di routine o argomento non valido.")};
    {
        const Raggi r = RaggiEllisse(raggio, aspetto);
        const QPointF centro(PuntoPixelX(x), PuntoPixelY(y));
        const double rx = r.X * bitmap_.width() / std::fabs(double(larghezza_));
        const double ry = r.Y * bitmap_.height() / std::fabs(double(altezza_));
        const double a = std::fabs(double(inizio));
        double b = std::fabs(double(fine));
        if (b <= a) b += DuePi; // counter-clockwise from start to end; equal is a full turn
        const QPolygonF arco = PuntiEllisse(centro, rx, ry, a, b);
        QPainter& p = Pittore();
        if (inizio < 0 && fine < 0) {
            // A pie: both radii drawn, and the inside filled as FillStyle says.
            QPolygonF torta = arco;
            torta.prepend(centro);
            torta.append(centro);
            p.setPen(PennaDi(DrawWidth, DrawStyle, colore, Qt::BevelJoin));
            p.setBrush(PennelloDi(FillStyle, FillColor));
            p.drawPolygon(torta);
        } else {
            if (FasciaPiena(DrawWidth, DrawStyle)) {
                Fascia(p, centro, rx, ry, a, b, DrawWidth, ColoreQt(colore), false);
            } else {
                // The chords meet at tiny angles: a bevel looks like a round join.
                p.setPen(PennaDi(DrawWidth, DrawStyle, colore, Qt::BevelJoin));
                p.setBrush(Qt::NoBrush);
                p.drawPolyline(arco);
            }
            p.setPen(PennaDi(DrawWidth, DrawStyle, colore, Qt::RoundJoin));
            if (inizio < 0) p.drawLine(centro, arco.first());
            if (fine < 0) p.drawLine(centro, arco.last());
        }
    }
    CurrentX = x;
    CurrentY = y;
    if (!AutoRedraw) Avvisa();
}

void Superficie::Print(const QString& testo) {
    const QString riga = SenzaFineRiga(testo);
    const QFont font = FontCorrente();
    {
        QPainter& p = Pittore();
        p.setFont(font);
        p.setPen(ColoreQt(ForeColor));
        const QFontMetricsF m(font, &bitmap_);
        const double px = PuntoPixelX(CurrentX);
        const double py = PuntoPixelY(CurrentY);
        if (!riga.isEmpty()) p.drawText(QPointF(px, py + std::round(m.ascent())), riga);
    }
    CurrentY += TextHeight(riga);
    CurrentX = sinistra_;
    if (!AutoRedraw) Avvisa();
}

float Superficie::TextWidth(const QString& testo) const {
    const QFontMetricsF m(FontCorrente(), &bitmap_);
    double massimo = 0;
    for (const QString& riga :
         QString(testo).replace(QStringLiteral("\r\n"), QStringLiteral("\r")).split(QChar(u'\r')))
        massimo = std::max(massimo, m.horizontalAdvance(SenzaFineRiga(riga)));
    return float(massimo * larghezza_ / bitmap_.width());
}

float Superficie::TextHeight(const QString& testo) const {
    const QFontMetricsF m(FontCorrente(), &bitmap_);
    QStringList righe =
        QString(testo).replace(QStringLiteral("\r\n"), QStringLiteral("\r")).split(QChar(u'\r'));
    if (righe.size() > 1 && righe.last().isEmpty()) righe.removeLast();
    const double altezzaRiga = std::ceil(m.height());
    return float(altezzaRiga * double(righe.size()) * altezza_ / bitmap_.height());
}

QImage Superficie::LoadPicture(const QString& percorso) {
    const QFileInfo info(percorso);
    if (!info.exists() || info.isDir()) throw ErroreFileAssente(percorso);
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
