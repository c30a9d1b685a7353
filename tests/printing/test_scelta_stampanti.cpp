// The printer list, opened from the configuration form's "Stampante": what it
// shows, how a name is chosen, confirmed, kept in the configuration archive
// and read back at the next start, and what cancelling leaves.
#include "app/Avvio.h"
#include "app/ConfigurazioniGenerali.h"
#include "archive/RigaConfigurazione.h"
#include "base/Bip.h"
#include "printing/SceltaStampanti.h"
#include "printing/Stampe.h"
#include "support/Copione.h"
#include "support/MondoMenu.h"

#include <QApplication>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QtTest>

namespace {

// The printers this machine pretends to have, in the system's order.
QStringList Sistema;

SceltaStampanti* Aperta() {
    return dynamic_cast<SceltaStampanti*>(QApplication::activeModalWidget());
}

void Premi(QWidget* w, Qt::Key tasto) {
    QTest::keyClick(w, tasto);
}

// The row as a new start would read it.
QString StampanteArchiviata() {
    const QString inMemoria = StampanteScelta;
    LeggiConfigurazione();
    const QString letta = StampanteScelta;
    StampanteScelta = inMemoria;
    return letta;
}

} // namespace

class ProvaSceltaStampanti : public QObject, MondoMenu {
    Q_OBJECT

    // The configuration form from the menu, in mode 4.
    ConfigurazioniGenerali* Configurazioni() {
        MenuGenerale* m = Menu(4);
        QTest::mouseClick(m->Tasti.value(104), Qt::LeftButton);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        return ConfigurazioniAperte();
    }
    // "Stampante" on the form, with `passi` acting on the list while it is open.
    bool Scegli(ConfigurazioniGenerali* c, const std::function<void(SceltaStampanti*)>& passi) {
        bool aperta = false;
        Copione s(*orologio);
        s.Esegui([&] {
            SceltaStampanti* d = Aperta();
            aperta = d != nullptr;
            if (d == nullptr) return;
            passi(d);
            // A list still open would hold the test: it goes.
            if (Aperta() == d) d->reject();
        });
        s.Avvia();
        QTest::mouseClick(c->TastoStampante, Qt::LeftButton);
        return s.Finito() && aperta;
    }

private slots:
    void initTestCase() {
        ElencoStampanti = [] { return Sistema; };
    }
    void init() {
        Prepara();
        Sistema = {QStringLiteral("Ufficio"), QStringLiteral("Aula 2"),
                   QStringLiteral("Casa « PDF »")};
        StampanteDiSistema = QStringLiteral("Aula 2");
        StampanteScelta.clear();
        StampanteProgramma.clear();
    }
    void cleanup() { Libera(); }

    void si_apre_con_l_elenco_e_la_stampante_attiva() {
        ConfigurazioniGenerali* c = Configurazioni();
        QVERIFY(c->ScrittaStampante->text().contains(QStringLiteral("« Aula 2 »")));
        QStringList righe;
        QString etichetta;
        int corrente = -1;
        QString titolo;
        QVERIFY(Scegli(c, [&](SceltaStampanti* d) {
            titolo = d->windowTitle();
            for (int i = 0; i < d->ListaStampanti->count(); ++i)
                righe << d->ListaStampanti->item(i)->text();
            corrente = d->ListaStampanti->currentRow();
            etichetta = d->ScrittaStampanteAttiva->text();
        }));
        QCOMPARE(titolo, QStringLiteral("Programma «ZANTO» - SCELTA STAMPANTE"));
        QCOMPARE(righe, Sistema);
        // Nothing chosen yet: the label shows the system's printer, not the first
        // line, and its line is the current one.
        QCOMPARE(corrente, 1);
        QCOMPARE(etichetta, QStringLiteral("Aula 2"));
        QCOMPARE(StampanteScelta, QString());
    }

    void le_frecce_e_invio_scelgono_e_archiviano() {
        ConfigurazioniGenerali* c = Configurazioni();
        QString dopoFreccia;
        QVERIFY(Scegli(c, [&](SceltaStampanti* d) {
            Premi(d->ListaStampanti, Qt::Key_Down);
            Premi(d->ListaStampanti, Qt::Key_Down);
            dopoFreccia = d->ScrittaStampanteAttiva->text();
            Premi(d->ListaStampanti, Qt::Key_Return);
        }));
        QCOMPARE(dopoFreccia, QStringLiteral("Casa « PDF »"));
        QCOMPARE(StampanteScelta, QStringLiteral("Casa « PDF »"));
        QCOMPARE(StampanteProgramma, QStringLiteral("Casa « PDF »"));
        QCOMPARE(StampanteArchiviata(), QStringLiteral("Casa « PDF »"));
        QVERIFY(c->ScrittaStampante->text().contains(QStringLiteral("« Casa « PDF » »")));
        // The form's own settings are untouched and nothing is left to save.
        QCOMPARE(c->ModificheEffettuate, int16_t(0));
    }

    void invio_sulla_lista_appena_aperta_tiene_la_stampante_attiva() {
        StampanteScelta = QStringLiteral("Aula 2");
        ConfigurazioniGenerali* c = Configurazioni();
        QVERIFY(Scegli(c, [&](SceltaStampanti* d) { Premi(d->ListaStampanti, Qt::Key_Return); }));
        QCOMPARE(StampanteScelta, QStringLiteral("Aula 2"));
        // A click on the highlighted first line makes it the one confirmed.
        QVERIFY(Scegli(c, [&](SceltaStampanti* d) {
            QListWidgetItem* prima = d->ListaStampanti->item(0);
            QTest::mouseClick(d->ListaStampanti->viewport(), Qt::LeftButton, Qt::NoModifier,
                              d->ListaStampanti->visualItemRect(prima).center());
            Premi(d->ListaStampanti, Qt::Key_Return);
        }));
        QCOMPARE(StampanteScelta, QStringLiteral("Ufficio"));
        QCOMPARE(StampanteArchiviata(), QStringLiteral("Ufficio"));
    }

    void invio_e_frecce_anche_con_il_fuoco_fuori_dalla_lista() {
        ConfigurazioniGenerali* c = Configurazioni();
        int corrente = -1;
        QString dopoFreccia;
        QVERIFY(Scegli(c, [&](SceltaStampanti* d) {
            // The keys come to the form itself, as when nothing gave the list the focus.
            d->ListaStampanti->clearFocus();
            corrente = d->ListaStampanti->currentRow();
            Premi(d, Qt::Key_Down);
            dopoFreccia = d->ScrittaStampanteAttiva->text();
            Premi(d, Qt::Key_Return);
        }));
        QCOMPARE(corrente, 1);
        QCOMPARE(dopoFreccia, QStringLiteral("Casa « PDF »"));
        QCOMPARE(StampanteScelta, QStringLiteral("Casa « PDF »"));
        QCOMPARE(StampanteArchiviata(), QStringLiteral("Casa « PDF »"));
        // Esc there is "Annulla".
        bool alzata = false;
        QVERIFY(Scegli(c, [&](SceltaStampanti* d) {
            d->ListaStampanti->clearFocus();
            Premi(d, Qt::Key_Escape);
            alzata = d->Annullata;
        }));
        QVERIFY(alzata);
    }

    void il_tasto_di_conferma_ripete_il_nome_dell_etichetta() {
        StampanteScelta = QStringLiteral("Ufficio");
        ConfigurazioniGenerali* c = Configurazioni();
        QVERIFY(Scegli(c, [&](SceltaStampanti* d) {
            QTest::mouseClick(d->TastoSceltaStampante[0], Qt::LeftButton);
        }));
        QCOMPARE(StampanteScelta, QStringLiteral("Ufficio"));
        QCOMPARE(StampanteArchiviata(), QStringLiteral("Ufficio"));
    }

    void etichetta_vuota_bip_e_la_lista_resta() {
        StampanteDiSistema.clear();
        Sistema.clear();
        ConfigurazioniGenerali* c = Configurazioni();
        bool ancoraAperta = false;
        bool fuocoSullaLista = false;
        int bip = 0;
        QVERIFY(Scegli(c, [&](SceltaStampanti* d) {
            const int prima = ContatoreBip;
            d->ScrittaStampanteAttiva->setText(QStringLiteral("   "));
            QTest::mouseClick(d->TastoSceltaStampante[0], Qt::LeftButton);
            bip = ContatoreBip - prima;
            ancoraAperta = Aperta() == d;
            fuocoSullaLista = d->focusWidget() == d->ListaStampanti;
        }));
        QCOMPARE(bip, 1);
        QVERIFY(ancoraAperta);
        QVERIFY(fuocoSullaLista);
        QCOMPARE(StampanteScelta, QString());
        QCOMPARE(StampanteArchiviata(), QString());
        QVERIFY(c->ScrittaStampante->text().contains(QStringLiteral("« nessuna »")));
    }

    void annulla_lascia_la_scelta_com_era() {
        StampanteScelta = QStringLiteral("Ufficio");
        StampanteProgramma = QStringLiteral("Ufficio");
        RegistraStampanteScelta();
        ConfigurazioniGenerali* c = Configurazioni();
        bool alzata = false;
        QVERIFY(Scegli(c, [&](SceltaStampanti* d) {
            Premi(d->ListaStampanti, Qt::Key_Down);
            QTest::mouseClick(d->TastoSceltaStampante[2], Qt::LeftButton);
            alzata = d->Annullata;
        }));
        QVERIFY(alzata);
        QCOMPARE(StampanteScelta, QStringLiteral("Ufficio"));
        QCOMPARE(StampanteProgramma, QStringLiteral("Ufficio"));
        QCOMPARE(StampanteArchiviata(), QStringLiteral("Ufficio"));
        // Esc on the list is "Annulla" too.
        QVERIFY(Scegli(c, [&](SceltaStampanti* d) {
            Premi(d->ListaStampanti, Qt::Key_Down);
            Premi(d->ListaStampanti, Qt::Key_Escape);
        }));
        QCOMPARE(StampanteScelta, QStringLiteral("Ufficio"));
        QCOMPARE(StampanteArchiviata(), QStringLiteral("Ufficio"));
    }

    // With no default printer the page goes to the system's first, and the
    // form names it: "nessuna" only when the system has none.
    void senza_predefinita_la_riga_dice_quella_che_stampa() {
        StampanteDiSistema.clear();
        ConfigurazioniGenerali* c = Configurazioni();
        QCOMPARE(StampanteInUso(), QStringLiteral("Ufficio"));
        QCOMPARE(c->ScrittaStampante->text(), QStringLiteral("Stampante attiva:  « Ufficio »"));
        // The list's label names it too, and Enter on the list just opened keeps it.
        QString etichetta;
        QVERIFY(Scegli(c, [&](SceltaStampanti* d) {
            etichetta = d->ScrittaStampanteAttiva->text();
            Premi(d->ListaStampanti, Qt::Key_Return);
        }));
        QCOMPARE(etichetta, QStringLiteral("Ufficio"));
        QCOMPARE(StampanteScelta, QStringLiteral("Ufficio"));
        StampanteProgramma = QStringLiteral("Casa « PDF »");
        QCOMPARE(StampanteInUso(), StampanteProgramma);
    }

    void scegli_non_fa_nulla() {
        ConfigurazioniGenerali* c = Configurazioni();
        bool ancoraAperta = false;
        QString etichetta;
        QVERIFY(Scegli(c, [&](SceltaStampanti* d) {
            Premi(d->ListaStampanti, Qt::Key_Down);
            QTest::mouseClick(d->TastoSceltaStampante[1], Qt::LeftButton);
            ancoraAperta = Aperta() == d;
            etichetta = d->ScrittaStampanteAttiva->text();
        }));
        QVERIFY(ancoraAperta);
        // The line after the active printer's, as the arrow left it.
        QCOMPARE(etichetta, QStringLiteral("Casa « PDF »"));
        QCOMPARE(StampanteScelta, QString());
    }

    void un_nome_che_il_sistema_non_ha_piu() {
        StampanteScelta = QStringLiteral("Vecchia");
        StampanteProgramma = QStringLiteral("Ufficio");
        ConfigurazioniGenerali* c = Configurazioni();
        QVERIFY(Scegli(c, [&](SceltaStampanti* d) {
            QTest::mouseClick(d->TastoSceltaStampante[0], Qt::LeftButton);
        }));
        // Stored as it stands, while the program keeps printing where it did.
        QCOMPARE(StampanteScelta, QStringLiteral("Vecchia"));
        QCOMPARE(StampanteArchiviata(), QStringLiteral("Vecchia"));
        QCOMPARE(StampanteProgramma, QStringLiteral("Ufficio"));
        QVERIFY(c->ScrittaStampante->text().contains(QStringLiteral("non disponibile")));
    }

    void la_scelta_regge_al_riavvio() {
        StampanteScelta = QStringLiteral("Ufficio");
        RegistraStampanteScelta();
        StampanteScelta.clear();
        LeggiConfigurazione();
        QCOMPARE(StampanteScelta, QStringLiteral("Ufficio"));
        StampanteProgramma.clear();
        QVERIFY(ImpostaStampanteProgramma(StampanteScelta));
        QCOMPARE(StampanteProgramma, QStringLiteral("Ufficio"));
        // Gone from the system by the next start: the system's printer stands.
        Sistema.removeAll(QStringLiteral("Ufficio"));
        StampanteProgramma.clear();
        QVERIFY(!ImpostaStampanteProgramma(StampanteScelta));
        QCOMPARE(StampanteProgramma, QString());
    }
};

QTEST_MAIN(ProvaSceltaStampanti)
#include "test_scelta_stampanti.moc"
