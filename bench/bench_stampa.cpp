// A drawing of 5,000 actions printed on white into a PDF file: the replay on a
// white ground, the page, and the replay on the drawing's own ground again.
// Against it, in the same run and in turn, the two replays alone.

#include "DisegnoProva.h"
#include "Misura.h"

#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"
#include "model/Superficie.h"
#include "model/TracciaAzioni.h"
#include "printing/Stampe.h"

#include <QApplication>
#include <QFileInfo>
#include <QPrinter>
#include <QTemporaryDir>

#include <cstdio>
#include <vector>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QTemporaryDir cartella;
    const QString figura = FiguraDiProva(cartella);
    if (figura.isEmpty()) return 1;
    Azioni = Disegno(figura);
    NumeroAzioni = NumeroDiAzioni;
    Superficie tela(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    ApplicaSfondo(tela, ColoreSfondo);

    const QString pdf = cartella.filePath(QStringLiteral("stampa.pdf"));
    std::vector<double> stampe, repliche;
    for (int i = 0; i < 7; ++i) {
        stampe.push_back(DurataMs([&] {
            QPrinter stampante(QPrinter::HighResolution);
            stampante.setOutputFormat(QPrinter::PdfFormat);
            stampante.setOutputFileName(pdf);
            StampaPagina(stampante, tela, true);
        }));
        repliche.push_back(DurataMs([&] {
            ApplicaSfondo(tela, 0xFFFFFF);
            ApplicaSfondo(tela, ColoreSfondo);
        }));
    }
    if (!QFileInfo(pdf).isFile() || QFileInfo(pdf).size() == 0) return 1;
    if (tela.BackColor() != ColoreSfondo) return 1;

    const double stampa = Mediana(stampe);
    const double replica = Mediana(repliche);
    Stampa("stampa_su_bianco_5000_azioni_pdf", stampa, "ms");
    Stampa("due_ritracce_5000_azioni", replica, "ms");
    Stampa("rapporto_stampa_su_due_ritracce", stampa / replica, "x");
    std::printf("target: under 500 ms\n");
    return 0;
}
