// The exchange file reader against a minute of damaged files: real exchange
// files with flipped bits, overwritten runs, pages swapped and zeroed, header
// fields changed. Each must be read or refused with its reason, and nothing
// else: no crash, no other exception, no file written beside it.
#include "archive/FileScambio.h"
#include "support/AmbienteProva.h"

#include "FileScambioProva.h"

#include <QDir>
#include <QElapsedTimer>
#include <QTemporaryDir>
#include <QtTest>

#include <cstdio>
#include <random>

namespace {

constexpr quint64 Seme = 20261125;

qint64 DurataMs() {
    bool numero = false;
    const qint64 ms = qEnvironmentVariableIntValue("ZANTO_FUZZ_MS", &numero);
    return numero ? ms : 60 * 1000;
}

class Mutatore {
public:
    Mutatore(QByteArray originale, quint64 seme) : originale_(std::move(originale)), caso_(seme) {}

    QByteArray Prossimo() {
        QByteArray dati = originale_;
        for (int k = Tra(1, 4); k > 0 && !dati.isEmpty(); --k)
            Muta(dati);
        return dati;
    }

private:
    int Tra(int da, int a) { return std::uniform_int_distribution<int>(da, a)(caso_); }
    qsizetype Posto(const QByteArray& d) {
        return std::uniform_int_distribution<qsizetype>(0, d.size() - 1)(caso_);
    }

    // Most changes keep the size, so that they pass the header's size test
    // and reach SQLite's pages.
    void Muta(QByteArray& d) {
        switch (Tra(0, 6)) {
        case 0: // bit flips
            for (int k = Tra(1, 8); k > 0; --k) {
                const qsizetype p = Posto(d);
                d[p] = char(d[p] ^ (1 << Tra(0, 7)));
            }
            break;
        case 1: { // a run overwritten with noise
            const qsizetype p = Posto(d);
            for (qsizetype i = p; i < std::min(d.size(), p + Tra(1, 64)); ++i)
                d[i] = char(Tra(0, 255));
            break;
        }
        case 2: { // one page copied over another
            const qsizetype pagine = d.size() / 4096;
            if (pagine < 2) break;
            const qsizetype da = qsizetype(Tra(0, int(pagine) - 1)) * 4096;
            const qsizetype a = qsizetype(Tra(0, int(pagine) - 1)) * 4096;
            d.replace(a, 4096, d.mid(da, 4096));
            break;
        }
        case 3: { // a page zeroed
            const qsizetype pagine = d.size() / 4096;
            if (pagine < 1) break;
            d.replace(qsizetype(Tra(0, int(pagine) - 1)) * 4096, 4096, QByteArray(4096, '\0'));
            break;
        }
        case 4: // a byte of the header's fields
            if (d.size() < 100) break;
            d[Tra(16, 99)] = char(Tra(0, 255));
            break;
        case 5: // extreme values where numbers are kept
            d[Posto(d)] = char(Tra(0, 1) ? 0xFF : 0x7F);
            break;
        case 6: // cut short or padded
            if (Tra(0, 1))
                d.truncate(Posto(d));
            else
                d.append(QByteArray(Tra(1, 8192), char(Tra(0, 255))));
            break;
        }
    }

    QByteArray originale_;
    std::mt19937_64 caso_;
};

} // namespace

class ProvaFileScambioFuzz : public QObject {
    Q_OBJECT

private slots:
    void file_guasti_letti_o_rifiutati() {
        AmbienteProva amb;
        QTemporaryDir cartella;
        const QString buono = cartella.filePath(QStringLiteral("buono.zanto"));
        ScriviFileScambio(buono, ScambioDiProva(cartella.filePath(QStringLiteral("f.png"))));
        QFile f(buono);
        QVERIFY(f.open(QIODevice::ReadOnly));
        Mutatore mutatore(f.readAll(), Seme);
        f.close();

        std::printf("seme: %llu\n", static_cast<unsigned long long>(Seme));
        std::fflush(stdout);
        const QString guasto = cartella.filePath(QStringLiteral("guasto.zanto"));
        qint64 prove = 0;
        qint64 letti = 0;
        qint64 rifiutati = 0;
        QElapsedTimer orologio;
        orologio.start();
        while (orologio.elapsed() < DurataMs()) {
            {
                QFile g(guasto);
                QVERIFY(g.open(QIODevice::WriteOnly | QIODevice::Truncate));
                g.write(mutatore.Prossimo());
            }
            ++prove;
            try {
                const ContenutoScambio c = LeggiFileScambio(guasto);
                QVERIFY(c.NumeroAzioni >= 1 && c.NumeroAzioni == c.Azioni.size() - 1);
                ++letti;
            } catch (const ScambioRifiutato& r) {
                QVERIFY(!r.Motivo.isEmpty());
                ++rifiutati;
            }
        }
        std::printf("prove: %lld, lette: %lld, rifiutate: %lld\n", static_cast<long long>(prove),
                    static_cast<long long>(letti), static_cast<long long>(rifiutati));
        QVERIFY(prove > 100);
        QVERIFY(rifiutati > 0);
        // The reader writes nothing, not even SQLite's journal.
        QCOMPARE(QDir(cartella.path()).entryList(QDir::Files | QDir::Hidden).size(), 2);
    }
};

QTEST_MAIN(ProvaFileScambioFuzz)
#include "test_file_scambio_fuzz.moc"
