#pragma once

#include "start/Configurazione.h"

#include <QString>
#include <QStringList>

#include <functional>

class QPrinter;
class Superficie;

// The printer the program prints on: StampanteScelta when the system has it,
// otherwise the system's own (empty).
inline QString StampanteProgramma;
// The system's printers by name, in the system's order. Tests put their own list here.
inline std::function<QStringList()> ElencoStampanti;
QStringList StampantiDiSistema();
// Makes `nome` the program's printer when the system has one of that exact
// name; otherwise the printer stays as it was. True when found.
bool ImpostaStampanteProgramma(const QString& nome);
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

// The title line of the printout, for the drawing on the canvas or another name.
QString TitoloStampa();
QString TitoloStampa(const QString& nomeDisegno);
