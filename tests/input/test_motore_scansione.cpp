// The scanning engine, driven through the main menu (and one plain scanning
// form) with keys and the virtual clock.
#include "app/ConfigurazioniGenerali.h"
#include "app/MenuGenerale.h"
#include "app/VisualizzaInformazioni.h"
#include "archive/Archivi.h"
#include "base/Bip.h"
#include "base/Configurazione.h"
#include "input/MotoreScansione.h"
#include "support/AmbienteProva.h"
#include "support/Copione.h"
#include "support/MondoMenu.h"
#include "support/OrologioVirtuale.h"
#include "support/Sonde.h"

#include <QKeyEvent>
#include <QtTest>

#include <memory>

namespace {

// A scanning screen with three buttons and no rule of its own.
class FormProva : public FormScansione {
public:
    FormProva() : FormScansione(101, 103) {
        CreaTasti({{101, 100, 100, 1000, 500, QStringLiteral("Uno"), QStringLiteral("Primo")},
                   {102, 1300, 100, 1000, 500, QStringLiteral("Due"), QStringLiteral("Secondo")},
                   {103, 2500, 100, 1000, 500, QStringLiteral("Tre"), QStringLiteral("Terzo")}},
                  60);
        resize(300, 100);
    }
    void ClickTasto(int16_t indice) override { Premuti.append(indice); }
    QList<int16_t> Premuti;
};

int ModoRegistrato() {
    return LeggiValore(
               PercorsoConfigurazione(),
               QStringLiteral("SELECT \"ModalitàFunzionamento\" FROM ConfigurazioniGenerali"))
        .toInt();
}

} // namespace

class ProvaMotoreScansione : public QObject, MondoMenu {
    Q_OBJECT

    static int16_t Anello(const MenuGenerale* m) { return m->Motore.TastoCorrente; }

private slots:
    void init() { Prepara(); }
    void cleanup() { Libera(); }

    void primo_avvio_in_modo_1_sosta_intera_poi_avanti() {
        MenuGenerale* m = Menu(1);
        QCOMPARE(m->Motore.FormAttivato, int16_t(1));
        QCOMPARE(CoroneVisibili(*m), QList<int16_t>{101});
        orologio->Avanza(999);
        QCOMPARE(Anello(m), int16_t(101));
        orologio->Avanza(1);
        QCOMPARE(Anello(m), int16_t(102));
        QCOMPARE(CoroneVisibili(*m), QList<int16_t>{102});
        orologio->Avanza(1000);
        QCOMPARE(Anello(m), int16_t(103));
    }

    void dall_ultimo_tasto_si_torna_al_primo() {
        MenuGenerale* m = Menu(1);
        orologio->Avanza(4000);
        QCOMPARE(Anello(m), int16_t(105));
        orologio->Avanza(1000);
        QCOMPARE(Anello(m), int16_t(101));
    }

    void all_indietro_dal_primo_si_va_all_ultimo() {
        MenuGenerale* m = Menu(2);
        QVERIFY(PremiTasto(Qt::Key_Space)); // scan key inverts at once (type 1)
        QCOMPARE(m->Motore.PassoScansione, int16_t(-1));
        QCOMPARE(Anello(m), int16_t(101)); // not redrawn until the next tick
        orologio->Avanza(1000);
        QCOMPARE(Anello(m), int16_t(105));
    }

    void modo_2_tipo_2_quattro_pressioni_con_due_pause_riportano_avanti() {
        TipoInversioneScansione = 2;
        MenuGenerale* m = Menu(2);
        const QList<QPair<int16_t, int16_t>> attesi = {{2, 0}, {2, -1}, {1, 0}, {1, 1}};
        for (const auto& [verso, passo] : attesi) {
            QVERIFY(PremiTasto(Qt::Key_Space));
            QCOMPARE(m->Motore.VersoInversione, verso);
            QCOMPARE(m->Motore.PassoScansione, passo);
        }
        orologio->Avanza(1000);
        QCOMPARE(Anello(m), int16_t(102));
    }

    void in_pausa_l_anello_resta_fermo_ma_il_giro_continua() {
        TipoInversioneScansione = 2;
        MenuGenerale* m = Menu(2);
        QVERIFY(PremiTasto(Qt::Key_Space));
        orologio->Avanza(5000);
        QCOMPARE(Anello(m), int16_t(101));
        QCOMPARE(orologio->InAttesa(), 1);
    }

    void la_pausa_sopravvive_alla_scelta() {
        TipoInversioneScansione = 2;
        MenuGenerale* m = Menu(2);
        // With no active folder "Disegna" beeps, tells why, and resumes.
        CodiceCartellaAttiva = 0;
        orologio->Avanza(1000);
        QCOMPARE(Anello(m), int16_t(102));
        orologio->Avanza(4000);
        QCOMPARE(Anello(m), int16_t(101));
        QVERIFY(PremiTasto(Qt::Key_Space)); // pause
        Copione c(*orologio);
        c.Tasto(Qt::Key_Return); // the message's "OK"
        c.Avvia();
        QVERIFY(PremiTasto(Qt::Key_Return));
        QVERIFY(c.Finito());
        QCOMPARE(ContatoreBip, 2); // the button's beep and the message's own
        QCOMPARE(m->Motore.ScansioneAttiva, int16_t(1));
        orologio->Avanza(3000);
        QCOMPARE(Anello(m), int16_t(101));
        QVERIFY(PremiTasto(Qt::Key_Space)); // from the pause, backwards
        orologio->Avanza(1000);
        QCOMPARE(Anello(m), int16_t(105));
    }

    void da_tipo_2_a_tipo_1_in_pausa_la_prossima_pressione_da_passo_1() {
        TipoInversioneScansione = 2;
        MenuGenerale* m = Menu(2);
        QVERIFY(PremiTasto(Qt::Key_Space));
        QCOMPARE(m->Motore.PassoScansione, int16_t(0));
        QVERIFY(PremiTasto(Qt::Key_F8));
        QCOMPARE(TipoInversioneScansione, int16_t(1));
        QVERIFY(PremiTasto(Qt::Key_Space));
        QCOMPARE(m->Motore.PassoScansione, int16_t(1));
    }

    void F11_nel_giro_ferma_subito_e_l_anello_resta() {
        MenuGenerale* m = Menu(1);
        orologio->Avanza(1000);
        QVERIFY(PremiTasto(Qt::Key_F11));
        QCOMPARE(ModalitàFunzionamento, int16_t(3));
        QCOMPARE(m->Motore.ScansioneAttiva, int16_t(0));
        QCOMPARE(orologio->InAttesa(), 0);
        orologio->Avanza(5000);
        QCOMPARE(Anello(m), int16_t(102));
        QCOMPARE(CoroneVisibili(*m), QList<int16_t>{102});
    }

    void dopo_F12_invio_e_morto_fino_alla_prima_freccia() {
        MenuGenerale* m = Menu(1);
        orologio->Avanza(2000); // on 103, "Informazioni", which opens its form when fired
        QVERIFY(PremiTasto(Qt::Key_F12));
        QCOMPARE(TastoPredefinito(*m), int16_t(0));
        QVERIFY(PremiTasto(Qt::Key_Return));
        QCOMPARE(ContatoreBip, 0);
        QVERIFY(InformazioniAperte() == nullptr);
        QVERIFY(PremiTasto(Qt::Key_Right));
        QCOMPARE(Anello(m), int16_t(104));
        QCOMPARE(TastoPredefinito(*m), int16_t(104));
        QVERIFY(PremiTasto(Qt::Key_Return));
        QVERIFY(ConfigurazioniAperte() != nullptr);
    }

    void modo_4_frecce_avanti_e_indietro_con_giro() {
        MenuGenerale* m = Menu(4);
        QCOMPARE(TastoPredefinito(*m), int16_t(101));
        QVERIFY(PremiTasto(Qt::Key_Left));
        QCOMPARE(Anello(m), int16_t(105));
        QVERIFY(PremiTasto(Qt::Key_Up));
        QCOMPARE(Anello(m), int16_t(104));
        QVERIFY(PremiTasto(Qt::Key_Down));
        QVERIFY(PremiTasto(Qt::Key_Right));
        QCOMPARE(Anello(m), int16_t(101));
        QCOMPARE(orologio->InAttesa(), 0);
    }

    void modo_3_il_tasto_di_scansione_avanza_di_un_passo() {
        MenuGenerale* m = Menu(3);
        QCOMPARE(orologio->InAttesa(), 0);
        QVERIFY(PremiTasto(Qt::Key_Space));
        QCOMPARE(Anello(m), int16_t(102));
        // The menu keeps no default flag in mode 3: Enter is the choice key here.
        QCOMPARE(TastoPredefinito(*m), int16_t(0));
        // "Cartelle" opens the list; there the scan key walks to "back" (125).
        Copione c(*orologio);
        for (int i = 101; i < 125; ++i)
            c.Tasto(Qt::Key_Space);
        c.Tasto(Qt::Key_Return);
        c.Avvia();
        QVERIFY(PremiTasto(Qt::Key_Return));
        QVERIFY(c.Finito());
        QVERIFY(c.Problemi.isEmpty());
        QCOMPARE(FormScansione::InPrimoPiano(), m);
        QCOMPARE(Anello(m), int16_t(102));
    }

    void modo_3_invio_aziona_il_tasto_corrente_per_il_flag_predefinito() {
        ModalitàFunzionamento = 3;
        TastoScelta = 2; // Space chooses, Enter scans: the flag wins all the same
        TastoScansione = 1;
        FormProva form;
        form.Motore.TastoCorrente = 101;
        form.show();
        QCoreApplication::processEvents();
        form.AggiornaCorone();
        QCOMPARE(TastoPredefinito(form), int16_t(101));
        QVERIFY(PremiTasto(Qt::Key_Return));
        QCOMPARE(form.Premuti, QList<int16_t>{101});
        QCOMPARE(form.Motore.TastoCorrente, int16_t(101));
    }

    void l_ambiente_di_disegno_sente_dove_sta_l_anello() {
        ModalitàFunzionamento = 1;
        QStringList avvisi;
        AvvisoComandoAmbiente = [&](const QString& s) { avvisi.append(s); };
        FormProva form;
        form.InformaAmbiente = true;
        form.Motore.TastoCorrente = 101;
        form.show();
        QCoreApplication::processEvents();
        orologio->Avanza(2000);
        QCOMPARE(avvisi, (QStringList{"Primo", "Secondo", "Terzo"}));
        form.InformaAmbiente = false;
        orologio->Avanza(1000);
        QCOMPARE(avvisi.size(), 3);
        form.Motore.FermaScansione();
    }

    void spazio_in_modo_4_non_fa_nulla() {
        MenuGenerale* m = Menu(4);
        QVERIFY(PremiTasto(Qt::Key_Space));
        QCOMPARE(Anello(m), int16_t(101));
        QCOMPARE(ContatoreBip, 0);
    }

    void invio_in_modo_1_con_scelta_spazio_non_fa_nulla() {
        TastoScelta = 2;
        TastoScansione = 1;
        MenuGenerale* m = Menu(1);
        orologio->Avanza(2000);
        QVERIFY(PremiTasto(Qt::Key_Return));
        QCOMPARE(ContatoreBip, 0);
        QVERIFY(InformazioniAperte() == nullptr);
        QCOMPARE(m->Motore.ScansioneAttiva, int16_t(1));
        QVERIFY(PremiTasto(Qt::Key_Space)); // the live key: "Informazioni"
        QVERIFY(InformazioniAperte() != nullptr);
    }

    void F4_in_modo_1_non_cambia_i_tasti_ma_registra_e_riavvia() {
        TastoScelta = 2;
        TastoScansione = 1;
        MenuGenerale* m = Menu(1);
        orologio->Avanza(600);
        QVERIFY(PremiTasto(Qt::Key_F4));
        QCOMPARE(TastoScelta, int16_t(2));
        QCOMPARE(LeggiValore(PercorsoConfigurazione(),
                             QStringLiteral("SELECT TastoScelta FROM ConfigurazioniGenerali"))
                     .toInt(),
                 2);
        // Restarted: a full dwell from the key.
        orologio->Avanza(999);
        QCOMPARE(Anello(m), int16_t(101));
        orologio->Avanza(1);
        QCOMPARE(Anello(m), int16_t(102));
    }

    void F5_in_modo_4_non_cambia_i_tasti_ma_registra_e_ferma() {
        MenuGenerale* m = Menu(4);
        QVERIFY(PremiTasto(Qt::Key_F5));
        QCOMPARE(TastoScelta, int16_t(1));
        QCOMPARE(ModoRegistrato(), 4);
        QCOMPARE(m->Motore.ScansioneAttiva, int16_t(0));
        QCOMPARE(orologio->InAttesa(), 0);
    }

    void F4_e_F5_in_modo_2_scambiano_i_tasti() {
        Menu(2);
        QVERIFY(PremiTasto(Qt::Key_F5));
        QCOMPARE(TastoScelta, int16_t(2));
        QCOMPARE(TastoScansione, int16_t(1));
        QVERIFY(PremiTasto(Qt::Key_F4));
        QCOMPARE(TastoScelta, int16_t(1));
        QCOMPARE(TastoScansione, int16_t(2));
    }

    void F8_e_F9_agiscono_solo_in_modo_2() {
        Menu(3);
        QVERIFY(PremiTasto(Qt::Key_F9));
        QCOMPARE(TipoInversioneScansione, int16_t(1));
        QVERIFY(PremiTasto(Qt::Key_F7));
        QVERIFY(PremiTasto(Qt::Key_F9));
        QCOMPARE(TipoInversioneScansione, int16_t(2));
    }

    void un_tasto_diretto_registra_la_riga_subito() {
        Menu(1);
        QCOMPARE(ModoRegistrato(), 1);
        QVERIFY(PremiTasto(Qt::Key_F12));
        QCOMPARE(ModoRegistrato(), 4);
        QVERIFY(PremiTasto(Qt::Key_F11));
        QCOMPARE(ModoRegistrato(), 3);
    }

    void F10_e_ignorato() {
        MenuGenerale* m = Menu(1);
        QVERIFY(PremiTasto(Qt::Key_F10));
        QCOMPARE(ModalitàFunzionamento, int16_t(1));
        orologio->Avanza(1000);
        QCOMPARE(Anello(m), int16_t(102));
        QCOMPARE(ContatoreBip, 0);
    }

    void F6_nel_giro_riparte_con_una_sosta_intera() {
        MenuGenerale* m = Menu(1);
        orologio->Avanza(600);
        QVERIFY(PremiTasto(Qt::Key_F6));
        QCOMPARE(orologio->InAttesa(), 1);
        orologio->Avanza(999);
        QCOMPARE(Anello(m), int16_t(101));
        orologio->Avanza(1);
        QCOMPARE(Anello(m), int16_t(102));
    }

    void la_nuova_latenza_vale_per_l_attesa_in_corso() {
        MenuGenerale* m = Menu(1);
        orologio->Avanza(300);
        TempoLatenzaScansione = 500;
        MotoreScansione::LatenzaCambiata();
        orologio->Avanza(199);
        QCOMPARE(Anello(m), int16_t(101));
        orologio->Avanza(1);
        QCOMPARE(Anello(m), int16_t(102));
        TempoLatenzaScansione = 2000;
        MotoreScansione::LatenzaCambiata();
        orologio->Avanza(1999);
        QCOMPARE(Anello(m), int16_t(102));
        orologio->Avanza(1);
        QCOMPARE(Anello(m), int16_t(103));
    }

    void la_latenza_e_riletta_anche_senza_avviso() {
        MenuGenerale* m = Menu(1);
        TempoLatenzaScansione = 1500; // longer: the tick finds the dwell not over
        orologio->Avanza(1000);
        QCOMPARE(Anello(m), int16_t(101));
        orologio->Avanza(500);
        QCOMPARE(Anello(m), int16_t(102));
    }

    void con_l_anello_fermo_non_resta_alcuna_attesa() {
        MenuGenerale* m = Menu(1);
        QCOMPARE(orologio->InAttesa(), 1);
        orologio->Avanza(2000);
        QCOMPARE(orologio->InAttesa(), 1); // one wake-up per dwell, never a busy loop
        QVERIFY(PremiTasto(Qt::Key_F11));
        QCOMPARE(orologio->InAttesa(), 0);
        QCOMPARE(Anello(m), int16_t(103));
    }

    void i_caratteri_non_arrivano_ad_alcun_controllo() {
        MenuGenerale* m = Menu(4);
        QVERIFY(PremiTasto(Qt::Key_A));
        QVERIFY(PremiTasto(Qt::Key_Escape));
        QVERIFY(PremiTasto(Qt::Key_Tab));
        QCOMPARE(Anello(m), int16_t(101));
        QCOMPARE(ContatoreBip, 0);
        QVERIFY(m->isVisible());
        QCOMPARE(QApplication::focusWidget(), m->FocusFix);
    }

    void un_tasto_tenuto_premuto_non_sceglie_di_nuovo() {
        MenuGenerale* m = Menu(4);
        QKeyEvent ripetuto(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier, QString(), true);
        QCoreApplication::sendEvent(m->FocusFix, &ripetuto);
        QCOMPARE(Anello(m), int16_t(101));
    }

    void i_modificatori_sono_registrati_ad_ogni_tasto() {
        MenuGenerale* m = Menu(4);
        QVERIFY(PremiTasto(Qt::Key_Right, Qt::ShiftModifier | Qt::AltModifier));
        QCOMPARE(m->Motore.ShiftPremuto, int16_t(-1));
        QCOMPARE(m->Motore.CtrlPremuto, int16_t(0));
        QCOMPARE(m->Motore.AltPremuto, int16_t(-1));
        QVERIFY(PremiTasto(Qt::Key_Right));
        QCOMPARE(m->Motore.ShiftPremuto, int16_t(0));
    }

    void la_prima_attivazione_avviene_una_volta_sola() {
        MenuGenerale* m = Menu(1);
        QCOMPARE(m->Motore.FormAttivato, int16_t(1));
        orologio->Avanza(1000);
        m->Motore.FermaScansione();
        m->Attiva(); // a later activation neither moves the focus nor starts a loop
        QCOMPARE(orologio->InAttesa(), 0);
        QCOMPARE(Anello(m), int16_t(102));
    }
};

QTEST_MAIN(ProvaMotoreScansione)
#include "test_motore_scansione.moc"
