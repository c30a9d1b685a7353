#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>

// What the start routine leaves for the rest of the program.
inline int16_t FaseAvvio = 0;     // 1 while starting: an error then ends the program
inline QString RadiceDati;        // root of all data paths, without a trailing separator
inline QString CartellaSistema;   // the data root with a trailing separator
inline QStringList MessaggiAvvio; // from 1: element 0 unused
inline QString StampanteDiSistema;
inline int32_t DimensioneMinimaX = 1024;
inline int32_t DimensioneMinimaY = 768;
// The start's write test fails with this errno when it is not 0, as it would
// in a folder the user may not write: the tests' way to it, even as root.
inline int GuastoProvaScrittura = 0;
