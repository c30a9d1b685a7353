// The information form from the main menu: its lines and the information text
// of the program folder, Enter or the mode's choice key to leave in every mode,
// every other key a beep, "Chiudi" by the mouse or the window's own close
// button, and the program's own text when the folder's is gone.
#include "app/Avvio.h"
#include "app/MenuGenerale.h"
#include "app/VisualizzaInformazioni.h"
#include "archive/Archivi.h"
#include "base/Bip.h"
#include "base/Configurazione.h"
#include "base/Misure.h"
#include "input/QuadroMessaggi.h"
#include "support/Copione.h"
#include "support/MondoMenu.h"
#include "support/RigheProva.h"

#include <QFile>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QTextEdit>
#include <QtTest>

class ProvaVisualizzaInformazioni : public QObject, MondoMenu {
    Q_OBJECT

    // The menu in `modo`, then its button 103 reached and fired as a user does.
    VisualizzaInformazioni* Apri(int16_t modo) {
        MenuGenerale* m = Menu(modo);
        if (modo == 4) {
            PremiTasto(Qt::Key_Right);
            PremiTasto(Qt::Key_Right);
        } else {
            orologio->Avanza(2 * TempoLatenzaScansione);
        }
        if (m->Motore.TastoCorrente != 103) return nullptr;
        PremiTasto(modo != 4 && TastoScelta == 2 ? Qt::Key_Space : Qt::Key_Return);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return InformazioniAperte();
    }
    // A key as it reaches the form: on the text box, which holds the focus.
    static void Premi(VisualizzaInformazioni* v, int tasto) {
        QTest::keyClick(v->CasellaInformazioni, Qt::Key(tasto));
    }

private slots:
    void init() {
        Prepara();
        RiempiMessaggiAvvio();
    }
    void cleanup() { Libera(); }

    void il_menu_apre_le_informazioni_al_posto_suo() {
        VisualizzaInformazioni* v = Apri(4);
        QVERIFY(v != nullptr);
        QVERIFY(v->isVisible());
        QVERIFY(MenùGeneraleAperto() == nullptr);
        QCOMPARE(v->windowTitle(), QStringLiteral("Progetto «ZANTO» - Informazioni Programma"));
        QCOMPARE(v->ScrittaInformazioni[0]->text(), MessaggiAvvio.value(5));
        QCOMPARE(v->ScrittaInformazioni[1]->text(), MessaggiAvvio.value(6));
        QCOMPARE(v->ScrittaInformazioni[2]->text(), MessaggiAvvio.value(7));
        QCOMPARE(v->CasellaInformazioni->geometry(), RettangoloTwips(1620, 4530, 12075, 6390));
        QCOMPARE(v->TastoRitornoMenùGenerale->geometry(), RettangoloTwips(13830, 120, 1245, 1080));
        // The text of the program folder, read by the program's reader.
        QVERIFY(QFile::exists(PercorsoInformazioni()));
        const QString testo = v->CasellaInformazioni->toPlainText();
        QVERIFY(testo.contains(QStringLiteral("ZANTO è un programma di disegno")));
        QVERIFY(testo.contains(QStringLiteral("Le quattro modalità di funzionamento")));
        QVERIFY(testo.contains(QStringLiteral("F12")));
        QVERIFY(!testo.contains(QStringLiteral("\\par")));
        QVERIFY(amb->Scatole.isEmpty());
    }

    void invio_esce_e_ogni_altro_tasto_suona() {
        VisualizzaInformazioni* v = Apri(4);
        QVERIFY(v != nullptr);
        const int prima = ContatoreBip;
        for (int tasto : {Qt::Key_A, Qt::Key_Space, Qt::Key_Down, Qt::Key_Escape, Qt::Key_F6})
            Premi(v, tasto);
        QCOMPARE(ContatoreBip, prima + 5);
        // A modifier alone is no key.
        Premi(v, Qt::Key_Shift);
        QCOMPARE(ContatoreBip, prima + 5);
        QVERIFY(InformazioniAperte() == v);
        Premi(v, Qt::Key_Return);
        QVERIFY(InformazioniAperte() == nullptr);
        QVERIFY(MenùGeneraleAperto() != nullptr);
        QVERIFY(MenùGeneraleAperto()->isVisible());
        QCOMPARE(ContatoreBip, prima + 5);
    }

    void con_un_solo_tasto_si_entra_e_si_esce() {
        VisualizzaInformazioni* v = Apri(1);
        QVERIFY(v != nullptr);
        // No ring here: time passes and nothing moves or closes.
        orologio->Avanza(10 * TempoLatenzaScansione);
        QVERIFY(InformazioniAperte() == v);
        Premi(v, Qt::Key_Return);
        QVERIFY(InformazioniAperte() == nullptr);
        MenuGenerale* m = MenùGeneraleAperto();
        QVERIFY(m != nullptr);
        // The menu walks again from its first button.
        QCOMPARE(m->Motore.TastoCorrente, int16_t(101));
        orologio->Avanza(TempoLatenzaScansione);
        QCOMPARE(m->Motore.TastoCorrente, int16_t(102));
    }

    void in_modo_1_esce_col_tasto_di_scelta_qualunque_sia_data() { RigheTastoScelta(); }
    void in_modo_1_esce_col_tasto_di_scelta_qualunque_sia() {
        QFETCH(int, scelta);
        const Qt::Key tasto = UsaTastoScelta(scelta);
        // In by the choice key on the menu's ring, out by the same key.
        VisualizzaInformazioni* v = Apri(1);
        QVERIFY(v != nullptr);
        QVERIFY(v->ScrittaInformazioni[3]->text().contains(scelta == 2 ? QStringLiteral("Barra")
                                                                       : QStringLiteral("Invio")));
        orologio->Avanza(3 * TempoLatenzaScansione);
        const int prima = ContatoreBip;
        Premi(v, tasto);
        QVERIFY(InformazioniAperte() == nullptr);
        QCOMPARE(ContatoreBip, prima);
        MenuGenerale* m = MenùGeneraleAperto();
        QVERIFY(m != nullptr && m->isVisible());
        QCOMPARE(m->Motore.TastoCorrente, int16_t(101));
        orologio->Avanza(TempoLatenzaScansione);
        QCOMPARE(m->Motore.TastoCorrente, int16_t(102));
    }

    void con_la_barra_di_scelta_invio_esce_ancora_e_gli_altri_suonano() {
        TastoScelta = 2;
        TastoScansione = 1;
        VisualizzaInformazioni* v = Apri(2);
        QVERIFY(v != nullptr);
        const int prima = ContatoreBip;
        for (int tasto : {Qt::Key_A, Qt::Key_Down, Qt::Key_Escape})
            Premi(v, tasto);
        QCOMPARE(ContatoreBip, prima + 3);
        QVERIFY(InformazioniAperte() == v);
        Premi(v, Qt::Key_Return);
        QVERIFY(InformazioniAperte() == nullptr);
        QVERIFY(MenùGeneraleAperto() != nullptr);
    }

    void il_tremito_dopo_la_scelta_non_fa_uscire() {
        TastoScelta = 2;
        TastoScansione = 1;
        TempoIgnoraDopoScelta = 400;
        VisualizzaInformazioni* v = Apri(1);
        QVERIFY(v != nullptr);
        orologio->Avanza(100);
        Premi(v, Qt::Key_Space);
        QVERIFY(InformazioniAperte() == v);
        orologio->Avanza(400);
        Premi(v, Qt::Key_Space);
        QVERIFY(InformazioniAperte() == nullptr);
        QVERIFY(MenùGeneraleAperto() != nullptr);
    }

    void la_chiusura_della_finestra_torna_al_menu_senza_finire_il_programma() {
        VisualizzaInformazioni* v = Apri(1);
        QVERIFY(v != nullptr);
        QSignalSpy ultima(qGuiApp, &QGuiApplication::lastWindowClosed);
        // The window's own close button, as a window manager sends it.
        QVERIFY(!v->close());
        QVERIFY(InformazioniAperte() == nullptr);
        QVERIFY(MenùGeneraleAperto() != nullptr && MenùGeneraleAperto()->isVisible());
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QCOMPARE(ultima.count(), 0);
        QVERIFY(amb->Scatole.isEmpty());
    }

    void chiudi_col_mouse() {
        VisualizzaInformazioni* v = Apri(4);
        QVERIFY(v != nullptr);
        QTest::mouseClick(v->TastoRitornoMenùGenerale, Qt::LeftButton);
        QVERIFY(InformazioniAperte() == nullptr);
        QVERIFY(MenùGeneraleAperto() != nullptr);
    }

    void senza_il_file_della_cartella_il_testo_del_programma() {
        QVERIFY(QFile::remove(PercorsoInformazioni()));
        VisualizzaInformazioni* v = Apri(4);
        QVERIFY(v != nullptr);
        QVERIFY(v->CasellaInformazioni->toPlainText().contains(QStringLiteral("ZANTO")));
        QVERIFY(amb->Scatole.isEmpty());
    }

    void un_file_rovinato_e_l_errore_del_lettore() {
        QFile f(PercorsoInformazioni());
        QVERIFY(f.open(QIODevice::WriteOnly | QIODevice::Truncate));
        f.write("{\\rtf1 non finisce");
        f.close();
        VisualizzaInformazioni* v = Apri(4);
        QVERIFY(v != nullptr);
        QCOMPARE(amb->Scatole.size(), 1);
        QVERIFY(amb->Scatole.first().Testo.contains(QStringLiteral("321")));
        QCOMPARE(v->CasellaInformazioni->toPlainText(), QString());
        // The form still leaves by Enter.
        Premi(v, Qt::Key_Return);
        QVERIFY(InformazioniAperte() == nullptr);
    }
};

QTEST_MAIN(ProvaVisualizzaInformazioni)
#include "test_visualizza_informazioni.moc"
