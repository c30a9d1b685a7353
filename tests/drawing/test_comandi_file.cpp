// New, read, save and close on the drawing screen, driven by keys through the
// real questions, list and keyboard; results checked in the archive, on disk
// and on the canvas.
#include "app/MenuGenerale.h"
#include "archive/Archivi.h"
#include "archive/ArchivioAzioni.h"
#include "archive/BitmapDisegni.h"
#include "archive/IstruzioniArchivio.h"
#include "base/Bip.h"
#include "base/Configurazione.h"
#include "drawing/AmbienteDisegno.h"
#include "drawing/GuidaDisegno.h"
#include "input/QuadroMessaggi.h"
#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"
#include "model/TracciaAzioni.h"
#include "panels/EtichettaLista.h"
#include "panels/ProvaPannello.h"
#include "panels/QuadroMostraLista.h"
#include "support/AmbienteProva.h"
#include "support/OrologioVirtuale.h"
#include "support/SondePixel.h"

#include <QDir>
#include <QImage>
#include <QLabel>
#include <QSqlQuery>
#include <QtTest>

#include <memory>

namespace {

int Conta(const QString& testo) {
    QSqlQuery q(Archivio(ArchivioDisegni));
    if (!q.exec(testo) || !q.next()) return -1;
    return q.value(0).toInt();
}

int Copie() {
    return Conta(QStringLiteral("SELECT count(*) FROM TabDisegni WHERE CodiceDisegno >= 1000000"));
}

} // namespace

class ProvaComandiFile : public QObject, MondoDisegno {
    Q_OBJECT

    void Apri(int16_t modo) { a = GuidaDisegno::Apri(modo); }
    void Premi(int16_t indice) { GuidaDisegno::Premi(a, indice); }
    // Fires a button whose command opens panels, with the script run inside them.
    void PremiCon(int16_t indice, Copione& c) {
        c.Avvia();
        Premi(indice);
        QVERIFY(c.Finito());
        QVERIFY2(c.Problemi.isEmpty(), qPrintable(c.Problemi.join(u'\n')));
    }
    // A rectangle, moved aside so that it does not stand on the last one, fixed.
    void Rettangolo(int destra) {
        Premi(103);
        Premi(113);
        GuidaDisegno::Frecce(Qt::Key_Right, destra);
        QVERIFY(PremiTasto(Qt::Key_Return));
        Premi(117);
    }
    // 131, "yes", the name on the keyboard, and the success message's OK.
    void Salva(const QString& nome) {
        Copione c(*orologio);
        c.Tasto(Qt::Key_Return); // "yes" holds the ring first
        ScriviConLeFrecce(c, nome);
        c.Tasto(Qt::Key_Return); // the success message
        PremiCon(131, c);
    }
    // 130, then the line of the list that holds `nome`, and confirm.
    void Leggi(int riga) {
        Copione c(*orologio);
        for (int i = 1; i < riga; ++i)
            c.Tasto(Qt::Key_Right);
        c.Tasto(Qt::Key_Return).Tasto(Qt::Key_Return);
        PremiCon(130, c);
    }

    // 130 with the script's first step reading what opened in front; back with 125.
    QString Davanti130(bool avviso) {
        QString davanti;
        Copione c(*orologio);
        c.Esegui([&] {
            FormScansione* f = FormScansione::InPrimoPiano();
            davanti = f == nullptr ? QString() : f->windowTitle();
        });
        if (avviso)
            c.Tasto(Qt::Key_Return); // "Annulla" holds the ring first
        else
            c.Esegui([] {
                 FormScansione* f = FormScansione::InPrimoPiano();
                 for (int i = 0; f != nullptr && f->Motore.TastoCorrente != 125 && i < 40; ++i)
                     PremiTasto(Qt::Key_Right);
             }).Tasto(Qt::Key_Return);
        PremiCon(130, c);
        return davanti;
    }

private slots:
    void init() { Prepara(); }
    void cleanup() { Libera(); }

    void leggi_disegno_avvisa_solo_se_qualcosa_non_e_salvato() {
        const QString lista = QStringLiteral("Programma «ZANTO» - Scelta Disegno");
        const QString avviso = QStringLiteral("Programma «ZANTO»  -  INFORMAZIONI  E  SCELTE");
        Apri(4);
        Rettangolo(0);
        Salva(QStringLiteral("CASA"));
        QCOMPARE(Davanti130(false), lista);
        Leggi(1);
        QCOMPARE(NomeDisegnoCorrente, QStringLiteral("CASA"));
        // Just read: nothing to lose.
        QCOMPARE(Davanti130(false), lista);
        Rettangolo(3);
        QCOMPARE(Davanti130(true), avviso);
        QCOMPARE(NumeroAzioni, 2);
    }

    void nuovo_disegno_con_NO_non_cambia_nulla() {
        Apri(4);
        Rettangolo(0);
        QString domanda;
        int16_t anello = 0;
        Copione c(*orologio);
        c.Esegui([&] {
            domanda = TestoQuadroMessaggi;
            anello = FormScansione::InPrimoPiano()->Motore.TastoCorrente;
        });
        c.Tasto(Qt::Key_Return);
        PremiCon(119, c);
        QCOMPARE(domanda, QStringLiteral("Iniziare un Nuovo Disegno?"));
        QCOMPARE(anello, int16_t(103)); // NO
        QCOMPARE(NumeroAzioni, 1);
        QCOMPARE(Copie(), 1);
    }

    void nuovo_disegno_con_SI_svuota_disegno_storia_e_nome() {
        Apri(4);
        Rettangolo(0);
        QCOMPARE(SondePixel::Colore(a->Quadro.Immagine(), SondePixel::Px(Predefiniti::XInizio),
                                    SondePixel::Px(Predefiniti::CentroY)),
                 0x000000);
        NomeDisegnoCorrente = QStringLiteral("Casa");
        CodiceDisegnoCorrente = 7;
        StatoDisegno = 1;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Left).Tasto(Qt::Key_Return);
        PremiCon(119, c);
        QCOMPARE(NumeroAzioni, 0);
        QCOMPARE(CodiceCopiaLavoro, BaseCopieLavoro);
        QCOMPARE(Copie(), 0);
        QCOMPARE(StatoDisegno, int16_t(2));
        QCOMPARE(NomeDisegnoCorrente, QString());
        QCOMPARE(CodiceDisegnoCorrente, 0);
        // The rectangle's edge, drawn before, is ground again.
        const QImage img = a->Quadro.Immagine();
        QCOMPARE(SondePixel::Colore(img, SondePixel::Px(Predefiniti::XInizio),
                                    SondePixel::Px(Predefiniti::CentroY)),
                 ColoreSfondo);
    }

    void salvare_un_disegno_vuoto_suona() {
        Apri(4);
        const int bip = ContatoreBip;
        Premi(131);
        QCOMPARE(ContatoreBip, bip + 1);
        QCOMPARE(Conta(QStringLiteral("SELECT count(*) FROM TabDisegni")), 0);
    }

    void salva_nuovo_disegno_con_nome_bitmap_e_messaggio() {
        Apri(4);
        Rettangolo(0);
        QString domanda, successo, tastiera;
        Copione c(*orologio);
        c.Esegui([&] { domanda = TestoQuadroMessaggi; }).Tasto(Qt::Key_Return);
        c.Esegui([&] { tastiera = FormScansione::InPrimoPiano()->windowTitle(); });
        ScriviConLeFrecce(c, QStringLiteral("CASA"));
        c.Esegui([&] { successo = TestoQuadroMessaggi; }).Tasto(Qt::Key_Return);
        PremiCon(131, c);
        QCOMPARE(domanda, QStringLiteral("Salvare il Disegno?"));
        // The keyboard says what it asks for.
        QCOMPARE(tastiera, QStringLiteral("Programma «ZANTO»  -  Nome del Disegno"));
        QCOMPARE(successo, QStringLiteral("Il Disegno è stato correttamente salvato\rnella "
                                          "Cartella denominata:\r« ·Disegni Generale ».\rPremere "
                                          "«OK» per continuare!"));
        QCOMPARE(NomeDisegnoCorrente, QStringLiteral("CASA"));
        QCOMPARE(StatoDisegno, int16_t(1));
        QVERIFY(CodiceDisegnoCorrente > 0 && CodiceDisegnoCorrente < BaseCopieLavoro);
        QCOMPARE(a->ScrittaNomeDisegno->text(), QStringLiteral("« CASA »"));
        const QImage bitmap(PercorsoBitmapDisegno(NomeCartellaAttiva, CodiceCartellaAttiva,
                                                  QStringLiteral("CASA"), CodiceDisegnoCorrente));
        QCOMPARE(bitmap.size(), QSize(943, 667));
        QCOMPARE(bitmap.convertToFormat(QImage::Format_RGB32),
                 a->Quadro.Immagine().convertToFormat(QImage::Format_RGB32));
        // A save leaves the history as it was.
        QCOMPARE(Copie(), 1);
    }

    void un_nome_usato_nella_cartella_avvisa_e_riapre_la_tastiera_in_ogni_grafia() {
        QSqlQuery q(Archivio(ArchivioDisegni));
        QVERIFY(q.exec("INSERT INTO TabCartelle VALUES (2, 'Altra')"));
        QVERIFY(q.exec("INSERT INTO TabDisegni VALUES (5, 'Città', 1), (6, 'MARE', 2)"));
        Apri(4);
        Rettangolo(0);
        QStringList avvisi;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Return);
        ScriviConLeFrecce(c, QStringLiteral("CITTÀ"));
        c.Esegui([&] { avvisi << TestoQuadroMessaggi; }).Tasto(Qt::Key_Return);
        // The keyboard again, on the function keys with the name written: cancel.
        c.Tasto(Qt::Key_Down).Tasto(Qt::Key_Return);
        PremiCon(131, c);
        QCOMPARE(avvisi, QStringList{QStringLiteral(
                             "ATTENZIONE!\rIl Nome del Disegno è già esistente!\rLa "
                             "registrazione è impossibile!\rSi prega di cambiare il Nome "
                             "scelto.\rPremere «OK» per proseguire!")});
        QCOMPARE(Conta(QStringLiteral("SELECT count(*) FROM TabDisegni WHERE CodiceDisegno < "
                                      "1000000")),
                 2);
        // In another folder the same name is free.
        Copione d(*orologio);
        d.Tasto(Qt::Key_Return);
        ScriviConLeFrecce(d, QStringLiteral("MARE"));
        d.Tasto(Qt::Key_Return);
        PremiCon(131, d);
        QCOMPARE(Conta(QStringLiteral("SELECT count(*) FROM TabDisegni WHERE NomeDisegno = "
                                      "'MARE'")),
                 2);
    }

    void salva_con_lo_stesso_nome_chiede_e_annulla_non_registra() {
        Apri(4);
        Rettangolo(0);
        Salva(QStringLiteral("SOLE"));
        const int32_t codice = CodiceDisegnoCorrente;
        Rettangolo(3);
        QString domanda;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Return);
        c.Tasto(Qt::Key_Return); // the keyboard opens on "SOLE": confirm
        c.Esegui([&] { domanda = TestoQuadroMessaggi; }).Tasto(Qt::Key_Return); // Annulla
        PremiCon(131, c);
        QCOMPARE(domanda.section(QChar(u'\r'), 0, 0),
                 QStringLiteral("ATTENZIONE! Il Disegno è già esistente!"));
        QCOMPARE(Conta(QStringLiteral("SELECT count(*) FROM TabAzioniDisegno WHERE CodiceDisegno "
                                      "= %1")
                           .arg(codice)),
                 1);
        QCOMPARE(ComandoModifica, int16_t(0));
        // And OK overwrites: the same code, the rows replaced.
        Copione d(*orologio);
        d.Tasto(Qt::Key_Return).Tasto(Qt::Key_Return);
        d.Tasto(Qt::Key_Left).Tasto(Qt::Key_Return).Tasto(Qt::Key_Return);
        PremiCon(131, d);
        QCOMPARE(CodiceDisegnoCorrente, codice);
        QCOMPARE(Conta(QStringLiteral("SELECT count(*) FROM TabAzioniDisegno WHERE CodiceDisegno "
                                      "= %1")
                           .arg(codice)),
                 2);
    }

    void salva_con_un_nome_nuovo_lascia_il_vecchio() {
        Apri(4);
        Rettangolo(0);
        Salva(QStringLiteral("SOLE"));
        const int32_t vecchio = CodiceDisegnoCorrente;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Return);
        // On the function keys with the name shown: back to the letters, add "S".
        c.Tasto(Qt::Key_Right).Tasto(Qt::Key_Return);
        ScriviConLeFrecce(c, QStringLiteral("S"));
        c.Tasto(Qt::Key_Return);
        PremiCon(131, c);
        QVERIFY(CodiceDisegnoCorrente != vecchio);
        QCOMPARE(Conta(QStringLiteral("SELECT count(*) FROM TabDisegni WHERE CodiceDisegno < "
                                      "1000000")),
                 2);
    }

    void una_cartella_e_un_disegno_di_nome_strano_restano_nella_loro_directory() {
        QSqlQuery q(Archivio(ArchivioDisegni));
        QVERIFY(q.exec("INSERT INTO TabCartelle VALUES (3, 'A/B')"));
        Apri(4);
        CodiceCartellaAttiva = 3;
        NomeCartellaAttiva = QStringLiteral("A/B");
        QVERIFY(QDir().mkpath(PercorsoCartellaDisegni(NomeCartellaAttiva, 3)));
        Rettangolo(0);
        Salva(QStringLiteral(".."));
        QCOMPARE(NomeDisegnoCorrente, QStringLiteral(".."));
        const QString bitmap = PercorsoBitmapDisegno(NomeCartellaAttiva, CodiceCartellaAttiva,
                                                     NomeDisegnoCorrente, CodiceDisegnoCorrente);
        QVERIFY(QFile::exists(bitmap));
        QCOMPARE(QFileInfo(bitmap).dir().path(), PercorsoCartellaDisegni(NomeCartellaAttiva, 3));
        QCOMPARE(QFileInfo(bitmap).dir().dirName().contains(QChar(u'/')), false);
    }

    void leggi_un_disegno_senza_nome_non_chiede_e_carica_il_primo() {
        Apri(4);
        Rettangolo(0);
        Rettangolo(3);
        Salva(QStringLiteral("PRIMO"));
        const QList<RecordAzione> salvate = Azioni;
        // A new drawing with no name, then the first read back from the list.
        Copione n(*orologio);
        n.Tasto(Qt::Key_Left).Tasto(Qt::Key_Return);
        PremiCon(119, n);
        Rettangolo(5);
        QString titolo;
        Copione c(*orologio);
        c.Esegui([&] { titolo = FormScansione::InPrimoPiano()->windowTitle(); });
        c.Tasto(Qt::Key_Return).Tasto(Qt::Key_Return);
        PremiCon(130, c);
        QCOMPARE(titolo, QStringLiteral("Programma «ZANTO» - Scelta Disegno"));
        QCOMPARE(NomeDisegnoCorrente, QStringLiteral("PRIMO"));
        QCOMPARE(StatoDisegno, int16_t(1));
        QCOMPARE(NumeroAzioni, 2);
        for (int i = 1; i <= 2; ++i)
            QCOMPARE(Azioni[i], salvate[i]);
        // The canvas shows what the bitmap shows.
        const QImage bitmap(PercorsoBitmapDisegno(NomeCartellaAttiva, CodiceCartellaAttiva,
                                                  QStringLiteral("PRIMO"), CodiceDisegnoCorrente));
        QCOMPARE(a->Quadro.Immagine().convertToFormat(QImage::Format_RGB32),
                 bitmap.convertToFormat(QImage::Format_RGB32));
        // The loaded drawing is the one step of a new history.
        QCOMPARE(CodiceCopiaLavoro, BaseCopieLavoro + 1);
        QCOMPARE(Copie(), 1);
    }

    void leggi_un_disegno_con_nome_avvisa_e_annulla_lascia_tutto() {
        Apri(4);
        Rettangolo(0);
        Salva(QStringLiteral("PRIMO"));
        Rettangolo(3); // something not saved
        QString avviso;
        Copione c(*orologio);
        c.Esegui([&] { avviso = TestoQuadroMessaggi; }).Tasto(Qt::Key_Return);
        PremiCon(130, c);
        QVERIFY(avviso.startsWith(QStringLiteral("E' stato richiesto il Caricamento di un\rNuovo "
                                                 "Disegno.\rATTENZIONE!")));
        QCOMPARE(ComandoModifica, int16_t(0));
        QCOMPARE(NumeroAzioni, 2);
    }

    void indietro_dalla_lista_lascia_disegno_e_storia() {
        Apri(4);
        Rettangolo(0);
        Copione c(*orologio);
        c.Tasto(Qt::Key_Up).Tasto(Qt::Key_Up).Tasto(Qt::Key_Return);
        PremiCon(130, c);
        QCOMPARE(NumeroAzioni, 1);
        QCOMPARE(Copie(), 1);
        QCOMPARE(ComandoModifica, int16_t(0));
    }

    void lo_sfondo_torna_grigio_alla_lettura() {
        Apri(4);
        Rettangolo(0);
        Salva(QStringLiteral("SFONDO"));
        // A ground chosen on the settings panel, as its 139 sets it.
        ColoreSfondo = 0x00FFFF;
        ApplicaSfondo(a->Quadro, ColoreSfondo);
        QCOMPARE(SondePixel::Colore(a->Quadro.Immagine(), 2, 2), 0x00FFFF);
        NomeDisegnoCorrente.clear();
        Leggi(1);
        QCOMPARE(ColoreSfondo, int32_t(0xC0C0C0));
        const QImage img = a->Quadro.Immagine();
        QCOMPARE(SondePixel::Colore(img, 2, 2), 0xC0C0C0);
    }

    void dopo_salva_chiudi_e_riapri_un_disegno_nuovo_si_salva_come_nuovo() {
        Apri(4);
        Rettangolo(0);
        Salva(QStringLiteral("UNO"));
        Copione c(*orologio);
        c.Tasto(Qt::Key_Left).Tasto(Qt::Key_Return);
        PremiCon(133, c);
        QCOMPARE(Copie(), 0);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        Apri(4);
        QCOMPARE(StatoDisegno, int16_t(1));
        Rettangolo(0);
        // The keyboard opens on one empty line; the new name makes a new row.
        Copione d(*orologio);
        d.Tasto(Qt::Key_Return).Tasto(Qt::Key_Right).Tasto(Qt::Key_Return);
        ScriviConLeFrecce(d, QStringLiteral("DUE"));
        d.Tasto(Qt::Key_Return);
        PremiCon(131, d);
        QCOMPARE(Conta(QStringLiteral("SELECT count(*) FROM TabDisegni WHERE CodiceDisegno < "
                                      "1000000")),
                 2);
    }

    void un_nome_con_l_apostrofo_si_salva_si_trova_e_collide() {
        Apri(4);
        Rettangolo(0);
        Salva(QStringLiteral("L'ALBERO"));
        QCOMPARE(NomeDisegnoCorrente, QStringLiteral("L'ALBERO"));
        QCOMPARE(Conta(QStringLiteral("SELECT count(*) FROM TabDisegni WHERE NomeDisegno = "
                                      "'L''ALBERO'")),
                 1);
        // A new drawing under the same name collides like any other.
        Copione n(*orologio);
        n.Tasto(Qt::Key_Left).Tasto(Qt::Key_Return);
        PremiCon(119, n);
        Rettangolo(2);
        QString avviso;
        Copione c(*orologio);
        c.Tasto(Qt::Key_Return);
        ScriviConLeFrecce(c, QStringLiteral("L'ALBERO"));
        c.Esegui([&] { avviso = TestoQuadroMessaggi; }).Tasto(Qt::Key_Return);
        c.Tasto(Qt::Key_Down).Tasto(Qt::Key_Return); // cancel on the keyboard
        PremiCon(131, c);
        QVERIFY(avviso.contains(QStringLiteral("Il Nome del Disegno è già esistente!")));
        // And it is read back from the list like any other.
        Copione l(*orologio);
        l.Tasto(Qt::Key_Return).Tasto(Qt::Key_Return);
        PremiCon(130, l);
        QCOMPARE(NomeDisegnoCorrente, QStringLiteral("L'ALBERO"));
        QCOMPARE(NumeroAzioni, 1);
    }

    // A save that fails before its commit leaves the name of the drawing the
    // code belongs to: the next save under the new name is a new drawing.
    void un_salvataggio_fallito_non_cambia_il_nome_e_il_seguente_non_sovrascrive() {
        Apri(4);
        Rettangolo(0);
        Salva(QStringLiteral("SOLE"));
        const int32_t sole = CodiceDisegnoCorrente;
        Rettangolo(3);
        SondaRegistraDisegno = [](int16_t s) {
            if (s == 4340) throw ErroreZanto{61, QStringLiteral("Disco pieno")};
        };
        // "yes", back to the letters from the name shown, "S" and confirm.
        Copione c(*orologio);
        c.Tasto(Qt::Key_Return).Tasto(Qt::Key_Right).Tasto(Qt::Key_Return);
        ScriviConLeFrecce(c, QStringLiteral("S"));
        PremiCon(131, c);
        SondaRegistraDisegno = nullptr;
        QCOMPARE(amb->Scatole.size(), 1);
        QCOMPARE(NomeDisegnoCorrente, QStringLiteral("SOLE"));
        QCOMPARE(CodiceDisegnoCorrente, sole);
        QCOMPARE(a->ScrittaNomeDisegno->text(), QStringLiteral("« SOLE »"));
        Copione d(*orologio);
        d.Tasto(Qt::Key_Return).Tasto(Qt::Key_Right).Tasto(Qt::Key_Return);
        ScriviConLeFrecce(d, QStringLiteral("S"));
        d.Tasto(Qt::Key_Return); // the success message
        PremiCon(131, d);
        QVERIFY(CodiceDisegnoCorrente != sole);
        QCOMPARE(NomeDisegnoCorrente, QStringLiteral("SOLES"));
        QCOMPARE(Conta(QStringLiteral("SELECT count(*) FROM TabAzioniDisegno WHERE CodiceDisegno "
                                      "= %1")
                           .arg(sole)),
                 1);
        QCOMPARE(Conta(QStringLiteral("SELECT count(*) FROM TabAzioniDisegno WHERE CodiceDisegno "
                                      "= %1")
                           .arg(CodiceDisegnoCorrente)),
                 2);
    }

    // The drawing on the canvas deleted from the list of 130 is a new drawing:
    // its own name is free again.
    void eliminato_dalla_lista_il_disegno_sulla_tela_si_salva_di_nuovo() {
        Apri(4);
        Rettangolo(0);
        Salva(QStringLiteral("SOLE"));
        Rettangolo(3); // a change since the save: the read warns of it
        Copione c(*orologio);
        c.Tasto(Qt::Key_Left).Tasto(Qt::Key_Return); // OK to the warning
        // Line 101, on to delete (124), twice OK; then back from the list.
        c.Tasto(Qt::Key_Return).Tasto(Qt::Key_Right).Tasto(Qt::Key_Right).Tasto(Qt::Key_Return);
        c.Tasto(Qt::Key_Left).Tasto(Qt::Key_Return).Tasto(Qt::Key_Left).Tasto(Qt::Key_Return);
        c.Tasto(Qt::Key_Up).Tasto(Qt::Key_Up).Tasto(Qt::Key_Return);
        PremiCon(130, c);
        QCOMPARE(Conta(QStringLiteral("SELECT count(*) FROM TabDisegni WHERE CodiceDisegno < "
                                      "1000000")),
                 0);
        QCOMPARE(NumeroAzioni, 2);
        QCOMPARE(CodiceDisegnoCorrente, 0);
        QCOMPARE(StatoDisegno, int16_t(2));
        QCOMPARE(a->ScrittaNomeDisegno->text(), QStringLiteral("«  »"));
        Salva(QStringLiteral("SOLE"));
        QVERIFY(CodiceDisegnoCorrente != 0);
        QCOMPARE(Conta(QStringLiteral("SELECT count(*) FROM TabDisegni WHERE NomeDisegno = "
                                      "'SOLE'")),
                 1);
        QVERIFY(amb->Scatole.isEmpty());
    }

    // A head row that does not read is named; the rest of the folder is
    // listed, and a new name is free.
    void un_disegno_danneggiato_e_detto_e_gli_altri_restano_in_lista() {
        QSqlQuery q(Archivio(ArchivioDisegni));
        QVERIFY(q.exec("INSERT INTO TabDisegni VALUES (5, 'BUONO', 1)"));
        QVERIFY(q.exec("INSERT INTO TabDisegni VALUES (6, x'00ff', 1)"));
        QVERIFY(q.exec("INSERT INTO TabDisegni VALUES (-5, 'ROTTO', 1)"));
        Apri(4);
        Rettangolo(0);
        QString avviso, riga;
        Copione c(*orologio);
        c.Esegui([&] { avviso = TestoQuadroMessaggi; }).Tasto(Qt::Key_Return);
        c.Esegui([&] {
            if (auto* l = PannelloDavanti<QuadroMostraLista>()) riga = l->Tasti.value(101)->text();
        });
        c.Tasto(Qt::Key_Up).Tasto(Qt::Key_Up).Tasto(Qt::Key_Return);
        PremiCon(130, c);
        QCOMPARE(avviso,
                 QStringLiteral("ATTENZIONE!\rIl Disegno « ROTTO » (codice -5) è danneggiato.\rIl "
                                "Disegno (codice 6) è danneggiato.\rNon possono essere "
                                "letti: gli altri sono in elenco.\rPremere «OK» per "
                                "proseguire!"));
        QCOMPARE(LeggiEtichetta(riga).Nome, QStringLiteral("BUONO"));
        // The damaged drawing keeps its name: no new one takes it.
        QString gia;
        Copione d(*orologio);
        d.Tasto(Qt::Key_Return);
        ScriviConLeFrecce(d, QStringLiteral("ROTTO"));
        d.Esegui([&] { gia = TestoQuadroMessaggi; }).Tasto(Qt::Key_Return);
        d.Tasto(Qt::Key_Down).Tasto(Qt::Key_Return); // cancel on the keyboard
        PremiCon(131, d);
        QVERIFY(gia.contains(QStringLiteral("Il Nome del Disegno è già esistente!")));
        Salva(QStringLiteral("NUOVO"));
        QCOMPARE(NomeDisegnoCorrente, QStringLiteral("NUOVO"));
        QVERIFY(CodiceDisegnoCorrente != 0);
    }
};

QTEST_MAIN(ProvaComandiFile)
#include "test_comandi_file.moc"
