#pragma once

#include "model/FissaElemento.h"

// Stores Azioni as the next working copy: a drawing coded one past
// CodiceCopiaLavoro or past the highest copy in the archive, whichever is
// higher, named by its own digits, in the active folder. Head and action rows
// go in one transaction. On a failure the archive and CodiceCopiaLavoro are as
// they were before the call. Returns whether the copy was written.
bool RegistraCopiaLavoro();
