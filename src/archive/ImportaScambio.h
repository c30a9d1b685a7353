#pragma once

#include "archive/FileScambio.h"

#include <QSet>
#include <QString>

#include <cstdint>

// The file name a picture of a drawing that travels is given in the files
// folder: the last part of its name, made safe, with a picture's extension.
QString NomeImmagineSicuro(const QString& nomeNelFile);

// A drawing's name as long as a line of the lists.
inline constexpr qsizetype LunghezzaNomeDisegno = 40;

// The name a drawing that travels brings, cleaned as the keyboard's names
// are: no controls (NUL among them) or line ends, blanks made one and
// trimmed, at most LunghezzaNomeDisegno characters. Empty when nothing is left.
QString NomeDisegnoPulito(const QString& nome);

// Where a picture of a drawing that travels lands in the files folder: its own
// file name made safe, never a path outside the folder, never one of `presi`
// and never over a different file of the same name (a number is added
// instead). A file with the same bytes is used as it is.
QString PostoImmagineImportata(const QString& cartellaFile, const QString& nomeNelFile,
                               const QByteArray& dati, const QSet<QString>& presi = {});

// Takes a drawing read from an exchange file into the active folder as a new
// drawing named `nome` (cleaned by NomeDisegnoPulito; an empty one is a
// fault): its pictures copied into the files folder and its actions made to
// name them there, its rows in one transaction, its bitmap drawn from them.
// The pictures are put in place only after the commit. On failure the archive
// and the files folder are as before; the fault has been through the error
// routine.
// Returns the new drawing's code, 0 on failure.
int32_t RegistraDisegnoImportato(ContenutoScambio contenuto, const QString& nome);
