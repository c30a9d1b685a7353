#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>

// What a text of a drawing may hold: one measure for every way a text comes
// in (the keyboard, a rich text file, an exchange file) and for what goes out
// (an export), so that the program never makes what it would not take back.
inline constexpr qsizetype MassimoCaratteriTesto = 65535;
inline constexpr int32_t MassimoRigheTesto = 1000;

// The lines of `testo` as the replay cuts it: one for each carriage return,
// and what follows the last one unless it is blanks only. Counted in 32 bits.
int32_t RigheDaTracciare(const QString& testo);

// The lines of a text on the keyboard: one more than its carriage returns.
int32_t RigheSullaTastiera(const QString& testo);

// Whether a text of a drawing, as stored, is within the measure.
bool TestoNeiLimiti(const QString& testo);

// Whether a text on the keyboard is within the measure: the lines it will give
// are never more than the lines it shows.
bool TestoSullaTastieraNeiLimiti(const QString& testo);

// The lines of the message that tells a text is at its measure, after its
// first line.
QStringList AvvisoTestoTroppoLungo(
    const QString& primaRiga = QStringLiteral("ATTENZIONE! Il testo è troppo lungo."));
