#include "model/ElementoAttivo.h"

#include "model/FissaElemento.h"
#include "model/StatoAmbiente.h"
#include "model/Superficie.h"
#include "model/TracciaAzioni.h"

namespace {

constexpr int32_t Nero = 0x000000;

// The frame round a text or a picture: black, never filled.
void Cornice(Superficie& s, float x1, float y1, float x2, float y2) {
    s.FillStyle = 1;
    s.Box(x1, y1, x2, y2, Nero);
}

void CorniceTesto(Superficie& s, const RecordAzione& a) {
    Cornice(s, float(a.XInizio), float(a.YInizio), float(a.XFine),
            float(a.YFine - InterlineaCorrente));
}

// A shape of the overlay is an outline whatever its flag: it shows filled only
// once it is fixed. A selection box takes the rectangle's branch.
void TracciaContorno(Superficie& s, const RecordAzione& a, int32_t tipo) {
    RecordAzione contorno = a;
    contorno.TipoAzione = tipo;
    contorno.FlagPienoVuoto = FlagVuoto;
    TracciaAzione(s, contorno);
}

void TracciaElementoInCostruzione(Superficie& s) {
    const RecordAzione& e = ElementoInCostruzione;
    switch (e.TipoAzione) {
    case TipiAzione::Linea:
    case TipiAzione::Arco:
        TracciaAzione(s, e);
        break;
    case TipiAzione::Rettangolo:
    case TipiAzione::RettangoloSelezione:
        TracciaContorno(s, e, TipiAzione::Rettangolo);
        break;
    case TipiAzione::Ellisse:
        TracciaContorno(s, e, TipiAzione::Ellisse);
        break;
    case TipiAzione::Colorazione:
        if (SpostaIconaMirino)
            SpostaIconaMirino(e.XCentro - ScostamentoMirino, e.YCentro - ScostamentoMirino);
        break;
    case TipiAzione::Testo:
        if (NumeroRigheScritte < 1) break;
        TracciaRigheScritte(s, e);
        CorniceTesto(s, e);
        break;
    case TipiAzione::Immagine:
        TracciaAzione(s, e);
        Cornice(s, float(e.XInizio), float(e.YInizio), float(e.XFine), float(e.YFine));
        break;
    default:
        break;
    }
}

void Maniglia(Superficie& s, float x, float y) {
    s.Circle(x, y, RaggioManiglia, Nero);
}

void TracciaElementoOggetto(Superficie& s, const RecordAzione& a, int16_t indice) {
    switch (a.TipoAzione) {
    case TipiAzione::Colorazione: // a dot: a flood here would have nothing to hold it
    case TipiAzione::Rettangolo:
    case TipiAzione::Ellisse:
        TracciaContorno(s, a, a.TipoAzione);
        break;
    default:
        TracciaAzione(s, a);
        break;
    }
    if (indice == AzioneScelta && a.TipoAzione == TipiAzione::Testo) CorniceTesto(s, a);

    // A handle is a plain solid dot whatever pen the element was drawn with.
    const int16_t stile = s.DrawStyle;
    const int16_t larghezza = s.DrawWidth;
    s.DrawStyle = 0;
    s.DrawWidth = 1;
    s.FillStyle = 0;
    s.FillColor = Nero;
    s.ForeColor = Nero;
    switch (a.TipoAzione) {
    case TipiAzione::Linea:
    case TipiAzione::Rettangolo:
    case TipiAzione::Testo:
    case TipiAzione::Immagine:
        Maniglia(s, float(a.XInizio), float(a.YInizio));
        Maniglia(s, float(a.XFine), float(a.YFine));
        break;
    case TipiAzione::Arco: {
        const PuntoArco inizio = EstremoArco(a, a.RadIniz);
        const PuntoArco fine = EstremoArco(a, a.RadFine);
        Maniglia(s, float(inizio.X), float(inizio.Y));
        Maniglia(s, float(fine.X), float(fine.Y));
        break;
    }
    case TipiAzione::Ellisse:
        Maniglia(s, a.XCentro, a.YCentro);
        break;
    default:
        break;
    }
    s.DrawStyle = stile;
    s.DrawWidth = larghezza;
    s.FillStyle = 1;
}

} // namespace

void TracciaRigheScritte(Superficie& quadro, const RecordAzione& testo) {
    // Every line but the last keeps its CR, so the lines joined are the text
    // that replay cuts into the same lines again.
    RecordAzione daStampare = testo;
    daStampare.Testo.clear();
    for (int16_t riga = 1; riga <= NumeroRigheScritte; ++riga)
        daStampare.Testo += RigheScritte[riga];
    daStampare.InterlineaTesto = InterlineaCorrente;
    TracciaAzione(quadro, daStampare);
}

void TracciaElementoAttivo(Superficie& quadro) {
    // The overlay lives in the screen layer only, whatever the last writer left.
    quadro.AutoRedraw = false;
    quadro.Refresh();
    if (PrimitivaAttiva >= 1) TracciaElementoInCostruzione(quadro);
    if (OggettoAttivo < 1) return;
    for (int16_t i = 1; i <= NumeroElementiAttivi; ++i)
        TracciaElementoOggetto(quadro, ElementiAttivi[i], i);
}
