// Saving the longest drawing the archive holds, 32,767 actions, with its
// bitmap, as "Salva Disegno" does over a drawing already saved; and loading
// it back and replaying it on a fresh canvas, as "Leggi Disegno" does.
// Against them stand, in the same run and on the same file, SQLite's C
// interface writing and reading the same rows with no check at all, and the
// parts of the save: the BMP encoding and the write of its bytes to the disk.

#include "DatiBench.h"
#include "LetturaGrezza.h"
#include "Misura.h"

#include "app/Avvio.h"
#include "app/MenuGenerale.h"
#include "archive/Archivi.h"
#include "archive/ArchivioAzioni.h"
#include "archive/BitmapDisegni.h"
#include "archive/Installatore.h"
#include "base/GestioneErrori.h"
#include "model/RecordAzione.h"
#include "model/Superficie.h"
#include "model/TracciaAzioni.h"

#include <QApplication>
#include <QTemporaryDir>

#include <cstdio>

#include <sqlite3.h>

namespace {

constexpr int32_t Numero = 32767;
constexpr int32_t CodiceGrezzo = 900; // the rows plain C code writes and reads

// A drawing of every kind of action but pictures, a fill in every 500.
QList<RecordAzione> Lista() {
    QList<RecordAzione> lista{RecordAzione{}};
    lista.reserve(Numero + 1);
    for (int32_t i = 1; i <= Numero; ++i) {
        RecordAzione a;
        a.TipoAzione = i % 500 == 0 ? TipiAzione::Colorazione : 1 + i % 4;
        if (i % 97 == 0) a.TipoAzione = TipiAzione::Testo;
        a.XInizio = (i * 37) % 12000;
        a.YInizio = (i * 53) % 8000;
        a.XFine = a.XInizio + 1500;
        a.YFine = a.YInizio + 1500;
        a.ColLinea = (i * 97) % 0x1000000;
        a.ColZona = 0xFFFFFF - i;
        a.FlagPienoVuoto = a.TipoAzione == TipiAzione::Colorazione ? FlagPieno : 1 + i % 2;
        a.SpessLinea = 1 + i % 3;
        a.XCentro = float(a.XInizio + 700);
        a.YCentro = float(a.YInizio + 700);
        a.RadIniz = 0.5f;
        a.RadFine = 2.0f;
        a.RaggioVert = 600.5f;
        a.RaggioOriz = 599.25f;
        a.InterlineaTesto = 18;
        a.Testo = QStringLiteral("Una casa\rcon il tetto rosso");
        a.NomeFont = QStringLiteral("Times New Roman");
        a.SizeFont = 12;
        a.Corsivo = 2;
        a.Grassetto = 2;
        lista.append(a);
    }
    return lista;
}

bool Esegui(sqlite3* db, const char* sql) {
    return sqlite3_exec(db, sql, nullptr, nullptr, nullptr) == SQLITE_OK;
}

// The rows of the list as plain C code writes them over an old copy: one
// transaction, the old rows deleted, one prepared statement for all.
bool ScritturaGrezza(sqlite3* db, const QList<RecordAzione>& lista) {
    sqlite3_stmt* q = nullptr;
    if (!Esegui(db, "BEGIN") ||
        sqlite3_prepare_v2(db, "DELETE FROM TabAzioniDisegno WHERE CodiceDisegno = 900", -1, &q,
                           nullptr) != SQLITE_OK ||
        sqlite3_step(q) != SQLITE_DONE)
        return false;
    sqlite3_finalize(q);
    if (sqlite3_prepare_v2(db,
                           "INSERT INTO TabAzioniDisegno VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?,"
                           " ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?, ?)",
                           -1, &q, nullptr) != SQLITE_OK)
        return false;
    bool riuscito = true;
    for (int32_t i = 1; i <= Numero && riuscito; ++i) {
        const RecordAzione& a = lista[i];
        const QByteArray testo = a.Testo.toUtf8();
        const QByteArray font = a.NomeFont.toUtf8();
        const QByteArray figura = a.NomeFileImmagine.toUtf8();
        int c = 0;
        for (const int64_t v :
             {int64_t(CodiceGrezzo), int64_t(i), int64_t(a.TipoAzione), int64_t(a.XInizio),
              int64_t(a.YInizio), int64_t(a.XFine), int64_t(a.YFine), int64_t(a.ColLinea),
              int64_t(a.ColZona), int64_t(a.FlagPienoVuoto), int64_t(a.SpessLinea)})
            sqlite3_bind_int64(q, ++c, v);
        for (const float v :
             {a.XCentro, a.YCentro, a.RadIniz, a.RadFine, a.RaggioVert, a.RaggioOriz})
            sqlite3_bind_double(q, ++c, double(v));
        sqlite3_bind_int(q, ++c, a.InterlineaTesto);
        sqlite3_bind_text(q, ++c, testo.constData(), int(testo.size()), SQLITE_TRANSIENT);
        sqlite3_bind_text(q, ++c, font.constData(), int(font.size()), SQLITE_TRANSIENT);
        sqlite3_bind_int(q, ++c, a.SizeFont);
        sqlite3_bind_int(q, ++c, a.Corsivo);
        sqlite3_bind_int(q, ++c, a.Grassetto);
        sqlite3_bind_text(q, ++c, figura.constData(), int(figura.size()), SQLITE_TRANSIENT);
        riuscito = sqlite3_step(q) == SQLITE_DONE;
        sqlite3_reset(q);
    }
    sqlite3_finalize(q);
    return riuscito && Esegui(db, "COMMIT");
}

// The same rows read back with no check, columns by position.
bool LetturaGrezza(sqlite3* db, int32_t& letti) {
    QList<RecordAzione> lista;
    const bool riuscito = LetturaGrezza(db, CodiceGrezzo, lista);
    letti = int32_t(lista.size() - 1);
    return riuscito;
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QTemporaryDir cartella;
    if (!PreparaDatiBench(cartella)) return 1;
    MostraScatolaPiattaforma = [](IconaScatola, const QString&, const QString& testo) {
        std::fprintf(stderr, "%s\n", qPrintable(testo));
        std::exit(1);
    };
    const QList<RecordAzione> lista = Lista();
    Superficie quadro(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    quadro.ImpostaBackColor(Predefiniti::ColoreSfondo);
    Azioni = lista;
    NumeroAzioni = Numero;
    PrimaAzioneTraccia = 1;
    UltimaAzioneTraccia = int16_t(Numero);
    TracciaAzioni(quadro);

    CodiceCartellaAttiva = 1;
    NomeCartellaAttiva = NomiArchivi::CartellaSistemaDisegni;
    NomeDisegnoCorrente = QStringLiteral("Città di mare");
    StatoDisegno = 2;
    if (!RegistraDisegno(quadro)) return 1;
    RegistraComeNuovo = 0;

    // Plain C code on its own connection to the same file, with the same
    // cascades and the same full sync; its own head row.
    const QByteArray percorso = PercorsoArchivioDisegni().toUtf8();
    sqlite3* grezzo = nullptr;
    if (sqlite3_open_v2(percorso.constData(), &grezzo, SQLITE_OPEN_READWRITE, nullptr) !=
            SQLITE_OK ||
        !Esegui(grezzo, "PRAGMA foreign_keys = ON") ||
        !Esegui(grezzo, "INSERT INTO TabDisegni VALUES (900, 'Grezzo', 1)"))
        return 1;

    // In turn, so that whatever else the machine does weighs on both alike.
    std::vector<double> salvataggi, scrittureGrezze, letture, tracce, lettureGrezze;
    bool riuscito = true;
    int32_t lettiGrezzi = 0;
    for (int i = 0; i < 7; ++i) {
        salvataggi.push_back(DurataMs([&] { riuscito = RegistraDisegno(quadro) && riuscito; }));
        scrittureGrezze.push_back(
            DurataMs([&] { riuscito = ScritturaGrezza(grezzo, lista) && riuscito; }));
        letture.push_back(DurataMs([&] {
            CodiceDisegnoDaCaricare = CodiceDisegnoCorrente;
            CaricaAzioniDisegno();
            CopiaAzioniUndoInAzioni();
            NumeroAzioni = NumeroAzioniUndo;
        }));
        tracce.push_back(DurataMs([&] {
            Superficie nuovo(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
            nuovo.ImpostaBackColor(Predefiniti::ColoreSfondo);
            PrimaAzioneTraccia = 1;
            UltimaAzioneTraccia = int16_t(NumeroAzioni);
            TracciaAzioni(nuovo);
        }));
        lettureGrezze.push_back(
            DurataMs([&] { riuscito = LetturaGrezza(grezzo, lettiGrezzi) && riuscito; }));
    }
    if (!riuscito || lettiGrezzi != Numero || NumeroAzioni != Numero || Azioni != lista) return 1;

    // The parts of the bitmap's share of a save.
    QByteArray bmp;
    const double codifica = MedianaMs(7, [&](int) { bmp = quadro.ImmagineBmp(); });
    const QString prova = cartella.filePath(QStringLiteral("prova.bmp"));
    const double scritturaFile = MedianaMs(7, [&](int) {
        ScriviBitmapAParte(prova, bmp);
        SostituisciBitmap(prova);
    });
    sqlite3_close(grezzo);

    const double salva = Mediana(salvataggi);
    const double scritturaGrezza = Mediana(scrittureGrezze);
    const double carica = Mediana(letture);
    const double traccia = Mediana(tracce);
    const double letturaGrezza = Mediana(lettureGrezze);
    Stampa("registra_disegno_32767_con_bitmap", salva, "ms");
    Stampa("scrittura_grezza_api_c_32767", scritturaGrezza, "ms");
    Stampa("rapporto_registra_disegno_su_scrittura_grezza", salva / scritturaGrezza, "x");
    Stampa("bitmap_codifica_bmp", codifica, "ms");
    Stampa("bitmap_scrittura_sync_e_rinomina", scritturaFile, "ms");
    Stampa("carica_e_traccia_32767", carica + traccia, "ms");
    Stampa("carica_azioni_disegno_32767", carica, "ms");
    Stampa("traccia_32767_su_quadro_nuovo", traccia, "ms");
    Stampa("lettura_grezza_api_c_32767", letturaGrezza, "ms");
    Stampa("rapporto_carica_e_traccia_su_lettura_grezza", (carica + traccia) / letturaGrezza, "x");
    Stampa("rapporto_carica_su_lettura_grezza", carica / letturaGrezza, "x");
    ChiudiArchivio(ArchivioDisegni);
    return 0;
}
