#pragma once

#include "model/RecordAzione.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <array>
#include <cstdint>
#include <functional>

// The one writer of a drawing with its bitmap, shared by the save from the
// canvas and the import of an exchange file: the head row, the action rows and
// the bitmap, the rows in one transaction, the bitmap written aside and put in
// its place only after the commit (see BitmapDisegni.h).

// What a writer that did not commit does with the bitmap it wrote aside.
enum class BitmapNonConfermata {
    // Leaves it once a commit was tried, or when one was there before: whether
    // the rows went in, the start will tell.
    LasciaAllAvvio,
    // Removes it, after the rollback: the drawing was never in the archive.
    Togli,
};

struct ScritturaDisegno {
    QString Nome;
    // A new head row under the lowest free code, or the row of Codice
    // overwritten (its folder, its name) and its action rows replaced.
    bool Nuovo = true;
    int32_t Codice = 0;
    // The marks of the steps: transaction, head row, action rows, bitmap
    // aside, commit, bitmap in place, end.
    std::array<int16_t, 7> Sezioni{};
    // Run in the rows' step with the drawing's code, before they are written.
    std::function<void(int32_t codice)> PrimaDelleRighe;
    const QList<RecordAzione>* Azioni = nullptr;
    const int32_t* NumeroAzioni = nullptr;
    // Draws the bitmap's bytes, in the bitmap's step.
    std::function<QByteArray()> Bitmap;
    // Run in the placing step, before the bitmap takes its place.
    std::function<void()> PrimaDellaBitmap;
    // Called at the start of each step with its mark.
    std::function<void(int16_t sezione)> Sonda;
    BitmapNonConfermata SeNonConferma = BitmapNonConfermata::LasciaAllAvvio;
};

struct EsitoScrittura {
    bool Riuscito = false;   // every step went through
    bool Confermato = false; // the rows are committed
    int32_t Codice = 0;      // the drawing's code once committed
};

// Writes the drawing in the active folder. A fault goes to the error routine
// with the mark of its step; before the commit the archive is as it was.
EsitoScrittura ScriviDisegno(const ScritturaDisegno& scrittura);

// A new head row of TabDisegni.
void InserisciTestaDisegno(int32_t codice, const QString& nome, int32_t codiceCartella);
