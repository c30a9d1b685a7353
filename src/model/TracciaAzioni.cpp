#include "model/TracciaAzioni.h"

#include "base/GestioneErrori.h"
#include "base/MappaErrori.h"
#include "base/Numeri.h"
#include "base/Utilita.h"
#include "model/Paint.h"
#include "model/StatoAmbiente.h"
#include "model/Superficie.h"

#include <QHash>

#include <optional>
#include <utility>

namespace {

// The pictures already read in the replay under way: a drawing shows the same
// picture many times, and even asking whether its file has changed costs more
// than drawing it. A picture that failed is not kept, so it fails again.
QHash<QString, QImage>* LetteNellaTraccia = nullptr;

// Where a replay that must not fail quietly takes its pictures; a null picture
// stands for one that cannot be read.
const std::function<QImage(const QString&)>* FigureRigorose = nullptr;

// The pictures of the replay under way that could not be read: told once at
// its end, however many there are.
struct FigureNonLette {
    std::optional<ErroreZanto> Prima;
    int Altre = 0;
};
FigureNonLette* NonLetteNellaTraccia = nullptr;

QImage Figura(const QString& percorso) {
    if (FigureRigorose) {
        QImage figura = (*FigureRigorose)(percorso);
        if (figura.isNull()) throw ErroreFileAssente(percorso);
        return figura;
    }
    if (!LetteNellaTraccia) return Superficie::LoadPicture(percorso);
    auto letta = LetteNellaTraccia->constFind(percorso);
    if (letta != LetteNellaTraccia->constEnd()) return *letta;
    return *LetteNellaTraccia->insert(percorso, Superficie::LoadPicture(percorso));
}

// Single division as the program does it: x/0 is error 11, 0/0 error 6.
float Aspetto(float verticale, float orizzontale) {
    if (orizzontale == 0.0f) {
        if (verticale == 0.0f) throw ErroreZanto{6, QStringLiteral("Overflow")};
        throw ErroreZanto{11, QStringLiteral("Divisione per zero")};
    }
    return verticale / orizzontale;
}

float RaggioPerAspetto(const RecordAzione& a, float aspetto) {
    return aspetto <= 1.0f ? a.RaggioOriz : a.RaggioVert;
}

void StatoRiempimento(Superficie& s, const RecordAzione& a) {
    if (a.FlagPienoVuoto == FlagVuoto) s.FillStyle = 1;
    if (a.FlagPienoVuoto == FlagPieno) {
        s.FillStyle = 0;
        s.FillColor = a.ColZona;
        s.ForeColor = a.ColLinea;
    }
}

void TracciaTesto(Superficie& s, const RecordAzione& a) {
    s.FontName = a.NomeFont;
    s.FontSize = float(a.SizeFont);
    s.ForeColor = a.ColLinea;
    if (a.Corsivo == 1) s.FontItalic = true;
    if (a.Corsivo == 2) s.FontItalic = false;
    if (a.Grassetto == 1) s.FontBold = true;
    if (a.Grassetto == 2) s.FontBold = false;
    TestoDaDividere = a.Testo;
    DividiTestoInRighe();
    for (int16_t riga = 1; riga <= NumeroRigheTesto; ++riga) {
        s.CurrentX = float(a.XInizio);
        // Print has already moved one line down; the spacing is added to that.
        s.CurrentY = riga == 1 ? float(a.YInizio) : s.CurrentY + float(a.InterlineaTesto);
        s.Print(RigheTesto[riga]);
    }
}

void TracciaImmagine(Superficie& s, const RecordAzione& a) {
    QImage figura;
    try {
        figura = Figura(a.NomeFileImmagine);
    } catch (const ErroreZanto& errore) {
        // A picture moved or deleted since it was placed must not stop the
        // drawing, nor bring its message at every step of a walk.
        const int16_t riempimento = s.FillStyle;
        s.FillStyle = 1;
        s.DrawWidth = 1;
        s.Box(float(a.XInizio), float(a.YInizio), float(a.XFine), float(a.YFine), a.ColLinea);
        s.FillStyle = riempimento;
        if (FigureRigorose || ImmaginiSegnalate.contains(a.NomeFileImmagine)) return;
        ImmaginiSegnalate.insert(a.NomeFileImmagine);
        if (!NonLetteNellaTraccia) {
            GestioneErrori(errore);
        } else if (!NonLetteNellaTraccia->Prima) {
            NonLetteNellaTraccia->Prima = errore;
        } else {
            ++NonLetteNellaTraccia->Altre;
        }
        return;
    }
    s.PaintPicture(figura, float(a.XInizio), float(a.YInizio), float(double(a.XFine) - a.XInizio),
                   float(double(a.YFine) - a.YInizio));
}

} // namespace

void TracciaAzione(Superficie& s, const RecordAzione& a) {
    switch (a.TipoAzione) {
    case TipiAzione::Linea:
        s.DrawWidth = Intero16(a.SpessLinea);
        s.Line(float(a.XInizio), float(a.YInizio), float(a.XFine), float(a.YFine), a.ColLinea);
        break;
    case TipiAzione::Arco: {
        s.DrawWidth = Intero16(a.SpessLinea);
        const float aspetto = Aspetto(a.RaggioVert, a.RaggioOriz);
        s.Circle(a.XCentro, a.YCentro, RaggioPerAspetto(a, aspetto), a.ColLinea, a.RadIniz,
                 a.RadFine, aspetto);
        break;
    }
    case TipiAzione::Rettangolo:
        s.DrawWidth = Intero16(a.SpessLinea);
        StatoRiempimento(s, a);
        s.Box(float(a.XInizio), float(a.YInizio), float(a.XFine), float(a.YFine), a.ColLinea);
        break;
    case TipiAzione::Ellisse: {
        s.DrawWidth = Intero16(a.SpessLinea);
        StatoRiempimento(s, a);
        const float aspetto = Aspetto(a.RaggioVert, a.RaggioOriz);
        s.Circle(a.XCentro, a.YCentro, RaggioPerAspetto(a, aspetto), a.ColLinea, aspetto);
        break;
    }
    case TipiAzione::Colorazione: {
        Paint& paint = UsaOggettoPaint();
        paint.ImpostaDevice(s);
        s.FillStyle = 0;
        s.FillColor = a.ColZona;
        s.ForeColor = a.ColLinea;
        if (a.FlagPienoVuoto == FlagPieno) {
            float x = a.XCentro;
            float y = a.YCentro;
            paint.Flood(x, y);
        } else {
            s.DrawWidth = 1;
            s.Circle(a.XCentro, a.YCentro, RaggioTondino, a.ColLinea);
        }
        s.FillStyle = 1;
        break;
    }
    case TipiAzione::Testo:
        TracciaTesto(s, a);
        break;
    case TipiAzione::Immagine:
        TracciaImmagine(s, a);
        break;
    default:
        break; // other codes draw nothing
    }
}

void TracciaAzioni(Superficie& superficie, const QList<RecordAzione>& lista) {
    TracciaLista(superficie, lista, PrimaAzioneTraccia, UltimaAzioneTraccia);
}

void RitracciaTutto(Superficie& superficie) {
    superficie.ImmagineVuota();
    superficie.DrawStyle = 0;
    superficie.FillStyle = 1;
    PrimaAzioneTraccia = 1;
    UltimaAzioneTraccia = Intero16(static_cast<int64_t>(NumeroAzioni));
    // An action taken back into the hands is drawn by the overlay where it now
    // stands: drawn at its old place too, it would stay there as a ghost.
    const int32_t inMano = PrimitivaAttiva > 0 ? IndiceElementoInModifica : 0;
    if (inMano >= 1 && inMano <= NumeroAzioni) {
        TracciaLista(superficie, Azioni, 1, inMano - 1);
        TracciaLista(superficie, Azioni, inMano + 1, NumeroAzioni);
        return;
    }
    TracciaAzioni(superficie);
}

void ApplicaSfondo(Superficie& superficie, int32_t colore) {
    superficie.ImpostaBackColor(colore);
    RitracciaTutto(superficie);
}

void TracciaLista(Superficie& superficie, const QList<RecordAzione>& lista, int32_t prima,
                  int32_t ultima, bool riempimentoPerAzione) {
    TracciaLista(superficie, lista, prima, ultima,
                 [riempimentoPerAzione](Superficie& s, const RecordAzione& a, int32_t) {
                     if (riempimentoPerAzione) s.FillStyle = 1;
                     TracciaAzione(s, a);
                 });
}

void TracciaLista(Superficie& superficie, const QList<RecordAzione>& lista, int32_t prima,
                  int32_t ultima, const TracciaUnaAzione& traccia) {
    // The index lives outside the step, so that a retry starts again at the
    // action that failed and not at the first one.
    int32_t indice = prima;
    QHash<QString, QImage> lette;
    FigureNonLette nonLette;
    struct Ripristino {
        QHash<QString, QImage>* Lette;
        FigureNonLette* NonLette;
        ~Ripristino() {
            LetteNellaTraccia = Lette;
            NonLetteNellaTraccia = NonLette;
        }
    } ripristino{std::exchange(LetteNellaTraccia, &lette),
                 std::exchange(NonLetteNellaTraccia, &nonLette)};
    EseguiPassi({
        {3200, [&] { superficie.AutoRedraw = true; }},
        {3210,
         [&] {
             for (; indice <= ultima; ++indice) {
                 if (indice < 1 || indice >= lista.size())
                     throw ErroreZanto{9, QStringLiteral("Indice non compreso nell'intervallo.")};
                 traccia(superficie, lista[indice], indice);
             }
         }},
        {3290,
         [&] {
             superficie.AutoRedraw = false;
             superficie.Refresh();
         }},
    });
    if (!nonLette.Prima) return;
    // A drawing whose pictures are gone is told once, not once for each of them.
    ErroreZanto errore = *nonLette.Prima;
    if (nonLette.Altre > 0)
        errore.Descrizione += QStringLiteral(" (e altre %1 immagini)").arg(nonLette.Altre);
    SezioneCorrente = 3210;
    GestioneErrori(errore);
}

void TracciaListaRigorosa(Superficie& superficie, const QList<RecordAzione>& lista, int32_t numero,
                          const std::function<QImage(const QString&)>& figure) {
    struct Ripristino {
        QHash<QString, QImage>* Lette;
        const std::function<QImage(const QString&)>* Figure;
        ~Ripristino() {
            LetteNellaTraccia = Lette;
            FigureRigorose = Figure;
        }
    } ripristino{std::exchange(LetteNellaTraccia, nullptr), std::exchange(FigureRigorose, &figure)};
    superficie.AutoRedraw = true;
    superficie.FillStyle = 1;
    for (int32_t indice = 1; indice <= numero; ++indice) {
        if (indice >= lista.size())
            throw ErroreZanto{9, QStringLiteral("Indice non compreso nell'intervallo.")};
        TracciaAzione(superficie, lista[indice]);
    }
    superficie.AutoRedraw = false;
    superficie.Refresh();
}
