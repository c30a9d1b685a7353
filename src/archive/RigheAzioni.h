#pragma once

#include "model/RecordAzione.h"

#include <QList>
#include <QString>

#include <cstdint>

// The rows of a list of actions, of a drawing or of an object: the two tables
// have the same 22 fields and differ only in their archive and code column.
struct TabellaAzioni {
    const QString& Connessione;
    QString Nome;
    QString ColonnaCodice;
};

TabellaAzioni TabellaAzioniDisegno();
TabellaAzioni TabellaAzioniOggetto();

// Reads the list of `codice` in NumAzione order, checking every value. The
// caller's list changes only when the whole list has been read.
void LeggiRigheAzioni(const TabellaAzioni& t, int32_t codice, QList<RecordAzione>& lista,
                      int32_t& numero);

// Adds rows 1..numero of `lista` for `codice`, NumAzione from 1. The caller
// holds the transaction.
void ScriviRigheAzioni(const TabellaAzioni& t, int32_t codice, const QList<RecordAzione>& lista,
                       int32_t numero);
