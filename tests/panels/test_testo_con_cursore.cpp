// The rules of the keyboard's text, without any widget: the "_" cursor, the
// edits, the measure of the lines and the lines of a confirmed text.
#include "base/Utilita.h"
#include "model/LimitiTesto.h"
#include "text/TestoConCursore.h"

#include <QtTest>

namespace {

TestoConCursore Con(const QString& testo) {
    TestoConCursore t;
    t.Imposta(testo);
    return t;
}

const QString Cr = QStringLiteral("\r");

} // namespace

class ProvaTestoConCursore : public QObject {
    Q_OBJECT

private slots:
    void un_testo_nuovo_e_il_solo_cursore() {
        TestoConCursore t;
        QCOMPARE(t.Testo(), QStringLiteral("_"));
        QCOMPARE(t.Lunghezza(), qsizetype(1));
        QCOMPARE(t.Sinistra(), QString());
        QCOMPARE(t.Destra(), QStringLiteral("_"));
    }

    void si_scrive_a_sinistra_del_cursore() {
        TestoConCursore t = Con(QStringLiteral("AC_"));
        t.Indietro();
        t.Inserisci(QStringLiteral("B"));
        QCOMPARE(t.Testo(), QStringLiteral("AB_C"));
        QCOMPARE(t.Sinistra(), QStringLiteral("AB"));
        QCOMPARE(t.Destra(), QStringLiteral("_C"));
        QCOMPARE(t.SenzaCursore(), QStringLiteral("ABC"));
    }

    void cancella_dopo_e_prima_e_ai_bordi_rifiuta() {
        TestoConCursore t = Con(QStringLiteral("AB_CD"));
        QVERIFY(t.CancellaDopo());
        QCOMPARE(t.Testo(), QStringLiteral("AB_D"));
        QVERIFY(t.CancellaPrima());
        QCOMPARE(t.Testo(), QStringLiteral("A_D"));
        QVERIFY(t.CancellaDopo());
        QVERIFY(!t.CancellaDopo());
        QCOMPARE(t.Testo(), QStringLiteral("A_"));
        QVERIFY(t.CancellaPrima());
        QVERIFY(!t.CancellaPrima());
        QCOMPARE(t.Testo(), QStringLiteral("_"));
    }

    void sinistra_all_inizio_e_destra_alla_fine_non_cambiano_nulla() {
        TestoConCursore t = Con(QStringLiteral("_AB"));
        QVERIFY(!t.Indietro());
        QCOMPARE(t.Testo(), QStringLiteral("_AB"));
        QVERIFY(t.Avanti());
        QVERIFY(t.Avanti());
        QCOMPARE(t.Testo(), QStringLiteral("AB_"));
        QVERIFY(!t.Avanti());
        QCOMPARE(t.Testo(), QStringLiteral("AB_"));
    }

    void inizio_e_fine_del_testo() {
        TestoConCursore t = Con(QStringLiteral("A\rB_C"));
        t.Inizio();
        QCOMPARE(t.Testo(), QStringLiteral("_A\rBC"));
        t.Fine();
        QCOMPARE(t.Testo(), QStringLiteral("A\rBC_"));
    }

    void la_misura_conta_le_righe_e_trova_quella_del_cursore() {
        TestoConCursore t = Con(QStringLiteral("AB\rC_D\rEF"));
        t.Misura();
        QCOMPARE(t.NumeroRighe, int32_t(3));
        QCOMPARE(t.InizioRighe, (QList<int32_t>{0, 1, 4, 7}));
        QCOMPARE(t.RigaCursore, int32_t(2));
        // Just behind a CR the cursor stands on the next line.
        t.Imposta(QStringLiteral("AB\r_C"));
        t.Misura();
        QCOMPARE(t.RigaCursore, int32_t(2));
        t.Imposta(QStringLiteral("AB_\rC"));
        t.Misura();
        QCOMPARE(t.RigaCursore, int32_t(1));
        t.Imposta(QStringLiteral("AB\r_"));
        t.Misura();
        QCOMPARE(t.NumeroRighe, int32_t(2));
        QCOMPARE(t.RigaCursore, int32_t(2));
    }

    void giu_va_all_inizio_della_riga_dopo_non_alla_stessa_colonna() {
        TestoConCursore t = Con(QStringLiteral("ABC_D\rEFGH\rI"));
        QCOMPARE(t.Giu(), TestoConCursore::EsitoRiga::Spostato);
        QCOMPARE(t.Testo(), QStringLiteral("ABCD\r_EFGH\rI"));
        QCOMPARE(t.Giu(), TestoConCursore::EsitoRiga::Spostato);
        QCOMPARE(t.Testo(), QStringLiteral("ABCD\rEFGH\r_I"));
        QCOMPARE(t.Giu(), TestoConCursore::EsitoRiga::Bordo);
        QCOMPARE(t.Testo(), QStringLiteral("ABCD\rEFGH\r_I"));
    }

    void su_va_all_inizio_della_riga_prima_e_sulla_prima_rifiuta() {
        TestoConCursore t = Con(QStringLiteral("ABCD\rEF\rGH_I"));
        QCOMPARE(t.Su(), TestoConCursore::EsitoRiga::Spostato);
        QCOMPARE(t.Testo(), QStringLiteral("ABCD\r_EF\rGHI"));
        QCOMPARE(t.Su(), TestoConCursore::EsitoRiga::Spostato);
        QCOMPARE(t.Testo(), QStringLiteral("_ABCD\rEF\rGHI"));
        QCOMPARE(t.Su(), TestoConCursore::EsitoRiga::Bordo);
        QCOMPARE(t.Testo(), QStringLiteral("_ABCD\rEF\rGHI"));
    }

    void su_e_giu_su_una_sola_riga_rifiutano() {
        TestoConCursore t = Con(QStringLiteral("AB_C"));
        QCOMPARE(t.Su(), TestoConCursore::EsitoRiga::SolaRiga);
        QCOMPARE(t.Giu(), TestoConCursore::EsitoRiga::SolaRiga);
        QCOMPARE(t.Testo(), QStringLiteral("AB_C"));
    }

    void un_nome_di_40_lettere_da_una_riga_di_40_caratteri() {
        const QString nome(40, QChar(u'M'));
        const QStringList righe = TestoConCursore::Righe(nome);
        QCOMPARE(righe, (QStringList{QString(), nome}));
        QCOMPARE(righe.at(1).size(), qsizetype(40));
    }

    void gli_spazi_agli_estremi_spariscono_e_soli_spazi_danno_0_righe() {
        QCOMPARE(TestoConCursore::Righe(QStringLiteral("  CIAO MONDO   ")),
                 (QStringList{QString(), QStringLiteral("CIAO MONDO")}));
        QCOMPARE(TestoConCursore::Righe(QStringLiteral("     ")), QStringList{QString()});
        QCOMPARE(TestoConCursore::Righe(QString()), QStringList{QString()});
    }

    void un_testo_che_finisce_con_ret_tiene_il_cr_e_nessuna_riga_vuota() {
        QCOMPARE(TestoConCursore::Righe(QStringLiteral("AB\r  ")),
                 (QStringList{QString(), QStringLiteral("AB\r")}));
    }

    void due_righe_ab_cr_c_e_riaperte_tornano_uguali() {
        const QStringList righe = TestoConCursore::Righe(QStringLiteral("AB\rC"));
        QCOMPARE(righe, (QStringList{QString(), QStringLiteral("AB\r"), QStringLiteral("C")}));
        TestoConCursore t = Con(TestoConCursore::Unisci(righe, 2) + QStringLiteral("_"));
        QCOMPARE(t.Testo(), QStringLiteral("AB\rC_"));
    }

    void una_riga_che_comincia_con_un_line_feed_lo_perde() {
        QCOMPARE(TestoConCursore::Righe(QStringLiteral("AB\r\nCD\r\nE")),
                 (QStringList{QString(), QStringLiteral("AB\r"), QStringLiteral("CD\r"),
                              QStringLiteral("E")}));
        // Blanks inside the lines and an empty line between two stay.
        QCOMPARE(TestoConCursore::Righe(QStringLiteral("A B\r\rC")),
                 (QStringList{QString(), QStringLiteral("A B\r"), Cr, QStringLiteral("C")}));
    }

    void il_primo_trattino_basso_e_il_cursore_gli_altri_restano_caratteri() {
        TestoConCursore t = Con(QStringLiteral("A_B_"));
        QCOMPARE(t.Sinistra(), QStringLiteral("A"));
        QCOMPARE(t.SenzaCursore(), QStringLiteral("AB_"));
        t.Fine();
        QCOMPARE(t.Testo(), QStringLiteral("AB__"));
        // A text without any "_" gets one at its end.
        QCOMPARE(Con(QStringLiteral("XY")).Testo(), QStringLiteral("XY_"));
    }

    void la_misura_di_un_testo_conta_le_righe_come_il_disegno_le_divide() {
        for (const QString& testo :
             {QStringLiteral("a\rb"), QStringLiteral("a\r\nb\r\n"), QStringLiteral("a\r   "),
              QStringLiteral("\r\r\r"), QStringLiteral("   "), QString(), QStringLiteral("a\n\nb"),
              QStringLiteral("a\r\n")}) {
            TestoDaDividere = testo;
            DividiTestoInRighe();
            QCOMPARE(RigheDaTracciare(testo), int32_t(NumeroRigheTesto));
            // The keyboard shows at least as many lines as the drawing will cut.
            QVERIFY(RigheSullaTastiera(testo) >= RigheDaTracciare(testo));
        }
        QCOMPARE(RigheDaTracciare(QString(40000, QChar(u'\r'))), int32_t(40000));
        QVERIFY(!TestoNeiLimiti(QString(MassimoRigheTesto + 1, QChar(u'\r'))));
        QVERIFY(TestoNeiLimiti(QString(MassimoRigheTesto, QChar(u'\r'))));
        QVERIFY(!TestoSullaTastieraNeiLimiti(QString(MassimoRigheTesto, QChar(u'\r'))));
        QVERIFY(TestoSullaTastieraNeiLimiti(QString(MassimoRigheTesto - 1, QChar(u'\r'))));
        QVERIFY(!TestoNeiLimiti(QString(MassimoCaratteriTesto + 1, QChar(u'a'))));
    }

    void le_righe_si_contano_oltre_i_16_bit() {
        // 1,000,001 paragraphs, as a rich text file may bring them: counted in
        // 16 bits they were 16,961 lines.
        TestoConCursore t = Con(QString(1000000, QChar(u'\r')) + QStringLiteral("Z"));
        t.Fine();
        t.Misura();
        QCOMPARE(t.NumeroRighe, int32_t(1000001));
        QCOMPARE(t.RigaCursore, int32_t(1000001));
        QCOMPARE(t.Su(), TestoConCursore::EsitoRiga::Spostato);
        t.Misura();
        QCOMPARE(t.RigaCursore, int32_t(1000000));
    }
};

QTEST_MAIN(ProvaTestoConCursore)
#include "test_testo_con_cursore.moc"
