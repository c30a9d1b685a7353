#include "model/FissaElemento.h"

#include "base/GestioneErrori.h"
#include "base/Numeri.h"
#include "model/ElementoAttivo.h"
#include "model/StatoAmbiente.h"
#include "model/Superficie.h"
#include "model/TracciaAzioni.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace {

// What the current settings write into an element at the moment it is fixed:
// whatever the record held while it was open doesn't count.
void CompletaElemento(RecordAzione& e) {
    switch (e.TipoAzione) {
    case TipiAzione::Linea:
    case TipiAzione::Arco:
        e.ColLinea = ColoreLineaCorrente;
        e.ColZona = ColoreZonaCorrente;
        e.FlagPienoVuoto = FlagNonApplicabile;
        e.SpessLinea = SpessoreCorrente;
        break;
    case TipiAzione::Rettangolo:
    case TipiAzione::Ellisse:
        e.ColLinea = ColoreLineaCorrente;
        e.ColZona = ColoreZonaCorrente;
        e.FlagPienoVuoto = RiempimentoCorrente;
        e.SpessLinea = SpessoreCorrente;
        break;
    case TipiAzione::Colorazione:
        e.ColLinea = ColoreLineaCorrente;
        e.ColZona = ColoreZonaCorrente;
        e.FlagPienoVuoto = FlagPieno;
        break;
    default:
        break; // a text keeps its colour, a picture has none
    }
}

void DisegnaElemento(Superficie& quadro, const RecordAzione& e) {
    switch (e.TipoAzione) {
    case TipiAzione::Linea:
    case TipiAzione::Arco:
    case TipiAzione::Rettangolo:
    case TipiAzione::Ellisse:
    case TipiAzione::Colorazione: // flag 2: the flood itself
    case TipiAzione::Immagine:
        TracciaAzione(quadro, e);
        break;
    case TipiAzione::Testo:
        TracciaRigheScritte(quadro, e);
        break;
    default:
        break;
    }
}

struct Estensione {
    int32_t X1 = 0, Y1 = 0, X2 = 0, Y2 = 0;
};

// The measure runs once for every element of a group at every step: the
// common case is rounded here, and only what can't fit goes to the checked
// helper, which raises the overflow.
inline int32_t Intero(double x) {
    if (x > -2e9 && x < 2e9) return static_cast<int32_t>(std::lrint(x));
    return Intero32(x);
}

inline int32_t Intero16Di(int32_t v) {
    if (v >= -32768 && v <= 32767) return v;
    return Intero16(v);
}

// The arc's true outline: the box of its two ends, pushed out to the rim at
// each quadrant crossing it passes.
Estensione ContornoArco(const RecordAzione& a) {
    const PuntoArco p1 = EstremoArco(a, a.RadIniz);
    const PuntoArco p2 = EstremoArco(a, a.RadFine);
    Estensione e{std::min<int32_t>(p1.X, p2.X), std::min<int32_t>(p1.Y, p2.Y),
                 std::max<int32_t>(p1.X, p2.X), std::max<int32_t>(p1.Y, p2.Y)};
    const float c90 = float(90.0 * Grado);
    const float c180 = float(180.0 * Grado);
    const float c270 = float(270.0 * Grado);
    const float s = a.RadIniz;
    const float f = a.RadFine;
    const bool giro = s > f;
    auto passa = [&](float c) { return giro ? (c >= s || c <= f) : (s <= c && c <= f); };
    if (passa(c90)) e.Y1 = Intero(double(a.YCentro) - a.RaggioVert);
    if (passa(c180)) e.X1 = Intero(double(a.XCentro) - a.RaggioOriz);
    if (passa(c270)) e.Y2 = Intero(double(a.YCentro) + a.RaggioVert);
    if (giro) e.X2 = Intero(double(a.XCentro) + a.RaggioOriz);
    return e;
}

Estensione RimeEllisse(const RecordAzione& a) {
    return {Intero(double(a.XCentro) - a.RaggioOriz), Intero(double(a.YCentro) - a.RaggioVert),
            Intero(double(a.XCentro) + a.RaggioOriz), Intero(double(a.YCentro) + a.RaggioVert)};
}

void Allarga(int32_t valore, int32_t& minimo, int32_t& massimo) {
    minimo = std::min(minimo, valore);
    massimo = std::max(massimo, valore);
}

// The extent of one element; false for a type that has none.
bool EstensioneElemento(const RecordAzione& a, Estensione& e) {
    switch (a.TipoAzione) {
    case TipiAzione::Linea:
    case TipiAzione::Rettangolo:
    case TipiAzione::Testo:
    case TipiAzione::Immagine:
        e = {Intero16Di(a.XInizio), Intero16Di(a.YInizio), Intero16Di(a.XFine),
             Intero16Di(a.YFine)};
        return true;
    case TipiAzione::Arco:
        e = ModoIngombro == 1 ? RimeEllisse(a) : ContornoArco(a);
        return true;
    case TipiAzione::Ellisse:
        e = RimeEllisse(a);
        return true;
    case TipiAzione::Colorazione:
        e.X1 = e.X2 = Intero(a.XCentro);
        e.Y1 = e.Y2 = Intero(a.YCentro);
        return true;
    default:
        return false;
    }
}

// Each end is tested against both edges: the order of X1 and X2 doesn't matter.
void AllargaIngombro(const Estensione& e) {
    Allarga(e.X1, IngombroXMin, IngombroXMax);
    Allarga(e.X2, IngombroXMin, IngombroXMax);
    Allarga(e.Y1, IngombroYMin, IngombroYMax);
    Allarga(e.Y2, IngombroYMin, IngombroYMax);
}

void ConcludiIngombro() {
    MezzaLarghezzaIngombro = Intero(std::fabs(double(IngombroXMax) - double(IngombroXMin)) / 2.0);
    MezzaAltezzaIngombro = Intero(std::fabs(double(IngombroYMax) - double(IngombroYMin)) / 2.0);
}

using Scatola = IngombroProgressivo::Scatola;

// The canvas turned inside out, where every measure starts.
Scatola Rovesciato() {
    return {LarghezzaQuadroDisegno, AltezzaQuadroDisegno, 0, 0};
}

void Allarga(Scatola& s, const Estensione& e) {
    Allarga(e.X1, s.XMin, s.XMax);
    Allarga(e.X2, s.XMin, s.XMax);
    Allarga(e.Y1, s.YMin, s.YMax);
    Allarga(e.Y2, s.YMin, s.YMax);
}

Scatola Unione(const Scatola& a, const Scatola& b) {
    return {std::min(a.XMin, b.XMin), std::min(a.YMin, b.YMin), std::max(a.XMax, b.XMax),
            std::max(a.YMax, b.YMax)};
}

void ScriviIngombro(const Scatola& s) {
    IngombroXMin = s.XMin;
    IngombroYMin = s.YMin;
    IngombroXMax = s.XMax;
    IngombroYMax = s.YMax;
}

} // namespace

void FissaElemento(Superficie& quadro) {
    EseguiPassi({
        {3500,
         [&] {
             quadro.AutoRedraw = true;
             quadro.DrawStyle = 0;
         }},
        {3510,
         [&] {
             CompletaElemento(ElementoInCostruzione);
             DisegnaElemento(quadro, ElementoInCostruzione);
         }},
        {3590, [&] { quadro.AutoRedraw = false; }},
    });
}

PuntoArco EstremoArco(const RecordAzione& a, float angolo) {
    return {Intero16(double(a.XCentro) + double(a.RaggioOriz) * std::cos(double(angolo))),
            Intero16(double(a.YCentro) - double(a.RaggioVert) * std::sin(double(angolo)))};
}

void CalcolaIngombro() {
    // The canvas turned inside out: an element inside it can only shrink it.
    IngombroXMin = LarghezzaQuadroDisegno;
    IngombroYMin = AltezzaQuadroDisegno;
    IngombroXMax = 0;
    IngombroYMax = 0;
    for (int16_t i = 1; i <= NumeroElementiAttivi; ++i) {
        Estensione e;
        if (EstensioneElemento(ElementiAttivi.at(i), e)) AllargaIngombro(e);
    }
    ConcludiIngombro();
}

void IngombroProgressivo::Misura(int16_t indice) {
    if (indice_ == 0 || indice <= indice_ || indice > NumeroElementiAttivi ||
        modo_ != ModoIngombro || numero_ != NumeroElementiAttivi)
        Prepara(indice);
    else
        Avanza(indice);
}

// The whole measure, as CalcolaIngombro takes it, keeping the box of what
// follows each element.
void IngombroProgressivo::Prepara(int16_t indice) {
    indice_ = 0;
    const int16_t n = NumeroElementiAttivi;
    std::vector<Scatola> singole(size_t(std::max<int16_t>(n, 0)) + 2, Rovesciato());
    IngombroXMin = LarghezzaQuadroDisegno;
    IngombroYMin = AltezzaQuadroDisegno;
    IngombroXMax = 0;
    IngombroYMax = 0;
    for (int16_t i = 1; i <= n; ++i) {
        Estensione e;
        if (!EstensioneElemento(ElementiAttivi.at(i), e)) continue;
        AllargaIngombro(e);
        Allarga(singole[size_t(i)], e);
    }
    ConcludiIngombro();
    dopo_.assign(singole.size(), Rovesciato());
    for (int16_t i = n; i >= 1; --i)
        dopo_[size_t(i)] = Unione(singole[size_t(i)], dopo_[size_t(i) + 1]);
    prima_ = Rovesciato();
    for (int16_t i = 1; i < indice && i <= n; ++i)
        prima_ = Unione(prima_, singole[size_t(i)]);
    indice_ = std::max<int16_t>(indice, 1);
    modo_ = ModoIngombro;
    numero_ = n;
}

// Only the elements changed since the previous call are measured again; the
// rest is the box kept of what follows. A fault leaves the globals as the
// whole measure would have left them at the same element.
void IngombroProgressivo::Avanza(int16_t indice) {
    const int16_t da = indice_;
    indice_ = 0;
    Scatola prima = prima_;
    ScriviIngombro(prima);
    for (int16_t i = da; i < indice; ++i) {
        Estensione e;
        if (!EstensioneElemento(ElementiAttivi.at(i), e)) continue;
        AllargaIngombro(e);
        Allarga(prima, e);
    }
    prima_ = prima;
    ScriviIngombro(Unione(prima, dopo_[size_t(indice)]));
    ConcludiIngombro();
    indice_ = indice;
}
