#pragma once

#include <QString>

// Makes a complete fresh data folder at `radice`: the three archives with their
// schema, the configuration row, the two system folders and the directories.
// Refuses, changing nothing, when `radice` exists and is not empty.
// Returns an empty string on success, otherwise the reason in plain words.
QString InstallaDatiZanto(const QString& radice);
