#pragma once

#include "model/RecordAzione.h"

#include <QList>
#include <QString>

#include <cstdint>

class QPainter;

// A drawing as shapes rather than pixels, sharp at any zoom: lines, arcs,
// boxes, ellipses, text and pictures are drawn as they are recorded; a fill
// takes exactly the pixels it took on the canvas, found by replaying the
// drawing beside it. The painter's unit is the twip, its origin the canvas's
// top left corner; the canvas is clipped and painted on `sfondo` first.
void DisegnaVettori(QPainter& pittore, const QList<RecordAzione>& lista, int32_t numero,
                    int32_t sfondo);

// The drawing on one A4 landscape page laid out as the printout: title line,
// then the canvas at (1200, 800) twips. Written aside and renamed into place.
void EsportaPdf(const QString& percorso, const QString& titolo, const QList<RecordAzione>& lista,
                int32_t numero, int32_t sfondo);
// The canvas alone, 943 by 667 pixels of 15 twips. Written aside and renamed.
void EsportaSvg(const QString& percorso, const QString& titolo, const QList<RecordAzione>& lista,
                int32_t numero, int32_t sfondo);
