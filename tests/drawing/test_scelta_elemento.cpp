// Button 121: an action of the drawing taken back into the hands through the
// element panel, by its type; fixed in its place or cancelled; and, with one
// or two switches, a fill, a text or a picture that can still be walked.
#include "archive/Archivi.h"
#include "base/Bip.h"
#include "base/Configurazione.h"
#include "drawing/AmbienteDisegno.h"
#include "drawing/GuidaDisegno.h"
#include "drawing/GuidaSettaggi.h"
#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"
#include "model/Superficie.h"
#include "model/TracciaAzioni.h"
#include "panels/ProvaPannello.h"
#include "panels/QuadroSceltaDirezione.h"
#include "panels/QuadroScriviTesto.h"
#include "panels/QuadroSelectPrimitiva.h"
#include "support/Copione.h"
#include "support/RigheProva.h"
#include "support/SondePixel.h"

#include <QImage>
#include <QLabel>
#include <QtTest>

namespace {

constexpr int Sosta = 1000;
constexpr int32_t Nero = 0x000000;

int32_t Colore(const QImage& img, int x, int y) {
    return SondePixel::ColoreA(img, x, y);
}

// A point of the first line away from the words at the centre.
int32_t SullaLinea(const QImage& img) {
    return Colore(img, Predefiniti::CentroX + 1000, Predefiniti::CentroY + 1000);
}

// The whole of Azioni replayed on a canvas of its own, `senza` left out.
QImage Replica(int32_t senza = 0) {
    Superficie replica(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    replica.ImpostaBackColor(ColoreSfondo);
    replica.DrawStyle = 0;
    replica.FillStyle = 1;
    if (senza == 0) {
        TracciaLista(replica, Azioni, 1, NumeroAzioni);
    } else {
        TracciaLista(replica, Azioni, 1, senza - 1);
        TracciaLista(replica, Azioni, senza + 1, NumeroAzioni);
    }
    return replica.Immagine();
}

} // namespace

class ProvaSceltaElemento : public QObject, MondoDisegno {
    Q_OBJECT

    void Premi(int16_t indice) { GuidaDisegno::Premi(a, indice); }
    void PremiCon(int16_t indice, Copione& c) {
        if (ModalitàFunzionamento == 4) {
            GuidaDisegno::Frecce(Qt::Key_Right, (indice - a->Motore.TastoCorrente + 33) % 33);
        } else {
            orologio->Avanza(int64_t((indice - a->Motore.TastoCorrente + 33) % 33) * Sosta);
        }
        QCOMPARE(a->Motore.TastoCorrente, indice);
        c.Avvia();
        QVERIFY(PremiTasto(Qt::Key_Return));
        QVERIFY(c.Finito());
        QVERIFY2(c.Problemi.isEmpty(), qPrintable(c.Problemi.join(u'\n')));
    }
    // In mode 4 the element panel opens on the last action with the ring on
    // "previous": `indietro` actions back, then "make active".
    void Scegli(int indietro) {
        Copione c(*orologio);
        for (int i = 0; i < indietro; ++i)
            c.Tasto(Qt::Key_Return);
        c.Tasto(Qt::Key_Left).Tasto(Qt::Key_Left).Tasto(Qt::Key_Return);
        PremiCon(121, c);
    }
    // A line, a rectangle 2000 to the left filled red inside, and a text.
    void TreAzioni() {
        Premi(101);
        Premi(117);
        Premi(103);
        Premi(113);
        GuidaDisegno::Frecce(Qt::Key_Left, 40);
        QVERIFY(PremiTasto(Qt::Key_Return));
        Premi(117);
        ColoreZonaCorrente = 0x0000FF;
        Premi(114);
        GuidaDisegno::Frecce(Qt::Key_Left, 40);
        QVERIFY(PremiTasto(Qt::Key_Return));
        Premi(117);
        Copione t(*orologio);
        ScriviConLeFrecce(t, QStringLiteral("CIAO"));
        PremiCon(128, t);
        QVERIFY(PremiTasto(Qt::Key_Return));
        Premi(117);
        QCOMPARE(NumeroAzioni, 4);
    }

    // A rectangle taken back and shifted right until its left edge runs
    // through the dot of the fill that lies after it in the list.
    void RettangoloRipresoSulTondino() {
        TreAzioni();
        Scegli(2);
        QCOMPARE(PrimitivaAttiva, int16_t(103));
        Premi(113);
        GuidaDisegno::Frecce(Qt::Key_Right, Predefiniti::MezzoLato / PassoSpostamento);
        QVERIFY(PremiTasto(Qt::Key_Return));
    }

private slots:
    void init() { Prepara(); }
    void cleanup() { Libera(); }

    void una_linea_ripresa_sparisce_dalla_tela_e_fissa_prende_il_suo_posto() {
        a = GuidaDisegno::Apri(4);
        TreAzioni();
        const RecordAzione linea = Azioni[1];
        QCOMPARE(SullaLinea(a->Quadro.Immagine()), Nero);
        Scegli(3);
        QCOMPARE(IndiceElementoInModifica, int16_t(1));
        QCOMPARE(PrimitivaAttiva, int16_t(101));
        QCOMPARE(ComandoModifica, int16_t(0));
        QCOMPARE(ElementoRiaperto, int16_t(1));
        QCOMPARE(a->Motore.TastoCorrente, int16_t(101));
        QCOMPARE(a->TastoMarcato, int16_t(101));
        RecordAzione attesa = linea;
        attesa.SpessLinea = 1;
        QCOMPARE(ElementoInCostruzione, attesa);
        QCOMPARE(Azioni[1].SpessLinea, 1);
        // Gone from the drawing, dotted in the overlay; the fill is now a dot.
        QVERIFY(SullaLinea(a->Quadro.Immagine()) != Nero);
        QCOMPARE(Azioni[3].FlagPienoVuoto, FlagVuoto);
        // Shifted and fixed: it replaces itself, the list keeps its length.
        Premi(113);
        GuidaDisegno::Frecce(Qt::Key_Down, 10);
        QVERIFY(PremiTasto(Qt::Key_Return));
        Premi(117);
        QCOMPARE(NumeroAzioni, 4);
        QCOMPARE(IndiceElementoInModifica, int16_t(0));
        QCOMPARE(Azioni[1].YInizio, linea.YInizio + 10 * PassoSpostamento);
        QCOMPARE(Azioni[4].TipoAzione, TipiAzione::Testo);
    }

    void annulla_riporta_l_azione_con_un_ridisegno() {
        a = GuidaDisegno::Apri(4);
        TreAzioni();
        Scegli(3);
        QVERIFY(SullaLinea(a->Quadro.Immagine()) != Nero);
        Premi(118);
        QCOMPARE(PrimitivaAttiva, int16_t(0));
        QCOMPARE(ElementoRiaperto, int16_t(0));
        QCOMPARE(NumeroAzioni, 4);
        QCOMPARE(SullaLinea(a->Quadro.Immagine()), Nero);
        // The action is left alone: the next new element goes after the others.
        QCOMPARE(IndiceElementoInModifica, int16_t(0));
        const RecordAzione linea = Azioni[1];
        Premi(101);
        Premi(117);
        QCOMPARE(NumeroAzioni, 5);
        QCOMPARE(Azioni[1], linea);
        QCOMPARE(Azioni[5].TipoAzione, TipiAzione::Linea);
    }

    void fissare_un_elemento_ripreso_da_la_tela_della_sua_lista() {
        a = GuidaDisegno::Apri(4);
        RettangoloRipresoSulTondino();
        Premi(117);
        QCOMPARE(IndiceElementoInModifica, int16_t(0));
        QCOMPARE(Azioni[3].FlagPienoVuoto, FlagVuoto);
        // The dot lies after the rectangle in the list: it shows over the edge.
        const QImage tela = a->Quadro.Immagine();
        QCOMPARE(Colore(tela, int(Azioni[3].XCentro), int(Azioni[3].YCentro)), int32_t(0x0000FF));
        QVERIFY(tela == Replica());
    }

    void zone_in_tondini_e_ritorno_con_un_elemento_ripreso_non_lasciano_fantasmi() {
        a = GuidaDisegno::Apri(4);
        const RecordAzione vecchio = [this] {
            TreAzioni();
            return Azioni[2];
        }();
        Scegli(2);
        Premi(113);
        GuidaDisegno::Frecce(Qt::Key_Down, 30);
        QVERIFY(PremiTasto(Qt::Key_Return));
        Copione c(*orologio);
        GuidaSettaggi::Scegli(c, 142);
        GuidaSettaggi::Scegli(c, 141);
        GuidaSettaggi::Scegli(c, 140);
        GuidaSettaggi::Apri(a, c);
        // The old place stays empty on the drawing; the element shows where it is.
        const QImage primaDiFissare = a->Quadro.Immagine();
        QVERIFY(primaDiFissare == Replica(2));
        QVERIFY(Colore(primaDiFissare, vecchio.XInizio, vecchio.YInizio) != Nero);
        // Its handle, on the screen layer.
        QCOMPARE(Colore(a->Quadro.Schermo(), ElementoInCostruzione.XInizio,
                        ElementoInCostruzione.YInizio),
                 Nero);
        Premi(117);
        QVERIFY(a->Quadro.Immagine() == Replica());
    }

    // After a load, a new drawing or a step back in the history, an old
    // selection names nothing: the object drawn again and deleted takes
    // nothing from the new drawing.
    void una_selezione_vecchia_non_tocca_il_disegno_nuovo() {
        a = GuidaDisegno::Apri(4);
        GuidaDisegno::LineaSelezionata(a);
        QCOMPARE(OggettoAttivo, int16_t(1));
        Premi(118); // the object dropped; the selection used to stay
        QCOMPARE(OggettoAttivo, int16_t(0));
        Copione nuovo(*orologio);
        nuovo.Tasto(Qt::Key_Left).Tasto(Qt::Key_Return);
        PremiCon(119, nuovo);
        QCOMPARE(NumeroAzioni, 0);
        Premi(102);
        Premi(117);
        Premi(104);
        Premi(117);
        const QList<RecordAzione> disegno = Azioni;
        Premi(125);
        QCOMPARE(OggettoAttivo, int16_t(1));
        Premi(127);
        QCOMPARE(NumeroAzioni, 2);
        QCOMPARE(Azioni, disegno);
    }

    void una_zona_ripresa_ha_il_mirino_e_il_suo_comando_senza_pannello() {
        a = GuidaDisegno::Apri(4);
        TreAzioni();
        Scegli(1);
        QCOMPARE(IndiceElementoInModifica, int16_t(3));
        QCOMPARE(PrimitivaAttiva, int16_t(114));
        QCOMPARE(ComandoModifica, int16_t(114));
        QVERIFY(a->IconaMirino->isVisible());
        QCOMPARE(ElementoRiaperto, int16_t(1));
    }

    void un_testo_ripreso_torna_alla_tastiera_e_fissa_lo_sostituisce() {
        a = GuidaDisegno::Apri(4);
        TreAzioni();
        Scegli(0);
        QCOMPARE(PrimitivaAttiva, int16_t(128));
        QCOMPARE(ComandoModifica, int16_t(113));
        QCOMPARE(a->Motore.TastoCorrente, int16_t(113));
        QCOMPARE(NumeroRigheScritte, int16_t(1));
        QCOMPARE(RigheScritte.at(1), QStringLiteral("CIAO"));
        // The shift ends; 128 opens the keyboard on the same words.
        QVERIFY(PremiTasto(Qt::Key_Return));
        QCOMPARE(ComandoModifica, int16_t(0));
        QString aperto;
        Copione c(*orologio);
        c.Esegui([&] {
            if (auto* k = PannelloDavanti<QuadroScriviTesto>()) aperto = k->Testo().Testo();
        });
        // Words already there open the functions, the ring on "confirm"; the
        // next key goes back to the letters, on their first key. The cursor
        // stands at the end: one more letter, then Fn and confirm.
        int16_t primo = 0;
        int16_t lettere = 0;
        c.Esegui([&] { primo = FormScansione::InPrimoPiano()->Motore.TastoCorrente; });
        c.Tasto(Qt::Key_Right).Tasto(Qt::Key_Return);
        c.Esegui([&] { lettere = FormScansione::InPrimoPiano()->Motore.TastoCorrente; });
        ScriviConLeFrecce(c, QStringLiteral("X"));
        PremiCon(128, c);
        QCOMPARE(aperto, QStringLiteral("CIAO_"));
        QCOMPARE(primo, int16_t(101));
        QCOMPARE(lettere, int16_t(101));
        QCOMPARE(ElementoInCostruzione.Testo, QStringLiteral("CIAOX"));
        QCOMPARE(ElementoRiaperto, int16_t(0));
        QVERIFY(PremiTasto(Qt::Key_Return));
        Premi(117);
        QCOMPARE(NumeroAzioni, 4);
        QCOMPARE(Azioni[4].Testo, QStringLiteral("CIAOX"));
    }

    void con_uno_o_due_tasti_un_testo_ripreso_si_puo_muovere_e_lasciare_data() {
        RigheModo({1, 2});
    }
    void con_uno_o_due_tasti_un_testo_ripreso_si_puo_muovere_e_lasciare() {
        QFETCH(int, modo);
        a = GuidaDisegno::Apri(4);
        TreAzioni();
        a->Motore.FermaScansione();
        ModalitàFunzionamento = int16_t(modo);
        a->Motore.AvviaScansione();
        const RecordAzione testo = Azioni[4];
        QString direzione;
        Copione c(*orologio);
        // The element panel: from "previous" round to "make active", seven dwells.
        c.Attendi(7 * Sosta).Tasto(Qt::Key_Return);
        // The direction panel: down, the walk stopped after two steps, then
        // "Chiudi", which ends the command.
        c.Esegui([&] {
            if (auto* d = PannelloDavanti<QuadroSceltaDirezione>()) direzione = d->objectName();
        });
        c.Attendi(3 * Sosta).Tasto(Qt::Key_Return);
        c.Attendi(Sosta).Attendi(Sosta).Tasto(Qt::Key_Return);
        c.Esegui([this] {
            FormScansione* f = FormScansione::InPrimoPiano();
            for (int i = 0; f != nullptr && f != a && f->Motore.TastoCorrente != 105 && i < 10; ++i)
                orologio->Avanza(Sosta);
        });
        c.Tasto(Qt::Key_Return);
        PremiCon(121, c);
        QCOMPARE(direzione, QStringLiteral("QuadroSceltaDirezione"));
        QCOMPARE(ComandoModifica, int16_t(0));
        QCOMPARE(PrimitivaAttiva, int16_t(128));
        QCOMPARE(ElementoInCostruzione.YInizio, testo.YInizio + 2 * PassoSpostamento);
        // The ring walks again: Fissa can be reached and fired.
        QCOMPARE(a->Motore.ScansioneAttiva, int16_t(1));
        orologio->Avanza(int64_t((117 - a->Motore.TastoCorrente + 33) % 33) * Sosta);
        QCOMPARE(a->Motore.TastoCorrente, int16_t(117));
        QVERIFY(PremiTasto(Qt::Key_Return));
        QCOMPARE(PrimitivaAttiva, int16_t(0));
        QCOMPARE(NumeroAzioni, 4);
        QCOMPARE(Azioni[4].YInizio, ElementoInCostruzione.YInizio);
    }

    void chiudere_il_pannello_senza_scelta_non_cambia_nulla() {
        a = GuidaDisegno::Apri(4);
        TreAzioni();
        const QList<RecordAzione> prima = Azioni;
        Copione c(*orologio);
        // From "previous" on to "Chiudi", six keys to the right.
        for (int i = 0; i < 6; ++i)
            c.Tasto(Qt::Key_Right);
        c.Tasto(Qt::Key_Return);
        PremiCon(121, c);
        QCOMPARE(AzioneScelta, int16_t(0));
        QCOMPARE(PrimitivaAttiva, int16_t(0));
        QCOMPARE(Azioni, prima);
    }

    void eliminare_l_unica_azione_poi_rendere_attiva_non_apre_nulla() {
        a = GuidaDisegno::Apri(4);
        Premi(101);
        Premi(117);
        Copione c(*orologio);
        // "Delete" is one key back from "previous"; then "make active".
        c.Tasto(Qt::Key_Left).Tasto(Qt::Key_Return).Tasto(Qt::Key_Left).Tasto(Qt::Key_Left);
        c.Tasto(Qt::Key_Left).Tasto(Qt::Key_Return);
        PremiCon(121, c);
        QCOMPARE(NumeroAzioni, 0);
        QCOMPARE(PrimitivaAttiva, int16_t(0));
        QCOMPARE(ElementoRiaperto, int16_t(0));
    }
};

QTEST_MAIN(ProvaSceltaElemento)
#include "test_scelta_elemento.moc"
