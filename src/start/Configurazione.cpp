#include "start/Configurazione.h"

#include "archive/Archivi.h"
#include "input/MotoreScansione.h"
#include "start/MappaErrori.h"

#include <QSqlQuery>
#include <QSqlRecord>
#include <QVariant>

namespace {
int Campo(const QSqlQuery& q, const char* nome) {
    const int i = q.record().indexOf(QString::fromUtf8(nome));
    if (i < 0)
        throw ErroreZanto{3265, QStringLiteral("Campo non trovato: ") + QString::fromUtf8(nome)};
    return q.value(i).toInt();
}
} // namespace

void LeggiConfigurazione() {
    QSqlQuery q(Archivio(ArchivioConfigurazione));
    if (!q.exec(QStringLiteral("SELECT * FROM ConfigurazioniGenerali")))
        throw ErroreSql(q.lastError());
    if (!q.next()) throw ErroreNessunRecord();
    ModalitàFunzionamento = static_cast<int16_t>(Campo(q, "ModalitàFunzionamento"));
    TastoScelta = static_cast<int16_t>(Campo(q, "TastoScelta"));
    TastoScansione = static_cast<int16_t>(Campo(q, "TastoScansione"));
    TipoInversioneScansione = static_cast<int16_t>(Campo(q, "TipoInversioneScansione"));
    TempoLatenzaScansione = Campo(q, "TempoLatenzaScansione");
}

void RegistraConfigurazione() {
    QSqlDatabase db = Archivio(ArchivioConfigurazione);
    QSqlQuery q(db);
    q.prepare(QStringLiteral("UPDATE ConfigurazioniGenerali SET \"ModalitàFunzionamento\" = ?,"
                             " TastoScelta = ?, TastoScansione = ?,"
                             " TempoLatenzaScansione = ?, TipoInversioneScansione = ?"));
    q.addBindValue(ModalitàFunzionamento);
    q.addBindValue(TastoScelta);
    q.addBindValue(TastoScansione);
    q.addBindValue(TempoLatenzaScansione);
    q.addBindValue(TipoInversioneScansione);
    if (!q.exec()) throw ErroreSql(q.lastError());
    if (q.numRowsAffected() < 1) throw ErroreNessunRecord();
    // A new dwell counts on the wait in progress.
    MotoreScansione::LatenzaCambiata();
}
