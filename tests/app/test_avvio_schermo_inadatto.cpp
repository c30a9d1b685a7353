// The start routine on screens the program is not laid out for.
#include "app/Avvio.h"
#include "app/MenuGenerale.h"
#include "archive/Archivi.h"
#include "base/BaseVuoto.h"
#include "base/Configurazione.h"
#include "input/QuadroMessaggi.h"
#include "support/AmbienteProva.h"
#include "support/Copione.h"
#include "support/MondoProva.h"
#include "support/OrologioVirtuale.h"

#include <QtTest>

#include <memory>

namespace {
bool CopertinaVisibile() {
    for (QWidget* w : QApplication::topLevelWidgets())
        if (dynamic_cast<BaseVuoto*>(w) != nullptr && w->isVisible()) return true;
    return false;
}
} // namespace

class ProvaSchermoInadatto : public QObject, MondoProva {
    Q_OBJECT

private slots:
    void init() { PreparaPerLAvvio(); }
    void cleanup() {
        DistruggiMenùGenerale();
        Libera();
    }

    void annulla_all_avviso_chiude_prima_di_aprire_gli_archivi() {
        bool copertina = false;
        bool archivi = true;
        QString testo;
        int16_t tipo = 0, primo = 0;
        Copione c(*orologio);
        c.Esegui([&] {
            copertina = CopertinaVisibile();
            archivi = QSqlDatabase::contains(ArchivioConfigurazione);
            testo = TestoQuadroMessaggi;
            tipo = TipoQuadroMessaggi;
            primo =
                dynamic_cast<QuadroMessaggi*>(FormScansione::InPrimoPiano())->Motore.TastoCorrente;
        });
        // The settings are not read yet: the panel scans with the starting values, mode 1.
        c.Attendi(TempoLatenzaScansione).Tasto(Qt::Key_Return);
        c.Avvia();
        QCOMPARE(AvviaZanto(), 0);
        QVERIFY(c.Finito());
        QVERIFY(copertina); // the cover stands behind the warning
        QVERIFY(!archivi);
        QCOMPARE(tipo, int16_t(2));
        QCOMPARE(primo, int16_t(101));
        QCOMPARE(testo, MessaggiAvvio[2]);
        QVERIFY(testo.endsWith(QStringLiteral("Premere «OK» per proseguire oppure «Abbandona»\rper "
                                              "chiudere il presente Programma!")));
        QCOMPARE(EsitoQuadroMessaggi, int16_t(3));
        QVERIFY(!QSqlDatabase::contains(ArchivioConfigurazione));
        QVERIFY(!QSqlDatabase::contains(ArchivioDisegni));
        QVERIFY(MenùGeneraleAperto() == nullptr);
        QVERIFY(!CopertinaVisibile());
    }

    void ok_all_avviso_prosegue_fino_al_menu() {
        Copione c(*orologio);
        c.Tasto(Qt::Key_Return);
        c.Avvia();
        QCOMPARE(AvviaZanto(), -1);
        QCOMPARE(EsitoQuadroMessaggi, int16_t(1));
        QVERIFY(MenùGeneraleAperto() != nullptr);
        QVERIFY(QSqlDatabase::contains(ArchivioConfigurazione));
    }
};

QTEST_MAIN(ProvaSchermoInadatto)
#include "test_avvio_schermo_inadatto.moc"
