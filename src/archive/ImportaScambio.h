#pragma once

#include "archive/FileScambio.h"

#include <QString>

#include <cstdint>

// The file name a picture of a drawing that travels is given in the files
// folder: the last part of its name, made safe, with a picture's extension.
QString NomeImmagineSicuro(const QString& nomeNelFile);

// Where a picture of a drawing that travels lands in the files folder: its own
// file name made safe, never a path outside the folder, and never over a
// different file of the same name (a number is added instead). A file with
// the same bytes is used as it is.
QString PostoImmagineImportata(const QString& cartellaFile, const QString& nomeNelFile,
                               const QByteArray& dati);

// Takes a drawing read from an exchange file into the active folder as a new
// drawing named `nome`: its pictures copied into the files folder and its
// actions made to name them there, its rows in one transaction, its bitmap
// drawn from them. On failure the archive is as before and the pictures this
// call copied are gone; the fault has been through the error routine.
// Returns the new drawing's code, 0 on failure.
int32_t RegistraDisegnoImportato(ContenutoScambio contenuto, const QString& nome);
