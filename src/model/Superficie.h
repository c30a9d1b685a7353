#pragma once

#include <QFont>
#include <QFontMetricsF>
#include <QHash>
#include <QImage>
#include <QList>
#include <QSize>
#include <QString>

#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <tuple>
#include <unordered_map>
#include <vector>

class QPainter;

// Scale modes of a surface.
inline constexpr int16_t ScalaUtente = 0;
inline constexpr int16_t ScalaTwips = 1;
inline constexpr int16_t ScalaPunti = 2;
inline constexpr int16_t ScalaPixel = 3;
inline constexpr int16_t ScalaCaratteri = 4;
inline constexpr int16_t ScalaPollici = 5;
inline constexpr int16_t ScalaMillimetri = 6;
inline constexpr int16_t ScalaCentimetri = 7;

// 15 twips to a pixel, as on a 96-dpi screen.
inline constexpr int32_t TwipsPerPixel = 15;

// The canvas in pixels: no picture is kept larger than this.
inline constexpr QSize MassimoFiguraPixel(943, 667);

// A picture surface: a persistent bitmap and a screen layer above it.
//
// With AutoRedraw on, drawing goes to the bitmap and shows at the next Refresh;
// with it off, drawing goes to the screen layer only and the next Refresh wipes
// it. Pen, fill, font and text cursor carry over from one operation to the next:
// whoever draws sets what it needs. Nothing is antialiased, so that a fill
// replaces exactly the colour that a shape left.
class Superficie {
public:
    // Sizes in twips; the bitmap has one pixel for every 15, rounded.
    Superficie(int32_t larghezzaTwips, int32_t altezzaTwips);
    ~Superficie();
    Superficie(const Superficie&) = delete;
    Superficie& operator=(const Superficie&) = delete;

    bool AutoRedraw = false;
    int16_t DrawWidth = 1; // pixels
    int16_t DrawStyle = 0; // 0 solid, 1 dash, 2 dot, 3 dash-dot, 4 dash-dot-dot, 5 none, 6 inside
    int32_t ForeColor = 0; // 0x00BBGGRR
    int16_t FillStyle = 1; // 0 solid, 1 transparent, 2..7 hatches
    int32_t FillColor = 0;
    QString FontName = QStringLiteral("Arial");
    float FontSize = 8.25f;
    bool FontBold = false;
    bool FontItalic = false;
    float CurrentX = 0;
    float CurrentY = 0;

    // Setting the background clears both layers to it.
    int32_t BackColor() const { return sfondo_; }
    void ImpostaBackColor(int32_t colore);

    int16_t ScaleMode() const { return modoScala_; }
    void ImpostaScaleMode(int16_t modo);
    float ScaleLeft() const { return sinistra_; }
    float ScaleTop() const { return alto_; }
    float ScaleWidth() const { return larghezza_; }
    float ScaleHeight() const { return altezza_; }
    // A user scale with (x1, y1) at the top left and (x2, y2) at the bottom right.
    void Scale(float x1, float y1, float x2, float y2);

    // A segment in `colore`; the text cursor ends on its second point.
    void Line(float x1, float y1, float x2, float y2, int32_t colore);
    // A box with those corners: its outline in `colore`, its inside in
    // FillColor when FillStyle asks for it.
    void Box(float x1, float y1, float x2, float y2, int32_t colore);
    // A whole ellipse round (x, y). The radius is the longer axis; `aspetto` is
    // vertical over horizontal. Filled as FillStyle says.
    void Circle(float x, float y, float raggio, int32_t colore, float aspetto = 1.0f);
    // Part of that ellipse from `inizio` to `fine`, radians counter-clockwise
    // from the positive X axis. A negative angle also draws the radius to it.
    // An angle beyond a full turn is error 5.
    void Circle(float x, float y, float raggio, int32_t colore, float inizio, float fine,
                float aspetto = 1.0f);

    // Prints one line at (CurrentX, CurrentY) in ForeColor, then moves the
    // cursor to the left edge, one line lower. A line break at the end of the
    // text is the end of that line, not a second one.
    void Print(const QString& testo);
    float TextWidth(const QString& testo) const;
    float TextHeight(const QString& testo) const;

    // Reads a picture file: error 53 when it is not there, 481 when it is no
    // picture. One larger than the canvas comes scaled down to fit it.
    static QImage LoadPicture(const QString& percorso);
    // Whether `dati` decode as LoadPicture would read them from a file with
    // the extension `estensione`.
    static bool FiguraLeggibile(const QByteArray& dati, const QString& estensione);
    // The picture stretched to the box whose top left is (x, y).
    void PaintPicture(const QImage& immagine, float x, float y, float larghezza, float altezza);

    // The colour at a point of the layer being drawn on; -1 outside the surface.
    int32_t Point(float x, float y) const;

    // Clears what is being drawn on and puts the text cursor at 0, 0.
    void Cls();
    // Gives the surface an empty picture: the bitmap is cleared to the background.
    void ImmagineVuota();
    // The screen shows the bitmap again: anything drawn with AutoRedraw off goes.
    void Refresh();

    // The bitmap as the bytes of a BMP file.
    QByteArray ImmagineBmp() const;
    // Writes the bitmap as a BMP file; a failure is the file's numbered error.
    void SalvaImmagine(const QString& percorso) const;

    int LarghezzaPixel() const { return bitmap_.width(); }
    int AltezzaPixel() const { return bitmap_.height(); }
    const QImage& Immagine() const; // the persistent bitmap
    const QImage& Schermo() const;  // what the screen shows
    // The layer that drawing goes to now, for the fill.
    QImage& StratoAttivo();
    const QImage& StratoAttivo() const;

    // From scale units to pixels of the bitmap, and back.
    double PixelX(double x) const;
    double PixelY(double y) const;
    int PuntoPixelX(double x) const;
    int PuntoPixelY(double y) const;

    // Called whenever the screen layer changes, so that a widget can repaint.
    std::function<void()> AvvisoSchermo;

private:
    // The font of the state and its measures, made again only when the state
    // changes: building a font and its metrics costs more than printing a word.
    struct Caratteri {
        QString Nome;
        float Dimensione = 0;
        bool Grassetto = false;
        bool Corsivo = false;
        QFont Font;
        QString Chiave; // names the font; a line's text is added to it
        std::optional<QFontMetricsF> Metriche;
        double Ascesa = 0;
        double AltezzaRiga = 0;
    };
    // A thin ellipse as Qt draws it, kept as runs of pixels from its centre:
    // the overlay draws the same shapes again at every step, only moved.
    struct Timbro {
        struct Pezzo {
            int Y;
            int Da;
            int Fino; // left out
        };
        std::vector<Pezzo> Pennello;
        std::vector<Pezzo> Penna;
    };
    // A line of text as Qt prints it, as runs of pixels from the start of its
    // baseline: a replay prints the same words in the same fonts many times.
    struct Scritta {
        std::vector<Timbro::Pezzo> Pezzi;
    };
    const Timbro& TimbroEllisse(double rx, double ry, bool pieno);
    void Timbra(const std::vector<Timbro::Pezzo>& pezzi, QPoint centro, const QColor& colore);
    const Caratteri& CaratteriCorrenti() const;
    const Scritta& ScrittaDi(const QString& riga) const;
    QFont FontCorrente() const;
    void Avvisa();
    // Can an ellipse round (x, y) with these radii in pixels touch the bitmap?
    bool EllisseFuori(float x, float y, double rx, double ry) const;
    // The layer being drawn on, for writing its pixels directly.
    QImage& StratoDiretto();
    // One painter stays open on the layer being drawn on from one operation to
    // the next, and is closed before anyone reads or copies a layer: opening a
    // painter costs more than most single operations.
    QPainter& Pittore();
    void ChiudiPittore() const;

    QImage bitmap_;
    QImage schermo_;
    int32_t sfondo_ = 0xFFFFFF;
    int16_t modoScala_ = ScalaTwips;
    float sinistra_ = 0;
    float alto_ = 0;
    float larghezza_ = 0;
    float altezza_ = 0;
    mutable std::unordered_map<QString, Caratteri> caratteri_;
    mutable const Caratteri* ultimiCaratteri_ = nullptr;
    mutable QHash<QString, Scritta> scritte_;
    std::map<std::tuple<double, double, int16_t, bool>, Timbro> timbri_;
    mutable std::unique_ptr<QPainter> pittore_;
    mutable const QImage* stratoPittore_ = nullptr;
};
