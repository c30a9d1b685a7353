#include "archive/ArchivioAzioni.h"

#include "archive/Archivi.h"
#include "archive/BitmapDisegni.h"
#include "archive/IstruzioniArchivio.h"
#include "archive/RigheAzioni.h"
#include "archive/ScritturaDisegno.h"
#include "base/CartellaAttiva.h"
#include "base/GestioneErrori.h"
#include "base/MappaErrori.h"
#include "base/Numeri.h"
#include "base/Utilita.h"
#include "model/RecordAzione.h"
#include "model/Superficie.h"

#include <QFile>
#include <QFileInfo>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlRecord>
#include <QVariant>

#include <algorithm>
#include <array>
#include <cfloat>
#include <cmath>
#include <limits>
#include <optional>

#include <sqlite3.h>

namespace {

// The common shape of the two action writers: one transaction, rolled back
// unless every step went through.
bool RegistraAzioni(const TabellaAzioni& t, int32_t codice, const QList<RecordAzione>& lista,
                    int32_t numero, int16_t sezione) {
    std::optional<Transazione> transazione;
    bool scritto = false;
    return EseguiPassi({
               {sezione, [&] { transazione.emplace(Archivio(t.Connessione)); }},
               {int16_t(sezione + 10),
                [&] {
                    ScriviRigheAzioni(t, codice, lista, numero);
                    scritto = true;
                }},
               {int16_t(sezione + 90),
                [&] {
                    if (scritto) transazione->Conferma();
                }},
           }) &&
           scritto;
}

} // namespace

void CaricaAzioniDisegno() {
    LeggiRigheAzioni(TabellaAzioniDisegno(), CodiceDisegnoDaCaricare, AzioniUndo, NumeroAzioniUndo);
}

void LeggiAzioniDisegno(int32_t codice, QList<RecordAzione>& lista, int32_t& numero) {
    LeggiRigheAzioni(TabellaAzioniDisegno(), codice, lista, numero);
}

void CaricaAzioniOggetto() {
    LeggiRigheAzioni(TabellaAzioniOggetto(), CodiceOggettoDaCaricare, AzioniOggetto,
                     NumeroAzioniOggetto);
}

bool RegistraAzioniDisegno() {
    return RegistraAzioni(TabellaAzioniDisegno(), CodiceDisegnoDaRegistrare, AzioniDaRegistrare,
                          NumeroAzioniDaRegistrare, 4100);
}

bool RegistraAzioniOggetto() {
    return RegistraAzioni(TabellaAzioniOggetto(), CodiceOggettoDaRegistrare,
                          AzioniOggettoDaRegistrare, NumeroAzioniOggettoDaRegistrare, 4200);
}

bool RegistraTestaEAzioniDisegno(const QString& nome, int32_t codiceCartella) {
    const int32_t codice = CodiceDisegnoDaRegistrare;
    std::optional<Transazione> transazione;
    int passiFatti = 0;
    const bool riuscito = EseguiPassi({
        {4500,
         [&] {
             transazione.emplace(Archivio(ArchivioDisegni));
             ++passiFatti;
         }},
        {4510,
         [&] {
             if (passiFatti != 1) return;
             InserisciTestaDisegno(codice, nome, codiceCartella);
             ++passiFatti;
         }},
        {4520,
         [&] {
             if (passiFatti != 2) return;
             ScriviRigheAzioni(TabellaAzioniDisegno(), codice, AzioniDaRegistrare,
                               NumeroAzioniDaRegistrare);
             ++passiFatti;
         }},
        {4590,
         [&] {
             if (passiFatti != 3) return;
             transazione->Conferma();
             ++passiFatti;
         }},
    });
    return riuscito && passiFatti == 4;
}

QString PercorsoBitmapDisegno(const QString& nomeCartella, int32_t codiceCartella,
                              const QString& nomeDisegno, int32_t codiceDisegno) {
    return PercorsoCartellaDisegni(nomeCartella, codiceCartella) + '/' +
           NomeSicuro(nomeDisegno, codiceDisegno) + QStringLiteral(".bmp");
}

bool RegistraDisegno(const Superficie& quadro) {
    const QString nome = NomeDisegnoCorrente;
    return RegistraDisegno(quadro, nome);
}

bool RegistraDisegno(const Superficie& quadro, const QString& nome) {
    const bool nuovo = StatoDisegno == 2 || RegistraComeNuovo == 1;
    ScritturaDisegno scrittura;
    scrittura.Nome = nome;
    scrittura.Nuovo = nuovo;
    scrittura.Codice = CodiceDisegnoCorrente;
    scrittura.Sezioni = {4300, 4310, 4320, 4330, 4340, 4350, 4390};
    scrittura.PrimaDelleRighe = [](int32_t codice) {
        CodiceDisegnoDaRegistrare = codice;
        CopiaAzioniInDaRegistrare();
    };
    scrittura.Azioni = &AzioniDaRegistrare;
    scrittura.NumeroAzioni = &NumeroAzioniDaRegistrare;
    scrittura.Bitmap = [&quadro] { return quadro.ImmagineBmp(); };
    scrittura.Sonda = [](int16_t sezione) {
        if (SondaRegistraDisegno) SondaRegistraDisegno(sezione);
    };
    const EsitoScrittura esito = ScriviDisegno(scrittura);
    // The name follows the rows: a save that never committed leaves the name
    // of the drawing the code still belongs to.
    if (esito.Confermato) {
        CodiceDisegnoCorrente = esito.Codice;
        NomeDisegnoCorrente = nome;
        if (nuovo) StatoDisegno = 1;
    }
    return esito.Riuscito;
}

bool RegistraOggetto(int32_t codiceDaSostituire) {
    std::optional<Transazione> transazione;
    int passiFatti = 0;
    const bool riuscito = EseguiPassi({
        {4400,
         [&] {
             transazione.emplace(Archivio(ArchivioOggetti));
             // The old object goes in the same transaction: a fault keeps it.
             if (codiceDaSostituire > 0) EliminaOggetto(codiceDaSostituire);
             ++passiFatti;
         }},
        {4410,
         [&] {
             // The object's code is 16-bit where it is written.
             const int16_t codice = Intero16(CodiceLiberoMinimo(TipoCodice::Oggetto));
             QSqlQuery q = Prepara(Archivio(ArchivioOggetti),
                                   QStringLiteral("INSERT INTO TabOggetti (CodiceOggetto,"
                                                  " NomeOggetto, CodiceCartellaObj)"
                                                  " VALUES (?, ?, ?)"));
             q.addBindValue(codice);
             q.addBindValue(NomeOggettoDaRegistrare);
             q.addBindValue(CodiceCartellaObjAttiva);
             Esegui(q);
             CodiceOggettoDaRegistrare = codice;
             ++passiFatti;
         }},
        {4420,
         [&] {
             CopiaElementiAttiviInDaRegistrare();
             ScriviRigheAzioni(TabellaAzioniOggetto(), CodiceOggettoDaRegistrare,
                               AzioniOggettoDaRegistrare, NumeroAzioniOggettoDaRegistrare);
             ++passiFatti;
         }},
        {4490,
         [&] {
             if (passiFatti != 3) return;
             transazione->Conferma();
             ++passiFatti;
         }},
    });
    return riuscito && passiFatti == 4;
}
