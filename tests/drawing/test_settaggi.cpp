// The settings panel over the drawing screen, opened by 124: its place and
// buttons, the step and width tables, the colours of line and background, the
// fills and their dots, the two buttons not in operation.
#include "base/Bip.h"
#include "base/Configurazione.h"
#include "base/IconaSvg.h"
#include "base/Misure.h"
#include "drawing/AmbienteDisegno.h"
#include "drawing/GuidaDisegno.h"
#include "drawing/GuidaSettaggi.h"
#include "input/QuadroMessaggi.h"
#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"
#include "panels/ProvaPannello.h"
#include "panels/QuadroSettaggi.h"
#include "panels/QuadroSettaggiFont.h"
#include "support/Copione.h"
#include "support/RigheProva.h"
#include "support/SondePixel.h"

#include <QImage>
#include <QLabel>
#include <QtTest>

namespace {

using GuidaSettaggi::Scegli;

constexpr int Sosta = 1000;
constexpr int32_t Rosso = 0x0000FF;
constexpr int32_t Giallo = 0x00FFFF;
constexpr int32_t Grigio = 0xC0C0C0;

using SondePixel::ColoreA;

QString RisorsaIcona(const FormScansione* f, int16_t indice) {
    return f->Tasti.value(indice)->property(ProprietaRisorsaIcona).toString();
}

} // namespace

class ProvaSettaggi : public QObject, MondoDisegno {
    Q_OBJECT

    void Premi(int16_t indice) { GuidaDisegno::Premi(a, indice); }
    void Settaggi(Copione& c) { GuidaSettaggi::Apri(a, c); }
    // A rectangle at the centre with its inside filled red.
    void RettangoloRosso() {
        GuidaSettaggi::RettangoloColorato(a, Rosso);
        QCOMPARE(NumeroAzioni, 2);
        QCOMPARE(ColoreA(a->Quadro.Immagine(), Predefiniti::CentroX, Predefiniti::CentroY), Rosso);
    }

private slots:
    void init() { Prepara(); }
    void cleanup() { Libera(); }

    void al_suo_posto_con_tredici_tasti_e_il_titolo_che_li_dice() {
        a = GuidaDisegno::Apri(4);
        const QStringList attesi = {"Selezione Cartelle",
                                    "Scelta Passo Spostamento",
                                    "Scelta Spessore Linea",
                                    "Scelta caratteristice del Testo",
                                    "Scelta Colore Linea",
                                    "Scelta Colore Sfondo",
                                    "Chiudi",
                                    "Da Tondini a Colorazione",
                                    "Da Colorazione a Tondini",
                                    "Leggi Oggetto",
                                    "Salva Oggetto",
                                    "Importa Disegno",
                                    "Esporta Disegno"};
        QStringList suggerimenti;
        QStringList icone;
        QPoint posto;
        QSize misura;
        QString titoloPrimo;
        QString infoSecondo;
        Copione c(*orologio);
        c.Esegui([&] {
            auto* s = PannelloDavanti<QuadroSettaggi>();
            QVERIFY(s != nullptr);
            for (int16_t i = 134; i <= 146; ++i) {
                suggerimenti << s->Tasti.value(i)->toolTip();
                icone << RisorsaIcona(s, i);
            }
            posto = s->pos() - a->mapToGlobal(QPoint(0, 0));
            misura = s->size();
            titoloPrimo = a->windowTitle();
        });
        c.Tasto(Qt::Key_Down);
        c.Esegui([&] { infoSecondo = a->MostraInfo->text(); });
        Scegli(c, 140);
        Settaggi(c);
        QCOMPARE(suggerimenti, attesi);
        QCOMPARE(misura, QSize(Px(795), Px(9765)));
        QVERIFY(qAbs(posto.x() - Px(14144 - 795 + 220)) <= 1);
        QVERIFY(qAbs(posto.y() - (a->Corone.value(120)->y() + Px(520))) <= 1);
        QVERIFY(titoloPrimo.endsWith(QStringLiteral("« Selezione Cartelle »")));
        QCOMPARE(infoSecondo, QStringLiteral("Scelta Passo Spostamento"));
        // Every button has a picture; 135 and 136 show the step and width in use.
        for (const QString& icona : std::as_const(icone))
            QVERIFY(icona.startsWith(QStringLiteral(":/icone/settaggi/")));
        QCOMPARE(icone.at(1), QStringLiteral(":/icone/settaggi/passo2.svg"));
        QCOMPARE(icone.at(2), QStringLiteral(":/icone/settaggi/spessore2.svg"));
        // Back on the drawing screen: its title now carries the program's word.
        QVERIFY(a->windowTitle().startsWith(QStringLiteral("Programma «ZANTO»  -  AMBIENTE")));
        QVERIFY(a->windowTitle().endsWith(QStringLiteral("« Accesso ad Utilità e Settaggi »")));
    }

    void quattro_passi_e_quattro_spessori_in_giro() {
        a = GuidaDisegno::Apri(4);
        QList<int32_t> passi;
        QList<int32_t> spessori;
        QList<float> fattori;
        QList<float> angoli;
        QString iconaPasso;
        Copione c(*orologio);
        for (int i = 0; i < 4; ++i) {
            Scegli(c, 135);
            c.Esegui([&] {
                passi << PassoSpostamento;
                fattori << FattoreRidimensione;
                angoli << PassoAngolo;
            });
        }
        c.Esegui([&] { iconaPasso = RisorsaIcona(FormScansione::InPrimoPiano(), 135); });
        for (int i = 0; i < 4; ++i) {
            Scegli(c, 136);
            c.Esegui([&] {
                spessori << SpessoreCorrente;
                // The width does not touch the step's companions.
                fattori << FattoreRidimensione;
            });
        }
        Scegli(c, 140);
        Settaggi(c);
        QCOMPARE(passi, (QList<int32_t>{150, 300, 15, 50}));
        QCOMPARE(spessori, (QList<int32_t>{4, 6, 1, 2}));
        QCOMPARE(fattori.at(2), 15.0f / 2000);
        QCOMPARE(angoli.at(2), 15.0f / 2500);
        QCOMPARE(fattori.at(0), 150.0f / 2000);
        for (int i = 4; i < 8; ++i)
            QCOMPARE(fattori.at(i), 50.0f / 2000);
        QCOMPARE(iconaPasso, QStringLiteral(":/icone/settaggi/passo2.svg"));
        QCOMPARE(ContatoreBip, 0);
    }

    void le_scelte_durano_quanto_lo_schermo() {
        a = GuidaDisegno::Apri(4);
        Copione c(*orologio);
        Scegli(c, 135);
        Scegli(c, 136);
        Scegli(c, 140);
        Settaggi(c);
        QCOMPARE(PassoSpostamento, 150);
        QCOMPARE(SpessoreCorrente, 4);
        // A new line is fixed with the new width.
        Premi(101);
        Premi(117);
        QCOMPARE(Azioni[1].SpessLinea, 4);
        DistruggiAmbienteDisegno();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        a = GuidaDisegno::Apri(4);
        QCOMPARE(IndicePasso, int16_t(2));
        QCOMPARE(PassoSpostamento, 50);
        QCOMPARE(IndiceSpessore, int16_t(2));
        QCOMPARE(SpessoreCorrente, 2);
    }

    void il_colore_della_linea_va_anche_all_elemento_aperto() {
        a = GuidaDisegno::Apri(4);
        Premi(101);
        Copione c(*orologio);
        Scegli(c, 138);
        // Black is in use: the colour panel opens on 101; red is three on.
        c.Tasto(Qt::Key_Right).Tasto(Qt::Key_Right).Tasto(Qt::Key_Right).Tasto(Qt::Key_Return);
        Scegli(c, 140);
        Settaggi(c);
        QCOMPARE(ColoreLineaCorrente, Rosso);
        QCOMPARE(a->MostraColoreLinea[0]->palette().color(QPalette::Window), QColor(255, 0, 0));
        QCOMPARE(ElementoInCostruzione.ColLinea, Rosso);
        QCOMPARE(PrimitivaAttiva, int16_t(101));
        Premi(117);
        QCOMPARE(Azioni[1].ColLinea, Rosso);
        QCOMPARE(ColoreA(a->Quadro.Immagine(), Predefiniti::CentroX, Predefiniti::CentroY), Rosso);
    }

    void lo_sfondo_nuovo_ripassa_le_zone_colorate() {
        a = GuidaDisegno::Apri(4);
        RettangoloRosso();
        Copione c(*orologio);
        Scegli(c, 139);
        // Grey is not in the palette: the panel opens on white, yellow is next.
        c.Tasto(Qt::Key_Right).Tasto(Qt::Key_Return);
        Scegli(c, 140);
        Settaggi(c);
        QCOMPARE(ColoreSfondo, Giallo);
        const QImage& tela = a->Quadro.Immagine();
        QCOMPARE(ColoreA(tela, Predefiniti::CentroX, Predefiniti::CentroY), Rosso);
        QCOMPARE(ColoreA(tela, 1000, 1000), Giallo);
        QCOMPARE(ColoreA(tela, 13000, 9000), Giallo);
        QCOMPARE(ColoreA(a->Quadro.Schermo(), 1000, 1000), Giallo);
        QCOMPARE(NumeroAzioni, 2);
    }

    void lo_sfondo_non_cambia_con_un_elemento_aperto() {
        a = GuidaDisegno::Apri(4);
        Premi(101);
        Copione c(*orologio);
        Scegli(c, 139);
        c.Esegui([] { QVERIFY(PannelloDavanti<QuadroSettaggi>() != nullptr); });
        Scegli(c, 140);
        Settaggi(c);
        QCOMPARE(ContatoreBip, 1);
        QCOMPARE(ColoreSfondo, Grigio);
    }

    void sfondo_lasciato_senza_colore_trattiene_l_anello_poi_lo_lascia_andare_data() {
        RigheTastoScelta();
    }
    void sfondo_lasciato_senza_colore_trattiene_l_anello_poi_lo_lascia_andare() {
        QFETCH(int, scelta);
        const Qt::Key tasto = UsaTastoScelta(scelta);
        a = GuidaDisegno::Apri(1);
        orologio->Avanza(int64_t((124 - a->Motore.TastoCorrente + 33) % 33) * Sosta);
        QCOMPARE(a->Motore.TastoCorrente, int16_t(124));
        QList<int16_t> anello;
        Copione c(*orologio);
        // Five dwells from 134 to 139; then the colour panel from 101 round to 124.
        c.Attendi(5 * Sosta).Tasto(tasto);
        c.Attendi(23 * Sosta).Tasto(tasto);
        auto guarda = [&] { anello << PannelloDavanti<QuadroSettaggi>()->Motore.TastoCorrente; };
        // A while on 139 for a second try, then on to 140, "Chiudi", picked by the switch.
        c.Attendi(3 * Sosta - 1).Esegui(guarda);
        c.Attendi(1).Esegui(guarda);
        c.Tasto(tasto);
        c.Avvia();
        QVERIFY(PremiTasto(tasto));
        QVERIFY(c.Finito());
        QCOMPARE(anello, (QList<int16_t>{139, 140}));
        QVERIFY(PannelloDavanti<QuadroSettaggi>() == nullptr);
        QCOMPARE(ColoreSfondo, Grigio);
    }

    void zone_in_tondini_e_ritorno() {
        a = GuidaDisegno::Apri(4);
        RettangoloRosso();
        QImage tondini;
        Copione c(*orologio);
        Scegli(c, 142);
        c.Esegui([&] { tondini = a->Quadro.Immagine().copy(); });
        Scegli(c, 141);
        Scegli(c, 140);
        Settaggi(c);
        // As dots: only the dot where the fill starts is red, the rest of the inside grey.
        QCOMPARE(ColoreA(tondini, Predefiniti::CentroX, Predefiniti::CentroY), Rosso);
        QCOMPARE(ColoreA(tondini, Predefiniti::CentroX + 1000, Predefiniti::CentroY + 1000),
                 Grigio);
        // Fills again.
        QCOMPARE(Azioni[2].FlagPienoVuoto, FlagPieno);
        QCOMPARE(
            ColoreA(a->Quadro.Immagine(), Predefiniti::CentroX + 1000, Predefiniti::CentroY + 1000),
            Rosso);
        QCOMPARE(ContatoreBip, 0);
    }

    void tondini_rifiutati_senza_azioni_o_con_un_oggetto() {
        a = GuidaDisegno::Apri(4);
        Copione c(*orologio);
        Scegli(c, 141);
        Scegli(c, 142);
        Scegli(c, 140);
        Settaggi(c);
        QCOMPARE(ContatoreBip, 2);
        GuidaDisegno::LineaSelezionata(a);
        QCOMPARE(OggettoAttivo, int16_t(1));
        Copione o(*orologio);
        Scegli(o, 141);
        Scegli(o, 142);
        Scegli(o, 140);
        Settaggi(o);
        QCOMPARE(ContatoreBip, 4);
    }

    void importa_ed_esporta_a_mani_libere() {
        a = GuidaDisegno::Apri(4);
        // Nothing to export on an empty canvas; the import list opens.
        QString titolo;
        Copione c(*orologio);
        Scegli(c, 146);
        Scegli(c, 145);
        c.Esegui([&] { titolo = FormScansione::InPrimoPiano()->windowTitle(); });
        Scegli(c, 125);
        Scegli(c, 140);
        Settaggi(c);
        QCOMPARE(titolo, QStringLiteral("Programma «ZANTO» - Scelta Disegno da Importare"));
        QCOMPARE(ContatoreBip, 1);
        // With something in the hands both refuse.
        GuidaDisegno::LineaSelezionata(a);
        QCOMPARE(OggettoAttivo, int16_t(1));
        bool soloIlPannello = true;
        Copione o(*orologio);
        for (int16_t tasto : {145, 146}) {
            Scegli(o, tasto);
            o.Esegui([&] {
                soloIlPannello = soloIlPannello && PannelloDavanti<QuadroSettaggi>() != nullptr;
            });
        }
        Scegli(o, 140);
        Settaggi(o);
        QVERIFY(soloIlPannello);
        QCOMPARE(ContatoreBip, 3);
    }

    void cartelle_e_lettura_solo_a_mani_libere() {
        a = GuidaDisegno::Apri(4);
        GuidaDisegno::LineaSelezionata(a);
        QCOMPARE(OggettoAttivo, int16_t(1));
        bool soloIlPannello = true;
        Copione c(*orologio);
        Scegli(c, 134);
        c.Esegui([&] { soloIlPannello &= PannelloDavanti<QuadroSettaggi>() != nullptr; });
        Scegli(c, 143);
        c.Esegui([&] { soloIlPannello &= PannelloDavanti<QuadroSettaggi>() != nullptr; });
        Scegli(c, 140);
        Settaggi(c);
        QVERIFY(soloIlPannello);
        QCOMPARE(ContatoreBip, 2);
        QCOMPARE(OggettoAttivo, int16_t(1));
    }

    void il_pannello_dei_caratteri_si_apre_accanto() {
        a = GuidaDisegno::Apri(4);
        QPoint settaggi;
        QPoint caratteri;
        Copione c(*orologio);
        c.Esegui([&] { settaggi = FormScansione::InPrimoPiano()->pos(); });
        Scegli(c, 137);
        c.Esegui([&] {
            auto* f = PannelloDavanti<QuadroSettaggiFont>();
            if (f == nullptr) return;
            caratteri = f->pos();
            f->ClickTasto(105);
        });
        Scegli(c, 140);
        Settaggi(c);
        const QPoint scarto = caratteri - settaggi;
        QVERIFY2(qAbs(scarto.x() - Px(-820)) <= 1 && qAbs(scarto.y() - Px(740)) <= 1,
                 qPrintable(QStringLiteral("%1,%2").arg(scarto.x()).arg(scarto.y())));
    }

    void salvare_senza_oggetto_suona() {
        a = GuidaDisegno::Apri(4);
        Premi(101);
        Premi(117);
        Copione c(*orologio);
        Scegli(c, 144);
        Scegli(c, 140);
        Settaggi(c);
        QCOMPARE(ContatoreBip, 1);
    }
};

QTEST_MAIN(ProvaSettaggi)
#include "test_settaggi.moc"
