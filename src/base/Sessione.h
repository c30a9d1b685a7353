#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>

// What this unit keeps while the program runs: one structure, reset whole.
struct StatoSessione {
    // What the start routine leaves for the rest of the program.
    int16_t FaseAvvio = 0;     // 1 while starting: an error then ends the program
    QString RadiceDati;        // root of all data paths, without a trailing separator
    QString CartellaSistema;   // the data root with a trailing separator
    QStringList MessaggiAvvio; // from 1: element 0 unused
    QString StampanteDiSistema;
    int32_t DimensioneMinimaX = 1024;
    int32_t DimensioneMinimaY = 768;
    // The start's write test fails with this errno when it is not 0, as it would
    // in a folder the user may not write: the tests' way to it, even as root.
    int GuastoProvaScrittura = 0;
    bool operator==(const StatoSessione&) const = default;
};
inline StatoSessione DatiSessione;
// The names the program reads and writes them by.
inline int16_t& FaseAvvio = DatiSessione.FaseAvvio;
inline QString& RadiceDati = DatiSessione.RadiceDati;
inline QString& CartellaSistema = DatiSessione.CartellaSistema;
inline QStringList& MessaggiAvvio = DatiSessione.MessaggiAvvio;
inline QString& StampanteDiSistema = DatiSessione.StampanteDiSistema;
inline int32_t& DimensioneMinimaX = DatiSessione.DimensioneMinimaX;
inline int32_t& DimensioneMinimaY = DatiSessione.DimensioneMinimaY;
inline int& GuastoProvaScrittura = DatiSessione.GuastoProvaScrittura;
