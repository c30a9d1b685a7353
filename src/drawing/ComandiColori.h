#pragma once

class AmbienteDisegno;

// The colours of the drawing screen: the fill colour through the colour
// panel. It acts in any state; what is open stays open and takes the new
// colour when it is fixed.
class ComandiColori {
public:
    explicit ComandiColori(AmbienteDisegno& ambiente) : a_(ambiente) {}

    void SceltaColoreZona();

private:
    AmbienteDisegno& a_;
};
