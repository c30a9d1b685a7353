// Key 110 of the keyboard: a rich text file of the files folder, chosen on
// the list, takes the place of the text.
#include "archive/Archivi.h"
#include "base/Bip.h"
#include "base/Configurazione.h"
#include "input/QuadroMessaggi.h"
#include "model/LimitiTesto.h"
#include "panels/ProvaScriviTesto.h"

#include <QFile>
#include <QtTest>

namespace {

void ScriviFile(const QString& nome, const QByteArray& dati) {
    QFile f(PercorsoFile() + '/' + nome);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write(dati);
}

} // namespace

class ProvaScriviTestoDaFile : public QObject, MondoTastiera {
    Q_OBJECT

    // Mode 1, on the function keys of "AB": the ring to 110 and the pick; in
    // the list line 101 is picked at once and the ring walks on to confirm (or
    // on to back, 125). Gives the text the keyboard then holds; the keyboard
    // is confirmed afterwards.
    QString Importa(bool conferma = true, int16_t limite = 0) {
        QString testo;
        Copione c(*orologio);
        c.Attendi(9000).Tasto(Qt::Key_Return);
        if (conferma)
            c.Tasto(Qt::Key_Return).Attendi(21 * 1000).Tasto(Qt::Key_Return);
        else
            c.Attendi(24 * 1000).Tasto(Qt::Key_Return);
        c.Esegui([&] { testo = TestoOra(); });
        c.Attendi(3000).Tasto(Qt::Key_Return); // 110, 111, 112, then 101
        if (!Apri(c, limite)) return QStringLiteral("?");
        return testo;
    }

private slots:
    void init() {
        Prepara(true);
        ModalitàFunzionamento = 1;
        Riapri({QStringLiteral("AB")});
    }
    void cleanup() { Libera(); }

    void il_testo_del_file_prende_il_posto_e_il_cursore_va_in_fondo() {
        ScriviFile(QStringLiteral("lettera.rtf"),
                   "{\\rtf1\\ansi{\\fonttbl{\\f0 Arial;}}\\f0 Cara nonna,\\par ti voglio bene}");
        QString testo, titolo;
        int16_t anello = 0;
        Copione c(*orologio);
        c.Attendi(9000).Tasto(Qt::Key_Return);
        c.Esegui([&] { titolo = FormScansione::InPrimoPiano()->windowTitle(); });
        c.Tasto(Qt::Key_Return).Attendi(21 * 1000).Tasto(Qt::Key_Return);
        c.Esegui([&] {
            testo = TestoOra();
            anello = AnelloOra();
        });
        c.Tasto(Qt::Key_Right);                // nothing in mode 1: the ring is walking on its own
        c.Attendi(3000).Tasto(Qt::Key_Return); // 110, 111, 112, then 101
        QVERIFY(Apri(c));
        QCOMPARE(titolo, QStringLiteral("Programma «ZANTO» - Scelta File di Testo (Rtf)"));
        QCOMPARE(testo, QStringLiteral("Cara nonna,\rti voglio bene_"));
        QCOMPARE(anello, int16_t(110));
        QCOMPARE(RigheScritte, (QStringList{QString(), QStringLiteral("Cara nonna,\r"),
                                            QStringLiteral("ti voglio bene")}));
    }

    void un_segno_basso_nel_file_prende_il_cursore_e_l_ultimo_resta_un_carattere() {
        ScriviFile(QStringLiteral("segni.rtf"), "{\\rtf1 A_B}");
        const QString testo = Importa();
        QCOMPARE(testo, QStringLiteral("A_B_"));
        QCOMPARE(RigheScritte, (QStringList{QString(), QStringLiteral("AB_")}));
    }

    void il_limite_non_vale_per_il_file() {
        ScriviFile(QStringLiteral("lungo.rtf"),
                   QByteArray("{\\rtf1 ") + QByteArray(60, 'x') + QByteArray("}"));
        const QString testo = Importa(true, 40);
        QCOMPARE(testo.size(), 61);
    }

    void indietro_dalla_lista_lascia_il_testo() {
        ScriviFile(QStringLiteral("lettera.rtf"), "{\\rtf1 Ciao}");
        const QString testo = Importa(false);
        QCOMPARE(testo, QStringLiteral("AB_"));
    }

    void un_file_oltre_la_misura_di_un_testo_lo_dice_e_il_testo_resta() {
        // A paragraph more than a text may hold: read whole, it would be lost later.
        QByteArray corpo = "{\\rtf1 ";
        for (int32_t k = 0; k < MassimoRigheTesto; ++k)
            corpo += "riga\\par ";
        ScriviFile(QStringLiteral("lungo.rtf"), corpo + "ultima}");
        QString avviso, testo;
        const int bip = ContatoreBip;
        Copione c(*orologio);
        c.Attendi(9000).Tasto(Qt::Key_Return);
        c.Tasto(Qt::Key_Return).Attendi(21 * 1000).Tasto(Qt::Key_Return);
        c.Esegui([&] { avviso = TestoQuadroMessaggi; });
        c.Tasto(Qt::Key_Return);
        c.Esegui([&] { testo = TestoOra(); });
        c.Attendi(3000).Tasto(Qt::Key_Return); // 110, 111, 112, then 101
        QVERIFY(Apri(c));
        QVERIFY2(avviso.contains(QStringLiteral("non è stato letto")) &&
                     avviso.contains(QStringLiteral("%1 righe").arg(MassimoRigheTesto)),
                 qPrintable(avviso));
        QVERIFY(ContatoreBip > bip);
        QCOMPARE(testo, QStringLiteral("AB_"));
        QVERIFY(amb->Scatole.isEmpty());
    }

    void un_testo_alla_misura_non_cresce_e_lo_dice() {
        // A text that comes back opens on confirm; a letter typed then is one too many.
        ModalitàFunzionamento = 4;
        const QString pieno(MassimoCaratteriTesto, QChar(u'X'));
        Riapri({pieno});
        QString avviso, testo;
        const int bip = ContatoreBip;
        Copione c(*orologio);
        Digita(c, Qt::Key_A, QStringLiteral("A"), Qt::ShiftModifier);
        c.Esegui([&] { avviso = TestoQuadroMessaggi; });
        c.Tasto(Qt::Key_Return);
        c.Esegui([&] { testo = TestoOra(); });
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QVERIFY2(avviso.contains(QStringLiteral("troppo lungo")), qPrintable(avviso));
        QVERIFY(ContatoreBip > bip);
        QCOMPARE(testo, pieno + QStringLiteral("_"));
        QCOMPARE(RigheScritte, (QStringList{QString(), pieno}));
    }

    void un_file_rovinato_da_il_suo_errore_e_il_testo_resta() {
        ScriviFile(QStringLiteral("rotto.rtf"), "{\\rtf1 {{{ Ciao");
        const QString testo = Importa();
        QCOMPARE(testo, QStringLiteral("AB_"));
        QCOMPARE(amb->Scatole.size(), 1);
        QVERIFY(amb->Scatole.at(0).Testo.contains(QStringLiteral("321")));
    }
};

QTEST_MAIN(ProvaScriviTestoDaFile)
#include "test_scrivi_testo_da_file.moc"
