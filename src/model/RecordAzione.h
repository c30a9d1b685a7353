#pragma once

#include "base/Numeri.h"

#include <QList>
#include <QString>

#include <cstdint>

// One action of a drawing or of an object. The archive columns carry the same
// names, in the same order, with the same types.
struct RecordAzione {
    int32_t TipoAzione = 0;
    int32_t XInizio = 0;
    int32_t YInizio = 0;
    int32_t XFine = 0;
    int32_t YFine = 0;
    int32_t ColLinea = 0;
    int32_t ColZona = 0;
    int32_t FlagPienoVuoto = 0;
    int32_t SpessLinea = 0;
    float XCentro = 0;
    float YCentro = 0;
    float RadIniz = 0;
    float RadFine = 0;
    float RaggioVert = 0;
    float RaggioOriz = 0;
    int16_t InterlineaTesto = 0;
    QString Testo;
    QString NomeFont;
    int32_t SizeFont = 0;
    int32_t Corsivo = 0;
    int32_t Grassetto = 0;
    QString NomeFileImmagine;

    bool operator==(const RecordAzione&) const = default;
};

// Codes of TipoAzione.
namespace TipiAzione {
inline constexpr int32_t Linea = 1;
inline constexpr int32_t Arco = 2;
inline constexpr int32_t Rettangolo = 3;
inline constexpr int32_t Ellisse = 4;
inline constexpr int32_t Colorazione = 5;
inline constexpr int32_t Testo = 6;
inline constexpr int32_t Immagine = 7;
inline constexpr int32_t RettangoloSelezione = 8; // lives only while it is placed
} // namespace TipiAzione

// FlagPienoVuoto.
inline constexpr int32_t FlagNonApplicabile = 0;
inline constexpr int32_t FlagVuoto = 1; // outline; for a fill, the marker dot
inline constexpr int32_t FlagPieno = 2; // filled; for a fill, the flood itself

// Drawing codes: user drawings below the base, working copies above it.
inline constexpr int32_t BaseCopieLavoro = 1000000;
inline constexpr int32_t CodiceMassimoDisegnoUtente = 999999;

// One degree in radians, with the program's own truncated pi. Angles reckoned
// with it must stay as the program has always reckoned them.
inline constexpr double Grado = 3.14159265 / 180;

// Canvas size in twips: the proportion of an A-series page.
inline constexpr int32_t LarghezzaQuadroDisegno = 14144;
inline constexpr int32_t AltezzaQuadroDisegno = 10000;

// Starting values of the drawing environment, set each time it opens.
namespace Predefiniti {
inline constexpr int16_t CentroX = LarghezzaQuadroDisegno / 2; // 7072
inline constexpr int16_t CentroY = AltezzaQuadroDisegno / 2;   // 5000
inline constexpr int16_t MezzoLato = 1500;                     // a new line or box: centre -/+ this
inline constexpr int16_t XInizio = CentroX - MezzoLato;
inline constexpr int16_t YInizio = CentroY - MezzoLato;
inline constexpr int16_t XFine = CentroX + MezzoLato;
inline constexpr int16_t YFine = CentroY + MezzoLato;
inline constexpr int16_t Raggio = 2000;
// The angles are held as 16-bit whole numbers: a new arc runs from 0 to 2
// radians, not to 135 degrees. That is the program's look and is kept.
inline const int16_t RadIniz = Intero16(0.0 * Grado);
inline const int16_t RadFine = Intero16(135.0 * Grado); // 2
inline constexpr int32_t ColoreLinea = 0x000000;        // colour 0 of the 16: black
inline constexpr int32_t ColoreZona = 0xFFFFFF;         // colour 15 of the 16: white
inline constexpr int32_t Spessore = 2;
inline constexpr int32_t ColoreSfondo = 0xC0C0C0; // never part of an action
inline const QString NomeFont = QStringLiteral("Times New Roman");
inline constexpr int32_t SizeFont = 12;
inline constexpr int32_t Corsivo = 2;
inline constexpr int32_t Grassetto = 2;
inline constexpr int16_t Interlinea = 18;
} // namespace Predefiniti

// What this unit keeps while the program runs: one structure, reset whole.
struct StatoAzioni {
    // The lists. Element 0 exists and is never used; the count alone says how many
    // elements are valid, whatever the size of the array.
    QList<RecordAzione> Azioni{RecordAzione{}};
    int32_t NumeroAzioni = 0;
    QList<RecordAzione> ElementiAttivi{RecordAzione{}};
    int16_t NumeroElementiAttivi = 0;
    QList<RecordAzione> AzioniUndo{RecordAzione{}};
    int32_t NumeroAzioniUndo = 0;
    QList<RecordAzione> AzioniDaRegistrare{RecordAzione{}};
    int32_t NumeroAzioniDaRegistrare = 0;
    QList<RecordAzione> AzioniOggetto{RecordAzione{}};
    int32_t NumeroAzioniOggetto = 0;
    QList<RecordAzione> AzioniOggettoDaRegistrare{RecordAzione{}};
    int32_t NumeroAzioniOggettoDaRegistrare = 0;
    // The primitive being built or edited, and the index in Azioni it will
    // replace (0 when it is new).
    RecordAzione ElementoInCostruzione;
    int16_t IndiceElementoInModifica = 0;
    // Highest working-copy code in use; the base itself means none exists.
    int32_t CodiceCopiaLavoro = BaseCopieLavoro;
    bool operator==(const StatoAzioni&) const = default;
};
inline StatoAzioni DatiAzioni;
// The names the program reads and writes them by.
inline QList<RecordAzione>& Azioni = DatiAzioni.Azioni;
inline int32_t& NumeroAzioni = DatiAzioni.NumeroAzioni;
inline QList<RecordAzione>& ElementiAttivi = DatiAzioni.ElementiAttivi;
inline int16_t& NumeroElementiAttivi = DatiAzioni.NumeroElementiAttivi;
inline QList<RecordAzione>& AzioniUndo = DatiAzioni.AzioniUndo;
inline int32_t& NumeroAzioniUndo = DatiAzioni.NumeroAzioniUndo;
inline QList<RecordAzione>& AzioniDaRegistrare = DatiAzioni.AzioniDaRegistrare;
inline int32_t& NumeroAzioniDaRegistrare = DatiAzioni.NumeroAzioniDaRegistrare;
inline QList<RecordAzione>& AzioniOggetto = DatiAzioni.AzioniOggetto;
inline int32_t& NumeroAzioniOggetto = DatiAzioni.NumeroAzioniOggetto;
inline QList<RecordAzione>& AzioniOggettoDaRegistrare = DatiAzioni.AzioniOggettoDaRegistrare;
inline int32_t& NumeroAzioniOggettoDaRegistrare = DatiAzioni.NumeroAzioniOggettoDaRegistrare;
inline RecordAzione& ElementoInCostruzione = DatiAzioni.ElementoInCostruzione;
inline int16_t& IndiceElementoInModifica = DatiAzioni.IndiceElementoInModifica;
inline int32_t& CodiceCopiaLavoro = DatiAzioni.CodiceCopiaLavoro;

// Appends ElementoInCostruzione to Azioni, by value. A selection box stays out.
void AggiungiElementoInCostruzione();
// Copies ElementoInCostruzione over the action it edits, if any, and clears the index.
void SostituisciElementoInModifica();
// Appends every element of ElementiAttivi, in order.
void AggiungiElementiAttivi();

// Copies elements 1..numero of one list into another, resized to that number.
void CopiaLista(const QList<RecordAzione>& origine, int32_t numero,
                QList<RecordAzione>& destinazione);
void CopiaAzioniInDaRegistrare();         // Azioni -> AzioniDaRegistrare
void CopiaElementiAttiviInDaRegistrare(); // ElementiAttivi -> AzioniOggettoDaRegistrare
void CopiaAzioniUndoInAzioni();           // AzioniUndo -> Azioni

// At the opening of the environment: no actions, and the array shrunk to match.
void SvuotaAzioni();
// On a new drawing only the count is reset.
void AzzeraNumeroAzioni();
// Every fill of Azioni becomes its marker dot: what it rested on has changed.
void ColorazioniInTondini();
// Every fill of Azioni run again as a fill.
void TondiniInColorazioni();
// Takes action `indice` out of Azioni: those behind it move one place up.
void EliminaAzione(int32_t indice);
// Writes `tenute` (from 1 to `numero`) over the start of Azioni; the count falls
// and the capacity stays, so elements past the count are stale.
void RiscriviInizioAzioni(const QList<RecordAzione>& tenute, int32_t numero);
