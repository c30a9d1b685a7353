#pragma once

#include "app/Avvio.h"
#include "archive/Archivi.h"
#include "base/GestioneErrori.h"

#include <QString>

#include <cstdio>
#include <cstdlib>

// What the children of the kill tests do first: any box is a failure of the
// test (said on stderr, and the child stops with 2), and the drawings' archive
// of the data folder XDG_DATA_HOME points at is opened. False when it cannot be.
inline bool AvviaPilota() {
    MostraScatolaPiattaforma = [](IconaScatola, const QString&, const QString& testo) {
        std::fprintf(stderr, "%s\n", qPrintable(QString(testo).replace(QChar(u'\r'), u' ')));
        std::fflush(stderr);
        std::_Exit(2);
    };
    CalcolaRadiceDati();
    try {
        ApriArchivio(ArchivioDisegni, PercorsoArchivioDisegni());
    } catch (const ErroreZanto& e) {
        std::fprintf(stderr, "%d %s\n", e.Numero, qPrintable(e.Descrizione));
        return false;
    }
    return true;
}
