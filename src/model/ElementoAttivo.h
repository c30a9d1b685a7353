#pragma once

#include "model/RecordAzione.h"

#include <functional>

class Superficie;

// Offset of the crosshair's picture from the fill's point, in twips: the point is
// 230 twips right of its left edge and 230 below its top edge.
inline constexpr float ScostamentoMirino = 230;

// Radius of a handle of the active object, in twips.
inline constexpr float RaggioManiglia = 50;

// The drawing form moves its crosshair picture here (left and top in twips);
// the overlay of a fill draws nothing on the surface.
inline std::function<void(float sinistra, float alto)> SpostaIconaMirino;

// Wipes the previous overlay and draws, in the screen layer only, the element
// being built and the active object with its handles, with the pen style the
// calling command set. The persistent bitmap is never touched.
void TracciaElementoAttivo(Superficie& quadro);

// The lines of RigheScritte set as a text action at (XInizio, YInizio), with
// the record's font, colour, italic and bold, each line InterlineaCorrente
// below where the previous one left the cursor.
void TracciaRigheScritte(Superficie& quadro, const RecordAzione& testo);
