// The error routine: which errors are absorbed, what the box says, and how a
// routine made of numbered steps goes on after an error.

#include "app/Avvio.h"
#include "base/Bip.h"
#include "base/GestioneErrori.h"
#include "base/MappaErrori.h"
#include "base/Numeri.h"
#include "support/AmbienteProva.h"

#include <QApplication>
#include <QCursor>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>
#include <QtTest>

#include <cstdint>
#include <vector>

namespace {

const QString CodaLavoro = QStringLiteral("Premere il Tasto «OK» per CONTINUARE! ");
const QString CodaAvvio = QStringLiteral("Registrare la situazione e CHIAMARE L'ASSISTENZA!");

QString TestoGenerale(int n, int s, const QString& d, const QString& coda) {
    const QString cr(QChar(u'\r'));
    return QStringLiteral("ERRORE ") + QString::number(n) + '/' + QString::number(s) +
           QStringLiteral(": ") + cr + d + cr + cr + coda;
}

[[noreturn]] void Solleva(int numero, const QString& descrizione = QStringLiteral("Guasto")) {
    throw ErroreZanto{numero, descrizione};
}

// Runs a routine of three steps whose first, at `sezione`, fails with `errore`.
// Returns what EseguiPassi returned and which later steps ran.
struct EsitoRoutine {
    bool Completa = false;
    bool SecondoEseguito = false;
    bool TerzoEseguito = false;
};

EsitoRoutine RoutineCheFallisce(int16_t sezione, const ErroreZanto& errore) {
    EsitoRoutine esito;
    esito.Completa = EseguiPassi({
        {sezione, [&] { throw errore; }},
        {static_cast<int16_t>(sezione + 1), [&] { esito.SecondoEseguito = true; }},
        {static_cast<int16_t>(sezione + 2), [&] { esito.TerzoEseguito = true; }},
    });
    return esito;
}

} // namespace

class TestGestioneErrori : public QObject {
    Q_OBJECT

private slots:
    // Absorbed errors.
    void errore_53_al_segno_2010_non_mostra_nulla_e_il_passo_dopo_gira();
    void errore_6_al_segno_2290_e_assorbito();
    void errore_6_e_53_sono_assorbiti_solo_ciascuno_al_proprio_segno();
    void errore_3021_ai_segni_di_lettura_segna_record_assente_senza_scatola_data();
    void errore_3021_ai_segni_di_lettura_segna_record_assente_senza_scatola();
    void qualsiasi_errore_al_segno_105_segna_scrittura_fallita_data();
    void qualsiasi_errore_al_segno_105_segna_scrittura_fallita();
    void errore_assorbito_non_suona();

    // Shown errors.
    void file_assente_altrove_mostra_testo_breve_con_i_due_numeri_e_abbandona();
    void errore_3021_fuori_dai_segni_mostra_testo_generale_con_descrizione_archivio_data();
    void errore_3021_fuori_dai_segni_mostra_testo_generale_con_descrizione_archivio();
    void testo_generale_in_lavoro_invita_a_premere_ok();
    void testo_generale_in_avvio_chiede_di_chiamare_assistenza();
    void numeri_particolari_hanno_il_proprio_testo_data();
    void numeri_particolari_hanno_il_proprio_testo();
    void errori_di_stampa_mostrano_il_testo_di_stampa_riga_per_riga_data();
    void errori_di_stampa_mostrano_il_testo_di_stampa_riga_per_riga();
    void scatola_ha_icona_critica_titolo_zanto_e_suona();
    void errore_mostrato_rimette_il_puntatore_predefinito();

    // The step runner.
    void esegui_passi_senza_errori_esegue_tutti_i_passi();
    void esegui_passi_scrive_il_segno_di_ogni_passo();
    void in_avvio_un_errore_che_abbandona_termina_il_programma();
    void in_avvio_un_errore_assorbito_lascia_proseguire();
    void superamento_di_intero16_in_un_passo_arriva_come_errore_6_overflow();

    // Faults of the file system.
    void file_assente_aperto_in_lettura_diventa_errore_53();
    void cartella_assente_diventa_errore_76_data();
    void cartella_assente_diventa_errore_76();
};

void TestGestioneErrori::errore_53_al_segno_2010_non_mostra_nulla_e_il_passo_dopo_gira() {
    AmbienteProva amb(false);
    const EsitoRoutine esito = RoutineCheFallisce(2010, ErroreFileAssente(QStringLiteral("x.ini")));
    QVERIFY(esito.Completa);
    QVERIFY(esito.SecondoEseguito);
    QVERIFY(esito.TerzoEseguito);
    QVERIFY(amb.Scatole.isEmpty());
    QCOMPARE(EsitoErrore, int16_t(2));
}

void TestGestioneErrori::errore_6_al_segno_2290_e_assorbito() {
    AmbienteProva amb(false);
    const EsitoRoutine esito = RoutineCheFallisce(2290, ErroreZanto{6, QStringLiteral("Overflow")});
    QVERIFY(esito.Completa);
    QVERIFY(esito.SecondoEseguito);
    QVERIFY(esito.TerzoEseguito);
    QVERIFY(amb.Scatole.isEmpty());
    QCOMPARE(EsitoErrore, int16_t(2));
}

void TestGestioneErrori::errore_6_e_53_sono_assorbiti_solo_ciascuno_al_proprio_segno() {
    AmbienteProva amb(false);
    SezioneCorrente = 2010;
    GestioneErrori(ErroreZanto{6, QStringLiteral("Overflow")});
    QCOMPARE(EsitoErrore, int16_t(3));
    QCOMPARE(amb.Scatole.size(), 1);

    SezioneCorrente = 2290;
    GestioneErrori(ErroreFileAssente(QStringLiteral("x.ini")));
    QCOMPARE(EsitoErrore, int16_t(3));
    QCOMPARE(amb.Scatole.size(), 2);
    QCOMPARE(amb.Scatole.at(1).Testo,
             QStringLiteral("ERRORE: Assenza di un FILE necessario sul DISCO  in USO! (53/2290)"));
}

void TestGestioneErrori::errore_3021_ai_segni_di_lettura_segna_record_assente_senza_scatola_data() {
    QTest::addColumn<int>("segno");
    for (int segno : {1030, 1272, 1354, 2000, 2300, 2400, 2800, 2900})
        QTest::addRow("%d", segno) << segno;
}

void TestGestioneErrori::errore_3021_ai_segni_di_lettura_segna_record_assente_senza_scatola() {
    QFETCH(int, segno);
    AmbienteProva amb(false);
    QCOMPARE(RecordAssente, int16_t(0));
    const EsitoRoutine esito =
        RoutineCheFallisce(static_cast<int16_t>(segno), ErroreNessunRecord());
    QCOMPARE(RecordAssente, int16_t(1));
    QVERIFY(amb.Scatole.isEmpty());
    QVERIFY(esito.Completa);
    QVERIFY(esito.SecondoEseguito);
    QCOMPARE(ScritturaFallita, int16_t(0));
}

void TestGestioneErrori::qualsiasi_errore_al_segno_105_segna_scrittura_fallita_data() {
    QTest::addColumn<int>("numero");
    for (int numero : {53, 61, 70, 75, 3021, 6, 482})
        QTest::addRow("%d", numero) << numero;
}

void TestGestioneErrori::qualsiasi_errore_al_segno_105_segna_scrittura_fallita() {
    QFETCH(int, numero);
    AmbienteProva amb(false);
    FaseAvvio = 1; // the write test belongs to the start
    QCOMPARE(ScritturaFallita, int16_t(0));
    const EsitoRoutine esito =
        RoutineCheFallisce(105, ErroreZanto{numero, QStringLiteral("Guasto")});
    QCOMPARE(ScritturaFallita, int16_t(1));
    QVERIFY(amb.Scatole.isEmpty());
    QVERIFY(esito.Completa);
    QVERIFY(esito.SecondoEseguito);
    QCOMPARE(RecordAssente, int16_t(0));
    QCOMPARE(ContatoreBip, 0);
}

void TestGestioneErrori::errore_assorbito_non_suona() {
    AmbienteProva amb(false);
    SezioneCorrente = 2010;
    GestioneErrori(ErroreFileAssente(QStringLiteral("x.ini")));
    SezioneCorrente = 2290;
    GestioneErrori(ErroreZanto{6, QStringLiteral("Overflow")});
    SezioneCorrente = 2400;
    GestioneErrori(ErroreNessunRecord());
    SezioneCorrente = 105;
    GestioneErrori(ErroreZanto{70, QStringLiteral("Accesso negato")});
    QCOMPARE(ContatoreBip, 0);
    QVERIFY(amb.Scatole.isEmpty());
}

void TestGestioneErrori::file_assente_altrove_mostra_testo_breve_con_i_due_numeri_e_abbandona() {
    AmbienteProva amb(false);
    const EsitoRoutine esito = RoutineCheFallisce(700, ErroreFileAssente(QStringLiteral("x.ini")));
    QVERIFY(!esito.Completa);
    QVERIFY(!esito.SecondoEseguito);
    QVERIFY(!esito.TerzoEseguito);
    QCOMPARE(EsitoErrore, int16_t(3));
    QCOMPARE(amb.Scatole.size(), 1);
    QCOMPARE(amb.Scatole.at(0).Testo,
             QStringLiteral("ERRORE: Assenza di un FILE necessario sul DISCO  in USO! (53/700)"));
}

void TestGestioneErrori::
    errore_3021_fuori_dai_segni_mostra_testo_generale_con_descrizione_archivio_data() {
    QTest::addColumn<int>("segno");
    for (int segno : {1029, 1031, 106, 2010, 2290, 2401, 2950})
        QTest::addRow("%d", segno) << segno;
}

void TestGestioneErrori::
    errore_3021_fuori_dai_segni_mostra_testo_generale_con_descrizione_archivio() {
    QFETCH(int, segno);
    AmbienteProva amb(false);
    const ErroreZanto errore = ErroreNessunRecord();
    QCOMPARE(errore.Numero, 3021);
    QVERIFY(!errore.Descrizione.isEmpty());

    const EsitoRoutine esito = RoutineCheFallisce(static_cast<int16_t>(segno), errore);
    QVERIFY(!esito.Completa);
    QVERIFY(!esito.SecondoEseguito);
    QCOMPARE(RecordAssente, int16_t(0));
    QCOMPARE(amb.Scatole.size(), 1);
    QCOMPARE(amb.Scatole.at(0).Testo, TestoGenerale(3021, segno, errore.Descrizione, CodaLavoro));
}

void TestGestioneErrori::testo_generale_in_lavoro_invita_a_premere_ok() {
    AmbienteProva amb(false);
    FaseAvvio = 0;
    SezioneCorrente = 1500;
    GestioneErrori(ErroreZanto{11, QStringLiteral("Divisione per zero")});
    QCOMPARE(amb.Scatole.size(), 1);
    const QString& testo = amb.Scatole.at(0).Testo;
    QVERIFY(testo.endsWith(CodaLavoro));
    QVERIFY(!testo.contains(CodaAvvio));
    QCOMPARE(testo, TestoGenerale(11, 1500, QStringLiteral("Divisione per zero"), CodaLavoro));
}

void TestGestioneErrori::testo_generale_in_avvio_chiede_di_chiamare_assistenza() {
    AmbienteProva amb(false);
    FaseAvvio = 1;
    SezioneCorrente = 150;
    GestioneErrori(ErroreZanto{3051, QStringLiteral("Impossibile aprire l'archivio")});
    QCOMPARE(amb.Scatole.size(), 1);
    const QString& testo = amb.Scatole.at(0).Testo;
    QVERIFY(testo.endsWith(CodaAvvio));
    QVERIFY(!testo.contains(CodaLavoro));
    QCOMPARE(testo,
             TestoGenerale(3051, 150, QStringLiteral("Impossibile aprire l'archivio"), CodaAvvio));
}

void TestGestioneErrori::numeri_particolari_hanno_il_proprio_testo_data() {
    QTest::addColumn<int>("numero");
    QTest::addColumn<QString>("atteso");
    QTest::addRow("57") << 57
                        << QStringLiteral(
                               "ERRORE: Dispositivo NON ACCESSIBILE o DISPONIBILE! (57/1800)");
    QTest::addRow("68") << 68
                        << QStringLiteral(
                               "ERRORE: Dispositivo NON ACCESSIBILE o DISPONIBILE! (68/1800)");
    QTest::addRow("61") << 61
                        << QStringLiteral("ERRORE:  Il Dischetto in uso e` TROPPO PIENO: "
                                          "SOSTITUIRLO! (61/1800)");
    QTest::addRow("67") << 67
                        << QStringLiteral("ERRORE:  Il Dischetto in uso e` TROPPO PIENO: "
                                          "SOSTITUIRLO! (67/1800)");
    QTest::addRow("70") << 70
                        << QStringLiteral(
                               "ERRORE: Il Disco in uso e` PROTETTO da SCRITTURA! (70/1800)");
    QTest::addRow("71") << 71
                        << QStringLiteral("ERRORE: Il Drive da usare e` APERTO o VUOTO! (71/1800)");
    QTest::addRow("76") << 76
                        << QStringLiteral("ERRORE: Assenza di una Directory necessaria sul DISCO "
                                          "in USO! (76/1800)");
}

void TestGestioneErrori::numeri_particolari_hanno_il_proprio_testo() {
    QFETCH(int, numero);
    QFETCH(QString, atteso);
    AmbienteProva amb(false);
    const EsitoRoutine esito =
        RoutineCheFallisce(1800, ErroreZanto{numero, QStringLiteral("Descrizione da non usare")});
    QVERIFY(!esito.Completa);
    QCOMPARE(amb.Scatole.size(), 1);
    QCOMPARE(amb.Scatole.at(0).Testo, atteso);
    // The same text in the start phase: these texts have no closing line.
    FaseAvvio = 1;
    QCOMPARE(TestoErrore(numero, 1800, QStringLiteral("Descrizione da non usare")), atteso);
}

void TestGestioneErrori::errori_di_stampa_mostrano_il_testo_di_stampa_riga_per_riga_data() {
    QTest::addColumn<int>("numero");
    for (int numero = 482; numero <= 486; ++numero)
        QTest::addRow("%d", numero) << numero;
}

void TestGestioneErrori::errori_di_stampa_mostrano_il_testo_di_stampa_riga_per_riga() {
    QFETCH(int, numero);
    AmbienteProva amb(false);
    const EsitoRoutine esito =
        RoutineCheFallisce(6010, ErroreZanto{numero, QStringLiteral("Errore della stampante")});
    QVERIFY(!esito.Completa);
    QCOMPARE(amb.Scatole.size(), 1);

    const QStringList righe = amb.Scatole.at(0).Testo.split(QChar(u'\r'));
    const QStringList attese = {
        QStringLiteral("ERRORE! La STAMPA è impossibile per uno dei seguenti problemi:"),
        QStringLiteral("1) Si è cercato di stampare su una stampante che accetta solo testo."),
        QStringLiteral("2) Nessuna stampante è installata nel Pannello di controllo di Windows."),
        QStringLiteral("3) La stampante non è in linea."),
        QStringLiteral("4) La stampante non riesce a comunicare con il Computer."),
        QStringLiteral("5) La stampante è inceppata oppure la carta è esaurita."),
        QStringLiteral("6) Il Driver della stampante è inadatto o incompatibile."),
        QStringLiteral("(Errore: ") + QString::number(numero) + QStringLiteral("/6010)"),
    };
    QCOMPARE(righe, attese);
    QVERIFY(!amb.Scatole.at(0).Testo.contains(QStringLiteral("Errore della stampante")));
}

void TestGestioneErrori::scatola_ha_icona_critica_titolo_zanto_e_suona() {
    AmbienteProva amb(false);
    QCOMPARE(ContatoreBip, 0);
    SezioneCorrente = 1500;
    GestioneErrori(ErroreZanto{5, QStringLiteral("Chiamata di routine non valida")});
    QCOMPARE(amb.Scatole.size(), 1);
    QCOMPARE(amb.Scatole.at(0).Icona, IconaScatola::Critica);
    QCOMPARE(amb.Scatole.at(0).Titolo, QStringLiteral("ZANTO"));
    QCOMPARE(ContatoreBip, 1);
    QCOMPARE(EsitoErrore, int16_t(3));

    SezioneCorrente = 700;
    GestioneErrori(ErroreFileAssente(QStringLiteral("x.ini")));
    QCOMPARE(amb.Scatole.size(), 2);
    QCOMPARE(amb.Scatole.at(1).Icona, IconaScatola::Critica);
    QCOMPARE(amb.Scatole.at(1).Titolo, QStringLiteral("ZANTO"));
    QCOMPARE(ContatoreBip, 2);
}

void TestGestioneErrori::errore_mostrato_rimette_il_puntatore_predefinito() {
    AmbienteProva amb(false);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    QApplication::setOverrideCursor(Qt::WaitCursor);
    Qt::CursorShape durante = Qt::WaitCursor;
    MostraScatolaPiattaforma = [&](IconaScatola icona, const QString& titolo,
                                   const QString& testo) {
        durante = QApplication::overrideCursor() == nullptr
                      ? Qt::ArrowCursor
                      : QApplication::overrideCursor()->shape();
        amb.Scatole.append({icona, titolo, testo});
    };
    SezioneCorrente = 1500;
    GestioneErrori(ErroreZanto{11, QStringLiteral("Divisione per zero")});
    QCOMPARE(amb.Scatole.size(), 1);
    QCOMPARE(durante, Qt::ArrowCursor);
    QVERIFY(QApplication::overrideCursor() == nullptr);
}

void TestGestioneErrori::esegui_passi_senza_errori_esegue_tutti_i_passi() {
    AmbienteProva amb(false);
    QStringList ordine;
    const bool completa = EseguiPassi({
        {300, [&] { ordine << QStringLiteral("a"); }},
        {310, [&] { ordine << QStringLiteral("b"); }},
        {320, [&] { ordine << QStringLiteral("c"); }},
    });
    QVERIFY(completa);
    QCOMPARE(ordine, (QStringList{QStringLiteral("a"), QStringLiteral("b"), QStringLiteral("c")}));
    QVERIFY(amb.Scatole.isEmpty());
    QCOMPARE(ContatoreBip, 0);
}

void TestGestioneErrori::esegui_passi_scrive_il_segno_di_ogni_passo() {
    AmbienteProva amb(false);
    std::vector<int> visti;
    SezioneCorrente = 9999;
    EseguiPassi({
        {2400, [&] { visti.push_back(SezioneCorrente); }},
        {2410, [&] { visti.push_back(SezioneCorrente); }},
        {2795, [&] { visti.push_back(SezioneCorrente); }},
    });
    QCOMPARE(visti, (std::vector<int>{2400, 2410, 2795}));

    // The mark the error routine reads is that of the step that failed.
    visti.clear();
    EseguiPassi({
        {800, [&] { visti.push_back(SezioneCorrente); }},
        {810, [&] { Solleva(11, QStringLiteral("Divisione per zero")); }},
        {820, [&] { visti.push_back(SezioneCorrente); }},
    });
    QCOMPARE(visti, (std::vector<int>{800}));
    QCOMPARE(amb.Scatole.size(), 1);
    QCOMPARE(amb.Scatole.at(0).Testo,
             TestoGenerale(11, 810, QStringLiteral("Divisione per zero"), CodaLavoro));
}

void TestGestioneErrori::in_avvio_un_errore_che_abbandona_termina_il_programma() {
    AmbienteProva amb(false);
    FaseAvvio = 1;
    bool secondoEseguito = false;
    bool finito = false;
    try {
        EseguiPassi({
            {120, [] { Solleva(3051, QStringLiteral("Impossibile aprire l'archivio")); }},
            {130, [&] { secondoEseguito = true; }},
        });
    } catch (const FineProgramma&) {
        finito = true;
    }
    QVERIFY(finito);
    QVERIFY(!secondoEseguito);
    // The box comes before the end.
    QCOMPARE(amb.Scatole.size(), 1);
    QCOMPARE(amb.Scatole.at(0).Testo,
             TestoGenerale(3051, 120, QStringLiteral("Impossibile aprire l'archivio"), CodaAvvio));
    QCOMPARE(ContatoreBip, 1);
}

void TestGestioneErrori::in_avvio_un_errore_assorbito_lascia_proseguire() {
    AmbienteProva amb(false);
    FaseAvvio = 1;
    EsitoRoutine esito;
    bool finito = false;
    try {
        esito = RoutineCheFallisce(105, ErroreZanto{70, QStringLiteral("Accesso negato")});
    } catch (const FineProgramma&) {
        finito = true;
    }
    QVERIFY(!finito);
    QVERIFY(esito.Completa);
    QVERIFY(esito.SecondoEseguito);
    QVERIFY(esito.TerzoEseguito);
    QCOMPARE(ScritturaFallita, int16_t(1));
    QVERIFY(amb.Scatole.isEmpty());
}

void TestGestioneErrori::superamento_di_intero16_in_un_passo_arriva_come_errore_6_overflow() {
    AmbienteProva amb(false);
    int16_t valore = 0;
    bool dopo = false;
    const bool completa = EseguiPassi({
        {1500, [&] { valore = Intero16(int64_t{32767} + 1); }},
        {1510, [&] { dopo = true; }},
    });
    QVERIFY(!completa);
    QVERIFY(!dopo);
    QCOMPARE(valore, int16_t(0));
    QCOMPARE(amb.Scatole.size(), 1);
    QCOMPARE(amb.Scatole.at(0).Testo,
             TestoGenerale(6, 1500, QStringLiteral("Overflow"), CodaLavoro));

    // Below the range and from a fractional value as well.
    EseguiPassi({{1520, [&] { valore = Intero16(-32768.6); }}});
    QCOMPARE(amb.Scatole.size(), 2);
    QCOMPARE(amb.Scatole.at(1).Testo,
             TestoGenerale(6, 1520, QStringLiteral("Overflow"), CodaLavoro));
}

void TestGestioneErrori::file_assente_aperto_in_lettura_diventa_errore_53() {
    AmbienteProva amb(false);
    QTemporaryDir cartella;
    QVERIFY(cartella.isValid());
    const QString percorso = QDir(cartella.path()).filePath(QStringLiteral("assente.ini"));
    QFile file(percorso);
    QVERIFY(!file.open(QIODevice::ReadOnly));
    const ErroreZanto errore = ErroreFile(file.error(), percorso);
    QCOMPARE(errore.Numero, 53);
    QVERIFY(errore.Descrizione.contains(QStringLiteral("assente.ini")));

    // Through a routine, the box names the mark of the read.
    EseguiPassi({{2150, [&] {
                      QFile f(percorso);
                      if (!f.open(QIODevice::ReadOnly)) throw ErroreFile(f.error(), percorso);
                  }}});
    QCOMPARE(amb.Scatole.size(), 1);
    QCOMPARE(amb.Scatole.at(0).Testo,
             QStringLiteral("ERRORE: Assenza di un FILE necessario sul DISCO  in USO! (53/2150)"));
}

void TestGestioneErrori::cartella_assente_diventa_errore_76_data() {
    QTest::addColumn<int>("modo");
    QTest::addRow("lettura") << int(QIODevice::ReadOnly);
    QTest::addRow("scrittura") << int(QIODevice::WriteOnly);
}

void TestGestioneErrori::cartella_assente_diventa_errore_76() {
    QFETCH(int, modo);
    AmbienteProva amb(false);
    QTemporaryDir cartella;
    QVERIFY(cartella.isValid());
    const QString percorso =
        QDir(cartella.path()).filePath(QStringLiteral("manca/anche/questo.ini"));
    QFile file(percorso);
    QVERIFY(!file.open(QIODevice::OpenMode(modo)));
    const ErroreZanto errore = ErroreFile(file.error(), percorso);
    QCOMPARE(errore.Numero, 76);
    QVERIFY(!QFileInfo::exists(percorso));
}

QTEST_MAIN(TestGestioneErrori)
#include "test_gestione_errori.moc"
