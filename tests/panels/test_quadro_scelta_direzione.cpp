// The direction panel, opened as the drawing screen opens it and answered with keys.
#include "base/Bip.h"
#include "base/Configurazione.h"
#include "base/IconaSvg.h"
#include "model/StatoAmbiente.h"
#include "panels/ProvaPannello.h"
#include "panels/QuadroSceltaDirezione.h"
#include "support/AmbienteProva.h"
#include "support/OrologioVirtuale.h"

#include <QtTest>

#include <memory>

namespace {

QuadroSceltaDirezione* Quadro() {
    return PannelloDavanti<QuadroSceltaDirezione>();
}

} // namespace

class ProvaQuadroSceltaDirezione : public QObject {
    Q_OBJECT

    std::unique_ptr<AmbienteProva> amb;
    std::unique_ptr<OrologioVirtuale> orologio;

    bool Apri(Copione& c) {
        return EseguiNelPannello(c, [] { ApriQuadroSceltaDirezione(); });
    }

private slots:
    void init() {
        amb = std::make_unique<AmbienteProva>(false);
        orologio = std::make_unique<OrologioVirtuale>();
        TempoLatenzaScansione = 1000;
    }
    void cleanup() {
        orologio.reset();
        amb.reset();
    }

    void posti_e_misure_del_quadro_e_dei_tasti() {
        ModalitàFunzionamento = 3;
        QSize cliente;
        QList<QRect> posti, corone;
        QString titolo = QStringLiteral("?");
        QPoint posto;
        Copione c(*orologio);
        c.Esegui([&] {
            cliente = Quadro()->size();
            titolo = Quadro()->windowTitle();
            posto = Quadro()->pos();
            for (int16_t i = 101; i <= 105; ++i) {
                posti.append(Quadro()->Tasti.value(i)->geometry());
                corone.append(Quadro()->Corone.value(i)->geometry());
            }
        });
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(cliente, QSize(265, 52));
        QCOMPARE(titolo, QString());
        QCOMPARE(posti, (QList<QRect>{{3, 5, 47, 44},
                                      {56, 5, 47, 44},
                                      {109, 5, 47, 44},
                                      {162, 5, 47, 44},
                                      {215, 5, 47, 44}}));
        // Each ring stands a little outside its button, all round.
        for (int i = 0; i < 5; ++i)
            QVERIFY(corone[i].contains(posti[i]) && corone[i] != posti[i]);
        // Centred under the middle of the canvas, above the strip of labels.
        QCOMPARE(posto, QPoint(376, 661));
    }

    void suggerimenti_nomi_accessibili_e_immagini() {
        ModalitàFunzionamento = 3;
        QStringList suggerimenti, nomi, didascalie, immagini;
        QList<bool> conIcona;
        Copione c(*orologio);
        c.Esegui([&] {
            for (int16_t i = 101; i <= 105; ++i) {
                TastoZanto* t = Quadro()->Tasti.value(i);
                suggerimenti << t->toolTip();
                nomi << t->accessibleName();
                didascalie << t->text();
                immagini << t->property(ProprietaRisorsaIcona).toString();
                conIcona << !t->icon().isNull();
            }
        });
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        const QStringList attesi{"Direzione «Sinistra»", "Direzione «Destra»", "Direzione «Alto»",
                                 "Direzione «Basso»", "Chiudi"};
        QCOMPARE(suggerimenti, attesi);
        QCOMPARE(nomi, attesi);
        QCOMPARE(didascalie, QStringList(5, QString()));
        QCOMPARE(immagini, (QStringList{":/icone/pannelli/direzione-sinistra.svg",
                                        ":/icone/pannelli/direzione-destra.svg",
                                        ":/icone/pannelli/direzione-alto.svg",
                                        ":/icone/pannelli/direzione-basso.svg",
                                        ":/icone/pannelli/chiudi.svg"}));
        QCOMPARE(conIcona, QList<bool>(5, true));
    }

    void ogni_tasto_da_il_suo_risultato_data() {
        QTest::addColumn<int>("tasto");
        for (int t = 101; t <= 105; ++t)
            QTest::newRow(qPrintable(QString::number(t))) << t;
    }
    void ogni_tasto_da_il_suo_risultato() {
        QFETCH(int, tasto);
        ModalitàFunzionamento = 3;
        Copione c(*orologio);
        for (int i = 101; i < tasto; ++i)
            c.Tasto(Qt::Key_Space);
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QVERIFY(c.Problemi.isEmpty());
        QCOMPARE(DirezioneScelta, int16_t(tasto - 100));
    }

    void prima_apertura_dopo_l_avvio_anello_su_101_e_nulla_di_marcato() {
        ModalitàFunzionamento = 1;
        QCOMPARE(DirezioneScelta, int16_t(0));
        VistaPannello vista;
        Copione c(*orologio);
        c.Esegui([&] { vista = OsservaPannello(); }).Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(vista.Corrente, int16_t(101));
        QCOMPARE(vista.Marcato, int16_t(0));
        QCOMPARE(vista.Visibili, QList<int16_t>{101});
        QCOMPARE(vista.Colori.value(101), Verde);
        QCOMPARE(DirezioneScelta, int16_t(1));
    }

    void nei_modi_1_e_2_riparte_dall_ultima_scelta_data() {
        QTest::addColumn<int>("modo");
        QTest::addColumn<int>("ultima");
        QTest::addColumn<int>("marcato");
        for (int modo = 1; modo <= 2; ++modo)
            for (int d = 1; d <= 5; ++d)
                QTest::newRow(qPrintable(QStringLiteral("modo %1 ultima %2").arg(modo).arg(d)))
                    << modo << d << (d <= 4 ? 100 + d : 0);
    }
    void nei_modi_1_e_2_riparte_dall_ultima_scelta() {
        QFETCH(int, modo);
        QFETCH(int, ultima);
        QFETCH(int, marcato);
        ModalitàFunzionamento = static_cast<int16_t>(modo);
        DirezioneScelta = static_cast<int16_t>(ultima);
        VistaPannello vista;
        Copione c(*orologio);
        c.Esegui([&] { vista = OsservaPannello(); }).Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(vista.Corrente, int16_t(100 + ultima));
        QCOMPARE(vista.Marcato, int16_t(marcato));
        QCOMPARE(vista.Visibili, QList<int16_t>{int16_t(100 + ultima)});
        QCOMPARE(vista.Colori.value(int16_t(100 + ultima)), marcato != 0 ? Magenta : Verde);
        QCOMPARE(DirezioneScelta, int16_t(ultima));
    }

    void nel_modo_3_riparte_dall_ultima_solo_se_e_una_direzione_data() {
        QTest::addColumn<int>("ultima");
        QTest::addColumn<int>("primo");
        QTest::newRow("nessuna") << 0 << 101;
        QTest::newRow("sinistra") << 1 << 101;
        QTest::newRow("destra") << 2 << 102;
        QTest::newRow("alto") << 3 << 103;
        QTest::newRow("basso") << 4 << 104;
        QTest::newRow("fine") << 5 << 101;
    }
    void nel_modo_3_riparte_dall_ultima_solo_se_e_una_direzione() {
        QFETCH(int, ultima);
        QFETCH(int, primo);
        ModalitàFunzionamento = 3;
        DirezioneScelta = static_cast<int16_t>(ultima);
        VistaPannello vista;
        Copione c(*orologio);
        c.Esegui([&] { vista = OsservaPannello(); }).Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(vista.Corrente, int16_t(primo));
        // Mode 3 puts the default flag on the button under the ring.
        QCOMPARE(vista.Predefinito, int16_t(primo));
        QCOMPARE(DirezioneScelta, int16_t(primo - 100));
    }

    void la_scelta_resta_per_l_apertura_seguente() {
        ModalitàFunzionamento = 3;
        {
            Copione c(*orologio);
            c.Tasto(Qt::Key_Space).Tasto(Qt::Key_Space).Tasto(Qt::Key_Space).Tasto(Qt::Key_Return);
            QVERIFY(Apri(c));
        }
        QCOMPARE(DirezioneScelta, int16_t(4));
        VistaPannello vista;
        Copione c(*orologio);
        c.Esegui([&] { vista = OsservaPannello(); }).Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(vista.Corrente, int16_t(104));
        QCOMPARE(vista.Marcato, int16_t(104));
    }

    void il_tasto_marcato_resta_blu_quando_l_anello_va_oltre() {
        ModalitàFunzionamento = 1;
        DirezioneScelta = 2;
        VistaPannello prima, dopo, giro;
        Copione c(*orologio);
        c.Esegui([&] { prima = OsservaPannello(); });
        c.Attendi(1000).Esegui([&] { dopo = OsservaPannello(); });
        c.Attendi(3000).Esegui([&] { giro = OsservaPannello(); });
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(prima.Colori.value(102), Magenta);
        QCOMPARE(dopo.Corrente, int16_t(103));
        QCOMPARE(dopo.Visibili, (QList<int16_t>{102, 103}));
        QCOMPARE(dopo.Colori.value(102), Blu);
        QCOMPARE(dopo.Colori.value(103), Verde);
        // Round the row: the marked ring is still there, blue.
        QCOMPARE(giro.Corrente, int16_t(101));
        QCOMPARE(giro.Visibili, (QList<int16_t>{101, 102}));
        QCOMPARE(giro.Colori.value(102), Blu);
        QCOMPARE(DirezioneScelta, int16_t(1));
    }

    void il_titolo_dell_ambiente_segue_l_anello() {
        ModalitàFunzionamento = 1;
        QStringList avvisi;
        AvvisoComandoAmbiente = [&avvisi](const QString& s) {
            if (avvisi.isEmpty() || avvisi.last() != s) avvisi.append(s);
        };
        Copione c(*orologio);
        c.Attendi(1000).Attendi(1000).Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(avvisi,
                 (QStringList{"Direzione «Sinistra»", "Direzione «Destra»", "Direzione «Alto»"}));
        QCOMPARE(DirezioneScelta, int16_t(3));
    }

    void nel_modo_1_la_scelta_ferma_l_anello_e_chiude() {
        ModalitàFunzionamento = 1;
        int16_t corrente = 0;
        Copione c(*orologio);
        c.Attendi(999).Esegui([&] { corrente = Quadro()->Motore.TastoCorrente; });
        c.Attendi(1).Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        // A full dwell on the first button before the ring moves.
        QCOMPARE(corrente, int16_t(101));
        QCOMPARE(DirezioneScelta, int16_t(2));
        QCOMPARE(orologio->InAttesa(), 0);
    }

    void nel_modo_2_il_tasto_di_scansione_inverte_il_giro() {
        ModalitàFunzionamento = 2;
        TipoInversioneScansione = 1;
        QList<int16_t> giro;
        Copione c(*orologio);
        auto nota = [&] { giro.append(Quadro()->Motore.TastoCorrente); };
        c.Tasto(Qt::Key_Space).Attendi(1000).Esegui(nota).Attendi(1000).Esegui(nota);
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(giro, (QList<int16_t>{105, 104}));
        QCOMPARE(DirezioneScelta, int16_t(4));
    }

    void nel_modo_3_invio_aziona_il_tasto_anche_come_tasto_di_scansione() {
        ModalitàFunzionamento = 3;
        TastoScelta = 2;
        TastoScansione = 1;
        DirezioneScelta = 3;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(DirezioneScelta, int16_t(3));
    }

    void nel_modo_4_le_frecce_non_muovono_l_anello() {
        ModalitàFunzionamento = 4;
        DirezioneScelta = 2;
        int16_t dopo = 0;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Right).Tasto(Qt::Key_Down).Tasto(Qt::Key_Left).Tasto(Qt::Key_Up);
        c.Esegui([&] { dopo = Quadro()->Motore.TastoCorrente; });
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(dopo, int16_t(102));
        QCOMPARE(DirezioneScelta, int16_t(2));
    }

    void escape_e_gli_altri_tasti_non_fanno_nulla() {
        ModalitàFunzionamento = 3;
        bool aperto = false;
        int16_t dopo = 0;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Escape).Tasto(Qt::Key_A).Tasto(Qt::Key_F6).Tasto(Qt::Key_F12);
        c.Tasto(Qt::Key_Left).Tasto(Qt::Key_Tab);
        c.Esegui([&] {
            aperto = Quadro() != nullptr;
            if (aperto) dopo = Quadro()->Motore.TastoCorrente;
        });
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QVERIFY(aperto);
        QCOMPARE(dopo, int16_t(101));
        QCOMPARE(ModalitàFunzionamento, int16_t(3));
        QCOMPARE(ContatoreBip, 0);
        QCOMPARE(DirezioneScelta, int16_t(1));
    }

    void un_clic_del_mouse_sceglie_e_ferma_l_anello() {
        ModalitàFunzionamento = 1;
        Copione c(*orologio);
        c.Esegui([] { QTest::mouseClick(Quadro()->Tasti.value(104), Qt::LeftButton); });
        QVERIFY(Apri(c));
        QCOMPARE(DirezioneScelta, int16_t(4));
        QCOMPARE(orologio->InAttesa(), 0);
    }

    void il_fuoco_resta_su_focusfix() {
        ModalitàFunzionamento = 3;
        QWidget* fuoco = nullptr;
        QWidget* focusFix = nullptr;
        QList<Qt::FocusPolicy> politiche;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Space).Esegui([&] {
            fuoco = Quadro()->focusWidget();
            focusFix = Quadro()->FocusFix;
            for (int16_t i = 101; i <= 105; ++i)
                politiche << Quadro()->Tasti.value(i)->focusPolicy();
        });
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QVERIFY(focusFix != nullptr);
        QCOMPARE(fuoco, focusFix);
        QCOMPARE(politiche, QList<Qt::FocusPolicy>(5, Qt::NoFocus));
    }
};

QTEST_MAIN(ProvaQuadroSceltaDirezione)
#include "test_quadro_scelta_direzione.moc"
