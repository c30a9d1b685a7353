// A drawing of 5,000 actions exported to all four files (PNG, PDF and SVG
// drawn as shapes, exchange file), and the exchange file imported as a new
// drawing with its bitmap. Against them, in the same run and in turn, the
// plain replay of the same list on the canvas.

#include "DatiBench.h"
#include "DisegnoProva.h"
#include "Misura.h"

#include "app/MenuGenerale.h"
#include "archive/FileScambio.h"
#include "archive/ImportaScambio.h"
#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"
#include "model/Superficie.h"
#include "model/TracciaAzioni.h"
#include "printing/EsportaDisegno.h"

#include <QApplication>
#include <QFileInfo>
#include <QTemporaryDir>

#include <cstdio>
#include <vector>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QTemporaryDir cartella;
    if (!PreparaDatiBench(cartella)) return 1;
    CodiceCartellaAttiva = 1;
    NomeCartellaAttiva = NomiArchivi::CartellaSistemaDisegni;
    const QString figura = FiguraDiProva(cartella);
    if (figura.isEmpty()) return 1;
    Azioni = Disegno(figura);
    NumeroAzioni = NumeroDiAzioni;
    Superficie tela(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    ApplicaSfondo(tela, ColoreSfondo);

    const FileEsportati file = PercorsiEsportazione(QStringLiteral("Prova"), 0);
    std::vector<double> esportazioni, importazioni, repliche;
    for (int i = 0; i < 5; ++i) {
        esportazioni.push_back(
            DurataMs([&] { EsportaDisegno(file, tela, QStringLiteral("Prova")); }));
        importazioni.push_back(DurataMs([&] {
            if (RegistraDisegnoImportato(LeggiFileScambio(file.Scambio),
                                         QStringLiteral("Prova %1").arg(i)) == 0)
                std::exit(1);
        }));
        repliche.push_back(DurataMs([&] { RitracciaTutto(tela); }));
    }
    for (const QString& percorso : file.Tutti())
        if (!QFileInfo(percorso).isFile() || QFileInfo(percorso).size() == 0) return 1;

    const double esporta = Mediana(esportazioni);
    const double importa = Mediana(importazioni);
    const double replica = Mediana(repliche);
    Stampa("esporta_5000_azioni_png_pdf_svg_zanto", esporta, "ms");
    Stampa("importa_5000_azioni_con_bitmap", importa, "ms");
    Stampa("ritraccia_5000_azioni", replica, "ms");
    Stampa("rapporto_esporta_su_ritraccia", esporta / replica, "x");
    Stampa("rapporto_importa_su_ritraccia", importa / replica, "x");
    std::printf("target: export under 1000 ms, import under 300 ms\n");
    return 0;
}
