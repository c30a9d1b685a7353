// "Chiudi" of the direction panel in modes 1 and 2, over many timings: whenever it is
// picked, on the panel's first opening or after a walk, the panel goes, the
// command ends and the drawing screen's ring walks again.
#include "base/Configurazione.h"
#include "drawing/AmbienteDisegno.h"
#include "drawing/GuidaDisegno.h"
#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"
#include "panels/QuadroSceltaDirezione.h"
#include "support/Copione.h"
#include "support/Sonde.h"

#include <QtTest>

class ProvaChiudiDirezione : public QObject, MondoDisegno {
    Q_OBJECT

private slots:
    void init() { Prepara(); }
    void cleanup() { Libera(); }

    void chiudi_finisce_il_comando_e_l_anello_riparte_data() {
        QTest::addColumn<int>("modo");
        QTest::addColumn<int>("ultima");
        QTest::addColumn<int>("prima");
        QTest::addColumn<int>("ignora");
        QTest::addColumn<int>("passi");
        QTest::addColumn<int>("scarto");
        for (int modo : {1, 2})
            for (int ultima = 1; ultima <= 5; ++ultima)
                for (int prima = 1; prima <= 3; ++prima)
                    for (int ignora : {0, 400})
                        for (int passi : {0, 1, 3})
                            for (int scarto : {0, 450}) {
                                // Mode 2 walks the same way: a sample of it is enough.
                                if (modo == 2 && (prima != 1 || ignora != 0)) continue;
                                QTest::newRow(qPrintable(
                                    QStringLiteral("modo %1 ultima %2 prima %3 ignora %4 passi "
                                                   "%5 scarto %6")
                                        .arg(modo)
                                        .arg(ultima)
                                        .arg(prima)
                                        .arg(ignora)
                                        .arg(passi)
                                        .arg(scarto)))
                                    << modo << ultima << prima << ignora << passi << scarto;
                            }
    }
    void chiudi_finisce_il_comando_e_l_anello_riparte() {
        QFETCH(int, modo);
        QFETCH(int, ultima);
        QFETCH(int, prima);
        QFETCH(int, ignora);
        QFETCH(int, passi);
        QFETCH(int, scarto);
        PrimaAttesa = int16_t(prima);
        TempoIgnoraDopoScelta = ignora;
        a = GuidaDisegno::Apri(int16_t(modo));
        DirezioneScelta = int16_t(ultima); // where the panel's ring starts
        Premi(101);                        // a line opens
        const int32_t xFine = ElementoInCostruzione.XFine;
        // The ring stands its first wait on 101 again, then a dwell a button.
        orologio->Avanza(int64_t(prima - 1) * TempoLatenzaScansione + 450);
        Vai(106); // the end of the line, moved by the direction panel
        QCOMPARE(a->Motore.TastoCorrente, int16_t(106));

        bool pannello = true;
        int16_t comando = -1;
        int16_t attiva = -1;
        Copione c(*orologio);
        if (passi > 0) {
            // "Destra", a walk of some steps, and the choice key that stops it.
            c.Attendi(450);
            Fino(c, 102);
            // A step a dwell: the walk waits in a loop of its own between them.
            for (int i = 0; i < passi; ++i)
                c.Attendi(TempoLatenzaScansione);
            c.Attendi(scarto);
            c.Tasto(Qt::Key_Return);
        }
        c.Attendi(scarto == 0 ? 450 : scarto);
        Fino(c, 105);
        c.Esegui([&] {
            pannello = FormScansione::InPrimoPiano() != a;
            comando = ComandoModifica;
            attiva = a->Motore.ScansioneAttiva;
        });
        // Should the panel have left the user stranded, the test gets out
        // as a user would have had to: a press, then "Chiudi" once more.
        c.Esegui([&] {
            if (ComandoModifica != 0 && FormScansione::InPrimoPiano() == a) {
                TempoIgnoraDopoScelta = 0;
                PremiTasto(Qt::Key_Return);
            }
        });
        c.Esegui([&] {
            if (auto* q = dynamic_cast<QuadroSceltaDirezione*>(FormScansione::InPrimoPiano()))
                q->ClickTasto(105);
        });
        c.Avvia();
        QVERIFY(PremiTasto(Qt::Key_Return));
        for (int i = 0; i < 50 && !c.Finito(); ++i)
            QCoreApplication::processEvents();
        QVERIFY(c.Finito());
        QVERIFY2(c.Problemi.isEmpty(), qPrintable(c.Problemi.join(u'\n')));
        QVERIFY(!pannello);
        QCOMPARE(comando, int16_t(0));
        QCOMPARE(attiva, int16_t(1));
        QCOMPARE(DirezioneScelta, int16_t(5));
        // The element is where the walk left it, still open for the next command.
        QCOMPARE(PrimitivaAttiva, int16_t(101));
        QCOMPARE(ElementoInCostruzione.XFine, xFine + passi * PassoSpostamento);
        // The ring stands on 106, green, and walks on after a dwell.
        QCOMPARE(a->Motore.TastoCorrente, int16_t(106));
        QVERIFY(CoroneVisibili(*a).contains(int16_t(106)));
        QCOMPARE(ColoreCorona(*a, 106), ColoriCorona::Verde);
        orologio->Avanza(int64_t(prima) * TempoLatenzaScansione);
        QCOMPARE(a->Motore.TastoCorrente, int16_t(107));
    }
};

QTEST_MAIN(ProvaChiudiDirezione)
#include "test_chiudi_direzione.moc"
