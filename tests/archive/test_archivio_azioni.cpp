// Reading and writing action lists, saving drawings and objects, and the
// bitmap a saved drawing leaves on disk.

#include "app/Avvio.h"
#include "app/MenuGenerale.h"
#include "archive/Archivi.h"
#include "archive/ArchivioAzioni.h"
#include "archive/IstruzioniArchivio.h"
#include "archive/Schema.h"
#include "model/RecordAzione.h"
#include "model/Superficie.h"
#include "model/TracciaAzioni.h"
#include "support/AmbienteProva.h"
#include "support/CostruttoriAzioni.h"
#include "support/SondePixel.h"
#include "support/SqlProva.h"

#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QSqlError>
#include <QSqlQuery>
#include <QtTest>

#include <functional>

#include <array>
#include <limits>

namespace {

using namespace SondePixel;

const QString CR(QChar(u'\r'));

using SqlProva::Sql;

using SqlProva::Conta;

// One action of each type, with every field set and the floats with fractions.
QList<RecordAzione> UnaDiOgniTipo() {
    QList<RecordAzione> lista{RecordAzione{}};
    for (int32_t tipo = 1; tipo <= 7; ++tipo) {
        RecordAzione a;
        a.TipoAzione = tipo;
        a.XInizio = 100 * tipo + 1;
        a.YInizio = -(100 * tipo + 2);
        a.XFine = 14144 - tipo;
        a.YFine = 10000 - tipo;
        a.ColLinea = 0x123456 + tipo;
        a.ColZona = 0xFEDCBA - tipo;
        a.FlagPienoVuoto = tipo % 3;
        a.SpessLinea = tipo;
        a.XCentro = 7072.375f + float(tipo) / 7.0f;
        a.YCentro = 4999.8125f - float(tipo) / 3.0f;
        a.RadIniz = 0.1f * float(tipo);
        a.RadFine = 6.2831f - 0.3f * float(tipo);
        a.RaggioVert = 1234.567f;
        a.RaggioOriz = 0.000123f * float(tipo);
        a.InterlineaTesto = int16_t(-32768 + tipo);
        a.Testo = QStringLiteral("prima riga") + CR + QStringLiteral("l'altra «riga»") + CR +
                  QStringLiteral("terza: è così");
        a.NomeFont = QStringLiteral("Times New Roman");
        a.SizeFont = 12 + tipo;
        a.Corsivo = 1;
        a.Grassetto = 2;
        a.NomeFileImmagine = QStringLiteral("/dati/File/figura %1.jpg").arg(tipo);
        lista.append(a);
    }
    return lista;
}

void PreparaDisegno(const QList<RecordAzione>& lista) {
    Azioni = lista;
    NumeroAzioni = int32_t(lista.size() - 1);
}

void ApriCartellaDiSistema() {
    CodiceCartellaAttiva = 1;
    NomeCartellaAttiva = QStringLiteral("·Disegni Generale");
}

// The fault a read must end in; a read that ends well gives number 0.
ErroreZanto ErroreDi(const std::function<void()>& lettura) {
    try {
        lettura();
    } catch (const ErroreZanto& e) {
        return e;
    }
    return ErroreZanto{0, QStringLiteral("nessun errore")};
}

} // namespace

class TestArchivioAzioni : public QObject {
    Q_OBJECT

private slots:
    void salva_e_carica_ogni_campo_di_ogni_azione();
    void ordine_per_numazione_e_non_per_inserimento();
    void testo_di_tre_righe_tiene_i_ritorni_a_capo();
    void disegno_senza_azioni_da_3021_e_lascia_la_lista_com_era();
    void oggetto_senza_azioni_da_3021_e_lascia_la_lista_com_era();
    void disegno_vuoto_salva_la_riga_senza_azioni();
    void nuovo_disegno_prende_il_codice_libero_e_passa_allo_stato_1();
    void sovrascrivere_tiene_il_codice_e_sostituisce_le_righe();
    void registra_come_nuovo_fa_un_secondo_disegno();
    void bitmap_si_rilegge_con_le_misure_e_i_pixel_del_quadro();
    void bitmap_vecchia_sostituita_dalla_nuova();
    void nome_con_apostrofo_salvato_e_ritrovato();
    void cartella_mancante_sul_disco_non_lascia_nulla_nell_archivio();
    void numazione_oltre_16_bit_da_errore_6_e_non_scrive_nulla();
    void lista_piu_lunga_possibile_si_salva_e_si_rilegge();
    void interlinea_fuori_dai_16_bit_in_archivio_da_errore_6();
    void campo_di_tipo_sbagliato_da_errore_3021();
    void riga_fuori_regola_da_errore_e_lascia_la_lista_com_era_data();
    void riga_fuori_regola_da_errore_e_lascia_la_lista_com_era();
    void valori_ai_limiti_si_leggono();
    void colonne_senza_tipo_si_leggono_per_nome_e_per_classe_del_valore();
    void colonna_mancante_da_errore_3265_e_lascia_la_lista_com_era();
    void lista_di_32768_azioni_da_errore_6_e_lascia_la_lista_com_era();
    void reale_non_finito_da_errore_6_e_non_scrive_nulla_data();
    void reale_non_finito_da_errore_6_e_non_scrive_nulla();
    void nan_nel_salvataggio_di_un_disegno_non_lascia_nulla();
    void testa_e_azioni_vanno_insieme();
    void testa_e_azioni_non_vanno_se_le_righe_falliscono();
    void testa_e_azioni_non_vanno_se_la_testa_fallisce();
    void azioni_su_un_disegno_inesistente_non_scrivono_nulla();
    void righe_gia_presenti_fanno_fallire_tutta_la_scrittura();
    void oggetto_da_una_selezione_tiene_i_tondini();
    void oggetto_prende_il_codice_libero_e_si_rilegge();
};

void TestArchivioAzioni::salva_e_carica_ogni_campo_di_ogni_azione() {
    AmbienteProva amb;
    amb.ApriArchivi();
    ApriCartellaDiSistema();
    Superficie quadro(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    const QList<RecordAzione> lista = UnaDiOgniTipo();
    PreparaDisegno(lista);
    NomeDisegnoCorrente = QStringLiteral("Tutto");
    QVERIFY(RegistraDisegno(quadro));
    CodiceDisegnoDaCaricare = CodiceDisegnoCorrente;
    CaricaAzioniDisegno();
    QCOMPARE(NumeroAzioniUndo, 7);
    QCOMPARE(AzioniUndo.size(), 8);
    for (int i = 1; i <= 7; ++i)
        QCOMPARE(AzioniUndo[i], lista[i]);
    QCOMPARE(AzioniUndo[3].XCentro, 7072.375f + 3.0f / 7.0f);
    QCOMPARE(AzioniUndo[7].RaggioOriz, 0.000123f * 7.0f);
    QVERIFY(amb.Scatole.isEmpty());
}

void TestArchivioAzioni::ordine_per_numazione_e_non_per_inserimento() {
    AmbienteProva amb;
    amb.ApriArchivi();
    Sql(ArchivioDisegni,
        QStringLiteral("INSERT INTO TabDisegni (CodiceDisegno, NomeDisegno, CodiceCartella)"
                       " VALUES (9, 'nove', 1)"));
    for (const int n : {3, 1, 2})
        Sql(ArchivioDisegni,
            QStringLiteral("INSERT INTO TabAzioniDisegno (CodiceDisegno, NumAzione, TipoAzione,"
                           " XInizio) VALUES (9, ?, 1, ?)"),
            {n, n * 10});
    CodiceDisegnoDaCaricare = 9;
    CaricaAzioniDisegno();
    QCOMPARE(NumeroAzioniUndo, 3);
    QCOMPARE(AzioniUndo[1].XInizio, 10);
    QCOMPARE(AzioniUndo[2].XInizio, 20);
    QCOMPARE(AzioniUndo[3].XInizio, 30);
}

void TestArchivioAzioni::testo_di_tre_righe_tiene_i_ritorni_a_capo() {
    AmbienteProva amb;
    amb.ApriArchivi();
    Sql(ArchivioDisegni,
        QStringLiteral("INSERT INTO TabDisegni (CodiceDisegno, NomeDisegno, CodiceCartella)"
                       " VALUES (1000001, '1000001', 1)"));
    RecordAzione t;
    t.TipoAzione = TipiAzione::Testo;
    t.Testo = QStringLiteral("uno") + CR + QStringLiteral("due") + CR + QStringLiteral("tre") + CR;
    AzioniDaRegistrare = {RecordAzione{}, t};
    NumeroAzioniDaRegistrare = 1;
    CodiceDisegnoDaRegistrare = 1000001;
    QVERIFY(RegistraAzioniDisegno());
    CodiceDisegnoDaCaricare = 1000001;
    CaricaAzioniDisegno();
    QCOMPARE(AzioniUndo[1].Testo, t.Testo);
    QCOMPARE(AzioniUndo[1].Testo.count(CR), 3);
}

void TestArchivioAzioni::disegno_senza_azioni_da_3021_e_lascia_la_lista_com_era() {
    AmbienteProva amb;
    amb.ApriArchivi();
    Sql(ArchivioDisegni,
        QStringLiteral("INSERT INTO TabDisegni (CodiceDisegno, NomeDisegno, CodiceCartella)"
                       " VALUES (4, 'vuoto', 1)"));
    AzioniUndo = UnaDiOgniTipo();
    NumeroAzioniUndo = 7;
    for (const int32_t codice : {4, 5}) {
        CodiceDisegnoDaCaricare = codice;
        QCOMPARE(ErroreDi(CaricaAzioniDisegno).Numero, 3021);
        QCOMPARE(NumeroAzioniUndo, 7);
        QCOMPARE(AzioniUndo, UnaDiOgniTipo());
    }
}

void TestArchivioAzioni::oggetto_senza_azioni_da_3021_e_lascia_la_lista_com_era() {
    AmbienteProva amb;
    amb.ApriArchivi();
    AzioniOggetto = UnaDiOgniTipo();
    NumeroAzioniOggetto = 7;
    CodiceOggettoDaCaricare = 1;
    QCOMPARE(ErroreDi(CaricaAzioniOggetto).Numero, 3021);
    QCOMPARE(NumeroAzioniOggetto, 7);
    QCOMPARE(AzioniOggetto, UnaDiOgniTipo());
}

void TestArchivioAzioni::disegno_vuoto_salva_la_riga_senza_azioni() {
    AmbienteProva amb;
    amb.ApriArchivi();
    ApriCartellaDiSistema();
    Superficie quadro(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    NomeDisegnoCorrente = QStringLiteral("Bianco");
    QVERIFY(RegistraDisegno(quadro));
    QCOMPARE(CodiceDisegnoCorrente, 1);
    QCOMPARE(Conta(ArchivioDisegni, QStringLiteral("SELECT COUNT(*) FROM TabDisegni")), 1);
    QCOMPARE(Conta(ArchivioDisegni, QStringLiteral("SELECT COUNT(*) FROM TabAzioniDisegno")), 0);
    QVERIFY(QFile::exists(PercorsoBitmapDisegno(NomeCartellaAttiva, CodiceCartellaAttiva,
                                                QStringLiteral("Bianco"), CodiceDisegnoCorrente)));
}

void TestArchivioAzioni::nuovo_disegno_prende_il_codice_libero_e_passa_allo_stato_1() {
    AmbienteProva amb;
    amb.ApriArchivi();
    ApriCartellaDiSistema();
    for (const int32_t c : {1, 2, 4, 1000001})
        Sql(ArchivioDisegni,
            QStringLiteral("INSERT INTO TabDisegni (CodiceDisegno, NomeDisegno, CodiceCartella)"
                           " VALUES (?, ?, 1)"),
            {c, QString::number(c)});
    Superficie quadro(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    PreparaDisegno(UnaDiOgniTipo());
    NomeDisegnoCorrente = QStringLiteral("Terzo");
    QCOMPARE(StatoDisegno, int16_t(2));
    QVERIFY(RegistraDisegno(quadro));
    QCOMPARE(CodiceDisegnoCorrente, 3);
    QCOMPARE(StatoDisegno, int16_t(1));
    QCOMPARE(CodiceDisegnoDaRegistrare, 3);
    QCOMPARE(TestaDisegno(3).Nome, QStringLiteral("Terzo"));
    QCOMPARE(TestaDisegno(3).Cartella, 1);
    QCOMPARE(Conta(ArchivioDisegni,
                   QStringLiteral("SELECT COUNT(*) FROM TabAzioniDisegno WHERE CodiceDisegno = 3")),
             7);
}

void TestArchivioAzioni::sovrascrivere_tiene_il_codice_e_sostituisce_le_righe() {
    AmbienteProva amb;
    amb.ApriArchivi();
    ApriCartellaDiSistema();
    Superficie quadro(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    PreparaDisegno(UnaDiOgniTipo());
    NomeDisegnoCorrente = QStringLiteral("Casa");
    QVERIFY(RegistraDisegno(quadro));
    const int32_t codice = CodiceDisegnoCorrente;
    // Two actions fewer, and the first one changed.
    QList<RecordAzione> meno = UnaDiOgniTipo().mid(0, 6);
    meno[1].XInizio = 4242;
    PreparaDisegno(meno);
    RegistraComeNuovo = 0;
    QVERIFY(RegistraDisegno(quadro));
    QCOMPARE(CodiceDisegnoCorrente, codice);
    QCOMPARE(StatoDisegno, int16_t(1));
    QCOMPARE(Conta(ArchivioDisegni, QStringLiteral("SELECT COUNT(*) FROM TabDisegni")), 1);
    QCOMPARE(Conta(ArchivioDisegni, QStringLiteral("SELECT COUNT(*) FROM TabAzioniDisegno")), 5);
    CodiceDisegnoDaCaricare = codice;
    CaricaAzioniDisegno();
    QCOMPARE(NumeroAzioniUndo, 5);
    QCOMPARE(AzioniUndo[1].XInizio, 4242);
}

void TestArchivioAzioni::registra_come_nuovo_fa_un_secondo_disegno() {
    AmbienteProva amb;
    amb.ApriArchivi();
    ApriCartellaDiSistema();
    Superficie quadro(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    PreparaDisegno(UnaDiOgniTipo());
    NomeDisegnoCorrente = QStringLiteral("Prima");
    QVERIFY(RegistraDisegno(quadro));
    NomeDisegnoCorrente = QStringLiteral("Seconda");
    RegistraComeNuovo = 1;
    QVERIFY(RegistraDisegno(quadro));
    QCOMPARE(CodiceDisegnoCorrente, 2);
    QCOMPARE(TestaDisegno(1).Nome, QStringLiteral("Prima"));
    QCOMPARE(TestaDisegno(2).Nome, QStringLiteral("Seconda"));
    QCOMPARE(Conta(ArchivioDisegni, QStringLiteral("SELECT COUNT(*) FROM TabAzioniDisegno")), 14);
    QVERIFY(QFile::exists(PercorsoBitmapDisegno(NomeCartellaAttiva, CodiceCartellaAttiva,
                                                QStringLiteral("Prima"), CodiceDisegnoCorrente)));
    QVERIFY(QFile::exists(PercorsoBitmapDisegno(NomeCartellaAttiva, CodiceCartellaAttiva,
                                                QStringLiteral("Seconda"), CodiceDisegnoCorrente)));
}

void TestArchivioAzioni::bitmap_si_rilegge_con_le_misure_e_i_pixel_del_quadro() {
    AmbienteProva amb;
    amb.ApriArchivi();
    ApriCartellaDiSistema();
    Superficie quadro(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    quadro.ImpostaBackColor(Predefiniti::ColoreSfondo);
    const RecordAzione box =
        CostruttoriAzioni::Rettangolo(1500, 1500, 4500, 4500, FlagPieno, 0x0000FF, 0x00FF00);
    PreparaDisegno({RecordAzione{}, box});
    PrimaAzioneTraccia = 1;
    UltimaAzioneTraccia = 1;
    TracciaAzioni(quadro);
    NomeDisegnoCorrente = QStringLiteral("Quadrato");
    QVERIFY(RegistraDisegno(quadro));
    const QString percorso =
        QDir(RadiceDati).filePath(QStringLiteral("Disegni/·Disegni Generale/Quadrato.bmp"));
    QCOMPARE(PercorsoBitmapDisegno(NomeCartellaAttiva, CodiceCartellaAttiva, NomeDisegnoCorrente,
                                   CodiceDisegnoCorrente),
             percorso);
    QImageReader lettore(percorso);
    QCOMPARE(lettore.format(), QByteArray("bmp"));
    const QImage letta = lettore.read();
    QCOMPARE(letta.size(), QSize(943, 667));
    QCOMPARE(Colore(letta, 200, 200), 0x00FF00);
    QCOMPARE(Colore(letta, 100, 200), 0x0000FF);
    QCOMPARE(Colore(letta, 600, 600), 0xC0C0C0);
}

void TestArchivioAzioni::bitmap_vecchia_sostituita_dalla_nuova() {
    AmbienteProva amb;
    amb.ApriArchivi();
    ApriCartellaDiSistema();
    Superficie quadro(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    quadro.ImpostaBackColor(0x0000FF);
    NomeDisegnoCorrente = QStringLiteral("Cielo");
    QVERIFY(RegistraDisegno(quadro));
    quadro.ImpostaBackColor(0xFF0000);
    RegistraComeNuovo = 0;
    QVERIFY(RegistraDisegno(quadro));
    const QString percorso = PercorsoBitmapDisegno(NomeCartellaAttiva, CodiceCartellaAttiva,
                                                   NomeDisegnoCorrente, CodiceDisegnoCorrente);
    QCOMPARE(Colore(QImage(percorso), 10, 10), 0xFF0000);
    const QStringList resti =
        QDir(PercorsoCartellaDisegni(NomeCartellaAttiva, CodiceCartellaAttiva))
            .entryList(QDir::Files);
    QCOMPARE(resti, QStringList{QStringLiteral("Cielo.bmp")});
}

void TestArchivioAzioni::nome_con_apostrofo_salvato_e_ritrovato() {
    AmbienteProva amb;
    amb.ApriArchivi();
    ApriCartellaDiSistema();
    Superficie quadro(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    PreparaDisegno(UnaDiOgniTipo());
    NomeDisegnoCorrente = QStringLiteral("L'isola d'Elba");
    QVERIFY(RegistraDisegno(quadro));
    QCOMPARE(CercaNomeDisegno(QStringLiteral("L'isola d'Elba"), 1), CodiceDisegnoCorrente);
    QVERIFY(QFile::exists(PercorsoBitmapDisegno(NomeCartellaAttiva, CodiceCartellaAttiva,
                                                NomeDisegnoCorrente, CodiceDisegnoCorrente)));
}

void TestArchivioAzioni::cartella_mancante_sul_disco_non_lascia_nulla_nell_archivio() {
    AmbienteProva amb;
    amb.ApriArchivi();
    Sql(ArchivioDisegni,
        QStringLiteral("INSERT INTO TabCartelle (CodiceCartella, NomeCartella) VALUES (2, ?)"),
        {QStringLiteral("Sparita")});
    CodiceCartellaAttiva = 2;
    NomeCartellaAttiva = QStringLiteral("Sparita"); // no directory of that name
    Superficie quadro(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    PreparaDisegno(UnaDiOgniTipo());
    NomeDisegnoCorrente = QStringLiteral("Perso");
    QVERIFY(!RegistraDisegno(quadro));
    QCOMPARE(amb.Scatole.size(), 1);
    QVERIFY(amb.Scatole[0].Testo.contains(QStringLiteral("(76/4330)")));
    QCOMPARE(Conta(ArchivioDisegni, QStringLiteral("SELECT COUNT(*) FROM TabDisegni")), 0);
    QCOMPARE(Conta(ArchivioDisegni, QStringLiteral("SELECT COUNT(*) FROM TabAzioniDisegno")), 0);
    QCOMPARE(StatoDisegno, int16_t(2));
    QCOMPARE(CodiceDisegnoCorrente, 0);
    QCOMPARE(NumeroAzioni, 7);
}

void TestArchivioAzioni::numazione_oltre_16_bit_da_errore_6_e_non_scrive_nulla() {
    AmbienteProva amb;
    amb.ApriArchivi();
    Sql(ArchivioDisegni,
        QStringLiteral("INSERT INTO TabDisegni (CodiceDisegno, NomeDisegno, CodiceCartella)"
                       " VALUES (1000001, '1000001', 1)"));
    RecordAzione linea;
    linea.TipoAzione = TipiAzione::Linea;
    AzioniDaRegistrare = QList<RecordAzione>(32769, linea);
    NumeroAzioniDaRegistrare = 32768;
    CodiceDisegnoDaRegistrare = 1000001;
    QVERIFY(!RegistraAzioniDisegno());
    QCOMPARE(amb.Scatole.size(), 1);
    QVERIFY(amb.Scatole[0].Testo.startsWith(QStringLiteral("ERRORE 6/4110")));
    QCOMPARE(Conta(ArchivioDisegni, QStringLiteral("SELECT COUNT(*) FROM TabAzioniDisegno")), 0);
}

void TestArchivioAzioni::lista_piu_lunga_possibile_si_salva_e_si_rilegge() {
    AmbienteProva amb;
    amb.ApriArchivi();
    Sql(ArchivioDisegni,
        QStringLiteral("INSERT INTO TabDisegni (CodiceDisegno, NomeDisegno, CodiceCartella)"
                       " VALUES (1000001, '1000001', 1)"));
    AzioniDaRegistrare = QList<RecordAzione>{RecordAzione{}};
    for (int32_t i = 1; i <= 32767; ++i) {
        RecordAzione a;
        a.TipoAzione = 1 + i % 7;
        a.XInizio = i;
        a.XCentro = float(i) + 0.5f;
        AzioniDaRegistrare.append(a);
    }
    NumeroAzioniDaRegistrare = 32767;
    CodiceDisegnoDaRegistrare = 1000001;
    QVERIFY(RegistraAzioniDisegno());
    CodiceDisegnoDaCaricare = 1000001;
    CaricaAzioniDisegno();
    QCOMPARE(NumeroAzioniUndo, 32767);
    QCOMPARE(AzioniUndo[32767].XInizio, 32767);
    QCOMPARE(AzioniUndo[16000].XCentro, 16000.5f);
    QCOMPARE(Conta(ArchivioDisegni, QStringLiteral("SELECT MAX(NumAzione) FROM TabAzioniDisegno")),
             32767);
}

void TestArchivioAzioni::interlinea_fuori_dai_16_bit_in_archivio_da_errore_6() {
    AmbienteProva amb;
    amb.ApriArchivi();
    Sql(ArchivioDisegni,
        QStringLiteral("INSERT INTO TabDisegni (CodiceDisegno, NomeDisegno, CodiceCartella)"
                       " VALUES (1, 'rotto', 1)"));
    Sql(ArchivioDisegni,
        QStringLiteral("INSERT INTO TabAzioniDisegno (CodiceDisegno, NumAzione, TipoAzione,"
                       " InterlineaTesto) VALUES (1, 1, 6, 40000)"));
    CodiceDisegnoDaCaricare = 1;
    QCOMPARE(ErroreDi(CaricaAzioniDisegno).Numero, 6);
    QCOMPARE(NumeroAzioniUndo, 0);
}

void TestArchivioAzioni::campo_di_tipo_sbagliato_da_errore_3021() {
    AmbienteProva amb;
    amb.ApriArchivi();
    Sql(ArchivioOggetti,
        QStringLiteral("INSERT INTO TabOggetti (CodiceOggetto, NomeOggetto, CodiceCartellaObj)"
                       " VALUES (1, 'rotto', 1)"));
    Sql(ArchivioOggetti,
        QStringLiteral("INSERT INTO TabAzioniOggetto (CodiceOggetto, NumAzione, TipoAzione,"
                       " XInizio) VALUES (1, 1, 1, 'dodici')"));
    CodiceOggettoDaCaricare = 1;
    {
        const ErroreZanto e = ErroreDi(CaricaAzioniOggetto);
        QCOMPARE(e.Numero, 3021);
        QVERIFY(e.Descrizione.contains(QStringLiteral("XInizio")));
    }
    QCOMPARE(NumeroAzioniOggetto, 0);
}

void TestArchivioAzioni::riga_fuori_regola_da_errore_e_lascia_la_lista_com_era_data() {
    QTest::addColumn<QString>("campo");
    QTest::addColumn<QVariant>("valore");
    QTest::addColumn<int>("errore");
    const QVariant nulla(QMetaType::fromType<QString>());
    QTest::newRow("TipoAzione NULL") << "TipoAzione" << nulla << 3021;
    QTest::newRow("TipoAzione 0") << "TipoAzione" << QVariant(0) << 6;
    QTest::newRow("TipoAzione 8, la selezione") << "TipoAzione" << QVariant(8) << 6;
    QTest::newRow("XInizio NULL") << "XInizio" << nulla << 3021;
    QTest::newRow("XInizio reale") << "XInizio" << QVariant(1.5) << 3021;
    QTest::newRow("YFine oltre 32 bit") << "YFine" << QVariant(qlonglong(1) << 31) << 6;
    QTest::newRow("ColLinea negativa") << "ColLinea" << QVariant(-1) << 6;
    QTest::newRow("ColZona oltre 24 bit") << "ColZona" << QVariant(0x1000000) << 6;
    QTest::newRow("FlagPienoVuoto 3") << "FlagPienoVuoto" << QVariant(3) << 6;
    QTest::newRow("SpessLinea oltre 16 bit") << "SpessLinea" << QVariant(32768) << 6;
    QTest::newRow("SpessLinea negativo") << "SpessLinea" << QVariant(-1) << 6;
    QTest::newRow("XCentro NULL") << "XCentro" << nulla << 3021;
    QTest::newRow("YCentro testo") << "YCentro" << QVariant(QStringLiteral("metà")) << 3021;
    QTest::newRow("RadIniz infinito")
        << "RadIniz" << QVariant(std::numeric_limits<double>::infinity()) << 6;
    QTest::newRow("RaggioVert oltre un float") << "RaggioVert" << QVariant(1e300) << 6;
    QTest::newRow("InterlineaTesto sotto 16 bit") << "InterlineaTesto" << QVariant(-32769) << 6;
    QTest::newRow("Testo NULL") << "Testo" << nulla << 3021;
    QTest::newRow("NomeFont blob") << "NomeFont" << QVariant(QByteArray("Arial")) << 3021;
    QTest::newRow("SizeFont negativo") << "SizeFont" << QVariant(-12) << 6;
    QTest::newRow("Corsivo 3") << "Corsivo" << QVariant(3) << 6;
    QTest::newRow("Grassetto reale") << "Grassetto" << QVariant(2.5) << 3021;
    QTest::newRow("NomeFileImmagine NULL") << "NomeFileImmagine" << nulla << 3021;
    // Values whose low 32 bits alone would pass.
    QTest::newRow("TipoAzione 2^32 + 1") << "TipoAzione" << QVariant((qlonglong(1) << 32) + 1) << 6;
    QTest::newRow("SizeFont 2^31") << "SizeFont" << QVariant(qlonglong(1) << 31) << 6;
    QTest::newRow("ColZona 2^63 - 1")
        << "ColZona" << QVariant(std::numeric_limits<qlonglong>::max()) << 6;
    // Too large for an integer: SQLite keeps it as a real.
    QTest::newRow("XFine 1e19") << "XFine" << QVariant(1e19) << 3021;
    QTest::newRow("YInizio blob") << "YInizio" << QVariant(QByteArray("\x01\x02")) << 3021;
    QTest::newRow("Corsivo NULL") << "Corsivo" << nulla << 3021;
    QTest::newRow("RaggioOriz blob") << "RaggioOriz" << QVariant(QByteArray("1.5")) << 3021;
}

void TestArchivioAzioni::riga_fuori_regola_da_errore_e_lascia_la_lista_com_era() {
    QFETCH(QString, campo);
    QFETCH(QVariant, valore);
    QFETCH(int, errore);
    AmbienteProva amb;
    amb.ApriArchivi();
    // A table as another program or an older schema could leave it: no NOT NULL.
    Sql(ArchivioDisegni, QStringLiteral("DROP TABLE TabAzioniDisegno"));
    Sql(ArchivioDisegni,
        QStringLiteral(
            "CREATE TABLE TabAzioniDisegno (CodiceDisegno INTEGER, NumAzione SMALLINT, ") +
            ColonneAzione().remove(QStringLiteral(" NOT NULL")) + ')');
    Sql(ArchivioDisegni,
        QStringLiteral("INSERT INTO TabDisegni (CodiceDisegno, NomeDisegno, CodiceCartella)"
                       " VALUES (1, 'rotto', 1)"));
    Sql(ArchivioDisegni,
        QStringLiteral("INSERT INTO TabAzioniDisegno (CodiceDisegno, NumAzione, TipoAzione)"
                       " VALUES (1, 1, 1), (1, 2, 1)"));
    Sql(ArchivioDisegni,
        QStringLiteral("UPDATE TabAzioniDisegno SET ") + campo +
            QStringLiteral(" = ? WHERE NumAzione = 2"),
        {valore});
    AzioniUndo = UnaDiOgniTipo();
    NumeroAzioniUndo = 7;
    CodiceDisegnoDaCaricare = 1;
    {
        const ErroreZanto e = ErroreDi(CaricaAzioniDisegno);
        QCOMPARE(e.Numero, errore);
        QVERIFY(e.Descrizione.contains(campo));
    }
    QCOMPARE(NumeroAzioniUndo, 7);
    QCOMPARE(AzioniUndo, UnaDiOgniTipo());
}

void TestArchivioAzioni::valori_ai_limiti_si_leggono() {
    AmbienteProva amb;
    amb.ApriArchivi();
    Sql(ArchivioDisegni,
        QStringLiteral("INSERT INTO TabDisegni (CodiceDisegno, NomeDisegno, CodiceCartella)"
                       " VALUES (1, 'limiti', 1)"));
    Sql(ArchivioDisegni,
        QStringLiteral("INSERT INTO TabAzioniDisegno (CodiceDisegno, NumAzione, TipoAzione,"
                       " XInizio, YFine, ColLinea, ColZona, FlagPienoVuoto, SpessLinea, XCentro,"
                       " InterlineaTesto, SizeFont, Corsivo, Grassetto)"
                       " VALUES (1, 1, 7, ?, ?, 16777215, 0, 2, 32767, 5, -32768, 0, 0, 2)"),
        {std::numeric_limits<int32_t>::min(), std::numeric_limits<int32_t>::max()});
    CodiceDisegnoDaCaricare = 1;
    CaricaAzioniDisegno();
    QCOMPARE(NumeroAzioniUndo, 1);
    const RecordAzione& a = AzioniUndo[1];
    QCOMPARE(a.TipoAzione, 7);
    QCOMPARE(a.XInizio, std::numeric_limits<int32_t>::min());
    QCOMPARE(a.YFine, std::numeric_limits<int32_t>::max());
    QCOMPARE(a.ColLinea, 0xFFFFFF);
    QCOMPARE(a.SpessLinea, 32767);
    QCOMPARE(a.XCentro, 5.0f);
    QCOMPARE(a.InterlineaTesto, int16_t(-32768));
}

void TestArchivioAzioni::colonne_senza_tipo_si_leggono_per_nome_e_per_classe_del_valore() {
    AmbienteProva amb;
    amb.ApriArchivi();
    // No declared types, so every value keeps the class it was written with;
    // the columns in another order and case than the record's.
    Sql(ArchivioDisegni, QStringLiteral("DROP TABLE TabAzioniDisegno"));
    Sql(ArchivioDisegni,
        QStringLiteral("CREATE TABLE TabAzioniDisegno (nomefileimmagine, GRASSETTO, Corsivo,"
                       " SizeFont, NomeFont, Testo, InterlineaTesto, RaggioOriz, RaggioVert,"
                       " RadFine, RadIniz, YCentro, XCentro, SpessLinea, FlagPienoVuoto, ColZona,"
                       " ColLinea, YFine, XFine, YInizio, XInizio, tipoazione, NumAzione,"
                       " CodiceDisegno)"));
    Sql(ArchivioDisegni,
        QStringLiteral("INSERT INTO TabDisegni (CodiceDisegno, NomeDisegno, CodiceCartella)"
                       " VALUES (1, 'sparso', 1)"));
    Sql(ArchivioDisegni,
        QStringLiteral("INSERT INTO TabAzioniDisegno VALUES ('/f.jpg', 2, 1, 14, 'Arial', '',"
                       " -3, 2, 0.5, 6, 1, 2.25, 300, 4, 1, 255, 65280, -5, 6, 7, 8, 7, 1, 1)"));
    CodiceDisegnoDaCaricare = 1;
    CaricaAzioniDisegno();
    QCOMPARE(NumeroAzioniUndo, 1);
    RecordAzione atteso;
    atteso.TipoAzione = 7;
    atteso.XInizio = 8;
    atteso.YInizio = 7;
    atteso.XFine = 6;
    atteso.YFine = -5;
    atteso.ColLinea = 65280;
    atteso.ColZona = 255;
    atteso.FlagPienoVuoto = 1;
    atteso.SpessLinea = 4;
    atteso.XCentro = 300.0f; // an integer is a float's value too
    atteso.YCentro = 2.25f;
    atteso.RadIniz = 1.0f;
    atteso.RadFine = 6.0f;
    atteso.RaggioVert = 0.5f;
    atteso.RaggioOriz = 2.0f;
    atteso.InterlineaTesto = -3;
    atteso.NomeFont = QStringLiteral("Arial");
    atteso.SizeFont = 14;
    atteso.Corsivo = 1;
    atteso.Grassetto = 2;
    atteso.NomeFileImmagine = QStringLiteral("/f.jpg");
    QCOMPARE(AzioniUndo[1], atteso);
    QVERIFY(AzioniUndo[1].Testo.isEmpty());
    // Without a type to convert it, a number written as text stays text.
    Sql(ArchivioDisegni,
        QStringLiteral("INSERT INTO TabAzioniDisegno SELECT nomefileimmagine, GRASSETTO, Corsivo,"
                       " SizeFont, NomeFont, Testo, InterlineaTesto, RaggioOriz, RaggioVert,"
                       " RadFine, RadIniz, YCentro, XCentro, SpessLinea, FlagPienoVuoto, ColZona,"
                       " ColLinea, YFine, XFine, YInizio, '12', tipoazione, 2, CodiceDisegno"
                       " FROM TabAzioniDisegno"));
    {
        const ErroreZanto e = ErroreDi(CaricaAzioniDisegno);
        QCOMPARE(e.Numero, 3021);
        QVERIFY(e.Descrizione.contains(QStringLiteral("XInizio")));
    }
    QCOMPARE(NumeroAzioniUndo, 1);
    QCOMPARE(AzioniUndo[1], atteso);
    // A name as text is read as text, and a whole number in a text column is not.
    Sql(ArchivioDisegni, QStringLiteral("UPDATE TabAzioniDisegno SET XInizio = 12,"
                                        " NomeFont = 12 WHERE NumAzione = 2"));
    {
        const ErroreZanto e = ErroreDi(CaricaAzioniDisegno);
        QCOMPARE(e.Numero, 3021);
        QVERIFY(e.Descrizione.contains(QStringLiteral("NomeFont")));
    }
    Sql(ArchivioDisegni,
        QStringLiteral("UPDATE TabAzioniDisegno SET NomeFont = '12' WHERE NumAzione = 2"));
    CaricaAzioniDisegno();
    QCOMPARE(NumeroAzioniUndo, 2);
    QCOMPARE(AzioniUndo[2].XInizio, 12);
    QCOMPARE(AzioniUndo[2].NomeFont, QStringLiteral("12"));
}

void TestArchivioAzioni::colonna_mancante_da_errore_3265_e_lascia_la_lista_com_era() {
    AmbienteProva amb;
    amb.ApriArchivi();
    Sql(ArchivioOggetti, QStringLiteral("ALTER TABLE TabAzioniOggetto DROP COLUMN RadFine"));
    Sql(ArchivioOggetti,
        QStringLiteral("INSERT INTO TabOggetti (CodiceOggetto, NomeOggetto, CodiceCartellaObj)"
                       " VALUES (1, 'monco', 1)"));
    Sql(ArchivioOggetti,
        QStringLiteral("INSERT INTO TabAzioniOggetto (CodiceOggetto, NumAzione, TipoAzione)"
                       " VALUES (1, 1, 1)"));
    AzioniOggetto = UnaDiOgniTipo();
    NumeroAzioniOggetto = 7;
    CodiceOggettoDaCaricare = 1;
    {
        const ErroreZanto e = ErroreDi(CaricaAzioniOggetto);
        QCOMPARE(e.Numero, 3265);
        QVERIFY(e.Descrizione.contains(QStringLiteral("RadFine")));
    }
    QCOMPARE(NumeroAzioniOggetto, 7);
    QCOMPARE(AzioniOggetto, UnaDiOgniTipo());
}

void TestArchivioAzioni::lista_di_32768_azioni_da_errore_6_e_lascia_la_lista_com_era() {
    AmbienteProva amb;
    amb.ApriArchivi();
    Sql(ArchivioDisegni,
        QStringLiteral("INSERT INTO TabDisegni (CodiceDisegno, NomeDisegno, CodiceCartella)"
                       " VALUES (5, 'lungo', 1)"));
    Sql(ArchivioDisegni,
        QStringLiteral("INSERT INTO TabAzioniDisegno (CodiceDisegno, NumAzione, TipoAzione)"
                       " WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n"
                       " WHERE i < 32768) SELECT 5, i, 1 FROM n"));
    AzioniUndo = UnaDiOgniTipo();
    NumeroAzioniUndo = 7;
    CodiceDisegnoDaCaricare = 5;
    QCOMPARE(ErroreDi(CaricaAzioniDisegno).Numero, 6);
    QCOMPARE(NumeroAzioniUndo, 7);
    QCOMPARE(AzioniUndo, UnaDiOgniTipo());
    // One row fewer is the longest list there is, and reads.
    Sql(ArchivioDisegni,
        QStringLiteral("DELETE FROM TabAzioniDisegno WHERE CodiceDisegno = 5 AND NumAzione = 1"));
    CaricaAzioniDisegno();
    QCOMPARE(NumeroAzioniUndo, 32767);
}

void TestArchivioAzioni::reale_non_finito_da_errore_6_e_non_scrive_nulla_data() {
    QTest::addColumn<int>("campo");
    QTest::addColumn<float>("valore");
    const float nan = std::numeric_limits<float>::quiet_NaN();
    const float inf = std::numeric_limits<float>::infinity();
    QTest::newRow("XCentro NaN") << 0 << nan;
    QTest::newRow("YCentro +inf") << 1 << inf;
    QTest::newRow("RadIniz -inf") << 2 << -inf;
    QTest::newRow("RadFine NaN") << 3 << nan;
    QTest::newRow("RaggioVert +inf") << 4 << inf;
    QTest::newRow("RaggioOriz NaN") << 5 << nan;
}

void TestArchivioAzioni::reale_non_finito_da_errore_6_e_non_scrive_nulla() {
    QFETCH(int, campo);
    QFETCH(float, valore);
    AmbienteProva amb;
    amb.ApriArchivi();
    Sql(ArchivioDisegni,
        QStringLiteral("INSERT INTO TabDisegni (CodiceDisegno, NomeDisegno, CodiceCartella)"
                       " VALUES (1000001, '1000001', 1)"));
    AzioniDaRegistrare = UnaDiOgniTipo();
    RecordAzione& a = AzioniDaRegistrare[7]; // the last: the others would already be in
    std::array<float*, 6> reali = {&a.XCentro, &a.YCentro,    &a.RadIniz,
                                   &a.RadFine, &a.RaggioVert, &a.RaggioOriz};
    *reali[size_t(campo)] = valore;
    NumeroAzioniDaRegistrare = 7;
    CodiceDisegnoDaRegistrare = 1000001;
    QVERIFY(!RegistraAzioniDisegno());
    QCOMPARE(amb.Scatole.size(), 1);
    QVERIFY(amb.Scatole[0].Testo.startsWith(QStringLiteral("ERRORE 6/4110")));
    QVERIFY(amb.Scatole[0].Testo.contains(QStringLiteral("Overflow")));
    QCOMPARE(Conta(ArchivioDisegni, QStringLiteral("SELECT COUNT(*) FROM TabAzioniDisegno")), 0);
    // Objects go through the same row writer.
    Sql(ArchivioOggetti,
        QStringLiteral("INSERT INTO TabOggetti (CodiceOggetto, NomeOggetto, CodiceCartellaObj)"
                       " VALUES (1, 'uno', 1)"));
    AzioniOggettoDaRegistrare = AzioniDaRegistrare;
    NumeroAzioniOggettoDaRegistrare = 7;
    CodiceOggettoDaRegistrare = 1;
    QVERIFY(!RegistraAzioniOggetto());
    QCOMPARE(amb.Scatole.size(), 2);
    QVERIFY(amb.Scatole[1].Testo.startsWith(QStringLiteral("ERRORE 6/4210")));
    QCOMPARE(Conta(ArchivioOggetti, QStringLiteral("SELECT COUNT(*) FROM TabAzioniOggetto")), 0);
}

void TestArchivioAzioni::nan_nel_salvataggio_di_un_disegno_non_lascia_nulla() {
    AmbienteProva amb;
    amb.ApriArchivi();
    ApriCartellaDiSistema();
    Superficie quadro(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    QList<RecordAzione> lista = UnaDiOgniTipo();
    lista[5].XCentro = std::numeric_limits<float>::quiet_NaN();
    PreparaDisegno(lista);
    NomeDisegnoCorrente = QStringLiteral("Guasto");
    QVERIFY(!RegistraDisegno(quadro));
    QCOMPARE(amb.Scatole.size(), 1);
    QVERIFY(amb.Scatole[0].Testo.startsWith(QStringLiteral("ERRORE 6/4320")));
    QVERIFY(amb.Scatole[0].Testo.contains(QStringLiteral("Overflow nel campo XCentro")));
    QCOMPARE(Conta(ArchivioDisegni, QStringLiteral("SELECT COUNT(*) FROM TabDisegni")), 0);
    QCOMPARE(Conta(ArchivioDisegni, QStringLiteral("SELECT COUNT(*) FROM TabAzioniDisegno")), 0);
    QVERIFY(!QFile::exists(PercorsoBitmapDisegno(NomeCartellaAttiva, CodiceCartellaAttiva,
                                                 NomeDisegnoCorrente, CodiceDisegnoCorrente)));
    QCOMPARE(StatoDisegno, int16_t(2));
}

void TestArchivioAzioni::testa_e_azioni_vanno_insieme() {
    AmbienteProva amb;
    amb.ApriArchivi();
    AzioniDaRegistrare = UnaDiOgniTipo();
    NumeroAzioniDaRegistrare = 7;
    CodiceDisegnoDaRegistrare = 1000003;
    QVERIFY(RegistraTestaEAzioniDisegno(QStringLiteral("1000003"), 1));
    QCOMPARE(TestaDisegno(1000003).Nome, QStringLiteral("1000003"));
    QCOMPARE(TestaDisegno(1000003).Cartella, 1);
    CodiceDisegnoDaCaricare = 1000003;
    CaricaAzioniDisegno();
    QCOMPARE(AzioniUndo, UnaDiOgniTipo());
    QVERIFY(amb.Scatole.isEmpty());
}

void TestArchivioAzioni::testa_e_azioni_non_vanno_se_le_righe_falliscono() {
    AmbienteProva amb;
    amb.ApriArchivi();
    Sql(ArchivioDisegni,
        QStringLiteral("CREATE TRIGGER Rifiuta BEFORE INSERT ON TabAzioniDisegno"
                       " WHEN NEW.NumAzione = 7 BEGIN SELECT RAISE(ABORT, 'rifiutata'); END"));
    AzioniDaRegistrare = UnaDiOgniTipo();
    NumeroAzioniDaRegistrare = 7;
    CodiceDisegnoDaRegistrare = 1000001;
    QVERIFY(!RegistraTestaEAzioniDisegno(QStringLiteral("1000001"), 1));
    QCOMPARE(amb.Scatole.size(), 1);
    QVERIFY(amb.Scatole[0].Testo.contains(QStringLiteral("/4520")));
    QCOMPARE(Conta(ArchivioDisegni, QStringLiteral("SELECT COUNT(*) FROM TabDisegni")), 0);
    QCOMPARE(Conta(ArchivioDisegni, QStringLiteral("SELECT COUNT(*) FROM TabAzioniDisegno")), 0);
}

void TestArchivioAzioni::testa_e_azioni_non_vanno_se_la_testa_fallisce() {
    AmbienteProva amb;
    amb.ApriArchivi();
    Sql(ArchivioDisegni,
        QStringLiteral("INSERT INTO TabDisegni (CodiceDisegno, NomeDisegno, CodiceCartella)"
                       " VALUES (1000001, 'preso', 1)"));
    AzioniDaRegistrare = UnaDiOgniTipo();
    NumeroAzioniDaRegistrare = 7;
    CodiceDisegnoDaRegistrare = 1000001;
    QVERIFY(!RegistraTestaEAzioniDisegno(QStringLiteral("1000001"), 1));
    QCOMPARE(amb.Scatole.size(), 1);
    QVERIFY(amb.Scatole[0].Testo.startsWith(QStringLiteral("ERRORE 3022/4510")));
    QCOMPARE(TestaDisegno(1000001).Nome, QStringLiteral("preso"));
    QCOMPARE(Conta(ArchivioDisegni, QStringLiteral("SELECT COUNT(*) FROM TabAzioniDisegno")), 0);
}

void TestArchivioAzioni::azioni_su_un_disegno_inesistente_non_scrivono_nulla() {
    AmbienteProva amb;
    amb.ApriArchivi();
    AzioniDaRegistrare = UnaDiOgniTipo();
    NumeroAzioniDaRegistrare = 7;
    CodiceDisegnoDaRegistrare = 77;
    QVERIFY(!RegistraAzioniDisegno());
    QCOMPARE(amb.Scatole.size(), 1);
    QVERIFY(amb.Scatole[0].Testo.contains(QStringLiteral("/4110")));
    QCOMPARE(Conta(ArchivioDisegni, QStringLiteral("SELECT COUNT(*) FROM TabAzioniDisegno")), 0);
}

void TestArchivioAzioni::righe_gia_presenti_fanno_fallire_tutta_la_scrittura() {
    AmbienteProva amb;
    amb.ApriArchivi();
    Sql(ArchivioOggetti,
        QStringLiteral("INSERT INTO TabOggetti (CodiceOggetto, NomeOggetto, CodiceCartellaObj)"
                       " VALUES (3, 'tre', 1)"));
    Sql(ArchivioOggetti,
        QStringLiteral("INSERT INTO TabAzioniOggetto (CodiceOggetto, NumAzione, XInizio)"
                       " VALUES (3, 5, 99)"));
    AzioniOggettoDaRegistrare = UnaDiOgniTipo();
    NumeroAzioniOggettoDaRegistrare = 7;
    CodiceOggettoDaRegistrare = 3;
    QVERIFY(!RegistraAzioniOggetto());
    QCOMPARE(amb.Scatole.size(), 1);
    QVERIFY(amb.Scatole[0].Testo.startsWith(QStringLiteral("ERRORE 3022/4210")));
    // Rows 1 to 4 went in before the clash, and went out with the rollback.
    QCOMPARE(Conta(ArchivioOggetti, QStringLiteral("SELECT COUNT(*) FROM TabAzioniOggetto")), 1);
}

void TestArchivioAzioni::oggetto_da_una_selezione_tiene_i_tondini() {
    AmbienteProva amb;
    amb.ApriArchivi();
    const RecordAzione tondino = CostruttoriAzioni::Colorazione(100.25f, 200.75f, 0, FlagVuoto);
    ElementiAttivi = {RecordAzione{}, UnaDiOgniTipo()[1], tondino};
    NumeroElementiAttivi = 2;
    NomeOggettoDaRegistrare = QStringLiteral("Fiore");
    CodiceCartellaObjAttiva = 1;
    QVERIFY(RegistraOggetto());
    CodiceOggettoDaCaricare = CodiceOggettoDaRegistrare;
    CaricaAzioniOggetto();
    QCOMPARE(NumeroAzioniOggetto, 2);
    QCOMPARE(AzioniOggetto[2].TipoAzione, TipiAzione::Colorazione);
    QCOMPARE(AzioniOggetto[2].FlagPienoVuoto, FlagVuoto);
    QCOMPARE(AzioniOggetto[2].XCentro, 100.25f);
    QCOMPARE(AzioniOggetto[1], UnaDiOgniTipo()[1]);
}

void TestArchivioAzioni::oggetto_prende_il_codice_libero_e_si_rilegge() {
    AmbienteProva amb;
    amb.ApriArchivi();
    for (const int32_t c : {1, 3})
        Sql(ArchivioOggetti,
            QStringLiteral("INSERT INTO TabOggetti (CodiceOggetto, NomeOggetto, CodiceCartellaObj)"
                           " VALUES (?, 'x', 1)"),
            {c});
    ElementiAttivi = UnaDiOgniTipo();
    NumeroElementiAttivi = 7;
    NomeOggettoDaRegistrare = QStringLiteral("L'albero");
    CodiceCartellaObjAttiva = 1;
    QVERIFY(RegistraOggetto());
    QCOMPARE(CodiceOggettoDaRegistrare, 2);
    QCOMPARE(NumeroAzioniOggettoDaRegistrare, 7);
    QCOMPARE(CercaNomeOggetto(QStringLiteral("L'albero"), 1), 2);
    CodiceOggettoDaCaricare = 2;
    CaricaAzioniOggetto();
    QCOMPARE(AzioniOggetto, UnaDiOgniTipo());
}

QTEST_MAIN(TestArchivioAzioni)
#include "test_archivio_azioni.moc"
