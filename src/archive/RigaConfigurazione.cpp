#include "archive/RigaConfigurazione.h"

#include "archive/Archivi.h"
#include "archive/Installatore.h"
#include "archive/IstruzioniArchivio.h"
#include "base/MappaErrori.h"

#include <QSqlQuery>
#include <QSqlRecord>
#include <QVariant>

#include <cmath>

namespace {

// A setting out of its range, NULL or not a whole number would leave the menu
// without a way to drive it: the installer's value stands in for it.
template <typename T>
T Impostazione(const QSqlQuery& q, const char* nome, int32_t minimo, int32_t massimo,
               T predefinito) {
    const int i = q.record().indexOf(QString::fromUtf8(nome));
    if (i < 0)
        throw ErroreZanto{3265, QStringLiteral("Campo non trovato: ") + QString::fromUtf8(nome)};
    const QVariant valore = q.value(i);
    if (valore.isNull()) return predefinito;
    bool numero = false;
    const double v = valore.toDouble(&numero);
    if (!numero || v != std::floor(v) || v < minimo || v > massimo) return predefinito;
    return static_cast<T>(v);
}

} // namespace

void LeggiConfigurazione() {
    QSqlQuery q(Archivio(ArchivioConfigurazione));
    if (!q.exec(QStringLiteral("SELECT * FROM ConfigurazioniGenerali")))
        throw ErroreSql(q.lastError());
    if (!q.next()) {
        if (q.lastError().isValid()) throw ErroreSql(q.lastError());
        throw ErroreNessunRecord();
    }
    namespace I = ImpostazioniIniziali;
    ModalitàFunzionamento =
        Impostazione<int16_t>(q, "ModalitàFunzionamento", 1, 4, I::ModalitàFunzionamento);
    TastoScelta = Impostazione<int16_t>(q, "TastoScelta", 1, 2, I::TastoScelta);
    TastoScansione = Impostazione<int16_t>(q, "TastoScansione", 1, 2, I::TastoScansione);
    TipoInversioneScansione =
        Impostazione<int16_t>(q, "TipoInversioneScansione", 1, 2, I::TipoInversioneScansione);
    TempoLatenzaScansione =
        Impostazione<int32_t>(q, "TempoLatenzaScansione", 500, 5000, I::TempoLatenzaScansione);
    // The ring's options are read as defined where an archive lacks them.
    const auto opzione = [&](const char* nome, int32_t minimo, int32_t massimo) {
        return q.record().indexOf(QString::fromUtf8(nome)) < 0
                   ? minimo
                   : Impostazione<int32_t>(q, nome, minimo, massimo, minimo);
    };
    LarghezzaAnello = int16_t(opzione("LarghezzaAnello", 1, 3));
    AltoContrasto = int16_t(opzione("AltoContrasto", 0, 1));
    TempoAccettazione = opzione("TempoAccettazione", 0, 2000);
    TempoIgnoraDopoScelta = opzione("TempoIgnoraDopoScelta", 0, 2000);
    PrimaAttesa = int16_t(opzione("PrimaAttesa", 1, 3));
    GiriPrimaDelRiposo = int16_t(opzione("GiriPrimaDelRiposo", 0, 20));
    ScansioneParlata = int16_t(opzione("ScansioneParlata", 0, 1));
    AttendiVoce = int16_t(opzione("AttendiVoce", 0, 1));
    RipresaSuccessiva =
        q.record().indexOf(QStringLiteral("RipresaSuccessiva")) < 0
            ? I::RipresaSuccessiva
            : Impostazione<int16_t>(q, "RipresaSuccessiva", 0, 1, I::RipresaSuccessiva);
    // Anything but a name is no choice, and neither is an archive not yet
    // brought up: the system's printer stands.
    const int stampante = q.record().indexOf(QStringLiteral("StampanteScelta"));
    const QVariant nome = stampante < 0 ? QVariant() : q.value(stampante);
    StampanteScelta = nome.typeId() == QMetaType::QString ? nome.toString() : QString();
}

void RegistraConfigurazione() {
    QSqlQuery q = Prepara(Archivio(ArchivioConfigurazione),
                          QStringLiteral("UPDATE ConfigurazioniGenerali SET"
                                         " \"ModalitàFunzionamento\" = ?,"
                                         " TastoScelta = ?, TastoScansione = ?,"
                                         " TempoLatenzaScansione = ?, TipoInversioneScansione = ?,"
                                         " LarghezzaAnello = ?, AltoContrasto = ?,"
                                         " TempoAccettazione = ?, TempoIgnoraDopoScelta = ?,"
                                         " PrimaAttesa = ?, GiriPrimaDelRiposo = ?,"
                                         " ScansioneParlata = ?, AttendiVoce = ?,"
                                         " RipresaSuccessiva = ?"));
    q.addBindValue(ModalitàFunzionamento);
    q.addBindValue(TastoScelta);
    q.addBindValue(TastoScansione);
    q.addBindValue(TempoLatenzaScansione);
    q.addBindValue(TipoInversioneScansione);
    q.addBindValue(LarghezzaAnello);
    q.addBindValue(AltoContrasto);
    q.addBindValue(TempoAccettazione);
    q.addBindValue(TempoIgnoraDopoScelta);
    q.addBindValue(PrimaAttesa);
    q.addBindValue(GiriPrimaDelRiposo);
    q.addBindValue(ScansioneParlata);
    q.addBindValue(AttendiVoce);
    q.addBindValue(RipresaSuccessiva);
    Esegui(q);
    if (q.numRowsAffected() < 1) throw ErroreNessunRecord();
    // A new dwell counts on the wait in progress.
    if (AvvisaLatenzaCambiata != nullptr) AvvisaLatenzaCambiata();
}

void RegistraStampanteScelta() {
    QSqlQuery q = Prepara(Archivio(ArchivioConfigurazione),
                          QStringLiteral("UPDATE ConfigurazioniGenerali SET StampanteScelta = ?"));
    q.addBindValue(StampanteScelta);
    Esegui(q);
    if (q.numRowsAffected() < 1) throw ErroreNessunRecord();
}
