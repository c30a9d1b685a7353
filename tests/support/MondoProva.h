#pragma once

#include "base/Configurazione.h"
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
    // The forms a test closed are deleted before the clock and the folder go.
    void Libera() {
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        orologio.reset();
        amb.reset();
    }

private:
    void Orologio() {
        orologio = std::make_unique<OrologioVirtuale>();
        TempoLatenzaScansione = 1000;
    }
};
