// The statements on the archives of drawings and objects: the lowest free
// code, the lists in their order, the name search and the deletions that
// carry their dependent rows with them.

#include "archive/Archivi.h"
#include "archive/IstruzioniArchivio.h"
#include "model/RecordAzione.h"
#include "support/AmbienteProva.h"
#include "support/SqlProva.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QtTest>

#include <array>
#include <functional>

namespace {

using SqlProva::Sql;

using SqlProva::Conta;

void Cartella(int32_t codice, const QString& nome) {
    Sql(ArchivioDisegni,
        QStringLiteral("INSERT INTO TabCartelle (CodiceCartella, NomeCartella) VALUES (?, ?)"),
        {codice, nome});
}

void CartellaObj(int32_t codice, const QString& nome) {
    Sql(ArchivioOggetti,
        QStringLiteral(
            "INSERT INTO TabCartelleObj (CodiceCartellaObj, NomeCartellaObj) VALUES (?, ?)"),
        {codice, nome});
}

// A drawing with `azioni` action rows.
void Disegno(int32_t codice, const QString& nome, int32_t cartella = 1, int azioni = 0) {
    Sql(ArchivioDisegni,
        QStringLiteral(
            "INSERT INTO TabDisegni (CodiceDisegno, NomeDisegno, CodiceCartella) VALUES (?, ?, ?)"),
        {codice, nome, cartella});
    for (int i = 1; i <= azioni; ++i)
        Sql(ArchivioDisegni,
            QStringLiteral("INSERT INTO TabAzioniDisegno (CodiceDisegno, NumAzione, TipoAzione)"
                           " VALUES (?, ?, 1)"),
            {codice, i});
}

void Oggetto(int32_t codice, const QString& nome, int32_t cartella = 1, int azioni = 0) {
    Sql(ArchivioOggetti,
        QStringLiteral("INSERT INTO TabOggetti (CodiceOggetto, NomeOggetto, CodiceCartellaObj)"
                       " VALUES (?, ?, ?)"),
        {codice, nome, cartella});
    for (int i = 1; i <= azioni; ++i)
        Sql(ArchivioOggetti,
            QStringLiteral("INSERT INTO TabAzioniOggetto (CodiceOggetto, NumAzione, TipoAzione)"
                           " VALUES (?, ?, 5)"),
            {codice, i});
}

QList<int32_t> Codici(const QList<RigaArchivio>& righe) {
    QList<int32_t> codici;
    for (const RigaArchivio& r : righe)
        codici.append(r.Codice);
    return codici;
}

QStringList Nomi(const QList<RigaArchivio>& righe) {
    QStringList nomi;
    for (const RigaArchivio& r : righe)
        nomi.append(r.Nome);
    return nomi;
}

} // namespace

class TestIstruzioniArchivio : public QObject {
    Q_OBJECT

private slots:
    void tabella_vuota_da_il_codice_1();
    void codici_1_2_4_danno_3();
    void codici_1_2_3_e_una_copia_di_lavoro_danno_4();
    void senza_buchi_il_codice_e_l_ultimo_piu_uno();
    void cartelle_di_sistema_hanno_il_codice_1_e_la_prossima_e_2();
    void codice_liberato_torna_libero_senza_righe_orfane();
    void eliminare_un_disegno_toglie_le_sue_azioni();
    void eliminare_un_oggetto_toglie_le_sue_azioni();
    void eliminare_una_cartella_toglie_disegni_e_azioni();
    void eliminare_una_cartella_di_oggetti_toglie_oggetti_e_azioni();
    void copie_di_lavoro_contate_ed_eliminate_insieme();
    void elenchi_in_ordine_di_codice_e_di_nome();
    void disegni_della_cartella_lasciano_fuori_le_copie_di_lavoro();
    void nome_con_apostrofo_si_trova_come_gli_altri();
    void nome_cercato_senza_badare_alle_maiuscole_e_solo_nella_cartella();
    void nomi_accentati_si_trovano_in_ogni_grafia();
    void una_riga_danneggiata_e_detta_e_le_altre_si_leggono();
    void testa_di_un_disegno_assente_e_errore_3021();
    void archivio_non_aperto_e_un_errore_numerato();
    void codici_sotto_1_non_danno_un_codice_sotto_1();
    void codice_di_tipo_sbagliato_da_3021_al_codice_libero();
    void codice_oltre_32_bit_negli_elenchi_da_errore_6();
    void codice_0_o_negativo_negli_elenchi_da_errore_6();
    void nome_o_cartella_mancante_da_3021();
    void nome_di_tipo_sbagliato_da_3021();
    void ultima_copia_e_la_piu_alta_anche_con_un_buco();
    void riprendere_le_copie_toglie_le_teste_senza_righe();
    void riprendere_senza_copie_da_la_base();
};

void TestIstruzioniArchivio::tabella_vuota_da_il_codice_1() {
    AmbienteProva amb;
    amb.ApriArchivi();
    QCOMPARE(CodiceLiberoMinimo(TipoCodice::Disegno), 1);
    QCOMPARE(CodiceLiberoMinimo(TipoCodice::Oggetto), 1);
    Sql(ArchivioDisegni, QStringLiteral("DELETE FROM TabCartelle"));
    Sql(ArchivioOggetti, QStringLiteral("DELETE FROM TabCartelleObj"));
    QCOMPARE(CodiceLiberoMinimo(TipoCodice::Cartella), 1);
    QCOMPARE(CodiceLiberoMinimo(TipoCodice::CartellaObj), 1);
}

void TestIstruzioniArchivio::codici_1_2_4_danno_3() {
    AmbienteProva amb;
    amb.ApriArchivi();
    for (const int32_t c : {4, 1, 2}) {
        Disegno(c, QString::number(c));
        Oggetto(c, QString::number(c));
        Cartella(c + 1, QString::number(c)); // 2, 3, 5 beside the system folder
        CartellaObj(c + 1, QString::number(c));
    }
    QCOMPARE(CodiceLiberoMinimo(TipoCodice::Disegno), 3);
    QCOMPARE(CodiceLiberoMinimo(TipoCodice::Oggetto), 3);
    QCOMPARE(CodiceLiberoMinimo(TipoCodice::Cartella), 4);
    QCOMPARE(CodiceLiberoMinimo(TipoCodice::CartellaObj), 4);
}

void TestIstruzioniArchivio::codici_1_2_3_e_una_copia_di_lavoro_danno_4() {
    AmbienteProva amb;
    amb.ApriArchivi();
    for (const int32_t c : {1, 2, 3, 1000001})
        Disegno(c, QString::number(c));
    QCOMPARE(CodiceLiberoMinimo(TipoCodice::Disegno), 4);
}

void TestIstruzioniArchivio::senza_buchi_il_codice_e_l_ultimo_piu_uno() {
    AmbienteProva amb;
    amb.ApriArchivi();
    for (const int32_t c : {1, 2, 3})
        Disegno(c, QString::number(c));
    QCOMPARE(CodiceLiberoMinimo(TipoCodice::Disegno), 4);
    Disegno(5, QStringLiteral("cinque"));
    Disegno(4, QStringLiteral("quattro"));
    QCOMPARE(CodiceLiberoMinimo(TipoCodice::Disegno), 6);
}

void TestIstruzioniArchivio::cartelle_di_sistema_hanno_il_codice_1_e_la_prossima_e_2() {
    AmbienteProva amb;
    amb.ApriArchivi();
    const QList<RigaArchivio> cartelle = CartelleInOrdineDiCodice();
    QCOMPARE(cartelle.size(), 1);
    QCOMPARE(cartelle[0].Codice, 1);
    QCOMPARE(cartelle[0].Nome, QStringLiteral("·Disegni Generale"));
    QCOMPARE(CartelleObjInOrdineDiCodice()[0].Nome, QStringLiteral("·Oggetti Generale"));
    QCOMPARE(CodiceLiberoMinimo(TipoCodice::Cartella), 2);
    QCOMPARE(CodiceLiberoMinimo(TipoCodice::CartellaObj), 2);
}

void TestIstruzioniArchivio::codice_liberato_torna_libero_senza_righe_orfane() {
    AmbienteProva amb;
    amb.ApriArchivi();
    Disegno(1, QStringLiteral("uno"), 1, 3);
    Disegno(2, QStringLiteral("due"), 1, 4);
    EliminaDisegno(1);
    QCOMPARE(CodiceLiberoMinimo(TipoCodice::Disegno), 1);
    Disegno(1, QStringLiteral("nuovo"), 1, 0);
    QCOMPARE(Conta(ArchivioDisegni,
                   QStringLiteral("SELECT COUNT(*) FROM TabAzioniDisegno WHERE CodiceDisegno = 1")),
             0);
}

void TestIstruzioniArchivio::eliminare_un_disegno_toglie_le_sue_azioni() {
    AmbienteProva amb;
    amb.ApriArchivi();
    Disegno(1, QStringLiteral("uno"), 1, 3);
    Disegno(2, QStringLiteral("due"), 1, 4);
    EliminaDisegno(2);
    QCOMPARE(Conta(ArchivioDisegni, QStringLiteral("SELECT COUNT(*) FROM TabDisegni")), 1);
    QCOMPARE(Conta(ArchivioDisegni, QStringLiteral("SELECT COUNT(*) FROM TabAzioniDisegno")), 3);
    QCOMPARE(Conta(ArchivioDisegni,
                   QStringLiteral("SELECT COUNT(*) FROM TabAzioniDisegno WHERE CodiceDisegno = 2")),
             0);
}

void TestIstruzioniArchivio::eliminare_un_oggetto_toglie_le_sue_azioni() {
    AmbienteProva amb;
    amb.ApriArchivi();
    Oggetto(1, QStringLiteral("uno"), 1, 2);
    Oggetto(2, QStringLiteral("due"), 1, 5);
    EliminaOggetto(1);
    QCOMPARE(Conta(ArchivioOggetti, QStringLiteral("SELECT COUNT(*) FROM TabOggetti")), 1);
    QCOMPARE(Conta(ArchivioOggetti, QStringLiteral("SELECT COUNT(*) FROM TabAzioniOggetto")), 5);
}

void TestIstruzioniArchivio::eliminare_una_cartella_toglie_disegni_e_azioni() {
    AmbienteProva amb;
    amb.ApriArchivi();
    Cartella(2, QStringLiteral("Case"));
    Disegno(1, QStringLiteral("uno"), 2, 3);
    Disegno(2, QStringLiteral("due"), 2, 4);
    Disegno(3, QStringLiteral("tre"), 1, 2);
    EliminaCartella(2);
    QCOMPARE(Conta(ArchivioDisegni, QStringLiteral("SELECT COUNT(*) FROM TabCartelle")), 1);
    QCOMPARE(Conta(ArchivioDisegni, QStringLiteral("SELECT COUNT(*) FROM TabDisegni")), 1);
    QCOMPARE(Conta(ArchivioDisegni, QStringLiteral("SELECT COUNT(*) FROM TabAzioniDisegno")), 2);
}

void TestIstruzioniArchivio::eliminare_una_cartella_di_oggetti_toglie_oggetti_e_azioni() {
    AmbienteProva amb;
    amb.ApriArchivi();
    CartellaObj(2, QStringLiteral("Alberi"));
    Oggetto(1, QStringLiteral("pino"), 2, 3);
    Oggetto(2, QStringLiteral("sole"), 1, 1);
    EliminaCartellaObj(2);
    QCOMPARE(Conta(ArchivioOggetti, QStringLiteral("SELECT COUNT(*) FROM TabOggetti")), 1);
    QCOMPARE(Conta(ArchivioOggetti, QStringLiteral("SELECT COUNT(*) FROM TabAzioniOggetto")), 1);
}

void TestIstruzioniArchivio::copie_di_lavoro_contate_ed_eliminate_insieme() {
    AmbienteProva amb;
    amb.ApriArchivi();
    QCOMPARE(NumeroCopieLavoro(), 0);
    Disegno(1, QStringLiteral("mio"), 1, 2);
    for (int32_t c = 1000001; c <= 1000003; ++c)
        Disegno(c, QString::number(c), 1, 2);
    QCOMPARE(NumeroCopieLavoro(), 3);
    EliminaCopieLavoro();
    QCOMPARE(NumeroCopieLavoro(), 0);
    QCOMPARE(Codici(DisegniInOrdineDiCodice()), QList<int32_t>{1});
    QCOMPARE(Conta(ArchivioDisegni, QStringLiteral("SELECT COUNT(*) FROM TabAzioniDisegno")), 2);
}

void TestIstruzioniArchivio::elenchi_in_ordine_di_codice_e_di_nome() {
    AmbienteProva amb;
    amb.ApriArchivi();
    Cartella(3, QStringLiteral("alberi"));
    Cartella(2, QStringLiteral("Zoo"));
    CartellaObj(2, QStringLiteral("case"));
    Disegno(7, QStringLiteral("b"));
    Disegno(2, QStringLiteral("a"));
    Oggetto(9, QStringLiteral("x"));
    Oggetto(4, QStringLiteral("y"));
    QCOMPARE(Codici(CartelleInOrdineDiCodice()), (QList<int32_t>{1, 2, 3}));
    QCOMPARE(Nomi(CartelleInOrdineDiNome()),
             (QStringList{QStringLiteral("alberi"), QStringLiteral("Zoo"),
                          QStringLiteral("·Disegni Generale")}));
    QCOMPARE(Codici(CartelleObjInOrdineDiNome()), (QList<int32_t>{2, 1}));
    QCOMPARE(Codici(DisegniInOrdineDiCodice()), (QList<int32_t>{2, 7}));
    QCOMPARE(Codici(OggettiInOrdineDiCodice()), (QList<int32_t>{4, 9}));
}

void TestIstruzioniArchivio::disegni_della_cartella_lasciano_fuori_le_copie_di_lavoro() {
    AmbienteProva amb;
    amb.ApriArchivi();
    Cartella(2, QStringLiteral("altra"));
    Disegno(1, QStringLiteral("Mare"));
    Disegno(2, QStringLiteral("bosco"));
    Disegno(3, QStringLiteral("altrove"), 2);
    Disegno(1000001, QStringLiteral("1000001"));
    const QList<RigaArchivio> disegni = DisegniDellaCartella(1);
    QCOMPARE(Nomi(disegni), (QStringList{QStringLiteral("bosco"), QStringLiteral("Mare")}));
    QCOMPARE(disegni[0].Cartella, 1);
    Oggetto(1, QStringLiteral("b"));
    Oggetto(2, QStringLiteral("A"));
    QCOMPARE(Codici(OggettiDellaCartella(1)), (QList<int32_t>{2, 1}));
    QVERIFY(OggettiDellaCartella(2).isEmpty());
}

void TestIstruzioniArchivio::nome_con_apostrofo_si_trova_come_gli_altri() {
    AmbienteProva amb;
    amb.ApriArchivi();
    Disegno(5, QStringLiteral("L'albero"));
    Oggetto(6, QStringLiteral("l'auto \"rossa\"; DROP TABLE TabOggetti"));
    QCOMPARE(CercaNomeDisegno(QStringLiteral("L'albero"), 1), 5);
    QCOMPARE(CercaNomeOggetto(QStringLiteral("l'auto \"rossa\"; DROP TABLE TabOggetti"), 1), 6);
    QCOMPARE(Conta(ArchivioOggetti, QStringLiteral("SELECT COUNT(*) FROM TabOggetti")), 1);
}

void TestIstruzioniArchivio::nome_cercato_senza_badare_alle_maiuscole_e_solo_nella_cartella() {
    AmbienteProva amb;
    amb.ApriArchivi();
    Cartella(2, QStringLiteral("altra"));
    Disegno(5, QStringLiteral("Casa"));
    QCOMPARE(CercaNomeDisegno(QStringLiteral("CASA"), 1), 5);
    QCOMPARE(CercaNomeDisegno(QStringLiteral("Casa"), 2), 0);
    QCOMPARE(CercaNomeDisegno(QStringLiteral("Cas"), 1), 0);
    QCOMPARE(CercaNomeOggetto(QStringLiteral("Casa"), 1), 0);
}

void TestIstruzioniArchivio::nomi_accentati_si_trovano_in_ogni_grafia() {
    AmbienteProva amb;
    amb.ApriArchivi();
    // SQLite's own NOCASE folds A to Z only: these two used to be strangers.
    Oggetto(4, QStringLiteral("PERÒ"));
    Disegno(6, QStringLiteral("Città"));
    QCOMPARE(CercaNomeOggetto(QStringLiteral("però"), 1), 4);
    QCOMPARE(CercaNomeOggetto(QStringLiteral("Pero"), 1), 4);
    QCOMPARE(CercaNomeDisegno(QStringLiteral("CITTÀ"), 1), 6);
    QCOMPARE(CercaNomeDisegno(QStringLiteral("città"), 1), 6);
    QCOMPARE(CercaNomeDisegno(QStringLiteral("Cittadella"), 1), 0);
}

void TestIstruzioniArchivio::una_riga_danneggiata_e_detta_e_le_altre_si_leggono() {
    AmbienteProva amb;
    amb.ApriArchivi();
    Disegno(5, QStringLiteral("Buono"));
    Disegno(7, QStringLiteral("Ultimo"));
    Sql(ArchivioDisegni,
        QStringLiteral("INSERT INTO TabDisegni (CodiceDisegno, NomeDisegno, CodiceCartella)"
                       " VALUES (6, x'00ff', 1)"));
    QList<RigaDanneggiata> danneggiate;
    const QList<RigaArchivio> righe = DisegniDellaCartella(1, &danneggiate);
    QCOMPARE(righe.size(), 2);
    QCOMPARE(righe.at(0).Nome, QStringLiteral("Buono"));
    QCOMPARE(righe.at(1).Nome, QStringLiteral("Ultimo"));
    QCOMPARE(danneggiate.size(), 1);
    QCOMPARE(danneggiate.at(0).Codice, 6);
    QCOMPARE(danneggiate.at(0).Nome, QString());
    // A name check reads past it.
    QCOMPARE(CercaNomeDisegno(QStringLiteral("ULTIMO"), 1), 7);
    QCOMPARE(CercaNomeDisegno(QStringLiteral("Nuovo"), 1), 0);
}

void TestIstruzioniArchivio::testa_di_un_disegno_assente_e_errore_3021() {
    AmbienteProva amb;
    amb.ApriArchivi();
    Disegno(3, QStringLiteral("tre"));
    QCOMPARE(TestaDisegno(3).Nome, QStringLiteral("tre"));
    try {
        TestaDisegno(4);
        QFAIL("nessun errore");
    } catch (const ErroreZanto& e) {
        QCOMPARE(e.Numero, 3021);
    }
}

void TestIstruzioniArchivio::archivio_non_aperto_e_un_errore_numerato() {
    AmbienteProva amb;
    try {
        CodiceLiberoMinimo(TipoCodice::Disegno);
        QFAIL("nessun errore");
    } catch (const ErroreZanto& e) {
        QCOMPARE(e.Numero, 3420);
    }
}

void TestIstruzioniArchivio::codici_sotto_1_non_danno_un_codice_sotto_1() {
    AmbienteProva amb;
    amb.ApriArchivi();
    Disegno(-5, QStringLiteral("meno cinque"));
    Disegno(0, QStringLiteral("zero"));
    QCOMPARE(CodiceLiberoMinimo(TipoCodice::Disegno), 1);
    Disegno(1, QStringLiteral("uno"));
    Disegno(2, QStringLiteral("due"));
    QCOMPARE(CodiceLiberoMinimo(TipoCodice::Disegno), 3);
    Sql(ArchivioDisegni,
        QStringLiteral("INSERT INTO TabCartelle (CodiceCartella, NomeCartella) VALUES (-1, 'x')"));
    QCOMPARE(CodiceLiberoMinimo(TipoCodice::Cartella), 2);
}

void TestIstruzioniArchivio::codice_di_tipo_sbagliato_da_3021_al_codice_libero() {
    AmbienteProva amb;
    amb.ApriArchivi();
    // The code of an object is no alias of the row id: it can hold text.
    Oggetto(1, QStringLiteral("uno"));
    Oggetto(2, QStringLiteral("due"));
    Sql(ArchivioOggetti,
        QStringLiteral("INSERT INTO TabOggetti (CodiceOggetto, NomeOggetto, CodiceCartellaObj)"
                       " VALUES ('tre', 'tre', 1)"));
    try {
        CodiceLiberoMinimo(TipoCodice::Oggetto);
        QFAIL("nessun errore");
    } catch (const ErroreZanto& e) {
        QCOMPARE(e.Numero, 3021);
    }
}

void TestIstruzioniArchivio::codice_oltre_32_bit_negli_elenchi_da_errore_6() {
    AmbienteProva amb;
    amb.ApriArchivi();
    const qlonglong oltre = (qlonglong(1) << 32) + 7; // toInt would make it 7
    Disegno(1, QStringLiteral("uno"));
    Sql(ArchivioDisegni,
        QStringLiteral("INSERT INTO TabDisegni (CodiceDisegno, NomeDisegno, CodiceCartella)"
                       " VALUES (?, 'Grande', 1)"),
        {oltre});
    const std::array<std::function<void()>, 2> letture = {
        [] { DisegniInOrdineDiCodice(); },
        [] { CercaNomeDisegno(QStringLiteral("grande"), 1); },
    };
    for (const auto& leggi : letture) {
        try {
            leggi();
            QFAIL("nessun errore");
        } catch (const ErroreZanto& e) {
            QCOMPARE(e.Numero, 6);
        }
    }
    // The lowest free code still comes from below it.
    QCOMPARE(CodiceLiberoMinimo(TipoCodice::Disegno), 2);
}

void TestIstruzioniArchivio::codice_0_o_negativo_negli_elenchi_da_errore_6() {
    AmbienteProva amb;
    amb.ApriArchivi();
    Sql(ArchivioDisegni,
        QStringLiteral(
            "INSERT INTO TabCartelle (CodiceCartella, NomeCartella) VALUES (0, 'zero')"));
    try {
        CartelleInOrdineDiNome();
        QFAIL("nessun errore");
    } catch (const ErroreZanto& e) {
        QCOMPARE(e.Numero, 6);
    }
    Sql(ArchivioDisegni, QStringLiteral("PRAGMA foreign_keys = OFF"));
    Disegno(4, QStringLiteral("quattro"), -3);
    Sql(ArchivioDisegni, QStringLiteral("PRAGMA foreign_keys = ON"));
    try {
        TestaDisegno(4);
        QFAIL("nessun errore");
    } catch (const ErroreZanto& e) {
        QCOMPARE(e.Numero, 6);
    }
}

void TestIstruzioniArchivio::nome_o_cartella_mancante_da_3021() {
    AmbienteProva amb;
    amb.ApriArchivi();
    // A head table as another program could leave it, without NOT NULL.
    Sql(ArchivioDisegni, QStringLiteral("DROP TABLE TabAzioniDisegno"));
    Sql(ArchivioDisegni, QStringLiteral("DROP TABLE TabDisegni"));
    Sql(ArchivioDisegni, QStringLiteral("CREATE TABLE TabDisegni (CodiceDisegno INTEGER PRIMARY"
                                        " KEY, NomeDisegno TEXT, CodiceCartella INTEGER)"));
    Sql(ArchivioDisegni, QStringLiteral("INSERT INTO TabDisegni VALUES (3, NULL, 1)"));
    try {
        DisegniInOrdineDiCodice();
        QFAIL("nessun errore");
    } catch (const ErroreZanto& e) {
        QCOMPARE(e.Numero, 3021);
        QVERIFY(e.Descrizione.contains(QStringLiteral("NomeDisegno")));
    }
    Sql(ArchivioDisegni, QStringLiteral("UPDATE TabDisegni SET NomeDisegno = 'tre',"
                                        " CodiceCartella = NULL"));
    try {
        TestaDisegno(3);
        QFAIL("nessun errore");
    } catch (const ErroreZanto& e) {
        QCOMPARE(e.Numero, 3021);
        QVERIFY(e.Descrizione.contains(QStringLiteral("CodiceCartella")));
    }
}

void TestIstruzioniArchivio::nome_di_tipo_sbagliato_da_3021() {
    AmbienteProva amb;
    amb.ApriArchivi();
    Sql(ArchivioOggetti,
        QStringLiteral("INSERT INTO TabCartelleObj (CodiceCartellaObj, NomeCartellaObj)"
                       " VALUES (2, ?)"),
        {QByteArray("Case")});
    try {
        CartelleObjInOrdineDiCodice();
        QFAIL("nessun errore");
    } catch (const ErroreZanto& e) {
        QCOMPARE(e.Numero, 3021);
    }
}

void TestIstruzioniArchivio::ultima_copia_e_la_piu_alta_anche_con_un_buco() {
    AmbienteProva amb;
    amb.ApriArchivi();
    QCOMPARE(UltimaCopiaLavoro(), BaseCopieLavoro);
    Disegno(7, QStringLiteral("mio"), 1, 1);
    QCOMPARE(UltimaCopiaLavoro(), BaseCopieLavoro);
    Disegno(1000001, QStringLiteral("1000001"), 1, 1);
    Disegno(1000003, QStringLiteral("1000003"), 1, 2);
    QCOMPARE(NumeroCopieLavoro(), 2);
    QCOMPARE(UltimaCopiaLavoro(), 1000003);
}

void TestIstruzioniArchivio::riprendere_le_copie_toglie_le_teste_senza_righe() {
    AmbienteProva amb;
    amb.ApriArchivi();
    Disegno(5, QStringLiteral("vuoto ma mio"));
    Disegno(1000001, QStringLiteral("1000001"), 1, 1);
    Disegno(1000002, QStringLiteral("1000002"), 1, 2);
    Disegno(1000003, QStringLiteral("1000003"));
    Disegno(1000004, QStringLiteral("1000004"));
    QCOMPARE(RiprendiCopieLavoro(), 1000002);
    QCOMPARE(Codici(DisegniInOrdineDiCodice()), (QList<int32_t>{5, 1000001, 1000002}));
    QCOMPARE(Conta(ArchivioDisegni, QStringLiteral("SELECT COUNT(*) FROM TabAzioniDisegno")), 3);
    // A copy without rows in the middle goes too; the history goes on after the highest.
    Disegno(1000003, QStringLiteral("1000003"), 1, 1);
    Sql(ArchivioDisegni, QStringLiteral("DELETE FROM TabAzioniDisegno WHERE CodiceDisegno = ?"),
        {1000002});
    QCOMPARE(RiprendiCopieLavoro(), 1000003);
    QCOMPARE(Codici(DisegniInOrdineDiCodice()), (QList<int32_t>{5, 1000001, 1000003}));
}

void TestIstruzioniArchivio::riprendere_senza_copie_da_la_base() {
    AmbienteProva amb;
    amb.ApriArchivi();
    QCOMPARE(RiprendiCopieLavoro(), BaseCopieLavoro);
    Disegno(1000001, QStringLiteral("1000001"));
    QCOMPARE(RiprendiCopieLavoro(), BaseCopieLavoro);
    QCOMPARE(NumeroCopieLavoro(), 0);
}

QTEST_MAIN(TestIstruzioniArchivio)
#include "test_istruzioni_archivio.moc"
