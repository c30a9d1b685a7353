// Every unit's state is one structure with one reset: the tests' reset puts
// every structure back whole, the drawing screen's opening resets all of its
// own but the direction panel's walk, and no header keeps a loose value the
// resets could miss.
#include "support/AmbienteProva.h"

#include "app/ConfigurazioniGenerali.h"
#include "archive/ArchivioAzioni.h"
#include "base/Bip.h"
#include "base/CartellaAttiva.h"
#include "base/Configurazione.h"
#include "base/GestioneErrori.h"
#include "base/Misure.h"
#include "base/Sessione.h"
#include "base/Utilita.h"
#include "input/FormScansione.h"
#include "input/QuadroMessaggi.h"
#include "model/Paint.h"
#include "model/RecordAzione.h"
#include "model/Selezione.h"
#include "model/StatoAmbiente.h"
#include "model/TracciaAzioni.h"
#include "panels/Elaborazioni.h"
#include "panels/QuadroSceltaColore1.h"
#include "panels/QuadroSceltaRibaltamenti.h"
#include "panels/QuadroScriviTesto.h"
#include "panels/QuadroUndo.h"
#include "panels/VideaAvanzamento.h"
#include "printing/ServizioStampa.h"
#include "printing/Stampe.h"

#include <QDirIterator>
#include <QFile>
#include <QRegularExpression>
#include <QtTest>

#include <functional>

namespace {

// One structure of the program's state: how to spoil it, and whether it is as it starts.
struct Stato {
    QString Nome;
    std::function<void()> Sporca;
    std::function<bool()> ComeAllInizio;
};

#define STATO(TIPO, DATI, SPORCA)                                                                  \
    Stato {                                                                                        \
        QStringLiteral(#DATI), [] { SPORCA; }, [] { return DATI == TIPO{}; }                       \
    }

QList<Stato> Stati() {
    return {
        STATO(StatoSessione, DatiSessione, RadiceDati = QStringLiteral("x")),
        STATO(StatoGestioneErrori, DatiGestioneErrori, SezioneCorrente = 77),
        STATO(StatoBip, DatiBip, ContatoreBip = 3),
        STATO(StatoConfigurazione, DatiConfigurazione, TempoLatenzaScansione = 250),
        STATO(StatoCartellaAttiva, DatiCartellaAttiva, CodiceCartellaAttiva = 5),
        STATO(StatoUtilita, DatiUtilita, NumeroFile = 4),
        STATO(StatoMisure, DatiMisure, DpiCaratteri = 120.0),
        STATO(StatoFormScansione, DatiFormScansione, IstanteUltimaScelta = 9),
        STATO(StatoQuadroMessaggi, DatiQuadroMessaggi, EsitoQuadroMessaggi = 2),
        STATO(StatoAzioni, DatiAzioni, NumeroAzioni = 12),
        STATO(StatoAmbiente, DatiAmbiente, PassoSpostamento = 400),
        STATO(StatoSelezione, DatiSelezione, RettangoloSelezione.Destra = 40),
        STATO(StatoTracciaAzioni, DatiTracciaAzioni, UltimaAzioneTraccia = 6),
        STATO(StatoPaint, DatiPaint, UsaOggettoPaint()),
        STATO(StatoArchivioAzioni, DatiArchivioAzioni, StatoDisegno = 1),
        STATO(StatoLista, DatiLista, TitoloLista = QStringLiteral("x")),
        STATO(StatoScriviTesto, DatiScriviTesto, LunghezzaMassimaTesto = 20),
        STATO(StatoQuadroSceltaColore1, DatiQuadroSceltaColore1, ColoreScelto = 3),
        STATO(StatoQuadroSceltaRibaltamenti, DatiQuadroSceltaRibaltamenti, RibaltamentoScelto = 2),
        STATO(StatoQuadroUndo, DatiQuadroUndo, PassoUndo = 2),
        STATO(StatoVideaAvanzamento, DatiVideaAvanzamento, PassiAvanzamento = 7),
        STATO(StatoServizioStampa, DatiServizioStampa, AttesaServizioStampa = 10),
        STATO(StatoStampe, DatiStampe, FileStampa = QStringLiteral("x")),
        STATO(StatoConfigurazioniGenerali, DatiConfigurazioniGenerali,
              CaricamentoConfigurazioni = 1),
    };
}

// Names that stay loose on purpose: hooks a higher layer or a test registers.
const QStringList Agganci = {
    QStringLiteral("AvvisaLatenzaCambiata"),
    QStringLiteral("ZittisciAlBip"),
    QStringLiteral("MostraScatolaPiattaforma"),
    QStringLiteral("SondaRegistraDisegno"),
    QStringLiteral("AvvisoComandoAmbiente"),
    QStringLiteral("TastiDelLavoro"),
    QStringLiteral("SpostaIconaMirino"),
    QStringLiteral("ElencoStampanti"),
    QStringLiteral("RitornoAlMenu"),
};

struct Intestazioni {
    QStringList Strutture; // every "Dati..." instance of a state structure
    QStringList Sciolti;   // every other mutable value declared in a header
};

Intestazioni LeggiIntestazioni() {
    Intestazioni esito;
    static const QRegularExpression istanza(QStringLiteral(R"(^inline (Stato\w+) (Dati\w+);)"),
                                            QRegularExpression::UseUnicodePropertiesOption);
    static const QRegularExpression riferimento(
        QStringLiteral(R"(^inline [^=]*&\s*\(?&?(\w+)\)?(\[\d+\])?\s*=\s*Dati\w+\.\w+;)"),
        QRegularExpression::UseUnicodePropertiesOption);
    static const QRegularExpression puntatore(QStringLiteral(R"(^inline [^=(]*\(\*(\w+)\))"),
                                              QRegularExpression::UseUnicodePropertiesOption);
    static const QRegularExpression valore(
        QStringLiteral(R"(^inline (.*?)(\w+)\s*(\[\d+\])?\s*(=[^;]*|\{[^;]*\})?;)"),
        QRegularExpression::UseUnicodePropertiesOption);
    QDirIterator it(QStringLiteral(ZANTO_SRC), {QStringLiteral("*.h")}, QDir::Files,
                    QDirIterator::Subdirectories);
    while (it.hasNext()) {
        QFile f(it.next());
        if (!f.open(QIODevice::ReadOnly)) continue;
        const QStringList righe = QString::fromUtf8(f.readAll()).split(u'\n');
        for (const QString& riga : righe) {
            if (!riga.startsWith(QStringLiteral("inline "))) continue;
            if (riga.startsWith(QStringLiteral("inline constexpr ")) ||
                riga.startsWith(QStringLiteral("inline const ")))
                continue;
            if (auto m = istanza.match(riga); m.hasMatch()) {
                esito.Strutture << m.captured(2);
                continue;
            }
            if (riferimento.match(riga).hasMatch()) continue;
            if (auto m = puntatore.match(riga); m.hasMatch()) {
                esito.Sciolti << m.captured(1);
                continue;
            }
            if (auto m = valore.match(riga); m.hasMatch()) esito.Sciolti << m.captured(2);
        }
    }
    return esito;
}

} // namespace

class TestStati : public QObject {
    Q_OBJECT

private slots:
    void ogni_struttura_torna_come_all_inizio() {
        // Each spoiling must show, or the comparison after the reset would prove nothing.
        RipristinaGlobali();
        for (const Stato& s : Stati()) {
            QVERIFY2(s.ComeAllInizio(), qPrintable(s.Nome + QStringLiteral(" at start")));
            s.Sporca();
            QVERIFY2(!s.ComeAllInizio(), qPrintable(s.Nome + QStringLiteral(" not spoiled")));
        }
        RipristinaGlobali();
        for (const Stato& s : Stati())
            QVERIFY2(s.ComeAllInizio(), qPrintable(s.Nome + QStringLiteral(" after the reset")));
    }

    void ogni_struttura_delle_intestazioni_e_nel_ripristino() {
        const Intestazioni lette = LeggiIntestazioni();
        QVERIFY(!lette.Strutture.isEmpty());
        QStringList coperte;
        for (const Stato& s : Stati())
            coperte << s.Nome;
        for (const QString& nome : lette.Strutture)
            QVERIFY2(coperte.contains(nome), qPrintable(nome + QStringLiteral(" is not reset")));
    }

    void nessun_valore_sciolto_nelle_intestazioni() {
        const Intestazioni lette = LeggiIntestazioni();
        for (const QString& nome : lette.Sciolti)
            QVERIFY2(Agganci.contains(nome), qPrintable(nome + QStringLiteral(" is loose")));
        QVERIFY(Agganci.size() <= 10);
    }

    void l_apertura_dello_schermo_azzera_tutto_tranne_la_direzione() {
        AmbienteProva prova;
        DirezioneScelta = 3;
        PrimitivaAttiva = 4;
        RigheScritte << QStringLiteral("casa");
        NumeroRigheScritte = 1;
        IngombroXMax = 900;
        MirinoX = 12.0f;
        FontCorrente = QStringLiteral("Arial");
        ImmaginiSegnalate.insert(QStringLiteral("a.bmp"));
        AzzeraStatoAmbiente();
        QCOMPARE(DirezioneScelta, int16_t(3));
        StatoAmbiente atteso;
        atteso.DirezioneScelta = 3;
        QVERIFY(DatiAmbiente == atteso);
        QVERIFY(ImmaginiSegnalate.isEmpty());
    }

    void la_selezione_si_azzera_tutta() {
        AmbienteProva prova;
        RettangoloSelezione = {1, 2, 3, 4};
        ElementiSelezionati << 5;
        NumeroElementiSelezionati = 1;
        AzzeraSelezione();
        QVERIFY(DatiSelezione == StatoSelezione{});
    }
};

QTEST_MAIN(TestStati)
#include "test_stati.moc"
