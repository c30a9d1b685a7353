// The order of a save (the bitmap takes its place only after the rows are
// committed), a full disk, a failed commit and a failed rename, and the
// start's repair of what a save cut short leaves behind.

#include "app/Avvio.h"
#include "app/MenuGenerale.h"
#include "archive/Archivi.h"
#include "archive/ArchivioAzioni.h"
#include "archive/BitmapDisegni.h"
#include "archive/IstruzioniArchivio.h"
#include "model/RecordAzione.h"
#include "model/Superficie.h"
#include "model/TracciaAzioni.h"
#include "support/AmbienteProva.h"
#include "support/CostruttoriAzioni.h"
#include "support/OrologioVirtuale.h"
#include "support/SondePixel.h"
#include "support/SqlProva.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QImageReader>
#include <QSqlDriver>
#include <QSqlError>
#include <QSqlQuery>
#include <QtTest>

#include <csignal>
#include <sqlite3.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace {

using SondePixel::Colore;

void Sql(const QString& testo, const QVariantList& valori = {}) {
    SqlProva::Sql(ArchivioDisegni, testo, valori);
}

int Conta(const QString& testo) {
    return SqlProva::Conta(ArchivioDisegni, testo);
}

// A drawing that fills the canvas with `colore`, and `linee` short lines more.
QList<RecordAzione> Disegno(int32_t colore, int linee = 0) {
    QList<RecordAzione> lista{RecordAzione{}, CostruttoriAzioni::Rettangolo(
                                                  0, 0, LarghezzaQuadroDisegno,
                                                  AltezzaQuadroDisegno, FlagPieno, colore, colore)};
    for (int i = 1; i <= linee; ++i)
        lista.append(CostruttoriAzioni::Linea(30 * i, 9000, 30 * i, 9900));
    return lista;
}

// Draws the list on the canvas as the drawing screen holds it, and saves it.
bool Salva(Superficie& quadro, const QString& nome, const QList<RecordAzione>& lista) {
    Azioni = lista;
    NumeroAzioni = int32_t(lista.size() - 1);
    quadro.ImpostaBackColor(Predefiniti::ColoreSfondo);
    PrimaAzioneTraccia = 1;
    UltimaAzioneTraccia = int16_t(NumeroAzioni);
    TracciaAzioni(quadro);
    NomeDisegnoCorrente = nome;
    return RegistraDisegno(quadro);
}

// Saves `nome` afresh, then makes it the drawing on the canvas to save over.
void SalvaNuovo(Superficie& quadro, const QString& nome, int32_t colore) {
    StatoDisegno = 2;
    QVERIFY(Salva(quadro, nome, Disegno(colore)));
    RegistraComeNuovo = 0;
}

QString Bitmap(const QString& nome) {
    return PercorsoBitmapDisegno(NomeCartellaAttiva, CodiceCartellaAttiva, nome,
                                 CercaNomeDisegno(nome, CodiceCartellaAttiva));
}

int32_t ColoreBitmap(const QString& percorso) {
    QImageReader lettore(percorso);
    if (lettore.format() != "bmp") return -1;
    const QImage immagine = lettore.read();
    if (immagine.size() != QSize(943, 667)) return -2;
    return Colore(immagine, 471, 333);
}

// The colour the rows of `nome` fill the canvas with.
int32_t ColoreRighe(const QString& nome) {
    QList<RecordAzione> lista;
    int32_t numero = 0;
    LeggiAzioniDisegno(CercaNomeDisegno(nome, CodiceCartellaAttiva), lista, numero);
    return lista[1].ColZona;
}

QByteArray Contenuto(const QString& percorso) {
    QFile file(percorso);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

QStringList FileDellaCartella() {
    return QDir(PercorsoCartellaDisegni(NomeCartellaAttiva, CodiceCartellaAttiva))
        .entryList(QDir::Files | QDir::Hidden, QDir::Name);
}

void CartellaDiSistema() {
    CodiceCartellaAttiva = 1;
    NomeCartellaAttiva = NomiArchivi::CartellaSistemaDisegni;
}

// The seam of the save: a fault at the start of step `sezione`.
void GuastoAlPasso(int16_t sezione) {
    SondaRegistraDisegno = [sezione](int16_t s) {
        if (s == sezione) throw ErroreZanto{57, QStringLiteral("Guasto simulato")};
    };
}

} // namespace

class TestRegistraDisegno : public QObject {
    Q_OBJECT

private slots:
    void cleanup() { SondaRegistraDisegno = nullptr; }
    void la_bitmap_prende_il_posto_della_vecchia_solo_dopo_il_commit();
    void commit_rifiutato_lascia_righe_e_bitmap_vecchie();
    void guasto_prima_del_commit_lascia_righe_e_bitmap_vecchie_e_nessun_file();
    void rinomina_fallita_tiene_le_righe_nuove_e_la_riparazione_rifa_la_bitmap();
    void bitmap_al_posto_di_una_cartella_va_all_errore_dopo_il_commit();
    void disco_pieno_lascia_righe_e_bitmap_vecchie();
    void file_a_parte_di_un_guasto_precedente_resta_se_il_salvataggio_fallisce();
    void riparazione_ridisegna_solo_i_disegni_lasciati_a_meta();
    void riparazione_senza_nulla_da_fare_non_tocca_nulla();
    void riparazione_che_fallisce_tiene_il_file_a_parte();
    void l_avvio_ridisegna_la_bitmap_di_un_salvataggio_interrotto();
    void sovrascritto_in_un_altra_grafia_lascia_una_sola_bitmap();
    void il_nome_cambia_solo_col_commit();
};

void TestRegistraDisegno::la_bitmap_prende_il_posto_della_vecchia_solo_dopo_il_commit() {
    AmbienteProva amb;
    amb.ApriArchivi();
    CartellaDiSistema();
    Superficie quadro(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    SalvaNuovo(quadro, QStringLiteral("Cielo"), 0x0000FF);
    const QString percorso = Bitmap(QStringLiteral("Cielo"));
    QStringList visti;
    SondaRegistraDisegno = [&](int16_t s) {
        // What a kill at this instant would leave on disk.
        visti.append(QStringLiteral("%1 %2 %3")
                         .arg(s)
                         .arg(ColoreBitmap(percorso), 0, 16)
                         .arg(ColoreBitmap(PercorsoBitmapNuova(percorso)), 0, 16));
    };
    QVERIFY(Salva(quadro, QStringLiteral("Cielo"), Disegno(0xFF0000, 3)));
    // The old bitmap stands until the commit; the new one is whole beside it
    // before the commit is tried, and in its place once it is done.
    const QStringList attesi = {
        QStringLiteral("4300 ff -1"),     QStringLiteral("4310 ff -1"),
        QStringLiteral("4320 ff -1"),     QStringLiteral("4330 ff -1"),
        QStringLiteral("4340 ff ff0000"), QStringLiteral("4350 ff ff0000"),
        QStringLiteral("4390 ff0000 -1"),
    };
    QCOMPARE(visti, attesi);
    QCOMPARE(ColoreRighe(QStringLiteral("Cielo")), 0xFF0000);
    QCOMPARE(FileDellaCartella(), QStringList{QStringLiteral("Cielo.bmp")});
    QVERIFY(amb.Scatole.isEmpty());
}

void TestRegistraDisegno::commit_rifiutato_lascia_righe_e_bitmap_vecchie() {
    AmbienteProva amb;
    amb.ApriArchivi();
    CartellaDiSistema();
    Superficie quadro(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    SalvaNuovo(quadro, QStringLiteral("Prato"), 0x00FF00);
    const QString percorso = Bitmap(QStringLiteral("Prato"));
    const QByteArray vecchia = Contenuto(percorso);
    // Another connection reading: SQLite refuses the commit, at once.
    sqlite3* nativo =
        *static_cast<sqlite3* const*>(Archivio(ArchivioDisegni).driver()->handle().constData());
    sqlite3_busy_timeout(nativo, 0);
    {
        QSqlDatabase lettore =
            QSqlDatabase::addDatabase(QStringLiteral("QSQLITE"), QStringLiteral("lettore"));
        lettore.setDatabaseName(PercorsoArchivioDisegni());
        QVERIFY(lettore.open());
        QVERIFY(lettore.transaction());
        QSqlQuery lettura(lettore);
        QVERIFY(lettura.exec(QStringLiteral("SELECT * FROM TabDisegni")));
        QVERIFY(lettura.next());
        QVERIFY(!Salva(quadro, QStringLiteral("Prato"), Disegno(0xFF0000, 2)));
        lettura.finish();
        lettore.rollback();
        lettore.close();
    }
    QSqlDatabase::removeDatabase(QStringLiteral("lettore"));
    QCOMPARE(amb.Scatole.size(), 1);
    QVERIFY2(amb.Scatole[0].Testo.contains(QStringLiteral("3001/4340")),
             qPrintable(amb.Scatole[0].Testo));
    QCOMPARE(ColoreRighe(QStringLiteral("Prato")), 0x00FF00);
    QCOMPARE(Conta(QStringLiteral("SELECT COUNT(*) FROM TabAzioniDisegno")), 1);
    QCOMPARE(Contenuto(percorso), vecchia);
    // Whether a commit that failed went in, only the next start can tell:
    // the file aside stays, and the repair draws the old rows again.
    QVERIFY(QFile::exists(PercorsoBitmapNuova(percorso)));
    QCOMPARE(RiparaBitmapDisegni(), 1);
    QCOMPARE(ColoreBitmap(percorso), 0x00FF00);
    QCOMPARE(FileDellaCartella(), QStringList{QStringLiteral("Prato.bmp")});
}

void TestRegistraDisegno::guasto_prima_del_commit_lascia_righe_e_bitmap_vecchie_e_nessun_file() {
    for (const int16_t sezione : {4310, 4320, 4330, 4340}) {
        AmbienteProva amb;
        amb.ApriArchivi();
        CartellaDiSistema();
        Superficie quadro(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
        SalvaNuovo(quadro, QStringLiteral("Mare"), 0x00FF00);
        const QString percorso = Bitmap(QStringLiteral("Mare"));
        const QByteArray vecchia = Contenuto(percorso);
        GuastoAlPasso(sezione);
        QVERIFY(!Salva(quadro, QStringLiteral("Mare"), Disegno(0xFF0000, 5)));
        QCOMPARE(amb.Scatole.size(), 1);
        QVERIFY(amb.Scatole[0].Testo.contains(QStringLiteral("(57/%1)").arg(sezione)));
        QCOMPARE(ColoreRighe(QStringLiteral("Mare")), 0x00FF00);
        QCOMPARE(Conta(QStringLiteral("SELECT COUNT(*) FROM TabAzioniDisegno")), 1);
        QCOMPARE(Contenuto(percorso), vecchia);
        QCOMPARE(FileDellaCartella(), QStringList{QStringLiteral("Mare.bmp")});
        // A new drawing that fails leaves nothing at all.
        StatoDisegno = 2;
        const int32_t codicePrima = CodiceDisegnoCorrente;
        QVERIFY(!Salva(quadro, QStringLiteral("Bosco"), Disegno(0x00FFFF)));
        QCOMPARE(Conta(QStringLiteral("SELECT COUNT(*) FROM TabDisegni")), 1);
        QCOMPARE(FileDellaCartella(), QStringList{QStringLiteral("Mare.bmp")});
        QCOMPARE(StatoDisegno, int16_t(2));
        QCOMPARE(CodiceDisegnoCorrente, codicePrima);
        SondaRegistraDisegno = nullptr;
    }
}

void TestRegistraDisegno::rinomina_fallita_tiene_le_righe_nuove_e_la_riparazione_rifa_la_bitmap() {
    AmbienteProva amb;
    amb.ApriArchivi();
    CartellaDiSistema();
    Superficie quadro(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    SalvaNuovo(quadro, QStringLiteral("Luna"), 0x00FF00);
    const QString percorso = Bitmap(QStringLiteral("Luna"));
    const QByteArray vecchia = Contenuto(percorso);
    GuastoAlPasso(4350);
    QVERIFY(!Salva(quadro, QStringLiteral("Luna"), Disegno(0xFF0000, 4)));
    QCOMPARE(amb.Scatole.size(), 1);
    QVERIFY(amb.Scatole[0].Testo.contains(QStringLiteral("(57/4350)")));
    // The rows were committed: they are the drawing now, and the old bitmap
    // was not touched; the file aside marks it for the repair.
    QCOMPARE(ColoreRighe(QStringLiteral("Luna")), 0xFF0000);
    QCOMPARE(Contenuto(percorso), vecchia);
    QCOMPARE(ColoreBitmap(PercorsoBitmapNuova(percorso)), 0xFF0000);
    SondaRegistraDisegno = nullptr;
    QCOMPARE(RiparaBitmapDisegni(), 1);
    QCOMPARE(ColoreBitmap(percorso), 0xFF0000);
    QCOMPARE(FileDellaCartella(), QStringList{QStringLiteral("Luna.bmp")});

    // A new drawing: its row is in, so the next save is over it, not a second row.
    StatoDisegno = 2;
    GuastoAlPasso(4350);
    QVERIFY(!Salva(quadro, QStringLiteral("Sole"), Disegno(0x00FFFF)));
    QCOMPARE(StatoDisegno, int16_t(1));
    QCOMPARE(CodiceDisegnoCorrente, CercaNomeDisegno(QStringLiteral("Sole"), 1));
    QVERIFY(!QFile::exists(Bitmap(QStringLiteral("Sole"))));
    SondaRegistraDisegno = nullptr;
    QCOMPARE(RiparaBitmapDisegni(), 1);
    QCOMPARE(ColoreBitmap(Bitmap(QStringLiteral("Sole"))), 0x00FFFF);
    QCOMPARE(amb.Scatole.size(), 2);
}

void TestRegistraDisegno::bitmap_al_posto_di_una_cartella_va_all_errore_dopo_il_commit() {
    AmbienteProva amb;
    amb.ApriArchivi();
    CartellaDiSistema();
    Superficie quadro(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    // Where the bitmap should go stands a directory: rename() refuses it.
    const QString percorso = PercorsoCartellaDisegni(NomeCartellaAttiva, CodiceCartellaAttiva) +
                             QStringLiteral("/Stelle.bmp");
    QVERIFY(QDir().mkpath(percorso + QStringLiteral("/dentro")));
    StatoDisegno = 2;
    QVERIFY(!Salva(quadro, QStringLiteral("Stelle"), Disegno(0xFF00FF)));
    QCOMPARE(amb.Scatole.size(), 1);
    QVERIFY2(amb.Scatole[0].Testo.contains(QStringLiteral("75/4350")),
             qPrintable(amb.Scatole[0].Testo));
    QCOMPARE(ColoreRighe(QStringLiteral("Stelle")), 0xFF00FF);
    QVERIFY(QFileInfo(percorso + QStringLiteral("/dentro")).isDir());
    QCOMPARE(ColoreBitmap(PercorsoBitmapNuova(percorso)), 0xFF00FF);
}

void TestRegistraDisegno::disco_pieno_lascia_righe_e_bitmap_vecchie() {
    AmbienteProva amb;
    amb.ApriArchivi();
    CartellaDiSistema();
    Superficie quadro(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    SalvaNuovo(quadro, QStringLiteral("Neve"), 0xFFFFFF);
    const QString percorso = Bitmap(QStringLiteral("Neve"));
    const QByteArray vecchia = Contenuto(percorso);
    // No file of this process may grow past 256 KB: the archive's few pages
    // fit, a bitmap of almost 2 MB does not, and write() fails as on a full disk.
    rlimit prima{};
    QCOMPARE(getrlimit(RLIMIT_FSIZE, &prima), 0);
    const auto segnale = std::signal(SIGXFSZ, SIG_IGN);
    rlimit stretto = prima;
    stretto.rlim_cur = 256 * 1024;
    QCOMPARE(setrlimit(RLIMIT_FSIZE, &stretto), 0);
    const bool salvato = Salva(quadro, QStringLiteral("Neve"), Disegno(0x000000, 6));
    setrlimit(RLIMIT_FSIZE, &prima);
    std::signal(SIGXFSZ, segnale);
    QVERIFY(!salvato);
    QCOMPARE(amb.Scatole.size(), 1);
    QVERIFY2(amb.Scatole[0].Testo.contains(QStringLiteral("(61/4330)")),
             qPrintable(amb.Scatole[0].Testo));
    QCOMPARE(ColoreRighe(QStringLiteral("Neve")), 0xFFFFFF);
    QCOMPARE(Conta(QStringLiteral("SELECT COUNT(*) FROM TabAzioniDisegno")), 1);
    QCOMPARE(Contenuto(percorso), vecchia);
    QCOMPARE(FileDellaCartella(), QStringList{QStringLiteral("Neve.bmp")});
    // The disk has room again: the same save goes through.
    QVERIFY(Salva(quadro, QStringLiteral("Neve"), Disegno(0x000000, 6)));
    QCOMPARE(ColoreBitmap(percorso), 0x000000);
}

void TestRegistraDisegno::file_a_parte_di_un_guasto_precedente_resta_se_il_salvataggio_fallisce() {
    AmbienteProva amb;
    amb.ApriArchivi();
    CartellaDiSistema();
    Superficie quadro(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    SalvaNuovo(quadro, QStringLiteral("Nuvola"), 0x808080);
    const QString percorso = Bitmap(QStringLiteral("Nuvola"));
    // An earlier save committed its rows and died before the rename.
    GuastoAlPasso(4350);
    QVERIFY(!Salva(quadro, QStringLiteral("Nuvola"), Disegno(0x0000FF)));
    // This one fails before its commit: the mark of the earlier one must stay.
    GuastoAlPasso(4340);
    QVERIFY(!Salva(quadro, QStringLiteral("Nuvola"), Disegno(0x00FF00)));
    QVERIFY(QFile::exists(PercorsoBitmapNuova(percorso)));
    QCOMPARE(ColoreRighe(QStringLiteral("Nuvola")), 0x0000FF);
    SondaRegistraDisegno = nullptr;
    QCOMPARE(RiparaBitmapDisegni(), 1);
    QCOMPARE(ColoreBitmap(percorso), 0x0000FF);
    QCOMPARE(FileDellaCartella(), QStringList{QStringLiteral("Nuvola.bmp")});
}

void TestRegistraDisegno::riparazione_ridisegna_solo_i_disegni_lasciati_a_meta() {
    AmbienteProva amb;
    amb.ApriArchivi();
    CartellaDiSistema();
    Superficie quadro(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    SalvaNuovo(quadro, QStringLiteral("Rosso"), 0x0000FF);
    SalvaNuovo(quadro, QStringLiteral("Verde"), 0x00FF00);
    SalvaNuovo(quadro, QStringLiteral("Blu"), 0xFF0000);
    SalvaNuovo(quadro, QStringLiteral("Vuoto"), 0x000000);
    SalvaNuovo(quadro, QStringLiteral("A/B"), 0x00FFFF); // its file name carries its code
    // Rosso: rows committed over, the bitmap not yet renamed, its file aside cut short.
    Sql(QStringLiteral("UPDATE TabAzioniDisegno SET ColLinea = ?, ColZona = ?"
                       " WHERE CodiceDisegno = ?"),
        {0x123456, 0x123456, CercaNomeDisegno(QStringLiteral("Rosso"), 1)});
    QFile mozzo(PercorsoBitmapNuova(Bitmap(QStringLiteral("Rosso"))));
    QVERIFY(mozzo.open(QIODevice::WriteOnly));
    mozzo.write(Contenuto(Bitmap(QStringLiteral("Verde"))).left(5000));
    mozzo.close();
    // Verde: its bitmap is gone. Blu: a picture that is not its rows, and no
    // mark: it is left alone. Vuoto: no rows and no bitmap.
    QVERIFY(QFile::remove(Bitmap(QStringLiteral("Verde"))));
    QImage estranea(943, 667, QImage::Format_RGB32);
    estranea.fill(QColor(1, 2, 3));
    QVERIFY(estranea.save(Bitmap(QStringLiteral("Blu")), "BMP"));
    Sql(QStringLiteral("DELETE FROM TabAzioniDisegno WHERE CodiceDisegno = ?"),
        {CercaNomeDisegno(QStringLiteral("Vuoto"), 1)});
    QVERIFY(QFile::remove(Bitmap(QStringLiteral("Vuoto"))));
    // A/B: a save over it died before its commit. Orfano: a new drawing that never went in.
    QFile::copy(Bitmap(QStringLiteral("Rosso")),
                PercorsoBitmapNuova(Bitmap(QStringLiteral("A/B"))));
    const QString orfano = PercorsoCartellaDisegni(NomeCartellaAttiva, CodiceCartellaAttiva) +
                           QStringLiteral("/Orfano.bmp.nuovo");
    QVERIFY(QFile::copy(Bitmap(QStringLiteral("Blu")), orfano));
    // A folder whose directory is gone, and a working copy: neither has a bitmap.
    Sql(QStringLiteral("INSERT INTO TabCartelle (CodiceCartella, NomeCartella) VALUES (2, 'Via')"));
    Sql(QStringLiteral("INSERT INTO TabDisegni (CodiceDisegno, NomeDisegno, CodiceCartella)"
                       " VALUES (50, 'Lontano', 2), (1000001, '1000001', 1)"));

    QCOMPARE(RiparaBitmapDisegni(), 4);
    QCOMPARE(ColoreBitmap(Bitmap(QStringLiteral("Rosso"))), 0x123456);
    QCOMPARE(ColoreBitmap(Bitmap(QStringLiteral("Verde"))), 0x00FF00);
    QCOMPARE(ColoreBitmap(Bitmap(QStringLiteral("Blu"))), 0x030201);
    QCOMPARE(ColoreBitmap(Bitmap(QStringLiteral("Vuoto"))), Predefiniti::ColoreSfondo);
    QCOMPARE(ColoreBitmap(Bitmap(QStringLiteral("A/B"))), 0x00FFFF);
    QStringList attesi;
    for (const QString& nome :
         {QStringLiteral("Rosso"), QStringLiteral("Verde"), QStringLiteral("Blu"),
          QStringLiteral("Vuoto"), QStringLiteral("A/B")})
        attesi.append(QFileInfo(Bitmap(nome)).fileName());
    attesi.sort();
    QCOMPARE(FileDellaCartella(), attesi);
    QVERIFY(!QDir(PercorsoCartellaDisegni(QStringLiteral("Via"), 2)).exists());
    QVERIFY(amb.Scatole.isEmpty());
    // The globals of the drawing screen are as they were.
    QCOMPARE(NumeroAzioni, 1);
    QCOMPARE(Azioni[1].ColZona, 0x00FFFF);
}

void TestRegistraDisegno::riparazione_senza_nulla_da_fare_non_tocca_nulla() {
    AmbienteProva amb;
    amb.ApriArchivi();
    CartellaDiSistema();
    Superficie quadro(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    SalvaNuovo(quadro, QStringLiteral("Fermo"), 0x0000FF);
    const QByteArray percorso = QFile::encodeName(Bitmap(QStringLiteral("Fermo")));
    struct stat prima {};
    QCOMPARE(::stat(percorso.constData(), &prima), 0);
    QCOMPARE(RiparaBitmapDisegni(), 0);
    // The same file, not one written again in its place.
    struct stat dopo {};
    QCOMPARE(::stat(percorso.constData(), &dopo), 0);
    QCOMPARE(dopo.st_ino, prima.st_ino);
    QCOMPARE(dopo.st_mtim.tv_nsec, prima.st_mtim.tv_nsec);
    QCOMPARE(FileDellaCartella(), QStringList{QStringLiteral("Fermo.bmp")});
}

void TestRegistraDisegno::riparazione_che_fallisce_tiene_il_file_a_parte() {
    AmbienteProva amb;
    amb.ApriArchivi();
    CartellaDiSistema();
    Superficie quadro(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    SalvaNuovo(quadro, QStringLiteral("Pietra"), 0x0000FF);
    SalvaNuovo(quadro, QStringLiteral("Erba"), 0x00FF00);
    const QString pietra = Bitmap(QStringLiteral("Pietra"));
    QVERIFY(QFile::remove(pietra));
    QVERIFY(QDir().mkpath(pietra + QStringLiteral("/dentro")));
    QVERIFY(QFile::remove(Bitmap(QStringLiteral("Erba"))));
    // Pietra cannot be put back; the box says so and Erba is drawn all the same.
    QCOMPARE(RiparaBitmapDisegni(), 1);
    QCOMPARE(amb.Scatole.size(), 1);
    QVERIFY2(amb.Scatole[0].Testo.contains(QStringLiteral("75/4640")),
             qPrintable(amb.Scatole[0].Testo));
    QVERIFY(QFile::exists(PercorsoBitmapNuova(pietra)));
    QCOMPARE(ColoreBitmap(Bitmap(QStringLiteral("Erba"))), 0x00FF00);
    // During the start too: the program is not ended for a bitmap.
    FaseAvvio = 1;
    QCOMPARE(RiparaBitmapDisegni(), 0);
    QCOMPARE(FaseAvvio, int16_t(1));
    FaseAvvio = 0;
    QCOMPARE(amb.Scatole.size(), 2);
    QVERIFY(QFile::exists(PercorsoBitmapNuova(pietra)));
}

void TestRegistraDisegno::l_avvio_ridisegna_la_bitmap_di_un_salvataggio_interrotto() {
    OrologioVirtuale orologio;
    AmbienteProva amb;
    amb.ApriArchivi();
    CartellaDiSistema();
    {
        Superficie quadro(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
        SalvaNuovo(quadro, QStringLiteral("Faro"), 0x0000FF);
        // The program died between the commit and the rename.
        GuastoAlPasso(4350);
        QVERIFY(!Salva(quadro, QStringLiteral("Faro"), Disegno(0x00FF00, 2)));
        SondaRegistraDisegno = nullptr;
    }
    const QString percorso = Bitmap(QStringLiteral("Faro"));
    QCOMPARE(ColoreBitmap(percorso), 0x0000FF);
    amb.ChiudiArchivi();
    QCOMPARE(AvviaZanto(), -1);
    QCOMPARE(ColoreBitmap(percorso), 0x00FF00);
    QVERIFY(!QFile::exists(PercorsoBitmapNuova(percorso)));
    QCOMPARE(amb.Scatole.size(), 1); // the failed save's own
    DistruggiMenùGenerale();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
}

void TestRegistraDisegno::sovrascritto_in_un_altra_grafia_lascia_una_sola_bitmap() {
    AmbienteProva amb;
    amb.ApriArchivi();
    CartellaDiSistema();
    Superficie quadro(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    SalvaNuovo(quadro, QStringLiteral("Città"), 0x0000FF);
    const int32_t codice = CodiceDisegnoCorrente;
    QCOMPARE(FileDellaCartella().size(), 1);
    QVERIFY(Salva(quadro, QStringLiteral("CITTA"), Disegno(0x00FF00)));
    QCOMPARE(CodiceDisegnoCorrente, codice);
    QCOMPARE(NomeDisegnoCorrente, QStringLiteral("CITTA"));
    // The bitmap under the old spelling went with the step that put the new one.
    QCOMPARE(FileDellaCartella(),
             QStringList{QFileInfo(Bitmap(QStringLiteral("CITTA"))).fileName()});
    QCOMPARE(ColoreBitmap(Bitmap(QStringLiteral("CITTA"))), 0x00FF00);
}

void TestRegistraDisegno::il_nome_cambia_solo_col_commit() {
    AmbienteProva amb;
    amb.ApriArchivi();
    CartellaDiSistema();
    Superficie quadro(LarghezzaQuadroDisegno, AltezzaQuadroDisegno);
    SalvaNuovo(quadro, QStringLiteral("Mare"), 0x0000FF);
    const int32_t codice = CodiceDisegnoCorrente;
    RegistraComeNuovo = 1;
    GuastoAlPasso(4340);
    Azioni = Disegno(0x00FF00);
    NumeroAzioni = 1;
    QVERIFY(!RegistraDisegno(quadro, QStringLiteral("Monte")));
    QCOMPARE(NomeDisegnoCorrente, QStringLiteral("Mare"));
    QCOMPARE(CodiceDisegnoCorrente, codice);
    QCOMPARE(CercaNomeDisegno(QStringLiteral("Monte"), 1), 0);
    SondaRegistraDisegno = nullptr;
    QVERIFY(RegistraDisegno(quadro, QStringLiteral("Monte")));
    QCOMPARE(NomeDisegnoCorrente, QStringLiteral("Monte"));
    QVERIFY(CodiceDisegnoCorrente != codice);
    QCOMPARE(ColoreRighe(QStringLiteral("Mare")), 0x0000FF);
    QCOMPARE(ColoreRighe(QStringLiteral("Monte")), 0x00FF00);
}

QTEST_MAIN(TestRegistraDisegno)
#include "test_registra_disegno.moc"
