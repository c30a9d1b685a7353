#include "printing/Stampe.h"

#include "archive/ArchivioAzioni.h"
#include "base/Bip.h"
#include "base/CartellaAttiva.h"
#include "base/GestioneErrori.h"
#include "base/MappaErrori.h"
#include "base/Sessione.h"
#include "input/QuadroMessaggi.h"
#include "model/StatoAmbiente.h"
#include "model/Superficie.h"
#include "model/TracciaAzioni.h"
#include "printing/ServizioStampa.h"

#include <QPageLayout>
#include <QPainter>
#include <QPrinter>

#include <algorithm>

namespace {

constexpr int32_t Bianco = 0xFFFFFF;

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

// The printers as the print service last told them.
QStringList Conosciute;

// The canvas as the page shows it: on white, replayed on white and then on its
// own ground again.
QImage ImmagineDaStampare(Superficie& quadro, bool sfondoBianco) {
    SfondoRipristinato ripristino{quadro, sfondoBianco};
    if (sfondoBianco) ApplicaSfondo(quadro, Bianco);
    return quadro.Immagine().copy();
}

// What became of a page sent to a printer, told in the message panel.
void AvvisaEsito(const EsitoStampa& esito) {
    const QString nome = QStringLiteral("« ") + esito.Stampante + QStringLiteral(" »");
    QStringList righe;
    switch (esito.Esito) {
    case EsitoStampa::Accettata:
        righe = {QStringLiteral("La STAMPA del Disegno è stata inviata"),
                 QStringLiteral("alla stampante ") + nome + u'.'};
        break;
    case EsitoStampa::Rifiutata:
        righe = {QStringLiteral("ATTENZIONE!"),
                 QStringLiteral("La stampante ") + nome + QStringLiteral(" non ha accettato"),
                 QStringLiteral("la STAMPA del Disegno:")};
        if (!esito.Motivo.isEmpty()) righe << esito.Motivo;
        break;
    case EsitoStampa::NessunaRisposta:
        righe = {QStringLiteral("ATTENZIONE!"),
                 QStringLiteral("Il servizio di stampa non risponde:"),
                 QStringLiteral("la STAMPA del Disegno non è stata eseguita.")};
        break;
    case EsitoStampa::NessunaStampante:
        righe = {QStringLiteral("ATTENZIONE!"),
                 esito.Stampante.isEmpty()
                     ? QStringLiteral("Nessuna stampante è installata:")
                     : QStringLiteral("La stampante ") + nome + QStringLiteral(" non c'è più:"),
                 QStringLiteral("la STAMPA del Disegno non è stata eseguita.")};
        break;
    }
    righe << QStringLiteral("Premere «OK» per proseguire!");
    Messaggio(Righe(righe), 1, 1);
}

} // namespace

QStringList StampantiDiSistema() {
    return ElencoStampanti ? ElencoStampanti() : Conosciute;
}

void AggiornaStampanti(const std::function<void(bool)>& poi) {
    const auto ricevi = [poi](const RispostaStampanti& risposta) {
        if (risposta.Raggiunto) {
            Conosciute = risposta.Nomi;
            StampanteDiSistema = risposta.Predefinita;
        }
        if (StampanteProgramma.isEmpty()) ImpostaStampanteProgramma(StampanteScelta);
        if (poi) poi(risposta.Raggiunto);
    };
    if (ElencoStampanti) {
        ricevi(RispostaStampanti{true, ElencoStampanti(), StampanteDiSistema});
        return;
    }
    ChiediStampanti(ricevi);
}

QString StampanteInUso() {
    if (!StampanteProgramma.isEmpty()) return StampanteProgramma;
    if (!StampanteDiSistema.isEmpty()) return StampanteDiSistema;
    const QStringList tutte = StampantiDiSistema();
    return tutte.isEmpty() ? QString() : tutte.first();
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

QString TitoloLavoro(const QString& nomeDisegno, const QString& cartella) {
    const auto semplice = [](const QString& testo) {
        QString uscita;
        // Accented letters lose their accents; what has no plain form goes.
        for (const QChar c : testo.normalized(QString::NormalizationForm_KD)) {
            if (c.unicode() >= 0x20 && c.unicode() < 0x7F)
                uscita += c;
            else if (c.isSpace())
                uscita += u' ';
        }
        return uscita.simplified();
    };
    QString nome = semplice(nomeDisegno);
    if (nome.isEmpty()) nome = QStringLiteral("Non Assegnato");
    return QStringLiteral("ZANTO - ") + nome + QStringLiteral(" - Cartella ") + semplice(cartella);
}

PostoPagina PostoSullaPagina(const QRectF& stampabile) {
    const double larghezza = LarghezzaQuadroDisegno;
    const double altezza = AltezzaQuadroDisegno;
    // The title's band, from its top to the canvas.
    constexpr double Fascia = 400;
    if (stampabile.contains(QRectF(1200, 400, larghezza, Fascia + altezza)))
        return {1200, 400, 1200, 800, 1};
    PostoPagina posto;
    posto.Scala = std::max(0.0, std::min({1.0, stampabile.width() / larghezza,
                                          (stampabile.height() - Fascia) / altezza}));
    const double w = larghezza * posto.Scala;
    const double h = altezza * posto.Scala;
    posto.TitoloX =
        std::clamp(1200.0, stampabile.left(), std::max(stampabile.left(), stampabile.right() - w));
    posto.TitoloY = std::clamp(400.0, stampabile.top(),
                               std::max(stampabile.top(), stampabile.bottom() - Fascia - h));
    posto.TelaX = posto.TitoloX;
    posto.TelaY = posto.TitoloY + Fascia;
    return posto;
}

void DisegnaPagina(QPainter& pagina, double puntiPerPollice, const QImage& tela,
                   const QString& titolo, const QRectF& stampabile) {
    const auto unita = [puntiPerPollice](double twips) { return twips * puntiPerPollice / 1440.0; };
    const PostoPagina posto = PostoSullaPagina(stampabile);
    pagina.setRenderHint(QPainter::SmoothPixmapTransform, false);
    pagina.setRenderHint(QPainter::Antialiasing, false);
    QFont carattere(QStringLiteral("Times New Roman"));
    carattere.setPointSizeF(11);
    carattere.setBold(true);
    carattere.setItalic(false);
    pagina.setFont(carattere);
    pagina.setPen(Qt::black);
    // The title's cell starts at its place: its top, not its baseline.
    const QFontMetricsF misura(carattere, pagina.device());
    pagina.drawText(QPointF(unita(posto.TitoloX), unita(posto.TitoloY) + misura.ascent()), titolo);
    pagina.drawImage(QRectF(unita(posto.TelaX), unita(posto.TelaY),
                            unita(LarghezzaQuadroDisegno * posto.Scala),
                            unita(AltezzaQuadroDisegno * posto.Scala)),
                     tela);
}

void StampaPagina(QPrinter& stampante, Superficie& quadro, bool sfondoBianco) {
    // The painter starts at the paper's corner, whatever margins the printer keeps.
    stampante.setFullPage(true);
    // Apart: a printer that refuses one keeps the others.
    stampante.setPageOrientation(QPageLayout::Landscape);
    stampante.setPageSize(QPageSize(FormatoPagina == 2 ? QPageSize::A3 : QPageSize::A4));
    stampante.setPageMargins(QMarginsF(0, 0, 0, 0), QPageLayout::Point);
    // A drawing is in colour; a printer without colour makes its own greys.
    stampante.setColorMode(QPrinter::Color);
    stampante.setDocName(TitoloLavoro(NomeDisegnoCorrente, NomeCartellaAttiva));
    // What the printer took: its paper, turned as it could, less the edges it
    // cannot print. Which side each edge lands on once turned is the
    // printer's, so the widest is kept all round.
    QPageLayout carta = stampante.pageLayout();
    carta.setUnits(QPageLayout::Point);
    const QMarginsF minimi = carta.minimumMargins();
    const double bordo =
        20 * std::max({minimi.left(), minimi.right(), minimi.top(), minimi.bottom()});
    const QRectF foglio(QPointF(0, 0), carta.fullRect().size() * 20);
    const QRectF stampabile = foglio.adjusted(bordo, bordo, -bordo, -bordo);

    const QImage tela = ImmagineDaStampare(quadro, sfondoBianco);
    QPainter pagina;
    if (!pagina.begin(&stampante)) throw ErroreStampante(stampante.printerName());
    DisegnaPagina(pagina, stampante.resolution(), tela, TitoloStampa(), stampabile);
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
    if (FileStampa.isEmpty()) {
        // A printer: the page is made and sent off the screen's thread, and
        // the print service's answer comes back as a message.
        LavoroStampa lavoro;
        const bool pronta =
            EseguiPassi({{5000, [&] { lavoro.Tela = ImmagineDaStampare(quadro, sfondo == 2); }}});
        PuntatorePredefinito();
        if (!pronta) return;
        lavoro.Stampante = StampanteInUso();
        lavoro.A3 = FormatoPagina == 2;
        lavoro.Titolo = TitoloStampa();
        lavoro.TitoloLavoro = TitoloLavoro(NomeDisegnoCorrente, NomeCartellaAttiva);
        InviaStampa(std::move(lavoro), AvvisaEsito);
        return;
    }
    EseguiPassi({{5000, [&] {
                      QPrinter stampante(QPrinter::HighResolution);
                      stampante.setOutputFormat(QPrinter::PdfFormat);
                      stampante.setOutputFileName(FileStampa);
                      StampaPagina(stampante, quadro, sfondo == 2);
                  }}});
    PuntatorePredefinito();
}
