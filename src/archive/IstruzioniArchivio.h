#pragma once

#include <QList>
#include <QSqlDatabase>
#include <QSqlQuery>
#include <QString>
#include <QVariant>

#include <cstdint>

struct sqlite3_value;

// The statements the program issues on the archives of drawings and objects.
// Every value is bound, never pasted into the text, so a name with an
// apostrophe is stored and found like any other. Each call throws ErroreZanto
// on a fault of the archive.

// A head row: a drawing, an object or a folder.
struct RigaArchivio {
    int32_t Codice = 0;
    QString Nome;
    int32_t Cartella = 0; // the folder that holds it; 0 for a folder itself
};

// The four kinds of code chosen by the lowest free code.
enum class TipoCodice { Disegno, Oggetto, Cartella, CartellaObj };

// The lowest code not in use: 1 in an empty table, a freed code lowest first,
// otherwise one past the last.
int32_t CodiceLiberoMinimo(TipoCodice tipo);

// Working copies: how many there are, and all of them deleted with their actions.
int32_t NumeroCopieLavoro();
void EliminaCopieLavoro();
// The highest working-copy code in the archive, BaseCopieLavoro when there is none.
int32_t UltimaCopiaLavoro();
// At the opening of the drawing screen: removes the head rows of working
// copies that have no action rows, in one transaction, and gives the highest
// code that is left.
int32_t RiprendiCopieLavoro();

// Head rows and folders in code order, and for the lists in name order.
QList<RigaArchivio> DisegniInOrdineDiCodice();
QList<RigaArchivio> OggettiInOrdineDiCodice();
QList<RigaArchivio> CartelleInOrdineDiCodice();
QList<RigaArchivio> CartelleObjInOrdineDiCodice();
QList<RigaArchivio> CartelleInOrdineDiNome();
QList<RigaArchivio> CartelleObjInOrdineDiNome();
// A head row that does not read: what could be told of it (code 0 and an
// empty name where those did not read either).
struct RigaDanneggiata {
    int64_t Codice = 0;
    QString Nome;
};

// The user's drawings of a folder (working copies left out), by name. A row
// that does not read is left out, and told in `danneggiate` when given.
QList<RigaArchivio> DisegniDellaCartella(int32_t codiceCartella,
                                         QList<RigaDanneggiata>* danneggiate = nullptr);
QList<RigaArchivio> OggettiDellaCartella(int32_t codiceCartellaObj,
                                         QList<RigaDanneggiata>* danneggiate = nullptr);

// Is the name taken in that folder? Gives the code of the first row found, 0
// if none. Names compare as the user reads them: case and accents do not count.
int32_t CercaNomeDisegno(const QString& nome, int32_t codiceCartella);
int32_t CercaNomeOggetto(const QString& nome, int32_t codiceCartellaObj);

// The head row of a drawing; error 3021 when there is none.
RigaArchivio TestaDisegno(int32_t codiceDisegno);

// Deletions by one statement on the parent table: the schema carries every
// dependent row with it.
void EliminaDisegno(int32_t codiceDisegno);
void EliminaOggetto(int32_t codiceOggetto);
void EliminaCartella(int32_t codiceCartella);
void EliminaCartellaObj(int32_t codiceCartellaObj);
// The action rows of a drawing, before they are written again.
void EliminaAzioniDisegno(int32_t codiceDisegno);

// Small helpers the readers and writers share.
QSqlQuery Prepara(const QSqlDatabase& db, const QString& sql);
void Esegui(QSqlQuery& q);

// One value of a row, checked as it is read; `campo` names it in the error.
// NULL or a value of another type is error 3021, a value out of its range 6.
int64_t LeggiIntero(const QVariant& valore, const QString& campo, int64_t minimo, int64_t massimo);
int32_t LeggiCodice(const QVariant& valore, const QString& campo); // 1 to INT32_MAX
float LeggiReale(const QVariant& valore, const QString& campo);    // finite, within a float
QString LeggiTesto(const QVariant& valore, const QString& campo);
// The same checks on a value of a row read through SQLite's own interface.
int64_t LeggiIntero(sqlite3_value* valore, const QString& campo, int64_t minimo, int64_t massimo);
float LeggiReale(sqlite3_value* valore, const QString& campo);
QString LeggiTesto(sqlite3_value* valore, const QString& campo);

// One transaction on an archive: rolled back unless confirmed.
class Transazione {
public:
    explicit Transazione(const QSqlDatabase& db);
    ~Transazione();
    Transazione(const Transazione&) = delete;
    Transazione& operator=(const Transazione&) = delete;
    void Conferma();

private:
    QSqlDatabase db_;
    bool aperta_ = false;
};
