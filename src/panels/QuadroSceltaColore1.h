#pragma once

#include "input/FormScansione.h"

#include <cstdint>

// What this unit keeps while the program runs: one structure, reset whole.
struct StatoQuadroSceltaColore1 {
    // In: the colour in use, on whose button the ring starts. Out: the colour
    // chosen, or -1 when the panel was left without a choice. 0x00BBGGRR.
    int32_t ColoreScelto = -1;
    bool operator==(const StatoQuadroSceltaColore1&) const = default;
};
inline StatoQuadroSceltaColore1 DatiQuadroSceltaColore1;
// The names the program reads and writes them by.
inline int32_t& ColoreScelto = DatiQuadroSceltaColore1.ColoreScelto;

// The colour chooser: 24 square buttons in three rows of eight, 22 of them a
// fixed colour. The buttons are the table: each keeps its colour as its
// background, and a pick reads it back from there.
class QuadroSceltaColore1 : public FormScansione {
public:
    explicit QuadroSceltaColore1(QWidget* genitore = nullptr);

    void AttivaQuadroSceltaColore1();

    void ClickTasto(int16_t indice) override;

    // The background of a button as the program keeps colours; -1 for 123 and
    // 124, which show a picture.
    int32_t ColoreTasto(int16_t indice) const;

private:
    void ColoraTasto(int16_t indice, int32_t colore);
};

// Opens the panel centred over the canvas of the screen below it (or over
// that screen, or the display), with ColoreScelto as it stands, and returns
// when it closes: read ColoreScelto then.
void ApriQuadroSceltaColore1();
