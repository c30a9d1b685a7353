#pragma once

#include "app/MenuGenerale.h"
#include "base/Configurazione.h"
#include "drawing/AmbienteDisegno.h"
#include "support/AmbienteProva.h"
#include "support/Copione.h"
#include "support/MondoProva.h"
#include "support/OrologioVirtuale.h"

#include <QtTest>

#include <functional>
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
struct MondoDisegno : MondoProva {
    AmbienteDisegno* a = nullptr;

    void Prepara() {
        MondoProva::Prepara();
        a = nullptr;
    }
    // Modes 1 and 2: the ring of the screen walks on the clock, a dwell a button.
    void Vai(int16_t indice) {
        orologio->Avanza(int64_t((indice - a->Motore.TastoCorrente + 33) % 33) *
                         TempoLatenzaScansione);
        QCOMPARE(a->Motore.TastoCorrente, indice);
    }
    void Premi(int16_t indice) {
        Vai(indice);
        if (QTest::currentTestFailed()) return;
        QVERIFY(PremiTasto(Qt::Key_Return));
    }
    // The button fired with a script that runs in what it opens.
    void PremiCon(int16_t indice, Copione& c) {
        Vai(indice);
        if (QTest::currentTestFailed()) return;
        c.Avvia();
        QVERIFY(PremiTasto(Qt::Key_Return));
        QVERIFY(c.Finito());
        QVERIFY2(c.Problemi.isEmpty(), qPrintable(c.Problemi.join(u'\n')));
    }
    // The ring of the panel in front, dwell by dwell, to the button `dove`
    // names when the step runs; then the choice key.
    void Fino(Copione& c, std::function<int16_t()> dove) {
        c.Esegui([this, dove] {
            FormScansione* f = FormScansione::InPrimoPiano();
            const int16_t tasto = dove();
            for (int i = 0; f != nullptr && f != a && f->Motore.TastoCorrente != tasto && i < 90;
                 ++i)
                orologio->Avanza(TempoLatenzaScansione);
        });
        c.Tasto(Qt::Key_Return);
    }
    void Fino(Copione& c, int16_t tasto) {
        Fino(c, [tasto] { return tasto; });
    }

    void Libera() {
        a = nullptr;
        LiberaSchermi();
    }
};
