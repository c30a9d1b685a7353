// "Scelta Colore Zona" from the drawing screen: the colour panel opened by the
// ring, a colour picked or the panel left, and the fill that follows, in the
// working modes of a switch user.
#include "base/Bip.h"
#include "base/Configurazione.h"
#include "drawing/AmbienteDisegno.h"
#include "drawing/GuidaDisegno.h"
#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"
#include "model/VistaSuperficie.h"
#include "panels/QuadroSceltaColore1.h"
#include "panels/QuadroSceltaDirezione.h"
#include "support/Copione.h"
#include "support/RigheProva.h"
#include "support/Sonde.h"
#include "support/SondePixel.h"

#include <QLabel>
#include <QtTest>

namespace {

constexpr int32_t Bianco = 0xFFFFFF;
constexpr int32_t Rosso = 0x0000FF; // button 104
constexpr int32_t Verde = 0x00FF00; // button 106
constexpr int32_t Sfondo = 0xC0C0C0;

using SondePixel::ColoreA;

// The colour the label of the fill colour has, and the one it shows.
int32_t ColoreEtichetta(AmbienteDisegno* a) {
    const QColor c = a->MostraColoreZona[0]->palette().color(QPalette::Window);
    return c.red() | (c.green() << 8) | (c.blue() << 16);
}
int32_t ColoreEtichettaSulloSchermo(AmbienteDisegno* a) {
    const QImage schermo = a->grab().toImage();
    const QRgb p = schermo.pixel(a->MostraColoreZona[0]->geometry().topLeft() + QPoint(4, 4));
    return qRed(p) | (qGreen(p) << 8) | (qBlue(p) << 16);
}

// A step of the script that brings the ring of the front form to `tasto` as
// the mode moves it: the clock in modes 1 and 2, the scan key in mode 3, the
// arrows in mode 4 (down by rows on a grid, then right).
std::function<void()> Anello(OrologioVirtuale& orologio, int16_t tasto) {
    return [&orologio, tasto] {
        for (int giri = 0; giri < 80; ++giri) {
            FormScansione* f = FormScansione::InPrimoPiano();
            if (f == nullptr || f->Motore.TastoCorrente == tasto) return;
            const MotoreScansione& m = f->Motore;
            switch (ModalitàFunzionamento) {
            case 1:
            case 2:
                orologio.Avanza(TempoLatenzaScansione);
                break;
            case 3:
                PremiTasto(Qt::Key_Space);
                break;
            default: {
                const bool altraRiga = m.Colonne > 0 && (m.TastoCorrente - m.Primo) / m.Colonne !=
                                                            (tasto - m.Primo) / m.Colonne;
                PremiTasto(altraRiga ? Qt::Key_Down : Qt::Key_Right);
                break;
            }
            }
        }
    };
}

// The ring to the button and its choice.
void Scegli(Copione& c, OrologioVirtuale& orologio, int16_t tasto) {
    c.Esegui(Anello(orologio, tasto)).Tasto(Qt::Key_Return);
}

} // namespace

class ProvaSceltaColoreZona : public QObject, MondoDisegno {
    Q_OBJECT

    // Picks `colore` (a button of the panel) through 115, from wherever the ring stands.
    void SceltaColoreZona(Copione& c, int16_t tastoColore) {
        Scegli(c, *orologio, 115);
        Scegli(c, *orologio, tastoColore);
    }

    // The fill's command ended with no step. In mode 4 on its red button. In
    // mode 3 "Chiudi" on the direction panel, then the red button, which asks
    // again. In modes 1 and 2 "Chiudi" walks on with no step: the choice key
    // stops it and "Chiudi" again ends it.
    void FineComando(Copione& c) {
        if (ModalitàFunzionamento == 4) {
            c.Tasto(Qt::Key_Return);
            return;
        }
        Scegli(c, *orologio, 105);
        // In modes 1 and 2 "Chiudi" on the first opening ends the command; in
        // mode 3 the red button, fired by Enter, asks again.
        if (ModalitàFunzionamento == 3) {
            c.Tasto(Qt::Key_Return);
            Scegli(c, *orologio, 105);
        }
    }

    void Esegui(Copione& c) {
        c.EseguiFinoAllaFine();
        QVERIFY2(c.Problemi.isEmpty(), qPrintable(c.Problemi.join(u'\n')));
        QCOMPARE(FormScansione::InPrimoPiano(), static_cast<FormScansione*>(a));
    }

private slots:
    void init() { Prepara(); }
    void cleanup() { Libera(); }

    void modi_data() { RigheModo({1, 2, 3, 4}); }

    void il_colore_scelto_passa_all_etichetta_data() { modi_data(); }
    void il_colore_scelto_passa_all_etichetta() {
        QFETCH(int, modo);
        a = GuidaDisegno::Apri(static_cast<int16_t>(modo));
        QCOMPARE(ColoreZonaCorrente, Bianco);
        QCOMPARE(ColoreEtichetta(a), Bianco);
        int16_t partenza = 0;
        QPoint centroPannello;
        Copione c(*orologio);
        Scegli(c, *orologio, 115);
        c.Esegui([&] {
            auto* q = dynamic_cast<QuadroSceltaColore1*>(FormScansione::InPrimoPiano());
            if (q == nullptr) return;
            partenza = q->Motore.TastoCorrente;
            centroPannello = q->geometry().center();
        });
        Scegli(c, *orologio, 104);
        Esegui(c);
        QCOMPARE(partenza, int16_t(101)); // white, the first button
        // Over the middle of the canvas, which it leaves in sight around it.
        const QPoint centroQuadro =
            a->QuadroDisegno->mapToGlobal(a->QuadroDisegno->rect().center());
        QVERIFY((centroPannello - centroQuadro).manhattanLength() <= 2);
        QCOMPARE(ColoreZonaCorrente, Rosso);
        QCOMPARE(ColoreEtichetta(a), Rosso);
        QCOMPARE(ColoreEtichettaSulloSchermo(a), Rosso);
        QCOMPARE(ColoreLineaCorrente, 0); // the line colour is another button's
        QCOMPARE(ContatoreBip, 0);
        // The ring goes on from 115, in modes 1 and 2 by itself.
        QCOMPARE(a->Motore.TastoCorrente, int16_t(115));
        if (modo <= 2) {
            QCOMPARE(a->Motore.ScansioneAttiva, int16_t(1));
            orologio->Avanza(1000);
            QCOMPARE(a->Motore.TastoCorrente, int16_t(116));
        } else {
            QCOMPARE(TastoPredefinito(*a), int16_t(115));
        }
        // The next opening starts the ring on the colour now in use.
        Copione di_nuovo(*orologio);
        Scegli(di_nuovo, *orologio, 115);
        di_nuovo.Esegui([&] {
            if (FormScansione* f = FormScansione::InPrimoPiano(); f != a) {
                partenza = f->Motore.TastoCorrente;
                f->ClickTasto(124);
            }
        });
        Esegui(di_nuovo);
        QCOMPARE(partenza, int16_t(104));
        QCOMPARE(ColoreZonaCorrente, Rosso);
    }

    void lasciare_il_pannello_non_cambia_nulla_data() { modi_data(); }
    void lasciare_il_pannello_non_cambia_nulla() {
        QFETCH(int, modo);
        a = GuidaDisegno::Apri(static_cast<int16_t>(modo));
        Copione c(*orologio);
        SceltaColoreZona(c, 124);
        Esegui(c);
        QCOMPARE(ColoreZonaCorrente, Bianco);
        QCOMPARE(ColoreEtichetta(a), Bianco);
        QCOMPARE(ColoreEtichettaSulloSchermo(a), Bianco);
        QCOMPARE(ColoreScelto, -1);
        QCOMPARE(ContatoreBip, 0);
        QCOMPARE(a->Motore.TastoCorrente, int16_t(115));
        QCOMPARE(a->Motore.ScansioneAttiva, int16_t(modo <= 2 ? 1 : 0));
    }

    // A box, then red, then a fill at the centre, fixed: red inside the box,
    // the background outside it.
    void una_zona_dopo_il_rosso_si_colora_di_rosso_data() { modi_data(); }
    void una_zona_dopo_il_rosso_si_colora_di_rosso() {
        QFETCH(int, modo);
        a = GuidaDisegno::Apri(static_cast<int16_t>(modo));
        Copione c(*orologio);
        Scegli(c, *orologio, 103);
        Scegli(c, *orologio, 117);
        SceltaColoreZona(c, 104);
        Scegli(c, *orologio, 114);
        FineComando(c);
        Scegli(c, *orologio, 117);
        Esegui(c);
        QCOMPARE(NumeroAzioni, 2);
        QCOMPARE(Azioni[2].TipoAzione, TipiAzione::Colorazione);
        QCOMPARE(Azioni[2].ColZona, Rosso);
        QCOMPARE(Azioni[2].XCentro, 7072.0f);
        const QImage& quadro = a->Quadro.Immagine();
        QCOMPARE(ColoreA(quadro, 7072, 5000), Rosso);
        QCOMPARE(ColoreA(quadro, 5800, 3700), Rosso);
        QCOMPARE(ColoreA(quadro, 8400, 6300), Rosso);
        QCOMPARE(ColoreA(quadro, 3000, 2000), Sfondo);
        QCOMPARE(ColoreA(quadro, 10000, 8000), Sfondo);
        QCOMPARE(ColoreA(a->Quadro.Schermo(), 7072, 5000), Rosso);
        QCOMPARE(ContatoreBip, 0);
    }

    // The colour counts when the open element is fixed, not when it was opened.
    void con_una_zona_aperta_il_nuovo_colore_vale_al_fissa_data() { modi_data(); }
    void con_una_zona_aperta_il_nuovo_colore_vale_al_fissa() {
        QFETCH(int, modo);
        a = GuidaDisegno::Apri(static_cast<int16_t>(modo));
        Copione c(*orologio);
        Scegli(c, *orologio, 103);
        Scegli(c, *orologio, 117);
        SceltaColoreZona(c, 104); // red
        Scegli(c, *orologio, 114);
        FineComando(c);
        int16_t aperta = 0;
        c.Esegui([&] { aperta = PrimitivaAttiva; });
        SceltaColoreZona(c, 106); // green, with the fill open
        int16_t dopo = 0;
        c.Esegui([&] { dopo = PrimitivaAttiva; });
        Scegli(c, *orologio, 117);
        Esegui(c);
        QCOMPARE(aperta, int16_t(114));
        QCOMPARE(dopo, int16_t(114));
        QCOMPARE(ColoreEtichetta(a), Verde);
        QCOMPARE(Azioni[2].ColZona, Verde);
        QCOMPARE(ColoreA(a->Quadro.Immagine(), 7072, 5000), Verde);
        QCOMPARE(ContatoreBip, 0);
    }

    // With a line open the panel opens all the same; the line stays open and
    // marked, and takes the colour when it is fixed.
    void con_un_elemento_aperto_la_scelta_lo_lascia_aperto_data() { modi_data(); }
    void con_un_elemento_aperto_la_scelta_lo_lascia_aperto() {
        QFETCH(int, modo);
        a = GuidaDisegno::Apri(static_cast<int16_t>(modo));
        Copione c(*orologio);
        Scegli(c, *orologio, 101);
        SceltaColoreZona(c, 106);
        Esegui(c);
        QCOMPARE(PrimitivaAttiva, int16_t(101));
        QCOMPARE(ColoreZonaCorrente, Verde);
        QCOMPARE(ColoreEtichetta(a), Verde);
        QCOMPARE(ColoreCorona(*a, 101), 0x0000FFu); // still marked
        QVERIFY(a->Corone.value(101)->isVisible());
        QCOMPARE(ElementoInCostruzione.XInizio, Predefiniti::XInizio);
        QCOMPARE(ContatoreBip, 0);
        Copione fissa(*orologio);
        Scegli(fissa, *orologio, 117);
        Esegui(fissa);
        QCOMPARE(NumeroAzioni, 1);
        QCOMPARE(Azioni[1].ColZona, Verde);
    }

    // While an edit command holds the keys, a click reaches the button all the same.
    void con_un_comando_in_corso_un_clic_apre_il_pannello() {
        a = GuidaDisegno::Apri(4);
        GuidaDisegno::Premi(a, 101);
        GuidaDisegno::Premi(a, 106);
        QCOMPARE(ComandoModifica, int16_t(106));
        Copione c(*orologio);
        c.Esegui([this] { QTest::mouseClick(a->Tasti.value(115), Qt::LeftButton); });
        c.Esegui([] {
            if (auto* q = dynamic_cast<QuadroSceltaColore1*>(FormScansione::InPrimoPiano()))
                q->ClickTasto(104);
        });
        Esegui(c);
        QCOMPARE(ColoreZonaCorrente, Rosso);
        QCOMPARE(ComandoModifica, int16_t(106));
        QCOMPARE(PrimitivaAttiva, int16_t(101));
        QCOMPARE(ContatoreBip, 0);
    }
};

QTEST_MAIN(ProvaSceltaColoreZona)
#include "test_scelta_colore_zona.moc"
