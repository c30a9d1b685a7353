// A print server that takes the connection and never answers (a scheduler
// hung, a network server gone quiet): the start, the printer list and 132
// hand the service's work to another thread and go on; the ring of a one-key
// user keeps walking on the virtual clock while a page waits; the service's
// silence reaches the user as a message once the bound on the wait has passed.
#include "app/Avvio.h"
#include "app/MenuGenerale.h"
#include "base/Configurazione.h"
#include "drawing/AmbienteDisegno.h"
#include "drawing/GuidaDisegno.h"
#include "printing/SceltaStampanti.h"
#include "printing/ServizioStampa.h"
#include "printing/Stampe.h"
#include "support/Copione.h"

#include "RispostaMessaggi.h"

#include <QApplication>
#include <QElapsedTimer>
#include <QListWidget>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

// What a screen may spend on a press or a start that involves printing, at
// most, under the sanitizers on a busy machine; the service's silence, by
// contrast, lasts a full minute unless a test says otherwise.
constexpr qint64 Limite = 5000;
constexpr int Silenzio = 60000;

} // namespace

class ProvaStampaSenzaRisposta : public QObject, MondoDisegno {
    Q_OBJECT

    QTemporaryDir cartella_;
    int presa_ = -1;

    // 132 in mode 1 with the two questions answered by the one switch: the
    // ring of each stands first on "OK", then on "NO". Returns how long the
    // screen was held.
    qint64 StampaInModoUno() {
        Copione c(*orologio);
        c.Tasto(Qt::Key_Return).Tasto(Qt::Key_Return);
        QElapsedTimer tempo;
        tempo.start();
        PremiCon(132, c);
        return tempo.elapsed();
    }

private slots:
    void initTestCase() {
        // A socket that listens and never accepts: each connection waits in
        // its queue, each request for ever.
        const QByteArray percorso = QFile::encodeName(cartella_.filePath(QStringLiteral("s")));
        sockaddr_un indirizzo{};
        indirizzo.sun_family = AF_UNIX;
        QVERIFY(size_t(percorso.size()) < sizeof indirizzo.sun_path);
        qstrncpy(indirizzo.sun_path, percorso.constData(), sizeof indirizzo.sun_path);
        presa_ = ::socket(AF_UNIX, SOCK_STREAM, 0);
        QVERIFY(presa_ >= 0);
        QCOMPARE(::bind(presa_, reinterpret_cast<sockaddr*>(&indirizzo), sizeof indirizzo), 0);
        QCOMPARE(::listen(presa_, 64), 0);
        qputenv("CUPS_SERVER", percorso);
        ElencoStampanti = nullptr;
    }
    void cleanupTestCase() {
        if (presa_ >= 0) ::close(presa_);
    }
    void init() {
        Prepara();
        AttesaServizioStampa = Silenzio;
    }
    void cleanup() {
        StampanteProgramma.clear();
        StampanteScelta.clear();
        StampanteDiSistema.clear();
        DistruggiMenùGenerale();
        Libera();
    }

    void l_avvio_non_aspetta_il_servizio() {
        amb.reset();
        amb = std::make_unique<AmbienteProva>();
        QElapsedTimer tempo;
        tempo.start();
        QCOMPARE(AvviaZanto(), -1);
        QVERIFY2(tempo.elapsed() < Limite, qPrintable(QString::number(tempo.elapsed())));
        QVERIFY(MenùGeneraleAperto() != nullptr);
    }

    void la_lista_delle_stampanti_si_apre_subito() {
        bool aperta = false;
        Copione c(*orologio);
        c.Esegui([&] {
            auto* d = dynamic_cast<SceltaStampanti*>(QApplication::activeModalWidget());
            aperta = d != nullptr;
            if (d != nullptr) QTest::keyClick(d->ListaStampanti, Qt::Key_Escape);
        });
        c.Avvia();
        QElapsedTimer tempo;
        tempo.start();
        ApriSceltaStampanti(nullptr);
        QVERIFY2(tempo.elapsed() < Limite, qPrintable(QString::number(tempo.elapsed())));
        QVERIFY(aperta);
    }

    void la_stampa_non_ferma_l_anello() {
        a = GuidaDisegno::Apri(1);
        const qint64 tenuto = StampaInModoUno();
        QVERIFY2(tenuto < Limite, qPrintable(QString::number(tenuto)));
        QVERIFY(amb->Scatole.isEmpty());
        // The page still waits for the service; the ring walks on, a dwell a button.
        QList<int16_t> tappe{a->Motore.TastoCorrente};
        for (int i = 0; i < 3; ++i) {
            orologio->Avanza(TempoLatenzaScansione);
            QVERIFY2(!tappe.contains(a->Motore.TastoCorrente),
                     qPrintable(QString::number(a->Motore.TastoCorrente)));
            tappe << a->Motore.TastoCorrente;
        }
    }

    void il_silenzio_del_servizio_e_detto() {
        AttesaServizioStampa = 300;
        a = GuidaDisegno::Apri(1);
        RispostaMessaggi messaggi;
        QVERIFY(StampaInModoUno() < Limite);
        QTRY_VERIFY_WITH_TIMEOUT(!messaggi.Testi.isEmpty(), 30000);
        QCOMPARE(messaggi.Testi.constFirst(),
                 QStringLiteral("ATTENZIONE! Il servizio di stampa non risponde: la STAMPA del "
                                "Disegno non è stata eseguita. Premere «OK» per proseguire!"));
    }
};

QTEST_MAIN(ProvaStampaSenzaRisposta)
#include "test_stampa_senza_risposta.moc"
