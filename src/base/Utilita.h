#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>

// In: the text to cut. Out: its lines, from 1, each keeping its carriage return.
inline QString TestoDaDividere;
inline int16_t NumeroRigheTesto = 0;
inline QStringList RigheTesto{QString()};
void DividiTestoInRighe();

bool FileEsiste(const QString& percorso);
bool CartellaEsiste(const QString& percorso);

// The file search: in, the root, the wanted extensions (".jpg") and whether to
// walk the sub-directories; out, the full paths from 1 and their count.
inline QString CartellaRicerca;
inline QStringList EstensioniRicerca;
inline int16_t RicercaSottocartelle = 0;
inline QStringList ElencoFile{QString()};
inline int16_t NumeroFile = 0;
void RicercaFile();

// A user's text line with runs of blanks made one, line ends dropped, trimmed.
QString PulisciTesto(const QString& testo);

// A number as the program prints it into a file: a blank where a sign would
// stand, the digits, a blank, then the line end.
QString TestoNumero(int32_t valore);

// A name the user wrote, made fit to be one file or directory name: no
// separators, nothing a file system refuses, never "." or "..", bounded in
// length. A name that had to change carries its code, so that two names never
// end in one file; a name that is fit already stays as it is.
QString NomeSicuro(const QString& nome, int64_t codice);

// Names as the user sees them: "Città", "citta" and "CITTÀ" are one name.
QString ChiaveNome(const QString& nome);
bool StessoNome(const QString& a, const QString& b);
