#include "printing/EsportaDisegno.h"

#include "archive/Archivi.h"
#include "archive/FileScambio.h"
#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"
#include "model/Superficie.h"
#include "printing/DisegnoVettoriale.h"
#include "printing/Stampe.h"
#include "start/MappaErrori.h"
#include "start/Utilita.h"

#include <QFileInfo>
#include <QSaveFile>

FileEsportati PercorsiEsportazione(const QString& nome, int32_t codice) {
    const QString base = PercorsoFile() + u'/' + NomeSicuro(nome, codice);
    return {base + QStringLiteral(".png"), base + QStringLiteral(".pdf"),
            base + QStringLiteral(".svg"), base + EstensioneScambio};
}

bool EsportazioneEsistente(const FileEsportati& file) {
    for (const QString& percorso : file.Tutti())
        if (QFileInfo::exists(percorso)) return true;
    return false;
}

void EsportaDisegno(const FileEsportati& file, const Superficie& tela, const QString& nome) {
    {
        QSaveFile png(file.Png);
        if (!png.open(QIODevice::WriteOnly)) throw ErroreFile(png.error(), file.Png);
        if (!tela.Immagine().save(&png, "PNG")) throw ErroreFile(QFileDevice::WriteError, file.Png);
        if (!png.commit()) throw ErroreFile(png.error(), file.Png);
    }
    EsportaPdf(file.Pdf, TitoloStampa(nome), Azioni, NumeroAzioni, ColoreSfondo);
    EsportaSvg(file.Svg, nome, Azioni, NumeroAzioni, ColoreSfondo);
    ContenutoScambio contenuto;
    contenuto.NomeDisegno = nome;
    contenuto.Azioni = Azioni;
    contenuto.NumeroAzioni = NumeroAzioni;
    contenuto.Immagini = ImmaginiNominate(Azioni, NumeroAzioni);
    ScriviFileScambio(file.Scambio, contenuto);
}
