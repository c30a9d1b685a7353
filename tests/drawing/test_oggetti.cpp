// Objects on the drawing screen, worked as a switch user works them: three
// shapes drawn, two taken with the selection box, moved, flipped, fixed as a
// copy and as a move, drawn again and deleted.
#include "app/MenuGenerale.h"
#include "archive/Archivi.h"
#include "archive/IstruzioniArchivio.h"
#include "base/Bip.h"
#include "base/Configurazione.h"
#include "drawing/AmbienteDisegno.h"
#include "drawing/GuidaDisegno.h"
#include "input/QuadroMessaggi.h"
#include "model/RecordAzione.h"
#include "model/Selezione.h"
#include "model/StatoAmbiente.h"
#include "panels/QuadroSceltaRibaltamenti.h"
#include "support/AmbienteProva.h"
#include "support/Copione.h"
#include "support/MondoProva.h"
#include "support/OrologioVirtuale.h"
#include "support/Sonde.h"

#include <QtTest>

#include <algorithm>
#include <cmath>
#include <memory>

class ProvaOggetti : public QObject, MondoProva {
    Q_OBJECT

    AmbienteDisegno* a = nullptr;

    AmbienteDisegno* Apri(int16_t modo) { return a = GuidaDisegno::Apri(modo); }
    void Premi(int16_t indice) { GuidaDisegno::Premi(a, indice); }
    static void Frecce(Qt::Key tasto, int volte) { GuidaDisegno::Frecce(tasto, volte); }
    // The colour of the stored picture at a point in twips.
    uint32_t Pixel(int x, int y) const {
        return a->Quadro.Immagine().pixel(x / 15, y / 15) & 0xFFFFFFu;
    }

    // Line, rectangle 2000 to the left, ellipse 3000 to the right; all fixed.
    void TreForme() {
        Premi(101);
        Premi(117);
        Premi(103);
        Premi(113);
        Frecce(Qt::Key_Left, 40);
        QVERIFY(PremiTasto(Qt::Key_Return)); // the red button ends the move
        Premi(117);
        Premi(104);
        Premi(113);
        Frecce(Qt::Key_Right, 60);
        QVERIFY(PremiTasto(Qt::Key_Return));
        Premi(117);
        QCOMPARE(NumeroAzioni, 3);
        QCOMPARE(NumeroCopieLavoro(), 3);
    }

    // The default box widened 2000 to the left takes the line and the rectangle.
    void SelezionaDue() {
        Premi(120);
        QCOMPARE(PrimitivaAttiva, int16_t(120));
        QCOMPARE(ComandoModifica, int16_t(113));
        QVERIFY(PremiTasto(Qt::Key_Return)); // end of the box's first move
        Premi(111);
        Frecce(Qt::Key_Left, 40);
        QCOMPARE(ElementoInCostruzione.XInizio, 3572);
        QVERIFY(PremiTasto(Qt::Key_Return));
        Premi(117);
        QCOMPARE(OggettoAttivo, int16_t(1));
        QCOMPARE(NumeroElementiAttivi, int16_t(2));
        QCOMPARE(NumeroElementiSelezionati, int16_t(2));
        QCOMPARE(ElementiSelezionati[1], int16_t(1));
        QCOMPARE(ElementiSelezionati[2], int16_t(2));
        QCOMPARE(RiferimentoXMin, 3572);
        QCOMPARE(RiferimentoXMax, 8572);
        QCOMPARE(NumeroCopieLavoro(), 3); // a selection stores nothing
        Schermata(a, QStringLiteral("oggetto"));
    }

private slots:
    void init() { Prepara(); }
    void cleanup() { LiberaSchermi(); }

    void scenario_in_modo_4() {
        Apri(4);
        TreForme();
        SelezionaDue();
        QCOMPARE(ContatoreBip, 0);

        // Move the group 500 down: Azioni doesn't change until Fissa.
        Premi(113);
        Frecce(Qt::Key_Down, 10);
        QVERIFY(PremiTasto(Qt::Key_Return));
        QCOMPARE(ElementiAttivi[1].YInizio, 4000);
        QCOMPARE(ElementiAttivi[2].YFine, 7000);
        QCOMPARE(Azioni[1].YInizio, 3500);
        QCOMPARE(RiferimentoYMax, 7000); // the reference box follows the end of the command
        Schermata(a, QStringLiteral("oggetto-spostato"));

        // Flip about the right edge of the group.
        Copione c(*orologio);
        c.Tasto(Qt::Key_Return); // "Ribalta per Asse Destro" holds the ring first
        c.Avvia();
        Premi(123);
        QVERIFY(c.Finito());
        QCOMPARE(RibaltamentoScelto, int16_t(1));
        // The line from 5572 to 8572: its start mirrors about 8572, its end stays.
        QCOMPARE(ElementiAttivi[1].XInizio, 11572);
        QCOMPARE(ElementiAttivi[1].XFine, 8572);
        QCOMPARE(ElementiAttivi[2].XInizio, 13572);
        QCOMPARE(ElementiAttivi[2].XFine, 10572);

        // Fissa with copy: the sources stay, the group goes to the end.
        Premi(117);
        QCOMPARE(OggettoAttivo, int16_t(0));
        QCOMPARE(NumeroAzioni, 5);
        QCOMPARE(Azioni[1].XInizio, 5572);
        QCOMPARE(Azioni[4].XInizio, 11572);
        QCOMPARE(NumeroCopieLavoro(), 4);
        QCOMPARE(Pixel(13572, 5500), 0u); // the flipped rectangle's edge, in black

        // Draw it again 100 further, as a move: the selected indices go.
        Premi(125);
        QCOMPARE(OggettoAttivo, int16_t(1));
        QCOMPARE(ElementiAttivi[1].XInizio, 11672);
        Premi(126);
        QCOMPARE(CopiaOSposta, int16_t(2));
        QVERIFY(a->Tasti.value(126)->property("risorsaIcona").toString().contains("sposta"));
        Premi(117);
        QCOMPARE(NumeroAzioni, 5);
        QCOMPARE(Azioni[1].TipoAzione, TipiAzione::Ellisse); // 1 and 2 were taken out
        QCOMPARE(Azioni[5].XInizio, 13672);
        QCOMPARE(NumeroCopieLavoro(), 5);

        // Delete: again the last object, then out with its sources.
        Premi(125);
        Premi(127);
        QCOMPARE(OggettoAttivo, int16_t(0));
        QCOMPARE(NumeroAzioni, 3);
        QCOMPARE(NumeroCopieLavoro(), 5); // a deletion stores no copy
        QCOMPARE(ContatoreBip, 0);
    }

    void scenario_in_modo_1() {
        Apri(1);
        // Modes 1 and 2 reach every command through the ring on the clock:
        // here the group is built with the mouse path of the same click
        // routine, and the moves go through the direction panel's walk.
        a->ClickTasto(101);
        a->ClickTasto(117);
        a->ClickTasto(103);
        a->ClickTasto(117);
        a->ClickTasto(104);
        a->ClickTasto(117);
        QCOMPARE(NumeroAzioni, 3);
        Copione c(*orologio);
        // The box's first move: "Basso" is 4 dwells from "Sinistra", then two steps.
        for (int i = 0; i < 3; ++i)
            c.Attendi(1000);
        c.Tasto(Qt::Key_Return); // "Basso"
        c.Attendi(1000).Attendi(1000);
        c.Tasto(Qt::Key_Return);               // stop: the panel again, on "Basso"
        c.Attendi(1000).Tasto(Qt::Key_Return); // "Chiudi"
        c.Avvia();
        a->ClickTasto(120);
        QVERIFY(c.Finito());
        QCOMPARE(ComandoModifica, int16_t(0));
        QCOMPARE(ElementoInCostruzione.YInizio, 3600);
        // The box now misses the tops of both shapes: nothing is selected.
        Copione messaggio(*orologio);
        messaggio.Esegui([] { QCOMPARE(TestoQuadroMessaggi, TestoNessunElementoSelezionato); });
        messaggio.Tasto(Qt::Key_Return);
        messaggio.Avvia();
        a->ClickTasto(117);
        QVERIFY(messaggio.Finito());
        QCOMPARE(OggettoAttivo, int16_t(0));
        QCOMPARE(PrimitivaAttiva, int16_t(0));
        QCOMPARE(NumeroAzioni, 3);
        // A new box where it is born takes the line and the rectangle. "Chiudi" as
        // the first answer ends the command at once, and the ring walks on.
        Copione chiudi(*orologio);
        chiudi.Tasto(Qt::Key_Return);
        chiudi.Avvia();
        a->ClickTasto(120);
        QVERIFY(chiudi.Finito());
        QCOMPARE(a->Motore.ScansioneAttiva, int16_t(1));
        QCOMPARE(ElementoInCostruzione.YInizio, 3500);
        QCOMPARE(ComandoModifica, int16_t(0));
        a->ClickTasto(117);
        QCOMPARE(OggettoAttivo, int16_t(1));
        QCOMPARE(NumeroElementiAttivi, int16_t(2));
        // Move the group two steps down through the direction panel.
        Copione sposta(*orologio);
        for (int i = 0; i < 4; ++i)
            sposta.Attendi(1000); // from "Chiudi" round to "Basso"
        sposta.Tasto(Qt::Key_Return);
        sposta.Attendi(1000).Attendi(1000);
        sposta.Tasto(Qt::Key_Return);               // stop: the panel on "Basso"
        sposta.Attendi(1000).Tasto(Qt::Key_Return); // "Chiudi"
        sposta.Avvia();
        a->ClickTasto(113);
        QVERIFY(sposta.Finito());
        QCOMPARE(ElementiAttivi[1].YInizio, 3600);
        QCOMPARE(Azioni[1].YInizio, 3500);
        // Flip about the right edge: the flip panel scans too; its first button flips.
        Copione ribalta(*orologio);
        ribalta.Tasto(Qt::Key_Return);
        ribalta.Avvia();
        a->ClickTasto(123);
        QVERIFY(ribalta.Finito());
        QCOMPARE(ElementiAttivi[1].XInizio, 11572);
        // Fissa with copy: sources stay, the group goes to the end.
        a->ClickTasto(117);
        QCOMPARE(NumeroAzioni, 5);
        QCOMPARE(NumeroCopieLavoro(), 4);
        // Draw it again and fix it as a move: the selected indices go.
        a->ClickTasto(125);
        a->ClickTasto(126);
        a->ClickTasto(117);
        QCOMPARE(NumeroAzioni, 5);
        QCOMPARE(Azioni[1].TipoAzione, TipiAzione::Ellisse);
        QCOMPARE(NumeroCopieLavoro(), 5);
        // Draw it again and delete: no copy is written.
        a->ClickTasto(125);
        a->ClickTasto(127);
        QCOMPARE(OggettoAttivo, int16_t(0));
        QCOMPARE(NumeroAzioni, 3);
        QCOMPARE(NumeroCopieLavoro(), 5);
        QCOMPARE(ContatoreBip, 1); // only the message panel's own, at the empty selection
        // The ring walks on from 117.
        orologio->Avanza(1000);
        QCOMPARE(a->Motore.TastoCorrente, int16_t(118));
    }

    void annulla_di_un_oggetto_lascia_azioni_intatte() {
        Apri(4);
        TreForme();
        SelezionaDue();
        Premi(113);
        Frecce(Qt::Key_Right, 5);
        QVERIFY(PremiTasto(Qt::Key_Return));
        Premi(118);
        QCOMPARE(OggettoAttivo, int16_t(0));
        QCOMPARE(NumeroAzioni, 3);
        QCOMPARE(Azioni[1].XInizio, 5572);
        // The overlay is wiped: the screen shows the stored picture.
        QVERIFY(a->Quadro.Schermo() == a->Quadro.Immagine());
    }

    void un_gruppo_al_bordo_non_si_muove_e_suona() {
        Apri(4);
        TreForme();
        SelezionaDue();
        Premi(113);
        const QList<RecordAzione> prima = ElementiAttivi;
        Frecce(Qt::Key_Up, 200); // far past the top edge
        QVERIFY(ContatoreBip > 0);
        // The group's centre stays on the canvas.
        QVERIFY((ElementiAttivi[1].YInizio + ElementiAttivi[1].YFine) / 2 >= 0);
        const int bip = ContatoreBip;
        QVERIFY(PremiTasto(Qt::Key_Up)); // refused at once
        QCOMPARE(ContatoreBip, bip + 1);
        QVERIFY(PremiTasto(Qt::Key_Down)); // another key frees it
        QCOMPARE(ContatoreBip, bip + 1);
        QVERIFY(ElementiAttivi != prima);
    }

    // 111 stretches a group from its right and bottom edges, 112 from its left
    // and top ones. Each key goes on until the box would come down to a tenth
    // of the one selected or its centre would leave the canvas; there it
    // refuses with a beep and nothing of the group or the screen changes.
    void grandezza_di_un_gruppo_rifiuta_ai_suoi_limiti_data() {
        QTest::addColumn<int>("comando");
        QTest::addColumn<int>("tasto");
        const std::pair<const char*, int> tasti[] = {{"destra", Qt::Key_Right},
                                                     {"sinistra", Qt::Key_Left},
                                                     {"su", Qt::Key_Up},
                                                     {"giu", Qt::Key_Down}};
        for (int comando : {111, 112})
            for (const auto& [nome, tasto] : tasti)
                QTest::newRow(qPrintable(QStringLiteral("%1 %2").arg(comando).arg(nome)))
                    << comando << tasto;
    }
    void grandezza_di_un_gruppo_rifiuta_ai_suoi_limiti() {
        QFETCH(int, comando);
        QFETCH(int, tasto);
        Apri(4);
        GuidaDisegno::LineaSelezionata(a); // the box of the line: 5572, 3500 to 8572, 6500
        QCOMPARE(OggettoAttivo, int16_t(1));
        const int xMin0 = 5572, yMin0 = 3500, xMax0 = 8572, yMax0 = 6500;
        const int decimoX = (xMax0 - xMin0) / 10, decimoY = (yMax0 - yMin0) / 10;
        const int passo = PassoSpostamento;
        Premi(static_cast<int16_t>(comando));
        QCOMPARE(ComandoModifica, int16_t(comando));
        // Would the next key be refused, on the box the group has now?
        const auto alLimite = [&] {
            const RecordAzione& l = ElementiAttivi[1];
            const int xMin = std::min(l.XInizio, l.XFine), xMax = std::max(l.XInizio, l.XFine);
            const int yMin = std::min(l.YInizio, l.YFine), yMax = std::max(l.YInizio, l.YFine);
            const int mezzaL = static_cast<int>(std::lrint(std::abs((xMax - xMin) / 2.0)));
            const int mezzaA = static_cast<int>(std::lrint(std::abs((yMax - yMin) / 2.0)));
            const bool grande = comando == 111;
            switch (tasto) {
            case Qt::Key_Right:
                return grande ? xMin + passo >= xMax0 - decimoX : xMin + mezzaL + passo > 14144;
            case Qt::Key_Left:
                return grande ? xMax - mezzaL - passo < 0 : xMax - passo <= xMin0 + decimoX;
            case Qt::Key_Up:
                return grande ? yMax - mezzaA - passo < 0 : yMax - passo <= yMin0 + decimoY;
            default:
                return grande ? yMin + passo >= yMax0 - decimoY : yMin + mezzaA + passo > 10000;
            }
        };
        int passi = 0;
        for (;; ++passi) {
            QVERIFY2(passi < 400, "the group never reaches its limit");
            const bool rifiuto = alLimite();
            const QList<RecordAzione> prima = ElementiAttivi;
            const QImage schermo = a->Quadro.Schermo();
            const int bip = ContatoreBip;
            QVERIFY(PremiTasto(tasto));
            if (rifiuto) {
                QCOMPARE(ContatoreBip, bip + 1);
                QVERIFY(ElementiAttivi == prima);
                QVERIFY(a->Quadro.Schermo() == schermo);
                break;
            }
            QCOMPARE(ContatoreBip, bip);
            QVERIFY(ElementiAttivi != prima);
        }
        QVERIFY(passi > 50); // a long way from the box selected
        // Stopped there: the same key again is refused at once.
        const QList<RecordAzione> fermo = ElementiAttivi;
        QVERIFY(PremiTasto(tasto));
        QVERIFY(ElementiAttivi == fermo);
        QCOMPARE(ComandoModifica, int16_t(comando));
        QCOMPARE(NumeroAzioni, 1);
        QCOMPARE(Azioni[1].XInizio, xMin0);
        QCOMPARE(Azioni[1].YFine, yMax0);
    }

    void disegna_l_ultimo_oggetto_all_apertura_suona() {
        Apri(4);
        a->ClickTasto(125);
        QCOMPARE(ContatoreBip, 1);
        QCOMPARE(OggettoAttivo, int16_t(0));
    }
};

QTEST_MAIN(ProvaOggetti)
#include "test_oggetti.moc"
