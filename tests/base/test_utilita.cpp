// The small text and file routines: cutting a text into lines, cleaning a
// user's line, the existence tests and the file search.

#include "base/Bip.h"
#include "base/GestioneErrori.h"
#include "base/Utilita.h"
#include "support/AmbienteProva.h"

#include <QDir>
#include <QFile>
#include <QSet>
#include <QTemporaryDir>
#include <QtTest>

#include <cstdint>

namespace {

const QString CR(QChar(u'\r'));

// Makes the file `relativo` under `radice`, with its directories, and returns its full path.
QString CreaFile(const QString& radice, const QString& relativo) {
    const QString percorso = QDir(radice).absoluteFilePath(relativo);
    if (!QDir().mkpath(QFileInfo(percorso).absolutePath())) return {};
    QFile file(percorso);
    if (!file.open(QIODevice::WriteOnly)) return {};
    file.write("x");
    return percorso;
}

void Dividi(const QString& testo) {
    TestoDaDividere = testo;
    DividiTestoInRighe();
}

void Cerca(const QString& radice, const QStringList& estensioni, bool sottocartelle) {
    CartellaRicerca = radice;
    EstensioniRicerca = estensioni;
    RicercaSottocartelle = sottocartelle ? 1 : 0;
    RicercaFile();
}

QSet<QString> Insieme(const QStringList& elenco) {
    return QSet<QString>(elenco.begin(), elenco.end());
}

} // namespace

class TestUtilita : public QObject {
    Q_OBJECT

private slots:
    void init();

    // DividiTestoInRighe
    void righe_tengono_il_proprio_ritorno_a_capo();
    void testo_di_solo_ritorno_a_capo_da_una_riga();
    void ritorni_a_capo_consecutivi_danno_righe_di_solo_ritorno();
    void resto_finale_di_soli_spazi_non_aggiunge_righe();
    void resto_finale_non_vuoto_e_l_ultima_riga_senza_taglio();
    void testo_vuoto_da_zero_righe();
    void righe_contano_da_uno_e_l_elemento_zero_resta_vuoto();
    void seconda_divisione_svuota_il_risultato_precedente();
    void solo_il_ritorno_a_capo_divide_le_righe();

    // PulisciTesto
    void pulisci_testo_di_soli_spazi_da_testo_vuoto();
    void pulisci_testo_riduce_gli_spazi_consecutivi_a_uno();
    void pulisci_testo_toglie_gli_a_capo();
    void pulisci_testo_toglie_lo_spazio_iniziale();
    void pulisci_testo_taglia_gli_spazi_ai_due_capi();
    void pulisci_testo_lascia_le_tabulazioni();
    void pulisci_testo_unisce_gli_spazi_prima_di_togliere_gli_a_capo();

    // FileEsiste, CartellaEsiste
    void file_esiste_solo_per_un_file();
    void cartella_esiste_solo_per_una_cartella();

    // RicercaFile
    void ricerca_confronta_le_estensioni_senza_badare_alle_maiuscole();
    void ricerca_senza_sottocartelle_resta_nella_radice();
    void ricerca_nelle_sottocartelle_va_per_livelli();
    void ricerca_da_percorsi_completi_contati_da_uno();
    void ricerca_in_cartella_vuota_da_elenco_vuoto();
    void ricerca_svuota_il_risultato_precedente();
    void ricerca_in_radice_assente_passa_l_errore_76_e_lascia_elenco_vuoto();
};

void TestUtilita::init() {
    CartellaRicerca.clear();
    EstensioniRicerca.clear();
    RicercaSottocartelle = 0;
    ElencoFile = QStringList{QString()};
    NumeroFile = 0;
}

void TestUtilita::righe_tengono_il_proprio_ritorno_a_capo() {
    AmbienteProva amb(false);
    Dividi(QStringLiteral("uno\rdue\rtre\r"));
    QCOMPARE(NumeroRigheTesto, int16_t(3));
    QCOMPARE(RigheTesto.mid(1), (QStringList{QStringLiteral("uno\r"), QStringLiteral("due\r"),
                                             QStringLiteral("tre\r")}));
}

void TestUtilita::testo_di_solo_ritorno_a_capo_da_una_riga() {
    AmbienteProva amb(false);
    Dividi(CR);
    QCOMPARE(NumeroRigheTesto, int16_t(1));
    QCOMPARE(RigheTesto.size(), 2);
    QCOMPARE(RigheTesto.at(1), CR);
}

void TestUtilita::ritorni_a_capo_consecutivi_danno_righe_di_solo_ritorno() {
    AmbienteProva amb(false);
    Dividi(QStringLiteral("a\r\r\rb"));
    QCOMPARE(NumeroRigheTesto, int16_t(4));
    QCOMPARE(RigheTesto.mid(1), (QStringList{QStringLiteral("a\r"), CR, CR, QStringLiteral("b")}));
}

void TestUtilita::resto_finale_di_soli_spazi_non_aggiunge_righe() {
    AmbienteProva amb(false);
    Dividi(QStringLiteral("uno\rdue\r    "));
    QCOMPARE(NumeroRigheTesto, int16_t(2));
    QCOMPARE(RigheTesto.mid(1), (QStringList{QStringLiteral("uno\r"), QStringLiteral("due\r")}));

    Dividi(QStringLiteral("   "));
    QCOMPARE(NumeroRigheTesto, int16_t(0));
    QCOMPARE(RigheTesto.size(), 1);
}

void TestUtilita::resto_finale_non_vuoto_e_l_ultima_riga_senza_taglio() {
    AmbienteProva amb(false);
    Dividi(QStringLiteral("uno\r  due  "));
    QCOMPARE(NumeroRigheTesto, int16_t(2));
    QCOMPARE(RigheTesto.at(2), QStringLiteral("  due  "));

    Dividi(QStringLiteral(" solo "));
    QCOMPARE(NumeroRigheTesto, int16_t(1));
    QCOMPARE(RigheTesto.at(1), QStringLiteral(" solo "));
}

void TestUtilita::testo_vuoto_da_zero_righe() {
    AmbienteProva amb(false);
    Dividi(QString());
    QCOMPARE(NumeroRigheTesto, int16_t(0));
    QCOMPARE(RigheTesto.size(), 1);
}

void TestUtilita::righe_contano_da_uno_e_l_elemento_zero_resta_vuoto() {
    AmbienteProva amb(false);
    Dividi(QStringLiteral("prima\rseconda"));
    QCOMPARE(NumeroRigheTesto, int16_t(2));
    QCOMPARE(RigheTesto.size(), NumeroRigheTesto + 1);
    QVERIFY(RigheTesto.at(0).isEmpty());
    QCOMPARE(RigheTesto.at(1), QStringLiteral("prima\r"));
    QCOMPARE(RigheTesto.at(2), QStringLiteral("seconda"));
}

void TestUtilita::seconda_divisione_svuota_il_risultato_precedente() {
    AmbienteProva amb(false);
    Dividi(QStringLiteral("a\rb\rc\rd"));
    QCOMPARE(NumeroRigheTesto, int16_t(4));
    Dividi(QStringLiteral("x"));
    QCOMPARE(NumeroRigheTesto, int16_t(1));
    QCOMPARE(RigheTesto, (QStringList{QString(), QStringLiteral("x")}));
    Dividi(QString());
    QCOMPARE(NumeroRigheTesto, int16_t(0));
    QCOMPARE(RigheTesto, QStringList{QString()});
}

void TestUtilita::solo_il_ritorno_a_capo_divide_le_righe() {
    AmbienteProva amb(false);
    Dividi(QStringLiteral("uno\r\ndue\nancora"));
    QCOMPARE(NumeroRigheTesto, int16_t(2));
    QCOMPARE(RigheTesto.mid(1),
             (QStringList{QStringLiteral("uno\r"), QStringLiteral("\ndue\nancora")}));
}

void TestUtilita::pulisci_testo_di_soli_spazi_da_testo_vuoto() {
    QCOMPARE(PulisciTesto(QStringLiteral("   ")), QString());
    QCOMPARE(PulisciTesto(QStringLiteral(" ")), QString());
    QCOMPARE(PulisciTesto(QString()), QString());
}

void TestUtilita::pulisci_testo_riduce_gli_spazi_consecutivi_a_uno() {
    QCOMPARE(PulisciTesto(QStringLiteral("casa    con   tetto")), QStringLiteral("casa con tetto"));
    QCOMPARE(PulisciTesto(QStringLiteral("a b")), QStringLiteral("a b"));
}

void TestUtilita::pulisci_testo_toglie_gli_a_capo() {
    QCOMPARE(PulisciTesto(QStringLiteral("ri\r\nga\n")), QStringLiteral("riga"));
    QCOMPARE(PulisciTesto(QStringLiteral("\rriga")), QStringLiteral("riga"));
    QCOMPARE(PulisciTesto(QStringLiteral("\r\n")), QString());
}

void TestUtilita::pulisci_testo_toglie_lo_spazio_iniziale() {
    QCOMPARE(PulisciTesto(QStringLiteral(" nome")), QStringLiteral("nome"));
    QCOMPARE(PulisciTesto(QStringLiteral("   nome")), QStringLiteral("nome"));
}

void TestUtilita::pulisci_testo_taglia_gli_spazi_ai_due_capi() {
    QCOMPARE(PulisciTesto(QStringLiteral("  il mio disegno  ")), QStringLiteral("il mio disegno"));
    QCOMPARE(PulisciTesto(QStringLiteral("fine ")), QStringLiteral("fine"));
    // A blank left at an end once the line breaks are gone is trimmed too.
    QCOMPARE(PulisciTesto(QStringLiteral("\r fine \n")), QStringLiteral("fine"));
}

void TestUtilita::pulisci_testo_lascia_le_tabulazioni() {
    QCOMPARE(PulisciTesto(QStringLiteral("a\tb")), QStringLiteral("a\tb"));
    QCOMPARE(PulisciTesto(QStringLiteral("\ta\t")), QStringLiteral("\ta\t"));
    QCOMPARE(PulisciTesto(QStringLiteral("a\t\tb")), QStringLiteral("a\t\tb"));
}

void TestUtilita::pulisci_testo_unisce_gli_spazi_prima_di_togliere_gli_a_capo() {
    // The blanks on the two sides of a line break are not next to each other
    // while runs are merged, so both stay once the break is dropped.
    QCOMPARE(PulisciTesto(QStringLiteral("a \r\n b")), QStringLiteral("a  b"));
}

void TestUtilita::file_esiste_solo_per_un_file() {
    AmbienteProva amb(false);
    QTemporaryDir radice;
    QVERIFY(radice.isValid());
    const QString file = CreaFile(radice.path(), QStringLiteral("disegno.bmp"));
    QVERIFY(!file.isEmpty());
    QVERIFY(QDir(radice.path()).mkdir(QStringLiteral("cartella")));

    QVERIFY(FileEsiste(file));
    QVERIFY(!FileEsiste(QDir(radice.path()).filePath(QStringLiteral("cartella"))));
    QVERIFY(!FileEsiste(QDir(radice.path()).filePath(QStringLiteral("manca.bmp"))));
    QVERIFY(!FileEsiste(QDir(radice.path()).filePath(QStringLiteral("manca/disegno.bmp"))));
    QVERIFY(amb.Scatole.isEmpty());
}

void TestUtilita::cartella_esiste_solo_per_una_cartella() {
    AmbienteProva amb(false);
    QTemporaryDir radice;
    QVERIFY(radice.isValid());
    const QString file = CreaFile(radice.path(), QStringLiteral("disegno.bmp"));
    QVERIFY(!file.isEmpty());
    QVERIFY(QDir(radice.path()).mkdir(QStringLiteral("cartella")));

    QVERIFY(CartellaEsiste(radice.path()));
    QVERIFY(CartellaEsiste(QDir(radice.path()).filePath(QStringLiteral("cartella"))));
    QVERIFY(!CartellaEsiste(file));
    QVERIFY(!CartellaEsiste(QDir(radice.path()).filePath(QStringLiteral("manca"))));
    QVERIFY(amb.Scatole.isEmpty());
}

void TestUtilita::ricerca_confronta_le_estensioni_senza_badare_alle_maiuscole() {
    AmbienteProva amb(false);
    QTemporaryDir radice;
    QVERIFY(radice.isValid());
    const QString r = radice.path();
    const QSet<QString> attesi = {
        CreaFile(r, QStringLiteral("a.jpg")),
        CreaFile(r, QStringLiteral("b.JPG")),
        CreaFile(r, QStringLiteral("c.Jpg")),
        CreaFile(r, QStringLiteral("d.BMP")),
    };
    CreaFile(r, QStringLiteral("e.jpeg"));
    CreaFile(r, QStringLiteral("f.txt"));
    CreaFile(r, QStringLiteral("jpg"));
    CreaFile(r, QStringLiteral("g.jpg.txt"));

    Cerca(r, {QStringLiteral(".jpg"), QStringLiteral(".bmp")}, false);
    QCOMPARE(NumeroFile, int16_t(4));
    QCOMPARE(Insieme(ElencoFile.mid(1)), attesi);

    Cerca(r, {QStringLiteral(".BMP")}, false);
    QCOMPARE(NumeroFile, int16_t(1));
    QCOMPARE(ElencoFile.at(1), QDir(r).absoluteFilePath(QStringLiteral("d.BMP")));
    QVERIFY(amb.Scatole.isEmpty());
}

void TestUtilita::ricerca_senza_sottocartelle_resta_nella_radice() {
    AmbienteProva amb(false);
    QTemporaryDir radice;
    QVERIFY(radice.isValid());
    const QString r = radice.path();
    const QString nellaRadice = CreaFile(r, QStringLiteral("a.jpg"));
    CreaFile(r, QStringLiteral("sotto/b.jpg"));
    CreaFile(r, QStringLiteral("sotto/ancora/c.jpg"));

    Cerca(r, {QStringLiteral(".jpg")}, false);
    QCOMPARE(NumeroFile, int16_t(1));
    QCOMPARE(ElencoFile, (QStringList{QString(), nellaRadice}));
}

void TestUtilita::ricerca_nelle_sottocartelle_va_per_livelli() {
    AmbienteProva amb(false);
    QTemporaryDir radice;
    QVERIFY(radice.isValid());
    const QString r = radice.path();
    // Two branches, each two levels deep: a depth-first walk would put a file of
    // the second level before the first-level file of the other branch.
    const QSet<QString> livello2 = {CreaFile(r, QStringLiteral("a/aa/profondo.jpg")),
                                    CreaFile(r, QStringLiteral("b/bb/profondo.jpg"))};
    const QSet<QString> livello1 = {CreaFile(r, QStringLiteral("a/primo.jpg")),
                                    CreaFile(r, QStringLiteral("b/secondo.jpg"))};
    const QSet<QString> livello0 = {CreaFile(r, QStringLiteral("z1.jpg")),
                                    CreaFile(r, QStringLiteral("z2.jpg"))};

    Cerca(r, {QStringLiteral(".jpg")}, true);
    QCOMPARE(NumeroFile, int16_t(6));
    QCOMPARE(ElencoFile.size(), 7);
    QCOMPARE(Insieme(ElencoFile.mid(1, 2)), livello0);
    QCOMPARE(Insieme(ElencoFile.mid(3, 2)), livello1);
    QCOMPARE(Insieme(ElencoFile.mid(5, 2)), livello2);
    QVERIFY(amb.Scatole.isEmpty());
}

void TestUtilita::ricerca_da_percorsi_completi_contati_da_uno() {
    AmbienteProva amb(false);
    QTemporaryDir radice;
    QVERIFY(radice.isValid());
    const QString r = radice.path();
    const QString a = CreaFile(r, QStringLiteral("uno.bmp"));
    const QString b = CreaFile(r, QStringLiteral("dentro/due.bmp"));

    Cerca(r, {QStringLiteral(".bmp")}, true);
    QCOMPARE(NumeroFile, int16_t(2));
    QCOMPARE(ElencoFile.size(), NumeroFile + 1);
    QVERIFY(ElencoFile.at(0).isEmpty());
    QCOMPARE(ElencoFile.at(1), a);
    QCOMPARE(ElencoFile.at(2), b);
    for (qsizetype i = 1; i < ElencoFile.size(); ++i) {
        QVERIFY(QFileInfo(ElencoFile.at(i)).isAbsolute());
        QVERIFY(FileEsiste(ElencoFile.at(i)));
    }
}

void TestUtilita::ricerca_in_cartella_vuota_da_elenco_vuoto() {
    AmbienteProva amb(false);
    QTemporaryDir radice;
    QVERIFY(radice.isValid());
    QVERIFY(QDir(radice.path()).mkdir(QStringLiteral("vuota")));
    Cerca(radice.path(), {QStringLiteral(".jpg")}, true);
    QCOMPARE(NumeroFile, int16_t(0));
    QCOMPARE(ElencoFile, QStringList{QString()});
    QVERIFY(amb.Scatole.isEmpty());
}

void TestUtilita::ricerca_svuota_il_risultato_precedente() {
    AmbienteProva amb(false);
    QTemporaryDir prima;
    QTemporaryDir seconda;
    QVERIFY(prima.isValid());
    QVERIFY(seconda.isValid());
    CreaFile(prima.path(), QStringLiteral("a.jpg"));
    CreaFile(prima.path(), QStringLiteral("b.jpg"));
    const QString unico = CreaFile(seconda.path(), QStringLiteral("c.jpg"));

    Cerca(prima.path(), {QStringLiteral(".jpg")}, false);
    QCOMPARE(NumeroFile, int16_t(2));
    Cerca(seconda.path(), {QStringLiteral(".jpg")}, false);
    QCOMPARE(NumeroFile, int16_t(1));
    QCOMPARE(ElencoFile, (QStringList{QString(), unico}));
}

void TestUtilita::ricerca_in_radice_assente_passa_l_errore_76_e_lascia_elenco_vuoto() {
    AmbienteProva amb(false);
    QTemporaryDir radice;
    QVERIFY(radice.isValid());
    CreaFile(radice.path(), QStringLiteral("a.jpg"));
    Cerca(radice.path(), {QStringLiteral(".jpg")}, false);
    QCOMPARE(NumeroFile, int16_t(1));

    Cerca(QDir(radice.path()).filePath(QStringLiteral("manca")), {QStringLiteral(".jpg")}, true);
    QCOMPARE(NumeroFile, int16_t(0));
    QCOMPARE(ElencoFile, QStringList{QString()});

    QCOMPARE(amb.Scatole.size(), 1);
    const AmbienteProva::Scatola& scatola = amb.Scatole.at(0);
    QCOMPARE(scatola.Icona, IconaScatola::Critica);
    QCOMPARE(scatola.Titolo, QStringLiteral("ZANTO"));
    const QString inizio =
        QStringLiteral("ERRORE: Assenza di una Directory necessaria sul DISCO in USO! (76/");
    QVERIFY2(scatola.Testo.startsWith(inizio), qPrintable(scatola.Testo));
    QVERIFY(scatola.Testo.endsWith(u')'));
    // The mark is one of the search's own, from 7100 up.
    bool numero = false;
    const int segno = scatola.Testo.mid(inizio.size()).chopped(1).toInt(&numero);
    QVERIFY(numero);
    QVERIFY2(segno >= 7100 && segno <= 7199, qPrintable(QString::number(segno)));
    QCOMPARE(ContatoreBip, 1);
}

QTEST_MAIN(TestUtilita)
#include "test_utilita.moc"
