#include "printing/Stampe.h"

#include "archive/ArchivioAzioni.h"
#include "input/QuadroMessaggi.h"
#include "model/StatoAmbiente.h"
#include "model/Superficie.h"
#include "model/TracciaAzioni.h"
#include "start/Bip.h"
#include "start/GestioneErrori.h"
#include "start/MappaErrori.h"
#include "start/MenuGenerale.h"

#include <QPageLayout>
#include <QPainter>
#include <QPrinter>
#include <QPrinterInfo>

namespace {

constexpr int32_t Bianco = 0xFFFFFF;

// Twips of the page to units of the printer.
double Unita(const QPrinter& stampante, double twips) {
    return twips * stampante.resolution() / 1440.0;
}

// Whatever the page does, the canvas ends on its own ground.
struct SfondoRipristinato {
    Superficie& Quadro;
    bool Attivo;
    ~SfondoRipristinato() {
        if (!Attivo) return;
        try {
            ApplicaSfondo(Quadro, ColoreSfondo);
        } catch (...) {
            // A replay that fails now leaves the next full redraw to do it.
        }
    }
};

} // namespace

QStringList StampantiDiSistema() {
    return ElencoStampanti ? ElencoStampanti() : QPrinterInfo::availablePrinterNames();
}

bool ImpostaStampanteProgramma(const QString& nome) {
    if (nome.isEmpty() || !StampantiDiSistema().contains(nome)) return false;
    StampanteProgramma = nome;
    return true;
}

QString TitoloStampa() {
    return TitoloStampa(NomeDisegnoCorrente);
}

QString TitoloStampa(const QString& nomeDisegno) {
    return QStringLiteral("NOME DISEGNO:  « ") +
           (nomeDisegno.trimmed().isEmpty() ? QStringLiteral("Non Assegnato") : nomeDisegno) +
           QStringLiteral(" »  #   CARTELLA:  « ") + NomeCartellaAttiva + QStringLiteral(" ».");
}

void StampaPagina(QPrinter& stampante, Superficie& quadro, bool sfondoBianco) {
    const bool a3 = FormatoPagina == 2;
    stampante.setPageLayout(QPageLayout(QPageSize(a3 ? QPageSize::A3 : QPageSize::A4),
                                        QPageLayout::Landscape, QMarginsF(0, 0, 0, 0)));
    stampante.setFullPage(true);
    // A drawing is in colour; a printer without colour makes its own greys.
    stampante.setColorMode(QPrinter::Color);
    stampante.setDocName(QStringLiteral("ZANTO - ") + TitoloStampa());

    SfondoRipristinato ripristino{quadro, sfondoBianco};
    if (sfondoBianco) ApplicaSfondo(quadro, Bianco);

    QPainter pagina;
    if (!pagina.begin(&stampante)) throw ErroreStampante(stampante.printerName());
    pagina.setRenderHint(QPainter::SmoothPixmapTransform, false);
    pagina.setRenderHint(QPainter::Antialiasing, false);
    QFont carattere(QStringLiteral("Times New Roman"));
    carattere.setPointSizeF(11);
    carattere.setBold(true);
    carattere.setItalic(false);
    pagina.setFont(carattere);
    pagina.setPen(Qt::black);
    // The title's cell starts at (1200, 400): its top, not its baseline.
    const QFontMetricsF misura(carattere, &stampante);
    pagina.drawText(QPointF(Unita(stampante, 1200), Unita(stampante, 400) + misura.ascent()),
                    TitoloStampa());
    const QRectF tela(Unita(stampante, 1200), Unita(stampante, 800),
                      Unita(stampante, LarghezzaQuadroDisegno),
                      Unita(stampante, AltezzaQuadroDisegno));
    pagina.drawImage(tela, quadro.Immagine());
    if (!pagina.end()) throw ErroreStampante(stampante.printerName());
}

void StampaDisegno(Superficie& quadro) {
    PuntatorePredefinito();
    ParcheggiaMouse();
    if (Messaggio(Righe({QStringLiteral("E' stata richiesta la STAMPA"),
                         QStringLiteral("del Disegno Attivo."),
                         QStringLiteral("Premere «OK» per Stampare o"),
                         QStringLiteral("«Annulla» per abbandonare!")}),
                  2, 1) == 3)
        return;
    const int16_t sfondo =
        Messaggio(Righe({QStringLiteral("Stampare il Colore di Sfondo del Disegno?"),
                         QStringLiteral("Premere «SI» per Stampare o"),
                         QStringLiteral("«NO» per Sfondo Bianco!")}),
                  4, 2);
    if (sfondo == 3) return;
    PuntatoreClessidra();
    EseguiPassi({{5000, [&] {
                      QPrinter stampante(QPrinter::HighResolution);
                      if (!FileStampa.isEmpty()) {
                          stampante.setOutputFormat(QPrinter::PdfFormat);
                          stampante.setOutputFileName(FileStampa);
                      } else if (!StampanteProgramma.isEmpty()) {
                          stampante.setPrinterName(StampanteProgramma);
                      }
                      StampaPagina(stampante, quadro, sfondo == 2);
                  }}});
    PuntatorePredefinito();
}
