// A one-switch user's session from beginning to end, in mode 1 on the
// virtual clock: three shapes, saved under a name written on the keyboard, a
// new drawing, the first read back, two more shapes, back in the history to
// the loaded state, one more shape, and the time line that then offers.
#include "app/MenuGenerale.h"
#include "archive/Archivi.h"
#include "archive/ArchivioAzioni.h"
#include "base/Configurazione.h"
#include "drawing/AmbienteDisegno.h"
#include "drawing/GuidaDisegno.h"
#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"
#include "panels/ProvaPannello.h"
#include "panels/QuadroUndo.h"
#include "support/AmbienteProva.h"
#include "support/OrologioVirtuale.h"

#include <QImage>
#include <QtTest>

#include <memory>

namespace {
constexpr int Sosta = 1000; // the dwell MondoDisegno sets
}

class ProvaScenarioDisegni : public QObject, MondoDisegno {
    Q_OBJECT

    // An element opened and fixed where it stands.
    void Forma(int16_t primitiva) {
        Premi(primitiva);
        Premi(117);
    }

private slots:
    void init() {
        Prepara();
        a = GuidaDisegno::Apri(1);
    }
    void cleanup() { Libera(); }

    void disegna_salva_ricomincia_rilegge_torna_indietro_e_va_avanti() {
        Forma(101);
        Forma(103);
        Forma(104);
        QCOMPARE(NumeroAzioni, 3);
        const QList<RecordAzione> disegnate = Azioni;

        // Save: "yes" holds the ring first; the name dwell by dwell; the success's OK.
        Copione s(*orologio);
        s.Tasto(Qt::Key_Return);
        ScriviInModo1(s, QStringLiteral("SOLE"), Sosta);
        s.Tasto(Qt::Key_Return);
        PremiCon(131, s);
        QCOMPARE(NomeDisegnoCorrente, QStringLiteral("SOLE"));
        const QString bitmap = PercorsoBitmapDisegno(NomeCartellaAttiva, CodiceCartellaAttiva,
                                                     NomeDisegnoCorrente, CodiceDisegnoCorrente);

        // New: the ring stands on "NO" first; one dwell round to "yes".
        Copione n(*orologio);
        n.Attendi(Sosta).Tasto(Qt::Key_Return);
        PremiCon(119, n);
        QCOMPARE(NumeroAzioni, 0);

        // Read: line 101 picked at once, then twenty-one dwells to confirm.
        Copione l(*orologio);
        l.Tasto(Qt::Key_Return).Attendi(21 * Sosta).Tasto(Qt::Key_Return);
        PremiCon(130, l);
        QCOMPARE(NomeDisegnoCorrente, QStringLiteral("SOLE"));
        QCOMPARE(NumeroAzioni, 3);
        for (int i = 1; i <= 3; ++i)
            QCOMPARE(Azioni[i], disegnate[i]);
        QCOMPARE(a->Quadro.Immagine().convertToFormat(QImage::Format_RGB32),
                 QImage(bitmap).convertToFormat(QImage::Format_RGB32));

        // Two more shapes: the history holds the loaded state and these two.
        Forma(102);
        Forma(101);
        QCOMPARE(CodiceCopiaLavoro, BaseCopieLavoro + 3);

        // Back to step 1: from 3 the time line wraps to 0, then 1; then the
        // question, whose ring goes from "Annulla" round to "OK".
        Copione u(*orologio);
        u.Attendi(2 * Sosta).Tasto(Qt::Key_Return);
        u.Attendi(Sosta).Tasto(Qt::Key_Return);
        PremiCon(118, u);
        QCOMPARE(PassoUndo, int16_t(1));
        QCOMPARE(NumeroAzioni, 3);
        for (int i = 1; i <= 3; ++i)
            QCOMPARE(Azioni[i], disegnate[i]);

        // One more shape: a further step on top of all of them.
        Forma(103);
        QCOMPARE(NumeroAzioni, 4);
        int32_t offerti = 0;
        Copione v(*orologio);
        v.Esegui([&] {
            if (auto* q = PannelloDavanti<QuadroUndo>()) offerti = q->PassiDisponibili;
        });
        v.Tasto(Qt::Key_Return).Tasto(Qt::Key_Return); // end at once, then "Annulla"
        PremiCon(118, v);
        QCOMPARE(offerti, 4);
        QCOMPARE(NumeroAzioni, 4);
    }
};

QTEST_MAIN(ProvaScenarioDisegni)
#include "test_scenario_disegni.moc"
