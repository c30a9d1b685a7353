#pragma once

#include "model/RecordAzione.h"

#include <QList>
#include <QString>

#include <cstdint>

// What pilota_copia_lavoro writes, so that the test that kills it can tell a
// whole copy from a torn one. Each copy holds one action more than the one
// before, in rounds of 250.
namespace PilotaCopiaLavoro {

inline int32_t Lunghezza(int32_t codiceCopia) {
    return 1 + (codiceCopia - BaseCopieLavoro - 1) % 250;
}

inline RecordAzione Azione(int32_t i) {
    RecordAzione a;
    a.TipoAzione = 1 + i % 7;
    a.XInizio = i;
    a.YInizio = 2 * i;
    a.XFine = i + 1500;
    a.YFine = 3 * i;
    a.ColLinea = (i * 97) % 0x1000000;
    a.ColZona = 0xFFFFFF - i;
    a.FlagPienoVuoto = i % 3;
    a.SpessLinea = 1 + i % 5;
    a.XCentro = float(i) + 0.25f;
    a.YCentro = float(i) / 3.0f;
    a.RadIniz = 0.5f;
    a.RadFine = 2.0f;
    a.RaggioVert = 2000.5f;
    a.RaggioOriz = 1999.25f;
    a.InterlineaTesto = 18;
    a.Testo = QStringLiteral("azione %1\rseconda riga").arg(i);
    a.NomeFont = QStringLiteral("Arial");
    a.SizeFont = 12;
    a.Corsivo = 2;
    a.Grassetto = 1;
    return a;
}

// The list of the copy coded `codiceCopia`, 1-based.
inline QList<RecordAzione> Lista(int32_t codiceCopia) {
    QList<RecordAzione> lista{RecordAzione{}};
    for (int32_t i = 1; i <= Lunghezza(codiceCopia); ++i)
        lista.append(Azione(i));
    return lista;
}

// Bytes on the driver's standard output.
inline constexpr char Apertura = 'P'; // about to run the opening step
inline constexpr char Aperto = 'R';   // the opening step went through
inline constexpr char Copia = '.';    // one more copy is in the archive

} // namespace PilotaCopiaLavoro
