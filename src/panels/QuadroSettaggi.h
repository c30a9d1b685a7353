#pragma once

#include "input/FormScansione.h"

#include <functional>

class Superficie;

// The utilities column of the drawing screen: step and width, font, line and
// background colours, fills and dots, and the library of objects. It has no
// title of its own: the drawing screen repeats the command under the ring.
class QuadroSettaggi : public FormScansione {
public:
    // `tela` is the canvas that a new background or a change of the fills
    // replays; `coloriCambiati` shows the colours in use on the screen below.
    QuadroSettaggi(Superficie& tela, std::function<void()> coloriCambiati,
                   QWidget* genitore = nullptr);

    void AttivaQuadroSettaggi();

    void ClickTasto(int16_t indice) override;

private:
    void Riprendi();
    void Chiudi();
    void MostraPasso();
    void MostraSpessore();
    void CartelleOggetti();
    void ColoreLinea();
    void ColoreDiSfondo();
    void CambiaColorazioni(bool inTondini);
    void LeggiOggetto();
    void SalvaOggetto();
    void Esporta();
    void Importa();

    Superficie& tela_;
    std::function<void()> coloriCambiati_;
};

// Nothing open on the drawing screen and nothing in the hands.
bool ManiLibere();

// The steps of a movement and the widths of a line, walked by 135 and 136.
int32_t PassoDellIndice(int16_t indice);
int32_t SpessoreDellIndice(int16_t indice);

// Opens the panel with its top left corner at the place given, in twips of the
// drawing screen, and returns when it closes.
void ApriQuadroSettaggi(Superficie& tela, const std::function<void()>& coloriCambiati,
                        int sinistraTwips, int altoTwips);
