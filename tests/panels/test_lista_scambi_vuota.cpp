// The list of drawings to import, as a new user finds it with nothing in the
// files folder: its first line says so and cannot be picked; with a file there
// the line is the file's.
#include "archive/Archivi.h"
#include "archive/FileScambio.h"
#include "base/Bip.h"
#include "base/Configurazione.h"
#include "panels/Elaborazioni.h"
#include "panels/ProvaLista.h"
#include "panels/ProvaPannello.h"
#include "panels/QuadroMostraLista.h"
#include "support/AmbienteProva.h"
#include "support/MondoProva.h"
#include "support/OrologioVirtuale.h"
#include "support/Sonde.h"

#include <QDir>
#include <QFile>
#include <QtTest>

#include <memory>

class ProvaListaScambiVuota : public QObject, MondoProva {
    Q_OBJECT

    bool Apri(Copione& c) { return ApriLista(c); }

private slots:
    void init() {
        Prepara();
        ModalitàFunzionamento = 4;
        TipoLista = GenereLista::Scambi;
    }
    void cleanup() { Libera(); }

    void vuota_lo_dice_e_la_riga_non_si_sceglie() {
        QString prima, seconda, detta;
        int16_t scelta = -1;
        int bip = 0;
        Copione c(*orologio);
        c.Esegui([&] {
            prima = Lista()->Tasti.value(101)->text();
            seconda = Lista()->Tasti.value(102)->text();
            detta = Lista()->NomeParlato(101);
            Schermata(Lista(), QStringLiteral("importa-lista-vuota"));
            bip = ContatoreBip;
            Lista()->ClickTasto(101);
            scelta = Lista()->RigaScelta;
            bip = ContatoreBip - bip;
        });
        QVERIFY(Apri(c));
        QCOMPARE(prima, TestoListaScambiVuota);
        QCOMPARE(detta, TestoListaScambiVuota);
        QCOMPARE(seconda, QString());
        QCOMPARE(scelta, int16_t(0));
        QCOMPARE(bip, 1);
        QVERIFY(VoceScelta.isEmpty());
    }

    void con_un_file_la_riga_e_il_file() {
        QDir().mkpath(PercorsoFile());
        QFile f(PercorsoFile() + QStringLiteral("/casa") + EstensioneScambio);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write("x");
        f.close();
        QString prima;
        Copione c(*orologio);
        c.Esegui([&] { prima = Lista()->Tasti.value(101)->text(); });
        QVERIFY(Apri(c));
        QVERIFY2(prima.startsWith(QStringLiteral("casa")), qPrintable(prima));
    }
};

QTEST_MAIN(ProvaListaScambiVuota)
#include "test_lista_scambi_vuota.moc"
