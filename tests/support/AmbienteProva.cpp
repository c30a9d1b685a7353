#include "support/AmbienteProva.h"

#include "app/Avvio.h"
#include "app/MenuGenerale.h"
#include "archive/Archivi.h"
#include "archive/ArchivioAzioni.h"
#include "archive/Installatore.h"
#include "base/Bip.h"
#include "base/Configurazione.h"
#include "base/ScalaSchermo.h"
#include "base/Utilita.h"
#include "input/FormScansione.h"
#include "input/QuadroMessaggi.h"
#include "model/ElementoAttivo.h"
#include "model/Paint.h"
#include "model/RecordAzione.h"
#include "model/Selezione.h"
#include "model/StatoAmbiente.h"
#include "model/TracciaAzioni.h"
#include "panels/Elaborazioni.h"
#include "panels/QuadroMostraLista.h"
#include "panels/QuadroSceltaColore1.h"
#include "panels/QuadroSceltaRibaltamenti.h"
#include "panels/QuadroScriviTesto.h"

#include <QtTest>

void RipristinaTempiEVoce() {
    TempoAccettazione = 0;
    TempoIgnoraDopoScelta = 0;
    PrimaAttesa = 1;
    GiriPrimaDelRiposo = 0;
    ScansioneParlata = 0;
    AttendiVoce = 0;
}

void RipristinaGlobali() {
    // start
    FaseAvvio = 0;
    RadiceDati.clear();
    CartellaSistema.clear();
    MessaggiAvvio.clear();
    StampanteDiSistema.clear();
    DimensioneMinimaX = 1024;
    DimensioneMinimaY = 768;
    RipristinaScala();
    SezioneCorrente = 0;
    EsitoErrore = 0;
    RecordAssente = 0;
    ScritturaFallita = 0;
    ContatoreBip = 0;
    MostraScatolaPiattaforma = ScatolaDiSistema;
    ModalitàFunzionamento = 1;
    TastoScelta = 1;
    TastoScansione = 2;
    TipoInversioneScansione = 1;
    TempoLatenzaScansione = 1000;
    LarghezzaAnello = 1;
    AltoContrasto = 0;
    RipristinaTempiEVoce();
    CodiceCartellaAttiva = 0;
    NomeCartellaAttiva.clear();
    TestoDaDividere.clear();
    NumeroRigheTesto = 0;
    RigheTesto = QStringList{QString()};
    CartellaRicerca.clear();
    EstensioniRicerca.clear();
    RicercaSottocartelle = 0;
    ElencoFile = QStringList{QString()};
    NumeroFile = 0;
    // input
    AvvisoComandoAmbiente = nullptr;
    IstanteUltimaScelta = std::numeric_limits<int64_t>::min() / 2;
    IstanteUltimoBip = -PausaDopoBip;
    Zittisci();
    TestoQuadroMessaggi.clear();
    TipoQuadroMessaggi = 0;
    TastoPredefinitoQuadroMessaggi = 0;
    EsitoQuadroMessaggi = 0;
    // model and archive: add their globals here as they come.
    AzzeraStatoAmbiente();
    // panels
    DatiLista = StatoLista{};
    DatiScriviTesto = StatoScriviTesto{};
    DirezioneScelta = 0;
    RibaltamentoScelto = 0;
    ColoreScelto = -1;
    SpostaIconaMirino = nullptr;
    AzzeraSelezione();
    Azioni = QList<RecordAzione>{RecordAzione{}};
    NumeroAzioni = 0;
    ElementiAttivi = QList<RecordAzione>{RecordAzione{}};
    NumeroElementiAttivi = 0;
    AzioniUndo = QList<RecordAzione>{RecordAzione{}};
    NumeroAzioniUndo = 0;
    AzioniDaRegistrare = QList<RecordAzione>{RecordAzione{}};
    NumeroAzioniDaRegistrare = 0;
    AzioniOggetto = QList<RecordAzione>{RecordAzione{}};
    NumeroAzioniOggetto = 0;
    AzioniOggettoDaRegistrare = QList<RecordAzione>{RecordAzione{}};
    NumeroAzioniOggettoDaRegistrare = 0;
    ElementoInCostruzione = RecordAzione{};
    IndiceElementoInModifica = 0;
    CodiceCopiaLavoro = BaseCopieLavoro;
    PrimaAzioneTraccia = 0;
    UltimaAzioneTraccia = 0;
    OggettoPaint.reset();
    CodiceDisegnoDaCaricare = 0;
    CodiceOggettoDaCaricare = 0;
    CodiceDisegnoDaRegistrare = 0;
    CodiceOggettoDaRegistrare = 0;
    StatoDisegno = 2;
    RegistraComeNuovo = 0;
    NomeDisegnoCorrente.clear();
    CodiceDisegnoCorrente = 0;
    NomeOggettoDaRegistrare.clear();
    CodiceCartellaObjAttiva = 0;
    NomeCartellaObjAttiva.clear();
}

AmbienteProva::AmbienteProva(bool installa) {
    RipristinaGlobali();
    ImpostaVoce(&Parole);
    qputenv("XDG_DATA_HOME", cartella_.path().toUtf8());
    CalcolaRadiceDati();
    MostraScatolaPiattaforma = [this](IconaScatola icona, const QString& titolo,
                                      const QString& testo) {
        Scatole.append({icona, titolo, testo});
    };
    if (installa) {
        const QString esito = InstallaDatiZanto(RadiceDati);
        if (!esito.isEmpty()) qFatal("installazione di prova non riuscita: %s", qPrintable(esito));
    }
}

AmbienteProva::~AmbienteProva() {
    ChiudiArchivi();
    RipristinaGlobali();
    ImpostaVoce(nullptr);
}

QString AmbienteProva::Radice() const {
    return RadiceDati;
}

void AmbienteProva::ApriArchivi() {
    ApriArchivio(ArchivioConfigurazione, PercorsoConfigurazione());
    ApriArchivio(ArchivioDisegni, PercorsoArchivioDisegni());
    ApriArchivio(ArchivioOggetti, PercorsoArchivioOggetti());
}

void AmbienteProva::ChiudiArchivi() {
    ChiudiArchivio(ArchivioDisegni);
    ChiudiArchivio(ArchivioOggetti);
    ChiudiArchivio(ArchivioConfigurazione);
}
