// The pictures of the drawing screen and of its panels: each is there, is a
// valid drawing, and shows something on a button's face.
#include "base/IconaSvg.h"
#include "base/Misure.h"

#include <QFile>
#include <QImage>
#include <QPainter>
#include <QPushButton>
#include <QSvgRenderer>
#include <QtTest>

namespace {

QStringList IconeAmbiente() {
    QStringList nomi;
    for (int i = 101; i <= 133; ++i)
        nomi << QStringLiteral(":/icone/ambiente/tasto%1.svg").arg(i);
    for (const char* n : {"forme-vuote", "forme-piene", "copia", "sposta"})
        nomi << QStringLiteral(":/icone/ambiente/%1.svg").arg(QLatin1String(n));
    return nomi;
}

QStringList IconePannelli() {
    QStringList nomi;
    for (const char* n :
         {"direzione-sinistra", "direzione-destra", "direzione-alto", "direzione-basso", "chiudi",
          "ribalta-destro", "ribalta-sinistro", "ribalta-inferiore", "ribalta-superiore",
          "font-scelta", "font-dimensione", "grassetto-si", "grassetto-no", "corsivo-si",
          "corsivo-no", "arcobaleno", "annulla-colore"})
        nomi << QStringLiteral(":/icone/pannelli/%1.svg").arg(QLatin1String(n));
    for (const char* n : {"su", "giu", "conferma", "nuova-cartella", "elimina", "indietro"})
        nomi << QStringLiteral(":/icone/lista/%1.svg").arg(QLatin1String(n));
    for (const char* n : {"rende-attiva", "elimina", "precedente", "successiva", "prima", "ultima",
                          "sposta-prima", "sposta-dopo"})
        nomi << QStringLiteral(":/icone/selezione/%1.svg").arg(QLatin1String(n));
    return nomi;
}

QStringList IconeTastiera() {
    QStringList nomi;
    for (const char* n : {"conferma", "lettere", "cursore-sinistra", "cursore-destra",
                          "cursore-inizio", "cursore-fine", "maiuscole", "minuscole", "font",
                          "importa", "cursore-alto", "cursore-basso"})
        nomi << QStringLiteral(":/icone/tastiera/%1.svg").arg(QLatin1String(n));
    return nomi;
}

QImage Disegna(const QString& risorsa, QSize dimensione, QColor fondo) {
    QImage immagine(dimensione, QImage::Format_ARGB32);
    immagine.fill(fondo);
    QPainter p(&immagine);
    p.drawPixmap(0, 0, IconaSvg(risorsa, dimensione).pixmap(dimensione));
    return immagine;
}

// Pixels that differ from the background by more than a hint.
int PixelDisegnati(const QImage& immagine, QColor fondo) {
    int n = 0;
    for (int y = 0; y < immagine.height(); ++y)
        for (int x = 0; x < immagine.width(); ++x) {
            const QColor c = immagine.pixelColor(x, y);
            if (std::abs(c.red() - fondo.red()) + std::abs(c.green() - fondo.green()) +
                    std::abs(c.blue() - fondo.blue()) >
                60)
                ++n;
        }
    return n;
}

} // namespace

class ProvaIcone : public QObject {
    Q_OBJECT

private slots:
    void ogni_icona_c_e_ed_e_un_disegno_valido_data() {
        QTest::addColumn<QString>("risorsa");
        for (const QString& r : IconeAmbiente() + IconePannelli() + IconeTastiera())
            QTest::newRow(qPrintable(r)) << r;
    }
    void ogni_icona_c_e_ed_e_un_disegno_valido() {
        QFETCH(QString, risorsa);
        // IconaSvg makes the resources available on its first call.
        QVERIFY(!IconaSvg(risorsa, QSize(41, 38)).isNull());
        QVERIFY(QFile::exists(risorsa));
        QSvgRenderer svg(risorsa);
        QVERIFY(svg.isValid());
        // One grid for all: the same strokes look the same on every button.
        QCOMPARE(svg.viewBoxF(), QRectF(0, 0, 48, 48));
        const QColor faccia(0xEF, 0xEF, 0xEF);
        const QImage immagine = Disegna(risorsa, QSize(41, 38), faccia);
        // A clear picture covers a good part of the face, not a dot.
        QVERIFY2(PixelDisegnati(immagine, faccia) > 41 * 38 / 10, qPrintable(risorsa));
    }

    void le_due_immagini_di_un_tasto_si_distinguono_data() {
        QTest::addColumn<QString>("prima");
        QTest::addColumn<QString>("seconda");
        QTest::newRow("forme") << ":/icone/ambiente/forme-vuote.svg"
                               << ":/icone/ambiente/forme-piene.svg";
        QTest::newRow("copia o sposta") << ":/icone/ambiente/copia.svg"
                                        << ":/icone/ambiente/sposta.svg";
        QTest::newRow("grassetto") << ":/icone/pannelli/grassetto-si.svg"
                                   << ":/icone/pannelli/grassetto-no.svg";
        QTest::newRow("corsivo") << ":/icone/pannelli/corsivo-si.svg"
                                 << ":/icone/pannelli/corsivo-no.svg";
        QTest::newRow("maiuscole") << ":/icone/tastiera/maiuscole.svg"
                                   << ":/icone/tastiera/minuscole.svg";
    }
    void le_due_immagini_di_un_tasto_si_distinguono() {
        QFETCH(QString, prima);
        QFETCH(QString, seconda);
        const QColor faccia(0xEF, 0xEF, 0xEF);
        const QImage a = Disegna(prima, QSize(41, 38), faccia);
        const QImage b = Disegna(seconda, QSize(41, 38), faccia);
        int diversi = 0;
        for (int y = 0; y < a.height(); ++y)
            for (int x = 0; x < a.width(); ++x)
                if (a.pixel(x, y) != b.pixel(x, y)) ++diversi;
        QVERIFY(diversi > 41 * 38 / 10);
    }

    void i_tasti_116_e_126_mostrano_all_inizio_la_prima_immagine() {
        const QColor faccia(0xEF, 0xEF, 0xEF);
        QCOMPARE(Disegna(":/icone/ambiente/tasto116.svg", QSize(41, 38), faccia),
                 Disegna(":/icone/ambiente/forme-vuote.svg", QSize(41, 38), faccia));
        QCOMPARE(Disegna(":/icone/ambiente/tasto126.svg", QSize(41, 38), faccia),
                 Disegna(":/icone/ambiente/copia.svg", QSize(41, 38), faccia));
    }

    void il_mirino_e_trasparente_e_si_vede_sulla_tela() {
        const QString mirino = QStringLiteral(":/icone/ambiente/mirino.svg");
        QVERIFY(!IconaSvg(mirino, QSize(32, 32)).isNull());
        QSvgRenderer svg(mirino);
        QCOMPARE(svg.viewBoxF(), QRectF(0, 0, 32, 32));
        const QImage sola = IconaSvg(mirino, QSize(32, 32)).pixmap(32, 32).toImage();
        // The corners are clear: the drawing shows through them.
        for (QPoint angolo : {QPoint(0, 0), QPoint(31, 0), QPoint(0, 31), QPoint(31, 31)})
            QCOMPARE(qAlpha(sola.pixel(angolo)), 0);
        // On the light grey of the canvas it has dark lines and a light edge.
        const QColor tela(0xC0, 0xC0, 0xC0);
        const QImage sullaTela = Disegna(mirino, QSize(32, 32), tela);
        int scuri = 0, chiari = 0;
        for (int y = 0; y < 32; ++y)
            for (int x = 0; x < 32; ++x) {
                const int luce = qGray(sullaTela.pixel(x, y));
                if (luce < 80) ++scuri;
                if (luce > 240) ++chiari;
            }
        QVERIFY(scuri > 40);
        QVERIFY(chiari > 20);
    }

    void imposta_icona_adatta_l_immagine_al_tasto_e_la_ricorda() {
        QPushButton tasto;
        tasto.resize(Px(705), Px(660));
        const QString risorsa = QStringLiteral(":/icone/ambiente/tasto117.svg");
        ImpostaIcona(&tasto, risorsa);
        QCOMPARE(tasto.property(ProprietaRisorsaIcona).toString(), risorsa);
        QVERIFY(!tasto.icon().isNull());
        QVERIFY(tasto.iconSize().width() < tasto.width());
        QVERIFY(tasto.iconSize().height() < tasto.height());
        QVERIFY(tasto.iconSize().height() >= tasto.height() - Px(120));
    }

    void una_risorsa_che_manca_da_un_icona_vuota() {
        QTest::ignoreMessage(QtWarningMsg, QRegularExpression(QStringLiteral(".*manca\\.svg.*")));
        QVERIFY(IconaSvg(QStringLiteral(":/icone/manca.svg"), QSize(32, 32)).isNull());
    }
};

QTEST_MAIN(ProvaIcone)
#include "test_icone.moc"
