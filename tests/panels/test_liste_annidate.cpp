// Lists opened inside others, as a switch user opens them: the folder list's
// New opens the keyboard, whose 110 opens the list of text files and whose 109
// opens the font panel with its lists. Each one, closed, leaves the one below
// exactly as it was.
#include "app/MenuGenerale.h"
#include "archive/Archivi.h"
#include "base/CartellaAttiva.h"
#include "base/Configurazione.h"
#include "base/Utilita.h"
#include "model/StatoAmbiente.h"
#include "panels/Elaborazioni.h"
#include "panels/EtichettaLista.h"
#include "panels/ProvaLista.h"
#include "panels/ProvaScriviTesto.h"
#include "panels/QuadroScriviTesto.h"
#include "panels/QuadroSettaggiFont.h"
#include "support/AmbienteProva.h"
#include "support/Copione.h"
#include "support/OrologioVirtuale.h"

#include <QDir>
#include <QFile>
#include <QSqlQuery>
#include <QtTest>

#include <memory>

namespace {

constexpr int64_t Sosta = 1000;

void ScriviRtf(const QString& nome, const QByteArray& dati) {
    QFile f(PercorsoFile() + '/' + nome);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write(dati);
}

int Conta(const QString& testo) {
    QSqlQuery q(Archivio(ArchivioDisegni));
    if (!q.exec(testo) || !q.next()) return -1;
    return q.value(0).toInt();
}

int CodiceCartella(const QString& nome) {
    QSqlQuery q(Archivio(ArchivioDisegni));
    q.prepare(QStringLiteral("SELECT CodiceCartella FROM TabCartelle WHERE NomeCartella = ?"));
    q.addBindValue(nome);
    if (!q.exec() || !q.next()) return -1;
    return q.value(0).toInt();
}

QString Descrivi(const StatoLista& s) {
    return QStringLiteral("tipo %1 modo %2 voci %3 [%4] titolo «%5» scelta «%6» nuova «%7"
                          "» tasti %8%9%10 prima %11 riga %12")
        .arg(static_cast<int>(s.TipoLista))
        .arg(s.ModoCartelle)
        .arg(s.NumeroVoci)
        .arg(s.VociLista.join(QChar(u'|')), s.TitoloLista, s.VoceScelta, s.NomeNuovaCartella)
        .arg(s.AbilitaTastiLista[1])
        .arg(s.AbilitaTastiLista[2])
        .arg(s.AbilitaTastiLista[3])
        .arg(s.PrimaVoceVisibile)
        .arg(s.RigaScelta);
}

// The panels as the ring sees them: first button, how many, columns of the grid.
struct Pannello {
    int16_t Primo;
    int Tutti;
    int Colonne;
};
constexpr Pannello PannelloLista{100, 26, 0};
constexpr Pannello TastiLettere{101, 70, 10};
constexpr Pannello TastiFunzione{101, 12, 6};
constexpr Pannello PannelloFont{101, 5, 0};

// The ring from `da` to `a` and the pick: in mode 1 the dwells, in mode 4
// the fewest arrows.
void Vai(Copione& c, int modo, int16_t& da, int16_t a, const Pannello& p) {
    const int avanti = (a - da + p.Tutti) % p.Tutti;
    if (modo == 1) {
        c.Attendi(avanti * Sosta).Tasto(Qt::Key_Return);
    } else if (p.Colonne > 0) {
        Scegli4(c, da, a, p.Colonne, p.Tutti);
    } else {
        const bool indietro = p.Tutti - avanti < avanti;
        for (int i = 0; i < (indietro ? p.Tutti - avanti : avanti); ++i)
            c.Tasto(indietro ? Qt::Key_Left : Qt::Key_Right);
        c.Tasto(Qt::Key_Return);
    }
    da = a;
}

// Line 101 of the list in front, then confirm: with keys the ring goes to
// confirm by itself, in mode 1 it walks there.
void PrimaRigaEConferma(Copione& c, int modo) {
    int16_t lista = 101;
    Vai(c, modo, lista, 101, PannelloLista);
    if (modo == 4) lista = 122;
    Vai(c, modo, lista, 122, PannelloLista);
}

// From the letters of a keyboard that has just opened, Fn, then 110: the list
// of text files; its first file is chosen. The ring is left on 110.
void TestoDaFile(Copione& c, int modo) {
    int16_t lettere = 101;
    Vai(c, modo, lettere, 166, TastiLettere);
    int16_t funzioni = 101;
    Vai(c, modo, funzioni, 110, TastiFunzione);
    PrimaRigaEConferma(c, modo);
}

// A script that leaves panels open closes them one by one, down to `fondo`,
// so that a failing test ends; `rimasti` counts them.
void ChiudiIRimasti(Copione& c, int& rimasti, const FormScansione* fondo) {
    for (int i = 0; i < 6; ++i)
        c.Esegui([&rimasti, fondo] {
            FormScansione* f = FormScansione::InPrimoPiano();
            if (f == nullptr || f == fondo) return;
            ++rimasti;
            f->done(-1);
        });
}

void FinoAllaFine(Copione& c) {
    for (int giro = 0; giro < 100 && !c.Finito(); ++giro)
        QCoreApplication::processEvents();
}

} // namespace

class ProvaListeAnnidate : public QObject {
    Q_OBJECT

    std::unique_ptr<AmbienteProva> amb;
    std::unique_ptr<OrologioVirtuale> orologio;
    int rimasti = 0; // panels a script left open

    MenuGenerale* Menu(int modo) {
        ModalitàFunzionamento = static_cast<int16_t>(modo);
        MenuGenerale* menu = CaricaMenùGenerale();
        QCoreApplication::processEvents();
        if (modo == 1) orologio->Avanza(Sosta); // the ring on 102, the folders
        return menu;
    }

    // The main menu's folder choice with the script inside it.
    void CartelleDalMenu(Copione& c, int modo) {
        MenuGenerale* menu = Menu(modo);
        ChiudiIRimasti(c, rimasti, menu);
        c.Avvia();
        if (modo == 4) QVERIFY(PremiTasto(Qt::Key_Right));
        QVERIFY(PremiTasto(Qt::Key_Return));
        FinoAllaFine(c);
        QVERIFY(c.Finito());
        QVERIFY2(c.Problemi.isEmpty(), qPrintable(c.Problemi.join(QChar(u'\n'))));
        QCOMPARE(rimasti, 0);
        QCOMPARE(FormScansione::InPrimoPiano(), menu);
    }

private slots:
    void init() {
        amb = std::make_unique<AmbienteProva>();
        amb->ApriArchivi();
        orologio = std::make_unique<OrologioVirtuale>();
        TempoLatenzaScansione = Sosta;
        rimasti = 0;
        ScriviRtf(QStringLiteral("mare.rtf"), "{\\rtf1 Mare}");
    }
    void cleanup() {
        DistruggiMenùGenerale();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        orologio.reset();
        amb.reset();
    }

    void i_generi_di_lista_hanno_i_loro_numeri() {
        const QList<GenereLista> generi = {GenereLista::Nessuna,     GenereLista::Disegni,
                                           GenereLista::Cartelle,    GenereLista::Oggetti,
                                           GenereLista::CartelleObj, GenereLista::Immagini,
                                           GenereLista::Testi,       GenereLista::Font,
                                           GenereLista::Dimensioni,  GenereLista::Scambi};
        for (int i = 0; i < generi.size(); ++i)
            QCOMPARE(static_cast<int>(generi.at(i)), i);
    }

    void l_azzeramento_riporta_ogni_campo_all_inizio() {
        TipoLista = GenereLista::Scambi;
        ModoCartelle = 2;
        VociLista = QStringList{QString(), QStringLiteral("uno")};
        NumeroVoci = 1;
        TitoloLista = QStringLiteral("titolo");
        VoceScelta = QStringLiteral("uno");
        NomeNuovaCartella = QStringLiteral("nuova");
        AbilitaTastiLista[0] = AbilitaTastiLista[1] = AbilitaTastiLista[2] = 1;
        AbilitaTastiLista[3] = 1;
        DatiLista.PrimaVoceVisibile = 7;
        DatiLista.RigaScelta = 105;
        LunghezzaMassimaTesto = 40;
        QVERIFY(!(DatiLista == StatoLista{}));
        QVERIFY(!(DatiScriviTesto == StatoScriviTesto{}));
        RipristinaGlobali();
        QVERIFY2(DatiLista == StatoLista{}, qPrintable(Descrivi(DatiLista)));
        QVERIFY(DatiScriviTesto == StatoScriviTesto{});
        // The start values themselves.
        QCOMPARE(static_cast<int>(TipoLista), 0);
        QCOMPARE(ModoCartelle, int16_t(0));
        QCOMPARE(VociLista, QStringList{QString()});
        QCOMPARE(NumeroVoci, int16_t(0));
        QVERIFY(TitoloLista.isEmpty() && VoceScelta.isEmpty() && NomeNuovaCartella.isEmpty());
        for (int16_t abilita : AbilitaTastiLista)
            QCOMPARE(abilita, int16_t(0));
        QCOMPARE(DatiLista.PrimaVoceVisibile, int16_t(1));
        QCOMPARE(DatiLista.RigaScelta, int16_t(0));
        QCOMPARE(LunghezzaMassimaTesto, int16_t(0));
    }

    void una_lista_tenuta_torna_intera() {
        ScriviRtf(QStringLiteral("foto.png"), "x");
        TipoLista = GenereLista::Immagini;
        ModoCartelle = 2;
        RiempiListaImmagini();
        TitoloLista = QStringLiteral("sotto");
        AbilitaTastiLista[1] = AbilitaTastiLista[2] = 1;
        DatiLista.PrimaVoceVisibile = 3;
        DatiLista.RigaScelta = 102;
        const QStringList fileSotto = ElencoFile;
        const StatoLista sotto = DatiLista;
        {
            const ListaTenuta tenuta;
            TipoLista = GenereLista::Testi;
            ModoCartelle = 0;
            RiempiListaTesti();
            TitoloLista = QStringLiteral("sopra");
            VoceScelta = QStringLiteral("mare.rtf");
            NomeNuovaCartella = QStringLiteral("X");
            AbilitaTastiLista[1] = 0;
            DatiLista.PrimaVoceVisibile = 1;
            DatiLista.RigaScelta = 0;
            QVERIFY(!(DatiLista == sotto));
            QVERIFY(ElencoFile != fileSotto);
        }
        QVERIFY2(DatiLista == sotto, qPrintable(Descrivi(DatiLista)));
        QCOMPARE(ElencoFile, fileSotto);
        QCOMPARE(NumeroFile, int16_t(1));
    }

    void cartella_nuova_col_nome_da_un_file_di_testo_data() { RigheDeiModi({1, 4}); }
    void cartella_nuova_col_nome_da_un_file_di_testo() {
        QFETCH(int, modo);
        StatoLista prima, dopo;
        QString titolo, riga;
        Copione c(*orologio);
        c.Esegui([&] { prima = DatiLista; });
        int16_t lista = 101;
        Vai(c, modo, lista, 123, PannelloLista); // New: the keyboard
        TestoDaFile(c, modo);
        int16_t funzioni = 110;
        Vai(c, modo, funzioni, 101, TastiFunzione); // confirm the name
        c.Esegui([&] {
            dopo = DatiLista;
            titolo = Lista()->windowTitle();
            riga = Lista()->Tasti.value(101)->text();
        });
        PrimaRigaEConferma(c, modo); // the new folder, first by name
        CartelleDalMenu(c, modo);

        const int codice = CodiceCartella(QStringLiteral("Mare"));
        QCOMPARE(codice, 2);
        QVERIFY(QDir(PercorsoCartellaDisegni(QStringLiteral("Mare"), codice)).exists());
        QCOMPARE(CodiceCartellaAttiva, codice);
        QCOMPARE(NomeCartellaAttiva, QStringLiteral("Mare"));
        // The folder list came back as it was, with the new folder in it.
        const QString etichetta =
            ComponiEtichetta(QStringLiteral("Mare"), codice, FormatoEtichetta::Cartella);
        QCOMPARE(titolo, QStringLiteral("Programma «ZANTO» - Scelta Cartella Disegni"));
        QCOMPARE(riga, etichetta);
        StatoLista atteso = prima;
        atteso.VociLista = QStringList{QString(), etichetta} + prima.VociLista.mid(1);
        atteso.NumeroVoci = static_cast<int16_t>(prima.NumeroVoci + 1);
        atteso.NomeNuovaCartella = QStringLiteral("Mare");
        QVERIFY2(dopo == atteso, qPrintable(Descrivi(dopo) + "\n" + Descrivi(atteso)));
    }

    void cartella_nuova_dopo_i_font_e_le_dimensioni_data() { RigheDeiModi({1, 4}); }
    void cartella_nuova_dopo_i_font_e_le_dimensioni() {
        QFETCH(int, modo);
        StatoLista prima, dopo;
        QString font;
        Copione c(*orologio);
        c.Esegui([&] { prima = DatiLista; });
        int16_t lista = 101;
        Vai(c, modo, lista, 123, PannelloLista);
        // The name on the letters, then Fn and 109: the font panel.
        int16_t lettere = 101;
        for (const QChar ch : QStringLiteral("SOLE"))
            Vai(c, modo, lettere, static_cast<int16_t>(101 + PostoTasto(ch)), TastiLettere);
        Vai(c, modo, lettere, 166, TastiLettere);
        int16_t funzioni = 101;
        Vai(c, modo, funzioni, 109, TastiFunzione);
        // Its first font, then its first size, then Chiudi.
        int16_t pannello = 101;
        Vai(c, modo, pannello, 101, PannelloFont);
        c.Esegui([&] { font = LeggiEtichetta(VociLista.at(1)).Nome; });
        PrimaRigaEConferma(c, modo);
        Vai(c, modo, pannello, 102, PannelloFont);
        PrimaRigaEConferma(c, modo);
        Vai(c, modo, pannello, 105, PannelloFont);
        Vai(c, modo, funzioni, 101, TastiFunzione); // confirm the name
        c.Esegui([&] { dopo = DatiLista; });
        PrimaRigaEConferma(c, modo);
        CartelleDalMenu(c, modo);

        QVERIFY(!font.isEmpty());
        QCOMPARE(FontCorrente, font);
        QCOMPARE(DimensioneFontCorrente, 8);
        const int codice = CodiceCartella(QStringLiteral("SOLE"));
        QCOMPARE(codice, 2);
        QCOMPARE(CodiceCartellaAttiva, codice);
        QCOMPARE(NomeCartellaAttiva, QStringLiteral("SOLE"));
        StatoLista atteso = prima;
        atteso.VociLista = QStringList{QString(), ComponiEtichetta(QStringLiteral("SOLE"), codice,
                                                                   FormatoEtichetta::Cartella)} +
                           prima.VociLista.mid(1);
        atteso.NumeroVoci = static_cast<int16_t>(prima.NumeroVoci + 1);
        atteso.NomeNuovaCartella = QStringLiteral("SOLE");
        QVERIFY2(dopo == atteso, qPrintable(Descrivi(dopo) + "\n" + Descrivi(atteso)));
    }

    void tastiera_chiusa_la_lista_sotto_torna_esatta_data() { RigheDeiModi({1, 4}); }
    void tastiera_chiusa_la_lista_sotto_torna_esatta() {
        QFETCH(int, modo);
        StatoLista prima, dopo;
        int32_t attiva = -1;
        Copione c(*orologio);
        c.Esegui([&] {
            prima = DatiLista;
            attiva = CodiceCartellaAttiva;
        });
        int16_t lista = 101;
        Vai(c, modo, lista, 123, PannelloLista);
        TestoDaFile(c, modo);
        int16_t funzioni = 110;
        Vai(c, modo, funzioni, 107, TastiFunzione); // Chiudi: no name
        c.Esegui([&] { dopo = DatiLista; });
        lista = 101;
        Vai(c, modo, lista, 125, PannelloLista); // back without a choice
        CartelleDalMenu(c, modo);

        QVERIFY2(dopo == prima, qPrintable(Descrivi(dopo) + "\n" + Descrivi(prima)));
        QCOMPARE(Conta(QStringLiteral("SELECT count(*) FROM TabCartelle")), 1);
        QCOMPARE(CodiceCartellaAttiva, attiva);
    }

    void la_lista_delle_immagini_punta_ancora_alle_immagini_data() { RigheDeiModi({1, 4}); }
    void la_lista_delle_immagini_punta_ancora_alle_immagini() {
        // A picture for the drawing: the line's number points into the files
        // the search found, and the caller takes the picture from there.
        QFETCH(int, modo);
        ModalitàFunzionamento = static_cast<int16_t>(modo);
        const QString foto = PercorsoFile() + QStringLiteral("/foto.png");
        ScriviRtf(QStringLiteral("foto.png"), "x");
        TipoLista = GenereLista::Immagini;
        StatoLista prima, dopo;
        QStringList filePrima, fileDopo;
        Copione c(*orologio);
        c.Esegui([&] {
            prima = DatiLista;
            filePrima = ElencoFile;
        });
        int16_t lista = 101;
        Vai(c, modo, lista, 123, PannelloLista); // New, though it cannot make a picture
        TestoDaFile(c, modo);
        int16_t funzioni = 110;
        Vai(c, modo, funzioni, 107, TastiFunzione); // Chiudi
        c.Esegui([&] {
            dopo = DatiLista;
            fileDopo = ElencoFile;
        });
        PrimaRigaEConferma(c, modo);
        ChiudiIRimasti(c, rimasti, nullptr);
        QVERIFY(ApriLista(c));
        QVERIFY2(c.Problemi.isEmpty(), qPrintable(c.Problemi.join(QChar(u'\n'))));
        QCOMPARE(rimasti, 0);

        QVERIFY2(dopo == prima, qPrintable(Descrivi(dopo) + "\n" + Descrivi(prima)));
        QCOMPARE(fileDopo, filePrima);
        const EtichettaLetta scelta = LeggiEtichetta(VoceScelta);
        QCOMPARE(scelta.Nome, QStringLiteral("foto.png"));
        QVERIFY(scelta.Valore() >= 1 && scelta.Valore() <= NumeroFile);
        QCOMPARE(ElencoFile.at(scelta.Valore()), foto);
    }

    void la_lista_dei_font_resta_dei_font_data() { RigheDeiModi({1, 4}); }
    void la_lista_dei_font_resta_dei_font() {
        // The drawing's text: the keyboard with no limit, its 109 the font
        // panel, whose font list's New opens a keyboard of its own.
        QFETCH(int, modo);
        ModalitàFunzionamento = static_cast<int16_t>(modo);
        StatoLista prima, dopo;
        QString titolo;
        int16_t limiteDentro = -1, limiteFuori = -1;
        Copione c(*orologio);
        int16_t lettere = 101;
        Vai(c, modo, lettere, 166, TastiLettere);
        int16_t funzioni = 101;
        Vai(c, modo, funzioni, 109, TastiFunzione);
        int16_t pannello = 101;
        Vai(c, modo, pannello, 101, PannelloFont);
        c.Esegui([&] { prima = DatiLista; });
        int16_t lista = 101;
        Vai(c, modo, lista, 123, PannelloLista); // New, though it cannot make a font
        c.Esegui([&] { limiteDentro = LunghezzaMassimaTesto; });
        TestoDaFile(c, modo);
        int16_t dentro = 110;
        Vai(c, modo, dentro, 101, TastiFunzione);
        c.Esegui([&] {
            dopo = DatiLista;
            titolo = Lista()->windowTitle();
        });
        PrimaRigaEConferma(c, modo);
        Vai(c, modo, pannello, 105, PannelloFont);
        c.Esegui([&] { limiteFuori = LunghezzaMassimaTesto; });
        Vai(c, modo, funzioni, 107, TastiFunzione);
        ChiudiIRimasti(c, rimasti, nullptr);
        QVERIFY(EseguiNelPannello(c, [] { ScriviTesto(0); }));
        QVERIFY2(c.Problemi.isEmpty(), qPrintable(c.Problemi.join(QChar(u'\n'))));
        QCOMPARE(rimasti, 0);

        QCOMPARE(titolo, QStringLiteral("Programma «ZANTO» - Scelta Fonts"));
        StatoLista atteso = prima;
        atteso.NomeNuovaCartella = QStringLiteral("Mare");
        QVERIFY2(dopo == atteso, qPrintable(Descrivi(dopo) + "\n" + Descrivi(atteso)));
        QCOMPARE(FontCorrente, LeggiEtichetta(prima.VociLista.at(1)).Nome);
        QCOMPARE(Conta(QStringLiteral("SELECT count(*) FROM TabCartelle")), 1);
        // Each keyboard kept its own limit.
        QCOMPARE(limiteDentro, int16_t(LarghezzaNomeEtichetta));
        QCOMPARE(limiteFuori, int16_t(0));
    }
};

QTEST_MAIN(ProvaListeAnnidate)
#include "test_liste_annidate.moc"
