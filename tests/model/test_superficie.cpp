// The picture surface: the two layers and the keep switch, the state that
// carries over, and each drawing operation, checked by probing pixels.

#include "base/Misure.h"
#include "model/RecordAzione.h"
#include "model/Superficie.h"
#include "support/AmbienteProva.h"
#include "support/ProvaGlobali.h"
#include "support/SondePixel.h"
#include "support/TelaProva.h"

#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QPainter>
#include <QSet>
#include <QtTest>

#include <cmath>
#include <vector>

namespace {

using namespace SondePixel;

struct Quadro : TelaProva {
    Quadro() { S.AutoRedraw = true; }
};

// Distance of pixel (x, y) from the segment a-b, all in pixels.
double DistanzaDalSegmento(double x, double y, QPointF a, QPointF b) {
    const QPointF ab = b - a;
    const double l2 = QPointF::dotProduct(ab, ab);
    const double t =
        l2 > 0 ? std::clamp(QPointF::dotProduct(QPointF(x, y) - a, ab) / l2, 0.0, 1.0) : 0;
    const QPointF p = a + ab * t;
    return std::hypot(x - p.x(), y - p.y());
}

// Can the background round pixel (x, y) reach the edge of the image through
// 4-connected background pixels? That is how a fill would leak.
bool SfondoArrivaAlBordo(const QImage& img, int x, int y) {
    const int w = img.width();
    const int h = img.height();
    std::vector<char> visto(size_t(w) * size_t(h), 0);
    std::vector<QPoint> pila{QPoint(x, y)};
    while (!pila.empty()) {
        const QPoint p = pila.back();
        pila.pop_back();
        if (p.x() < 0 || p.y() < 0 || p.x() >= w || p.y() >= h) return true;
        char& v = visto[size_t(p.y()) * size_t(w) + size_t(p.x())];
        if (v || Colore(img, p.x(), p.y()) != Sfondo) continue;
        v = 1;
        pila.push_back(p + QPoint(1, 0));
        pila.push_back(p - QPoint(1, 0));
        pila.push_back(p + QPoint(0, 1));
        pila.push_back(p - QPoint(0, 1));
    }
    return false;
}

} // namespace

class TestSuperficie : public ProvaGlobali {
    Q_OBJECT

private slots:
    void quadro_di_14144_per_10000_twips_e_943_per_667_pixel_a_96_dpi() {
        Quadro q;
        QCOMPARE(q.S.LarghezzaPixel(), 943);
        QCOMPARE(q.S.AltezzaPixel(), 667);
        QCOMPARE(q.S.Immagine().format(), QImage::Format_RGB32);
        QCOMPARE(std::lrint(q.S.Immagine().dotsPerMeterX() * 0.0254), 96L);
        QCOMPARE(q.S.ScaleMode(), ScalaTwips);
        QCOMPARE(q.S.ScaleWidth(), 943.0f * 15);
        QCOMPARE(q.S.ScaleHeight(), 667.0f * 15);
    }

    void un_pixel_vale_15_twips() {
        Quadro q;
        QCOMPARE(q.S.PixelX(150), 10.0);
        QCOMPARE(q.S.PixelY(7500), 500.0);
        QCOMPARE(q.S.PuntoPixelX(7072), 471);
    }

    void disegno_conservato_va_nel_bitmap_e_si_vede_al_refresh() {
        Quadro q;
        q.S.Line(1500, 1500, 6000, 1500, Rosso);
        QCOMPARE(q.Bitmap(3000, 1500), Rosso);
        QCOMPARE(Colore(q.S.Schermo(), 200, 100), Sfondo);
        q.S.Refresh();
        QCOMPARE(Colore(q.S.Schermo(), 200, 100), Rosso);
        q.S.Refresh();
        QCOMPARE(Colore(q.S.Schermo(), 200, 100), Rosso);
    }

    void disegno_non_conservato_va_solo_sullo_schermo_e_il_refresh_lo_cancella() {
        Quadro q;
        q.S.AutoRedraw = false;
        int avvisi = 0;
        q.S.AvvisoSchermo = [&] { ++avvisi; };
        q.S.Line(1500, 1500, 6000, 1500, Verde);
        QCOMPARE(Colore(q.S.Schermo(), 200, 100), Verde);
        QCOMPARE(q.Bitmap(3000, 1500), Sfondo);
        QVERIFY(avvisi >= 1);
        q.S.Refresh();
        QCOMPARE(Colore(q.S.Schermo(), 200, 100), Sfondo);
    }

    void linea_ha_il_suo_colore_e_il_suo_spessore() {
        Quadro q;
        q.S.DrawWidth = 5;
        q.S.Line(1500, 3000, 9000, 3000, Blu);
        const QImage& img = q.S.Immagine();
        for (int dy = -2; dy <= 2; ++dy)
            QCOMPARE(Colore(img, 300, 200 + dy), Blu);
        QCOMPARE(Colore(img, 300, 196), Sfondo);
        QCOMPARE(Colore(img, 300, 204), Sfondo);
        q.S.DrawWidth = 1;
        q.S.Line(1500, 6000, 9000, 6000, Rosso);
        QCOMPARE(Colore(img, 300, 400), Rosso);
        QCOMPARE(Colore(img, 300, 399), Sfondo);
        QCOMPARE(Colore(img, 300, 401), Sfondo);
    }

    void linea_punteggiata_ha_buchi_e_quella_continua_no() {
        Quadro q;
        q.S.DrawStyle = 2;
        q.S.Line(1500, 1500, 9000, 1500, Rosso);
        q.S.DrawStyle = 0;
        q.S.Line(1500, 3000, 9000, 3000, Rosso);
        int punteggiata = 0;
        int continua = 0;
        for (int x = 100; x <= 600; ++x) {
            if (q.Bitmap(x * 15.0, 1500) == Rosso) ++punteggiata;
            if (q.Bitmap(x * 15.0, 3000) == Rosso) ++continua;
        }
        QCOMPARE(continua, 501);
        QVERIFY(punteggiata > 50);
        QVERIFY(punteggiata < 400);
    }

    void linea_sposta_il_cursore_sul_secondo_punto() {
        Quadro q;
        q.S.Line(100, 200, 300, 400, Rosso);
        QCOMPARE(q.S.CurrentX, 300.0f);
        QCOMPARE(q.S.CurrentY, 400.0f);
    }

    void riquadro_vuoto_ha_bordo_e_lascia_l_interno() {
        Quadro q;
        q.S.FillStyle = 1;
        q.S.Box(1500, 1500, 4500, 3000, Rosso);
        QCOMPARE(q.Bitmap(1500, 2000), Rosso);
        QCOMPARE(q.Bitmap(4500, 2000), Rosso);
        QCOMPARE(q.Bitmap(3000, 1500), Rosso);
        QCOMPARE(q.Bitmap(3000, 3000), Rosso);
        QCOMPARE(q.Bitmap(3000, 2250), Sfondo);
        QCOMPARE(q.Bitmap(6000, 2250), Sfondo);
    }

    void riquadro_pieno_ha_interno_fillcolor_e_bordo_del_colore() {
        Quadro q;
        q.S.FillStyle = 0;
        q.S.FillColor = Verde;
        q.S.DrawWidth = 3;
        q.S.Box(4500, 3000, 1500, 1500, Rosso); // corners in any order
        QCOMPARE(q.Bitmap(1500, 2000), Rosso);
        QCOMPARE(q.Bitmap(4500, 2000), Rosso);
        QCOMPARE(q.Bitmap(3000, 1500), Rosso);
        QCOMPARE(q.Bitmap(3000, 2250), Verde);
        QCOMPARE(q.Bitmap(1560, 1560), Verde);
        QCOMPARE(q.Bitmap(6000, 2250), Sfondo);
    }

    void riempimento_resta_da_un_operazione_all_altra() {
        Quadro q;
        q.S.FillStyle = 0;
        q.S.FillColor = Verde;
        q.S.Box(1500, 1500, 3000, 3000, Rosso);
        q.S.Box(4500, 1500, 6000, 3000, Blu);
        QCOMPARE(q.Bitmap(5250, 2250), Verde);
        q.S.Circle(9000, 3000, 750, Blu);
        QCOMPARE(q.Bitmap(9000, 3000), Verde);
    }

    void cerchio_con_aspetto_sopra_uno_usa_il_raggio_in_verticale() {
        Quadro q;
        // Radius 1500 twips (100 px) with aspect 2: 100 px high, 50 px wide.
        q.S.Circle(7500, 4500, 1500, Rosso, 2.0f);
        const QImage& img = q.S.Immagine();
        QCOMPARE(Colore(img, 500, 200), Rosso);
        QCOMPARE(Colore(img, 500, 400), Rosso);
        QCOMPARE(Colore(img, 450, 300), Rosso);
        QCOMPARE(Colore(img, 550, 300), Rosso);
        QCOMPARE(Colore(img, 400, 300), Sfondo);
        QCOMPARE(Colore(img, 600, 300), Sfondo);
        QCOMPARE(Colore(img, 500, 300), Sfondo);
    }

    void cerchio_con_aspetto_sotto_uno_usa_il_raggio_in_orizzontale() {
        Quadro q;
        q.S.Circle(7500, 4500, 1500, Rosso, 0.5f);
        const QImage& img = q.S.Immagine();
        QCOMPARE(Colore(img, 400, 300), Rosso);
        QCOMPARE(Colore(img, 600, 300), Rosso);
        QCOMPARE(Colore(img, 500, 250), Rosso);
        QCOMPARE(Colore(img, 500, 350), Rosso);
        QCOMPARE(Colore(img, 500, 200), Sfondo);
    }

    void cerchio_pieno_ha_interno_fillcolor() {
        Quadro q;
        q.S.FillStyle = 0;
        q.S.FillColor = Verde;
        q.S.Circle(7500, 4500, 1500, Rosso);
        QCOMPARE(q.Bitmap(7500, 4500), Verde);
        QCOMPARE(q.Bitmap(9000, 4500), Rosso);
        QCOMPARE(q.Bitmap(9300, 4500), Sfondo);
    }

    void cerchio_e_arco_spessi_coprono_la_larghezza_della_penna() {
        Quadro q;
        q.S.DrawWidth = 5;
        q.S.FillStyle = 0;
        q.S.FillColor = Verde;
        q.S.Circle(4500, 4500, 1500, Rosso); // 100 px round (300, 300)
        const QImage& img = q.S.Immagine();
        for (int d = -2; d <= 2; ++d) {
            QCOMPARE(Colore(img, 400 + d, 300), Rosso);
            QCOMPARE(Colore(img, 300, 200 + d), Rosso);
        }
        QCOMPARE(Colore(img, 396, 300), Verde);
        QCOMPARE(Colore(img, 404, 300), Sfondo);
        q.S.Circle(10500, 4500, 1500, Blu, 0.0f, 2.0f); // 100 px round (700, 300)
        for (int d = -2; d <= 2; ++d)
            QCOMPARE(Colore(img, 800 + d, 301), Blu);
        QCOMPARE(Colore(img, 804, 301), Sfondo);
        QCOMPARE(Colore(img, 796, 301), Sfondo); // an open arc is never filled
        QCOMPARE(Colore(img, 700, 404), Sfondo); // nor drawn past its end
    }

    void arco_da_zero_a_due_radianti_ha_pixel_solo_sul_suo_tratto() {
        Quadro q;
        const double r = 3000; // 200 px
        q.S.Circle(7500, 5000, float(r), Rosso, 0.0f, 2.0f);
        auto sulPercorso = [&](double angolo) {
            return Vicino(q.S.Immagine(), 7500 + r * std::cos(angolo), 5000 - r * std::sin(angolo),
                          Rosso);
        };
        for (const double a : {0.05, 0.5, 1.0, 1.5, 1.95})
            QVERIFY(sulPercorso(a));
        for (const double a : {2.1, 3.0, 4.0, 5.0, 6.0, 6.2})
            QVERIFY(!sulPercorso(a));
        QCOMPARE(q.Bitmap(7500, 5000), Sfondo);
    }

    void arco_con_inizio_uguale_alla_fine_e_un_giro_intero() {
        Quadro q;
        const double r = 3000;
        q.S.Circle(7500, 5000, float(r), Rosso, 1.0f, 1.0f);
        for (const double a : {0.0, 1.0, 2.5, 4.0, 5.5})
            QVERIFY(Vicino(q.S.Immagine(), 7500 + r * std::cos(a), 5000 - r * std::sin(a), Rosso));
    }

    void arco_con_angolo_oltre_un_giro_e_errore_5() {
        Quadro q;
        try {
            q.S.Circle(7500, 5000, 1000, Rosso, 0.0f, 7.0f);
            QFAIL("nessun errore");
        } catch (const ErroreZanto& e) {
            QCOMPARE(e.Numero, 5);
        }
        QCOMPARE(ContaColore(q.S.Immagine(), Rosso), 0);
    }

    void niente_sfumature_sui_bordi() {
        Quadro q;
        q.S.DrawWidth = 3;
        q.S.Line(300, 300, 9000, 7000, Rosso);
        q.S.Circle(7000, 5000, 2222, Rosso, 0.6f);
        q.S.Circle(7000, 5000, 3333, Rosso, 0.3f, 4.0f, 1.7f);
        q.S.FontName = QStringLiteral("Times New Roman");
        q.S.FontSize = 20;
        q.S.CurrentX = 1000;
        q.S.CurrentY = 8000;
        q.S.ForeColor = Rosso;
        q.S.Print(QStringLiteral("Sole e luna"));
        QSet<QRgb> colori;
        const QImage& img = q.S.Immagine();
        for (int y = 0; y < img.height(); ++y)
            for (int x = 0; x < img.width(); ++x)
                colori.insert(img.pixel(x, y));
        QCOMPARE(colori.size(), 2);
    }

    void print_scrive_nel_forecolor_e_va_a_capo() {
        Quadro q;
        q.S.FontName = QStringLiteral("Arial");
        q.S.FontSize = 24;
        q.S.ForeColor = Blu;
        q.S.CurrentX = 1500;
        q.S.CurrentY = 1500;
        const float altezza = q.S.TextHeight(QStringLiteral("MMM"));
        q.S.Print(QStringLiteral("MMM"));
        QCOMPARE(q.S.CurrentX, 0.0f);
        QCOMPARE(q.S.CurrentY, 1500 + altezza);
        int inchiostro = 0;
        for (int y = 100; y < 100 + Px(altezza); ++y)
            for (int x = 100; x < 100 + Px(q.S.TextWidth(QStringLiteral("MMM"))); ++x)
                if (Colore(q.S.Immagine(), x, y) == Blu) ++inchiostro;
        QVERIFY(inchiostro > 50);
        QCOMPARE(ContaColore(q.S.Immagine(), Blu), inchiostro);
    }

    void print_di_una_riga_col_ritorno_a_capo_avanza_una_volta_sola() {
        Quadro q;
        q.S.FontSize = 12;
        q.S.CurrentY = 300;
        q.S.Print(QStringLiteral("uno\r"));
        QCOMPARE(q.S.CurrentY, 300 + q.S.TextHeight(QStringLiteral("uno")));
    }

    void misure_del_testo_seguono_il_font_a_96_dpi() {
        Quadro q;
        q.S.FontName = QStringLiteral("Times New Roman");
        q.S.FontSize = 12;
        const float piccola = q.S.TextHeight(QStringLiteral("A"));
        // 12 points at 96 dpi is 16 pixels of em, a line a little more.
        QVERIFY(piccola >= 16 * 15.0f);
        QVERIFY(piccola <= 22 * 15.0f);
        q.S.FontSize = 24;
        const float grande = q.S.TextHeight(QStringLiteral("A"));
        QVERIFY(grande > 1.7f * piccola);
        QVERIFY(q.S.TextWidth(QStringLiteral("AAAA")) > q.S.TextWidth(QStringLiteral("AA")));
        QCOMPARE(q.S.TextHeight(QStringLiteral("a\rb")), 2 * grande);
        QCOMPARE(q.S.TextHeight(QStringLiteral("riga\r")), grande);
    }

    void paintpicture_stira_l_immagine_nel_riquadro() {
        Quadro q;
        QImage immagine(2, 2, QImage::Format_RGB32);
        immagine.setPixel(0, 0, qRgb(255, 0, 0));
        immagine.setPixel(1, 0, qRgb(0, 255, 0));
        immagine.setPixel(0, 1, qRgb(0, 0, 255));
        immagine.setPixel(1, 1, qRgb(255, 255, 255));
        // 100 x 60 px from (100, 50) px.
        q.S.PaintPicture(immagine, 1500, 750, 1500, 900);
        QCOMPARE(q.Bitmap(1500 + 15 * 10, 750 + 15 * 10), Rosso);
        QCOMPARE(q.Bitmap(1500 + 15 * 90, 750 + 15 * 10), Verde);
        QCOMPARE(q.Bitmap(1500 + 15 * 10, 750 + 15 * 50), Blu);
        QCOMPARE(q.Bitmap(1500 + 15 * 90, 750 + 15 * 50), 0xFFFFFF);
        QCOMPARE(q.Bitmap(1500 - 15 * 2, 750 + 15 * 10), Sfondo);
        QCOMPARE(q.Bitmap(1500 + 15 * 102, 750 + 15 * 10), Sfondo);
        QCOMPARE(q.Bitmap(1500 + 15 * 10, 750 + 15 * 62), Sfondo);
    }

    void loadpicture_di_file_assente_e_errore_53() {
        AmbienteProva amb;
        try {
            Superficie::LoadPicture(amb.Radice() + QStringLiteral("/manca.jpg"));
            QFAIL("nessun errore");
        } catch (const ErroreZanto& e) {
            QCOMPARE(e.Numero, 53);
        }
    }

    void loadpicture_di_file_che_non_e_immagine_e_errore_481() {
        AmbienteProva amb;
        const QString percorso = amb.Radice() + QStringLiteral("/finta.jpg");
        QFile file(percorso);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write("non sono una figura");
        file.close();
        try {
            Superficie::LoadPicture(percorso);
            QFAIL("nessun errore");
        } catch (const ErroreZanto& e) {
            QCOMPARE(e.Numero, 481);
        }
    }

    void point_legge_il_colore_e_fuori_da_meno_uno() {
        Quadro q;
        q.S.Line(1500, 1500, 3000, 1500, Rosso);
        QCOMPARE(q.S.Point(2000, 1500), Rosso);
        QCOMPARE(q.S.Point(2000, 3000), Sfondo);
        QCOMPARE(q.S.Point(-100, 1500), -1);
        QCOMPARE(q.S.Point(2000, 20000), -1);
        // With the keep switch off the point is read where drawing goes: the screen.
        q.S.AutoRedraw = false;
        q.S.Line(1500, 4500, 3000, 4500, Verde);
        QCOMPARE(q.S.Point(2000, 4500), Verde);
        QCOMPARE(q.S.Point(2000, 1500), Sfondo); // not refreshed yet
    }

    void cls_pulisce_allo_sfondo_e_azzera_il_cursore() {
        Quadro q;
        q.S.Line(1500, 1500, 3000, 1500, Rosso);
        q.S.Cls();
        QCOMPARE(q.Bitmap(2000, 1500), Sfondo);
        QCOMPARE(q.S.CurrentX, 0.0f);
        QCOMPARE(q.S.CurrentY, 0.0f);
        q.S.Line(1500, 1500, 3000, 1500, Rosso);
        q.S.ImmagineVuota();
        QCOMPARE(q.Bitmap(2000, 1500), Sfondo);
        QCOMPARE(Colore(q.S.Schermo(), 130, 100), Sfondo);
    }

    void cambio_di_sfondo_pulisce_il_bitmap() {
        Quadro q;
        q.S.Line(1500, 1500, 3000, 1500, Rosso);
        q.S.ImpostaBackColor(Verde);
        QCOMPARE(q.S.BackColor(), Verde);
        QCOMPARE(q.Bitmap(2000, 1500), Verde);
        QCOMPARE(ContaColore(q.S.Schermo(), Verde), 943 * 667);
    }

    void scala_utente_e_scala_in_pixel() {
        Quadro q;
        q.S.Scale(-100, -50, 100, 50);
        QCOMPARE(q.S.ScaleMode(), ScalaUtente);
        QCOMPARE(q.S.ScaleLeft(), -100.0f);
        QCOMPARE(q.S.ScaleWidth(), 200.0f);
        QCOMPARE(q.S.PuntoPixelX(0), 472);
        q.S.Line(-100, 0, 100, 0, Rosso);
        QCOMPARE(Colore(q.S.Immagine(), 300, 334), Rosso);
        q.S.ImpostaScaleMode(ScalaPixel);
        QCOMPARE(q.S.ScaleWidth(), 943.0f);
        QCOMPARE(q.S.ScaleLeft(), 0.0f);
        QCOMPARE(q.S.PuntoPixelX(17), 17);
        q.S.ImpostaScaleMode(ScalaTwips);
        QCOMPARE(q.S.ScaleWidth(), 14145.0f);
    }

    void immagine_salvata_come_bmp_si_rilegge_uguale() {
        AmbienteProva amb;
        Quadro q;
        q.S.FillStyle = 0;
        q.S.FillColor = Verde;
        q.S.Box(1500, 1500, 4500, 3000, Rosso);
        const QString percorso = amb.Radice() + QStringLiteral("/prova.bmp");
        q.S.SalvaImmagine(percorso);
        QImageReader lettore(percorso);
        QCOMPARE(lettore.format(), QByteArray("bmp"));
        const QImage letta = lettore.read();
        QCOMPARE(letta.size(), QSize(943, 667));
        QCOMPARE(Colore(letta, 200, 150), Verde);
        QCOMPARE(Colore(letta, 100, 150), Rosso);
        QCOMPARE(Colore(letta, 600, 500), Sfondo);
    }

    void linea_punteggiata_larga_ha_punti_sulla_linea_e_buchi() {
        for (const int16_t larghezza : {2, 3, 5}) {
            Quadro q;
            q.S.DrawStyle = 2;
            q.S.DrawWidth = larghezza;
            const QPointF a(100, 100);
            const QPointF b(700, 400);
            q.S.Line(float(a.x() * 15), float(a.y() * 15), float(b.x() * 15), float(b.y() * 15),
                     Rosso);
            const QImage& img = q.S.Immagine();
            int inchiostro = 0;
            for (int y = 0; y < img.height(); ++y)
                for (int x = 0; x < img.width(); ++x)
                    if (Colore(img, x, y) == Rosso) {
                        ++inchiostro;
                        QVERIFY(DistanzaDalSegmento(x, y, a, b) <= larghezza / 2.0 + 1.0);
                    }
            // Dots one pen wide every three: about a third of the solid band.
            const double pieno = std::hypot(600.0, 300.0) * larghezza;
            QVERIFY(inchiostro > 0.2 * pieno);
            QVERIFY(inchiostro < 0.5 * pieno);
            // Along the line ink and gaps take turns.
            int cambi = 0;
            bool prima = false;
            for (int i = 0; i <= 600; ++i) {
                const QPointF p = a + (b - a) * (i / 600.0);
                const bool ora =
                    Colore(img, int(std::lround(p.x())), int(std::lround(p.y()))) == Rosso;
                if (i > 0 && ora != prima) ++cambi;
                prima = ora;
            }
            QVERIFY(cambi > 2 * 670 / (3 * larghezza) - 10);
        }
    }

    void ellisse_punteggiata_larga_ha_punti_sulla_curva_e_buchi() {
        Quadro q;
        q.S.DrawStyle = 2;
        q.S.DrawWidth = 3;
        q.S.Circle(7500, 5000, 3000, Rosso, 0.5f); // 200 by 100 px round (500, 333)
        const QImage& img = q.S.Immagine();
        const double cx = 500;
        const double cy = 5000 / 15.0;
        for (int y = 0; y < img.height(); ++y)
            for (int x = 0; x < img.width(); ++x)
                if (Colore(img, x, y) == Rosso) {
                    // Within the pen's half width and a pixel of the ellipse.
                    const double t = std::atan2((cy - y) / 100.0, (x - cx) / 200.0);
                    double vicino = 1e9;
                    for (int k = -20; k <= 20; ++k) {
                        const double u = t + k * 0.005;
                        vicino = std::min(vicino, std::hypot(x - (cx + 200 * std::cos(u)),
                                                             y - (cy - 100 * std::sin(u))));
                    }
                    QVERIFY(vicino <= 2.5);
                }
        int sulla = 0;
        for (int i = 0; i < 1000; ++i) {
            const double u = i * 2 * 3.14159265358979 / 1000;
            if (Colore(img, int(std::lround(cx + 200 * std::cos(u))),
                       int(std::lround(cy - 100 * std::sin(u)))) == Rosso)
                ++sulla;
        }
        QVERIFY(sulla > 200);
        QVERIFY(sulla < 550);
    }

    void forme_spesse_chiuse_non_lasciano_uscire_lo_sfondo() {
        for (const int16_t larghezza : {2, 3, 4, 7}) {
            for (const float aspetto : {1.0f, 0.37f, 2.9f}) {
                Quadro q;
                q.S.DrawWidth = larghezza;
                q.S.Circle(7000, 5000, 2000 + 97 * larghezza, Rosso, aspetto);
                QVERIFY(!SfondoArrivaAlBordo(q.S.Immagine(), q.S.PuntoPixelX(7000),
                                             q.S.PuntoPixelY(5000)));
            }
            Quadro q;
            q.S.DrawWidth = larghezza;
            q.S.Box(1007, 1013, 6011, 4019, Rosso);
            QVERIFY(!SfondoArrivaAlBordo(q.S.Immagine(), 200, 150));
            // Four lines meeting at their ends close a slanted square.
            Quadro l;
            l.S.DrawWidth = larghezza;
            l.S.Line(3000, 1000, 5000, 3000, Rosso);
            l.S.Line(5000, 3000, 3000, 5000, Rosso);
            l.S.Line(3000, 5000, 1000, 3000, Rosso);
            l.S.Line(1000, 3000, 3000, 1000, Rosso);
            QVERIFY(!SfondoArrivaAlBordo(l.S.Immagine(), 200, 200));
        }
    }

    void cerchio_sottile_sullo_schermo_e_uguale_a_quello_nella_bitmap() {
        // The screen layer keeps thin ellipses as runs of pixels; the bitmap has
        // Qt draw each one. Both must give the same pixels wherever they land.
        for (const int16_t riempimento : {0, 1}) {
            for (const float raggio : {50.0f, 333.0f, 1234.5f}) {
                Quadro q;
                q.S.FillStyle = riempimento;
                q.S.FillColor = Verde;
                const float posti[][2] = {{1000, 1000}, {7007, 5003}, {14100, 9990}, {-20, 3000}};
                for (const auto& posto : posti) {
                    q.S.AutoRedraw = true;
                    q.S.Circle(posto[0], posto[1], raggio, Rosso, 0.7f);
                    q.S.AutoRedraw = false;
                    q.S.Circle(posto[0], posto[1], raggio, Rosso, 0.7f);
                    q.S.Circle(posto[0] + 7.5f, posto[1] + 22.5f, raggio, Blu, 0.7f);
                }
                QImage bitmap = q.S.Immagine();
                // The bitmap again with the moved copies, drawn by Qt.
                q.S.AutoRedraw = true;
                for (const auto& posto : posti)
                    q.S.Circle(posto[0] + 7.5f, posto[1] + 22.5f, raggio, Blu, 0.7f);
                QCOMPARE(q.S.Schermo(), q.S.Immagine());
                QVERIFY(bitmap != q.S.Immagine());
            }
        }
    }

    void print_ha_gli_stessi_pixel_del_testo_di_qt() {
        for (const bool grassetto : {false, true}) {
            for (const bool corsivo : {false, true}) {
                for (const float dimensione : {8.25f, 13.0f, 27.5f}) {
                    Quadro q;
                    q.S.FontName = QStringLiteral("Times New Roman");
                    q.S.FontSize = dimensione;
                    q.S.FontBold = grassetto;
                    q.S.FontItalic = corsivo;
                    q.S.ForeColor = Blu;
                    const QString riga = QStringLiteral("Una casa, con il tetto rosso: WAV fij");
                    q.S.CurrentX = 1507;
                    q.S.CurrentY = 2011;
                    q.S.Print(riga);
                    const QPoint primo(q.S.PuntoPixelX(1507), q.S.PuntoPixelY(2011));
                    const QPoint secondo(q.S.PuntoPixelX(14000), q.S.PuntoPixelY(q.S.CurrentY));
                    q.S.CurrentX = 14000; // runs off the right edge
                    q.S.Print(QStringLiteral("Sole"));

                    QImage atteso(q.S.LarghezzaPixel(), q.S.AltezzaPixel(), QImage::Format_RGB32);
                    atteso.setDotsPerMeterX(q.S.Immagine().dotsPerMeterX());
                    atteso.setDotsPerMeterY(q.S.Immagine().dotsPerMeterY());
                    atteso.fill(ColoreQt(Sfondo));
                    QFont font(q.S.FontName);
                    font.setPointSizeF(dimensione);
                    font.setBold(grassetto);
                    font.setItalic(corsivo);
                    font.setStyleStrategy(QFont::NoAntialias);
                    {
                        QPainter p(&atteso);
                        p.setRenderHint(QPainter::Antialiasing, false);
                        p.setRenderHint(QPainter::TextAntialiasing, false);
                        p.setFont(font);
                        p.setPen(ColoreQt(Blu));
                        const double ascesa = std::round(QFontMetricsF(font, &atteso).ascent());
                        p.drawText(QPointF(primo.x(), primo.y() + ascesa), riga);
                        p.drawText(QPointF(secondo.x(), secondo.y() + ascesa),
                                   QStringLiteral("Sole"));
                    }
                    QCOMPARE(q.S.Immagine(), atteso);
                }
            }
        }
    }

    void lo_stesso_testo_in_due_font_alternati_resta_uguale() {
        Quadro a;
        Quadro b;
        for (int i = 0; i < 3; ++i) {
            for (Quadro* q : {&a, &b}) {
                q->S.FontSize = q == &a || i == 2 ? 12.0f : 20.0f;
                q->S.FontBold = i == 1;
                q->S.CurrentX = 1500;
                q->S.CurrentY = 1500.0f + 1500.0f * i;
                q->S.Print(QStringLiteral("Sole"));
            }
        }
        // The last line has the same font on both: it must not pick up the other's.
        const QRect ultima(90, 290, 300, 60);
        QCOMPARE(a.S.Immagine().copy(ultima), b.S.Immagine().copy(ultima));
    }
};

QTEST_MAIN(TestSuperficie)
#include "test_superficie.moc"
