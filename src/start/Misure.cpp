#include "start/Misure.h"

#include <cmath>

int Px(int twips) {
    return static_cast<int>(std::lrint(twips / 15.0 * ScalaInterfaccia));
}

int Twips(int pixel) {
    return static_cast<int>(std::lrint(pixel * 15.0 / ScalaInterfaccia));
}

QRect RettangoloTwips(int sinistra, int alto, int larghezza, int altezza) {
    return {Px(sinistra), Px(alto), Px(larghezza), Px(altezza)};
}

QColor ColoreQt(int32_t bgr) {
    const auto v = static_cast<uint32_t>(bgr);
    return QColor(static_cast<int>(v & 0xFF), static_cast<int>((v >> 8) & 0xFF),
                  static_cast<int>((v >> 16) & 0xFF));
}
