#pragma once

#include "model/RecordAzione.h"

#include <cstdint>

class Superficie;

// Completes ElementoInCostruzione with the current colours, width and fill, and
// draws it for good on the canvas's bitmap, over all that stands there. A text
// is printed from RigheScritte with InterlineaCorrente as its spacing.
void FissaElemento(Superficie& quadro);

// Stores Azioni as the next working copy: a drawing coded CodiceCopiaLavoro + 1,
// named by its own digits, in the active folder. On a failure the archive and
// CodiceCopiaLavoro are as they were before the call. Returns whether the copy
// was written.
bool RegistraCopiaLavoro();

// Measures ElementiAttivi into IngombroXMin..IngombroYMax and the two halves;
// ModoIngombro 1 counts an arc by its whole ellipse, any other value by its
// true outline.
void CalcolaIngombro();

// One end of an arc at `angolo`, in whole twips as the selection compares them.
struct PuntoArco {
    int16_t X = 0;
    int16_t Y = 0;
};
PuntoArco EstremoArco(const RecordAzione& arco, float angolo);
