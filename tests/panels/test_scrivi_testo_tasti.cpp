// The keyboard in use: a one-switch user's name, the same by arrows and by the
// physical keyboard, every key's action and the keys typed on the keyboard.
#include "base/Bip.h"
#include "base/Configurazione.h"
#include "base/IconaSvg.h"
#include "base/Misure.h"
#include "panels/ProvaScriviTesto.h"
#include "panels/QuadroSettaggiFont.h"
#include "support/AmbienteProva.h"
#include "support/OrologioVirtuale.h"
#include "support/RigheProva.h"

#include <QFrame>
#include <QPlainTextEdit>
#include <QtTest>

#include <memory>

class ProvaScriviTestoTasti : public QObject, MondoTastiera {
    Q_OBJECT

private slots:
    void init() { Prepara(); }
    void cleanup() { Libera(); }

    // ---- a one-switch user and the same name by the other ways ----

    void modo_1_un_nome_di_40_lettere_a_soste_contate_e_la_41a_lettera_suona() {
        ModalitàFunzionamento = 1;
        QList<int16_t> attesi, visti;
        QList<int> bip;
        QString prima;
        int soste = 0;
        Copione c(*orologio);
        int16_t corrente = 101;
        auto scegli = [&](int16_t a, int tutti) {
            const int n = (a - corrente + tutti) % tutti;
            soste += n;
            // The ring stays on the key just picked: it needs n dwells to reach `a`.
            c.Attendi(int64_t(n) * TempoLatenzaScansione);
            attesi << a;
            c.Esegui([&] { visti << AnelloOra(); });
            c.Tasto(Qt::Key_Return);
            corrente = a;
        };
        for (QChar l : Nome)
            scegli(TastoDi(l), 70);
        c.Esegui([&] {
            prima = TestoOra();
            bip << ContatoreBip;
        });
        scegli(TastoDi(u'Z'), 70); // a 41st letter
        c.Esegui([&] { bip << ContatoreBip; });
        scegli(166, 70);
        corrente = 101; // the function keys start on confirm
        scegli(101, 12);
        QVERIFY(Apri(c, 40));
        QCOMPARE(visti, attesi);
        QCOMPARE(prima, Nome + QStringLiteral("_"));
        QCOMPARE(bip, (QList<int>{0, 1}));
        QCOMPARE(NumeroRigheScritte, int16_t(1));
        QCOMPARE(RigheScritte, (QStringList{QString(), Nome}));
        QVERIFY(soste > 40);
        QCOMPARE(orologio->InAttesa(), 0);
    }

    void modo_4_lo_stesso_nome_con_le_frecce_della_griglia() {
        ModalitàFunzionamento = 4;
        QString prima;
        QList<int> bip;
        int frecce = 0;
        Copione c(*orologio);
        int16_t corrente = 101;
        for (QChar l : Nome)
            frecce += Scegli4(c, corrente, TastoDi(l), 10, 70);
        c.Esegui([&] {
            prima = TestoOra();
            bip << ContatoreBip;
        });
        c.Tasto(Qt::Key_Return).Esegui([&] { bip << ContatoreBip; });
        Scegli4(c, corrente, 166, 10, 70);
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c, 40));
        QCOMPARE(prima, Nome + QStringLiteral("_"));
        QCOMPARE(bip, (QList<int>{0, 1}));
        QCOMPARE(RigheScritte, (QStringList{QString(), Nome}));
        // The grid is shorter than the row: at most 3 up or down and 5 across a letter.
        QVERIFY(frecce <= 40 * 8);
        QCOMPARE(orologio->InAttesa(), 0);
    }

    void modo_4_lo_stesso_nome_dalla_tastiera_con_shift() {
        ModalitàFunzionamento = 4;
        QString prima;
        QList<int> bip;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Shift, Qt::ShiftModifier); // a modifier alone is silent
        for (QChar l : Nome)
            Digita(c, Qt::Key_A + (l.unicode() - u'A'), QString(l), Qt::ShiftModifier);
        c.Esegui([&] {
            prima = TestoOra();
            bip << ContatoreBip;
        });
        Digita(c, Qt::Key_Z, QStringLiteral("Z"), Qt::ShiftModifier);
        c.Esegui([&] { bip << ContatoreBip; });
        int16_t corrente = 101;
        Scegli4(c, corrente, 166, 10, 70);
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c, 40));
        QCOMPARE(prima, Nome + QStringLiteral("_"));
        // Each typed key beeps in the key-down routine; the 41st beeps again for the limit.
        QCOMPARE(bip, (QList<int>{40, 42}));
        QCOMPARE(RigheScritte, (QStringList{QString(), Nome}));
    }

    // ---- keys and their actions ----

    void maiuscole_minuscole_cambia_il_caso_e_l_immagine_del_tasto_108() {
        ModalitàFunzionamento = 3;
        QStringList immagini;
        QList<int16_t> stati;
        Copione c(*orologio);
        auto nota = [&] {
            immagini << Quadro()
                            ->TastoFunzTesto()
                            .value(108)
                            ->property(ProprietaRisorsaIcona)
                            .toString();
            stati << Quadro()->MaiuscoleMinuscole;
        };
        c.Esegui(nota);
        int16_t corrente = 101;
        Scegli3(c, corrente, TastoDi(u'A'), 70);
        Scegli3(c, corrente, 141, 70); // à
        Scegli3(c, corrente, 166, 70);
        int16_t funzione = 101;
        Scegli3(c, funzione, 108, 12);
        c.Esegui(nota);
        Scegli3(c, funzione, 102, 12);
        Scegli3(c, corrente, TastoDi(u'A'), 70);
        Scegli3(c, corrente, 141, 70);
        Scegli3(c, corrente, 128, 70); // €
        Scegli3(c, corrente, 166, 70);
        funzione = 101;
        Scegli3(c, funzione, 108, 12);
        c.Esegui(nota);
        Scegli3(c, funzione, 101, 12);
        QVERIFY(Apri(c));
        QCOMPARE(stati, (QList<int16_t>{1, 2, 1}));
        const QString su = QStringLiteral(":/icone/tastiera/maiuscole.svg");
        const QString giu = QStringLiteral(":/icone/tastiera/minuscole.svg");
        QCOMPARE(immagini, (QStringList{su, giu, su}));
        QCOMPARE(RigheScritte, (QStringList{QString(), QStringLiteral("AÀaà€")}));
    }

    void le_immagini_di_icona_swap_sono_le_due_del_tasto_108() {
        ModalitàFunzionamento = 4;
        QString minuscole, maiuscole;
        bool nascoste = false;
        Copione c(*orologio);
        c.Esegui([&] {
            QuadroScriviTesto* q = Quadro();
            minuscole = q->IconaSwap.value(101)->property(ProprietaRisorsaIcona).toString();
            maiuscole = q->IconaSwap.value(102)->property(ProprietaRisorsaIcona).toString();
            nascoste =
                !q->IconaSwap.value(101)->isVisible() && !q->IconaSwap.value(102)->isVisible();
            q->ClickTasto(166);
            q->ClickTasto(107);
        });
        QVERIFY(Apri(c));
        QCOMPARE(minuscole, QStringLiteral(":/icone/tastiera/minuscole.svg"));
        QCOMPARE(maiuscole, QStringLiteral(":/icone/tastiera/maiuscole.svg"));
        QVERIFY(nascoste);
    }

    void del_bs_ret_e_spazio_con_i_loro_bip() {
        ModalitàFunzionamento = 3;
        QStringList testi;
        QList<int> bip;
        Copione c(*orologio);
        auto nota = [&] {
            testi << TestoOra();
            bip << ContatoreBip;
        };
        int16_t corrente = 101;
        Scegli3(c, corrente, 134, 70); // Del on "_" alone
        c.Esegui(nota);
        Scegli3(c, corrente, 137, 70); // BS with nothing left
        c.Esegui(nota);
        Scegli3(c, corrente, TastoDi(u'A'), 70);
        Scegli3(c, corrente, 135, 70);
        Scegli3(c, corrente, 136, 70);
        Scegli3(c, corrente, TastoDi(u'B'), 70);
        c.Esegui(nota);
        Scegli3(c, corrente, 137, 70);
        c.Esegui(nota);
        Scegli3(c, corrente, 166, 70);
        int16_t funzione = 101;
        Scegli3(c, funzione, 105, 12);
        Scegli3(c, funzione, 102, 12);
        corrente = 166;
        Scegli3(c, corrente, 134, 70);
        c.Esegui(nota);
        Scegli3(c, corrente, 166, 70);
        funzione = 101;
        Scegli3(c, funzione, 107, 12);
        QVERIFY(Apri(c));
        QCOMPARE(testi, (QStringList{"_", "_", "A \rB_", "A \r_", "_ \r"}));
        QCOMPARE(bip, (QList<int>{1, 2, 2, 2, 2}));
        QCOMPARE(NumeroRigheScritte, int16_t(0));
    }

    void tasti_cursore_103_106_spostano_e_suonano_ai_bordi() {
        ModalitàFunzionamento = 4;
        Riapri({QStringLiteral("ABC")});
        QStringList testi;
        QList<int> bip;
        Copione c(*orologio);
        auto nota = [&] {
            testi << TestoOra();
            bip << ContatoreBip;
        };
        int16_t f = 101;
        Scegli4(c, f, 103, 6, 12);
        c.Esegui(nota);
        c.Tasto(Qt::Key_Return).Esegui(nota);
        Scegli4(c, f, 104, 6, 12);
        c.Esegui(nota);
        Scegli4(c, f, 105, 6, 12);
        c.Esegui(nota);
        Scegli4(c, f, 103, 6, 12);
        c.Esegui(nota);
        Scegli4(c, f, 106, 6, 12);
        c.Esegui(nota);
        Scegli4(c, f, 104, 6, 12);
        c.Esegui(nota);
        Scegli4(c, f, 111, 6, 12); // one line only
        c.Esegui(nota);
        Scegli4(c, f, 112, 6, 12);
        c.Esegui(nota);
        Scegli4(c, f, 101, 6, 12);
        QVERIFY(Apri(c));
        QCOMPARE(testi, (QStringList{"AB_C", "A_BC", "AB_C", "_ABC", "_ABC", "ABC_", "ABC_", "ABC_",
                                     "ABC_"}));
        QCOMPARE(bip, (QList<int>{0, 0, 0, 0, 1, 1, 2, 3, 4}));
    }

    void modo_1_sinistra_trattiene_l_anello_e_ogni_scelta_sposta_ancora_fino_al_bip() {
        ModalitàFunzionamento = 1;
        Riapri({QStringLiteral("AB")});
        QStringList testi;
        QList<int> bip;
        QList<int16_t> anello;
        Copione c(*orologio);
        auto nota = [&] {
            testi << TestoOra();
            bip << ContatoreBip;
            anello << AnelloOra();
        };
        c.Attendi(2000).Tasto(Qt::Key_Return).Esegui(nota); // 103
        c.Attendi(2900).Esegui(nota);                       // held still
        c.Tasto(Qt::Key_Return).Esegui(nota);
        c.Tasto(Qt::Key_Return).Esegui(nota); // at the start: beep, the ring goes on
        c.Attendi(1000).Esegui(nota);
        c.Tasto(Qt::Key_Return).Esegui(nota); // 104 goes on at once
        c.Attendi(1000).Esegui(nota);
        c.Attendi(7000).Tasto(Qt::Key_Return); // 112: one line only, beep, ring goes on
        c.Esegui(nota);
        c.Attendi(1000).Tasto(Qt::Key_Return); // 101
        QVERIFY(Apri(c));
        QCOMPARE(testi, (QStringList{"A_B", "A_B", "_AB", "_AB", "_AB", "A_B", "A_B", "A_B"}));
        QCOMPARE(bip, (QList<int>{0, 0, 0, 1, 1, 1, 1, 2}));
        QCOMPARE(anello, (QList<int16_t>{103, 103, 103, 103, 104, 104, 105, 112}));
    }

    void modo_1_in_un_testo_lungo_sinistra_lascia_andare_l_anello_dopo_la_sosta_data() {
        RigheTastoScelta();
    }
    void modo_1_in_un_testo_lungo_sinistra_lascia_andare_l_anello_dopo_la_sosta() {
        QFETCH(int, scelta);
        ModalitàFunzionamento = 1;
        const Qt::Key tasto = UsaTastoScelta(scelta);
        // A text as long as one read from a file: thousands of picks to its start.
        const QString lungo = QString(3000, u'A');
        Riapri({lungo});
        QList<int16_t> anello;
        QString dopo;
        Copione c(*orologio);
        c.Attendi(2000).Tasto(tasto); // 103
        c.Attendi(1000).Tasto(tasto); // again within the pause: one more left
        c.Esegui([&] { anello << AnelloOra(); });
        c.Attendi(2999).Esegui([&] { anello << AnelloOra(); });
        // Left alone the ring walks on: 104, 105, ... to "confirm" again.
        c.Attendi(1).Esegui([&] {
            anello << AnelloOra();
            dopo = TestoOra();
        });
        c.Attendi(1000).Esegui([&] { anello << AnelloOra(); });
        c.Attendi(8000).Tasto(tasto); // 101
        QVERIFY(Apri(c));
        QCOMPARE(anello, (QList<int16_t>{103, 103, 104, 105}));
        QCOMPARE(dopo, QString(2998, u'A') + QStringLiteral("_AA"));
        QCOMPARE(ContatoreBip, 0);
        QVERIFY(NumeroRigheScritte >= 1);
    }

    void modo_1_in_alto_di_una_riga_riprende_l_anello() {
        ModalitàFunzionamento = 1;
        Riapri({QStringLiteral("AB") + Cr, QStringLiteral("C")});
        QStringList testi;
        QList<int> inAttesa;
        Copione c(*orologio);
        auto nota = [&] {
            testi << TestoOra();
            inAttesa << orologio->InAttesa();
        };
        c.Attendi(10000).Tasto(Qt::Key_Return).Esegui(nota); // 111 from line 2
        c.Attendi(12000).Tasto(Qt::Key_Return);              // a full round: 111 on line 1
        c.Esegui(nota);
        c.Tasto(Qt::Key_Return).Esegui(nota);  // the second refusal lets the ring go
        c.Attendi(2000).Tasto(Qt::Key_Return); // 101
        QVERIFY(Apri(c));
        QCOMPARE(testi, (QStringList{"_AB\rC", "_AB\rC", "_AB\rC"}));
        QCOMPARE(inAttesa, (QList<int>{1, 0, 1}));
        QCOMPARE(ContatoreBip, 2);
    }

    void annulla_107_da_0_righe_e_perde_il_testo_che_era_venuto() {
        ModalitàFunzionamento = 4;
        Riapri({QStringLiteral("AB") + Cr, QStringLiteral("C")});
        Copione c(*orologio);
        int16_t f = 101;
        Scegli4(c, f, 107, 6, 12);
        QVERIFY(Apri(c));
        QCOMPARE(NumeroRigheScritte, int16_t(0));
        QCOMPARE(RigheScritte, QStringList{QString()});
    }

    void il_109_apre_i_font_820_twips_a_sinistra_e_l_anello_della_tastiera_sta_fermo() {
        ModalitàFunzionamento = 1;
        Riapri({QStringLiteral("AB")});
        QuadroScriviTesto* tastiera = nullptr;
        QPoint atteso, posto;
        bool font = false;
        bool sospeso = false;
        QList<int16_t> anello;
        Copione c(*orologio);
        c.Esegui([&] { tastiera = Quadro(); });
        c.Attendi(8000).Tasto(Qt::Key_Return); // 109
        c.Esegui([&] {
            QuadroSettaggiFont* f = PannelloDavanti<QuadroSettaggiFont>();
            font = f != nullptr;
            if (f != nullptr) posto = f->pos();
            atteso = tastiera->frameGeometry().topLeft() - QPoint(Px(820), 0);
            sospeso = tastiera->Motore.Sospeso();
            anello << tastiera->Motore.TastoCorrente;
        });
        c.Attendi(5000).Esegui([&] { anello << tastiera->Motore.TastoCorrente; });
        c.Attendi(4000).Tasto(Qt::Key_Return); // 105 of the font panel
        c.Esegui([&] { anello << tastiera->Motore.TastoCorrente; });
        c.Attendi(999).Esegui([&] { anello << tastiera->Motore.TastoCorrente; });
        c.Attendi(1).Esegui([&] { anello << tastiera->Motore.TastoCorrente; });
        c.Attendi(7000).Tasto(Qt::Key_Return); // 105
        c.Attendi(8000).Tasto(Qt::Key_Return); // 101
        QVERIFY(Apri(c));
        QVERIFY(font);
        QVERIFY(sospeso);
        QCOMPARE(posto, atteso);
        QCOMPARE(anello, (QList<int16_t>{109, 109, 109, 109, 110}));
        QCOMPARE(RigheScritte, (QStringList{QString(), QStringLiteral("AB")}));
    }

    // ---- the physical keyboard ----

    void tasti_fisici_fuori_dall_insieme_sono_ignorati() {
        ModalitàFunzionamento = 4;
        QStringList testi;
        QList<int> bip;
        Copione c(*orologio);
        auto nota = [&] {
            testi << TestoOra();
            bip << ContatoreBip;
        };
        Digita(c, Qt::Key_A, QStringLiteral("a")); // a letter without Shift
        c.Esegui(nota);
        Digita(c, Qt::Key_Underscore, QStringLiteral("_"), Qt::ShiftModifier);
        c.Esegui(nota);
        Digita(c, Qt::Key_NumberSign, QStringLiteral("#"), Qt::ShiftModifier);
        Digita(c, Qt::Key_QuoteDbl, QStringLiteral("\""), Qt::ShiftModifier);
        Digita(c, Qt::Key_degree, QStringLiteral("°"), Qt::ShiftModifier);
        c.Esegui(nota);
        Digita(c, Qt::Key_E, QStringLiteral("€"));
        Digita(c, Qt::Key_Agrave, QStringLiteral("à"));
        Digita(c, Qt::Key_guillemotleft, QStringLiteral("«"));
        Digita(c, Qt::Key_Period, QStringLiteral("."));
        Digita(c, Qt::Key_5, QStringLiteral("5"));
        Digita(c, Qt::Key_Percent, QStringLiteral("%"), Qt::ShiftModifier);
        Digita(c, Qt::Key_BracketLeft, QStringLiteral("["));
        Digita(c, Qt::Key_Space, QStringLiteral(" "));
        c.Esegui(nota);
        int16_t corrente = 101;
        Scegli4(c, corrente, 166, 10, 70);
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(testi, (QStringList{"_", "_", "_", "€à«.5%[ _"}));
        QCOMPARE(bip, (QList<int>{1, 2, 5, 13}));
        QCOMPARE(RigheScritte, (QStringList{QString(), QStringLiteral("€à«.5%[")}));
    }

    void le_lettere_dalla_tastiera_prendono_il_caso_di_maiuscole_minuscole() {
        ModalitàFunzionamento = 4;
        Copione c(*orologio);
        Digita(c, Qt::Key_B, QStringLiteral("B"), Qt::ShiftModifier);
        int16_t corrente = 101;
        Scegli4(c, corrente, 166, 10, 70);
        int16_t f = 101;
        Scegli4(c, f, 108, 6, 12);
        Digita(c, Qt::Key_B, QStringLiteral("B"), Qt::ShiftModifier); // Caps Lock gives the same
        Scegli4(c, f, 101, 6, 12);
        QVERIFY(Apri(c));
        QCOMPARE(RigheScritte, (QStringList{QString(), QStringLiteral("Bb")}));
    }

    void i_tasti_fisici_scrivono_solo_nel_modo_4_data() { RigheDeiModi({1, 2, 3}); }
    void i_tasti_fisici_scrivono_solo_nel_modo_4() {
        QFETCH(int, modo);
        ModalitàFunzionamento = static_cast<int16_t>(modo);
        QString testo;
        int bip = -1;
        Copione c(*orologio);
        Digita(c, Qt::Key_A, QStringLiteral("A"), Qt::ShiftModifier);
        Digita(c, Qt::Key_Backspace, QStringLiteral("\b"));
        c.Esegui([&] {
            testo = TestoOra();
            bip = ContatoreBip;
            Quadro()->ClickTasto(166);
            Quadro()->ClickTasto(107);
        });
        QVERIFY(Apri(c));
        QCOMPARE(testo, QStringLiteral("_"));
        QCOMPARE(bip, 2);
    }

    void il_limite_vale_per_i_tasti_fisici_anche_per_il_backspace() {
        ModalitàFunzionamento = 4;
        QStringList testi;
        QList<int> bip;
        Copione c(*orologio);
        auto nota = [&] {
            testi << TestoOra();
            bip << ContatoreBip;
        };
        Digita(c, Qt::Key_Backspace, QStringLiteral("\b")); // nothing to remove
        c.Esegui(nota);
        for (const char* l : {"A", "B", "C"})
            Digita(c, Qt::Key_A, QString::fromLatin1(l), Qt::ShiftModifier);
        c.Esegui(nota);
        Digita(c, Qt::Key_D, QStringLiteral("D"), Qt::ShiftModifier);
        Digita(c, Qt::Key_Space, QStringLiteral(" "));
        Digita(c, Qt::Key_Backspace, QStringLiteral("\b"));
        c.Esegui(nota);
        // The on-screen BS is not measured.
        int16_t corrente = 101;
        Scegli4(c, corrente, 137, 10, 70);
        c.Esegui(nota);
        Digita(c, Qt::Key_Backspace, QStringLiteral("\b"));
        c.Esegui(nota);
        Scegli4(c, corrente, 166, 10, 70);
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c, 3));
        QCOMPARE(testi, (QStringList{"_", "ABC_", "ABC_", "AB_", "A_"}));
        QCOMPARE(bip, (QList<int>{2, 5, 11, 11, 12}));
        QCOMPARE(RigheScritte, (QStringList{QString(), QStringLiteral("A")}));
    }

    void il_tasto_canc_cancella_come_del_in_ogni_modo_data() { RigheDeiModi({1, 2, 3, 4}); }
    void il_tasto_canc_cancella_come_del_in_ogni_modo() {
        QFETCH(int, modo);
        ModalitàFunzionamento = static_cast<int16_t>(modo);
        Riapri({QStringLiteral("ABC")});
        QStringList testi;
        QList<int> bip;
        QList<int16_t> anello;
        Copione c(*orologio);
        auto nota = [&] {
            testi << TestoOra();
            bip << ContatoreBip;
            anello << AnelloOra();
        };
        c.Tasto(Qt::Key_Delete).Esegui(nota); // at the end: the beep, then the refusal of "Del"
        // The ring to 105, by the means of each mode.
        if (modo <= 2) {
            c.Attendi(4000).Tasto(Qt::Key_Return);
        } else if (modo == 3) {
            for (int i = 0; i < 4; ++i)
                c.Tasto(Qt::Key_Space);
            c.Tasto(Qt::Key_Return);
        } else {
            for (int i = 0; i < 4; ++i)
                c.Tasto(Qt::Key_Right);
            c.Tasto(Qt::Key_Return);
        }
        c.Attendi(500).Tasto(Qt::Key_Delete).Esegui(nota);
        c.Attendi(500).Esegui(nota); // a ring that walks is not disturbed
        c.Esegui([] {
            Quadro()->Motore.FermaScansione();
            Quadro()->ClickTasto(101);
        });
        QVERIFY(Apri(c));
        QCOMPARE(testi, (QStringList{"ABC_", "_BC", "_BC"}));
        QCOMPARE(bip, (QList<int>{2, 3, 3}));
        const int16_t dopo = modo <= 2 ? 106 : 105;
        QCOMPARE(anello, (QList<int16_t>{101, 105, dopo}));
        QCOMPARE(RigheScritte, (QStringList{QString(), QStringLiteral("BC")}));
    }

    void un_tasto_che_il_modo_non_usa_suona() {
        ModalitàFunzionamento = 1;
        QList<int> bip;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Space).Esegui([&] { bip << ContatoreBip; }); // the scan key of mode 1
        c.Tasto(Qt::Key_Escape).Esegui([&] { bip << ContatoreBip; });
        c.Tasto(Qt::Key_F6).Esegui([&] { bip << ContatoreBip; });
        c.Tasto(Qt::Key_Right).Esegui([&] { bip << ContatoreBip; });
        c.Esegui([] {
            Quadro()->ClickTasto(166);
            Quadro()->ClickTasto(107);
        });
        QVERIFY(Apri(c));
        QCOMPARE(bip, (QList<int>{1, 2, 3, 4}));
        QCOMPARE(ModalitàFunzionamento, int16_t(1));
    }
};

QTEST_MAIN(ProvaScriviTestoTasti)
#include "test_scrivi_testo_tasti.moc"
