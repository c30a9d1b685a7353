// The library of objects on the settings panel: the object in the hands saved
// under a name written on the keyboard, a name taken asked about and replaced,
// an object read back into the hands of a new drawing, moved and fixed; in
// mode 4 by arrows and in mode 2 by the clock.
#include "archive/Archivi.h"
#include "archive/ArchivioAzioni.h"
#include "archive/IstruzioniArchivio.h"
#include "base/Bip.h"
#include "base/Configurazione.h"
#include "drawing/AmbienteDisegno.h"
#include "drawing/GuidaDisegno.h"
#include "drawing/GuidaSettaggi.h"
#include "input/QuadroMessaggi.h"
#include "model/RecordAzione.h"
#include "model/Selezione.h"
#include "model/StatoAmbiente.h"
#include "panels/Elaborazioni.h"
#include "panels/ProvaPannello.h"
#include "panels/QuadroSettaggi.h"
#include "support/Copione.h"
#include "support/SondePixel.h"

#include <QImage>
#include <QtTest>

namespace {

using GuidaSettaggi::RigaDi;
using GuidaSettaggi::Scegli;
using GuidaSettaggi::ScegliRiga;

constexpr int Sosta = 1000;
constexpr int32_t Rosso = 0x0000FF;
constexpr int32_t Nero = 0x000000;

using SondePixel::ColoreA;

int32_t CartellaOggetti(const QString& nome) {
    for (const RigaArchivio& r : CartelleObjInOrdineDiNome())
        if (r.Nome == nome) return r.Codice;
    return 0;
}

const QString Generale = NomiArchivi::CartellaSistemaOggetti;

} // namespace

class ProvaSettaggiOggetti : public QObject, MondoDisegno {
    Q_OBJECT

    void Premi(int16_t indice) { GuidaDisegno::Premi(a, indice); }
    void Settaggi(Copione& c) { GuidaSettaggi::Apri(a, c); }
    // A rectangle filled red and a line across it, taken whole as an object.
    void OggettoInMano() {
        GuidaSettaggi::RettangoloColorato(a, Rosso);
        Premi(101);
        Premi(117);
        Premi(120);
        QVERIFY(PremiTasto(Qt::Key_Return));
        Premi(117);
        QCOMPARE(OggettoAttivo, int16_t(1));
        QCOMPARE(NumeroElementiAttivi, int16_t(3));
    }
    // 144 in mode 4 up to the keyboard: the question, the folder of `cartella`.
    void SalvaIn(Copione& c, const QString& cartella) {
        Scegli(c, 144);
        c.Tasto(Qt::Key_Return); // "OK" holds the ring first
        ScegliRiga(c, cartella);
    }

private slots:
    void init() { Prepara(); }
    void cleanup() { Libera(); }

    void salvato_e_riletto_con_ogni_campo() {
        a = GuidaDisegno::Apri(4);
        OggettoInMano();
        const QList<RecordAzione> inMano = ElementiAttivi.mid(0, 4);
        QString messaggio;
        Copione c(*orologio);
        SalvaIn(c, Generale);
        ScriviConLeFrecce(c, QStringLiteral("CASA"));
        c.Esegui([&] { messaggio = TestoQuadroMessaggi; });
        c.Tasto(Qt::Key_Return);
        Scegli(c, 140);
        Settaggi(c);
        QCOMPARE(messaggio, Righe({QStringLiteral("L'Oggetto è stato correttamente salvato nella"),
                                   QStringLiteral("Cartella denominata:"),
                                   QStringLiteral("« ") + Generale + QStringLiteral(" »."),
                                   QStringLiteral("Premere «OK» per continuare!")}));
        const int32_t cartella = CartellaOggetti(Generale);
        QCOMPARE(CodiceCartellaObjAttiva, cartella);
        const int32_t codice = CercaNomeOggetto(QStringLiteral("CASA"), cartella);
        QCOMPARE(codice, 1);
        // The object stays in the hands; it is fixed back where it was.
        QCOMPARE(OggettoAttivo, int16_t(1));
        Premi(117);
        // Only the question and the message, each as it shows: nothing refused.
        QCOMPARE(ContatoreBip, 2);

        // A new drawing, and the object read back into its hands.
        Copione n(*orologio);
        Scegli(n, 101);
        GuidaDisegno::Frecce(Qt::Key_Right, (119 - a->Motore.TastoCorrente + 33) % 33);
        n.Avvia();
        QVERIFY(PremiTasto(Qt::Key_Return));
        QVERIFY(n.Finito());
        QCOMPARE(NumeroAzioni, 0);
        Copione r(*orologio);
        Scegli(r, 143);
        ScegliRiga(r, Generale);
        ScegliRiga(r, QStringLiteral("CASA"));
        Settaggi(r);
        QCOMPARE(OggettoAttivo, int16_t(1));
        QCOMPARE(NumeroElementiAttivi, int16_t(3));
        QCOMPARE(NumeroElementiSelezionati, int16_t(0));
        for (int i = 1; i <= 3; ++i) {
            RecordAzione atteso = inMano.at(i);
            QCOMPARE(ElementiAttivi.at(i), atteso);
        }
        QCOMPARE(ElementiAttivi.at(2).FlagPienoVuoto, FlagVuoto);
        // Fixed on the empty drawing: three actions, the line drawn.
        Premi(117);
        QCOMPARE(NumeroAzioni, 3);
        for (int i = 1; i <= 3; ++i)
            QCOMPARE(Azioni.at(i), inMano.at(i));
        QCOMPARE(
            ColoreA(a->Quadro.Immagine(), Predefiniti::CentroX + 1000, Predefiniti::CentroY + 1000),
            Nero);
        QCOMPARE(ContatoreBip, 3); // and the question of the new drawing
    }

    void un_nome_gia_preso_si_sostituisce_solo_nella_sua_cartella() {
        a = GuidaDisegno::Apri(4);
        NomeNuovaCartella = QStringLiteral("ALTRA");
        const int32_t altra = CreaCartellaOggetti();
        QVERIFY(altra > 0);
        GuidaDisegno::LineaSelezionata(a);
        const QString nome = QStringLiteral("L'ALBERO");
        for (const QString& cartella : {Generale, QStringLiteral("ALTRA")}) {
            Copione c(*orologio);
            SalvaIn(c, cartella);
            ScriviConLeFrecce(c, nome);
            c.Tasto(Qt::Key_Return);
            Scegli(c, 140);
            Settaggi(c);
        }
        const int32_t generale = CartellaOggetti(Generale);
        QCOMPARE(CercaNomeOggetto(nome, generale), 1);
        QCOMPARE(CercaNomeOggetto(nome, altra), 2);
        // The same name again in the general folder: "Annulla" first, which
        // brings the keyboard back on the name; confirmed there, then "OK".
        QString domanda;
        Copione c(*orologio);
        SalvaIn(c, Generale);
        ScriviConLeFrecce(c, nome);
        c.Esegui([&] { domanda = TestoQuadroMessaggi; });
        c.Tasto(Qt::Key_Return); // "Annulla" holds the ring first
        c.Esegui([] { QCOMPARE(RigheScritte.value(1), QStringLiteral("L'ALBERO")); });
        c.Tasto(Qt::Key_Return); // the keyboard opens on its "confirm"
        c.Tasto(Qt::Key_Left).Tasto(Qt::Key_Return);
        c.Tasto(Qt::Key_Return); // the message of success
        Scegli(c, 140);
        Settaggi(c);
        QVERIFY(domanda.startsWith(QStringLiteral("ATTENZIONE! L'Oggetto è già esistente!")));
        QCOMPARE(OggettiDellaCartella(generale).size(), 1);
        // The old row went first, so its code was the lowest free one again.
        QCOMPARE(CercaNomeOggetto(nome, generale), 1);
        QCOMPARE(CercaNomeOggetto(nome, altra), 2);
        QCOMPARE(OggettiDellaCartella(altra).size(), 1);
        CodiceOggettoDaCaricare = 1;
        CaricaAzioniOggetto();
        QCOMPARE(NumeroAzioniOggetto, 1);
    }

    void lasciare_la_tastiera_ferma_l_anello_in_modo_1() {
        a = GuidaDisegno::Apri(4);
        GuidaDisegno::LineaSelezionata(a);
        GuidaDisegno::Frecce(Qt::Key_Right, (124 - a->Motore.TastoCorrente + 33) % 33);
        a->Motore.FermaScansione();
        ModalitàFunzionamento = 1;
        int16_t dopo = 0;
        int16_t attiva = -1;
        Copione c(*orologio);
        // Ten dwells from 134 to 144; "OK"; line 101 at once, then the confirm.
        c.Attendi(10 * Sosta).Tasto(Qt::Key_Return);
        c.Tasto(Qt::Key_Return);
        c.Tasto(Qt::Key_Return).Attendi(21 * Sosta).Tasto(Qt::Key_Return);
        // The keyboard: to Fn, then from "confirm" on to "close".
        c.Attendi(65 * Sosta).Tasto(Qt::Key_Return);
        c.Attendi(6 * Sosta).Tasto(Qt::Key_Return);
        c.Attendi(3 * Sosta);
        c.Esegui([&] {
            auto* s = PannelloDavanti<QuadroSettaggi>();
            if (s == nullptr) return;
            dopo = s->Motore.TastoCorrente;
            attiva = s->Motore.ScansioneAttiva;
            s->ClickTasto(140);
        });
        c.Avvia();
        QVERIFY(PremiTasto(Qt::Key_Return));
        QVERIFY(c.Finito());
        QVERIFY2(c.Problemi.isEmpty(), qPrintable(c.Problemi.join(u'\n')));
        QCOMPARE(dopo, int16_t(144));
        QCOMPARE(attiva, int16_t(0));
        QCOMPARE(OggettiDellaCartella(CartellaOggetti(Generale)).size(), 0);
    }
};

QTEST_MAIN(ProvaSettaggiOggetti)
#include "test_settaggi_oggetti.moc"
