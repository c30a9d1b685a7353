#pragma once

#include "model/RecordAzione.h"

#include <QString>
#include <QStringList>

#include <cstdint>

// The state of the drawing screen that its commands, the movement engine, the
// overlay and the panels share. Every opening of the screen sets it afresh.

// What this unit keeps while the program runs: one structure, reset whole.
struct StatoAmbiente {
    // What is open: the marked button of the element, the edit command, the object.
    int16_t PrimitivaAttiva = 0;
    int16_t ComandoModifica = 0;
    int16_t OggettoAttivo = 0;
    int16_t ElementoRiaperto = 0;
    int16_t CopiaOSposta = 1;        // 1 copy, 2 move
    int16_t RiempimentoCorrente = 1; // 1 empty shapes, 2 full shapes
    // Movement: the key handed to the engine and the walk of the direction panel.
    int16_t MovimentoAttivo = 0;
    int16_t DirezioneScelta = 0; // 1 left, 2 right, 3 up, 4 down, 5 end; kept between openings
    int16_t TastoMovimento = 0;
    int16_t BloccoBordo = 0;
    RecordAzione RecordLavoro;
    // The paper of a printout: 1 A4, 2 A3.
    int16_t FormatoPagina = 1;
    // Steps of the movement.
    int16_t IndicePasso = 2;
    int32_t PassoSpostamento = 50;
    float FattoreRidimensione = 0.025f;
    float PassoAngolo = 0.02f;
    // Pen, fill, font and background of the next element.
    int16_t IndiceSpessore = 2;
    int32_t SpessoreCorrente = Predefiniti::Spessore;
    int32_t ColoreLineaCorrente = Predefiniti::ColoreLinea;
    int32_t ColoreZonaCorrente = Predefiniti::ColoreZona;
    int32_t ColoreSfondo = Predefiniti::ColoreSfondo;
    QString FontCorrente = Predefiniti::NomeFont;
    int32_t DimensioneFontCorrente = Predefiniti::SizeFont;
    int32_t GrassettoCorrente = Predefiniti::Grassetto;
    int32_t CorsivoCorrente = Predefiniti::Corsivo;
    int16_t InterlineaCorrente = Predefiniti::Interlinea;
    // The lines of the text being placed, as the text panel gives them back
    // (1-based, every line but the last ends with its CR), and the element of the
    // active object whose text gets its frame (0 none).
    QStringList RigheScritte{QString()};
    int16_t NumeroRigheScritte = 0;
    int16_t AzioneScelta = 0;
    // Where the next fill's crosshair starts: the centre, then the last fixed fill.
    float MirinoX = Predefiniti::CentroX;
    float MirinoY = Predefiniti::CentroY;
    // The object: reference box taken at selection, its current measure, the steps of a resize.
    int16_t ModoIngombro = 1;
    int32_t RiferimentoXMin = 0, RiferimentoYMin = 0, RiferimentoXMax = 0, RiferimentoYMax = 0;
    int32_t IngombroXMin = 0, IngombroYMin = 0, IngombroXMax = 0, IngombroYMax = 0;
    int32_t MezzaLarghezzaIngombro = 0, MezzaAltezzaIngombro = 0;
    int32_t PassoRidimensioneX = 0, PassoRidimensioneY = 0;
    bool operator==(const StatoAmbiente&) const = default;
};
inline StatoAmbiente DatiAmbiente;
// The names the program reads and writes them by.
inline int16_t& PrimitivaAttiva = DatiAmbiente.PrimitivaAttiva;
inline int16_t& ComandoModifica = DatiAmbiente.ComandoModifica;
inline int16_t& OggettoAttivo = DatiAmbiente.OggettoAttivo;
inline int16_t& ElementoRiaperto = DatiAmbiente.ElementoRiaperto;
inline int16_t& CopiaOSposta = DatiAmbiente.CopiaOSposta;
inline int16_t& RiempimentoCorrente = DatiAmbiente.RiempimentoCorrente;
inline int16_t& MovimentoAttivo = DatiAmbiente.MovimentoAttivo;
inline int16_t& DirezioneScelta = DatiAmbiente.DirezioneScelta;
inline int16_t& TastoMovimento = DatiAmbiente.TastoMovimento;
inline int16_t& BloccoBordo = DatiAmbiente.BloccoBordo;
inline RecordAzione& RecordLavoro = DatiAmbiente.RecordLavoro;
inline int16_t& FormatoPagina = DatiAmbiente.FormatoPagina;
inline int16_t& IndicePasso = DatiAmbiente.IndicePasso;
inline int32_t& PassoSpostamento = DatiAmbiente.PassoSpostamento;
inline float& FattoreRidimensione = DatiAmbiente.FattoreRidimensione;
inline float& PassoAngolo = DatiAmbiente.PassoAngolo;
inline int16_t& IndiceSpessore = DatiAmbiente.IndiceSpessore;
inline int32_t& SpessoreCorrente = DatiAmbiente.SpessoreCorrente;
inline int32_t& ColoreLineaCorrente = DatiAmbiente.ColoreLineaCorrente;
inline int32_t& ColoreZonaCorrente = DatiAmbiente.ColoreZonaCorrente;
inline int32_t& ColoreSfondo = DatiAmbiente.ColoreSfondo;
inline QString& FontCorrente = DatiAmbiente.FontCorrente;
inline int32_t& DimensioneFontCorrente = DatiAmbiente.DimensioneFontCorrente;
inline int32_t& GrassettoCorrente = DatiAmbiente.GrassettoCorrente;
inline int32_t& CorsivoCorrente = DatiAmbiente.CorsivoCorrente;
inline int16_t& InterlineaCorrente = DatiAmbiente.InterlineaCorrente;
inline QStringList& RigheScritte = DatiAmbiente.RigheScritte;
inline int16_t& NumeroRigheScritte = DatiAmbiente.NumeroRigheScritte;
inline int16_t& AzioneScelta = DatiAmbiente.AzioneScelta;
inline float& MirinoX = DatiAmbiente.MirinoX;
inline float& MirinoY = DatiAmbiente.MirinoY;
inline int16_t& ModoIngombro = DatiAmbiente.ModoIngombro;
inline int32_t& RiferimentoXMin = DatiAmbiente.RiferimentoXMin;
inline int32_t& RiferimentoYMin = DatiAmbiente.RiferimentoYMin;
inline int32_t& RiferimentoXMax = DatiAmbiente.RiferimentoXMax;
inline int32_t& RiferimentoYMax = DatiAmbiente.RiferimentoYMax;
inline int32_t& IngombroXMin = DatiAmbiente.IngombroXMin;
inline int32_t& IngombroYMin = DatiAmbiente.IngombroYMin;
inline int32_t& IngombroXMax = DatiAmbiente.IngombroXMax;
inline int32_t& IngombroYMax = DatiAmbiente.IngombroYMax;
inline int32_t& MezzaLarghezzaIngombro = DatiAmbiente.MezzaLarghezzaIngombro;
inline int32_t& MezzaAltezzaIngombro = DatiAmbiente.MezzaAltezzaIngombro;
inline int32_t& PassoRidimensioneX = DatiAmbiente.PassoRidimensioneX;
inline int32_t& PassoRidimensioneY = DatiAmbiente.PassoRidimensioneY;

// Puts every value above back to what an opening of the screen gives.
void AzzeraStatoAmbiente();
