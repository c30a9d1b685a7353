#include "panels/Elaborazioni.h"

#include "archive/Archivi.h"
#include "archive/ArchivioAzioni.h"
#include "archive/FileScambio.h"
#include "archive/IstruzioniArchivio.h"
#include "base/Bip.h"
#include "base/CartellaAttiva.h"
#include "base/GestioneErrori.h"
#include "base/MappaErrori.h"
#include "base/Numeri.h"
#include "base/Sessione.h"
#include "base/Utilita.h"
#include "input/QuadroMessaggi.h"
#include "panels/EtichettaLista.h"
#include "panels/VideaAvanzamento.h"

#include <QDir>
#include <QFileInfo>
#include <QFontDatabase>
#include <QPushButton>
#include <QSqlQuery>

#include <memory>
#include <optional>
#include <utility>

namespace {

void Aggiungi(const QString& etichetta) {
    VociLista.append(etichetta);
    NumeroVoci = Intero16(static_cast<int64_t>(NumeroVoci) + 1);
}

void DaRighe(const QList<RigaArchivio>& righe, FormatoEtichetta formato) {
    for (const RigaArchivio& riga : righe)
        Aggiungi(ComponiEtichetta(riga.Nome, riga.Codice, formato));
}

// Rows that do not read are named, so that the user knows what is missing
// from the list and why, and the rest of the folder stays in reach.
void AvvisaDanneggiate(const QList<RigaDanneggiata>& danneggiate, const QString& genere) {
    QStringList righe{QStringLiteral("ATTENZIONE!")};
    constexpr int Mostrate = 4;
    for (int i = 0; i < danneggiate.size() && i < Mostrate; ++i) {
        const RigaDanneggiata& d = danneggiate.at(i);
        QString riga = genere;
        if (!d.Nome.trimmed().isEmpty())
            riga += QStringLiteral(" « ") + d.Nome.left(64) + QStringLiteral(" »");
        if (d.Codice != 0) riga += QStringLiteral(" (codice ") + QString::number(d.Codice) + ')';
        righe.append(riga + QStringLiteral(" è danneggiato."));
    }
    if (danneggiate.size() > Mostrate)
        righe.append(QStringLiteral("Altri ") + QString::number(danneggiate.size() - Mostrate) +
                     QStringLiteral(" sono danneggiati."));
    righe.append(danneggiate.size() == 1
                     ? QStringLiteral("Non può essere letto: gli altri sono in elenco.")
                     : QStringLiteral("Non possono essere letti: gli altri sono in elenco."));
    righe.append(QStringLiteral("Premere «OK» per proseguire!"));
    ParcheggiaMouse();
    Messaggio(Righe(righe), 1, 1);
}

// Under the list's own trap: a fault leaves the list empty, after the box.
void ElementiConTrappola(int16_t sezione, const QString& genere,
                         const std::function<QList<RigaArchivio>(QList<RigaDanneggiata>*)>& leggi) {
    SvuotaLista();
    QList<RigaArchivio> righe;
    QList<RigaDanneggiata> danneggiate;
    EseguiPassi({{sezione, [&] { righe = leggi(&danneggiate); }}});
    if (!danneggiate.isEmpty()) AvvisaDanneggiate(danneggiate, genere);
    if (righe.isEmpty()) {
        Bip();
        return;
    }
    DaRighe(righe, FormatoEtichetta::Elemento);
}

void File(int16_t sezione, const QStringList& estensioni) {
    SvuotaLista();
    CartellaRicerca = RadiceDati + QDir::separator() + NomiArchivi::SottocartellaFile;
    EstensioniRicerca = estensioni;
    RicercaSottocartelle = 0;
    SezioneCorrente = sezione;
    RicercaFile();
    for (int16_t i = 1; i <= NumeroFile; ++i)
        Aggiungi(ComponiEtichetta(QFileInfo(ElencoFile.at(i)).fileName(), i,
                                  FormatoEtichetta::Cartella));
}

} // namespace

ListaTenuta::ListaTenuta()
    : lista_(DatiLista), cartellaRicerca_(CartellaRicerca), estensioniRicerca_(EstensioniRicerca),
      ricercaSottocartelle_(RicercaSottocartelle), elencoFile_(ElencoFile),
      numeroFile_(NumeroFile) {}

ListaTenuta::~ListaTenuta() {
    DatiLista = std::move(lista_);
    CartellaRicerca = std::move(cartellaRicerca_);
    EstensioniRicerca = std::move(estensioniRicerca_);
    RicercaSottocartelle = ricercaSottocartelle_;
    ElencoFile = std::move(elencoFile_);
    NumeroFile = numeroFile_;
}

void SvuotaLista() {
    VociLista = QStringList{QString()};
    NumeroVoci = 0;
}

void RiempiListaDisegni() {
    ElementiConTrappola(2300, QStringLiteral("Il Disegno"), [](QList<RigaDanneggiata>* d) {
        return DisegniDellaCartella(CodiceCartellaAttiva, d);
    });
}

void RiempiListaOggetti() {
    ElementiConTrappola(2900, QStringLiteral("L'Oggetto"), [](QList<RigaDanneggiata>* d) {
        return OggettiDellaCartella(CodiceCartellaObjAttiva, d);
    });
}

void RiempiListaCartelle() {
    SvuotaLista();
    DaRighe(CartelleInOrdineDiNome(), FormatoEtichetta::Cartella);
}

void RiempiListaCartelleObj() {
    SvuotaLista();
    DaRighe(CartelleObjInOrdineDiNome(), FormatoEtichetta::Cartella);
}

void RiempiListaImmagini() {
    // The search may take a while on a full folder: say so meanwhile.
    auto avanzamento = std::make_unique<VideaAvanzamento>();
    ModoAvanzamento = 1;
    TestoAvanzamento = QStringLiteral("ATTENDERE! Ricerca Files in corso!");
    avanzamento->TastoAnnullaProcesso->hide();
    avanzamento->show();
    PassiAvanzamento = 0;
    AvanzamentoProcesso();
    File(3000, {QStringLiteral(".jpg"), QStringLiteral(".bmp"), QStringLiteral(".png"),
                QStringLiteral(".jpeg")});
    avanzamento->hide();
}

void RiempiListaTesti() {
    File(3200, {QStringLiteral(".rtf")});
}

void RiempiListaScambi() {
    File(3300, {EstensioneScambio});
}

void RiempiListaFont() {
    SvuotaLista();
    QStringList nomi;
    for (const QString& nome : QFontDatabase::families())
        if (!nome.isEmpty() && nome.at(0).unicode() >= 'A' && nome.at(0).unicode() <= 'Z')
            nomi.append(nome);
    nomi.sort();
    nomi.removeDuplicates();
    for (int i = 0; i < nomi.size(); ++i)
        Aggiungi(ComponiEtichetta(nomi.at(i), i + 1, FormatoEtichetta::Font));
}

void RiempiListaDimensioni() {
    SvuotaLista();
    for (int i = 1; i <= 20; ++i)
        Aggiungi(ComponiEtichetta(QString(), 6 + 2 * i, FormatoEtichetta::Numero));
}

namespace {

int32_t CreaCartella(int16_t sezione, TipoCodice tipo, const QString& connessione,
                     const QString& istruzione) {
    int32_t codice = 0;
    std::optional<Transazione> transazione;
    int passiFatti = 0;
    const bool riuscito = EseguiPassi({
        {sezione,
         [&] {
             transazione.emplace(Archivio(connessione));
             codice = CodiceLiberoMinimo(tipo);
             QSqlQuery q = Prepara(Archivio(connessione), istruzione);
             q.addBindValue(codice);
             q.addBindValue(NomeNuovaCartella);
             Esegui(q);
             ++passiFatti;
         }},
        {static_cast<int16_t>(sezione + 10),
         [&] {
             if (passiFatti != 1 || tipo != TipoCodice::Cartella) return;
             // The row holds only once the directory is there for its bitmaps.
             const QString percorso = PercorsoCartellaDisegni(NomeNuovaCartella, codice);
             if (!QDir().mkpath(percorso)) throw ErroreCartellaAssente(percorso);
         }},
        {static_cast<int16_t>(sezione + 20),
         [&] {
             if (passiFatti != 1) return;
             transazione->Conferma();
             ++passiFatti;
         }},
    });
    return riuscito && passiFatti == 2 ? codice : 0;
}

bool RimuoviFile(const QString& nome, int64_t indice) {
    // The path the search found, when the line still names it; a name is
    // never taken as a path of its own.
    QString percorso;
    if (indice >= 1 && indice <= NumeroFile && QFileInfo(ElencoFile.at(indice)).fileName() == nome)
        percorso = ElencoFile.at(indice);
    else if (!nome.isEmpty() && !nome.contains(QChar(u'/')) && nome != QStringLiteral("..") &&
             nome != QStringLiteral("."))
        percorso = PercorsoFile() + '/' + nome;
    if (percorso.isEmpty() || !FileEsiste(percorso)) return false;
    QFile file(percorso);
    if (!file.remove()) throw ErroreFile(file.error(), percorso, file.errorString());
    return true;
}

} // namespace

int32_t CreaCartellaDisegni() {
    return CreaCartella(2500, TipoCodice::Cartella, ArchivioDisegni,
                        QStringLiteral("INSERT INTO TabCartelle (CodiceCartella, NomeCartella)"
                                       " VALUES (?, ?)"));
}

int32_t CreaCartellaOggetti() {
    return CreaCartella(3100, TipoCodice::CartellaObj, ArchivioOggetti,
                        QStringLiteral("INSERT INTO TabCartelleObj (CodiceCartellaObj,"
                                       " NomeCartellaObj) VALUES (?, ?)"));
}

bool EliminaVoceLista(const EtichettaLetta& voce) {
    const int64_t numero = voce.Valore();
    const bool codiceValido = numero >= 1 && numero <= INT32_MAX;
    const auto codice = static_cast<int32_t>(codiceValido ? numero : 0);
    switch (TipoLista) {
    case GenereLista::Disegni:
        if (!codiceValido) return false;
        EliminaDisegno(codice);
        QFile::remove(
            PercorsoBitmapDisegno(NomeCartellaAttiva, CodiceCartellaAttiva, voce.Nome, codice));
        if (codice == CodiceDisegnoCorrente) {
            // The drawing on the canvas is no longer in the archive: it is a
            // new one, to be saved under any free name, its own included.
            CodiceDisegnoCorrente = 0;
            StatoDisegno = 2;
            NomeDisegnoCorrente.clear();
        }
        return true;
    case GenereLista::Cartelle: {
        if (!codiceValido) return false;
        EliminaCartella(codice);
        // Its own directory only: the name is made safe and carries no way out,
        // and a folder of the same name from an older archive keeps its own.
        QDir cartella(PercorsoCartellaDisegni(voce.Nome, codice));
        for (const RigaArchivio& altra : CartelleInOrdineDiCodice())
            if (PercorsoCartellaDisegni(altra.Nome, altra.Codice) == cartella.path()) return true;
        if (cartella.exists() && !cartella.removeRecursively())
            throw ErroreFile(QFileDevice::RemoveError, cartella.path());
        if (codice == CodiceCartellaAttiva) {
            CodiceCartellaAttiva = 0;
            NomeCartellaAttiva.clear();
        }
        return true;
    }
    case GenereLista::Oggetti:
        if (!codiceValido) return false;
        EliminaOggetto(codice);
        return true;
    case GenereLista::CartelleObj:
        if (!codiceValido) return false;
        EliminaCartellaObj(codice);
        if (codice == CodiceCartellaObjAttiva) {
            CodiceCartellaObjAttiva = 0;
            NomeCartellaObjAttiva.clear();
        }
        return true;
    case GenereLista::Immagini:
    case GenereLista::Testi:
    case GenereLista::Scambi:
        return RimuoviFile(voce.Nome, numero);
    default:
        return false;
    }
}
