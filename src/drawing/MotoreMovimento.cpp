#include "drawing/MotoreMovimento.h"

#include "archive/CopiaLavoro.h"
#include "base/Bip.h"
#include "base/GestioneErrori.h"
#include "base/Numeri.h"
#include "drawing/CodiciComando.h"
#include "model/ElementoAttivo.h"
#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"

#include <cmath>

namespace {

using namespace TastiFreccia;

constexpr double W = LarghezzaQuadroDisegno;
constexpr double H = AltezzaQuadroDisegno;
// A full turn with the program's own pi.
constexpr double DuePi = 360 * Grado;
// The crosshair's point stays this far off the top and left rim.
constexpr double MargineMirino = 50;
// No radius of a single arc or ellipse shrinks below this.
constexpr double RaggioMinimo = 40;

double Passo() {
    return double(PassoSpostamento);
}

bool TipoAngoli(int32_t tipo) {
    return tipo == TipiAzione::Linea || tipo == TipiAzione::Rettangolo ||
           tipo == TipiAzione::Testo || tipo == TipiAzione::Immagine ||
           tipo == TipiAzione::RettangoloSelezione;
}

bool TipoCentro(int32_t tipo) {
    return tipo == TipiAzione::Arco || tipo == TipiAzione::Ellisse;
}

bool TipoConCentro(int32_t tipo) {
    return TipoCentro(tipo) || tipo == TipiAzione::Colorazione;
}

// The shift of one key along its axis: right and down add, left and up take away.
double Verso() {
    return TastoMovimento == Destra || TastoMovimento == Giu ? 1.0 : -1.0;
}

bool Orizzontale() {
    return TastoMovimento == Destra || TastoMovimento == Sinistra;
}

bool Freccia() {
    return TastoMovimento >= Sinistra && TastoMovimento <= Giu;
}

void Sposta(int32_t& x, int32_t& y) {
    if (Orizzontale())
        x = Intero32(double(x) + Verso() * Passo());
    else
        y = Intero32(double(y) + Verso() * Passo());
}

void Sposta(float& x, float& y) {
    if (Orizzontale())
        x = float(double(x) + Verso() * Passo());
    else
        y = float(double(y) + Verso() * Passo());
}

// Would this coordinate, moved by the key, leave the canvas?
bool FuoriDalQuadro(double x, double y) {
    switch (TastoMovimento) {
    case Destra:
        return x + Passo() > W;
    case Sinistra:
        return x - Passo() < 0;
    case Su:
        return y - Passo() < 0;
    default:
        return y + Passo() > H;
    }
}

// A line's ends may go anywhere, off the canvas too.
void EstremoLinea() {
    RecordAzione& r = RecordLavoro;
    if (ComandoModifica == TastoDisegno::ModificaInizioLinea)
        Sposta(r.XInizio, r.YInizio);
    else
        Sposta(r.XFine, r.YFine);
}

void Alza(float& angolo) {
    if (double(angolo + PassoAngolo) > DuePi) angolo = 0;
    angolo += PassoAngolo;
}

void Abbassa(float& angolo) {
    if (double(angolo - PassoAngolo) < 0) angolo = float(DuePi);
    angolo -= PassoAngolo;
}

// Each angle wraps by itself, so that both together may change their distance.
void AngoliArco() {
    RecordAzione& r = RecordLavoro;
    const bool alza = TastoMovimento == Destra || TastoMovimento == Su;
    void (*cambia)(float&) = alza ? Alza : Abbassa;
    if (ComandoModifica == TastoDisegno::ModificaInizioArco ||
        ComandoModifica == TastoDisegno::RuotaInteroArco)
        cambia(r.RadIniz);
    if (ComandoModifica == TastoDisegno::ModificaFineArco ||
        ComandoModifica == TastoDisegno::RuotaInteroArco)
        cambia(r.RadFine);
}

void FormaEllisse() {
    RecordAzione& r = RecordLavoro;
    switch (TastoMovimento) {
    case Destra:
        if (double(r.XCentro) + r.RaggioOriz + Passo() > W) return Bip();
        r.RaggioOriz = float(r.RaggioOriz + Passo());
        break;
    case Sinistra:
        if (r.RaggioOriz - Passo() <= 0) return Bip();
        r.RaggioOriz = float(r.RaggioOriz - Passo());
        break;
    case Su:
        if (double(r.YCentro) + r.RaggioVert + Passo() > H) return Bip();
        r.RaggioVert = float(r.RaggioVert + Passo());
        break;
    default:
        if (r.RaggioVert - Passo() <= 0) return Bip();
        r.RaggioVert = float(r.RaggioVert - Passo());
        break;
    }
}

void Mirino() {
    RecordAzione& r = RecordLavoro;
    const double x = r.XCentro;
    const double y = r.YCentro;
    const bool fuori = (TastoMovimento == Destra && x + Passo() > W) ||
                       (TastoMovimento == Giu && y + Passo() > H) ||
                       (TastoMovimento == Sinistra && x - Passo() < MargineMirino) ||
                       (TastoMovimento == Su && y - Passo() < MargineMirino);
    if (fuori) return Bip();
    Sposta(r.XCentro, r.YCentro);
}

// While a key walks the group, the measure taken for each element is carried
// on from the previous one: the same figures as a whole measure, in linear time.
IngombroProgressivo* MisuraGruppo = nullptr;
int16_t ElementoGruppo = 0;

struct MisuraDelPasso {
    IngombroProgressivo misura;
    MisuraDelPasso() { MisuraGruppo = &misura; }
    ~MisuraDelPasso() { MisuraGruppo = nullptr; }
    MisuraDelPasso(const MisuraDelPasso&) = delete;
    MisuraDelPasso& operator=(const MisuraDelPasso&) = delete;
};

// The head of 111 to 113 on a group: a key already stopped at the edge is
// refused at once; any other frees it and the group is measured afresh, on a
// group whose earlier elements have already taken the step.
bool TestaOggetto() {
    if (OggettoAttivo != 1) return true;
    if (BloccoBordo == TastoMovimento) {
        Bip();
        return false;
    }
    BloccoBordo = 0;
    ModoIngombro = 1;
    if (MisuraGruppo)
        MisuraGruppo->Misura(ElementoGruppo);
    else
        CalcolaIngombro();
    return true;
}

void RifiutaAlBordo() {
    BloccoBordo = TastoMovimento;
    Bip();
}

// The centre of the group must stay on the canvas.
bool CentroGruppoFuori() {
    const double passo = Passo();
    switch (TastoMovimento) {
    case Destra:
        return double(IngombroXMin) + MezzaLarghezzaIngombro + passo > W;
    case Sinistra:
        return double(IngombroXMax) - MezzaLarghezzaIngombro - passo < 0;
    case Su:
        return double(IngombroYMax) - MezzaAltezzaIngombro - passo < 0;
    default:
        return double(IngombroYMin) + MezzaAltezzaIngombro + passo > H;
    }
}

void SpostaElemento() {
    RecordAzione& r = RecordLavoro;
    if (TipoAngoli(r.TipoAzione)) {
        Sposta(r.XInizio, r.YInizio);
        Sposta(r.XFine, r.YFine);
    } else if (TipoConCentro(r.TipoAzione)) {
        Sposta(r.XCentro, r.YCentro);
    }
}

void Muovi() {
    RecordAzione& r = RecordLavoro;
    if (OggettoAttivo == 1) {
        if (CentroGruppoFuori()) return RifiutaAlBordo();
    } else if (TipoAngoli(r.TipoAzione)) {
        if (FuoriDalQuadro(r.XInizio, r.YInizio) || FuoriDalQuadro(r.XFine, r.YFine)) return Bip();
    } else if (TipoConCentro(r.TipoAzione)) {
        if (FuoriDalQuadro(r.XCentro, r.YCentro)) return Bip();
    }
    SpostaElemento();
}

void GrandezzaElemento() {
    RecordAzione& r = RecordLavoro;
    if (TipoAngoli(r.TipoAzione)) {
        int32_t& x = ComandoModifica == TastoDisegno::ModificaGrandezza1 ? r.XInizio : r.XFine;
        int32_t& y = ComandoModifica == TastoDisegno::ModificaGrandezza1 ? r.YInizio : r.YFine;
        if (FuoriDalQuadro(x, y)) return Bip();
        Sposta(x, y);
        return;
    }
    if (!TipoCentro(r.TipoAzione)) return; // a fill has no size
    const bool ingrandisce = TastoMovimento == Destra || TastoMovimento == Su;
    if (ingrandisce) {
        const float vert = r.RaggioVert * (1 + FattoreRidimensione);
        const float oriz = r.RaggioOriz * (1 + FattoreRidimensione);
        if (vert > H / 2 || oriz > W / 2) return Bip();
        r.RaggioVert = vert;
        r.RaggioOriz = oriz;
    } else {
        const float vert = r.RaggioVert * (1 - FattoreRidimensione);
        const float oriz = r.RaggioOriz * (1 - FattoreRidimensione);
        if (vert < RaggioMinimo || oriz < RaggioMinimo) return Bip();
        r.RaggioVert = vert;
        r.RaggioOriz = oriz;
    }
}

// Refusals of a group's stretch: it can't shrink below a tenth of the box it
// had when selected, nor its centre leave the canvas.
bool StiramentoFuori() {
    const double passo = Passo();
    if (ComandoModifica == TastoDisegno::ModificaGrandezza1) {
        switch (TastoMovimento) {
        case Destra:
            return IngombroXMin + passo >= double(RiferimentoXMax) - PassoRidimensioneX;
        case Sinistra:
            return double(IngombroXMax) - MezzaLarghezzaIngombro - passo < 0;
        case Su:
            return double(IngombroYMax) - MezzaAltezzaIngombro - passo < 0;
        default:
            return IngombroYMin + passo >= double(RiferimentoYMax) - PassoRidimensioneY;
        }
    }
    switch (TastoMovimento) {
    case Destra:
        return double(IngombroXMin) + MezzaLarghezzaIngombro + passo > W;
    case Sinistra:
        return IngombroXMax - passo <= double(RiferimentoXMin) + PassoRidimensioneX;
    case Su:
        return IngombroYMax - passo <= double(RiferimentoYMin) + PassoRidimensioneY;
    default:
        return double(IngombroYMin) + MezzaAltezzaIngombro + passo > H;
    }
}

// One axis of the stretch: F the fixed edge, S the reference size. A point's
// shift grows with its distance from F, so F stays and the far side moves by
// the whole step.
struct Asse {
    double F;
    double S;
    bool fissoAlMassimo;
    bool LatoLibero(double v) const { return fissoAlMassimo ? v < F : v > F; }
    double Spostato(double v) const {
        const double distanza = std::fabs(F - v);
        if (S == 0) {
            if (distanza == 0) throw ErroreZanto{6, QStringLiteral("Overflow")};
            throw ErroreZanto{11, QStringLiteral("Divisione per zero")};
        }
        return v + Verso() * Passo() * distanza / S;
    }
};

Asse AsseDelTasto() {
    const bool massimo = ComandoModifica == TastoDisegno::ModificaGrandezza1;
    if (Orizzontale())
        return {double(massimo ? RiferimentoXMax : RiferimentoXMin),
                std::fabs(double(RiferimentoXMax) - RiferimentoXMin), massimo};
    return {double(massimo ? RiferimentoYMax : RiferimentoYMin),
            std::fabs(double(RiferimentoYMax) - RiferimentoYMin), massimo};
}

void StiraAngolo(const Asse& asse, int32_t& v) {
    if (asse.LatoLibero(v)) v = Intero32(double(Arrotonda(asse.Spostato(v))));
}

// An arc or ellipse stretches by its rims, so its radius follows the box.
void StiraCentro(const Asse& asse, float& centro, float& raggio) {
    const double sinistra = double(centro) - raggio;
    const double destra = double(centro) + raggio;
    const double nuovaSinistra = asse.Spostato(sinistra);
    const double nuovaDestra = asse.Spostato(destra);
    raggio = float((nuovaDestra - nuovaSinistra) / 2);
    centro = float(asse.Spostato(centro));
}

// In 111 Up an arc or ellipse beyond the fixed edge is stretched all the
// same unless one of its ends lies beyond it too: the program's own reading.
bool EsclusoIn111Su(const RecordAzione& r) {
    const double f = RiferimentoYMax;
    if (double(r.YCentro) < f) return false;
    const int16_t y1 = Intero16(double(r.YCentro) - double(r.RaggioVert) * std::sin(r.RadIniz));
    const int16_t y2 = Intero16(double(r.YCentro) - double(r.RaggioVert) * std::sin(r.RadFine));
    return y1 >= f || y2 >= f;
}

void GrandezzaGruppo() {
    if (StiramentoFuori()) return RifiutaAlBordo();
    RecordAzione& r = RecordLavoro;
    const Asse asse = AsseDelTasto();
    const bool x = Orizzontale();
    if (TipoAngoli(r.TipoAzione)) {
        StiraAngolo(asse, x ? r.XInizio : r.YInizio);
        StiraAngolo(asse, x ? r.XFine : r.YFine);
    } else if (TipoCentro(r.TipoAzione)) {
        float& centro = x ? r.XCentro : r.YCentro;
        float& raggio = x ? r.RaggioOriz : r.RaggioVert;
        const bool stira =
            ComandoModifica == TastoDisegno::ModificaGrandezza1 && TastoMovimento == Su
                ? !EsclusoIn111Su(r)
                : asse.LatoLibero(centro);
        if (stira) StiraCentro(asse, centro, raggio);
    } else if (r.TipoAzione == TipiAzione::Colorazione) {
        float& centro = x ? r.XCentro : r.YCentro;
        if (asse.LatoLibero(centro)) centro = float(asse.Spostato(centro));
    }
}

void Grandezza() {
    if (OggettoAttivo == 1)
        GrandezzaGruppo();
    else
        GrandezzaElemento();
}

// The fields the engine may change, from TipoAzione to RaggioOriz.
void CopiaGeometria(const RecordAzione& da, RecordAzione& a, bool conTipo) {
    if (conTipo) a.TipoAzione = da.TipoAzione;
    a.XInizio = da.XInizio;
    a.YInizio = da.YInizio;
    a.XFine = da.XFine;
    a.YFine = da.YFine;
    a.ColLinea = da.ColLinea;
    a.ColZona = da.ColZona;
    a.FlagPienoVuoto = da.FlagPienoVuoto;
    a.SpessLinea = da.SpessLinea;
    a.XCentro = da.XCentro;
    a.YCentro = da.YCentro;
    a.RadIniz = da.RadIniz;
    a.RadFine = da.RadFine;
    a.RaggioVert = da.RaggioVert;
    a.RaggioOriz = da.RaggioOriz;
}

} // namespace

void MotoreMovimento() {
    if (!Freccia()) return;
    switch (ComandoModifica) {
    case TastoDisegno::ModificaInizioLinea:
    case TastoDisegno::ModificaFineLinea:
        EstremoLinea();
        break;
    case TastoDisegno::ModificaInizioArco:
    case TastoDisegno::ModificaFineArco:
    case TastoDisegno::RuotaInteroArco:
        AngoliArco();
        break;
    case TastoDisegno::ModificaFormaEllisseArco:
        FormaEllisse();
        break;
    case TastoDisegno::ModificaGrandezza1:
    case TastoDisegno::ModificaGrandezza2:
        if (TestaOggetto()) Grandezza();
        break;
    case TastoDisegno::MuoveElementoAttivo:
        if (TestaOggetto()) Muovi();
        break;
    case TastoDisegno::ColoraZona:
        Mirino();
        break;
    default:
        break;
    }
}

void ApplicaTastoMovimento(Superficie& quadro) {
    // A step that fails half way leaves the element and the group as they were.
    struct Ripristino {
        RecordAzione Elemento = ElementoInCostruzione;
        QList<RecordAzione> Gruppo = ElementiAttivi;
        bool Concluso = false;
        ~Ripristino() {
            TastoMovimento = 0;
            if (Concluso) return;
            ElementoInCostruzione = Elemento;
            ElementiAttivi = Gruppo;
        }
    } ripristino;
    if (PrimitivaAttiva > 0) {
        CopiaGeometria(ElementoInCostruzione, RecordLavoro, true);
        MotoreMovimento();
        CopiaGeometria(RecordLavoro, ElementoInCostruzione, false);
        TracciaElementoAttivo(quadro);
    }
    // An object that is active beside an open element takes the same key.
    if (OggettoAttivo == 1) {
        const MisuraDelPasso misura;
        for (int16_t i = 1; i <= NumeroElementiAttivi; ++i) {
            ElementoGruppo = i;
            CopiaGeometria(ElementiAttivi[i], RecordLavoro, true);
            MotoreMovimento();
            if (BloccoBordo > 0) break;
            CopiaGeometria(RecordLavoro, ElementiAttivi[i], false);
        }
        if (BloccoBordo < 1)
            TracciaElementoAttivo(quadro);
        else
            ElementiAttivi = ripristino.Gruppo;
    }
    ripristino.Concluso = true;
}
