// Words and pictures on the drawing: a text written on the keyboard and a
// picture chosen from the files folder, each placed centred and straight into
// a shift, then fixed; and a picture that cannot be read or has gone.
#include "archive/Archivi.h"
#include "base/Bip.h"
#include "base/Configurazione.h"
#include "base/Utilita.h"
#include "drawing/AmbienteDisegno.h"
#include "drawing/GuidaDisegno.h"
#include "input/QuadroMessaggi.h"
#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"
#include "model/Superficie.h"
#include "model/TracciaAzioni.h"
#include "panels/ProvaPannello.h"
#include "panels/QuadroScriviTesto.h"
#include "support/Copione.h"
#include "support/RigheProva.h"
#include "support/SondePixel.h"

#include <QFile>
#include <QFont>
#include <QFontMetricsF>
#include <QImage>
#include <QtTest>

namespace {

constexpr int Sosta = 1000;
constexpr int32_t Nero = 0x000000;
constexpr int32_t Sfondo = 0xC0C0C0;

// Pixels of `colore` in `img`, inside or outside the box given in twips.
struct Conta {
    int Dentro = 0;
    int Fuori = 0;
};
Conta ContaNelBox(const QImage& img, int32_t colore, const RecordAzione& box) {
    const QRect r(QPoint(SondePixel::Px(box.XInizio), SondePixel::Px(box.YInizio)),
                  QPoint(SondePixel::Px(box.XFine), SondePixel::Px(box.YFine)));
    Conta c;
    for (int y = 0; y < img.height(); ++y)
        for (int x = 0; x < img.width(); ++x)
            if (SondePixel::Colore(img, x, y) == colore) ++(r.contains(x, y) ? c.Dentro : c.Fuori);
    return c;
}

// The measure the program must take, straight from the font's metrics at 96
// dots per inch, 15 twips a pixel: a line's advance, and a line's height
// rounded up to the pixel (several lines measure half of theirs).
QSizeF Misura(const QStringList& righe, const QString& nome, int32_t dimensione) {
    QFont font(nome);
    font.setPointSizeF(dimensione);
    font.setStyleStrategy(QFont::NoAntialias);
    QImage a96dpi(1, 1, QImage::Format_RGB32);
    a96dpi.setDotsPerMeterX(3780);
    a96dpi.setDotsPerMeterY(3780);
    const QFontMetricsF m(font, &a96dpi);
    double larghezza = 0;
    for (QString riga : righe)
        larghezza = std::max(larghezza, m.horizontalAdvance(riga.remove(u'\r')) * 15);
    const double alto = std::ceil(m.height()) * 15;
    return {larghezza, righe.size() == 1 ? alto : alto * double(righe.size()) / 2};
}

void ScriviFigura(const QString& nome, const char* formato, QSize misura, QColor colore) {
    QImage figura(misura, QImage::Format_RGB32);
    figura.fill(colore);
    QVERIFY(figura.save(PercorsoFile() + '/' + nome, formato));
}

} // namespace

class ProvaTestiImmagini : public QObject, MondoDisegno {
    Q_OBJECT

    void Premi(int16_t indice) { GuidaDisegno::Premi(a, indice); }
    // A button whose panel the script answers, in mode 4.
    void PremiCon(int16_t indice, Copione& c) {
        const int passi = (indice - a->Motore.TastoCorrente + 33) % 33;
        GuidaDisegno::Frecce(Qt::Key_Right, passi);
        QCOMPARE(a->Motore.TastoCorrente, indice);
        c.Avvia();
        QVERIFY(PremiTasto(Qt::Key_Return));
        QVERIFY(c.Finito());
        QVERIFY2(c.Problemi.isEmpty(), qPrintable(c.Problemi.join(u'\n')));
    }
    void ScriviTesto(const QString& testo) {
        Copione c(*orologio);
        ScriviConLeFrecce(c, testo);
        PremiCon(128, c);
    }
    // The first line of the pictures list: picked, then confirmed.
    void PrimaFigura() {
        Copione c(*orologio);
        c.Tasto(Qt::Key_Return).Tasto(Qt::Key_Return);
        PremiCon(129, c);
    }
    // The shift ends on its red button, and the element is fixed.
    void FineEFissa() {
        QCOMPARE(a->Motore.TastoCorrente, int16_t(113));
        QVERIFY(PremiTasto(Qt::Key_Return));
        QCOMPARE(ComandoModifica, int16_t(0));
        Premi(117);
        QCOMPARE(PrimitivaAttiva, int16_t(0));
    }

private slots:
    void init() { Prepara(); }
    void cleanup() { Libera(); }

    void un_testo_nuovo_e_nero_centrato_e_subito_in_movimento() {
        a = GuidaDisegno::Apri(4);
        ColoreLineaCorrente = 0x0000FF;
        ScriviTesto(QStringLiteral("CIAO"));
        const RecordAzione& e = ElementoInCostruzione;
        QCOMPARE(e.TipoAzione, TipiAzione::Testo);
        QCOMPARE(e.Testo, QStringLiteral("CIAO"));
        QCOMPARE(e.ColLinea, 0);
        QCOMPARE(e.ColZona, 0);
        QCOMPARE(e.FlagPienoVuoto, 0);
        QCOMPARE(e.SpessLinea, 1);
        QCOMPARE(e.InterlineaTesto, int16_t(18));
        QCOMPARE(e.NomeFont, FontCorrente);
        QCOMPARE(e.SizeFont, DimensioneFontCorrente);
        QCOMPARE(e.Grassetto, GrassettoCorrente);
        QCOMPARE(e.Corsivo, CorsivoCorrente);
        QVERIFY(e.NomeFileImmagine.isEmpty());
        const QSizeF m = Misura({QStringLiteral("CIAO")}, FontCorrente, DimensioneFontCorrente);
        const int32_t w = int32_t(std::lround(m.width()));
        const int32_t h = int32_t(std::lround(m.height()));
        QCOMPARE(e.XInizio, Predefiniti::CentroX - w / 2);
        QCOMPARE(e.YInizio, Predefiniti::CentroY - h / 2);
        QCOMPARE(e.XFine - e.XInizio, w);
        QCOMPARE(e.YFine - e.YInizio, h);
        // Straight into the shift: the text marked, its red button under the ring.
        QCOMPARE(PrimitivaAttiva, int16_t(128));
        QCOMPARE(ComandoModifica, int16_t(113));
        QCOMPARE(a->TastoMarcato, int16_t(128));
        QCOMPARE(ElementoRiaperto, int16_t(0));
        // From now on in this visit, texts are set with no gap.
        QCOMPARE(InterlineaCorrente, int16_t(0));

        // The overlay: the words inside the frame, nothing of them outside.
        const RecordAzione box = e;
        const QImage sopra = a->Quadro.Schermo().copy();
        QVERIFY(ContaNelBox(sopra, Nero, box).Dentro > 20);
        QCOMPARE(ContaNelBox(sopra, Nero, box).Fuori, 0);
        QCOMPARE(ContaNelBox(a->Quadro.Immagine(), Nero, box).Dentro, 0);

        // The arrows shift it; then it is fixed, black though the line is red.
        QVERIFY(PremiTasto(Qt::Key_Right));
        QCOMPARE(ElementoInCostruzione.XInizio, box.XInizio + PassoSpostamento);
        QVERIFY(PremiTasto(Qt::Key_Left));
        FineEFissa();
        QCOMPARE(NumeroAzioni, 1);
        const RecordAzione& fisso = Azioni[1];
        QCOMPARE(fisso.ColLinea, 0);
        QCOMPARE(fisso.XInizio, box.XInizio);
        QCOMPARE(fisso.Testo, QStringLiteral("CIAO"));
        const QImage tela = a->Quadro.Immagine().copy();
        const Conta neri = ContaNelBox(tela, Nero, fisso);
        QVERIFY(neri.Dentro > 20);
        QCOMPARE(neri.Fuori, 0);
        QCOMPARE(ContaNelBox(tela, 0x0000FF, fisso).Dentro, 0);

        // The same words, pixel for pixel, live, replayed and in the overlay.
        const QRect dentro(
            QPoint(SondePixel::Px(fisso.XInizio) + 1, SondePixel::Px(fisso.YInizio) + 1),
            QPoint(SondePixel::Px(fisso.XFine) - 1, SondePixel::Px(fisso.YFine) - 1));
        QCOMPARE(sopra.copy(dentro), tela.copy(dentro));
        a->RidisegnoCompleto();
        QCOMPARE(a->Quadro.Immagine(), tela);
    }

    // A line wider than 32767 twips is measured whole and placed like any other.
    void una_riga_piu_larga_di_32767_twips_si_scrive() {
        a = GuidaDisegno::Apri(4);
        const QString riga(200, QChar(u'W'));
        ScriviTesto(riga);
        QCOMPARE(PrimitivaAttiva, int16_t(128));
        QCOMPARE(ElementoInCostruzione.Testo, riga);
        QVERIFY(ElementoInCostruzione.XFine - ElementoInCostruzione.XInizio > 32767);
        // Centred, to the twip an odd width leaves.
        QVERIFY(qAbs(ElementoInCostruzione.XInizio + ElementoInCostruzione.XFine -
                     2 * int32_t(Predefiniti::CentroX)) <= 1);
        QVERIFY(amb->Scatole.isEmpty());
    }

    // Too wide for the drawing's positions: said, and the keyboard opens
    // again on the same words; nothing written is lost.
    void un_testo_troppo_grande_si_rifiuta_e_resta_sulla_tastiera() {
        a = GuidaDisegno::Apri(4);
        const QString riga(300, QChar(u'W'));
        QString avviso, riaperto;
        Copione c(*orologio);
        ScriviConLeFrecce(c, riga);
        c.Esegui([&] { avviso = TestoQuadroMessaggi; }).Tasto(Qt::Key_Return);
        c.Esegui([&] {
            if (auto* k = PannelloDavanti<QuadroScriviTesto>()) riaperto = k->Testo().Testo();
        });
        c.Tasto(Qt::Key_Down).Tasto(Qt::Key_Return); // leave the keyboard
        PremiCon(128, c);
        QCOMPARE(avviso, QStringLiteral("ATTENZIONE!\rIl Testo è troppo grande per il Disegno!\rSi "
                                        "prega di accorciare le righe\ro di ridurne il "
                                        "numero.\rPremere «OK» per proseguire!"));
        QCOMPARE(riaperto, riga + u'_');
        QCOMPARE(PrimitivaAttiva, int16_t(0));
        QCOMPARE(NumeroAzioni, 0);
        QVERIFY(amb->Scatole.isEmpty());
    }

    void grassetto_e_corsivo_si_vedono_uguali_dal_vivo_e_ripresi() {
        a = GuidaDisegno::Apri(4);
        ScriviTesto(QStringLiteral("ZANTO"));
        FineEFissa();
        const QImage semplice = a->Quadro.Immagine().copy();
        // A new empty drawing, then the same words bold, italic and larger.
        a->DisegnoVuoto();
        GrassettoCorrente = 1;
        CorsivoCorrente = 1;
        DimensioneFontCorrente = 20;
        ScriviTesto(QStringLiteral("ZANTO"));
        const RecordAzione e = ElementoInCostruzione;
        QCOMPARE(e.Grassetto, 1);
        QCOMPARE(e.Corsivo, 1);
        QCOMPARE(e.SizeFont, 20);
        const QImage sopra = a->Quadro.Schermo().copy();
        FineEFissa();
        const QImage tela = a->Quadro.Immagine().copy();
        QVERIFY(tela != semplice);
        const QRect dentro(QPoint(SondePixel::Px(e.XInizio) + 1, SondePixel::Px(e.YInizio) + 1),
                           QPoint(SondePixel::Px(e.XFine) - 1, SondePixel::Px(e.YFine) - 1));
        QVERIFY(ContaNelBox(tela, Nero, e).Dentro > 40);
        QCOMPARE(sopra.copy(dentro), tela.copy(dentro));
        a->RidisegnoCompleto();
        QCOMPARE(a->Quadro.Immagine(), tela);
        // The box fits the bold, larger words: nothing of them outside it.
        QCOMPARE(ContaNelBox(tela, Nero, e).Fuori, 0);
    }

    void il_secondo_testo_non_ha_interlinea_e_piu_righe_misurano_meta() {
        a = GuidaDisegno::Apri(4);
        ScriviTesto(QStringLiteral("A"));
        FineEFissa();
        QCOMPARE(Azioni[1].InterlineaTesto, int16_t(18));
        ScriviTesto(QStringLiteral("AB\rC"));
        FineEFissa();
        const RecordAzione& t = Azioni[2];
        QCOMPARE(t.InterlineaTesto, int16_t(0));
        QCOMPARE(t.Testo, QStringLiteral("AB\rC"));
        const QSizeF m = Misura({QStringLiteral("AB\r"), QStringLiteral("C")}, FontCorrente,
                                DimensioneFontCorrente);
        QCOMPARE(t.XFine - t.XInizio, int32_t(std::lround(m.width())));
        QCOMPARE(t.YFine - t.YInizio, int32_t(std::lround(m.height())));
        // Two lines measured as one: the second line stands below the box.
        const QImage tela = a->Quadro.Immagine();
        QVERIFY(ContaNelBox(tela, Nero, t).Fuori > 0);
    }

    void uscire_dalla_tastiera_senza_testo_lascia_tutto_com_era_data() { RigheModo({1, 4}); }
    void uscire_dalla_tastiera_senza_testo_lascia_tutto_com_era() {
        QFETCH(int, modo);
        a = GuidaDisegno::Apri(int16_t(modo));
        Copione c(*orologio);
        if (modo == 1) {
            // Fn at once from 101 is 65 dwells away; then confirm.
            c.Attendi(int64_t(PostoFn) * Sosta).Tasto(Qt::Key_Return).Tasto(Qt::Key_Return);
            orologio->Avanza(int64_t(128 - a->Motore.TastoCorrente) * Sosta);
            QCOMPARE(a->Motore.TastoCorrente, int16_t(128));
            c.Avvia();
            QVERIFY(PremiTasto(Qt::Key_Return));
            QVERIFY(c.Finito());
        } else {
            ScriviConLeFrecce(c, QString());
            PremiCon(128, c);
        }
        QCOMPARE(PrimitivaAttiva, int16_t(0));
        QCOMPARE(ComandoModifica, int16_t(0));
        QCOMPARE(NumeroAzioni, 0);
        QCOMPARE(InterlineaCorrente, int16_t(18));
        if (modo == 1) {
            // The ring walks again.
            orologio->Avanza(Sosta);
            QCOMPARE(a->Motore.TastoCorrente, int16_t(129));
        }
    }

    void un_testo_si_rifiuta_con_un_elemento_o_un_oggetto_aperto() {
        a = GuidaDisegno::Apri(4);
        Premi(101);
        const int64_t prima = ContatoreBip;
        Premi(128);
        QCOMPARE(ContatoreBip, prima + 1);
        QCOMPARE(PrimitivaAttiva, int16_t(101));
        Premi(117);
        GuidaDisegno::LineaSelezionata(a);
        QCOMPARE(OggettoAttivo, int16_t(1));
        Premi(128);
        QCOMPARE(ContatoreBip, prima + 2);
        Premi(129);
        QCOMPARE(ContatoreBip, prima + 3);
    }

    void una_figura_di_ogni_formato_si_apre_centrata_alla_sua_misura_data() {
        QTest::addColumn<QString>("nome");
        QTest::addColumn<QString>("formato");
        QTest::newRow("png") << QStringLiteral("sole.png") << QStringLiteral("PNG");
        QTest::newRow("jpg") << QStringLiteral("sole.jpg") << QStringLiteral("JPG");
        QTest::newRow("jpeg") << QStringLiteral("sole.jpeg") << QStringLiteral("JPEG");
        QTest::newRow("bmp") << QStringLiteral("sole.bmp") << QStringLiteral("BMP");
    }
    void una_figura_di_ogni_formato_si_apre_centrata_alla_sua_misura() {
        QFETCH(QString, nome);
        QFETCH(QString, formato);
        ScriviFigura(nome, qPrintable(formato), QSize(40, 30), QColor(0, 0, 255));
        a = GuidaDisegno::Apri(4);
        PrimaFigura();
        QCOMPARE(amb->Scatole.size(), 0);
        const RecordAzione& e = ElementoInCostruzione;
        QCOMPARE(e.TipoAzione, TipiAzione::Immagine);
        QCOMPARE(e.NomeFileImmagine, PercorsoFile() + '/' + nome);
        QCOMPARE(e.XInizio, Predefiniti::CentroX - 300);
        QCOMPARE(e.YInizio, Predefiniti::CentroY - 225);
        QCOMPARE(e.XFine - e.XInizio, 600);
        QCOMPARE(e.YFine - e.YInizio, 450);
        QCOMPARE(e.SpessLinea, 1);
        QCOMPARE(e.ColLinea, 0);
        QVERIFY(e.Testo.isEmpty() && e.NomeFont.isEmpty());
        QCOMPARE(PrimitivaAttiva, int16_t(129));
        QCOMPARE(ComandoModifica, int16_t(113));
        QCOMPARE(a->TastoMarcato, int16_t(129));
        FineEFissa();
        QCOMPARE(NumeroAzioni, 1);
        // Blue where the picture lies, the grey of the canvas just outside it.
        const QImage tela = a->Quadro.Immagine();
        const int32_t centro = SondePixel::Colore(tela, SondePixel::Px(Predefiniti::CentroX),
                                                  SondePixel::Px(Predefiniti::CentroY));
        QVERIFY2((centro & 0xFF0000) > 0xE00000 && (centro & 0xFFFF) < 0x2020,
                 qPrintable(QString::number(centro, 16)));
        QCOMPARE(SondePixel::Colore(tela, SondePixel::Px(Predefiniti::CentroX - 320),
                                    SondePixel::Px(Predefiniti::CentroY)),
                 Sfondo);
    }

    void senza_scelta_dalla_lista_non_si_apre_nulla() {
        ScriviFigura(QStringLiteral("sole.png"), "PNG", QSize(40, 30), Qt::blue);
        a = GuidaDisegno::Apri(4);
        Copione c(*orologio);
        // Back from the first line, past "up": the last place of the ring, "back".
        c.Tasto(Qt::Key_Left).Tasto(Qt::Key_Left).Tasto(Qt::Key_Return);
        PremiCon(129, c);
        QCOMPARE(PrimitivaAttiva, int16_t(0));
        QCOMPARE(ComandoModifica, int16_t(0));
        QCOMPARE(NumeroAzioni, 0);
    }

    void una_figura_che_non_si_legge_e_l_errore_1266_e_il_comando_va_avanti() {
        QFile rotta(PercorsoFile() + QStringLiteral("/rotta.png"));
        QVERIFY(rotta.open(QIODevice::WriteOnly));
        rotta.write("non sono una figura");
        rotta.close();
        a = GuidaDisegno::Apri(4);
        const QSize prima = a->QuadroImmagine->size();
        PrimaFigura();
        QCOMPARE(amb->Scatole.size(), 1);
        QVERIFY2(amb->Scatole[0].Testo.contains(QStringLiteral("481/1266:")),
                 qPrintable(amb->Scatole[0].Testo));
        // The command goes on with the size the picture control last had.
        QCOMPARE(PrimitivaAttiva, int16_t(129));
        QCOMPARE(ComandoModifica, int16_t(113));
        QCOMPARE(ElementoInCostruzione.XFine - ElementoInCostruzione.XInizio,
                 prima.width() * TwipsPerPixel);
        // Its frame stands in the overlay; nobody is told twice.
        FineEFissa();
        a->RidisegnoCompleto();
        a->RidisegnoCompleto();
        QCOMPARE(amb->Scatole.size(), 1);
        QCOMPARE(SondePixel::Colore(a->Quadro.Immagine(), SondePixel::Px(Azioni[1].XInizio),
                                    SondePixel::Px(Predefiniti::CentroY)),
                 Nero);
    }

    void una_figura_sparita_dopo_posta_resta_la_sua_cornice() {
        ScriviFigura(QStringLiteral("sole.png"), "PNG", QSize(40, 30), Qt::blue);
        a = GuidaDisegno::Apri(4);
        PrimaFigura();
        FineEFissa();
        QVERIFY(QFile::remove(PercorsoFile() + QStringLiteral("/sole.png")));
        for (int i = 0; i < 5; ++i)
            a->RidisegnoCompleto();
        QCOMPARE(amb->Scatole.size(), 1);
        QVERIFY(amb->Scatole[0].Testo.contains(QStringLiteral("(53/")));
        const QImage tela = a->Quadro.Immagine();
        const RecordAzione& f = Azioni[1];
        QCOMPARE(SondePixel::Colore(tela, SondePixel::Px(f.XInizio),
                                    SondePixel::Px(Predefiniti::CentroY)),
                 Nero);
        QCOMPARE(SondePixel::Colore(tela, SondePixel::Px(Predefiniti::CentroX),
                                    SondePixel::Px(Predefiniti::CentroY)),
                 Sfondo);
    }

    void una_figura_enorme_si_apre_ridotta_alla_tela_e_si_legge_una_volta() {
        ScriviFigura(QStringLiteral("grande.jpg"), "JPG", QSize(8000, 6000), QColor(255, 0, 0));
        a = GuidaDisegno::Apri(4);
        PrimaFigura();
        QCOMPARE(amb->Scatole.size(), 0);
        const RecordAzione& e = ElementoInCostruzione;
        // 4 by 3 fitted to the canvas of 943 by 667 pixels.
        QCOMPARE(e.XFine - e.XInizio, 889 * TwipsPerPixel);
        QCOMPARE(e.YFine - e.YInizio, 667 * TwipsPerPixel);
        const QString percorso = PercorsoFile() + QStringLiteral("/grande.jpg");
        const qint64 chiave = Superficie::LoadPicture(percorso).cacheKey();
        FineEFissa();
        a->RidisegnoCompleto();
        QCOMPARE(Superficie::LoadPicture(percorso).cacheKey(), chiave);
        const int32_t centro =
            SondePixel::Colore(a->Quadro.Immagine(), SondePixel::Px(Predefiniti::CentroX),
                               SondePixel::Px(Predefiniti::CentroY));
        QVERIFY2((centro & 0xFF) > 0xE0, qPrintable(QString::number(centro, 16)));
    }
};

QTEST_MAIN(ProvaTestiImmagini)
#include "test_testi_immagini.moc"
