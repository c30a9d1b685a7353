#pragma once

// What the child of test_scambio_interrotto exports and imports, generation
// by generation: every generation has a colour of its own, carried by the
// drawing's line and by its picture, so that a file shows which one it is.
#include "model/RecordAzione.h"
#include "support/CostruttoriAzioni.h"

#include <QColor>
#include <QList>
#include <QString>

#include <cstdint>

namespace PilotaScambio {

inline const QString NomeEsportato = QStringLiteral("Viaggio");
inline const QString CartellaSorgenti = QStringLiteral("Sorgenti");
inline const QString NomeFigura = QStringLiteral("sole.png");

// 0x00BBGGRR, different for every generation.
inline int32_t Colore(int32_t generazione) {
    return int32_t((quint32(generazione) * 2654435761u) & 0xFFFFFFu);
}

inline QColor ColoreQt(int32_t colore) {
    return QColor(colore & 0xFF, (colore >> 8) & 0xFF, (colore >> 16) & 0xFF);
}

// A line of the generation's colour, and its picture.
inline QList<RecordAzione> Lista(int32_t generazione, const QString& figura) {
    const RecordAzione linea =
        CostruttoriAzioni::Linea(1500, 1500, 9000, 1500, Colore(generazione), 3);
    RecordAzione immagine;
    immagine.TipoAzione = TipiAzione::Immagine;
    immagine.XInizio = 3000, immagine.YInizio = 3000, immagine.XFine = 6000;
    immagine.YFine = 6000, immagine.NomeFileImmagine = figura;
    return {RecordAzione{}, linea, immagine};
}

// Where the line crosses, in pixels of the canvas.
inline constexpr int SondaX = 300;
inline constexpr int SondaY = 100;

} // namespace PilotaScambio
