// The text of the surface: the font in use, its measures and the writing.
#include "model/Superficie.h"

#include "base/Misure.h"
#include "model/Rasterizzatore.h"
#include "model/SuperficieComune.h"

#include <QFontMetricsF>
#include <QGlyphRun>
#include <QPainter>
#include <QTextLayout>

#include <algorithm>
#include <cmath>

using namespace Raster;

namespace {

QString SenzaFineRiga(QString testo) {
    testo.remove(QChar(u'\r'));
    testo.remove(QChar(u'\n'));
    return testo;
}

} // namespace

QFont Superficie::FontCorrente() const {
    return CaratteriCorrenti().Font;
}

const Superficie::Caratteri& Superficie::CaratteriCorrenti() const {
    const Caratteri* ultimi = ultimiCaratteri_;
    if (ultimi && ultimi->Nome == FontName && ultimi->Dimensione == FontSize &&
        ultimi->Grassetto == FontBold && ultimi->Corsivo == FontItalic)
        return *ultimi;
    // A replay goes back and forth between the fonts of its texts.
    QString chiave = FontName;
    chiave += QChar(u'\x1f') + QString::number(double(FontSize), 'g', 9) +
              QChar(FontBold ? u'B' : u'-') + QChar(FontItalic ? u'I' : u'-');
    auto trovati = caratteri_.find(chiave);
    if (trovati == caratteri_.end()) {
        if (caratteri_.size() >= 256) caratteri_.clear();
        Caratteri c;
        c.Nome = FontName;
        c.Dimensione = FontSize;
        c.Grassetto = FontBold;
        c.Corsivo = FontItalic;
        c.Font = QFont(FontName);
        c.Font.setPointSizeF(FontSize > 0 ? FontSize : 1.0);
        c.Font.setBold(FontBold);
        c.Font.setItalic(FontItalic);
        c.Font.setStyleStrategy(QFont::NoAntialias);
        // The bitmap gives the metrics its 96 dots per inch; the painter is not
        // needed for that and may stay open.
        c.Metriche.emplace(c.Font, &bitmap_);
        c.Chiave = chiave + QChar(u'\x1e');
        c.Ascesa = c.Metriche->ascent();
        c.AltezzaRiga = c.Metriche->height();
        trovati = caratteri_.emplace(chiave, std::move(c)).first;
    }
    ultimiCaratteri_ = &trovati->second;
    return trovati->second;
}

const Superficie::Scritta& Superficie::ScrittaDi(const QString& riga) const {
    const Caratteri& c = CaratteriCorrenti();
    const QString chiave = c.Chiave + riga;
    auto trovata = scritte_.constFind(chiave);
    if (trovata != scritte_.constEnd()) return *trovata;
    // Bounded: a long session prints many different words.
    if (scritte_.size() >= 4096) scritte_.clear();
    QTextLayout impaginato(riga, c.Font, &bitmap_);
    impaginato.beginLayout();
    QTextLine linea = impaginato.createLine();
    impaginato.endLayout();
    Scritta scritta;
    const QList<QGlyphRun> pezzi = linea.isValid() ? impaginato.glyphRuns() : QList<QGlyphRun>();
    QRectF ingombro;
    for (const QGlyphRun& pezzo : pezzi)
        ingombro |= pezzo.boundingRect();
    if (!pezzi.isEmpty() && ingombro.isValid()) {
        // Printed once on a scratch layer with the baseline's start on a whole
        // pixel, as Print puts it: glyphs moved by whole pixels keep their pixels.
        const int margine = 4 + static_cast<int>(std::ceil(c.AltezzaRiga));
        const int ox = margine - static_cast<int>(std::floor(ingombro.left()));
        const int oy = margine - static_cast<int>(std::floor(ingombro.top() - linea.ascent()));
        QImage prova(static_cast<int>(std::ceil(ingombro.width())) + 2 * margine + 2,
                     static_cast<int>(std::ceil(ingombro.height())) + 2 * margine + 2,
                     QImage::Format_RGB32);
        prova.setDotsPerMeterX(PuntiPerMetro);
        prova.setDotsPerMeterY(PuntiPerMetro);
        prova.fill(Qt::black);
        {
            QPainter p(&prova);
            PreparaPittore(p);
            p.setPen(Qt::white);
            for (const QGlyphRun& pezzo : pezzi)
                p.drawGlyphRun(QPointF(ox, oy - linea.ascent()), pezzo);
        }
        const QRgb inchiostro = qRgb(255, 255, 255);
        for (int y = 0; y < prova.height(); ++y) {
            const QRgb* punti = reinterpret_cast<const QRgb*>(prova.constScanLine(y));
            for (int x = 0; x < prova.width(); ++x) {
                if (punti[x] != inchiostro) continue;
                int fino = x + 1;
                while (fino < prova.width() && punti[fino] == inchiostro)
                    ++fino;
                scritta.Pezzi.push_back({y - oy, x - ox, fino - ox});
                x = fino;
            }
        }
    }
    return *scritte_.insert(chiave, std::move(scritta));
}

void Superficie::Print(const QString& testo) {
    QString riga = SenzaFineRiga(testo);
    const Caratteri& c = CaratteriCorrenti();
    const int px = PuntoPixelX(CurrentX);
    if (px >= bitmap_.width()) riga.clear();
    // Of a long line only what can reach the bitmap is printed: the rest would
    // cost time in proportion to its length and show nothing.
    if (riga.size() > 256) {
        double avanzo = px;
        qsizetype fino = 0;
        while (fino < riga.size() && avanzo <= bitmap_.width())
            avanzo += c.Metriche->horizontalAdvance(riga[fino++]);
        riga.truncate(std::min(riga.size(), fino + 4));
    }
    if (!riga.isEmpty()) {
        const int base = PuntoPixelY(CurrentY) + static_cast<int>(std::round(c.Ascesa));
        const Scritta& scritta = ScrittaDi(riga);
        const Tela tela(StratoDiretto(), ColoreQt(ForeColor), false);
        for (const Timbro::Pezzo& pezzo : scritta.Pezzi)
            tela.Tratto(base + pezzo.Y, px + pezzo.Da - 1, px + pezzo.Fino - 1);
    }
    CurrentY += TextHeight(riga);
    CurrentX = sinistra_;
    if (!AutoRedraw) Avvisa();
}

float Superficie::TextWidth(const QString& testo) const {
    const QFontMetricsF& m = *CaratteriCorrenti().Metriche;
    double massimo = 0;
    for (const QString& riga :
         QString(testo).replace(QStringLiteral("\r\n"), QStringLiteral("\r")).split(QChar(u'\r')))
        massimo = std::max(massimo, m.horizontalAdvance(SenzaFineRiga(riga)));
    return float(massimo * larghezza_ / bitmap_.width());
}

float Superficie::TextHeight(const QString& testo) const {
    // Counting the line breaks gives the lines that a split would.
    qsizetype righe = 1;
    for (qsizetype i = 0; i < testo.size(); ++i) {
        if (testo[i] == u'\r') {
            ++righe;
            if (i + 1 < testo.size() && testo[i + 1] == u'\n') ++i;
        }
    }
    const bool finisceACapo = testo.endsWith(u'\r') || testo.endsWith(QStringLiteral("\r\n"));
    if (righe > 1 && finisceACapo) --righe;
    const double altezzaRiga = std::ceil(CaratteriCorrenti().AltezzaRiga);
    return float(altezzaRiga * double(righe) * altezza_ / bitmap_.height());
}
