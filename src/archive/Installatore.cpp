#include "archive/Installatore.h"

#include "archive/Archivi.h"
#include "archive/IstruzioniArchivio.h"
#include "archive/Schema.h"
#include "base/IconaSvg.h"
#include "base/MappaErrori.h"
#include "base/Utilita.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QSqlQuery>
#include <QUuid>

namespace {

// Creates one archive file and fills it through `riempi`, in one transaction.
template <typename F> void CreaArchivio(const QString& percorso, F riempi) {
    const QString nome = QStringLiteral("installa-") + QUuid::createUuid().toString();
    {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), nome);
        db.setDatabaseName(percorso);
        if (!db.open()) throw ErroreSql(db.lastError());
        try {
            db.transaction();
            riempi(db);
            if (!db.commit()) throw ErroreSql(db.lastError());
        } catch (...) {
            db.rollback();
            db.close();
            throw;
        }
        db.close();
    }
    QSqlDatabase::removeDatabase(nome);
}

void CreaCartelle(const QString& radice) {
    const QStringList cartelle = {
        NomiArchivi::CartellaProgramma,
        NomiArchivi::CartellaArchivi,
        NomiArchivi::SottocartellaDisegni + '/' + NomiArchivi::CartellaSistemaDisegni,
        NomiArchivi::SottocartellaFile,
    };
    for (const QString& c : cartelle)
        if (!QDir().mkpath(radice + '/' + c)) throw ErroreCartellaAssente(radice + '/' + c);
}

// A new user finds the system folder active and can draw at once.
void ScriviCartellaAttivaIniziale(const QString& radice) {
    const QString percorso = PercorsoCartellaAttiva(radice);
    QSaveFile file(percorso);
    if (!file.open(QIODevice::WriteOnly)) throw ErroreFile(file.error(), percorso);
    file.write(TestoNumero(1).toLatin1());
    if (!file.commit()) throw ErroreFile(file.error(), percorso);
}

// The information text the program shows, as a file its users may rewrite.
void ScriviInformazioni(const QString& radice) {
    RegistraRisorse();
    const QString percorso = PercorsoInformazioni(radice);
    QFile sorgente(RisorsaInformazioni);
    if (!sorgente.open(QIODevice::ReadOnly)) throw ErroreFileAssente(RisorsaInformazioni);
    QSaveFile file(percorso);
    if (!file.open(QIODevice::WriteOnly)) throw ErroreFile(file.error(), percorso);
    file.write(sorgente.readAll());
    if (!file.commit()) throw ErroreFile(file.error(), percorso);
}

void Costruisci(const QString& radice) {
    CreaCartelle(radice);
    ScriviInformazioni(radice);
    CreaArchivio(PercorsoConfigurazione(radice), [](QSqlDatabase& db) {
        CreaSchemaConfigurazione(db);
        QSqlQuery q =
            Prepara(db, QStringLiteral("INSERT INTO ConfigurazioniGenerali"
                                       " (\"ModalitàFunzionamento\", TastoScelta, TastoScansione,"
                                       " TipoInversioneScansione, TempoLatenzaScansione)"
                                       " VALUES (?, ?, ?, ?, ?)"));
        namespace I = ImpostazioniIniziali;
        for (int32_t v : {int32_t{I::ModalitàFunzionamento}, int32_t{I::TastoScelta},
                          int32_t{I::TastoScansione}, int32_t{I::TipoInversioneScansione},
                          I::TempoLatenzaScansione})
            q.addBindValue(v);
        Esegui(q);
    });
    CreaArchivio(PercorsoArchivioDisegni(radice), [](QSqlDatabase& db) {
        CreaSchemaDisegni(db);
        QSqlQuery q = Prepara(
            db,
            QStringLiteral("INSERT INTO TabCartelle (CodiceCartella, NomeCartella) VALUES (1, ?)"));
        q.addBindValue(NomiArchivi::CartellaSistemaDisegni);
        Esegui(q);
    });
    ScriviCartellaAttivaIniziale(radice);
    CreaArchivio(PercorsoArchivioOggetti(radice), [](QSqlDatabase& db) {
        CreaSchemaOggetti(db);
        QSqlQuery q =
            Prepara(db, QStringLiteral("INSERT INTO TabCartelleObj"
                                       " (CodiceCartellaObj, NomeCartellaObj) VALUES (1, ?)"));
        q.addBindValue(NomiArchivi::CartellaSistemaOggetti);
        Esegui(q);
    });
}

} // namespace

QString InstallaDatiZanto(const QString& radice) {
    const QFileInfo info(radice);
    if (info.exists()) {
        if (!info.isDir())
            return QStringLiteral("«%1» esiste già e non è una cartella: nulla è stato cambiato.")
                .arg(QDir::toNativeSeparators(radice));
        if (!QDir(radice).isEmpty(QDir::AllEntries | QDir::NoDotAndDotDot | QDir::Hidden |
                                  QDir::System))
            return QStringLiteral("La cartella dei dati «%1» esiste già: non viene sovrascritta "
                                  "e nulla è stato cambiato.")
                .arg(QDir::toNativeSeparators(radice));
    }
    // Build beside the target and move it in whole, so a failure leaves nothing half made.
    const QString provvisoria =
        radice + QStringLiteral(".installazione-") + QUuid::createUuid().toString(QUuid::Id128);
    try {
        Costruisci(provvisoria);
    } catch (const ErroreZanto& e) {
        QDir(provvisoria).removeRecursively();
        return QStringLiteral("Installazione non riuscita (errore %1): %2")
            .arg(e.Numero)
            .arg(e.Descrizione);
    }
    if (info.exists()) QDir().rmdir(radice);
    if (!QDir().rename(provvisoria, radice)) {
        QDir(provvisoria).removeRecursively();
        return QStringLiteral("Impossibile creare la cartella dei dati «%1».")
            .arg(QDir::toNativeSeparators(radice));
    }
    return {};
}
