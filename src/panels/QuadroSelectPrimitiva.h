#pragma once

#include "input/FormScansione.h"
#include "model/RecordAzione.h"
#include "model/Superficie.h"

#include <QString>

#include <cstdint>

class QLabel;
class VistaSuperficie;

// Walks the drawing's actions one at a time, the current one picked out in a
// full copy of the drawing on a surface of the panel's own. From here an
// action is chosen, deleted, or moved one place in the order of painting. The
// panel works on Azioni itself and replays the canvas it is given whenever the
// list changes; it leaves the chosen action in AzioneScelta, 0 for none.
class QuadroSelectPrimitiva : public FormScansione {
public:
    // `tela` is the drawing screen's canvas.
    explicit QuadroSelectPrimitiva(Superficie& tela, QWidget* genitore = nullptr);

    void AttivaQuadroSelectPrimitiva();

    void AggiornaCorone() override;
    void ClickTasto(int16_t indice) override;

    // The drawing on QuadroDisegnoPrimitive with AzioneScelta picked out, and
    // its number beside the keys.
    void DisegnaQuadroPrimitive();

    Superficie QuadroDisegnoPrimitive;
    VistaSuperficie* VistaDisegnoPrimitive = nullptr;
    QLabel* ScrittaAzioneAttiva = nullptr;
    QLabel* ScrittaNumAzioneAttiva = nullptr;
    QString TitoloSelezione;
    // The third party of a swap.
    RecordAzione RecordScambio;

private:
    void Seleziona(int16_t indice);
    void Elimina();
    void Sposta(int32_t verso);
    // The canvas cleared and the whole list replayed on it.
    void RidisegnaTela();
    void Riprendi();

    Superficie& tela_;
};

// Opens the panel over the drawing screen on the actions of Azioni, at least
// one, and returns when it closes: AzioneScelta is then the chosen action, or 0.
// Azioni may have changed either way, and `tela` has then been replayed.
void ApriQuadroSelectPrimitiva(Superficie& tela);
