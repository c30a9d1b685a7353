// The drawing screen with the ring's restart: after a shape is opened the ring
// starts on its first edit command, after "Fissa" on the first shape, in modes
// 1, 2 and 3; with the restart off, and in mode 4, it stays on the choice.
#include "drawing/CodiciComando.h"
#include "drawing/GuidaDisegno.h"
#include "drawing/OrdineDisegno.h"
#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"

#include <QtTest>

class ProvaRipresaDisegno : public QObject, MondoDisegno {
    Q_OBJECT

    int modo_ = 1;

    // The ring to `indice` as the mode walks it, then the choice.
    void Scegli(int16_t indice) {
        if (modo_ == 4) {
            GuidaDisegno::Premi(a, indice);
            return;
        }
        if (modo_ == 3) {
            for (int i = 0; i < 33 && a->Motore.TastoCorrente != indice; ++i)
                QVERIFY(PremiTasto(Qt::Key_Space));
            QCOMPARE(a->Motore.TastoCorrente, indice);
            QVERIFY(PremiTasto(Qt::Key_Return));
            return;
        }
        Premi(indice);
    }
    // One step of the ring as the mode takes it.
    void Passo() {
        if (modo_ == 4)
            QVERIFY(PremiTasto(Qt::Key_Right));
        else if (modo_ == 3)
            QVERIFY(PremiTasto(Qt::Key_Space));
        else
            orologio->Avanza(TempoLatenzaScansione);
    }

private slots:
    void init() { Prepara(); }
    void cleanup() { Libera(); }

    void l_ordine_di_un_disegno() {
        // Each shape leads to its first grip (an ellipse to its shape), "Fissa"
        // to the first shape; nothing else moves the ring.
        RipresaSuccessiva = 1;
        ModalitàFunzionamento = 1;
        using namespace TastoDisegno;
        QCOMPARE(TastoDopoLaScelta(PrimitivaLinea), int16_t(ModificaInizioLinea));
        QCOMPARE(TastoDopoLaScelta(PrimitivaArco), int16_t(ModificaInizioArco));
        QCOMPARE(TastoDopoLaScelta(PrimitivaRettangolo), int16_t(ModificaGrandezza1));
        QCOMPARE(TastoDopoLaScelta(PrimitivaEllisse), int16_t(ModificaFormaEllisseArco));
        QCOMPARE(TastoDopoLaScelta(Fissa), int16_t(PrimitivaLinea));
        QCOMPARE(TastoDopoLaScelta(ColoraZona), int16_t(ColoraZona));
        QCOMPARE(TastoDopoLaScelta(SalvaDisegno), int16_t(SalvaDisegno));
        ModalitàFunzionamento = 4;
        QCOMPARE(TastoDopoLaScelta(PrimitivaLinea), int16_t(PrimitivaLinea));
        ModalitàFunzionamento = 3;
        RipresaSuccessiva = 0;
        QCOMPARE(TastoDopoLaScelta(Fissa), int16_t(Fissa));
    }

    void dopo_una_figura_e_dopo_fissa_data() {
        QTest::addColumn<int>("modo");
        QTest::addColumn<int>("ripresa");
        QTest::addColumn<int>("figura");
        QTest::addColumn<int>("dopoFigura");
        QTest::addColumn<int>("dopoFissa");
        using namespace TastoDisegno;
        const int seguenti[4] = {ModificaInizioLinea, ModificaInizioArco, ModificaGrandezza1,
                                 ModificaFormaEllisseArco};
        for (int modo : {1, 2, 3, 4})
            for (int figura = PrimitivaLinea; figura <= PrimitivaEllisse; ++figura) {
                const QString nome = QStringLiteral("modo %1 figura %2").arg(modo).arg(figura);
                const bool riparte = modo != 4;
                QTest::newRow(qPrintable(nome + QStringLiteral(" ripresa")))
                    << modo << 1 << figura << (riparte ? seguenti[figura - PrimitivaLinea] : figura)
                    << (riparte ? int(PrimitivaLinea) : int(Fissa));
                QTest::newRow(qPrintable(nome + QStringLiteral(" come definito")))
                    << modo << 0 << figura << figura << int(Fissa);
            }
    }

    void dopo_una_figura_e_dopo_fissa() {
        QFETCH(int, modo);
        QFETCH(int, ripresa);
        QFETCH(int, figura);
        QFETCH(int, dopoFigura);
        QFETCH(int, dopoFissa);
        modo_ = modo;
        RipresaSuccessiva = int16_t(ripresa);
        a = GuidaDisegno::Apri(int16_t(modo));
        QVERIFY(a != nullptr);
        Scegli(int16_t(figura));
        if (QTest::currentTestFailed()) return;
        QCOMPARE(PrimitivaAttiva, int16_t(figura));
        QCOMPARE(a->Motore.TastoCorrente, int16_t(dopoFigura));
        // The ring walks on from there, one button a step.
        Passo();
        QCOMPARE(a->Motore.TastoCorrente, int16_t(dopoFigura + 1));
        Scegli(TastoDisegno::Fissa);
        if (QTest::currentTestFailed()) return;
        QCOMPARE(PrimitivaAttiva, int16_t(0));
        QCOMPARE(NumeroAzioni, 1);
        QCOMPARE(a->Motore.TastoCorrente, int16_t(dopoFissa));
        Passo();
        QCOMPARE(a->Motore.TastoCorrente, int16_t(dopoFissa + 1));
    }
};

QTEST_MAIN(ProvaRipresaDisegno)
#include "test_ripresa_disegno.moc"
