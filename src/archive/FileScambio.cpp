#include "archive/FileScambio.h"

#include "archive/IstruzioniArchivio.h"
#include "archive/RigheAzioni.h"
#include "archive/Schema.h"
#include "base/FileRegolari.h"
#include "base/MappaErrori.h"
#include "base/Utilita.h"
#include "model/LimitiTesto.h"
#include "model/Superficie.h"
#include "model/TracciaAzioni.h"

#include <QFile>
#include <QFileInfo>
#include <QHash>
#include <QSaveFile>
#include <QSet>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QUuid>

#include <algorithm>
#include <cstdio>
#include <optional>
#include <utility>

namespace {

// Far beyond any real drawing; a larger file is not read at all.
constexpr qint64 MassimoFile = qint64(512) * 1024 * 1024;
constexpr qint64 MassimoImmagine = qint64(64) * 1024 * 1024;
constexpr int MassimoImmagini = 4096;
const QString Programma = QStringLiteral("ZANTO");

// The tables of the file, as written and as the reader demands them word for
// word: a file with views, triggers or tables of its own is not one of ours.
QList<std::pair<QString, QString>> Tabelle() {
    return {
        {QStringLiteral("Formato"),
         QStringLiteral("CREATE TABLE Formato (Versione INTEGER NOT NULL,"
                        " Programma TEXT NOT NULL)")},
        {QStringLiteral("Disegno"),
         QStringLiteral("CREATE TABLE Disegno (NomeDisegno TEXT NOT NULL)")},
        {QStringLiteral("TabAzioniDisegno"),
         QStringLiteral("CREATE TABLE TabAzioniDisegno ("
                        " CodiceDisegno INTEGER NOT NULL, NumAzione SMALLINT NOT NULL, ") +
             ColonneAzione() + QStringLiteral(", PRIMARY KEY (CodiceDisegno, NumAzione))")},
        {QStringLiteral("Immagini"),
         QStringLiteral("CREATE TABLE Immagini (Nome TEXT PRIMARY KEY NOT NULL,"
                        " Dati BLOB NOT NULL)")},
    };
}

// Values no screen of the program makes: a font or a pen far beyond the canvas.
bool ValoriPossibili(const RecordAzione& a) {
    return a.SizeFont >= 0 && a.SizeFont <= 1000 && a.SpessLinea >= 0 && a.SpessLinea <= 1000;
}

const QString Danneggiato = QStringLiteral("Il file è danneggiato o non è un disegno di ZANTO.");

// The name a picture found at `percorso` travels under: its file name, made
// different from the names already given to other paths.
QString NomeInViaggio(const QString& percorso, QHash<QString, QString>& dati,
                      QSet<QString>& usati) {
    const auto dato = dati.constFind(percorso);
    if (dato != dati.constEnd()) return *dato;
    QString nome = percorso;
    nome.replace(QChar(u'\\'), QChar(u'/'));
    nome = nome.section(QChar(u'/'), -1);
    if (nome.isEmpty()) nome = QStringLiteral("immagine");
    const QString base = QFileInfo(nome).completeBaseName();
    const QString suffisso = QFileInfo(nome).suffix();
    for (int numero = 2; usati.contains(nome.toCaseFolded()); ++numero)
        nome = base + u'-' + QString::number(numero) +
               (suffisso.isEmpty() ? QString() : u'.' + suffisso);
    usati.insert(nome.toCaseFolded());
    dati.insert(percorso, nome);
    return nome;
}

// A connection of its own for one file, gone when it goes.
class Connessione {
public:
    Connessione(const QString& percorso, bool soloLettura)
        : nome_(QStringLiteral("scambio-") + QUuid::createUuid().toString()) {
        QSqlDatabase db = QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), nome_);
        db.setDatabaseName(percorso);
        if (soloLettura) db.setConnectOptions(QStringLiteral("QSQLITE_OPEN_READONLY"));
    }
    ~Connessione() {
        {
            QSqlDatabase db = QSqlDatabase::database(nome_, false);
            db.close();
        }
        QSqlDatabase::removeDatabase(nome_);
    }
    Connessione(const Connessione&) = delete;
    Connessione& operator=(const Connessione&) = delete;
    QSqlDatabase Db() const { return QSqlDatabase::database(nome_, false); }
    const QString& Nome() const { return nome_; }

private:
    QString nome_;
};

void Sql(const QSqlDatabase& db, const QString& testo) {
    QSqlQuery q = Prepara(db, testo);
    Esegui(q);
}

[[noreturn]] void Rifiuta(const QString& motivo) {
    throw ScambioRifiutato{motivo};
}

} // namespace

QList<ImmagineScambio> ImmaginiNominate(QList<RecordAzione>& azioni, int32_t numero) {
    QList<ImmagineScambio> immagini;
    QHash<QString, QString> nomi;
    QSet<QString> usati;
    for (int32_t i = 1; i <= numero && i < azioni.size(); ++i) {
        RecordAzione& a = azioni[i];
        if (a.TipoAzione != TipiAzione::Immagine) continue;
        const QString percorso = a.NomeFileImmagine;
        const bool nuovo = !nomi.contains(percorso);
        a.NomeFileImmagine = NomeInViaggio(percorso, nomi, usati);
        if (!nuovo) continue;
        const std::optional<QByteArray> dati = LeggiFileRegolare(percorso, MassimoImmagine);
        if (!dati || !Superficie::FiguraLeggibile(
                         *dati, QFileInfo(NomeImmagineSicuro(a.NomeFileImmagine)).suffix()))
            continue;
        immagini.append({a.NomeFileImmagine, *dati});
    }
    return immagini;
}

void ControllaDisegnoScambiabile(const ContenutoScambio& contenuto) {
    if (contenuto.NumeroAzioni < 1 || contenuto.NumeroAzioni >= contenuto.Azioni.size())
        Rifiuta(Danneggiato);
    for (int32_t i = 1; i <= contenuto.NumeroAzioni; ++i) {
        const RecordAzione& a = contenuto.Azioni.at(i);
        if (!ValoriPossibili(a)) Rifiuta(Danneggiato);
        if (!TestoNeiLimiti(a.Testo))
            Rifiuta(QStringLiteral("Un testo supera %1 caratteri o %2 righe.")
                        .arg(MassimoCaratteriTesto)
                        .arg(MassimoRigheTesto));
    }
    if (contenuto.Immagini.size() > MassimoImmagini)
        Rifiuta(QStringLiteral("Il disegno ha più di %1 immagini.").arg(MassimoImmagini));
    QSet<QString> portate;
    for (const ImmagineScambio& i : contenuto.Immagini) {
        if (i.Dati.size() > MassimoImmagine ||
            !Superficie::FiguraLeggibile(i.Dati, QFileInfo(NomeImmagineSicuro(i.Nome)).suffix()))
            Rifiuta(QStringLiteral("Un'immagine del disegno non può essere letta."));
        portate.insert(i.Nome);
    }
    // The replay the canvas will make, on a canvas of its own: a carried
    // picture stands in as one pixel, since it decodes; one not carried is its
    // frame, as on the canvas.
    QImage punto(1, 1, QImage::Format_RGB32);
    punto.fill(Qt::white);
    Superficie tela(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    tela.ImpostaScaleMode(ScalaTwips);
    try {
        TracciaListaRigorosa(
            tela, contenuto.Azioni, contenuto.NumeroAzioni,
            [&](const QString& nome) { return portate.contains(nome) ? punto : QImage(); });
    } catch (const ErroreZanto&) {
        Rifiuta(QStringLiteral("Il disegno contiene elementi che non si possono disegnare."));
    }
}

void ScriviFileScambio(const QString& percorso, const ContenutoScambio& contenuto) {
    // SQLite writes its own file: it is made whole under a name of its own and
    // renamed over the old one only then.
    const QString aParte = percorso + QStringLiteral(".nuovo");
    QFile::remove(aParte);
    try {
        Connessione c(aParte, false);
        QSqlDatabase db = c.Db();
        if (!db.open()) throw ErroreSql(db.lastError());
        db.transaction();
        for (const auto& [nome, creazione] : Tabelle())
            Sql(db, creazione);
        QSqlQuery formato = Prepara(db, QStringLiteral("INSERT INTO Formato VALUES (?, ?)"));
        formato.addBindValue(VersioneFileScambio);
        formato.addBindValue(Programma);
        Esegui(formato);
        QSqlQuery nome = Prepara(db, QStringLiteral("INSERT INTO Disegno VALUES (?)"));
        nome.addBindValue(contenuto.NomeDisegno);
        Esegui(nome);
        ScriviRigheAzioni(
            {c.Nome(), QStringLiteral("TabAzioniDisegno"), QStringLiteral("CodiceDisegno")}, 1,
            contenuto.Azioni, contenuto.NumeroAzioni);
        for (const ImmagineScambio& i : contenuto.Immagini) {
            QSqlQuery q = Prepara(db, QStringLiteral("INSERT INTO Immagini VALUES (?, ?)"));
            q.addBindValue(i.Nome);
            q.addBindValue(i.Dati);
            Esegui(q);
        }
        if (!db.commit()) throw ErroreSql(db.lastError());
    } catch (...) {
        QFile::remove(aParte);
        throw;
    }
    if (std::rename(QFile::encodeName(aParte).constData(),
                    QFile::encodeName(percorso).constData()) != 0) {
        QFile::remove(aParte);
        throw ErroreFile(QFileDevice::RenameError, percorso);
    }
}

namespace {

// SQLite would take a text file for an empty archive, and a file cut short on
// a page boundary for a smaller one: the header first, whose page size and
// page count must give the file's own size.
void ControllaTestaFile(const QString& percorso, qint64 dimensione) {
    QByteArray testa;
    QFile file(percorso);
    if (FileRegolare(percorso) && file.open(QIODevice::ReadOnly)) testa = file.read(100);
    if (testa.size() < 100 || !testa.startsWith(QByteArrayLiteral("SQLite format 3\0")))
        Rifiuta(Danneggiato);
    const auto byte = [&](int i) { return quint32(quint8(testa.at(i))); };
    quint32 pagina = byte(16) << 8 | byte(17);
    if (pagina == 1) pagina = 65536;
    const quint32 pagine = byte(28) << 24 | byte(29) << 16 | byte(30) << 8 | byte(31);
    if (pagina < 512 || qint64(pagina) * pagine != dimensione) Rifiuta(Danneggiato);
    // A file in WAL mode would make a reader write beside it.
    if (byte(18) != 1 || byte(19) != 1) Rifiuta(Danneggiato);
}

// Exactly our tables, and nothing else but their own indexes.
void ControllaSchema(const QSqlDatabase& db) {
    QSqlQuery schema(db);
    if (!schema.exec(QStringLiteral("SELECT type, name, sql FROM sqlite_master")))
        Rifiuta(Danneggiato);
    const auto attese = Tabelle();
    int trovate = 0;
    while (schema.next()) {
        const QString tipo = schema.value(0).toString();
        const QString nome = schema.value(1).toString();
        if (tipo == QStringLiteral("index") && schema.value(2).isNull() &&
            nome.startsWith(QStringLiteral("sqlite_autoindex_")))
            continue;
        const auto attesa = std::find_if(attese.begin(), attese.end(), [&](const auto& t) {
            return t.first == nome && t.second == schema.value(2).toString();
        });
        if (tipo != QStringLiteral("table") || attesa == attese.end()) Rifiuta(Danneggiato);
        ++trovate;
    }
    if (trovate != attese.size()) Rifiuta(Danneggiato);
}

void ControllaIntegrità(const QSqlDatabase& db) {
    QSqlQuery controllo(db);
    if (!controllo.exec(QStringLiteral("PRAGMA quick_check")) || !controllo.next() ||
        controllo.value(0).toString() != QStringLiteral("ok"))
        Rifiuta(Danneggiato);
    controllo.finish();
}

// One row, written by this program, in a version it reads.
void ControllaFormato(const QSqlDatabase& db) {
    QSqlQuery formato(db);
    if (!formato.exec(QStringLiteral("SELECT Versione, Programma FROM Formato")) || !formato.next())
        Rifiuta(Danneggiato);
    if (LeggiTesto(formato.value(1), QStringLiteral("Programma")) != Programma)
        Rifiuta(Danneggiato);
    const int64_t versione =
        LeggiIntero(formato.value(0), QStringLiteral("Versione"),
                    std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max());
    if (versione > VersioneFileScambio)
        Rifiuta(QStringLiteral("Il disegno è stato salvato da una versione più recente "
                               "di ZANTO."));
    if (versione < 1 || formato.next()) Rifiuta(Danneggiato);
    formato.finish();
}

QString LeggiNomeScambio(const QSqlDatabase& db) {
    QSqlQuery testa(db);
    if (!testa.exec(QStringLiteral("SELECT NomeDisegno FROM Disegno")) || !testa.next())
        Rifiuta(Danneggiato);
    const QString nome =
        NomeDisegnoPulito(LeggiTesto(testa.value(0), QStringLiteral("NomeDisegno")));
    if (testa.next()) Rifiuta(Danneggiato);
    testa.finish();
    return nome;
}

void LeggiImmaginiScambio(const QSqlDatabase& db, QList<ImmagineScambio>& lette) {
    QSqlQuery immagini(db);
    if (!immagini.exec(QStringLiteral("SELECT Nome, length(Dati), Dati FROM Immagini")))
        Rifiuta(Danneggiato);
    while (immagini.next()) {
        if (lette.size() >= MassimoImmagini) Rifiuta(Danneggiato);
        if (immagini.value(1).toLongLong() > MassimoImmagine) Rifiuta(Danneggiato);
        const QVariant dati = immagini.value(2);
        if (dati.typeId() != QMetaType::QByteArray) Rifiuta(Danneggiato);
        lette.append({LeggiTesto(immagini.value(0), QStringLiteral("Nome")), dati.toByteArray()});
    }
    if (immagini.lastError().isValid()) Rifiuta(Danneggiato);
}

} // namespace

ContenutoScambio LeggiFileScambio(const QString& percorso) {
    const QFileInfo info(percorso);
    if (!FileRegolare(percorso) || info.size() == 0) Rifiuta(Danneggiato);
    if (info.size() > MassimoFile) Rifiuta(QStringLiteral("Il file è troppo grande."));
    ControllaTestaFile(percorso, info.size());
    Connessione c(percorso, true);
    QSqlDatabase db = c.Db();
    if (!db.open()) Rifiuta(Danneggiato);
    ContenutoScambio letto;
    try {
        ControllaSchema(db);
        ControllaIntegrità(db);
        ControllaFormato(db);
        letto.NomeDisegno = LeggiNomeScambio(db);
        LeggiRigheAzioni(
            {c.Nome(), QStringLiteral("TabAzioniDisegno"), QStringLiteral("CodiceDisegno")}, 1,
            letto.Azioni, letto.NumeroAzioni);
        if (letto.NumeroAzioni < 1) Rifiuta(Danneggiato);
        LeggiImmaginiScambio(db, letto.Immagini);
    } catch (const ErroreZanto&) {
        // A value of the wrong type or out of its range: the file is not ours.
        Rifiuta(Danneggiato);
    }
    ControllaDisegnoScambiabile(letto);
    return letto;
}

namespace {

// The pictures the program reads; any other name is given one of these.
bool EstensioneNota(const QString& suffisso) {
    static const QStringList note = {QStringLiteral("bmp"), QStringLiteral("jpg"),
                                     QStringLiteral("jpeg"), QStringLiteral("png"),
                                     QStringLiteral("gif")};
    return note.contains(suffisso.toLower());
}

} // namespace

QString NomeImmagineSicuro(const QString& nomeNelFile) {
    // Whatever separators the name holds, only its last part counts.
    QString nome = nomeNelFile;
    nome.replace(QChar(u'\\'), QChar(u'/'));
    nome = nome.section(QChar(u'/'), -1);
    QString base = QFileInfo(nome).completeBaseName();
    QString suffisso = QFileInfo(nome).suffix();
    if (!EstensioneNota(suffisso)) suffisso = QStringLiteral("png");
    base = NomeSicuro(base, 0);
    if (base.startsWith(QChar(u'~')) || base.isEmpty()) base = QStringLiteral("immagine");
    return base + u'.' + suffisso;
}

QString NomeDisegnoPulito(const QString& nome) {
    // What no key of the keyboard writes becomes a blank: controls, NUL among
    // them, marks of format and halves of characters.
    QString pulito = nome;
    for (QChar& c : pulito) {
        const QChar::Category categoria = c.category();
        if (categoria == QChar::Other_Control || categoria == QChar::Other_Format ||
            categoria == QChar::Other_Surrogate || categoria == QChar::Other_NotAssigned ||
            categoria == QChar::Other_PrivateUse || categoria == QChar::Separator_Line ||
            categoria == QChar::Separator_Paragraph || c == QChar(u'\t'))
            c = QChar(u' ');
    }
    return PulisciTesto(PulisciTesto(pulito).left(LunghezzaNomeDisegno));
}
