// The element panel driven by keys on the virtual clock: its layout, the title
// that speaks the key under the ring, walking, deleting and moving actions of
// Azioni with the canvas replayed, closing, and the ring in the four modes.
#include "AzioniSelezione.h"

#include "base/Bip.h"
#include "base/Configurazione.h"
#include "base/IconaSvg.h"
#include "base/Misure.h"
#include "model/StatoAmbiente.h"
#include "model/VistaSuperficie.h"
#include "panels/ProvaPannello.h"
#include "panels/QuadroSelectPrimitiva.h"
#include "support/AmbienteProva.h"
#include "support/OrologioVirtuale.h"

#include <QLabel>
#include <QtTest>

#include <memory>

using namespace AzioniSelezione;

namespace {

QuadroSelectPrimitiva* Quadro() {
    return PannelloDavanti<QuadroSelectPrimitiva>();
}

const QStringList Suggerimenti{"Rende Attiva l'Azione evidenziata",
                               "Elimina l'Azione evidenziata",
                               "Sposta all'Azione precedente",
                               "Sposta all'Azione successiva",
                               "Sposta alla Prima Azione",
                               "Sposta all'Ultima Azione",
                               "Sposta l'Azione alla posizione precedente",
                               "Sposta l'Azione alla posizione successiva",
                               "Chiudi"};

QString TitoloPer(int16_t tasto) {
    return QStringLiteral("Programma «ZANTO»  -  Selezione Elemento  #  COMANDO: « ") +
           Suggerimenti[tasto - 101] + QStringLiteral(" » ");
}

// Three lines one under the other, each in its own colour.
QList<RecordAzione> TreLinee() {
    return {Linea(1000, 2000, 9000, 2000, ColoreRosso, 2),
            Linea(1000, 4000, 9000, 4000, ColoreVerde, 2),
            Linea(1000, 6000, 9000, 6000, ColoreBlu, 2)};
}

// With five keys: from the ring on `da` to `a` by Right, then Enter.
void Premi(Copione& c, int da, int a) {
    for (int i = 0; i < (a - da + 9) % 9; ++i)
        c.Tasto(Qt::Key_Right);
    c.Tasto(Qt::Key_Return);
}

} // namespace

class ProvaQuadroSelectPrimitiva : public QObject {
    Q_OBJECT

    std::unique_ptr<AmbienteProva> amb;
    std::unique_ptr<OrologioVirtuale> orologio;
    std::unique_ptr<Superficie> tela;

    bool Apri(Copione& c) {
        return EseguiNelPannello(c, [this] { ApriQuadroSelectPrimitiva(*tela); });
    }

private slots:
    void init() {
        amb = std::make_unique<AmbienteProva>(false);
        orologio = std::make_unique<OrologioVirtuale>();
        tela = std::make_unique<Superficie>(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
        tela->ImpostaBackColor(Grigio);
        TempoLatenzaScansione = 1000;
    }
    void cleanup() {
        tela.reset();
        orologio.reset();
        amb.reset();
    }

    void posti_misure_scritte_e_immagini() {
        ModalitàFunzionamento = 4;
        Metti(TreLinee(), *tela);
        QSize cliente, disegno;
        QRect vista;
        QList<QRect> posti;
        QStringList suggerimenti, immagini, scritte;
        QList<bool> conIcona;
        QString titolo;
        int16_t corrente = 0, scelta = -1;
        int32_t sfondo = -1;
        Copione c(*orologio);
        c.Esegui([&] {
            QuadroSelectPrimitiva* q = Quadro();
            cliente = q->size();
            vista = q->VistaDisegnoPrimitive->geometry();
            disegno = q->QuadroDisegnoPrimitive.Immagine().size();
            sfondo = q->QuadroDisegnoPrimitive.BackColor();
            for (int16_t i = 101; i <= 109; ++i) {
                TastoZanto* t = q->Tasti.value(i);
                posti << t->geometry();
                suggerimenti << t->toolTip();
                immagini << t->property(ProprietaRisorsaIcona).toString();
                conIcona << !t->icon().isNull();
            }
            scritte << q->ScrittaAzioneAttiva->text() << q->ScrittaNumAzioneAttiva->text();
            titolo = q->windowTitle();
            corrente = q->Motore.TastoCorrente;
            scelta = AzioneScelta;
        });
        Premi(c, 103, 101);
        QVERIFY(Apri(c));
        QCOMPARE(cliente, QSize(Px(15270), Px(11145)));
        QCOMPARE(vista, RettangoloTwips(563, 0, 14144, 10000));
        QCOMPARE(disegno, QSize(943, 667));
        QCOMPARE(sfondo, Grigio);
        const int sinistre[] = {4980, 5925, 6870, 7815, 8760, 9705, 10635, 11565, 12495};
        for (int i = 0; i < 9; ++i)
            QCOMPARE(posti[i], RettangoloTwips(sinistre[i], 10245, 705, 660));
        QCOMPARE(suggerimenti, Suggerimenti);
        QCOMPARE(conIcona, QList<bool>(9, true));
        QCOMPARE(immagini.last(), QStringLiteral(":/icone/pannelli/chiudi.svg"));
        for (int i = 0; i < 8; ++i)
            QVERIFY(immagini[i].startsWith(QStringLiteral(":/icone/selezione/")));
        QCOMPARE(QSet<QString>(immagini.begin(), immagini.end()).size(), 9);
        QCOMPARE(scritte, (QStringList{"Numero Azione Attiva:", "0003"}));
        // It opens on the last action with the ring on the previous-action key.
        QCOMPARE(corrente, int16_t(103));
        QCOMPARE(scelta, int16_t(3));
        QCOMPARE(titolo, TitoloPer(103));
        QCOMPARE(AzioneScelta, int16_t(3));
    }

    void si_apre_sopra_lo_schermo_che_lo_chiama() {
        ModalitàFunzionamento = 4;
        Metti(TreLinee(), *tela);
        // A screen below, as the drawing screen stands: the panel covers it whole.
        struct Sotto : FormScansione {
            Sotto() : FormScansione(101, 101) { setFixedSize(Px(15270), Px(11145)); }
            void ClickTasto(int16_t) override {}
        } sotto;
        sotto.move(40, 30);
        sotto.show();
        QPoint posto;
        Copione c(*orologio);
        c.Esegui([&] { posto = Quadro()->frameGeometry().topLeft(); });
        Premi(c, 103, 109);
        // Only the panel may be left in front at the end.
        c.Esegui([&] { sotto.hide(); });
        QVERIFY(Apri(c));
        QCOMPARE(posto, sotto.frameGeometry().topLeft());
    }

    void il_titolo_dice_il_comando_a_ogni_passo() {
        ModalitàFunzionamento = 3;
        Metti(TreLinee(), *tela);
        QStringList titoli;
        QList<int16_t> predefiniti;
        Copione c(*orologio);
        const auto guarda = [&] {
            titoli << Quadro()->windowTitle();
            predefiniti << TastoPredefinito(*Quadro());
        };
        c.Esegui(guarda);
        // Round the row and past the end: after 109 comes 101.
        for (int i = 0; i < 15; ++i)
            c.Tasto(Qt::Key_Space).Esegui(guarda);
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QStringList attesi;
        QList<int16_t> tasti;
        for (int i = 0; i <= 15; ++i) {
            const auto tasto = static_cast<int16_t>(101 + (2 + i) % 9);
            attesi << TitoloPer(tasto);
            tasti << tasto;
        }
        QCOMPARE(titoli, attesi);
        // In mode 3 the key under the ring holds the default flag.
        QCOMPARE(predefiniti, tasti);
        QCOMPARE(titoli.first(), QStringLiteral("Programma «ZANTO»  -  Selezione Elemento  #  "
                                                "COMANDO: « Sposta all'Azione precedente » "));
        // Fifteen steps from 103 end on "Chiudi", which the choice key fires.
        QCOMPARE(AzioneScelta, int16_t(0));
    }

    void modo_4_le_frecce_girano_ai_due_capi() {
        ModalitàFunzionamento = 4;
        Metti(TreLinee(), *tela);
        QList<int16_t> visti;
        Copione c(*orologio);
        const auto guarda = [&] { visti << Quadro()->Motore.TastoCorrente; };
        c.Esegui(guarda);
        // Space is no key of this mode.
        for (Qt::Key k : {Qt::Key_Left, Qt::Key_Up, Qt::Key_Left, Qt::Key_Down, Qt::Key_Right,
                          Qt::Key_Space, Qt::Key_Up, Qt::Key_Up})
            c.Tasto(k).Esegui(guarda);
        c.Tasto(Qt::Key_Return); // on 109
        QVERIFY(Apri(c));
        QCOMPARE(visti, (QList<int16_t>{103, 102, 101, 109, 101, 102, 102, 101, 109}));
        QCOMPARE(ContatoreBip, 0);
        QCOMPARE(AzioneScelta, int16_t(0));
    }

    void i_tasti_di_selezione_camminano_le_azioni() {
        ModalitàFunzionamento = 4;
        Metti(TreLinee(), *tela);
        QList<int16_t> scelte;
        QStringList numeri;
        QList<int> bip;
        QList<qint64> disegni;
        Copione c(*orologio);
        const auto guarda = [&] {
            disegni << Quadro()->QuadroDisegnoPrimitive.Immagine().cacheKey();
            scelte << AzioneScelta;
            numeri << Quadro()->ScrittaNumAzioneAttiva->text();
            bip << ContatoreBip;
        };
        c.Esegui(guarda);
        c.Tasto(Qt::Key_Return).Esegui(guarda);                      // 103: 2
        c.Tasto(Qt::Key_Return).Esegui(guarda);                      // 103: 1
        c.Tasto(Qt::Key_Return).Esegui(guarda);                      // 103: beep
        c.Tasto(Qt::Key_Right).Tasto(Qt::Key_Return).Esegui(guarda); // 104: 2
        c.Tasto(Qt::Key_Right).Tasto(Qt::Key_Right).Tasto(Qt::Key_Return).Esegui(guarda); // 106: 3
        c.Tasto(Qt::Key_Left).Tasto(Qt::Key_Left).Tasto(Qt::Key_Return).Esegui(guarda); // 104: beep
        c.Tasto(Qt::Key_Right).Tasto(Qt::Key_Return).Esegui(guarda);                    // 105: 1
        Premi(c, 105, 101);
        QVERIFY(Apri(c));
        QCOMPARE(scelte, (QList<int16_t>{3, 2, 1, 1, 2, 3, 3, 1}));
        QCOMPARE(numeri,
                 (QStringList{"0003", "0002", "0001", "0001", "0002", "0003", "0003", "0001"}));
        QCOMPARE(bip, (QList<int>{0, 0, 0, 1, 1, 1, 2, 2}));
        // Each step that moves the selection draws the surface again; a beep does not.
        for (int i = 1; i < disegni.size(); ++i)
            QCOMPARE(disegni[i] != disegni[i - 1], bip[i] == bip[i - 1]);
        QCOMPARE(AzioneScelta, int16_t(1));
        QCOMPARE(Elenco(), TreLinee());
    }

    void con_una_sola_azione_103_104_107_108_suonano() {
        ModalitàFunzionamento = 4;
        const QList<RecordAzione> una{Linea(1000, 2000, 9000, 2000, ColoreRosso, 2)};
        Metti(una, *tela);
        const QImage telaPrima = tela->Immagine();
        QList<int> bip;
        QList<int16_t> scelte;
        // The bitmap's key changes with every drawing on it.
        QList<qint64> disegni;
        Copione c(*orologio);
        const auto guarda = [&] {
            bip << ContatoreBip;
            scelte << AzioneScelta;
            disegni << Quadro()->QuadroDisegnoPrimitive.Immagine().cacheKey();
        };
        c.Esegui(guarda);
        c.Tasto(Qt::Key_Return).Esegui(guarda);                      // 103
        c.Tasto(Qt::Key_Right).Tasto(Qt::Key_Return).Esegui(guarda); // 104
        Premi(c, 104, 107);
        c.Esegui(guarda);
        c.Tasto(Qt::Key_Right).Tasto(Qt::Key_Return).Esegui(guarda); // 108
        Premi(c, 108, 101);
        QVERIFY(Apri(c));
        QCOMPARE(bip, (QList<int>{0, 1, 2, 3, 4}));
        QCOMPARE(scelte, (QList<int16_t>{1, 1, 1, 1, 1}));
        // A beep draws nothing again.
        QCOMPARE(disegni, QList<qint64>(5, disegni.first()));
        QCOMPARE(Elenco(), una);
        QCOMPARE(tela->Immagine(), telaPrima);
    }

    void eliminare_l_ultima_di_tre_lascia_due_e_torna_alla_prima() {
        ModalitàFunzionamento = 4;
        Metti(TreLinee(), *tela);
        int32_t numero = -1;
        int16_t scelta = -1, corrente = 0;
        QString cifre;
        QList<RecordAzione> rimaste;
        int rossoSulQuadro = -1, bluSulQuadro = -1;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Left).Tasto(Qt::Key_Return); // 102
        c.Esegui([&] {
            numero = NumeroAzioni;
            scelta = AzioneScelta;
            corrente = Quadro()->Motore.TastoCorrente;
            cifre = Quadro()->ScrittaNumAzioneAttiva->text();
            rimaste = Elenco();
            const QImage& q = Quadro()->QuadroDisegnoPrimitive.Immagine();
            rossoSulQuadro = InRiga(q, Punto(0, 2000).y(), 0, q.width() - 1, ColoreRosso);
            bluSulQuadro = InRiga(q, Punto(0, 6000).y(), 0, q.width() - 1, ColoreBlu);
        });
        Premi(c, 104, 101);
        QVERIFY(Apri(c));
        QCOMPARE(numero, 2);
        QCOMPARE(rimaste, TreLinee().mid(0, 2));
        QCOMPARE(scelta, int16_t(1));
        QCOMPARE(cifre, QStringLiteral("0001"));
        QCOMPARE(corrente, int16_t(104));
        QCOMPARE(ContatoreBip, 0);
        // The panel shows the first line picked out, and the third is gone.
        QVERIFY(rossoSulQuadro > 0);
        QCOMPARE(bluSulQuadro, 0);
        // The canvas was replayed without it.
        const QImage& t = tela->Immagine();
        QCOMPARE(InRiga(t, Punto(0, 6000).y(), 0, t.width() - 1, ColoreBlu), 0);
        QVERIFY(InRiga(t, Punto(0, 4000).y(), 0, t.width() - 1, ColoreVerde) > 500);
        QCOMPARE(AzioneScelta, int16_t(1));
    }

    void eliminare_l_unica_azione_lascia_zero_azioni_e_la_scelta_a_uno() {
        ModalitàFunzionamento = 4;
        Metti({Rettangolo(2000, 2000, 6000, 5000, ColoreVerde)}, *tela);
        QVERIFY(Disegnati(tela->Immagine()) > 0);
        int32_t numero = -1;
        int16_t scelta = -1;
        int disegnati = -1;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Left).Tasto(Qt::Key_Return); // 102
        c.Esegui([&] {
            numero = NumeroAzioni;
            scelta = AzioneScelta;
            disegnati = Disegnati(Quadro()->QuadroDisegnoPrimitive.Immagine());
        });
        // Nothing is left to delete, to walk or to move: each of these beeps.
        c.Tasto(Qt::Key_Left).Tasto(Qt::Key_Left).Tasto(Qt::Key_Return);   // 102
        c.Tasto(Qt::Key_Right).Tasto(Qt::Key_Return);                      // 103
        c.Tasto(Qt::Key_Right).Tasto(Qt::Key_Right).Tasto(Qt::Key_Return); // 105
        c.Tasto(Qt::Key_Right).Tasto(Qt::Key_Right).Tasto(Qt::Key_Return); // 107
        Premi(c, 107, 101);
        QVERIFY(Apri(c));
        QCOMPARE(numero, 0);
        QCOMPARE(scelta, int16_t(1));
        QCOMPARE(disegnati, 0);
        QCOMPARE(Disegnati(tela->Immagine()), 0);
        QCOMPARE(ContatoreBip, 4);
        QCOMPARE(NumeroAzioni, 0);
        // 101 hands back an action that no longer exists: the caller checks.
        QCOMPARE(AzioneScelta, int16_t(1));
    }

    void dopo_uno_spostamento_o_un_eliminazione_ogni_colorazione_e_un_tondino_data() {
        QTest::addColumn<int>("tasto");
        QTest::newRow("102 elimina") << 102;
        QTest::newRow("107 prima") << 107;
        QTest::newRow("108 dopo") << 108;
    }
    void dopo_uno_spostamento_o_un_eliminazione_ogni_colorazione_e_un_tondino() {
        QFETCH(int, tasto);
        ModalitàFunzionamento = 4;
        // Two boxes, each run through by a fill, and a line to move or delete.
        Metti({Rettangolo(1000, 1000, 5000, 5000, ColoreGiallo, FlagVuoto),
               Colorazione(3000, 3000, ColoreVerde),
               Rettangolo(7000, 1000, 11000, 5000, ColoreGiallo, FlagVuoto),
               Colorazione(9000, 3000, ColoreBlu), Linea(500, 8000, 13000, 8000, ColoreRosso, 2)},
              *tela);
        QCOMPARE(Colore(tela->Immagine(), Punto(1500, 1500)), ColoreVerde);
        QCOMPARE(Colore(tela->Immagine(), Punto(7500, 1500)), ColoreBlu);
        Copione c(*orologio);
        // The line is the last action; 108 takes the fill before it instead.
        if (tasto == 108) c.Tasto(Qt::Key_Return); // 103: the blue fill
        Premi(c, 103, tasto);
        // A deletion takes the ring to the next-action key.
        Premi(c, tasto == 102 ? 104 : tasto, 101);
        QVERIFY(Apri(c));
        int tondini = 0;
        for (int32_t i = 1; i <= NumeroAzioni; ++i) {
            if (Azioni[i].TipoAzione != TipiAzione::Colorazione) continue;
            QCOMPARE(Azioni[i].FlagPienoVuoto, FlagVuoto);
            ++tondini;
            // A dot at the fill's point, and the box round it no longer flooded.
            const QPoint seme = Punto(Azioni[i].XCentro, Azioni[i].YCentro);
            QCOMPARE(Colore(tela->Immagine(), seme), Azioni[i].ColZona);
            const QRect dot = Macchia(tela->Immagine(), seme, 8);
            QVERIFY2(dot.width() <= 8 && dot.height() <= 8, qPrintable(QString::number(i)));
        }
        QCOMPARE(tondini, 2);
        QCOMPARE(Colore(tela->Immagine(), Punto(1500, 1500)), Grigio);
        QCOMPARE(Colore(tela->Immagine(), Punto(7500, 1500)), Grigio);
    }

    void spostare_prima_e_dopo_cambia_l_ordine_e_la_tela() {
        ModalitàFunzionamento = 4;
        const RecordAzione rosso = Rettangolo(2000, 2000, 7000, 7000, ColoreRosso);
        const RecordAzione blu = Rettangolo(5000, 5000, 10000, 9000, ColoreBlu);
        Metti({rosso, blu}, *tela);
        const QPoint sovrapposti = Punto(6000, 6000);
        QCOMPARE(Colore(tela->Immagine(), sovrapposti), ColoreBlu);
        QList<QList<RecordAzione>> ordini;
        QList<int32_t> colori;
        QList<int16_t> scelte, correnti;
        Copione c(*orologio);
        const auto guarda = [&] {
            ordini << Elenco();
            colori << Colore(tela->Immagine(), sovrapposti);
            scelte << AzioneScelta;
            correnti << Quadro()->Motore.TastoCorrente;
        };
        Premi(c, 103, 107);
        c.Esegui(guarda);
        c.Tasto(Qt::Key_Return).Esegui(guarda);                      // 107 again: no neighbour
        c.Tasto(Qt::Key_Right).Tasto(Qt::Key_Return).Esegui(guarda); // 108
        c.Tasto(Qt::Key_Return).Esegui(guarda);                      // 108 again: no neighbour
        Premi(c, 108, 101);
        QVERIFY(Apri(c));
        QCOMPARE(ordini, (QList<QList<RecordAzione>>{
                             {blu, rosso}, {blu, rosso}, {rosso, blu}, {rosso, blu}}));
        QCOMPARE(colori, (QList<int32_t>{ColoreRosso, ColoreRosso, ColoreBlu, ColoreBlu}));
        // The selection follows the action; the ring stays on the key.
        QCOMPARE(scelte, (QList<int16_t>{1, 1, 2, 2}));
        QCOMPARE(correnti, (QList<int16_t>{107, 107, 108, 108}));
        QCOMPARE(ContatoreBip, 2);
    }

    void il_101_tiene_la_scelta_e_il_109_la_azzera_data() {
        QTest::addColumn<int>("tasto");
        QTest::addColumn<int>("scelta");
        QTest::newRow("101") << 101 << 2;
        QTest::newRow("109") << 109 << 0;
    }
    void il_101_tiene_la_scelta_e_il_109_la_azzera() {
        QFETCH(int, tasto);
        QFETCH(int, scelta);
        ModalitàFunzionamento = 4;
        Metti(TreLinee(), *tela);
        bool chiuso = false;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Return); // 103: the second action
        Premi(c, 103, tasto);
        c.Esegui([&] { chiuso = Quadro() == nullptr; });
        QVERIFY(Apri(c));
        QVERIFY(chiuso);
        QCOMPARE(AzioneScelta, int16_t(scelta));
        QCOMPARE(Elenco(), TreLinee());
    }

    void modi_1_e_2_l_anello_gira_e_riparte_dopo_ogni_tasto_data() {
        QTest::addColumn<int>("modo");
        QTest::addColumn<int>("tasto");
        for (int modo = 1; modo <= 2; ++modo)
            for (int tasto = 102; tasto <= 108; ++tasto)
                QTest::addRow("modo %d, tasto %d", modo, tasto) << modo << tasto;
    }
    void modi_1_e_2_l_anello_gira_e_riparte_dopo_ogni_tasto() {
        QFETCH(int, modo);
        QFETCH(int, tasto);
        ModalitàFunzionamento = static_cast<int16_t>(modo);
        Metti(TreLinee(), *tela);
        QList<int16_t> visti;
        QList<int16_t> attivi;
        Copione c(*orologio);
        const auto guarda = [&] {
            visti << Quadro()->Motore.TastoCorrente;
            attivi << Quadro()->Motore.ScansioneAttiva;
        };
        // A full dwell on 103 first, then one key a dwell, round the end.
        c.Esegui(guarda).Attendi(999).Esegui(guarda).Attendi(1).Esegui(guarda);
        const int passi = (tasto - 104 + 9) % 9;
        c.Attendi(int64_t(passi) * 1000).Esegui(guarda);
        c.Tasto(Qt::Key_Return).Esegui(guarda);
        c.Attendi(999).Esegui(guarda).Attendi(1).Esegui(guarda);
        const int dopo = (tasto == 102 ? 104 : tasto) + 1;
        c.Attendi(int64_t(109 - dopo) * 1000).Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        const auto dove = static_cast<int16_t>(tasto == 102 ? 104 : tasto);
        QCOMPARE(visti,
                 (QList<int16_t>{103, 103, 104, int16_t(tasto), dove, dove, int16_t(dove + 1)}));
        QCOMPARE(attivi, (QList<int16_t>{1, 1, 1, 1, 1, 1, 1}));
        QCOMPARE(AzioneScelta, int16_t(0));
    }

    void modo_2_il_tasto_di_scansione_volta_il_verso() {
        ModalitàFunzionamento = 2;
        TipoInversioneScansione = 1;
        Metti(TreLinee(), *tela);
        QList<int16_t> visti;
        Copione c(*orologio);
        const auto guarda = [&] { visti << Quadro()->Motore.TastoCorrente; };
        c.Attendi(1000).Esegui(guarda); // 104
        c.Tasto(Qt::Key_Space);
        for (int i = 0; i < 4; ++i)
            c.Attendi(1000).Esegui(guarda);
        c.Tasto(Qt::Key_Return); // on 109
        QVERIFY(Apri(c));
        QCOMPARE(visti, (QList<int16_t>{104, 103, 102, 101, 109}));
        QCOMPARE(AzioneScelta, int16_t(0));
    }
};

QTEST_MAIN(ProvaQuadroSelectPrimitiva)
#include "test_quadro_select_primitiva.moc"
