// The list of drawings of a folder that holds 5,000 of them: the time from the
// call to the panel shown and painted with its first twenty lines, and one step
// of the view down, painted. Against them stand the time to read the same
// names through SQLite's C interface with no check at all, and one rendering
// of the panel with nothing changed.
#include "DatiBench.h"
#include "Misura.h"
#include "app/Avvio.h"
#include "app/MenuGenerale.h"
#include "archive/Archivi.h"
#include "archive/Installatore.h"
#include "base/Configurazione.h"
#include "panels/Elaborazioni.h"
#include "panels/QuadroMostraLista.h"

#include <QApplication>
#include <QSqlQuery>
#include <QTemporaryDir>
#include <QTimer>

#include <sqlite3.h>

#include <cstdio>

namespace {

constexpr int Numero = 5000;

double LetturaGrezza() {
    sqlite3* db = nullptr;
    if (sqlite3_open_v2(PercorsoArchivioDisegni().toUtf8().constData(), &db, SQLITE_OPEN_READONLY,
                        nullptr) != SQLITE_OK)
        return -1;
    sqlite3_stmt* q = nullptr;
    sqlite3_prepare_v2(db,
                       "SELECT CodiceDisegno, NomeDisegno FROM TabDisegni WHERE CodiceCartella = 1"
                       " ORDER BY NomeDisegno COLLATE NOCASE ASC",
                       -1, &q, nullptr);
    const double ms = MedianaMs(9, [&](int) {
        QStringList nomi;
        sqlite3_reset(q);
        while (sqlite3_step(q) == SQLITE_ROW)
            nomi.append(QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(q, 1)),
                                          sqlite3_column_bytes(q, 1)));
    });
    sqlite3_finalize(q);
    sqlite3_close(db);
    return ms;
}

} // namespace

int main(int argc, char** argv) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    QTemporaryDir cartella;
    if (!PreparaDatiBench(cartella)) return 1;
    {
        QSqlDatabase db = Archivio(ArchivioDisegni);
        db.transaction();
        QSqlQuery q(db);
        q.prepare(QStringLiteral("INSERT INTO TabDisegni VALUES (?, ?, 1)"));
        for (int i = 1; i <= Numero; ++i) {
            q.addBindValue(i);
            q.addBindValue(QStringLiteral("Disegno della classe numero %1").arg(i));
            q.exec();
        }
        db.commit();
    }
    CodiceCartellaAttiva = 1;
    ModalitàFunzionamento = 4; // no ring walking while it is measured

    std::vector<double> aperture, passi, ridisegni;
    for (int giro = 0; giro < 9; ++giro) {
        QElapsedTimer orologio;
        QTimer::singleShot(0, [&] {
            auto* lista = dynamic_cast<QuadroMostraLista*>(FormScansione::InPrimoPiano());
            if (lista == nullptr) return;
            // Offscreen a repaint may find nothing exposed: the panel is rendered whole.
            lista->grab();
            aperture.push_back(double(orologio.nsecsElapsed()) / 1e6);
            for (int i = 0; i < 20; ++i)
                passi.push_back(DurataMs([&] {
                    lista->ClickTasto(121);
                    lista->grab();
                }));
            for (int i = 0; i < 20; ++i)
                ridisegni.push_back(DurataMs([&] { lista->grab(); }));
            lista->ClickTasto(125);
        });
        TipoLista = GenereLista::Disegni;
        orologio.start();
        ScegliDaLista();
    }
    const double apertura = Mediana(aperture);
    const double passo = Mediana(passi);
    const double ridisegno = Mediana(ridisegni);
    const double grezza = LetturaGrezza();
    Stampa("lista_disegni_5000_apertura", apertura, "ms");
    Stampa("lista_disegni_5000_passo_giu", passo, "ms");
    Stampa("lettura_grezza_api_c_5000_nomi", grezza, "ms");
    Stampa("disegno_pannello_invariato", ridisegno, "ms");
    Stampa("rapporto_apertura_su_lettura_grezza", apertura / grezza, "x");
    Stampa("rapporto_passo_su_disegno_invariato", passo / ridisegno, "x");
    Stampa("apertura_su_obiettivo_100ms", apertura / 100.0, "x");
    Stampa("passo_su_obiettivo_16ms", passo / 16.0, "x");
    ChiudiArchivio(ArchivioDisegni);
    return 0;
}
