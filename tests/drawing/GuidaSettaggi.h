#pragma once

#include "drawing/AmbienteDisegno.h"
#include "drawing/GuidaDisegno.h"
#include "model/StatoAmbiente.h"
#include "panels/ProvaPannello.h"
#include "panels/QuadroSettaggi.h"
#include "support/Copione.h"

#include <QtTest>

// How the tests of the settings panel drive it in mode 4.
namespace GuidaSettaggi {

// The ring of the front panel, by arrows, to `tasto`; then Enter.
inline void Scegli(Copione& c, int16_t tasto) {
    c.Esegui([tasto] {
        FormScansione* f = FormScansione::InPrimoPiano();
        for (int i = 0; f != nullptr && f->Motore.TastoCorrente != tasto && i < 40; ++i)
            PremiTasto(Qt::Key_Right);
    });
    c.Tasto(Qt::Key_Return);
}

// The line of the list in front that shows `nome`, 0 if none.
inline int16_t RigaDi(const QString& nome) {
    FormScansione* f = FormScansione::InPrimoPiano();
    if (f == nullptr) return 0;
    for (int16_t i = 101; i <= 120; ++i)
        if (f->Tasti.value(i)->text().startsWith(nome + u' ')) return i;
    return 0;
}

// In mode 4: the line of `nome` on the list in front picked and confirmed.
inline void ScegliRiga(Copione& c, const QString& nome) {
    c.Esegui([nome] {
        const int16_t riga = RigaDi(nome);
        FormScansione* f = FormScansione::InPrimoPiano();
        for (int i = 0; riga != 0 && f->Motore.TastoCorrente != riga && i < 30; ++i)
            PremiTasto(Qt::Key_Right);
    });
    c.Tasto(Qt::Key_Return).Tasto(Qt::Key_Return);
}

// A rectangle at the centre fixed, and its inside filled `colore`.
inline void RettangoloColorato(AmbienteDisegno* a, int32_t colore) {
    GuidaDisegno::Premi(a, 103);
    GuidaDisegno::Premi(a, 117);
    ColoreZonaCorrente = colore;
    GuidaDisegno::Premi(a, 114);
    QVERIFY(PremiTasto(Qt::Key_Return));
    GuidaDisegno::Premi(a, 117);
}

// 124 with a script that runs inside the panel and closes it.
inline void Apri(AmbienteDisegno* a, Copione& c) {
    GuidaDisegno::Frecce(Qt::Key_Right, (124 - a->Motore.TastoCorrente + 33) % 33);
    QCOMPARE(a->Motore.TastoCorrente, int16_t(124));
    c.Avvia();
    QVERIFY(PremiTasto(Qt::Key_Return));
    QVERIFY(c.Finito());
    QVERIFY2(c.Problemi.isEmpty(), qPrintable(c.Problemi.join(u'\n')));
    QVERIFY(PannelloDavanti<QuadroSettaggi>() == nullptr);
}

} // namespace GuidaSettaggi
