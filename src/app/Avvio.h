#pragma once

#include "base/Sessione.h"

#include <QString>

// Fills MessaggiAvvio: the start's messages and the lines the forms show.
void RiempiMessaggiAvvio();

// Runs the start routine. Returns -1 when the menu is on the screen and the
// program is to live on its events, or the exit code when it ended at start.
int AvviaZanto();

// "Esci": closes the archives, writes the active folder, ends the event loop.
void ChiudiZanto();

// Fills RadiceDati and CartellaSistema from the platform's data location.
void CalcolaRadiceDati();

// Is a screen of this many device-independent pixels, those every form is laid
// out in, large enough for the layout? Its dots per inch do not matter: point
// sizes are measured against them.
bool SchermoIdoneo(int larghezza, int altezza);
