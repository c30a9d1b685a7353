#pragma once

#include "app/Avvio.h"
#include "archive/Archivi.h"
#include "archive/Installatore.h"

#include <QTemporaryDir>

#include <cstdio>

// What a benchmark of the archive starts from: a fresh data folder made by the
// installer in `cartella`, and the drawings archive open. False, after saying
// why, when the folder could not be made.
inline bool PreparaDatiBench(const QTemporaryDir& cartella) {
    RadiceDati = cartella.filePath(QStringLiteral("zanto"));
    const QString esito = InstallaDatiZanto(RadiceDati);
    if (!esito.isEmpty()) {
        std::fprintf(stderr, "%s\n", qPrintable(esito));
        return false;
    }
    ApriArchivio(ArchivioDisegni, PercorsoArchivioDisegni());
    return true;
}
