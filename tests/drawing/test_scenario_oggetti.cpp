// A session with two switches (mode 2), on the virtual clock: a house of
// three actions taken as an object, saved as "CASA" in a new folder of objects
// written on the keyboard; then a new drawing, the object read back, moved,
// fixed and the drawing saved. Both archives and the canvas are checked.
#include "archive/Archivi.h"
#include "archive/ArchivioAzioni.h"
#include "archive/IstruzioniArchivio.h"
#include "base/Configurazione.h"
#include "drawing/AmbienteDisegno.h"
#include "drawing/GuidaDisegno.h"
#include "drawing/GuidaSettaggi.h"
#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"
#include "panels/ProvaPannello.h"
#include "panels/QuadroSettaggi.h"
#include "support/Copione.h"
#include "support/SondePixel.h"

#include <QImage>
#include <QtTest>

namespace {

using GuidaSettaggi::RigaDi;

constexpr int Sosta = 1000;
constexpr int32_t Rosso = 0x0000FF;
constexpr int32_t Nero = 0x000000;
constexpr int32_t Grigio = 0xC0C0C0;

using SondePixel::ColoreA;

} // namespace

class ProvaScenarioOggetti : public QObject, MondoDisegno {
    Q_OBJECT

    // Words on the keyboard, key by key on the clock; then Fn and confirm.
    void Scrivi(Copione& c, const QString& testo) {
        for (const QChar ch : testo)
            Fino(c, int16_t(101 + PostoTasto(ch)));
        Fino(c, int16_t(101 + PostoFn));
        Fino(c, 101);
    }
    // A line of the list picked, then its confirm.
    void Riga(Copione& c, const QString& nome) {
        Fino(c, [nome] { return RigaDi(nome); });
        Fino(c, 122);
    }

private slots:
    void init() { Prepara(); }
    void cleanup() { Libera(); }

    void casa_salvata_come_oggetto_e_riletta_in_un_nuovo_disegno() {
        a = GuidaDisegno::Apri(2);
        // The house: walls, a roof line and the red inside of the walls.
        Premi(103);
        Premi(117);
        Premi(101);
        Premi(117);
        Copione colore(*orologio);
        Fino(colore, 104);
        PremiCon(115, colore);
        QCOMPARE(ColoreZonaCorrente, Rosso);
        Copione zona(*orologio);
        Fino(zona, 101);
        zona.Attendi(Sosta).Tasto(Qt::Key_Return);
        Fino(zona, 105);
        PremiCon(114, zona);
        Premi(117);
        QCOMPARE(NumeroAzioni, 3);
        const QList<RecordAzione> casa = Azioni.mid(0, 4);

        // The settings: a new folder of objects made on the list, while the
        // hands are free.
        Copione cartelle(*orologio);
        Fino(cartelle, 134);
        Fino(cartelle, 123);
        Scrivi(cartelle, QStringLiteral("CASETTE"));
        Fino(cartelle, 125);
        Fino(cartelle, 140);
        PremiCon(124, cartelle);

        // The selection box where it is born takes all three. "Chiudi" as the
        // first answer ends the command.
        Copione box(*orologio);
        Fino(box, 105);
        PremiCon(120, box);
        Premi(117);
        QCOMPARE(OggettoAttivo, int16_t(1));
        QCOMPARE(NumeroElementiAttivi, int16_t(3));

        // The object saved in the new folder as "CASA".
        Copione salva(*orologio);
        Fino(salva, 144);
        Fino(salva, 101); // "OK"
        Riga(salva, QStringLiteral("CASETTE"));
        Scrivi(salva, QStringLiteral("CASA"));
        salva.Tasto(Qt::Key_Return); // the message of success
        Fino(salva, 140);
        PremiCon(124, salva);
        int32_t cartella = 0;
        for (const RigaArchivio& r : CartelleObjInOrdineDiNome())
            if (r.Nome == QStringLiteral("CASETTE")) cartella = r.Codice;
        QVERIFY(cartella > 0);
        const int32_t oggetto = CercaNomeOggetto(QStringLiteral("CASA"), cartella);
        QVERIFY(oggetto > 0);
        CodiceOggettoDaCaricare = oggetto;
        CaricaAzioniOggetto();
        QCOMPARE(NumeroAzioniOggetto, 3);
        for (int i = 1; i <= 3; ++i) {
            RecordAzione atteso = casa.at(i);
            // A fill taken into an object is its dot.
            if (atteso.TipoAzione == TipiAzione::Colorazione) atteso.FlagPienoVuoto = FlagVuoto;
            QCOMPARE(AzioniOggetto.at(i), atteso);
        }
        Premi(117);
        QCOMPARE(OggettoAttivo, int16_t(0));

        // A new drawing; the object read back and walked ten steps down.
        Copione nuovo(*orologio);
        Fino(nuovo, 101);
        PremiCon(119, nuovo);
        QCOMPARE(NumeroAzioni, 0);
        Copione leggi(*orologio);
        Fino(leggi, 143);
        Riga(leggi, QStringLiteral("CASETTE"));
        Riga(leggi, QStringLiteral("CASA"));
        PremiCon(124, leggi);
        QCOMPARE(OggettoAttivo, int16_t(1));
        QCOMPARE(NumeroElementiAttivi, int16_t(3));
        Copione muovi(*orologio);
        Fino(muovi, 104);
        for (int i = 0; i < 10; ++i)
            muovi.Attendi(Sosta);
        muovi.Tasto(Qt::Key_Return);
        Fino(muovi, 105);
        PremiCon(113, muovi);
        Premi(117);
        QCOMPARE(NumeroAzioni, 3);
        for (int i = 1; i <= 2; ++i)
            QCOMPARE(Azioni.at(i).YInizio, casa.at(i).YInizio + 10 * PassoSpostamento);
        QCOMPARE(Azioni.at(3).YCentro, casa.at(3).YCentro + 10 * PassoSpostamento);

        // Saved as "CASE": the drawing's rows are the list on the canvas.
        Copione registra(*orologio);
        Fino(registra, 101);
        Scrivi(registra, QStringLiteral("CASE"));
        registra.Tasto(Qt::Key_Return);
        PremiCon(131, registra);
        QCOMPARE(NomeDisegnoCorrente, QStringLiteral("CASE"));
        QList<RecordAzione> salvate;
        int32_t numero = 0;
        LeggiAzioniDisegno(CodiceDisegnoCorrente, salvate, numero);
        QCOMPARE(numero, 3);
        for (int i = 1; i <= 3; ++i)
            QCOMPARE(salvate.at(i), Azioni.at(i));

        // On the canvas the roof line stands 500 twips lower, the walls too;
        // the fill is its dot at its moved point.
        const QImage& tela = a->Quadro.Immagine();
        QCOMPARE(ColoreA(tela, Predefiniti::CentroX + 1000, Predefiniti::CentroY + 1500), Nero);
        QCOMPARE(ColoreA(tela, Predefiniti::CentroX + 1000, Predefiniti::CentroY + 1000), Grigio);
        QCOMPARE(ColoreA(tela, int(Azioni[3].XCentro), int(Azioni[3].YCentro)), Rosso);
        QCOMPARE(ColoreA(tela, Predefiniti::XInizio, Predefiniti::YFine + 500), Nero);
    }
};

QTEST_MAIN(ProvaScenarioOggetti)
#include "test_scenario_oggetti.moc"
