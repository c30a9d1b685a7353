// Fixing an element on the canvas, the working copy written after it, and the
// measure of the active object. Fixing is checked on the bitmap's pixels and
// on the record; the copy on its rows in the archive.

#include "app/MenuGenerale.h"
#include "archive/Archivi.h"
#include "archive/ArchivioAzioni.h"
#include "archive/CopiaLavoro.h"
#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"
#include "model/Superficie.h"
#include "model/TracciaAzioni.h"
#include "support/AmbienteProva.h"
#include "support/CostruttoriAzioni.h"
#include "support/ProvaGlobali.h"
#include "support/SondePixel.h"
#include "support/SqlProva.h"
#include "support/TelaProva.h"

#include <QSqlError>
#include <QSqlQuery>
#include <QtTest>

#include <cmath>
#include <limits>

namespace {

using namespace SondePixel;
using CostruttoriAzioni::MettiAttivi;
using CostruttoriAzioni::MettiAzioni;

const QString CR(QChar(u'\r'));

struct Quadro : TelaProva {
    Quadro() {
        // As an open element leaves the canvas: dotted, thin, transparent.
        Penna(2);
    }
};

// A text at (1500, 1500) in Arial, as the keyboard leaves it before Fissa.
RecordAzione TestoArial(int32_t colore, int32_t size, int32_t corsivo, int32_t grassetto) {
    RecordAzione t;
    t.TipoAzione = TipiAzione::Testo;
    t.XInizio = 1500;
    t.YInizio = 1500;
    t.ColLinea = colore;
    t.NomeFont = QStringLiteral("Arial");
    t.SizeFont = size;
    t.Corsivo = corsivo;
    t.Grassetto = grassetto;
    return t;
}

// The records a command opens, as the drawing screen's table gives them.
RecordAzione NuovaLinea() {
    RecordAzione a =
        CostruttoriAzioni::Linea(Predefiniti::XInizio, Predefiniti::YInizio, Predefiniti::XFine,
                                 Predefiniti::YFine, ColoreLineaCorrente);
    a.ColZona = ColoreZonaCorrente;
    return a;
}

RecordAzione NuovoRettangolo() {
    RecordAzione a = NuovaLinea();
    a.TipoAzione = TipiAzione::Rettangolo;
    a.FlagPienoVuoto = RiempimentoCorrente;
    return a;
}

RecordAzione NuovoArco() {
    return CostruttoriAzioni::Arco(Predefiniti::CentroX, Predefiniti::CentroY, Predefiniti::Raggio,
                                   Predefiniti::Raggio, Predefiniti::RadIniz, Predefiniti::RadFine,
                                   ColoreLineaCorrente, ColoreZonaCorrente);
}

RecordAzione NuovaEllisse() {
    return CostruttoriAzioni::Ellisse(Predefiniti::CentroX, Predefiniti::CentroY,
                                      Predefiniti::Raggio, Predefiniti::Raggio, RiempimentoCorrente,
                                      ColoreLineaCorrente, ColoreZonaCorrente);
}

RecordAzione NuovaColorazione(float x, float y) {
    return CostruttoriAzioni::Colorazione(x, y, ColoreZonaCorrente, FlagPieno, ColoreLineaCorrente);
}

void Sql(const QString& testo, const QVariantList& valori = {}) {
    SqlProva::Sql(ArchivioDisegni, testo, valori);
}

int Conta(const QString& testo) {
    return SqlProva::Conta(ArchivioDisegni, testo);
}

RecordAzione Linea(int32_t x1, int32_t y1, int32_t x2, int32_t y2) {
    RecordAzione a = CostruttoriAzioni::Linea(x1, y1, x2, y2, ColoreLineaCorrente);
    a.ColZona = ColoreZonaCorrente;
    return a;
}

} // namespace

class TestCopiaLavoro : public ProvaGlobali {
    Q_OBJECT

private slots:
    void linea_fissata_subito_e_la_diagonale_nel_colore_e_spessore_correnti() {
        Quadro q;
        ElementoInCostruzione = NuovaLinea();
        ColoreLineaCorrente = Rosso;
        SpessoreCorrente = 5;
        FissaElemento(q.S);
        const RecordAzione& e = ElementoInCostruzione;
        QCOMPARE(e.XInizio, 5572);
        QCOMPARE(e.YInizio, 3500);
        QCOMPARE(e.XFine, 8572);
        QCOMPARE(e.YFine, 6500);
        QCOMPARE(e.ColLinea, Rosso);
        QCOMPARE(e.ColZona, Bianco);
        QCOMPARE(e.FlagPienoVuoto, FlagNonApplicabile);
        QCOMPARE(e.SpessLinea, 5);
        QCOMPARE(q.Bitmap(7072, 5000), Rosso);
        // Five pixels wide across the diagonal.
        QCOMPARE(q.Bitmap(7072 + 15, 5000 - 15), Rosso);
        QCOMPARE(q.Bitmap(7072 + 60, 5000 - 60), Sfondo);
    }

    void fissa_disegna_nella_bitmap_pieno_e_spegne_la_conservazione() {
        Quadro q;
        ElementoInCostruzione = Linea(1500, 3000, 12000, 3000);
        ColoreLineaCorrente = Blu;
        SpessoreCorrente = 1;
        FissaElemento(q.S);
        QCOMPARE(q.S.AutoRedraw, false);
        QCOMPARE(q.S.DrawStyle, int16_t(0));
        // Solid: every pixel of the segment, not every third.
        for (int x = Px(1500); x <= Px(12000); ++x)
            QCOMPARE(Colore(q.S.Immagine(), x, Px(3000)), Blu);
        // Kept: a refresh doesn't wipe it.
        q.S.Refresh();
        QCOMPARE(Colore(q.S.Schermo(), Px(7000), Px(3000)), Blu);
    }

    void rettangolo_con_riempimento_2_esce_pieno() {
        Quadro q;
        RiempimentoCorrente = 2;
        ElementoInCostruzione = NuovoRettangolo();
        ElementoInCostruzione.FlagPienoVuoto = FlagVuoto; // opened before the choice
        ColoreLineaCorrente = Rosso;
        ColoreZonaCorrente = Verde;
        FissaElemento(q.S);
        QCOMPARE(ElementoInCostruzione.FlagPienoVuoto, FlagPieno);
        QCOMPARE(q.Bitmap(7072, 5000), Verde);
        QCOMPARE(q.Bitmap(5572, 5000), Rosso);
        QCOMPARE(q.Bitmap(5000, 5000), Sfondo);
    }

    void rettangolo_con_riempimento_1_esce_vuoto() {
        Quadro q;
        ElementoInCostruzione = NuovoRettangolo();
        ElementoInCostruzione.FlagPienoVuoto = FlagPieno;
        q.S.FillStyle = 0;
        ColoreLineaCorrente = Rosso;
        ColoreZonaCorrente = Verde;
        RiempimentoCorrente = 1;
        FissaElemento(q.S);
        QCOMPARE(ElementoInCostruzione.FlagPienoVuoto, FlagVuoto);
        QCOMPARE(q.Bitmap(7072, 5000), Sfondo);
        QCOMPARE(q.Bitmap(5572, 5000), Rosso);
    }

    void cambiare_il_colore_zona_prima_del_fissa_da_il_nuovo_colore() {
        Quadro q;
        RiempimentoCorrente = 2;
        ElementoInCostruzione = NuovoRettangolo(); // opened with white
        ColoreZonaCorrente = Blu;
        FissaElemento(q.S);
        QCOMPARE(ElementoInCostruzione.ColZona, Blu);
        QCOMPARE(q.Bitmap(7072, 5000), Blu);
    }

    void ellisse_prende_il_riempimento_corrente() {
        Quadro q;
        RiempimentoCorrente = 2;
        ColoreZonaCorrente = Verde;
        ColoreLineaCorrente = Rosso;
        ElementoInCostruzione = NuovaEllisse();
        FissaElemento(q.S);
        QCOMPARE(ElementoInCostruzione.FlagPienoVuoto, FlagPieno);
        QCOMPARE(ElementoInCostruzione.SpessLinea, 2);
        QCOMPARE(q.Bitmap(7072, 5000), Verde);
        QVERIFY(Vicino(q.S.Immagine(), 9072, 5000, Rosso));
    }

    void arco_nuovo_fissato_finisce_a_due_radianti() {
        Quadro q;
        ColoreLineaCorrente = Rosso;
        ElementoInCostruzione = NuovoArco();
        FissaElemento(q.S);
        QCOMPARE(ElementoInCostruzione.RadFine, 2.0f);
        QCOMPARE(ElementoInCostruzione.FlagPienoVuoto, FlagNonApplicabile);
        const double a = 2.0;
        QVERIFY(
            Vicino(q.S.Immagine(), 7072 + 2000 * std::cos(a), 5000 - 2000 * std::sin(a), Rosso));
        const double gradi135 = 135 * Grado;
        QVERIFY(!Vicino(q.S.Immagine(), 7072 + 2000 * std::cos(gradi135),
                        5000 - 2000 * std::sin(gradi135), Rosso));
    }

    void colorazione_fissata_riempie_la_zona_nel_colore_corrente() {
        Quadro q;
        q.S.AutoRedraw = true;
        q.S.DrawStyle = 0;
        q.S.Box(3000, 3000, 9000, 7000, Nero);
        q.S.AutoRedraw = false;
        ColoreZonaCorrente = Verde;
        ColoreLineaCorrente = Rosso;
        ElementoInCostruzione = NuovaColorazione(6000, 5000);
        ElementoInCostruzione.FlagPienoVuoto = FlagVuoto;
        FissaElemento(q.S);
        QCOMPARE(ElementoInCostruzione.FlagPienoVuoto, FlagPieno);
        QCOMPARE(ElementoInCostruzione.ColZona, Verde);
        QCOMPARE(ElementoInCostruzione.ColLinea, Rosso);
        QCOMPARE(q.Bitmap(6000, 5000), Verde);
        QCOMPARE(q.Bitmap(3100, 3100), Verde);
        QCOMPARE(q.Bitmap(3000, 5000), Nero);
        QCOMPARE(q.Bitmap(2000, 5000), Sfondo);
        QCOMPARE(q.S.FillStyle, int16_t(1));
    }

    void testo_fissato_stampa_le_righe_scritte_con_l_interlinea_corrente() {
        Quadro q;
        InterlineaCorrente = 300;
        RigheScritte = {QString(), QStringLiteral("Una casa") + CR,
                        QStringLiteral("col tetto") + CR, QStringLiteral("rosso")};
        NumeroRigheScritte = 3;
        RecordAzione t = TestoArial(Blu, 24, 1, 2);
        t.InterlineaTesto = 18;
        t.Testo = QStringLiteral("altro testo");
        ElementoInCostruzione = t;
        FissaElemento(q.S);
        // The same lines replayed with the spacing of the setting give the same picture.
        Quadro atteso;
        RecordAzione r = t;
        r.Testo = QStringLiteral("Una casa") + CR + QStringLiteral("col tetto") + CR +
                  QStringLiteral("rosso");
        r.InterlineaTesto = 300;
        atteso.S.AutoRedraw = true;
        TracciaAzione(atteso.S, r);
        QCOMPARE(q.S.Immagine(), atteso.S.Immagine());
        // And not with the record's own spacing.
        Quadro altro;
        r.InterlineaTesto = 18;
        altro.S.AutoRedraw = true;
        TracciaAzione(altro.S, r);
        QVERIFY(q.S.Immagine() != altro.S.Immagine());
    }

    void testo_fissato_tiene_il_suo_colore() {
        Quadro q;
        ColoreLineaCorrente = Rosso;
        RigheScritte = {QString(), QStringLiteral("nero")};
        NumeroRigheScritte = 1;
        RecordAzione t = TestoArial(Nero, 36, 2, 1);
        ElementoInCostruzione = t;
        FissaElemento(q.S);
        QCOMPARE(ElementoInCostruzione.ColLinea, Nero);
        bool nero = false;
        for (int y = Px(1500); y < Px(2500) && !nero; ++y)
            for (int x = Px(1500); x < Px(4000) && !nero; ++x)
                nero = Colore(q.S.Immagine(), x, y) == Nero;
        QVERIFY(nero);
    }

    void immagine_che_non_si_legge_ferma_il_fissa_con_errore_53() {
        AmbienteProva amb(false);
        Quadro q;
        RecordAzione a = Linea(1000, 1000, 3000, 3000);
        a.TipoAzione = TipiAzione::Immagine;
        a.NomeFileImmagine = amb.Radice() + QStringLiteral("/non-c-e.jpg");
        ElementoInCostruzione = a;
        FissaElemento(q.S);
        QCOMPARE(amb.Scatole.size(), 1);
        QVERIFY(amb.Scatole[0].Testo.contains(QStringLiteral("(53/3510)")));
    }

    void prima_copia_di_lavoro_ha_codice_1000001_e_tutte_le_azioni() {
        AmbienteProva amb;
        amb.ApriArchivi();
        CodiceCartellaAttiva = 1;
        RecordAzione testo = NuovaLinea();
        testo.TipoAzione = TipiAzione::Testo;
        testo.Testo = QStringLiteral("l'apostrofo") + CR + QStringLiteral("resta");
        MettiAzioni({Linea(1, 2, 3, 4), NuovaColorazione(10.25f, 20.5f), testo});
        QVERIFY(RegistraCopiaLavoro());
        QCOMPARE(CodiceCopiaLavoro, 1000001);
        QSqlQuery q(Archivio(ArchivioDisegni));
        QVERIFY(q.exec(QStringLiteral("SELECT NomeDisegno, CodiceCartella FROM TabDisegni"
                                      " WHERE CodiceDisegno = 1000001")));
        QVERIFY(q.next());
        QCOMPARE(q.value(0).toString(), QStringLiteral("1000001"));
        QCOMPARE(q.value(1).toInt(), 1);
        CodiceDisegnoDaCaricare = 1000001;
        CaricaAzioniDisegno();
        QCOMPARE(NumeroAzioniUndo, 3);
        for (int i = 1; i <= 3; ++i)
            QCOMPARE(AzioniUndo[i], Azioni[i]);
        QCOMPARE(amb.Scatole.size(), 0);
    }

    void copie_successive_hanno_codici_contigui() {
        AmbienteProva amb;
        amb.ApriArchivi();
        CodiceCartellaAttiva = 1;
        MettiAzioni({Linea(1, 2, 3, 4)});
        QVERIFY(RegistraCopiaLavoro());
        MettiAzioni({Linea(1, 2, 3, 4), Linea(5, 6, 7, 8)});
        QVERIFY(RegistraCopiaLavoro());
        QCOMPARE(CodiceCopiaLavoro, 1000002);
        QCOMPARE(Conta(QStringLiteral("SELECT COUNT(*) FROM TabAzioniDisegno"
                                      " WHERE CodiceDisegno = 1000001")),
                 1);
        QCOMPARE(Conta(QStringLiteral("SELECT COUNT(*) FROM TabAzioniDisegno"
                                      " WHERE CodiceDisegno = 1000002")),
                 2);
        // Copies left by an earlier run are counted on, not overwritten.
        CodiceCopiaLavoro = BaseCopieLavoro + 2;
        QVERIFY(RegistraCopiaLavoro());
        QCOMPARE(Conta(QStringLiteral("SELECT COUNT(*) FROM TabDisegni"
                                      " WHERE CodiceDisegno >= 1000000")),
                 3);
    }

    void copia_di_azioni_vuote_ha_solo_la_riga_di_testa() {
        AmbienteProva amb;
        amb.ApriArchivi();
        CodiceCartellaAttiva = 1;
        QVERIFY(RegistraCopiaLavoro());
        QCOMPARE(Conta(QStringLiteral("SELECT COUNT(*) FROM TabDisegni"
                                      " WHERE CodiceDisegno = 1000001")),
                 1);
        QCOMPARE(Conta(QStringLiteral("SELECT COUNT(*) FROM TabAzioniDisegno")), 0);
    }

    void guasto_della_riga_di_testa_lascia_archivio_e_contatore() {
        AmbienteProva amb;
        amb.ApriArchivi();
        CodiceCartellaAttiva = 999; // no such folder: the head row can't go in
        MettiAzioni({Linea(1, 2, 3, 4)});
        QVERIFY(!RegistraCopiaLavoro());
        QCOMPARE(CodiceCopiaLavoro, BaseCopieLavoro);
        QCOMPARE(Conta(QStringLiteral("SELECT COUNT(*) FROM TabDisegni")), 0);
        QCOMPARE(Conta(QStringLiteral("SELECT COUNT(*) FROM TabAzioniDisegno")), 0);
        QCOMPARE(amb.Scatole.size(), 1);
        QVERIFY(amb.Scatole[0].Testo.contains(QStringLiteral("/4510")));
    }

    void guasto_delle_righe_lascia_archivio_e_contatore() {
        AmbienteProva amb;
        amb.ApriArchivi();
        CodiceCartellaAttiva = 1;
        MettiAzioni({Linea(1, 2, 3, 4)});
        QVERIFY(RegistraCopiaLavoro());
        Sql(QStringLiteral("CREATE TRIGGER Rifiuta BEFORE INSERT ON TabAzioniDisegno"
                           " WHEN NEW.NumAzione = 2 BEGIN SELECT RAISE(ABORT, 'rifiutata'); END"));
        MettiAzioni({Linea(1, 2, 3, 4), Linea(5, 6, 7, 8)});
        QVERIFY(!RegistraCopiaLavoro());
        QCOMPARE(CodiceCopiaLavoro, BaseCopieLavoro + 1);
        QCOMPARE(Conta(QStringLiteral("SELECT COUNT(*) FROM TabDisegni")), 1);
        QCOMPARE(Conta(QStringLiteral("SELECT COUNT(*) FROM TabAzioniDisegno")), 1);
        QCOMPARE(amb.Scatole.size(), 1);
        // The next copy takes the code the failed one would have had.
        Sql(QStringLiteral("DROP TRIGGER Rifiuta"));
        QVERIFY(RegistraCopiaLavoro());
        QCOMPARE(CodiceCopiaLavoro, BaseCopieLavoro + 2);
        QCOMPARE(Conta(QStringLiteral("SELECT COUNT(*) FROM TabAzioniDisegno"
                                      " WHERE CodiceDisegno = 1000002")),
                 2);
    }

    void righe_rifiutate_non_lasciano_la_testa_anche_se_non_si_puo_togliere() {
        AmbienteProva amb;
        amb.ApriArchivi();
        CodiceCartellaAttiva = 1;
        MettiAzioni({Linea(1, 2, 3, 4)});
        QVERIFY(RegistraCopiaLavoro());
        Sql(QStringLiteral("CREATE TRIGGER Rifiuta BEFORE INSERT ON TabAzioniDisegno"
                           " WHEN NEW.NumAzione = 2 BEGIN SELECT RAISE(ABORT, 'rifiutata'); END"));
        Sql(QStringLiteral("CREATE TRIGGER Tieni BEFORE DELETE ON TabDisegni"
                           " BEGIN SELECT RAISE(ABORT, 'tenuta'); END"));
        MettiAzioni({Linea(1, 2, 3, 4), Linea(5, 6, 7, 8)});
        QVERIFY(!RegistraCopiaLavoro());
        QCOMPARE(CodiceCopiaLavoro, BaseCopieLavoro + 1);
        QCOMPARE(amb.Scatole.size(), 1);
        QCOMPARE(Conta(QStringLiteral("SELECT COUNT(*) FROM TabDisegni d WHERE NOT EXISTS"
                                      " (SELECT 1 FROM TabAzioniDisegno a"
                                      " WHERE a.CodiceDisegno = d.CodiceDisegno)")),
                 0);
        // The next Fissa is not blocked by a code left taken.
        Sql(QStringLiteral("DROP TRIGGER Rifiuta"));
        QVERIFY(RegistraCopiaLavoro());
        QCOMPARE(CodiceCopiaLavoro, BaseCopieLavoro + 2);
        QCOMPARE(amb.Scatole.size(), 1);
    }

    void contatore_indietro_continua_dopo_la_copia_piu_alta() {
        AmbienteProva amb;
        amb.ApriArchivi();
        CodiceCartellaAttiva = 1;
        MettiAzioni({Linea(1, 2, 3, 4)});
        QVERIFY(RegistraCopiaLavoro());
        QVERIFY(RegistraCopiaLavoro());
        CodiceCopiaLavoro = BaseCopieLavoro + 1; // behind the archive
        MettiAzioni({Linea(1, 2, 3, 4), Linea(5, 6, 7, 8)});
        QVERIFY(RegistraCopiaLavoro());
        QCOMPARE(CodiceCopiaLavoro, BaseCopieLavoro + 3);
        QCOMPARE(Conta(QStringLiteral("SELECT COUNT(*) FROM TabAzioniDisegno"
                                      " WHERE CodiceDisegno = 1000003")),
                 2);
        QVERIFY(amb.Scatole.isEmpty());
    }

    void copia_con_un_nan_da_errore_6_e_lascia_archivio_e_contatore() {
        AmbienteProva amb;
        amb.ApriArchivi();
        CodiceCartellaAttiva = 1;
        RecordAzione colorazione = NuovaColorazione(100, 200);
        colorazione.XCentro = std::numeric_limits<float>::quiet_NaN();
        MettiAzioni({Linea(1, 2, 3, 4), colorazione});
        QVERIFY(!RegistraCopiaLavoro());
        QCOMPARE(CodiceCopiaLavoro, BaseCopieLavoro);
        QCOMPARE(amb.Scatole.size(), 1);
        QVERIFY(amb.Scatole[0].Testo.startsWith(QStringLiteral("ERRORE 6/4520")));
        QVERIFY(amb.Scatole[0].Testo.contains(QStringLiteral("Overflow")));
        QCOMPARE(Conta(QStringLiteral("SELECT COUNT(*) FROM TabDisegni")), 0);
        QCOMPARE(Conta(QStringLiteral("SELECT COUNT(*) FROM TabAzioniDisegno")), 0);
    }

    void strada_di_una_linea_fino_alla_copia() {
        AmbienteProva amb;
        amb.ApriArchivi();
        CodiceCartellaAttiva = 1;
        Quadro q;
        ElementoInCostruzione = NuovaLinea();
        ElementoInCostruzione.XFine += 50;
        ColoreLineaCorrente = Rosso;
        FissaElemento(q.S);
        AggiungiElementoInCostruzione();
        QVERIFY(RegistraCopiaLavoro());
        QCOMPARE(NumeroAzioni, 1);
        QCOMPARE(Azioni[1].XFine, 8622);
        QCOMPARE(Azioni[1].SpessLinea, 2);
        QCOMPARE(Azioni[1].ColLinea, Rosso);
        QCOMPARE(q.Bitmap(5572, 3500), Rosso);
        QCOMPARE(q.Bitmap(8622, 6500), Rosso);
        CodiceDisegnoDaCaricare = 1000001;
        CaricaAzioniDisegno();
        QCOMPARE(NumeroAzioniUndo, 1);
        QCOMPARE(AzioniUndo[1], Azioni[1]);
    }

    void ingombro_di_nessun_elemento_e_il_quadro_rovesciato() {
        CalcolaIngombro();
        QCOMPARE(IngombroXMin, LarghezzaQuadroDisegno);
        QCOMPARE(IngombroYMin, AltezzaQuadroDisegno);
        QCOMPARE(IngombroXMax, 0);
        QCOMPARE(IngombroYMax, 0);
        QCOMPARE(MezzaLarghezzaIngombro, 7072);
        QCOMPARE(MezzaAltezzaIngombro, 5000);
    }

    void ingombro_di_linee_e_centri() {
        RecordAzione ellisse = NuovaEllisse();
        ellisse.XCentro = 5000;
        ellisse.YCentro = 6000;
        ellisse.RaggioOriz = 500;
        ellisse.RaggioVert = 250;
        MettiAttivi({Linea(3000, 4000, 1000, 2000), ellisse, NuovaColorazione(9001, 100)});
        CalcolaIngombro();
        QCOMPARE(IngombroXMin, 1000);
        QCOMPARE(IngombroYMin, 100);
        QCOMPARE(IngombroXMax, 9001);
        QCOMPARE(IngombroYMax, 6250);
        QCOMPARE(MezzaLarghezzaIngombro, 4000); // 4000.5, to the even
        QCOMPARE(MezzaAltezzaIngombro, 3075);
    }

    void ingombro_di_un_arco_per_ellisse_o_per_contorno() {
        RecordAzione arco = NuovoArco();
        arco.RadIniz = 0.0f;
        arco.RadFine = float(90 * Grado);
        MettiAttivi({arco});
        ModoIngombro = 1;
        CalcolaIngombro();
        QCOMPARE(IngombroXMin, 5072);
        QCOMPARE(IngombroXMax, 9072);
        QCOMPARE(IngombroYMin, 3000);
        QCOMPARE(IngombroYMax, 7000);
        ModoIngombro = 2;
        CalcolaIngombro();
        // From (9072, 5000) up to (7072, 3000): 90 degrees is passed, 0 isn't.
        QCOMPARE(IngombroXMin, 7072);
        QCOMPARE(IngombroXMax, 9072);
        QCOMPARE(IngombroYMin, 3000);
        QCOMPARE(IngombroYMax, 5000);
    }

    void arco_pieno_con_angoli_uguali_ha_un_punto_e_i_suoi_incroci() {
        RecordAzione arco = NuovoArco();
        arco.RadIniz = 1.0f;
        arco.RadFine = 1.0f;
        MettiAttivi({arco});
        ModoIngombro = 2;
        CalcolaIngombro();
        const int32_t x = 7072 + int32_t(std::lrint(2000 * std::cos(1.0)));
        const int32_t y = 5000 - int32_t(std::lrint(2000 * std::sin(1.0)));
        QCOMPARE(IngombroXMin, x);
        QCOMPARE(IngombroXMax, x);
        QCOMPARE(IngombroYMin, y);
        QCOMPARE(IngombroYMax, y);
        // On a crossing itself the point reaches the rim there.
        arco.RadIniz = arco.RadFine = float(90 * Grado);
        MettiAttivi({arco});
        CalcolaIngombro();
        QCOMPARE(IngombroYMin, 3000);
        QCOMPARE(IngombroXMin, 7072);
        QCOMPARE(IngombroXMax, 7072);
    }

    void arco_che_gira_oltre_zero_passa_zero_gradi() {
        RecordAzione arco = NuovoArco();
        arco.RadIniz = float(300 * Grado);
        arco.RadFine = float(60 * Grado);
        MettiAttivi({arco});
        ModoIngombro = 2;
        CalcolaIngombro();
        QCOMPARE(IngombroXMax, 9072); // 0 degrees
        QCOMPARE(IngombroXMin, 7072 + 1000);
        QCOMPARE(IngombroYMin, 5000 - int32_t(std::lrint(2000 * std::sin(60 * Grado))));
        QCOMPARE(IngombroYMax, 5000 + int32_t(std::lrint(2000 * std::sin(60 * Grado))));
    }
};

QTEST_MAIN(TestCopiaLavoro)
#include "test_copia_lavoro.moc"
