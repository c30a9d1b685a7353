// The system's own speech service, where the machine has one: its voices are
// listed, and the program's voice finds the service from its own thread.
#include "input/Voce.h"

#include <QTemporaryDir>
#include <QTextToSpeech>
#include <QtTest>

class ProvaVociSistema : public QObject {
    Q_OBJECT

    // A speech-dispatcher of this test's own, started on demand in a private
    // folder and gone by itself when idle: the user's own is never touched.
    QTemporaryDir cartella_;

private slots:
    void initTestCase() {
        QVERIFY(cartella_.isValid());
        qputenv("XDG_RUNTIME_DIR", cartella_.path().toUtf8());
        if (QTextToSpeech::availableEngines().isEmpty())
            QSKIP("Questa macchina non ha un servizio vocale.");
    }

    void elenca_le_voci_italiane() {
        const QStringList voci = VociDiSistema();
        QVERIFY2(!voci.isEmpty(), "il servizio vocale non ha dato nessuna voce");
        QVERIFY2(voci.join(u' ').contains(QStringLiteral("Italian"), Qt::CaseInsensitive),
                 qPrintable(voci.mid(0, 10).join(QStringLiteral(", "))));
    }

    void la_voce_del_programma_trova_il_servizio() {
        ImpostaVoce(nullptr);
        QTRY_COMPARE_WITH_TIMEOUT(int(VoceCorrente().StatoServizio()),
                                  int(Voce::Servizio::Presente), 20000);
        QVERIFY(!VoceCorrente().StaParlando());
    }
};

QTEST_GUILESS_MAIN(ProvaVociSistema)
#include "test_voci_sistema.moc"
