#pragma once

#include "base/Configurazione.h"

// The configuration record's row in its archive.

// Reads the row into the globals; an empty table is an error (3021), never a default.
// A value out of its range or NULL is read as the installer's value for it.
void LeggiConfigurazione();
// Writes the five globals and the accessibility options to the row, in one write.
void RegistraConfigurazione();
// Writes StampanteScelta to the row, alone: the printer list stores it as soon
// as it is confirmed.
void RegistraStampanteScelta();
