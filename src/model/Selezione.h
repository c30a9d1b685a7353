#pragma once

#include "model/RecordAzione.h"

#include <QList>
#include <QString>

#include <cstdint>

// The selection of an object from the drawing, its removal from Azioni, and
// the changes that the object commands make to ElementiAttivi. Only data
// changes here: the caller shows the messages and draws the overlay.

// The four edges of the selection box as they stood when it was fixed, with
// no reordering: a box turned inside out selects nothing.
struct BordiRettangolo {
    int16_t Sinistra = 0;
    int16_t Alto = 0;
    int16_t Destra = 0;
    int16_t Basso = 0;
    bool operator==(const BordiRettangolo&) const = default;
};

// What this unit keeps while the program runs: one structure, reset whole.
struct StatoSelezione {
    BordiRettangolo RettangoloSelezione;
    // Indices into Azioni of the actions taken by the last selection, 1-based and
    // ascending. They outlive the object: only a new selection replaces them.
    QList<int16_t> ElementiSelezionati{0};
    int16_t NumeroElementiSelezionati = 0;
    bool operator==(const StatoSelezione&) const = default;
};
inline StatoSelezione DatiSelezione;
// The names the program reads and writes them by.
inline BordiRettangolo& RettangoloSelezione = DatiSelezione.RettangoloSelezione;
inline QList<int16_t>& ElementiSelezionati = DatiSelezione.ElementiSelezionati;
inline int16_t& NumeroElementiSelezionati = DatiSelezione.NumeroElementiSelezionati;

// The message the caller shows, with one button, when a selection finds nothing.
inline const QString TestoNessunElementoSelezionato =
    QStringLiteral("ATTENZIONE!\rNessun Elemento del Disegno è stato selezionato!\r"
                   "E' necessario modificare il Rettangolo di Selezione.\r"
                   "Premere «OK» per proseguire!");

// Takes the corners of the selection box into RettangoloSelezione, each
// narrowed to 16 bits (error 6 "Overflow" when it can't be).
void PrendiRettangoloSelezione(const RecordAzione& riquadro);

// Empties both lists and takes every action lying wholly inside
// RettangoloSelezione, edges included: ElementiSelezionati gets its index and
// ElementiAttivi a copy, a fill's copy being a dot. When anything was taken the
// group is measured with arcs as whole ellipses, the reference box and the two
// resize steps are set from it and OggettoAttivo becomes 1; otherwise
// NumeroElementiAttivi is 0 and the caller shows TestoNessunElementoSelezionato.
void SelezionaElementi();

// Measures the group with arcs as whole ellipses and takes that box as the
// reference box a resize stretches against.
void PrendiBoxRiferimento();

// The group in ElementiAttivi becomes the object in the hands: its reference
// box, its two resize steps, and OggettoAttivo 1.
void PrendiRiferimento();

// Takes the actions of ElementiSelezionati out of Azioni, keeping the order of
// the rest and the capacity of the list. Every fill that remains becomes a dot,
// since what it rested on may be gone.
void RimuoviSelezione();

// The four ways of RibaltamentoScelto.
namespace Ribaltamenti {
inline constexpr int16_t AsseDestro = 1;
inline constexpr int16_t AsseSinistro = 2;
inline constexpr int16_t AsseInferiore = 3;
inline constexpr int16_t AsseSuperiore = 4;
} // namespace Ribaltamenti

// Mirrors ElementiAttivi about an edge of its box measured with arcs by their
// true outline (ModoIngombro is left at 2). Any value but 1 to 4 changes
// nothing. The reference box stays; nothing checks that the result stays on the
// canvas.
void RibaltaElementiAttivi(int16_t ribaltamento);

// The last object again, 100 twips right and down, with OggettoAttivo 1.
// Pictures stay where they were.
void RidisegnaUltimoOggetto();

// Puts the globals above back to their starting values.
void AzzeraSelezione();
