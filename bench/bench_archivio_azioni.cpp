// Writing and reading the longest list the archive holds: 32,767 actions, as a
// working copy is written after every fixed change. Against it stands the
// time to copy the same list in memory, which any writer or reader pays too,
// and for reading the time SQLite's C interface takes to step through the same
// rows of the same file into records, with no check at all.

#include "DatiBench.h"
#include "Misura.h"

#include "archive/Archivi.h"
#include "archive/ArchivioAzioni.h"
#include "archive/Installatore.h"
#include "model/RecordAzione.h"
#include "start/Avvio.h"

#include <QApplication>
#include <QSqlQuery>
#include <QTemporaryDir>

#include <cstdio>

#include <sqlite3.h>

namespace {

constexpr int32_t Numero = 32767;

QList<RecordAzione> Lista() {
    QList<RecordAzione> lista{RecordAzione{}};
    lista.reserve(Numero + 1);
    for (int32_t i = 1; i <= Numero; ++i) {
        RecordAzione a;
        a.TipoAzione = 1 + i % 7;
        a.XInizio = i % 14144;
        a.YInizio = i % 10000;
        a.XFine = a.XInizio + 1500;
        a.YFine = a.YInizio + 1500;
        a.ColLinea = i * 97;
        a.ColZona = 0xFFFFFF - i;
        a.FlagPienoVuoto = 1 + i % 2;
        a.SpessLinea = 2;
        a.XCentro = float(i) + 0.25f;
        a.YCentro = float(i) / 3.0f;
        a.RadIniz = 0.5f;
        a.RadFine = 2.0f;
        a.RaggioVert = 2000.5f;
        a.RaggioOriz = 1999.25f;
        a.InterlineaTesto = 18;
        if (a.TipoAzione == TipiAzione::Testo) {
            a.Testo = QStringLiteral("Una casa\rcon il tetto rosso");
            a.NomeFont = QStringLiteral("Times New Roman");
            a.SizeFont = 12;
            a.Corsivo = 2;
            a.Grassetto = 2;
        }
        if (a.TipoAzione == TipiAzione::Immagine)
            a.NomeFileImmagine = QStringLiteral("/home/utente/File/figura.jpg");
        lista.append(a);
    }
    return lista;
}

// The rows of `codice` as plain C code reads them: columns by position in the
// table's order, texts as UTF-8.
bool LetturaGrezza(sqlite3* db, int32_t codice, QList<RecordAzione>& lista) {
    sqlite3_stmt* q = nullptr;
    if (sqlite3_prepare_v2(db,
                           "SELECT * FROM TabAzioniDisegno WHERE CodiceDisegno = ?"
                           " ORDER BY NumAzione ASC",
                           -1, &q, nullptr) != SQLITE_OK)
        return false;
    sqlite3_bind_int(q, 1, codice);
    QList<RecordAzione> letti{RecordAzione{}};
    letti.reserve(Numero + 1);
    const auto testo = [&](int c) {
        return QString::fromUtf8(reinterpret_cast<const char*>(sqlite3_column_text(q, c)),
                                 sqlite3_column_bytes(q, c));
    };
    int esito;
    while ((esito = sqlite3_step(q)) == SQLITE_ROW) {
        RecordAzione& a = letti.emplace_back();
        a.TipoAzione = sqlite3_column_int(q, 2);
        a.XInizio = sqlite3_column_int(q, 3);
        a.YInizio = sqlite3_column_int(q, 4);
        a.XFine = sqlite3_column_int(q, 5);
        a.YFine = sqlite3_column_int(q, 6);
        a.ColLinea = sqlite3_column_int(q, 7);
        a.ColZona = sqlite3_column_int(q, 8);
        a.FlagPienoVuoto = sqlite3_column_int(q, 9);
        a.SpessLinea = sqlite3_column_int(q, 10);
        a.XCentro = float(sqlite3_column_double(q, 11));
        a.YCentro = float(sqlite3_column_double(q, 12));
        a.RadIniz = float(sqlite3_column_double(q, 13));
        a.RadFine = float(sqlite3_column_double(q, 14));
        a.RaggioVert = float(sqlite3_column_double(q, 15));
        a.RaggioOriz = float(sqlite3_column_double(q, 16));
        a.InterlineaTesto = int16_t(sqlite3_column_int(q, 17));
        a.Testo = testo(18);
        a.NomeFont = testo(19);
        a.SizeFont = sqlite3_column_int(q, 20);
        a.Corsivo = sqlite3_column_int(q, 21);
        a.Grassetto = sqlite3_column_int(q, 22);
        a.NomeFileImmagine = testo(23);
    }
    sqlite3_finalize(q);
    lista = std::move(letti);
    return esito == SQLITE_DONE;
}

} // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QTemporaryDir cartella;
    if (!PreparaDatiBench(cartella)) return 1;
    const QList<RecordAzione> lista = Lista();

    int32_t copia = BaseCopieLavoro;
    bool riuscito = true;
    const double scrittura = MedianaMs(5, [&](int) {
        ++copia;
        QSqlQuery q(Archivio(ArchivioDisegni));
        q.prepare(QStringLiteral("INSERT INTO TabDisegni (CodiceDisegno, NomeDisegno,"
                                 " CodiceCartella) VALUES (?, ?, 1)"));
        q.addBindValue(copia);
        q.addBindValue(QString::number(copia));
        q.exec();
        CodiceDisegnoDaRegistrare = copia;
        AzioniDaRegistrare = lista;
        NumeroAzioniDaRegistrare = Numero;
        riuscito = RegistraAzioniDisegno() && riuscito;
    });
    if (!riuscito) return 1;
    Stampa("registra_azioni_disegno_32767", scrittura, "ms");

    // The same five copies in the same order, read in turn by the program and
    // by plain C code on its own connection to the same file.
    const QByteArray percorso = PercorsoArchivioDisegni().toUtf8();
    sqlite3* grezzo = nullptr;
    if (sqlite3_open_v2(percorso.constData(), &grezzo, SQLITE_OPEN_READONLY, nullptr) != SQLITE_OK)
        return 1;
    QList<RecordAzione> lettiGrezzi;
    // In turn, so that whatever else the machine does weighs on both alike.
    std::vector<double> tempiLettura;
    std::vector<double> tempiGrezzi;
    for (int i = 0; i < 25; ++i) {
        const int32_t codice = BaseCopieLavoro + 1 + i % 5;
        tempiLettura.push_back(DurataMs([&] {
            CodiceDisegnoDaCaricare = codice;
            CaricaAzioniDisegno();
        }));
        tempiGrezzi.push_back(
            DurataMs([&] { riuscito = LetturaGrezza(grezzo, codice, lettiGrezzi) && riuscito; }));
    }
    const double lettura = Mediana(tempiLettura);
    const double letturaGrezza = Mediana(tempiGrezzi);
    if (NumeroAzioniUndo != Numero || AzioniUndo[Numero] != lista[Numero]) return 1;
    sqlite3_close(grezzo);
    if (!riuscito || lettiGrezzi != AzioniUndo) return 1;
    Stampa("carica_azioni_disegno_32767", lettura, "ms");
    Stampa("lettura_grezza_api_c_32767", letturaGrezza, "ms");
    Stampa("rapporto_carica_su_lettura_grezza_api_c", lettura / letturaGrezza, "x");

    QList<RecordAzione> destinazione;
    const double memoria = MedianaMs(5, [&](int) { CopiaLista(lista, Numero, destinazione); });
    Stampa("copia_in_memoria_32767", memoria, "ms");
    Stampa("rapporto_registra_su_copia_in_memoria", scrittura / memoria, "x");
    Stampa("rapporto_carica_su_copia_in_memoria", lettura / memoria, "x");
    ChiudiArchivio(ArchivioDisegni);
    return 0;
}
