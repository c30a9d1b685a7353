#pragma once

#include <QString>

#include <cstdint>

// The active folder of drawings: chosen on the main menu, read by every
// writer of drawings, which need not know the menu for it. 0 when none.
inline int32_t CodiceCartellaAttiva = 0;
inline QString NomeCartellaAttiva;

// The folder as the screens show it: the name, then "   [ ", the code with at
// least four digits, then " ] ".
QString FormaCartella(const QString& nome, int32_t codice);
