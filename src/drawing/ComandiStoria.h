#pragma once

class AmbienteDisegno;

// "Annulla Operazioni" with nothing open: back to any step of the history,
// through the undo panel and a question. Undo is by pointer: no working copy
// is deleted, and the next Fissa adds its copy after all of them.
class ComandiStoria {
public:
    explicit ComandiStoria(AmbienteDisegno& ambiente) : a_(ambiente) {}

    void TornaNellaStoria();

private:
    AmbienteDisegno& a_;
};
