#pragma once

#include <cstdint>

class AmbienteDisegno;

// The location mark of each command of the drawing screen.
int16_t MarcaComando(int16_t indice);

// The click routine of the 33 buttons of the drawing screen: a chain of tests
// on the button and the three state variables, the red button first.
class ComandiDisegno {
public:
    explicit ComandiDisegno(AmbienteDisegno& ambiente) : a_(ambiente) {}

    void TastoDisegno_Click(int16_t indice);

private:
    void Comando(int16_t indice);
    void FineComandoModifica();
    void ApriPrimitiva(int16_t indice);
    void ComandoDiModifica(int16_t indice);
    void ColoraZona();
    void SceltaFormePieneVuote();
    void Fissa();
    void Annulla();
    void DuplicaUltima();
    void SelezionaOggetto();
    void Ribalta();
    void DisegnaUltimoOggetto();
    void CopiaOSposta_Click();
    void EliminaOggetto();
    void ChiudiAmbiente();

    AmbienteDisegno& a_;
};
