// The message panel, opened as every caller opens it and answered with keys.
#include "base/Bip.h"
#include "base/Configurazione.h"
#include "base/Misure.h"
#include "input/QuadroMessaggi.h"
#include "support/AmbienteProva.h"
#include "support/Copione.h"
#include "support/MondoProva.h"
#include "support/OrologioVirtuale.h"
#include "support/Sonde.h"

#include <QApplication>
#include <QFontMetrics>
#include <QScrollBar>
#include <QTextEdit>
#include <QtTest>

#include <memory>

namespace {

QuadroMessaggi* Quadro() {
    return dynamic_cast<QuadroMessaggi*>(FormScansione::InPrimoPiano());
}

struct Vista {
    QList<int16_t> Visibili;
    QStringList Didascalie;
    QList<uint32_t> Colori;
    int16_t Corrente = 0;
    int16_t Predefinito = 0;
};

Vista Osserva() {
    Vista v;
    QuadroMessaggi* q = Quadro();
    if (q == nullptr) return v;
    for (int16_t i = 101; i <= 103; ++i) {
        TastoZanto* t = q->Tasti.value(i);
        if (!t->isVisible()) continue;
        v.Visibili.append(i);
        v.Didascalie.append(t->text());
        v.Colori.append(t->palette().color(QPalette::ButtonText).rgb() & 0xFFFFFFu);
    }
    v.Corrente = q->Motore.TastoCorrente;
    v.Predefinito = TastoPredefinito(*q);
    return v;
}

} // namespace

class ProvaQuadroMessaggi : public QObject, MondoProva {
    Q_OBJECT

    // Opens the panel with the script running inside it; returns the result.
    int16_t
    Apri(Copione& c, int16_t tipo, int16_t predefinito,
         const QString& testo = QStringLiteral("ATTENZIONE!\rPremere «OK» per proseguire!")) {
        c.Avvia();
        const int16_t esito = Messaggio(testo, tipo, predefinito);
        if (!c.Finito()) QCoreApplication::processEvents();
        return esito;
    }

private slots:
    void init() { PreparaSenzaDati(); }
    void cleanup() { Libera(); }

    void serie_di_tasti_data() {
        QTest::addColumn<int>("tipo");
        QTest::addColumn<int>("predefinito");
        QTest::addColumn<QList<int16_t>>("visibili");
        QTest::addColumn<QStringList>("didascalie");
        QTest::addColumn<QList<uint32_t>>("colori");
        QTest::addColumn<int>("primo");
        const uint32_t verde = 0x00FF00, giallo = 0xFFFF00, rosso = 0xFF0000;
        QTest::newRow("1 OK") << 1 << 3 << QList<int16_t>{102} << QStringList{"OK"}
                              << QList<uint32_t>{verde} << 102;
        QTest::newRow("2 OK") << 2 << 1 << QList<int16_t>{101, 103} << QStringList{"OK", "Annulla"}
                              << QList<uint32_t>{verde, giallo} << 101;
        QTest::newRow("2 Annulla")
            << 2 << 3 << QList<int16_t>{101, 103} << QStringList{"OK", "Annulla"}
            << QList<uint32_t>{verde, giallo} << 103;
        QTest::newRow("3 SI") << 3 << 1 << QList<int16_t>{101, 103} << QStringList{"S I", "NO"}
                              << QList<uint32_t>{verde, rosso} << 101;
        QTest::newRow("3 NO") << 3 << 2 << QList<int16_t>{101, 103} << QStringList{"S I", "NO"}
                              << QList<uint32_t>{verde, rosso} << 103;
        for (int p = 1; p <= 3; ++p)
            QTest::newRow(qPrintable(QStringLiteral("4 tasto %1").arg(p)))
                << 4 << p << QList<int16_t>{101, 102, 103} << QStringList{"S I", "NO", "Annulla"}
                << QList<uint32_t>{verde, rosso, giallo} << 100 + p;
    }
    void serie_di_tasti() {
        QFETCH(int, tipo);
        QFETCH(int, predefinito);
        QFETCH(QList<int16_t>, visibili);
        QFETCH(QStringList, didascalie);
        QFETCH(QList<uint32_t>, colori);
        QFETCH(int, primo);
        ModalitàFunzionamento = 3;
        Vista vista;
        Copione c(*orologio);
        c.Esegui([&] { vista = Osserva(); }).Tasto(Qt::Key_Return);
        Apri(c, static_cast<int16_t>(tipo), static_cast<int16_t>(predefinito));
        QCOMPARE(vista.Visibili, visibili);
        QCOMPARE(vista.Didascalie, didascalie);
        QCOMPARE(vista.Colori, colori);
        QCOMPARE(vista.Corrente, int16_t(primo));
        QCOMPARE(vista.Predefinito, int16_t(primo));
    }

    void esiti_di_ogni_tasto_data() {
        QTest::addColumn<int>("tipo");
        QTest::addColumn<int>("tasto");
        QTest::addColumn<int>("esito");
        QTest::newRow("1/102") << 1 << 102 << 1;
        QTest::newRow("2/101") << 2 << 101 << 1;
        QTest::newRow("2/103") << 2 << 103 << 3;
        QTest::newRow("3/101") << 3 << 101 << 1;
        QTest::newRow("3/103") << 3 << 103 << 2;
        QTest::newRow("4/101") << 4 << 101 << 1;
        QTest::newRow("4/102") << 4 << 102 << 2;
        QTest::newRow("4/103") << 4 << 103 << 3;
    }
    void esiti_di_ogni_tasto() {
        QFETCH(int, tipo);
        QFETCH(int, tasto);
        QFETCH(int, esito);
        ModalitàFunzionamento = 4;
        Copione c(*orologio);
        // Walk with Right from the first ring to the wanted button, then Enter.
        c.Esegui([&] {
            QuadroMessaggi* q = Quadro();
            for (int i = 0; i < 3 && q->Motore.TastoCorrente != tasto; ++i)
                PremiTasto(Qt::Key_Right);
        });
        c.Tasto(Qt::Key_Return);
        QCOMPARE(Apri(c, static_cast<int16_t>(tipo), 1), int16_t(esito));
        QCOMPARE(EsitoQuadroMessaggi, int16_t(esito));
    }

    void un_clic_del_mouse_da_l_esito_del_tasto() {
        ModalitàFunzionamento = 1;
        Copione c(*orologio);
        c.Esegui([] { QTest::mouseClick(Quadro()->Tasti.value(103), Qt::LeftButton); });
        QCOMPARE(Apri(c, 4, 1), int16_t(3));
    }

    void tipo_1_in_modo_1_l_anello_non_si_muove_e_la_scelta_chiude_con_1() {
        ModalitàFunzionamento = 1;
        int16_t corrente = 0;
        int inAttesa = -1;
        Copione c(*orologio);
        c.Attendi(5000).Esegui([&] {
            corrente = Quadro()->Motore.TastoCorrente;
            inAttesa = orologio->InAttesa();
        });
        c.Tasto(Qt::Key_Return);
        QCOMPARE(Apri(c, 1, 1), int16_t(1));
        QCOMPARE(corrente, int16_t(102));
        QCOMPARE(inAttesa, 0);
    }

    void tipo_2_in_modo_1_l_anello_va_da_un_tasto_visibile_all_altro() {
        ModalitàFunzionamento = 1;
        QList<int16_t> giro;
        Copione c(*orologio);
        auto nota = [&] { giro.append(Quadro()->Motore.TastoCorrente); };
        c.Esegui(nota).Attendi(1000).Esegui(nota).Attendi(1000).Esegui(nota);
        c.Tasto(Qt::Key_Return);
        QCOMPARE(Apri(c, 2, 1), int16_t(1));
        QCOMPARE(giro, (QList<int16_t>{101, 103, 101}));
    }

    void tipo_2_in_modo_2_con_pausa_l_anello_continua_in_avanti() {
        ModalitàFunzionamento = 2;
        TipoInversioneScansione = 2;
        QList<int16_t> giro;
        int16_t passo = -9;
        Copione c(*orologio);
        auto nota = [&] { giro.append(Quadro()->Motore.TastoCorrente); };
        c.Tasto(Qt::Key_Space).Esegui([&] { passo = Quadro()->Motore.PassoScansione; });
        c.Attendi(1000).Esegui(nota).Attendi(1000).Esegui(nota);
        c.Tasto(Qt::Key_Return);
        QCOMPARE(Apri(c, 2, 1), int16_t(1));
        QCOMPARE(passo, int16_t(0));
        QCOMPARE(giro, (QList<int16_t>{103, 101}));
    }

    void tipo_2_in_modo_2_all_indietro_salta_il_tasto_invisibile() {
        ModalitàFunzionamento = 2;
        QList<int16_t> giro;
        Copione c(*orologio);
        auto nota = [&] { giro.append(Quadro()->Motore.TastoCorrente); };
        c.Tasto(Qt::Key_Space).Attendi(1000).Esegui(nota).Attendi(1000).Esegui(nota);
        c.Tasto(Qt::Key_Return);
        QCOMPARE(Apri(c, 2, 3), int16_t(3));
        QCOMPARE(giro, (QList<int16_t>{101, 103}));
    }

    void tipo_3_in_modo_4_destra_da_103_va_a_101() {
        ModalitàFunzionamento = 4;
        int16_t dopo = 0;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Right).Esegui([&] { dopo = Quadro()->Motore.TastoCorrente; });
        c.Tasto(Qt::Key_Left).Tasto(Qt::Key_Return);
        QCOMPARE(Apri(c, 3, 2), int16_t(2));
        QCOMPARE(dopo, int16_t(101));
    }

    void in_modo_4_invio_aziona_subito_il_tasto_predefinito() {
        ModalitàFunzionamento = 4;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Return);
        QCOMPARE(Apri(c, 4, 3), int16_t(3));
    }

    void in_modo_3_dopo_il_primo_ridisegno_non_resta_alcun_flag() {
        ModalitàFunzionamento = 3;
        int16_t prima = 0, dopo = -1;
        Copione c(*orologio);
        c.Esegui([&] { prima = TastoPredefinito(*Quadro()); });
        c.Tasto(Qt::Key_Space).Esegui([&] { dopo = TastoPredefinito(*Quadro()); });
        c.Tasto(Qt::Key_Return); // Enter is the choice key in mode 3
        QCOMPARE(Apri(c, 2, 1), int16_t(3));
        QCOMPARE(prima, int16_t(101));
        QCOMPARE(dopo, int16_t(0));
    }

    void suona_una_volta_alla_prima_attivazione() {
        ModalitàFunzionamento = 4;
        int bip = -1;
        Copione c(*orologio);
        c.Esegui([&] { bip = ContatoreBip; }).Tasto(Qt::Key_Return);
        Apri(c, 1, 1);
        QCOMPARE(bip, 1);
        QCOMPARE(ContatoreBip, 1);
    }

    void nessun_tasto_diretto_funziona_qui() {
        ModalitàFunzionamento = 4;
        Copione c(*orologio);
        c.Tasto(Qt::Key_F6).Tasto(Qt::Key_F11).Tasto(Qt::Key_Return);
        QCOMPARE(Apri(c, 1, 1), int16_t(1));
        QCOMPARE(ModalitàFunzionamento, int16_t(4));
    }

    void escape_non_chiude_il_quadro() {
        ModalitàFunzionamento = 4;
        bool aperto = false;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Escape).Esegui([&] { aperto = Quadro() != nullptr; });
        c.Tasto(Qt::Key_Return);
        QCOMPARE(Apri(c, 2, 1), int16_t(1));
        QVERIFY(aperto);
    }

    void il_testo_lungo_scorre_nella_sua_casella_e_nessun_tasto_lo_scorre() {
        ModalitàFunzionamento = 4;
        QStringList righe;
        for (int i = 1; i <= 60; ++i)
            righe << QStringLiteral("Riga numero %1").arg(i);
        int massimo = -1, valore = -1;
        QString mostrato;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Down).Tasto(Qt::Key_Down).Esegui([&] {
            QScrollBar* barra = Quadro()->ImmiTestoMessaggio->verticalScrollBar();
            massimo = barra->maximum();
            valore = barra->value();
            mostrato = Quadro()->ImmiTestoMessaggio->toPlainText();
        });
        c.Tasto(Qt::Key_Return);
        Apri(c, 4, 1, Righe(righe));
        QVERIFY(massimo > 0);
        QCOMPARE(valore, 0);
        QCOMPARE(mostrato, righe.join(QChar(u'\n')));
    }

    void titolo_e_posti_dei_tasti() {
        ModalitàFunzionamento = 4;
        QString titolo;
        QList<QRect> posti;
        QRect casella;
        int larghezza = 0;
        Copione c(*orologio);
        c.Esegui([&] {
            titolo = Quadro()->windowTitle();
            for (int16_t i = 101; i <= 103; ++i)
                posti.append(Quadro()->Tasti.value(i)->geometry());
            casella = Quadro()->ImmiTestoMessaggio->geometry();
            larghezza = Quadro()->width();
        });
        c.Tasto(Qt::Key_Return);
        Apri(c, 4, 1);
        QCOMPARE(titolo, QStringLiteral("Programma «ZANTO»  -  INFORMAZIONI  E  SCELTE"));
        // The panel is wider than its layout so that the title shows whole: the
        // buttons keep their places and spacing in the middle, the box spans it.
        const int spostamento = (larghezza - 320) / 2;
        QVERIFY(larghezza >= 320);
        QCOMPARE(posti, (QList<QRect>{{22 + spostamento, 294, 84, 38},
                                      {114 + spostamento, 294, 84, 38},
                                      {206 + spostamento, 294, 84, 38}}));
        QCOMPARE(casella, QRect(-2, 1, larghezza, 289));
    }

    void il_titolo_entra_nella_barra_della_finestra() {
        QuadroMessaggi q;
        QFont carattere = QApplication::font();
        carattere.setBold(true);
        const QFontMetrics misura(carattere);
        // The icon and the three buttons of a title bar take about a line's
        // height each.
        QVERIFY2(misura.horizontalAdvance(q.windowTitle()) + 4 * misura.height() <= q.width(),
                 qPrintable(QStringLiteral("%1 + %2 > %3")
                                .arg(misura.horizontalAdvance(q.windowTitle()))
                                .arg(4 * misura.height())
                                .arg(q.width())));
    }

    void le_didascalie_si_staccano_dal_tasto() {
        TipoQuadroMessaggi = 4;
        TastoPredefinitoQuadroMessaggi = 1;
        QuadroMessaggi q;
        q.AttivaQuadroMessaggi();
        Schermata(&q, QStringLiteral("messaggio-domanda"));
        const QList<std::pair<int16_t, uint32_t>> attese{
            {101, 0x00FF00}, {102, 0xFF0000}, {103, 0xFFFF00}};
        for (const auto& [indice, rgb] : attese) {
            TastoZanto* tasto = q.Tasti.value(indice);
            const QImage img = tasto->grab().toImage();
            // The face at the button's middle height, left of its caption.
            const QColor faccia = img.pixelColor(img.width() / 10, img.height() / 2);
            const QColor scritta = ColoreRGB(rgb);
            const double rapporto = RapportoContrasto(scritta, faccia);
            QVERIFY2(rapporto >= 4.5, qPrintable(QStringLiteral("%1 su %2: %3:1")
                                                     .arg(tasto->text(), faccia.name())
                                                     .arg(rapporto)));
            // And the caption is painted in its colour.
            int inColore = 0;
            for (int y = 0; y < img.height(); ++y)
                for (int x = 0; x < img.width(); ++x)
                    inColore += img.pixelColor(x, y) == scritta;
            QVERIFY2(inColore > 10, qPrintable(tasto->text()));
        }
    }

    void il_tasto_non_operativo_non_nomina_recapiti_inesistenti() {
        const QStringList righe = TestoTastoNonOperativo.split(u'\r');
        QCOMPARE(righe,
                 (QStringList{QStringLiteral("ATTENZIONE!"),
                              QStringLiteral("Il presente Tasto NON è attualmente operativo!"),
                              QStringLiteral("E' stato inserito per compatibilità con future"),
                              QStringLiteral("versioni del Programma ZANTO."),
                              QStringLiteral("Premere «OK» per proseguire!")}));
    }

    void ogni_tasto_ha_un_nome_accessibile() {
        ModalitàFunzionamento = 4;
        QStringList nomi;
        Copione c(*orologio);
        c.Esegui([&] {
            for (int16_t i = 101; i <= 103; ++i)
                nomi << Quadro()->Tasti.value(i)->accessibleName();
        });
        c.Tasto(Qt::Key_Return);
        Apri(c, 4, 1);
        QCOMPARE(nomi, (QStringList{"S I", "NO", "Annulla"}));
    }
};

QTEST_MAIN(ProvaQuadroMessaggi)
#include "test_quadro_messaggi.moc"
