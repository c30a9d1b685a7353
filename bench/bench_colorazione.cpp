// Flood fill on the canvas: the whole empty canvas, and a canvas cut into many
// regions by 200 shapes. Each figure is also given against the time it takes to
// clear the same bitmap once, the floor of any pass over it.

#include "Colorazione.h"
#include "Misura.h"

#include <QApplication>

namespace {

constexpr int32_t Sfondo = SfondoColorazione;

void Colora(Superficie& s, float x, float y, int32_t colore) {
    Paint& p = UsaOggettoPaint();
    p.ImpostaDevice(s);
    s.FillStyle = 0;
    s.FillColor = colore;
    p.Flood(x, y);
    s.FillStyle = 1;
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
    // The background between the shapes.
    int piuGrande = 0;
    const QPoint regione = RegionePiuGrande(quadro.Immagine(), piuGrande);
    const float x = float(regione.x() * 15);
    const float y = float(regione.y() * 15);
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
