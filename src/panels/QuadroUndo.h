#pragma once

#include "input/FormScansione.h"
#include "model/Superficie.h"

#include <QSet>

#include <cstdint>

class QSlider;
class VistaSuperficie;

// What this unit keeps while the program runs: one structure, reset whole.
struct StatoQuadroUndo {
    // The step of the history chosen on the undo panel: 0 the empty drawing, n the
    // working copy BaseCopieLavoro + n.
    int16_t PassoUndo = 0;
    bool operator==(const StatoQuadroUndo&) const = default;
};
inline StatoQuadroUndo DatiQuadroUndo;
// The names the program reads and writes them by.
inline int16_t& PassoUndo = DatiQuadroUndo.PassoUndo;

// Goes back through the working copies one by one: each step is drawn on a
// surface of the panel's own, and the one in view when the user chooses is
// left in PassoUndo. Nothing of the drawing changes here.
//
// There are no buttons to scan: the ring is the position on the time line.
// The engine's step functions move PassoUndo (TastoCorrente stays 0), its
// redraw shows and draws the step, and its click ends the panel.
class QuadroUndo : public FormScansione {
public:
    explicit QuadroUndo(QWidget* genitore = nullptr);

    void AttivaQuadroUndo();

    void AggiornaCorone() override;
    void ClickTasto(int16_t indice) override;
    void RoutineTastoGiu(int codice, int modificatori) override;
    // The ring is the step: the voice says its number.
    QString NomeParlato(int16_t indice) const override;

    // The slider and the step number moved to PassoUndo.
    void MostraPasso();
    // The working copy of PassoUndo replayed on QuadroDisegnoUndo; step 0 is
    // the empty surface.
    void DisegnaPasso();

    QSlider* ScalaUndo = nullptr;
    Superficie LineaTempoUndo;
    Superficie QuadroDisegnoUndo;
    VistaSuperficie* VistaLineaTempo = nullptr;
    VistaSuperficie* VistaDisegnoUndo = nullptr;
    QMap<int16_t, QLabel*> ScrittaUndo;

    int32_t PassiDisponibili = 0;
    int16_t LarghezzaPasso = 0; // twips between two steps on the strip
    // The engine's own fields under the panel's names: the sense of the
    // automatic walk (+1, 0, -1) and whether it runs.
    int16_t& VersoScorrimento = Motore.PassoScansione;
    int16_t& ScorrimentoAttivo = Motore.ScansioneAttiva;

private:
    void Scorri(int16_t passo);
    void Avanti();
    void Indietro();

    int32_t passoDisegnato_ = -1;
    // Steps whose copy could not be read: reported once, then shown empty.
    QSet<int16_t> guasti_;
};

// Opens the panel over the canvas for the working copies up to
// CodiceCopiaLavoro and returns when a step is chosen, in PassoUndo.
void ApriQuadroUndo();
