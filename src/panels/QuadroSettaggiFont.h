#pragma once

#include "input/FormScansione.h"

#include <cstdint>

class QListWidget;

// Sets the font of the next text: name, size, bold and italic, kept in
// FontCorrente, DimensioneFontCorrente, GrassettoCorrente and CorsivoCorrente
// (model/StatoAmbiente.h). It touches no action.
class QuadroSettaggiFont : public FormScansione {
public:
    explicit QuadroSettaggiFont(QWidget* genitore = nullptr);

    void AttivaQuadroSettaggiFont();

    void ClickTasto(int16_t indice) override;
    void PrimaAttivazione() override;

    // Never shown: it keeps the names of the screen's fonts sorted for the list.
    QListWidget* ListaFont = nullptr;

private:
    void MostraGrassetto();
    void MostraCorsivo();
    void Riprendi();
};

// Opens the panel with its top left corner at the place given, in twips of the
// screen, and returns when it is closed.
void ApriQuadroSettaggiFont(int sinistraTwips, int altoTwips);
