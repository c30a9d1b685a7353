// Replay: each action type drawn from its record, checked by probing pixels,
// the range, the state the surface keeps, and a picture that cannot be read.

#include "archive/Archivi.h"
#include "base/Utilita.h"
#include "model/Paint.h"
#include "model/RecordAzione.h"
#include "model/Superficie.h"
#include "model/TracciaAzioni.h"
#include "support/AmbienteProva.h"
#include "support/CostruttoriAzioni.h"
#include "support/ProvaGlobali.h"
#include "support/SondePixel.h"
#include "support/TelaProva.h"

#include <QFile>
#include <QtTest>

#include <cmath>
#include <limits>

#include <sys/stat.h>

namespace {

using namespace SondePixel;

using CostruttoriAzioni::Linea;

RecordAzione Rettangolo(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t flag,
                        int32_t linea = Rosso, int32_t zona = Verde) {
    return CostruttoriAzioni::Rettangolo(x1, y1, x2, y2, flag, linea, zona);
}

RecordAzione Ellisse(float xc, float yc, float rv, float ro, int32_t flag) {
    return CostruttoriAzioni::Ellisse(xc, yc, rv, ro, flag, Rosso, Verde);
}

RecordAzione Arco(float xc, float yc, float rv, float ro, float inizio, float fine) {
    return CostruttoriAzioni::Arco(xc, yc, rv, ro, inizio, fine, Rosso, Verde);
}

RecordAzione Colorazione(float x, float y, int32_t zona, int32_t flag = FlagPieno,
                         int32_t linea = Rosso) {
    return CostruttoriAzioni::Colorazione(x, y, zona, flag, linea);
}

RecordAzione Testo(const QString& testo, int16_t interlinea) {
    return CostruttoriAzioni::Testo(1500, 1500, 9000, 6000, testo, Blu, 24, interlinea, 1);
}

struct Quadro : TelaProva {
    // The whole of Azioni, as a full redraw asks for it.
    void Traccia(const QList<RecordAzione>& azioni) {
        CostruttoriAzioni::MettiAzioni(azioni);
        PrimaAzioneTraccia = 1;
        UltimaAzioneTraccia = int16_t(NumeroAzioni);
        TracciaAzioni(S);
    }
};

// The first row of each band of rows that hold ink of `colore`.
QList<int> InizioBande(const QImage& img, int32_t colore) {
    QList<int> inizi;
    bool inBanda = false;
    for (int y = 0; y < img.height(); ++y) {
        bool inchiostro = false;
        for (int x = 0; x < img.width() && !inchiostro; ++x)
            inchiostro = Colore(img, x, y) == colore;
        if (inchiostro && !inBanda) inizi.append(y);
        inBanda = inchiostro;
    }
    return inizi;
}

} // namespace

class TestTracciaAzioni : public ProvaGlobali {
    Q_OBJECT

private slots:
    void linea_ha_il_colore_e_lo_spessore_del_record() {
        Quadro q;
        q.Traccia({Linea(1500, 3000, 9000, 3000, Blu, 5), Linea(1500, 6000, 9000, 6000, Rosso, 1)});
        for (int dy = -2; dy <= 2; ++dy)
            QCOMPARE(Colore(q.S.Immagine(), 300, 200 + dy), Blu);
        QCOMPARE(Colore(q.S.Immagine(), 300, 196), Sfondo);
        QCOMPARE(Colore(q.S.Immagine(), 300, 204), Sfondo);
        QCOMPARE(Colore(q.S.Immagine(), 300, 400), Rosso);
        QCOMPARE(Colore(q.S.Immagine(), 300, 401), Sfondo);
        QCOMPARE(q.S.DrawWidth, int16_t(1));
    }

    void rettangolo_pieno_ha_interno_colzona_e_bordo_collinea() {
        Quadro q;
        q.Traccia({Rettangolo(1500, 1500, 4500, 4500, FlagPieno)});
        QCOMPARE(q.Bitmap(3000, 3000), Verde);
        QCOMPARE(q.Bitmap(1500, 3000), Rosso);
        QCOMPARE(q.Bitmap(4500, 3000), Rosso);
        QCOMPARE(q.Bitmap(3000, 1500), Rosso);
        QCOMPARE(q.Bitmap(3000, 4500), Rosso);
        QCOMPARE(q.Bitmap(6000, 3000), Sfondo);
    }

    void rettangolo_vuoto_lascia_vedere_quello_che_c_e_sotto() {
        Quadro q;
        q.Traccia({Linea(0, 3000, 9000, 3000, Blu), Rettangolo(1500, 1500, 4500, 4500, FlagVuoto)});
        QCOMPARE(q.Bitmap(3000, 2000), Sfondo);
        QCOMPARE(q.Bitmap(3000, 3000), Blu);
        QCOMPARE(q.Bitmap(1500, 2000), Rosso);
    }

    void rettangolo_con_flag_zero_tiene_il_riempimento_di_prima() {
        Quadro q;
        RecordAzione senzaFlag = Rettangolo(6000, 1500, 9000, 4500, 0, Blu, Giallo);
        q.Traccia({Rettangolo(1500, 1500, 4500, 4500, FlagPieno), senzaFlag});
        // The full box before it left FillStyle 0 and FillColor green.
        QCOMPARE(q.Bitmap(7500, 3000), Verde);
        QCOMPARE(q.Bitmap(6000, 3000), Blu);
        Quadro vuoto;
        vuoto.Traccia({Rettangolo(1500, 1500, 4500, 4500, FlagVuoto), senzaFlag});
        QCOMPARE(vuoto.Bitmap(7500, 3000), Sfondo);
    }

    void ellisse_con_aspetto_sopra_uno_prende_il_raggio_verticale() {
        Quadro q;
        // Vertical radius 1500 (100 px), horizontal 750 (50 px).
        q.Traccia({Ellisse(7500, 4500, 1500, 750, FlagVuoto)});
        const QImage& img = q.S.Immagine();
        QVERIFY(Vicino(img, 7500, 3000, Rosso));
        QVERIFY(Vicino(img, 7500, 6000, Rosso));
        QVERIFY(Vicino(img, 6750, 4500, Rosso));
        QVERIFY(Vicino(img, 8250, 4500, Rosso));
        QCOMPARE(q.Bitmap(6000, 4500), Sfondo);
        QCOMPARE(q.Bitmap(7500, 2700), Sfondo);
        QCOMPARE(q.Bitmap(7500, 4500), Sfondo);
    }

    void ellisse_piena_ha_interno_colzona() {
        Quadro q;
        q.Traccia({Ellisse(7500, 4500, 750, 1500, FlagPieno)});
        QCOMPARE(q.Bitmap(7500, 4500), Verde);
        QCOMPARE(q.Bitmap(6200, 4500), Verde);
        QVERIFY(Vicino(q.S.Immagine(), 6000, 4500, Rosso));
        QCOMPARE(q.Bitmap(7500, 3500), Sfondo);
    }

    void arco_con_raggi_uguali_e_un_cerchio() {
        Quadro q;
        q.Traccia({Arco(7500, 4500, 1500, 1500, 0.0f, 3.0f)});
        const QImage& img = q.S.Immagine();
        for (const double a : {0.1, 0.8, 1.5, 2.2, 2.9})
            QVERIFY(Vicino(img, 7500 + 1500 * std::cos(a), 4500 - 1500 * std::sin(a), Rosso));
    }

    void arco_da_zero_a_due_radianti_ha_pixel_solo_sul_suo_tratto() {
        Quadro q;
        q.Traccia({Arco(7500, 5000, 2000, 3000, Predefiniti::RadIniz, Predefiniti::RadFine)});
        const QImage& img = q.S.Immagine();
        auto punto = [](double a) {
            return QPointF(7500 + 3000 * std::cos(a), 5000 - 2000 * std::sin(a));
        };
        for (const double a : {0.05, 0.7, 1.3, 1.95}) {
            const QPointF p = punto(a);
            QVERIFY(Vicino(img, p.x(), p.y(), Rosso));
        }
        for (const double a : {2.15, 3.0, 4.0, 5.0, 6.1}) {
            const QPointF p = punto(a);
            QVERIFY(!Vicino(img, p.x(), p.y(), Rosso));
        }
    }

    void arco_non_tocca_lo_stato_di_riempimento() {
        Quadro q;
        q.Traccia(
            {Rettangolo(1500, 1500, 4500, 4500, FlagPieno), Arco(9000, 4500, 900, 900, 0, 2)});
        QCOMPARE(q.S.FillStyle, int16_t(0));
        QCOMPARE(q.S.FillColor, Verde);
        // An open arc is never filled, whatever the fill state.
        QCOMPARE(q.Bitmap(9300, 4300), Sfondo);
    }

    void arco_con_raggio_orizzontale_zero_e_divisione_per_zero() {
        AmbienteProva amb;
        Quadro q;
        q.Traccia({Arco(7500, 4500, 1500, 0, 0, 2), Linea(0, 3000, 9000, 3000, Blu)});
        QCOMPARE(amb.Scatole.size(), 1);
        QVERIFY(amb.Scatole[0].Testo.startsWith(QStringLiteral("ERRORE 11/3210")));
        QCOMPARE(ContaColore(q.S.Immagine(), Blu), 0);
        Quadro nulla;
        nulla.Traccia({Arco(7500, 4500, 0, 0, 0, 2)});
        QCOMPARE(amb.Scatole.size(), 2);
        QVERIFY(amb.Scatole[1].Testo.startsWith(QStringLiteral("ERRORE 6/3210")));
    }

    void colorazione_con_flag_2_riempie_la_zona() {
        Quadro q;
        q.Traccia({Rettangolo(1500, 1500, 4500, 4500, FlagVuoto), Colorazione(3000, 3000, Giallo)});
        QCOMPARE(q.Bitmap(3000, 3000), Giallo);
        QCOMPARE(q.Bitmap(1600, 4400), Giallo);
        QCOMPARE(q.Bitmap(1500, 3000), Rosso);
        QCOMPARE(q.Bitmap(6000, 3000), Sfondo);
    }

    void tondino_di_50_twips_ha_colzona_dentro_e_collinea_intorno() {
        Quadro q;
        q.Traccia({Colorazione(7500, 4500, Giallo, FlagVuoto, Blu)});
        const QImage& img = q.S.Immagine();
        QCOMPARE(q.Bitmap(7500, 4500), Giallo);
        QCOMPARE(Colore(img, 501, 300), Giallo);
        // 50 twips is a little over 3 pixels: the ring lies there.
        QVERIFY(Vicino(img, 7500 + 50, 4500, Blu));
        QVERIFY(Vicino(img, 7500, 4500 - 50, Blu));
        QCOMPARE(Colore(img, 500 + 6, 300), Sfondo);
        QCOMPARE(Colore(img, 500, 300 - 6), Sfondo);
        // The whole dot fits in a box of 9 pixels.
        const int dot = ContaColore(img, Giallo) + ContaColore(img, Blu);
        QVERIFY(dot >= 25);
        QVERIFY(dot <= 81);
        QCOMPARE(q.S.DrawWidth, int16_t(1));
    }

    void colorazione_con_flag_diverso_da_2_e_un_tondino() {
        for (const int32_t flag : {0, 1, 3, 7}) {
            Quadro q;
            q.Traccia({Rettangolo(1500, 1500, 4500, 4500, FlagVuoto),
                       Colorazione(3000, 3000, Giallo, flag, Blu)});
            QCOMPARE(q.Bitmap(3000, 3000), Giallo);
            QCOMPARE(q.Bitmap(2000, 2000), Sfondo);
            QVERIFY(Vicino(q.S.Immagine(), 3050, 3000, Blu));
        }
    }

    void colorazione_si_ferma_a_ogni_colore_e_corre_sullo_sfondo() {
        Quadro q;
        q.Traccia({Rettangolo(1500, 1500, 4500, 4500, FlagPieno, Rosso, Verde),
                   Ellisse(9000, 6000, 1500, 1500, FlagVuoto), Colorazione(12000, 1000, Giallo)});
        QCOMPARE(q.Bitmap(12000, 1000), Giallo);
        QCOMPARE(q.Bitmap(6000, 8000), Giallo);
        QCOMPARE(q.Bitmap(3000, 3000), Verde);
        QCOMPARE(q.Bitmap(9000, 6000), Sfondo);
        QCOMPARE(q.Bitmap(1500, 3000), Rosso);
    }

    void due_colorazioni_nello_stesso_punto() {
        Quadro q;
        q.Traccia({Rettangolo(1500, 1500, 4500, 4500, FlagVuoto), Colorazione(3000, 3000, Giallo),
                   Colorazione(3000, 3000, Blu)});
        QCOMPARE(q.Bitmap(3000, 3000), Blu);
        QCOMPARE(q.Bitmap(1600, 1600), Blu);
        QCOMPARE(ContaColore(q.S.Immagine(), Giallo), 0);
    }

    void colorazione_prima_della_forma_che_la_chiude_si_estende_di_piu() {
        Quadro prima;
        prima.Traccia(
            {Colorazione(3000, 3000, Giallo), Rettangolo(1500, 1500, 4500, 4500, FlagVuoto)});
        Quadro dopo;
        dopo.Traccia(
            {Rettangolo(1500, 1500, 4500, 4500, FlagVuoto), Colorazione(3000, 3000, Giallo)});
        QCOMPARE(prima.Bitmap(3000, 3000), Giallo);
        QCOMPARE(dopo.Bitmap(3000, 3000), Giallo);
        QCOMPARE(prima.Bitmap(9000, 8000), Giallo);
        QCOMPARE(dopo.Bitmap(9000, 8000), Sfondo);
        QVERIFY(ContaColore(prima.S.Immagine(), Giallo) >
                10 * ContaColore(dopo.S.Immagine(), Giallo));
    }

    void colorazione_lascia_il_riempimento_trasparente() {
        Quadro q;
        q.Traccia({Colorazione(3000, 3000, Giallo, FlagPieno, Blu)});
        QCOMPARE(q.S.FillStyle, int16_t(1));
        QCOMPARE(q.S.FillColor, Giallo);
        QCOMPARE(q.S.ForeColor, Blu);
        QVERIFY(OggettoPaint);
        QCOMPARE(OggettoPaint->Device(), &q.S);
    }

    void testo_di_tre_righe_con_interlinea_18() {
        Quadro q;
        const QString cr(QChar(u'\r'));
        q.Traccia({Testo(
            QStringLiteral("HHH") + cr + QStringLiteral("HHH") + cr + QStringLiteral("HHH"), 18)});
        Superficie misura(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
        misura.FontName = QStringLiteral("Arial");
        misura.FontSize = 24;
        const float altezza = misura.TextHeight(QStringLiteral("HHH"));
        const QList<int> bande = InizioBande(q.S.Immagine(), Blu);
        QCOMPARE(bande.size(), 3);
        // Each line starts where the previous print left the cursor, plus 18 twips.
        QCOMPARE(bande[1] - bande[0], Px(1500 + altezza + 18) - Px(1500));
        QCOMPARE(bande[2] - bande[0], Px(1500 + 2 * (altezza + 18)) - Px(1500));
        QCOMPARE(q.S.CurrentY, 1500 + 3 * altezza + 2 * 18);
        QCOMPARE(q.S.CurrentX, 0.0f);
        QCOMPARE(NumeroRigheTesto, int16_t(3));
        QCOMPARE(RigheTesto[1], QStringLiteral("HHH") + cr);
    }

    void interlinea_si_aggiunge_al_passo_naturale_della_riga() {
        const QString testo = QStringLiteral("HHH\rHHH");
        Quadro senza;
        senza.Traccia({Testo(testo, 0)});
        Quadro con;
        con.Traccia({Testo(testo, 150)});
        const QList<int> a = InizioBande(senza.S.Immagine(), Blu);
        const QList<int> b = InizioBande(con.S.Immagine(), Blu);
        QCOMPARE(a.size(), 2);
        QCOMPARE(b.size(), 2);
        QCOMPARE(a[0], b[0]);
        QCOMPARE((b[1] - b[0]) - (a[1] - a[0]), 10);
    }

    void corsivo_e_grassetto_secondo_i_codici() {
        Quadro q;
        RecordAzione t = Testo(QStringLiteral("x"), 18);
        t.Corsivo = 1;
        t.Grassetto = 1;
        t.NomeFont = QStringLiteral("Times New Roman");
        t.SizeFont = 14;
        q.Traccia({t});
        QVERIFY(q.S.FontItalic);
        QVERIFY(q.S.FontBold);
        QCOMPARE(q.S.FontName, QStringLiteral("Times New Roman"));
        QCOMPARE(q.S.FontSize, 14.0f);
        // 0 leaves the surface as it was.
        t.Corsivo = 0;
        t.Grassetto = 0;
        q.Traccia({t});
        QVERIFY(q.S.FontItalic);
        QVERIFY(q.S.FontBold);
        t.Corsivo = 2;
        t.Grassetto = 2;
        q.Traccia({t});
        QVERIFY(!q.S.FontItalic);
        QVERIFY(!q.S.FontBold);
    }

    void testo_con_resto_di_soli_spazi_non_stampa_altre_righe() {
        Quadro q;
        q.Traccia({Testo(QStringLiteral("HHH\r   "), 18)});
        QCOMPARE(NumeroRigheTesto, int16_t(1));
        QCOMPARE(InizioBande(q.S.Immagine(), Blu).size(), 1);
    }

    void immagine_stirata_nel_suo_riquadro() {
        AmbienteProva amb;
        QImage figura(2, 1, QImage::Format_RGB32);
        figura.setPixel(0, 0, qRgb(255, 0, 0));
        figura.setPixel(1, 0, qRgb(0, 0, 255));
        const QString percorso = PercorsoFile() + QStringLiteral("/figura.png");
        QVERIFY(figura.save(percorso));
        RecordAzione a;
        a.TipoAzione = TipiAzione::Immagine;
        a.XInizio = 1500;
        a.YInizio = 1500;
        a.XFine = 7500; // 400 px wide
        a.YFine = 4500; // 200 px high
        a.NomeFileImmagine = percorso;
        a.SpessLinea = 1;
        Quadro q;
        q.Traccia({a});
        QCOMPARE(q.Bitmap(2000, 3000), Rosso);
        QCOMPARE(q.Bitmap(4400, 4400), Rosso);
        QCOMPARE(q.Bitmap(4600, 1600), Blu);
        QCOMPARE(q.Bitmap(7400, 3000), Blu);
        QCOMPARE(q.Bitmap(7700, 3000), Sfondo);
        QCOMPARE(q.Bitmap(3000, 4700), Sfondo);
        QVERIFY(amb.Scatole.isEmpty());
    }

    void immagine_che_non_si_legge_e_la_sua_cornice_detta_una_volta() {
        AmbienteProva amb;
        RecordAzione a;
        a.TipoAzione = TipiAzione::Immagine;
        a.XInizio = 1500;
        a.YInizio = 1500;
        a.XFine = 4500;
        a.YFine = 4500;
        a.NomeFileImmagine = PercorsoFile() + QStringLiteral("/non c'è.jpg");
        a.ColLinea = Verde;
        Quadro q;
        const QList<RecordAzione> lista{Linea(0, 750, 9000, 750, Rosso), a, a,
                                        Linea(0, 6000, 9000, 6000, Blu)};
        q.Traccia(lista);
        QCOMPARE(amb.Scatole.size(), 1);
        QVERIFY(amb.Scatole[0].Testo.contains(QStringLiteral("(53/3210)")));
        QCOMPARE(q.Bitmap(3000, 750), Rosso);
        // The frame stands where the picture would, and the replay goes on after it.
        QCOMPARE(q.Bitmap(1500, 3000), Verde);
        QCOMPARE(q.Bitmap(4500, 3000), Verde);
        QCOMPARE(q.Bitmap(3000, 3000), Sfondo);
        QVERIFY(ContaColore(q.S.Immagine(), Blu) > 0);
        QVERIFY(!q.S.AutoRedraw);
        // Told once: later replays of the same drawing stay silent.
        q.Traccia(lista);
        q.Traccia(lista);
        QCOMPARE(amb.Scatole.size(), 1);
    }

    void duemila_immagini_che_non_si_leggono_dette_in_un_solo_messaggio() {
        AmbienteProva amb;
        const QString guasta = PercorsoFile() + QStringLiteral("/guasta.png");
        {
            QFile f(guasta);
            QVERIFY(f.open(QIODevice::WriteOnly));
            f.write("non sono un'immagine");
        }
        QList<RecordAzione> lista;
        for (int k = 0; k < 2000; ++k) {
            RecordAzione a;
            a.TipoAzione = TipiAzione::Immagine;
            a.XInizio = 15 * (k % 40), a.YInizio = 15 * (k / 40);
            a.XFine = a.XInizio + 150, a.YFine = a.YInizio + 150;
            a.NomeFileImmagine =
                k == 0 ? guasta : PercorsoFile() + QStringLiteral("/manca-%1.png").arg(k);
            lista << a;
        }
        Quadro q;
        q.Traccia(lista);
        // One box for the drawing, however many pictures it misses: the first
        // with its own words, and how many more.
        QCOMPARE(amb.Scatole.size(), 1);
        QVERIFY2(amb.Scatole[0].Testo.contains(QStringLiteral("guasta.png")) &&
                     amb.Scatole[0].Testo.contains(QStringLiteral("e altre 1999 immagini")),
                 qPrintable(amb.Scatole[0].Testo));
        q.Traccia(lista);
        QCOMPARE(amb.Scatole.size(), 1);
    }

    void codici_fuori_da_1_a_7_non_disegnano() {
        Quadro q;
        QList<RecordAzione> azioni;
        for (const int32_t codice : {0, 8, 9, -1, 100}) {
            RecordAzione a = Rettangolo(1500, 1500, 4500, 4500, FlagPieno);
            a.TipoAzione = codice;
            a.XCentro = 3000;
            a.YCentro = 3000;
            a.RaggioOriz = 1000;
            a.RaggioVert = 1000;
            azioni.append(a);
        }
        q.Traccia(azioni);
        QCOMPARE(ContaColore(q.S.Immagine(), Sfondo), 943 * 667);
    }

    void intervallo_vuoto_non_disegna() {
        Quadro q;
        Azioni = {RecordAzione{}, Linea(0, 750, 9000, 750, Rosso)};
        NumeroAzioni = 1;
        PrimaAzioneTraccia = 2;
        UltimaAzioneTraccia = 1;
        TracciaAzioni(q.S);
        QCOMPARE(ContaColore(q.S.Immagine(), Sfondo), 943 * 667);
        QVERIFY(!q.S.AutoRedraw);
    }

    void azioni_vuote_non_disegnano() {
        Quadro q;
        q.Traccia({});
        QCOMPARE(ContaColore(q.S.Immagine(), Sfondo), 943 * 667);
    }

    void si_traccia_solo_l_intervallo_chiesto() {
        Quadro q;
        Azioni = {RecordAzione{}, Linea(0, 750, 9000, 750, Rosso),
                  Linea(0, 1500, 9000, 1500, Verde), Linea(0, 2250, 9000, 2250, Blu)};
        NumeroAzioni = 3;
        PrimaAzioneTraccia = 2;
        UltimaAzioneTraccia = 2;
        TracciaAzioni(q.S);
        QCOMPARE(ContaColore(q.S.Immagine(), Rosso), 0);
        QCOMPARE(q.Bitmap(3000, 1500), Verde);
        QCOMPARE(ContaColore(q.S.Immagine(), Blu), 0);
    }

    void traccia_lascia_la_conservazione_spenta_e_lo_schermo_aggiornato() {
        Quadro q;
        q.Traccia({Linea(0, 750, 9000, 750, Rosso)});
        QVERIFY(!q.S.AutoRedraw);
        QCOMPARE(Colore(q.S.Schermo(), 200, 50), Rosso);
        // An overlay drawn afterwards goes to the screen only.
        q.S.Line(0, 3000, 9000, 3000, Blu);
        QCOMPARE(q.Bitmap(3000, 3000), Sfondo);
    }

    void indice_oltre_la_lista_e_errore_9() {
        AmbienteProva amb;
        Quadro q;
        Azioni = {RecordAzione{}, Linea(0, 750, 9000, 750, Rosso)};
        NumeroAzioni = 1;
        PrimaAzioneTraccia = 1;
        UltimaAzioneTraccia = 2;
        TracciaAzioni(q.S);
        QCOMPARE(amb.Scatole.size(), 1);
        QVERIFY(amb.Scatole[0].Testo.startsWith(QStringLiteral("ERRORE 9/3210")));
        QCOMPARE(q.Bitmap(3000, 750), Rosso);
    }

    void lista_propria_di_un_pannello() {
        Quadro q;
        const QList<RecordAzione> propria{RecordAzione{}, Linea(0, 750, 9000, 750, Verde)};
        PrimaAzioneTraccia = 1;
        UltimaAzioneTraccia = 1;
        TracciaAzioni(q.S, propria);
        QCOMPARE(q.Bitmap(3000, 750), Verde);
        QCOMPARE(NumeroAzioni, 0);
    }

    void ellissi_e_archi_lontanissimi_non_disegnano_nulla_data() {
        QTest::addColumn<float>("x");
        QTest::addColumn<float>("y");
        QTest::addColumn<float>("raggio");
        const float inf = std::numeric_limits<float>::infinity();
        QTest::newRow("1e30") << 1e30f << 5000.0f << 2000.0f;
        QTest::newRow("-1e30") << -1e30f << -1e30f << 2000.0f;
        QTest::newRow("+inf") << inf << 5000.0f << 2000.0f;
        QTest::newRow("6.4e10") << 6.4e10f << 6.4e10f << 2000.0f;
        QTest::newRow("raggio 1e30") << 7000.0f << 5000.0f << 1e30f;
        QTest::newRow("nan") << std::nanf("") << 5000.0f << 2000.0f;
    }

    void ellissi_e_archi_lontanissimi_non_disegnano_nulla() {
        QFETCH(float, x);
        QFETCH(float, y);
        QFETCH(float, raggio);
        Quadro q;
        RecordAzione piena = Ellisse(x, y, raggio, raggio, FlagPieno);
        RecordAzione spessa = Ellisse(x, y, raggio, raggio / 2, FlagVuoto);
        spessa.SpessLinea = 5;
        RecordAzione arco = Arco(x, y, raggio, raggio, 0.5f, 2.0f);
        q.Traccia({piena, spessa, arco});
        QCOMPARE(ContaColore(q.S.Immagine(), Sfondo), q.S.LarghezzaPixel() * q.S.AltezzaPixel());
    }

    void immagine_con_coordinate_estreme_non_trabocca() {
        AmbienteProva amb;
        QImage figura(2, 2, QImage::Format_RGB32);
        figura.fill(qRgb(255, 0, 0));
        const QString percorso = PercorsoFile() + QStringLiteral("/estrema.png");
        QVERIFY(figura.save(percorso));
        RecordAzione a;
        a.TipoAzione = TipiAzione::Immagine;
        a.XInizio = std::numeric_limits<int32_t>::max();
        a.YInizio = 1500;
        a.XFine = std::numeric_limits<int32_t>::min();
        a.YFine = 4500;
        a.NomeFileImmagine = percorso;
        RecordAzione lontana = a;
        lontana.XInizio = std::numeric_limits<int32_t>::min();
        lontana.XFine = std::numeric_limits<int32_t>::min() + 3000;
        Quadro q;
        q.Traccia({lontana, Linea(0, 750, 9000, 750, Blu)});
        // Wholly off the canvas: nothing but the line after it.
        QCOMPARE(ContaColore(q.S.Immagine(), Rosso), 0);
        QVERIFY(ContaColore(q.S.Immagine(), Blu) > 0);
        // Across the whole canvas, turned over: every row it spans is red.
        q.Traccia({a});
        QCOMPARE(q.Bitmap(7000, 3000), Rosso);
        QCOMPARE(q.Bitmap(7000, 6000), Sfondo);
        QVERIFY(amb.Scatole.isEmpty());
    }

    void riga_lunghissima_disegna_quello_che_entra_nel_quadro() {
        QString lunga;
        lunga.reserve(1 << 20);
        while (lunga.size() < (1 << 20))
            lunga += QStringLiteral("Casa sul prato, sole e albero. ");
        Quadro intera;
        intera.Traccia({Testo(lunga, 0)});
        Quadro breve;
        breve.Traccia({Testo(lunga.left(300), 0)});
        // The same pixels: nothing of what follows could reach the canvas.
        QVERIFY(ContaColore(intera.S.Immagine(), Blu) > 0);
        QCOMPARE(intera.S.Immagine(), breve.S.Immagine());
        QCOMPARE(intera.S.CurrentY, breve.S.CurrentY);
    }

    void immagine_che_nomina_una_pipe_non_blocca_la_traccia() {
        AmbienteProva amb;
        const QString percorso = PercorsoFile() + QStringLiteral("/tubo.jpg");
        QCOMPARE(::mkfifo(QFile::encodeName(percorso).constData(), 0600), 0);
        RecordAzione a;
        a.TipoAzione = TipiAzione::Immagine;
        a.XInizio = 1500;
        a.YInizio = 1500;
        a.XFine = 4500;
        a.YFine = 4500;
        a.NomeFileImmagine = percorso;
        Quadro q;
        q.Traccia({a});
        QCOMPARE(amb.Scatole.size(), 1);
        QVERIFY(amb.Scatole[0].Testo.contains(QStringLiteral("481/3210")));
    }
};

QTEST_MAIN(TestTracciaAzioni)
#include "test_traccia_azioni.moc"
