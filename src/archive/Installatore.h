#pragma once

#include <QString>

#include <cstdint>

// The settings of a new configuration row. A setting read out of its range
// falls back to these, so both ends agree on one set of values.
namespace ImpostazioniIniziali {
inline constexpr int16_t ModalitàFunzionamento = 1;    // the ring walks by itself
inline constexpr int16_t TastoScelta = 1;              // Enter chooses
inline constexpr int16_t TastoScansione = 2;           // Space scans
inline constexpr int16_t TipoInversioneScansione = 1;  // immediate
inline constexpr int32_t TempoLatenzaScansione = 1000; // one second
inline constexpr int16_t RipresaSuccessiva = 0;        // the ring stays on the choice
} // namespace ImpostazioniIniziali

// The information text as the program carries it, for a data folder without one.
inline const QString RisorsaInformazioni = QStringLiteral(":/testi/Informazioni.rtf");

// Makes a complete fresh data folder at `radice`: the three archives with their
// schema, the configuration row, the two system folders, the directories and
// the information text.
// Refuses, changing nothing, when `radice` exists and is not empty.
// Returns an empty string on success, otherwise the reason in plain words.
QString InstallaDatiZanto(const QString& radice);
