#pragma once

class AmbienteDisegno;

// Button 124: the settings panel, in any state. What it changed reaches the
// element or the object in the hands.
class ComandiSettaggi {
public:
    explicit ComandiSettaggi(AmbienteDisegno& ambiente) : a_(ambiente) {}

    void AccessoSettaggi();

private:
    AmbienteDisegno& a_;
};
