// The child of test_scambio_interrotto: in the data folder that XDG_DATA_HOME
// points at, exports a drawing over the same four files and imports the
// exchange file it wrote as a new drawing, generation after generation, until
// it is killed. Run `giro` (the one argument) numbers its generations.

#include "PilotaScambio.h"

#include "AvvioPilota.h"
#include "app/Avvio.h"
#include "app/MenuGenerale.h"
#include "archive/Archivi.h"
#include "archive/FileScambio.h"
#include "archive/ImportaScambio.h"
#include "base/GestioneErrori.h"
#include "model/StatoAmbiente.h"
#include "model/Superficie.h"
#include "model/TracciaAzioni.h"
#include "printing/EsportaDisegno.h"

#include <QDir>
#include <QGuiApplication>
#include <QImage>
#include <QSaveFile>

#include <cstdio>
#include <cstdlib>

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    if (argc != 2) return 5;
    const int32_t giro = std::atoi(argv[1]);
    if (!AvviaPilota()) return 2;
    CodiceCartellaAttiva = 1;
    NomeCartellaAttiva = NomiArchivi::CartellaSistemaDisegni;
    const QString sorgenti = RadiceDati + u'/' + PilotaScambio::CartellaSorgenti;
    QDir().mkpath(sorgenti);
    const QString figura = sorgenti + u'/' + PilotaScambio::NomeFigura;
    Superficie tela(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    for (int32_t passo = 1;; ++passo) {
        const int32_t generazione = giro * 10000 + passo;
        QImage immagine(12, 12, QImage::Format_RGB32);
        immagine.fill(PilotaScambio::ColoreQt(PilotaScambio::Colore(generazione)));
        QSaveFile file(figura);
        if (!file.open(QIODevice::WriteOnly) || !immagine.save(&file, "PNG") || !file.commit())
            return 3;
        Azioni = PilotaScambio::Lista(generazione, figura);
        NumeroAzioni = 2;
        tela.ImpostaBackColor(Predefiniti::ColoreSfondo);
        RitracciaTutto(tela);
        try {
            const FileEsportati esportati = PercorsiEsportazione(PilotaScambio::NomeEsportato, 0);
            EsportaDisegno(esportati, tela, PilotaScambio::NomeEsportato);
            const ContenutoScambio letto = LeggiFileScambio(esportati.Scambio);
            if (RegistraDisegnoImportato(letto, QStringLiteral("Importato %1").arg(generazione)) ==
                0)
                return 4;
        } catch (const ErroreZanto& e) {
            std::fprintf(stderr, "%d %s\n", e.Numero, qPrintable(e.Descrizione));
            return 2;
        } catch (const ScambioRifiutato& r) {
            std::fprintf(stderr, "%s\n", qPrintable(r.Motivo));
            return 2;
        }
    }
}
