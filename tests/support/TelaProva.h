#pragma once

#include "model/RecordAzione.h"
#include "model/Superficie.h"
#include "support/SondePixel.h"

// A canvas of the drawing screen's size on the grey background, probed in twips.
struct TelaProva {
    Superficie S{LarghezzaQuadroDisegno, AltezzaQuadroDisegno};
    TelaProva() { S.ImpostaBackColor(SondePixel::Sfondo); }
    int32_t Bitmap(double xTwips, double yTwips) const {
        return SondePixel::Colore(S.Immagine(), SondePixel::Px(xTwips), SondePixel::Px(yTwips));
    }
    // The pen an element is drawn with: thin, in `stile`, and no fill.
    void Penna(int16_t stile) {
        S.DrawStyle = stile;
        S.DrawWidth = 1;
        S.FillStyle = 1;
    }
    int32_t Schermo(double xTwips, double yTwips) const {
        return SondePixel::Colore(S.Schermo(), SondePixel::Px(xTwips), SondePixel::Px(yTwips));
    }
};
