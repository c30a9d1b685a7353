// The rich text reader against a minute of damaged documents: real files with
// flipped bits, bytes put in and taken out, stray braces and backslashes, cut
// short and spliced together. Each must give text or the program's error, and
// nothing else: no crash, no other exception, no runaway memory.

#include "base/GestioneErrori.h"
#include "text/LettoreRtf.h"

#include <QDir>
#include <QElapsedTimer>
#include <QFile>
#include <QtTest>

#include <cstdio>
#include <random>
#include <vector>

namespace {

constexpr quint64 Seme = 20241227;
constexpr qint64 DurataMs = 60 * 1000;

class Mutatore {
public:
    Mutatore(std::vector<QByteArray> documenti, quint64 seme)
        : corpus(std::move(documenti)), caso(seme) {}

    QByteArray Prossimo() {
        QByteArray dati = Scegli();
        const int quante = Tra(1, 4);
        for (int k = 0; k < quante; ++k)
            Muta(dati);
        return dati;
    }

private:
    int Tra(int da, int a) { return std::uniform_int_distribution<int>(da, a)(caso); }
    qsizetype Posto(const QByteArray& dati) {
        return std::uniform_int_distribution<qsizetype>(0, dati.size())(caso);
    }
    const QByteArray& Scegli() { return corpus[size_t(Tra(0, int(corpus.size()) - 1))]; }

    QByteArray Pezzo() {
        static const char* const pezzi[] = {"{",
                                            "}",
                                            "\\",
                                            "\\'",
                                            "\\'4",
                                            "\\u",
                                            "\\u-",
                                            "\\uc",
                                            "\\bin",
                                            "\\bin-1 ",
                                            "\\bin99999999 ",
                                            "\\*",
                                            "\\par ",
                                            "\\fonttbl",
                                            "\\f",
                                            "\\fcharset238 ",
                                            "\\ansicpg936 ",
                                            "\\ansicpg1250 ",
                                            "\\pict ",
                                            "\\uc9 ",
                                            "\\u55357?",
                                            "\\u-8704?",
                                            "{\\*\\x ",
                                            "\\'d3\\'a1",
                                            "\\'e8",
                                            "\\uc0\\u8804 "};
        QByteArray pezzo = pezzi[Tra(0, int(std::size(pezzi)) - 1)];
        if (Tra(0, 2) == 0) pezzo += QByteArray::number(Tra(-70000, 70000));
        return pezzo;
    }

    void Muta(QByteArray& dati) {
        switch (Tra(0, 7)) {
        case 0: // bit flips
            for (int k = Tra(1, 8); k > 0 && !dati.isEmpty(); --k) {
                const qsizetype p = Posto(dati) % dati.size();
                dati[p] = char(dati[p] ^ (1 << Tra(0, 7)));
            }
            break;
        case 1: { // random bytes put in
            QByteArray nuovi;
            for (int k = Tra(1, 16); k > 0; --k)
                nuovi += char(Tra(0, 255));
            dati.insert(Posto(dati), nuovi);
            break;
        }
        case 2: { // bytes taken out
            const qsizetype da = Posto(dati);
            dati.remove(da, Tra(1, 64));
            break;
        }
        case 3: // stray braces
            for (int k = Tra(1, 5); k > 0; --k)
                dati.insert(Posto(dati), Tra(0, 1) ? '{' : '}');
            break;
        case 4: // backslashes and control words where they do not belong
            for (int k = Tra(1, 3); k > 0; --k)
                dati.insert(Posto(dati), Tra(0, 1) ? QByteArray("\\") : Pezzo());
            break;
        case 5: // cut short
            dati.truncate(Posto(dati));
            break;
        case 6: { // the head of one document on the tail of another
            const QByteArray& altro = Scegli();
            dati = dati.left(Posto(dati)) + altro.mid(Posto(altro));
            break;
        }
        case 7: { // a run of groups opened or closed
            const char parentesi = Tra(0, 1) ? '{' : '}';
            dati.insert(Posto(dati), QByteArray(Tra(1, 3000), parentesi));
            break;
        }
        }
    }

    std::vector<QByteArray> corpus;
    std::mt19937_64 caso;
};

} // namespace

class ProvaLettoreRtfFuzz : public QObject {
    Q_OBJECT

private slots:
    void documenti_guasti_danno_testo_o_errore() {
        std::vector<QByteArray> documenti;
        const QDir cartella(QStringLiteral(CARTELLA_RTF));
        for (const QString& nome : cartella.entryList({QStringLiteral("*.rtf")}, QDir::Files)) {
            QFile f(cartella.filePath(nome));
            QVERIFY(f.open(QIODevice::ReadOnly));
            documenti.push_back(f.readAll());
        }
        QVERIFY(documenti.size() >= 25);

        std::printf("seme: %llu\n", static_cast<unsigned long long>(Seme));
        std::fflush(stdout);
        Mutatore mutatore(std::move(documenti), Seme);
        qint64 prove = 0;
        qint64 letti = 0;
        qint64 errori = 0;
        QElapsedTimer orologio;
        orologio.start();
        while (orologio.elapsed() < DurataMs) {
            const QByteArray dati = mutatore.Prossimo();
            ++prove;
            try {
                const QString testo = TestoDaRtf(dati);
                // The text is never longer than the bytes it comes from.
                QVERIFY2(testo.size() <= dati.size(), qPrintable(QString::number(prove)));
                ++letti;
            } catch (const ErroreZanto& e) {
                QVERIFY2(e.Numero == 321, qPrintable(QString::number(e.Numero)));
                QVERIFY(!e.Descrizione.isEmpty());
                ++errori;
            }
        }
        std::printf("prove: %lld, lette: %lld, rifiutate: %lld\n", static_cast<long long>(prove),
                    static_cast<long long>(letti), static_cast<long long>(errori));
        // Both ends of the reader were reached, not only its refusals.
        QVERIFY(letti > 0);
        QVERIFY(errori > 0);
    }
};

QTEST_GUILESS_MAIN(ProvaLettoreRtfFuzz)
#include "test_lettore_rtf_fuzz.moc"
