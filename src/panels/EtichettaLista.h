#pragma once

#include <QString>

#include <cstdint>

// The label of a line of the list panel: at once the text on the button and
// the value handed back to whoever opened the list. Every caller builds and
// reads labels here, so that they all read the same thing.
enum class FormatoEtichetta {
    Elemento, // drawings and objects: padded to 40, " [ 0000 ]"
    Cartella, // folders, pictures, text files: padded to 40, "[ 0000 ]"
    Font,     // the font name, then " [ 0000 ]", no padding
    Numero,   // a font size: the bare number
};

constexpr int LarghezzaNomeEtichetta = 40;

QString ComponiEtichetta(const QString& nome, int64_t numero, FormatoEtichetta formato);

struct EtichettaLetta {
    QString Nome;   // trimmed at both ends
    QString Numero; // the digits as the label shows them; empty without a bracket
    // The number as a value; -1 when the label carries none or it is no number.
    int64_t Valore() const;
};

// Takes a label apart. The number is the whole one between the last "[ " and
// its " ]", so a code beyond four digits and a name holding "[" both read back
// as they were written; a label without a bracket is all name.
EtichettaLetta LeggiEtichetta(const QString& etichetta);
