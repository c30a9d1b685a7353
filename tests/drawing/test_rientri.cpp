// No routine starts again inside itself: a choice key pressed while the
// picture search lets events run, and a click during an element's walk, in
// mode 1 on the virtual clock.
#include "app/MenuGenerale.h"
#include "archive/Archivi.h"
#include "base/Configurazione.h"
#include "drawing/AmbienteDisegno.h"
#include "drawing/GuidaDisegno.h"
#include "input/QuadroMessaggi.h"
#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"
#include "panels/QuadroMostraLista.h"
#include "panels/QuadroSceltaDirezione.h"
#include "panels/VideaAvanzamento.h"
#include "support/Copione.h"
#include "support/RigheProva.h"

#include <QImage>
#include <QtTest>

class ProvaRientri : public QObject, MondoDisegno {
    Q_OBJECT

    template <typename Pannello> static Pannello* Davanti() {
        return dynamic_cast<Pannello*>(FormScansione::InPrimoPiano());
    }

private slots:
    void init() {
        Prepara();
        AnnullaProcesso = 0;
    }
    void cleanup() { Libera(); }

    void la_scelta_durante_la_ricerca_delle_immagini_non_apre_una_seconda_lista_data() {
        RigheTastoScelta();
    }
    void la_scelta_durante_la_ricerca_delle_immagini_non_apre_una_seconda_lista() {
        QFETCH(int, scelta);
        const Qt::Key tasto = UsaTastoScelta(scelta);
        QImage casa(40, 30, QImage::Format_RGB32);
        casa.fill(QColor(0, 255, 0));
        QVERIFY(casa.save(PercorsoFile() + QStringLiteral("/casa.png"), "PNG"));
        a = GuidaDisegno::Apri(1);
        Vai(129);
        int liste = 0;
        bool ricerca = false;
        auto chiudiLista = [&] {
            if (auto* l = Davanti<QuadroMostraLista>()) {
                ++liste;
                l->ClickTasto(125);
            }
        };
        // Posted now, this runs as the search lets events run: the user presses again.
        QMetaObject::invokeMethod(
            qApp,
            [&ricerca, tasto] {
                ricerca = VideaAvanzamentoAperta() != nullptr;
                PremiTasto(tasto);
            },
            Qt::QueuedConnection);
        Copione c(*orologio);
        c.Esegui(chiudiLista).Esegui(chiudiLista).Esegui(chiudiLista);
        c.Avvia();
        QVERIFY(PremiTasto(tasto));
        for (int i = 0; i < 50 && !c.Finito(); ++i)
            QCoreApplication::processEvents();
        QVERIFY(c.Finito());
        QVERIFY(ricerca);
        QCOMPARE(liste, 1);
        // The press went to the search's own form, which the search ignores.
        QCOMPARE(AnnullaProcesso, int16_t(1));
        QCOMPARE(FormScansione::InPrimoPiano(), static_cast<FormScansione*>(a));
        QCOMPARE(PrimitivaAttiva, int16_t(0));
        QCOMPARE(a->Motore.ScansioneAttiva, int16_t(1));
        QCOMPARE(a->Motore.TastoCorrente, int16_t(129));
    }

    void un_clic_durante_il_cammino_lo_ferma_e_non_esce_data() {
        QTest::addColumn<int>("tasto");
        QTest::newRow("133 uscita") << 133;
        QTest::newRow("124 settaggi") << 124;
        QTest::newRow("101 linea") << 101;
        QTest::newRow("106 rosso") << 106;
    }
    void un_clic_durante_il_cammino_lo_ferma_e_non_esce() {
        QFETCH(int, tasto);
        a = GuidaDisegno::Apri(1);
        Premi(101); // a line opens
        const int32_t xFine = ElementoInCostruzione.XFine;
        Vai(106);
        QString domanda;
        bool direzione = false;
        int32_t fermo = 0;
        Copione c(*orologio);
        Fino(c, 102); // "Destra"
        c.Attendi(1000).Attendi(1000);
        // The mouse, during the walk.
        c.Esegui([&] {
            TestoQuadroMessaggi.clear();
            QTest::mouseClick(a->Tasti.value(int16_t(tasto)), Qt::LeftButton);
        });
        c.Esegui([&] {
            direzione = Davanti<QuadroSceltaDirezione>() != nullptr;
            domanda = TestoQuadroMessaggi;
            if (auto* m = Davanti<QuadroMessaggi>()) m->ClickTasto(103);
        });
        Fino(c, 105);
        c.Esegui([&] { fermo = ElementoInCostruzione.XFine; });
        // Should anything still walk, stop it as a user would.
        c.Esegui([&] {
            if (ComandoModifica != 0 && FormScansione::InPrimoPiano() == a)
                PremiTasto(Qt::Key_Return);
        });
        c.Esegui([&] {
            if (auto* q = Davanti<QuadroSceltaDirezione>()) q->ClickTasto(105);
        });
        c.Avvia();
        QVERIFY(PremiTasto(Qt::Key_Return));
        for (int i = 0; i < 50 && !c.Finito(); ++i)
            QCoreApplication::processEvents();
        QVERIFY(c.Finito());
        QVERIFY(direzione);
        QCOMPARE(domanda, QString());
        QVERIFY(AmbienteDisegnoAperto() == a && a->isVisible());
        QVERIFY(MenùGeneraleAperto() == nullptr);
        QCOMPARE(fermo, xFine + 2 * PassoSpostamento);
        QCOMPARE(ComandoModifica, int16_t(0));
        QCOMPARE(PrimitivaAttiva, int16_t(101));
        // Nothing walks any more under the ring.
        orologio->Avanza(5000);
        QCOMPARE(ElementoInCostruzione.XFine, fermo);
        QCOMPARE(a->Motore.ScansioneAttiva, int16_t(1));
    }
};

QTEST_MAIN(ProvaRientri)
#include "test_rientri.moc"
