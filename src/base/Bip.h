#pragma once

#include <cstdint>

void Bip();

// A name asked for just after a beep waits until the beep has been heard.
inline constexpr int64_t PausaDopoBip = 400;
// What this unit keeps while the program runs: one structure, reset whole.
struct StatoBip {
    // The one way the program sounds a refusal. Tests count the calls.
    int ContatoreBip = 0;
    int64_t IstanteUltimoBip = -PausaDopoBip;
    bool operator==(const StatoBip&) const = default;
};
inline StatoBip DatiBip;
// The names the program reads and writes them by.
inline int& ContatoreBip = DatiBip.ContatoreBip;
inline int64_t& IstanteUltimoBip = DatiBip.IstanteUltimoBip;
// The voice registers here when first used, so that a refusal silences it
// without the floor calling a layer above it.
inline void (*ZittisciAlBip)() = nullptr;

// The one way the mouse pointer is parked off the screen, at (10000, 10000).
void ParcheggiaMouse();

// Hourglass while a form is built, default pointer afterwards.
void PuntatoreClessidra();
void PuntatorePredefinito();
