#include "printing/DisegnoVettoriale.h"

#include "base/MappaErrori.h"
#include "base/Misure.h"
#include "base/Utilita.h"
#include "model/Paint.h"
#include "model/Superficie.h"
#include "model/TracciaAzioni.h"

#include <QFile>
#include <QPageLayout>
#include <QPainter>
#include <QPainterPath>
#include <QPdfWriter>
#include <QRegion>
#include <QSaveFile>
#include <QSvgGenerator>

#include <cmath>
#include <memory>

namespace {

// A device unit of the writers is a twip.
constexpr int TwipsPerPollice = 1440;
// Where the canvas's pixel centres fall in twips.
constexpr double MezzoPixel = TwipsPerPixel / 2.0;

QPointF Punto(double x, double y) {
    return {x + MezzoPixel, y + MezzoPixel};
}

QPen Penna(int32_t colore, int32_t spessore) {
    QPen p(ColoreQt(colore));
    p.setWidthF(double(std::max(spessore, 1)) * TwipsPerPixel);
    p.setCapStyle(Qt::RoundCap);
    p.setJoinStyle(Qt::MiterJoin);
    return p;
}

// The surface's rule: the radius is the longer axis, the aspect is vertical over horizontal.
QRectF Ellisse(const RecordAzione& a) {
    const double aspetto = a.RaggioOriz == 0 ? 1.0 : double(a.RaggioVert) / a.RaggioOriz;
    const double raggio = aspetto <= 1.0 ? a.RaggioOriz : a.RaggioVert;
    const double rx = aspetto <= 1.0 ? raggio : raggio / aspetto;
    const double ry = aspetto <= 1.0 ? raggio * aspetto : raggio;
    const QPointF c = Punto(a.XCentro, a.YCentro);
    return {c.x() - rx, c.y() - ry, 2 * rx, 2 * ry};
}

void Arco(QPainter& p, const RecordAzione& a) {
    const QRectF box = Ellisse(a);
    const QPointF centro = box.center();
    const double gradi = 180.0 / M_PI;
    const double inizio = std::fabs(double(a.RadIniz));
    double fine = std::fabs(double(a.RadFine));
    if (fine <= inizio) fine += 2 * M_PI; // counter-clockwise; equal is a full turn
    // A negative angle also draws the radius to it.
    QPainterPath percorso;
    if (a.RadIniz < 0) {
        percorso.moveTo(centro);
        percorso.arcTo(box, inizio * gradi, 0);
    } else {
        percorso.arcMoveTo(box, inizio * gradi);
    }
    percorso.arcTo(box, inizio * gradi, (fine - inizio) * gradi);
    if (a.RadFine < 0) percorso.lineTo(centro);
    p.setPen(Penna(a.ColLinea, a.SpessLinea));
    p.setBrush(Qt::NoBrush);
    p.drawPath(percorso);
}

void Testo(QPainter& p, const RecordAzione& a) {
    QFont f(a.NomeFont);
    f.setPointSizeF(a.SizeFont > 0 ? a.SizeFont : 1);
    f.setBold(a.Grassetto == 1);
    f.setItalic(a.Corsivo == 1);
    p.setFont(f);
    p.setPen(ColoreQt(a.ColLinea));
    const QFontMetricsF misure(f, p.device());
    // The surface prints each line a line's height below the last, plus the spacing.
    TestoDaDividere = a.Testo;
    DividiTestoInRighe();
    double y = a.YInizio;
    for (int16_t riga = 1; riga <= NumeroRigheTesto; ++riga) {
        if (riga > 1) y += misure.height() + a.InterlineaTesto;
        QString testo = RigheTesto[riga];
        while (testo.endsWith(u'\n') || testo.endsWith(u'\r'))
            testo.chop(1);
        p.drawText(QPointF(a.XInizio, y + misure.ascent()), testo);
    }
}

void Immagine(QPainter& p, const RecordAzione& a) {
    const QRectF box = QRectF(QPointF(a.XInizio, a.YInizio), QPointF(a.XFine, a.YFine));
    QImage figura;
    try {
        figura = Superficie::LoadPicture(a.NomeFileImmagine);
    } catch (const ErroreZanto&) {
        // As on the canvas: a missing picture shows as its frame.
        p.setPen(Penna(a.ColLinea, 1));
        p.setBrush(Qt::NoBrush);
        p.drawRect(box.normalized().translated(MezzoPixel, MezzoPixel));
        return;
    }
    p.drawImage(box.normalized(), figura.mirrored(a.XFine < a.XInizio, a.YFine < a.YInizio));
}

// The spans of one fill as one path of whole pixels, rows of equal span merged.
QPainterPath Zona(const std::vector<TrattoRiempito>& tratti) {
    QRegion regione;
    QList<QRect> righe;
    righe.reserve(qsizetype(tratti.size()));
    for (const TrattoRiempito& t : tratti)
        righe.append(QRect(t.Sinistra, t.Y, t.Destra - t.Sinistra + 1, 1));
    regione.setRects(righe.constData(), int(righe.size()));
    QPainterPath percorso;
    for (const QRect& r : regione)
        percorso.addRect(QRectF(r.x() * TwipsPerPixel, r.y() * TwipsPerPixel,
                                r.width() * TwipsPerPixel, r.height() * TwipsPerPixel));
    return percorso;
}

void Figura(QPainter& p, const RecordAzione& a, const std::vector<TrattoRiempito>& tratti) {
    switch (a.TipoAzione) {
    case TipiAzione::Linea:
        p.setPen(Penna(a.ColLinea, a.SpessLinea));
        p.drawLine(Punto(a.XInizio, a.YInizio), Punto(a.XFine, a.YFine));
        break;
    case TipiAzione::Arco:
        Arco(p, a);
        break;
    case TipiAzione::Rettangolo:
    case TipiAzione::Ellisse: {
        p.setPen(Penna(a.ColLinea, a.SpessLinea));
        p.setBrush(a.FlagPienoVuoto == FlagPieno ? QBrush(ColoreQt(a.ColZona)) : QBrush());
        if (a.TipoAzione == TipiAzione::Rettangolo)
            p.drawRect(QRectF(Punto(a.XInizio, a.YInizio), Punto(a.XFine, a.YFine)).normalized());
        else
            p.drawEllipse(Ellisse(a));
        break;
    }
    case TipiAzione::Colorazione:
        if (a.FlagPienoVuoto == FlagPieno) {
            p.fillPath(Zona(tratti), ColoreQt(a.ColZona));
        } else {
            p.setPen(Penna(a.ColLinea, 1));
            p.setBrush(Qt::NoBrush);
            p.drawEllipse(Punto(a.XCentro, a.YCentro), double(RaggioTondino),
                          double(RaggioTondino));
        }
        break;
    case TipiAzione::Testo:
        Testo(p, a);
        break;
    case TipiAzione::Immagine:
        Immagine(p, a);
        break;
    default:
        break;
    }
}

// Writes through `scrivi` into a file beside `percorso`, then puts it in place.
template <typename F> void ScriviAParte(const QString& percorso, F scrivi) {
    QSaveFile file(percorso);
    if (!file.open(QIODevice::WriteOnly)) throw ErroreFile(file.error(), percorso);
    scrivi(file);
    if (!file.commit()) throw ErroreFile(file.error(), percorso);
}

} // namespace

void DisegnaVettori(QPainter& p, const QList<RecordAzione>& lista, int32_t numero, int32_t sfondo) {
    const QRectF tela(0, 0, LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    p.save();
    p.setClipRect(tela);
    p.fillRect(tela, ColoreQt(sfondo));
    // The canvas's replay runs beside the shapes: only it knows where a fill spreads.
    Superficie replay(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    replay.ImpostaScaleMode(ScalaTwips);
    replay.ImpostaBackColor(sfondo);
    std::vector<TrattoRiempito> tratti;
    const int32_t ultimo = std::min<int32_t>(numero, int32_t(lista.size()) - 1);
    TracciaLista(replay, lista, 1, ultimo, [&](Superficie& s, const RecordAzione& a, int32_t) {
        tratti.clear();
        std::vector<TrattoRiempito>* const prima = std::exchange(TrattiRiempiti, &tratti);
        try {
            TracciaAzione(s, a);
        } catch (...) {
            TrattiRiempiti = prima;
            throw;
        }
        TrattiRiempiti = prima;
        Figura(p, a, tratti);
    });
    p.restore();
}

void EsportaPdf(const QString& percorso, const QString& titolo, const QList<RecordAzione>& lista,
                int32_t numero, int32_t sfondo) {
    ScriviAParte(percorso, [&](QIODevice& file) {
        QPdfWriter pdf(&file);
        pdf.setResolution(TwipsPerPollice);
        pdf.setTitle(titolo);
        pdf.setCreator(QStringLiteral("ZANTO"));
        pdf.setPageLayout(
            QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Landscape, QMarginsF(0, 0, 0, 0)));
        QPainter p;
        if (!p.begin(&pdf)) throw ErroreFile(QFileDevice::WriteError, percorso);
        QFont carattere(QStringLiteral("Times New Roman"));
        carattere.setPointSizeF(11);
        carattere.setBold(true);
        p.setFont(carattere);
        p.setPen(Qt::black);
        p.drawText(QPointF(1200, 400 + QFontMetricsF(carattere, &pdf).ascent()), titolo);
        p.translate(1200, 800);
        DisegnaVettori(p, lista, numero, sfondo);
        if (!p.end()) throw ErroreFile(QFileDevice::WriteError, percorso);
    });
}

void EsportaSvg(const QString& percorso, const QString& titolo, const QList<RecordAzione>& lista,
                int32_t numero, int32_t sfondo) {
    ScriviAParte(percorso, [&](QIODevice& file) {
        QSvgGenerator svg;
        svg.setOutputDevice(&file);
        svg.setResolution(TwipsPerPollice);
        svg.setSize(QSize(LarghezzaQuadroDisegno, AltezzaQuadroDisegno));
        svg.setViewBox(QRect(0, 0, LarghezzaQuadroDisegno, AltezzaQuadroDisegno));
        svg.setTitle(titolo);
        QPainter p;
        if (!p.begin(&svg)) throw ErroreFile(QFileDevice::WriteError, percorso);
        DisegnaVettori(p, lista, numero, sfondo);
        if (!p.end()) throw ErroreFile(QFileDevice::WriteError, percorso);
    });
}
