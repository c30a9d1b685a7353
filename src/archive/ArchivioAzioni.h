#pragma once

#include "model/RecordAzione.h"

#include <QList>
#include <QString>

#include <cstdint>

class Superficie;

// What this unit keeps while the program runs: one structure, reset whole.
struct StatoArchivioAzioni {
    // Inputs and outputs of the readers and writers, set before each call.
    int32_t CodiceDisegnoDaCaricare = 0;
    int32_t CodiceOggettoDaCaricare = 0;
    int32_t CodiceDisegnoDaRegistrare = 0;
    int32_t CodiceOggettoDaRegistrare = 0;
    // The drawing on the canvas: 1 it has a row in TabDisegni, 2 it is new.
    int16_t StatoDisegno = 2;
    // For RegistraDisegno when StatoDisegno is 1: 1 a new row, 0 overwrite the old one.
    int16_t RegistraComeNuovo = 0;
    QString NomeDisegnoCorrente;
    int32_t CodiceDisegnoCorrente = 0;
    QString NomeOggettoDaRegistrare;
    // The active folder of objects.
    int32_t CodiceCartellaObjAttiva = 0;
    QString NomeCartellaObjAttiva;
    bool operator==(const StatoArchivioAzioni&) const = default;
};
inline StatoArchivioAzioni DatiArchivioAzioni;
// The names the program reads and writes them by.
inline int32_t& CodiceDisegnoDaCaricare = DatiArchivioAzioni.CodiceDisegnoDaCaricare;
inline int32_t& CodiceOggettoDaCaricare = DatiArchivioAzioni.CodiceOggettoDaCaricare;
inline int32_t& CodiceDisegnoDaRegistrare = DatiArchivioAzioni.CodiceDisegnoDaRegistrare;
inline int32_t& CodiceOggettoDaRegistrare = DatiArchivioAzioni.CodiceOggettoDaRegistrare;
inline int16_t& StatoDisegno = DatiArchivioAzioni.StatoDisegno;
inline int16_t& RegistraComeNuovo = DatiArchivioAzioni.RegistraComeNuovo;
inline QString& NomeDisegnoCorrente = DatiArchivioAzioni.NomeDisegnoCorrente;
inline int32_t& CodiceDisegnoCorrente = DatiArchivioAzioni.CodiceDisegnoCorrente;
inline QString& NomeOggettoDaRegistrare = DatiArchivioAzioni.NomeOggettoDaRegistrare;
inline int32_t& CodiceCartellaObjAttiva = DatiArchivioAzioni.CodiceCartellaObjAttiva;
inline QString& NomeCartellaObjAttiva = DatiArchivioAzioni.NomeCartellaObjAttiva;

// Readers. They have no error trap of their own: a fault goes to the caller as
// ErroreZanto, an owner without action rows as 3021, and the target list is
// then left as it was. Every row is checked as it is read (see
// IstruzioniArchivio.cpp): a missing value or one of the wrong type is 3021, a
// value out of its field's range or a list past 32767 actions is 6.
void CaricaAzioniDisegno(); // CodiceDisegnoDaCaricare -> AzioniUndo
void CaricaAzioniOggetto(); // CodiceOggettoDaCaricare -> AzioniOggetto
// The same reader for a caller that keeps the list to itself.
void LeggiAzioniDisegno(int32_t codice, QList<RecordAzione>& lista, int32_t& numero);

// Writers. Each runs in one transaction and reports a fault through the error
// routine: on failure the archive is as it was before the call. They return
// whether everything was written. A float that is not finite is refused as
// error 6 before any row goes in.
bool RegistraAzioniDisegno(); // AzioniDaRegistrare as drawing CodiceDisegnoDaRegistrare
bool RegistraAzioniOggetto(); // AzioniOggettoDaRegistrare as object CodiceOggettoDaRegistrare
// A new drawing row coded CodiceDisegnoDaRegistrare, with `nome` in folder
// `codiceCartella`, and AzioniDaRegistrare as its actions: head and rows go
// in together or not at all.
bool RegistraTestaEAzioniDisegno(const QString& nome, int32_t codiceCartella);

// Saves Azioni as the current drawing in the active folder: a new head row or
// the old one, its action rows replaced, and the canvas's bitmap as a BMP file.
// The rows go in one transaction; the bitmap is written aside and takes the
// old one's place only after the commit (see BitmapDisegni.h). A fault goes to
// the error routine with its mark (4300 to 4390): before the commit nothing
// changes, after it the rows stand and the current code, name and state
// follow them. Without `nome`, under NomeDisegnoCorrente.
bool RegistraDisegno(const Superficie& quadro, const QString& nome);
bool RegistraDisegno(const Superficie& quadro);
// Saves ElementiAttivi as a new object in the active folder of objects; an
// object it replaces is deleted in the same transaction, so that its code is
// free for the new one.
bool RegistraOggetto(int32_t codiceDaSostituire = 0);

// Where RegistraDisegno writes the bitmap of a drawing: in its folder's
// directory, under its name made safe (a changed name carries the code).
QString PercorsoBitmapDisegno(const QString& nomeCartella, int32_t codiceCartella,
                              const QString& nomeDisegno, int32_t codiceDisegno);
