// The exchange file reader against a minute of damaged files: real exchange
// files with flipped bits, overwritten runs, pages swapped and zeroed, header
// fields changed. Each must be read or refused with its reason, and nothing
// else: no crash, no other exception, no file written beside it.
#include "app/MenuGenerale.h"
#include "archive/Archivi.h"
#include "archive/ArchivioAzioni.h"
#include "archive/FileScambio.h"
#include "archive/ImportaScambio.h"
#include "base/Utilita.h"
#include "model/LimitiTesto.h"
#include "model/Superficie.h"
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

// Drawings made to be hard for the replay rather than for the file: texts
// heavy with carriage returns, at and beyond the measure of a text, and
// pictures whose bytes do not decode.
class Generatore {
public:
    explicit Generatore(quint64 seme) : caso_(seme) {}

    ContenutoScambio Prossimo(const QString& cartella) {
        ContenutoScambio c = ScambioDiProva(cartella + QStringLiteral("/f.png"));
        const QByteArray buona = c.Immagini.at(0).Dati;
        c.Azioni[3].Testo = Testo();
        c.Immagini[0].Dati = Figura(buona);
        for (int k = Tra(0, 4); k > 0; --k) {
            RecordAzione a = c.Azioni.at(4);
            a.NomeFileImmagine = cartella + QStringLiteral("/g%1.png").arg(k);
            c.Azioni << a;
            c.Immagini.append({a.NomeFileImmagine, Figura(buona)});
        }
        c.NumeroAzioni = int32_t(c.Azioni.size()) - 1;
        return c;
    }

private:
    int Tra(int da, int a) { return std::uniform_int_distribution<int>(da, a)(caso_); }

    QString Testo() {
        switch (Tra(0, 4)) {
        case 0: // carriage returns alone, around the measure of lines
            return QString(Tra(MassimoRigheTesto - 2, MassimoRigheTesto + 2), QChar(u'\r')) +
                   (Tra(0, 1) ? QStringLiteral("x") : QStringLiteral("  "));
        case 1: // the review's 40,000
            return QString(Tra(30000, 45000), QChar(u'\r'));
        case 2: { // a mixture, up to the measure of characters and past it
            QString t;
            const int n = Tra(1, int(MassimoCaratteriTesto) + 10);
            t.reserve(n);
            static constexpr char16_t pezzi[] = {u'a', u'\r', u'\n', u' ', u'\r'};
            for (int i = 0; i < n; ++i)
                t += QChar(pezzi[Tra(0, 4)]);
            return t;
        }
        case 3: // line feeds only, which the replay does not cut on
            return QString(Tra(1, 5000), QChar(u'\n')) + QStringLiteral("fine");
        default:
            return QStringLiteral("Ciao\r\nmondo");
        }
    }

    QByteArray Figura(const QByteArray& buona) {
        switch (Tra(0, 4)) {
        case 0:
            return buona.left(Tra(1, int(buona.size()) - 1)); // cut short
        case 1: {                                             // noise after a PNG's signature
            QByteArray d = buona.left(8);
            for (int i = Tra(0, 200); i > 0; --i)
                d += char(Tra(0, 255));
            return d;
        }
        case 2: { // a byte changed inside
            QByteArray d = buona;
            d[Tra(8, int(d.size()) - 1)] = char(Tra(0, 255));
            return d;
        }
        default:
            return buona;
        }
    }

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

    // Whatever the reader takes, the drawing takes too: the import stores it
    // and draws it with no error box, every text cut in lines as the replay
    // cuts it and every picture read back from the files folder.
    void disegni_difficili_letti_solo_se_il_disegno_li_traccia() {
        AmbienteProva amb;
        amb.ApriArchivi();
        CodiceCartellaAttiva = 1;
        NomeCartellaAttiva = NomiArchivi::CartellaSistemaDisegni;
        QTemporaryDir cartella;
        const QString file = cartella.filePath(QStringLiteral("difficile.zanto"));
        Generatore generatore(Seme + 1);
        qint64 letti = 0;
        qint64 rifiutati = 0;
        QElapsedTimer orologio;
        orologio.start();
        while (orologio.elapsed() < DurataMs() / 2 || letti + rifiutati < 20) {
            const ContenutoScambio scritto = generatore.Prossimo(cartella.path());
            try {
                ScriviFileScambio(file, scritto);
            } catch (const ErroreZanto& e) {
                QFAIL(qPrintable(
                    QStringLiteral("scrittura: %1 %2").arg(e.Numero).arg(e.Descrizione)));
            }
            ContenutoScambio letto;
            try {
                letto = LeggiFileScambio(file);
            } catch (const ScambioRifiutato& r) {
                QVERIFY(!r.Motivo.isEmpty());
                ++rifiutati;
                continue;
            }
            ++letti;
            try {
                for (int32_t i = 1; i <= letto.NumeroAzioni; ++i) {
                    TestoDaDividere = letto.Azioni.at(i).Testo;
                    DividiTestoInRighe();
                }
                const int32_t codice =
                    RegistraDisegnoImportato(letto, QStringLiteral("Difficile %1").arg(letti));
                QVERIFY(codice > 0);
                QList<RecordAzione> azioni;
                int32_t numero = 0;
                LeggiAzioniDisegno(codice, azioni, numero);
                for (int32_t i = 1; i <= numero; ++i)
                    if (azioni.at(i).TipoAzione == TipiAzione::Immagine)
                        QVERIFY(!Superficie::LoadPicture(azioni.at(i).NomeFileImmagine).isNull());
                QVERIFY2(amb.Scatole.isEmpty(), qPrintable(amb.Scatole.value(0).Testo));
            } catch (const ErroreZanto& e) {
                QFAIL(qPrintable(QStringLiteral("dopo: %1 %2").arg(e.Numero).arg(e.Descrizione)));
            }
        }
        std::printf("difficili letti: %lld, rifiutati: %lld\n", static_cast<long long>(letti),
                    static_cast<long long>(rifiutati));
        QVERIFY(letti > 0);
        QVERIFY(rifiutati > 0);
    }
};

QTEST_MAIN(ProvaFileScambioFuzz)
#include "test_file_scambio_fuzz.moc"
