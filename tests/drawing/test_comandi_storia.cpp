// "Annulla Operazioni" with nothing open, from the drawing screen: drawings
// fixed through the real buttons, the history opened by the ring, a step
// chosen on the undo panel and the question answered, in the four modes.
#include "app/MenuGenerale.h"
#include "archive/ArchivioAzioni.h"
#include "archive/IstruzioniArchivio.h"
#include "base/Bip.h"
#include "base/Configurazione.h"
#include "base/GestioneErrori.h"
#include "drawing/AmbienteDisegno.h"
#include "drawing/GuidaDisegno.h"
#include "input/QuadroMessaggi.h"
#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"
#include "model/VistaSuperficie.h"
#include "panels/CopieUndo.h"
#include "panels/QuadroUndo.h"
#include "support/AmbienteProva.h"
#include "support/Copione.h"
#include "support/OrologioVirtuale.h"
#include "support/RigheProva.h"
#include "support/SondePixel.h"

#include <QLabel>
#include <QSlider>
#include <QtTest>

#include <memory>

using namespace CopieUndo;

namespace {

// Points of the canvas, in twips, that tell the three fixed shapes apart: a
// full box at the centre, a line on its diagonal, then a full ellipse over both.
const QPoint NelRettangolo(8000, 4000);
const QPoint SullaLinea(6572, 4500);
const QPoint SoloNellEllisse(8822, 5000);

int32_t ColoreA(const QImage& img, QPoint twips) {
    return SondePixel::ColoreA(img, twips.x(), twips.y());
}

bool NeroVicino(const QImage& img, QPoint twips) {
    return SondePixel::Vicino(img, twips.x(), twips.y(), SondePixel::Nero);
}

} // namespace

class ProvaComandiStoria : public QObject, MondoDisegno {
    Q_OBJECT

    int16_t modo = 4;
    QList<QList<RecordAzione>> fotografie; // Azioni after each fix

    // Opens in mode 4, where the buttons are reached by arrows; the mode under
    // test is then set by its direct key, as a user sets it.
    void Apri() {
        a = GuidaDisegno::Apri(4);
        fotografie.clear();
    }
    void PassaAlModo() {
        static const Qt::Key tasti[] = {Qt::Key_unknown, Qt::Key_F6, Qt::Key_F7, Qt::Key_F11,
                                        Qt::Key_F12};
        QVERIFY(PremiTasto(tasti[modo]));
        QCOMPARE(ModalitàFunzionamento, modo);
    }

    void Fissa(std::initializer_list<int16_t> tasti) {
        for (int16_t t : tasti)
            GuidaDisegno::Premi(a, t);
        GuidaDisegno::Premi(a, 117);
        fotografie.append(Azioni.mid(0, NumeroAzioni + 1));
    }

    // A full box, a line, a full ellipse: three working copies.
    void TreForme() {
        GuidaDisegno::Premi(a, 116); // full shapes
        Fissa({103});
        Fissa({101});
        Fissa({104});
        QCOMPARE(CodiceCopiaLavoro, BaseCopieLavoro + 3);
    }

    // The ring to a button of the drawing screen as the mode moves it.
    void Raggiungi(int16_t tasto) {
        MotoreScansione& m = a->Motore;
        for (int i = 0; m.TastoCorrente != tasto && i < 40; ++i) {
            if (modo <= 2)
                orologio->Avanza(TempoLatenzaScansione);
            else
                PremiTasto(modo == 3 ? Qt::Key_Space : Qt::Key_Right);
        }
    }

    // Fires 118 and, inside the panels it opens, moves from the present step
    // (of `massimo`) to `passo`, chooses it and answers the question.
    void Storia(int passo, int massimo, bool ok, std::function<void()> nelPannello = {}) {
        Copione c(*orologio);
        c.Esegui([this] { Raggiungi(118); });
        c.Tasto(Qt::Key_Return);
        // Forward from the present the walk goes round through 0.
        const int avanti = (passo + 1) % (massimo + 1);
        if (modo == 4) {
            for (int i = passo; i < massimo; ++i)
                c.Tasto(Qt::Key_Left);
        } else {
            for (int i = 0; i < avanti; ++i)
                modo == 3 ? c.Tasto(Qt::Key_Space) : c.Attendi(TempoLatenzaScansione);
        }
        if (nelPannello) c.Esegui(nelPannello);
        c.Tasto(Qt::Key_Return);
        // The ring of the question stands on "Annulla"; one step forward is "OK".
        if (ok) {
            if (modo == 4)
                c.Tasto(Qt::Key_Left);
            else if (modo == 3)
                c.Tasto(Qt::Key_Space);
            else
                c.Attendi(TempoLatenzaScansione);
        }
        c.Tasto(Qt::Key_Return);
        c.EseguiFinoAllaFine();
        QVERIFY2(c.Problemi.isEmpty(), qPrintable(c.Problemi.join(u'\n')));
        QCOMPARE(FormScansione::InPrimoPiano(), a);
    }

    void VerificaRipresa() {
        if (modo <= 2) {
            QCOMPARE(a->Motore.ScansioneAttiva, int16_t(1));
            QCOMPARE(a->Motore.TastoCorrente, int16_t(118));
        }
    }

    static void DatiModi() {
        QTest::addColumn<int>("modalita");
        for (int m = 1; m <= 4; ++m)
            QTest::addRow("modo %d", m) << m;
    }

private slots:
    void init() { Prepara(); }
    void cleanup() { Libera(); }

    void senza_copie_suona_e_riprende_data() { DatiModi(); }
    void senza_copie_suona_e_riprende() {
        QFETCH(int, modalita);
        modo = static_cast<int16_t>(modalita);
        Apri();
        PassaAlModo();
        const int bip = ContatoreBip;
        Copione c(*orologio);
        c.Esegui([this] { Raggiungi(118); });
        c.Tasto(Qt::Key_Return);
        c.EseguiFinoAllaFine();
        QCOMPARE(ContatoreBip, bip + 1);
        QCOMPARE(FormScansione::InPrimoPiano(), a);
        QCOMPARE(CodiceCopiaLavoro, BaseCopieLavoro);
        VerificaRipresa();
    }

    void un_passo_confermato_diventa_il_disegno_data() { DatiModi(); }
    void un_passo_confermato_diventa_il_disegno() {
        QFETCH(int, modalita);
        modo = static_cast<int16_t>(modalita);
        Apri();
        TreForme();
        const QImage prima = a->Quadro.Immagine();
        QCOMPARE(ColoreA(prima, SoloNellEllisse), 0xFFFFFF);
        PassaAlModo();
        int disponibili = -1;
        Storia(2, 3, true, [&] { disponibili = PannelloDavanti()->PassiDisponibili; });
        QCOMPARE(disponibili, 3);
        QCOMPARE(NumeroAzioni, 2);
        QCOMPARE(Azioni.mid(0, 3), fotografie[1]);
        // The canvas is the replay of the copy: box and line, no ellipse.
        const QImage& dopo = a->Quadro.Immagine();
        QCOMPARE(ColoreA(dopo, NelRettangolo), 0xFFFFFF);
        QVERIFY(NeroVicino(dopo, SullaLinea));
        QCOMPARE(ColoreA(dopo, SoloNellEllisse), ColoreSfondo);
        // Undo by pointer: every copy stays, and the counter with them.
        QCOMPARE(CodiceCopiaLavoro, BaseCopieLavoro + 3);
        QCOMPARE(NumeroCopieLavoro(), 3);
        VerificaRipresa();
    }

    void annulla_non_cambia_nulla_data() { DatiModi(); }
    void annulla_non_cambia_nulla() {
        QFETCH(int, modalita);
        modo = static_cast<int16_t>(modalita);
        Apri();
        TreForme();
        PassaAlModo();
        const QImage prima = a->Quadro.Immagine();
        Storia(1, 3, false);
        QCOMPARE(NumeroAzioni, 3);
        QCOMPARE(Azioni.mid(0, 4), fotografie[2]);
        QCOMPARE(ColoreA(a->Quadro.Immagine(), SoloNellEllisse), 0xFFFFFF);
        QVERIFY(a->Quadro.Immagine() == prima);
        QCOMPARE(CodiceCopiaLavoro, BaseCopieLavoro + 3);
        VerificaRipresa();
    }

    void il_passo_zero_confermato_da_un_disegno_vuoto_senza_nome() {
        modo = 4;
        Apri();
        TreForme();
        NomeDisegnoCorrente = QStringLiteral("Casa");
        CodiceDisegnoCorrente = 12;
        StatoDisegno = 1;
        a->ScrittaNomeDisegno->setText(QStringLiteral("« Casa »"));
        Storia(0, 3, true);
        QCOMPARE(NumeroAzioni, 0);
        QCOMPARE(StatoDisegno, int16_t(2));
        QCOMPARE(OggettoAttivo, int16_t(0));
        QVERIFY(NomeDisegnoCorrente.isEmpty());
        QCOMPARE(CodiceDisegnoCorrente, 0);
        QCOMPARE(CodiceDisegnoDaCaricare, 0);
        QCOMPARE(CodiceDisegnoDaRegistrare, 0);
        const QImage& q = a->Quadro.Immagine();
        for (QPoint p : {NelRettangolo, SullaLinea, SoloNellEllisse, QPoint(7072, 5000)})
            QCOMPARE(ColoreA(q, p), ColoreSfondo);
        // The empty drawing has no name, on the screen either.
        QCOMPARE(a->ScrittaNomeDisegno->text(), QString());
        QCOMPARE(NumeroCopieLavoro(), 3);
    }

    void dopo_il_passo_3_di_7_e_una_modifica_i_passi_sono_8() {
        modo = 4;
        ScriviCopie(7);
        CodiceCopiaLavoro = BaseCopieLavoro;
        Apri();
        Storia(3, 7, true);
        QCOMPARE(NumeroAzioni, 3);
        QCOMPARE(Riempiti(a->Quadro.Immagine()), 3);
        GuidaDisegno::Premi(a, 116);
        Fissa({103});
        QCOMPARE(CodiceCopiaLavoro, BaseCopieLavoro + 8);
        // The new present and the steps it left behind are all on the time line.
        int disponibili = -1, massimo = -1, al7 = -1, al8 = -1;
        Storia(7, 8, false, [&] {
            QuadroUndo* q = PannelloDavanti();
            disponibili = q->PassiDisponibili;
            massimo = q->ScalaUndo->maximum();
            al7 = Riempiti(q->QuadroDisegnoUndo.Immagine());
        });
        Storia(8, 8, false, [&] {
            al8 = SondePixel::Colore(PannelloDavanti()->QuadroDisegnoUndo.Immagine(),
                                     SondePixel::Px(7072), SondePixel::Px(5000));
        });
        QCOMPARE(disponibili, 8);
        QCOMPARE(massimo, 8);
        QCOMPARE(al7, 7);
        QCOMPARE(al8, 0xFFFFFF);
        QCOMPARE(NumeroAzioni, 4);
    }

    void le_copie_di_una_corsa_interrotta_si_recuperano_data() { DatiModi(); }
    void le_copie_di_una_corsa_interrotta_si_recuperano() {
        QFETCH(int, modalita);
        modo = static_cast<int16_t>(modalita);
        // What a run that died after five fixed steps leaves behind.
        ScriviCopie(5);
        const QList<RecordAzione> quarta = [] {
            QList<RecordAzione> l{RecordAzione{}};
            for (int k = 1; k <= 4; ++k)
                l.append(Rettangolo(k));
            return l;
        }();
        CodiceCopiaLavoro = BaseCopieLavoro; // a new run starts from nothing
        Apri();
        QCOMPARE(CodiceCopiaLavoro, BaseCopieLavoro + 5);
        QCOMPARE(NumeroAzioni, 0);
        QCOMPARE(Riempiti(a->Quadro.Immagine()), 0);
        PassaAlModo();
        int disponibili = -1;
        Storia(4, 5, true, [&] { disponibili = PannelloDavanti()->PassiDisponibili; });
        QCOMPARE(disponibili, 5);
        QCOMPARE(NumeroAzioni, 4);
        QCOMPARE(Azioni.mid(0, 5), quarta);
        QCOMPARE(Riempiti(a->Quadro.Immagine()), 4);
        QVERIFY(NomeDisegnoCorrente.isEmpty());
        QVERIFY(amb->Scatole.isEmpty());
        VerificaRipresa();
    }

    void una_copia_guasta_va_alla_gestione_errori_e_le_altre_si_recuperano_data() {
        RigheModo({1, 4}, "modalita");
    }
    void una_copia_guasta_va_alla_gestione_errori_e_le_altre_si_recuperano() {
        QFETCH(int, modalita);
        modo = static_cast<int16_t>(modalita);
        ScriviCopie(5);
        Guasta(BaseCopieLavoro + 3, QStringLiteral("XInizio"), QStringLiteral("dodici"));
        CodiceCopiaLavoro = BaseCopieLavoro; // a new run starts from nothing
        Apri();
        PassaAlModo();
        // The broken step itself: the panel reports it, and so does the load;
        // the drawing stays as it was and the ring goes on.
        Storia(3, 5, true);
        QCOMPARE(amb->Scatole.size(), 2);
        QVERIFY(amb->Scatole[0].Testo.startsWith(QStringLiteral("ERRORE 3021/6310")));
        QVERIFY(amb->Scatole[1].Testo.startsWith(QStringLiteral("ERRORE 3021/1204")));
        QVERIFY(amb->Scatole[1].Testo.contains(QStringLiteral("XInizio")));
        QCOMPARE(NumeroAzioni, 0);
        QCOMPARE(Riempiti(a->Quadro.Immagine()), 0);
        VerificaRipresa();
        // A step beyond it, and one before it, still come back. Each new
        // opening reports the broken step once more if the walk passes it.
        Storia(4, 5, true);
        QCOMPARE(NumeroAzioni, 4);
        QCOMPARE(Riempiti(a->Quadro.Immagine()), 4);
        Storia(2, 5, true);
        QCOMPARE(NumeroAzioni, 2);
        QCOMPARE(Riempiti(a->Quadro.Immagine()), 2);
        QCOMPARE(amb->Scatole.size(), 3);
        QVERIFY(amb->Scatole[2].Testo.startsWith(QStringLiteral("ERRORE 3021/6310")));
        VerificaRipresa();
    }

    void il_pannello_copre_il_quadro_del_disegno() {
        modo = 4;
        Apri();
        TreForme();
        QRect pannello, quadro, finestra;
        Copione c(*orologio);
        c.Esegui([this] { Raggiungi(118); });
        c.Tasto(Qt::Key_Return);
        c.Esegui([&] {
            QuadroUndo* q = PannelloDavanti();
            pannello =
                QRect(q->VistaDisegnoUndo->mapToGlobal(QPoint(0, 0)), q->VistaDisegnoUndo->size());
            quadro = QRect(a->QuadroDisegno->mapToGlobal(QPoint(0, 0)), a->QuadroDisegno->size());
            finestra = q->geometry();
        });
        c.Tasto(Qt::Key_Return).Tasto(Qt::Key_Return);
        c.EseguiFinoAllaFine();
        // The step is seen at the canvas' own size, over most of the canvas,
        // and the panel stays within the drawing screen, slider included.
        QCOMPARE(pannello.size(), quadro.size());
        const QRect comune = pannello.intersected(quadro);
        QVERIFY(comune.width() * comune.height() > quadro.width() * quadro.height() * 8 / 10);
        QVERIFY(a->geometry().contains(finestra));
    }

private:
    static QuadroUndo* PannelloDavanti() {
        return dynamic_cast<QuadroUndo*>(FormScansione::InPrimoPiano());
    }
};

QTEST_MAIN(ProvaComandiStoria)
#include "test_comandi_storia.moc"
