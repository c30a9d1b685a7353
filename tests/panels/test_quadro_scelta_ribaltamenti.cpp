// The flip panel, opened where the drawing screen places it and answered with keys.
#include "base/Bip.h"
#include "base/Configurazione.h"
#include "base/GestioneErrori.h"
#include "base/IconaSvg.h"
#include "base/Misure.h"
#include "panels/ProvaPannello.h"
#include "panels/QuadroSceltaRibaltamenti.h"
#include "support/AmbienteProva.h"
#include "support/OrologioVirtuale.h"

#include <QtTest>

#include <memory>

namespace {

QuadroSceltaRibaltamenti* Quadro() {
    return PannelloDavanti<QuadroSceltaRibaltamenti>();
}

} // namespace

class ProvaQuadroSceltaRibaltamenti : public QObject {
    Q_OBJECT

    std::unique_ptr<AmbienteProva> amb;
    std::unique_ptr<OrologioVirtuale> orologio;

    bool Apri(Copione& c, int sinistra = 9000, int alto = 1500) {
        return EseguiNelPannello(c, [=] { ApriQuadroSceltaRibaltamenti(sinistra, alto); });
    }

private slots:
    void init() {
        amb = std::make_unique<AmbienteProva>(false);
        orologio = std::make_unique<OrologioVirtuale>();
        TempoLatenzaScansione = 1000;
        RibaltamentoScelto = 0;
    }
    void cleanup() {
        orologio.reset();
        amb.reset();
    }

    void posti_e_misure_del_quadro_e_dei_tasti() {
        ModalitàFunzionamento = 3;
        QSize cliente;
        QString titolo = QStringLiteral("?");
        QList<QRect> posti, corone;
        Copione c(*orologio);
        c.Esegui([&] {
            cliente = Quadro()->size();
            titolo = Quadro()->windowTitle();
            for (int16_t i = 101; i <= 105; ++i) {
                posti.append(Quadro()->Tasti.value(i)->geometry());
                corone.append(Quadro()->Corone.value(i)->geometry());
            }
        });
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(cliente, QSize(53, 252));
        QCOMPARE(titolo, QString());
        QCOMPARE(posti, (QList<QRect>{{3, 5, 47, 44},
                                      {3, 55, 47, 44},
                                      {3, 105, 47, 44},
                                      {3, 155, 47, 44},
                                      {3, 204, 47, 44}}));
        // The ring of 101 is what the caller measures to place the panel: 795 twips wide.
        QCOMPARE(corone[0], QRect(0, 2, 53, 50));
        for (int i = 0; i < 5; ++i)
            QVERIFY(corone[i].contains(posti[i]) && corone[i] != posti[i]);
    }

    void si_apre_dove_dice_chi_lo_chiama() {
        ModalitàFunzionamento = 3;
        QPoint posto;
        Copione c(*orologio);
        c.Esegui([&] { posto = Quadro()->pos(); }).Tasto(Qt::Key_Return);
        QVERIFY(Apri(c, 14144 - 795, 1440 + 260));
        QCOMPARE(posto, QPoint(Px(14144 - 795), Px(1440 + 260)));
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
        const QStringList attesi{"Ribalta per Asse Destro", "Ribalta per Asse Sinistro",
                                 "Ribalta per Asse Inferiore", "Ribalta per Asse Superiore",
                                 "Chiudi"};
        QCOMPARE(suggerimenti, attesi);
        QCOMPARE(nomi, attesi);
        QCOMPARE(didascalie, QStringList(5, QString()));
        QCOMPARE(immagini, (QStringList{":/icone/pannelli/ribalta-destro.svg",
                                        ":/icone/pannelli/ribalta-sinistro.svg",
                                        ":/icone/pannelli/ribalta-inferiore.svg",
                                        ":/icone/pannelli/ribalta-superiore.svg",
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
        ModalitàFunzionamento = 4;
        Copione c(*orologio);
        for (int i = 101; i < tasto; ++i)
            c.Tasto(Qt::Key_Down);
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QVERIFY(c.Problemi.isEmpty());
        QCOMPARE(RibaltamentoScelto, int16_t(tasto - 100));
    }

    void ogni_apertura_parte_da_101_senza_tasto_marcato() {
        ModalitàFunzionamento = 3;
        {
            Copione c(*orologio);
            c.Tasto(Qt::Key_Space).Tasto(Qt::Key_Space).Tasto(Qt::Key_Return);
            QVERIFY(Apri(c));
        }
        QCOMPARE(RibaltamentoScelto, int16_t(3));
        VistaPannello vista;
        Copione c(*orologio);
        c.Esegui([&] { vista = OsservaPannello(); }).Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(vista.Corrente, int16_t(101));
        QCOMPARE(vista.Marcato, int16_t(0));
        QCOMPARE(vista.Visibili, QList<int16_t>{101});
        QCOMPARE(vista.Colori.value(101), Verde);
        QCOMPARE(vista.Predefinito, int16_t(101));
    }

    void segna_la_sezione_della_preparazione() {
        ModalitàFunzionamento = 3;
        int16_t sezione = 0;
        Copione c(*orologio);
        c.Esegui([&] { sezione = SezioneCorrente; }).Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QVERIFY(sezione >= 3000 && sezione <= 3090);
    }

    void nel_modo_1_l_anello_gira_e_torna_al_primo() {
        ModalitàFunzionamento = 1;
        QList<int16_t> giro;
        Copione c(*orologio);
        auto nota = [&] { giro.append(Quadro()->Motore.TastoCorrente); };
        c.Esegui(nota);
        for (int i = 0; i < 5; ++i)
            c.Attendi(1000).Esegui(nota);
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(giro, (QList<int16_t>{101, 102, 103, 104, 105, 101}));
        QCOMPARE(RibaltamentoScelto, int16_t(1));
        QCOMPARE(orologio->InAttesa(), 0);
    }

    void nel_modo_2_la_pausa_ferma_l_anello() {
        ModalitàFunzionamento = 2;
        TipoInversioneScansione = 2;
        QList<int16_t> giro;
        Copione c(*orologio);
        auto nota = [&] { giro.append(Quadro()->Motore.TastoCorrente); };
        c.Attendi(1000).Tasto(Qt::Key_Space).Attendi(1000).Esegui(nota).Attendi(1000).Esegui(nota);
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(giro, (QList<int16_t>{102, 102}));
        QCOMPARE(RibaltamentoScelto, int16_t(2));
    }

    void il_titolo_dell_ambiente_segue_l_anello() {
        ModalitàFunzionamento = 3;
        QStringList avvisi;
        AvvisoComandoAmbiente = [&avvisi](const QString& s) {
            if (avvisi.isEmpty() || avvisi.last() != s) avvisi.append(s);
        };
        Copione c(*orologio);
        c.Tasto(Qt::Key_Space).Tasto(Qt::Key_Space).Tasto(Qt::Key_Space).Tasto(Qt::Key_Space);
        c.Tasto(Qt::Key_Space).Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(avvisi, (QStringList{"Ribalta per Asse Destro", "Ribalta per Asse Sinistro",
                                      "Ribalta per Asse Inferiore", "Ribalta per Asse Superiore",
                                      "Chiudi", "Ribalta per Asse Destro"}));
        QCOMPARE(RibaltamentoScelto, int16_t(1));
    }

    void escape_e_gli_altri_tasti_non_fanno_nulla() {
        ModalitàFunzionamento = 4;
        bool aperto = false;
        int16_t dopo = 0;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Escape).Tasto(Qt::Key_Space).Tasto(Qt::Key_F7).Tasto(Qt::Key_Z);
        c.Esegui([&] {
            aperto = Quadro() != nullptr;
            if (aperto) dopo = Quadro()->Motore.TastoCorrente;
        });
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QVERIFY(aperto);
        QCOMPARE(dopo, int16_t(101));
        QCOMPARE(ModalitàFunzionamento, int16_t(4));
        QCOMPARE(ContatoreBip, 0);
        QCOMPARE(RibaltamentoScelto, int16_t(1));
    }

    void un_clic_del_mouse_sceglie() {
        ModalitàFunzionamento = 2;
        Copione c(*orologio);
        c.Esegui([] { QTest::mouseClick(Quadro()->Tasti.value(104), Qt::LeftButton); });
        QVERIFY(Apri(c));
        QCOMPARE(RibaltamentoScelto, int16_t(4));
        QCOMPARE(orologio->InAttesa(), 0);
    }
};

QTEST_MAIN(ProvaQuadroSceltaRibaltamenti)
#include "test_quadro_scelta_ribaltamenti.moc"
