// Saving drawings under sudden death: a child process saves new drawings and
// saves over old ones, and is killed with SIGKILL at random instants of every
// step of the save. After each kill the start's repair runs; then the archive
// must be sound, every drawing one whole version that no completed save is
// missing from, its bitmap that same version, and nothing else on the disk.

#include "PilotaRegistraDisegno.h"

#include "app/Avvio.h"
#include "archive/Archivi.h"
#include "archive/ArchivioAzioni.h"
#include "archive/BitmapDisegni.h"
#include "model/RecordAzione.h"
#include "support/AmbienteProva.h"
#include "support/Figlio.h"
#include "support/SondePixel.h"
#include "support/SqlProva.h"

#include <QDir>
#include <QDirIterator>
#include <QElapsedTimer>
#include <QFile>
#include <QHash>
#include <QImageReader>
#include <QMap>
#include <QProcess>
#include <QSqlError>
#include <QSqlQuery>
#include <QtTest>

#include <random>
#include <sys/stat.h>

namespace {

using namespace PilotaRegistraDisegno;

constexpr quint32 Seme = 20241124;
constexpr int Uccisioni = 160;

QSqlQuery Interroga(const QString& testo, const QVariantList& valori = {}) {
    return SqlProva::Interroga(ArchivioDisegni, testo, valori);
}

// Every file under the data folder but the drawings' directory and the
// drawings' archive, with its size and time: what the child must not touch.
QMap<QString, QString> FuoriDaiDisegni() {
    QMap<QString, QString> file;
    const QDir radice(RadiceDati);
    const QString disegni = NomiArchivi::SottocartellaDisegni + '/';
    QDirIterator giro(RadiceDati, QDir::Files | QDir::Hidden | QDir::System,
                      QDirIterator::Subdirectories);
    while (giro.hasNext()) {
        const QString relativo = radice.relativeFilePath(giro.next());
        if (relativo.startsWith(disegni) ||
            relativo.startsWith(NomiArchivi::CartellaArchivi + '/' + NomiArchivi::FileDisegni))
            continue;
        file.insert(relativo, QStringLiteral("%1 %2")
                                  .arg(giro.fileInfo().size())
                                  .arg(giro.fileInfo().lastModified().toMSecsSinceEpoch()));
    }
    return file;
}

// Which file stands at `percorso`, and when it was last written.
QByteArray Impronta(const QString& percorso) {
    struct stat s {};
    if (::stat(QFile::encodeName(percorso).constData(), &s) != 0) return {};
    return QByteArray::number(qulonglong(s.st_dev)) + ' ' +
           QByteArray::number(qulonglong(s.st_ino)) + ' ' +
           QByteArray::number(qlonglong(s.st_size)) + ' ' +
           QByteArray::number(qlonglong(s.st_mtim.tv_sec)) + '.' +
           QByteArray::number(qlonglong(s.st_mtim.tv_nsec));
}

// A drawing is known by its name and folder: the driver saves over it.
using Chiave = QPair<QString, int32_t>;

} // namespace

class TestRegistraDisegnoInterrotto : public QObject {
    Q_OBJECT

private slots:
    void salvataggi_uccisi_a_caso_lasciano_il_vecchio_o_il_nuovo_disegno();
};

void TestRegistraDisegnoInterrotto::
    salvataggi_uccisi_a_caso_lasciano_il_vecchio_o_il_nuovo_disegno() {
    AmbienteProva amb; // made by the installer; the child finds it through XDG_DATA_HOME
    const QString archivio = PercorsoArchivioDisegni();
    ApriArchivio(ArchivioDisegni, archivio);
    Interroga(
        QStringLiteral("INSERT INTO TabCartelle (CodiceCartella, NomeCartella) VALUES (?, ?)"),
        {SecondaCartella, NomeSecondaCartella});
    ChiudiArchivio(ArchivioDisegni);
    QVERIFY(QDir().mkpath(PercorsoCartellaDisegni(NomeSecondaCartella, SecondaCartella)));
    const QMap<QString, QString> fuori = FuoriDaiDisegni();

    std::mt19937 caso(Seme);
    qInfo("seme %u, uccisioni %d", Seme, Uccisioni);
    QHash<char, int> perFase;
    QMap<Chiave, int32_t> versioni;                   // the version each drawing holds
    QHash<QString, QPair<QByteArray, int32_t>> viste; // bitmaps checked, by what stat() says
    int salvataggi = 0;
    int ridisegnati = 0;
    int aTransazioneAperta = 0;
    QElapsedTimer durata;
    durata.start();
    for (int giro = 1; giro <= Uccisioni; ++giro) {
        QProcess figlio;
        figlio.setProgram(QStringLiteral(PILOTA_REGISTRA_DISEGNO));
        figlio.setArguments({QString::number(giro)});
        figlio.start();
        QVERIFY(figlio.waitForStarted());
        // Aim at a step of a save, the first or a later one, then wait a
        // little: short steps are hit too, not only the long ones.
        const char bersaglio = Fasi[std::uniform_int_distribution<int>(0, Fasi.size() - 1)(caso)];
        const int primaCompiuti = std::uniform_int_distribution<int>(0, 1)(caso);
        const qint64 giri =
            std::uniform_int_distribution<qint64>(0, giro % 3 == 0 ? 5000 : 400)(caso);
        QByteArray segni;
        // Where save number n + 1 begins in what the child wrote, -1 before it.
        const auto inizio = [&](int n) {
            qsizetype da = 0;
            for (int i = 0; i < n && da >= 0; ++i) {
                da = segni.indexOf(Salvato, da);
                if (da >= 0) ++da;
            }
            return da;
        };
        for (;;) {
            const qsizetype da = inizio(primaCompiuti);
            if (da >= 0 && segni.indexOf(bersaglio, da) >= 0) break;
            if (!figlio.waitForReadyRead(60000))
                QFAIL(qPrintable(QStringLiteral("il figlio si è fermato: ") +
                                 QString::fromLocal8Bit(figlio.readAllStandardError())));
            segni += figlio.readAllStandardOutput();
        }
        Gira(giri);
        Uccidi(figlio);
        if (QTest::currentTestFailed()) return;
        segni += figlio.readAllStandardOutput();
        QVERIFY(!segni.isEmpty());
        ++perFase[segni.back()];
        if (QFile::exists(archivio + QStringLiteral("-journal"))) ++aTransazioneAperta;

        // What the child finished is known; the save it was in may or may not be in.
        const int32_t compiuti = int32_t(segni.count(Salvato));
        salvataggi += compiuti;
        for (int32_t s = 1; s <= compiuti; ++s) {
            const int32_t v = Versione(giro, s);
            versioni[{Nome(v), Cartella(v)}] = v;
        }
        const int32_t inCorso = Versione(giro, compiuti + 1);
        const Chiave chiaveInCorso{Nome(inCorso), Cartella(inCorso)};

        ApriArchivio(ArchivioDisegni, archivio);
        ridisegnati += RiparaBitmapDisegni();
        QVERIFY2(amb.Scatole.isEmpty(), qPrintable(amb.Scatole.value(0).Testo));
        {
            QSqlQuery q = Interroga(QStringLiteral("PRAGMA integrity_check"));
            QVERIFY(q.next());
            QCOMPARE(q.value(0).toString(), QStringLiteral("ok"));
        }
        QVERIFY(!Interroga(QStringLiteral("PRAGMA foreign_key_check")).next());

        QSqlQuery teste = Interroga(
            QStringLiteral("SELECT d.CodiceDisegno, d.NomeDisegno, d.CodiceCartella, c.NomeCartella"
                           " FROM TabDisegni d JOIN TabCartelle c USING (CodiceCartella)"
                           " WHERE d.CodiceDisegno < 1000000"));
        QSet<QString> bitmap;
        int righe = 0;
        while (teste.next()) {
            ++righe;
            const int32_t codice = teste.value(0).toInt();
            const Chiave chiave{teste.value(1).toString(), teste.value(2).toInt()};
            QList<RecordAzione> lista;
            int32_t numero = 0;
            try {
                LeggiAzioniDisegno(codice, lista, numero);
            } catch (const ErroreZanto& e) {
                QFAIL(qPrintable(QStringLiteral("disegno %1: errore %2 %3")
                                     .arg(codice)
                                     .arg(e.Numero)
                                     .arg(e.Descrizione)));
            }
            const int32_t v = lista.value(1).ColZona;
            const QString dove =
                QStringLiteral("giro %1, disegno %2, versione %3").arg(giro).arg(codice).arg(v);
            // One whole version, the one it held or the one being saved.
            QVERIFY2(numero == Lunghezza(v) && lista == Lista(v), qPrintable(dove));
            QVERIFY2(Nome(v) == chiave.first && Cartella(v) == chiave.second, qPrintable(dove));
            QVERIFY2(v == versioni.value(chiave) || (v == inCorso && chiave == chiaveInCorso),
                     qPrintable(dove));
            versioni[chiave] = v;
            // Its bitmap, whole, of that same version.
            const QString percorso = PercorsoBitmapDisegno(teste.value(3).toString(), chiave.second,
                                                           chiave.first, codice);
            bitmap.insert(percorso);
            // A file already seen whole, and not written since, need not be read again.
            const QByteArray impronta = Impronta(percorso);
            if (!impronta.isEmpty() && viste.value(percorso) == qMakePair(impronta, v)) continue;
            QImageReader lettore(percorso);
            QVERIFY2(lettore.format() == "bmp", qPrintable(dove));
            const QImage immagine = lettore.read();
            QVERIFY2(immagine.size() == QSize(943, 667), qPrintable(dove));
            QVERIFY2(SondePixel::Colore(immagine, SondaX, SondaY) == Colore(v), qPrintable(dove));
            viste.insert(percorso, {impronta, v});
        }
        // No drawing twice, none missing, and nothing in the folders but their bitmaps.
        QCOMPARE(righe, versioni.size());
        QDirIterator giroDisegni(RadiceDati + '/' + NomiArchivi::SottocartellaDisegni,
                                 QDir::Files | QDir::Hidden | QDir::System,
                                 QDirIterator::Subdirectories);
        QSet<QString> presenti;
        while (giroDisegni.hasNext())
            presenti.insert(giroDisegni.next());
        QCOMPARE(presenti, bitmap);
        QCOMPARE(FuoriDaiDisegni(), fuori);
        ChiudiArchivio(ArchivioDisegni);
    }
    QString fasi;
    for (const char f : Fasi)
        fasi += QStringLiteral(" %1:%2").arg(QChar(f)).arg(perFase.value(f));
    qInfo("uccisioni %d in %lld ms; per fase (p prepara, a transazione, b testa, c righe,"
          " d bitmap a parte, e commit, f rinomina, g fine, . tra due):%s",
          Uccisioni, durata.elapsed(), qPrintable(fasi));
    qInfo("%d salvataggi compiuti, %d bitmap ridisegnate, %d a transazione aperta, %lld disegni",
          salvataggi, ridisegnati, aTransazioneAperta, qlonglong(versioni.size()));
    // Every step that can hold a torn save was hit.
    for (const char f : QByteArrayLiteral("cdef"))
        QVERIFY2(perFase.value(f) > 0, QByteArray(1, f).constData());
    QVERIFY(ridisegnati > 0);
    QVERIFY(aTransazioneAperta > 0);
}

QTEST_MAIN(TestRegistraDisegnoInterrotto)
#include "test_registra_disegno_interrotto.moc"
