#pragma once

class AmbienteDisegno;

// The commands of a group of elements: the selection box, the flip, the group
// drawn again, copy or move, and the removal of the selection.
class ComandiOggetti {
public:
    explicit ComandiOggetti(AmbienteDisegno& ambiente) : a_(ambiente) {}

    void SelezionaOggetto();
    void Ribalta();
    void DisegnaUltimoOggetto();
    void CopiaOSposta_Click();
    void EliminaOggetto();

private:
    AmbienteDisegno& a_;
};
