// The drawing screen worked as a switch user works it: the road of one line in
// the four working modes, and the buttons that refuse in each state.
#include "app/MenuGenerale.h"
#include "archive/Archivi.h"
#include "archive/IstruzioniArchivio.h"
#include "base/Bip.h"
#include "base/Configurazione.h"
#include "drawing/AmbienteDisegno.h"
#include "drawing/GuidaDisegno.h"
#include "input/QuadroMessaggi.h"
#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"
#include "model/VistaSuperficie.h"
#include "support/AmbienteProva.h"
#include "support/Copione.h"
#include "support/MondoProva.h"
#include "support/OrologioVirtuale.h"
#include "support/Sonde.h"
#include "support/SondePixel.h"

#include <QLabel>
#include <QSqlError>
#include <QtTest>

#include <memory>

namespace {

int RigheCopia(int32_t codice) {
    return LeggiValore(
               PercorsoArchivioDisegni(),
               QStringLiteral("SELECT count(*) FROM TabAzioniDisegno WHERE CodiceDisegno = %1")
                   .arg(codice))
        .toInt();
}

} // namespace

class ProvaAmbienteDisegno : public QObject, MondoProva {
    Q_OBJECT

    static AmbienteDisegno* Apri(int16_t modo) { return GuidaDisegno::Apri(modo); }
    static AmbienteDisegno* A() { return AmbienteDisegnoAperto(); }

    // The line fixed at the end of every road: its end moved three steps right.
    void VerificaLinea() {
        QCOMPARE(NumeroAzioni, 1);
        const RecordAzione& l = Azioni[1];
        QCOMPARE(l.TipoAzione, TipiAzione::Linea);
        QCOMPARE(l.XInizio, 5572);
        QCOMPARE(l.YInizio, 3500);
        QCOMPARE(l.XFine, 8572 + 3 * 50);
        QCOMPARE(l.YFine, 6500);
        QCOMPARE(l.ColLinea, 0);
        QCOMPARE(l.SpessLinea, 2);
        QCOMPARE(PrimitivaAttiva, int16_t(0));
        QCOMPARE(ComandoModifica, int16_t(0));
        QCOMPARE(CodiceCopiaLavoro, 1000001);
        QCOMPARE(RigheCopia(1000001), 1);
        // On the stored picture: black on the line's middle, background away from it.
        const QImage& bitmap = A()->Quadro.Immagine();
        const int x = static_cast<int>((5572 + 8722) / 2 / 15.0);
        const int y = static_cast<int>((3500 + 6500) / 2 / 15.0);
        const bool nero = NeroVicino(bitmap, x, y);
        QVERIFY(nero);
        QCOMPARE(bitmap.pixel(20, 20) & 0xFFFFFFu, 0xC0C0C0u);
        QCOMPARE(A()->Motore.TastoCorrente, int16_t(117));
    }

    // The colour of a ring as the screen shows it: a pixel of the ring's rim,
    // outside its button.
    static uint32_t ColoreAnelloSulloSchermo(AmbienteDisegno* a, int16_t indice) {
        const QImage schermo = a->grab().toImage();
        const QPoint p = a->Corone.value(indice)->geometry().topLeft() + QPoint(1, 1);
        return schermo.pixel(p) & 0xFFFFFFu;
    }
    // Is any pixel round this point of the picture black?
    static bool NeroVicino(const QImage& img, int x, int y) {
        return SondePixel::Intorno(img, x, y, 2, SondePixel::Nero);
    }

private slots:
    void init() { Prepara(); }
    void cleanup() { LiberaSchermi(); }

    void all_apertura_il_titolo_nomina_la_cartella_e_il_comando() {
        AmbienteDisegno* a = Apri(4);
        QCOMPARE(a->Motore.TastoCorrente, int16_t(119));
        QCOMPARE(
            a->windowTitle(),
            QStringLiteral("«ZANTO»  -  AMBIENTE  DI  DISEGNO  #  Cartella Attiva: "
                           "« ·Disegni Generale   [ 0001 ] »   #  COMANDO: « Nuovo Disegno »"));
        QCOMPARE(a->MostraInfo->text(), QStringLiteral("Nuovo Disegno"));
        QVERIFY(PremiTasto(Qt::Key_Down));
        QCOMPARE(a->MostraInfo->text(), QStringLiteral("Seleziona un Oggetto"));
        QCOMPARE(a->ScrittaNomeDisegno->text(), QString());
        QCOMPARE(a->Tasti.size(), 33);
        QCOMPARE(a->Tasti.value(101)->geometry(), QRect(6, 5, 47, 44));
        QCOMPARE(a->Tasti.value(133)->geometry(), QRect(967, 696, 47, 44));
        for (TastoZanto* t : std::as_const(a->Tasti)) {
            QVERIFY(!t->accessibleName().isEmpty());
            QCOMPARE(t->focusPolicy(), Qt::NoFocus);
        }
        Schermata(a, QStringLiteral("libero"));
    }

    void in_modo_1_l_anello_parte_da_101() {
        AmbienteDisegno* a = Apri(1);
        QCOMPARE(a->Motore.TastoCorrente, int16_t(101));
        orologio->Avanza(1000);
        QCOMPARE(a->Motore.TastoCorrente, int16_t(102));
    }

    void le_copie_lasciate_da_un_altra_sessione_sono_contate_e_il_quadro_e_vuoto() {
        for (int32_t codice : {1000001, 1000002}) {
            QSqlQuery q(Archivio(ArchivioDisegni));
            q.prepare(QStringLiteral("INSERT INTO TabDisegni VALUES (?, ?, 1)"));
            q.addBindValue(codice);
            q.addBindValue(QString::number(codice));
            QVERIFY(q.exec());
            QSqlQuery r(Archivio(ArchivioDisegni));
            r.prepare(QStringLiteral("INSERT INTO TabAzioniDisegno (CodiceDisegno, NumAzione,"
                                     " TipoAzione) VALUES (?, 1, 1)"));
            r.addBindValue(codice);
            QVERIFY2(r.exec(), qPrintable(r.lastError().text()));
        }
        AmbienteDisegno* a = Apri(4);
        QCOMPARE(CodiceCopiaLavoro, 1000002);
        QCOMPARE(NumeroAzioni, 0);
        QCOMPARE(a->Quadro.Immagine().pixel(400, 300) & 0xFFFFFFu, 0xC0C0C0u);
    }

    void strada_di_una_linea_in_modo_4() {
        AmbienteDisegno* a = Apri(4);
        for (int i = 0; i < 18; ++i)
            QVERIFY(PremiTasto(Qt::Key_Left));
        QCOMPARE(a->Motore.TastoCorrente, int16_t(101));
        QVERIFY(PremiTasto(Qt::Key_Return));
        QCOMPARE(PrimitivaAttiva, int16_t(101));
        QCOMPARE(ColoreCorona(*a, 101), 0xFF00FFu); // marked under the ring: magenta
        Schermata(a, QStringLiteral("elemento-aperto"));
        for (int i = 0; i < 5; ++i)
            QVERIFY(PremiTasto(Qt::Key_Right));
        QCOMPARE(ColoreCorona(*a, 101), 0x0000FFu);
        QVERIFY(PremiTasto(Qt::Key_Return));
        QCOMPARE(ComandoModifica, int16_t(106));
        QCOMPARE(ColoreCorona(*a, 106), 0xFF0000u);
        for (int i = 0; i < 3; ++i)
            QVERIFY(PremiTasto(Qt::Key_Right));
        QCOMPARE(ElementoInCostruzione.XFine, 8572 + 150);
        QCOMPARE(a->Motore.TastoCorrente, int16_t(106)); // the ring stands on the red button
        Schermata(a, QStringLiteral("elemento-in-movimento"));
        QVERIFY(PremiTasto(Qt::Key_Return)); // the red button ends the command
        QCOMPARE(ComandoModifica, int16_t(0));
        QCOMPARE(PrimitivaAttiva, int16_t(101));
        for (int i = 0; i < 11; ++i)
            QVERIFY(PremiTasto(Qt::Key_Right));
        QVERIFY(PremiTasto(Qt::Key_Return));
        VerificaLinea();
        QCOMPARE(ContatoreBip, 0);
    }

    void strada_di_una_linea_in_modo_3() {
        AmbienteDisegno* a = Apri(3);
        Copione c(*orologio);
        auto spazio = [&](int n) {
            for (int i = 0; i < n; ++i)
                c.Tasto(Qt::Key_Space);
        };
        c.Tasto(Qt::Key_Return); // 101: a line opens
        spazio(5);               // to 106
        c.Tasto(Qt::Key_Return); // the direction panel opens
        spazio(1);               // "Destra"
        c.Tasto(Qt::Key_Return);
        spazio(3); // three steps to the right
        c.Esegui([] { QCOMPARE(ElementoInCostruzione.XFine, 8572 + 150); });
        c.Tasto(Qt::Key_Return); // the red button: the panel again
        spazio(3);               // from "Destra" to "Chiudi"
        c.Tasto(Qt::Key_Return);
        spazio(11); // to 117
        c.Tasto(Qt::Key_Return);
        c.EseguiFinoAllaFine();
        QVERIFY(c.Problemi.isEmpty());
        QCOMPARE(a->Motore.TastoCorrente, int16_t(117));
        VerificaLinea();
    }

    void strada_di_una_linea_in_modo_1() {
        AmbienteDisegno* a = Apri(1);
        Copione c(*orologio);
        c.Tasto(Qt::Key_Return); // 101 under the ring at the start
        c.Esegui([] { QCOMPARE(PrimitivaAttiva, int16_t(101)); });
        for (int i = 0; i < 5; ++i)
            c.Attendi(1000);
        c.Tasto(Qt::Key_Return);               // 106: the direction panel scans from 101
        c.Attendi(1000).Tasto(Qt::Key_Return); // "Destra"
        for (int i = 0; i < 3; ++i)
            c.Attendi(1000); // one step a dwell
        c.Esegui([] { QCOMPARE(ElementoInCostruzione.XFine, 8572 + 150); });
        c.Tasto(Qt::Key_Return); // stops the walk: the panel again, on "Destra"
        for (int i = 0; i < 3; ++i)
            c.Attendi(1000);
        c.Tasto(Qt::Key_Return); // "Chiudi"
        c.Esegui([] { QCOMPARE(ComandoModifica, int16_t(0)); });
        for (int i = 0; i < 11; ++i)
            c.Attendi(1000);
        c.Tasto(Qt::Key_Return); // 117
        c.EseguiFinoAllaFine();
        QVERIFY(c.Problemi.isEmpty());
        VerificaLinea();
        // From 117 the ring goes on.
        orologio->Avanza(1000);
        QCOMPARE(a->Motore.TastoCorrente, int16_t(118));
    }

    // The scan key turns the ring round: it overshoots 106 on the way out,
    // walks back to it one dwell at a time, and keeps that sense after a choice.
    void strada_di_una_linea_in_modo_2() {
        TipoInversioneScansione = 1;
        AmbienteDisegno* a = Apri(2);
        Copione c(*orologio);
        auto anello = [&c, a](int16_t atteso) {
            c.Attendi(1000).Esegui([a, atteso] { QCOMPARE(a->Motore.TastoCorrente, atteso); });
        };
        c.Tasto(Qt::Key_Return); // 101: a line opens
        for (int16_t t = 102; t <= 109; ++t)
            anello(t);
        c.Tasto(Qt::Key_Space); // turned round on 109
        for (int16_t t = 108; t >= 106; --t)
            anello(t);
        c.Tasto(Qt::Key_Return); // 106, reached backwards: the direction panel
        c.Esegui([] { QCOMPARE(ComandoModifica, int16_t(106)); });
        c.Attendi(1000).Tasto(Qt::Key_Return); // "Destra"
        for (int i = 0; i < 3; ++i)
            c.Attendi(1000);
        c.Tasto(Qt::Key_Return);
        for (int i = 0; i < 3; ++i)
            c.Attendi(1000);
        c.Tasto(Qt::Key_Return); // "Chiudi": the ring walks again from 106, still backwards
        c.Esegui([a] { QCOMPARE(a->Motore.TastoCorrente, int16_t(106)); });
        anello(105);
        c.Tasto(Qt::Key_Space); // forwards again
        for (int16_t t = 106; t <= 117; ++t)
            anello(t);
        c.Tasto(Qt::Key_Return);
        c.EseguiFinoAllaFine();
        QVERIFY(c.Problemi.isEmpty());
        VerificaLinea();
        orologio->Avanza(1000);
        QCOMPARE(a->Motore.TastoCorrente, int16_t(118));
    }

    void un_primitiva_con_un_elemento_aperto_suona_e_l_elemento_resta() {
        AmbienteDisegno* a = Apri(4);
        a->ClickTasto(101);
        const RecordAzione prima = ElementoInCostruzione;
        for (int16_t i : {101, 102, 103, 104}) {
            a->ClickTasto(i);
            QCOMPARE(PrimitivaAttiva, int16_t(101));
        }
        QCOMPARE(ContatoreBip, 4);
        QVERIFY(ElementoInCostruzione == prima);
    }

    void in_stato_libero_fissa_e_i_comandi_di_modifica_suonano() {
        AmbienteDisegno* a = Apri(4);
        int attesi = 0;
        for (int16_t i = 105; i <= 114; ++i) {
            a->ClickTasto(i);
            QCOMPARE(ContatoreBip, ++attesi);
            QCOMPARE(ComandoModifica, int16_t(0));
        }
        a->ClickTasto(117);
        QCOMPARE(ContatoreBip, ++attesi);
        a->ClickTasto(118); // no working copy: no history to go back to
        QCOMPARE(ContatoreBip, ++attesi);
        a->ClickTasto(122); // nothing to duplicate
        QCOMPARE(ContatoreBip, ++attesi);
        QCOMPARE(NumeroAzioni, 0);
    }

    void ogni_tasto_di_modifica_agisce_solo_sul_suo_elemento_data() {
        QTest::addColumn<int>("primitiva");
        QTest::addColumn<QList<int>>("agiscono");
        QTest::newRow("linea") << 101 << QList<int>{105, 106, 113};
        QTest::newRow("arco") << 102 << QList<int>{107, 108, 109, 110, 111, 112, 113};
        QTest::newRow("rettangolo") << 103 << QList<int>{111, 112, 113};
        QTest::newRow("ellisse") << 104 << QList<int>{110, 111, 112, 113};
    }
    void ogni_tasto_di_modifica_agisce_solo_sul_suo_elemento() {
        QFETCH(int, primitiva);
        QFETCH(QList<int>, agiscono);
        AmbienteDisegno* a = Apri(4);
        a->ClickTasto(static_cast<int16_t>(primitiva));
        for (int16_t i = 105; i <= 113; ++i) {
            const int bip = ContatoreBip;
            a->ClickTasto(i);
            if (agiscono.contains(i)) {
                QCOMPARE(ComandoModifica, i);
                QCOMPARE(ContatoreBip, bip);
                a->ClickTasto(i); // the red button again ends it
                QCOMPARE(ComandoModifica, int16_t(0));
            } else {
                QCOMPARE(ContatoreBip, bip + 1);
                QCOMPARE(ComandoModifica, int16_t(0));
            }
            QCOMPARE(PrimitivaAttiva, int16_t(primitiva));
        }
    }

    // The marked button's ring is magenta while the ring stands on it, and
    // blue once it walks on.
    void l_anello_sul_tasto_marcato_e_magenta_e_altrove_blu() {
        AmbienteDisegno* a = Apri(1);
        QVERIFY(PremiTasto(Qt::Key_Return)); // 101: a line opens, the ring resumes on it
        QCOMPARE(PrimitivaAttiva, int16_t(101));
        QCOMPARE(a->Motore.TastoCorrente, int16_t(101));
        QCOMPARE(ColoreCorona(*a, 101), 0xFF00FFu);
        QCOMPARE(ColoreAnelloSulloSchermo(a, 101), 0xFF00FFu);
        orologio->Avanza(1000);
        QCOMPARE(a->Motore.TastoCorrente, int16_t(102));
        QCOMPARE(ColoreAnelloSulloSchermo(a, 101), 0x0000FFu);
        QCOMPARE(ColoreAnelloSulloSchermo(a, 102), 0x00FF00u);
        orologio->Avanza(32 * 1000); // a whole lap back to the mark
        QCOMPARE(a->Motore.TastoCorrente, int16_t(101));
        QCOMPARE(ColoreCorona(*a, 101), 0xFF00FFu);
        QCOMPARE(ColoreAnelloSulloSchermo(a, 101), 0xFF00FFu);
        QVERIFY(!CoroneVisibili(*a).contains(102));
    }

    void in_modo_4_l_anello_che_torna_sul_tasto_marcato_e_magenta() {
        AmbienteDisegno* a = Apri(4);
        GuidaDisegno::Premi(a, 103);
        QVERIFY(PremiTasto(Qt::Key_Right));
        QCOMPARE(ColoreAnelloSulloSchermo(a, 103), 0x0000FFu);
        QCOMPARE(ColoreAnelloSulloSchermo(a, 104), 0x00FF00u);
        QVERIFY(PremiTasto(Qt::Key_Left));
        QCOMPARE(ColoreCorona(*a, 103), 0xFF00FFu);
        QCOMPARE(ColoreAnelloSulloSchermo(a, 103), 0xFF00FFu);
    }

    // Space chooses, Enter is the scan key and fires through the default flag:
    // with a box moving, Space only stops the movement, and the next Enter,
    // on the red button, ends the command without asking for a direction.
    void in_modo_3_con_spazio_per_scelta_spazio_ferma_e_invio_chiude_senza_pannello() {
        AmbienteDisegno* a = Apri(4);
        GuidaDisegno::Premi(a, 101);
        GuidaDisegno::Premi(a, 117);
        GuidaDisegno::Frecce(Qt::Key_Right, 3);
        QCOMPARE(a->Motore.TastoCorrente, int16_t(120));
        QVERIFY(PremiTasto(Qt::Key_F11));
        QVERIFY(PremiTasto(Qt::Key_F5));
        QCOMPARE(ModalitàFunzionamento, int16_t(3));
        QCOMPARE(TastoScelta, int16_t(2));
        QCOMPARE(TastoScansione, int16_t(1));
        Copione c(*orologio);
        c.Tasto(Qt::Key_Space); // 120: the box opens and moves: the direction panel
        c.Esegui([a] {
            QVERIFY(FormScansione::InPrimoPiano() != a);
            QCOMPARE(ComandoModifica, int16_t(113));
        });
        c.Tasto(Qt::Key_Space); // "Sinistra", under the panel's ring
        c.EseguiFinoAllaFine();
        QVERIFY(c.Problemi.isEmpty());
        QCOMPARE(DirezioneScelta, int16_t(1));
        QCOMPARE(MovimentoAttivo, int16_t(1));
        QCOMPARE(a->Motore.TastoCorrente, int16_t(113));
        const RecordAzione riquadro = ElementoInCostruzione;
        QVERIFY(PremiTasto(Qt::Key_Space));
        QCOMPARE(MovimentoAttivo, int16_t(0));
        QCOMPARE(ComandoModifica, int16_t(113));
        QVERIFY(ElementoInCostruzione == riquadro);
        bool pannello = false;
        Copione fine(*orologio);
        fine.Tasto(Qt::Key_Return);
        fine.Esegui([a, &pannello] {
            FormScansione* f = FormScansione::InPrimoPiano();
            pannello = f != a;
            if (pannello) f->ClickTasto(105);
        });
        fine.EseguiFinoAllaFine();
        QVERIFY(!pannello);
        QCOMPARE(ComandoModifica, int16_t(0));
        QCOMPARE(PrimitivaAttiva, int16_t(120));
        QCOMPARE(ColoreCorona(*a, 113), 0x00FF00u);
        QVERIFY(ElementoInCostruzione == riquadro);
        QCOMPARE(ContatoreBip, 0);
    }

    // A copy of a filled rectangle shows as an outline while open and is fixed
    // as 116 stands at that moment, not as the copied record says.
    void duplica_di_un_rettangolo_pieno_si_vede_vuoto_ed_esce_come_dice_116() {
        using SondePixel::Colore;
        using SondePixel::Px;
        AmbienteDisegno* a = Apri(4);
        GuidaDisegno::Premi(a, 116); // full shapes
        GuidaDisegno::Premi(a, 103);
        GuidaDisegno::Premi(a, 117);
        QCOMPARE(Azioni[1].FlagPienoVuoto, 2);
        const int32_t zona = ColoreZonaCorrente;
        const int32_t sfondo = 0xC0C0C0;
        QVERIFY(zona != sfondo);
        QCOMPARE(Colore(a->Quadro.Immagine(), Px(7072), Px(5000)), zona);
        // Each copy stands 100 further: a pixel inside it and outside the one before.
        const int fuoriPrima = Px(8622), fuoriSeconda = Px(8722), y = Px(5000);

        GuidaDisegno::Premi(a, 122);
        QCOMPARE(PrimitivaAttiva, int16_t(103));
        QCOMPARE(ElementoInCostruzione.XInizio, 5672);
        QCOMPARE(ElementoInCostruzione.YFine, 6600);
        QCOMPARE(Colore(a->Quadro.Schermo(), fuoriPrima, y), sfondo); // an outline
        GuidaDisegno::Premi(a, 117);
        QCOMPARE(NumeroAzioni, 2);
        QCOMPARE(Azioni[2].XInizio, 5672);
        QCOMPARE(Azioni[2].FlagPienoVuoto, 2);
        QCOMPARE(Colore(a->Quadro.Immagine(), fuoriPrima, y), zona);

        GuidaDisegno::Premi(a, 116); // empty shapes now
        QCOMPARE(RiempimentoCorrente, int16_t(1));
        GuidaDisegno::Premi(a, 122);
        QCOMPARE(ElementoInCostruzione.FlagPienoVuoto, 2); // copied as it was
        QCOMPARE(ElementoInCostruzione.XFine, 8772);
        QCOMPARE(Colore(a->Quadro.Schermo(), fuoriSeconda, y), sfondo);
        GuidaDisegno::Premi(a, 117);
        QCOMPARE(NumeroAzioni, 3);
        QCOMPARE(Azioni[3].XInizio, 5772);
        QCOMPARE(Azioni[3].FlagPienoVuoto, 1);
        QCOMPARE(Colore(a->Quadro.Immagine(), fuoriSeconda, y), sfondo);
        QVERIFY(NeroVicino(a->Quadro.Immagine(), Px(8772), y)); // its edge, in the line colour
        QCOMPARE(ContatoreBip, 0);
    }

    void un_nuovo_arco_fissato_subito_finisce_a_2_radianti() {
        AmbienteDisegno* a = Apri(4);
        a->ClickTasto(102);
        a->ClickTasto(117);
        QCOMPARE(NumeroAzioni, 1);
        QCOMPARE(Azioni[1].RadFine, 2.0f);
        QCOMPARE(Azioni[1].RadIniz, 0.0f);
        QCOMPARE(Azioni[1].XCentro, 7072.0f);
        QCOMPARE(Azioni[1].RaggioOriz, 2000.0f);
    }

    void annulla_di_un_elemento_aperto_lo_toglie_e_l_anello_torna_sul_suo_tasto() {
        AmbienteDisegno* a = Apri(4);
        a->ClickTasto(103);
        a->ClickTasto(118);
        QCOMPARE(PrimitivaAttiva, int16_t(0));
        QCOMPARE(a->Motore.TastoCorrente, int16_t(103));
        QCOMPARE(TastoPredefinito(*a), int16_t(103));
        QCOMPARE(NumeroAzioni, 0);
        // The overlay is gone: the screen shows the stored picture again.
        QCOMPARE(a->Quadro.Schermo().pixel(Predefiniti::XInizio / 15, 400) & 0xFFFFFFu, 0xC0C0C0u);
    }

    void colora_zona_con_disegno_vuoto_suona() {
        AmbienteDisegno* a = Apri(4);
        a->ClickTasto(114);
        QCOMPARE(ContatoreBip, 1);
        QCOMPARE(PrimitivaAttiva, int16_t(0));
        QVERIFY(a->IconaMirino->isHidden());
    }

    void colora_zona_due_volte_in_modo_4_chiude_il_comando_e_il_mirino_resta() {
        AmbienteDisegno* a = Apri(4);
        a->ClickTasto(103);
        a->ClickTasto(117);
        a->ClickTasto(114);
        QCOMPARE(PrimitivaAttiva, int16_t(114));
        QCOMPARE(ComandoModifica, int16_t(114));
        QVERIFY(a->IconaMirino->isVisible());
        QCOMPARE(ColoreCorona(*a, 114), 0x0000FFu);
        Schermata(a, QStringLiteral("zona-in-movimento"));
        a->ClickTasto(114);
        QCOMPARE(ComandoModifica, int16_t(0));
        QCOMPARE(PrimitivaAttiva, int16_t(114));
        QVERIFY(a->IconaMirino->isVisible());
        Schermata(a, QStringLiteral("zona-ferma"));
        a->ClickTasto(118);
        QVERIFY(a->IconaMirino->isHidden());
        QCOMPARE(PrimitivaAttiva, int16_t(0));
    }

    void dopo_una_zona_fissata_il_mirino_riparte_da_dove_era() {
        AmbienteDisegno* a = Apri(4);
        a->ClickTasto(103);
        a->ClickTasto(117);
        a->ClickTasto(114);
        QVERIFY(PremiTasto(Qt::Key_Right)); // ring on 114 with the command open: moves the point
        QCOMPARE(ElementoInCostruzione.XCentro, 7072.0f + 50);
        a->ClickTasto(114);
        a->ClickTasto(117);
        QCOMPARE(NumeroAzioni, 2);
        QCOMPARE(MirinoX, 7122.0f);
        QCOMPARE(CodiceCopiaLavoro, 1000002);
        a->ClickTasto(114);
        QCOMPARE(ElementoInCostruzione.XCentro, 7122.0f);
        QCOMPARE(a->IconaMirino->x(), static_cast<int>(std::lrint((7122 - 230) / 15.0)));
    }

    void duplica_l_ultima_la_sposta_di_100_e_rifiuta_dopo_una_zona() {
        AmbienteDisegno* a = Apri(4);
        a->ClickTasto(101);
        a->ClickTasto(117);
        a->ClickTasto(122);
        QCOMPARE(PrimitivaAttiva, int16_t(101));
        QCOMPARE(ElementoInCostruzione.XInizio, 5672);
        QCOMPARE(ElementoInCostruzione.YFine, 6600);
        QCOMPARE(a->Motore.TastoCorrente, int16_t(101));
        a->ClickTasto(117);
        a->ClickTasto(114);
        a->ClickTasto(114);
        a->ClickTasto(117);
        const int bip = ContatoreBip;
        a->ClickTasto(122);
        QCOMPARE(ContatoreBip, bip + 1);
        QCOMPARE(PrimitivaAttiva, int16_t(0));
    }

    void duplica_un_arco_tiene_angoli_e_raggi_e_sposta_solo_il_centro() {
        AmbienteDisegno* a = Apri(4);
        a->ClickTasto(102);
        a->ClickTasto(117);
        a->ClickTasto(122);
        QCOMPARE(PrimitivaAttiva, int16_t(102));
        QCOMPARE(ElementoInCostruzione.XCentro, 7172.0f);
        QCOMPARE(ElementoInCostruzione.YCentro, 5100.0f);
        QCOMPARE(ElementoInCostruzione.RadIniz, 0.0f);
        QCOMPARE(ElementoInCostruzione.RadFine, 2.0f);
        QCOMPARE(ElementoInCostruzione.RaggioOriz, 2000.0f);
        QCOMPARE(ElementoInCostruzione.XInizio, 0);
    }

    void dopo_una_zona_annullata_il_mirino_riparte_dall_ultima_fissata() {
        AmbienteDisegno* a = Apri(4);
        a->ClickTasto(103);
        a->ClickTasto(117);
        a->ClickTasto(114);
        QVERIFY(PremiTasto(Qt::Key_Down));
        a->ClickTasto(114);
        a->ClickTasto(117); // fixed at (7072, 5050)
        a->ClickTasto(114);
        QVERIFY(PremiTasto(Qt::Key_Right));
        a->ClickTasto(114);
        a->ClickTasto(118); // cancelled at (7122, 5050)
        a->ClickTasto(114);
        QCOMPARE(ElementoInCostruzione.XCentro, 7072.0f);
        QCOMPARE(ElementoInCostruzione.YCentro, 5050.0f);
        QCOMPARE(NumeroAzioni, 2);
    }

    void forme_piene_o_vuote_cambia_l_immagine_del_tasto() {
        AmbienteDisegno* a = Apri(4);
        a->ClickTasto(116);
        QCOMPARE(RiempimentoCorrente, int16_t(2));
        QVERIFY(a->Tasti.value(116)->property("risorsaIcona").toString().contains("piene"));
        a->ClickTasto(116);
        QCOMPARE(RiempimentoCorrente, int16_t(1));
        QVERIFY(a->Tasti.value(116)->property("risorsaIcona").toString().contains("vuote"));
    }

    void F6_con_un_elemento_aperto_non_cambia_la_modalita() {
        Apri(4);
        A()->ClickTasto(101);
        QVERIFY(PremiTasto(Qt::Key_F6));
        QCOMPARE(ModalitàFunzionamento, int16_t(4));
    }

    void F12_in_modo_1_ferma_l_anello_dove_sta() {
        AmbienteDisegno* a = Apri(1);
        orologio->Avanza(2000);
        QVERIFY(PremiTasto(Qt::Key_F12));
        QCOMPARE(a->Motore.ScansioneAttiva, int16_t(0));
        orologio->Avanza(3000);
        QCOMPARE(a->Motore.TastoCorrente, int16_t(103));
    }

    void un_clic_sullo_sfondo_suona_un_clic_sul_quadro_no() {
        AmbienteDisegno* a = Apri(4);
        QTest::mouseClick(a->QuadroDisegno, Qt::LeftButton);
        QCOMPARE(ContatoreBip, 0);
        QTest::mouseClick(a, Qt::LeftButton, {}, QPoint(1000, 740));
        QCOMPARE(ContatoreBip, 1);
    }

    void in_modo_3_la_scansione_con_movimento_fermo_non_muove_nulla() {
        AmbienteDisegno* a = Apri(4);
        a->ClickTasto(101);
        a->ClickTasto(106); // mode 4: no panel
        ModalitàFunzionamento = 3;
        const RecordAzione prima = ElementoInCostruzione;
        QVERIFY(PremiTasto(Qt::Key_Space));
        QVERIFY(ElementoInCostruzione == prima);
        QCOMPARE(ComandoModifica, int16_t(106));
    }

    void chiudi_con_ok_torna_al_menu_senza_copie() {
        AmbienteDisegno* a = Apri(4);
        a->ClickTasto(101);
        a->ClickTasto(117);
        QCOMPARE(NumeroCopieLavoro(), 1);
        Copione c(*orologio);
        c.Esegui([] {
            QCOMPARE(TestoQuadroMessaggi.section(QChar(u'\r'), 0, 0),
                     QStringLiteral("E' stata richiesta l'USCITA dal Disegno Attivo."));
        });
        c.Tasto(Qt::Key_Left).Tasto(Qt::Key_Return); // from "Annulla" to "OK"
        c.Avvia();
        a->ClickTasto(133);
        QVERIFY(c.Finito());
        QCOMPARE(NumeroCopieLavoro(), 0);
        QVERIFY(MenùGeneraleAperto() != nullptr && MenùGeneraleAperto()->isVisible());
        QVERIFY(AmbienteDisegnoAperto() == nullptr);
    }

    void chiudi_con_annulla_resta_nel_disegno() {
        AmbienteDisegno* a = Apri(4);
        Copione c(*orologio);
        c.Tasto(Qt::Key_Return); // "Annulla" holds the ring first
        c.Avvia();
        a->ClickTasto(133);
        QVERIFY(AmbienteDisegnoAperto() == a);
        QVERIFY(a->isVisible());
    }

    void il_menu_apre_il_disegno_con_una_cartella_attiva() {
        CodiceCartellaAttiva = 1;
        NomeCartellaAttiva = QStringLiteral("·Disegni Generale");
        ModalitàFunzionamento = 4;
        CaricaMenùGenerale();
        QCoreApplication::processEvents();
        QVERIFY(PremiTasto(Qt::Key_Return));
        QVERIFY(AmbienteDisegnoAperto() != nullptr && AmbienteDisegnoAperto()->isVisible());
        QVERIFY(MenùGeneraleAperto() == nullptr);
    }
};

QTEST_MAIN(ProvaAmbienteDisegno)
#include "test_ambiente_disegno.moc"
