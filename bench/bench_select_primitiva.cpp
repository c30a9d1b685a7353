// One step of the element panel on a drawing of 5,000 actions of every type,
// 100 of them fills: the key of the previous action, which replays the whole
// drawing on the panel's surface with the new action dotted. Against it, in
// the same run and in turn, the plain replay of the same list with its fills
// as dots, which is what the panel draws apart from the picked action.

#include "DisegnoProva.h"
#include "Misura.h"

#include "base/Configurazione.h"
#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"
#include "model/Superficie.h"
#include "model/TracciaAzioni.h"
#include "panels/QuadroSelectPrimitiva.h"

#include <QApplication>
#include <QTemporaryDir>

#include <vector>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QTemporaryDir cartella;
    const QString figura = FiguraDiProva(cartella);
    if (figura.isEmpty()) return 1;

    // No ring: the panel is not shown, and mode 4 starts none after a key.
    ModalitàFunzionamento = 4;
    const QList<RecordAzione> lista = Disegno(figura);
    Azioni = lista;
    NumeroAzioni = NumeroDiAzioni;
    QList<RecordAzione> tondini = lista;
    for (RecordAzione& a : tondini)
        if (a.TipoAzione == TipiAzione::Colorazione) a.FlagPienoVuoto = FlagVuoto;

    Superficie tela(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    tela.ImpostaBackColor(Predefiniti::ColoreSfondo);
    QuadroSelectPrimitiva quadro(tela);
    quadro.AttivaQuadroSelectPrimitiva(); // the last action, drawn once
    if (AzioneScelta != NumeroDiAzioni) return 1;

    Superficie sola(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    sola.ImpostaBackColor(Predefiniti::ColoreSfondo);
    std::vector<double> passi, tracce;
    for (int i = 0; i < 15; ++i) {
        passi.push_back(DurataMs([&] { quadro.ClickTasto(103); }));
        tracce.push_back(DurataMs([&] {
            sola.ImmagineVuota();
            sola.DrawStyle = 0;
            TracciaLista(sola, tondini, 1, NumeroDiAzioni, true);
        }));
    }
    if (AzioneScelta != NumeroDiAzioni - 15) return 1;
    // The list is walked, never changed, and no fill ran on the panel.
    if (Azioni != lista) return 1;

    const double passo = Mediana(passi);
    const double traccia = Mediana(tracce);
    Stampa("passo_selezione_5000_azioni", passo, "ms");
    Stampa("traccia_sola_5000_con_tondini", traccia, "ms");
    Stampa("rapporto_passo_su_traccia_sola", passo / traccia, "x");
    return 0;
}
