#pragma once

#include "app/ConfigurazioniGenerali.h"
#include "app/MenuGenerale.h"
#include "app/VisualizzaInformazioni.h"
#include "base/Configurazione.h"
#include "support/MondoProva.h"

// The world of a test of the main menu and the forms it opens, every form
// unloaded at the end.
struct MondoMenu : MondoProva {
    void Libera() {
        DistruggiVisualizzaInformazioni();
        DistruggiConfigurazioniGenerali();
        DistruggiMenùGenerale();
        MondoProva::Libera();
    }
    // The menu in `modo`, after its first activation.
    MenuGenerale* Menu(int16_t modo) {
        ModalitàFunzionamento = modo;
        MenuGenerale* menu = CaricaMenùGenerale();
        QCoreApplication::processEvents();
        return menu;
    }
};
