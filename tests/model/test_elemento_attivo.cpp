// The overlay of the element being built and of the active object: drawn in
// the screen layer only, wiped by the next call, the bitmap never touched.
// Checked by probing the screen layer against the bitmap.

#include "model/ElementoAttivo.h"
#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"
#include "model/Superficie.h"
#include "support/AmbienteProva.h"
#include "support/CostruttoriAzioni.h"
#include "support/ProvaGlobali.h"
#include "support/SondePixel.h"
#include "support/TelaProva.h"

#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

namespace {

using namespace SondePixel;

const QString CR(QChar(u'\r'));

struct Quadro : TelaProva {
    Quadro() {
        // As a command opens an element: solid here, so that probes land on ink.
        Penna(0);
    }
    bool BitmapPulita() const {
        return ContaColore(S.Immagine(), Sfondo) == S.Immagine().width() * S.Immagine().height();
    }
};

RecordAzione Linea(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t colore = Rosso) {
    return CostruttoriAzioni::Linea(x1, y1, x2, y2, colore);
}

RecordAzione Rettangolo(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t flag) {
    return CostruttoriAzioni::Rettangolo(x1, y1, x2, y2, flag, Rosso, Verde);
}

RecordAzione Ellisse(float xc, float yc, float rv, float ro, int32_t flag) {
    return CostruttoriAzioni::Ellisse(xc, yc, rv, ro, flag, Rosso, Verde);
}

RecordAzione Arco(float xc, float yc, float rv, float ro, float inizio, float fine) {
    return CostruttoriAzioni::Arco(xc, yc, rv, ro, inizio, fine, Rosso, Verde);
}

RecordAzione Colorazione(float x, float y, int32_t flag) {
    return CostruttoriAzioni::Colorazione(x, y, Giallo, flag, Rosso);
}

RecordAzione Testo(int32_t x1, int32_t y1, int32_t x2, int32_t y2) {
    return CostruttoriAzioni::Testo(x1, y1, x2, y2, QString(), Blu, 24, 0, 1);
}

void Righe(const QStringList& righe) {
    RigheScritte = QStringList{QString()} + righe;
    NumeroRigheScritte = int16_t(righe.size());
}

void Oggetto(const QList<RecordAzione>& elementi) {
    CostruttoriAzioni::MettiAttivi(elementi);
    OggettoAttivo = 1;
}

} // namespace

class TestElementoAttivo : public ProvaGlobali {
    Q_OBJECT

private slots:
    void cleanup() {
        SpostaIconaMirino = nullptr;
        RipristinaGlobali();
    }

    void senza_comando_ne_oggetto_cancella_solo_la_sovrapposizione();
    void linea_aperta_si_vede_sullo_schermo_e_non_nella_bitmap();
    void sovrapposizione_punteggiata_ha_buchi();
    void ogni_chiamata_cancella_la_sovrapposizione_precedente();
    void rettangolo_pieno_si_vede_vuoto_mentre_e_aperto();
    void rettangolo_di_selezione_e_un_contorno_nero();
    void ellisse_piena_si_vede_vuota_mentre_e_aperta();
    void arco_segue_la_regola_dell_aspetto();
    void colorazione_muove_solo_il_mirino();
    void testo_ha_la_cornice_che_finisce_un_interlinea_sopra_yfine();
    void testo_senza_righe_non_disegna_nulla();
    void immagine_ha_la_cornice_nera();
    void sovrapposizione_resta_sullo_schermo_anche_con_la_conservazione_accesa();
    void oggetto_ha_maniglie_nere_agli_estremi();
    void oggetto_con_colorazione_piena_mostra_un_tondino();
    void oggetto_mostra_le_forme_piene_come_contorni();
    void solo_il_testo_scelto_dell_oggetto_ha_la_cornice();
    void elemento_e_oggetto_insieme_si_vedono_entrambi();
};

void TestElementoAttivo::senza_comando_ne_oggetto_cancella_solo_la_sovrapposizione() {
    Quadro q;
    q.S.AutoRedraw = true;
    q.S.Line(0, 1500, 14000, 1500, Blu);
    q.S.AutoRedraw = false;
    q.S.Line(0, 4500, 14000, 4500, Rosso);
    QCOMPARE(q.Schermo(7000, 4500), Rosso);
    ElementoInCostruzione = Linea(0, 6000, 14000, 6000);
    TracciaElementoAttivo(q.S);
    QCOMPARE(q.Schermo(7000, 4500), Sfondo);
    QCOMPARE(q.Schermo(7000, 6000), Sfondo);
    QCOMPARE(q.Schermo(7000, 1500), Blu);
    QCOMPARE(q.S.Schermo(), q.S.Immagine());
}

void TestElementoAttivo::linea_aperta_si_vede_sullo_schermo_e_non_nella_bitmap() {
    Quadro q;
    PrimitivaAttiva = 101;
    ElementoInCostruzione = Linea(1500, 3000, 12000, 3000);
    TracciaElementoAttivo(q.S);
    QCOMPARE(q.Schermo(1500, 3000), Rosso);
    QCOMPARE(q.Schermo(7000, 3000), Rosso);
    QCOMPARE(q.Schermo(12000, 3000), Rosso);
    QCOMPARE(q.Schermo(7000, 3100), Sfondo);
    QVERIFY(q.BitmapPulita());
    QCOMPARE(q.S.AutoRedraw, false);
}

void TestElementoAttivo::sovrapposizione_punteggiata_ha_buchi() {
    Quadro q;
    q.S.DrawStyle = 2;
    PrimitivaAttiva = 101;
    ElementoInCostruzione = Linea(1500, 3000, 12000, 3000);
    TracciaElementoAttivo(q.S);
    int inchiostro = 0;
    for (int x = Px(1500); x <= Px(12000); ++x)
        if (Colore(q.S.Schermo(), x, Px(3000)) == Rosso) ++inchiostro;
    const int lunghezza = Px(12000) - Px(1500) + 1;
    QVERIFY(inchiostro > lunghezza / 5);
    QVERIFY(inchiostro < lunghezza * 4 / 5);
    QVERIFY(q.BitmapPulita());
}

void TestElementoAttivo::ogni_chiamata_cancella_la_sovrapposizione_precedente() {
    Quadro q;
    PrimitivaAttiva = 101;
    ElementoInCostruzione = Linea(1500, 3000, 12000, 3000);
    TracciaElementoAttivo(q.S);
    ElementoInCostruzione.YFine = 6000;
    ElementoInCostruzione.YInizio = 6000;
    TracciaElementoAttivo(q.S);
    QCOMPARE(q.Schermo(7000, 3000), Sfondo);
    QCOMPARE(q.Schermo(7000, 6000), Rosso);
    QVERIFY(q.BitmapPulita());
}

void TestElementoAttivo::rettangolo_pieno_si_vede_vuoto_mentre_e_aperto() {
    Quadro q;
    // As after a filled shape was fixed: the surface is left filling.
    q.S.FillStyle = 0;
    q.S.FillColor = Blu;
    PrimitivaAttiva = 103;
    ElementoInCostruzione = Rettangolo(3000, 3000, 9000, 7000, FlagPieno);
    TracciaElementoAttivo(q.S);
    QCOMPARE(q.Schermo(3000, 5000), Rosso);
    QCOMPARE(q.Schermo(9000, 5000), Rosso);
    QCOMPARE(q.Schermo(6000, 3000), Rosso);
    QCOMPARE(q.Schermo(6000, 5000), Sfondo);
    QCOMPARE(ContaColore(q.S.Schermo(), Verde), 0);
    QCOMPARE(ContaColore(q.S.Schermo(), Blu), 0);
    QVERIFY(q.BitmapPulita());
}

void TestElementoAttivo::rettangolo_di_selezione_e_un_contorno_nero() {
    Quadro q;
    PrimitivaAttiva = 120;
    RecordAzione box = Rettangolo(3000, 3000, 9000, 7000, FlagPieno);
    box.TipoAzione = TipiAzione::RettangoloSelezione;
    box.ColLinea = 0;
    box.ColZona = 0;
    ElementoInCostruzione = box;
    TracciaElementoAttivo(q.S);
    QCOMPARE(q.Schermo(3000, 5000), Nero);
    QCOMPARE(q.Schermo(6000, 7000), Nero);
    QCOMPARE(q.Schermo(6000, 5000), Sfondo);
    QVERIFY(q.BitmapPulita());
}

void TestElementoAttivo::ellisse_piena_si_vede_vuota_mentre_e_aperta() {
    Quadro q;
    PrimitivaAttiva = 104;
    ElementoInCostruzione = Ellisse(7072, 5000, 2000, 2000, FlagPieno);
    TracciaElementoAttivo(q.S);
    QVERIFY(Vicino(q.S.Schermo(), 9072, 5000, Rosso));
    QVERIFY(Vicino(q.S.Schermo(), 7072, 3000, Rosso));
    QCOMPARE(q.Schermo(7072, 5000), Sfondo);
    QCOMPARE(ContaColore(q.S.Schermo(), Verde), 0);
    QVERIFY(q.BitmapPulita());
}

void TestElementoAttivo::arco_segue_la_regola_dell_aspetto() {
    Quadro q;
    PrimitivaAttiva = 102;
    // Vertical 1000 over horizontal 3000: a flat quarter from 0 to 90 degrees.
    ElementoInCostruzione = Arco(7000, 5000, 1000, 3000, 0.0f, float(90 * Grado));
    TracciaElementoAttivo(q.S);
    QVERIFY(Vicino(q.S.Schermo(), 10000, 5000, Rosso));
    QVERIFY(Vicino(q.S.Schermo(), 7000, 4000, Rosso));
    QVERIFY(!Vicino(q.S.Schermo(), 4000, 5000, Rosso)); // the other side isn't drawn
    QVERIFY(!Vicino(q.S.Schermo(), 7000, 2000, Rosso)); // nor a circle of 3000
    QVERIFY(q.BitmapPulita());
}

void TestElementoAttivo::colorazione_muove_solo_il_mirino() {
    Quadro q;
    QList<QPointF> mirino;
    SpostaIconaMirino = [&](float sinistra, float alto) { mirino.append({sinistra, alto}); };
    PrimitivaAttiva = 114;
    ElementoInCostruzione = Colorazione(5000.5f, 3000, FlagPieno);
    TracciaElementoAttivo(q.S);
    QCOMPARE(mirino, (QList<QPointF>{{5000.5 - 230, 3000 - 230}}));
    QCOMPARE(q.S.Schermo(), q.S.Immagine());
    QVERIFY(q.BitmapPulita());
}

void TestElementoAttivo::testo_ha_la_cornice_che_finisce_un_interlinea_sopra_yfine() {
    Quadro q;
    PrimitivaAttiva = 128;
    InterlineaCorrente = 600; // wide, so that the frame's bottom is far from YFine
    ElementoInCostruzione = Testo(1500, 1500, 9000, 6000);
    Righe({QStringLiteral("Una casa") + CR, QStringLiteral("col tetto")});
    TracciaElementoAttivo(q.S);
    QCOMPARE(q.Schermo(5000, 1500), Nero);
    QCOMPARE(q.Schermo(5000, 5400), Nero);
    QCOMPARE(q.Schermo(9000, 3000), Nero);
    QCOMPARE(q.Schermo(5000, 6000), Sfondo);
    QVERIFY(ContaColore(q.S.Schermo(), Blu) > 50);
    QVERIFY(q.BitmapPulita());
}

void TestElementoAttivo::testo_senza_righe_non_disegna_nulla() {
    Quadro q;
    PrimitivaAttiva = 128;
    ElementoInCostruzione = Testo(1500, 1500, 9000, 6000);
    ElementoInCostruzione.Testo = QStringLiteral("non dalle righe");
    TracciaElementoAttivo(q.S);
    QCOMPARE(q.S.Schermo(), q.S.Immagine());
}

void TestElementoAttivo::immagine_ha_la_cornice_nera() {
    Quadro q;
    QTemporaryDir cartella;
    QImage figura(40, 30, QImage::Format_RGB32);
    figura.fill(QColor(0, 255, 0));
    const QString percorso = cartella.filePath(QStringLiteral("figura.png"));
    QVERIFY(figura.save(percorso));
    PrimitivaAttiva = 129;
    RecordAzione a = Linea(3000, 3000, 9000, 7000);
    a.TipoAzione = TipiAzione::Immagine;
    a.NomeFileImmagine = percorso;
    ElementoInCostruzione = a;
    TracciaElementoAttivo(q.S);
    QCOMPARE(q.Schermo(6000, 5000), Verde);
    QCOMPARE(q.Schermo(3000, 5000), Nero);
    QCOMPARE(q.Schermo(6000, 7000), Nero);
    QCOMPARE(q.Schermo(2800, 5000), Sfondo);
    QVERIFY(q.BitmapPulita());
}

void TestElementoAttivo::sovrapposizione_resta_sullo_schermo_anche_con_la_conservazione_accesa() {
    Quadro q;
    q.S.AutoRedraw = true; // as an interrupted fix leaves it
    PrimitivaAttiva = 101;
    ElementoInCostruzione = Linea(1500, 3000, 12000, 3000);
    TracciaElementoAttivo(q.S);
    QCOMPARE(q.Schermo(7000, 3000), Rosso);
    QVERIFY(q.BitmapPulita());
}

void TestElementoAttivo::oggetto_ha_maniglie_nere_agli_estremi() {
    Quadro q;
    Oggetto({Linea(1500, 1500, 4500, 1500), Rettangolo(6000, 1500, 9000, 3000, FlagVuoto),
             Arco(3000, 6000, 1000, 1000, 0.0f, float(90 * Grado)),
             Ellisse(9000, 6000, 1000, 1000, FlagVuoto)});
    TracciaElementoAttivo(q.S);
    // A dot of 50 twips is solid black a pixel or two round its centre.
    for (const QPointF& p :
         {QPointF(1500, 1500), QPointF(4500, 1500), QPointF(6000, 1500), QPointF(9000, 3000),
          QPointF(4000, 6000), QPointF(3000, 5000), QPointF(9000, 6000)}) {
        QCOMPARE(q.Schermo(p.x(), p.y()), Nero);
        QCOMPARE(q.Schermo(p.x() + 15, p.y()), Nero);
        QCOMPARE(q.Schermo(p.x(), p.y() - 15), Nero);
    }
    QCOMPARE(q.Schermo(3000, 6000), Sfondo); // an arc has no handle at its centre
    QCOMPARE(q.Schermo(3000, 1500), Rosso);  // the line between its handles
    QCOMPARE(q.S.FillStyle, int16_t(1));
    QVERIFY(q.BitmapPulita());
}

void TestElementoAttivo::oggetto_con_colorazione_piena_mostra_un_tondino() {
    Quadro q;
    Oggetto({Rettangolo(3000, 3000, 9000, 7000, FlagVuoto), Colorazione(6000, 5000, FlagPieno)});
    TracciaElementoAttivo(q.S);
    QCOMPARE(q.Schermo(6000, 5000), Giallo);
    QCOMPARE(q.Schermo(4000, 4000), Sfondo); // no flood
    QCOMPARE(ContaColore(q.S.Schermo(), Giallo) < 100, true);
    QVERIFY(q.BitmapPulita());
}

void TestElementoAttivo::oggetto_mostra_le_forme_piene_come_contorni() {
    Quadro q;
    q.S.FillStyle = 0;
    Oggetto({Rettangolo(1500, 1500, 6000, 5000, FlagPieno),
             Ellisse(10000, 5000, 2000, 2000, FlagPieno)});
    TracciaElementoAttivo(q.S);
    QCOMPARE(ContaColore(q.S.Schermo(), Verde), 0);
    QCOMPARE(q.Schermo(3000, 3000), Sfondo);
    QCOMPARE(q.Schermo(3000, 1500), Rosso);
    QVERIFY(Vicino(q.S.Schermo(), 12000, 5000, Rosso));
    QVERIFY(q.BitmapPulita());
}

void TestElementoAttivo::solo_il_testo_scelto_dell_oggetto_ha_la_cornice() {
    Quadro q;
    InterlineaCorrente = 600;
    RecordAzione primo = Testo(1500, 1500, 6000, 4000);
    primo.Testo = QStringLiteral("primo");
    primo.InterlineaTesto = 18;
    RecordAzione secondo = Testo(7500, 1500, 12000, 4000);
    secondo.Testo = QStringLiteral("secondo");
    secondo.InterlineaTesto = 18;
    Oggetto({primo, secondo});
    AzioneScelta = 2;
    TracciaElementoAttivo(q.S);
    // Handles at both corners of each; the frame only round the second.
    QCOMPARE(q.Schermo(1500, 1500), Nero);
    QCOMPARE(q.Schermo(6000, 4000), Nero);
    QCOMPARE(q.Schermo(9500, 3400), Nero);
    QCOMPARE(q.Schermo(3500, 3400), Sfondo);
    QCOMPARE(q.Schermo(12000, 2500), Nero);
    QCOMPARE(q.Schermo(6000, 2500), Sfondo);
    QVERIFY(ContaColore(q.S.Schermo(), Blu) > 50);
    QVERIFY(q.BitmapPulita());
}

void TestElementoAttivo::elemento_e_oggetto_insieme_si_vedono_entrambi() {
    Quadro q;
    PrimitivaAttiva = 101;
    ElementoInCostruzione = Linea(1500, 8000, 12000, 8000, Blu);
    Oggetto({Linea(1500, 2000, 12000, 2000)});
    TracciaElementoAttivo(q.S);
    QCOMPARE(q.Schermo(7000, 8000), Blu);
    QCOMPARE(q.Schermo(7000, 2000), Rosso);
    QVERIFY(q.BitmapPulita());
}

QTEST_MAIN(TestElementoAttivo)
#include "test_elemento_attivo.moc"
