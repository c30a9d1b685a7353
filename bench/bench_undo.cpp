// One step of the undo panel on a working copy of 5,000 actions of every type,
// 100 of them fills: the copy read from the archive and replayed on the
// panel's surface, as each dwell of the time line does. Against it stands, in
// the same run and in turn, the plain C read of the same rows through SQLite's
// own interface plus the replay alone of the list already in memory.

#include "DatiBench.h"
#include "DisegnoProva.h"
#include "LetturaGrezza.h"
#include "Misura.h"

#include "app/Avvio.h"
#include "app/MenuGenerale.h"
#include "archive/Archivi.h"
#include "archive/ArchivioAzioni.h"
#include "archive/CopiaLavoro.h"
#include "archive/Installatore.h"
#include "model/RecordAzione.h"
#include "model/TracciaAzioni.h"
#include "panels/QuadroUndo.h"

#include <QApplication>
#include <QTemporaryDir>

#include <cstdio>

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QTemporaryDir cartella;
    if (!PreparaDatiBench(cartella)) return 1;
    QImage immagine(64, 48, QImage::Format_RGB32);
    immagine.fill(QColor(30, 120, 200));
    const QString figura = cartella.filePath(QStringLiteral("figura.png"));
    if (!immagine.save(figura)) return 1;

    const QList<RecordAzione> lista = Disegno(figura);
    CodiceCartellaAttiva = 1;
    Azioni = lista;
    NumeroAzioni = NumeroDiAzioni;
    if (!RegistraCopiaLavoro()) return 1;
    const int32_t codice = CodiceCopiaLavoro;

    QuadroUndo quadro;
    quadro.AttivaQuadroUndo(); // the present step, drawn once
    if (PassoUndo != 1) return 1;

    const QByteArray percorso = PercorsoArchivioDisegni().toUtf8();
    sqlite3* grezzo = nullptr;
    if (sqlite3_open_v2(percorso.constData(), &grezzo, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK)
        return 1;
    Superficie sola(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    sola.ImpostaBackColor(0xC0C0C0);
    QList<RecordAzione> letti;
    bool riuscito = true;
    std::vector<double> passi, letture, tracce;
    for (int i = 0; i < 9; ++i) {
        passi.push_back(DurataMs([&] { quadro.DisegnaPasso(); }));
        letture.push_back(
            DurataMs([&] { riuscito = LetturaGrezza(grezzo, codice, letti) && riuscito; }));
        tracce.push_back(DurataMs([&] {
            sola.ImmagineVuota();
            sola.DrawStyle = 0;
            TracciaLista(sola, letti, 1, NumeroDiAzioni, true);
        }));
    }
    sqlite3_close(grezzo);
    if (!riuscito || letti != lista) return 1;
    // The panel's surface shows what the replay alone drew.
    if (quadro.QuadroDisegnoUndo.Immagine() != sola.Immagine()) return 1;

    const double passo = Mediana(passi);
    const double lettura = Mediana(letture);
    const double traccia = Mediana(tracce);
    Stampa("passo_undo_5000_azioni", passo, "ms");
    Stampa("lettura_grezza_api_c_5000", lettura, "ms");
    Stampa("traccia_sola_5000", traccia, "ms");
    Stampa("rapporto_passo_su_lettura_grezza_piu_traccia", passo / (lettura + traccia), "x");
    ChiudiArchivio(ArchivioDisegni);
    return 0;
}
