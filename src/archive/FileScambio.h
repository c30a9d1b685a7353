#pragma once

#include "model/RecordAzione.h"

#include <QByteArray>
#include <QList>
#include <QString>

#include <cstdint>

// A drawing that travels: one small SQLite file ("*.zanto") with its format
// version, its name, its action rows as the archive holds them, and a copy of
// every picture it names.
inline constexpr int VersioneFileScambio = 1;
inline const QString EstensioneScambio = QStringLiteral(".zanto");

struct ImmagineScambio {
    QString Nome; // the path the actions name
    QByteArray Dati;
};

struct ContenutoScambio {
    QString NomeDisegno;
    QList<RecordAzione> Azioni{RecordAzione{}}; // from 1, as Azioni
    int32_t NumeroAzioni = 0;
    QList<ImmagineScambio> Immagini;
};

// A file that cannot be taken in: why, in the user's words. Nothing has been
// written when it is thrown.
struct ScambioRifiutato {
    QString Motivo;
};

// Writes `contenuto` beside `percorso` and renames it into place: a kill
// leaves the old file or the new one, never half of one. Throws ErroreZanto.
void ScriviFileScambio(const QString& percorso, const ContenutoScambio& contenuto);

// The pictures that actions 1..numero of `azioni` name, read from the disk.
// Each travels under its file name alone, never the path where it was found
// (a number is added when two different pictures share a name), and the
// actions are made to name it so. One that is missing, not a regular file,
// too large or no picture is left out, named the same way.
QList<ImmagineScambio> ImmaginiNominate(QList<RecordAzione>& azioni, int32_t numero);

// Whether a drawing can travel: the checks of the reader on its values, its
// texts (LimitiTesto), its pictures (each must decode) and its replay, which
// must draw every action without a fault. Throws ScambioRifiutato with the
// reason in the user's words.
void ControllaDisegnoScambiabile(const ContenutoScambio& contenuto);

// Reads and checks the whole file, without writing anything anywhere: the
// drawing it gives can be stored and replayed (ControllaDisegnoScambiabile).
// A damaged, truncated or hostile file, or one of a newer version, throws
// ScambioRifiutato.
ContenutoScambio LeggiFileScambio(const QString& percorso);

// The file name a picture of a drawing that travels is given in the files
// folder: the last part of its name, made safe, with a picture's extension.
QString NomeImmagineSicuro(const QString& nomeNelFile);

// A drawing's name as long as a line of the lists.
inline constexpr qsizetype LunghezzaNomeDisegno = 40;

// The name a drawing that travels brings, cleaned as the keyboard's names
// are: no controls (NUL among them) or line ends, blanks made one and
// trimmed, at most LunghezzaNomeDisegno characters. Empty when nothing is left.
QString NomeDisegnoPulito(const QString& nome);
