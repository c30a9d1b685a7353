#pragma once

#include "model/RecordAzione.h"
#include "model/Superficie.h"
#include "model/TracciaAzioni.h"
#include "support/CostruttoriAzioni.h"
#include "support/SondePixel.h"

#include <QImage>
#include <QList>
#include <QRect>

// Small drawings for the tests of the element panel, and what to look for on
// the surfaces it draws.
namespace AzioniSelezione {

inline constexpr int32_t Grigio = 0xC0C0C0; // BGR, the canvas background
inline constexpr int32_t ColoreNero = 0x000000;
inline constexpr int32_t ColoreRosso = 0x0000FF;
inline constexpr int32_t ColoreVerde = 0x00FF00;
inline constexpr int32_t ColoreBlu = 0xFF0000;
inline constexpr int32_t ColoreGiallo = 0x00FFFF;

using CostruttoriAzioni::Colorazione;
using CostruttoriAzioni::Linea;

// A box drawn in black, two pixels wide.
inline RecordAzione Rettangolo(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t zona,
                               int32_t flag = FlagPieno) {
    return CostruttoriAzioni::Rettangolo(x1, y1, x2, y2, flag, ColoreNero, zona, 2);
}

inline RecordAzione Testo(int32_t x1, int32_t y1, int32_t x2, int32_t y2, const QString& testo) {
    return CostruttoriAzioni::Testo(x1, y1, x2, y2, testo, ColoreRosso, 12, 18);
}

using CostruttoriAzioni::Immagine;

// The drawing in Azioni, and on the canvas as the drawing screen shows it.
inline void Metti(const QList<RecordAzione>& azioni, Superficie& tela) {
    CostruttoriAzioni::MettiAzioni(azioni);
    tela.ImmagineVuota();
    TracciaLista(tela, Azioni, 1, NumeroAzioni);
}

// The actions of Azioni from 1 to the count.
inline QList<RecordAzione> Elenco() {
    return Azioni.mid(1, NumeroAzioni);
}

using SondePixel::Colore;
using SondePixel::Disegnati;
using SondePixel::InColonna;
using SondePixel::InRiga;
using SondePixel::Macchia;
using SondePixel::Punto;

} // namespace AzioniSelezione
