#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>

// The kinds of list, by the number the program gives each.
enum class GenereLista : int16_t {
    Nessuna = 0,
    Disegni = 1,     // the drawings of the active folder
    Cartelle = 2,    // the folders of drawings
    Oggetti = 3,     // the objects of the active object folder
    CartelleObj = 4, // the folders of objects
    Immagini = 5,    // the pictures of the files folder
    Testi = 6,       // the text files of the files folder
    Font = 7,        // the screen's fonts
    Dimensioni = 8,  // the sizes of a font
    Scambi = 9,      // the drawings to import
};

// What the list panel shows and gives back: the state of the list in front.
// The fill routines leave the labels of the whole list in VociLista (from 1)
// and their count in NumeroVoci.
struct StatoLista {
    GenereLista TipoLista = GenereLista::Nessuna;
    int16_t ModoCartelle = 0; // 2: folders may be made as well as chosen
    QStringList VociLista{QString()};
    int16_t NumeroVoci = 0;
    QString TitoloLista;
    QString VoceScelta;
    // The name written for a new folder.
    QString NomeNuovaCartella;
    // (1) lets the New button act, (2) the Delete button; (3) is kept and unread.
    int16_t AbilitaTastiLista[4] = {0, 0, 0, 0};
    int16_t PrimaVoceVisibile = 1; // the line of the list on the first row
    int16_t RigaScelta = 0;        // 0, or the row 101..120 picked
    bool operator==(const StatoLista&) const = default;
};
inline StatoLista DatiLista;
// The names the program reads and writes them by.
inline GenereLista& TipoLista = DatiLista.TipoLista;
inline int16_t& ModoCartelle = DatiLista.ModoCartelle;
inline QStringList& VociLista = DatiLista.VociLista;
inline int16_t& NumeroVoci = DatiLista.NumeroVoci;
inline QString& TitoloLista = DatiLista.TitoloLista;
inline QString& VoceScelta = DatiLista.VoceScelta;
inline QString& NomeNuovaCartella = DatiLista.NomeNuovaCartella;
inline int16_t (&AbilitaTastiLista)[4] = DatiLista.AbilitaTastiLista;

// A list can open inside another: the folder list's New opens the keyboard,
// whose 110 opens the list of text files. While one of these lives the list
// in front is kept aside, and it is put back whole when the one inside has
// closed, so that the list below finds itself as it left it. The search that
// found the files of a list of files goes with it: its lines are numbered by
// that search (ElencoFile), and the caller reads the chosen file there.
class ListaTenuta {
public:
    ListaTenuta();
    ~ListaTenuta();
    ListaTenuta(const ListaTenuta&) = delete;
    ListaTenuta& operator=(const ListaTenuta&) = delete;

private:
    StatoLista lista_;
    QString cartellaRicerca_;
    QStringList estensioniRicerca_;
    int16_t ricercaSottocartelle_ = 0;
    QStringList elencoFile_;
    int16_t numeroFile_ = 0;
};

struct EtichettaLetta;

void SvuotaLista();

// Drawings of the active folder, working copies left out, by name; an empty
// folder beeps.
void RiempiListaDisegni();
void RiempiListaCartelle();
// Objects of the active object folder, by name; an empty folder beeps.
void RiempiListaOggetti();
void RiempiListaCartelleObj();
// The pictures and the text files of the files folder, in the order the file
// system gives them; the number of a label is its place in ElencoFile.
void RiempiListaImmagini();
void RiempiListaTesti();
// The drawings that travel (".zanto") of the files folder, the same way.
void RiempiListaScambi();
// The screen's fonts whose name begins with a capital A to Z, sorted.
void RiempiListaFont();
// The twenty sizes 8, 10, ... 46.
void RiempiListaDimensioni();

// A new folder named NomeNuovaCartella, with the lowest free code; a folder of
// drawings also gets its directory. Returns the code, 0 when it failed.
int32_t CreaCartellaDisegni();
int32_t CreaCartellaOggetti();

// Deletes what a line of the list names, by TipoLista: a drawing with its
// actions and its bitmap, a folder with all it holds (and, for drawings, its
// directory), a picture or a text file from the disk. False when nothing was
// there to delete.
bool EliminaVoceLista(const EtichettaLetta& voce);
