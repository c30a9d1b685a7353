// Printing the drawing, into a PDF file in place of a printer: the two
// questions by keys, the page read back as the paper would show it
// (rasterised at 96 dpi), the title's words and font, and the canvas left on
// its own ground afterwards.
#include "PaginaStampata.h"
#include "app/MenuGenerale.h"
#include "archive/ArchivioAzioni.h"
#include "base/Bip.h"
#include "drawing/AmbienteDisegno.h"
#include "drawing/GuidaDisegno.h"
#include "drawing/GuidaSettaggi.h"
#include "input/QuadroMessaggi.h"
#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"
#include "printing/Stampe.h"
#include "support/Copione.h"
#include "support/SondePixel.h"

#include <QImage>
#include <QProcess>
#include <QStandardPaths>
#include <QTemporaryDir>
#include <QtTest>

using namespace PaginaStampata;

namespace {

constexpr int32_t Rosso = 0x0000FF;
constexpr int32_t Grigio = 0xC0C0C0;

} // namespace

class ProvaStampe : public QObject, MondoDisegno {
    Q_OBJECT

    QTemporaryDir cartella_;

    // 132 with its two answers: "OK", then "NO" (white) or, one key left, "SI".
    void Stampa(bool conSfondo) {
        Copione c(*orologio);
        c.Tasto(Qt::Key_Return);
        if (conSfondo) c.Tasto(Qt::Key_Left);
        c.Tasto(Qt::Key_Return);
        GuidaDisegno::Frecce(Qt::Key_Right, (132 - a->Motore.TastoCorrente + 33) % 33);
        c.Avvia();
        QVERIFY(PremiTasto(Qt::Key_Return));
        QVERIFY(c.Finito());
        QVERIFY2(c.Problemi.isEmpty(), qPrintable(c.Problemi.join(u'\n')));
    }
    QImage Pagina() {
        const QImage pagina = Rasterizza(FileStampa, cartella_.filePath(QStringLiteral("pagina")));
        // For the eye: the page as the paper shows it.
        const QString schermate = qEnvironmentVariable("ZANTO_SCHERMATE");
        if (!schermate.isEmpty()) pagina.save(schermate + QStringLiteral("/stampa-pagina.png"));
        return pagina.convertToFormat(QImage::Format_RGB32);
    }

private slots:
    void initTestCase() {
        QVERIFY2(!QStandardPaths::findExecutable(QStringLiteral("pdftoppm")).isEmpty(),
                 "pdftoppm (poppler-utils) is needed to read the printed page back");
    }
    void init() {
        Prepara();
        FileStampa = cartella_.filePath(QStringLiteral("stampa.pdf"));
        QFile::remove(FileStampa);
        a = GuidaDisegno::Apri(4);
        GuidaSettaggi::RettangoloColorato(a, Rosso);
    }
    void cleanup() {
        FileStampa.clear();
        Libera();
    }

    void su_bianco_a4_orizzontale_con_il_titolo_e_la_tela_al_suo_posto() {
        Stampa(false);
        QVERIFY(QFile::exists(FileStampa));
        const QImage pagina = Pagina();
        // A4 landscape at 96 dpi.
        QVERIFY2(qAbs(pagina.width() - 1123) <= 1 && qAbs(pagina.height() - 794) <= 1,
                 qPrintable(QStringLiteral("%1x%2").arg(pagina.width()).arg(pagina.height())));
        // The paper is white round the canvas, and so is the canvas's ground.
        QVERIFY(Vicino(pagina.pixel(20, 400), 0xFFFFFF));
        QVERIFY(Vicino(pagina.pixel(80 + 5, 53 + 5), 0xFFFFFF));
        // The red inside of the rectangle at the centre of the canvas.
        QVERIFY(Vicino(pagina.pixel(80 + 471, 53 + 333), Rosso));
        // The title: dark ink from (1200, 400) twips, that is (80, 27) pixels.
        const QRect titolo = BoxDi(pagina, 0x000000, QRect(0, 0, pagina.width(), 50));
        QVERIFY2(titolo.left() >= 79 && titolo.left() <= 83 && titolo.top() >= 26 &&
                     titolo.top() <= 34,
                 qPrintable(QStringLiteral("%1,%2").arg(titolo.left()).arg(titolo.top())));
        const QString testo = Testo(FileStampa);
        QVERIFY2(testo.contains(QStringLiteral("NOME DISEGNO:")) &&
                     testo.contains(QStringLiteral("Non Assegnato")) &&
                     testo.contains(QStringLiteral("CARTELLA:")) &&
                     testo.contains(NomeCartellaAttiva),
                 qPrintable(testo));
        const QString caratteri =
            QString::fromUtf8(Esegui(QStringLiteral("pdffonts"), {FileStampa}));
        QVERIFY2(caratteri.contains(QStringLiteral("Bold")), qPrintable(caratteri));
        // The canvas is back on its ground, its drawing whole.
        const QImage& tela = a->Quadro.Immagine();
        QCOMPARE(SondePixel::Colore(tela, 5, 5), Grigio);
        QCOMPARE(SondePixel::Colore(tela, 471, 333), Rosso);
        QCOMPARE(a->Quadro.BackColor(), Grigio);
    }

    void con_lo_sfondo_la_tela_e_grande_uno_a_uno() {
        NomeDisegnoCorrente = QStringLiteral("La casa");
        Stampa(true);
        const QImage pagina = Pagina();
        // The grey of the canvas: 14144 by 10000 twips from (1200, 800), to a pixel.
        // Below the title, whose smoothed edges have greys of their own.
        const QRect tela = BoxDi(pagina, Grigio, pagina.rect().adjusted(0, 45, 0, 0));
        QVERIFY2(qAbs(tela.left() - 80) <= 1 && qAbs(tela.top() - 53) <= 1 &&
                     qAbs(tela.width() - 943) <= 1 && qAbs(tela.height() - 667) <= 1,
                 qPrintable(QStringLiteral("%1,%2 %3x%4")
                                .arg(tela.left())
                                .arg(tela.top())
                                .arg(tela.width())
                                .arg(tela.height())));
        const QString testo = Testo(FileStampa);
        QVERIFY2(testo.contains(QStringLiteral("La casa")), qPrintable(testo));
        QCOMPARE(a->Quadro.BackColor(), Grigio);
    }

    // Where the title and the canvas go for the printable part a printer
    // gives: at their place 1 to 1 when they fit, else as large as fits in
    // the same proportions, inside it.
    void la_tela_sta_dentro_la_parte_stampabile() {
        const QRectF a4(0, 0, 16838, 11906);
        const PostoPagina intera = PostoSullaPagina(a4.adjusted(720, 360, -720, -360));
        QCOMPARE(intera.Scala, 1.0);
        QCOMPARE(QPointF(intera.TitoloX, intera.TitoloY), QPointF(1200, 400));
        QCOMPARE(QPointF(intera.TelaX, intera.TelaY), QPointF(1200, 800));
        // An inch all round: the canvas no longer fits as it is.
        const QRectF stampabile = a4.adjusted(1440, 1440, -1440, -1440);
        const PostoPagina stretta = PostoSullaPagina(stampabile);
        QVERIFY(stretta.Scala < 1);
        const QRectF tela(stretta.TelaX, stretta.TelaY, LarghezzaQuadroDisegno * stretta.Scala,
                          AltezzaQuadroDisegno * stretta.Scala);
        QVERIFY(stampabile.contains(tela));
        QVERIFY(stampabile.contains(QPointF(stretta.TitoloX, stretta.TitoloY)));
        QCOMPARE(stretta.TelaY - stretta.TitoloY, 400.0);
        // As large as fits: it touches the printable part's bottom.
        QVERIFY(qAbs(tela.bottom() - stampabile.bottom()) < 1);
        // A printer that kept its Letter paper upright: narrower than the canvas.
        const QRectF lettera = QRectF(0, 0, 12240, 15840).adjusted(360, 720, -360, -720);
        const PostoPagina dritta = PostoSullaPagina(lettera);
        QVERIFY(qAbs(LarghezzaQuadroDisegno * dritta.Scala - lettera.width()) < 1);
        QVERIFY(lettera.contains(QRectF(dritta.TelaX, dritta.TelaY,
                                        LarghezzaQuadroDisegno * dritta.Scala,
                                        AltezzaQuadroDisegno * dritta.Scala)));
    }

    void annullare_non_stampa_nulla() {
        Copione c(*orologio);
        c.Tasto(Qt::Key_Right).Tasto(Qt::Key_Return); // from "OK" to "Annulla"
        GuidaDisegno::Frecce(Qt::Key_Right, (132 - a->Motore.TastoCorrente + 33) % 33);
        c.Avvia();
        QVERIFY(PremiTasto(Qt::Key_Return));
        QVERIFY(c.Finito());
        QVERIFY(!QFile::exists(FileStampa));
        // Annulla at the second question too.
        Copione d(*orologio);
        d.Tasto(Qt::Key_Return).Tasto(Qt::Key_Right).Tasto(Qt::Key_Return);
        d.Avvia();
        QVERIFY(PremiTasto(Qt::Key_Return));
        QVERIFY(d.Finito());
        QVERIFY(!QFile::exists(FileStampa));
        QCOMPARE(a->Quadro.BackColor(), Grigio);
    }

    void una_stampante_che_non_parte_e_l_errore_482() {
        FileStampa = QStringLiteral("/nonesiste/cartella/stampa.pdf");
        Stampa(false);
        QVERIFY(!amb->Scatole.isEmpty());
        QVERIFY2(amb->Scatole.last().Testo.contains(QStringLiteral("482")),
                 qPrintable(amb->Scatole.last().Testo));
        QCOMPARE(a->Quadro.BackColor(), Grigio);
        QCOMPARE(SondePixel::Colore(a->Quadro.Immagine(), 5, 5), Grigio);
    }
};

QTEST_MAIN(ProvaStampe)
#include "test_stampe.moc"
