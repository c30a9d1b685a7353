#pragma once

#include <QByteArray>
#include <QString>

// Our own reader of rich text files: it gives the plain text of a document and
// nothing else (no fonts, colours or pictures). Lines end with "\r" alone, a tab
// is "\t", a table cell ends with "|" and a table row ends its line.
//
// Anything that is not a well-formed document is error 321, and a file too big
// to be a text for a drawing is error 7: both as ErroreZanto, never a crash.

// The largest file LeggiFileRtf reads.
inline constexpr qint64 DimensioneMassimaRtf = 16 * 1024 * 1024;
// The deepest nesting of groups a document may have.
inline constexpr int ProfonditaMassimaRtf = 1000;

QString TestoDaRtf(const QByteArray& dati);
QString LeggiFileRtf(const QString& percorso);
