#pragma once

#include <QString>

class QPrinter;
class Superficie;

// The printer the user chose on the printer list; empty for the system's own.
inline QString StampanteScelta;
// A PDF file to print into in place of a printer: empty for a printer. The
// tests and the benchmarks print here.
inline QString FileStampa;

// Prints the canvas as it is, one page with the drawing's title line above it,
// after asking whether to print and whether to keep the background colour.
void StampaDisegno(Superficie& quadro);

// The page itself, on a printer set up by the caller: paper and orientation
// from FormatoPagina, the title, then the canvas at 1 to 1 in twips. On white
// the drawing is replayed on a white ground for the page and on its own ground
// again afterwards, whatever happens in between. A printer that cannot start
// or end the page is error 482.
void StampaPagina(QPrinter& stampante, Superficie& quadro, bool sfondoBianco);

// The title line of the printout.
QString TitoloStampa();
