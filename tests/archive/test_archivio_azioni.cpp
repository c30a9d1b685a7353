// Reading and writing action lists, saving drawings and objects, and the
// bitmap a saved drawing leaves on disk.

#include "archive/Archivi.h"
#include "archive/ArchivioAzioni.h"
#include "archive/IstruzioniArchivio.h"
#include "model/RecordAzione.h"
#include "model/Superficie.h"
#include "model/TracciaAzioni.h"
#include "start/Avvio.h"
#include "start/MenuGenerale.h"
#include "support/AmbienteProva.h"
#include "support/SondePixel.h"

#include <QDir>
#include <QFile>
#include <QImageReader>
#include <QSqlError>
#include <QSqlQuery>
#include <QtTest>

namespace {

using namespace SondePixel;

const QString CR(QChar(u'\r'));

void Sql(const QString& connessione, const QString& testo, const QVariantList& valori = {}) {
    QSqlQuery q(Archivio(connessione));
    if (!q.prepare(testo)) qFatal("%s", qPrintable(q.lastError().text()));
    for (const QVariant& v : valori)
        q.addBindValue(v);
    if (!q.exec()) qFatal("%s", qPrintable(q.lastError().text()));
}

int Conta(const QString& connessione, const QString& testo) {
    QSqlQuery q(Archivio(connessione));
    if (!q.exec(testo) || !q.next()) qFatal("%s", qPrintable(q.lastError().text()));
    return q.value(0).toInt();
}

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
    void campo_di_tipo_sbagliato_da_errore_13();
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
            QStringLiteral("INSERT INTO TabAzioniDisegno (CodiceDisegno, NumAzione, XInizio)"
                           " VALUES (9, ?, ?)"),
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
        try {
            CaricaAzioniDisegno();
            QFAIL("nessun errore");
        } catch (const ErroreZanto& e) {
            QCOMPARE(e.Numero, 3021);
        }
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
    try {
        CaricaAzioniOggetto();
        QFAIL("nessun errore");
    } catch (const ErroreZanto& e) {
        QCOMPARE(e.Numero, 3021);
    }
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
    QVERIFY(QFile::exists(PercorsoBitmapDisegno(NomeCartellaAttiva, QStringLiteral("Bianco"))));
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
    QVERIFY(QFile::exists(PercorsoBitmapDisegno(NomeCartellaAttiva, QStringLiteral("Prima"))));
    QVERIFY(QFile::exists(PercorsoBitmapDisegno(NomeCartellaAttiva, QStringLiteral("Seconda"))));
}

void TestArchivioAzioni::bitmap_si_rilegge_con_le_misure_e_i_pixel_del_quadro() {
    AmbienteProva amb;
    amb.ApriArchivi();
    ApriCartellaDiSistema();
    Superficie quadro(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    quadro.ImpostaBackColor(Predefiniti::ColoreSfondo);
    RecordAzione box;
    box.TipoAzione = TipiAzione::Rettangolo;
    box.XInizio = 1500;
    box.YInizio = 1500;
    box.XFine = 4500;
    box.YFine = 4500;
    box.ColLinea = 0x0000FF;
    box.ColZona = 0x00FF00;
    box.FlagPienoVuoto = FlagPieno;
    box.SpessLinea = 1;
    PreparaDisegno({RecordAzione{}, box});
    PrimaAzioneTraccia = 1;
    UltimaAzioneTraccia = 1;
    TracciaAzioni(quadro);
    NomeDisegnoCorrente = QStringLiteral("Quadrato");
    QVERIFY(RegistraDisegno(quadro));
    const QString percorso =
        QDir(RadiceDati).filePath(QStringLiteral("Disegni/·Disegni Generale/Quadrato.bmp"));
    QCOMPARE(PercorsoBitmapDisegno(NomeCartellaAttiva, NomeDisegnoCorrente), percorso);
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
    const QString percorso = PercorsoBitmapDisegno(NomeCartellaAttiva, NomeDisegnoCorrente);
    QCOMPARE(Colore(QImage(percorso), 10, 10), 0xFF0000);
    const QStringList resti =
        QDir(PercorsoCartellaDisegni(NomeCartellaAttiva)).entryList(QDir::Files);
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
    QVERIFY(QFile::exists(PercorsoBitmapDisegno(NomeCartellaAttiva, NomeDisegnoCorrente)));
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
    try {
        CaricaAzioniDisegno();
        QFAIL("nessun errore");
    } catch (const ErroreZanto& e) {
        QCOMPARE(e.Numero, 6);
    }
    QCOMPARE(NumeroAzioniUndo, 0);
}

void TestArchivioAzioni::campo_di_tipo_sbagliato_da_errore_13() {
    AmbienteProva amb;
    amb.ApriArchivi();
    Sql(ArchivioOggetti,
        QStringLiteral("INSERT INTO TabOggetti (CodiceOggetto, NomeOggetto, CodiceCartellaObj)"
                       " VALUES (1, 'rotto', 1)"));
    Sql(ArchivioOggetti,
        QStringLiteral("INSERT INTO TabAzioniOggetto (CodiceOggetto, NumAzione, XInizio)"
                       " VALUES (1, 1, 'dodici')"));
    CodiceOggettoDaCaricare = 1;
    try {
        CaricaAzioniOggetto();
        QFAIL("nessun errore");
    } catch (const ErroreZanto& e) {
        QCOMPARE(e.Numero, 13);
    }
    QCOMPARE(NumeroAzioniOggetto, 0);
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
    RecordAzione tondino;
    tondino.TipoAzione = TipiAzione::Colorazione;
    tondino.XCentro = 100.25f;
    tondino.YCentro = 200.75f;
    tondino.FlagPienoVuoto = FlagVuoto;
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
