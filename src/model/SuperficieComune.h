#pragma once

#include <QPainter>

// What the units of the surface share.

// 96 dots per inch, so that font sizes in points come out as on the screen.
inline constexpr int PuntiPerMetro = 3780;

// A painter for one operation: never antialiased, whatever the platform's default.
inline void PreparaPittore(QPainter& p) {
    p.setRenderHint(QPainter::Antialiasing, false);
    p.setRenderHint(QPainter::TextAntialiasing, false);
    p.setRenderHint(QPainter::SmoothPixmapTransform, false);
}
