#pragma once

#include "model/RecordAzione.h"

#include <QList>
#include <QString>

#include <cstdint>

// The records the tests draw with, built in one place. Colours are the
// program's 0x00BBGGRR longs; a field a builder does not take stays at zero.
namespace CostruttoriAzioni {

inline RecordAzione Linea(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t colore = 0,
                          int32_t spessore = 1) {
    RecordAzione a;
    a.TipoAzione = TipiAzione::Linea;
    a.XInizio = x1, a.YInizio = y1;
    a.XFine = x2, a.YFine = y2;
    a.ColLinea = colore, a.SpessLinea = spessore;
    return a;
}

// A box on the corners of a line, its outline `linea` and its inside `zona`.
inline RecordAzione Rettangolo(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t flag,
                               int32_t linea = 0, int32_t zona = 0, int32_t spessore = 1) {
    RecordAzione a = Linea(x1, y1, x2, y2, linea, spessore);
    a.TipoAzione = TipiAzione::Rettangolo;
    a.ColZona = zona, a.FlagPienoVuoto = flag;
    return a;
}

inline RecordAzione Ellisse(float xc, float yc, float rv, float ro, int32_t flag, int32_t linea = 0,
                            int32_t zona = 0, int32_t spessore = 1) {
    RecordAzione a = Rettangolo(0, 0, 0, 0, flag, linea, zona, spessore);
    a.TipoAzione = TipiAzione::Ellisse;
    a.XCentro = xc, a.YCentro = yc;
    a.RaggioVert = rv, a.RaggioOriz = ro;
    return a;
}

// An arc has no inside: its flag is always "not applicable".
inline RecordAzione Arco(float xc, float yc, float rv, float ro, float inizio, float fine,
                         int32_t linea = 0, int32_t zona = 0, int32_t spessore = 1) {
    RecordAzione a = Ellisse(xc, yc, rv, ro, FlagNonApplicabile, linea, zona, spessore);
    a.TipoAzione = TipiAzione::Arco;
    a.RadIniz = inizio, a.RadFine = fine;
    return a;
}

// A fill has no pen: its width stays 0.
inline RecordAzione Colorazione(float x, float y, int32_t zona, int32_t flag = FlagPieno,
                                int32_t linea = 0) {
    RecordAzione a = Ellisse(x, y, 0, 0, flag, linea, zona, 0);
    a.TipoAzione = TipiAzione::Colorazione;
    return a;
}

// Words in Arial, neither bold nor italic, in the box of a line.
inline RecordAzione Testo(int32_t x1, int32_t y1, int32_t x2, int32_t y2, const QString& testo,
                          int32_t colore, int32_t dimensione, int16_t interlinea = 0,
                          int32_t spessore = 0) {
    RecordAzione a = Linea(x1, y1, x2, y2, colore, spessore);
    a.TipoAzione = TipiAzione::Testo;
    a.Testo = testo, a.InterlineaTesto = interlinea;
    a.NomeFont = QStringLiteral("Arial"), a.SizeFont = dimensione;
    a.Corsivo = 2, a.Grassetto = 2;
    return a;
}

inline RecordAzione Immagine(int32_t x1, int32_t y1, int32_t x2, int32_t y2, const QString& file,
                             int32_t colore) {
    RecordAzione a = Linea(x1, y1, x2, y2, colore, 0);
    a.TipoAzione = TipiAzione::Immagine;
    a.NomeFileImmagine = file;
    return a;
}

// The drawing in Azioni, from 1, as the archive loads it.
inline void MettiAzioni(const QList<RecordAzione>& lista) {
    Azioni = QList<RecordAzione>{RecordAzione{}} + lista;
    NumeroAzioni = int32_t(lista.size());
}

// The active object's elements, from 1.
inline void MettiAttivi(const QList<RecordAzione>& lista) {
    ElementiAttivi = QList<RecordAzione>{RecordAzione{}} + lista;
    NumeroElementiAttivi = int16_t(lista.size());
}

} // namespace CostruttoriAzioni
