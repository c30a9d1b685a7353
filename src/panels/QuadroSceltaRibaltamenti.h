#pragma once

#include "input/FormScansione.h"

#include <cstdint>

// The flip chosen for the active object: 1 over the right axis, 2 the left,
// 3 the lower, 4 the upper; 5 closed without a flip.
inline int16_t RibaltamentoScelto = 0;

class QuadroSceltaRibaltamenti : public FormScansione {
public:
    explicit QuadroSceltaRibaltamenti(QWidget* genitore = nullptr);

    void AttivaQuadroSceltaRibaltamenti();

    void ClickTasto(int16_t indice) override;
};

// Opens the panel with its top left corner at the place given, in twips of the
// screen, and returns when a button is chosen.
void ApriQuadroSceltaRibaltamenti(int sinistraTwips, int altoTwips);
