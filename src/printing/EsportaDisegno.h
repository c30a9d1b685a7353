#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>

class Superficie;

// The four files of an exported drawing, side by side in the files folder.
struct FileEsportati {
    QString Png;
    QString Pdf;
    QString Svg;
    QString Scambio;
    QStringList Tutti() const { return {Png, Pdf, Svg, Scambio}; }
};

// Where a drawing named `nome` is exported: its name made safe, so that no
// name ever leads outside the files folder.
FileEsportati PercorsiEsportazione(const QString& nome, int32_t codice);
// Whether the names are free; taken by an earlier export of that name (its
// exchange file is there), which may be written over; or taken by some other
// file, a picture of the drawing itself among them, which never is.
enum class StatoEsportazione { Libera, GiaEsportata, Occupata };
StatoEsportazione EsportazioneEsistente(const FileEsportati& file);

// Writes the drawing of Azioni as a PNG of the canvas, a PDF page laid out as
// the printout and an SVG, both drawn as shapes, and an exchange file with its
// pictures. All four are written aside first and put in place together
// (SostituisciInsieme): a failure, or a kill, leaves the earlier files as they
// were or all four new. A drawing the import would refuse throws
// ScambioRifiutato before anything is written; other faults ErroreZanto.
void EsportaDisegno(const FileEsportati& file, const Superficie& tela, const QString& nome);
