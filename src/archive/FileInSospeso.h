#pragma once

#include <QString>
#include <QStringList>

// Files of the files folder that are written aside first and put in place
// only when a decision has been taken: the four files of an export (all or
// none) and the pictures of an import (with the drawing's commit). What a
// killed program left aside is finished or removed at the next start.

// Where the new version of `percorso` is written before it is put in place.
QString FileAParte(const QString& percorso);

// The note that names a set of files being put in place, beside its first
// file; while it is there, the set is to be finished.
QString NotaInsieme(const QStringList& percorsi);

// Puts FileAParte(p) in place of each p, all or none. Each old file is first
// kept under a second name and a note naming the set is written: from then on
// a start that finds the note finishes the set. A fault undoes what was put in
// place and throws ErroreZanto; the files aside are gone either way.
void SostituisciInsieme(const QStringList& percorsi);

// At start, in the files folder: a set whose note is there is put in place; a
// picture whose import was committed (a drawing names it, and it is not
// there) is put in place; every other file left aside is removed. Faults are
// passed over: what cannot be cleaned now stays for the next start.
void CompletaFileInSospeso();
