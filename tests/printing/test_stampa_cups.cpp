// Printing through a real print service: the tests' own CUPS scheduler with
// its PDF queues. The printer list shows the service's printers, one is chosen
// by keys, and 132 sends the page to it; the job the queue writes is
// read back as paper.
#include "archive/ArchivioAzioni.h"
#include "drawing/AmbienteDisegno.h"
#include "drawing/GuidaDisegno.h"
#include "drawing/GuidaSettaggi.h"
#include "printing/SceltaStampanti.h"
#include "printing/Stampe.h"
#include "start/Configurazione.h"
#include "support/Copione.h"

#include "PaginaStampata.h"

#include <QApplication>
#include <QDir>
#include <QFileInfo>
#include <QListWidget>
#include <QPrinterInfo>
#include <QtTest>

using namespace PaginaStampata;

namespace {

constexpr int32_t Rosso = 0x0000FF;

// Where the queues write their jobs: beside the scheduler's socket.
QDir Uscita() {
    return QDir(QFileInfo(qEnvironmentVariable("CUPS_SERVER")).absolutePath() +
                QStringLiteral("/uscita"));
}

QStringList Lavori() {
    return Uscita().entryList({QStringLiteral("lavoro-*.pdf")}, QDir::Files, QDir::Name);
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

private slots:
    void initTestCase() {
        if (qEnvironmentVariableIsEmpty("CUPS_SERVER"))
            QSKIP("runs under ctest, which starts the tests' own print service first");
        ElencoStampanti = nullptr;
    }
    void init() { Prepara(); }
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

    void la_pagina_arriva_alla_stampante_scelta() {
        ScegliConLeFrecce(QStringLiteral("ZantoProva"));
        QCOMPARE(StampanteProgramma, QStringLiteral("ZantoProva"));
        FileStampa.clear();
        a = GuidaDisegno::Apri(4);
        GuidaSettaggi::RettangoloColorato(a, Rosso);
        NomeDisegnoCorrente = QStringLiteral("Al servizio di stampa");
        const QStringList prima = Lavori();
        // Each question's ring stands on its default, "OK" then "NO".
        Copione c(*orologio);
        c.Tasto(Qt::Key_Return).Tasto(Qt::Key_Return);
        GuidaDisegno::Frecce(Qt::Key_Right, (132 - a->Motore.TastoCorrente + 33) % 33);
        c.Avvia();
        QVERIFY(PremiTasto(Qt::Key_Return));
        QVERIFY(c.Finito());
        QVERIFY(amb->Scatole.isEmpty());
        // The scheduler takes the job and its queue writes it when it is done.
        QTRY_VERIFY_WITH_TIMEOUT(Lavori().size() > prima.size(), 60000);
        const QString lavoro = Uscita().filePath(Lavori().constLast());
        QTemporaryDir cartella;
        const QImage pagina = Rasterizza(lavoro, cartella.filePath(QStringLiteral("pagina")))
                                  .convertToFormat(QImage::Format_RGB32);
        QVERIFY2(qAbs(pagina.width() - 1123) <= 1 && qAbs(pagina.height() - 794) <= 1,
                 qPrintable(QStringLiteral("%1x%2").arg(pagina.width()).arg(pagina.height())));
        QVERIFY(Vicino(pagina.pixel(20, 400), 0xFFFFFF));
        QVERIFY(Vicino(pagina.pixel(80 + 471, 53 + 333), Rosso));
        const QString testo = Testo(lavoro);
        QVERIFY2(testo.contains(QStringLiteral("Al servizio di stampa")), qPrintable(testo));
    }
};

QTEST_MAIN(ProvaStampaCups)
#include "test_stampa_cups.moc"
