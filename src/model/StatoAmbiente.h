#pragma once

#include "model/RecordAzione.h"

#include <QString>
#include <QStringList>

#include <cstdint>

// The state of the drawing screen that its commands, the movement engine, the
// overlay and the panels share. Every opening of the screen sets it afresh.

// What is open: the marked button of the element, the edit command, the object.
inline int16_t PrimitivaAttiva = 0;
inline int16_t ComandoModifica = 0;
inline int16_t OggettoAttivo = 0;
inline int16_t ElementoRiaperto = 0;
inline int16_t CopiaOSposta = 1;        // 1 copy, 2 move
inline int16_t RiempimentoCorrente = 1; // 1 empty shapes, 2 full shapes

// Movement: the key handed to the engine and the walk of the direction panel.
inline int16_t MovimentoAttivo = 0;
inline int16_t DirezioneScelta = 0; // 1 left, 2 right, 3 up, 4 down, 5 end; kept between openings
inline int16_t TastoMovimento = 0;
inline int16_t BloccoBordo = 0;
inline RecordAzione RecordLavoro;

// The paper of a printout: 1 A4, 2 A3.
inline int16_t FormatoPagina = 1;

// Steps of the movement.
inline int16_t IndicePasso = 2;
inline int32_t PassoSpostamento = 50;
inline float FattoreRidimensione = 0.025f;
inline float PassoAngolo = 0.02f;

// Pen, fill, font and background of the next element.
inline int16_t IndiceSpessore = 2;
inline int32_t SpessoreCorrente = Predefiniti::Spessore;
inline int32_t ColoreLineaCorrente = Predefiniti::ColoreLinea;
inline int32_t ColoreZonaCorrente = Predefiniti::ColoreZona;
inline int32_t ColoreSfondo = Predefiniti::ColoreSfondo;
inline QString FontCorrente = Predefiniti::NomeFont;
inline int32_t DimensioneFontCorrente = Predefiniti::SizeFont;
inline int32_t GrassettoCorrente = Predefiniti::Grassetto;
inline int32_t CorsivoCorrente = Predefiniti::Corsivo;
inline int16_t InterlineaCorrente = Predefiniti::Interlinea;

// The lines of the text being placed, as the text panel gives them back
// (1-based, every line but the last ends with its CR), and the element of the
// active object whose text gets its frame (0 none).
inline QStringList RigheScritte{QString()};
inline int16_t NumeroRigheScritte = 0;
inline int16_t AzioneScelta = 0;

// Where the next fill's crosshair starts: the centre, then the last fixed fill.
inline float MirinoX = Predefiniti::CentroX;
inline float MirinoY = Predefiniti::CentroY;

// The object: reference box taken at selection, its current measure, the steps of a resize.
inline int16_t ModoIngombro = 1;
inline int32_t RiferimentoXMin = 0, RiferimentoYMin = 0, RiferimentoXMax = 0, RiferimentoYMax = 0;
inline int32_t IngombroXMin = 0, IngombroYMin = 0, IngombroXMax = 0, IngombroYMax = 0;
inline int32_t MezzaLarghezzaIngombro = 0, MezzaAltezzaIngombro = 0;
inline int32_t PassoRidimensioneX = 0, PassoRidimensioneY = 0;

// Puts every value above back to what an opening of the screen gives.
void AzzeraStatoAmbiente();
