#pragma once

#include <QColor>
#include <QFont>
#include <QRect>

#include <cstdint>

// What this unit keeps while the program runs: one structure, reset whole.
struct StatoMisure {
    // The one conversion from the program's twips to pixels of the screen. Every
    // control's place and size goes through it, so the whole layout scales here.
    double ScalaInterfaccia = 1.0;
    // The screen's logical dots per inch: a point size is made to cover as many
    // pixels as on the 96-dpi screen the layout was drawn for.
    double DpiCaratteri = 96.0;
    bool operator==(const StatoMisure&) const = default;
};
inline StatoMisure DatiMisure;
// The names the program reads and writes them by.
inline double& ScalaInterfaccia = DatiMisure.ScalaInterfaccia;
inline double& DpiCaratteri = DatiMisure.DpiCaratteri;
int Px(int twips);
QRect RettangoloTwips(int sinistra, int alto, int larghezza, int altezza);
// Back from pixels of the screen to twips, for a place read off a form.
int Twips(int pixel);

// A point size of the layout as it must be set on this screen, so that text
// grows with the buttons around it.
double PuntiSchermo(double punti);
QFont Carattere(const QString& nome, double punti, bool grassetto = false);

// Colours as the program keeps them, 0x00BBGGRR, to Qt's colour.
QColor ColoreQt(int32_t bgr);
// A colour given as RGB 0xRRGGBB, as the layout tables write them.
inline QColor ColoreRGB(uint32_t rgb) {
    return QColor::fromRgb(rgb | 0xFF000000u);
}
// How far two colours stand apart for the eye: the ratio of their relative
// luminances as the web's accessibility guidelines reckon it, 1 to 21.
double RapportoContrasto(const QColor& a, const QColor& b);
