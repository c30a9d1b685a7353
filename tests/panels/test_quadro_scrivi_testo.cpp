// The on-screen keyboard, opened as its callers open it and driven by keys on
// the virtual clock: the form, the text's edge cases, the scanning of both sets.
#include "base/Bip.h"
#include "base/Configurazione.h"
#include "base/IconaSvg.h"
#include "base/Misure.h"
#include "panels/ProvaScriviTesto.h"
#include "panels/QuadroSettaggiFont.h"
#include "support/AmbienteProva.h"
#include "support/OrologioVirtuale.h"

#include <QFrame>
#include <QPlainTextEdit>
#include <QtTest>

#include <memory>

class ProvaQuadroScriviTesto : public QObject, MondoTastiera {
    Q_OBJECT

private slots:
    void init() { Prepara(); }
    void cleanup() { Libera(); }

    // ---- the form ----

    void titolo_misure_e_posti_dei_tasti() {
        ModalitàFunzionamento = 3;
        QString titolo;
        QSize cliente;
        QRect a, j, z, parentesi, f101, f106, f107, f112, cornice, immi;
        Copione c(*orologio);
        c.Esegui([&] {
            QuadroScriviTesto* q = Quadro();
            titolo = q->windowTitle();
            cliente = q->size();
            a = q->TastoScriviTesto().value(101)->geometry();
            j = q->TastoScriviTesto().value(110)->geometry();
            z = q->TastoScriviTesto().value(126)->geometry();
            parentesi = q->TastoScriviTesto().value(170)->geometry();
            f101 = q->TastoFunzTesto().value(101)->geometry();
            f106 = q->TastoFunzTesto().value(106)->geometry();
            f107 = q->TastoFunzTesto().value(107)->geometry();
            f112 = q->TastoFunzTesto().value(112)->geometry();
            cornice = q->QuadroTastiFunzioneTesto->geometry();
            immi = q->ImmiTesto->geometry();
        });
        c.Esegui([] { Quadro()->ClickTasto(166); }).Tasto(Qt::Key_Space);
        c.Tasto(Qt::Key_Space).Tasto(Qt::Key_Space).Tasto(Qt::Key_Space).Tasto(Qt::Key_Space);
        c.Tasto(Qt::Key_Space).Tasto(Qt::Key_Return); // 107
        QVERIFY(Apri(c));
        QCOMPARE(titolo, QStringLiteral("Programma «ZANTO»  -  Scrittura Testi"));
        QCOMPARE(cliente, QSize(Px(5565), Px(8640)));
        // Keys 465 twips square with a pitch of 555, in rows of ten.
        QCOMPARE(a.size(), QSize(Px(465), Px(465)));
        QCOMPARE(j.left() - a.left(), Px(9 * 555));
        QCOMPARE(j.top(), a.top());
        QCOMPARE(z.top() - a.top(), Px(2 * 555));
        QCOMPARE(z.left() - a.left(), Px(5 * 555));
        QCOMPARE(parentesi.top() - a.top(), Px(6 * 555));
        QVERIFY(parentesi.bottom() < cornice.top());
        QCOMPARE(cornice, RettangoloTwips(-30, 3930, 5610, 1635));
        QCOMPARE(immi, RettangoloTwips(15, 5565, 5520, 3075));
        // Function keys 705 by 660 in two rows of six, on the frame.
        QCOMPARE(f101.size(), QSize(Px(705), Px(660)));
        QCOMPARE(f106.top(), f101.top());
        QVERIFY(f106.left() > f101.left());
        QCOMPARE(f107.left(), f101.left());
        QVERIFY(f107.top() > f101.bottom());
        QCOMPARE(f112.top(), f107.top());
        for (const QRect& r : {f101, f106, f107, f112})
            QVERIFY(cornice.contains(r));
    }

    void didascalie_suggerimenti_e_immagini() {
        ModalitàFunzionamento = 4;
        QStringList didascalie, suggerimentiFn, immagini, testiFn;
        QString suggerimentoFn, suggerimentoA;
        Copione c(*orologio);
        c.Esegui([&] {
            QuadroScriviTesto* q = Quadro();
            for (int16_t i = 101; i <= 170; ++i)
                didascalie << q->TastoScriviTesto().value(i)->text();
            suggerimentoFn = q->TastoScriviTesto().value(166)->toolTip();
            suggerimentoA = q->TastoScriviTesto().value(101)->toolTip();
            for (int16_t i = 101; i <= 112; ++i) {
                TastoZanto* t = q->TastoFunzTesto().value(i);
                suggerimentiFn << t->toolTip();
                testiFn << t->text();
                immagini << t->property(ProprietaRisorsaIcona).toString();
                QVERIFY(!t->icon().isNull());
            }
        });
        c.Tasto(Qt::Key_Down).Tasto(Qt::Key_Down).Tasto(Qt::Key_Down).Tasto(Qt::Key_Down);
        c.Tasto(Qt::Key_Down).Tasto(Qt::Key_Down).Tasto(Qt::Key_Left).Tasto(Qt::Key_Left);
        c.Tasto(Qt::Key_Left).Tasto(Qt::Key_Left).Tasto(Qt::Key_Left).Tasto(Qt::Key_Return); // Fn
        c.Tasto(Qt::Key_Down).Tasto(Qt::Key_Return);                                         // 107
        QVERIFY(Apri(c));
        QCOMPARE(didascalie.join(QChar(u'|')),
                 QStringLiteral("A|B|C|D|E|F|G|H|I|J|K|L|M|N|O|P|Q|R|S|T|U|V|W|X|Y|Z|@|€|«|»|"
                                "!|?|'|Del|__|Ret|BS|%|(|)|À|È|Ì|Ò|Ù|.|,|;|:|°|"
                                "1|2|3|4|5|6|7|8|9|0|+|-|*|/|=|Fn|>|<|[|]"));
        QCOMPARE(suggerimentoFn, QStringLiteral("Accesso a Tasti Funzione"));
        QCOMPARE(suggerimentoA, QString());
        QCOMPARE(
            suggerimentiFn,
            (QStringList{"", "Accesso alla Scrittura Testi", "Sposta Cursore a Sinistra",
                         "Sposta Cursore a Destra ", "Sposta Cursore ad Inizio Testo",
                         "Sposta Cursore a Fine Testo", "Chiudi", "Maiuscolo / Minuscolo",
                         "Settaggio Font, Dimensioni, Corsivo, Grassetto", "Importa Testo Da File",
                         "Sposta Cursore in Alto", "Sposta Cursore in Basso"}));
        QCOMPARE(testiFn, QStringList(12, QString()));
        QCOMPARE(immagini.at(6), QStringLiteral(":/icone/pannelli/chiudi.svg"));
        QCOMPARE(immagini.at(7), QStringLiteral(":/icone/tastiera/maiuscole.svg"));
        QCOMPARE(QSet<QString>(immagini.cbegin(), immagini.cend()).size(), 12);
    }

    void le_lettere_si_vedono_come_scriveranno() {
        ModalitàFunzionamento = 4;
        QStringList minuscole, maiuscole;
        const auto leggi = [](QStringList& dove) {
            for (int16_t i : {101, 126, 141, 145, 134, 166})
                dove << Quadro()->TastoScriviTesto().value(i)->text();
        };
        Copione c(*orologio);
        c.Esegui([] { Quadro()->ClickTasto(166); });                      // Fn
        c.Tasto(Qt::Key_Down).Tasto(Qt::Key_Right).Tasto(Qt::Key_Return); // 108
        c.Esegui([&] { leggi(minuscole); });
        c.Tasto(Qt::Key_Return); // 108 again
        c.Esegui([&] { leggi(maiuscole); });
        c.Tasto(Qt::Key_Return); // lower case again
        // What a letter key shows is what it writes.
        QString scritto;
        c.Esegui([&] {
            Quadro()->TastoScriviTesto().value(141)->click();
            Quadro()->TastoScriviTesto().value(101)->click();
            scritto = Quadro()->Testo().SenzaCursore();
            Quadro()->ClickTasto(166);
        });
        c.Tasto(Qt::Key_Down).Tasto(Qt::Key_Return); // 107
        QVERIFY(Apri(c));
        QCOMPARE(minuscole, (QStringList{"a", "z", "à", "ù", "Del", "Fn"}));
        QCOMPARE(maiuscole, (QStringList{"A", "Z", "À", "Ù", "Del", "Fn"}));
        QCOMPARE(scritto, QStringLiteral("àa"));
    }

    void le_didascalie_sono_grandi_e_in_grassetto() {
        ModalitàFunzionamento = 3;
        QFont lettera, del;
        Copione c(*orologio);
        c.Esegui([&] {
            lettera = Quadro()->TastoScriviTesto().value(101)->font();
            del = Quadro()->TastoScriviTesto().value(134)->font();
            Quadro()->ClickTasto(166);
            Quadro()->ClickTasto(107);
        });
        QVERIFY(Apri(c));
        QVERIFY(lettera.bold());
        QVERIFY(del.bold());
        // Most of the key's height for one letter, and still a good size for three.
        QVERIFY(lettera.pixelSize() >= Px(465) * 2 / 3);
        QVERIFY(del.pixelSize() >= Px(465) / 3);
    }

    void immi_testo_e_di_sola_lettura_e_non_prende_mai_il_fuoco() {
        ModalitàFunzionamento = 4;
        bool solaLettura = false;
        Qt::FocusPolicy fuoco = Qt::StrongFocus;
        bool suFocusFix = false;
        Copione c(*orologio);
        c.Esegui([&] {
            QuadroScriviTesto* q = Quadro();
            solaLettura = q->ImmiTesto->isReadOnly();
            fuoco = q->ImmiTesto->focusPolicy();
            q->ImmiTesto->setFocus();
            suFocusFix = q->focusWidget() == q->FocusFix;
        });
        c.Tasto(Qt::Key_Up).Tasto(Qt::Key_Right).Tasto(Qt::Key_Right).Tasto(Qt::Key_Right);
        c.Tasto(Qt::Key_Right).Tasto(Qt::Key_Right).Tasto(Qt::Key_Return);
        c.Tasto(Qt::Key_Down).Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QVERIFY(solaLettura);
        QCOMPARE(fuoco, Qt::NoFocus);
        QVERIFY(suFocusFix);
    }

    // ---- the edge cases of the keyboard ----

    void con_limite_40_passano_40_lettere_la_41a_suona_spazi_e_ret_passano_oltre() {
        ModalitàFunzionamento = 3;
        QList<int> bip;
        QList<qsizetype> lunghezze;
        Copione c(*orologio);
        auto nota = [&] {
            bip << ContatoreBip;
            lunghezze << Quadro()->Testo().Lunghezza();
        };
        for (int i = 0; i < 40; ++i)
            c.Tasto(Qt::Key_Return);
        c.Esegui(nota);
        c.Tasto(Qt::Key_Return).Esegui(nota); // the 41st
        int16_t corrente = 101;
        Scegli3(c, corrente, 135, 70);
        c.Esegui(nota);
        Scegli3(c, corrente, 136, 70);
        c.Esegui(nota);
        Scegli3(c, corrente, 166, 70);
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c, 40));
        QCOMPARE(bip, (QList<int>{0, 1, 1, 1}));
        QCOMPARE(lunghezze, (QList<qsizetype>{41, 41, 42, 43}));
        QCOMPARE(NumeroRigheScritte, int16_t(1));
        QCOMPARE(RigheScritte.at(1), QString(40, QChar(u'A')) + QStringLiteral(" ") + Cr);
    }

    void un_nome_di_40_lettere_confermato_da_una_riga_di_40_caratteri() {
        ModalitàFunzionamento = 3;
        Copione c(*orologio);
        int16_t corrente = 101;
        for (QChar l : Nome)
            Scegli3(c, corrente, TastoDi(l), 70);
        Scegli3(c, corrente, 166, 70);
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c, 40));
        QCOMPARE(NumeroRigheScritte, int16_t(1));
        QCOMPARE(RigheScritte, (QStringList{QString(), Nome}));
        QCOMPARE(RigheScritte.at(1).size(), qsizetype(40));
        QCOMPARE(ContatoreBip, 0);
    }

    void gli_spazi_agli_estremi_spariscono_alla_conferma() {
        ModalitàFunzionamento = 3;
        Copione c(*orologio);
        int16_t corrente = 101;
        Scegli3(c, corrente, 135, 70);
        c.Tasto(Qt::Key_Return);
        Scegli3(c, corrente, TastoDi(u'C'), 70);
        Scegli3(c, corrente, 135, 70);
        Scegli3(c, corrente, TastoDi(u'D'), 70);
        Scegli3(c, corrente, 135, 70);
        c.Tasto(Qt::Key_Return).Tasto(Qt::Key_Return);
        Scegli3(c, corrente, 166, 70);
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(RigheScritte, (QStringList{QString(), QStringLiteral("C D")}));
        QCOMPARE(NumeroRigheScritte, int16_t(1));
    }

    void un_testo_di_soli_spazi_da_0_righe() {
        ModalitàFunzionamento = 3;
        Copione c(*orologio);
        int16_t corrente = 101;
        Scegli3(c, corrente, 135, 70);
        c.Tasto(Qt::Key_Return).Tasto(Qt::Key_Return);
        Scegli3(c, corrente, 166, 70);
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(NumeroRigheScritte, int16_t(0));
        QCOMPARE(RigheScritte, QStringList{QString()});
        QCOMPARE(ContatoreBip, 0);
    }

    void un_testo_vuoto_confermato_da_0_righe_senza_avvisi() {
        ModalitàFunzionamento = 4;
        Copione c(*orologio);
        int16_t corrente = 101;
        Scegli4(c, corrente, 166, 10, 70);
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(NumeroRigheScritte, int16_t(0));
        QCOMPARE(ContatoreBip, 0);
        QVERIFY(amb->Scatole.isEmpty());
    }

    void un_testo_che_finisce_con_ret_tiene_il_cr_e_nessuna_riga_vuota_lo_segue() {
        ModalitàFunzionamento = 3;
        Copione c(*orologio);
        int16_t corrente = 101;
        Scegli3(c, corrente, TastoDi(u'A'), 70);
        Scegli3(c, corrente, 136, 70);
        Scegli3(c, corrente, 135, 70);
        Scegli3(c, corrente, 166, 70);
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(NumeroRigheScritte, int16_t(1));
        QCOMPARE(RigheScritte, (QStringList{QString(), QStringLiteral("A") + Cr}));
    }

    void due_righe_ab_cr_c_tornano_uguali_e_riaperte_hanno_il_cursore_in_fondo() {
        ModalitàFunzionamento = 3;
        Copione c(*orologio);
        int16_t corrente = 101;
        Scegli3(c, corrente, TastoDi(u'A'), 70);
        Scegli3(c, corrente, TastoDi(u'B'), 70);
        Scegli3(c, corrente, 136, 70);
        Scegli3(c, corrente, TastoDi(u'C'), 70);
        Scegli3(c, corrente, 166, 70);
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(NumeroRigheScritte, int16_t(2));
        QCOMPARE(RigheScritte,
                 (QStringList{QString(), QStringLiteral("AB") + Cr, QStringLiteral("C")}));

        // Reopened: the function keys are live, the ring on confirm, "_" at the end.
        QString testo, vista;
        int tastiera = 0;
        QList<int16_t> lettere, funzioni;
        int16_t predefinito = 0;
        Copione d(*orologio);
        d.Esegui([&] {
            QuadroScriviTesto* q = Quadro();
            testo = TestoOra();
            vista = q->ImmiTesto->toPlainText();
            tastiera = q->TastieraAttiva();
            lettere = Visibili(q, 0);
            funzioni = Visibili(q, 1);
            predefinito = PredefinitoDi(q, 1);
        });
        d.Tasto(Qt::Key_Return);
        QVERIFY(Apri(d));
        QCOMPARE(testo, QStringLiteral("AB\rC_"));
        QCOMPARE(vista, QStringLiteral("AB\nC_"));
        QCOMPARE(tastiera, 2);
        QCOMPARE(lettere, QList<int16_t>{});
        QCOMPARE(funzioni, QList<int16_t>{101});
        QCOMPARE(predefinito, int16_t(101));
        QCOMPARE(NumeroRigheScritte, int16_t(2));
        QCOMPARE(RigheScritte,
                 (QStringList{QString(), QStringLiteral("AB") + Cr, QStringLiteral("C")}));
    }

    void sinistra_all_inizio_e_destra_alla_fine_suonano_e_non_cambiano_nulla() {
        ModalitàFunzionamento = 4;
        Riapri({QStringLiteral("AB")});
        QStringList testi;
        QList<int> bip;
        Copione c(*orologio);
        auto nota = [&] {
            testi << TestoOra();
            bip << ContatoreBip;
        };
        int16_t corrente = 101;
        Scegli4(c, corrente, 104, 6, 12); // right at the end
        c.Esegui(nota);
        Scegli4(c, corrente, 105, 6, 12); // to the start
        Scegli4(c, corrente, 103, 6, 12); // left at the start
        c.Esegui(nota);
        Scegli4(c, corrente, 107, 6, 12);
        QVERIFY(Apri(c));
        QCOMPARE(testi, (QStringList{"AB_", "_AB"}));
        QCOMPARE(bip, (QList<int>{1, 2}));
    }

    void su_sulla_riga_1_di_due_righe_suona_ferma_l_anello_e_la_scelta_ripete_il_tasto_data() {
        RigheDeiModi({1, 2});
    }
    void su_sulla_riga_1_di_due_righe_suona_ferma_l_anello_e_la_scelta_ripete_il_tasto() {
        QFETCH(int, modo);
        ModalitàFunzionamento = static_cast<int16_t>(modo);
        Riapri({QStringLiteral("AB") + Cr, QStringLiteral("C")});
        QStringList testi;
        QList<int> bip, inAttesa;
        QList<int16_t> anello;
        Copione c(*orologio);
        auto nota = [&] {
            testi << TestoOra();
            bip << ContatoreBip;
            inAttesa << orologio->InAttesa();
            anello << AnelloOra();
        };
        c.Attendi(4000).Tasto(Qt::Key_Return); // 105: to the start, line 1
        c.Attendi(6000).Tasto(Qt::Key_Return); // 111 on line 1
        c.Esegui(nota);
        c.Attendi(3000).Esegui(nota);          // the ring stands on 111
        c.Tasto(Qt::Key_Return).Esegui(nota);  // the pick repeats 111
        c.Attendi(1000).Esegui(nota);          // a second refusal lets the ring go
        c.Attendi(1000).Tasto(Qt::Key_Return); // 101
        QVERIFY(Apri(c));
        QCOMPARE(testi, (QStringList{"_AB\rC", "_AB\rC", "_AB\rC", "_AB\rC"}));
        QCOMPARE(bip, (QList<int>{1, 1, 2, 2}));
        QCOMPARE(inAttesa, (QList<int>{0, 0, 1, 1}));
        QCOMPARE(anello, (QList<int16_t>{111, 111, 111, 112}));
        QCOMPARE(RigheScritte,
                 (QStringList{QString(), QStringLiteral("AB") + Cr, QStringLiteral("C")}));
    }

    void giu_va_all_inizio_della_riga_dopo_non_alla_stessa_colonna() {
        ModalitàFunzionamento = 4;
        Riapri({QStringLiteral("ABC") + Cr, QStringLiteral("DEFG") + Cr, QStringLiteral("H")});
        QStringList testi;
        QList<int> bip;
        Copione c(*orologio);
        auto nota = [&] {
            testi << TestoOra();
            bip << ContatoreBip;
        };
        int16_t corrente = 101;
        Scegli4(c, corrente, 105, 6, 12);
        Scegli4(c, corrente, 104, 6, 12);
        c.Tasto(Qt::Key_Return).Esegui(nota); // after "AB"
        Scegli4(c, corrente, 112, 6, 12);
        c.Esegui(nota);
        c.Tasto(Qt::Key_Return).Esegui(nota);
        c.Tasto(Qt::Key_Return).Esegui(nota); // on the last line: beep
        Scegli4(c, corrente, 111, 6, 12);
        c.Esegui(nota);
        Scegli4(c, corrente, 101, 6, 12);
        QVERIFY(Apri(c));
        QCOMPARE(testi, (QStringList{"AB_C\rDEFG\rH", "ABC\r_DEFG\rH", "ABC\rDEFG\r_H",
                                     "ABC\rDEFG\r_H", "ABC\r_DEFG\rH"}));
        QCOMPARE(bip, (QList<int>{0, 0, 0, 1, 1}));
    }

    void un_testo_con_trattini_bassi_mette_il_cursore_sul_primo() {
        ModalitàFunzionamento = 4;
        Riapri({QStringLiteral("A_B")});
        QStringList testi;
        Copione c(*orologio);
        c.Esegui([&] { testi << TestoOra(); });
        int16_t corrente = 101;
        Scegli4(c, corrente, 104, 6, 12);
        c.Esegui([&] { testi << TestoOra(); });
        Scegli4(c, corrente, 106, 6, 12);
        c.Esegui([&] { testi << TestoOra(); });
        Scegli4(c, corrente, 101, 6, 12);
        QVERIFY(Apri(c));
        // The "_" that came with the text is the cursor; the one added stays a character.
        QCOMPARE(testi, (QStringList{"A_B_", "AB__", "AB__"}));
        QCOMPARE(RigheScritte, (QStringList{QString(), QStringLiteral("AB_")}));
    }

    // ---- scanning ----

    void modo_1_l_anello_gira_lineare_da_170_a_101_e_nei_tasti_funzione_da_112_a_101() {
        ModalitàFunzionamento = 1;
        QList<int16_t> anello;
        Copione c(*orologio);
        auto nota = [&] { anello << AnelloOra(); };
        c.Esegui(nota).Attendi(999).Esegui(nota).Attendi(1).Esegui(nota);
        c.Attendi(9000).Esegui(nota);           // 111: across the row end
        c.Attendi(59000).Esegui(nota);          // 170
        c.Attendi(1000).Esegui(nota);           // 101
        c.Attendi(65000).Tasto(Qt::Key_Return); // Fn
        c.Attendi(11000).Esegui(nota);          // 112
        c.Attendi(1000).Esegui(nota);           // 101
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(anello, (QList<int16_t>{101, 101, 102, 111, 170, 101, 112, 101}));
    }

    void modo_2_l_inversione_gira_all_indietro_e_la_scelta_la_conserva() {
        ModalitàFunzionamento = 2;
        TipoInversioneScansione = 1;
        QList<int16_t> anello;
        QString testo;
        Copione c(*orologio);
        auto nota = [&] { anello << AnelloOra(); };
        c.Tasto(Qt::Key_Space).Attendi(1000).Esegui(nota); // backwards: 101 to 170
        c.Attendi(1000).Esegui(nota);                      // 169
        c.Tasto(Qt::Key_Return).Esegui([&] { testo = TestoOra(); });
        c.Attendi(1000).Esegui(nota);                      // still backwards after the pick
        c.Tasto(Qt::Key_Space).Attendi(2000).Esegui(nota); // forward again
        c.Tasto(Qt::Key_Space).Attendi(4000).Tasto(Qt::Key_Return); // back to Fn
        c.Tasto(Qt::Key_Return);                                    // 101 at once
        QVERIFY(Apri(c));
        QCOMPARE(anello, (QList<int16_t>{170, 169, 168, 170}));
        QCOMPARE(testo, QStringLiteral("[_"));
        QCOMPARE(RigheScritte, (QStringList{QString(), QStringLiteral("[")}));
    }

    void modo_3_il_tasto_di_scansione_avanza_di_uno_con_giro_e_la_scelta_scrive() {
        ModalitàFunzionamento = 3;
        QList<int16_t> anello;
        QList<int16_t> predefiniti;
        Copione c(*orologio);
        auto nota = [&] {
            anello << AnelloOra();
            predefiniti << PredefinitoDi(Quadro(), Quadro()->Motore.InsiemeAttivo());
        };
        c.Esegui(nota).Tasto(Qt::Key_Space).Esegui(nota);
        c.Tasto(Qt::Key_Return);
        c.Attendi(5000).Esegui(nota); // no timer: the ring stands
        for (int i = 0; i < 69; ++i)
            c.Tasto(Qt::Key_Space);
        c.Esegui(nota); // 101 after 170
        int16_t corrente = 101;
        Scegli3(c, corrente, 166, 70);
        c.Esegui(nota);
        for (int i = 0; i < 11; ++i)
            c.Tasto(Qt::Key_Space);
        c.Esegui(nota).Tasto(Qt::Key_Space).Esegui(nota); // 112, then 101
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(anello, (QList<int16_t>{101, 102, 102, 101, 101, 112, 101}));
        QCOMPARE(predefiniti, (QList<int16_t>{101, 102, 102, 101, 101, 112, 101}));
        QCOMPARE(RigheScritte, (QStringList{QString(), QStringLiteral("B")}));
    }

    void fn_passa_ai_tasti_funzione_e_102_torna_alle_lettere_dove_erano() {
        ModalitàFunzionamento = 4;
        QList<QList<int16_t>> lettere, funzioni;
        QList<int> tastiere;
        QList<int16_t> correnti;
        Copione c(*orologio);
        auto nota = [&] {
            QuadroScriviTesto* q = Quadro();
            lettere << Visibili(q, 0);
            funzioni << Visibili(q, 1);
            tastiere << q->TastieraAttiva();
            correnti << q->Motore.TastoCorrente;
        };
        int16_t corrente = 101;
        Scegli4(c, corrente, 166, 10, 70);
        c.Esegui(nota);
        c.Tasto(Qt::Key_Right).Tasto(Qt::Key_Down).Esegui(nota); // 102, then 108
        c.Tasto(Qt::Key_Up).Tasto(Qt::Key_Return).Esegui(nota);  // 102: back
        c.Tasto(Qt::Key_Return).Esegui(nota);                    // Fn again: ring on 101
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(lettere, (QList<QList<int16_t>>{{}, {}, {166}, {}}));
        QCOMPARE(funzioni, (QList<QList<int16_t>>{{101}, {108}, {}, {101}}));
        QCOMPARE(tastiere, (QList<int>{2, 2, 1, 2}));
        QCOMPARE(correnti, (QList<int16_t>{101, 108, 166, 101}));
    }

    void un_numero_di_righe_che_la_lista_non_ha_e_un_errore_e_il_testo_parte_vuoto() {
        ModalitàFunzionamento = 3;
        NumeroRigheScritte = 3;
        RigheScritte = QStringList{QString(), QStringLiteral("A")};
        QString testo;
        int tastiera = 0;
        Copione c(*orologio);
        c.Esegui([&] {
            testo = TestoOra();
            tastiera = Quadro()->TastieraAttiva();
            Quadro()->ClickTasto(166);
            Quadro()->ClickTasto(107);
        });
        QVERIFY(Apri(c));
        QCOMPARE(amb->Scatole.size(), 1);
        QVERIFY(amb->Scatole.at(0).Testo.contains(QStringLiteral("9/1820")));
        QCOMPARE(testo, QStringLiteral("_"));
        QCOMPARE(tastiera, 1);
        QCOMPARE(NumeroRigheScritte, int16_t(0));
    }

    // ---- what it looks like ----

    void le_schermate_delle_lettere_e_dei_tasti_funzione() {
        ModalitàFunzionamento = 4;
        QImage lettere, funzioni;
        QRect anello;
        Copione c(*orologio);
        for (const char* l : {"C", "I", "A", "O"})
            Digita(c, Qt::Key_A, QString::fromLatin1(l), Qt::ShiftModifier);
        int16_t corrente = 101;
        c.Tasto(Qt::Key_Down).Tasto(Qt::Key_Down).Tasto(Qt::Key_Right).Tasto(Qt::Key_Right);
        corrente = 123;
        c.Esegui([&] {
            QuadroScriviTesto* q = Quadro();
            Schermata(q, QStringLiteral("tastiera-lettere"));
            lettere = q->grab().toImage();
            anello = q->CoronaTastoScriviTesto().value(123)->geometry();
        });
        Scegli4(c, corrente, 166, 10, 70);
        c.Tasto(Qt::Key_Right).Tasto(Qt::Key_Right);
        c.Esegui([&] {
            Schermata(Quadro(), QStringLiteral("tastiera-funzioni"));
            funzioni = Quadro()->grab().toImage();
        });
        c.Tasto(Qt::Key_Left).Tasto(Qt::Key_Left).Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QVERIFY(!lettere.isNull());
        // The ring shows green round the current key.
        QCOMPARE(lettere.pixelColor(anello.topLeft() + QPoint(1, 1)), QColor(0, 255, 0));
        QVERIFY(lettere != funzioni);
        QCOMPARE(RigheScritte, (QStringList{QString(), QStringLiteral("CIAO")}));
    }
};

QTEST_MAIN(ProvaQuadroScriviTesto)
#include "test_quadro_scrivi_testo.moc"
