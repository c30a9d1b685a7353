// The movement engine: one arrow key changes the work record by the edit
// command in progress, each bound refused with one beep and the record left as
// it stood; and the key routine's part that moves an open element or a group.

#include "archive/CopiaLavoro.h"
#include "base/Bip.h"
#include "drawing/MotoreMovimento.h"
#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"
#include "model/Superficie.h"
#include "support/AmbienteProva.h"
#include "support/CostruttoriAzioni.h"
#include "support/ProvaGlobali.h"

#include <QtTest>

#include <cmath>

namespace {

using namespace TastiFreccia;

constexpr int32_t W = LarghezzaQuadroDisegno;
constexpr int32_t H = AltezzaQuadroDisegno;

using CostruttoriAzioni::Linea;

RecordAzione Rettangolo(int32_t x1, int32_t y1, int32_t x2, int32_t y2) {
    return CostruttoriAzioni::Rettangolo(x1, y1, x2, y2, FlagVuoto);
}

RecordAzione Ellisse(float xc, float yc, float rv, float ro) {
    return CostruttoriAzioni::Ellisse(xc, yc, rv, ro, FlagVuoto);
}

using CostruttoriAzioni::Arco;

RecordAzione Colorazione(float x, float y) {
    return CostruttoriAzioni::Colorazione(x, y, 0, FlagVuoto);
}

// One key on RecordLavoro under one command; gives the beeps it cost.
int UnPasso(int16_t comando, int16_t tasto) {
    const int prima = ContatoreBip;
    ComandoModifica = comando;
    TastoMovimento = tasto;
    MotoreMovimento();
    return ContatoreBip - prima;
}

// The key repeated until the first refusal; gives how many steps went through.
int FinoAlRifiuto(int16_t comando, int16_t tasto) {
    for (int passi = 0; passi < 100000; ++passi)
        if (UnPasso(comando, tasto) > 0) return passi;
    return -1;
}

// A group taken as the selection leaves it: its reference box and the two
// resize steps, a tenth of the box.
void Gruppo(const QList<RecordAzione>& elementi) {
    CostruttoriAzioni::MettiAttivi(elementi);
    OggettoAttivo = 1;
    ModoIngombro = 1;
    CalcolaIngombro();
    RiferimentoXMin = IngombroXMin;
    RiferimentoYMin = IngombroYMin;
    RiferimentoXMax = IngombroXMax;
    RiferimentoYMax = IngombroYMax;
    PassoRidimensioneX = int32_t(std::lrint((IngombroXMax - IngombroXMin) / 10.0));
    PassoRidimensioneY = int32_t(std::lrint((IngombroYMax - IngombroYMin) / 10.0));
}

// The key routine's part for a key on the active object; gives the beeps.
int PassoGruppo(Superficie& quadro, int16_t comando, int16_t tasto) {
    const int prima = ContatoreBip;
    ComandoModifica = comando;
    TastoMovimento = tasto;
    ApplicaTastoMovimento(quadro);
    return ContatoreBip - prima;
}

} // namespace

class TestMotoreMovimento : public ProvaGlobali {
    Q_OBJECT

private slots:
    void passi_alla_apertura_sono_50_0_025_e_0_02() {
        QCOMPARE(PassoSpostamento, 50);
        QCOMPARE(FattoreRidimensione, 0.025f);
        QCOMPARE(PassoAngolo, 0.02f);
    }

    void inizio_linea_si_sposta_nei_quattro_versi() {
        RecordLavoro = Linea(5572, 3500, 8572, 6500);
        QCOMPARE(UnPasso(105, Destra), 0);
        QCOMPARE(RecordLavoro.XInizio, 5622);
        QCOMPARE(UnPasso(105, Giu), 0);
        QCOMPARE(RecordLavoro.YInizio, 3550);
        QCOMPARE(UnPasso(105, Sinistra), 0);
        QCOMPARE(UnPasso(105, Sinistra), 0);
        QCOMPARE(RecordLavoro.XInizio, 5522);
        QCOMPARE(UnPasso(105, Su), 0);
        QCOMPARE(RecordLavoro.YInizio, 3500);
        QCOMPARE(RecordLavoro.XFine, 8572);
        QCOMPARE(RecordLavoro.YFine, 6500);
    }

    void fine_linea_si_sposta_e_l_inizio_resta() {
        RecordLavoro = Linea(5572, 3500, 8572, 6500);
        PassoSpostamento = 300;
        QCOMPARE(UnPasso(106, Destra), 0);
        QCOMPARE(UnPasso(106, Su), 0);
        QCOMPARE(RecordLavoro.XFine, 8872);
        QCOMPARE(RecordLavoro.YFine, 6200);
        QCOMPARE(RecordLavoro.XInizio, 5572);
        QCOMPARE(RecordLavoro.YInizio, 3500);
    }

    void linea_trascinata_oltre_il_bordo_non_e_rifiutata() {
        RecordLavoro = Linea(20, 30, W - 20, H - 30);
        QCOMPARE(UnPasso(105, Sinistra), 0);
        QCOMPARE(UnPasso(105, Su), 0);
        QCOMPARE(RecordLavoro.XInizio, -30);
        QCOMPARE(RecordLavoro.YInizio, -20);
        QCOMPARE(UnPasso(106, Destra), 0);
        QCOMPARE(UnPasso(106, Giu), 0);
        QCOMPARE(RecordLavoro.XFine, W + 30);
        QCOMPARE(RecordLavoro.YFine, H + 20);
        QCOMPARE(ContatoreBip, 0);
    }

    void arco_destra_e_su_alzano_sinistra_e_giu_abbassano() {
        RecordLavoro = Arco(7072, 5000, 2000, 2000, 1.0f, 2.0f);
        QCOMPARE(UnPasso(107, Destra), 0);
        QCOMPARE(RecordLavoro.RadIniz, 1.0f + 0.02f);
        QCOMPARE(UnPasso(107, Su), 0);
        QCOMPARE(RecordLavoro.RadIniz, 1.0f + 0.02f + 0.02f);
        QCOMPARE(UnPasso(108, Sinistra), 0);
        QCOMPARE(RecordLavoro.RadFine, 2.0f - 0.02f);
        QCOMPARE(UnPasso(108, Giu), 0);
        QCOMPARE(RecordLavoro.RadFine, 2.0f - 0.02f - 0.02f);
        QCOMPARE(RecordLavoro.RaggioOriz, 2000.0f);
    }

    void arco_a_6_27_con_passo_50_destra_torna_a_0_02() {
        RecordLavoro = Arco(7072, 5000, 2000, 2000, 0.0f, 6.27f);
        QCOMPARE(UnPasso(108, Destra), 0);
        QCOMPARE(RecordLavoro.RadFine, 0.02f);
        QCOMPARE(RecordLavoro.RadIniz, 0.0f);
    }

    void angolo_che_scende_sotto_zero_riparte_da_due_pi() {
        RecordLavoro = Arco(7072, 5000, 2000, 2000, 0.01f, 2.0f);
        QCOMPARE(UnPasso(107, Giu), 0);
        QCOMPARE(RecordLavoro.RadIniz, float(360 * Grado) - 0.02f);
        QVERIFY(double(RecordLavoro.RadIniz) < 2 * M_PI);
    }

    void comando_109_cambia_la_distanza_quando_un_angolo_solo_gira() {
        RecordLavoro = Arco(7072, 5000, 2000, 2000, 3.0f, 6.27f);
        QCOMPARE(UnPasso(109, Destra), 0);
        QCOMPARE(RecordLavoro.RadIniz, 3.0f + 0.02f);
        QCOMPARE(RecordLavoro.RadFine, 0.02f);
        RecordLavoro = Arco(7072, 5000, 2000, 2000, 3.0f, 4.0f);
        QCOMPARE(UnPasso(109, Sinistra), 0);
        QCOMPARE(RecordLavoro.RadIniz, 3.0f - 0.02f);
        QCOMPARE(RecordLavoro.RadFine, 4.0f - 0.02f);
    }

    void forma_destra_rifiutata_oltre_la_larghezza() {
        RecordLavoro = Ellisse(7072, 5000, 2000, W - 7072 - 50);
        QCOMPARE(UnPasso(110, Destra), 0);
        QCOMPARE(RecordLavoro.RaggioOriz, float(W - 7072));
        QCOMPARE(UnPasso(110, Destra), 1);
        QCOMPARE(RecordLavoro.RaggioOriz, float(W - 7072));
        QCOMPARE(RecordLavoro.RaggioVert, 2000.0f);
    }

    void forma_su_allarga_il_raggio_verticale_fino_all_altezza() {
        RecordLavoro = Ellisse(7072, 5000, 2000, 2000);
        QCOMPARE(FinoAlRifiuto(110, Su), (H - 5000 - 2000) / 50);
        QCOMPARE(RecordLavoro.RaggioVert, float(H - 5000));
        QCOMPARE(RecordLavoro.RaggioOriz, 2000.0f);
    }

    void raggio_uguale_al_passo_non_scende_a_zero() {
        RecordLavoro = Ellisse(7072, 5000, 50, 50);
        QCOMPARE(UnPasso(110, Sinistra), 1);
        QCOMPARE(UnPasso(110, Giu), 1);
        QCOMPARE(RecordLavoro.RaggioOriz, 50.0f);
        QCOMPARE(RecordLavoro.RaggioVert, 50.0f);
        RecordLavoro = Ellisse(7072, 5000, 51, 51);
        QCOMPARE(UnPasso(110, Sinistra), 0);
        QCOMPARE(UnPasso(110, Giu), 0);
        QCOMPARE(RecordLavoro.RaggioOriz, 1.0f);
        QCOMPARE(RecordLavoro.RaggioVert, 1.0f);
    }

    void mirino_con_passo_300_rifiutato_da_349_in_giu() {
        PassoSpostamento = 300;
        for (float x : {349.0f, 320.0f, 300.0f}) {
            RecordLavoro = Colorazione(x, 5000);
            QCOMPARE(UnPasso(114, Sinistra), 1);
            QCOMPARE(RecordLavoro.XCentro, x);
            RecordLavoro = Colorazione(5000, x);
            QCOMPARE(UnPasso(114, Su), 1);
            QCOMPARE(RecordLavoro.YCentro, x);
        }
        RecordLavoro = Colorazione(350, 350);
        QCOMPARE(UnPasso(114, Sinistra), 0);
        QCOMPARE(UnPasso(114, Su), 0);
        QCOMPARE(RecordLavoro.XCentro, 50.0f);
        QCOMPARE(RecordLavoro.YCentro, 50.0f);
    }

    void mirino_con_passo_15_arriva_a_50() {
        PassoSpostamento = 15;
        RecordLavoro = Colorazione(7070, 5000);
        QCOMPARE(FinoAlRifiuto(114, Sinistra), (7070 - 50) / 15);
        QCOMPARE(RecordLavoro.XCentro, 50.0f);
        QCOMPARE(RecordLavoro.YCentro, 5000.0f);
    }

    void mirino_arriva_al_bordo_destro_e_inferiore_nudo() {
        RecordLavoro = Colorazione(float(W - 50), float(H - 50));
        QCOMPARE(UnPasso(114, Destra), 0);
        QCOMPARE(UnPasso(114, Giu), 0);
        QCOMPARE(RecordLavoro.XCentro, float(W));
        QCOMPARE(RecordLavoro.YCentro, float(H));
        QCOMPARE(UnPasso(114, Destra), 1);
        QCOMPARE(UnPasso(114, Giu), 1);
        QCOMPARE(RecordLavoro.XCentro, float(W));
        QCOMPARE(RecordLavoro.YCentro, float(H));
    }

    void sposta_rettangolo_fino_ai_bordi_con_entrambi_gli_angoli() {
        RecordLavoro = Rettangolo(1000, 1000, 120, 3000); // corners in either order
        QCOMPARE(FinoAlRifiuto(113, Sinistra), 120 / 50);
        QCOMPARE(RecordLavoro.XFine, 20);
        QCOMPARE(RecordLavoro.XInizio, 900);
        QCOMPARE(FinoAlRifiuto(113, Su), 1000 / 50);
        QCOMPARE(RecordLavoro.YInizio, 0);
        QCOMPARE(RecordLavoro.YFine, 2000);
        QCOMPARE(FinoAlRifiuto(113, Giu), (H - 2000) / 50);
        QCOMPARE(RecordLavoro.YFine, H);
        QCOMPARE(FinoAlRifiuto(113, Destra), (W - 900) / 50);
        QCOMPARE(RecordLavoro.XInizio, W - (W - 900) % 50);
        QCOMPARE(RecordLavoro.XFine - RecordLavoro.XInizio, 20 - 900);
    }

    void sposta_ellisse_arco_e_colorazione_per_il_centro() {
        for (const RecordAzione& r : {Ellisse(100, 5000, 3000, 3000),
                                      Arco(100, 5000, 3000, 3000, 0, 2), Colorazione(100, 5000)}) {
            RecordLavoro = r;
            QCOMPARE(UnPasso(113, Sinistra), 0);
            QCOMPARE(RecordLavoro.XCentro, 50.0f);
            QCOMPARE(UnPasso(113, Sinistra), 0);
            QCOMPARE(RecordLavoro.XCentro, 0.0f);
            QCOMPARE(UnPasso(113, Sinistra), 1);
            QCOMPARE(RecordLavoro.XCentro, 0.0f);
            QCOMPARE(RecordLavoro.RaggioOriz, r.RaggioOriz);
        }
    }

    void grandezza_1_muove_il_primo_angolo_e_2_l_opposto() {
        RecordLavoro = Rettangolo(5572, 3500, 8572, 6500);
        QCOMPARE(UnPasso(111, Sinistra), 0);
        QCOMPARE(UnPasso(111, Su), 0);
        QCOMPARE(RecordLavoro.XInizio, 5522);
        QCOMPARE(RecordLavoro.YInizio, 3450);
        QCOMPARE(RecordLavoro.XFine, 8572);
        QCOMPARE(UnPasso(112, Destra), 0);
        QCOMPARE(UnPasso(112, Giu), 0);
        QCOMPARE(RecordLavoro.XFine, 8622);
        QCOMPARE(RecordLavoro.YFine, 6550);
        QCOMPARE(RecordLavoro.XInizio, 5522);
    }

    void grandezza_di_un_angolo_rifiutata_al_bordo() {
        RecordLavoro = Rettangolo(0, 0, W, H);
        QCOMPARE(UnPasso(111, Sinistra), 1);
        QCOMPARE(UnPasso(111, Su), 1);
        QCOMPARE(UnPasso(112, Destra), 1);
        QCOMPARE(UnPasso(112, Giu), 1);
        QCOMPARE(RecordLavoro, Rettangolo(0, 0, W, H));
        // The opposite corner may still cross the first one: no order is kept.
        QCOMPARE(UnPasso(111, Destra), 0);
        QCOMPARE(RecordLavoro.XInizio, 50);
    }

    void grandezza_di_ellisse_cresce_in_proporzione() {
        RecordLavoro = Ellisse(7072, 5000, 1000, 2000);
        QCOMPARE(UnPasso(111, Destra), 0);
        QCOMPARE(RecordLavoro.RaggioVert, 1000.0f * (1 + 0.025f));
        QCOMPARE(RecordLavoro.RaggioOriz, 2000.0f * (1 + 0.025f));
        RecordLavoro = Arco(7072, 5000, 1000, 2000, 0, 2);
        QCOMPARE(UnPasso(112, Giu), 0);
        QCOMPARE(RecordLavoro.RaggioVert, 1000.0f * (1 - 0.025f));
        QCOMPARE(RecordLavoro.RaggioOriz, 2000.0f * (1 - 0.025f));
        QCOMPARE(RecordLavoro.XCentro, 7072.0f);
        QCOMPARE(RecordLavoro.RadFine, 2.0f);
    }

    void grandezza_di_ellisse_rifiutata_oltre_meta_quadro() {
        RecordLavoro = Ellisse(7072, 5000, 4900, 1000);
        QCOMPARE(UnPasso(111, Su), 1); // 4900 * 1.025 > 5000
        QCOMPARE(RecordLavoro.RaggioVert, 4900.0f);
        RecordLavoro = Ellisse(7072, 5000, 1000, 6950);
        QCOMPARE(UnPasso(112, Destra), 1); // 6950 * 1.025 > 7072
        QCOMPARE(RecordLavoro.RaggioOriz, 6950.0f);
        RecordLavoro = Ellisse(7072, 5000, 4870, 1000);
        QCOMPARE(UnPasso(111, Su), 0);
    }

    void grandezza_di_ellisse_rifiutata_sotto_40() {
        RecordLavoro = Ellisse(7072, 5000, 41, 2000);
        QCOMPARE(UnPasso(111, Sinistra), 1); // 41 * 0.975 < 40
        QCOMPARE(RecordLavoro.RaggioVert, 41.0f);
        QCOMPARE(RecordLavoro.RaggioOriz, 2000.0f);
        RecordLavoro = Ellisse(7072, 5000, 2000, 42);
        QCOMPARE(UnPasso(112, Giu), 0);
        QCOMPARE(RecordLavoro.RaggioOriz, 42.0f * (1 - 0.025f));
    }

    void colorazione_non_ha_grandezza_e_non_suona() {
        for (int16_t comando : {int16_t(111), int16_t(112)})
            for (int16_t tasto : {Sinistra, Su, Destra, Giu}) {
                RecordLavoro = Colorazione(7072, 5000);
                QCOMPARE(UnPasso(comando, tasto), 0);
                QCOMPARE(RecordLavoro, Colorazione(7072, 5000));
            }
    }

    void tasto_che_non_e_freccia_non_cambia_nulla() {
        RecordLavoro = Linea(5572, 3500, 8572, 6500);
        for (int16_t comando = 105; comando <= 114; ++comando)
            for (int16_t tasto : {int16_t(0), int16_t(13), int16_t(32), int16_t(41)}) {
                QCOMPARE(UnPasso(comando, tasto), 0);
                QCOMPARE(RecordLavoro, Linea(5572, 3500, 8572, 6500));
            }
        QCOMPARE(UnPasso(0, Destra), 0);
        QCOMPARE(RecordLavoro, Linea(5572, 3500, 8572, 6500));
    }

    void ogni_rifiuto_lascia_il_record_com_era() {
        struct Caso {
            RecordAzione Record;
            int16_t Comando;
            int16_t Tasto;
        };
        const QList<Caso> casi = {
            {Ellisse(W - 2000, 5000, 2000, 2000), 110, Destra},
            {Ellisse(7072, H - 2000, 2000, 2000), 110, Su},
            {Colorazione(W - 10, 5000), 114, Destra},
            {Colorazione(5000, H - 10), 114, Giu},
            {Colorazione(60, 5000), 114, Sinistra},
            {Colorazione(5000, 60), 114, Su},
            {Rettangolo(10, 10, 500, 500), 113, Sinistra},
            {Rettangolo(10, 10, 500, 500), 113, Su},
            {Rettangolo(500, 500, W - 10, H - 10), 113, Destra},
            {Rettangolo(500, 500, W - 10, H - 10), 113, Giu},
            {Ellisse(W - 10, 5000, 100, 100), 113, Destra},
            {Rettangolo(10, 10, 500, 500), 111, Sinistra},
            {Rettangolo(10, 10, W - 10, H - 10), 112, Giu},
        };
        for (const Caso& c : casi) {
            RecordLavoro = c.Record;
            QCOMPARE(UnPasso(c.Comando, c.Tasto), 1);
            QCOMPARE(RecordLavoro, c.Record);
        }
        QCOMPARE(BloccoBordo, 0); // a single element never sets it
    }

    void elemento_aperto_prende_il_passo_e_il_tasto_torna_a_zero() {
        Superficie quadro(W, H);
        ElementoInCostruzione = Linea(5572, 3500, 8572, 6500);
        ElementoInCostruzione.ColLinea = 0x0000FF;
        ElementoInCostruzione.Testo = QStringLiteral("resta");
        PrimitivaAttiva = 101;
        ComandoModifica = 106;
        TastoMovimento = Destra;
        ApplicaTastoMovimento(quadro);
        QCOMPARE(ElementoInCostruzione.XFine, 8622);
        QCOMPARE(ElementoInCostruzione.Testo, QStringLiteral("resta"));
        QCOMPARE(TastoMovimento, int16_t(0));
        // The overlay follows: the new end is drawn on the screen only.
        const QPoint fine(quadro.PuntoPixelX(8622), quadro.PuntoPixelY(6500));
        QCOMPARE(quadro.Schermo().pixel(fine), qRgb(255, 0, 0));
        QCOMPARE(quadro.Immagine().pixel(fine), quadro.Immagine().pixel(0, 0));
    }

    void gruppo_si_sposta_tutto_insieme() {
        Superficie quadro(W, H);
        Gruppo({Linea(1000, 1000, 2000, 2000), Ellisse(3000, 3000, 500, 500),
                Colorazione(4000, 4000)});
        QCOMPARE(PassoGruppo(quadro, 113, Destra), 0);
        QCOMPARE(ElementiAttivi[1].XInizio, 1050);
        QCOMPARE(ElementiAttivi[1].XFine, 2050);
        QCOMPARE(ElementiAttivi[2].XCentro, 3050.0f);
        QCOMPARE(ElementiAttivi[3].XCentro, 4050.0f);
        QCOMPARE(BloccoBordo, 0);
        QCOMPARE(TastoMovimento, int16_t(0));
    }

    void gruppo_con_l_ultimo_elemento_oltre_il_bordo_non_si_muove() {
        Superficie quadro(W, H);
        // The group is measured afresh for each element: the first one passes and
        // moves, which pushes the centre of the box past the edge for the last.
        Gruppo({Linea(W, 1000, W, 1100), Linea(W - 140, 1000, W - 140, 1100)});
        const QList<RecordAzione> prima = ElementiAttivi;
        RecordLavoro = ElementiAttivi[1];
        QCOMPARE(UnPasso(113, Destra), 0);
        QCOMPARE(BloccoBordo, 0);
        QCOMPARE(PassoGruppo(quadro, 113, Destra), 1);
        QCOMPARE(BloccoBordo, Destra);
        QCOMPARE(ElementiAttivi, prima);
    }

    void gruppo_fermo_al_bordo_rifiuta_subito_lo_stesso_tasto() {
        Superficie quadro(W, H);
        Gruppo({Rettangolo(W - 1000, 1000, W, 2000)});
        int passi = 0;
        while (PassoGruppo(quadro, 113, Destra) == 0)
            ++passi;
        QCOMPARE(passi, 500 / 50);
        QCOMPARE(BloccoBordo, Destra);
        const QList<RecordAzione> fermo = ElementiAttivi;
        // A second Right is refused without measuring the group again.
        IngombroXMin = -12345;
        QCOMPARE(PassoGruppo(quadro, 113, Destra), 1);
        QCOMPARE(IngombroXMin, -12345);
        QCOMPARE(BloccoBordo, Destra);
        QCOMPARE(ElementiAttivi, fermo);
    }

    void gruppo_fermo_al_bordo_riparte_con_un_altro_tasto() {
        Superficie quadro(W, H);
        Gruppo({Rettangolo(W - 1000, 1000, W, 2000)});
        while (PassoGruppo(quadro, 113, Destra) == 0) {
        }
        const int32_t xInizio = ElementiAttivi[1].XInizio;
        QCOMPARE(BloccoBordo, Destra);
        QCOMPARE(PassoGruppo(quadro, 113, Sinistra), 0);
        QCOMPARE(BloccoBordo, 0);
        QCOMPARE(ElementiAttivi[1].XInizio, xInizio - 50);
        QCOMPARE(PassoGruppo(quadro, 113, Destra), 0);
        QCOMPARE(ElementiAttivi[1].XInizio, xInizio);
    }

    void gruppo_112_destra_allarga_dal_bordo_sinistro_fisso() {
        Superficie quadro(W, H);
        Gruppo({Linea(1000, 1000, 2000, 1000), Linea(1500, 1200, 3000, 1400)});
        PassoSpostamento = 100;
        QCOMPARE(PassoGruppo(quadro, 112, Destra), 0);
        // Fixed edge 1000, width 2000: a point moves 100 * distance / 2000.
        QCOMPARE(ElementiAttivi[1].XInizio, 1000);
        QCOMPARE(ElementiAttivi[1].XFine, 2050);
        QCOMPARE(ElementiAttivi[2].XInizio, 1525);
        QCOMPARE(ElementiAttivi[2].XFine, 3100);
        QCOMPARE(ElementiAttivi[2].YFine, 1400);
    }

    void gruppo_111_destra_stringe_verso_il_bordo_destro_fisso() {
        Superficie quadro(W, H);
        Gruppo({Linea(1000, 1000, 3000, 1000), Linea(2030, 1200, 2000, 1400)});
        PassoSpostamento = 100;
        QCOMPARE(PassoGruppo(quadro, 111, Destra), 0);
        QCOMPARE(ElementiAttivi[1].XInizio, 1100);
        QCOMPARE(ElementiAttivi[1].XFine, 3000);
        // 2030 + 100 * 970 / 2000 = 2078.5, to the nearest even.
        QCOMPARE(ElementiAttivi[2].XInizio, 2078);
        QCOMPARE(ElementiAttivi[2].XFine, 2050);
    }

    void gruppo_non_scende_sotto_un_decimo_della_scatola() {
        Superficie quadro(W, H);
        Gruppo({Rettangolo(1000, 1000, 3000, 3000)});
        QCOMPARE(PassoRidimensioneX, 200);
        int passi = 0;
        while (PassoGruppo(quadro, 111, Destra) == 0)
            ++passi;
        // Refused once IngombroXMin + 50 reaches 3000 - 200.
        QCOMPARE(ElementiAttivi[1].XInizio + 50 >= 2800, true);
        QCOMPARE(ElementiAttivi[1].XInizio < 2800, true);
        QCOMPARE(ElementiAttivi[1].XFine, 3000);
        QVERIFY(passi > 0);
        QCOMPARE(BloccoBordo, Destra);
        // 112 Left stops a tenth above the left reference edge in the same way.
        BloccoBordo = 0;
        Gruppo({Rettangolo(1000, 1000, 3000, 3000)});
        while (PassoGruppo(quadro, 112, Sinistra) == 0) {
        }
        QVERIFY(ElementiAttivi[1].XFine - 50 <= 1200);
        QVERIFY(ElementiAttivi[1].XFine > 1200);
        QCOMPARE(ElementiAttivi[1].XInizio, 1000);
    }

    void colorazione_nel_gruppo_stira_solo_il_punto() {
        Superficie quadro(W, H);
        Gruppo({Linea(1000, 1000, 3000, 3000), Colorazione(2000, 2000)});
        PassoSpostamento = 100;
        QCOMPARE(PassoGruppo(quadro, 112, Destra), 0);
        QCOMPARE(ElementiAttivi[2].XCentro, 2050.0f);
        QCOMPARE(ElementiAttivi[2].YCentro, 2000.0f);
        QCOMPARE(ElementiAttivi[2].RaggioOriz, 0.0f);
        QCOMPARE(PassoGruppo(quadro, 112, Giu), 0);
        QCOMPARE(ElementiAttivi[2].YCentro, 2050.0f);
    }

    void ellisse_nel_gruppo_stira_centro_e_raggio() {
        Superficie quadro(W, H);
        Gruppo({Ellisse(2000, 2000, 1000, 1000)}); // box 1000..3000 both ways
        PassoSpostamento = 100;
        QCOMPARE(PassoGruppo(quadro, 112, Destra), 0);
        // Left rim stays at 1000, right rim 3000 -> 3100.
        QCOMPARE(ElementiAttivi[1].RaggioOriz, 1050.0f);
        QCOMPARE(ElementiAttivi[1].XCentro, 2050.0f);
        QCOMPARE(ElementiAttivi[1].RaggioVert, 1000.0f);
    }

    void in_111_su_un_arco_oltre_il_bordo_fisso_si_stira_se_i_suoi_estremi_no() {
        Superficie quadro(W, H);
        // As after the group was moved down: the reference box (1000..3000 in Y)
        // ends above the arc's centre, and the arc's ends (0.5 and 2.5 radians)
        // lie above that edge.
        auto gruppo = [](const RecordAzione& arco) {
            Gruppo({Linea(1000, 1000, 3000, 3000), arco});
            RiferimentoYMin = 1000;
            RiferimentoYMax = 3000;
            PassoRidimensioneY = 200;
        };
        PassoSpostamento = 100;
        gruppo(Arco(2000, 3200, 500, 500, 0.5f, 2.5f));
        QCOMPARE(PassoGruppo(quadro, 111, Su), 0);
        // Rims 2700 and 3700 rise by 100 * 300 / 2000 and 100 * 700 / 2000.
        QCOMPARE(ElementiAttivi[2].RaggioVert, 490.0f);
        QCOMPARE(ElementiAttivi[2].YCentro, 3190.0f);
        QCOMPARE(ElementiAttivi[1].YInizio, 900);
        QCOMPARE(ElementiAttivi[1].YFine, 3000);
        // With an end at or below the edge the arc is left out.
        gruppo(Arco(2000, 3200, 500, 500, 3.5f, 6.0f));
        QCOMPARE(PassoGruppo(quadro, 111, Su), 0);
        QCOMPARE(ElementiAttivi[2].RaggioVert, 500.0f);
        QCOMPARE(ElementiAttivi[2].YCentro, 3200.0f);
        // 111 Down tests the centre alone: beyond the fixed edge, not stretched.
        gruppo(Arco(2000, 3200, 500, 500, 0.5f, 2.5f));
        QCOMPARE(PassoGruppo(quadro, 111, Giu), 0);
        QCOMPARE(ElementiAttivi[2].RaggioVert, 500.0f);
        QCOMPARE(ElementiAttivi[2].YCentro, 3200.0f);
    }
};

QTEST_MAIN(TestMotoreMovimento)
#include "test_motore_movimento.moc"
