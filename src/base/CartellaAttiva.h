#pragma once

#include <QString>

#include <cstdint>

// What this unit keeps while the program runs: one structure, reset whole.
struct StatoCartellaAttiva {
    // The active folder of drawings: chosen on the main menu, read by every
    // writer of drawings, which need not know the menu for it. 0 when none.
    int32_t CodiceCartellaAttiva = 0;
    QString NomeCartellaAttiva;
    bool operator==(const StatoCartellaAttiva&) const = default;
};
inline StatoCartellaAttiva DatiCartellaAttiva;
// The names the program reads and writes them by.
inline int32_t& CodiceCartellaAttiva = DatiCartellaAttiva.CodiceCartellaAttiva;
inline QString& NomeCartellaAttiva = DatiCartellaAttiva.NomeCartellaAttiva;

// The folder as the screens show it: the name, then "   [ ", the code with at
// least four digits, then " ] ".
QString FormaCartella(const QString& nome, int32_t codice);
