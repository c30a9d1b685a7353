#pragma once

#include "model/RecordAzione.h"

#include <QList>

#include <cstdint>

class Superficie;

// The marker dot of the fill picked out: larger, so that it is found at once.
inline constexpr float RaggioTondinoScelto = 150;

// The whole drawing with one action picked out, as the element panel shows it:
// the surface is cleared, then actions 1..numero of `lista` are replayed, each
// from no fill. Action `scelta` is drawn dotted and thin, and a text or a
// picture of it gets a dotted frame; the others keep their own width. A fill
// is never run here: each one is its dot, as the fill would stand on the canvas
// only once the shapes round it are settled. A picture whose file is missing
// shows its frame alone. The surface is refreshed once, at the end: no event
// is handled between two actions, so a refresh after each would show nothing
// more and would cost a copy of the bitmap each.
void TracciaSelezione(Superficie& superficie, const QList<RecordAzione>& lista, int32_t numero,
                      int32_t scelta);
