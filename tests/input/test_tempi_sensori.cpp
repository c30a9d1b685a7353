// The timings for real switches, by keys held and let go on the virtual clock,
// on the main menu and on the on-screen keyboard: acceptance time, presses
// dropped after a choice, a longer first dwell, and the ring that rests after
// rounds with nobody pressing.
#include "app/ConfigurazioniGenerali.h"
#include "app/MenuGenerale.h"
#include "base/Bip.h"
#include "base/Configurazione.h"
#include "input/QuadroMessaggi.h"
#include "panels/ProvaScriviTesto.h"
#include "support/Copione.h"
#include "support/MondoMenu.h"

#include <QtTest>

namespace {

int16_t Anello(const MenuGenerale* m) {
    return m->Motore.TastoCorrente;
}

bool MessaggioDavanti() {
    return dynamic_cast<QuadroMessaggi*>(FormScansione::InPrimoPiano()) != nullptr;
}

// The letters written, without the cursor.
QString Scritto() {
    QString testo = TestoOra();
    testo.remove(TestoConCursore::Cursore);
    return testo;
}

} // namespace

class ProvaTempiSensori : public QObject, MondoMenu {
    Q_OBJECT

    bool Tastiera(Copione& c) {
        return EseguiNelPannello(c, [] { ScriviTesto(0); });
    }

private slots:
    void init() { Prepara(); }
    void cleanup() { Libera(); }

    // Acceptance time.

    void menu_pressione_breve_non_conta_e_l_anello_aspetta_chi_tiene() {
        TempoAccettazione = 300;
        MenuGenerale* m = Menu(1);
        orologio->Avanza(3000);
        QCOMPARE(Anello(m), int16_t(104));
        QVERIFY(TieniTasto(*orologio, Qt::Key_Return, 200));
        QVERIFY(ConfigurazioniAperte() == nullptr);
        // The 200 ms held do not count on the dwell.
        orologio->Avanza(999);
        QCOMPARE(Anello(m), int16_t(104));
        orologio->Avanza(1);
        QCOMPARE(Anello(m), int16_t(105));
    }

    void menu_pressione_tenuta_sceglie_dove_comincia() {
        // Held past the end of the dwell: the ring holds still and the choice
        // falls where the press began, on "Configurazioni".
        TempoAccettazione = 1500;
        MenuGenerale* m = Menu(1);
        orologio->Avanza(3500);
        QCOMPARE(Anello(m), int16_t(104));
        QVERIFY(TieniTasto(*orologio, Qt::Key_Return, 1500));
        QVERIFY(ConfigurazioniAperte() != nullptr);
    }

    void menu_senza_accettazione_la_pressione_breve_sceglie() {
        MenuGenerale* m = Menu(1);
        orologio->Avanza(3000);
        QCOMPARE(Anello(m), int16_t(104));
        QVERIFY(PremiTasto(Qt::Key_Return));
        QVERIFY(ConfigurazioniAperte() != nullptr);
    }

    void menu_modo_4_frecce_contano_solo_tenute() {
        TempoAccettazione = 400;
        MenuGenerale* m = Menu(4);
        QVERIFY(PremiTasto(Qt::Key_Right));
        QCOMPARE(Anello(m), int16_t(101));
        QVERIFY(TieniTasto(*orologio, Qt::Key_Right, 399));
        QCOMPARE(Anello(m), int16_t(101));
        QVERIFY(TieniTasto(*orologio, Qt::Key_Right, 400));
        QCOMPARE(Anello(m), int16_t(102));
        // A held key counts once, at the moment it is accepted.
        QVERIFY(TieniTasto(*orologio, Qt::Key_Right, 3000));
        QCOMPARE(Anello(m), int16_t(103));
    }

    void tastiera_modo_4_frecce_e_invio_tenuti() {
        ModalitàFunzionamento = 4;
        TempoAccettazione = 300;
        QString dopoBreve, dopoTenuto;
        int16_t anelloBreve = 0, anelloTenuto = 0;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Right);
        c.Esegui([&] { anelloBreve = AnelloOra(); });
        c.Tieni(Qt::Key_Right, 300);
        c.Esegui([&] { anelloTenuto = AnelloOra(); });
        c.Tasto(Qt::Key_Return);
        c.Esegui([&] { dopoBreve = Scritto(); });
        c.Tieni(Qt::Key_Return, 300);
        c.Esegui([&] { dopoTenuto = Scritto(); });
        Tastiera(c);
        QCOMPARE(anelloBreve, int16_t(101));
        QCOMPARE(anelloTenuto, int16_t(102));
        QCOMPARE(dopoBreve, QString());
        QCOMPARE(dopoTenuto, QStringLiteral("B"));
    }

    // Presses dropped after a choice.

    void menu_il_tremito_dopo_la_scelta_non_chiude_il_messaggio() {
        TempoIgnoraDopoScelta = 500;
        MenuGenerale* m = Menu(1);
        CodiceCartellaAttiva = 0; // "Disegno" refuses and tells why
        bool davantiDopoTremito = false;
        bool davantiDopoPausa = true;
        Copione c(*orologio);
        c.Attendi(200).Tasto(Qt::Key_Return);
        c.Esegui([&] { davantiDopoTremito = MessaggioDavanti(); });
        c.Attendi(300).Tasto(Qt::Key_Return);
        c.Esegui([&] { davantiDopoPausa = MessaggioDavanti(); });
        c.Avvia();
        QVERIFY(PremiTasto(Qt::Key_Return));
        for (int giro = 0; giro < 100 && !c.Finito(); ++giro)
            QCoreApplication::processEvents();
        QVERIFY(c.Finito());
        QVERIFY(c.Problemi.isEmpty());
        QVERIFY(davantiDopoTremito);
        QVERIFY(!davantiDopoPausa);
        QCOMPARE(Anello(m), int16_t(101));
    }

    void menu_modo_4_le_frecce_subito_dopo_la_scelta_cadono() {
        // A choice made in a panel that the menu opened: the arrows of the
        // tremor that followed do not move the menu's ring once it is back.
        TempoIgnoraDopoScelta = 600;
        MenuGenerale* m = Menu(4);
        CodiceCartellaAttiva = 0;
        Copione c(*orologio);
        c.Attendi(700).Tasto(Qt::Key_Return); // the message's "OK", itself a choice
        c.Avvia();
        QVERIFY(PremiTasto(Qt::Key_Return));
        QVERIFY(c.Finito());
        QVERIFY(PremiTasto(Qt::Key_Right));
        QCOMPARE(Anello(m), int16_t(101));
        orologio->Avanza(599);
        QVERIFY(PremiTasto(Qt::Key_Right));
        QCOMPARE(Anello(m), int16_t(101));
        orologio->Avanza(1);
        QVERIFY(PremiTasto(Qt::Key_Right));
        QCOMPARE(Anello(m), int16_t(102));
    }

    void tastiera_modo_1_la_doppia_pressione_scrive_una_lettera() {
        ModalitàFunzionamento = 1;
        TempoIgnoraDopoScelta = 600;
        QString dopoDoppia, dopoPausa;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Return).Attendi(150).Tasto(Qt::Key_Return);
        c.Esegui([&] { dopoDoppia = Scritto(); });
        c.Attendi(450).Tasto(Qt::Key_Return);
        c.Esegui([&] { dopoPausa = Scritto(); });
        Tastiera(c);
        QCOMPARE(dopoDoppia, QStringLiteral("A"));
        QCOMPARE(dopoPausa, QStringLiteral("AA"));
    }

    // The first dwell after the ring starts.

    void menu_modo_2_prima_attesa_doppia_anche_dopo_una_scelta() {
        PrimaAttesa = 2;
        MenuGenerale* m = Menu(2);
        CodiceCartellaAttiva = 0;
        orologio->Avanza(1999);
        QCOMPARE(Anello(m), int16_t(101));
        orologio->Avanza(1);
        QCOMPARE(Anello(m), int16_t(102));
        orologio->Avanza(1000);
        QCOMPARE(Anello(m), int16_t(103));
        orologio->Avanza(3000);
        QCOMPARE(Anello(m), int16_t(101));
        // A refused choice: the message, then the ring starts again, slowly first.
        Copione c(*orologio);
        c.Tasto(Qt::Key_Return);
        c.Avvia();
        QVERIFY(PremiTasto(Qt::Key_Return));
        QVERIFY(c.Finito());
        orologio->Avanza(1999);
        QCOMPARE(Anello(m), int16_t(101));
        orologio->Avanza(1);
        QCOMPARE(Anello(m), int16_t(102));
    }

    void tastiera_modo_1_prima_attesa_tripla() {
        ModalitàFunzionamento = 1;
        PrimaAttesa = 3;
        QList<int16_t> anelli;
        Copione c(*orologio);
        c.Attendi(2999).Esegui([&] { anelli << AnelloOra(); });
        c.Attendi(1).Esegui([&] { anelli << AnelloOra(); });
        c.Attendi(1000).Esegui([&] { anelli << AnelloOra(); });
        Tastiera(c);
        QCOMPARE(anelli, (QList<int16_t>{101, 102, 103}));
    }

    void prima_attesa_normale_come_definita() {
        MenuGenerale* m = Menu(1);
        orologio->Avanza(1000);
        QCOMPARE(Anello(m), int16_t(102));
    }

    // The ring that rests.

    void menu_modo_2_riposa_dopo_i_giri_e_il_tasto_lo_sveglia_soltanto() {
        GiriPrimaDelRiposo = 2;
        MenuGenerale* m = Menu(2);
        orologio->Avanza(3000);
        QCOMPARE(Anello(m), int16_t(104));
        // Two inversions: somebody is there, the rounds count from here.
        QVERIFY(PremiTasto(Qt::Key_Space));
        QVERIFY(PremiTasto(Qt::Key_Space));
        orologio->Avanza(10000); // two rounds of five
        QCOMPARE(Anello(m), int16_t(104));
        QVERIFY(!m->Motore.InRiposo());
        orologio->Avanza(1000);
        QCOMPARE(Anello(m), int16_t(104));
        QVERIFY(m->Motore.InRiposo());
        QCOMPARE(orologio->InAttesa(), 0);
        orologio->Avanza(60000);
        QCOMPARE(Anello(m), int16_t(104));
        // The choice key wakes it and chooses nothing.
        QVERIFY(PremiTasto(Qt::Key_Return));
        QVERIFY(ConfigurazioniAperte() == nullptr);
        QVERIFY(!m->Motore.InRiposo());
        orologio->Avanza(1000);
        QCOMPARE(Anello(m), int16_t(105));
    }

    void menu_modo_1_senza_riposo_gira_per_sempre() {
        MenuGenerale* m = Menu(1);
        orologio->Avanza(100000);
        QVERIFY(!m->Motore.InRiposo());
        QCOMPARE(Anello(m), int16_t(101));
        QCOMPARE(orologio->InAttesa(), 1);
    }

    void tastiera_modo_1_riposa_e_il_risveglio_non_scrive() {
        ModalitàFunzionamento = 1;
        GiriPrimaDelRiposo = 1;
        bool riposaPrima = true, riposaDopo = false, riposaSvegliata = true;
        QString dopoRisveglio, dopoScelta;
        Copione c(*orologio);
        c.Attendi(70000).Esegui([&] {
            riposaPrima = Quadro()->Motore.InRiposo(); // a full round of 70 keys
        });
        c.Attendi(1000).Esegui([&] { riposaDopo = Quadro()->Motore.InRiposo(); });
        c.Tasto(Qt::Key_Return);
        c.Esegui([&] {
            riposaSvegliata = Quadro()->Motore.InRiposo();
            dopoRisveglio = Scritto();
        });
        c.Tasto(Qt::Key_Return);
        c.Esegui([&] { dopoScelta = Scritto(); });
        Tastiera(c);
        QVERIFY(!riposaPrima);
        QVERIFY(riposaDopo);
        QVERIFY(!riposaSvegliata);
        QCOMPARE(dopoRisveglio, QString());
        QCOMPARE(dopoScelta, QStringLiteral("A"));
    }
};

QTEST_MAIN(ProvaTempiSensori)
#include "test_tempi_sensori.moc"
