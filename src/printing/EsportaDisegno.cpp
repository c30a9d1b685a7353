#include "printing/EsportaDisegno.h"

#include "archive/Archivi.h"
#include "archive/FileInSospeso.h"
#include "archive/FileScambio.h"
#include "base/MappaErrori.h"
#include "base/Utilita.h"
#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"
#include "model/Superficie.h"
#include "printing/DisegnoVettoriale.h"
#include "printing/Stampe.h"

#include <QFile>
#include <QFileInfo>
#include <QSaveFile>

FileEsportati PercorsiEsportazione(const QString& nome, int32_t codice) {
    const QString base = PercorsoFile() + u'/' + NomeSicuro(nome, codice);
    return {base + QStringLiteral(".png"), base + QStringLiteral(".pdf"),
            base + QStringLiteral(".svg"), base + EstensioneScambio};
}

StatoEsportazione EsportazioneEsistente(const FileEsportati& file) {
    bool presente = false;
    for (const QString& percorso : file.Tutti()) {
        if (!QFileInfo::exists(percorso)) continue;
        presente = true;
        for (int32_t i = 1; i <= NumeroAzioni && i < Azioni.size(); ++i)
            if (Azioni.at(i).TipoAzione == TipiAzione::Immagine &&
                QFileInfo(Azioni.at(i).NomeFileImmagine) == QFileInfo(percorso))
                return StatoEsportazione::Occupata;
    }
    if (!presente) return StatoEsportazione::Libera;
    return QFileInfo(file.Scambio).isFile() ? StatoEsportazione::GiaEsportata
                                            : StatoEsportazione::Occupata;
}

void EsportaDisegno(const FileEsportati& file, const Superficie& tela, const QString& nome) {
    // The exchange file first, in memory: what the import would refuse stops
    // the export before anything is written.
    ContenutoScambio contenuto;
    contenuto.NomeDisegno = nome;
    contenuto.Azioni = Azioni;
    contenuto.NumeroAzioni = NumeroAzioni;
    contenuto.Immagini = ImmaginiNominate(contenuto.Azioni, contenuto.NumeroAzioni);
    ControllaDisegnoScambiabile(contenuto);
    try {
        {
            QSaveFile png(FileAParte(file.Png));
            if (!png.open(QIODevice::WriteOnly)) throw ErroreFile(png.error(), file.Png);
            if (!tela.Immagine().save(&png, "PNG"))
                throw ErroreFile(QFileDevice::WriteError, file.Png);
            if (!png.commit()) throw ErroreFile(png.error(), file.Png);
        }
        EsportaPdf(FileAParte(file.Pdf), TitoloStampa(nome), Azioni, NumeroAzioni, ColoreSfondo);
        EsportaSvg(FileAParte(file.Svg), nome, Azioni, NumeroAzioni, ColoreSfondo);
        ScriviFileScambio(FileAParte(file.Scambio), contenuto);
    } catch (...) {
        for (const QString& percorso : file.Tutti())
            QFile::remove(FileAParte(percorso));
        throw;
    }
    // All four in place, or none.
    SostituisciInsieme(file.Tutti());
}
