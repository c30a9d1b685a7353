#pragma once

// The one way the program sounds a refusal. Tests count the calls.
inline int ContatoreBip = 0;
void Bip();

// The one way the mouse pointer is parked off the screen, at (10000, 10000).
void ParcheggiaMouse();

// Hourglass while a form is built, default pointer afterwards.
void PuntatoreClessidra();
void PuntatorePredefinito();
