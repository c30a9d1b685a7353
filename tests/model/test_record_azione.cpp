// The action record, the 1-based lists with their counts, and the operations
// that the commands use on them.

#include "model/RecordAzione.h"
#include "support/AmbienteProva.h"
#include "support/CostruttoriAzioni.h"

#include <QtTest>

#include <numbers>
#include <type_traits>

namespace {

RecordAzione Linea(int32_t x) {
    RecordAzione a = CostruttoriAzioni::Linea(x, 10, x + 100, 20, 0x0000FF, 2);
    a.Testo = QStringLiteral("riga %1").arg(x);
    return a;
}

void AggiungiLinea(int32_t x) {
    ElementoInCostruzione = Linea(x);
    AggiungiElementoInCostruzione();
}

} // namespace

class TestRecordAzione : public QObject {
    Q_OBJECT

private slots:
    void init() { RipristinaGlobali(); }
    void cleanup() { RipristinaGlobali(); }

    void record_ha_22_campi_in_ordine_con_i_tipi_del_programma();
    void liste_hanno_elemento_zero_inutilizzato_e_conteggio_zero();
    void aggiunta_cresce_di_uno_e_copia_per_valore();
    void sostituzione_scrive_sull_indice_e_lo_azzera();
    void sostituzione_con_indice_zero_non_cambia_nulla();
    void aggiunta_di_elementi_attivi_in_ordine();
    void copia_ridimensiona_al_conteggio_e_non_condivide();
    void copia_di_elementi_attivi_e_di_undo();
    void rettangolo_di_selezione_non_entra_in_azioni();
    void svuotamento_all_apertura_ridimensiona_l_array();
    void nuovo_disegno_azzera_solo_il_conteggio();
    void rimozione_lascia_capacita_ed_elementi_oltre_il_conteggio();
    void eliminare_un_azione_fa_salire_quelle_dopo();
    void le_colorazioni_diventano_tondini_e_il_resto_non_cambia();
    void fattore_dei_gradi_usa_il_pi_troncato();
    void nuovo_arco_non_modificato_finisce_a_due_radianti();
    void predefiniti_dell_ambiente_di_disegno();
    void codici_delle_copie_di_lavoro_partono_dalla_base();
};

void TestRecordAzione::record_ha_22_campi_in_ordine_con_i_tipi_del_programma() {
    // Designated initialisers compile only in declaration order.
    const RecordAzione a{.TipoAzione = 1,
                         .XInizio = 2,
                         .YInizio = 3,
                         .XFine = 4,
                         .YFine = 5,
                         .ColLinea = 6,
                         .ColZona = 7,
                         .FlagPienoVuoto = 8,
                         .SpessLinea = 9,
                         .XCentro = 10.5f,
                         .YCentro = 11.5f,
                         .RadIniz = 12.5f,
                         .RadFine = 13.5f,
                         .RaggioVert = 14.5f,
                         .RaggioOriz = 15.5f,
                         .InterlineaTesto = 16,
                         .Testo = QStringLiteral("17"),
                         .NomeFont = QStringLiteral("18"),
                         .SizeFont = 19,
                         .Corsivo = 20,
                         .Grassetto = 21,
                         .NomeFileImmagine = QStringLiteral("22")};
    static_assert(std::is_same_v<decltype(RecordAzione::TipoAzione), int32_t>);
    static_assert(std::is_same_v<decltype(RecordAzione::SpessLinea), int32_t>);
    static_assert(std::is_same_v<decltype(RecordAzione::XCentro), float>);
    static_assert(std::is_same_v<decltype(RecordAzione::RaggioOriz), float>);
    static_assert(std::is_same_v<decltype(RecordAzione::InterlineaTesto), int16_t>);
    static_assert(std::is_same_v<decltype(RecordAzione::Testo), QString>);
    static_assert(std::is_same_v<decltype(RecordAzione::SizeFont), int32_t>);
    static_assert(std::is_same_v<decltype(RecordAzione::NomeFileImmagine), QString>);
    QCOMPARE(a.SpessLinea, 9);
    QCOMPARE(a.RaggioOriz, 15.5f);
    QCOMPARE(a.NomeFileImmagine, QStringLiteral("22"));
    const RecordAzione vuoto;
    QCOMPARE(vuoto.TipoAzione, 0);
    QCOMPARE(vuoto.XCentro, 0.0f);
    QVERIFY(vuoto.Testo.isEmpty());
}

void TestRecordAzione::liste_hanno_elemento_zero_inutilizzato_e_conteggio_zero() {
    for (const QList<RecordAzione>* lista :
         {&Azioni, &ElementiAttivi, &AzioniUndo, &AzioniDaRegistrare, &AzioniOggetto,
          &AzioniOggettoDaRegistrare})
        QCOMPARE(lista->size(), 1);
    QCOMPARE(NumeroAzioni, 0);
    QCOMPARE(NumeroElementiAttivi, int16_t(0));
    static_assert(std::is_same_v<std::remove_cvref_t<decltype(NumeroAzioni)>, int32_t>);
    static_assert(std::is_same_v<std::remove_cvref_t<decltype(NumeroElementiAttivi)>, int16_t>);
    static_assert(std::is_same_v<std::remove_cvref_t<decltype(IndiceElementoInModifica)>, int16_t>);
    QCOMPARE(IndiceElementoInModifica, int16_t(0));
}

void TestRecordAzione::aggiunta_cresce_di_uno_e_copia_per_valore() {
    AggiungiLinea(100);
    QCOMPARE(NumeroAzioni, 1);
    QCOMPARE(Azioni.size(), 2);
    AggiungiLinea(200);
    QCOMPARE(NumeroAzioni, 2);
    QCOMPARE(Azioni.size(), 3);
    // A later change of the element being built leaves the list alone, strings included.
    ElementoInCostruzione.XInizio = 999;
    ElementoInCostruzione.Testo[0] = QChar(u'X');
    QCOMPARE(Azioni[2].XInizio, 200);
    QCOMPARE(Azioni[2].Testo, QStringLiteral("riga 200"));
    QCOMPARE(Azioni[1], Linea(100));
}

void TestRecordAzione::sostituzione_scrive_sull_indice_e_lo_azzera() {
    AggiungiLinea(100);
    AggiungiLinea(200);
    AggiungiLinea(300);
    ElementoInCostruzione = Linea(555);
    IndiceElementoInModifica = 2;
    SostituisciElementoInModifica();
    QCOMPARE(IndiceElementoInModifica, int16_t(0));
    QCOMPARE(NumeroAzioni, 3);
    QCOMPARE(Azioni[1], Linea(100));
    QCOMPARE(Azioni[2], Linea(555));
    QCOMPARE(Azioni[3], Linea(300));
}

void TestRecordAzione::sostituzione_con_indice_zero_non_cambia_nulla() {
    AggiungiLinea(100);
    ElementoInCostruzione = Linea(555);
    SostituisciElementoInModifica();
    QCOMPARE(NumeroAzioni, 1);
    QCOMPARE(Azioni[1], Linea(100));
}

void TestRecordAzione::aggiunta_di_elementi_attivi_in_ordine() {
    AggiungiLinea(1);
    ElementiAttivi = {RecordAzione{}, Linea(10), Linea(20), Linea(30), Linea(40)};
    // Only the count says how many are valid: the fourth is stale.
    NumeroElementiAttivi = 3;
    AggiungiElementiAttivi();
    QCOMPARE(NumeroAzioni, 4);
    QCOMPARE(Azioni[1], Linea(1));
    QCOMPARE(Azioni[2], Linea(10));
    QCOMPARE(Azioni[3], Linea(20));
    QCOMPARE(Azioni[4], Linea(30));
}

void TestRecordAzione::copia_ridimensiona_al_conteggio_e_non_condivide() {
    AggiungiLinea(1);
    AggiungiLinea(2);
    AzioniDaRegistrare = {RecordAzione{}, Linea(7), Linea(8), Linea(9), Linea(10)};
    NumeroAzioniDaRegistrare = 4;
    CopiaAzioniInDaRegistrare();
    QCOMPARE(NumeroAzioniDaRegistrare, 2);
    QCOMPARE(AzioniDaRegistrare.size(), 3);
    QCOMPARE(AzioniDaRegistrare[1], Linea(1));
    QCOMPARE(AzioniDaRegistrare[2], Linea(2));
    Azioni[1].Testo = QStringLiteral("cambiato");
    QCOMPARE(AzioniDaRegistrare[1].Testo, QStringLiteral("riga 1"));
}

void TestRecordAzione::copia_di_elementi_attivi_e_di_undo() {
    ElementiAttivi = {RecordAzione{}, Linea(10), Linea(20)};
    NumeroElementiAttivi = 2;
    CopiaElementiAttiviInDaRegistrare();
    QCOMPARE(NumeroAzioniOggettoDaRegistrare, 2);
    QCOMPARE(AzioniOggettoDaRegistrare[2], Linea(20));

    AggiungiLinea(1);
    AzioniUndo = {RecordAzione{}, Linea(30), Linea(40), Linea(50)};
    NumeroAzioniUndo = 3;
    CopiaAzioniUndoInAzioni();
    QCOMPARE(NumeroAzioni, 3);
    QCOMPARE(Azioni.size(), 4);
    QCOMPARE(Azioni[1], Linea(30));
    QCOMPARE(Azioni[3], Linea(50));
}

void TestRecordAzione::rettangolo_di_selezione_non_entra_in_azioni() {
    AggiungiLinea(1);
    ElementoInCostruzione = RecordAzione{};
    ElementoInCostruzione.TipoAzione = TipiAzione::RettangoloSelezione;
    ElementoInCostruzione.FlagPienoVuoto = FlagPieno;
    ElementoInCostruzione.SpessLinea = 1;
    AggiungiElementoInCostruzione();
    QCOMPARE(NumeroAzioni, 1);
    IndiceElementoInModifica = 1;
    SostituisciElementoInModifica();
    QCOMPARE(Azioni[1], Linea(1));
}

void TestRecordAzione::svuotamento_all_apertura_ridimensiona_l_array() {
    AggiungiLinea(1);
    AggiungiLinea(2);
    SvuotaAzioni();
    QCOMPARE(NumeroAzioni, 0);
    QCOMPARE(Azioni.size(), 1);
}

void TestRecordAzione::nuovo_disegno_azzera_solo_il_conteggio() {
    AggiungiLinea(1);
    AggiungiLinea(2);
    AzzeraNumeroAzioni();
    QCOMPARE(NumeroAzioni, 0);
    QCOMPARE(Azioni.size(), 3);
    // The next append writes over the stale place 1.
    AggiungiLinea(3);
    QCOMPARE(NumeroAzioni, 1);
    QCOMPARE(Azioni[1], Linea(3));
}

void TestRecordAzione::rimozione_lascia_capacita_ed_elementi_oltre_il_conteggio() {
    for (int x = 1; x <= 5; ++x)
        AggiungiLinea(x);
    const QList<RecordAzione> tenute{RecordAzione{}, Linea(2), Linea(4)};
    RiscriviInizioAzioni(tenute, 2);
    QCOMPARE(NumeroAzioni, 2);
    QCOMPARE(Azioni.size(), 6);
    QCOMPARE(Azioni[1], Linea(2));
    QCOMPARE(Azioni[2], Linea(4));
    // Past the count the old records are still there; nothing reads them.
    QCOMPARE(Azioni[5], Linea(5));
    RiscriviInizioAzioni(QList<RecordAzione>{RecordAzione{}}, 0);
    QCOMPARE(NumeroAzioni, 0);
    QCOMPARE(Azioni.size(), 6);
}

void TestRecordAzione::eliminare_un_azione_fa_salire_quelle_dopo() {
    for (int x = 1; x <= 4; ++x)
        AggiungiLinea(x);
    EliminaAzione(2);
    QCOMPARE(NumeroAzioni, 3);
    QCOMPARE(Azioni.mid(1, 3), (QList<RecordAzione>{Linea(1), Linea(3), Linea(4)}));
    EliminaAzione(3);
    QCOMPARE(Azioni.mid(1, NumeroAzioni), (QList<RecordAzione>{Linea(1), Linea(3)}));
    // An index outside the list takes nothing.
    EliminaAzione(0);
    EliminaAzione(3);
    QCOMPARE(NumeroAzioni, 2);
    EliminaAzione(1);
    EliminaAzione(1);
    QCOMPARE(NumeroAzioni, 0);
    QCOMPARE(Azioni.size(), 1);
}

void TestRecordAzione::le_colorazioni_diventano_tondini_e_il_resto_non_cambia() {
    AggiungiLinea(1);
    RecordAzione colorazione;
    colorazione.TipoAzione = TipiAzione::Colorazione;
    colorazione.FlagPienoVuoto = FlagPieno;
    ElementoInCostruzione = colorazione;
    AggiungiElementoInCostruzione();
    RecordAzione pieno = Linea(2);
    pieno.TipoAzione = TipiAzione::Rettangolo;
    pieno.FlagPienoVuoto = FlagPieno;
    ElementoInCostruzione = pieno;
    AggiungiElementoInCostruzione();
    ColorazioniInTondini();
    QCOMPARE(Azioni[1], Linea(1));
    QCOMPARE(Azioni[2].FlagPienoVuoto, FlagVuoto);
    QCOMPARE(Azioni[3], pieno);
}

void TestRecordAzione::fattore_dei_gradi_usa_il_pi_troncato() {
    QCOMPARE(Grado, 3.14159265 / 180);
    QVERIFY(Grado != std::numbers::pi / 180);
    QVERIFY(Grado < std::numbers::pi / 180);
}

void TestRecordAzione::nuovo_arco_non_modificato_finisce_a_due_radianti() {
    QCOMPARE(Predefiniti::RadIniz, int16_t(0));
    QCOMPARE(Predefiniti::RadFine, int16_t(2));
    RecordAzione arco;
    arco.RadIniz = Predefiniti::RadIniz;
    arco.RadFine = Predefiniti::RadFine;
    QCOMPARE(arco.RadFine, 2.0f);
}

void TestRecordAzione::predefiniti_dell_ambiente_di_disegno() {
    QCOMPARE(LarghezzaQuadroDisegno, 14144);
    QCOMPARE(AltezzaQuadroDisegno, 10000);
    QCOMPARE(Predefiniti::CentroX, int16_t(7072));
    QCOMPARE(Predefiniti::CentroY, int16_t(5000));
    QCOMPARE(Predefiniti::XInizio, int16_t(5572));
    QCOMPARE(Predefiniti::YInizio, int16_t(3500));
    QCOMPARE(Predefiniti::XFine, int16_t(8572));
    QCOMPARE(Predefiniti::YFine, int16_t(6500));
    QCOMPARE(Predefiniti::Raggio, int16_t(2000));
    QCOMPARE(Predefiniti::ColoreLinea, 0x000000);
    QCOMPARE(Predefiniti::ColoreZona, 0xFFFFFF);
    QCOMPARE(Predefiniti::Spessore, 2);
    QCOMPARE(Predefiniti::ColoreSfondo, 0xC0C0C0);
    QCOMPARE(Predefiniti::NomeFont, QStringLiteral("Times New Roman"));
    QCOMPARE(Predefiniti::SizeFont, 12);
    QCOMPARE(Predefiniti::Corsivo, 2);
    QCOMPARE(Predefiniti::Grassetto, 2);
    QCOMPARE(Predefiniti::Interlinea, int16_t(18));
}

void TestRecordAzione::codici_delle_copie_di_lavoro_partono_dalla_base() {
    QCOMPARE(BaseCopieLavoro, 1000000);
    QCOMPARE(CodiceMassimoDisegnoUtente, 999999);
    QCOMPARE(CodiceCopiaLavoro, BaseCopieLavoro);
}

QTEST_MAIN(TestRecordAzione)
#include "test_record_azione.moc"
