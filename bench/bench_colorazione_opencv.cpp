// The span fill against OpenCV's cv::floodFill, 4-connected and exact colour,
// on the same bitmap bytes seen as one 32-bit channel: each figure is the
// ratio of the two times measured here, and the two fills must leave the same
// pixels.

#include "Colorazione.h"
#include "Misura.h"

#include <QApplication>

#include <opencv2/core.hpp>
#include <opencv2/imgproc.hpp>

#include <cstdio>
#include <functional>
#include <vector>

namespace {

cv::Mat Vista(QImage& img) {
    return cv::Mat(img.height(), img.width(), CV_32SC1, img.bits(), size_t(img.bytesPerLine()));
}

struct Colorazione {
    QPoint Punto;
    QRgb Colore;
};

// Runs the same fills on two copies of `partenza`, one with each, and prints
// both medians and their ratio. Gives whether the copies ended up the same.
bool Confronta(const char* nome, const QImage& partenza, const std::vector<Colorazione>& fills,
               int giri) {
    QImage nostra = partenza.copy();
    QImage loro = partenza.copy();
    cv::Mat vista = Vista(loro);
    const auto n = fills.size();
    // A fill where the colour is already there is skipped by both: OpenCV
    // would take its slow path with a mask to change nothing.
    const double tempoNostro = MedianaMs(giri, [&](int i) {
        const Colorazione& c = fills[size_t(i) % n];
        const QRgb vecchio = nostra.pixel(c.Punto);
        if (vecchio != c.Colore) RiempiZona(nostra, c.Punto.x(), c.Punto.y(), vecchio, c.Colore);
    });
    const double tempoLoro = MedianaMs(giri, [&](int i) {
        const Colorazione& c = fills[size_t(i) % n];
        if (loro.pixel(c.Punto) != c.Colore)
            cv::floodFill(vista, cv::Point(c.Punto.x(), c.Punto.y()),
                          cv::Scalar(double(static_cast<int32_t>(c.Colore))), nullptr, cv::Scalar(),
                          cv::Scalar(), 4);
    });
    const bool uguali = nostra == loro;
    char riga[160];
    std::snprintf(riga, sizeof riga, "colorazione_%s", nome);
    Stampa(riga, tempoNostro, "ms");
    std::snprintf(riga, sizeof riga, "colorazione_%s_opencv", nome);
    Stampa(riga, tempoLoro, "ms");
    std::snprintf(riga, sizeof riga, "rapporto_colorazione_%s_su_opencv", nome);
    Stampa(riga, tempoNostro / tempoLoro, "x");
    if (!uguali) std::fprintf(stderr, "%s: le due colorazioni differiscono\n", nome);
    return uguali;
}

// Two colours in turn from one point, so that every fill replaces the whole region.
std::vector<Colorazione> Alterne(QPoint punto) {
    return {{punto, qRgb(0, 0, 255)}, {punto, qRgb(0, 255, 0)}};
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    Superficie quadro(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    quadro.ImpostaBackColor(SfondoColorazione);
    const QImage vuota = quadro.Immagine().copy();
    const int larghezza = vuota.width();
    const int altezza = vuota.height();
    bool uguali = true;

    uguali =
        Confronta("tela_vuota", vuota, Alterne(QPoint(larghezza / 2, altezza / 2)), 200) && uguali;

    uguali = Confronta("reticolo_di_strisce_di_un_pixel", Reticolo(larghezza, altezza),
                       Alterne(QPoint(0, 0)), 200) &&
             uguali;
    uguali = Confronta("serpentina_larga_un_pixel", Serpentina(larghezza, altezza),
                       Alterne(QPoint(0, 0)), 200) &&
             uguali;

    quadro.AutoRedraw = true;
    DuecentoForme(quadro);
    const QImage forme = quadro.Immagine().copy();
    int area = 0;
    const QPoint regione = RegionePiuGrande(forme, area);
    uguali = Confronta("sfondo_tra_200_forme", forme, Alterne(regione), 200) && uguali;

    // Points anywhere: small regions, large ones, lines.
    QRandomGenerator caso(11);
    std::vector<Colorazione> sparse;
    for (int i = 0; i < 1000; ++i) {
        const QPoint p(caso.bounded(larghezza), caso.bounded(altezza));
        const int grigio = i % 200 + 20;
        sparse.push_back({p, qRgb(grigio, grigio, grigio)});
    }
    uguali = Confronta("punto_a_caso_tra_200_forme", forme, sparse, 1000) && uguali;
    return uguali ? 0 : 1;
}
