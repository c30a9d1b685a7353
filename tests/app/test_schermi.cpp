// The program on screens of every size: the start routine chooses one scale
// for the screen, and every form, ring, font and the shown canvas grow with it,
// whole on the screen and centred; keys and clicks reach the right buttons.
// The same test runs on 1024x768, 1366x768, 1920x1080, 2560x1440 and on a
// 120-dpi screen with and without Qt's own scaling.
#include "app/Avvio.h"
#include "app/ConfigurazioniGenerali.h"
#include "app/MenuGenerale.h"
#include "base/Configurazione.h"
#include "base/Misure.h"
#include "drawing/AmbienteDisegno.h"
#include "input/FormScansione.h"
#include "input/QuadroMessaggi.h"
#include "input/TastoZanto.h"
#include "model/VistaSuperficie.h"
#include "panels/QuadroMostraLista.h"
#include "panels/QuadroSceltaColore1.h"
#include "panels/QuadroScriviTesto.h"
#include "support/AmbienteProva.h"
#include "support/Copione.h"
#include "support/OrologioVirtuale.h"

#include <QFontInfo>
#include <QProxyStyle>
#include <QScreen>
#include <QSet>
#include <QTimer>
#include <QtTest>

#include <memory>

namespace {

// The scale each screen of the tests must give, in its device-independent
// pixels: the 1024 x 768 layout as large as fits with 16 x 40 pixels left for a
// window's borders and title, never smaller.
double ScalaAttesa(QSize schermo) {
    if (schermo == QSize(1024, 768)) return 1.0;
    if (schermo == QSize(1366, 768)) return 1.0; // the height sets it: wider stays centred
    if (schermo == QSize(1920, 1080)) return 1040.0 / 768.0;
    if (schermo == QSize(2560, 1440)) return 1400.0 / 768.0;
    if (schermo == QSize(1024, 819)) return 1.0;              // 1280x1024 at 120 dpi, scaled by Qt
    if (schermo == QSize(1280, 1024)) return 1264.0 / 1024.0; // the same, not scaled by Qt
    return 0;
}

QRect Globale(const QWidget* w) {
    return {w->mapToGlobal(QPoint(0, 0)), w->size()};
}

// Every visible control of a window on the screen, and the window in its free area.
QString FuoriDalloSchermo(QWidget* finestra) {
    const QScreen* schermo = QGuiApplication::primaryScreen();
    QString problemi;
    // At the smallest scale the layout is the defined one, as large as the
    // smallest screen: only the platform's frame may then stand out of it.
    if (ScalaInterfaccia > 1.0 && !schermo->availableGeometry().contains(finestra->frameGeometry()))
        problemi += QStringLiteral("finestra %1 fuori; ").arg(finestra->objectName());
    for (QWidget* w : finestra->findChildren<QWidget*>()) {
        if (w->isWindow() || !w->isVisibleTo(finestra)) continue;
        // A bare widget is a page or a viewport, no control: what it holds is looked at.
        if (w->metaObject() == &QWidget::staticMetaObject) continue;
        if (!schermo->geometry().contains(Globale(w)))
            problemi +=
                QStringLiteral("%1 (%2) fuori; ")
                    .arg(w->objectName(), QString::fromLatin1(w->metaObject()->className()));
    }
    return problemi;
}

// A window stands in the middle of the screen's free area, give or take the
// frame the platform puts round it: empty, or where it stands.
QString Scentrata(const QWidget* finestra) {
    const QRect libera = QGuiApplication::primaryScreen()->availableGeometry();
    const QRect r = Globale(finestra);
    const QRect f = finestra->frameGeometry();
    const int cornice = (f.width() - r.width()) + (f.height() - r.height());
    const QPoint scarto = r.center() - libera.center();
    if (qAbs(scarto.x()) <= cornice + 1 && qAbs(scarto.y()) <= cornice + 1) return {};
    return QStringLiteral("%1,%2 %3x%4 in %5x%6")
        .arg(r.x())
        .arg(r.y())
        .arg(r.width())
        .arg(r.height())
        .arg(libera.width())
        .arg(libera.height());
}

// Each ring of the live set holds its button and stands as far out on every
// side, except where the form's edge stops it.
QString AnelliStorti(FormScansione& f) {
    QString problemi;
    for (auto it = f.TastiAttivi().cbegin(); it != f.TastiAttivi().cend(); ++it) {
        const QRect t = it.value()->geometry();
        const QRect c = f.CoroneAttive().value(it.key())->geometry();
        if (!c.contains(t)) {
            problemi += QStringLiteral("%1 fuori dall'anello; ").arg(it.key());
            continue;
        }
        QList<int> lati;
        if (c.left() > 0) lati << t.left() - c.left();
        if (c.top() > 0) lati << t.top() - c.top();
        if (c.right() < f.width() - 1) lati << c.right() - t.right();
        if (c.bottom() < f.height() - 1) lati << c.bottom() - t.bottom();
        for (int lato : std::as_const(lati))
            if (lato != lati.first())
                problemi += QStringLiteral("anello %1 storto; ").arg(it.key());
    }
    return problemi;
}

// What is under the centre of each visible button of the live set is that button.
QString ClicSbagliati(FormScansione& f) {
    QString problemi;
    for (auto it = f.TastiAttivi().cbegin(); it != f.TastiAttivi().cend(); ++it) {
        TastoZanto* t = it.value();
        if (!t->isVisible()) continue;
        const QPoint centro = t->mapToGlobal(t->rect().center());
        if (QApplication::widgetAt(centro) != t)
            problemi += QStringLiteral("sotto %1 c'è altro; ").arg(it.key());
    }
    return problemi;
}

// A click where the user sees the button: on whatever widget stands there.
void Clicca(QWidget* tasto) {
    const QPoint centro = tasto->mapToGlobal(tasto->rect().center());
    QWidget* sotto = QApplication::widgetAt(centro);
    QVERIFY(sotto == tasto);
    QTest::mouseClick(sotto, Qt::LeftButton, {}, sotto->mapFromGlobal(centro));
}

// Walks the ring with the arrow to `indice` and chooses it, as in mode 4.
bool ScegliConFrecce(int16_t indice) {
    FormScansione* f = FormScansione::InPrimoPiano();
    for (int i = 0; f != nullptr && i < 200 && f->Motore.TastoCorrente != indice; ++i)
        PremiTasto(Qt::Key_Right);
    if (f == nullptr || f->Motore.TastoCorrente != indice) return false;
    return PremiTasto(Qt::Key_Return);
}

// The visible button of the live set with this caption or tooltip.
TastoZanto* TastoDetto(FormScansione* f, const QString& nome) {
    if (f == nullptr) return nullptr;
    for (TastoZanto* t : std::as_const(f->TastiAttivi()))
        if (t->isVisible() && (t->text() == nome || t->toolTip() == nome)) return t;
    return nullptr;
}

// All that is wrong with the form in front, on this screen.
QString ProblemiDi(FormScansione* f) {
    if (f == nullptr) return QStringLiteral("nessun pannello");
    return FuoriDalloSchermo(f) + AnelliStorti(*f) + ClicSbagliati(*f);
}

// Looks at every panel that comes to the front above `sotto` and closes it: a
// question by "NO", else by the button `chiudi`, else by the choice key. It
// runs from the event loop of whatever panel is open, however many follow.
class Chiusore {
public:
    Chiusore(QWidget* sotto, const QString& chiudi) : stato_(std::make_shared<Stato>()) {
        stato_->Sotto = sotto;
        stato_->Chiudi = chiudi;
        Prossimo(stato_);
    }
    ~Chiusore() { stato_->Fermo = true; }
    Chiusore(const Chiusore&) = delete;
    Chiusore& operator=(const Chiusore&) = delete;
    QString Problemi() const { return stato_->Problemi; }
    int Visti() const { return stato_->Visti; }

private:
    struct Stato {
        QWidget* Sotto = nullptr;
        QString Chiudi;
        QString Problemi;
        int Visti = 0;
        bool Fermo = false;
    };
    static void Prossimo(const std::shared_ptr<Stato>& s) {
        QTimer::singleShot(0, [s] {
            if (s->Fermo) return;
            FormScansione* f = FormScansione::InPrimoPiano();
            if (f != nullptr && f != s->Sotto && f->isVisible()) {
                ++s->Visti;
                s->Problemi += ProblemiDi(f);
                const bool domanda = dynamic_cast<QuadroMessaggi*>(f) != nullptr;
                TastoZanto* t = TastoDetto(f, domanda ? QStringLiteral("NO") : s->Chiudi);
                if (t != nullptr)
                    Clicca(t);
                else if (s->Chiudi.isEmpty())
                    PremiTasto(Qt::Key_Return);
                else
                    f->done(0);
            }
            Prossimo(s);
        });
    }
    std::shared_ptr<Stato> stato_;
};

} // namespace

class ProvaSchermi : public QObject {
    Q_OBJECT

    std::unique_ptr<AmbienteProva> amb;
    std::unique_ptr<OrologioVirtuale> orologio;
    double scala = 0;

private slots:
    void init() {
        amb = std::make_unique<AmbienteProva>();
        orologio = std::make_unique<OrologioVirtuale>();
        scala = ScalaAttesa(QGuiApplication::primaryScreen()->size());
        QVERIFY2(scala > 0, "schermo senza scala attesa");
        QCOMPARE(AvviaZanto(), -1);
        ModalitàFunzionamento = 4;
        TempoLatenzaScansione = 1000;
    }
    void cleanup() {
        DistruggiAmbienteDisegno();
        DistruggiConfigurazioniGenerali();
        DistruggiMenùGenerale();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        orologio.reset();
        amb.reset();
    }

    void l_avvio_non_avvisa_e_prende_la_scala_dello_schermo() {
        QCOMPARE(TestoQuadroMessaggi, QString());
        QCOMPARE(ScalaInterfaccia, scala);
    }

    void il_menu_cresce_centrato_con_i_caratteri_e_gli_anelli() {
        MenuGenerale* menu = MenùGeneraleAperto();
        QVERIFY(menu != nullptr);
        QCOMPARE(menu->size(), QSize(qRound(1024 * scala), qRound(768 * scala)));
        if (scala > 1.0) {
            // It fills the screen's height or width, but for the room kept for a frame.
            const QRect libera = QGuiApplication::primaryScreen()->availableGeometry();
            const QRect f = menu->frameGeometry();
            QVERIFY(libera.height() - f.height() <= 40 || libera.width() - f.width() <= 16);
        }
        QVERIFY2(Scentrata(menu).isEmpty(), qPrintable(Scentrata(menu)));
        const QString problemi = ProblemiDi(menu);
        QVERIFY2(problemi.isEmpty(), qPrintable(problemi));
        // 11 points are 14.67 pixels on the 96-dpi screen the layout was drawn for.
        const int pixel = QFontInfo(menu->Tasti.value(101)->font()).pixelSize();
        QVERIFY2(qAbs(pixel - 11 * 96.0 / 72.0 * scala) <= 1.0, qPrintable(QString::number(pixel)));
    }

    void i_tasti_portano_l_anello_e_la_scelta_sul_tasto_giusto() {
        MenuGenerale* menu = MenùGeneraleAperto();
        PremiTasto(Qt::Key_Right);
        PremiTasto(Qt::Key_Right);
        QCOMPARE(menu->Motore.TastoCorrente, int16_t(103));
        QLabel* anello = menu->Corone.value(103);
        QVERIFY(anello->isVisible());
        QVERIFY(anello->geometry().contains(menu->Tasti.value(103)->geometry()));
        PremiTasto(Qt::Key_Right);
        PremiTasto(Qt::Key_Return); // "Configurazioni"
        ConfigurazioniGenerali* modulo = ConfigurazioniAperte();
        QVERIFY(modulo != nullptr && modulo->isVisible());
        QVERIFY2(Scentrata(modulo).isEmpty(), qPrintable(Scentrata(modulo)));
        QString problemi = FuoriDalloSchermo(modulo);
        QVERIFY2(problemi.isEmpty(), qPrintable(problemi));
        // The dot of an option grows with its words, from the platform's own measure.
        auto* stile = dynamic_cast<QProxyStyle*>(QApplication::style());
        QVERIFY(stile != nullptr);
        const int dot = stile->baseStyle()->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth);
        QCOMPARE(QApplication::style()->pixelMetric(QStyle::PM_ExclusiveIndicatorWidth),
                 qRound(dot * scala));
        // The second page, by the therapist's mouse.
        Clicca(modulo->TastoSensori);
        problemi = FuoriDalloSchermo(modulo);
        QVERIFY2(problemi.isEmpty(), qPrintable(problemi));
        Clicca(modulo->TastoChiudiConfigurazioniGenerali);
        QVERIFY(MenùGeneraleAperto() != nullptr && MenùGeneraleAperto()->isVisible());
    }

    void un_clic_apre_l_ambiente_intero_e_centrato() {
        MenuGenerale* menu = MenùGeneraleAperto();
        Clicca(menu->Tasti.value(101)); // "Disegno"
        AmbienteDisegno* a = AmbienteDisegnoAperto();
        QVERIFY(a != nullptr && a->isVisible());
        QVERIFY2(Scentrata(a).isEmpty(), qPrintable(Scentrata(a)));
        const QString problemi = ProblemiDi(a);
        QVERIFY2(problemi.isEmpty(), qPrintable(problemi));
        QCOMPARE(a->QuadroDisegno->size(), QSize(Px(14144), Px(10000)));
        QCOMPARE(a->Quadro.Schermo().size(), QSize(943, 667));
    }

    void il_disegno_si_vede_ingrandito_senza_sfumature() {
        Clicca(MenùGeneraleAperto()->Tasti.value(101));
        AmbienteDisegno* a = AmbienteDisegnoAperto();
        QVERIFY(a != nullptr);
        a->Quadro.Line(1500, 1500, 9000, 7000, 0x0000FF);
        a->Quadro.Circle(7000, 5000, 2500, 0xFF0000);
        a->Quadro.Box(2000, 6000, 4000, 8000, 0x00AA00);
        const QImage bitmap = a->Quadro.Schermo().convertToFormat(QImage::Format_RGB32);
        const QImage vista =
            a->QuadroDisegno->grab().toImage().convertToFormat(QImage::Format_RGB32);
        // In the screen's own pixels, where Qt scales the layout by a ratio of its own.
        QCOMPARE(vista.size(), a->QuadroDisegno->size() * a->QuadroDisegno->devicePixelRatioF());
        QSet<QRgb> colori;
        for (int y = 0; y < bitmap.height(); ++y) {
            const auto* riga = reinterpret_cast<const QRgb*>(bitmap.constScanLine(y));
            for (int x = 0; x < bitmap.width(); ++x)
                colori.insert(riga[x]);
        }
        const double sx = double(vista.width()) / bitmap.width();
        const double sy = double(vista.height()) / bitmap.height();
        int confrontati = 0;
        QStringList sbagliati;
        for (int y = 0; y < vista.height(); ++y) {
            const auto* riga = reinterpret_cast<const QRgb*>(vista.constScanLine(y));
            const double by = (y + 0.5) / sy;
            const double fy = by - std::floor(by);
            const auto* sorgente = reinterpret_cast<const QRgb*>(bitmap.constScanLine(int(by)));
            for (int x = 0; x < vista.width() && sbagliati.size() < 5; ++x) {
                const QRgb c = riga[x];
                // No colour that the drawing does not have: nothing is blended.
                if (!colori.contains(c)) sbagliati << QStringLiteral("sfumato %1,%2").arg(x).arg(y);
                // Well inside a pixel of the bitmap, the screen shows that pixel.
                const double bx = (x + 0.5) / sx;
                const double fx = bx - std::floor(bx);
                if (fx < 0.25 || fx > 0.75 || fy < 0.25 || fy > 0.75) continue;
                if (c != sorgente[int(bx)])
                    sbagliati << QStringLiteral("diverso %1,%2").arg(x).arg(y);
                ++confrontati;
            }
        }
        QVERIFY2(sbagliati.isEmpty(), qPrintable(sbagliati.join(u' ')));
        QVERIFY(confrontati > bitmap.width() * bitmap.height() / 8);
    }

    void i_pannelli_stanno_nello_schermo() {
        Clicca(MenùGeneraleAperto()->Tasti.value(101));
        QVERIFY(AmbienteDisegnoAperto() != nullptr);
        QString colore, tastiera;
        Copione c(*orologio);
        c.Esegui([&] {
            FormScansione* f = FormScansione::InPrimoPiano();
            colore = ProblemiDi(f);
            // Out by the mouse, on "Annulla".
            if (f != nullptr) Clicca(f->Tasti.value(124));
        });
        c.Avvia();
        ApriQuadroSceltaColore1();
        QVERIFY(c.Finito());
        QVERIFY2(colore.isEmpty(), qPrintable(colore));

        Copione t(*orologio);
        t.Esegui([&] {
            auto* f = dynamic_cast<QuadroScriviTesto*>(FormScansione::InPrimoPiano());
            tastiera = ProblemiDi(f);
            // Out by the mouse: "Fn", then "Chiudi" among the function keys.
            if (TastoZanto* fn = TastoDetto(f, QStringLiteral("Fn"))) Clicca(fn);
            if (TastoZanto* chiudi = TastoDetto(f, QStringLiteral("Chiudi")))
                Clicca(chiudi);
            else
                tastiera += QStringLiteral("Chiudi non trovato");
        });
        t.Avvia();
        ScriviTesto(0);
        QVERIFY(t.Finito());
        QVERIFY2(tastiera.isEmpty(), qPrintable(tastiera));
    }

    void i_pannelli_dell_ambiente_stanno_nello_schermo_data() {
        QTest::addColumn<bool>("conAzione");
        QTest::addColumn<int>("tasto");
        QTest::addColumn<QString>("chiudi");
        QTest::addColumn<int>("pannelli");
        QTest::newRow("impostazioni") << false << 124 << QStringLiteral("Chiudi") << 1;
        QTest::newRow("messaggio") << false << 119 << QStringLiteral("NO") << 1;
        QTest::newRow("scelta elemento") << true << 121 << QStringLiteral("Chiudi") << 1;
        // The time line, then the question whether to go back.
        QTest::newRow("linea del tempo") << true << 118 << QString() << 2;
    }
    void i_pannelli_dell_ambiente_stanno_nello_schermo() {
        QFETCH(bool, conAzione);
        QFETCH(int, tasto);
        QFETCH(QString, chiudi);
        QFETCH(int, pannelli);
        Clicca(MenùGeneraleAperto()->Tasti.value(101));
        AmbienteDisegno* a = AmbienteDisegnoAperto();
        QVERIFY(a != nullptr);
        if (conAzione) {
            // A rectangle placed and fixed by the mouse: the drawing has one action.
            Clicca(a->Tasti.value(103));
            Clicca(a->Tasti.value(117));
            QCOMPARE(NumeroAzioni, 1);
        }
        Chiusore chiusore(a, chiudi);
        Clicca(a->Tasti.value(int16_t(tasto)));
        QCOMPARE(chiusore.Visti(), pannelli);
        QVERIFY2(chiusore.Problemi().isEmpty(), qPrintable(chiusore.Problemi()));
    }

    void la_lista_sta_nello_schermo() {
        QString lista;
        Copione c(*orologio);
        c.Esegui([&] {
            lista = ProblemiDi(FormScansione::InPrimoPiano());
            if (!ScegliConFrecce(125)) {
                lista += QStringLiteral("uscita non raggiunta");
                if (FormScansione* f = FormScansione::InPrimoPiano()) f->done(0);
            }
        });
        c.Avvia();
        PremiTasto(Qt::Key_Right);
        PremiTasto(Qt::Key_Return); // "Cartelle"
        QVERIFY(c.Finito());
        QVERIFY2(lista.isEmpty(), qPrintable(lista));
    }
};

QTEST_MAIN(ProvaSchermi)
#include "test_schermi.moc"
