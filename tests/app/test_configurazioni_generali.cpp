// The configuration form from the main menu: its frames by mode, the red
// captions, the latency box and its key filter, Registra with its three
// messages and its ends, Chiudi with its question, the direct keys; reached
// by the switch, the ring on "Chiudi" that leads back with the user's own key.
#include "app/AnelloConfigurazioni.h"
#include "app/Avvio.h"
#include "app/ConfigurazioniGenerali.h"
#include "app/MenuGenerale.h"
#include "archive/RigaConfigurazione.h"
#include "base/Bip.h"
#include "base/Misure.h"
#include "input/QuadroMessaggi.h"
#include "panels/ProvaPannello.h"
#include "support/Copione.h"
#include "support/MondoMenu.h"
#include "support/RigheProva.h"

#include <QGroupBox>
#include <QGuiApplication>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>

namespace {

bool Rossa(const QRadioButton* o) {
    return o->palette().color(QPalette::WindowText) == QColor(Qt::red);
}

// The five settings as the archive holds them now.
QList<int> Archiviate() {
    const QList<int> prima = {ModalitàFunzionamento, TastoScelta, TastoScansione,
                              TipoInversioneScansione, int(TempoLatenzaScansione)};
    LeggiConfigurazione();
    const QList<int> lette = {ModalitàFunzionamento, TastoScelta, TastoScansione,
                              TipoInversioneScansione, int(TempoLatenzaScansione)};
    ModalitàFunzionamento = int16_t(prima[0]);
    TastoScelta = int16_t(prima[1]);
    TastoScansione = int16_t(prima[2]);
    TipoInversioneScansione = int16_t(prima[3]);
    TempoLatenzaScansione = prima[4];
    return lette;
}

} // namespace

class ProvaConfigurazioniGenerali : public QObject, MondoMenu {
    Q_OBJECT

    // The menu in `modo`, stored as such, then its button 104 by the mouse.
    ConfigurazioniGenerali* Apri(int16_t modo) {
        ModalitàFunzionamento = modo;
        RegistraConfigurazione();
        MenuGenerale* m = Menu(modo);
        QTest::mouseClick(m->Tasti.value(104), Qt::LeftButton);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return ConfigurazioniAperte();
    }
    // The key a user in `modo` chooses with.
    static Qt::Key TastoDiScelta(int16_t modo) {
        return modo != 4 && TastoScelta == 2 ? Qt::Key_Space : Qt::Key_Return;
    }
    // The menu in `modo` with choice key `scelta`, stored as such, then its
    // button 104 reached and chosen by keys as the user would.
    ConfigurazioniGenerali* ApriColTasto(int16_t modo, int16_t scelta) {
        ModalitàFunzionamento = modo;
        TastoScelta = scelta;
        TastoScansione = int16_t(3 - scelta);
        RegistraConfigurazione();
        MenuGenerale* m = Menu(modo);
        if (modo == 1 || modo == 2) {
            orologio->Avanza(3 * TempoLatenzaScansione);
        } else {
            const Qt::Key passo = modo == 4     ? Qt::Key_Right
                                  : scelta == 2 ? Qt::Key_Return
                                                : Qt::Key_Space;
            for (int i = 0; i < 3; ++i)
                PremiTasto(passo);
        }
        if (m->Motore.TastoCorrente != 104) return nullptr;
        PremiTasto(TastoDiScelta(modo));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return ConfigurazioniAperte();
    }
    // A key on the latency box, which holds the focus.
    static void Premi(ConfigurazioniGenerali* c, Qt::Key tasto, const QString& testo = {}) {
        QKeyEvent giu(QEvent::KeyPress, tasto, Qt::NoModifier, testo);
        QCoreApplication::sendEvent(c->ImmiTempoLatenzaScans, &giu);
    }
    // Registra by the mouse, with the message it shows read and answered "OK".
    QString RegistraLeggendo(ConfigurazioniGenerali* c) {
        QString letto;
        Copione s(*orologio);
        s.Esegui([&] { letto = TestoQuadroMessaggi; }).Tasto(Qt::Key_Return);
        TestoQuadroMessaggi.clear();
        s.Avvia();
        QTest::mouseClick(c->TastoRegistraConfigurazioniGenerali, Qt::LeftButton);
        for (int i = 0; i < 20 && !s.Finito(); ++i)
            QCoreApplication::processEvents();
        return s.Finito() ? letto : QStringLiteral("<nessun messaggio>");
    }

private slots:
    void init() {
        Prepara();
        TastoScelta = 1;
        TastoScansione = 2;
        TipoInversioneScansione = 1;
    }
    void cleanup() { Libera(); }

    void i_quadri_seguono_la_modalita_data() {
        QTest::addColumn<int>("modo");
        QTest::addColumn<bool>("tasti");
        QTest::addColumn<bool>("inversione");
        QTest::addColumn<bool>("latenza");
        QTest::newRow("1") << 1 << false << false << true;
        QTest::newRow("2") << 2 << true << true << true;
        QTest::newRow("3") << 3 << true << false << false;
        QTest::newRow("4") << 4 << false << false << false;
    }
    void i_quadri_seguono_la_modalita() {
        QFETCH(int, modo);
        QFETCH(bool, tasti);
        QFETCH(bool, inversione);
        QFETCH(bool, latenza);
        ConfigurazioniGenerali* c = Apri(int16_t(modo));
        QVERIFY(c != nullptr);
        QVERIFY(MenùGeneraleAperto() == nullptr);
        QCOMPARE(c->windowTitle(), QStringLiteral("Programma «ZANTO» - CONFIGURAZIONI GENERALI"));
        QCOMPARE(c->QuadroTastiSceltaScansione->isVisible(), tasti);
        QCOMPARE(c->QuadroModalitàInversioneScansione->isVisible(), inversione);
        QCOMPARE(c->QuadroTempoLatenzaScans->isVisible(), latenza);
        for (int i = 0; i < 4; ++i)
            QCOMPARE(Rossa(c->OpzioneModalitàFunzionamento[i]), i == modo - 1);
        QVERIFY(Rossa(c->OpzioneTastiSceltaScansione[0]));
        QVERIFY(!Rossa(c->OpzioneTastiSceltaScansione[1]));
        QCOMPARE(c->ImmiTempoLatenzaScans->text(), QStringLiteral("1000"));
        QCOMPARE(c->ModificheEffettuate, int16_t(0));
    }

    void un_clic_cambia_la_copia_non_le_impostazioni() {
        ConfigurazioniGenerali* c = Apri(1);
        QTest::mouseClick(c->OpzioneModalitàFunzionamento[1], Qt::LeftButton);
        QCOMPARE(c->Modo, int16_t(2));
        QVERIFY(c->QuadroModalitàInversioneScansione->isVisible());
        QVERIFY(Rossa(c->OpzioneModalitàFunzionamento[1]));
        QVERIFY(!Rossa(c->OpzioneModalitàFunzionamento[0]));
        QTest::mouseClick(c->OpzioneTastiSceltaScansione[1], Qt::LeftButton);
        QCOMPARE(c->Scelta, int16_t(2));
        QCOMPARE(c->Scansione, int16_t(1));
        QCOMPARE(c->ModificheEffettuate, int16_t(1));
        QCOMPARE(ModalitàFunzionamento, int16_t(1));
        QCOMPARE(Archiviate().at(0), 1);
    }

    void il_filtro_della_latenza() {
        ConfigurazioniGenerali* c = Apri(1);
        c->ImmiTempoLatenzaScans->clear();
        const int prima = ContatoreBip;
        Premi(c, Qt::Key_7, QStringLiteral("7"));
        Premi(c, Qt::Key_Space, QStringLiteral(" "));
        Premi(c, Qt::Key_5, QStringLiteral("5"));
        QCOMPARE(ContatoreBip, prima);
        Premi(c, Qt::Key_A, QStringLiteral("a"));
        Premi(c, Qt::Key_Minus, QStringLiteral("-"));
        QCOMPARE(ContatoreBip, prima + 2);
        Premi(c, Qt::Key_Tab, QStringLiteral("\t"));
        Premi(c, Qt::Key_Return, QStringLiteral("\r"));
        QCOMPARE(ContatoreBip, prima + 2);
        QCOMPARE(c->ImmiTempoLatenzaScans->text(), QStringLiteral("7 5"));
        Premi(c, Qt::Key_Backspace, QString(QChar(8)));
        QCOMPARE(c->ImmiTempoLatenzaScans->text(), QStringLiteral("7 "));
        QCOMPARE(c->ModificheEffettuate, int16_t(1));
    }

    void registra_e_i_suoi_tre_messaggi() {
        ConfigurazioniGenerali* c = Apri(1);
        c->ImmiTempoLatenzaScans->setText(QString());
        QVERIFY(RegistraLeggendo(c).contains(QStringLiteral("può essere vuoto!")));
        c->ImmiTempoLatenzaScans->setText(QStringLiteral("499"));
        QVERIFY(RegistraLeggendo(c).contains(QStringLiteral("inferiore a 500 millisecondi!")));
        c->ImmiTempoLatenzaScans->setText(QStringLiteral("5001"));
        QVERIFY(RegistraLeggendo(c).contains(QStringLiteral("maggiore di 5000 millisecondi!")));
        QCOMPARE(Archiviate().at(4), 1000);
        for (const char* ai : {"500", "5000"}) {
            c->ImmiTempoLatenzaScans->setText(QString::fromLatin1(ai));
            QVERIFY(RegistraLeggendo(c).contains(QStringLiteral("è avvenuta correttamente!")));
            QCOMPARE(TempoLatenzaScansione, QString::fromLatin1(ai).toInt());
            QCOMPARE(Archiviate().at(4), QString::fromLatin1(ai).toInt());
        }
        // A blank between digits: the digits before it are the value tested and stored.
        c->ImmiTempoLatenzaScans->setText(QStringLiteral("700 9"));
        QVERIFY(RegistraLeggendo(c).contains(QStringLiteral("correttamente")));
        QCOMPARE(Archiviate().at(4), 700);
        QCOMPARE(c->ModificheEffettuate, int16_t(0));
    }

    void chiudi_chiede_solo_dopo_un_cambiamento() {
        ConfigurazioniGenerali* c = Apri(1);
        QTest::mouseClick(c->OpzioneModalitàFunzionamento[3], Qt::LeftButton);
        // "Annulla" holds the ring first: the form stays.
        QString domanda;
        Copione s(*orologio);
        s.Esegui([&] { domanda = TestoQuadroMessaggi; }).Tasto(Qt::Key_Return);
        s.Avvia();
        QTest::mouseClick(c->TastoChiudiConfigurazioniGenerali, Qt::LeftButton);
        QVERIFY(s.Finito());
        QVERIFY(domanda.contains(QStringLiteral("PERSI DEFINITIVAMENTE!")));
        QVERIFY(ConfigurazioniAperte() == c);
        // After Registra nothing is asked, and the menu comes back.
        RegistraLeggendo(c);
        QCOMPARE(ModalitàFunzionamento, int16_t(4));
        TestoQuadroMessaggi.clear();
        QTest::mouseClick(c->TastoChiudiConfigurazioniGenerali, Qt::LeftButton);
        QCOMPARE(TestoQuadroMessaggi, QString());
        QVERIFY(ConfigurazioniAperte() == nullptr);
        QVERIFY(MenùGeneraleAperto() != nullptr && MenùGeneraleAperto()->isVisible());
    }

    void ok_alla_domanda_perde_i_cambiamenti() {
        ConfigurazioniGenerali* c = Apri(1);
        QTest::mouseClick(c->OpzioneModalitàFunzionamento[2], Qt::LeftButton);
        // In mode 1 the question's ring walks from "Annulla" round to "OK" in a dwell.
        Copione s(*orologio);
        s.Attendi(TempoLatenzaScansione).Tasto(Qt::Key_Return);
        s.Avvia();
        QTest::mouseClick(c->TastoChiudiConfigurazioniGenerali, Qt::LeftButton);
        QVERIFY(s.Finito());
        QVERIFY(ConfigurazioniAperte() == nullptr);
        QCOMPARE(ModalitàFunzionamento, int16_t(1));
        QCOMPARE(Archiviate().at(0), 1);
    }

    void i_tasti_diretti_registrano_in_silenzio() {
        ConfigurazioniGenerali* c = Apri(1);
        TestoQuadroMessaggi.clear();
        // F4 and F5 act in mode 1 on this form.
        Premi(c, Qt::Key_F5);
        QCOMPARE(TastoScelta, int16_t(2));
        QCOMPARE(Archiviate().at(1), 2);
        QCOMPARE(TestoQuadroMessaggi, QString());
        // F8 waits for mode 2.
        Premi(c, Qt::Key_F9);
        QCOMPARE(TipoInversioneScansione, int16_t(1));
        Premi(c, Qt::Key_F7);
        QCOMPARE(ModalitàFunzionamento, int16_t(2));
        QVERIFY(c->QuadroModalitàInversioneScansione->isVisible());
        Premi(c, Qt::Key_F9);
        QCOMPARE(TipoInversioneScansione, int16_t(2));
        QCOMPARE(Archiviate().at(3), 2);
        // With mode 4 F4 does nothing and nothing is stored.
        Premi(c, Qt::Key_F12);
        QCOMPARE(ModalitàFunzionamento, int16_t(4));
        Premi(c, Qt::Key_F4);
        QCOMPARE(TastoScelta, int16_t(2));
        QCOMPARE(Archiviate().at(1), 2);
        QCOMPARE(TestoQuadroMessaggi, QString());
    }

    void raggiunta_col_tasto_il_suo_chiudi_scandisce_data() {
        QTest::addColumn<int>("modo");
        QTest::addColumn<int>("scelta");
        QTest::newRow("modo 1, scelta Invio") << 1 << 1;
        QTest::newRow("modo 1, scelta Barra") << 1 << 2;
        QTest::newRow("modo 2, scelta Barra") << 2 << 2;
        QTest::newRow("modo 3, scelta Invio") << 3 << 1;
        QTest::newRow("modo 3, scelta Barra") << 3 << 2;
        QTest::newRow("modo 4") << 4 << 1;
    }
    void raggiunta_col_tasto_il_suo_chiudi_scandisce() {
        QFETCH(int, modo);
        QFETCH(int, scelta);
        ConfigurazioniGenerali* c = ApriColTasto(int16_t(modo), int16_t(scelta));
        QVERIFY(c != nullptr);
        const QList<int> prima = Archiviate();
        QVERIFY(MenùGeneraleAperto() == nullptr);
        AnelloConfigurazioni* a = c->AnelloChiudi;
        QVERIFY(a != nullptr);
        QCOMPARE(FormScansione::InPrimoPiano(), a);
        QVERIFY(a->Corone.value(1)->isVisible());
        QVERIFY(a->TastoChiudi()->isVisible());
        QCOMPARE(c->TastoChiudiConfigurazioniGenerali, a->TastoChiudi());
        QCOMPARE(a->TastoChiudi()->text(), QStringLiteral("Chiudi"));
        // The ring stands where "Chiudi" always stood, inside the form.
        QVERIFY(c->rect().contains(a->geometry()));
        QCOMPARE(a->mapTo(c, a->TastoChiudi()->geometry().topLeft()),
                 RettangoloTwips(11800, 9700, 2700, 900).topLeft());
        QCOMPARE(a->Motore.ScansioneAttiva, int16_t(modo == 1 || modo == 2 ? 1 : 0));
        // Time passes and the form stays; the user's own key leads back.
        orologio->Avanza(10 * TempoLatenzaScansione);
        QVERIFY(ConfigurazioniAperte() == c);
        const int bip = ContatoreBip;
        QVERIFY(PremiTasto(TastoDiScelta(int16_t(modo))));
        QVERIFY(ConfigurazioniAperte() == nullptr);
        MenuGenerale* m = MenùGeneraleAperto();
        QVERIFY(m != nullptr && m->isVisible());
        QCOMPARE(FormScansione::InPrimoPiano(), m);
        QCOMPARE(ContatoreBip, bip);
        QCOMPARE(Archiviate(), prima);
        if (modo == 1 || modo == 2) {
            orologio->Avanza(TempoLatenzaScansione);
            QCOMPARE(m->Motore.TastoCorrente, int16_t(102));
        }
    }

    void aperta_col_mouse_resta_com_e_senza_anello() {
        ConfigurazioniGenerali* c = Apri(1);
        QVERIFY(c != nullptr);
        QVERIFY(c->AnelloChiudi == nullptr);
        QVERIFY(FormScansione::InPrimoPiano() == nullptr);
        QVERIFY(c->TastoChiudiConfigurazioniGenerali->isVisible());
        QCOMPARE(c->focusWidget(), c->ImmiTempoLatenzaScans);
    }

    void dopo_un_cambiamento_la_domanda_si_scandisce_e_nulla_si_registra_data() {
        RigheTastoScelta();
    }
    void dopo_un_cambiamento_la_domanda_si_scandisce_e_nulla_si_registra() {
        QFETCH(int, scelta);
        ConfigurazioniGenerali* c = ApriColTasto(1, int16_t(scelta));
        QVERIFY(c != nullptr && c->AnelloChiudi != nullptr);
        const QList<int> prima = Archiviate();
        const Qt::Key tasto = TastoDiScelta(1);
        // Someone changed a mode with the mouse and left the focus in the box.
        QTest::mouseClick(c->OpzioneModalitàFunzionamento[2], Qt::LeftButton);
        c->ImmiTempoLatenzaScans->setFocus(Qt::MouseFocusReason);
        QCOMPARE(c->ModificheEffettuate, int16_t(1));
        // The switch reaches the ring from the box; the question holds "Annulla" first.
        int16_t primo = 0;
        QString domanda;
        Copione s(*orologio);
        s.Esegui([&] {
            domanda = TestoQuadroMessaggi;
            primo = FormScansione::InPrimoPiano()->Motore.TastoCorrente;
        });
        s.Tasto(tasto);
        s.Avvia();
        Premi(c, tasto, tasto == Qt::Key_Space ? QStringLiteral(" ") : QStringLiteral("\r"));
        QVERIFY(s.Finito());
        QVERIFY(domanda.contains(QStringLiteral("PERSI DEFINITIVAMENTE!")));
        QCOMPARE(primo, int16_t(103));
        QCOMPARE(EsitoQuadroMessaggi, int16_t(3));
        QVERIFY(ConfigurazioniAperte() == c);
        QCOMPARE(c->ImmiTempoLatenzaScans->text(), QStringLiteral("1000"));
        // The ring walks again; this time the pick waits for "OK".
        QCOMPARE(c->AnelloChiudi->Motore.ScansioneAttiva, int16_t(1));
        orologio->Avanza(3 * TempoLatenzaScansione);
        Copione s2(*orologio);
        s2.Attendi(TempoLatenzaScansione).Tasto(tasto);
        s2.Avvia();
        QVERIFY(PremiTasto(tasto));
        QVERIFY(s2.Finito());
        QCOMPARE(EsitoQuadroMessaggi, int16_t(1));
        QVERIFY(ConfigurazioniAperte() == nullptr);
        QVERIFY(MenùGeneraleAperto() != nullptr);
        QCOMPARE(ModalitàFunzionamento, int16_t(1));
        QCOMPARE(Archiviate(), prima);
    }

    void col_anello_i_tasti_diretti_restano_e_cambiano_il_tasto_di_uscita() {
        ConfigurazioniGenerali* c = ApriColTasto(1, 1);
        QVERIFY(c != nullptr && c->AnelloChiudi != nullptr);
        TestoQuadroMessaggi.clear();
        // F5 on the ring, as on the rest of the form: the bar chooses from now on.
        QVERIFY(PremiTasto(Qt::Key_F5));
        QCOMPARE(TastoScelta, int16_t(2));
        QCOMPARE(Archiviate().at(1), 2);
        QCOMPARE(TestoQuadroMessaggi, QString());
        QVERIFY(ConfigurazioniAperte() == c);
        QCOMPARE(c->AnelloChiudi->Motore.ScansioneAttiva, int16_t(1));
        QVERIFY(PremiTasto(Qt::Key_Return));
        QVERIFY(ConfigurazioniAperte() == c);
        QVERIFY(PremiTasto(Qt::Key_Space));
        QVERIFY(ConfigurazioniAperte() == nullptr);
    }

    void la_chiusura_della_finestra_e_chiudi_e_non_finisce_il_programma() {
        ConfigurazioniGenerali* c = Apri(1);
        QSignalSpy ultima(qGuiApp, &QGuiApplication::lastWindowClosed);
        QTest::mouseClick(c->OpzioneModalitàFunzionamento[3], Qt::LeftButton);
        // The question comes as for "Chiudi"; "Annulla" keeps the form.
        QString domanda;
        Copione s(*orologio);
        s.Esegui([&] { domanda = TestoQuadroMessaggi; }).Tasto(Qt::Key_Return);
        s.Avvia();
        QVERIFY(!c->close());
        QVERIFY(s.Finito());
        QVERIFY(domanda.contains(QStringLiteral("PERSI DEFINITIVAMENTE!")));
        QVERIFY(ConfigurazioniAperte() == c && c->isVisible());
        // "OK" goes back to the menu, nothing stored, the program still there.
        Copione s2(*orologio);
        s2.Attendi(TempoLatenzaScansione).Tasto(Qt::Key_Return);
        s2.Avvia();
        QVERIFY(!c->close());
        QVERIFY(s2.Finito());
        QVERIFY(ConfigurazioniAperte() == nullptr);
        QVERIFY(MenùGeneraleAperto() != nullptr && MenùGeneraleAperto()->isVisible());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(ultima.count(), 0);
        QCOMPARE(Archiviate().at(0), 1);
    }

    void f11_con_la_latenza_vuota_avvisa_e_non_cambia() {
        ConfigurazioniGenerali* c = Apri(1);
        c->ImmiTempoLatenzaScans->clear();
        QString letto;
        Copione s(*orologio);
        s.Esegui([&] { letto = TestoQuadroMessaggi; }).Tasto(Qt::Key_Return);
        s.Avvia();
        Premi(c, Qt::Key_F11);
        QVERIFY(s.Finito());
        QVERIFY(letto.contains(QStringLiteral("può essere vuoto!")));
        QCOMPARE(ModalitàFunzionamento, int16_t(1));
        QCOMPARE(Archiviate().at(0), 1);
        // The working copy keeps the choice.
        QCOMPARE(c->Modo, int16_t(3));
    }
};

QTEST_MAIN(ProvaConfigurazioniGenerali)
#include "test_configurazioni_generali.moc"
