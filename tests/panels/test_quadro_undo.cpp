// The undo panel over real working copies, driven by the keys of each mode on
// the virtual clock: where the step stands, what its surface shows, how it ends.
#include "base/Bip.h"
#include "base/Configurazione.h"
#include "base/GestioneErrori.h"
#include "base/Misure.h"
#include "model/RecordAzione.h"
#include "model/VistaSuperficie.h"
#include "panels/CopieUndo.h"
#include "panels/ProvaPannello.h"
#include "panels/QuadroUndo.h"
#include "support/AmbienteProva.h"
#include "support/MondoProva.h"
#include "support/OrologioVirtuale.h"
#include "support/RigheProva.h"
#include "support/SondePixel.h"

#include <QSlider>
#include <QtTest>

#include <memory>

using namespace CopieUndo;

namespace {

QuadroUndo* Quadro() {
    return PannelloDavanti<QuadroUndo>();
}

// What the panel shows now: the step, the slider, and how many rectangles its surface holds.
struct Vista {
    int Passo = -1;
    int Scala = -1;
    int Disegnati = -2;
    bool operator==(const Vista&) const = default;
};

Vista Ora() {
    QuadroUndo* q = Quadro();
    if (q == nullptr) return {};
    return {PassoUndo, q->ScalaUndo->value(), Riempiti(q->QuadroDisegnoUndo.Immagine())};
}

Vista AlPasso(int n) {
    return {n, n, n};
}

// The first column of the strip where the number's white shows.
int PrimaColonnaDelNumero(const QImage& img) {
    for (int x = 0; x < img.width(); ++x)
        for (int y = 0; y < img.height(); ++y)
            if (SondePixel::Colore(img, x, y) == 0xFFFFFF) return x;
    return -1;
}

} // namespace

QT_BEGIN_NAMESPACE
namespace QTest {
template <> inline char* toString(const Vista& v) {
    return qstrdup(qPrintable(QStringLiteral("passo %1, scala %2, disegnati %3")
                                  .arg(v.Passo)
                                  .arg(v.Scala)
                                  .arg(v.Disegnati)));
}
} // namespace QTest
QT_END_NAMESPACE

class ProvaQuadroUndo : public QObject, MondoProva {
    Q_OBJECT

    bool Apri(Copione& c) {
        return EseguiNelPannello(c, [] { ApriQuadroUndo(); });
    }

private slots:
    void init() { Prepara(); }
    void cleanup() { Libera(); }

    void con_la_voce_dice_il_numero_del_passo() {
        ModalitàFunzionamento = 4;
        ScansioneParlata = 1;
        ScriviCopie(3);
        Copione c(*orologio);
        c.Tasto(Qt::Key_Left).Tasto(Qt::Key_Left);
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(amb->Parole.Testi(),
                 (QStringList{QStringLiteral("passo 3"), QStringLiteral("passo 2"),
                              QStringLiteral("passo 1")}));
    }

    void titolo_scala_strisca_e_scritte() {
        ModalitàFunzionamento = 4;
        ScriviCopie(3);
        QString titolo;
        QRect posto, vista;
        QSize disegno;
        int minimo = -1, massimo = -1, tacche = -1, piccolo = -1, grande = -1;
        Qt::Orientation verso = Qt::Vertical;
        Qt::FocusPolicy fuoco = Qt::StrongFocus;
        QStringList scritte;
        bool tutteVisibili = false;
        int32_t sfondo = -1;
        Vista inizio;
        Copione c(*orologio);
        c.Esegui([&] {
            QuadroUndo* q = Quadro();
            titolo = q->windowTitle();
            posto = q->ScalaUndo->geometry();
            vista = q->VistaDisegnoUndo->geometry();
            disegno = q->QuadroDisegnoUndo.Immagine().size();
            minimo = q->ScalaUndo->minimum();
            massimo = q->ScalaUndo->maximum();
            tacche = q->ScalaUndo->tickInterval();
            piccolo = q->ScalaUndo->singleStep();
            grande = q->ScalaUndo->pageStep();
            verso = q->ScalaUndo->orientation();
            fuoco = q->ScalaUndo->focusPolicy();
            tutteVisibili = true;
            for (int16_t i = 101; i <= 103; ++i) {
                scritte << q->ScrittaUndo.value(i)->text();
                tutteVisibili = tutteVisibili && q->ScrittaUndo.value(i)->isVisible();
            }
            sfondo = q->QuadroDisegnoUndo.BackColor();
            inizio = Ora();
        });
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(titolo, QStringLiteral("Programma «ZANTO»  -  Annullamento Azioni"));
        QCOMPARE(posto, RettangoloTwips(375, 10005, 14535, 510));
        QCOMPARE(vista.size(), RettangoloTwips(0, 0, 14144, 10000).size());
        QCOMPARE(disegno, QSize(943, 667));
        QCOMPARE(verso, Qt::Horizontal);
        QCOMPARE(fuoco, Qt::NoFocus);
        QCOMPARE(minimo, 0);
        QCOMPARE(massimo, 3);
        QCOMPARE(tacche, 1);
        QCOMPARE(piccolo, 1);
        QCOMPARE(grande, 1);
        QCOMPARE(scritte, (QStringList{"PRIMA", QString(), "ADESSO"}));
        QVERIFY(tutteVisibili);
        QCOMPARE(sfondo, Grigio);
        // It opens on the present: the last copy.
        QCOMPARE(inizio, AlPasso(3));
        QCOMPARE(PassoUndo, int16_t(3));
    }

    void con_una_copia_la_scala_va_da_0_a_1() {
        ModalitàFunzionamento = 4;
        ScriviCopie(1);
        int minimo = -1, massimo = -1, larghezza = -1;
        QList<Vista> viste;
        Copione c(*orologio);
        c.Esegui([&] {
            minimo = Quadro()->ScalaUndo->minimum();
            massimo = Quadro()->ScalaUndo->maximum();
            larghezza = Quadro()->LarghezzaPasso;
            viste << Ora();
        });
        c.Tasto(Qt::Key_Left).Esegui([&] { viste << Ora(); });
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(minimo, 0);
        QCOMPARE(massimo, 1);
        QCOMPARE(larghezza, 14685 - 300); // the strip: the slider and 150 past it
        QCOMPARE(viste, (QList<Vista>{AlPasso(1), AlPasso(0)}));
        QCOMPARE(PassoUndo, int16_t(0));
    }

    void modo_4_le_frecce_si_fermano_agli_estremi_con_un_bip() {
        ModalitàFunzionamento = 4;
        ScriviCopie(3);
        QList<Vista> viste;
        QList<int> bip;
        Copione c(*orologio);
        const auto guarda = [&] {
            viste << Ora();
            bip << ContatoreBip;
        };
        c.Esegui(guarda);
        for (Qt::Key k : {Qt::Key_Right, Qt::Key_Down, Qt::Key_Left, Qt::Key_Up, Qt::Key_Left,
                          Qt::Key_Left, Qt::Key_Up, Qt::Key_Right, Qt::Key_Space})
            c.Tasto(k).Esegui(guarda);
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(viste, (QList<Vista>{AlPasso(3), AlPasso(3), AlPasso(3), AlPasso(2), AlPasso(1),
                                      AlPasso(0), AlPasso(0), AlPasso(0), AlPasso(1), AlPasso(1)}));
        // Right and Down at the top, Left and Up at the bottom; Space does nothing.
        QCOMPARE(bip, (QList<int>{0, 1, 2, 2, 2, 2, 3, 4, 4, 4}));
        QCOMPARE(PassoUndo, int16_t(1));
    }

    void modo_3_la_scansione_gira_a_zero_data() { RigheTastoScelta(); }
    void modo_3_la_scansione_gira_a_zero() {
        QFETCH(int, scelta);
        ModalitàFunzionamento = 3;
        const Qt::Key chiaveScelta = UsaTastoScelta(scelta);
        const Qt::Key chiaveScansione = scelta == 1 ? Qt::Key_Space : Qt::Key_Return;
        ScriviCopie(2);
        QList<Vista> viste;
        Copione c(*orologio);
        c.Esegui([&] { viste << Ora(); });
        for (int i = 0; i < 4; ++i)
            c.Tasto(chiaveScansione).Esegui([&] { viste << Ora(); });
        // The arrows are no keys of this mode, and time moves nothing.
        c.Tasto(Qt::Key_Right).Attendi(5000).Esegui([&] { viste << Ora(); });
        c.Tasto(chiaveScelta);
        QVERIFY(Apri(c));
        QCOMPARE(viste, (QList<Vista>{AlPasso(2), AlPasso(0), AlPasso(1), AlPasso(2), AlPasso(0),
                                      AlPasso(0)}));
        QCOMPARE(PassoUndo, int16_t(0));
        QCOMPARE(ContatoreBip, 0);
    }

    void modi_1_e_2_un_passo_a_ogni_attesa_e_la_scelta_ferma_data() { RigheModo({1, 2}); }
    void modi_1_e_2_un_passo_a_ogni_attesa_e_la_scelta_ferma() {
        QFETCH(int, modo);
        ModalitàFunzionamento = static_cast<int16_t>(modo);
        ScriviCopie(3);
        QList<Vista> viste;
        Copione c(*orologio);
        const auto guarda = [&] { viste << Ora(); };
        c.Esegui(guarda);
        // A full dwell on the present before the first step, then one step a dwell, round.
        c.Attendi(999).Esegui(guarda).Attendi(1).Esegui(guarda);
        for (int i = 0; i < 3; ++i)
            c.Attendi(1000).Esegui(guarda);
        c.Attendi(500).Esegui(guarda).Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(viste, (QList<Vista>{AlPasso(3), AlPasso(3), AlPasso(0), AlPasso(1), AlPasso(2),
                                      AlPasso(3), AlPasso(3)}));
        QCOMPARE(PassoUndo, int16_t(3));
    }

    void modo_2_il_tasto_di_scansione_volta_il_verso_data() {
        QTest::addColumn<int>("tipo");
        QTest::addColumn<QList<int>>("passi");
        // From step 3 of 4: one dwell forward, a press, then two dwells; and so on.
        QTest::newRow("tipo 1, diretto") << 1 << QList<int>{3, 4, 3, 2, 3, 4, 3, 2};
        QTest::newRow("tipo 2, con una pausa") << 2 << QList<int>{3, 4, 4, 4, 3, 2, 2, 2};
    }
    void modo_2_il_tasto_di_scansione_volta_il_verso() {
        QFETCH(int, tipo);
        QFETCH(QList<int>, passi);
        ModalitàFunzionamento = 2;
        TipoInversioneScansione = static_cast<int16_t>(tipo);
        ScriviCopie(4);
        QList<int> visti;
        QList<int16_t> versi;
        Copione c(*orologio);
        const auto guarda = [&] {
            const Vista v = Ora();
            visti << (v.Passo == v.Scala && v.Passo == v.Disegnati ? v.Passo : -1);
        };
        // Down to 3 first: the walk starts forward from the present, 4, and wraps.
        c.Attendi(1000).Attendi(1000).Attendi(1000).Attendi(1000);
        c.Esegui([&] { visti.clear(); });
        c.Esegui(guarda).Attendi(1000).Esegui(guarda);
        for (int giro = 0; giro < 3; ++giro) {
            c.Tasto(Qt::Key_Space).Esegui([&] { versi << Quadro()->VersoScorrimento; });
            c.Attendi(1000).Esegui(guarda).Attendi(1000).Esegui(guarda);
        }
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(visti, passi);
        QCOMPARE(versi, tipo == 1 ? (QList<int16_t>{-1, 1, -1}) : (QList<int16_t>{0, -1, 0}));
        QCOMPARE(PassoUndo, int16_t(passi.last()));
    }

    void all_indietro_sotto_lo_zero_si_torna_alla_fine() {
        ModalitàFunzionamento = 2;
        TipoInversioneScansione = 1;
        ScriviCopie(2);
        QList<Vista> viste;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Space); // backward from the present
        for (int i = 0; i < 4; ++i)
            c.Attendi(1000).Esegui([&] { viste << Ora(); });
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(viste, (QList<Vista>{AlPasso(1), AlPasso(0), AlPasso(2), AlPasso(1)}));
    }

    void il_numero_del_passo_segue_il_cursore() {
        ModalitàFunzionamento = 4;
        ScriviCopie(7);
        QList<int> colonne, attese;
        int larghezza = 0;
        Copione c(*orologio);
        const auto guarda = [&] {
            QuadroUndo* q = Quadro();
            larghezza = q->LarghezzaPasso;
            const QString numero = QString::number(PassoUndo);
            const int x = q->LarghezzaPasso * PassoUndo + 60 -
                          static_cast<int>(q->LineaTempoUndo.TextWidth(numero) / 2);
            attese << x;
            colonne << PrimaColonnaDelNumero(q->LineaTempoUndo.Immagine());
        };
        c.Esegui(guarda);
        for (int i = 0; i < 7; ++i)
            c.Tasto(Qt::Key_Left).Esegui(guarda);
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(larghezza, 2055); // (14685 - 300) / 7, to the nearest
        QCOMPARE(attese.size(), 8);
        for (int i = 0; i < attese.size(); ++i) {
            // The glyph's ink starts at its pen position or a pixel after it.
            const int px = SondePixel::Px(attese[i]);
            QVERIFY2(colonne[i] >= px && colonne[i] <= px + 2,
                     qPrintable(QStringLiteral("passo %1: colonna %2, attesa %3")
                                    .arg(7 - i)
                                    .arg(colonne[i])
                                    .arg(px)));
        }
    }

    void ogni_azione_del_passo_parte_senza_riempimento() {
        ModalitàFunzionamento = 4;
        // A filled box, then a box with no fill flag of its own: on the canvas it
        // would take the fill left behind; here it stays empty.
        CodiceCartellaAttiva = 1;
        Azioni = QList<RecordAzione>{RecordAzione{}};
        NumeroAzioni = 0;
        ElementoInCostruzione = Rettangolo(1);
        AggiungiElementoInCostruzione();
        RecordAzione senza = Rettangolo(2);
        senza.FlagPienoVuoto = FlagNonApplicabile;
        ElementoInCostruzione = senza;
        AggiungiElementoInCostruzione();
        QVERIFY(RegistraCopiaLavoro());
        int32_t primo = -1, secondo = -1, bordo = -1;
        Copione c(*orologio);
        c.Esegui([&] {
            const QImage& img = Quadro()->QuadroDisegnoUndo.Immagine();
            primo = SondePixel::Colore(img, Centro(1).x(), Centro(1).y());
            secondo = SondePixel::Colore(img, Centro(2).x(), Centro(2).y());
            bordo = SondePixel::Colore(img, SondePixel::Px(senza.XInizio), Centro(2).y());
        });
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(primo, Rosso);
        QCOMPARE(secondo, Grigio);
        QCOMPARE(bordo, 0);
    }

    void un_clic_sulla_scala_suona_e_non_muove() {
        ModalitàFunzionamento = 4;
        ScriviCopie(3);
        Vista dopo;
        Copione c(*orologio);
        c.Esegui([&] {
            // Through the window, as a real pointer comes: the slider lets it through.
            QuadroUndo* q = Quadro();
            QTest::mouseClick(q->windowHandle(), Qt::LeftButton, {},
                              q->ScalaUndo->geometry().center());
            dopo = Ora();
        });
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(dopo, AlPasso(3));
        QCOMPARE(ContatoreBip, 1);
    }

    // A copy that does not read: the error routine once, an empty surface, and
    // every other step as before, in each way of moving.
    void una_copia_guasta_va_alla_gestione_errori_e_le_altre_restano_data() {
        QTest::addColumn<int>("modo");
        QTest::addColumn<QString>("campo");
        QTest::addColumn<QVariant>("valore");
        QTest::addColumn<int>("errore");
        for (int m = 1; m <= 4; ++m) {
            QTest::addRow("modo %d, testo al posto di un numero", m)
                << m << "XInizio" << QVariant(QStringLiteral("dodici")) << 3021;
            QTest::addRow("modo %d, valore fuori intervallo", m)
                << m << "FlagPienoVuoto" << QVariant(7) << 6;
        }
    }
    void una_copia_guasta_va_alla_gestione_errori_e_le_altre_restano() {
        QFETCH(int, modo);
        QFETCH(QString, campo);
        QFETCH(QVariant, valore);
        QFETCH(int, errore);
        ModalitàFunzionamento = static_cast<int16_t>(modo);
        ScriviCopie(3);
        Guasta(BaseCopieLavoro + 2, campo, valore);
        QList<Vista> viste;
        QList<qsizetype> scatole;
        Copione c(*orologio);
        const auto guarda = [&] {
            viste << Ora();
            scatole << amb->Scatole.size();
        };
        // Each way walks 3, 0, 1, 2 (broken), 3, 0, 1, 2 (broken again), then ends there.
        for (int i = 0; i < 8; ++i) {
            if (i > 0) {
                if (modo <= 2)
                    c.Attendi(1000);
                else if (modo == 3)
                    c.Tasto(Qt::Key_Space);
                else
                    c.Tasto(i == 1 || i >= 6 ? Qt::Key_Right : Qt::Key_Left);
            }
            c.Esegui(guarda);
        }
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        const QList<int> attesi =
            modo == 4 ? QList<int>{3, 3, 2, 1, 0, 0, 1, 2} : QList<int>{3, 0, 1, 2, 3, 0, 1, 2};
        QCOMPARE(viste.size(), attesi.size());
        for (int i = 0; i < attesi.size(); ++i) {
            const int n = attesi[i];
            QCOMPARE(viste[i].Passo, n);
            QCOMPARE(viste[i].Scala, n);
            // The broken step shows an empty surface.
            QCOMPARE(viste[i].Disegnati, n == 2 ? 0 : n);
        }
        // Reported the first time the step is drawn, not at every pass.
        const int primaVolta = static_cast<int>(attesi.indexOf(2));
        for (int i = 0; i < scatole.size(); ++i)
            QCOMPARE(scatole[i], qsizetype(i < primaVolta ? 0 : 1));
        QVERIFY(amb->Scatole[0].Testo.startsWith(QStringLiteral("ERRORE %1/6310").arg(errore)));
        QVERIFY(amb->Scatole[0].Testo.contains(campo));
        // The user still ends the panel, on the broken step too.
        QCOMPARE(PassoUndo, int16_t(2));
    }

    void schermata_su_un_passo_di_mezzo() {
        ModalitàFunzionamento = 4;
        ScriviCopie(7);
        Vista v;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Left).Tasto(Qt::Key_Left).Tasto(Qt::Key_Left);
        c.Esegui([&] {
            v = Ora();
            Schermata(Quadro(), QStringLiteral("quadro_undo_passo_4_di_7"));
        });
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(v, AlPasso(4));
    }
};

QTEST_MAIN(ProvaQuadroUndo)
#include "test_quadro_undo.moc"
