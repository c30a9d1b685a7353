#include "archive/ArchivioAzioni.h"

#include "archive/Archivi.h"
#include "archive/BitmapDisegni.h"
#include "archive/IstruzioniArchivio.h"
#include "archive/RigheAzioni.h"
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

void InserisciTestaDisegno(int32_t codice, const QString& nome, int32_t codiceCartella) {
    QSqlQuery q = Prepara(Archivio(ArchivioDisegni),
                          QStringLiteral("INSERT INTO TabDisegni (CodiceDisegno, NomeDisegno,"
                                         " CodiceCartella) VALUES (?, ?, ?)"));
    q.addBindValue(codice);
    q.addBindValue(nome);
    q.addBindValue(codiceCartella);
    Esegui(q);
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
    int32_t codice = CodiceDisegnoCorrente;
    // A new drawing's code, and so its bitmap's name, is known only once chosen.
    QString percorso;
    // The bitmap of the same drawing under its old name (another case, other
    // accents): it goes once the new one stands, or it would stay for ever.
    QString percorsoVecchio;
    std::optional<Transazione> transazione;
    // A file left aside by an earlier save marks its drawing until the start
    // repairs it: only one this save made may go when the save fails.
    bool aParteEsisteva = false;
    bool scrittaAParte = false;
    bool confermaTentata = false;
    bool confermato = false;
    int passiFatti = 0;
    const auto sonda = [](int16_t sezione) {
        if (SondaRegistraDisegno) SondaRegistraDisegno(sezione);
    };
    const bool riuscito = EseguiPassi({
        {4300,
         [&] {
             sonda(4300);
             transazione.emplace(Archivio(ArchivioDisegni));
             ++passiFatti;
         }},
        {4310,
         [&] {
             if (passiFatti != 1) return;
             sonda(4310);
             QSqlDatabase db = Archivio(ArchivioDisegni);
             if (nuovo) {
                 codice = CodiceLiberoMinimo(TipoCodice::Disegno);
                 InserisciTestaDisegno(codice, nome, CodiceCartellaAttiva);
             } else {
                 const RigaArchivio vecchia = TestaDisegno(codice);
                 if (vecchia.Cartella == CodiceCartellaAttiva)
                     percorsoVecchio = PercorsoBitmapDisegno(
                         NomeCartellaAttiva, CodiceCartellaAttiva, vecchia.Nome, codice);
                 QSqlQuery q = Prepara(db, QStringLiteral("UPDATE TabDisegni SET NomeDisegno = ?,"
                                                          " CodiceCartella = ?"
                                                          " WHERE CodiceDisegno = ?"));
                 q.addBindValue(nome);
                 q.addBindValue(CodiceCartellaAttiva);
                 q.addBindValue(codice);
                 Esegui(q);
                 if (q.numRowsAffected() < 1) throw ErroreNessunRecord();
                 EliminaAzioniDisegno(codice);
             }
             ++passiFatti;
         }},
        {4320,
         [&] {
             if (passiFatti != 2) return;
             sonda(4320);
             CodiceDisegnoDaRegistrare = codice;
             CopiaAzioniInDaRegistrare();
             ScriviRigheAzioni(TabellaAzioniDisegno(), CodiceDisegnoDaRegistrare,
                               AzioniDaRegistrare, NumeroAzioniDaRegistrare);
             ++passiFatti;
         }},
        {4330,
         [&] {
             if (passiFatti != 3) return;
             sonda(4330);
             percorso =
                 PercorsoBitmapDisegno(NomeCartellaAttiva, CodiceCartellaAttiva, nome, codice);
             const QByteArray dati = quadro.ImmagineBmp();
             aParteEsisteva = QFileInfo(PercorsoBitmapNuova(percorso)).isFile();
             scrittaAParte = true;
             ScriviBitmapAParte(percorso, dati);
             ++passiFatti;
         }},
        {4340,
         [&] {
             if (passiFatti != 4) return;
             sonda(4340);
             confermaTentata = true;
             transazione->Conferma();
             confermato = true;
             ++passiFatti;
         }},
        {4350,
         [&] {
             if (passiFatti != 5) return;
             sonda(4350);
             SostituisciBitmap(percorso);
             if (!percorsoVecchio.isEmpty() && percorsoVecchio != percorso)
                 QFile::remove(percorsoVecchio);
             ++passiFatti;
         }},
        {4390,
         [&] {
             if (passiFatti != 6) return;
             sonda(4390);
             ++passiFatti;
         }},
    });
    // Before a commit was tried the old rows stand, and the old bitmap shows
    // them. A commit that failed keeps the file aside: whether the rows went
    // in, the start will tell.
    if (scrittaAParte && !confermaTentata && !aParteEsisteva)
        QFile::remove(PercorsoBitmapNuova(percorso));
    transazione.reset();
    // The name follows the rows: a save that never committed leaves the name
    // of the drawing the code still belongs to.
    if (confermato) {
        CodiceDisegnoCorrente = codice;
        NomeDisegnoCorrente = nome;
        if (nuovo) StatoDisegno = 1;
    }
    return riuscito && passiFatti == 7;
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
