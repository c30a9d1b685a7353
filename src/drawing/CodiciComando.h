#pragma once

#include <cstdint>

// The commands of the drawing screen by the index of their button. The numbers
// are the program's own: PrimitivaAttiva and ComandoModifica hold them, the
// rings and the tooltips are kept by them.
namespace TastoDisegno {
enum Comando : int16_t {
    PrimitivaLinea = 101,
    PrimitivaArco = 102,
    PrimitivaRettangolo = 103,
    PrimitivaEllisse = 104,
    ModificaInizioLinea = 105,
    ModificaFineLinea = 106,
    ModificaInizioArco = 107,
    ModificaFineArco = 108,
    RuotaInteroArco = 109,
    ModificaFormaEllisseArco = 110,
    ModificaGrandezza1 = 111,
    ModificaGrandezza2 = 112,
    MuoveElementoAttivo = 113,
    ColoraZona = 114,
    SceltaColoreZona = 115,
    SceltaFormePieneVuote = 116,
    Fissa = 117,
    AnnullaOperazioni = 118,
    NuovoDisegno = 119,
    SelezionaOggetto = 120,
    ScegliElementoAttivo = 121,
    DuplicaUltimaPrimitiva = 122,
    RibaltaOggetto = 123,
    AccessoSettaggi = 124,
    DisegnaUltimoOggetto = 125,
    SceltaCopiaSposta = 126,
    EliminaOggetto = 127,
    ScritturaTesti = 128,
    ImportaImmagine = 129,
    LeggiDisegno = 130,
    SalvaDisegno = 131,
    StampaDisegno = 132,
    ChiudiAmbiente = 133,
};
inline constexpr int16_t Primo = PrimitivaLinea;
inline constexpr int16_t Ultimo = ChiudiAmbiente;
inline constexpr int16_t Numero = Ultimo - Primo + 1;
} // namespace TastoDisegno

// The location marks of the drawing screen's click routine for the error
// routine: the entry, one per command in the order the routine once tested
// them (117 and 118 first, then 101 upwards), and the finer ones of the save.
// The gaps after 121 and 124 are kept for the finer marks of their steps.
namespace MarcaDisegno {
enum Marca : int16_t {
    Ingresso = 1200,
    Fissa = 1202,
    AnnullaOperazioni = 1204,
    PrimitivaLinea = 1206,
    PrimitivaArco = 1208,
    PrimitivaRettangolo = 1210,
    PrimitivaEllisse = 1212,
    ModificaInizioLinea = 1214,
    ModificaFineLinea = 1216,
    ModificaInizioArco = 1218,
    ModificaFineArco = 1220,
    RuotaInteroArco = 1222,
    ModificaFormaEllisseArco = 1224,
    ModificaGrandezza1 = 1226,
    ModificaGrandezza2 = 1228,
    MuoveElementoAttivo = 1230,
    ColoraZona = 1232,
    SceltaColoreZona = 1234,
    SceltaFormePieneVuote = 1236,
    NuovoDisegno = 1242,
    SelezionaOggetto = 1244,
    ScegliElementoAttivo = 1246,
    DuplicaUltimaPrimitiva = 1250,
    RibaltaOggetto = 1252,
    AccessoSettaggi = 1254,
    DisegnaUltimoOggetto = 1258,
    SceltaCopiaSposta = 1260,
    EliminaOggetto = 1262,
    ScritturaTesti = 1264,
    ImportaImmagine = 1266,
    LeggiDisegno = 1268,
    SalvaDisegno = 1270,       // the keyboard of the name
    SalvaNomeDisegno = 1272,   // the name checked against the folder
    SalvaRegistrazione = 1274, // the rows and the bitmap written
    StampaDisegno = 1276,
    ChiudiAmbiente = 1278,
};
} // namespace MarcaDisegno
