// Writing and reading the longest list the archive holds: 32,767 actions, as a
// working copy is written after every fixed change. Against it stands the
// time to copy the same list in memory, which any writer or reader pays too,
// and for reading the time SQLite's C interface takes to step through the same
// rows of the same file into records, with no check at all.

#include "DatiBench.h"
#include "LetturaGrezza.h"
#include "Misura.h"

#include "app/Avvio.h"
#include "archive/Archivi.h"
#include "archive/ArchivioAzioni.h"
#include "archive/Installatore.h"
#include "model/RecordAzione.h"

#include <QApplication>
#include <QSqlQuery>
#include <QTemporaryDir>

#include <cstdio>

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
