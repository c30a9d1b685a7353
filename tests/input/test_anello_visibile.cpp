// The ring for users who see little: double and triple width and the
// high-contrast scheme, on the main menu's rings, the keyboard's rings and the
// list's highlight; chosen on the configuration form and kept in the archive.
// At their defaults the rings are as they always were.
#include "app/ConfigurazioniGenerali.h"
#include "app/MenuGenerale.h"
#include "archive/RigaConfigurazione.h"
#include "base/Misure.h"
#include "drawing/GuidaDisegno.h"
#include "input/FormScansione.h"
#include "input/QuadroMessaggi.h"
#include "panels/Elaborazioni.h"
#include "panels/QuadroMostraLista.h"
#include "panels/QuadroScriviTesto.h"
#include "support/Copione.h"
#include "support/MondoMenu.h"
#include "support/Sonde.h"

#include <QGroupBox>
#include <QPushButton>
#include <QRadioButton>
#include <QtTest>

namespace {

// How far the rings of a form stand outside their buttons, in pixels: a ring
// away from the form's edges, which stop the others. -1 when a ring does not
// hold its button.
int Margine(FormScansione& f) {
    int margine = 0;
    for (auto it = f.TastiAttivi().cbegin(); it != f.TastiAttivi().cend(); ++it) {
        const QRect t = it.value()->geometry();
        const QRect c = f.CoroneAttive().value(it.key())->geometry();
        if (!c.contains(t)) return -1;
        margine = std::max(margine, std::min({t.left() - c.left(), t.top() - c.top(),
                                              c.right() - t.right(), c.bottom() - t.bottom()}));
    }
    return margine;
}

QColor ColoreAnello(FormScansione& f) {
    QLabel* corona = f.CoroneAttive().value(f.Motore.TastoCorrente);
    return corona == nullptr ? QColor() : corona->palette().color(QPalette::Window);
}

// The current ring of a form as it shows on the screen, walked from its
// button outwards at mid height, on the side where more of it shows: its band
// that meets what lies round it (the form, or a neighbour's button over a wide
// ring), the colour there, how wide that band and the whole ring show, and
// whether the ring shows whole on that side.
struct AnelloVisto {
    QColor Fuori, Sfondo, Dentro;
    int Orlo = 0, Banda = 0;
    bool Intero = false;
};

AnelloVisto Guarda(FormScansione& f) {
    AnelloVisto migliore;
    QLabel* corona = f.CoroneAttive().value(f.Motore.TastoCorrente);
    TastoZanto* tasto = f.TastiAttivi().value(f.Motore.TastoCorrente);
    if (corona == nullptr || tasto == nullptr || corona->isHidden()) return migliore;
    const QImage img = f.grab().toImage();
    const QRect g = corona->geometry();
    const QRect t = tasto->geometry();
    const QColor dentro = corona->palette().color(QPalette::Window);
    const QColor fuori = corona->palette().color(QPalette::WindowText);
    const int y = t.center().y();
    for (const int verso : {-1, 1}) {
        const int primo = verso < 0 ? t.left() - 1 : t.right() + 1;
        AnelloVisto a;
        int x = primo;
        while (x >= 0 && x < img.width() &&
               (img.pixelColor(x, y) == dentro || img.pixelColor(x, y) == fuori))
            x += verso;
        if (x < 0 || x >= img.width()) continue;
        a.Banda = (x - primo) * verso;
        if (a.Banda == 0) continue;
        a.Sfondo = img.pixelColor(x, y);
        a.Fuori = img.pixelColor(x - verso, y);
        while (a.Orlo < a.Banda && img.pixelColor(x - verso * (a.Orlo + 1), y) == a.Fuori)
            ++a.Orlo;
        a.Dentro = img.pixelColor(x - verso * (a.Orlo + 1), y);
        a.Intero = a.Banda == (verso < 0 ? t.left() - g.left() : g.right() - t.right());
        if (a.Banda > migliore.Banda) migliore = a;
    }
    return migliore;
}

} // namespace

class ProvaAnelloVisibile : public QObject, MondoMenu {
    Q_OBJECT

private slots:
    void init() {
        Prepara();
        LarghezzaAnello = 1;
        AltoContrasto = 0;
    }
    void cleanup() {
        LarghezzaAnello = 1;
        AltoContrasto = 0;
        DistruggiAmbienteDisegno();
        ScalaInterfaccia = 1.0; // as every test starts, also after a failure
        Libera();
    }

    void la_larghezza_su_menu_e_tastiera_data() {
        QTest::addColumn<int>("larghezza");
        QTest::newRow("doppio") << 2;
        QTest::newRow("triplo") << 3;
    }
    void la_larghezza_su_menu_e_tastiera() {
        QFETCH(int, larghezza);
        MenuGenerale* menu = Menu(4);
        const int menuNormale = Margine(*menu);
        QuadroScriviTesto tastieraNormale;
        const int tastieraNormaleM = Margine(tastieraNormale);
        QVERIFY(menuNormale > 0 && tastieraNormaleM > 0);
        DistruggiMenùGenerale();
        LarghezzaAnello = int16_t(larghezza);
        MenuGenerale* largo = Menu(4);
        QuadroScriviTesto tastieraLarga;
        QVERIFY(qAbs(Margine(*largo) - larghezza * menuNormale) <= larghezza);
        QVERIFY(qAbs(Margine(tastieraLarga) - larghezza * tastieraNormaleM) <= larghezza);
        // The colour is the defined one.
        QCOMPARE(ColoreAnello(*largo), ColoreRGB(ColoriCorona::Verde));
    }

    void alto_contrasto_anello_giallo_orlato_di_nero() {
        MenuGenerale* normale = Menu(4);
        QCOMPARE(ColoreAnello(*normale), ColoreRGB(ColoriCorona::Verde));
        QCOMPARE(normale->CoroneAttive().value(normale->Motore.TastoCorrente)->frameShape(),
                 QFrame::NoFrame);
        DistruggiMenùGenerale();
        AltoContrasto = 1;
        MenuGenerale* menu = Menu(4);
        QLabel* corona = menu->CoroneAttive().value(menu->Motore.TastoCorrente);
        QCOMPARE(ColoreAnello(*menu), ColoreRGB(ColoriCorona::Giallo));
        QCOMPARE(corona->frameShape(), QFrame::Box);
        // On the pixels: black at the ring's outer edge, yellow just inside it.
        const QImage ring = corona->grab().toImage();
        QCOMPARE(QColor(ring.pixel(0, ring.height() / 2)), QColor(Qt::black));
        QCOMPARE(QColor(ring.pixel(corona->lineWidth(), ring.height() / 2)),
                 ColoreRGB(ColoriCorona::Giallo));
        // The keyboard's ring too.
        QuadroScriviTesto tastiera;
        tastiera.AggiornaCorone();
        QCOMPARE(ColoreAnello(tastiera), ColoreRGB(ColoriCorona::Giallo));
    }

    void alto_contrasto_l_anello_si_stacca_da_ogni_modulo_data() {
        QTest::addColumn<int>("larghezza");
        QTest::addColumn<double>("scala");
        QTest::newRow("semplice") << 1 << 1.0;
        QTest::newRow("doppio") << 2 << 1.0;
        QTest::newRow("triplo") << 3 << 1.0;
        QTest::newRow("semplice in grande") << 1 << 2.0;
        QTest::newRow("triplo in grande") << 3 << 1.5;
    }
    void alto_contrasto_l_anello_si_stacca_da_ogni_modulo() {
        QFETCH(int, larghezza);
        QFETCH(double, scala);
        ScalaInterfaccia = scala;
        LarghezzaAnello = int16_t(larghezza);
        AltoContrasto = 1;
        MenuGenerale* menu = Menu(4);
        QuadroScriviTesto tastiera;
        tastiera.AggiornaCorone();
        TipoQuadroMessaggi = 2;
        TastoPredefinitoQuadroMessaggi = 1;
        QuadroMessaggi messaggi;
        messaggi.AttivaQuadroMessaggi();
        messaggi.AggiornaCorone();
        const auto verifica = [menu](const char* nome, FormScansione* form) {
            const AnelloVisto a = Guarda(*form);
            QVERIFY2(a.Banda > 0, nome);
            // The menu has room round its buttons: there the ring shows whole.
            if (form == menu) QVERIFY(a.Intero);
            // The ring against the form round it, and its two bands against each
            // other: at least 3:1 each.
            const double fuori = RapportoContrasto(a.Fuori, a.Sfondo);
            QVERIFY2(fuori >= 3.0, qPrintable(QStringLiteral("%1: %2:1 tra %3 e %4")
                                                  .arg(QString::fromLatin1(nome))
                                                  .arg(fuori)
                                                  .arg(a.Fuori.name(), a.Sfondo.name())));
            QVERIFY2(RapportoContrasto(a.Fuori, a.Dentro) >= 3.0, nome);
            // The outer band grows with the ring: half of it, where it shows whole.
            QVERIFY2(a.Orlo < a.Banda && (!a.Intero || 2 * a.Orlo >= a.Banda),
                     qPrintable(QStringLiteral("%1: orlo %2 su %3")
                                    .arg(QString::fromLatin1(nome))
                                    .arg(a.Orlo)
                                    .arg(a.Banda)));
        };
        verifica("menu", menu);
        verifica("tastiera", &tastiera);
        verifica("messaggi", &messaggi);
        // The drawing screen, grey, in place of the menu.
        AmbienteDisegno* disegno = GuidaDisegno::Apri(4);
        QVERIFY(disegno != nullptr);
        verifica("disegno", disegno);
    }

    void alto_contrasto_su_un_modulo_scuro_l_orlo_e_giallo() {
        AltoContrasto = 1;
        MenuGenerale* menu = Menu(4);
        QPalette p = menu->palette();
        p.setColor(QPalette::Window, QColor(0x20, 0x20, 0x40));
        menu->setPalette(p);
        menu->AggiornaCorone();
        const AnelloVisto a = Guarda(*menu);
        QCOMPARE(a.Fuori, ColoreRGB(ColoriCorona::Giallo));
        QCOMPARE(a.Dentro, QColor(Qt::black));
        QVERIFY(RapportoContrasto(a.Fuori, a.Sfondo) >= 3.0);
    }

    void alto_contrasto_evidenza_nera_della_lista() {
        AltoContrasto = 1;
        QColor sfondo;
        Copione c(*orologio);
        c.Esegui([&] {
            auto* lista = dynamic_cast<QuadroMostraLista*>(FormScansione::InPrimoPiano());
            if (lista == nullptr) return;
            QPushButton* riga = lista->Tasti.value(lista->Motore.TastoCorrente);
            const QImage img = riga->grab().toImage();
            sfondo = img.pixelColor(img.width() - 3, img.height() / 2);
            QCOMPARE(lista->ColoreTasto(lista->Motore.TastoCorrente),
                     QuadroMostraLista::ColoreEvidenza);
        });
        // Back without a choice.
        c.Esegui([] {
            FormScansione* f = FormScansione::InPrimoPiano();
            for (int i = 0; f != nullptr && f->Motore.TastoCorrente != 125 && i < 40; ++i)
                PremiTasto(Qt::Key_Right);
        });
        c.Tasto(Qt::Key_Return);
        c.Avvia();
        Menu(4);
        TipoLista = GenereLista::Dimensioni;
        ScegliDaLista();
        QCOMPARE(sfondo, QColor(Qt::black));
    }

    void scelti_sul_modulo_e_registrati() {
        MenuGenerale* m = Menu(4);
        QTest::mouseClick(m->Tasti.value(104), Qt::LeftButton);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        ConfigurazioniGenerali* c = ConfigurazioniAperte();
        QVERIFY(c != nullptr);
        QVERIFY(c->QuadroAccessibilità->isVisible());
        QTest::mouseClick(c->OpzioneLarghezzaAnello[2], Qt::LeftButton);
        QTest::mouseClick(c->OpzioneContrasto[1], Qt::LeftButton);
        QCOMPARE(c->ModificheEffettuate, int16_t(1));
        // Both choices show their dot: the two groups share a frame, not a choice.
        QVERIFY(c->OpzioneLarghezzaAnello[2]->isChecked());
        QVERIFY(c->OpzioneContrasto[1]->isChecked());
        QVERIFY(!c->OpzioneLarghezzaAnello[0]->isChecked());
        QCOMPARE(LarghezzaAnello, int16_t(1));
        Schermata(c, QStringLiteral("configurazioni-accessibilita"));
        Copione s(*orologio);
        s.Tasto(Qt::Key_Return);
        s.Avvia();
        QTest::mouseClick(c->TastoRegistraConfigurazioniGenerali, Qt::LeftButton);
        QVERIFY(s.Finito());
        QCOMPARE(LarghezzaAnello, int16_t(3));
        QCOMPARE(AltoContrasto, int16_t(1));
        // In the archive, with the five settings, for the next run.
        LarghezzaAnello = 1;
        AltoContrasto = 0;
        LeggiConfigurazione();
        QCOMPARE(LarghezzaAnello, int16_t(3));
        QCOMPARE(AltoContrasto, int16_t(1));
        QCOMPARE(ModalitàFunzionamento, int16_t(4));
        // The menu comes back with the wide yellow ring.
        QTest::mouseClick(c->TastoChiudiConfigurazioniGenerali, Qt::LeftButton);
        MenuGenerale* dopo = MenùGeneraleAperto();
        QVERIFY(dopo != nullptr);
        QCOMPARE(ColoreAnello(*dopo), ColoreRGB(ColoriCorona::Giallo));
        QCoreApplication::processEvents();
        Schermata(dopo, QStringLiteral("menu-alto-contrasto"));
    }
};

QTEST_MAIN(ProvaAnelloVisibile)
#include "test_anello_visibile.moc"
