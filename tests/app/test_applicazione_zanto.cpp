// The last guard: a fault thrown by any event handler reaches the error box
// through the application object, and the event loop goes on.

#include "app/ApplicazioneZanto.h"
#include "base/GestioneErrori.h"
#include "support/AmbienteProva.h"

#include <QEvent>
#include <QTimer>
#include <QtTest>

#include <stdexcept>

namespace {

const QEvent::Type EventoGuasto = static_cast<QEvent::Type>(QEvent::User + 1);
const QEvent::Type EventoSano = static_cast<QEvent::Type>(QEvent::User + 2);
const QEvent::Type EventoEstraneo = static_cast<QEvent::Type>(QEvent::User + 3);

// An object whose handler fails the way a model call can fail.
class Guastatore : public QObject {
public:
    int Sani = 0;
    bool event(QEvent* e) override {
        if (e->type() == EventoGuasto) throw ErroreZanto{3021, QStringLiteral("Riga assente")};
        if (e->type() == EventoSano) {
            ++Sani;
            return true;
        }
        if (e->type() == EventoEstraneo) throw std::runtime_error("indice fuori dai limiti");
        return QObject::event(e);
    }
};

} // namespace

class TestApplicazioneZanto : public QObject {
    Q_OBJECT

private slots:
    void un_guasto_in_un_evento_arriva_alla_scatola_col_segno_corrente();
    void dopo_il_guasto_il_ciclo_degli_eventi_prosegue();
    void un_guasto_estraneo_diventa_errore_interno();
    void un_guasto_in_un_timer_non_ferma_il_programma();
};

void TestApplicazioneZanto::un_guasto_in_un_evento_arriva_alla_scatola_col_segno_corrente() {
    AmbienteProva amb(false);
    Guastatore g;
    SezioneCorrente = 1264;
    QCoreApplication::postEvent(&g, new QEvent(EventoGuasto));
    QCoreApplication::sendPostedEvents(&g, EventoGuasto);
    QCOMPARE(amb.Scatole.size(), 1);
    QVERIFY(amb.Scatole.at(0).Testo.startsWith(QStringLiteral("ERRORE 3021/1264: ")));
    QVERIFY(amb.Scatole.at(0).Testo.contains(QStringLiteral("Riga assente")));
    QCOMPARE(EsitoErrore, int16_t(3));
}

void TestApplicazioneZanto::dopo_il_guasto_il_ciclo_degli_eventi_prosegue() {
    AmbienteProva amb(false);
    Guastatore g;
    QCoreApplication::postEvent(&g, new QEvent(EventoSano));
    QCoreApplication::postEvent(&g, new QEvent(EventoGuasto));
    QCoreApplication::postEvent(&g, new QEvent(EventoSano));
    QEventLoop ciclo;
    QCoreApplication::postEvent(&ciclo, new QEvent(QEvent::Quit));
    ciclo.exec();
    QCOMPARE(g.Sani, 2);
    QCOMPARE(amb.Scatole.size(), 1);
}

void TestApplicazioneZanto::un_guasto_estraneo_diventa_errore_interno() {
    AmbienteProva amb(false);
    Guastatore g;
    QCoreApplication::postEvent(&g, new QEvent(EventoEstraneo));
    QCoreApplication::postEvent(&g, new QEvent(EventoSano));
    QCoreApplication::sendPostedEvents(&g, 0);
    QCOMPARE(g.Sani, 1);
    QCOMPARE(amb.Scatole.size(), 1);
    QVERIFY(amb.Scatole.at(0).Testo.startsWith(QStringLiteral("ERRORE 51/")));
    QVERIFY(amb.Scatole.at(0).Testo.contains(QStringLiteral("indice fuori dai limiti")));
}

void TestApplicazioneZanto::un_guasto_in_un_timer_non_ferma_il_programma() {
    AmbienteProva amb(false);
    int scatti = 0;
    QTimer timer;
    timer.setInterval(0);
    QEventLoop ciclo;
    QObject::connect(&timer, &QTimer::timeout, &ciclo, [&] {
        ++scatti;
        if (scatti == 1) throw ErroreZanto{6, QStringLiteral("Overflow")};
        timer.stop();
        ciclo.quit();
    });
    timer.start();
    ciclo.exec();
    QCOMPARE(scatti, 2);
    QCOMPARE(amb.Scatole.size(), 1);
    QVERIFY(amb.Scatole.at(0).Testo.startsWith(QStringLiteral("ERRORE 6/")));
}

int main(int argc, char* argv[]) {
    ApplicazioneZanto app(argc, argv);
    TestApplicazioneZanto prova;
    return QTest::qExec(&prova, argc, argv);
}

#include "test_applicazione_zanto.moc"
