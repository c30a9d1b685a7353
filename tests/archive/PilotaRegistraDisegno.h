#pragma once

#include "model/RecordAzione.h"
#include "support/CostruttoriAzioni.h"

#include <QList>
#include <QString>

#include <cstdint>

// What pilota_registra_disegno saves, so that the test that kills it can tell
// which version a drawing's rows and its bitmap are. Every save has its own
// version number; from it follow the drawing's name, its folder, how many
// actions it has, and the colour that fills its canvas. Every row of a
// version carries the version in ColZona.
namespace PilotaRegistraDisegno {

// Run `giro` of the driver saves versions giro * 10000 + 1, + 2, ...
inline int32_t Versione(int32_t giro, int32_t salvataggio) {
    return giro * 10000 + salvataggio;
}

inline uint32_t Mescola(int32_t versione, uint32_t sale) {
    uint32_t h = uint32_t(versione) * 2654435761u ^ sale;
    h ^= h >> 15;
    h *= 2246822519u;
    return h ^ (h >> 13);
}

// One name is made safe on disk, so its bitmap carries the drawing's code.
inline const QStringList Nomi = {QStringLiteral("Alba"), QStringLiteral("Notte/Giorno"),
                                 QStringLiteral("L'isola d'Elba"), QStringLiteral("Tramonto")};
inline constexpr int32_t SecondaCartella = 2;
inline const QString NomeSecondaCartella = QStringLiteral("Seconda");

inline QString Nome(int32_t versione) {
    return Nomi[qsizetype(Mescola(versione, 1) % uint32_t(Nomi.size()))];
}
inline int32_t Cartella(int32_t versione) {
    return 1 + int32_t(Mescola(versione, 2) % 2);
}
inline int32_t Lunghezza(int32_t versione) {
    return 1 + int32_t(Mescola(versione, 3) % 800);
}
// Never the background: versions stay far below 0xC0C0C0.
inline int32_t Colore(int32_t versione) {
    return versione;
}

// Action 1 fills the whole canvas with the version's colour; the others are
// short lines along the bottom edge, away from the probed pixel.
inline RecordAzione Azione(int32_t versione, int32_t i) {
    if (i == 1)
        return CostruttoriAzioni::Rettangolo(0, 0, LarghezzaQuadroDisegno, AltezzaQuadroDisegno,
                                             FlagPieno, Colore(versione), versione);
    const int32_t x = 14 * (i % 1000);
    RecordAzione a = CostruttoriAzioni::Linea(x, 9500, x + 10, 9600, Colore(versione));
    a.ColZona = versione;
    return a;
}

// The list of a version, 1-based.
inline QList<RecordAzione> Lista(int32_t versione) {
    QList<RecordAzione> lista{RecordAzione{}};
    for (int32_t i = 1; i <= Lunghezza(versione); ++i)
        lista.append(Azione(versione, i));
    return lista;
}

// The pixel the test reads: the middle of the canvas.
inline constexpr int SondaX = 471;
inline constexpr int SondaY = 333;

// Bytes on the driver's standard output: where it stands when it dies.
inline constexpr char Preparazione = 'p';   // the canvas is drawn for the next save
inline constexpr char Salvato = '.';        // RegistraDisegno has returned, all done
inline const QByteArray Fasi = "pabcdefg."; // in the order a save runs them

// The byte for a step of RegistraDisegno, by its mark.
inline char FaseDi(int16_t sezione) {
    switch (sezione) {
    case 4300:
        return 'a'; // transaction
    case 4310:
        return 'b'; // head row
    case 4320:
        return 'c'; // action rows
    case 4330:
        return 'd'; // bitmap written aside
    case 4340:
        return 'e'; // commit
    case 4350:
        return 'f'; // rename into place
    case 4390:
        return 'g'; // done
    default:
        return '?';
    }
}

} // namespace PilotaRegistraDisegno
