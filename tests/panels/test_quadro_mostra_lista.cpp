// The list panel driven as a switch user drives it: keys and time, through
// the real panel, with results checked in the archive, on disk and on screen.
#include "app/Avvio.h"
#include "app/MenuGenerale.h"
#include "archive/Archivi.h"
#include "archive/ArchivioAzioni.h"
#include "base/Bip.h"
#include "base/Configurazione.h"
#include "base/Utilita.h"
#include "input/QuadroMessaggi.h"
#include "panels/Elaborazioni.h"
#include "panels/EtichettaLista.h"
#include "panels/ProvaLista.h"
#include "panels/ProvaPannello.h"
#include "panels/QuadroMostraLista.h"
#include "support/AmbienteProva.h"
#include "support/OrologioVirtuale.h"

#include <QDir>
#include <QFile>
#include <QFontMetrics>
#include <QSqlQuery>
#include <QtTest>

#include <memory>

namespace {

void Sql(const QString& archivio, const QString& testo) {
    QSqlQuery q(Archivio(archivio));
    QVERIFY2(q.exec(testo), qPrintable(testo));
}

int Conta(const QString& archivio, const QString& testo) {
    QSqlQuery q(Archivio(archivio));
    if (!q.exec(testo) || !q.next()) return -1;
    return q.value(0).toInt();
}

// Drawings 1..n in folder 1, named so that they sort by number.
void Disegni(int n) {
    QSqlQuery q(Archivio(ArchivioDisegni));
    q.prepare(QStringLiteral("INSERT INTO TabDisegni VALUES (?, ?, 1)"));
    for (int i = 1; i <= n; ++i) {
        q.addBindValue(i);
        q.addBindValue(QStringLiteral("Disegno %1").arg(i, 3, 10, QChar(u'0')));
        QVERIFY(q.exec());
    }
}

void ScriviFile(const QString& percorso) {
    QFile f(percorso);
    QVERIFY(f.open(QIODevice::WriteOnly));
    f.write("x");
}

QString Riga(int16_t indice) {
    return Lista()->Tasti.value(indice)->text();
}

// The colour at the empty right end of a button, as the screen shows it.
uint32_t Sfondo(int16_t indice) {
    TastoZanto* t = Lista()->Tasti.value(indice);
    return t->grab().toImage().pixel(t->width() - 4, t->height() / 2) & 0xFFFFFF;
}

} // namespace

class ProvaQuadroMostraLista : public QObject {
    Q_OBJECT

    std::unique_ptr<AmbienteProva> amb;
    std::unique_ptr<OrologioVirtuale> orologio;

    bool Apri(Copione& c) { return ApriLista(c); }

private slots:
    void init() {
        amb = std::make_unique<AmbienteProva>();
        amb->ApriArchivi();
        orologio = std::make_unique<OrologioVirtuale>();
        CodiceCartellaAttiva = 1;
        NomeCartellaAttiva = NomiArchivi::CartellaSistemaDisegni;
        CodiceCartellaObjAttiva = 1;
        ModalitàFunzionamento = 4;
        TipoLista = GenereLista::Disegni;
    }
    void cleanup() {
        orologio.reset();
        amb.reset();
    }

    void titolo_pulsanti_e_righe_all_apertura() {
        Disegni(3);
        QString titolo;
        bool nuovo = true, elimina = false;
        QStringList righe;
        QFont carattere;
        Copione c(*orologio);
        c.Esegui([&] {
            titolo = Lista()->windowTitle();
            nuovo = Lista()->Tasti.value(123)->isEnabled();
            elimina = Lista()->Tasti.value(124)->isEnabled();
            for (int16_t i = 101; i <= 104; ++i)
                righe << Riga(i);
            carattere = Lista()->Tasti.value(101)->font();
        });
        QVERIFY(Apri(c));
        QCOMPARE(titolo, QStringLiteral("Programma «ZANTO» - Scelta Disegno"));
        QVERIFY(!nuovo);
        QVERIFY(elimina);
        QCOMPARE(righe.at(0),
                 ComponiEtichetta(QStringLiteral("Disegno 001"), 1, FormatoEtichetta::Elemento));
        QCOMPARE(righe.at(2), QStringLiteral("Disegno 003                              [ 0003 ]"));
        QCOMPARE(righe.at(3), QString());
        const QFontMetrics metrica(carattere);
        QCOMPARE(metrica.horizontalAdvance(QChar(u'i')), metrica.horizontalAdvance(QChar(u'W')));
        QVERIFY(carattere.bold());
        QCOMPARE(carattere.pointSize(), 9);
    }

    void le_parentesi_stanno_in_una_colonna() {
        Sql(ArchivioDisegni, QStringLiteral("INSERT INTO TabDisegni VALUES (1, 'i', 1),"
                                            " (2, 'WWWWWWWWWW', 1), (3, 'Città dell''Anna', 1)"));
        QList<int> colonne;
        Copione c(*orologio);
        c.Esegui([&] {
            for (int16_t i = 101; i <= 103; ++i) {
                const QString testo = Riga(i);
                colonne << QFontMetrics(Lista()->Tasti.value(i)->font())
                               .horizontalAdvance(testo.left(testo.indexOf(QChar(u'['))));
            }
        });
        QVERIFY(Apri(c));
        QCOMPARE(colonne.size(), 3);
        QCOMPARE(colonne.at(1), colonne.at(0));
        QCOMPARE(colonne.at(2), colonne.at(0));
    }

    void venti_voci_su_e_giu_suonano_subito() {
        Disegni(20);
        int primaVoce = 0;
        Copione c(*orologio);
        // Up from 101 to 100, fire; then round back to 121 and fire.
        c.Tasto(Qt::Key_Up).Tasto(Qt::Key_Return);
        for (int i = 0; i < 21; ++i)
            c.Tasto(Qt::Key_Right);
        c.Tasto(Qt::Key_Return).Esegui([&] { primaVoce = Lista()->PrimaVoceVisibile; });
        QVERIFY(Apri(c));
        QCOMPARE(ContatoreBip, 2);
        QCOMPARE(primaVoce, int16_t(1));
    }

    void ventuno_voci_giu_sposta_una_volta_poi_suona() {
        Disegni(21);
        QString ultima;
        int primaVoce = 0;
        int bip = -1;
        Copione c(*orologio);
        for (int i = 0; i < 20; ++i)
            c.Tasto(Qt::Key_Down);
        c.Tasto(Qt::Key_Return).Esegui([&] {
            ultima = Riga(120);
            primaVoce = Lista()->PrimaVoceVisibile;
            bip = ContatoreBip;
        });
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(bip, 0);
        QCOMPARE(primaVoce, int16_t(2));
        QCOMPARE(LeggiEtichetta(ultima).Nome, QStringLiteral("Disegno 021"));
        QCOMPARE(ContatoreBip, 1);
    }

    void scelta_poi_scorrimento_conferma_la_voce_che_sta_sulla_riga() {
        Disegni(25);
        Copione c(*orologio);
        // Line 105 picked: the ring jumps to confirm. Back to 121 (down) and fire.
        for (int i = 0; i < 4; ++i)
            c.Tasto(Qt::Key_Right);
        c.Tasto(Qt::Key_Return).Tasto(Qt::Key_Up).Tasto(Qt::Key_Return);
        c.Tasto(Qt::Key_Right).Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(LeggiEtichetta(VoceScelta).Nome, QStringLiteral("Disegno 006"));
        QCOMPARE(LeggiEtichetta(VoceScelta).Valore(), 6);
    }

    void una_seconda_riga_prende_il_posto_della_prima() {
        Disegni(5);
        int16_t scelta = 0;
        uint32_t prima = 0, seconda = 0, evidenza = 0;
        ModalitàFunzionamento = 1;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Return).Attendi(2000).Tasto(Qt::Key_Return).Attendi(1000);
        c.Esegui([&] {
            scelta = Lista()->RigaScelta;
            prima = Sfondo(101);
            seconda = Sfondo(103);
            evidenza = Sfondo(104);
        });
        QVERIFY(Apri(c));
        QCOMPARE(scelta, int16_t(103));
        QCOMPARE(prima, QuadroMostraLista::ColoreNormale);
        QCOMPARE(seconda, QuadroMostraLista::ColoreScelta);
        QCOMPARE(evidenza, QuadroMostraLista::ColoreEvidenza);
    }

    void l_evidenza_si_dipinge_sopra_la_riga_scelta() {
        Disegni(2);
        ModalitàFunzionamento = 1;
        uint32_t sotto = 0;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Return).Esegui([&] { sotto = Sfondo(101); });
        QVERIFY(Apri(c));
        QCOMPARE(sotto, QuadroMostraLista::ColoreEvidenza);
    }

    void la_stessa_riga_due_volte_toglie_la_scelta_e_conferma_suona() {
        Disegni(3);
        ModalitàFunzionamento = 3;
        int16_t scelta = -1;
        Copione c(*orologio);
        // Mode 3: the pick jumps to confirm; the scan key walks round to 101 again.
        c.Tasto(Qt::Key_Return);
        for (int i = 122; i <= 126; ++i)
            c.Tasto(Qt::Key_Space);
        c.Tasto(Qt::Key_Return).Esegui([&] { scelta = Lista()->RigaScelta; });
        for (int i = 101; i < 122; ++i)
            c.Tasto(Qt::Key_Space);
        c.Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(scelta, int16_t(0));
        QCOMPARE(ContatoreBip, 1);
        QCOMPARE(VoceScelta, QString());
    }

    void conferma_senza_scelta_e_riga_vuota_suonano_e_restano() {
        Disegni(1);
        bool aperto = false;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Right).Tasto(Qt::Key_Return); // line 102, empty
        for (int i = 0; i < 20; ++i)
            c.Tasto(Qt::Key_Right);
        c.Tasto(Qt::Key_Return).Esegui([&] { aperto = Lista() != nullptr; });
        QVERIFY(Apri(c));
        QCOMPARE(ContatoreBip, 2);
        QVERIFY(aperto);
    }

    void nel_modo_1_l_evidenza_visita_tutti_i_26_posti_e_gira() {
        Disegni(2);
        ModalitàFunzionamento = 1;
        QList<int16_t> giro;
        QList<uint32_t> colori;
        Copione c(*orologio);
        for (int i = 0; i < 27; ++i) {
            c.Esegui([&] {
                const int16_t corrente = Lista()->Motore.TastoCorrente;
                giro << corrente;
                colori << Lista()->ColoreTasto(corrente);
            });
            c.Attendi(1000);
        }
        QVERIFY(Apri(c));
        QList<int16_t> atteso;
        for (int16_t i = 101; i <= 125; ++i)
            atteso << i;
        atteso << 100 << 101;
        QCOMPARE(giro, atteso);
        for (uint32_t colore : std::as_const(colori))
            QCOMPARE(colore, QuadroMostraLista::ColoreEvidenza);
    }

    void nel_modo_2_l_inversione_torna_indietro_con_giro() {
        Disegni(2);
        ModalitàFunzionamento = 2;
        TipoInversioneScansione = 1;
        QList<int16_t> giro;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Space).Attendi(1000).Esegui([&] { giro << Lista()->Motore.TastoCorrente; });
        c.Attendi(1000).Esegui([&] { giro << Lista()->Motore.TastoCorrente; });
        QVERIFY(Apri(c));
        QCOMPARE(giro, (QList<int16_t>{100, 125}));
    }

    void nel_modo_1_dopo_una_riga_l_evidenza_riparte_da_li() {
        Disegni(3);
        ModalitàFunzionamento = 1;
        QList<int16_t> giro;
        Copione c(*orologio);
        c.Attendi(1000).Tasto(Qt::Key_Return).Esegui([&] {
            giro << Lista()->Motore.TastoCorrente;
        });
        c.Attendi(999).Esegui([&] { giro << Lista()->Motore.TastoCorrente; });
        c.Attendi(1).Esegui([&] { giro << Lista()->Motore.TastoCorrente; });
        QVERIFY(Apri(c));
        QCOMPARE(giro, (QList<int16_t>{102, 102, 103}));
    }

    void il_codice_12345_si_mostra_e_si_legge_intero() {
        Sql(ArchivioDisegni, QStringLiteral("INSERT INTO TabDisegni VALUES (12345, 'Mare', 1)"));
        Copione c(*orologio);
        c.Tasto(Qt::Key_Return).Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QVERIFY(VoceScelta.endsWith(QStringLiteral("[ 12345 ]")));
        QCOMPARE(LeggiEtichetta(VoceScelta).Valore(), 12345);
    }

    void una_lista_vuota_di_disegni_suona_e_si_apre_senza_righe() {
        bool vuota = false;
        Copione c(*orologio);
        c.Esegui([&] { vuota = Riga(101).isEmpty() && Riga(120).isEmpty(); });
        QVERIFY(Apri(c));
        QVERIFY(vuota);
        QCOMPARE(ContatoreBip, 1);
    }

    void i_titoli_e_i_pulsanti_di_ogni_tipo() {
        const QStringList titoli = {"Programma «ZANTO» - Scelta Disegno",
                                    "Programma «ZANTO» - Scelta Cartella Disegni",
                                    "Programma «ZANTO» - Scelta Oggetto",
                                    "Programma «ZANTO» - Scelta Cartella Oggetti",
                                    "Programma «ZANTO» - Scelta Immagine",
                                    "Programma «ZANTO» - Scelta File di Testo (Rtf)",
                                    "Programma «ZANTO» - Scelta Fonts",
                                    "Programma «ZANTO» - Scelta Dimensione Carattere"};
        const QList<QPair<bool, bool>> pulsanti = {{false, true},  {true, true},  {false, true},
                                                   {true, true},   {false, true}, {false, true},
                                                   {false, false}, {false, false}};
        for (int16_t tipo = 1; tipo <= 8; ++tipo) {
            TipoLista = static_cast<GenereLista>(tipo);
            ModoCartelle = 2;
            QString titolo;
            QPair<bool, bool> attivi;
            Copione c(*orologio);
            c.Esegui([&] {
                titolo = Lista()->windowTitle();
                attivi = {Lista()->Tasti.value(123)->isEnabled(),
                          Lista()->Tasti.value(124)->isEnabled()};
            });
            QVERIFY(Apri(c));
            QCOMPARE(titolo, titoli.at(tipo - 1));
            QCOMPARE(attivi, pulsanti.at(tipo - 1));
        }
        // Folders to choose only: no New.
        TipoLista = GenereLista::Cartelle;
        ModoCartelle = 1;
        bool nuovo = true;
        Copione c(*orologio);
        c.Esegui([&] { nuovo = Lista()->Tasti.value(123)->isEnabled(); });
        QVERIFY(Apri(c));
        QVERIFY(!nuovo);
    }

    void le_righe_dei_font_si_mostrano_nel_loro_carattere() {
        TipoLista = GenereLista::Font;
        QString nome;
        QString famiglia;
        Copione c(*orologio);
        c.Esegui([&] {
            nome = LeggiEtichetta(Riga(101)).Nome;
            famiglia = Lista()->Tasti.value(101)->font().family();
        });
        QVERIFY(Apri(c));
        QVERIFY(!nome.isEmpty());
        QCOMPARE(famiglia, nome);
    }

    // Deleting: the panel, both questions, the archive and the disk.

    void elimina_un_disegno_dopo_due_ok_con_le_sue_azioni_e_la_bitmap() {
        Disegni(2);
        Sql(ArchivioDisegni, QStringLiteral("INSERT INTO TabAzioniDisegno (CodiceDisegno,"
                                            " NumAzione) VALUES (1, 1), (1, 2), (2, 1)"));
        const QString bitmap = PercorsoBitmapDisegno(NomeCartellaAttiva, CodiceCartellaAttiva,
                                                     QStringLiteral("Disegno 001"), 1);
        ScriviFile(bitmap);
        QStringList domande;
        QList<int16_t> anelli;
        int16_t corrente = 0, scelta = -1;
        QString prima;
        Copione c(*orologio);
        // Line 101, then from confirm (122) on to delete (124).
        c.Tasto(Qt::Key_Return).Tasto(Qt::Key_Right).Tasto(Qt::Key_Right).Tasto(Qt::Key_Return);
        for (int i = 0; i < 2; ++i) {
            c.Esegui([&] {
                domande << TestoQuadroMessaggi;
                anelli << FormScansione::InPrimoPiano()->Motore.TastoCorrente;
            });
            c.Tasto(Qt::Key_Left).Tasto(Qt::Key_Return); // from Annulla to OK
        }
        c.Esegui([&] {
            corrente = Lista()->Motore.TastoCorrente;
            scelta = Lista()->RigaScelta;
            prima = Riga(101);
        });
        QVERIFY(Apri(c));
        QCOMPARE(domande.at(0),
                 QStringLiteral("ELIMINARE il Disegno Selezionato?\rATTENZIONE!\rIl Disegno verrà "
                                "definitivamente cancellato!"));
        QCOMPARE(domande.at(1),
                 QStringLiteral("ATTENZIONE!\rConferma definitiva di cancellazione\rdel Disegno "
                                "selezionato.\rPremere «OK» per cancellare o\r«Annulla» per "
                                "abbandonare!"));
        QCOMPARE(anelli, (QList<int16_t>{103, 103}));
        QCOMPARE(Conta(ArchivioDisegni, "SELECT count(*) FROM TabDisegni WHERE CodiceDisegno = 1"),
                 0);
        QCOMPARE(Conta(ArchivioDisegni, "SELECT count(*) FROM TabAzioniDisegno"), 1);
        QVERIFY(!QFile::exists(bitmap));
        // Filled again, and still open at the top.
        QCOMPARE(LeggiEtichetta(prima).Nome, QStringLiteral("Disegno 002"));
        QCOMPARE(corrente, int16_t(101));
        QCOMPARE(scelta, int16_t(0));
    }

    void annulla_alla_prima_o_alla_seconda_domanda_non_elimina_nulla() {
        Disegni(1);
        for (int giro = 0; giro < 2; ++giro) {
            Copione c(*orologio);
            c.Tasto(Qt::Key_Return).Tasto(Qt::Key_Right).Tasto(Qt::Key_Right);
            c.Tasto(Qt::Key_Return);
            if (giro == 1) c.Tasto(Qt::Key_Left).Tasto(Qt::Key_Return);
            c.Tasto(Qt::Key_Return); // Annulla holds the ring first
            QVERIFY(Apri(c));
            QCOMPARE(Conta(ArchivioDisegni, "SELECT count(*) FROM TabDisegni"), 1);
        }
    }

    void elimina_senza_riga_scelta_suona() {
        Disegni(1);
        Copione c(*orologio);
        c.Tasto(Qt::Key_Up).Tasto(Qt::Key_Up).Tasto(Qt::Key_Left).Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(ContatoreBip, 1);
        QCOMPARE(Conta(ArchivioDisegni, "SELECT count(*) FROM TabDisegni"), 1);
    }

    void la_cartella_di_sistema_non_si_elimina_una_omonima_si() {
        TipoLista = GenereLista::Cartelle;
        ModoCartelle = 2;
        Sql(ArchivioDisegni, QStringLiteral("INSERT INTO TabCartelle VALUES (5, '·Disegni "
                                            "Generale')"));
        QString messaggio;
        Copione c(*orologio);
        // Both rows carry the same name; code 1 comes first.
        c.Tasto(Qt::Key_Return).Tasto(Qt::Key_Right).Tasto(Qt::Key_Right).Tasto(Qt::Key_Return);
        c.Esegui([&] { messaggio = TestoQuadroMessaggi; }).Tasto(Qt::Key_Return);
        // From delete (124) round to line 102, code 5.
        for (int i = 0; i < 4; ++i)
            c.Tasto(Qt::Key_Right);
        c.Tasto(Qt::Key_Return);
        c.Tasto(Qt::Key_Right).Tasto(Qt::Key_Right).Tasto(Qt::Key_Return);
        c.Tasto(Qt::Key_Left).Tasto(Qt::Key_Return).Tasto(Qt::Key_Left).Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(messaggio, QStringLiteral("ATTENZIONE!\rE' impossibile eliminare la Cartella di "
                                           "Sistema\rdenominata «·Disegni Generale».\rPremere "
                                           "«OK» per continuare!"));
        QCOMPARE(
            Conta(ArchivioDisegni, "SELECT count(*) FROM TabCartelle WHERE CodiceCartella = 1"), 1);
        QCOMPARE(
            Conta(ArchivioDisegni, "SELECT count(*) FROM TabCartelle WHERE CodiceCartella = 5"), 0);
        QVERIFY(QDir(PercorsoCartellaDisegni(NomiArchivi::CartellaSistemaDisegni, 1)).exists());
    }

    void elimina_una_cartella_con_i_suoi_disegni_e_la_sua_sola_directory() {
        TipoLista = GenereLista::Cartelle;
        ModoCartelle = 2;
        Sql(ArchivioDisegni, QStringLiteral("INSERT INTO TabCartelle VALUES (2, 'A/B'),"
                                            " (3, 'A?B')"));
        Sql(ArchivioDisegni, QStringLiteral("INSERT INTO TabDisegni VALUES (1, 'uno', 2),"
                                            " (2, 'due', 3)"));
        const QString prima = PercorsoCartellaDisegni(QStringLiteral("A/B"), 2);
        const QString seconda = PercorsoCartellaDisegni(QStringLiteral("A?B"), 3);
        QVERIFY(prima != seconda);
        QCOMPARE(QFileInfo(prima).dir().path(), RadiceDati + QStringLiteral("/Disegni"));
        QVERIFY(QDir().mkpath(prima));
        QVERIFY(QDir().mkpath(seconda));
        ScriviFile(prima + QStringLiteral("/uno.bmp"));
        ScriviFile(seconda + QStringLiteral("/due.bmp"));
        CodiceCartellaAttiva = 2;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Return).Tasto(Qt::Key_Right).Tasto(Qt::Key_Right).Tasto(Qt::Key_Return);
        c.Tasto(Qt::Key_Left).Tasto(Qt::Key_Return).Tasto(Qt::Key_Left).Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(
            Conta(ArchivioDisegni, "SELECT count(*) FROM TabCartelle WHERE CodiceCartella = 2"), 0);
        QCOMPARE(Conta(ArchivioDisegni, "SELECT count(*) FROM TabDisegni"), 1);
        QVERIFY(!QDir(prima).exists());
        QVERIFY(QFile::exists(seconda + QStringLiteral("/due.bmp")));
        // The folder in use is gone: no folder is active any more.
        QCOMPARE(CodiceCartellaAttiva, 0);
    }

    void elimina_una_cartella_di_oggetti_con_i_suoi_oggetti() {
        TipoLista = GenereLista::CartelleObj;
        ModoCartelle = 2;
        Sql(ArchivioOggetti, QStringLiteral("INSERT INTO TabCartelleObj VALUES (2, 'Animali')"));
        Sql(ArchivioOggetti, QStringLiteral("INSERT INTO TabOggetti VALUES (1, 'gatto', 2),"
                                            " (2, 'sole', 1)"));
        QString domanda;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Return).Tasto(Qt::Key_Right).Tasto(Qt::Key_Right).Tasto(Qt::Key_Return);
        c.Esegui([&] { domanda = TestoQuadroMessaggi; });
        c.Tasto(Qt::Key_Left).Tasto(Qt::Key_Return).Tasto(Qt::Key_Left).Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(domanda, QStringLiteral("ELIMINARE la Cartella Selezionata?\rATTENZIONE!\rTutti "
                                         "gli Oggetti in essa contenuti verranno\rdefinitivamente "
                                         "cancellati!"));
        QCOMPARE(Conta(ArchivioOggetti, "SELECT count(*) FROM TabCartelleObj"), 1);
        QCOMPARE(Conta(ArchivioOggetti, "SELECT count(*) FROM TabOggetti"), 1);
    }

    void elimina_un_oggetto() {
        TipoLista = GenereLista::Oggetti;
        Sql(ArchivioOggetti, QStringLiteral("INSERT INTO TabOggetti VALUES (4, 'gatto', 1)"));
        Copione c(*orologio);
        c.Tasto(Qt::Key_Return).Tasto(Qt::Key_Right).Tasto(Qt::Key_Right).Tasto(Qt::Key_Return);
        c.Tasto(Qt::Key_Left).Tasto(Qt::Key_Return).Tasto(Qt::Key_Left).Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(Conta(ArchivioOggetti, "SELECT count(*) FROM TabOggetti"), 0);
    }

    void immagini_e_testi_si_eliminano_dal_disco() {
        const QString immagine = PercorsoFile() + QStringLiteral("/foto.png");
        const QString testo = PercorsoFile() + QStringLiteral("/lettera.rtf");
        ScriviFile(immagine);
        ScriviFile(testo);
        for (GenereLista tipo : {GenereLista::Immagini, GenereLista::Testi}) {
            TipoLista = tipo;
            Copione c(*orologio);
            c.Tasto(Qt::Key_Return).Tasto(Qt::Key_Right).Tasto(Qt::Key_Right);
            c.Tasto(Qt::Key_Return).Tasto(Qt::Key_Left).Tasto(Qt::Key_Return);
            c.Tasto(Qt::Key_Left).Tasto(Qt::Key_Return);
            QVERIFY(Apri(c));
        }
        QVERIFY(!QFile::exists(immagine));
        QVERIFY(!QFile::exists(testo));
    }

    void un_file_sparito_dopo_la_lista_suona_e_nulla_si_perde() {
        const QString immagine = PercorsoFile() + QStringLiteral("/foto.jpg");
        const QString altra = PercorsoFile() + QStringLiteral("/altra.bmp");
        ScriviFile(immagine);
        ScriviFile(altra);
        TipoLista = GenereLista::Immagini;
        QString nome;
        Copione c(*orologio);
        c.Esegui([&] {
            nome = LeggiEtichetta(Riga(101)).Nome;
            QFile::remove(PercorsoFile() + '/' + nome);
        });
        c.Tasto(Qt::Key_Return).Tasto(Qt::Key_Right).Tasto(Qt::Key_Right);
        c.Tasto(Qt::Key_Return).Tasto(Qt::Key_Left).Tasto(Qt::Key_Return);
        c.Tasto(Qt::Key_Left).Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        // The two questions beep as they open; the refusal is the third.
        QCOMPARE(ContatoreBip, 3);
        QCOMPARE(QDir(PercorsoFile()).entryList(QDir::Files).size(), 1);
        QVERIFY(amb->Scatole.isEmpty());
    }

    void elimina_disattivo_sui_font_mostra_l_ultimo_testo_e_non_elimina() {
        TipoLista = GenereLista::Font;
        TestoQuadroMessaggi = QStringLiteral("Ultimo testo");
        QString visto;
        int voci = -1;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Return).Tasto(Qt::Key_Right).Tasto(Qt::Key_Right).Tasto(Qt::Key_Return);
        c.Esegui([&] { visto = TestoQuadroMessaggi; });
        c.Tasto(Qt::Key_Left).Tasto(Qt::Key_Return).Tasto(Qt::Key_Left).Tasto(Qt::Key_Return);
        c.Esegui([&] { voci = NumeroVoci; });
        QVERIFY(Apri(c));
        QCOMPARE(visto, QStringLiteral("Ultimo testo"));
        RiempiListaFont();
        QCOMPARE(voci, int(NumeroVoci));
    }

    void codici_delle_nuove_cartelle_riempiono_il_primo_buco() {
        Sql(ArchivioDisegni, QStringLiteral("INSERT INTO TabCartelle VALUES (2, 'B'), (4, 'D')"));
        NomeNuovaCartella = QStringLiteral("C");
        QCOMPARE(CreaCartellaDisegni(), 3);
        NomeNuovaCartella = QStringLiteral("E");
        QCOMPARE(CreaCartellaDisegni(), 5);
        QVERIFY(QDir(PercorsoCartellaDisegni(QStringLiteral("C"), 3)).exists());
        Sql(ArchivioOggetti,
            QStringLiteral("INSERT INTO TabCartelleObj VALUES (2, 'B'), (3, 'C')"));
        NomeNuovaCartella = QStringLiteral("D");
        QCOMPARE(CreaCartellaOggetti(), 4);
    }

    void il_nome_di_una_directory_non_esce_mai_dalla_sua_cartella() {
        for (const QString& nome :
             {QStringLiteral(".."), QStringLiteral("."), QStringLiteral("A/B"), QStringLiteral("?"),
              QStringLiteral("/etc"), QStringLiteral("..\\x"), QStringLiteral(" ")}) {
            const QString percorso = PercorsoCartellaDisegni(nome, 9);
            QCOMPARE(QFileInfo(percorso).dir().path(), RadiceDati + QStringLiteral("/Disegni"));
            const QString foglia = QFileInfo(percorso).fileName();
            QVERIFY2(foglia != QStringLiteral("..") && foglia != QStringLiteral(".") &&
                         !foglia.isEmpty(),
                     qPrintable(nome));
        }
        QCOMPARE(PercorsoCartellaDisegni(QStringLiteral("Città dell'Anna"), 4),
                 RadiceDati + QStringLiteral("/Disegni/Città dell'Anna"));
    }

    // New folders: the name on the keyboard, the row and the directory.

    void nuova_cartella_di_disegni_scritta_sulla_tastiera() {
        TipoLista = GenereLista::Cartelle;
        ModoCartelle = 2;
        int16_t corrente = 0;
        QString prima;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Up).Tasto(Qt::Key_Up).Tasto(Qt::Key_Up).Tasto(Qt::Key_Up);
        c.Tasto(Qt::Key_Return);
        ScriviConLeFrecce(c, QStringLiteral("CASA"));
        c.Esegui([&] {
            corrente = Lista()->Motore.TastoCorrente;
            prima = Riga(101);
        });
        QVERIFY(Apri(c));
        QCOMPARE(Conta(ArchivioDisegni,
                       "SELECT CodiceCartella FROM TabCartelle WHERE NomeCartella = 'CASA'"),
                 2);
        QVERIFY(QDir(RadiceDati + QStringLiteral("/Disegni/CASA")).exists());
        // Filled again with the new folder, and still open.
        QCOMPARE(prima, ComponiEtichetta(QStringLiteral("CASA"), 2, FormatoEtichetta::Cartella));
        QCOMPARE(corrente, int16_t(101));
    }

    void nuova_cartella_di_oggetti() {
        TipoLista = GenereLista::CartelleObj;
        ModoCartelle = 2;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Up).Tasto(Qt::Key_Up).Tasto(Qt::Key_Up).Tasto(Qt::Key_Up);
        c.Tasto(Qt::Key_Return);
        ScriviConLeFrecce(c, QStringLiteral("GATTI"));
        QVERIFY(Apri(c));
        QCOMPARE(Conta(ArchivioOggetti, "SELECT CodiceCartellaObj FROM TabCartelleObj"
                                        " WHERE NomeCartellaObj = 'GATTI'"),
                 2);
    }

    void un_nome_gia_usato_senza_badare_a_maiuscole_e_accenti_e_rifiutato() {
        TipoLista = GenereLista::Cartelle;
        ModoCartelle = 2;
        Sql(ArchivioDisegni, QStringLiteral("INSERT INTO TabCartelle VALUES (2, 'Città')"));
        QString messaggio;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Up).Tasto(Qt::Key_Up).Tasto(Qt::Key_Up).Tasto(Qt::Key_Up);
        c.Tasto(Qt::Key_Return);
        ScriviConLeFrecce(c, QStringLiteral("CITTÀ"));
        c.Esegui([&] { messaggio = TestoQuadroMessaggi; }).Tasto(Qt::Key_Return);
        QVERIFY(Apri(c));
        QCOMPARE(messaggio, QStringLiteral("ATTENZIONE!\rIl nome prescelto per la nuova "
                                           "Cartella è\rgià esistente.\rE' necessario "
                                           "scegliere una nome diverso!\rPremere «OK» per "
                                           "continuare!"));
        QCOMPARE(Conta(ArchivioDisegni, "SELECT count(*) FROM TabCartelle"), 2);
    }

    void una_cartella_di_nome_punto_punto_resta_nella_directory_dei_disegni() {
        TipoLista = GenereLista::Cartelle;
        ModoCartelle = 2;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Up).Tasto(Qt::Key_Up).Tasto(Qt::Key_Up).Tasto(Qt::Key_Up);
        c.Tasto(Qt::Key_Return);
        ScriviConLeFrecce(c, QStringLiteral(".."));
        QVERIFY(Apri(c));
        QCOMPARE(Conta(ArchivioDisegni,
                       "SELECT CodiceCartella FROM TabCartelle WHERE NomeCartella = '..'"),
                 2);
        const QString percorso = PercorsoCartellaDisegni(QStringLiteral(".."), 2);
        QVERIFY(QDir(percorso).exists());
        QCOMPARE(QFileInfo(percorso).dir().path(), RadiceDati + QStringLiteral("/Disegni"));
    }

    void nuova_disattivata_sui_disegni_apre_la_tastiera_e_non_crea_nulla() {
        Disegni(1);
        QString titolo;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Up).Tasto(Qt::Key_Up).Tasto(Qt::Key_Up).Tasto(Qt::Key_Up);
        c.Tasto(Qt::Key_Return);
        c.Esegui([&] { titolo = FormScansione::InPrimoPiano()->windowTitle(); });
        ScriviConLeFrecce(c, QStringLiteral("A"));
        QVERIFY(Apri(c));
        QCOMPARE(titolo, QStringLiteral("Programma «ZANTO»  -  Scrittura Testi"));
        QCOMPARE(Conta(ArchivioDisegni, "SELECT count(*) FROM TabCartelle"), 1);
    }

    void una_cartella_di_40_caratteri_con_percento_e_apostrofo() {
        TipoLista = GenereLista::Cartelle;
        ModoCartelle = 2;
        const QString nome = QStringLiteral("100% L'ARTE DI DISEGNARE CON UN TASTO OK");
        QCOMPARE(nome.size(), 40);
        QString prima, titolo;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Up).Tasto(Qt::Key_Up).Tasto(Qt::Key_Up).Tasto(Qt::Key_Up);
        c.Tasto(Qt::Key_Return);
        c.Esegui([&] { titolo = FormScansione::InPrimoPiano()->windowTitle(); });
        ScriviConLeFrecce(c, nome);
        c.Esegui([&] { prima = Riga(101); });
        QVERIFY(Apri(c));
        // The keyboard says what it asks for.
        QCOMPARE(titolo, QStringLiteral("Programma «ZANTO»  -  Nome della Nuova Cartella Disegni"));
        QCOMPARE(prima, ComponiEtichetta(nome, 2, FormatoEtichetta::Cartella));
        QCOMPARE(LeggiEtichetta(prima).Nome, nome);
        QVERIFY(QDir(PercorsoCartellaDisegni(nome, 2)).exists());
    }
};

QTEST_MAIN(ProvaQuadroMostraLista)
#include "test_quadro_mostra_lista.moc"
