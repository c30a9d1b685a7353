#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>

void DividiTestoInRighe();

bool FileEsiste(const QString& percorso);
bool CartellaEsiste(const QString& percorso);

// What this unit keeps while the program runs: one structure, reset whole.
struct StatoUtilita {
    // In: the text to cut. Out: its lines, from 1, each keeping its carriage return.
    QString TestoDaDividere;
    int16_t NumeroRigheTesto = 0;
    QStringList RigheTesto{QString()};
    // The file search: in, the root, the wanted extensions (".jpg") and whether to
    // walk the sub-directories; out, the full paths from 1 and their count.
    QString CartellaRicerca;
    QStringList EstensioniRicerca;
    int16_t RicercaSottocartelle = 0;
    QStringList ElencoFile{QString()};
    int16_t NumeroFile = 0;
    bool operator==(const StatoUtilita&) const = default;
};
inline StatoUtilita DatiUtilita;
// The names the program reads and writes them by.
inline QString& TestoDaDividere = DatiUtilita.TestoDaDividere;
inline int16_t& NumeroRigheTesto = DatiUtilita.NumeroRigheTesto;
inline QStringList& RigheTesto = DatiUtilita.RigheTesto;
inline QString& CartellaRicerca = DatiUtilita.CartellaRicerca;
inline QStringList& EstensioniRicerca = DatiUtilita.EstensioniRicerca;
inline int16_t& RicercaSottocartelle = DatiUtilita.RicercaSottocartelle;
inline QStringList& ElencoFile = DatiUtilita.ElencoFile;
inline int16_t& NumeroFile = DatiUtilita.NumeroFile;
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
