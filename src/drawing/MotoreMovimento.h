#pragma once

#include <cstdint>

class Superficie;

// The arrow keys as the key routine hands them to the engine.
namespace TastiFreccia {
inline constexpr int16_t Sinistra = 37;
inline constexpr int16_t Su = 38;
inline constexpr int16_t Destra = 39;
inline constexpr int16_t Giu = 40;
} // namespace TastiFreccia

// One step of the edit command ComandoModifica on RecordLavoro for the arrow in
// TastoMovimento. A step that would break a bound is refused with a beep and
// leaves the record as it stands; a group refused at its edge also sets
// BloccoBordo to the key. Any other key changes nothing.
void MotoreMovimento();

// What the drawing screen's key routine does with a movement key already in
// TastoMovimento: the open element takes the step and its overlay is drawn
// again; the active object takes it element by element and moves whole or not
// at all. TastoMovimento is 0 afterwards.
void ApplicaTastoMovimento(Superficie& quadro);
