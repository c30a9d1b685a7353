#pragma once

#include <QColor>
#include <QRect>

#include <cstdint>

// The one conversion from the program's twips to pixels of the screen. Every
// control's place and size goes through it, so the whole layout scales here.
inline double ScalaInterfaccia = 1.0;
int Px(int twips);
QRect RettangoloTwips(int sinistra, int alto, int larghezza, int altezza);
// Back from pixels of the screen to twips, for a place read off a form.
int Twips(int pixel);

// Colours as the program keeps them, 0x00BBGGRR, to Qt's colour.
QColor ColoreQt(int32_t bgr);
// A colour given as RGB 0xRRGGBB, as the layout tables write them.
inline QColor ColoreRGB(uint32_t rgb) {
    return QColor::fromRgb(rgb | 0xFF000000u);
}
