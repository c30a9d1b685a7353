// The progress form: the text and the bar of a long job, step by step, and the
// stop a user asks for by the button or by the choice key.
#include "base/Configurazione.h"
#include "model/VistaSuperficie.h"
#include "panels/VideaAvanzamento.h"
#include "support/AmbienteProva.h"
#include "support/Sonde.h"

#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QtTest>

#include <memory>

namespace {

constexpr int32_t Rosso = 0x0000FF;
constexpr int32_t Bianco = 0xFFFFFF;

// The colour of the bar's box halfway down, `x` twips from its left.
int32_t ColoreBarra(const VideaAvanzamento& f, int x) {
    return f.Barra.Point(static_cast<float>(x), static_cast<float>(AltezzaBarra / 2 + 5));
}

} // namespace

class ProvaVideaAvanzamento : public QObject {
    Q_OBJECT

    std::unique_ptr<AmbienteProva> amb;
    std::unique_ptr<VideaAvanzamento> forma;

    VideaAvanzamento& Apri(int16_t modo) {
        ModoAvanzamento = modo;
        TestoAvanzamento = QStringLiteral("Copia dei disegni");
        PassiAvanzamento = 0;
        AnnullaProcesso = 0;
        forma = std::make_unique<VideaAvanzamento>();
        forma->show();
        return *forma;
    }

private slots:
    void init() { amb = std::make_unique<AmbienteProva>(false); }
    void cleanup() {
        forma.reset();
        amb.reset();
    }

    void all_apertura_le_misure_della_barra() {
        VideaAvanzamento& f = Apri(2);
        QCOMPARE(VideaAvanzamentoAperta(), &f);
        QCOMPARE(f.ScrittaAttendereAvanzamento->text(), QStringLiteral("ATTENDERE !"));
        QCOMPARE(f.windowTitle(),
                 QStringLiteral("Programma «ZANTO» - Visualizzazione avanzamento procedura"));
        QCOMPARE(LarghezzaBarra, int16_t(8565 - 40));
        QCOMPARE(PassoBarra, int16_t((8565 - 40) / 10));
        QCOMPARE(CentroBarra, int16_t(8565 / 2 - 280));
        QCOMPARE(AltezzaBarra, int16_t(570 - 40));
    }

    void ogni_passo_allunga_la_barra_di_un_decimo() {
        VideaAvanzamento& f = Apri(2);
        AvanzamentoProcesso();
        QCOMPARE(f.ScrittaAttendereAvanzamento->text(), QStringLiteral("Copia dei disegni"));
        QVERIFY(f.BoxLineaAvanzamento->isVisible());
        QCOMPARE(PassiAvanzamento, int16_t(1));
        QCOMPARE(PosizioneBarra, PassoBarra);
        QCOMPARE(f.Percentuale, QStringLiteral("10%"));
        QCOMPARE(ColoreBarra(f, PassoBarra / 2), Rosso);
        QCOMPARE(ColoreBarra(f, PassoBarra + PassoBarra / 2), Bianco);
        AvanzamentoProcesso();
        AvanzamentoProcesso();
        QCOMPARE(f.Percentuale, QStringLiteral("30%"));
        Schermata(&f, QStringLiteral("avanzamento-30"));
        QCOMPARE(ColoreBarra(f, 2 * PassoBarra + PassoBarra / 2), Rosso);
        QCOMPARE(ColoreBarra(f, 3 * PassoBarra + PassoBarra / 2), Bianco);
    }

    void oltre_nove_passi_la_barra_cresce_e_la_cifra_resta() {
        VideaAvanzamento& f = Apri(2);
        for (int i = 0; i < 9; ++i)
            AvanzamentoProcesso();
        QCOMPARE(f.Percentuale, QStringLiteral("90%"));
        const QImage nove = f.Barra.Schermo().copy();
        AvanzamentoProcesso();
        QCOMPARE(PassiAvanzamento, int16_t(10));
        QCOMPARE(f.Percentuale, QStringLiteral("90%"));
        QCOMPARE(PosizioneBarra, int16_t(10 * PassoBarra));
        QVERIFY(f.Barra.Schermo() != nove);
        QCOMPARE(ColoreBarra(f, 9 * PassoBarra + PassoBarra / 2), Rosso);
    }

    void zero_passi_fa_ripartire_la_barra() {
        VideaAvanzamento& f = Apri(2);
        for (int i = 0; i < 5; ++i)
            AvanzamentoProcesso();
        PassiAvanzamento = 0;
        TestoAvanzamento = QStringLiteral("Seconda parte");
        AvanzamentoProcesso();
        QCOMPARE(PosizioneBarra, PassoBarra);
        QCOMPARE(f.ScrittaAttendereAvanzamento->text(), QStringLiteral("Seconda parte"));
        QCOMPARE(ColoreBarra(f, 2 * PassoBarra + PassoBarra / 2), Bianco);
    }

    void modo_solo_testo_scritta_gialla_e_niente_barra() {
        VideaAvanzamento& f = Apri(1);
        AvanzamentoProcesso();
        QLabel* scritta = f.ScrittaAttendereAvanzamento;
        QCOMPARE(scritta->text(), QStringLiteral("Copia dei disegni"));
        QCOMPARE(scritta->palette().color(QPalette::Window).rgb() & 0xFFFFFFu, 0xFFFF00u);
        QCOMPARE(scritta->palette().color(QPalette::WindowText).rgb() & 0xFFFFFFu, 0x000000u);
        QVERIFY(!f.BoxLineaAvanzamento->isVisible());
        QCOMPARE(PassiAvanzamento, int16_t(0));
        Schermata(&f, QStringLiteral("avanzamento-testo"));
        // Back to the bar: the label takes the plain colours again.
        ModoAvanzamento = 2;
        AvanzamentoProcesso();
        QVERIFY(f.BoxLineaAvanzamento->isVisible());
        QCOMPARE(scritta->palette().color(QPalette::Window), f.palette().color(QPalette::Window));
    }

    void il_tasto_annulla_chiede_di_fermare() {
        VideaAvanzamento& f = Apri(2);
        f.TastoAnnullaProcesso->click();
        QCOMPARE(AnnullaProcesso, int16_t(1));
    }

    void il_tasto_di_scelta_chiede_di_fermare_in_ogni_modo() {
        struct Caso {
            int16_t modo;
            int16_t scelta;
            Qt::Key tasto;
            int16_t atteso;
        };
        const QList<Caso> casi = {
            {1, 1, Qt::Key_Return, 1}, {1, 2, Qt::Key_Return, 0}, {1, 2, Qt::Key_Space, 1},
            {2, 2, Qt::Key_Space, 1},  {3, 1, Qt::Key_Return, 1}, {3, 1, Qt::Key_Space, 0},
            {4, 2, Qt::Key_Return, 1}, {4, 1, Qt::Key_Right, 0},
        };
        for (const Caso& c : casi) {
            VideaAvanzamento& f = Apri(2);
            ModalitàFunzionamento = c.modo;
            TastoScelta = c.scelta;
            TastoScansione = c.scelta == 1 ? 2 : 1;
            QTest::keyClick(&f, c.tasto);
            QCOMPARE(AnnullaProcesso, c.atteso);
            // Escape never closes it: the job closes it when it ends.
            QTest::keyClick(&f, Qt::Key_Escape);
            QVERIFY(f.isVisible());
        }
    }

    void un_lavoro_che_non_legge_la_richiesta_va_fino_in_fondo() {
        VideaAvanzamento& f = Apri(2);
        // The click arrives while the job runs: each step lets the events in.
        QTimer::singleShot(0, f.TastoAnnullaProcesso, &QPushButton::click);
        AvanzamentoProcesso();
        QCOMPARE(AnnullaProcesso, int16_t(1));
        const QString dopoLaRichiesta = f.Percentuale;
        // The request stops nothing by itself: the form goes on counting.
        for (int i = 2; i <= 12; ++i)
            AvanzamentoProcesso();
        QCOMPARE(PassiAvanzamento, int16_t(12));
        QVERIFY(f.Percentuale != dopoLaRichiesta);
        QCOMPARE(f.Percentuale, QStringLiteral("90%"));
        QVERIFY(f.isVisible());
    }
};

QTEST_MAIN(ProvaVideaAvanzamento)
#include "test_videa_avanzamento.moc"
