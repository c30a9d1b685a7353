// The labels of the list panel: built to the character, and read back the same
// way by every caller.
#include "panels/EtichettaLista.h"

#include <QtTest>

class ProvaEtichettaLista : public QObject {
    Q_OBJECT

private slots:
    void disegni_e_oggetti_allineati_a_quaranta_con_spazio_prima() {
        const QString e = ComponiEtichetta(QStringLiteral("Casa"), 12, FormatoEtichetta::Elemento);
        QCOMPARE(e, QStringLiteral("Casa") + QString(36, ' ') + QStringLiteral(" [ 0012 ]"));
        QCOMPARE(e.size(), 40 + 9);
        QCOMPARE(e.indexOf('['), 41);
    }

    void cartelle_e_file_senza_spazio_prima_della_parentesi() {
        const QString e = ComponiEtichetta(QStringLiteral("Scuola"), 3, FormatoEtichetta::Cartella);
        QCOMPARE(e, QStringLiteral("Scuola") + QString(34, ' ') + QStringLiteral("[ 0003 ]"));
        QCOMPARE(e.indexOf('['), 40);
    }

    void i_bianchi_contano_il_nome_senza_spazi_ai_lati() {
        // The name stays as stored; the padding counts it trimmed.
        const QString e = ComponiEtichetta(QStringLiteral(" Sole "), 7, FormatoEtichetta::Cartella);
        QCOMPARE(e, QStringLiteral(" Sole ") + QString(36, ' ') + QStringLiteral("[ 0007 ]"));
    }

    void un_nome_di_quaranta_o_piu_non_ha_bianchi() {
        const QString lungo(45, 'x');
        QCOMPARE(ComponiEtichetta(lungo, 1, FormatoEtichetta::Elemento),
                 lungo + QStringLiteral(" [ 0001 ]"));
        const QString quaranta(40, 'y');
        QCOMPARE(ComponiEtichetta(quaranta, 2, FormatoEtichetta::Cartella),
                 quaranta + QStringLiteral("[ 0002 ]"));
    }

    void font_senza_bianchi_e_dimensioni_nude() {
        QCOMPARE(ComponiEtichetta(QStringLiteral("Arial"), 5, FormatoEtichetta::Font),
                 QStringLiteral("Arial [ 0005 ]"));
        QCOMPARE(ComponiEtichetta(QString(), 8, FormatoEtichetta::Numero), QStringLiteral("8"));
        QCOMPARE(ComponiEtichetta(QString(), 46, FormatoEtichetta::Numero), QStringLiteral("46"));
    }

    void letta_torna_come_scritta_in_ogni_formato() {
        const QList<FormatoEtichetta> formati = {
            FormatoEtichetta::Elemento, FormatoEtichetta::Cartella, FormatoEtichetta::Font};
        for (FormatoEtichetta f : formati) {
            const EtichettaLetta l =
                LeggiEtichetta(ComponiEtichetta(QStringLiteral("Mare blu"), 9, f));
            QCOMPARE(l.Nome, QStringLiteral("Mare blu"));
            QCOMPARE(l.Numero, QStringLiteral("0009"));
            QCOMPARE(l.Valore(), int64_t(9));
        }
    }

    void un_codice_oltre_quattro_cifre_si_legge_intero() {
        const QString e =
            ComponiEtichetta(QStringLiteral("Gatto"), 12345, FormatoEtichetta::Elemento);
        QVERIFY(e.endsWith(QStringLiteral(" [ 12345 ]")));
        const EtichettaLetta l = LeggiEtichetta(e);
        QCOMPARE(l.Numero, QStringLiteral("12345"));
        QCOMPARE(l.Valore(), int64_t(12345));
        QCOMPARE(l.Nome, QStringLiteral("Gatto"));
    }

    void un_nome_con_parentesi_non_si_spezza() {
        for (const QString& nome : {QStringLiteral("a[b"), QStringLiteral("casa [ 1 ]"),
                                    QStringLiteral("[ 0001 ]"), QStringLiteral("x ]")}) {
            const EtichettaLetta l =
                LeggiEtichetta(ComponiEtichetta(nome, 42, FormatoEtichetta::Cartella));
            QCOMPARE(l.Nome, nome);
            QCOMPARE(l.Valore(), int64_t(42));
        }
    }

    void senza_parentesi_tutto_e_nome() {
        const EtichettaLetta dimensione = LeggiEtichetta(QStringLiteral("12"));
        QCOMPARE(dimensione.Nome, QStringLiteral("12"));
        QCOMPARE(dimensione.Numero, QString());
        QCOMPARE(dimensione.Valore(), int64_t(-1));
        const EtichettaLetta vuota = LeggiEtichetta(QString());
        QCOMPARE(vuota.Nome, QString());
        QCOMPARE(vuota.Valore(), int64_t(-1));
        QCOMPARE(LeggiEtichetta(QStringLiteral("nome [ ]")).Valore(), int64_t(-1));
        QCOMPARE(LeggiEtichetta(QStringLiteral("nome [ ab ]")).Valore(), int64_t(-1));
    }
};

QTEST_MAIN(ProvaEtichettaLista)
#include "test_etichetta_lista.moc"
