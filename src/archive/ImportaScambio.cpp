#include "archive/ImportaScambio.h"

#include "archive/Archivi.h"
#include "archive/ArchivioAzioni.h"
#include "archive/BitmapDisegni.h"
#include "archive/FileInSospeso.h"
#include "archive/IstruzioniArchivio.h"
#include "archive/RigheAzioni.h"
#include "base/CartellaAttiva.h"
#include "base/FileRegolari.h"
#include "base/GestioneErrori.h"
#include "base/MappaErrori.h"
#include "base/Utilita.h"
#include "model/StatoAmbiente.h"
#include "model/Superficie.h"
#include "model/TracciaAzioni.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSaveFile>
#include <QSet>
#include <QSqlQuery>

#include <optional>

namespace {

QByteArray Contenuto(const QString& percorso, qsizetype dimensione) {
    return LeggiFileRegolare(percorso, dimensione).value_or(QByteArray());
}

} // namespace

QString PostoImmagineImportata(const QString& cartellaFile, const QString& nomeNelFile,
                               const QByteArray& dati, const QSet<QString>& presi) {
    const QString nome = NomeImmagineSicuro(nomeNelFile);
    const QString base = QFileInfo(nome).completeBaseName();
    const QString suffisso = QFileInfo(nome).suffix();
    for (int numero = 1;; ++numero) {
        const QString candidato =
            numero == 1 ? nome : base + u'-' + QString::number(numero) + u'.' + suffisso;
        const QString percorso = cartellaFile + u'/' + candidato;
        if (presi.contains(percorso)) continue;
        const QFileInfo esistente(percorso);
        if (!esistente.exists() && !esistente.isSymLink()) return percorso;
        // Only a file of the same size can hold the same bytes.
        if (esistente.isFile() && esistente.size() == dati.size() &&
            Contenuto(percorso, dati.size()) == dati)
            return percorso;
    }
}

int32_t RegistraDisegnoImportato(ContenutoScambio contenuto, const QString& nomeDato) {
    const QString cartellaFile = PercorsoFile();
    const QString nome = NomeDisegnoPulito(nomeDato);
    // The pictures are written aside and put in place only once the drawing
    // that names them is committed: a kill before leaves nothing the start
    // keeps, a kill after leaves what the start puts in place.
    QStringList aParte;
    int32_t codice = 0;
    QString bitmap;
    std::optional<Transazione> transazione;
    bool confermato = false;
    int passiFatti = 0;
    EseguiPassi({
        {4700,
         [&] {
             if (nome.isEmpty())
                 throw ErroreZanto{5, QStringLiteral("Nome del Disegno non valido.")};
             // Each picture once, under the path the actions will name.
             QHash<QString, QString> posti;
             QSet<QString> presi;
             for (const ImmagineScambio& i : std::as_const(contenuto.Immagini)) {
                 const QString posto = PostoImmagineImportata(cartellaFile, i.Nome, i.Dati, presi);
                 if (!QFileInfo::exists(posto)) {
                     // Named first: a write that fails half way is removed too.
                     if (!aParte.contains(posto)) aParte << posto;
                     ScriviBitmapAParte(posto, i.Dati);
                 }
                 presi.insert(posto);
                 posti.insert(i.Nome, posto);
             }
             for (int32_t n = 1; n <= contenuto.NumeroAzioni; ++n) {
                 RecordAzione& a = contenuto.Azioni[n];
                 if (a.TipoAzione != TipiAzione::Immagine) continue;
                 // A picture the file does not carry is looked for in the files
                 // folder under its own name: a name from elsewhere never leads
                 // out of it.
                 const auto posto = posti.constFind(a.NomeFileImmagine);
                 a.NomeFileImmagine =
                     posto != posti.constEnd()
                         ? *posto
                         : cartellaFile + u'/' + NomeImmagineSicuro(a.NomeFileImmagine);
             }
             ++passiFatti;
         }},
        {4710,
         [&] {
             if (passiFatti != 1) return;
             transazione.emplace(Archivio(ArchivioDisegni));
             codice = CodiceLiberoMinimo(TipoCodice::Disegno);
             QSqlQuery q =
                 Prepara(Archivio(ArchivioDisegni),
                         QStringLiteral("INSERT INTO TabDisegni (CodiceDisegno,"
                                        " NomeDisegno, CodiceCartella) VALUES (?, ?, ?)"));
             q.addBindValue(codice);
             q.addBindValue(nome);
             q.addBindValue(CodiceCartellaAttiva);
             Esegui(q);
             ScriviRigheAzioni(TabellaAzioniDisegno(), codice, contenuto.Azioni,
                               contenuto.NumeroAzioni);
             ++passiFatti;
         }},
        {4720,
         [&] {
             if (passiFatti != 2) return;
             // The bitmap the folder's list shows, drawn as the canvas would,
             // the pictures read where they wait; one that cannot be read is
             // its frame, as on the canvas, and the drawing tells it when opened.
             Superficie tela(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
             tela.ImpostaScaleMode(ScalaTwips);
             tela.ImpostaBackColor(ColoreSfondo);
             tela.FillStyle = 1;
             TracciaListaRigorosa(
                 tela, contenuto.Azioni, contenuto.NumeroAzioni, [&](const QString& percorso) {
                     try {
                         return Superficie::LoadPicture(
                             aParte.contains(percorso) ? FileAParte(percorso) : percorso);
                     } catch (const ErroreZanto&) {
                         return QImage();
                     }
                 });
             bitmap = PercorsoBitmapDisegno(NomeCartellaAttiva, CodiceCartellaAttiva, nome, codice);
             ScriviBitmapAParte(bitmap, tela.ImmagineBmp());
             ++passiFatti;
         }},
        {4730,
         [&] {
             if (passiFatti != 3) return;
             transazione->Conferma();
             confermato = true;
             ++passiFatti;
         }},
        {4740,
         [&] {
             if (passiFatti != 4) return;
             while (!aParte.isEmpty()) {
                 SostituisciBitmap(aParte.first());
                 aParte.removeFirst();
             }
             SostituisciBitmap(bitmap);
             ++passiFatti;
         }},
    });
    transazione.reset();
    if (!confermato) {
        if (!bitmap.isEmpty()) QFile::remove(PercorsoBitmapNuova(bitmap));
        for (const QString& posto : std::as_const(aParte))
            QFile::remove(FileAParte(posto));
        return 0;
    }
    // Committed: the drawing stands, and what is left aside is the start's to put in place.
    return codice;
}
