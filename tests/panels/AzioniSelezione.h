#pragma once

#include "model/RecordAzione.h"
#include "model/Superficie.h"
#include "model/TracciaAzioni.h"
#include "support/SondePixel.h"

#include <QImage>
#include <QList>
#include <QRect>

// Small drawings for the tests of the element panel, and what to look for on
// the surfaces it draws.
namespace AzioniSelezione {

inline constexpr int32_t Grigio = 0xC0C0C0; // BGR, the canvas background
inline constexpr int32_t ColoreNero = 0x000000;
inline constexpr int32_t ColoreRosso = 0x0000FF;
inline constexpr int32_t ColoreVerde = 0x00FF00;
inline constexpr int32_t ColoreBlu = 0xFF0000;
inline constexpr int32_t ColoreGiallo = 0x00FFFF;

inline RecordAzione Linea(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t colore,
                          int32_t spessore) {
    RecordAzione a;
    a.TipoAzione = TipiAzione::Linea;
    a.XInizio = x1;
    a.YInizio = y1;
    a.XFine = x2;
    a.YFine = y2;
    a.ColLinea = colore;
    a.SpessLinea = spessore;
    return a;
}

inline RecordAzione Rettangolo(int32_t x1, int32_t y1, int32_t x2, int32_t y2, int32_t zona,
                               int32_t flag = FlagPieno) {
    RecordAzione a;
    a.TipoAzione = TipiAzione::Rettangolo;
    a.XInizio = x1;
    a.YInizio = y1;
    a.XFine = x2;
    a.YFine = y2;
    a.ColLinea = ColoreNero;
    a.ColZona = zona;
    a.FlagPienoVuoto = flag;
    a.SpessLinea = 2;
    return a;
}

inline RecordAzione Colorazione(float x, float y, int32_t zona, int32_t flag = FlagPieno) {
    RecordAzione a;
    a.TipoAzione = TipiAzione::Colorazione;
    a.XCentro = x;
    a.YCentro = y;
    a.ColLinea = ColoreNero;
    a.ColZona = zona;
    a.FlagPienoVuoto = flag;
    return a;
}

inline RecordAzione Testo(int32_t x1, int32_t y1, int32_t x2, int32_t y2, const QString& testo) {
    RecordAzione a;
    a.TipoAzione = TipiAzione::Testo;
    a.XInizio = x1;
    a.YInizio = y1;
    a.XFine = x2;
    a.YFine = y2;
    a.ColLinea = ColoreRosso;
    a.Testo = testo;
    a.NomeFont = QStringLiteral("Arial");
    a.SizeFont = 12;
    a.Corsivo = 2;
    a.Grassetto = 2;
    a.InterlineaTesto = 18;
    return a;
}

inline RecordAzione Immagine(int32_t x1, int32_t y1, int32_t x2, int32_t y2, const QString& file,
                             int32_t colore) {
    RecordAzione a;
    a.TipoAzione = TipiAzione::Immagine;
    a.XInizio = x1;
    a.YInizio = y1;
    a.XFine = x2;
    a.YFine = y2;
    a.ColLinea = colore;
    a.NomeFileImmagine = file;
    return a;
}

// The drawing in Azioni, and on the canvas as the drawing screen shows it.
inline void Metti(const QList<RecordAzione>& azioni, Superficie& tela) {
    Azioni = QList<RecordAzione>{RecordAzione{}};
    Azioni.append(azioni);
    NumeroAzioni = int32_t(azioni.size());
    tela.ImmagineVuota();
    TracciaLista(tela, Azioni, 1, NumeroAzioni);
}

// The actions of Azioni from 1 to the count.
inline QList<RecordAzione> Elenco() {
    return Azioni.mid(1, NumeroAzioni);
}

inline int32_t Colore(const QImage& img, QPoint p) {
    return SondePixel::Colore(img, p.x(), p.y());
}

// The pixel of a point in twips.
inline QPoint Punto(double x, double y) {
    return {SondePixel::Px(x), SondePixel::Px(y)};
}

// How many pixels of `colore` a row holds from x1 to x2, both included.
inline int InRiga(const QImage& img, int y, int x1, int x2, int32_t colore) {
    int n = 0;
    for (int x = x1; x <= x2; ++x)
        if (SondePixel::Colore(img, x, y) == colore) ++n;
    return n;
}

inline int InColonna(const QImage& img, int x, int y1, int y2, int32_t colore) {
    int n = 0;
    for (int y = y1; y <= y2; ++y)
        if (SondePixel::Colore(img, x, y) == colore) ++n;
    return n;
}

// The box of the pixels that are not background within `raggio` of a point.
inline QRect Macchia(const QImage& img, QPoint centro, int raggio, int32_t sfondo = Grigio) {
    QRect r;
    for (int y = centro.y() - raggio; y <= centro.y() + raggio; ++y)
        for (int x = centro.x() - raggio; x <= centro.x() + raggio; ++x)
            if (SondePixel::Colore(img, x, y) != sfondo) r |= QRect(x, y, 1, 1);
    return r;
}

// Every pixel of a picture that is not background.
inline int Disegnati(const QImage& img, int32_t sfondo = Grigio) {
    int n = 0;
    for (int y = 0; y < img.height(); ++y)
        for (int x = 0; x < img.width(); ++x)
            if (SondePixel::Colore(img, x, y) != sfondo) ++n;
    return n;
}

} // namespace AzioniSelezione
