#pragma once

#include <QString>

#include <cstdint>

// What this unit keeps while the program runs: one structure, reset whole.
struct StatoConfigurazione {
    // The five scanning settings: one row of ConfigurazioniGenerali, plain globals
    // while the program runs. The row carries the values; these are only starting ones.
    int16_t ModalitàFunzionamento = 1;    // 1..4
    int16_t TastoScelta = 1;              // 1 Enter, 2 Space
    int16_t TastoScansione = 2;           // 1 Enter, 2 Space
    int16_t TipoInversioneScansione = 1;  // 1 immediate, 2 through a pause
    int32_t TempoLatenzaScansione = 1000; // dwell of the ring, ms
    // How the ring shows, for users who see little or from afar: its width (1 as
    // defined, 2 double, 3 triple) and a high-contrast scheme (0 off, 1 a yellow
    // ring edged in black, and a black highlight with yellow words on the lists).
    int16_t LarghezzaAnello = 1;
    int16_t AltoContrasto = 0;
    // For real switches, each 0 (or 1) as defined: a key counts only when held
    // TempoAccettazione ms; presses within TempoIgnoraDopoScelta ms of a choice are
    // dropped; the first dwell after the ring starts lasts PrimaAttesa dwells; the
    // ring rests after GiriPrimaDelRiposo rounds with nobody pressing (0: never).
    int32_t TempoAccettazione = 0;     // 0..2000
    int32_t TempoIgnoraDopoScelta = 0; // 0..2000
    int16_t PrimaAttesa = 1;           // 1..3
    int16_t GiriPrimaDelRiposo = 0;    // 0..20
    // Spoken scanning: the name of what the ring arrives on (0 off, 1 on), and
    // whether the ring waits on an item until its name has been spoken.
    int16_t ScansioneParlata = 0;
    int16_t AttendiVoce = 0;
    // After a choice the ring starts again where the user most likely goes next
    // (0 off: it stays on what was chosen, as defined; 1 on).
    int16_t RipresaSuccessiva = 0;
    // The printer chosen on the printer list, kept in the same row so that it holds
    // from one run to the next; empty for the system's own.
    QString StampanteScelta;
    bool operator==(const StatoConfigurazione&) const = default;
};
inline StatoConfigurazione DatiConfigurazione;
// The names the program reads and writes them by.
inline int16_t& ModalitàFunzionamento = DatiConfigurazione.ModalitàFunzionamento;
inline int16_t& TastoScelta = DatiConfigurazione.TastoScelta;
inline int16_t& TastoScansione = DatiConfigurazione.TastoScansione;
inline int16_t& TipoInversioneScansione = DatiConfigurazione.TipoInversioneScansione;
inline int32_t& TempoLatenzaScansione = DatiConfigurazione.TempoLatenzaScansione;
inline int16_t& LarghezzaAnello = DatiConfigurazione.LarghezzaAnello;
inline int16_t& AltoContrasto = DatiConfigurazione.AltoContrasto;
inline int32_t& TempoAccettazione = DatiConfigurazione.TempoAccettazione;
inline int32_t& TempoIgnoraDopoScelta = DatiConfigurazione.TempoIgnoraDopoScelta;
inline int16_t& PrimaAttesa = DatiConfigurazione.PrimaAttesa;
inline int16_t& GiriPrimaDelRiposo = DatiConfigurazione.GiriPrimaDelRiposo;
inline int16_t& ScansioneParlata = DatiConfigurazione.ScansioneParlata;
inline int16_t& AttendiVoce = DatiConfigurazione.AttendiVoce;
inline int16_t& RipresaSuccessiva = DatiConfigurazione.RipresaSuccessiva;
inline QString& StampanteScelta = DatiConfigurazione.StampanteScelta;

// Who must know at once of a new dwell: the scanning engine registers itself
// here when its first engine is made, so that the floor calls no layer above it.
inline void (*AvvisaLatenzaCambiata)() = nullptr;
