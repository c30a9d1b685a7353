// Spoken scanning, heard through the tests' voice on the virtual clock: what
// is said where the ring arrives on the menu, the keyboard and a list, that a
// new name cuts the old one, that the ring may wait for a name, that a choice
// adds nothing and a beep is never covered; and the option on the form.
#include "app/ConfigurazioniGenerali.h"
#include "app/MenuGenerale.h"
#include "app/PaginaSensori.h"
#include "archive/RigaConfigurazione.h"
#include "base/Bip.h"
#include "input/QuadroMessaggi.h"
#include "panels/Elaborazioni.h"
#include "panels/EtichettaLista.h"
#include "panels/ProvaScriviTesto.h"
#include "panels/QuadroMostraLista.h"
#include "support/Copione.h"
#include "support/MondoMenu.h"

#include <QLabel>
#include <QPushButton>
#include <QRadioButton>
#include <QSpinBox>
#include <QtTest>

namespace {

using Detto = VoceRegistrata::Detto;

QList<int64_t> Istanti(const QList<Detto>& detti) {
    QList<int64_t> istanti;
    for (const Detto& d : detti)
        istanti << d.Quando;
    return istanti;
}

// A click on a round option where its dot is, as a hand with a mouse does.
void Clicca(QRadioButton* opzione) {
    QTest::mouseClick(opzione, Qt::LeftButton, {}, QPoint(8, opzione->height() / 2));
}

} // namespace

class ProvaScansioneParlata : public QObject, MondoMenu {
    Q_OBJECT

    VoceRegistrata& Parole() { return amb->Parole; }

    void Finisci(Copione& c) {
        for (int giro = 0; giro < 100 && !c.Finito(); ++giro)
            QCoreApplication::processEvents();
    }

private slots:
    void init() {
        Prepara();
        ScansioneParlata = 1;
    }
    void cleanup() { Libera(); }

    void menu_modo_1_dice_ogni_tasto_quando_l_anello_arriva() {
        MenuGenerale* m = Menu(1);
        QCOMPARE(m->Motore.TastoCorrente, int16_t(101));
        orologio->Avanza(2000);
        QCOMPARE(Parole().Testi(),
                 (QStringList{QStringLiteral("Disegno"), QStringLiteral("Cartelle"),
                              QStringLiteral("Informazioni")}));
        QCOMPARE(Istanti(Parole().Detti), (QList<int64_t>{0, 1000, 2000}));
    }

    void voce_spenta_non_dice_nulla() {
        ScansioneParlata = 0;
        MenuGenerale* m = Menu(1);
        orologio->Avanza(3000);
        QCOMPARE(m->Motore.TastoCorrente, int16_t(104));
        QVERIFY(PremiTasto(Qt::Key_Return));
        QVERIFY(ConfigurazioniAperte() != nullptr);
        QVERIFY(Parole().Detti.isEmpty());
    }

    void modo_4_le_frecce_fanno_dire_il_tasto_e_la_pausa_dell_anello_no() {
        MenuGenerale* m = Menu(4);
        QVERIFY(PremiTasto(Qt::Key_Right));
        QVERIFY(PremiTasto(Qt::Key_Right));
        QVERIFY(PremiTasto(Qt::Key_Left));
        QCOMPARE(m->Motore.TastoCorrente, int16_t(102));
        // Time alone moves nothing in mode 4 and says nothing.
        orologio->Avanza(5000);
        QCOMPARE(Parole().Testi(),
                 (QStringList{QStringLiteral("Disegno"), QStringLiteral("Cartelle"),
                              QStringLiteral("Informazioni"), QStringLiteral("Cartelle")}));
    }

    void un_nome_nuovo_taglia_quello_in_corso() {
        Parole().MsPerLettera = 300; // "Disegno" takes 2.1 s, longer than the dwell
        Menu(1);
        orologio->Avanza(1000);
        QCOMPARE(Parole().Testi(),
                 (QStringList{QStringLiteral("Disegno"), QStringLiteral("Cartelle")}));
        QCOMPARE(Parole().Tagli, QList<int64_t>{1000});
    }

    void l_anello_aspetta_la_fine_del_nome_mai_meno_della_sosta() {
        AttendiVoce = 1;
        Parole().MsPerLettera = 300;
        MenuGenerale* m = Menu(1);
        orologio->Avanza(2099);
        QCOMPARE(m->Motore.TastoCorrente, int16_t(101));
        orologio->Avanza(1); // "Disegno" said out
        QCOMPARE(m->Motore.TastoCorrente, int16_t(102));
        QVERIFY(Parole().Tagli.isEmpty());
        // Short names: the dwell stands.
        Parole().MsPerLettera = 10;
        orologio->Avanza(2400); // "Cartelle", said at the old pace
        QCOMPARE(m->Motore.TastoCorrente, int16_t(103));
        orologio->Avanza(999);
        QCOMPARE(m->Motore.TastoCorrente, int16_t(103));
        orologio->Avanza(1);
        QCOMPARE(m->Motore.TastoCorrente, int16_t(104));
    }

    void l_anello_aspetta_ogni_nome_di_una_voce_che_risponde_dopo() {
        // As the system's voice does from its thread: the silence before each new
        // name reaches the service after the new name has been asked for.
        AttendiVoce = 1;
        Parole().MsPerLettera = 300;
        Parole().Ritardo = 40;
        MenuGenerale* m = Menu(1);
        // "Disegno" ends at 40 + 2100, "Cartelle" at 2140 + 40 + 2400, and
        // "Informazioni" at 4580 + 40 + 3600.
        orologio->Avanza(2139);
        QCOMPARE(m->Motore.TastoCorrente, int16_t(101));
        orologio->Avanza(1);
        QCOMPARE(m->Motore.TastoCorrente, int16_t(102));
        QVERIFY(VoceCorrente().StaParlando());
        orologio->Avanza(4579 - 2140);
        QCOMPARE(m->Motore.TastoCorrente, int16_t(102));
        orologio->Avanza(1);
        QCOMPARE(m->Motore.TastoCorrente, int16_t(103));
        orologio->Avanza(8219 - 4580);
        QCOMPARE(m->Motore.TastoCorrente, int16_t(103));
        orologio->Avanza(1);
        QCOMPARE(m->Motore.TastoCorrente, int16_t(104));
        QCOMPARE(Istanti(Parole().Detti), (QList<int64_t>{0, 2140, 4580, 8220}));
        QVERIFY(Parole().Tagli.isEmpty());
    }

    void una_voce_che_non_finisce_mai_non_ferma_l_anello() {
        AttendiVoce = 1;
        Parole().MsPerLettera = 1000000;
        MenuGenerale* m = Menu(1);
        orologio->Avanza(MotoreScansione::LimiteAttesaVoce + 999);
        QCOMPARE(m->Motore.TastoCorrente, int16_t(101));
        orologio->Avanza(1);
        QCOMPARE(m->Motore.TastoCorrente, int16_t(102));
    }

    void la_scelta_non_dice_nulla_e_il_bip_si_sente() {
        // "Disegno" with no folder: a beep, then the message with its "OK".
        Parole().MsPerLettera = 300;
        MenuGenerale* m = Menu(1);
        CodiceCartellaAttiva = 0;
        QList<Detto> nelMessaggio;
        int bip = 0;
        Copione c(*orologio);
        c.Attendi(1000).Esegui([&] {
            nelMessaggio = Parole().Detti;
            bip = ContatoreBip;
        });
        c.Tasto(Qt::Key_Return);
        c.Avvia();
        orologio->Avanza(500);
        QVERIFY(PremiTasto(Qt::Key_Return));
        Finisci(c);
        QVERIFY(c.Finito());
        QCOMPARE(bip, 2); // the refusal, and the panel's own at its first activation
        // "Disegno" cut at the beep, nothing said for the choice, and the panel's
        // "OK" only once the beep has been heard.
        QCOMPARE(nelMessaggio.size(), 2);
        QCOMPARE(nelMessaggio.at(0).Testo, QStringLiteral("Disegno"));
        QCOMPARE(Parole().Tagli.value(0), int64_t(500));
        QCOMPARE(nelMessaggio.at(1).Testo, QStringLiteral("OK"));
        QCOMPARE(nelMessaggio.at(1).Quando, int64_t(500 + PausaDopoBip));
        // Back on the menu the ring is told again.
        QCOMPARE(Parole().Detti.last().Testo, QStringLiteral("Disegno"));
        QCOMPARE(m->Motore.TastoCorrente, int16_t(101));
    }

    void tastiera_le_lettere_e_i_segni_per_nome() {
        ModalitàFunzionamento = 4;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Right);                                           // B
        c.Tasto(Qt::Key_Down).Tasto(Qt::Key_Down).Tasto(Qt::Key_Down);    // 32: "!"... from B, "?"
        c.Tasto(Qt::Key_Right).Tasto(Qt::Key_Right).Tasto(Qt::Key_Right); // "__"
        c.Tasto(Qt::Key_Right);                                           // "Ret"
        EseguiNelPannello(c, [] { ScriviTesto(0); });
        QCOMPARE(Parole().Testi(),
                 (QStringList{QStringLiteral("A"), QStringLiteral("B"), QStringLiteral("L"),
                              QStringLiteral("V"), QStringLiteral("punto interrogativo"),
                              QStringLiteral("apostrofo"), QStringLiteral("cancella"),
                              QStringLiteral("spazio"), QStringLiteral("a capo")}));
    }

    void tastiera_modo_1_i_tasti_funzione_per_nome() {
        ModalitàFunzionamento = 1;
        Copione c(*orologio);
        c.Attendi(65000); // the ring on "Fn"
        c.Tasto(Qt::Key_Return);
        c.Attendi(1000);
        EseguiNelPannello(c, [] { ScriviTesto(0); });
        const QStringList testi = Parole().Testi();
        QVERIFY(testi.size() >= 3);
        QCOMPARE(testi.at(testi.size() - 3), QStringLiteral("tasti funzione"));
        // The first function key has a picture and no caption: its name.
        QCOMPARE(testi.at(testi.size() - 2), QStringLiteral("Conferma"));
        QCOMPARE(testi.last(), QStringLiteral("Accesso alla Scrittura Testi"));
    }

    void lista_il_nome_della_riga_senza_numero() {
        ModalitàFunzionamento = 4;
        Menu(4);
        TipoLista = GenereLista::Cartelle;
        QString riga, vuota;
        QStringList detti;
        Copione c(*orologio);
        c.Esegui([&] {
            auto* lista = dynamic_cast<QuadroMostraLista*>(FormScansione::InPrimoPiano());
            if (lista == nullptr) return;
            for (int i = 0; i < 30 && lista->Motore.TastoCorrente != 101; ++i)
                PremiTasto(Qt::Key_Right);
            riga = lista->Tasti.value(101)->text();
            detti << Parole().Detti.last().Testo;
            // The next lines are empty with one folder.
            for (int i = 0;
                 i < 30 && !lista->Tasti.value(lista->Motore.TastoCorrente)->text().isEmpty(); ++i)
                PremiTasto(Qt::Key_Right);
            vuota = Parole().Detti.last().Testo;
            for (int i = 0; i < 40 && lista->Motore.TastoCorrente != 125; ++i)
                PremiTasto(Qt::Key_Right);
        });
        c.Tasto(Qt::Key_Return);
        c.Avvia();
        ScegliDaLista();
        QVERIFY(c.Finito());
        QVERIFY(riga.contains(QStringLiteral("[ ")));
        QCOMPARE(detti, QStringList{LeggiEtichetta(riga).Nome});
        QVERIFY(!detti.first().contains(u'['));
        QCOMPARE(vuota, QStringLiteral("riga vuota"));
    }

    void il_modulo_dice_se_il_servizio_manca_e_registra_la_voce() {
        ScansioneParlata = 0;
        MenuGenerale* m = Menu(4);
        QTest::mouseClick(m->Tasti.value(104), Qt::LeftButton);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        ConfigurazioniGenerali* c = ConfigurazioniAperte();
        QVERIFY(c != nullptr);
        QVERIFY(!c->Sensori->isVisible());
        QTest::mouseClick(c->TastoSensori, Qt::LeftButton);
        QVERIFY(c->Sensori->isVisible());
        QCOMPARE(c->TastoSensori->text(), QStringLiteral("Indietro"));
        Parole().Stato = Voce::Servizio::Assente;
        Clicca(c->Sensori->OpzioneVoce[1]);
        QVERIFY(c->Sensori->ScrittaServizioVoce->text().contains(QStringLiteral("NON trovato")));
        Parole().Stato = Voce::Servizio::InCerca;
        c->Sensori->MostraServizio();
        QVERIFY(c->Sensori->ScrittaServizioVoce->text().contains(QStringLiteral("ricerca")));
        Parole().Stato = Voce::Servizio::Presente;
        orologio->Avanza(500); // it looks again by itself
        QCOMPARE(c->Sensori->ScrittaServizioVoce->text(),
                 QStringLiteral("Servizio vocale: presente."));
        // The timings, typed as a therapist would, and the voice's wait.
        c->Sensori->ImmiAccettazione->setValue(250);
        c->Sensori->ImmiIgnora->setValue(400);
        c->Sensori->ImmiGiri->setValue(3);
        Clicca(c->Sensori->OpzionePrimaAttesa[1]);
        Clicca(c->Sensori->OpzioneAttendiVoce[1]);
        QVERIFY(c->Sensori->OpzionePrimaAttesa[1]->isChecked());
        QVERIFY(c->Sensori->OpzioneVoce[1]->isChecked());
        QVERIFY(c->Sensori->OpzioneAttendiVoce[1]->isChecked());
        QVERIFY(!c->Sensori->OpzioneAttendiVoce[0]->isChecked());
        QCOMPARE(c->ModificheEffettuate, int16_t(1));
        QCOMPARE(TempoAccettazione, 0); // nothing stored before Registra
        Schermata(c, QStringLiteral("configurazioni-sensori"));
        // The new acceptance time already counts on the message that confirms.
        Copione s(*orologio);
        s.Tasto(Qt::Key_Return).Tieni(Qt::Key_Return, 250);
        s.Avvia();
        QTest::mouseClick(c->TastoRegistraConfigurazioniGenerali, Qt::LeftButton);
        QVERIFY(s.Finito());
        QCOMPARE(TempoAccettazione, 250);
        // In the archive, with the five settings, for the next run.
        RipristinaTempiEVoce();
        LeggiConfigurazione();
        QCOMPARE(TempoAccettazione, 250);
        QCOMPARE(TempoIgnoraDopoScelta, 400);
        QCOMPARE(PrimaAttesa, int16_t(2));
        QCOMPARE(GiriPrimaDelRiposo, int16_t(3));
        QCOMPARE(ScansioneParlata, int16_t(1));
        QCOMPARE(AttendiVoce, int16_t(1));
        QCOMPARE(ModalitàFunzionamento, int16_t(4));
        // Back to the first page.
        QTest::mouseClick(c->TastoSensori, Qt::LeftButton);
        QVERIFY(!c->Sensori->isVisible());
        QCOMPARE(c->TastoSensori->text(), QStringLiteral("Sensori e voce"));
    }
};

QTEST_MAIN(ProvaScansioneParlata)
#include "test_scansione_parlata.moc"
