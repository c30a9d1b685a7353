#pragma once

#include "app/MenuGenerale.h"
#include "archive/Archivi.h"
#include "archive/CopiaLavoro.h"
#include "model/RecordAzione.h"
#include "support/CostruttoriAzioni.h"
#include "support/SondePixel.h"

#include <QPoint>
#include <QSqlError>
#include <QSqlQuery>
#include <QtTest>

// Working copies as the drawing screen writes them, one filled rectangle more
// in each, for the tests of the history.
namespace CopieUndo {

inline constexpr int32_t Rosso = 0x0000FF; // BGR
inline constexpr int32_t Grigio = 0xC0C0C0;

// Rectangle k (from 1) stands in its own place: four to a row, three rows.
inline RecordAzione Rettangolo(int k) {
    const int32_t x = 600 + ((k - 1) % 4) * 3300;
    const int32_t y = 600 + ((k - 1) / 4) * 3100;
    return CostruttoriAzioni::Rettangolo(x, y, x + 2400, y + 2400, FlagPieno, 0, Rosso, 2);
}

// The pixel in the middle of rectangle k.
inline QPoint Centro(int k) {
    const RecordAzione r = Rettangolo(k);
    return {SondePixel::Px((r.XInizio + r.XFine) / 2.0),
            SondePixel::Px((r.YInizio + r.YFine) / 2.0)};
}

// How many rectangles, from the first, a picture shows filled; the rest must be background.
inline int Riempiti(const QImage& img) {
    int n = 0;
    while (n < 12 && SondePixel::Colore(img, Centro(n + 1).x(), Centro(n + 1).y()) == Rosso)
        ++n;
    for (int k = n + 1; k <= 12; ++k)
        if (SondePixel::Colore(img, Centro(k).x(), Centro(k).y()) != Grigio) return -1;
    return n;
}

// Copies 1..n after the ones there are: copy k holds rectangles 1..k.
inline void ScriviCopie(int n) {
    CodiceCartellaAttiva = 1;
    Azioni = QList<RecordAzione>{RecordAzione{}};
    NumeroAzioni = 0;
    for (int k = 1; k <= n; ++k) {
        ElementoInCostruzione = Rettangolo(k);
        AggiungiElementoInCostruzione();
        QVERIFY(RegistraCopiaLavoro());
    }
}

// A row of a copy changed behind the program's back.
inline void Guasta(int32_t codice, const QString& campo, const QVariant& valore) {
    QSqlQuery q(Archivio(ArchivioDisegni));
    QVERIFY(q.prepare(QStringLiteral("UPDATE TabAzioniDisegno SET ") + campo +
                      QStringLiteral(" = ? WHERE CodiceDisegno = ? AND NumAzione = 1")));
    q.addBindValue(valore);
    q.addBindValue(codice);
    QVERIFY2(q.exec(), qPrintable(q.lastError().text()));
    QCOMPARE(q.numRowsAffected(), 1);
}

} // namespace CopieUndo
