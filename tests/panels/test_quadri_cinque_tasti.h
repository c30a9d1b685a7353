#pragma once

// The three panels of five buttons (direction, flip, font), opened as their
// callers open them and answered with keys: what they share is tested on each
// of them, from one table; what each has of its own follows in its own file.
#include "panels/ProvaPannello.h"
#include "panels/QuadroSceltaRibaltamenti.h"
#include "support/MondoProva.h"

#include <QObject>
#include <QtTest>

#include <functional>

// One of the three panels, and what it must show.
struct PannelloCinqueTasti {
    QString Nome;
    const QMetaObject* Classe;
    std::function<void()> Apri; // at the place the posti row measures
    QPoint Posto;
    QSize Cliente;
    QList<QRect> Posti;
    // Keys that close the panel, in mode 3, from the button the ring is on
    // when it opens, and from the one after it.
    QList<int> Chiudi;
    QList<int> ChiudiDopoUno;
    QStringList Suggerimenti;
    QStringList Immagini;
    int16_t* Scelta = nullptr; // what a button chose, where the panel says it
};

// The three, in the order of the table's rows.
const QList<PannelloCinqueTasti>& PannelliCinqueTasti();

// The panel in front, if it is the one of the row.
inline FormScansione* Davanti(const PannelloCinqueTasti& p) {
    FormScansione* f = FormScansione::InPrimoPiano();
    return f != nullptr && f->metaObject() == p.Classe ? f : nullptr;
}

class ProvaQuadriCinqueTasti : public QObject, MondoProva {
    Q_OBJECT

    // Runs the script inside the panel of the row.
    bool Apri(Copione& c, const PannelloCinqueTasti& p) { return EseguiNelPannello(c, p.Apri); }
    bool ApriDirezione(Copione& c);
    bool ApriRibaltamenti(Copione& c, int sinistra = 9000, int alto = 1500);
    bool ApriFont(Copione& c, int sinistra = 4000, int alto = 2000);

private slots:
    void init() {
        PreparaSenzaDati();
        RibaltamentoScelto = 0;
    }
    void cleanup() { Libera(); }

    // Shared, one row a panel.
    void posti_e_misure_del_quadro_e_dei_tasti_data();
    void posti_e_misure_del_quadro_e_dei_tasti();
    void suggerimenti_nomi_accessibili_e_immagini_data();
    void suggerimenti_nomi_accessibili_e_immagini();
    void ogni_tasto_da_il_suo_risultato_data();
    void ogni_tasto_da_il_suo_risultato();
    void il_titolo_dell_ambiente_segue_l_anello_data();
    void il_titolo_dell_ambiente_segue_l_anello();
    void escape_e_gli_altri_tasti_non_fanno_nulla_data();
    void escape_e_gli_altri_tasti_non_fanno_nulla();
    void un_clic_del_mouse_sceglie_e_ferma_l_anello_data();
    void un_clic_del_mouse_sceglie_e_ferma_l_anello();
    void il_fuoco_resta_su_focusfix_data();
    void il_fuoco_resta_su_focusfix();

    // The direction panel.
    void prima_apertura_dopo_l_avvio_anello_su_101_e_nulla_di_marcato();
    void nei_modi_1_e_2_riparte_dall_ultima_scelta_data();
    void nei_modi_1_e_2_riparte_dall_ultima_scelta();
    void nel_modo_3_riparte_dall_ultima_solo_se_e_una_direzione_data();
    void nel_modo_3_riparte_dall_ultima_solo_se_e_una_direzione();
    void la_scelta_resta_per_l_apertura_seguente();
    void il_tasto_marcato_resta_blu_quando_l_anello_va_oltre();
    void nel_modo_1_la_scelta_ferma_l_anello_e_chiude();
    void nel_modo_2_il_tasto_di_scansione_inverte_il_giro();
    void nel_modo_3_invio_aziona_il_tasto_anche_come_tasto_di_scansione();
    void nel_modo_4_le_frecce_non_muovono_l_anello();

    // The flip panel.
    void ogni_apertura_dei_ribaltamenti_parte_da_101_senza_tasto_marcato();
    void i_ribaltamenti_segnano_la_sezione_della_preparazione();
    void nel_modo_1_l_anello_dei_ribaltamenti_gira_e_torna_al_primo();
    void nel_modo_2_la_pausa_ferma_l_anello_dei_ribaltamenti();

    // The font panel.
    void l_apertura_mostra_lo_stato_di_grassetto_e_corsivo_data();
    void l_apertura_mostra_lo_stato_di_grassetto_e_corsivo();
    void grassetto_e_corsivo_cambiano_con_la_loro_immagine();
    void nome_e_dimensione_dalla_lista_e_l_anello_riparte_nel_modo_1();
    void indietro_dalla_lista_lascia_nome_e_dimensione_nel_modo_3();
    void nel_modo_2_dopo_il_grassetto_l_anello_riprende_nel_suo_verso();
    void la_lista_dei_font_e_nascosta_e_ordinata();
    void il_fuoco_va_a_focusfix_solo_se_il_quadro_e_abilitato();
};
