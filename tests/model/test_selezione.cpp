// Selecting the actions inside a box, taking them out of the drawing, and what
// the object commands do to the group: the flip about an edge of its box and
// the last object drawn again further on.

#include "archive/CopiaLavoro.h"
#include "model/RecordAzione.h"
#include "model/Selezione.h"
#include "model/StatoAmbiente.h"
#include "support/AmbienteProva.h"
#include "support/CostruttoriAzioni.h"

#include <QtTest>

#include <cmath>

namespace {

using CostruttoriAzioni::MettiAttivi;
using CostruttoriAzioni::MettiAzioni;

RecordAzione Linea(int32_t x1, int32_t y1, int32_t x2, int32_t y2) {
    return CostruttoriAzioni::Linea(x1, y1, x2, y2, 0, 2);
}

RecordAzione Angoli(int32_t tipo, int32_t x1, int32_t y1, int32_t x2, int32_t y2) {
    RecordAzione a = Linea(x1, y1, x2, y2);
    a.TipoAzione = tipo;
    if (tipo == TipiAzione::Rettangolo) a.FlagPienoVuoto = FlagPieno;
    if (tipo == TipiAzione::Testo) a.Testo = QStringLiteral("Sole");
    if (tipo == TipiAzione::Immagine) a.NomeFileImmagine = QStringLiteral("sole.bmp");
    return a;
}

RecordAzione Ellisse(float xc, float yc, float ro, float rv) {
    return CostruttoriAzioni::Ellisse(xc, yc, rv, ro, FlagVuoto, 0, 0, 2);
}

RecordAzione Arco(float xc, float yc, float ro, float rv, double gradiInizio, double gradiFine) {
    return CostruttoriAzioni::Arco(xc, yc, rv, ro, float(gradiInizio * Grado),
                                   float(gradiFine * Grado), 0, 0, 2);
}

RecordAzione Colorazione(float x, float y) {
    return CostruttoriAzioni::Colorazione(x, y, 0x0000FF);
}

void Riquadro(int16_t sinistra, int16_t alto, int16_t destra, int16_t basso) {
    RettangoloSelezione = {sinistra, alto, destra, basso};
}

QList<int16_t> Selezionati() {
    return ElementiSelezionati.mid(1, NumeroElementiSelezionati);
}

QList<RecordAzione> ListaAzioni() {
    return Azioni.mid(1, NumeroAzioni);
}

// Selects exactly these indices, as a box around them would.
void Selezione(const QList<int16_t>& indici) {
    ElementiSelezionati = QList<int16_t>{0} + indici;
    NumeroElementiSelezionati = int16_t(indici.size());
}

} // namespace

class TestSelezione : public QObject {
    Q_OBJECT

private slots:
    void init() {
        RipristinaGlobali();
        AzzeraSelezione();
    }
    void cleanup() {
        RipristinaGlobali();
        AzzeraSelezione();
    }

    // Selection.
    void riquadro_che_tocca_gli_estremi_di_una_linea_la_prende();
    void riquadro_con_meta_linea_non_la_prende();
    void rettangolo_testo_e_immagine_si_prendono_per_i_due_angoli();
    void arco_preso_per_i_due_estremi_anche_se_il_mezzo_esce();
    void arco_con_un_estremo_fuori_non_e_preso();
    void ellisse_presa_solo_se_tutto_il_suo_riquadro_e_dentro();
    void bordo_dell_ellisse_arrotondato_prima_del_confronto();
    void colorazione_confrontata_col_suo_punto_senza_arrotondare();
    void riquadro_rovesciato_non_prende_nulla();
    void selezione_vuota_svuota_le_liste_e_lascia_il_disegno();
    void indici_in_ordine_crescente_e_copie_negli_elementi_attivi();
    void colorazione_presa_diventa_tondino_solo_nella_copia();
    void selezione_misura_il_gruppo_con_gli_archi_per_ellisse();
    void passi_di_ridimensione_un_decimo_arrotondato_al_pari();
    void rettangolo_selezione_preso_dal_riquadro_a_16_bit();
    void estremo_oltre_16_bit_ferma_la_selezione_con_errore_6();

    // Removal.
    void rimozione_toglie_i_selezionati_e_tiene_l_ordine_e_la_capienza();
    void rimozione_di_tutte_le_azioni_lascia_zero_azioni();
    void rimozione_rende_tondini_le_colorazioni_rimaste();
    void colorazione_selezionata_resta_tondino_tornando_nel_disegno();
    void sposta_senza_muovere_cambia_solo_l_ordine();
    void copia_raddoppia_l_oggetto_in_fondo();
    void secondo_fissa_dopo_ridisegno_toglie_gli_stessi_indici_ora_altre_azioni();

    // Flip.
    void ribalta_1_di_una_linea_da_100_a_300_da_500_e_300();
    void ribalta_1_di_un_rettangolo_tiene_il_ruolo_degli_angoli();
    void ribalta_2_specchia_cio_che_sta_sopra_l_asse_sinistro();
    void ribalta_3_e_4_specchiano_le_y();
    void ribalta_misura_l_arco_per_il_suo_contorno_vero();
    void ribalta_sinistra_destra_scambia_e_riflette_gli_angoli_dell_arco();
    void ribalta_sinistra_destra_di_un_arco_oltre_180_gradi();
    void ribalta_alto_basso_scambia_gli_angoli_dell_arco();
    void centro_dell_arco_specchiato_sempre_anche_oltre_l_asse();
    void ellisse_e_colorazione_specchiano_il_centro_solo_dal_lato_mobile();
    void testo_ribaltato_incrocia_gli_angoli();
    void immagine_sull_asse_allarga_la_sua_cornice();
    void ribaltamento_5_non_cambia_nulla();
    void ribalta_lascia_il_riquadro_di_riferimento();

    // Drawing the last object again.
    void ridisegno_sposta_di_100_tutto_tranne_le_immagini();
    void ridisegni_ripetuti_si_sommano_e_i_selezionati_restano();
    void ridisegno_senza_elementi_non_attiva_nulla();
};

void TestSelezione::riquadro_che_tocca_gli_estremi_di_una_linea_la_prende() {
    MettiAzioni({Linea(1000, 2000, 3000, 4000)});
    Riquadro(1000, 2000, 3000, 4000);
    SelezionaElementi();
    QCOMPARE(NumeroElementiAttivi, int16_t(1));
    QCOMPARE(Selezionati(), QList<int16_t>{1});
    QCOMPARE(OggettoAttivo, int16_t(1));
    // One twip less on any side leaves it out.
    Riquadro(1000, 2000, 2999, 4000);
    SelezionaElementi();
    QCOMPARE(NumeroElementiAttivi, int16_t(0));
    Riquadro(1000, 2001, 3000, 4000);
    SelezionaElementi();
    QCOMPARE(NumeroElementiAttivi, int16_t(0));
}

void TestSelezione::riquadro_con_meta_linea_non_la_prende() {
    MettiAzioni({Linea(1000, 1000, 5000, 1000)});
    Riquadro(0, 0, 3000, 3000);
    SelezionaElementi();
    QCOMPARE(NumeroElementiAttivi, int16_t(0));
    QCOMPARE(NumeroElementiSelezionati, int16_t(0));
    QCOMPARE(OggettoAttivo, int16_t(0));
}

void TestSelezione::rettangolo_testo_e_immagine_si_prendono_per_i_due_angoli() {
    MettiAzioni({Angoli(TipiAzione::Rettangolo, 100, 100, 900, 900),
                 Angoli(TipiAzione::Testo, 200, 200, 1200, 400),
                 Angoli(TipiAzione::Immagine, 300, 300, 800, 700),
                 Angoli(TipiAzione::Rettangolo, 900, 900, 100, 100)});
    Riquadro(100, 100, 900, 900);
    SelezionaElementi();
    // The text's end lies out; the corners' order doesn't matter.
    QCOMPARE(Selezionati(), (QList<int16_t>{1, 3, 4}));
}

void TestSelezione::arco_preso_per_i_due_estremi_anche_se_il_mezzo_esce() {
    // From 10 to 170 degrees: the ends lie low, the top of the arc at 3000
    // bulges far out of the box.
    const RecordAzione arco = Arco(7072, 5000, 2000, 2000, 10, 170);
    MettiAzioni({arco});
    const PuntoArco inizio = EstremoArco(arco, arco.RadIniz);
    const PuntoArco fine = EstremoArco(arco, arco.RadFine);
    QCOMPARE(inizio.X, int16_t(7072 + std::lrint(2000 * std::cos(10 * Grado))));
    Riquadro(fine.X, std::min(inizio.Y, fine.Y), inizio.X, std::max(inizio.Y, fine.Y));
    SelezionaElementi();
    QCOMPARE(Selezionati(), QList<int16_t>{1});
    QCOMPARE(ElementiAttivi[1], arco);
}

void TestSelezione::arco_con_un_estremo_fuori_non_e_preso() {
    const RecordAzione arco = Arco(7072, 5000, 2000, 2000, 10, 170);
    MettiAzioni({arco});
    const PuntoArco inizio = EstremoArco(arco, arco.RadIniz);
    const PuntoArco fine = EstremoArco(arco, arco.RadFine);
    Riquadro(int16_t(fine.X + 1), 0, 14000, 9000);
    SelezionaElementi();
    QCOMPARE(NumeroElementiAttivi, int16_t(0));
    Riquadro(0, 0, int16_t(inizio.X - 1), 9000);
    SelezionaElementi();
    QCOMPARE(NumeroElementiAttivi, int16_t(0));
}

void TestSelezione::ellisse_presa_solo_se_tutto_il_suo_riquadro_e_dentro() {
    MettiAzioni({Ellisse(5000, 4000, 1000, 500)});
    Riquadro(4000, 3500, 6000, 4500);
    SelezionaElementi();
    QCOMPARE(Selezionati(), QList<int16_t>{1});
    // Its centre well inside, its rim a twip out.
    Riquadro(4001, 3500, 6000, 4500);
    SelezionaElementi();
    QCOMPARE(NumeroElementiAttivi, int16_t(0));
    Riquadro(4000, 3500, 6000, 4499);
    SelezionaElementi();
    QCOMPARE(NumeroElementiAttivi, int16_t(0));
}

void TestSelezione::bordo_dell_ellisse_arrotondato_prima_del_confronto() {
    // 1499.5 - 500 is 999.5, which becomes 1000 (halves to even) before it is
    // compared with the edge.
    MettiAzioni({Ellisse(1499.5f, 2000, 500, 500)});
    Riquadro(1000, 1000, 3000, 3000);
    SelezionaElementi();
    QCOMPARE(Selezionati(), QList<int16_t>{1});
}

void TestSelezione::colorazione_confrontata_col_suo_punto_senza_arrotondare() {
    MettiAzioni({Colorazione(999.75f, 2000), Colorazione(1000, 2000), Colorazione(3000, 3000.25f),
                 Colorazione(3000, 3000)});
    Riquadro(1000, 1000, 3000, 3000);
    SelezionaElementi();
    QCOMPARE(Selezionati(), (QList<int16_t>{2, 4}));
}

void TestSelezione::riquadro_rovesciato_non_prende_nulla() {
    MettiAzioni({Linea(2000, 2000, 3000, 3000), Colorazione(2500, 2500)});
    const QList<RecordAzione> prima = ListaAzioni();
    Riquadro(5000, 1000, 1000, 5000); // left beyond right
    SelezionaElementi();
    QCOMPARE(NumeroElementiAttivi, int16_t(0));
    Riquadro(1000, 5000, 5000, 1000); // top below bottom
    SelezionaElementi();
    QCOMPARE(NumeroElementiAttivi, int16_t(0));
    QCOMPARE(OggettoAttivo, int16_t(0));
    QCOMPARE(ListaAzioni(), prima);
}

void TestSelezione::selezione_vuota_svuota_le_liste_e_lascia_il_disegno() {
    MettiAzioni({Linea(2000, 2000, 3000, 3000), Colorazione(2500, 2500)});
    Riquadro(0, 0, 14000, 9000);
    SelezionaElementi();
    QCOMPARE(NumeroElementiAttivi, int16_t(2));
    const int32_t riferimento[] = {RiferimentoXMin, RiferimentoYMin, RiferimentoXMax,
                                   RiferimentoYMax};
    OggettoAttivo = 0; // the object ended, by Fissa or Annulla
    const QList<RecordAzione> prima = ListaAzioni();

    Riquadro(8000, 8000, 9000, 9000);
    SelezionaElementi();
    QCOMPARE(NumeroElementiAttivi, int16_t(0));
    QCOMPARE(ElementiAttivi.size(), qsizetype(1));
    QCOMPARE(NumeroElementiSelezionati, int16_t(0));
    QCOMPARE(ElementiSelezionati.size(), qsizetype(1));
    QCOMPARE(OggettoAttivo, int16_t(0));
    QCOMPARE(ListaAzioni(), prima);
    QCOMPARE(RiferimentoXMin, riferimento[0]);
    QCOMPARE(RiferimentoYMin, riferimento[1]);
    QCOMPARE(RiferimentoXMax, riferimento[2]);
    QCOMPARE(RiferimentoYMax, riferimento[3]);
    QVERIFY(TestoNessunElementoSelezionato.startsWith(QStringLiteral("ATTENZIONE!\rNessun")));
    QCOMPARE(TestoNessunElementoSelezionato.count(QChar(u'\r')), 3);
    QVERIFY(TestoNessunElementoSelezionato.endsWith(QStringLiteral("«OK» per proseguire!")));
}

void TestSelezione::indici_in_ordine_crescente_e_copie_negli_elementi_attivi() {
    const QList<RecordAzione> lista{Linea(100, 100, 200, 200), Linea(9000, 100, 9100, 200),
                                    Ellisse(500, 500, 100, 100), Linea(9000, 9000, 9100, 9100),
                                    Linea(300, 300, 400, 400)};
    MettiAzioni(lista);
    Riquadro(0, 0, 1000, 1000);
    SelezionaElementi();
    QCOMPARE(Selezionati(), (QList<int16_t>{1, 3, 5}));
    QCOMPARE(NumeroElementiAttivi, int16_t(3));
    QCOMPARE(ElementiAttivi.mid(1), (QList<RecordAzione>{lista[0], lista[2], lista[4]}));
    QCOMPARE(ListaAzioni(), lista);
}

void TestSelezione::colorazione_presa_diventa_tondino_solo_nella_copia() {
    MettiAzioni({Colorazione(2500, 2500)});
    Riquadro(2000, 2000, 3000, 3000);
    SelezionaElementi();
    QCOMPARE(ElementiAttivi[1].FlagPienoVuoto, FlagVuoto);
    QCOMPARE(Azioni[1].FlagPienoVuoto, FlagPieno);
}

void TestSelezione::selezione_misura_il_gruppo_con_gli_archi_per_ellisse() {
    // An arc from 0 to 90 degrees: by its outline it would reach only 5000
    // downwards; as a whole ellipse it reaches 7000.
    MettiAzioni({Arco(7072, 5000, 2000, 2000, 0, 90), Linea(6000, 4000, 6500, 4500)});
    Riquadro(5000, 2900, 9100, 5100);
    ModoIngombro = 2;
    SelezionaElementi();
    QCOMPARE(NumeroElementiAttivi, int16_t(2));
    QCOMPARE(ModoIngombro, int16_t(1));
    QCOMPARE(IngombroXMin, 5072);
    QCOMPARE(IngombroYMin, 3000);
    QCOMPARE(IngombroXMax, 9072);
    QCOMPARE(IngombroYMax, 7000);
    QCOMPARE(RiferimentoXMin, 5072);
    QCOMPARE(RiferimentoYMin, 3000);
    QCOMPARE(RiferimentoXMax, 9072);
    QCOMPARE(RiferimentoYMax, 7000);
    QCOMPARE(MezzaLarghezzaIngombro, 2000);
    QCOMPARE(PassoRidimensioneX, 400);
    QCOMPARE(PassoRidimensioneY, 400);
    QCOMPARE(OggettoAttivo, int16_t(1));
}

void TestSelezione::passi_di_ridimensione_un_decimo_arrotondato_al_pari() {
    // Width 1005 and height 1015: 100.5 goes to 100, 101.5 to 102.
    MettiAzioni({Linea(1000, 2000, 2005, 3015)});
    Riquadro(0, 0, 5000, 5000);
    SelezionaElementi();
    QCOMPARE(PassoRidimensioneX, 100);
    QCOMPARE(PassoRidimensioneY, 102);
    // A single point has no size: the steps are 0.
    MettiAzioni({Colorazione(700, 800)});
    SelezionaElementi();
    QCOMPARE(PassoRidimensioneX, 0);
    QCOMPARE(PassoRidimensioneY, 0);
    QCOMPARE(RiferimentoXMin, 700);
    QCOMPARE(RiferimentoXMax, 700);
}

void TestSelezione::rettangolo_selezione_preso_dal_riquadro_a_16_bit() {
    RecordAzione riquadro = Angoli(TipiAzione::RettangoloSelezione, 5572, 3500, 8572, 6500);
    PrendiRettangoloSelezione(riquadro);
    QCOMPARE(RettangoloSelezione.Sinistra, int16_t(5572));
    QCOMPARE(RettangoloSelezione.Alto, int16_t(3500));
    QCOMPARE(RettangoloSelezione.Destra, int16_t(8572));
    QCOMPARE(RettangoloSelezione.Basso, int16_t(6500));
    // Taken as they stand: a box dragged inside out stays so.
    riquadro.XInizio = 9000;
    PrendiRettangoloSelezione(riquadro);
    QCOMPARE(RettangoloSelezione.Sinistra, int16_t(9000));
    QCOMPARE(RettangoloSelezione.Destra, int16_t(8572));
    riquadro.XFine = 40000;
    try {
        PrendiRettangoloSelezione(riquadro);
        QFAIL("a corner beyond 16 bits must overflow");
    } catch (const ErroreZanto& e) {
        QCOMPARE(e.Numero, 6);
    }
}

void TestSelezione::estremo_oltre_16_bit_ferma_la_selezione_con_errore_6() {
    AmbienteProva ambiente(false);
    AzzeraSelezione();
    // A line's end may be dragged anywhere, beyond what 16 bits hold too.
    MettiAzioni({Linea(100, 100, 200, 200), Linea(100, 100, 40000, 200)});
    Riquadro(0, 0, 1000, 1000);
    SelezionaElementi();
    QCOMPARE(ambiente.Scatole.size(), 1);
    QVERIFY(ambiente.Scatole[0].Testo.startsWith(QStringLiteral("ERRORE 6/3710")));
    QCOMPARE(OggettoAttivo, int16_t(0));
}

void TestSelezione::rimozione_toglie_i_selezionati_e_tiene_l_ordine_e_la_capienza() {
    const QList<RecordAzione> lista{Linea(1, 1, 2, 2), Linea(3, 3, 4, 4), Linea(5, 5, 6, 6),
                                    Linea(7, 7, 8, 8), Linea(9, 9, 10, 10)};
    MettiAzioni(lista);
    Selezione({2, 4});
    RimuoviSelezione();
    QCOMPARE(NumeroAzioni, 3);
    QCOMPARE(ListaAzioni(), (QList<RecordAzione>{lista[0], lista[2], lista[4]}));
    QCOMPARE(Azioni.size(), qsizetype(6));
    // Past the count the old records stand, unused.
    QCOMPARE(Azioni[4], lista[3]);
    QCOMPARE(Azioni[5], lista[4]);
}

void TestSelezione::rimozione_di_tutte_le_azioni_lascia_zero_azioni() {
    MettiAzioni({Linea(1, 1, 2, 2), Ellisse(500, 500, 100, 100), Colorazione(3, 3)});
    Riquadro(0, 0, 1000, 1000);
    SelezionaElementi();
    QCOMPARE(NumeroElementiSelezionati, int16_t(3));
    RimuoviSelezione();
    QCOMPARE(NumeroAzioni, 0);
    QCOMPARE(Azioni.size(), qsizetype(4));
    // The group itself is kept for 125.
    QCOMPARE(NumeroElementiAttivi, int16_t(3));
}

void TestSelezione::rimozione_rende_tondini_le_colorazioni_rimaste() {
    MettiAzioni({Colorazione(100, 100), Linea(1, 1, 2, 2), Colorazione(200, 200)});
    Selezione({2});
    RimuoviSelezione();
    QCOMPARE(NumeroAzioni, 2);
    QCOMPARE(Azioni[1].FlagPienoVuoto, FlagVuoto);
    QCOMPARE(Azioni[2].FlagPienoVuoto, FlagVuoto);
    QCOMPARE(Azioni[2].XCentro, 200.0f);
    // With nothing selected the list keeps its length, and the fills turn all the same.
    MettiAzioni({Colorazione(100, 100)});
    Selezione({});
    RimuoviSelezione();
    QCOMPARE(NumeroAzioni, 1);
    QCOMPARE(Azioni[1].FlagPienoVuoto, FlagVuoto);
}

void TestSelezione::colorazione_selezionata_resta_tondino_tornando_nel_disegno() {
    MettiAzioni({Linea(5000, 5000, 6000, 6000), Colorazione(500, 500)});
    Riquadro(0, 0, 1000, 1000);
    SelezionaElementi();
    QCOMPARE(ElementiAttivi[1].FlagPienoVuoto, FlagVuoto);
    // Fissa with move: the source goes, the group comes back at the end.
    RimuoviSelezione();
    AggiungiElementiAttivi();
    QCOMPARE(NumeroAzioni, 2);
    QCOMPARE(Azioni[2].TipoAzione, TipiAzione::Colorazione);
    QCOMPARE(Azioni[2].FlagPienoVuoto, FlagVuoto);
}

void TestSelezione::sposta_senza_muovere_cambia_solo_l_ordine() {
    const QList<RecordAzione> lista{Linea(100, 100, 200, 200), Linea(9000, 100, 9100, 200),
                                    Ellisse(500, 500, 100, 100), Linea(9000, 9000, 9100, 9100)};
    MettiAzioni(lista);
    Riquadro(0, 0, 1000, 1000);
    SelezionaElementi();
    CopiaOSposta = 2;
    RimuoviSelezione();
    AggiungiElementiAttivi();
    QCOMPARE(ListaAzioni(), (QList<RecordAzione>{lista[1], lista[3], lista[0], lista[2]}));
}

void TestSelezione::copia_raddoppia_l_oggetto_in_fondo() {
    const QList<RecordAzione> lista{Linea(100, 100, 200, 200), Linea(9000, 100, 9100, 200)};
    MettiAzioni(lista);
    Riquadro(0, 0, 1000, 1000);
    SelezionaElementi();
    AggiungiElementiAttivi();
    QCOMPARE(ListaAzioni(), (QList<RecordAzione>{lista[0], lista[1], lista[0]}));
}

void TestSelezione::secondo_fissa_dopo_ridisegno_toglie_gli_stessi_indici_ora_altre_azioni() {
    const RecordAzione a = Linea(100, 100, 200, 200);
    const RecordAzione b = Linea(9000, 100, 9100, 200);
    const RecordAzione c = Linea(9000, 9000, 9100, 9100);
    MettiAzioni({a, b, c});
    Riquadro(0, 0, 1000, 1000);
    SelezionaElementi();
    // Fissa with move: [b, c, a].
    RimuoviSelezione();
    AggiungiElementiAttivi();
    // 125 and Fissa with move again: index 1 is b by now, and goes.
    RidisegnaUltimoOggetto();
    RimuoviSelezione();
    AggiungiElementiAttivi();
    const RecordAzione a2 = Linea(200, 200, 300, 300);
    QCOMPARE(ListaAzioni(), (QList<RecordAzione>{c, a, a2}));
    QCOMPARE(Selezionati(), QList<int16_t>{1});
    // Indices past the end of a shorter list take nothing.
    MettiAzioni({a});
    Selezione({2, 5});
    RimuoviSelezione();
    QCOMPARE(ListaAzioni(), QList<RecordAzione>{a});
}

void TestSelezione::ribalta_1_di_una_linea_da_100_a_300_da_500_e_300() {
    MettiAttivi({Linea(100, 1000, 300, 2000)});
    RibaltaElementiAttivi(Ribaltamenti::AsseDestro);
    QCOMPARE(IngombroXMax, 300);
    QCOMPARE(ElementiAttivi[1].XInizio, 500);
    QCOMPARE(ElementiAttivi[1].XFine, 300);
    QCOMPARE(ElementiAttivi[1].YInizio, 1000);
    QCOMPARE(ElementiAttivi[1].YFine, 2000);
}

void TestSelezione::ribalta_1_di_un_rettangolo_tiene_il_ruolo_degli_angoli() {
    MettiAttivi({Angoli(TipiAzione::Rettangolo, 100, 1000, 300, 2000)});
    RibaltaElementiAttivi(Ribaltamenti::AsseDestro);
    QCOMPARE(ElementiAttivi[1].XInizio, 500);
    QCOMPARE(ElementiAttivi[1].XFine, 300);
    // Flipped back about the new right edge, 500: the start stays, the end goes to 700.
    RibaltaElementiAttivi(Ribaltamenti::AsseDestro);
    QCOMPARE(ElementiAttivi[1].XInizio, 500);
    QCOMPARE(ElementiAttivi[1].XFine, 700);
}

void TestSelezione::ribalta_2_specchia_cio_che_sta_sopra_l_asse_sinistro() {
    MettiAttivi({Linea(100, 1000, 300, 2000), Linea(250, 0, 100, 0)});
    RibaltaElementiAttivi(Ribaltamenti::AsseSinistro);
    QCOMPARE(IngombroXMin, 100);
    QCOMPARE(ElementiAttivi[1].XInizio, 100);
    QCOMPARE(ElementiAttivi[1].XFine, -100);
    QCOMPARE(ElementiAttivi[2].XInizio, -50);
    QCOMPARE(ElementiAttivi[2].XFine, 100);
}

void TestSelezione::ribalta_3_e_4_specchiano_le_y() {
    MettiAttivi({Linea(100, 1000, 300, 2000)});
    RibaltaElementiAttivi(Ribaltamenti::AsseInferiore);
    QCOMPARE(IngombroYMax, 2000);
    QCOMPARE(ElementiAttivi[1].YInizio, 3000);
    QCOMPARE(ElementiAttivi[1].YFine, 2000);
    QCOMPARE(ElementiAttivi[1].XInizio, 100);
    MettiAttivi({Linea(100, 1000, 300, 2000)});
    RibaltaElementiAttivi(Ribaltamenti::AsseSuperiore);
    QCOMPARE(IngombroYMin, 1000);
    QCOMPARE(ElementiAttivi[1].YInizio, 1000);
    QCOMPARE(ElementiAttivi[1].YFine, 0);
}

void TestSelezione::ribalta_misura_l_arco_per_il_suo_contorno_vero() {
    // The arc from 0 to 90 degrees reaches down to its centre, 5000, by its
    // outline; as a whole ellipse it would reach 7000.
    MettiAttivi({Arco(7072, 5000, 2000, 2000, 0, 90), Linea(7500, 4000, 7600, 4200)});
    ModoIngombro = 1;
    RibaltaElementiAttivi(Ribaltamenti::AsseInferiore);
    QCOMPARE(ModoIngombro, int16_t(2));
    QCOMPARE(IngombroYMax, 5000);
    QCOMPARE(ElementiAttivi[2].YInizio, 6000);
    QCOMPARE(ElementiAttivi[2].YFine, 5800);
    QCOMPARE(ElementiAttivi[1].YCentro, 5000.0f); // on the axis: its own mirror
}

void TestSelezione::ribalta_sinistra_destra_scambia_e_riflette_gli_angoli_dell_arco() {
    const RecordAzione arco = Arco(7072, 5000, 2000, 1000, 30, 60);
    MettiAttivi({arco});
    RibaltaElementiAttivi(Ribaltamenti::AsseDestro);
    const RecordAzione& r = ElementiAttivi[1];
    QCOMPARE(r.RadIniz, float(180 * Grado - double(arco.RadFine)));
    QCOMPARE(r.RadFine, float(180 * Grado - double(arco.RadIniz)));
    QVERIFY(std::fabs(r.RadIniz - 120 * Grado) < 1e-5);
    QVERIFY(std::fabs(r.RadFine - 150 * Grado) < 1e-5);
    // The axis is the right end of its outline, the start at 30 degrees.
    const int32_t asse = EstremoArco(arco, arco.RadIniz).X;
    QCOMPARE(IngombroXMax, asse);
    QCOMPARE(r.XCentro, float(2.0 * asse - 7072));
    QCOMPARE(r.YCentro, 5000.0f);
    // Flip 2 follows the same angle rule.
    MettiAttivi({arco});
    RibaltaElementiAttivi(Ribaltamenti::AsseSinistro);
    QCOMPARE(ElementiAttivi[1].RadIniz, r.RadIniz);
    QCOMPARE(ElementiAttivi[1].RadFine, r.RadFine);
}

void TestSelezione::ribalta_sinistra_destra_di_un_arco_oltre_180_gradi() {
    const RecordAzione arco = Arco(7072, 5000, 2000, 2000, 200, 300);
    MettiAttivi({arco});
    RibaltaElementiAttivi(Ribaltamenti::AsseSinistro);
    const RecordAzione& r = ElementiAttivi[1];
    QCOMPARE(r.RadIniz, float(360 * Grado - (double(arco.RadFine) - 180 * Grado)));
    QCOMPARE(r.RadFine, float(360 * Grado - (double(arco.RadIniz) - 180 * Grado)));
    QVERIFY(std::fabs(r.RadIniz - 240 * Grado) < 1e-5);
    QVERIFY(std::fabs(r.RadFine - 340 * Grado) < 1e-5);
    // One angle each side of 180 degrees: each is taken by its own rule.
    MettiAttivi({Arco(7072, 5000, 2000, 2000, 150, 200)});
    RibaltaElementiAttivi(Ribaltamenti::AsseDestro);
    QVERIFY(std::fabs(ElementiAttivi[1].RadIniz - 340 * Grado) < 1e-5);
    QVERIFY(std::fabs(ElementiAttivi[1].RadFine - 30 * Grado) < 1e-5);
}

void TestSelezione::ribalta_alto_basso_scambia_gli_angoli_dell_arco() {
    const RecordAzione arco = Arco(7072, 5000, 2000, 2000, 30, 60);
    MettiAttivi({arco});
    RibaltaElementiAttivi(Ribaltamenti::AsseSuperiore);
    const RecordAzione& r = ElementiAttivi[1];
    QCOMPARE(r.RadIniz, float(360 * Grado - double(arco.RadFine)));
    QCOMPARE(r.RadFine, float(360 * Grado - double(arco.RadIniz)));
    QVERIFY(std::fabs(r.RadIniz - 300 * Grado) < 1e-5);
    QCOMPARE(r.XCentro, 7072.0f);
    // The axis is the top of the outline, the end at 60 degrees.
    const int32_t asse = EstremoArco(arco, arco.RadFine).Y;
    QCOMPARE(IngombroYMin, asse);
    QCOMPARE(r.YCentro, float(2.0 * asse - 5000));
}

void TestSelezione::centro_dell_arco_specchiato_sempre_anche_oltre_l_asse() {
    // From 100 to 260 degrees the arc lies left of its centre: the right edge
    // of its outline is below the centre, which is mirrored all the same.
    const RecordAzione arco = Arco(7072, 5000, 2000, 2000, 100, 260);
    MettiAttivi({arco});
    RibaltaElementiAttivi(Ribaltamenti::AsseDestro);
    QVERIFY(IngombroXMax < 7072);
    QCOMPARE(ElementiAttivi[1].XCentro, float(2.0 * IngombroXMax - 7072));
}

void TestSelezione::ellisse_e_colorazione_specchiano_il_centro_solo_dal_lato_mobile() {
    MettiAttivi({Linea(1000, 1000, 5000, 1000), Ellisse(2000, 3000, 500, 500),
                 Colorazione(4500, 300), Colorazione(5000, 800)});
    RibaltaElementiAttivi(Ribaltamenti::AsseDestro);
    QCOMPARE(IngombroXMax, 5000);
    QCOMPARE(ElementiAttivi[2].XCentro, 8000.0f);
    QCOMPARE(ElementiAttivi[2].RaggioOriz, 500.0f);
    QCOMPARE(ElementiAttivi[3].XCentro, 5500.0f);
    QCOMPARE(ElementiAttivi[4].XCentro, 5000.0f); // on the axis
    QCOMPARE(ElementiAttivi[2].YCentro, 3000.0f);
    // Everything now lies at or right of 5000: flip 2 about it brings the group back.
    RibaltaElementiAttivi(Ribaltamenti::AsseSinistro);
    QCOMPARE(IngombroXMin, 5000);
    QCOMPARE(ElementiAttivi[1].XInizio, 1000);
    QCOMPARE(ElementiAttivi[1].XFine, 5000);
    QCOMPARE(ElementiAttivi[2].XCentro, 2000.0f);
    QCOMPARE(ElementiAttivi[3].XCentro, 4500.0f);
    QCOMPARE(ElementiAttivi[4].XCentro, 5000.0f);
}

void TestSelezione::testo_ribaltato_incrocia_gli_angoli() {
    RecordAzione testo = Angoli(TipiAzione::Testo, 100, 500, 300, 700);
    MettiAttivi({testo, Linea(1000, 0, 1000, 100)});
    RibaltaElementiAttivi(Ribaltamenti::AsseDestro);
    // Both corners below the axis at 1000: the mirrored end becomes the start.
    QCOMPARE(ElementiAttivi[1].XInizio, 1700);
    QCOMPARE(ElementiAttivi[1].XFine, 1900);
    QCOMPARE(ElementiAttivi[1].Testo, QStringLiteral("Sole"));
    // Up and down the same, about the top edge at 0.
    MettiAttivi({Linea(0, 0, 0, 0), testo});
    RibaltaElementiAttivi(Ribaltamenti::AsseSuperiore);
    QCOMPARE(ElementiAttivi[2].YInizio, -700);
    QCOMPARE(ElementiAttivi[2].YFine, -500);
    QCOMPARE(ElementiAttivi[2].XInizio, 100);
}

void TestSelezione::immagine_sull_asse_allarga_la_sua_cornice() {
    // Alone, a picture's end is the axis and isn't mirrored: the start stays
    // and the end takes the mirror of the start.
    MettiAttivi({Angoli(TipiAzione::Immagine, 100, 500, 300, 700)});
    RibaltaElementiAttivi(Ribaltamenti::AsseDestro);
    QCOMPARE(ElementiAttivi[1].XInizio, 100);
    QCOMPARE(ElementiAttivi[1].XFine, 500);
    MettiAttivi({Angoli(TipiAzione::Immagine, 100, 500, 300, 700)});
    RibaltaElementiAttivi(Ribaltamenti::AsseSinistro);
    QCOMPARE(ElementiAttivi[1].XInizio, -100);
    QCOMPARE(ElementiAttivi[1].XFine, 300);
    QCOMPARE(ElementiAttivi[1].NomeFileImmagine, QStringLiteral("sole.bmp"));
}

void TestSelezione::ribaltamento_5_non_cambia_nulla() {
    const QList<RecordAzione> gruppo{Linea(100, 1000, 300, 2000), Arco(5000, 5000, 900, 900, 0, 1)};
    MettiAttivi(gruppo);
    ModoIngombro = 1;
    IngombroXMax = 77;
    RibaltaElementiAttivi(5);
    RibaltaElementiAttivi(0);
    QCOMPARE(ElementiAttivi.mid(1), gruppo);
    QCOMPARE(ModoIngombro, int16_t(1));
    QCOMPARE(IngombroXMax, 77);
}

void TestSelezione::ribalta_lascia_il_riquadro_di_riferimento() {
    MettiAzioni({Linea(100, 1000, 300, 2000)});
    Riquadro(0, 0, 1000, 3000);
    SelezionaElementi();
    RibaltaElementiAttivi(Ribaltamenti::AsseDestro);
    QCOMPARE(RiferimentoXMin, 100);
    QCOMPARE(RiferimentoXMax, 300);
    QCOMPARE(PassoRidimensioneX, 20);
    QCOMPARE(OggettoAttivo, int16_t(1));
    // The drawing below doesn't change until Fissa.
    QCOMPARE(Azioni[1].XInizio, 100);
}

void TestSelezione::ridisegno_sposta_di_100_tutto_tranne_le_immagini() {
    const QList<RecordAzione> gruppo{Linea(100, 200, 300, 400),
                                     Arco(1000, 1100, 50, 60, 10, 20),
                                     Angoli(TipiAzione::Rettangolo, 10, 20, 30, 40),
                                     Ellisse(2000, 2100, 70, 80),
                                     Colorazione(3000.5f, 3100),
                                     Angoli(TipiAzione::Testo, 500, 600, 700, 800),
                                     Angoli(TipiAzione::Immagine, 900, 1000, 1100, 1200)};
    MettiAttivi(gruppo);
    RidisegnaUltimoOggetto();
    QCOMPARE(OggettoAttivo, int16_t(1));
    for (int i : {1, 3, 6}) {
        QCOMPARE(ElementiAttivi[i].XInizio, gruppo[i - 1].XInizio + 100);
        QCOMPARE(ElementiAttivi[i].YInizio, gruppo[i - 1].YInizio + 100);
        QCOMPARE(ElementiAttivi[i].XFine, gruppo[i - 1].XFine + 100);
        QCOMPARE(ElementiAttivi[i].YFine, gruppo[i - 1].YFine + 100);
    }
    for (int i : {2, 4, 5}) {
        QCOMPARE(ElementiAttivi[i].XCentro, gruppo[i - 1].XCentro + 100);
        QCOMPARE(ElementiAttivi[i].YCentro, gruppo[i - 1].YCentro + 100);
        QCOMPARE(ElementiAttivi[i].RaggioOriz, gruppo[i - 1].RaggioOriz);
    }
    QCOMPARE(ElementiAttivi[2].RadIniz, gruppo[1].RadIniz);
    QCOMPARE(ElementiAttivi[7], gruppo[6]);
}

void TestSelezione::ridisegni_ripetuti_si_sommano_e_i_selezionati_restano() {
    MettiAzioni({Linea(100, 100, 200, 200), Linea(9000, 9000, 9100, 9100)});
    Riquadro(0, 0, 1000, 1000);
    SelezionaElementi();
    OggettoAttivo = 0;
    RidisegnaUltimoOggetto();
    OggettoAttivo = 0;
    RidisegnaUltimoOggetto();
    QCOMPARE(ElementiAttivi[1].XInizio, 300);
    QCOMPARE(ElementiAttivi[1].YFine, 400);
    QCOMPARE(Selezionati(), QList<int16_t>{1});
    QCOMPARE(Azioni[1].XInizio, 100);
}

void TestSelezione::ridisegno_senza_elementi_non_attiva_nulla() {
    RidisegnaUltimoOggetto();
    QCOMPARE(OggettoAttivo, int16_t(0));
    QCOMPARE(NumeroElementiAttivi, int16_t(0));
}

QTEST_MAIN(TestSelezione)
#include "test_selezione.moc"
