// The keyboard with the ring's restart: after a letter or a blank the ring
// starts again on "A" in modes 1, 2 and 3; with the restart off, and in mode 4,
// it stays on the key just chosen; keys that write nothing leave it there.
#include "base/Configurazione.h"
#include "panels/ProvaScriviTesto.h"
#include "support/Copione.h"

#include <QtTest>

class ProvaRipresaTastiera : public QObject, MondoTastiera {
    Q_OBJECT

    // The ring to `tasto` as the mode walks it, then the choice.
    static void Scegli(Copione& c, int modo, int16_t& corrente, int16_t tasto) {
        if (modo == 3) {
            Scegli3(c, corrente, tasto, 70);
        } else if (modo == 4) {
            Scegli4(c, corrente, tasto, 10, 70);
        } else {
            c.Attendi(int64_t((tasto - corrente + 70) % 70) * TempoLatenzaScansione);
            c.Tasto(Qt::Key_Return);
            corrente = tasto;
        }
    }
    // "Fn", then confirm, on which the function keys start.
    static void Conferma(Copione& c, int modo, int16_t corrente) {
        Scegli(c, modo, corrente, 166);
        c.Tasto(Qt::Key_Return);
    }
    // One step of the ring as the mode takes it.
    static void Passo(Copione& c, int modo) {
        if (modo == 3)
            c.Tasto(Qt::Key_Space);
        else if (modo == 4)
            c.Tasto(Qt::Key_Right);
        else
            c.Attendi(TempoLatenzaScansione);
    }

private slots:
    void init() { Prepara(); }
    void cleanup() { Libera(); }

    void dopo_una_lettera_data() {
        QTest::addColumn<int>("modo");
        QTest::addColumn<int>("ripresa");
        QTest::addColumn<int>("dopo");
        QTest::addColumn<int>("unPassoDopo");
        // After "D" (104): on "A" and then "B", or on "D" and then "E".
        for (int modo : {1, 2, 3}) {
            QTest::newRow(qPrintable(QStringLiteral("modo %1 ripresa").arg(modo)))
                << modo << 1 << 101 << 102;
            QTest::newRow(qPrintable(QStringLiteral("modo %1 come definito").arg(modo)))
                << modo << 0 << 104 << 105;
        }
        QTest::newRow("modo 4 ripresa") << 4 << 1 << 104 << 105;
        QTest::newRow("modo 4 come definito") << 4 << 0 << 104 << 105;
    }

    void dopo_una_lettera() {
        QFETCH(int, modo);
        QFETCH(int, ripresa);
        QFETCH(int, dopo);
        QFETCH(int, unPassoDopo);
        ModalitàFunzionamento = int16_t(modo);
        RipresaSuccessiva = int16_t(ripresa);
        int16_t visto = 0, passato = 0, secondo = 0;
        QString scritto;
        Copione c(*orologio);
        int16_t corrente = 101;
        Scegli(c, modo, corrente, TastoDi(u'D'));
        c.Esegui([&] {
            visto = AnelloOra();
            scritto = TestoOra();
        });
        Passo(c, modo);
        c.Esegui([&] { passato = AnelloOra(); });
        // The next letter is reached from where the ring should stand now.
        corrente = int16_t(unPassoDopo);
        Scegli(c, modo, corrente, TastoDi(u'C'));
        c.Esegui([&] { secondo = AnelloOra(); });
        Conferma(c, modo, ripresa == 1 && modo != 4 ? int16_t(101) : TastoDi(u'C'));
        QVERIFY(Apri(c));
        QCOMPARE(scritto, QStringLiteral("D_"));
        QCOMPARE(RigheScritte, (QStringList{QString(), QStringLiteral("DC")}));
        QCOMPARE(visto, int16_t(dopo));
        QCOMPARE(passato, int16_t(unPassoDopo));
        QCOMPARE(secondo, ripresa == 1 && modo != 4 ? int16_t(101) : TastoDi(u'C'));
    }

    void dopo_uno_spazio_riparte_e_dopo_bs_resta_data() { RigheDeiModi({1, 2, 3}); }

    void dopo_uno_spazio_riparte_e_dopo_bs_resta() {
        QFETCH(int, modo);
        ModalitàFunzionamento = int16_t(modo);
        RipresaSuccessiva = 1;
        int16_t dopoSpazio = 0, dopoBs = 0;
        QString scritto;
        Copione c(*orologio);
        int16_t corrente = 101;
        Scegli(c, modo, corrente, 135); // the blank
        c.Esegui([&] { dopoSpazio = AnelloOra(); });
        corrente = 101;
        Scegli(c, modo, corrente, 137); // "BS" takes it back and writes nothing
        c.Esegui([&] {
            dopoBs = AnelloOra();
            scritto = TestoOra();
        });
        Conferma(c, modo, 137);
        QVERIFY(Apri(c));
        QCOMPARE(dopoSpazio, int16_t(101));
        QCOMPARE(dopoBs, int16_t(137));
        QCOMPARE(scritto, QStringLiteral("_"));
    }
};

QTEST_MAIN(ProvaRipresaTastiera)
#include "test_ripresa_tastiera.moc"
