#include "support/AmbienteProva.h"

#include "app/Avvio.h"
#include "app/ConfigurazioniGenerali.h"
#include "app/MenuGenerale.h"
#include "archive/Archivi.h"
#include "archive/ArchivioAzioni.h"
#include "archive/Installatore.h"
#include "base/Bip.h"
#include "base/CartellaAttiva.h"
#include "base/Configurazione.h"
#include "base/GestioneErrori.h"
#include "base/Misure.h"
#include "base/ScalaSchermo.h"
#include "base/Sessione.h"
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
#include "panels/QuadroUndo.h"
#include "panels/VideaAvanzamento.h"
#include "printing/ServizioStampa.h"
#include "printing/Stampe.h"

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
    // Each unit's state, whole.
    DatiSessione = StatoSessione{};
    DatiGestioneErrori = StatoGestioneErrori{};
    DatiBip = StatoBip{};
    DatiConfigurazione = StatoConfigurazione{};
    DatiCartellaAttiva = StatoCartellaAttiva{};
    DatiUtilita = StatoUtilita{};
    RipristinaScala();
    DatiFormScansione = StatoFormScansione{};
    DatiQuadroMessaggi = StatoQuadroMessaggi{};
    DatiAzioni = StatoAzioni{};
    DatiAmbiente = StatoAmbiente{};
    DatiSelezione = StatoSelezione{};
    DatiTracciaAzioni = StatoTracciaAzioni{};
    DatiPaint = StatoPaint{};
    DatiArchivioAzioni = StatoArchivioAzioni{};
    DatiQuadroSceltaColore1 = StatoQuadroSceltaColore1{};
    DatiQuadroSceltaRibaltamenti = StatoQuadroSceltaRibaltamenti{};
    DatiQuadroUndo = StatoQuadroUndo{};
    DatiVideaAvanzamento = StatoVideaAvanzamento{};
    DatiStampe = StatoStampe{};
    DatiServizioStampa = StatoServizioStampa{};
    DatiConfigurazioniGenerali = StatoConfigurazioniGenerali{};
    // The hooks a test may have put in.
    MostraScatolaPiattaforma = ScatolaDiSistema;
    AvvisoComandoAmbiente = nullptr;
    SpostaIconaMirino = nullptr;
    Zittisci();
    // The list panel and the keyboard.
    DatiLista = StatoLista{};
    DatiScriviTesto = StatoScriviTesto{};
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
