#pragma once

#include "input/FormScansione.h"

#include <cstdint>

// What this unit keeps while the program runs: one structure, reset whole.
struct StatoQuadroSceltaRibaltamenti {
    // The flip chosen for the active object: 1 over the right axis, 2 the left,
    // 3 the lower, 4 the upper; 5 closed without a flip.
    int16_t RibaltamentoScelto = 0;
    bool operator==(const StatoQuadroSceltaRibaltamenti&) const = default;
};
inline StatoQuadroSceltaRibaltamenti DatiQuadroSceltaRibaltamenti;
// The names the program reads and writes them by.
inline int16_t& RibaltamentoScelto = DatiQuadroSceltaRibaltamenti.RibaltamentoScelto;

class QuadroSceltaRibaltamenti : public FormScansione {
public:
    explicit QuadroSceltaRibaltamenti(QWidget* genitore = nullptr);

    void AttivaQuadroSceltaRibaltamenti();

    void ClickTasto(int16_t indice) override;
};

// Opens the panel with its top left corner at the place given, in twips of the
// screen, and returns when a button is chosen.
void ApriQuadroSceltaRibaltamenti(int sinistraTwips, int altoTwips);
