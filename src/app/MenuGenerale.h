#pragma once

#include "base/CartellaAttiva.h"
#include "input/FormScansione.h"

#include <QString>

#include <cstdint>

class QLabel;

// "CartellaZanto.Crt": the code as the program prints a number, one line.
void ScriviFileCartellaAttiva();

// The first screen: five big buttons, the logo and the active folder.
class MenuGenerale : public FormScansione {
public:
    MenuGenerale();

    void AttivaMenùGenerale();

    void ClickTasto(int16_t indice) override;
    void RoutineTastoGiu(int codice, int modificatori) override;
    bool PredefinitoInModo3() const override { return false; }

    QLabel* ScrittaCartellaAttiva = nullptr;
    QLabel* ScrittaInformazioni[3] = {nullptr, nullptr, nullptr};
    QLabel* ImmagineMenu = nullptr;

private:
    void TastoMenùZanto_Click(int16_t indice);
    void LeggiCartellaAttiva();
    void ScegliCartella();
    void Riprendi();
};

// The one menu object of the program: a new one each time a form comes back.
MenuGenerale* MenùGeneraleAperto();
MenuGenerale* CaricaMenùGenerale(); // loads, activates and shows a new menu
void ScaricaMenùGenerale();         // hides it and unloads it once events allow
void DistruggiMenùGenerale();       // at the very end, outside any event of its own
