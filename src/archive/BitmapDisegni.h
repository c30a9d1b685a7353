#pragma once

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <functional>

// The bitmap of a saved drawing, written so that a kill, a crash or a full
// disk at any instant leaves a bitmap that shows the rows that name it.
//
// Rows and a file cannot be committed together. The rows are the drawing and
// the bitmap is drawn from them, so the rows lead: the new bitmap is written
// whole beside the old one, under the old name plus ".nuovo", and reaches the
// disk with its directory entry; then the rows are committed; only then does
// the new file take the old one's place, by one rename. The old bitmap is
// never deleted first. A ".nuovo" file left behind marks the one drawing
// whose bitmap may not match its rows: RiparaBitmapDisegni, at start, draws
// that bitmap again from the committed rows.

// Where the bitmap of `percorso` is written before it takes its place.
QString PercorsoBitmapNuova(const QString& percorso);

// Writes `dati` whole under PercorsoBitmapNuova(percorso) and down to the
// disk, its directory entry too. Throws ErroreZanto (a full disk is 61); a
// file cut short stays for the caller to judge.
void ScriviBitmapAParte(const QString& percorso, const QByteArray& dati);

// Puts the file written aside in the bitmap's place in one step, down to the
// disk. Throws ErroreZanto; the file written aside then stays.
void SostituisciBitmap(const QString& percorso);

// Run where the archives are opened at start, with the drawings' archive
// open: removes every ".nuovo" file under the drawings' directory and draws
// again, from its committed rows on a fresh canvas, the bitmap of each drawing
// that had one or whose bitmap is missing. Only those are read, so a start
// with nothing to repair costs one listing of each folder's directory. A
// drawing that cannot be drawn goes to the error routine and the rest go on;
// its ".nuovo" file stays, to be tried at the next start. Gives how many
// bitmaps were drawn again.
int32_t RiparaBitmapDisegni();

// Called at the start of each step of RegistraDisegno with the step's mark.
// Empty in the program; tests throw from it to stand for a fault at that
// step, and the crash test's driver tells its parent where it stands.
inline std::function<void(int16_t sezione)> SondaRegistraDisegno;
