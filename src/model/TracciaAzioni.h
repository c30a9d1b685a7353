#pragma once

#include "model/RecordAzione.h"

#include <QImage>
#include <QList>
#include <QSet>
#include <QString>

#include <cstdint>
#include <functional>

class Superficie;

// What this unit keeps while the program runs: one structure, reset whole.
struct StatoTracciaAzioni {
    // Pictures whose fault has been told in this visit of the drawing screen: a
    // missing picture shows as its frame on every replay, and is told only once.
    // A replay tells in one message all the pictures it finds missing.
    QSet<QString> ImmaginiSegnalate;
    // The stretch of the list to draw, both ends included.
    int16_t PrimaAzioneTraccia = 0;
    int16_t UltimaAzioneTraccia = 0;
    bool operator==(const StatoTracciaAzioni&) const = default;
};
inline StatoTracciaAzioni DatiTracciaAzioni;
// The names the program reads and writes them by.
inline QSet<QString>& ImmaginiSegnalate = DatiTracciaAzioni.ImmaginiSegnalate;
inline int16_t& PrimaAzioneTraccia = DatiTracciaAzioni.PrimaAzioneTraccia;
inline int16_t& UltimaAzioneTraccia = DatiTracciaAzioni.UltimaAzioneTraccia;

// Radius of the marker dot that stands for a fill not run, in twips.
inline constexpr float RaggioTondino = 50;

// Draws actions PrimaAzioneTraccia..UltimaAzioneTraccia of `lista` on the
// surface, for good (AutoRedraw on), and refreshes it. The canvas replays
// Azioni; the panels that show a drawing of their own pass their list. A
// picture that cannot be read is drawn as its frame, and the first time the
// error routine tells why.
void TracciaAzioni(Superficie& superficie, const QList<RecordAzione>& lista = Azioni);

// The whole of Azioni again on an empty picture, from the plain pen and no
// fill, so that nothing an overlay left behind reaches the drawing.
void RitracciaTutto(Superficie& superficie);
// The same on a new background colour: every fill runs again on the region it
// takes on the new ground.
void ApplicaSfondo(Superficie& superficie, int32_t colore);

// The same replay of actions `prima`..`ultima` of `lista`, leaving the shared
// range alone. With `riempimentoPerAzione` each action starts from FillStyle 1,
// so that no fill passes from one action to the next, as the undo panel shows
// its steps.
void TracciaLista(Superficie& superficie, const QList<RecordAzione>& lista, int32_t prima,
                  int32_t ultima, bool riempimentoPerAzione = false);

// How one action of a replay is drawn, given with its index in the list.
using TracciaUnaAzione =
    std::function<void(Superficie& superficie, const RecordAzione& azione, int32_t indice)>;

// The same replay with each action drawn by `traccia`: a panel that shows one
// action picked out among the others changes the pen around the common drawing.
void TracciaLista(Superficie& superficie, const QList<RecordAzione>& lista, int32_t prima,
                  int32_t ultima, const TracciaUnaAzione& traccia);

// The replay of actions 1..`numero` of `lista` as the canvas draws them, with
// no error routine: the fault of any action is thrown, so that a drawing taken
// in from outside is refused before it is stored. Each picture comes from
// `figure`; a null picture is drawn as the frame of a missing one.
void TracciaListaRigorosa(Superficie& superficie, const QList<RecordAzione>& lista, int32_t numero,
                          const std::function<QImage(const QString&)>& figure);

// One action drawn with the surface's current keep state, as replay draws it.
void TracciaAzione(Superficie& superficie, const RecordAzione& azione);
