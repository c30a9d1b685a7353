#include "base/Misure.h"

#include <algorithm>
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

double PuntiSchermo(double punti) {
    return punti * ScalaInterfaccia * 96.0 / (DpiCaratteri > 0 ? DpiCaratteri : 96.0);
}

QFont Carattere(const QString& nome, double punti, bool grassetto) {
    QFont f(nome);
    f.setPointSizeF(PuntiSchermo(punti));
    f.setBold(grassetto);
    return f;
}

QColor ColoreQt(int32_t bgr) {
    const auto v = static_cast<uint32_t>(bgr);
    return QColor(static_cast<int>(v & 0xFF), static_cast<int>((v >> 8) & 0xFF),
                  static_cast<int>((v >> 16) & 0xFF));
}

namespace {
double Luminanza(const QColor& c) {
    const auto lineare = [](double v) {
        return v <= 0.04045 ? v / 12.92 : std::pow((v + 0.055) / 1.055, 2.4);
    };
    return 0.2126 * lineare(c.redF()) + 0.7152 * lineare(c.greenF()) + 0.0722 * lineare(c.blueF());
}
} // namespace

double RapportoContrasto(const QColor& a, const QColor& b) {
    const double la = Luminanza(a);
    const double lb = Luminanza(b);
    return (std::max(la, lb) + 0.05) / (std::min(la, lb) + 0.05);
}
