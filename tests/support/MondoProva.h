#pragma once

#include "app/MenuGenerale.h"
#include "base/Configurazione.h"
#include "drawing/AmbienteDisegno.h"
#include "support/AmbienteProva.h"
#include "support/OrologioVirtuale.h"

#include <QCoreApplication>

#include <memory>

// The world a screen or panel test starts from: a data folder, the virtual
// clock and a dwell of one second.
struct MondoProva {
    std::unique_ptr<AmbienteProva> amb;
    std::unique_ptr<OrologioVirtuale> orologio;

    // The folder installed, with its archives open.
    void Prepara() {
        amb = std::make_unique<AmbienteProva>();
        amb->ApriArchivi();
        Orologio();
    }
    // A bare folder: for the panels, which read no archive.
    void PreparaSenzaDati() {
        amb = std::make_unique<AmbienteProva>(false);
        Orologio();
    }
    // The folder installed and the clock, and nothing else: for the tests
    // of the start, which opens the archives and reads the dwell itself.
    void PreparaPerLAvvio() {
        amb = std::make_unique<AmbienteProva>();
        orologio = std::make_unique<OrologioVirtuale>();
    }
    // The forms a test closed are deleted before the clock and the folder go.
    void Libera() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        orologio.reset();
        amb.reset();
    }
    // The drawing screen and the main menu unloaded first.
    void LiberaSchermi() {
        DistruggiAmbienteDisegno();
        DistruggiMenùGenerale();
        Libera();
    }

private:
    void Orologio() {
        orologio = std::make_unique<OrologioVirtuale>();
        TempoLatenzaScansione = 1000;
    }
};
