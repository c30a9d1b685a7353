// The colour panel, opened as its callers open it and answered with keys in
// the four working modes.
#include "base/Bip.h"
#include "base/Configurazione.h"
#include "base/GestioneErrori.h"
#include "base/IconaSvg.h"
#include "base/Misure.h"
#include "input/QuadroMessaggi.h"
#include "panels/ProvaPannello.h"
#include "panels/QuadroSceltaColore1.h"
#include "support/AmbienteProva.h"
#include "support/MondoProva.h"
#include "support/OrologioVirtuale.h"
#include "support/RigheProva.h"

#include <QScreen>
#include <QTextEdit>
#include <QtTest>

#include <memory>

namespace {

QuadroSceltaColore1* Quadro() {
    return PannelloDavanti<QuadroSceltaColore1>();
}

// The palette as blue-green-red longs, button 101 first.
const QList<int32_t> Attesi = {0xFFFFFF, 0x00FFFF, 0xFF00FF, 0x0000FF, 0xFFFF00, 0x00FF00,
                               0xFF0000, 0x808080, 0x008080, 0x800080, 0x000080, 0x808000,
                               0x008000, 0x800000, 0x000000, 0x004080, 0x000040, 0x0080FF,
                               0x4080FF, 0xA6A6FF, 0x8888FF, 0xA7F25B};

int32_t Atteso(int tasto) {
    return tasto <= 122 ? Attesi[tasto - 101] : -1;
}

// The ring one press at a time from 101 to `tasto`, as each mode moves it, and
// the choice. Mode 2 turns back with the scan key when that is shorter.
void VaiEScegli(Copione& c, int modo, int tasto) {
    const int avanti = tasto - 101;
    switch (modo) {
    case 1:
        c.Attendi(1000LL * avanti);
        break;
    case 2:
        if (avanti <= 12) {
            c.Attendi(1000LL * avanti);
        } else {
            // The new sense counts from the next tick: 101, 124, 123, ...
            c.Tasto(Qt::Key_Space).Attendi(1000LL * (125 - tasto));
        }
        break;
    case 3:
        for (int i = 0; i < avanti; ++i)
            c.Tasto(Qt::Key_Space);
        break;
    default: {
        // Rows by Down, or by Up round the top to the third; columns by
        // Right, or by Left round the start of the row when shorter.
        const int riga = avanti / 8, colonna = avanti % 8;
        if (riga == 2)
            c.Tasto(Qt::Key_Up);
        else if (riga == 1)
            c.Tasto(Qt::Key_Down);
        if (colonna <= 4) {
            for (int i = 0; i < colonna; ++i)
                c.Tasto(Qt::Key_Right);
        } else {
            for (int i = 0; i < 8 - colonna; ++i)
                c.Tasto(Qt::Key_Left);
        }
        break;
    }
    }
    c.Tasto(Qt::Key_Return);
}

} // namespace

class ProvaQuadroSceltaColore : public QObject, MondoProva {
    Q_OBJECT

    // A message left open above the panel is closed first, so that a failing
    // script ends with the panel still open, and says so.
    bool Apri(Copione& c) {
        c.Esegui([] {
            if (auto* m = PannelloDavanti<QuadroMessaggi>()) m->done(-1);
        });
        return EseguiNelPannello(c, [] { ApriQuadroSceltaColore1(); });
    }

    // Where the ring starts with this colour in use.
    int16_t Partenza(int32_t colore) {
        ModalitàFunzionamento = 3;
        ColoreScelto = colore;
        int16_t partenza = 0;
        Copione c(*orologio);
        c.Esegui([&] { partenza = Quadro()->Motore.TastoCorrente; });
        c.Esegui([] { Quadro()->ClickTasto(124); });
        if (!Apri(c)) return -1;
        return partenza;
    }

private slots:
    void init() {
        PreparaSenzaDati();
        ColoreScelto = -1;
    }
    void cleanup() { Libera(); }

    void posti_misure_e_titolo() {
        ModalitàFunzionamento = 4;
        QSize cliente;
        QString titolo;
        QList<QRect> posti, corone;
        Copione c(*orologio);
        c.Esegui([&] {
            cliente = Quadro()->size();
            titolo = Quadro()->windowTitle();
            for (int16_t i = 101; i <= 124; ++i) {
                posti.append(Quadro()->Tasti.value(i)->geometry());
                corone.append(Quadro()->Corone.value(i)->geometry());
            }
            Schermata(Quadro(), QStringLiteral("scelta-colore"));
        });
        c.Tasto(Qt::Key_Left).Esegui([] {
            Schermata(Quadro(), QStringLiteral("scelta-colore-108"));
        });
        c.Tasto(Qt::Key_Up).Esegui([] {
            Schermata(Quadro(), QStringLiteral("scelta-colore-124"));
        });
        c.Esegui([] {
            if (Quadro() != nullptr) Quadro()->ClickTasto(124);
        });
        QVERIFY(Apri(c));
        QCOMPARE(cliente, QSize(Px(5925), Px(2190)));
        QCOMPARE(titolo, QStringLiteral("Programma «ZANTO»  -  Scelta Colore"));
        QCOMPARE(posti.size(), 24);
        for (int i = 0; i < 24; ++i) {
            const int colonna = i % 8, riga = i / 8;
            QCOMPARE(posti[i], RettangoloTwips(75 + 735 * colonna, 75 + 735 * riga, 630, 630));
            QCOMPARE(posti[i].width(), posti[i].height()); // square
            QVERIFY(corone[i].contains(posti[i]) && corone[i] != posti[i]);
            // Rings of neighbours never overlap: a ring shows around its button alone.
            if (colonna > 0) QVERIFY(!corone[i].intersects(corone[i - 1]));
            if (riga > 0) QVERIFY(!corone[i].intersects(corone[i - 8]));
        }
        // The form is 2190 twips high, a pixel under its last row: the rings of the last
        // row keep one pixel under their buttons, all others their whole width.
        for (int i = 0; i < 24; ++i) {
            QVERIFY(corone[i].left() >= 0 && corone[i].top() >= 0);
            QVERIFY(corone[i].right() < cliente.width());
            QVERIFY(posti[i].bottom() + 1 < cliente.height());
        }
    }

    void la_tavolozza_sta_nei_tasti_e_si_vede() {
        ModalitàFunzionamento = 3;
        QList<int32_t> colori;
        QList<int32_t> visti;
        QStringList immagini;
        QList<bool> conIcona;
        QSize arcobaleno;
        Copione c(*orologio);
        c.Esegui([&] {
            QuadroSceltaColore1* q = Quadro();
            arcobaleno = q->Tasti.value(123)->iconSize();
            const QImage schermo = q->grab().toImage();
            for (int16_t i = 101; i <= 124; ++i) {
                colori.append(q->ColoreTasto(i));
                const QRgb p = schermo.pixel(q->Tasti.value(i)->geometry().center());
                visti.append(qRed(p) | (qGreen(p) << 8) | (qBlue(p) << 16));
            }
            for (int16_t i : {123, 124}) {
                immagini << q->Tasti.value(i)->property(ProprietaRisorsaIcona).toString();
                conIcona << !q->Tasti.value(i)->icon().isNull();
            }
        });
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(colori.mid(0, 22), Attesi);
        QCOMPARE(colori.mid(22), (QList<int32_t>{-1, -1}));
        // What the user sees in the middle of each colour button is its colour.
        QCOMPARE(visti.mid(0, 22), Attesi);
        QCOMPARE(immagini, (QStringList{":/icone/pannelli/arcobaleno.svg",
                                        ":/icone/pannelli/annulla-colore.svg"}));
        QCOMPARE(conIcona, (QList<bool>{true, true}));
        QCOMPARE(arcobaleno, QSize(32, 32));
        // Light grey, the canvas' own background, is not on offer.
        QVERIFY(!colori.contains(0xC0C0C0));
    }

    void l_anello_parte_dal_colore_in_uso_data() {
        QTest::addColumn<int>("colore");
        QTest::addColumn<int>("partenza");
        for (int t = 101; t <= 122; ++t)
            if (t != 115)
                QTest::newRow(qPrintable(QStringLiteral("tasto %1").arg(t))) << Atteso(t) << t;
        QTest::newRow("nero: 0 non e' sopra 0") << 0x000000 << 101;
        QTest::newRow("bianco") << 0xFFFFFF << 101;
        QTest::newRow("grigio chiaro, fuori tavolozza") << 0xC0C0C0 << 101;
        QTest::newRow("un colore qualunque") << 0x123456 << 101;
        QTest::newRow("nessuno") << -1 << 101;
    }
    void l_anello_parte_dal_colore_in_uso() {
        QFETCH(int, colore);
        QFETCH(int, partenza);
        QCOMPARE(Partenza(colore), int16_t(partenza));
    }

    void all_apertura_un_solo_anello_verde_e_il_predefinito_sotto() {
        ModalitàFunzionamento = 4;
        ColoreScelto = 0x008000; // 113
        VistaPannello vista;
        int16_t sezione = 0;
        Copione c(*orologio);
        c.Esegui([&] {
            vista = OsservaPannello();
            sezione = SezioneCorrente;
        });
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(vista.Corrente, int16_t(113));
        QCOMPARE(vista.Visibili, QList<int16_t>{113});
        QCOMPARE(vista.Colori.value(113), Verde);
        QCOMPARE(vista.Predefinito, int16_t(113));
        QVERIFY(sezione >= 1700 && sezione <= 1790);
        // Enter fires the button under the ring at once.
        QCOMPARE(ColoreScelto, 0x008000);
    }

    void ogni_scelta_in_ogni_modo_data() {
        QTest::addColumn<int>("modo");
        QTest::addColumn<int>("tasto");
        for (int m = 1; m <= 4; ++m)
            for (int t = 101; t <= 124; ++t)
                if (t != 123)
                    QTest::newRow(qPrintable(QStringLiteral("modo %1/tasto %2").arg(m).arg(t)))
                        << m << t;
    }
    void ogni_scelta_in_ogni_modo() {
        QFETCH(int, modo);
        QFETCH(int, tasto);
        ModalitàFunzionamento = static_cast<int16_t>(modo);
        TipoInversioneScansione = 1;
        // In use, not in the palette: the ring starts on 101, and a cancel is seen.
        ColoreScelto = 0x123456;
        Copione c(*orologio);
        int16_t prima = 0;
        c.Esegui([&] { prima = Quadro()->Motore.TastoCorrente; });
        VaiEScegli(c, modo, tasto);
        QVERIFY(Apri(c));
        QVERIFY2(c.Problemi.isEmpty(), qPrintable(c.Problemi.join(u'\n')));
        QCOMPARE(prima, int16_t(101));
        QCOMPARE(ColoreScelto, Atteso(tasto));
        QCOMPARE(ContatoreBip, 0);
        // Nothing keeps ticking once the panel is gone.
        QCOMPARE(orologio->InAttesa(), 0);
    }

    void le_frecce_del_modo_4_girano_nella_griglia() {
        ModalitàFunzionamento = 4;
        QList<int16_t> posti;
        Copione c(*orologio);
        const auto nota = [&] { posti.append(Quadro()->Motore.TastoCorrente); };
        const QList<Qt::Key> frecce = {Qt::Key_Left,  Qt::Key_Right, Qt::Key_Up,    Qt::Key_Down,
                                       Qt::Key_Right, Qt::Key_Right, Qt::Key_Right, Qt::Key_Up,
                                       Qt::Key_Down,  Qt::Key_Down,  Qt::Key_Down,  Qt::Key_Down,
                                       Qt::Key_Up,    Qt::Key_Right, Qt::Key_Right, Qt::Key_Right,
                                       Qt::Key_Right, Qt::Key_Right, Qt::Key_Left,  Qt::Key_Down,
                                       Qt::Key_Up,    Qt::Key_Left,  Qt::Key_Left};
        for (Qt::Key f : frecce)
            c.Tasto(f).Esegui(nota);
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(posti, (QList<int16_t>{108, // left from the first of a row: its last
                                        101, // right from the last: its first
                                        117, // up from the top row: the bottom one
                                        101, // down from the bottom row: the top one
                                        102, 103, 104,
                                        120, // up from 104: 104 - 8 + 24
                                        104, // down from 120: 120 + 8 - 24
                                        112, 120, 104, 120, 121, 122, 123, 124,
                                        117, // right from 124: the first of its row
                                        124, // left from 117: the last of its row
                                        108, // down from 124
                                        124, // up from 108
                                        123, 122}));
        QCOMPARE(ColoreScelto, Atteso(122));
    }

    void scansione_e_tempo_seguono_la_fila_non_la_griglia() {
        // Mode 3: the scan key walks 101 to 124 in a row and wraps to 101.
        ModalitàFunzionamento = 3;
        QList<int16_t> posti;
        {
            Copione c(*orologio);
            for (int i = 0; i < 24; ++i)
                c.Tasto(Qt::Key_Space).Esegui([&] {
                    posti.append(Quadro()->Motore.TastoCorrente);
                });
            c.Tasto(Qt::Key_Return);
            QVERIFY(Apri(c));
        }
        QCOMPARE(posti.mid(6, 3), (QList<int16_t>{108, 109, 110})); // across rows
        QCOMPARE(posti.last(), int16_t(101));
        QCOMPARE(ColoreScelto, Atteso(101));
        // Mode 1: each dwell a full tick, from 124 on to 101.
        ModalitàFunzionamento = 1;
        ColoreScelto = 0x8888FF; // starts on 121
        posti.clear();
        Copione c(*orologio);
        const auto nota = [&] { posti.append(Quadro()->Motore.TastoCorrente); };
        c.Esegui(nota).Attendi(999).Esegui(nota);
        for (int i = 0; i < 4; ++i)
            c.Attendi(i == 0 ? 1 : 1000).Esegui(nota);
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(posti, (QList<int16_t>{121, 121, 122, 123, 124, 101}));
        QCOMPARE(ColoreScelto, Atteso(101));
    }

    void nel_modo_2_il_tasto_di_scansione_torna_indietro() {
        ModalitàFunzionamento = 2;
        TipoInversioneScansione = 2;
        ColoreScelto = 0x00FF00; // 106
        QList<int16_t> posti;
        Copione c(*orologio);
        const auto nota = [&] { posti.append(Quadro()->Motore.TastoCorrente); };
        // Forward, a pause, then backwards.
        c.Attendi(1000).Esegui(nota).Tasto(Qt::Key_Space).Attendi(1000).Esegui(nota);
        c.Tasto(Qt::Key_Space).Attendi(1000).Esegui(nota).Attendi(1000).Esegui(nota);
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(posti, (QList<int16_t>{107, 107, 106, 105}));
        QCOMPARE(ColoreScelto, Atteso(105));
    }

    void il_tasto_arcobaleno_avvisa_e_il_quadro_resta_data() { RigheModo({1, 2, 3, 4}); }
    void il_tasto_arcobaleno_avvisa_e_il_quadro_resta() {
        QFETCH(int, modo);
        ModalitàFunzionamento = static_cast<int16_t>(modo);
        TipoInversioneScansione = 1;
        ColoreScelto = 0x000040; // 117, the first of the row of 123
        QString titolo, testo;
        int16_t tipo = 0, dopoMessaggio = 0, dopoUnPasso = 0;
        int bipAlMessaggio = -1;
        bool restaAperto = false;
        Copione c(*orologio);
        // From 117 to 123 as the mode moves the ring.
        switch (modo) {
        case 1:
        case 2:
            c.Attendi(6000);
            break;
        case 3:
            for (int i = 0; i < 6; ++i)
                c.Tasto(Qt::Key_Space);
            break;
        default:
            c.Tasto(Qt::Key_Left).Tasto(Qt::Key_Left); // round the row: 124, 123
            break;
        }
        c.Tasto(Qt::Key_Return);
        c.Esegui([&] {
            auto* m = PannelloDavanti<QuadroMessaggi>();
            if (m == nullptr) return;
            titolo = m->windowTitle();
            testo = m->ImmiTestoMessaggio->toPlainText();
            tipo = TipoQuadroMessaggi;
            bipAlMessaggio = ContatoreBip;
        });
        c.Tasto(Qt::Key_Return); // OK
        c.Esegui([&] {
            restaAperto = Quadro() != nullptr;
            if (restaAperto) dopoMessaggio = Quadro()->Motore.TastoCorrente;
        });
        c.Attendi(1000).Esegui([&] {
            if (Quadro() != nullptr) dopoUnPasso = Quadro()->Motore.TastoCorrente;
        });
        c.Esegui([] {
            if (Quadro() != nullptr) Quadro()->ClickTasto(124);
        });
        QVERIFY(Apri(c));
        QVERIFY2(c.Problemi.isEmpty(), qPrintable(c.Problemi.join(u'\n')));
        QCOMPARE(titolo, QStringLiteral("Programma «ZANTO»  -  INFORMAZIONI  E  SCELTE"));
        QCOMPARE(tipo, int16_t(1));
        QCOMPARE(testo, QString(TestoTastoNonOperativo).replace(u'\r', u'\n'));
        QVERIFY(testo.startsWith(QStringLiteral("ATTENZIONE!\nIl presente Tasto NON è "
                                                "attualmente operativo!\n")));
        QVERIFY(testo.endsWith(QStringLiteral("\nPremere «OK» per proseguire!")));
        // One beep from the button, one from the message as it opens.
        QCOMPARE(bipAlMessaggio, 2);
        QCOMPARE(ContatoreBip, 2);
        QVERIFY(restaAperto);
        QCOMPARE(dopoMessaggio, int16_t(123));
        // In modes 1 and 2 the ring walks again; in 3 and 4 it waits for a key.
        QCOMPARE(dopoUnPasso, int16_t(modo <= 2 ? 124 : 123));
        QCOMPARE(ColoreScelto, -1);
    }

    void il_tasto_di_annullamento_da_meno_uno() {
        ModalitàFunzionamento = 4;
        ColoreScelto = 0x0000FF; // 104, in use
        Copione c(*orologio);
        c.Tasto(Qt::Key_Up).Tasto(Qt::Key_Right).Tasto(Qt::Key_Right).Tasto(Qt::Key_Right);
        c.Tasto(Qt::Key_Right).Tasto(Qt::Key_Return); // 104 -> 120 -> 124
        QVERIFY(Apri(c));
        QCOMPARE(ColoreScelto, -1);
        QCOMPARE(ContatoreBip, 0);
    }

    void escape_e_gli_altri_tasti_non_fanno_nulla() {
        ModalitàFunzionamento = 4;
        ColoreScelto = 0xFF0000; // 107
        bool aperto = false;
        int16_t dopo = 0;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Escape).Tasto(Qt::Key_Space).Tasto(Qt::Key_F6).Tasto(Qt::Key_Z);
        c.Esegui([&] {
            aperto = Quadro() != nullptr;
            if (aperto) dopo = Quadro()->Motore.TastoCorrente;
        });
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QVERIFY(aperto);
        QCOMPARE(dopo, int16_t(107));
        QCOMPARE(ModalitàFunzionamento, int16_t(4));
        QCOMPARE(ColoreScelto, 0xFF0000);
        QCOMPARE(ContatoreBip, 0);
    }

    void un_clic_del_mouse_sceglie_e_ferma_l_anello() {
        ModalitàFunzionamento = 1;
        Copione c(*orologio);
        c.Esegui([] { QTest::mouseClick(Quadro()->Tasti.value(119), Qt::LeftButton); });
        QVERIFY(Apri(c));
        QCOMPARE(ColoreScelto, Atteso(119));
        QCOMPARE(orologio->InAttesa(), 0);
    }

    void senza_schermo_sotto_si_apre_al_centro_del_video() {
        ModalitàFunzionamento = 3;
        QPoint centro;
        Copione c(*orologio);
        c.Esegui([&] { centro = Quadro()->geometry().center(); }).Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        const QPoint atteso = QGuiApplication::primaryScreen()->availableGeometry().center();
        QVERIFY2((centro - atteso).manhattanLength() <= 2,
                 qPrintable(QStringLiteral("%1,%2").arg(centro.x()).arg(centro.y())));
    }

    void ogni_apertura_riparte_da_capo() {
        ModalitàFunzionamento = 2;
        TipoInversioneScansione = 1;
        {
            Copione c(*orologio);
            c.Tasto(Qt::Key_Space).Attendi(1000).Tasto(Qt::Key_Return); // backwards to 124
            QVERIFY(Apri(c));
        }
        QCOMPARE(ColoreScelto, -1);
        QList<int16_t> posti;
        Copione c(*orologio);
        c.Attendi(1000).Esegui([&] { posti.append(Quadro()->Motore.TastoCorrente); });
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        // A new panel scans forward again.
        QCOMPARE(posti, QList<int16_t>{102});
        QCOMPARE(ColoreScelto, Atteso(102));
    }
};

QTEST_MAIN(ProvaQuadroSceltaColore)
#include "test_quadro_scelta_colore.moc"
