#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>

// What the list panel shows and gives back. The fill routines leave the labels
// of the whole list in VociLista (from 1) and their count in NumeroVoci.
inline int16_t TipoLista = 0;    // 1 drawings, 2 drawing folders, 3 objects, 4 object
                                 // folders, 5 pictures, 6 text files, 7 fonts, 8 sizes,
                                 // 9 drawings to import
inline int16_t ModoCartelle = 0; // 2: folders may be made as well as chosen
inline QStringList VociLista{QString()};
inline int16_t NumeroVoci = 0;
inline QString TitoloLista;
inline QString VoceScelta;

// The name written for a new folder.
inline QString NomeNuovaCartella;

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
