#pragma once

#include "base/Configurazione.h"

#include <QString>
#include <QStringList>

#include <functional>

class QImage;
class QPainter;
class QPrinter;
class QRectF;
class Superficie;

// The system's printers by name, in the system's order. Tests put their own list here.
inline std::function<QStringList()> ElencoStampanti;
// The printers as the print service last told them (or the tests' list).
QStringList StampantiDiSistema();
// Asks the print service for its printers off the screen's thread; when it has
// answered, StampanteDiSistema and the list are new, the chosen printer is
// looked for again and `poi` runs, told whether the service answered.
void AggiornaStampanti(const std::function<void(bool)>& poi = {});
// The printer a page goes to now: the program's, else the system's default,
// else the system's first. Empty while none is known.
QString StampanteInUso();
// Makes `nome` the program's printer when the system has one of that exact
// name; otherwise the printer stays as it was. True when found.
bool ImpostaStampanteProgramma(const QString& nome);
// What this unit keeps while the program runs: one structure, reset whole.
struct StatoStampe {
    // The printer the program prints on: StampanteScelta when the system has it,
    // otherwise the system's own (empty).
    QString StampanteProgramma;
    // A PDF file to print into in place of a printer: empty for a printer. The
    // tests and the benchmarks print here.
    QString FileStampa;
    bool operator==(const StatoStampe&) const = default;
};
inline StatoStampe DatiStampe;
// The names the program reads and writes them by.
inline QString& StampanteProgramma = DatiStampe.StampanteProgramma;
inline QString& FileStampa = DatiStampe.FileStampa;

// Prints the canvas as it is, one page with the drawing's title line above it,
// after asking whether to print and whether to keep the background colour.
void StampaDisegno(Superficie& quadro);

// The page itself, on a printer set up by the caller: paper and orientation
// from FormatoPagina, each set apart so that a printer that refuses one keeps
// the others, then the title and the canvas placed by PostoSullaPagina inside
// what the printer can print. On white the drawing is replayed on a white
// ground for the page and on its own ground again afterwards, whatever happens
// in between. A printer that cannot start or end the page is error 482.
void StampaPagina(QPrinter& stampante, Superficie& quadro, bool sfondoBianco);

// Where the title's top left and the canvas go, in twips of the page, given
// the part of the page the printer can print: (1200, 400) and (1200, 800) at 1
// to 1 when they fit there; otherwise as large as fits, in the same
// proportions, as near that place as the printable part allows.
struct PostoPagina {
    double TitoloX = 0;
    double TitoloY = 0;
    double TelaX = 0;
    double TelaY = 0;
    double Scala = 1;
};
PostoPagina PostoSullaPagina(const QRectF& stampabile);
// The title and the canvas's image drawn by PostoSullaPagina on a page of
// `puntiPerPollice` whose painter starts at the paper's corner.
void DisegnaPagina(QPainter& pagina, double puntiPerPollice, const QImage& tela,
                   const QString& titolo, const QRectF& stampabile);

// The title line of the printout, for the drawing on the canvas or another name.
QString TitoloStampa();
QString TitoloStampa(const QString& nomeDisegno);
// The job's name for the print service and the PDF's title, in plain
// characters: queues and PDF printers garble anything else.
QString TitoloLavoro(const QString& nomeDisegno, const QString& cartella);
