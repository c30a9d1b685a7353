#pragma once

class TastoZanto;

// What assistive technology (a screen reader through AT-SPI) sees of a
// scanning screen: the buttons, the one under the ring reported as focused;
// neither the rings nor the invisible widget that holds the keys.
void InstallaAccessibilitaAnello();
// The ring has arrived on `tasto`: it is told as the focused item.
void SegnalaAnello(TastoZanto* tasto);
