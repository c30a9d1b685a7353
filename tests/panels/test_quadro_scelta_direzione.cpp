// The direction panel's own behaviour: it starts again from the last choice.
#include "model/StatoAmbiente.h"
#include "panels/QuadroSceltaDirezione.h"
#include "test_quadri_cinque_tasti.h"

namespace {

QuadroSceltaDirezione* Quadro() {
    return PannelloDavanti<QuadroSceltaDirezione>();
}

} // namespace

bool ProvaQuadriCinqueTasti::ApriDirezione(Copione& c) {
    return EseguiNelPannello(c, [] { ApriQuadroSceltaDirezione(); });
}

void ProvaQuadriCinqueTasti::prima_apertura_dopo_l_avvio_anello_su_101_e_nulla_di_marcato() {
    ModalitàFunzionamento = 1;
    QCOMPARE(DirezioneScelta, int16_t(0));
    VistaPannello vista;
    Copione c(*orologio);
    c.Esegui([&] { vista = OsservaPannello(); }).Tasto(Qt::Key_Return);
    QVERIFY(ApriDirezione(c));
    QCOMPARE(vista.Corrente, int16_t(101));
    QCOMPARE(vista.Marcato, int16_t(0));
    QCOMPARE(vista.Visibili, QList<int16_t>{101});
    QCOMPARE(vista.Colori.value(101), Verde);
    QCOMPARE(DirezioneScelta, int16_t(1));
}

void ProvaQuadriCinqueTasti::nei_modi_1_e_2_riparte_dall_ultima_scelta_data() {
    QTest::addColumn<int>("modo");
    QTest::addColumn<int>("ultima");
    QTest::addColumn<int>("marcato");
    for (int modo = 1; modo <= 2; ++modo)
        for (int d = 1; d <= 5; ++d)
            QTest::newRow(qPrintable(QStringLiteral("modo %1 ultima %2").arg(modo).arg(d)))
                << modo << d << (d <= 4 ? 100 + d : 0);
}

void ProvaQuadriCinqueTasti::nei_modi_1_e_2_riparte_dall_ultima_scelta() {
    QFETCH(int, modo);
    QFETCH(int, ultima);
    QFETCH(int, marcato);
    ModalitàFunzionamento = static_cast<int16_t>(modo);
    DirezioneScelta = static_cast<int16_t>(ultima);
    VistaPannello vista;
    Copione c(*orologio);
    c.Esegui([&] { vista = OsservaPannello(); }).Tasto(Qt::Key_Return);
    QVERIFY(ApriDirezione(c));
    QCOMPARE(vista.Corrente, int16_t(100 + ultima));
    QCOMPARE(vista.Marcato, int16_t(marcato));
    QCOMPARE(vista.Visibili, QList<int16_t>{int16_t(100 + ultima)});
    QCOMPARE(vista.Colori.value(int16_t(100 + ultima)), marcato != 0 ? Magenta : Verde);
    QCOMPARE(DirezioneScelta, int16_t(ultima));
}

void ProvaQuadriCinqueTasti::nel_modo_3_riparte_dall_ultima_solo_se_e_una_direzione_data() {
    QTest::addColumn<int>("ultima");
    QTest::addColumn<int>("primo");
    QTest::newRow("nessuna") << 0 << 101;
    QTest::newRow("sinistra") << 1 << 101;
    QTest::newRow("destra") << 2 << 102;
    QTest::newRow("alto") << 3 << 103;
    QTest::newRow("basso") << 4 << 104;
    QTest::newRow("fine") << 5 << 101;
}

void ProvaQuadriCinqueTasti::nel_modo_3_riparte_dall_ultima_solo_se_e_una_direzione() {
    QFETCH(int, ultima);
    QFETCH(int, primo);
    ModalitàFunzionamento = 3;
    DirezioneScelta = static_cast<int16_t>(ultima);
    VistaPannello vista;
    Copione c(*orologio);
    c.Esegui([&] { vista = OsservaPannello(); }).Tasto(Qt::Key_Return);
    QVERIFY(ApriDirezione(c));
    QCOMPARE(vista.Corrente, int16_t(primo));
    // Mode 3 puts the default flag on the button under the ring.
    QCOMPARE(vista.Predefinito, int16_t(primo));
    QCOMPARE(DirezioneScelta, int16_t(primo - 100));
}

void ProvaQuadriCinqueTasti::la_scelta_resta_per_l_apertura_seguente() {
    ModalitàFunzionamento = 3;
    {
        Copione c(*orologio);
        c.Tasto(Qt::Key_Space).Tasto(Qt::Key_Space).Tasto(Qt::Key_Space).Tasto(Qt::Key_Return);
        QVERIFY(ApriDirezione(c));
    }
    QCOMPARE(DirezioneScelta, int16_t(4));
    VistaPannello vista;
    Copione c(*orologio);
    c.Esegui([&] { vista = OsservaPannello(); }).Tasto(Qt::Key_Return);
    QVERIFY(ApriDirezione(c));
    QCOMPARE(vista.Corrente, int16_t(104));
    QCOMPARE(vista.Marcato, int16_t(104));
}

void ProvaQuadriCinqueTasti::il_tasto_marcato_resta_blu_quando_l_anello_va_oltre() {
    ModalitàFunzionamento = 1;
    DirezioneScelta = 2;
    VistaPannello prima, dopo, giro;
    Copione c(*orologio);
    c.Esegui([&] { prima = OsservaPannello(); });
    c.Attendi(1000).Esegui([&] { dopo = OsservaPannello(); });
    c.Attendi(3000).Esegui([&] { giro = OsservaPannello(); });
    c.Tasto(Qt::Key_Return);
    QVERIFY(ApriDirezione(c));
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

void ProvaQuadriCinqueTasti::nel_modo_1_la_scelta_ferma_l_anello_e_chiude() {
    ModalitàFunzionamento = 1;
    int16_t corrente = 0;
    Copione c(*orologio);
    c.Attendi(999).Esegui([&] { corrente = Quadro()->Motore.TastoCorrente; });
    c.Attendi(1).Tasto(Qt::Key_Return);
    QVERIFY(ApriDirezione(c));
    // A full dwell on the first button before the ring moves.
    QCOMPARE(corrente, int16_t(101));
    QCOMPARE(DirezioneScelta, int16_t(2));
    QCOMPARE(orologio->InAttesa(), 0);
}

void ProvaQuadriCinqueTasti::nel_modo_2_il_tasto_di_scansione_inverte_il_giro() {
    ModalitàFunzionamento = 2;
    TipoInversioneScansione = 1;
    QList<int16_t> giro;
    Copione c(*orologio);
    auto nota = [&] { giro.append(Quadro()->Motore.TastoCorrente); };
    c.Tasto(Qt::Key_Space).Attendi(1000).Esegui(nota).Attendi(1000).Esegui(nota);
    c.Tasto(Qt::Key_Return);
    QVERIFY(ApriDirezione(c));
    QCOMPARE(giro, (QList<int16_t>{105, 104}));
    QCOMPARE(DirezioneScelta, int16_t(4));
}

void ProvaQuadriCinqueTasti::nel_modo_3_invio_aziona_il_tasto_anche_come_tasto_di_scansione() {
    ModalitàFunzionamento = 3;
    TastoScelta = 2;
    TastoScansione = 1;
    DirezioneScelta = 3;
    Copione c(*orologio);
    c.Tasto(Qt::Key_Return);
    QVERIFY(ApriDirezione(c));
    QCOMPARE(DirezioneScelta, int16_t(3));
}

void ProvaQuadriCinqueTasti::nel_modo_4_le_frecce_non_muovono_l_anello() {
    ModalitàFunzionamento = 4;
    DirezioneScelta = 2;
    int16_t dopo = 0;
    Copione c(*orologio);
    c.Tasto(Qt::Key_Right).Tasto(Qt::Key_Down).Tasto(Qt::Key_Left).Tasto(Qt::Key_Up);
    c.Esegui([&] { dopo = Quadro()->Motore.TastoCorrente; });
    c.Tasto(Qt::Key_Return);
    QVERIFY(ApriDirezione(c));
    QCOMPARE(dopo, int16_t(102));
    QCOMPARE(DirezioneScelta, int16_t(2));
}
