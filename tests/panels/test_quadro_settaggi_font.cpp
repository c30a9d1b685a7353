// The font panel's own behaviour: two lists, two switches and their pictures.
#include "base/Bip.h"
#include "base/IconaSvg.h"
#include "model/StatoAmbiente.h"
#include "panels/Elaborazioni.h"
#include "panels/EtichettaLista.h"
#include "panels/QuadroSettaggiFont.h"
#include "test_quadri_cinque_tasti.h"

#include <QListWidget>

namespace {

QuadroSettaggiFont* Quadro() {
    return PannelloDavanti<QuadroSettaggiFont>();
}

// The pictures that buttons 103 and 104 show now.
QStringList Immagini() {
    QuadroSettaggiFont* q = Quadro();
    if (q == nullptr) return {};
    return {q->Tasti.value(103)->property(ProprietaRisorsaIcona).toString(),
            q->Tasti.value(104)->property(ProprietaRisorsaIcona).toString()};
}

const QString GrassettoSi = QStringLiteral(":/icone/pannelli/grassetto-si.svg");
const QString GrassettoNo = QStringLiteral(":/icone/pannelli/grassetto-no.svg");
const QString CorsivoSi = QStringLiteral(":/icone/pannelli/corsivo-si.svg");
const QString CorsivoNo = QStringLiteral(":/icone/pannelli/corsivo-no.svg");

} // namespace

bool ProvaQuadriCinqueTasti::ApriFont(Copione& c, int sinistra, int alto) {
    return EseguiNelPannello(c, [=] { ApriQuadroSettaggiFont(sinistra, alto); });
}

void ProvaQuadriCinqueTasti::l_apertura_mostra_lo_stato_di_grassetto_e_corsivo_data() {
    QTest::addColumn<int>("grassetto");
    QTest::addColumn<int>("corsivo");
    QTest::addColumn<QStringList>("immagini");
    QTest::newRow("nessuno") << 2 << 2 << QStringList{GrassettoNo, CorsivoNo};
    QTest::newRow("grassetto") << 1 << 2 << QStringList{GrassettoSi, CorsivoNo};
    QTest::newRow("corsivo") << 2 << 1 << QStringList{GrassettoNo, CorsivoSi};
    QTest::newRow("entrambi") << 1 << 1 << QStringList{GrassettoSi, CorsivoSi};
}

void ProvaQuadriCinqueTasti::l_apertura_mostra_lo_stato_di_grassetto_e_corsivo() {
    QFETCH(int, grassetto);
    QFETCH(int, corsivo);
    QFETCH(QStringList, immagini);
    ModalitàFunzionamento = 4;
    GrassettoCorrente = grassetto;
    CorsivoCorrente = corsivo;
    QStringList viste;
    VistaPannello vista;
    Copione c(*orologio);
    c.Esegui([&] {
        viste = Immagini();
        vista = OsservaPannello();
    });
    c.Tasto(Qt::Key_Left).Tasto(Qt::Key_Return);
    QVERIFY(ApriFont(c));
    QCOMPARE(viste, immagini);
    QCOMPARE(vista.Corrente, int16_t(101));
    QCOMPARE(vista.Marcato, int16_t(0));
    QCOMPARE(vista.Visibili, QList<int16_t>{101});
    QCOMPARE(vista.Colori.value(101), Verde);
    QCOMPARE(GrassettoCorrente, int32_t(grassetto));
    QCOMPARE(CorsivoCorrente, int32_t(corsivo));
}

void ProvaQuadriCinqueTasti::grassetto_e_corsivo_cambiano_con_la_loro_immagine() {
    ModalitàFunzionamento = 3;
    QList<QStringList> viste;
    QList<int32_t> grassetto, corsivo;
    Copione c(*orologio);
    auto nota = [&] {
        viste << Immagini();
        grassetto << GrassettoCorrente;
        corsivo << CorsivoCorrente;
    };
    c.Tasto(Qt::Key_Space).Tasto(Qt::Key_Space); // on 103
    c.Tasto(Qt::Key_Return).Esegui(nota);
    c.Tasto(Qt::Key_Return).Esegui(nota);
    c.Tasto(Qt::Key_Return).Esegui(nota);
    c.Tasto(Qt::Key_Space); // on 104
    c.Tasto(Qt::Key_Return).Esegui(nota);
    c.Tasto(Qt::Key_Return).Esegui(nota);
    c.Tasto(Qt::Key_Space).Tasto(Qt::Key_Return); // 105 closes
    QVERIFY(ApriFont(c));
    QVERIFY(c.Problemi.isEmpty());
    QCOMPARE(grassetto, (QList<int32_t>{1, 2, 1, 1, 1}));
    QCOMPARE(corsivo, (QList<int32_t>{2, 2, 2, 1, 2}));
    QCOMPARE(viste, (QList<QStringList>{{GrassettoSi, CorsivoNo},
                                        {GrassettoNo, CorsivoNo},
                                        {GrassettoSi, CorsivoNo},
                                        {GrassettoSi, CorsivoSi},
                                        {GrassettoSi, CorsivoNo}}));
    // The values stay after the panel has closed; nothing else changed.
    QCOMPARE(GrassettoCorrente, int32_t(1));
    QCOMPARE(CorsivoCorrente, int32_t(2));
    QCOMPARE(FontCorrente, QStringLiteral("Times New Roman"));
    QCOMPARE(DimensioneFontCorrente, int32_t(12));
    QCOMPARE(ContatoreBip, 0);
}

void ProvaQuadriCinqueTasti::nome_e_dimensione_dalla_lista_e_l_anello_riparte_nel_modo_1() {
    ModalitàFunzionamento = 1;
    RiempiListaFont();
    QVERIFY(NumeroVoci >= 2);
    const QString primo = LeggiEtichetta(VociLista.at(1)).Nome;
    QStringList titoli;
    QList<int16_t> giro;
    Copione c(*orologio);
    auto titolo = [&] { titoli << FormScansione::InPrimoPiano()->windowTitle(); };
    auto nota = [&] { giro << Quadro()->Motore.TastoCorrente; };
    c.Tasto(Qt::Key_Return).Esegui(titolo); // 101: the list of fonts
    // Line 101 picked; the ring walks on from there to confirm (122).
    c.Tasto(Qt::Key_Return).Attendi(21 * 1000).Tasto(Qt::Key_Return);
    c.Esegui(nota).Attendi(1000).Esegui(nota);
    c.Tasto(Qt::Key_Return).Esegui(titolo); // 102: the list of sizes
    c.Attendi(1000).Tasto(Qt::Key_Return);  // line 102, "10"
    c.Attendi(20 * 1000).Tasto(Qt::Key_Return);
    c.Esegui(nota).Attendi(3000).Esegui(nota).Tasto(Qt::Key_Return); // 105
    QVERIFY(ApriFont(c));
    QVERIFY(c.Problemi.isEmpty());
    QCOMPARE(titoli, (QStringList{"Programma «ZANTO» - Scelta Fonts",
                                  "Programma «ZANTO» - Scelta Dimensione Carattere"}));
    QCOMPARE(giro, (QList<int16_t>{101, 102, 102, 105}));
    QCOMPARE(FontCorrente, primo);
    QCOMPARE(DimensioneFontCorrente, int32_t(10));
    QCOMPARE(ContatoreBip, 0);
    QCOMPARE(orologio->InAttesa(), 0);
}

void ProvaQuadriCinqueTasti::indietro_dalla_lista_lascia_nome_e_dimensione_nel_modo_3() {
    ModalitàFunzionamento = 3;
    int inAttesa = -1;
    int16_t corrente = 0;
    Copione c(*orologio);
    // In the list the scan key walks from 101 to back (125).
    c.Tasto(Qt::Key_Return);
    for (int i = 101; i < 125; ++i)
        c.Tasto(Qt::Key_Space);
    c.Tasto(Qt::Key_Return).Tasto(Qt::Key_Space).Tasto(Qt::Key_Return);
    c.Tasto(Qt::Key_Space).Tasto(Qt::Key_Return).Tasto(Qt::Key_Return); // "10", confirm
    c.Attendi(5000).Esegui([&] {
        inAttesa = orologio->InAttesa();
        corrente = Quadro()->Motore.TastoCorrente;
    });
    c.Tasto(Qt::Key_Space).Tasto(Qt::Key_Space).Tasto(Qt::Key_Space).Tasto(Qt::Key_Return);
    QVERIFY(ApriFont(c));
    QVERIFY(c.Problemi.isEmpty());
    QCOMPARE(inAttesa, 0);
    QCOMPARE(corrente, int16_t(102));
    QCOMPARE(FontCorrente, QStringLiteral("Times New Roman"));
    QCOMPARE(DimensioneFontCorrente, int32_t(10));
    QCOMPARE(ContatoreBip, 0);
}

void ProvaQuadriCinqueTasti::nel_modo_2_dopo_il_grassetto_l_anello_riprende_nel_suo_verso() {
    ModalitàFunzionamento = 2;
    TipoInversioneScansione = 1;
    QList<int16_t> giro;
    int32_t grassetto = 0;
    Copione c(*orologio);
    auto nota = [&] { giro << Quadro()->Motore.TastoCorrente; };
    // Backwards from 101: 105, 104, 103; choose there, then on backwards.
    c.Tasto(Qt::Key_Space).Attendi(3000).Esegui(nota);
    c.Tasto(Qt::Key_Return).Esegui([&] { grassetto = GrassettoCorrente; });
    c.Attendi(1000).Esegui(nota);
    c.Attendi(2000).Tasto(Qt::Key_Return); // 101, then 105
    QVERIFY(ApriFont(c));
    QCOMPARE(giro, (QList<int16_t>{103, 102}));
    QCOMPARE(grassetto, int32_t(1));
}

void ProvaQuadriCinqueTasti::la_lista_dei_font_e_nascosta_e_ordinata() {
    ModalitàFunzionamento = 4;
    bool visibile = true;
    bool ordinata = false;
    Qt::FocusPolicy fuoco = Qt::StrongFocus;
    Copione c(*orologio);
    c.Esegui([&] {
        QListWidget* lista = Quadro()->ListaFont;
        visibile = lista->isVisible();
        ordinata = lista->isSortingEnabled();
        fuoco = lista->focusPolicy();
    });
    c.Tasto(Qt::Key_Left).Tasto(Qt::Key_Return);
    QVERIFY(ApriFont(c));
    QVERIFY(!visibile);
    QVERIFY(ordinata);
    QCOMPARE(fuoco, Qt::NoFocus);
}

void ProvaQuadriCinqueTasti::il_fuoco_va_a_focusfix_solo_se_il_quadro_e_abilitato() {
    ModalitàFunzionamento = 3;
    bool suFocusFix = true;
    Copione c(*orologio);
    c.Esegui([&] {
        QuadroSettaggiFont* q = Quadro();
        suFocusFix = q->focusWidget() == q->FocusFix;
        q->ClickTasto(105);
    });
    QuadroSettaggiFont quadro;
    quadro.setEnabled(false);
    quadro.AttivaQuadroSettaggiFont();
    QVERIFY(EseguiNelPannello(c, [&] { quadro.exec(); }));
    QVERIFY(!suFocusFix);
    QCOMPARE(quadro.Motore.FormAttivato, int16_t(1));
}
