// The drawing screen where it could once damage a drawing or end the program:
// full redraws after a dotted pen, Fissa with an element and an object open,
// a selection left from an earlier visit, faults inside commands and walks,
// and the keys and clicks of a switch user around them.
#include "app/MenuGenerale.h"
#include "archive/IstruzioniArchivio.h"
#include "base/Bip.h"
#include "base/Configurazione.h"
#include "base/Misure.h"
#include "drawing/AmbienteDisegno.h"
#include "drawing/ComandiDisegno.h"
#include "drawing/GuidaDisegno.h"
#include "input/QuadroMessaggi.h"
#include "model/RecordAzione.h"
#include "model/Selezione.h"
#include "model/StatoAmbiente.h"
#include "model/VistaSuperficie.h"
#include "panels/QuadroSceltaRibaltamenti.h"
#include "support/AmbienteProva.h"
#include "support/Copione.h"
#include "support/MondoProva.h"
#include "support/OrologioVirtuale.h"
#include "support/RigheProva.h"
#include "support/Sonde.h"

#include <QtTest>

#include <memory>

namespace {

constexpr uint32_t Nero = 0x000000;
constexpr uint32_t Bianco = 0xFFFFFF;
constexpr uint32_t Grigio = 0xC0C0C0;

// Sends a key that the keyboard repeats because it is held.
void TastoTenuto(int tastoQt) {
    FormScansione* form = FormScansione::InPrimoPiano();
    QVERIFY(form != nullptr);
    QWidget* bersaglio = form->focusWidget() != nullptr ? form->focusWidget() : form->FocusFix;
    QKeyEvent giu(QEvent::KeyPress, tastoQt, Qt::NoModifier, QString(), true);
    QCoreApplication::sendEvent(bersaglio, &giu);
}

} // namespace

class ProvaGuastiAmbiente : public QObject, MondoProva {
    Q_OBJECT

    AmbienteDisegno* a = nullptr;
    bool mancato = false; // a script waited for a ring that never came

    AmbienteDisegno* Apri(int16_t modo) { return a = GuidaDisegno::Apri(modo); }
    void Premi(int16_t indice) { GuidaDisegno::Premi(a, indice); }
    static void Frecce(Qt::Key tasto, int volte) { GuidaDisegno::Frecce(tasto, volte); }
    uint32_t Pixel(int x, int y) const { return a->Quadro.Immagine().pixel(x, y) & 0xFFFFFFu; }
    // Black pixels on the row of the default rectangle's top edge, inside its corners.
    int NeriSulBordoAlto() const {
        int neri = 0;
        const int y = 3500 / 15;
        for (int x = 5572 / 15 + 2; x <= 8572 / 15 - 2; ++x)
            if (Pixel(x, y) == Nero) ++neri;
        return neri;
    }
    static int LarghezzaBordo() { return 8572 / 15 - 2 - (5572 / 15 + 2) + 1; }

    // An empty rectangle at its default place, filled white inside by a fixed zone.
    void RettangoloRiempito() {
        Premi(103);
        Premi(117);
        Premi(114);
        QCOMPARE(ComandoModifica, int16_t(114));
        QVERIFY(PremiTasto(Qt::Key_Return)); // the crosshair stays at the centre
        Premi(117);
        QCOMPARE(NumeroAzioni, 2);
        QCOMPARE(Pixel(7072 / 15, 5000 / 15), Bianco);
        QCOMPARE(NeriSulBordoAlto(), LarghezzaBordo());
    }

    // The drawing as a switch user sees it after a full redraw: the solid
    // outline, the white inside, the grey around it.
    void DisegnoIntatto() {
        QCOMPARE(NeriSulBordoAlto(), LarghezzaBordo());
        QCOMPARE(Pixel(7072 / 15, 5000 / 15), Bianco);
        QCOMPARE(Pixel(6000 / 15, 4000 / 15), Bianco);
        QCOMPARE(Pixel(100, 100), Grigio);
        QCOMPARE(Pixel(900, 600), Grigio);
    }

    // Turns the ring of the front panel until it stands on `indice`.
    void FinoA(int16_t indice) {
        for (int i = 0; i < 40; ++i) {
            FormScansione* f = FormScansione::InPrimoPiano();
            if (f != nullptr && f->Motore.TastoCorrente == indice) return;
            orologio->Avanza(TempoLatenzaScansione);
        }
        qWarning() << "the ring never reached" << indice;
        mancato = true;
    }

private slots:
    void init() {
        mancato = false;
        Prepara();
    }
    void cleanup() { LiberaSchermi(); }

    void annulla_su_un_elemento_aperto_ridisegna_a_penna_piena() {
        Apri(4);
        RettangoloRiempito();
        Premi(101); // the line stands dotted
        QCOMPARE(a->Quadro.DrawStyle, int16_t(2));
        Premi(118);
        QCOMPARE(PrimitivaAttiva, int16_t(0));
        DisegnoIntatto();
    }

    void elimina_oggetto_ridisegna_a_penna_piena() {
        Apri(4);
        RettangoloRiempito();
        // A line 3000 to the left, then taken alone by the selection box.
        Premi(101);
        Premi(113);
        Frecce(Qt::Key_Left, 60);
        QVERIFY(PremiTasto(Qt::Key_Return));
        Premi(117);
        Premi(120);
        Frecce(Qt::Key_Left, 60);
        QVERIFY(PremiTasto(Qt::Key_Return));
        Premi(117);
        QCOMPARE(OggettoAttivo, int16_t(1));
        QCOMPARE(NumeroElementiAttivi, int16_t(1));
        QCOMPARE(ElementiAttivi[1].TipoAzione, TipiAzione::Linea);
        Premi(127);
        QCOMPARE(NumeroAzioni, 2);
        QCOMPARE(OggettoAttivo, int16_t(0));
        // What remains of the fill is its dot: the inside is grey, the outline whole.
        QCOMPARE(Azioni[2].FlagPienoVuoto, FlagVuoto);
        QCOMPARE(NeriSulBordoAlto(), LarghezzaBordo());
        QCOMPARE(Pixel(7072 / 15, 5000 / 15), Bianco);
        QCOMPARE(Pixel(6000 / 15, 4000 / 15), Grigio);
        QCOMPARE(Pixel(100, 100), Grigio);
        // Where the line was, grey again.
        QCOMPARE(Pixel(4072 / 15, 5000 / 15), Grigio);
        QCOMPARE(ContatoreBip, 0);
    }

    void fissa_con_elemento_e_oggetto_aperti_registra_entrambi() {
        Apri(4);
        GuidaDisegno::LineaSelezionata(a);
        QCOMPARE(OggettoAttivo, int16_t(1));
        Premi(118); // the object is dropped but stays in hand for 125
        QCOMPARE(OggettoAttivo, int16_t(0));
        Premi(103);
        Premi(125);
        QCOMPARE(PrimitivaAttiva, int16_t(103));
        QCOMPARE(OggettoAttivo, int16_t(1));
        const int32_t copie = NumeroCopieLavoro();
        Premi(117);
        QCOMPARE(PrimitivaAttiva, int16_t(0));
        QCOMPARE(OggettoAttivo, int16_t(0));
        QCOMPARE(NumeroAzioni, 3);
        // The primitive first, then the object.
        QCOMPARE(Azioni[2].TipoAzione, TipiAzione::Rettangolo);
        QCOMPARE(Azioni[3].TipoAzione, TipiAzione::Linea);
        QCOMPARE(Azioni[3].XInizio, Azioni[1].XInizio + 100);
        QCOMPARE(NumeroCopieLavoro(), copie + 2);
        QCOMPARE(a->Motore.TastoCorrente, int16_t(117));
    }

    void una_nuova_apertura_non_ricorda_la_selezione() {
        Apri(4);
        GuidaDisegno::LineaSelezionata(a);
        QCOMPARE(NumeroElementiSelezionati, int16_t(1));
        ChiudiAmbienteDisegno();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        Apri(4);
        QCOMPARE(NumeroElementiSelezionati, int16_t(0));
        QCOMPARE(ElementiSelezionati.size(), 1);
        QCOMPARE(RettangoloSelezione.Sinistra, int16_t(0));
        QCOMPARE(RettangoloSelezione.Destra, int16_t(0));
    }

    void apertura_completa_rimette_formato_pagina_e_centro() {
        FormatoPagina = 2;
        Apri(4);
        QCOMPARE(FormatoPagina, int16_t(1));
        QVERIFY(a->QuadroImmagine != nullptr);
        QVERIFY(!a->QuadroImmagine->isVisible());
        const QPoint centro = a->QuadroDisegno->geometry().center();
        QVERIFY(std::abs(a->CentroSchermoX - centro.x()) <= 1);
        QVERIFY(std::abs(a->CentroSchermoY - centro.y()) <= 1);
    }

    void il_messaggio_di_selezione_vuota_viene_col_riquadro_ancora_visibile() {
        Apri(4);
        Premi(101);
        Premi(117);
        Premi(120);
        Frecce(Qt::Key_Down, 70); // the box far below the line
        QVERIFY(PremiTasto(Qt::Key_Return));
        const int yRiquadro = a->Quadro.PuntoPixelY(ElementoInCostruzione.YInizio);
        const int xRiquadro = a->Quadro.PuntoPixelX(7072);
        bool riquadroVisibile = false;
        Copione messaggio(*orologio);
        messaggio.Esegui([&] {
            QCOMPARE(TestoQuadroMessaggi, TestoNessunElementoSelezionato);
            for (int dx = -3; dx <= 3; ++dx)
                if (a->Quadro.Schermo().pixel(xRiquadro + dx, yRiquadro) !=
                    a->Quadro.Immagine().pixel(xRiquadro + dx, yRiquadro))
                    riquadroVisibile = true;
        });
        messaggio.Tasto(Qt::Key_Return);
        messaggio.Avvia();
        Premi(117);
        QVERIFY(messaggio.Finito());
        QVERIFY(riquadroVisibile);
        // Wiped once the message is answered.
        QCOMPARE(a->Quadro.Schermo().pixel(xRiquadro, yRiquadro),
                 a->Quadro.Immagine().pixel(xRiquadro, yRiquadro));
    }

    void allungare_un_gruppo_senza_larghezza_da_errore_e_si_continua_data() { RigheModo({1, 2}); }
    void allungare_un_gruppo_senza_larghezza_da_errore_e_si_continua() {
        QFETCH(int, modo);
        Apri(4);
        // A vertical line at x 8572, taken as a group with no width.
        Premi(101);
        Premi(105);
        Frecce(Qt::Key_Right, 60);
        QVERIFY(PremiTasto(Qt::Key_Return));
        Premi(117);
        QCOMPARE(Azioni[1].XInizio, Azioni[1].XFine);
        Premi(120);
        QVERIFY(PremiTasto(Qt::Key_Return));
        Premi(117);
        QCOMPARE(OggettoAttivo, int16_t(1));
        QCOMPARE(RiferimentoXMin, RiferimentoXMax);
        // A walk to the right: ended on the direction panel, it leaves the
        // reference box where it was.
        ModalitàFunzionamento = static_cast<int16_t>(modo);
        a->AggiornaCorone(); // as a direct key would: no default flag in modes 1 and 2
        Copione sposta(*orologio);
        sposta.Esegui([this] { FinoA(102); }).Tasto(Qt::Key_Return);
        sposta.Attendi(1000).Tasto(Qt::Key_Return);
        sposta.Esegui([this] { FinoA(105); }).Tasto(Qt::Key_Return);
        sposta.Avvia();
        a->ClickTasto(113);
        QVERIFY(sposta.Finito());
        QVERIFY(!mancato);
        QCOMPARE(ElementiAttivi[1].XInizio, 8572 + PassoSpostamento);
        QCOMPARE(RiferimentoXMin, 8572);
        QVERIFY(amb->Scatole.isEmpty());
        const QList<RecordAzione> prima = ElementiAttivi;
        // 112 to the right: the first step divides by the box's width.
        Copione allunga(*orologio);
        allunga.Esegui([this] { FinoA(102); }).Tasto(Qt::Key_Return);
        allunga.Attendi(1000); // the step fails: the walk stops
        allunga.Esegui([this] { FinoA(105); }).Tasto(Qt::Key_Return);
        allunga.Avvia();
        a->ClickTasto(112);
        QVERIFY(allunga.Finito());
        QVERIFY(!mancato);
        QVERIFY(allunga.Problemi.isEmpty());
        QCOMPARE(amb->Scatole.size(), 1);
        QVERIFY2(amb->Scatole[0].Testo.startsWith(QStringLiteral("ERRORE 11/")),
                 qPrintable(amb->Scatole[0].Testo));
        QCOMPARE(ComandoModifica, int16_t(0));
        QCOMPARE(OggettoAttivo, int16_t(1));
        QCOMPARE(ElementiAttivi, prima);
        // The program goes on: the ring walks, and the group can be fixed.
        QVERIFY(a->Motore.InAttesa());
        FinoA(117);
        QVERIFY(!mancato);
        QCOMPARE(a->Motore.TastoCorrente, int16_t(117));
        QVERIFY(PremiTasto(Qt::Key_Return));
        QCOMPARE(amb->Scatole.size(), 1);
        QCOMPARE(OggettoAttivo, int16_t(0));
        QCOMPARE(NumeroAzioni, 2);
        QCOMPARE(amb->Scatole.size(), 1);
    }

    void un_errore_che_sfugge_a_un_comando_arriva_al_riquadro_di_errore() {
        Apri(1);
        a->ClickTasto(101);
        a->ClickTasto(117);
        // An impossible count: the full redraw of 118 overflows outside any step.
        ElementoInCostruzione = Azioni[1];
        PrimitivaAttiva = 101;
        NumeroAzioni = 40000;
        a->ClickTasto(118);
        NumeroAzioni = 1;
        QCOMPARE(amb->Scatole.size(), 1);
        QVERIFY2(
            amb->Scatole[0].Testo.startsWith(QStringLiteral("ERRORE 6/%1").arg(MarcaComando(118))),
            qPrintable(amb->Scatole[0].Testo));
        // The ring walks again in mode 1.
        QVERIFY(a->Motore.InAttesa());
        const int16_t dove = a->Motore.TastoCorrente;
        orologio->Avanza(1000);
        QCOMPARE(a->Motore.TastoCorrente, int16_t(dove % 133 + 1 + (dove == 133 ? 100 : 0)));
    }

    void le_marche_dei_comandi_sono_distinte_e_pari() {
        QSet<int16_t> viste;
        for (int16_t i = 101; i <= 133; ++i) {
            const int16_t m = MarcaComando(i);
            QVERIFY(m > 1200 && m < 1300);
            QCOMPARE(m % 2, 0);
            QVERIFY(!viste.contains(m));
            viste.insert(m);
        }
        QCOMPARE(MarcaComando(128), int16_t(1264));
        QCOMPARE(MarcaComando(129), int16_t(1266));
        QCOMPARE(MarcaComando(119), int16_t(1242));
        QCOMPARE(MarcaComando(133), int16_t(1278));
    }

    void un_click_ferma_l_anello_nei_modi_1_e_2_data() { RigheModo({1, 2}); }
    void un_click_ferma_l_anello_nei_modi_1_e_2() {
        QFETCH(int, modo);
        Apri(static_cast<int16_t>(modo));
        a->ClickTasto(101);
        QVERIFY(a->Motore.InAttesa());
        bool fermo = false;
        Copione c(*orologio);
        c.Esegui([&] { fermo = !a->Motore.InAttesa() && a->Motore.ScansioneAttiva == 0; });
        c.Attendi(3000);
        c.Esegui([&] { fermo = fermo && !a->Motore.InAttesa(); });
        // "Chiudi" as the first answer ends the command.
        c.Esegui([this] { FinoA(105); });
        c.Tasto(Qt::Key_Return);
        c.Avvia();
        QTest::mouseClick(a->Tasti.value(113), Qt::LeftButton);
        QVERIFY(c.Finito());
        QVERIFY(!mancato);
        QVERIFY(fermo);
        QCOMPARE(ComandoModifica, int16_t(0));
    }

    void f6_dopo_una_pausa_del_modo_2_fa_ripartire_l_anello() {
        TastoScelta = 1;
        TastoScansione = 2;
        TipoInversioneScansione = 2;
        Apri(2);
        QVERIFY(PremiTasto(Qt::Key_Space)); // a pause: the ring stands
        QCOMPARE(a->Motore.PassoScansione, int16_t(0));
        const int16_t fermo = a->Motore.TastoCorrente;
        orologio->Avanza(3000);
        QCOMPARE(a->Motore.TastoCorrente, fermo);
        QVERIFY(PremiTasto(Qt::Key_F6));
        QCOMPARE(ModalitàFunzionamento, int16_t(1));
        orologio->Avanza(1000);
        QCOMPARE(a->Motore.TastoCorrente, int16_t(fermo + 1));
        orologio->Avanza(1000);
        QCOMPARE(a->Motore.TastoCorrente, int16_t(fermo + 2));
    }

    void una_freccia_tenuta_muove_l_elemento_in_modo_4() {
        Apri(4);
        Premi(101);
        Premi(113);
        const int32_t x = ElementoInCostruzione.XInizio;
        for (int i = 0; i < 5; ++i)
            TastoTenuto(Qt::Key_Right);
        QCOMPARE(ElementoInCostruzione.XInizio, x + 5 * PassoSpostamento);
        QVERIFY(PremiTasto(Qt::Key_Return));
        QCOMPARE(ComandoModifica, int16_t(0));
        // With no command open a held key moves neither the ring nor the element.
        const int16_t dove = a->Motore.TastoCorrente;
        TastoTenuto(Qt::Key_Right);
        TastoTenuto(Qt::Key_Return);
        QCOMPARE(a->Motore.TastoCorrente, dove);
        QCOMPARE(PrimitivaAttiva, int16_t(101));
    }

    void una_scelta_tenuta_non_ripete_nei_modi_1_e_2() {
        Apri(1);
        a->ClickTasto(101);
        const int16_t dove = a->Motore.TastoCorrente;
        TastoTenuto(Qt::Key_Return);
        QCOMPARE(a->Motore.TastoCorrente, dove);
        QVERIFY(a->Motore.InAttesa());
        QCOMPARE(ContatoreBip, 0);
    }

    void il_quadro_dei_ribaltamenti_sta_accanto_al_quadro_di_disegno() {
        Apri(4);
        // Move the drawing screen away from the corner: the panel follows it.
        a->move(a->pos() + QPoint(37, 21));
        GuidaDisegno::LineaSelezionata(a);
        QPoint posto;
        // 123 opens the panel; the script reads its place and closes it on "Chiudi".
        Copione chiudi(*orologio);
        chiudi.Esegui([&] { posto = FormScansione::InPrimoPiano()->pos(); });
        for (int i = 0; i < 4; ++i)
            chiudi.Tasto(Qt::Key_Down);
        chiudi.Tasto(Qt::Key_Return);
        chiudi.Avvia();
        Premi(123);
        QVERIFY(chiudi.Finito());
        QCOMPARE(RibaltamentoScelto, int16_t(5));
        QCOMPARE(posto, a->mapToGlobal(QPoint(Px(14144 - 795), Px(1440 - 45 + 260))));
    }
};

QTEST_MAIN(ProvaGuastiAmbiente)
#include "test_guasti_ambiente.moc"
