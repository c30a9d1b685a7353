// A whole short session: a fresh data folder from the installer, the real start
// routine, the ring walking in mode 1, F12, the arrows to "Esci", Enter.
#include "app/Avvio.h"
#include "app/MenuGenerale.h"
#include "archive/Archivi.h"
#include "base/Configurazione.h"
#include "support/AmbienteProva.h"
#include "support/Copione.h"
#include "support/OrologioVirtuale.h"
#include "support/Sonde.h"

#include <QFile>
#include <QTimer>
#include <QtTest>

class ProvaPercorsoCompleto : public QObject {
    Q_OBJECT

private slots:
    void dal_primo_avvio_a_esci_con_i_tasti() {
        AmbienteProva amb; // the installer has made the data folder
        OrologioVirtuale orologio;
        QCOMPARE(AvviaZanto(), -1);
        QCOMPARE(ModalitàFunzionamento, int16_t(1));
        QCOMPARE(TempoLatenzaScansione, 1000);

        QList<int16_t> giro;
        auto nota = [&] { giro.append(MenùGeneraleAperto()->Motore.TastoCorrente); };
        Copione c(orologio);
        c.Esegui(nota);
        for (int i = 0; i < 3; ++i)
            c.Attendi(1000).Esegui(nota);
        c.Tasto(Qt::Key_F12).Attendi(3000).Esegui(nota); // the ring stops where it stands
        c.Tasto(Qt::Key_Right).Esegui(nota).Tasto(Qt::Key_Return);
        c.Avvia();
        // A guard, should the session ever stall: the test fails instead of hanging.
        QTimer::singleShot(60000, [] { QCoreApplication::exit(99); });
        QCOMPARE(QApplication::exec(), 0);

        QVERIFY(c.Finito());
        QVERIFY(c.Problemi.isEmpty());
        QCOMPARE(giro, (QList<int16_t>{101, 102, 103, 104, 104, 105}));
        DistruggiMenùGenerale();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

        QVERIFY(!QSqlDatabase::contains(ArchivioConfigurazione));
        QCOMPARE(LeggiValore(PercorsoConfigurazione(),
                             QStringLiteral("SELECT \"ModalitàFunzionamento\" FROM "
                                            "ConfigurazioniGenerali"))
                     .toInt(),
                 4);
        QFile crt(PercorsoCartellaAttiva());
        QVERIFY(crt.open(QIODevice::ReadOnly));
        // A new user starts in the system folder, and leaves it active.
        QCOMPARE(crt.readAll(), QByteArray(" 1 \r\n"));
    }
};

QTEST_MAIN(ProvaPercorsoCompleto)
#include "test_percorso_completo.moc"
