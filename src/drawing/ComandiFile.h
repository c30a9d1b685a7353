#pragma once

class AmbienteDisegno;

// The commands that keep, open or leave a drawing.
class ComandiFile {
public:
    explicit ComandiFile(AmbienteDisegno& ambiente) : a_(ambiente) {}

    void ChiudiAmbiente();

private:
    AmbienteDisegno& a_;
};
