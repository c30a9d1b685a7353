#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

// A name found in the files folder may be a pipe, a device or a link to one:
// opening it as a file would wait for ever. Only a regular file is read.

// Whether `percorso` is a regular file (a link is followed).
bool FileRegolare(const QString& percorso);

// The bytes of the regular file `percorso`, at most `massimo` of them; nothing
// when it is not a regular file, cannot be read or is larger. Never blocks on
// a pipe or a device.
std::optional<QByteArray> LeggiFileRegolare(const QString& percorso, qint64 massimo);
