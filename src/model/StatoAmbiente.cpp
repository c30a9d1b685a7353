#include "model/StatoAmbiente.h"

#include "model/TracciaAzioni.h"

void AzzeraStatoAmbiente() {
    PrimitivaAttiva = 0;
    ComandoModifica = 0;
    OggettoAttivo = 0;
    ElementoRiaperto = 0;
    CopiaOSposta = 1;
    RiempimentoCorrente = 1;
    MovimentoAttivo = 0;
    TastoMovimento = 0;
    BloccoBordo = 0;
    RecordLavoro = RecordAzione{};
    FormatoPagina = 1;
    IndicePasso = 2;
    PassoSpostamento = 50;
    FattoreRidimensione = 0.025f;
    PassoAngolo = 0.02f;
    IndiceSpessore = 2;
    SpessoreCorrente = Predefiniti::Spessore;
    ColoreLineaCorrente = Predefiniti::ColoreLinea;
    ColoreZonaCorrente = Predefiniti::ColoreZona;
    ColoreSfondo = Predefiniti::ColoreSfondo;
    FontCorrente = Predefiniti::NomeFont;
    DimensioneFontCorrente = Predefiniti::SizeFont;
    GrassettoCorrente = Predefiniti::Grassetto;
    CorsivoCorrente = Predefiniti::Corsivo;
    InterlineaCorrente = Predefiniti::Interlinea;
    RigheScritte = QStringList{QString()};
    NumeroRigheScritte = 0;
    AzioneScelta = 0;
    ImmaginiSegnalate.clear();
    MirinoX = Predefiniti::CentroX;
    MirinoY = Predefiniti::CentroY;
    ModoIngombro = 1;
    RiferimentoXMin = RiferimentoYMin = RiferimentoXMax = RiferimentoYMax = 0;
    IngombroXMin = IngombroYMin = IngombroXMax = IngombroYMax = 0;
    MezzaLarghezzaIngombro = MezzaAltezzaIngombro = 0;
    PassoRidimensioneX = PassoRidimensioneY = 0;
}
