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
