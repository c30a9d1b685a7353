#include "model/TracciaSelezione.h"

#include "base/Numeri.h"
#include "model/Superficie.h"
#include "model/TracciaAzioni.h"

#include <QFileInfo>
#include <QHash>

#include <functional>

namespace {

constexpr int16_t TrattoPieno = 0;
constexpr int16_t TrattoPuntinato = 2;
constexpr int32_t Nero = 0x000000;

void Tondino(Superficie& s, const RecordAzione& a, float raggio) {
    s.FillStyle = 0;
    s.FillColor = a.ColZona;
    s.ForeColor = a.ColLinea;
    s.DrawWidth = 1;
    s.Circle(a.XCentro, a.YCentro, raggio, a.ColLinea);
}

void Cornice(Superficie& s, const RecordAzione& a, int32_t colore) {
    s.FillStyle = 1;
    s.Box(float(a.XInizio), float(a.YInizio), float(a.XFine), float(a.YFine), colore);
}

// One action as the panel shows it; `esiste` tells whether a picture's file is there.
void TracciaAzioneSelezione(Superficie& s, const RecordAzione& a, bool scelto,
                            const std::function<bool(const QString&)>& esiste) {
    s.FillStyle = 1;
    if (scelto) {
        s.DrawStyle = TrattoPuntinato;
        s.DrawWidth = 1;
    } else {
        s.DrawStyle = TrattoPieno;
        // A width of 0 leaves the pen as the action before left it.
        if (a.SpessLinea > 0) s.DrawWidth = Intero16(a.SpessLinea);
    }
    switch (a.TipoAzione) {
    case TipiAzione::Colorazione:
        Tondino(s, a, scelto ? RaggioTondinoScelto : RaggioTondino);
        break;
    case TipiAzione::Testo:
        TracciaAzione(s, a);
        if (scelto) Cornice(s, a, Nero);
        break;
    case TipiAzione::Immagine:
        if (esiste(a.NomeFileImmagine)) TracciaAzione(s, a);
        Cornice(s, a, a.ColLinea);
        break;
    default:
        if (a.SpessLinea == s.DrawWidth) {
            TracciaAzione(s, a);
        } else {
            // The common drawing takes its width from the record.
            RecordAzione conPenna = a;
            conPenna.SpessLinea = s.DrawWidth;
            TracciaAzione(s, conPenna);
        }
        break;
    }
}

} // namespace

void TracciaSelezione(Superficie& superficie, const QList<RecordAzione>& lista, int32_t numero,
                      int32_t scelta) {
    superficie.ImmagineVuota();
    // A drawing names the same few files many times: each is looked for once.
    QHash<QString, bool> fileTrovati;
    const std::function<bool(const QString&)> esiste = [&fileTrovati](const QString& percorso) {
        auto trovato = fileTrovati.constFind(percorso);
        if (trovato == fileTrovati.constEnd())
            trovato = fileTrovati.insert(percorso, QFileInfo::exists(percorso));
        return *trovato;
    };
    TracciaLista(superficie, lista, 1, numero,
                 [scelta, &esiste](Superficie& s, const RecordAzione& a, int32_t indice) {
                     TracciaAzioneSelezione(s, a, indice == scelta, esiste);
                 });
}
