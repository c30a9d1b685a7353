// The canvas shown enlarged on a large screen, pixel by pixel: the time to
// paint the whole view once, at the scale of a 2560 x 1440 screen, against the
// same view painted 1:1 in the same run. A step of a moving shape repaints the
// whole view, so this is the cost a step adds on a large screen.
#include "Misura.h"
#include "base/Misure.h"
#include "model/Superficie.h"
#include "model/VistaSuperficie.h"

#include <QApplication>
#include <QImage>
#include <QPainter>

namespace {

double Pittura(VistaSuperficie& vista, QImage& destinazione) {
    return MedianaMs(101, [&](int) {
        QPainter p(&destinazione);
        vista.render(&p);
    });
}

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    Superficie tela(14144, 10000);
    tela.ImpostaBackColor(0xFFFFFF);
    tela.AutoRedraw = true;
    for (int i = 0; i < 40; ++i) {
        tela.Line(300.0f * i, 0, 14144 - 300.0f * i, 10000, 0x0000FF * (i % 2));
        tela.Circle(7000, 5000, 120.0f * i, 0x00AA00);
    }
    tela.Refresh();

    VistaSuperficie uguale(tela, nullptr);
    uguale.resize(Px(14144), Px(10000));
    QImage piccola(uguale.size(), QImage::Format_RGB32);
    const double riferimento = Pittura(uguale, piccola);

    ScalaInterfaccia = 1400.0 / 768.0; // 2560 x 1440, room kept for a window's frame
    VistaSuperficie grande(tela, nullptr);
    grande.resize(Px(14144), Px(10000));
    QImage larga(grande.size(), QImage::Format_RGB32);
    const double ingrandita = Pittura(grande, larga);

    Stampa("vista_1_a_1", riferimento, "ms");
    Stampa("vista_ingrandita_2560x1440", ingrandita, "ms");
    Stampa("rapporto_ingrandita_su_1_a_1", ingrandita / riferimento, "x");
    Stampa("ingrandita_su_quadro_60hz", ingrandita / (1000.0 / 60.0), "x");
    return 0;
}
