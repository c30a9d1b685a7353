#pragma once

#include "app/ConfigurazioniGenerali.h"
#include "app/MenuGenerale.h"
#include "app/VisualizzaInformazioni.h"
#include "base/Configurazione.h"
#include "support/AmbienteProva.h"
#include "support/OrologioVirtuale.h"

#include <QCoreApplication>

#include <memory>

// The world of a test of the main menu and the forms it opens: a data folder
// with its archives open, the virtual clock with a dwell of one second, and
// every form unloaded at the end.
struct MondoMenu {
    std::unique_ptr<AmbienteProva> amb;
    std::unique_ptr<OrologioVirtuale> orologio;

    void Prepara() {
        amb = std::make_unique<AmbienteProva>();
        amb->ApriArchivi();
        orologio = std::make_unique<OrologioVirtuale>();
        TempoLatenzaScansione = 1000;
    }
    void Libera() {
        DistruggiVisualizzaInformazioni();
        DistruggiConfigurazioniGenerali();
        DistruggiMenùGenerale();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        orologio.reset();
        amb.reset();
    }
    // The menu in `modo`, after its first activation.
    MenuGenerale* Menu(int16_t modo) {
        ModalitàFunzionamento = modo;
        MenuGenerale* menu = CaricaMenùGenerale();
        QCoreApplication::processEvents();
        return menu;
    }
};
