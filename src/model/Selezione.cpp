#include "model/Selezione.h"

#include "base/GestioneErrori.h"
#include "base/Numeri.h"
#include "model/FissaElemento.h"
#include "model/StatoAmbiente.h"

#include <vector>

namespace {

// How far the object commands shift the last object when it is drawn again.
constexpr int32_t ScartoRidisegno = 100;

bool DentroRettangolo(int32_t x, int32_t y) {
    const BordiRettangolo& r = RettangoloSelezione;
    return x >= r.Sinistra && x <= r.Destra && y >= r.Alto && y <= r.Basso;
}

// The comparisons are on 16-bit whole numbers, but for the fill's point.
bool DentroSelezione(const RecordAzione& a) {
    switch (a.TipoAzione) {
    case TipiAzione::Linea:
    case TipiAzione::Rettangolo:
    case TipiAzione::Testo:
    case TipiAzione::Immagine:
        return DentroRettangolo(Intero16(a.XInizio), Intero16(a.YInizio)) &&
               DentroRettangolo(Intero16(a.XFine), Intero16(a.YFine));
    case TipiAzione::Arco: {
        // By its two ends: the middle may bulge out of the box.
        const PuntoArco inizio = EstremoArco(a, a.RadIniz);
        const PuntoArco fine = EstremoArco(a, a.RadFine);
        return DentroRettangolo(inizio.X, inizio.Y) && DentroRettangolo(fine.X, fine.Y);
    }
    case TipiAzione::Ellisse:
        return DentroRettangolo(Intero16(double(a.XCentro) - a.RaggioOriz),
                                Intero16(double(a.YCentro) - a.RaggioVert)) &&
               DentroRettangolo(Intero16(double(a.XCentro) + a.RaggioOriz),
                                Intero16(double(a.YCentro) + a.RaggioVert));
    case TipiAzione::Colorazione: {
        const BordiRettangolo& r = RettangoloSelezione;
        const double x = a.XCentro;
        const double y = a.YCentro;
        return x >= r.Sinistra && x <= r.Destra && y >= r.Alto && y <= r.Basso;
    }
    default:
        return false;
    }
}

void PrendiAzione(int32_t indice) {
    NumeroElementiSelezionati = Intero16(int64_t(NumeroElementiSelezionati) + 1);
    ElementiSelezionati.append(Intero16(indice));
    RecordAzione copia = Azioni.at(indice);
    // A fill moved away from what it rested on shows as a dot.
    if (copia.TipoAzione == TipiAzione::Colorazione) copia.FlagPienoVuoto = FlagVuoto;
    NumeroElementiAttivi = Intero16(int64_t(NumeroElementiAttivi) + 1);
    ElementiAttivi.append(copia);
}

// The mirror of v about the axis, and whether v lies on the side that moves.
struct Specchio {
    double Asse = 0;
    bool SottoAsse = true; // flips 1 and 3 move what lies below the axis, 2 and 4 what lies above

    bool Specchiato(double v) const { return SottoAsse ? v < Asse : v > Asse; }
    double Riflesso(double v) const { return SottoAsse ? Asse + (Asse - v) : Asse - (v - Asse); }
    int32_t Riflesso(int32_t v) const { return Intero32(Riflesso(double(v))); }
    float Riflesso(float v) const { return float(Riflesso(double(v))); }

    void Punto(int32_t& v) const {
        if (Specchiato(v)) v = Riflesso(v);
    }
    void Centro(float& v) const {
        if (Specchiato(v)) v = Riflesso(v);
    }
    // A text or a picture keeps its start below its end: the corners cross over.
    void Incrocia(int32_t& inizio, int32_t& fine) const {
        const int32_t vecchioInizio = inizio;
        const int32_t vecchioFine = fine;
        if (Specchiato(vecchioFine)) inizio = Riflesso(vecchioFine);
        if (Specchiato(vecchioInizio)) fine = Riflesso(vecchioInizio);
    }
};

// Start and end swap so that the arc still runs counter-clockwise.
void RibaltaAngoli(RecordAzione& a, bool sinistraDestra) {
    const double s = a.RadIniz;
    const double e = a.RadFine;
    if (sinistraDestra) {
        a.RadIniz = float(e > 180 * Grado ? 360 * Grado - (e - 180 * Grado) : 180 * Grado - e);
        a.RadFine = float(s > 180 * Grado ? 360 * Grado - (s - 180 * Grado) : 180 * Grado - s);
    } else {
        a.RadIniz = float(360 * Grado - e);
        a.RadFine = float(360 * Grado - s);
    }
}

void RibaltaElemento(RecordAzione& a, const Specchio& specchio, bool orizzontale) {
    switch (a.TipoAzione) {
    case TipiAzione::Linea:
    case TipiAzione::Rettangolo:
        specchio.Punto(orizzontale ? a.XInizio : a.YInizio);
        specchio.Punto(orizzontale ? a.XFine : a.YFine);
        break;
    case TipiAzione::Arco: {
        float& centro = orizzontale ? a.XCentro : a.YCentro;
        centro = specchio.Riflesso(centro);
        RibaltaAngoli(a, orizzontale);
        break;
    }
    case TipiAzione::Ellisse:
    case TipiAzione::Colorazione:
        specchio.Centro(orizzontale ? a.XCentro : a.YCentro);
        break;
    case TipiAzione::Testo:
    case TipiAzione::Immagine:
        // Only the box moves: the text or the picture itself isn't reversed.
        if (orizzontale)
            specchio.Incrocia(a.XInizio, a.XFine);
        else
            specchio.Incrocia(a.YInizio, a.YFine);
        break;
    default:
        break;
    }
}

} // namespace

void PrendiRettangoloSelezione(const RecordAzione& riquadro) {
    RettangoloSelezione = {Intero16(riquadro.XInizio), Intero16(riquadro.YInizio),
                           Intero16(riquadro.XFine), Intero16(riquadro.YFine)};
}

void SelezionaElementi() {
    EseguiPassi({
        {3700,
         [] {
             ElementiSelezionati = QList<int16_t>{0};
             NumeroElementiSelezionati = 0;
             ElementiAttivi = QList<RecordAzione>{RecordAzione{}};
             NumeroElementiAttivi = 0;
         }},
        {3710,
         [] {
             for (int32_t i = 1; i <= NumeroAzioni; ++i)
                 if (DentroSelezione(Azioni.at(i))) PrendiAzione(i);
         }},
        {3720,
         [] {
             if (NumeroElementiAttivi > 0) PrendiRiferimento();
         }},
    });
}

void RimuoviSelezione() {
    EseguiPassi({
        {3800, [] { ColorazioniInTondini(); }},
        {3810,
         [] {
             // An index may by now lie past the end of the list (an object drawn
             // again and moved twice): it takes nothing.
             std::vector<bool> tolta(size_t(NumeroAzioni) + 1, false);
             for (int16_t k = 1; k <= NumeroElementiSelezionati; ++k) {
                 const int16_t indice = ElementiSelezionati.at(k);
                 if (indice >= 1 && indice <= NumeroAzioni) tolta[size_t(indice)] = true;
             }
             QList<RecordAzione> tenute{RecordAzione{}};
             tenute.reserve(qsizetype(NumeroAzioni) + 1);
             for (int32_t i = 1; i <= NumeroAzioni; ++i)
                 if (!tolta[size_t(i)]) tenute.append(Azioni.at(i));
             RiscriviInizioAzioni(tenute, int32_t(tenute.size() - 1));
         }},
    });
}

void RibaltaElementiAttivi(int16_t ribaltamento) {
    if (ribaltamento < Ribaltamenti::AsseDestro || ribaltamento > Ribaltamenti::AsseSuperiore)
        return;
    // For the flip an arc counts by its true outline.
    ModoIngombro = 2;
    CalcolaIngombro();
    Specchio specchio;
    switch (ribaltamento) {
    case Ribaltamenti::AsseDestro:
        specchio = {double(IngombroXMax), true};
        break;
    case Ribaltamenti::AsseSinistro:
        specchio = {double(IngombroXMin), false};
        break;
    case Ribaltamenti::AsseInferiore:
        specchio = {double(IngombroYMax), true};
        break;
    default:
        specchio = {double(IngombroYMin), false};
        break;
    }
    const bool orizzontale =
        ribaltamento == Ribaltamenti::AsseDestro || ribaltamento == Ribaltamenti::AsseSinistro;
    for (int16_t i = 1; i <= NumeroElementiAttivi; ++i)
        RibaltaElemento(ElementiAttivi[i], specchio, orizzontale);
}

void RidisegnaUltimoOggetto() {
    if (NumeroElementiAttivi < 1) return;
    for (int16_t i = 1; i <= NumeroElementiAttivi; ++i) {
        RecordAzione& a = ElementiAttivi[i];
        switch (a.TipoAzione) {
        case TipiAzione::Linea:
        case TipiAzione::Rettangolo:
        case TipiAzione::Testo:
            a.XInizio = Intero32(double(a.XInizio) + ScartoRidisegno);
            a.YInizio = Intero32(double(a.YInizio) + ScartoRidisegno);
            a.XFine = Intero32(double(a.XFine) + ScartoRidisegno);
            a.YFine = Intero32(double(a.YFine) + ScartoRidisegno);
            break;
        case TipiAzione::Arco:
        case TipiAzione::Ellisse:
        case TipiAzione::Colorazione:
            a.XCentro = float(double(a.XCentro) + ScartoRidisegno);
            a.YCentro = float(double(a.YCentro) + ScartoRidisegno);
            break;
        default:
            break; // a picture stays where it was
        }
    }
    OggettoAttivo = 1;
}

void PrendiRiferimento() {
    PrendiBoxRiferimento();
    // A group never shrinks below a tenth of the box it had when it was taken.
    PassoRidimensioneX = Intero32(double(Arrotonda((double(IngombroXMax) - IngombroXMin) / 10)));
    PassoRidimensioneY = Intero32(double(Arrotonda((double(IngombroYMax) - IngombroYMin) / 10)));
    OggettoAttivo = 1;
}

void AzzeraSelezione() {
    DatiSelezione = StatoSelezione{};
}

void PrendiBoxRiferimento() {
    ModoIngombro = 1;
    CalcolaIngombro();
    RiferimentoXMin = IngombroXMin;
    RiferimentoYMin = IngombroYMin;
    RiferimentoXMax = IngombroXMax;
    RiferimentoYMax = IngombroYMax;
}
