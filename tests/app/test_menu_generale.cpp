// The main menu, worked with keys and the mouse on the virtual clock.
#include "app/ConfigurazioniGenerali.h"
#include "app/MenuGenerale.h"
#include "archive/Archivi.h"
#include "base/Bip.h"
#include "base/Configurazione.h"
#include "base/Utilita.h"
#include "drawing/AmbienteDisegno.h"
#include "input/QuadroMessaggi.h"
#include "panels/Elaborazioni.h"
#include "support/AmbienteProva.h"
#include "support/Copione.h"
#include "support/MondoProva.h"
#include "support/OrologioVirtuale.h"
#include "support/RigheProva.h"
#include "support/Sonde.h"

#include <QFile>
#include <QLabel>
#include <QSqlQuery>
#include <QtTest>

#include <memory>

namespace {

QString LeggiFile(const QString& percorso) {
    QFile f(percorso);
    if (!f.open(QIODevice::ReadOnly)) return QStringLiteral("<assente>");
    return QString::fromLatin1(f.readAll());
}

void ScriviFile(const QString& percorso, const QByteArray& contenuto) {
    QFile f(percorso);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write(contenuto);
}

void AggiungiCartella(int codice, const QString& nome) {
    QSqlQuery q(Archivio(ArchivioDisegni));
    q.prepare(
        QStringLiteral("INSERT INTO TabCartelle (CodiceCartella, NomeCartella) VALUES (?, ?)"));
    q.addBindValue(codice);
    q.addBindValue(nome);
    QVERIFY(q.exec());
}

// "Esci" ends the application's event loops, and every modal loop opened
// after it would end at once: a run of the application's loop starts them again.
void RiapriCicli() {
    QTimer::singleShot(0, qApp, [] { QCoreApplication::exit(0); });
    QCoreApplication::exec();
}

} // namespace

class ProvaMenuGenerale : public QObject, MondoProva {
    Q_OBJECT

    MenuGenerale* Menu(int16_t modo) {
        ModalitàFunzionamento = modo;
        MenuGenerale* menu = CaricaMenùGenerale();
        QCoreApplication::processEvents();
        return menu;
    }

private slots:
    void init() { Prepara(); }
    void cleanup() { LiberaSchermi(); }

    void cinque_tasti_con_le_corone_ai_loro_posti() {
        MenuGenerale* m = Menu(4);
        const int sinistre[] = {405, 3495, 6585, 9690, 12780};
        const QStringList didascalie = {"Disegno", "Cartelle", "Informazioni", "Configurazioni",
                                        "Esci"};
        QCOMPARE(m->Tasti.size(), 5);
        for (int16_t i = 101; i <= 105; ++i) {
            const QRect atteso(qRound(sinistre[i - 101] / 15.0), 18, 138, 70);
            QCOMPARE(m->Tasti.value(i)->geometry(), atteso);
            QVERIFY(m->Corone.value(i)->geometry().contains(atteso));
            QVERIFY(m->Corone.value(i)->geometry() != atteso);
            QCOMPARE(m->Tasti.value(i)->text(), didascalie[i - 101]);
            QCOMPARE(m->Tasti.value(i)->accessibleName(), didascalie[i - 101]);
            QCOMPARE(m->Tasti.value(i)->focusPolicy(), Qt::NoFocus);
        }
        QCOMPARE(m->windowTitle(), QStringLiteral("Programma «ZANTO»"));
    }

    void un_nuovo_menu_parte_dal_primo_tasto_col_verde() {
        MenuGenerale* m = Menu(4);
        QCOMPARE(m->Motore.TastoCorrente, int16_t(101));
        QCOMPARE(CoroneVisibili(*m), QList<int16_t>{101});
        QCOMPARE(ColoreCorona(*m, 101), 0x00FF00u);
        QCOMPARE(TastoPredefinito(*m), int16_t(101));
    }

    void primo_avvio_senza_file_l_etichetta_e_vuota_e_disegno_da_il_messaggio() {
        QVERIFY(QFile::remove(PercorsoCartellaAttiva()));
        MenuGenerale* m = Menu(1);
        QCOMPARE(m->ScrittaCartellaAttiva->text(), QString());
        QCOMPARE(CodiceCartellaAttiva, 0);
        QString testo;
        int16_t tipo = 0;
        Copione c(*orologio);
        c.Esegui([&] {
            testo = TestoQuadroMessaggi;
            tipo = TipoQuadroMessaggi;
        });
        c.Tasto(Qt::Key_Return); // OK
        c.Avvia();
        QVERIFY(PremiTasto(Qt::Key_Return)); // "Disegno" under the ring in mode 1
        QVERIFY(c.Finito());
        QCOMPARE(testo, QStringLiteral("ATTENZIONE!\rNon esiste alcuna Cartella Attiva!\rE' "
                                       "impossibile disegnare!\rE' necessario scegliere prima "
                                       "una Cartella!\rPremere «OK» per proseguire!"));
        QCOMPARE(tipo, int16_t(1));
        QCOMPARE(EsitoQuadroMessaggi, int16_t(1));
        QCOMPARE(ContatoreBip, 2); // the refusal and the panel's own
        // Back in mode 1, the ring walks again from where it stood.
        QCOMPARE(m->Motore.ScansioneAttiva, int16_t(1));
        orologio->Avanza(1000);
        QCOMPARE(m->Motore.TastoCorrente, int16_t(102));
    }

    void il_file_della_cartella_e_letto_all_attivazione() {
        AggiungiCartella(7, QStringLiteral("Disegni dell'Anna"));
        ScriviFile(PercorsoCartellaAttiva(), " 7 \r\n");
        MenuGenerale* m = Menu(4);
        QCOMPARE(CodiceCartellaAttiva, 7);
        QCOMPARE(NomeCartellaAttiva, QStringLiteral("Disegni dell'Anna"));
        QCOMPARE(m->ScrittaCartellaAttiva->text(), QStringLiteral("Disegni dell'Anna   [ 0007 ] "));
    }

    void una_cartella_gia_attiva_e_mostrata_senza_leggere_il_file() {
        ScriviFile(PercorsoCartellaAttiva(), " 1 \r\n");
        CodiceCartellaAttiva = 12345;
        NomeCartellaAttiva = QStringLiteral("Mare");
        MenuGenerale* m = Menu(4);
        QCOMPARE(m->ScrittaCartellaAttiva->text(), QStringLiteral("Mare   [ 12345 ] "));
    }

    void un_codice_che_non_e_in_archivio_lascia_l_etichetta_vuota_senza_dire_nulla() {
        ScriviFile(PercorsoCartellaAttiva(), " 99 \r\n");
        MenuGenerale* m = Menu(4);
        QCOMPARE(m->ScrittaCartellaAttiva->text(), QString());
        QCOMPARE(CodiceCartellaAttiva, 0);
        QCOMPARE(RecordAssente, int16_t(1));
        QVERIFY(amb->Scatole.isEmpty());
        QCOMPARE(ContatoreBip, 0);
    }

    void un_file_illeggibile_vale_come_nessuna_cartella() {
        ScriviFile(PercorsoCartellaAttiva(), "xyz\r\n");
        MenuGenerale* m = Menu(4);
        QCOMPARE(m->ScrittaCartellaAttiva->text(), QString());
        QCOMPARE(CodiceCartellaAttiva, 0);
        QVERIFY(amb->Scatole.isEmpty());
    }

    void disegno_con_una_cartella_attiva_apre_l_ambiente_e_scarica_il_menu() {
        ScriviFile(PercorsoCartellaAttiva(), " 1 \r\n");
        Menu(4);
        QVERIFY(PremiTasto(Qt::Key_Return));
        QCOMPARE(ContatoreBip, 0);
        QVERIFY(MenùGeneraleAperto() == nullptr);
        QVERIFY(AmbienteDisegnoAperto() != nullptr && AmbienteDisegnoAperto()->isVisible());
        QCOMPARE(FormScansione::InPrimoPiano(), AmbienteDisegnoAperto());
        QVERIFY(QApplication::overrideCursor() == nullptr);
    }

    void configurazioni_sostituisce_il_menu() {
        Menu(4);
        for (int i = 0; i < 3; ++i)
            QVERIFY(PremiTasto(Qt::Key_Right));
        QVERIFY(PremiTasto(Qt::Key_Return));
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        QVERIFY(MenùGeneraleAperto() == nullptr);
        QVERIFY(ConfigurazioniAperte() != nullptr && ConfigurazioniAperte()->isVisible());
        QCOMPARE(ContatoreBip, 0);
        DistruggiConfigurazioniGenerali();
    }

    void cartelle_in_modo_1_apre_la_lista_e_al_ritorno_l_anello_riparte() {
        MenuGenerale* m = Menu(1);
        orologio->Avanza(1000);
        QString titolo;
        Copione c(*orologio);
        c.Esegui([&] { titolo = FormScansione::InPrimoPiano()->windowTitle(); });
        // From line 101 to "back" (125): twenty-four dwells, then the pick.
        c.Attendi(24 * 1000).Tasto(Qt::Key_Return);
        c.Avvia();
        QVERIFY(PremiTasto(Qt::Key_Return));
        QVERIFY(c.Finito());
        QCOMPARE(titolo, QStringLiteral("Programma «ZANTO» - Scelta Cartella Disegni"));
        QCOMPARE(FormScansione::InPrimoPiano(), m);
        QCOMPARE(m->Motore.ScansioneAttiva, int16_t(1));
        QCOMPARE(m->Motore.TastoCorrente, int16_t(102));
        orologio->Avanza(1000);
        QCOMPARE(m->Motore.TastoCorrente, int16_t(103));
    }

    void cartelle_indietro_lascia_la_cartella_e_il_file_come_erano() {
        ScriviFile(PercorsoCartellaAttiva(), " 1 \r\n");
        AggiungiCartella(7, QStringLiteral("Scuola"));
        MenuGenerale* m = Menu(4);
        Copione c(*orologio);
        // Back from line 101 to 100, then round to 125.
        c.Tasto(Qt::Key_Up).Tasto(Qt::Key_Up).Tasto(Qt::Key_Return);
        c.Avvia();
        QVERIFY(PremiTasto(Qt::Key_Right));
        QVERIFY(PremiTasto(Qt::Key_Return));
        QVERIFY(c.Finito());
        QCOMPARE(VoceScelta, QString());
        QCOMPARE(CodiceCartellaAttiva, 1);
        QCOMPARE(m->ScrittaCartellaAttiva->text(),
                 FormaCartella(NomiArchivi::CartellaSistemaDisegni, 1));
        QCOMPARE(LeggiFile(PercorsoCartellaAttiva()), QStringLiteral(" 1 \r\n"));
    }

    void cartelle_sceglie_la_cartella_attiva_che_esci_scrive() {
        ScriviFile(PercorsoCartellaAttiva(), " 1 \r\n");
        AggiungiCartella(7, QStringLiteral("Scuola dell'Anna"));
        MenuGenerale* m = Menu(4);
        Copione c(*orologio);
        // "Scuola dell'Anna" stands before "·Disegni Generale": line 101, then confirm.
        c.Tasto(Qt::Key_Return).Tasto(Qt::Key_Return);
        c.Avvia();
        QVERIFY(PremiTasto(Qt::Key_Right));
        QVERIFY(PremiTasto(Qt::Key_Return));
        QVERIFY(c.Finito());
        QCOMPARE(CodiceCartellaAttiva, 7);
        QCOMPARE(NomeCartellaAttiva, QStringLiteral("Scuola dell'Anna"));
        QCOMPARE(m->ScrittaCartellaAttiva->text(), QStringLiteral("Scuola dell'Anna   [ 0007 ] "));
        // Not written until "Esci".
        QCOMPARE(LeggiFile(PercorsoCartellaAttiva()), QStringLiteral(" 1 \r\n"));
        QTest::mouseClick(m->Tasti.value(105), Qt::LeftButton);
        QCOMPARE(LeggiFile(PercorsoCartellaAttiva()), QStringLiteral(" 7 \r\n"));
    }

    void clic_su_sfondo_etichette_e_logo_suonano_soltanto() {
        MenuGenerale* m = Menu(4);
        QTest::mouseClick(m, Qt::LeftButton, {}, QPoint(500, 700));
        QTest::mouseClick(m->ScrittaCartellaAttiva, Qt::LeftButton);
        QTest::mouseClick(m->ScrittaInformazioni[0], Qt::LeftButton);
        QTest::mouseClick(m->ImmagineMenu, Qt::LeftButton);
        QTest::mouseClick(m->Corone.value(101), Qt::LeftButton, {}, QPoint(2, 2));
        QCOMPARE(ContatoreBip, 5);
        QCOMPARE(m->Motore.TastoCorrente, int16_t(101));
        QVERIFY(m->isVisible());
    }

    void i_tasti_funzionano_anche_col_mouse() {
        MenuGenerale* m = Menu(4);
        QTest::mouseClick(m->Tasti.value(104), Qt::LeftButton);
        QCOMPARE(ContatoreBip, 0);
        QVERIFY(ConfigurazioniAperte() != nullptr);
        DistruggiConfigurazioniGenerali();
    }

    void esci_chiude_gli_archivi_e_scrive_il_codice_della_cartella() {
        AggiungiCartella(42, QStringLiteral("Scuola"));
        ScriviFile(PercorsoCartellaAttiva(), " 42 \r\n");
        MenuGenerale* m = Menu(4);
        QTest::mouseClick(m->Tasti.value(105), Qt::LeftButton);
        QVERIFY(!QSqlDatabase::contains(ArchivioDisegni));
        QVERIFY(!QSqlDatabase::contains(ArchivioOggetti));
        QVERIFY(!QSqlDatabase::contains(ArchivioConfigurazione));
        QCOMPARE(LeggiFile(PercorsoCartellaAttiva()), QStringLiteral(" 42 \r\n"));
        QVERIFY(MenùGeneraleAperto() == nullptr);
        QVERIFY(amb->Scatole.isEmpty());
    }

    void esci_in_modo_1_chiede_prima_col_no_per_primo_data() { RigheTastoScelta(); }
    void esci_in_modo_1_chiede_prima_col_no_per_primo() {
        QFETCH(int, scelta);
        const Qt::Key tasto = UsaTastoScelta(scelta);
        RiapriCicli();
        AggiungiCartella(42, QStringLiteral("Scuola"));
        ScriviFile(PercorsoCartellaAttiva(), " 42 \r\n");
        MenuGenerale* m = Menu(1);
        orologio->Avanza(4 * 1000);
        QCOMPARE(m->Motore.TastoCorrente, int16_t(105));
        QString titolo;
        QString testo;
        int16_t primo = 0;
        int16_t dopo = 0;
        Copione c(*orologio);
        c.Esegui([&] {
            auto* q = static_cast<QuadroMessaggi*>(FormScansione::InPrimoPiano());
            titolo = q->windowTitle();
            testo = TestoQuadroMessaggi;
            primo = q->Motore.TastoCorrente;
        });
        // The pick falls on "NO": the menu stays and its ring walks on.
        c.Tasto(tasto);
        c.Avvia();
        QVERIFY(PremiTasto(tasto));
        QVERIFY(c.Finito());
        QCOMPARE(titolo, QStringLiteral("Programma «ZANTO»  -  INFORMAZIONI  E  SCELTE"));
        QVERIFY(testo.contains(QStringLiteral("uscire")));
        QCOMPARE(primo, int16_t(103));
        QCOMPARE(EsitoQuadroMessaggi, int16_t(2));
        QVERIFY(MenùGeneraleAperto() == m);
        QCOMPARE(FormScansione::InPrimoPiano(), m);
        QVERIFY(QSqlDatabase::contains(ArchivioDisegni));
        QCOMPARE(m->Motore.ScansioneAttiva, int16_t(1));
        orologio->Avanza(1000);
        QCOMPARE(m->Motore.TastoCorrente, int16_t(101));
        // Round again to "Esci"; this time the ring reaches "S I" before the pick.
        orologio->Avanza(4 * 1000);
        QCOMPARE(m->Motore.TastoCorrente, int16_t(105));
        Copione c2(*orologio);
        c2.Esegui([&] { primo = FormScansione::InPrimoPiano()->Motore.TastoCorrente; });
        c2.Attendi(1000);
        c2.Esegui([&] { dopo = FormScansione::InPrimoPiano()->Motore.TastoCorrente; });
        c2.Tasto(tasto);
        c2.Avvia();
        QVERIFY(PremiTasto(tasto));
        QVERIFY(c2.Finito());
        QCOMPARE(primo, int16_t(103));
        QCOMPARE(dopo, int16_t(101));
        QCOMPARE(EsitoQuadroMessaggi, int16_t(1));
        QVERIFY(!QSqlDatabase::contains(ArchivioDisegni));
        QCOMPARE(LeggiFile(PercorsoCartellaAttiva()), QStringLiteral(" 42 \r\n"));
        QVERIFY(MenùGeneraleAperto() == nullptr);
        QVERIFY(amb->Scatole.isEmpty());
    }

    void esci_in_modo_2_chiede_anche_al_mouse_e_in_modo_3_no() {
        RiapriCicli();
        MenuGenerale* m = Menu(2);
        Copione c(*orologio);
        c.Tasto(Qt::Key_Return);
        c.Avvia();
        QTest::mouseClick(m->Tasti.value(105), Qt::LeftButton);
        QVERIFY(c.Finito());
        QCOMPARE(EsitoQuadroMessaggi, int16_t(2));
        QVERIFY(MenùGeneraleAperto() == m);
        DistruggiMenùGenerale();
        // A manual ring moves only when the user moves it: one press, out.
        m = Menu(3);
        QTest::mouseClick(m->Tasti.value(105), Qt::LeftButton);
        QVERIFY(MenùGeneraleAperto() == nullptr);
        QVERIFY(!QSqlDatabase::contains(ArchivioDisegni));
    }

    void esci_non_scrive_la_riga_delle_impostazioni() {
        MenuGenerale* m = Menu(4);
        TempoLatenzaScansione = 3000; // changed in memory only
        QTest::mouseClick(m->Tasti.value(105), Qt::LeftButton);
        QCOMPARE(
            LeggiValore(PercorsoConfigurazione(),
                        QStringLiteral("SELECT TempoLatenzaScansione FROM ConfigurazioniGenerali"))
                .toInt(),
            1000);
    }

    void la_cartella_scelta_si_perde_se_non_si_esce_con_esci() {
        AggiungiCartella(7, QStringLiteral("Scuola"));
        Menu(4);
        CodiceCartellaAttiva = 7; // as the folder list would leave it
        DistruggiMenùGenerale();  // the run ends some other way
        QCOMPARE(LeggiFile(PercorsoCartellaAttiva()), QStringLiteral(" 1 \r\n"));
    }

    void il_numero_si_scrive_come_lo_stampa_il_programma() {
        QCOMPARE(TestoNumero(0), QStringLiteral(" 0 \r\n"));
        QCOMPARE(TestoNumero(1234), QStringLiteral(" 1234 \r\n"));
        QCOMPARE(TestoNumero(-5), QStringLiteral("-5 \r\n"));
        QCOMPARE(FormaCartella(QStringLiteral("·Disegni Generale"), 1),
                 QStringLiteral("·Disegni Generale   [ 0001 ] "));
    }
};

QTEST_MAIN(ProvaMenuGenerale)
#include "test_menu_generale.moc"
