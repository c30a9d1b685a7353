// The flip panel's own behaviour: every opening starts from its first button.
#include "base/GestioneErrori.h"
#include "panels/QuadroSceltaRibaltamenti.h"
#include "test_quadri_cinque_tasti.h"

namespace {

QuadroSceltaRibaltamenti* Quadro() {
    return PannelloDavanti<QuadroSceltaRibaltamenti>();
}

} // namespace

bool ProvaQuadriCinqueTasti::ApriRibaltamenti(Copione& c, int sinistra, int alto) {
    return EseguiNelPannello(c, [=] { ApriQuadroSceltaRibaltamenti(sinistra, alto); });
}

void ProvaQuadriCinqueTasti::ogni_apertura_dei_ribaltamenti_parte_da_101_senza_tasto_marcato() {
    ModalitàFunzionamento = 3;
    {
        Copione c(*orologio);
        c.Tasto(Qt::Key_Space).Tasto(Qt::Key_Space).Tasto(Qt::Key_Return);
        QVERIFY(ApriRibaltamenti(c));
    }
    QCOMPARE(RibaltamentoScelto, int16_t(3));
    VistaPannello vista;
    Copione c(*orologio);
    c.Esegui([&] { vista = OsservaPannello(); }).Tasto(Qt::Key_Return);
    QVERIFY(ApriRibaltamenti(c));
    QCOMPARE(vista.Corrente, int16_t(101));
    QCOMPARE(vista.Marcato, int16_t(0));
    QCOMPARE(vista.Visibili, QList<int16_t>{101});
    QCOMPARE(vista.Colori.value(101), Verde);
    QCOMPARE(vista.Predefinito, int16_t(101));
}

void ProvaQuadriCinqueTasti::i_ribaltamenti_segnano_la_sezione_della_preparazione() {
    ModalitàFunzionamento = 3;
    int16_t sezione = 0;
    Copione c(*orologio);
    c.Esegui([&] { sezione = SezioneCorrente; }).Tasto(Qt::Key_Return);
    QVERIFY(ApriRibaltamenti(c));
    QVERIFY(sezione >= 3000 && sezione <= 3090);
}

void ProvaQuadriCinqueTasti::nel_modo_1_l_anello_dei_ribaltamenti_gira_e_torna_al_primo() {
    ModalitàFunzionamento = 1;
    QList<int16_t> giro;
    Copione c(*orologio);
    auto nota = [&] { giro.append(Quadro()->Motore.TastoCorrente); };
    c.Esegui(nota);
    for (int i = 0; i < 5; ++i)
        c.Attendi(1000).Esegui(nota);
    c.Tasto(Qt::Key_Return);
    QVERIFY(ApriRibaltamenti(c));
    QCOMPARE(giro, (QList<int16_t>{101, 102, 103, 104, 105, 101}));
    QCOMPARE(RibaltamentoScelto, int16_t(1));
    QCOMPARE(orologio->InAttesa(), 0);
}

void ProvaQuadriCinqueTasti::nel_modo_2_la_pausa_ferma_l_anello_dei_ribaltamenti() {
    ModalitàFunzionamento = 2;
    TipoInversioneScansione = 2;
    QList<int16_t> giro;
    Copione c(*orologio);
    auto nota = [&] { giro.append(Quadro()->Motore.TastoCorrente); };
    c.Attendi(1000).Tasto(Qt::Key_Space).Attendi(1000).Esegui(nota).Attendi(1000).Esegui(nota);
    c.Tasto(Qt::Key_Return);
    QVERIFY(ApriRibaltamenti(c));
    QCOMPARE(giro, (QList<int16_t>{102, 102}));
    QCOMPARE(RibaltamentoScelto, int16_t(2));
}
