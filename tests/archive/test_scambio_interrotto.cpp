// Exports and imports under sudden death: a child process exports a drawing
// over the same four files and imports what it wrote, and is killed with
// SIGKILL at random instants. After each kill the start's cleaning and repair
// run; then the files folder holds nothing left aside, the four exported files
// are of one generation, every imported drawing finds its own picture and no
// picture stands there that no drawing names.

#include "PilotaScambio.h"

#include "app/Avvio.h"
#include "archive/Archivi.h"
#include "archive/ArchivioAzioni.h"
#include "archive/BitmapDisegni.h"
#include "archive/FileInSospeso.h"
#include "archive/FileScambio.h"
#include "model/RecordAzione.h"
#include "printing/EsportaDisegno.h"
#include "support/AmbienteProva.h"
#include "support/Figlio.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QImage>
#include <QProcess>
#include <QSqlError>
#include <QSqlQuery>
#include <QtTest>

#include <random>

namespace {

constexpr quint32 Seme = 20261126;
constexpr int Uccisioni = 40;

QSqlQuery Interroga(const QString& testo) {
    QSqlQuery q(Archivio(ArchivioDisegni));
    if (!q.exec(testo)) qFatal("%s", qPrintable(q.lastError().text()));
    return q;
}

} // namespace

class TestScambioInterrotto : public QObject {
    Q_OBJECT

private slots:
    void esportazioni_e_importazioni_uccise_a_caso_non_lasciano_nulla_a_meta();
};

void TestScambioInterrotto::esportazioni_e_importazioni_uccise_a_caso_non_lasciano_nulla_a_meta() {
    AmbienteProva amb; // the child finds it through XDG_DATA_HOME
    const QString archivio = PercorsoArchivioDisegni();
    const QDir cartella(PercorsoFile());
    std::mt19937 caso(Seme);
    qInfo("seme %u, uccisioni %d", Seme, Uccisioni);
    int importati = 0;
    int insiemi = 0;
    int lasciati = 0;
    for (int giro = 1; giro <= Uccisioni; ++giro) {
        QProcess figlio;
        figlio.setProgram(QStringLiteral(PILOTA_SCAMBIO));
        figlio.setArguments({QString::number(giro)});
        figlio.start();
        QVERIFY(figlio.waitForStarted());
        // The child's start takes a while under the sanitizers: the instant is
        // drawn over its start and a few generations after it.
        Gira(std::uniform_int_distribution<qint64>(200000, 3000000)(caso));
        Uccidi(figlio);
        if (QTest::currentTestFailed()) return;
        lasciati += int(cartella
                            .entryList({QStringLiteral("*.nuovo"), QStringLiteral("*.insieme"),
                                        QStringLiteral("*.vecchio")},
                                       QDir::Files | QDir::Hidden)
                            .size());
        insiemi += int(cartella.entryList({QStringLiteral("*.insieme")}, QDir::Files).size());

        // What the start does, in its order.
        ApriArchivio(ArchivioDisegni, archivio);
        CompletaFileInSospeso();
        RiparaBitmapDisegni();
        QVERIFY2(amb.Scatole.isEmpty(), qPrintable(amb.Scatole.value(0).Testo));
        {
            QSqlQuery q = Interroga(QStringLiteral("PRAGMA integrity_check"));
            QVERIFY(q.next());
            QCOMPARE(q.value(0).toString(), QStringLiteral("ok"));
        }
        const QString dove = QStringLiteral("giro %1").arg(giro);
        // Nothing left aside.
        const QStringList tutti = cartella.entryList(QDir::Files | QDir::Hidden | QDir::System);
        for (const QString& nome : tutti)
            QVERIFY2(!nome.endsWith(QStringLiteral(".nuovo")) &&
                         !nome.endsWith(QStringLiteral(".vecchio")) &&
                         !nome.endsWith(QStringLiteral(".insieme")) &&
                         !nome.endsWith(QStringLiteral("-journal")),
                     qPrintable(dove + u' ' + nome));
        // Every imported drawing finds its own picture.
        QSet<QString> nominate;
        QSqlQuery disegni = Interroga(
            QStringLiteral("SELECT CodiceDisegno FROM TabDisegni WHERE CodiceDisegno < 1000000"));
        importati = 0;
        while (disegni.next()) {
            ++importati;
            QList<RecordAzione> lista;
            int32_t numero = 0;
            LeggiAzioniDisegno(disegni.value(0).toInt(), lista, numero);
            QCOMPARE(numero, 2);
            const QString figura = lista.at(2).NomeFileImmagine;
            nominate.insert(QFileInfo(figura).fileName());
            const QImage immagine(figura);
            QVERIFY2(!immagine.isNull(), qPrintable(dove + u' ' + figura));
            QCOMPARE(immagine.pixelColor(5, 5), PilotaScambio::ColoreQt(lista.at(1).ColLinea));
        }
        // And no picture stands there that no drawing names.
        for (const QString& nome : tutti)
            if (nome.startsWith(QStringLiteral("sole")))
                QVERIFY2(nominate.contains(nome), qPrintable(dove + u' ' + nome));
        // The four exported files, all of one generation.
        const FileEsportati esportati = PercorsiEsportazione(PilotaScambio::NomeEsportato, 0);
        if (QFile::exists(esportati.Scambio)) {
            for (const QString& f : esportati.Tutti())
                QVERIFY2(QFile::exists(f), qPrintable(dove + u' ' + f));
            const int32_t colore = LeggiFileScambio(esportati.Scambio).Azioni.at(1).ColLinea;
            QCOMPARE(QImage(esportati.Png).pixelColor(PilotaScambio::SondaX, PilotaScambio::SondaY),
                     PilotaScambio::ColoreQt(colore));
            QFile svg(esportati.Svg);
            QVERIFY(svg.open(QIODevice::ReadOnly));
            QVERIFY2(svg.readAll().contains(PilotaScambio::ColoreQt(colore).name().toLatin1()),
                     qPrintable(dove));
        }
        ChiudiArchivio(ArchivioDisegni);
    }
    qInfo("%d disegni importati, %d file lasciati a parte dalle uccisioni, %d insiemi a metà",
          importati, lasciati, insiemi);
    QVERIFY(importati > 0);
    QVERIFY(lasciati > 0);
}

QTEST_MAIN(TestScambioInterrotto)
#include "test_scambio_interrotto.moc"
