// What the element panel's surface shows: the picked action dotted and thin,
// the others with their own pen, fills as dots of two sizes and never run, the
// dotted box of a picked text, the frame of every picture, found or not.
#include "AzioniSelezione.h"

#include "base/Configurazione.h"
#include "model/StatoAmbiente.h"
#include "model/VistaSuperficie.h"
#include "panels/ProvaPannello.h"
#include "panels/QuadroSelectPrimitiva.h"
#include "support/AmbienteProva.h"
#include "support/OrologioVirtuale.h"

#include <QtTest>

#include <memory>

using namespace AzioniSelezione;

class ProvaQuadroSelectPrimitivaDisegno : public QObject {
    Q_OBJECT

    std::unique_ptr<AmbienteProva> amb;
    std::unique_ptr<Superficie> tela;
    // The canvas replays a missing picture as the drawing screen does: with an error.
    qsizetype scatoleDellaTela = 0;

    // The panel prepared as its caller prepares it, not shown: its surface
    // is drawn all the same, and its keys can be fired by their index.
    std::unique_ptr<QuadroSelectPrimitiva> Prepara(const QList<RecordAzione>& azioni) {
        Metti(azioni, *tela);
        scatoleDellaTela = amb->Scatole.size();
        auto q = std::make_unique<QuadroSelectPrimitiva>(*tela);
        q->AttivaQuadroSelectPrimitiva();
        return q;
    }

    // The red pixels of a text within a box of pixels.
    static int Inchiostro(const QImage& img, int x1, int y1, int x2, int y2) {
        int n = 0;
        for (int y = y1; y <= y2; ++y)
            n += InRiga(img, y, x1, x2, ColoreRosso);
        return n;
    }

    QString FiguraVerde() {
        QImage figura(30, 20, QImage::Format_RGB32);
        figura.fill(QColor(0, 255, 0));
        const QString percorso = amb->Radice() + QStringLiteral("/figura.png");
        if (!QDir().mkpath(amb->Radice()) || !figura.save(percorso)) return {};
        return percorso;
    }

private slots:
    void init() {
        amb = std::make_unique<AmbienteProva>(false);
        tela = std::make_unique<Superficie>(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
        tela->ImpostaBackColor(Grigio);
        ModalitàFunzionamento = 4;
    }
    void cleanup() {
        tela.reset();
        amb.reset();
    }

    void la_linea_scelta_e_puntinata_e_sottile_le_altre_piene() {
        // A thick red line, then a thin blue one: the blue is picked at the opening.
        auto q = Prepara({Linea(1500, 3000, 9000, 3000, ColoreRosso, 3),
                          Linea(1500, 6000, 9000, 6000, ColoreBlu, 1)});
        const QImage& img = q->QuadroDisegnoPrimitive.Immagine();
        const int x1 = Punto(1500, 0).x(), x2 = Punto(9000, 0).x();
        const int lunga = x2 - x1 + 1;
        const int rossa = Punto(0, 3000).y(), blu = Punto(0, 6000).y();
        // Three pixels wide and whole; an end of the edge rows may round away.
        QCOMPARE(InRiga(img, rossa, x1, x2, ColoreRosso), lunga);
        QVERIFY(InRiga(img, rossa - 1, x1, x2, ColoreRosso) >= lunga - 2);
        QVERIFY(InRiga(img, rossa + 1, x1, x2, ColoreRosso) >= lunga - 2);
        const int punti = InRiga(img, blu, x1, x2, ColoreBlu);
        QVERIFY2(punti > lunga / 5 && punti < lunga * 4 / 5, qPrintable(QString::number(punti)));

        q->ClickTasto(103);
        QCOMPARE(AzioneScelta, int16_t(1));
        const QImage& dopo = q->QuadroDisegnoPrimitive.Immagine();
        QCOMPARE(InRiga(dopo, blu, x1, x2, ColoreBlu), lunga);
        const int rossi = InRiga(dopo, rossa, x1, x2, ColoreRosso);
        QVERIFY2(rossi > lunga / 5 && rossi < lunga * 4 / 5, qPrintable(QString::number(rossi)));
        // Picked, the thick line is one pixel wide.
        QCOMPARE(InRiga(dopo, rossa - 1, x1, x2, ColoreRosso), 0);
        QCOMPARE(InRiga(dopo, rossa + 1, x1, x2, ColoreRosso), 0);
    }

    void una_linea_senza_spessore_tiene_quello_di_prima() {
        auto q = Prepara({Linea(1500, 3000, 9000, 3000, ColoreRosso, 3),
                          Linea(1500, 6000, 9000, 6000, ColoreBlu, 0),
                          Linea(1500, 8000, 9000, 8000, ColoreVerde, 1)});
        const QImage& img = q->QuadroDisegnoPrimitive.Immagine();
        const int x = Punto(5000, 0).x(), y = Punto(0, 6000).y();
        QCOMPARE(InColonna(img, x, y - 3, y + 3, ColoreBlu), 3);
    }

    void il_tondino_scelto_e_grande_gli_altri_piccoli_e_nessuna_colorazione_si_allarga() {
        // The fill would run over the whole canvas: here it stays a dot.
        auto q = Prepara(
            {Linea(1000, 9000, 5000, 9000, ColoreNero, 1), Colorazione(7000, 5000, ColoreVerde)});
        const QPoint seme = Punto(7000, 5000);
        const QImage& img = q->QuadroDisegnoPrimitive.Immagine();
        QCOMPARE(Colore(img, seme), ColoreVerde);
        const QRect grande = Macchia(img, seme, 16);
        // 150 twips is a radius of 10 pixels.
        QVERIFY2(grande.width() >= 18 && grande.width() <= 22,
                 qPrintable(QString::number(grande.width())));
        QVERIFY2(grande.height() >= 18 && grande.height() <= 22,
                 qPrintable(QString::number(grande.height())));
        QCOMPARE(Colore(img, seme + QPoint(40, 0)), Grigio);

        q->ClickTasto(103);
        const QImage& dopo = q->QuadroDisegnoPrimitive.Immagine();
        QCOMPARE(Colore(dopo, seme), ColoreVerde);
        // 50 twips: about 3 pixels.
        const QRect piccolo = Macchia(dopo, seme, 16);
        QVERIFY2(piccolo.width() >= 5 && piccolo.width() <= 8,
                 qPrintable(QString::number(piccolo.width())));
        QVERIFY2(piccolo.height() >= 5 && piccolo.height() <= 8,
                 qPrintable(QString::number(piccolo.height())));
        // Its outline is the line colour.
        QCOMPARE(Colore(dopo, seme - QPoint(piccolo.width() / 2, 0)), ColoreNero);
        // The flag of the drawing is left as it is: only a change of the list touches it.
        QCOMPARE(Azioni[2].FlagPienoVuoto, FlagPieno);
    }

    void il_testo_scelto_ha_un_riquadro_puntinato_nero() {
        auto q = Prepara({Linea(1000, 9000, 5000, 9000, ColoreBlu, 1),
                          Testo(2000, 2000, 8000, 4000, QStringLiteral("Prova"))});
        const int x1 = Punto(2000, 0).x(), x2 = Punto(8000, 0).x();
        const int y1 = Punto(0, 2000).y(), y2 = Punto(0, 4000).y();
        const QImage& img = q->QuadroDisegnoPrimitive.Immagine();
        QVERIFY(Inchiostro(img, x1, y1, x2, y2) > 20);
        const int colonna = InColonna(img, x2, y1, y2, ColoreNero);
        const int riga = InRiga(img, y2, x1, x2, ColoreNero);
        QVERIFY2(colonna > (y2 - y1) / 5 && colonna < (y2 - y1) * 4 / 5,
                 qPrintable(QString::number(colonna)));
        QVERIFY2(riga > (x2 - x1) / 5 && riga < (x2 - x1) * 4 / 5,
                 qPrintable(QString::number(riga)));

        q->ClickTasto(103);
        const QImage& dopo = q->QuadroDisegnoPrimitive.Immagine();
        QCOMPARE(InColonna(dopo, x2, y1, y2, ColoreNero), 0);
        QCOMPARE(InRiga(dopo, y2, x1, x2, ColoreNero), 0);
        QCOMPARE(Inchiostro(dopo, x1, y1, x2, y2), Inchiostro(img, x1, y1, x2, y2));
    }

    void un_immagine_ha_sempre_la_cornice_puntinata_se_scelta() {
        const QString figura = FiguraVerde();
        QVERIFY(!figura.isEmpty());
        auto q = Prepara({Linea(1000, 9000, 5000, 9000, ColoreRosso, 1),
                          Immagine(3000, 3000, 6000, 5000, figura, ColoreBlu)});
        const int x1 = Punto(3000, 0).x(), x2 = Punto(6000, 0).x();
        const int y1 = Punto(0, 3000).y();
        const int lato = x2 - x1 + 1;
        const QImage& img = q->QuadroDisegnoPrimitive.Immagine();
        QCOMPARE(Colore(img, Punto(4500, 4000)), ColoreVerde);
        const int puntini = InRiga(img, y1, x1, x2, ColoreBlu);
        QVERIFY2(puntini > lato / 5 && puntini < lato * 4 / 5,
                 qPrintable(QString::number(puntini)));

        q->ClickTasto(103);
        const QImage& dopo = q->QuadroDisegnoPrimitive.Immagine();
        QCOMPARE(Colore(dopo, Punto(4500, 4000)), ColoreVerde);
        QCOMPARE(InRiga(dopo, y1, x1, x2, ColoreBlu), lato);
        QCOMPARE(amb->Scatole.size(), 0);
    }

    void un_immagine_che_manca_mostra_la_sola_cornice() {
        const QString manca = amb->Radice() + QStringLiteral("/manca.png");
        auto q = Prepara({Immagine(3000, 3000, 6000, 5000, manca, ColoreBlu),
                          Linea(1000, 9000, 5000, 9000, ColoreRosso, 1)});
        const int x1 = Punto(3000, 0).x(), x2 = Punto(6000, 0).x();
        const int y1 = Punto(0, 3000).y(), y2 = Punto(0, 5000).y();
        const QImage& img = q->QuadroDisegnoPrimitive.Immagine();
        QCOMPARE(InRiga(img, y1, x1, x2, ColoreBlu), x2 - x1 + 1);
        QCOMPARE(InColonna(img, x1, y1, y2, ColoreBlu), y2 - y1 + 1);
        QCOMPARE(Colore(img, Punto(4500, 4000)), Grigio);

        q->ClickTasto(103);
        const QImage& dopo = q->QuadroDisegnoPrimitive.Immagine();
        const int puntini = InRiga(dopo, y1, x1, x2, ColoreBlu);
        QVERIFY(puntini > 0 && puntini < x2 - x1 + 1);
        QCOMPARE(Colore(dopo, Punto(4500, 4000)), Grigio);
        // The canvas reported the missing file; the panel only leaves it out.
        QCOMPARE(scatoleDellaTela, 1);
        QCOMPARE(amb->Scatole.size(), scatoleDellaTela);
    }

    void il_quadro_aperto_mostra_il_disegno_e_la_fila_dei_tasti() {
        OrologioVirtuale orologio;
        ModalitàFunzionamento = 3;
        Metti({Linea(1200, 8500, 12500, 1500, ColoreBlu, 3),
               Rettangolo(2500, 2000, 7500, 6500, ColoreGiallo),
               Colorazione(9500, 6500, ColoreVerde, FlagVuoto),
               Testo(8000, 7600, 13000, 9200, QStringLiteral("Casa al mare\rcon il sole"))},
              *tela);
        QList<bool> visibili;
        QRect fila;
        QSize finestra;
        int puntiniRiquadro = -1;
        Copione c(orologio);
        // The rectangle picked: two steps back from the text.
        c.Tasto(Qt::Key_Return).Tasto(Qt::Key_Return);
        c.Esegui([&] {
            QuadroSelectPrimitiva* q = PannelloDavanti<QuadroSelectPrimitiva>();
            finestra = q->size();
            for (TastoZanto* t : std::as_const(q->Tasti)) {
                visibili << t->isVisible();
                fila |= t->geometry();
            }
            const QImage vista = q->grab().toImage();
            // The top edge of the picked rectangle, seen through the panel.
            const QPoint inizio = q->VistaDisegnoPrimitive->pos() + Punto(2500, 2000);
            const int fine = q->VistaDisegnoPrimitive->pos().x() + Punto(7500, 0).x();
            puntiniRiquadro = InRiga(vista, inizio.y(), inizio.x(), fine, ColoreNero);
            Schermata(q, QStringLiteral("selezione-elemento"));
        });
        c.Tasto(Qt::Key_Space).Tasto(Qt::Key_Space).Tasto(Qt::Key_Space);
        c.Tasto(Qt::Key_Space).Tasto(Qt::Key_Space).Tasto(Qt::Key_Space); // 109
        c.Tasto(Qt::Key_Return);
        QVERIFY(EseguiNelPannello(c, [this] { ApriQuadroSelectPrimitiva(*tela); }));
        QCOMPARE(visibili, QList<bool>(9, true));
        QVERIFY(QRect(QPoint(0, 0), finestra).contains(fila));
        const int lato = Punto(7500, 0).x() - Punto(2500, 0).x() + 1;
        QVERIFY2(puntiniRiquadro > lato / 5 && puntiniRiquadro < lato * 4 / 5,
                 qPrintable(QString::number(puntiniRiquadro)));
    }
};

QTEST_MAIN(ProvaQuadroSelectPrimitivaDisegno)
#include "test_quadro_select_primitiva_disegno.moc"
