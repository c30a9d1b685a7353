// Flood fill: the Paint class on a surface in twips, and the span fill under it.

#include "model/Paint.h"
#include "model/RecordAzione.h"
#include "model/Superficie.h"
#include "support/AmbienteProva.h"
#include "support/ProvaGlobali.h"
#include "support/SondePixel.h"
#include "support/TelaProva.h"

#include <QRandomGenerator>
#include <QtTest>

#include <deque>

namespace {

using namespace SondePixel;

struct Quadro : TelaProva {
    Quadro() { S.AutoRedraw = true; }
    // What a fill action does: device, solid brush, flood.
    void Colora(float x, float y, int32_t colore) {
        Paint& p = UsaOggettoPaint();
        p.ImpostaDevice(S);
        S.FillStyle = 0;
        S.FillColor = colore;
        p.Flood(x, y);
        S.FillStyle = 1;
    }
};

// A plain breadth-first 4-connected fill, pixel by pixel: the reference.
void RiempiRiferimento(QImage& img, int x, int y, QRgb nuovo) {
    const QRgb vecchio = img.pixel(x, y);
    if (vecchio == nuovo) return;
    std::deque<QPoint> coda{QPoint(x, y)};
    img.setPixel(x, y, nuovo);
    while (!coda.empty()) {
        const QPoint p = coda.front();
        coda.pop_front();
        for (const QPoint d : {QPoint(1, 0), QPoint(-1, 0), QPoint(0, 1), QPoint(0, -1)}) {
            const QPoint v = p + d;
            if (!img.rect().contains(v) || img.pixel(v) != vecchio) continue;
            img.setPixel(v, nuovo);
            coda.push_back(v);
        }
    }
}

// Pixels of `img` that differ from `atteso`, and how many carry `colore`.
std::pair<int, int> Confronta(const QImage& img, const QImage& atteso, QRgb colore) {
    int diversi = 0;
    int colorati = 0;
    for (int y = 0; y < img.height(); ++y)
        for (int x = 0; x < img.width(); ++x) {
            if (img.pixel(x, y) != atteso.pixel(x, y)) ++diversi;
            if (img.pixel(x, y) == colore) ++colorati;
        }
    return {diversi, colorati};
}

} // namespace

class TestPaint : public ProvaGlobali {
    Q_OBJECT

private slots:
    void device_ricava_scala_e_fattori_in_twips() {
        Quadro q;
        Paint p;
        p.ImpostaDevice(q.S);
        QCOMPARE(p.Device(), &q.S);
        QCOMPARE(p.ScaleLeft, 0.0f);
        QCOMPARE(p.ScaleTop, 0.0f);
        QCOMPARE(p.FattoreX, 943.0f / 14145.0f);
        QCOMPARE(p.FattoreY, 667.0f / 10005.0f);
        QCOMPARE(q.S.ScaleMode(), ScalaTwips);
        QCOMPARE(q.S.ScaleWidth(), 14145.0f);
    }

    void device_su_scala_utente_la_rimette_com_era() {
        Quadro q;
        q.S.Scale(-100, -50, 100, 50);
        Paint p;
        p.ImpostaDevice(q.S);
        QCOMPARE(q.S.ScaleMode(), ScalaUtente);
        QCOMPARE(q.S.ScaleLeft(), -100.0f);
        QCOMPARE(q.S.ScaleTop(), -50.0f);
        QCOMPARE(q.S.ScaleWidth(), 200.0f);
        QCOMPARE(q.S.ScaleHeight(), 100.0f);
        QCOMPARE(p.ScaleLeft, -100.0f);
        QCOMPARE(p.FattoreX, 943.0f / 200.0f);
        QCOMPARE(p.FattoreY, 667.0f / 100.0f);
        // A fill at the user scale's origin starts at the middle pixel.
        q.S.FillStyle = 0;
        q.S.FillColor = Verde;
        q.S.Box(-10, -10, 10, 10, Rosso);
        float x = 0;
        float y = 0;
        p.Flood(x, y);
        QCOMPARE(Colore(q.S.Immagine(), 472, 334), Verde);
    }

    void oggetto_paint_nasce_al_primo_uso_e_resta() {
        QVERIFY(!OggettoPaint);
        Paint& primo = UsaOggettoPaint();
        QCOMPARE(&UsaOggettoPaint(), &primo);
        QCOMPARE(OggettoPaint.get(), &primo);
    }

    void colorazione_riempie_la_regione_chiusa_e_non_il_bordo() {
        Quadro q;
        q.S.Box(1500, 1500, 4500, 4500, Rosso);
        q.Colora(3000, 3000, Verde);
        QCOMPARE(q.Bitmap(3000, 3000), Verde);
        QCOMPARE(q.Bitmap(1530, 1530), Verde);
        QCOMPARE(q.Bitmap(4470, 4470), Verde);
        QCOMPARE(q.Bitmap(1500, 3000), Rosso);
        QCOMPARE(q.Bitmap(4500, 3000), Rosso);
        QCOMPARE(q.Bitmap(6000, 3000), Sfondo);
        QCOMPARE(q.Bitmap(1000, 1000), Sfondo);
        QCOMPARE(ContaColore(q.S.Immagine(), Verde), 199 * 199);
    }

    void colorazione_corre_sullo_sfondo_e_si_ferma_a_ogni_altro_colore() {
        Quadro q;
        q.S.Box(1500, 1500, 4500, 4500, Rosso);
        q.S.Circle(9000, 6000, 1500, Blu);
        q.S.Line(0, 9000, 14144, 9000, Verde); // cuts the bottom strip away
        q.Colora(100, 100, Rosso);
        // The background, everywhere it is connected, takes the colour...
        QCOMPARE(q.Bitmap(100, 100), Rosso);
        QCOMPARE(q.Bitmap(6000, 3000), Rosso);
        QCOMPARE(q.Bitmap(12000, 8000), Rosso);
        // ...but not inside the shapes, nor past the line.
        QCOMPARE(q.Bitmap(3000, 3000), Sfondo);
        QCOMPARE(q.Bitmap(9000, 6000), Sfondo);
        QCOMPARE(q.Bitmap(7000, 9600), Sfondo);
        QCOMPARE(q.Bitmap(7000, 9000), Verde);
        QCOMPARE(q.Bitmap(10500, 6000), Blu);
    }

    void colorazione_non_passa_per_un_contatto_in_diagonale() {
        QImage img(40, 40, QImage::Format_RGB32);
        img.fill(qRgb(255, 255, 255));
        // A one-pixel staircase from corner to corner: its pixels touch only by corners.
        for (int i = 0; i < 40; ++i)
            img.setPixel(i, i, qRgb(0, 0, 0));
        QVERIFY(RiempiZona(img, 30, 5, qRgb(255, 255, 255), qRgb(255, 0, 0)));
        QCOMPARE(img.pixel(39, 0), qRgb(255, 0, 0));
        QCOMPARE(img.pixel(1, 0), qRgb(255, 0, 0));
        QCOMPARE(img.pixel(0, 1), qRgb(255, 255, 255));
        QCOMPARE(img.pixel(5, 30), qRgb(255, 255, 255));
        QCOMPARE(img.pixel(20, 20), qRgb(0, 0, 0));
    }

    void punto_fuori_dalla_superficie_non_cambia_nulla() {
        Quadro q;
        for (const QPointF p :
             {QPointF(-500, 3000), QPointF(3000, -500), QPointF(20000, 3000), QPointF(3000, 15000)})
            q.Colora(float(p.x()), float(p.y()), Verde);
        QCOMPARE(ContaColore(q.S.Immagine(), Sfondo), 943 * 667);
        QVERIFY(!RiempiZona(q.S.StratoAttivo(), -1, 5, qRgb(192, 192, 192), qRgb(0, 255, 0)));
        QVERIFY(!RiempiZona(q.S.StratoAttivo(), 943, 5, qRgb(192, 192, 192), qRgb(0, 255, 0)));
    }

    void regione_gia_del_colore_non_cambia_nulla() {
        Quadro q;
        q.S.Box(1500, 1500, 4500, 4500, Rosso);
        q.Colora(3000, 3000, Verde);
        const QImage prima = q.S.Immagine();
        q.Colora(3000, 3000, Verde);
        QCOMPARE(q.S.Immagine(), prima);
        QVERIFY(!RiempiZona(q.S.StratoAttivo(), 200, 200, qRgb(0, 255, 0), qRgb(0, 255, 0)));
    }

    void due_colorazioni_nello_stesso_punto_la_seconda_sostituisce_la_prima() {
        Quadro q;
        q.S.Box(1500, 1500, 4500, 4500, Rosso);
        q.Colora(3000, 3000, Verde);
        q.Colora(3000, 3000, Blu);
        QCOMPARE(q.Bitmap(3000, 3000), Blu);
        QCOMPARE(q.Bitmap(1530, 1530), Blu);
        QCOMPARE(ContaColore(q.S.Immagine(), Verde), 0);
        QCOMPARE(q.Bitmap(1500, 3000), Rosso);
    }

    void punto_su_una_linea_ricolora_la_linea() {
        Quadro q;
        q.S.Box(1500, 1500, 4500, 4500, Rosso);
        q.Colora(1500, 3000, Blu);
        QCOMPARE(q.Bitmap(1500, 3000), Blu);
        QCOMPARE(q.Bitmap(4500, 1500), Blu);
        QCOMPARE(q.Bitmap(3000, 3000), Sfondo);
        QCOMPARE(ContaColore(q.S.Immagine(), Rosso), 0);
    }

    void tela_vuota_intera_si_riempie_tutta() {
        Quadro q;
        q.Colora(7072, 5000, Verde);
        QCOMPARE(ContaColore(q.S.Immagine(), Verde), 943 * 667);
    }

    void pennello_trasparente_non_dipinge() {
        Quadro q;
        Paint& p = UsaOggettoPaint();
        p.ImpostaDevice(q.S);
        q.S.FillStyle = 1;
        q.S.FillColor = Verde;
        float x = 3000;
        float y = 3000;
        p.Flood(x, y);
        QCOMPARE(ContaColore(q.S.Immagine(), Sfondo), 943 * 667);
    }

    void senza_conservazione_si_colora_lo_schermo() {
        Quadro q;
        q.S.AutoRedraw = false;
        q.Colora(3000, 3000, Verde);
        QCOMPARE(Colore(q.S.Schermo(), 200, 200), Verde);
        QCOMPARE(q.Bitmap(3000, 3000), Sfondo);
        q.S.Refresh();
        QCOMPARE(Colore(q.S.Schermo(), 200, 200), Sfondo);
    }

    void riempimento_a_strisce_uguale_al_riempimento_pixel_per_pixel() {
        // Random walls make ragged regions with pockets, overhangs and dead ends.
        QRandomGenerator casuale(20240611);
        QImage img(160, 120, QImage::Format_RGB32);
        for (int y = 0; y < img.height(); ++y)
            for (int x = 0; x < img.width(); ++x)
                img.setPixel(x, y, casuale.bounded(100) < 38 ? qRgb(0, 0, 0) : qRgb(255, 255, 255));
        img.setPixel(80, 60, qRgb(255, 255, 255));
        QImage atteso = img;
        RiempiRiferimento(atteso, 80, 60, qRgb(0, 0, 255));
        QVERIFY(RiempiZona(img, 80, 60, qRgb(255, 255, 255), qRgb(0, 0, 255)));
        int diversi = 0;
        int riempiti = 0;
        for (int y = 0; y < img.height(); ++y)
            for (int x = 0; x < img.width(); ++x) {
                if (img.pixel(x, y) != atteso.pixel(x, y)) ++diversi;
                if (img.pixel(x, y) == qRgb(0, 0, 255)) ++riempiti;
            }
        QCOMPARE(diversi, 0);
        QVERIFY(riempiti > 1000);
    }

    void strisce_di_un_pixel_riempite_come_dal_riferimento_data() {
        QTest::addColumn<QString>("disegno");
        QTest::addColumn<QPoint>("punto");
        QTest::addColumn<int>("attesi");
        // 61 x 47: odd sides, so that the patterns end differently on each edge.
        // A grid: every other row is all spans of one pixel. 30 x 23 walls.
        QTest::newRow("reticolo dal centro") << "reticolo" << QPoint(30, 24) << 61 * 47 - 30 * 23;
        QTest::newRow("reticolo dall'angolo") << "reticolo" << QPoint(60, 46) << 61 * 47 - 30 * 23;
        // One path that winds down and up every other column: 31 teeth joined at
        // alternate ends, spans of one pixel everywhere but at the bends.
        QTest::newRow("serpentina dall'inizio") << "serpentina" << QPoint(0, 46) << 31 * 47 + 30;
        QTest::newRow("serpentina da metà") << "serpentina" << QPoint(30, 20) << 31 * 47 + 30;
        // 4-connected, a square of a checkerboard touches none of its colour.
        QTest::newRow("scacchiera") << "scacchiera" << QPoint(30, 20) << 1;
        QTest::newRow("scacchiera sul bordo") << "scacchiera" << QPoint(60, 0) << 1;
        // Diagonal stairs: spans of two pixels, each overlapping the next row's by one.
        QTest::newRow("scala") << "scala" << QPoint(10, 10) << -1;
        QTest::newRow("scala in fondo") << "scala" << QPoint(60, 44) << -1;
    }

    void strisce_di_un_pixel_riempite_come_dal_riferimento() {
        QFETCH(QString, disegno);
        QFETCH(QPoint, punto);
        QFETCH(int, attesi);
        const QRgb vuoto = qRgb(255, 255, 255);
        const QRgb muro = qRgb(0, 0, 0);
        const QRgb nuovo = qRgb(0, 0, 255);
        QImage img(61, 47, QImage::Format_RGB32);
        for (int y = 0; y < img.height(); ++y)
            for (int x = 0; x < img.width(); ++x) {
                bool pieno = false;
                if (disegno == QLatin1String("reticolo"))
                    pieno = x % 2 == 1 && y % 2 == 1;
                else if (disegno == QLatin1String("serpentina"))
                    pieno = x % 2 == 1 && !(x % 4 == 1 ? y == 0 : y == img.height() - 1);
                else if (disegno == QLatin1String("scacchiera"))
                    pieno = (x + y) % 2 == 1;
                else
                    pieno = (x - y + 4 * img.width()) % 4 >= 2;
                img.setPixel(x, y, pieno ? muro : vuoto);
            }
        QCOMPARE(img.pixel(punto), vuoto);
        QImage atteso = img;
        RiempiRiferimento(atteso, punto.x(), punto.y(), nuovo);
        QVERIFY(RiempiZona(img, punto.x(), punto.y(), vuoto, nuovo));
        const auto [diversi, colorati] = Confronta(img, atteso, nuovo);
        QCOMPARE(diversi, 0);
        if (attesi >= 0)
            QCOMPARE(colorati, attesi);
        else
            QVERIFY(colorati > img.height());
        // Filling back over the same region takes the same pixels.
        QVERIFY(RiempiZona(img, punto.x(), punto.y(), nuovo, vuoto));
        RiempiRiferimento(atteso, punto.x(), punto.y(), vuoto);
        QCOMPARE(Confronta(img, atteso, nuovo).first, 0);
        QCOMPARE(Confronta(img, atteso, nuovo).second, 0);
    }
};

QTEST_MAIN(TestPaint)
#include "test_paint.moc"
