#include "archive/ImportaScambio.h"

#include "archive/Archivi.h"
#include "archive/ArchivioAzioni.h"
#include "archive/BitmapDisegni.h"
#include "archive/FileInSospeso.h"
#include "archive/ScritturaDisegno.h"
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

namespace {

// The pictures written aside, each once, under the path the actions will
// name; named in `aParte` first, so that a write that fails half way is
// removed too.
void ScriviImmaginiAParte(ContenutoScambio& contenuto, const QString& cartellaFile,
                          QStringList& aParte) {
    QHash<QString, QString> posti;
    QSet<QString> presi;
    for (const ImmagineScambio& i : std::as_const(contenuto.Immagini)) {
        const QString posto = PostoImmagineImportata(cartellaFile, i.Nome, i.Dati, presi);
        if (!QFileInfo::exists(posto)) {
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
        a.NomeFileImmagine = posto != posti.constEnd()
                                 ? *posto
                                 : cartellaFile + u'/' + NomeImmagineSicuro(a.NomeFileImmagine);
    }
}

// The bitmap the folder's list shows, drawn as the canvas would, the pictures
// read where they wait; one that cannot be read is its frame, as on the
// canvas, and the drawing tells it when opened.
QByteArray DisegnaBitmapImportata(const ContenutoScambio& contenuto, const QStringList& aParte) {
    Superficie tela(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    tela.ImpostaScaleMode(ScalaTwips);
    tela.ImpostaBackColor(ColoreSfondo);
    tela.FillStyle = 1;
    TracciaListaRigorosa(tela, contenuto.Azioni, contenuto.NumeroAzioni,
                         [&](const QString& percorso) {
                             try {
                                 return Superficie::LoadPicture(
                                     aParte.contains(percorso) ? FileAParte(percorso) : percorso);
                             } catch (const ErroreZanto&) {
                                 return QImage();
                             }
                         });
    return tela.ImmagineBmp();
}

} // namespace

int32_t RegistraDisegnoImportato(ContenutoScambio contenuto, const QString& nomeDato) {
    const QString cartellaFile = PercorsoFile();
    const QString nome = NomeDisegnoPulito(nomeDato);
    // The pictures are written aside and put in place only once the drawing
    // that names them is committed: a kill before leaves nothing the start
    // keeps, a kill after leaves what the start puts in place.
    QStringList aParte;
    EsitoScrittura esito;
    const bool immaginiAParte = EseguiPassi({
        {4700,
         [&] {
             if (nome.isEmpty())
                 throw ErroreZanto{5, QStringLiteral("Nome del Disegno non valido.")};
             ScriviImmaginiAParte(contenuto, cartellaFile, aParte);
         }},
    });
    if (immaginiAParte) {
        ScritturaDisegno scrittura;
        scrittura.Nome = nome;
        scrittura.Sezioni = {4710, 4710, 4710, 4720, 4730, 4740, 4740};
        scrittura.Azioni = &contenuto.Azioni;
        scrittura.NumeroAzioni = &contenuto.NumeroAzioni;
        scrittura.Bitmap = [&] { return DisegnaBitmapImportata(contenuto, aParte); };
        scrittura.PrimaDellaBitmap = [&] {
            while (!aParte.isEmpty()) {
                SostituisciBitmap(aParte.first());
                aParte.removeFirst();
            }
        };
        scrittura.SeNonConferma = BitmapNonConfermata::Togli;
        esito = ScriviDisegno(scrittura);
    }
    if (!esito.Confermato) {
        for (const QString& posto : std::as_const(aParte))
            QFile::remove(FileAParte(posto));
        return 0;
    }
    // Committed: the drawing stands, and what is left aside is the start's to put in place.
    return esito.Codice;
}
