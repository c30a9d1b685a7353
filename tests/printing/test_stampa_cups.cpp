// Printing through a real print service: the tests' own CUPS scheduler with
// its queues driven by real PDF printer descriptions, Letter by default and
// with hardware margins. The printer list shows the service's printers, one is
// chosen by keys, and 132 sends the page to it; the message panel tells what
// the service did with it, and the job the queue writes is read back as paper.
#include "app/Avvio.h"
#include "archive/ArchivioAzioni.h"
#include "archive/RigaConfigurazione.h"
#include "drawing/AmbienteDisegno.h"
#include "drawing/GuidaDisegno.h"
#include "drawing/GuidaSettaggi.h"
#include "printing/SceltaStampanti.h"
#include "printing/Stampe.h"
#include "support/Copione.h"

#include "PaginaStampata.h"
#include "RispostaMessaggi.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QListWidget>
#include <QPrinterInfo>
#include <QRegularExpression>
#include <QtTest>

using namespace PaginaStampata;

namespace {

constexpr int32_t Rosso = 0x0000FF;
constexpr int32_t Grigio = 0xC0C0C0;

// Where the queues write their jobs: beside the scheduler's socket.
QDir Uscita() {
    return QDir(QFileInfo(qEnvironmentVariable("CUPS_SERVER")).absolutePath() +
                QStringLiteral("/uscita"));
}

QStringList Lavori() {
    return Uscita().entryList({QStringLiteral("lavoro-*.pdf")}, QDir::Files, QDir::Name);
}

// A line of pdfinfo's, such as "Page size" or "Title", without its name.
QString Informazione(const QString& pdf, const QString& voce) {
    const QString info = QString::fromUtf8(Esegui(QStringLiteral("pdfinfo"), {pdf}));
    const QRegularExpression riga(QStringLiteral("^") + voce + QStringLiteral(":\\s*(.*)$"),
                                  QRegularExpression::MultilineOption);
    return riga.match(info).captured(1).trimmed();
}

// A queue of the service told to refuse jobs, or to take them again.
bool Accetta(const QString& coda, bool si) {
    QProcess p;
    p.start(si ? QStringLiteral("cupsaccept") : QStringLiteral("cupsreject"), {coda});
    return p.waitForFinished(30000) && p.exitCode() == 0;
}

} // namespace

class ProvaStampaCups : public QObject, MondoDisegno {
    Q_OBJECT

    // The printer list opened as the configuration form opens it, `nome`
    // reached by the arrows and confirmed with Enter.
    QStringList ScegliConLeFrecce(const QString& nome) {
        QStringList righe;
        Copione c(*orologio);
        c.Esegui([&] {
            auto* d = dynamic_cast<SceltaStampanti*>(QApplication::activeModalWidget());
            if (d == nullptr) return;
            for (int i = 0; i < d->ListaStampanti->count(); ++i)
                righe << d->ListaStampanti->item(i)->text();
            // The highlight moved onto the name: the first line is left and reached again.
            const int riga = int(righe.indexOf(nome));
            for (int i = 0; i < std::max(riga, 1); ++i)
                QTest::keyClick(d->ListaStampanti, Qt::Key_Down);
            if (riga == 0) QTest::keyClick(d->ListaStampanti, Qt::Key_Up);
            QTest::keyClick(d->ListaStampanti, Qt::Key_Return);
            if (QApplication::activeModalWidget() == d) d->reject();
        });
        c.Avvia();
        ApriSceltaStampanti(nullptr);
        return righe;
    }

    // 132 in mode 4, both questions answered by Enter, and the time the print
    // service takes to give its answer.
    void Stampa132(const RispostaMessaggi& messaggi) {
        Copione c(*orologio);
        c.Tasto(Qt::Key_Return).Tasto(Qt::Key_Return);
        GuidaDisegno::Frecce(Qt::Key_Right, (132 - a->Motore.TastoCorrente + 33) % 33);
        c.Avvia();
        QVERIFY(PremiTasto(Qt::Key_Return));
        QVERIFY(c.Finito());
        QTRY_VERIFY_WITH_TIMEOUT(!messaggi.Testi.isEmpty(), 60000);
    }

private slots:
    void initTestCase() {
        if (qEnvironmentVariableIsEmpty("CUPS_SERVER"))
            QSKIP("runs under ctest, which starts the tests' own print service first");
        ElencoStampanti = nullptr;
    }
    void init() {
        Prepara();
        // The list as the service tells it, asked off the screen's thread.
        bool risposto = false;
        bool raggiunto = false;
        AggiornaStampanti([&](bool r) {
            risposto = true;
            raggiunto = r;
        });
        QTRY_VERIFY_WITH_TIMEOUT(risposto, 60000);
        QVERIFY(raggiunto);
    }
    void cleanup() {
        StampanteProgramma.clear();
        StampanteScelta.clear();
        Libera();
    }

    void la_lista_e_quella_del_servizio_di_stampa() {
        const QStringList servizio = QPrinterInfo::availablePrinterNames();
        QVERIFY2(servizio.contains(QStringLiteral("ZantoProva")) &&
                     servizio.contains(QStringLiteral("ZantoSeconda")),
                 qPrintable(servizio.join(u',')));
        const QStringList righe = ScegliConLeFrecce(QStringLiteral("ZantoSeconda"));
        QCOMPARE(righe, servizio);
        QCOMPARE(StampanteScelta, QStringLiteral("ZantoSeconda"));
        QCOMPARE(StampanteProgramma, QStringLiteral("ZantoSeconda"));
        StampanteScelta.clear();
        LeggiConfigurazione();
        QCOMPARE(StampanteScelta, QStringLiteral("ZantoSeconda"));
    }

    // Paper and orientation set apart from the margins, which the printer
    // keeps: A4 (not the printer's Letter), the drawing across the sheet's
    // long side, whole, at 1 to 1, inside what the printer can print.
    void la_pagina_arriva_alla_stampante_scelta() {
        ScegliConLeFrecce(QStringLiteral("ZantoProva"));
        QCOMPARE(StampanteProgramma, QStringLiteral("ZantoProva"));
        FileStampa.clear();
        a = GuidaDisegno::Apri(4);
        GuidaSettaggi::RettangoloColorato(a, Rosso);
        NomeDisegnoCorrente = QStringLiteral("Però « sì »");
        const QStringList prima = Lavori();
        RispostaMessaggi messaggi;
        // "OK", then "SI": the canvas's grey ground shows where it went.
        Copione c(*orologio);
        c.Tasto(Qt::Key_Return).Tasto(Qt::Key_Left).Tasto(Qt::Key_Return);
        GuidaDisegno::Frecce(Qt::Key_Right, (132 - a->Motore.TastoCorrente + 33) % 33);
        c.Avvia();
        QVERIFY(PremiTasto(Qt::Key_Return));
        QVERIFY(c.Finito());
        QVERIFY(amb->Scatole.isEmpty());
        // The service's answer comes back as a message.
        QTRY_VERIFY_WITH_TIMEOUT(!messaggi.Testi.isEmpty(), 60000);
        QCOMPARE(messaggi.Testi.constFirst(),
                 QStringLiteral("La STAMPA del Disegno è stata inviata alla stampante "
                                "« ZantoProva ». Premere «OK» per proseguire!"));
        // The scheduler takes the job and its queue writes it when it is done.
        QTRY_VERIFY_WITH_TIMEOUT(Lavori().size() > prima.size(), 60000);
        const QString lavoro = Uscita().filePath(Lavori().constLast());

        // The sheet: A4, shown upright as paper is fed, whichever way the
        // driver wrote it (a landscape box turned, or an upright one).
        const QStringList carta = Informazione(lavoro, QStringLiteral("Page size")).split(u' ');
        QVERIFY2(carta.size() >= 5 && carta.at(4) == QStringLiteral("(A4)"),
                 qPrintable(carta.join(u' ')));
        const int giro = Informazione(lavoro, QStringLiteral("Page rot")).toInt();
        const bool girata = giro % 180 == 90;
        QCOMPARE(girata ? carta.at(2) : carta.at(0), QStringLiteral("595"));
        QCOMPARE(girata ? carta.at(0) : carta.at(2), QStringLiteral("842"));
        // Job name and PDF title in plain characters.
        QCOMPARE(NomeCartellaAttiva, QStringLiteral("·Disegni Generale"));
        const QString titolo = QStringLiteral("ZANTO - Pero si - Cartella Disegni Generale");
        QCOMPARE(Informazione(lavoro, QStringLiteral("Title")), titolo);
        QFile nome(QString(lavoro).replace(QStringLiteral(".pdf"), QStringLiteral(".titolo")));
        QVERIFY(nome.open(QIODevice::ReadOnly));
        QCOMPARE(QString::fromUtf8(nome.readAll()), titolo);

        QTemporaryDir cartella;
        const QImage pagina = Rasterizza(lavoro, cartella.filePath(QStringLiteral("pagina")))
                                  .convertToFormat(QImage::Format_RGB32);
        QCOMPARE(pagina.size(), QSize(794, 1123));
        // The canvas, 14144 by 10000 twips, turned to lie along the long side:
        // 667 by 943 pixels at 96 dpi, clear of the printer's margins (18 points
        // at the sides, 36 at the top and bottom of the sheet).
        // The title's band, turned to the sheet's left, is left out: its
        // smoothed edges have greys of their own.
        const QRect tela = BoxDi(pagina, Grigio, pagina.rect().adjusted(45, 0, 0, 0));
        QVERIFY2(qAbs(tela.width() - 667) <= 2 && qAbs(tela.height() - 943) <= 2 &&
                     tela.left() >= 24 && tela.right() < 794 - 24 && tela.top() >= 48 &&
                     tela.bottom() < 1123 - 48,
                 qPrintable(QStringLiteral("%1,%2 %3x%4")
                                .arg(tela.left())
                                .arg(tela.top())
                                .arg(tela.width())
                                .arg(tela.height())));
        QVERIFY(Vicino(pagina.pixel(tela.center()), Rosso));
        const QString testo = Testo(lavoro);
        QVERIFY2(testo.contains(QStringLiteral("Però « sì »")), qPrintable(testo));
    }

    // Nothing chosen and no default on the service: the page goes to the
    // service's first printer, the one the configuration form names.
    void senza_scelta_va_alla_prima_e_lo_dice() {
        QCOMPARE(StampanteDiSistema, QString());
        QCOMPARE(StampanteInUso(), QStringLiteral("ZantoProva"));
        FileStampa.clear();
        a = GuidaDisegno::Apri(4);
        const QStringList prima = Lavori();
        RispostaMessaggi messaggi;
        Stampa132(messaggi);
        if (QTest::currentTestFailed()) return;
        QVERIFY2(messaggi.Testi.constFirst().contains(QStringLiteral("« ZantoProva »")),
                 qPrintable(messaggi.Testi.constFirst()));
        QTRY_VERIFY_WITH_TIMEOUT(Lavori().size() > prima.size(), 60000);
    }

    // A queue that does not take jobs: the user is told, nothing is written.
    void un_lavoro_rifiutato_e_detto() {
        ScegliConLeFrecce(QStringLiteral("ZantoSeconda"));
        QVERIFY(Accetta(QStringLiteral("ZantoSeconda"), false));
        a = GuidaDisegno::Apri(4);
        const QStringList prima = Lavori();
        RispostaMessaggi messaggi;
        Stampa132(messaggi);
        if (QTest::currentTestFailed()) return;
        QVERIFY(Accetta(QStringLiteral("ZantoSeconda"), true));
        QVERIFY2(messaggi.Testi.constFirst().startsWith(
                     QStringLiteral("ATTENZIONE! La stampante « ZantoSeconda » non ha accettato "
                                    "la STAMPA del Disegno: ")),
                 qPrintable(messaggi.Testi.constFirst()));
        QCOMPARE(Lavori(), prima);
    }
};

QTEST_MAIN(ProvaStampaCups)
#include "test_stampa_cups.moc"
