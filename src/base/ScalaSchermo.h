#pragma once

class QScreen;

// How many times the 1024 x 768 layout grows on a screen whose free area is
// this many device-independent pixels: as much as fits whole, never smaller.
double ScalaPerSchermo(int larghezza, int altezza);

// Chooses the one scale factor for this screen, the dots per inch that point
// sizes are measured against, and the application's font to match.
void AdattaAlloSchermo(const QScreen& schermo);

// Back to the layout's own size: scale 1, 96 dpi, the application's font as it was.
void RipristinaScala();
