// Flood fill on the canvas: the whole empty canvas, and a canvas cut into many
// regions by 200 shapes. Each figure is also given against the time it takes to
// clear the same bitmap once, the floor of any pass over it.

#include "Misura.h"

#include "model/Paint.h"
#include "model/RecordAzione.h"
#include "model/Superficie.h"

#include <QApplication>
#include <QRandomGenerator>

namespace {

constexpr int32_t Sfondo = 0xC0C0C0;

void Colora(Superficie& s, float x, float y, int32_t colore) {
    Paint& p = UsaOggettoPaint();
    p.ImpostaDevice(s);
    s.FillStyle = 0;
    s.FillColor = colore;
    p.Flood(x, y);
    s.FillStyle = 1;
}

// 200 outlines of boxes, ellipses and lines in black, always at the same places.
void DuecentoForme(Superficie& s) {
    QRandomGenerator caso(7);
    s.FillStyle = 1;
    s.DrawWidth = 2;
    for (int i = 0; i < 200; ++i) {
        const float x = float(caso.bounded(LarghezzaQuadroDisegno));
        const float y = float(caso.bounded(AltezzaQuadroDisegno));
        const float l = float(300 + caso.bounded(3000));
        const float h = float(300 + caso.bounded(3000));
        switch (i % 3) {
        case 0:
            s.Box(x, y, x + l, y + h, 0);
            break;
        case 1:
            s.Circle(x, y, l, 0, h / l);
            break;
        default:
            s.Line(x, y, x + l, y - h, 0);
            break;
        }
    }
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    Superficie quadro(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    quadro.ImpostaBackColor(Sfondo);
    quadro.AutoRedraw = true;

    // The same bitmap on its own, cleared in place.
    QImage copia = quadro.Immagine().copy();
    const double pulizia =
        MedianaMs(200, [&](int i) { copia.fill(i % 2 == 0 ? 0xFF0000FFu : 0xFF00FF00u); });
    Stampa("pulizia_tela", pulizia, "ms");

    // Two colours in turn, so that every fill replaces the whole canvas.
    const double vuota = MedianaMs(
        200, [&](int i) { Colora(quadro, 7072, 5000, i % 2 == 0 ? 0x0000FF : 0x00FF00); });
    Stampa("colorazione_tela_vuota", vuota, "ms");
    Stampa("rapporto_colorazione_tela_vuota_su_pulizia", vuota / pulizia, "x");

    quadro.ImmagineVuota();
    DuecentoForme(quadro);
    // The background between the shapes: the largest region that a point of a
    // coarse grid reaches.
    float x = 0;
    float y = 0;
    int piuGrande = 0;
    for (int gx = 1; gx < 16; ++gx)
        for (int gy = 1; gy < 12; ++gy) {
            QImage prova = quadro.Immagine().copy();
            const int px = gx * prova.width() / 16;
            const int py = gy * prova.height() / 12;
            if (!RiempiZona(prova, px, py, prova.pixel(px, py), qRgb(1, 2, 3))) continue;
            int area = 0;
            for (int yy = 0; yy < prova.height(); ++yy)
                for (int xx = 0; xx < prova.width(); ++xx)
                    if (prova.pixel(xx, yy) == qRgb(1, 2, 3)) ++area;
            if (area > piuGrande) {
                piuGrande = area;
                x = float(px * 15);
                y = float(py * 15);
            }
        }
    Stampa("pixel_della_regione_piu_grande_tra_200_forme", piuGrande, "px");
    const double sfondo =
        MedianaMs(200, [&](int i) { Colora(quadro, x, y, i % 2 == 0 ? 0x0000FF : 0x00FF00); });
    Stampa("colorazione_sfondo_tra_200_forme", sfondo, "ms");
    Stampa("rapporto_colorazione_sfondo_su_pulizia", sfondo / pulizia, "x");

    // Points anywhere: small regions, large ones, lines.
    QRandomGenerator caso(11);
    const double casuale = MedianaMs(1000, [&](int i) {
        Colora(quadro, float(caso.bounded(LarghezzaQuadroDisegno)),
               float(caso.bounded(AltezzaQuadroDisegno)), 0x010101 * (i % 200 + 20));
    });
    Stampa("colorazione_punto_a_caso_tra_200_forme", casuale, "ms");
    Stampa("rapporto_colorazione_punto_a_caso_su_pulizia", casuale / pulizia, "x");
    return 0;
}
