#pragma once

#include "model/RecordAzione.h"

#include <QImage>
#include <QList>
#include <QRandomGenerator>
#include <QString>
#include <QTemporaryDir>

#include <algorithm>

// A drawing of 5,000 actions of every type, 100 of them fills, the same at
// every run: what the replay benchmarks draw.

inline constexpr int NumeroDiAzioni = 5000;
inline constexpr int OgniQuanteUnaColorazione = 50; // 100 fills in all

// The picture the drawing's picture actions name, written into `cartella`;
// empty when it could not be written.
inline QString FiguraDiProva(const QTemporaryDir& cartella) {
    QImage immagine(64, 48, QImage::Format_RGB32);
    immagine.fill(QColor(30, 120, 200));
    const QString figura = cartella.filePath(QStringLiteral("figura.png"));
    return immagine.save(figura) ? figura : QString();
}

inline QList<RecordAzione> Disegno(const QString& figura) {
    QRandomGenerator caso(2024);
    auto x = [&] { return int32_t(caso.bounded(LarghezzaQuadroDisegno)); };
    auto y = [&] { return int32_t(caso.bounded(AltezzaQuadroDisegno)); };
    const int32_t tipi[] = {TipiAzione::Linea,   TipiAzione::Arco,  TipiAzione::Rettangolo,
                            TipiAzione::Ellisse, TipiAzione::Testo, TipiAzione::Immagine};
    QList<RecordAzione> lista{RecordAzione{}};
    for (int i = 1; i <= NumeroDiAzioni; ++i) {
        RecordAzione a;
        a.ColLinea = int32_t(caso.bounded(0x1000000));
        a.ColZona = int32_t(caso.bounded(0x1000000));
        a.SpessLinea = 1 + int32_t(caso.bounded(4));
        if (i % OgniQuanteUnaColorazione == 0) {
            a.TipoAzione = TipiAzione::Colorazione;
            a.XCentro = float(x());
            a.YCentro = float(y());
            a.FlagPienoVuoto = FlagPieno;
            a.SpessLinea = 0;
            lista.append(a);
            continue;
        }
        a.TipoAzione = tipi[i % 6];
        a.XInizio = x();
        a.YInizio = y();
        a.XFine = std::min(a.XInizio + 200 + int32_t(caso.bounded(2500)), LarghezzaQuadroDisegno);
        a.YFine = std::min(a.YInizio + 200 + int32_t(caso.bounded(2500)), AltezzaQuadroDisegno);
        a.XCentro = float(x());
        a.YCentro = float(y());
        a.RaggioOriz = float(100 + caso.bounded(2000));
        a.RaggioVert = float(100 + caso.bounded(2000));
        a.RadIniz = float(caso.bounded(6.28));
        a.RadFine = float(caso.bounded(6.28));
        a.FlagPienoVuoto = 1 + int32_t(caso.bounded(2));
        a.InterlineaTesto = 18;
        a.Testo =
            i % 12 == 4 ? QStringLiteral("Una casa\rcon il tetto rosso") : QStringLiteral("Sole");
        a.NomeFont = QStringLiteral("Times New Roman");
        a.SizeFont = 10 + int32_t(caso.bounded(20));
        a.Corsivo = 1 + int32_t(caso.bounded(2));
        a.Grassetto = 1 + int32_t(caso.bounded(2));
        a.NomeFileImmagine = figura;
        lista.append(a);
    }
    return lista;
}
