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
// leaves the old file or the new one, never half of one. Pictures that cannot
// be read are left out. Throws ErroreZanto.
void ScriviFileScambio(const QString& percorso, const ContenutoScambio& contenuto);

// The pictures that actions 1..numero name, read from the disk; one that is
// missing is left out.
QList<ImmagineScambio> ImmaginiNominate(const QList<RecordAzione>& azioni, int32_t numero);

// Reads and checks the whole file, without writing anything anywhere. A
// damaged, truncated or hostile file, or one of a newer version, throws
// ScambioRifiutato.
ContenutoScambio LeggiFileScambio(const QString& percorso);
