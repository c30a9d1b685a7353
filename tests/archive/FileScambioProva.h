#pragma once

// A small drawing that travels, for the tests of the exchange file: a line, a
// filled box, a text and a picture, and the picture's bytes.
#include "archive/FileScambio.h"
#include "model/RecordAzione.h"
#include "support/CostruttoriAzioni.h"

#include <QBuffer>
#include <QImage>

inline ContenutoScambio ScambioDiProva(const QString& figura) {
    ContenutoScambio c;
    c.NomeDisegno = QStringLiteral("L'albero di Zoë");
    const RecordAzione linea = CostruttoriAzioni::Linea(100, 200, 9000, 7000, 0x123456, 4);
    RecordAzione box =
        CostruttoriAzioni::Rettangolo(1000, 1000, 4000, 3000, FlagPieno, 0, 0x00FF00);
    box.XCentro = 1.25f, box.RadFine = -2.5f;
    RecordAzione testo;
    testo.TipoAzione = TipiAzione::Testo;
    testo.XInizio = 500, testo.YInizio = 8000, testo.Testo = QStringLiteral("Ciao\r\nmondo");
    testo.NomeFont = QStringLiteral("Arial"), testo.SizeFont = 14, testo.InterlineaTesto = -3;
    testo.Corsivo = 1, testo.Grassetto = 2;
    RecordAzione immagine;
    immagine.TipoAzione = TipiAzione::Immagine;
    immagine.XInizio = 5000, immagine.YInizio = 5000, immagine.XFine = 7000;
    immagine.YFine = 6500, immagine.NomeFileImmagine = figura;
    c.Azioni << linea << box << testo << immagine;
    c.NumeroAzioni = 4;
    QImage img(8, 6, QImage::Format_RGB32);
    img.fill(QColor(10, 200, 30));
    QByteArray dati;
    QBuffer b(&dati);
    b.open(QIODevice::WriteOnly);
    img.save(&b, "PNG");
    c.Immagini.append({figura, dati});
    return c;
}
