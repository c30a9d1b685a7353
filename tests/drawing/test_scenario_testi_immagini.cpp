// A one-switch user's session with colour, words and a picture, in mode 1 on
// the virtual clock: a rectangle, its inside coloured red, "CIAO" written in
// it, a picture placed below the words, then the element panel: the text
// moved to the end of the order and the picture deleted. After every step the
// list, the working copies and the canvas are checked, and a full replay must
// give the very pixels the user saw.
#include "archive/Archivi.h"
#include "archive/ArchivioAzioni.h"
#include "archive/IstruzioniArchivio.h"
#include "base/Configurazione.h"
#include "drawing/AmbienteDisegno.h"
#include "drawing/GuidaDisegno.h"
#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"
#include "panels/ProvaPannello.h"
#include "support/Copione.h"
#include "support/SondePixel.h"

#include <QImage>
#include <QtTest>

namespace {

constexpr int Sosta = 1000;
constexpr int32_t Rosso = 0x0000FF;
constexpr int32_t VerdeFoto = 0x00FF00;
constexpr int32_t Nero = 0x000000;

int32_t Colore(const QImage& img, int x, int y) {
    return SondePixel::ColoreA(img, x, y);
}

// The pixels where two pictures differ, as a box in pixels; empty when none.
QRect Differenze(const QImage& a, const QImage& b) {
    QRect r;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x)
            if (a.pixel(x, y) != b.pixel(x, y)) r |= QRect(x, y, 1, 1);
    return r;
}

QRect BoxPixel(const RecordAzione& e) {
    return {QPoint(SondePixel::Px(e.XInizio), SondePixel::Px(e.YInizio)),
            QPoint(SondePixel::Px(e.XFine), SondePixel::Px(e.YFine))};
}

} // namespace

class ProvaScenarioTestiImmagini : public QObject, MondoDisegno {
    Q_OBJECT

    // The direction panel: `passi` steps in a direction (1 left ... 4 down),
    // the walk stopped, then "Chiudi".
    void Cammina(Copione& c, int16_t direzione, int passi) {
        Fino(c, int16_t(100 + direzione));
        // Each step waits on its own dwell: one wait of the clock, one step.
        for (int i = 0; i < passi; ++i)
            c.Attendi(Sosta);
        c.Tasto(Qt::Key_Return);
        Fino(c, 105);
    }
    // A full replay shows what the user sees.
    void StessaTelaDopoRipresa() {
        const QImage vivo = a->Quadro.Immagine().copy();
        a->RidisegnoCompleto();
        QCOMPARE(Differenze(a->Quadro.Immagine(), vivo), QRect());
    }
    // The last working copy holds the list as it stands.
    void CopiaUgualeAllaLista(int copie) {
        QCOMPARE(NumeroCopieLavoro(), copie);
        QList<RecordAzione> copia;
        int32_t numero = 0;
        LeggiAzioniDisegno(CodiceCopiaLavoro, copia, numero);
        QCOMPARE(numero, NumeroAzioni);
        for (int i = 1; i <= numero; ++i)
            QCOMPARE(copia[i], Azioni[i]);
    }

private slots:
    void init() {
        Prepara();
        QImage casa(40, 30, QImage::Format_RGB32);
        casa.fill(QColor(0, 255, 0));
        QVERIFY(casa.save(PercorsoFile() + QStringLiteral("/casa.png"), "PNG"));
        a = GuidaDisegno::Apri(1);
    }
    void cleanup() { Libera(); }

    void rettangolo_colorato_testo_figura_e_ordine_cambiato() {
        // A rectangle at the centre.
        Premi(103);
        Premi(117);
        QCOMPARE(NumeroAzioni, 1);
        CopiaUgualeAllaLista(1);
        const RecordAzione rettangolo = Azioni[1];
        QCOMPARE(Colore(a->Quadro.Immagine(), rettangolo.XInizio, Predefiniti::CentroY), Nero);
        StessaTelaDopoRipresa();

        // Red from the colour panel: white (101) is current, red is three dwells on.
        Copione colore(*orologio);
        colore.Attendi(3 * Sosta).Tasto(Qt::Key_Return);
        PremiCon(115, colore);
        QCOMPARE(ColoreZonaCorrente, Rosso);

        // The fill's crosshair ten steps left, then fixed: red inside, grey outside.
        Copione zona(*orologio);
        Cammina(zona, 1, 10);
        PremiCon(114, zona);
        QCOMPARE(ComandoModifica, int16_t(0));
        Premi(117);
        QCOMPARE(NumeroAzioni, 2);
        CopiaUgualeAllaLista(2);
        const int xZona = Predefiniti::CentroX - 10 * PassoSpostamento;
        QCOMPARE(Azioni[2].XCentro, float(xZona));
        QCOMPARE(Azioni[2].ColZona, Rosso);
        QCOMPARE(Colore(a->Quadro.Immagine(), xZona, Predefiniti::CentroY), Rosso);
        QCOMPARE(Colore(a->Quadro.Immagine(), rettangolo.XInizio + 100, rettangolo.YInizio + 100),
                 Rosso);
        QCOMPARE(Colore(a->Quadro.Immagine(), rettangolo.XInizio - 100, Predefiniti::CentroY),
                 0xC0C0C0);
        StessaTelaDopoRipresa();

        // "CIAO" on the keyboard, dwell by dwell; left where it opens.
        const QImage primaDelTesto = a->Quadro.Immagine().copy();
        Copione testo(*orologio);
        ScriviInModo1(testo, QStringLiteral("CIAO"), Sosta);
        Fino(testo, 105); // "Chiudi" at once: the text stays where it opened
        PremiCon(128, testo);
        QCOMPARE(ComandoModifica, int16_t(0));
        Premi(117);
        QCOMPARE(NumeroAzioni, 3);
        CopiaUgualeAllaLista(3);
        const RecordAzione scritta = Azioni[3];
        QCOMPARE(scritta.Testo, QStringLiteral("CIAO"));
        // Black words on red, all inside the text's box and nothing outside it.
        const QRect cambiate = Differenze(primaDelTesto, a->Quadro.Immagine());
        QVERIFY(!cambiate.isEmpty());
        QVERIFY(BoxPixel(scritta).adjusted(-1, -1, 1, 1).contains(cambiate));
        StessaTelaDopoRipresa();

        // The picture, walked twenty steps down from the centre.
        Copione figura(*orologio);
        figura.Tasto(Qt::Key_Return).Attendi(21 * Sosta).Tasto(Qt::Key_Return);
        Cammina(figura, 4, 20);
        PremiCon(129, figura);
        Premi(117);
        QCOMPARE(NumeroAzioni, 4);
        CopiaUgualeAllaLista(4);
        const RecordAzione foto = Azioni[4];
        QCOMPARE(foto.TipoAzione, TipiAzione::Immagine);
        QCOMPARE(foto.YInizio, Predefiniti::CentroY - 225 + 20 * PassoSpostamento);
        QCOMPARE(Colore(a->Quadro.Immagine(), Predefiniti::CentroX, foto.YInizio + 225), VerdeFoto);
        StessaTelaDopoRipresa();

        // The element panel opens on the picture with the ring on "previous":
        // at once to the text; five dwells to "move later"; four round to
        // "previous" again, now the picture; eight to "delete"; five to "Chiudi".
        Copione elemento(*orologio);
        elemento.Tasto(Qt::Key_Return);
        elemento.Attendi(5 * Sosta).Tasto(Qt::Key_Return);
        elemento.Esegui([&] {
            QCOMPARE(Azioni[4].TipoAzione, TipiAzione::Testo);
            QCOMPARE(Azioni[3].TipoAzione, TipiAzione::Immagine);
            QCOMPARE(AzioneScelta, int16_t(4));
        });
        elemento.Attendi(4 * Sosta).Tasto(Qt::Key_Return);
        elemento.Attendi(8 * Sosta).Tasto(Qt::Key_Return);
        elemento.Attendi(5 * Sosta).Tasto(Qt::Key_Return);
        PremiCon(121, elemento);
        QCOMPARE(AzioneScelta, int16_t(0));
        QCOMPARE(PrimitivaAttiva, int16_t(0));
        QCOMPARE(NumeroAzioni, 3);
        QCOMPARE(Azioni[1], rettangolo);
        QCOMPARE(Azioni[2].TipoAzione, TipiAzione::Colorazione);
        QCOMPARE(Azioni[2].FlagPienoVuoto, FlagVuoto);
        QCOMPARE(Azioni[3], scritta);
        // No copy for the panel's changes: they reach the history at the next Fissa.
        QCOMPARE(NumeroCopieLavoro(), 4);
        // The fill is now its dot, the picture gone, the words still there.
        const QImage tela = a->Quadro.Immagine();
        QCOMPARE(Colore(tela, xZona, Predefiniti::CentroY), Rosso);
        QCOMPARE(Colore(tela, rettangolo.XInizio + 100, rettangolo.YInizio + 100), 0xC0C0C0);
        QCOMPARE(Colore(tela, Predefiniti::CentroX, foto.YInizio + 225), 0xC0C0C0);
        int parole = 0;
        const QRect box = BoxPixel(scritta);
        for (int y = box.top(); y <= box.bottom(); ++y)
            for (int x = box.left(); x <= box.right(); ++x)
                parole += SondePixel::Colore(tela, x, y) == Nero;
        QVERIFY(parole > 20);
        StessaTelaDopoRipresa();
    }
};

QTEST_MAIN(ProvaScenarioTestiImmagini)
#include "test_scenario_testi_immagini.moc"
