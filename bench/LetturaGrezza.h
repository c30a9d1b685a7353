#pragma once

#include "model/RecordAzione.h"

#include <QList>
#include <QString>

#include <utility>

#include <sqlite3.h>

// The rows of `codice` as plain C code reads them: columns by position in the
// table's order, texts as UTF-8.
inline bool LetturaGrezza(sqlite3* db, int32_t codice, QList<RecordAzione>& lista) {
    sqlite3_stmt* q = nullptr;
    if (sqlite3_prepare_v2(db,
                           "SELECT * FROM TabAzioniDisegno WHERE CodiceDisegno = ?"
                           " ORDER BY NumAzione ASC",
                           -1, &q, nullptr) != SQLITE_OK)
        return false;
    sqlite3_bind_int(q, 1, codice);
    QList<RecordAzione> letti{RecordAzione{}};
    const auto testo = [&](int c) {
        return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(q, c)),
                                 sqlite3_column_bytes(q, c));
    };
    int esito;
    while ((esito = sqlite3_step(q)) == SQLITE_ROW) {
        RecordAzione& a = letti.emplace_back();
        a.TipoAzione = sqlite3_column_int(q, 2);
        a.XInizio = sqlite3_column_int(q, 3);
        a.YInizio = sqlite3_column_int(q, 4);
        a.XFine = sqlite3_column_int(q, 5);
        a.YFine = sqlite3_column_int(q, 6);
        a.ColLinea = sqlite3_column_int(q, 7);
        a.ColZona = sqlite3_column_int(q, 8);
        a.FlagPienoVuoto = sqlite3_column_int(q, 9);
        a.SpessLinea = sqlite3_column_int(q, 10);
        a.XCentro = float(sqlite3_column_double(q, 11));
        a.YCentro = float(sqlite3_column_double(q, 12));
        a.RadIniz = float(sqlite3_column_double(q, 13));
        a.RadFine = float(sqlite3_column_double(q, 14));
        a.RaggioVert = float(sqlite3_column_double(q, 15));
        a.RaggioOriz = float(sqlite3_column_double(q, 16));
        a.InterlineaTesto = int16_t(sqlite3_column_int(q, 17));
        a.Testo = testo(18);
        a.NomeFont = testo(19);
        a.SizeFont = sqlite3_column_int(q, 20);
        a.Corsivo = sqlite3_column_int(q, 21);
        a.Grassetto = sqlite3_column_int(q, 22);
        a.NomeFileImmagine = testo(23);
    }
    sqlite3_finalize(q);
    lista = std::move(letti);
    return esito == SQLITE_DONE;
}
