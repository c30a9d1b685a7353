// What the three panels of five buttons share, tested on each of them.
#include "test_quadri_cinque_tasti.h"

#include "base/Bip.h"
#include "base/IconaSvg.h"
#include "base/Misure.h"
#include "model/StatoAmbiente.h"
#include "panels/QuadroSceltaDirezione.h"
#include "panels/QuadroSceltaRibaltamenti.h"
#include "panels/QuadroSettaggiFont.h"

namespace {

const QList<QRect> Colonna{
    {3, 5, 47, 44}, {3, 55, 47, 44}, {3, 105, 47, 44}, {3, 155, 47, 44}, {3, 204, 47, 44}};

// A step of a script: a key, or a wait of the clock when below zero.
constexpr int Sosta = -1000;
void Recita(Copione& c, const QList<int>& passi) {
    for (const int passo : passi)
        passo < 0 ? c.Attendi(-passo) : c.Tasto(Qt::Key(passo));
}

void RigaPerPannello() {
    QTest::addColumn<int>("pannello");
    for (int i = 0; i < PannelliCinqueTasti().size(); ++i)
        QTest::newRow(qPrintable(PannelliCinqueTasti().at(i).Nome)) << i;
}

} // namespace

const QList<PannelloCinqueTasti>& PannelliCinqueTasti() {
    static const QList<PannelloCinqueTasti> pannelli{
        {QStringLiteral("direzione"),
         &QuadroSceltaDirezione::staticMetaObject,
         [] { ApriQuadroSceltaDirezione(); },
         // Centred under the middle of the canvas, above the strip of labels.
         QPoint(376, 661),
         QSize(265, 52),
         {{3, 5, 47, 44}, {56, 5, 47, 44}, {109, 5, 47, 44}, {162, 5, 47, 44}, {215, 5, 47, 44}},
         {Qt::Key_Return},
         {Qt::Key_Return},
         {"Direzione «Sinistra»", "Direzione «Destra»", "Direzione «Alto»", "Direzione «Basso»",
          "Chiudi"},
         {":/icone/pannelli/direzione-sinistra.svg", ":/icone/pannelli/direzione-destra.svg",
          ":/icone/pannelli/direzione-alto.svg", ":/icone/pannelli/direzione-basso.svg",
          ":/icone/pannelli/chiudi.svg"},
         &DirezioneScelta},
        {QStringLiteral("ribaltamenti"),
         &QuadroSceltaRibaltamenti::staticMetaObject,
         [] { ApriQuadroSceltaRibaltamenti(14144 - 795, 1440 + 260); },
         QPoint(Px(14144 - 795), Px(1440 + 260)),
         QSize(53, 252),
         Colonna,
         {Qt::Key_Return},
         {Qt::Key_Return},
         {"Ribalta per Asse Destro", "Ribalta per Asse Sinistro", "Ribalta per Asse Inferiore",
          "Ribalta per Asse Superiore", "Chiudi"},
         {":/icone/pannelli/ribalta-destro.svg", ":/icone/pannelli/ribalta-sinistro.svg",
          ":/icone/pannelli/ribalta-inferiore.svg", ":/icone/pannelli/ribalta-superiore.svg",
          ":/icone/pannelli/chiudi.svg"},
         &RibaltamentoScelto},
        // 101 and 102 open lists, 103 and 104 switch: only 105 closes.
        {QStringLiteral("font"),
         &QuadroSettaggiFont::staticMetaObject,
         [] { ApriQuadroSettaggiFont(4500 - 820, 3000 + 740); },
         QPoint(Px(4500 - 820), Px(3000 + 740)),
         QSize(53, 252),
         Colonna,
         {Qt::Key_Space, Qt::Key_Space, Qt::Key_Space, Qt::Key_Space, Qt::Key_Return},
         {Qt::Key_Space, Qt::Key_Space, Qt::Key_Space, Qt::Key_Return},
         {"Scelta Font", "Dimensione Font", "Grassetto", "Corsivo", "Chiudi"},
         {":/icone/pannelli/font-scelta.svg", ":/icone/pannelli/font-dimensione.svg",
          ":/icone/pannelli/grassetto-no.svg", ":/icone/pannelli/corsivo-no.svg",
          ":/icone/pannelli/chiudi.svg"},
         nullptr},
    };
    return pannelli;
}

void ProvaQuadriCinqueTasti::posti_e_misure_del_quadro_e_dei_tasti_data() {
    RigaPerPannello();
}
void ProvaQuadriCinqueTasti::posti_e_misure_del_quadro_e_dei_tasti() {
    QFETCH(int, pannello);
    const PannelloCinqueTasti& p = PannelliCinqueTasti().at(pannello);
    ModalitàFunzionamento = 3;
    QSize cliente;
    QString titolo = QStringLiteral("?");
    QPoint posto;
    QList<QRect> posti, corone;
    Copione c(*orologio);
    c.Esegui([&] {
        FormScansione* f = Davanti(p);
        cliente = f->size();
        titolo = f->windowTitle();
        posto = f->pos();
        for (int16_t i = 101; i <= 105; ++i) {
            posti.append(f->Tasti.value(i)->geometry());
            corone.append(f->Corone.value(i)->geometry());
        }
    });
    Recita(c, p.Chiudi);
    QVERIFY(Apri(c, p));
    QCOMPARE(cliente, p.Cliente);
    QCOMPARE(titolo, QString());
    QCOMPARE(posto, p.Posto);
    QCOMPARE(posti, p.Posti);
    // The ring of 101 is what the caller measures to place the panel: 795 twips wide.
    QCOMPARE(corone[0], QRect(0, 2, 53, 50));
    // Each ring stands a little outside its button, all round.
    for (int i = 0; i < 5; ++i)
        QVERIFY(corone[i].contains(posti[i]) && corone[i] != posti[i]);
}

void ProvaQuadriCinqueTasti::suggerimenti_nomi_accessibili_e_immagini_data() {
    RigaPerPannello();
}
void ProvaQuadriCinqueTasti::suggerimenti_nomi_accessibili_e_immagini() {
    QFETCH(int, pannello);
    const PannelloCinqueTasti& p = PannelliCinqueTasti().at(pannello);
    ModalitàFunzionamento = 3;
    QStringList suggerimenti, nomi, didascalie, immagini;
    QList<bool> conIcona;
    Copione c(*orologio);
    c.Esegui([&] {
        for (int16_t i = 101; i <= 105; ++i) {
            TastoZanto* t = Davanti(p)->Tasti.value(i);
            suggerimenti << t->toolTip();
            nomi << t->accessibleName();
            didascalie << t->text();
            immagini << t->property(ProprietaRisorsaIcona).toString();
            conIcona << !t->icon().isNull();
        }
    });
    Recita(c, p.Chiudi);
    QVERIFY(Apri(c, p));
    QCOMPARE(suggerimenti, p.Suggerimenti);
    QCOMPARE(nomi, p.Suggerimenti);
    QCOMPARE(didascalie, QStringList(5, QString()));
    QCOMPARE(immagini, p.Immagini);
    QCOMPARE(conIcona, QList<bool>(5, true));
}

void ProvaQuadriCinqueTasti::ogni_tasto_da_il_suo_risultato_data() {
    QTest::addColumn<int>("pannello");
    QTest::addColumn<int>("modo");
    QTest::addColumn<int>("avanti");
    QTest::addColumn<int>("tasto");
    for (int t = 101; t <= 105; ++t) {
        const QByteArray n = QByteArray::number(t);
        QTest::newRow("direzione " + n) << 0 << 3 << int(Qt::Key_Space) << t;
        QTest::newRow("ribaltamenti " + n) << 1 << 4 << int(Qt::Key_Down) << t;
    }
}
void ProvaQuadriCinqueTasti::ogni_tasto_da_il_suo_risultato() {
    QFETCH(int, pannello);
    QFETCH(int, modo);
    QFETCH(int, avanti);
    QFETCH(int, tasto);
    const PannelloCinqueTasti& p = PannelliCinqueTasti().at(pannello);
    ModalitàFunzionamento = int16_t(modo);
    Copione c(*orologio);
    for (int i = 101; i < tasto; ++i)
        c.Tasto(Qt::Key(avanti));
    c.Tasto(Qt::Key_Return);
    QVERIFY(Apri(c, p));
    QVERIFY(c.Problemi.isEmpty());
    QCOMPARE(*p.Scelta, int16_t(tasto - 100));
}

void ProvaQuadriCinqueTasti::il_titolo_dell_ambiente_segue_l_anello_data() {
    QTest::addColumn<int>("pannello");
    QTest::addColumn<int>("modo");
    QTest::addColumn<QList<int>>("passi");
    QTest::addColumn<QStringList>("avvisi");
    QTest::addColumn<int>("scelta");
    const int s = Qt::Key_Space;
    QTest::newRow("direzione") << 0 << 1 << QList<int>{Sosta, Sosta, Qt::Key_Return}
                               << QStringList{"Direzione «Sinistra»", "Direzione «Destra»",
                                              "Direzione «Alto»"}
                               << 3;
    QTest::newRow("ribaltamenti") << 1 << 3 << QList<int>{s, s, s, s, s, Qt::Key_Return}
                                  << QStringList{"Ribalta per Asse Destro",
                                                 "Ribalta per Asse Sinistro",
                                                 "Ribalta per Asse Inferiore",
                                                 "Ribalta per Asse Superiore",
                                                 "Chiudi",
                                                 "Ribalta per Asse Destro"}
                                  << 1;
    QTest::newRow("font") << 2 << 4 << QList<int>{Qt::Key_Right, Qt::Key_Down, Qt::Key_Up,
                                                  Qt::Key_Left,  Qt::Key_Left, Qt::Key_Return}
                          << QStringList{"Scelta Font",     "Dimensione Font", "Grassetto",
                                         "Dimensione Font", "Scelta Font",     "Chiudi"}
                          << 0;
}
void ProvaQuadriCinqueTasti::il_titolo_dell_ambiente_segue_l_anello() {
    QFETCH(int, pannello);
    QFETCH(int, modo);
    QFETCH(QList<int>, passi);
    QFETCH(QStringList, avvisi);
    QFETCH(int, scelta);
    const PannelloCinqueTasti& p = PannelliCinqueTasti().at(pannello);
    ModalitàFunzionamento = int16_t(modo);
    QStringList visti;
    AvvisoComandoAmbiente = [&visti](const QString& s) {
        if (visti.isEmpty() || visti.last() != s) visti.append(s);
    };
    Copione c(*orologio);
    Recita(c, passi);
    QVERIFY(Apri(c, p));
    QCOMPARE(visti, avvisi);
    if (p.Scelta != nullptr) QCOMPARE(*p.Scelta, int16_t(scelta));
}

void ProvaQuadriCinqueTasti::escape_e_gli_altri_tasti_non_fanno_nulla_data() {
    QTest::addColumn<int>("pannello");
    QTest::addColumn<int>("modo");
    QTest::addColumn<QList<int>>("tasti");
    QTest::addColumn<QList<int>>("chiudi");
    QTest::newRow("direzione") << 0 << 3 << QList<int>{Qt::Key_Escape, Qt::Key_A,    Qt::Key_F6,
                                                       Qt::Key_F12,    Qt::Key_Left, Qt::Key_Tab}
                               << QList<int>{Qt::Key_Return};
    QTest::newRow("ribaltamenti") << 1 << 4
                                  << QList<int>{Qt::Key_Escape, Qt::Key_Space, Qt::Key_F7,
                                                Qt::Key_Z}
                                  << QList<int>{Qt::Key_Return};
    // In mode 1 the ring walks to 105 to close.
    QTest::newRow("font") << 2 << 1
                          << QList<int>{Qt::Key_Escape, Qt::Key_Space, Qt::Key_F11, Qt::Key_Down}
                          << QList<int>{4 * Sosta, Qt::Key_Return};
}
void ProvaQuadriCinqueTasti::escape_e_gli_altri_tasti_non_fanno_nulla() {
    QFETCH(int, pannello);
    QFETCH(int, modo);
    QFETCH(QList<int>, tasti);
    QFETCH(QList<int>, chiudi);
    const PannelloCinqueTasti& p = PannelliCinqueTasti().at(pannello);
    ModalitàFunzionamento = int16_t(modo);
    bool aperto = false;
    int16_t dopo = 0;
    Copione c(*orologio);
    Recita(c, tasti);
    c.Esegui([&] {
        FormScansione* f = Davanti(p);
        aperto = f != nullptr;
        if (aperto) dopo = f->Motore.TastoCorrente;
    });
    Recita(c, chiudi);
    QVERIFY(Apri(c, p));
    QVERIFY(aperto);
    QCOMPARE(dopo, int16_t(101));
    QCOMPARE(ModalitàFunzionamento, int16_t(modo));
    QCOMPARE(ContatoreBip, 0);
    if (p.Scelta != nullptr) {
        QCOMPARE(*p.Scelta, int16_t(1));
    } else {
        QCOMPARE(GrassettoCorrente, int32_t(2));
        QCOMPARE(CorsivoCorrente, int32_t(2));
    }
}

void ProvaQuadriCinqueTasti::un_clic_del_mouse_sceglie_e_ferma_l_anello_data() {
    QTest::addColumn<int>("pannello");
    QTest::addColumn<int>("modo");
    QTest::newRow("direzione") << 0 << 1;
    QTest::newRow("ribaltamenti") << 1 << 2;
}
void ProvaQuadriCinqueTasti::un_clic_del_mouse_sceglie_e_ferma_l_anello() {
    QFETCH(int, pannello);
    QFETCH(int, modo);
    const PannelloCinqueTasti& p = PannelliCinqueTasti().at(pannello);
    ModalitàFunzionamento = int16_t(modo);
    Copione c(*orologio);
    c.Esegui([&p] { QTest::mouseClick(Davanti(p)->Tasti.value(104), Qt::LeftButton); });
    QVERIFY(Apri(c, p));
    QCOMPARE(*p.Scelta, int16_t(4));
    QCOMPARE(orologio->InAttesa(), 0);
}

void ProvaQuadriCinqueTasti::il_fuoco_resta_su_focusfix_data() {
    RigaPerPannello();
}
void ProvaQuadriCinqueTasti::il_fuoco_resta_su_focusfix() {
    QFETCH(int, pannello);
    const PannelloCinqueTasti& p = PannelliCinqueTasti().at(pannello);
    ModalitàFunzionamento = 3;
    QWidget* fuocoAllApertura = nullptr;
    QWidget* fuoco = nullptr;
    QWidget* focusFix = nullptr;
    QList<Qt::FocusPolicy> politiche;
    Copione c(*orologio);
    c.Esegui([&] { fuocoAllApertura = Davanti(p)->focusWidget(); });
    c.Tasto(Qt::Key_Space).Esegui([&] {
        FormScansione* f = Davanti(p);
        fuoco = f->focusWidget();
        focusFix = f->FocusFix;
        for (int16_t i = 101; i <= 105; ++i)
            politiche << f->Tasti.value(i)->focusPolicy();
    });
    Recita(c, p.ChiudiDopoUno);
    QVERIFY(Apri(c, p));
    QVERIFY(focusFix != nullptr);
    QCOMPARE(fuocoAllApertura, focusFix);
    QCOMPARE(fuoco, focusFix);
    QCOMPARE(politiche, QList<Qt::FocusPolicy>(5, Qt::NoFocus));
}

QTEST_MAIN(ProvaQuadriCinqueTasti)
