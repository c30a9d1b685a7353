#pragma once

#include "archive/FileScambio.h"

#include <QSet>
#include <QString>

#include <cstdint>

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
