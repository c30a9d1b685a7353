#pragma once

#include "drawing/AmbienteDisegno.h"
#include "start/Configurazione.h"
#include "start/MenuGenerale.h"
#include "support/AmbienteProva.h"
#include "support/Copione.h"
#include "support/OrologioVirtuale.h"

#include <QtTest>

#include <memory>

// How the drawing tests drive the screen: opened in a mode on the system
// folder, and in mode 4 the ring walked by arrows to a button that Enter fires.
namespace GuidaDisegno {

inline AmbienteDisegno* Apri(int16_t modo) {
    ModalitàFunzionamento = modo;
    CodiceCartellaAttiva = 1;
    NomeCartellaAttiva = QStringLiteral("·Disegni Generale");
    AmbienteDisegno* a = CaricaAmbienteDisegno();
    QCoreApplication::processEvents();
    return a;
}

inline void Premi(AmbienteDisegno* a, int16_t indice) {
    const int passi = (indice - a->Motore.TastoCorrente + 33) % 33;
    for (int i = 0; i < passi; ++i)
        QVERIFY(PremiTasto(Qt::Key_Right));
    QCOMPARE(a->Motore.TastoCorrente, indice);
    QVERIFY(PremiTasto(Qt::Key_Return));
}

inline void Frecce(Qt::Key tasto, int volte) {
    for (int i = 0; i < volte; ++i)
        QVERIFY(PremiTasto(tasto));
}

// A line fixed, then taken whole by the default selection box: an object.
inline void LineaSelezionata(AmbienteDisegno* a) {
    Premi(a, 101);
    Premi(a, 117);
    Premi(a, 120);
    QVERIFY(PremiTasto(Qt::Key_Return));
    Premi(a, 117);
}

} // namespace GuidaDisegno

// The world of one drawing-screen test: a data folder with its archives open,
// the virtual clock with a dwell of one second, and the screen once opened.
struct MondoDisegno {
    std::unique_ptr<AmbienteProva> amb;
    std::unique_ptr<OrologioVirtuale> orologio;
    AmbienteDisegno* a = nullptr;

    void Prepara() {
        amb = std::make_unique<AmbienteProva>();
        amb->ApriArchivi();
        orologio = std::make_unique<OrologioVirtuale>();
        TempoLatenzaScansione = 1000;
        a = nullptr;
    }
    void Libera() {
        DistruggiAmbienteDisegno();
        DistruggiMenùGenerale();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        a = nullptr;
        orologio.reset();
        amb.reset();
    }
};
