#pragma once

#include "input/FormScansione.h"

#include <cstdint>

// Asks for one of the four directions of a movement, or its end. The result
// is DirezioneScelta (model/StatoAmbiente.h): 1 left, 2 right, 3 up, 4 down,
// 5 end. The last direction is the marked button of the next opening.
class QuadroSceltaDirezione : public FormScansione {
public:
    explicit QuadroSceltaDirezione(QWidget* genitore = nullptr);

    void AttivaQuadroSceltaDirezione();

    void ClickTasto(int16_t indice) override;
    void RoutineTastoGiu(int codice, int modificatori) override;
};

// Opens the panel above the drawing screen and returns when a button is chosen.
void ApriQuadroSceltaDirezione();
