// Drawings that travel, through the settings panel in mode 4: 146 exports the
// drawing on the canvas as PNG, PDF, SVG and exchange file, and 145 takes an
// exchange file in as a new drawing of the active folder. Checked in the files
// on disk, in the archive and on the pixels: the PDF page rasterised and the
// SVG drawn give the canvas back.
#include "app/Avvio.h"
#include "app/MenuGenerale.h"
#include "archive/Archivi.h"
#include "archive/ArchivioAzioni.h"
#include "archive/FileScambio.h"
#include "archive/IstruzioniArchivio.h"
#include "base/Bip.h"
#include "drawing/AmbienteDisegno.h"
#include "drawing/GuidaDisegno.h"
#include "drawing/GuidaSettaggi.h"
#include "input/QuadroMessaggi.h"
#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"
#include "model/TracciaAzioni.h"
#include "printing/EsportaDisegno.h"
#include "support/Copione.h"
#include "support/CostruttoriAzioni.h"
#include "support/Sonde.h"

#include "../printing/PaginaStampata.h"

#include <QDir>
#include <QPainter>
#include <QSqlQuery>
#include <QSvgRenderer>
#include <QTemporaryDir>
#include <QtTest>

#include <cmath>

namespace {

using GuidaSettaggi::Scegli;
using GuidaSettaggi::ScegliRiga;

constexpr int32_t Blu = 0xFF0000;
constexpr int32_t Verde = 0x00FF00;
constexpr int32_t Rosso = 0x0000FF;
constexpr int32_t Giallo = 0x00FFFF;
constexpr int32_t Nero = 0x000000;

RecordAzione Azione(int32_t tipo) {
    RecordAzione a;
    a.TipoAzione = tipo;
    return a;
}

// A drawing of every kind of action, a picture of the files folder among them.
QList<RecordAzione> Giardino(const QString& figura) {
    QList<RecordAzione> l{RecordAzione{}};
    using namespace CostruttoriAzioni;
    l << Linea(1000, 1000, 6000, 2000, Blu, 3);
    l << Rettangolo(2000, 3000, 5000, 6000, FlagPieno, Nero, Verde, 2);
    l << Ellisse(10000, 3000, 1000, 1500, FlagVuoto, Rosso);
    l << Colorazione(10000, 3000, Giallo, FlagPieno, Nero);
    l << Arco(7000, 7000, 1500, 1500, 0, 3, Nero, 0, 2);
    RecordAzione testo = Azione(TipiAzione::Testo);
    testo.XInizio = 800, testo.YInizio = 8000, testo.Testo = QStringLiteral("CIAO");
    testo.NomeFont = QStringLiteral("Arial"), testo.SizeFont = 20, testo.Grassetto = 1;
    testo.Corsivo = 2, testo.ColLinea = Nero;
    l << testo;
    RecordAzione immagine = Azione(TipiAzione::Immagine);
    immagine.XInizio = 11000, immagine.YInizio = 6500, immagine.XFine = 13500;
    immagine.YFine = 9000, immagine.NomeFileImmagine = figura;
    l << immagine;
    return l;
}

QByteArray Leggi(const QString& percorso) {
    QFile f(percorso);
    return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

int RigheDisegni() {
    QSqlQuery q(Archivio(ArchivioDisegni));
    if (!q.exec(QStringLiteral("SELECT count(*) FROM TabDisegni WHERE CodiceDisegno < 1000000")) ||
        !q.next())
        return -1;
    return q.value(0).toInt();
}

// How many pixels of `a` differ from `b` by more than `soglia` in a channel.
double Diversi(const QImage& a, const QImage& b, int soglia) {
    int diversi = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y);
            const QRgb q = b.pixel(x, y);
            if (qAbs(qRed(p) - qRed(q)) > soglia || qAbs(qGreen(p) - qGreen(q)) > soglia ||
                qAbs(qBlue(p) - qBlue(q)) > soglia)
                ++diversi;
        }
    return double(diversi) / (a.width() * a.height());
}

// Whether a dark pixel is within `raggio` pixels of the point in twips.
bool ScuroVicino(const QImage& img, double xTwips, double yTwips, int raggio) {
    const int x0 = int(std::lround(xTwips / 15));
    const int y0 = int(std::lround(yTwips / 15));
    for (int y = y0 - raggio; y <= y0 + raggio; ++y)
        for (int x = x0 - raggio; x <= x0 + raggio; ++x)
            if (img.valid(x, y) && qGray(img.pixel(x, y)) < 100) return true;
    return false;
}

// The box of the dark pixels inside a rectangle given in twips.
QRect Inchiostro(const QImage& img, const QRect& twips) {
    QRect box;
    for (int y = twips.top() / 15; y < twips.bottom() / 15; ++y)
        for (int x = twips.left() / 15; x < twips.right() / 15; ++x)
            if (qGray(img.pixel(x, y)) < 60) box |= QRect(x, y, 1, 1);
    return box;
}

// The probes every copy of the drawing must show where the canvas shows them.
void ControllaPunti(const QImage& img, const char* cosa) {
    using PaginaStampata::Vicino;
    const auto punto = [&](int xTwips, int yTwips, int32_t bgr) {
        const QRgb p = img.pixel(xTwips / 15, yTwips / 15);
        QVERIFY2(Vicino(p, bgr, 40), qPrintable(QStringLiteral("%1: (%2,%3) is %4")
                                                    .arg(QString::fromLatin1(cosa))
                                                    .arg(xTwips)
                                                    .arg(yTwips)
                                                    .arg(p, 8, 16)));
    };
    punto(3500, 4500, Verde);     // inside the box
    punto(10000, 3000, Giallo);   // the fill inside the ellipse
    punto(12250, 7750, 0xFF00FF); // the picture
    punto(3500, 1500, Blu);       // on the line
    punto(7000, 1000, ColoreSfondo);
    // The text: dark ink inside its box only.
    int inchiostro = 0;
    for (int y = 8000 / 15; y < 8600 / 15; ++y)
        for (int x = 800 / 15; x < 2400 / 15; ++x)
            if (qGray(img.pixel(x, y)) < 60) ++inchiostro;
    QVERIFY2(inchiostro > 50, cosa);
    // The arc from 0 to 3 radians, counterclockwise from the east: there on
    // its whole length, and nowhere on the rest of its circle.
    for (double angolo = 0.15; angolo < 2.9; angolo += 0.25)
        QVERIFY2(
            ScuroVicino(img, 7000 + 1500 * std::cos(angolo), 7000 - 1500 * std::sin(angolo), 2),
            qPrintable(QStringLiteral("%1: arco a %2").arg(QString::fromLatin1(cosa)).arg(angolo)));
    for (double angolo = 3.4; angolo < 6.0; angolo += 0.25)
        QVERIFY2(
            !ScuroVicino(img, 7000 + 1500 * std::cos(angolo), 7000 - 1500 * std::sin(angolo), 1),
            qPrintable(QStringLiteral("%1: fuori dall'arco a %2")
                           .arg(QString::fromLatin1(cosa))
                           .arg(angolo)));
}

// The text's ink where the canvas has it, edge for edge.
void ControllaTesto(const QImage& img, const QImage& tela, const char* cosa) {
    const QRect zona(600, 7800, 3000, 1200);
    const QRect attesa = Inchiostro(tela, zona);
    const QRect trovata = Inchiostro(img, zona);
    QVERIFY2(!attesa.isEmpty() && qAbs(trovata.left() - attesa.left()) <= 2 &&
                 qAbs(trovata.right() - attesa.right()) <= 2 &&
                 qAbs(trovata.top() - attesa.top()) <= 2 &&
                 qAbs(trovata.bottom() - attesa.bottom()) <= 2,
             qPrintable(QStringLiteral("%1: testo in (%2,%3)-(%4,%5), sulla tela (%6,%7)-(%8,%9)")
                            .arg(QString::fromLatin1(cosa))
                            .arg(trovata.left())
                            .arg(trovata.top())
                            .arg(trovata.right())
                            .arg(trovata.bottom())
                            .arg(attesa.left())
                            .arg(attesa.top())
                            .arg(attesa.right())
                            .arg(attesa.bottom())));
}

} // namespace

class ProvaEsportaImporta : public QObject, MondoDisegno {
    Q_OBJECT

    QString figura_;

    void Settaggi(Copione& c) { GuidaSettaggi::Apri(a, c); }
    // The drawing laid on the canvas as if drawn there.
    void Disegna() {
        Azioni = Giardino(figura_);
        NumeroAzioni = int32_t(Azioni.size()) - 1;
        RitracciaTutto(a->Quadro);
    }
    // 146, "OK", and, for a drawing without a name, `nome` on the keyboard;
    // gives the message that ends it.
    QString Esporta(const QString& nome = {}) {
        QString messaggio;
        Copione c(*orologio);
        Scegli(c, 146);
        c.Tasto(Qt::Key_Return);
        if (!nome.isEmpty()) ScriviConLeFrecce(c, nome);
        c.Esegui([&] { messaggio = TestoQuadroMessaggi; });
        c.Tasto(Qt::Key_Return);
        Scegli(c, 140);
        Settaggi(c);
        return messaggio;
    }
    // 145 and the line of `file`; what follows is `dopo`'s.
    void Importa(const QString& file, const std::function<void(Copione&)>& dopo) {
        Copione c(*orologio);
        Scegli(c, 145);
        c.Esegui([] { Schermata(FormScansione::InPrimoPiano(), QStringLiteral("importa-lista")); });
        ScegliRiga(c, file);
        dopo(c);
        Scegli(c, 140);
        Settaggi(c);
    }
    QString Percorso(const QString& nome) { return PercorsoFile() + u'/' + nome; }

private slots:
    void init() {
        Prepara();
        a = GuidaDisegno::Apri(4);
        figura_ = Percorso(QStringLiteral("sole.png"));
        QImage sole(40, 30, QImage::Format_RGB32);
        sole.fill(QColor(255, 0, 255));
        QVERIFY(sole.save(figura_));
    }
    void cleanup() { Libera(); }

    void esporta_i_quattro_file_uguali_alla_tela() {
        Disegna();
        NomeDisegnoCorrente = QStringLiteral("Giardino");
        const QString messaggio = Esporta();
        QVERIFY2(messaggio.contains(QStringLiteral("« Giardino » (.png, .pdf, .svg, .zanto).")),
                 qPrintable(messaggio));
        const QImage tela = a->Quadro.Immagine().convertToFormat(QImage::Format_RGB32);
        ControllaPunti(tela, "tela");

        const QImage png =
            QImage(Percorso(QStringLiteral("Giardino.png"))).convertToFormat(QImage::Format_RGB32);
        QCOMPARE(png, tela);

        // The PDF page as the printout: the canvas at (80, 53) pixels at 96 dpi.
        QTemporaryDir cartella;
        const QImage pagina =
            PaginaStampata::Rasterizza(Percorso(QStringLiteral("Giardino.pdf")),
                                       cartella.filePath(QStringLiteral("pagina")))
                .convertToFormat(QImage::Format_RGB32);
        QVERIFY2(qAbs(pagina.width() - 1123) <= 1 && qAbs(pagina.height() - 794) <= 1,
                 qPrintable(QStringLiteral("%1x%2").arg(pagina.width()).arg(pagina.height())));
        const QImage telaPdf = pagina.copy(80, 53, 943, 667);
        ControllaPunti(telaPdf, "pdf");
        ControllaTesto(telaPdf, tela, "pdf");
        // Shapes redrawn differ from pixels only along their edges.
        QVERIFY2(Diversi(telaPdf, tela, 60) < 0.02,
                 qPrintable(QString::number(Diversi(telaPdf, tela, 60))));
        QVERIFY(PaginaStampata::Testo(Percorso(QStringLiteral("Giardino.pdf")))
                    .contains(QStringLiteral("Giardino")));
        // Shapes, not the screen's bitmap: the text is text.
        QVERIFY(PaginaStampata::Testo(Percorso(QStringLiteral("Giardino.pdf")))
                    .contains(QStringLiteral("CIAO")));

        QSvgRenderer svg(Percorso(QStringLiteral("Giardino.svg")));
        QVERIFY(svg.isValid());
        QImage telaSvg(943, 667, QImage::Format_RGB32);
        telaSvg.fill(Qt::white);
        {
            QPainter p(&telaSvg);
            svg.render(&p);
        }
        ControllaPunti(telaSvg, "svg");
        ControllaTesto(telaSvg, tela, "svg");
        // For the eye: the page and the SVG as they come out.
        const QString schermate = qEnvironmentVariable("ZANTO_SCHERMATE");
        if (!schermate.isEmpty()) {
            pagina.save(schermate + QStringLiteral("/esporta-pdf.png"));
            telaSvg.save(schermate + QStringLiteral("/esporta-svg.png"));
        }
        QVERIFY2(Diversi(telaSvg, tela, 60) < 0.02,
                 qPrintable(QString::number(Diversi(telaSvg, tela, 60))));

        const ContenutoScambio letto =
            LeggiFileScambio(Percorso(QStringLiteral("Giardino") + EstensioneScambio));
        QCOMPARE(letto.NomeDisegno, QStringLiteral("Giardino"));
        QCOMPARE(letto.NumeroAzioni, NumeroAzioni);
        // The pictures travel by their names alone: where the exporting user
        // keeps files is nobody else's business.
        for (int32_t i = 1; i <= NumeroAzioni; ++i) {
            RecordAzione atteso = Azioni.at(i);
            if (atteso.TipoAzione == TipiAzione::Immagine)
                atteso.NomeFileImmagine = QStringLiteral("sole.png");
            QCOMPARE(letto.Azioni.at(i), atteso);
        }
        QCOMPARE(letto.Immagini.size(), 1);
        QCOMPARE(letto.Immagini.at(0).Nome, QStringLiteral("sole.png"));
        QCOMPARE(letto.Immagini.at(0).Dati, Leggi(figura_));
        const QByteArray scambio = Leggi(Percorso(QStringLiteral("Giardino") + EstensioneScambio));
        QVERIFY(!scambio.contains(QFile::encodeName(PercorsoFile())));
        QVERIFY(!scambio.contains(QFile::encodeName(RadiceDati)));
    }

    void due_figure_con_lo_stesso_nome_viaggiano_distinte() {
        Disegna();
        QVERIFY(QDir().mkpath(Percorso(QStringLiteral("altra"))));
        const QString seconda = Percorso(QStringLiteral("altra/sole.png"));
        QImage verde(10, 10, QImage::Format_RGB32);
        verde.fill(Qt::green);
        QVERIFY(verde.save(seconda));
        RecordAzione verdi = Azioni.at(NumeroAzioni);
        verdi.NomeFileImmagine = seconda;
        verdi.XInizio = 100, verdi.YInizio = 100, verdi.XFine = 1000, verdi.YFine = 1000;
        Azioni << verdi;
        ++NumeroAzioni;
        RitracciaTutto(a->Quadro);
        const FileEsportati file = PercorsiEsportazione(QStringLiteral("Due"), 0);
        EsportaDisegno(file, a->Quadro, QStringLiteral("Due"));
        const ContenutoScambio letto = LeggiFileScambio(file.Scambio);
        QCOMPARE(letto.Immagini.size(), 2);
        QCOMPARE(letto.Azioni.at(NumeroAzioni - 1).NomeFileImmagine, QStringLiteral("sole.png"));
        QCOMPARE(letto.Azioni.at(NumeroAzioni).NomeFileImmagine, QStringLiteral("sole-2.png"));
        QCOMPARE(letto.Immagini.at(1).Dati, Leggi(seconda));
    }

    void un_esportazione_si_sostituisce_tutta_o_per_niente() {
        Disegna();
        const FileEsportati file = PercorsiEsportazione(QStringLiteral("Giardino"), 0);
        EsportaDisegno(file, a->Quadro, QStringLiteral("Giardino"));
        QMap<QString, QByteArray> prima;
        for (const QString& percorso : file.Tutti())
            prima[percorso] = Leggi(percorso);
        // The third of the four cannot be put in place: a folder stands there.
        QVERIFY(QFile::remove(file.Svg));
        QVERIFY(QDir().mkdir(file.Svg));
        Azioni[1].ColLinea = 0x00FF00;
        RitracciaTutto(a->Quadro);
        QVERIFY_THROWS_EXCEPTION(ErroreZanto,
                                 EsportaDisegno(file, a->Quadro, QStringLiteral("Giardino")));
        QCOMPARE(Leggi(file.Png), prima[file.Png]);
        QCOMPARE(Leggi(file.Pdf), prima[file.Pdf]);
        QCOMPARE(Leggi(file.Scambio), prima[file.Scambio]);
        QCOMPARE(
            QDir(PercorsoFile())
                .entryList({QStringLiteral("Giardino*")}, QDir::Files | QDir::Dirs | QDir::Hidden),
            (QStringList{"Giardino.pdf", "Giardino.png", "Giardino.svg", "Giardino.zanto"}));
    }

    void un_testo_che_l_import_rifiuterebbe_non_si_esporta() {
        Disegna();
        NomeDisegnoCorrente = QStringLiteral("Lungo");
        // As a rich text file of another age could have brought it.
        Azioni[6].Testo = QString(200000, QChar(u'a'));
        const QString messaggio = Esporta();
        QVERIFY2(messaggio.contains(QStringLiteral("NON può essere esportato")) &&
                     messaggio.contains(QStringLiteral("testo")),
                 qPrintable(messaggio));
        QCOMPARE(QDir(PercorsoFile()).entryList({QStringLiteral("Lungo*")}, QDir::Files),
                 QStringList());
        QVERIFY(amb->Scatole.isEmpty());
    }

    void un_file_con_un_testo_di_soli_ritorni_non_si_importa() {
        Disegna();
        ContenutoScambio c;
        c.NomeDisegno = QStringLiteral("Ritorni");
        c.Azioni = Azioni;
        c.NumeroAzioni = NumeroAzioni;
        c.Azioni[6].Testo = QString(40000, QChar(u'\r'));
        c.Immagini = ImmaginiNominate(c.Azioni, c.NumeroAzioni);
        ScriviFileScambio(Percorso(QStringLiteral("Ritorni.zanto")), c);
        const int prima = RigheDisegni();
        const QStringList filePrima = QDir(PercorsoFile()).entryList(QDir::Files);
        QString avviso;
        Importa(QStringLiteral("Ritorni.zanto"), [&](Copione& k) {
            k.Esegui([&] { avviso = TestoQuadroMessaggi; });
            k.Tasto(Qt::Key_Return);
        });
        QVERIFY2(avviso.contains(QStringLiteral("NON può essere importato")) &&
                     avviso.contains(QStringLiteral("testo")),
                 qPrintable(avviso));
        QCOMPARE(RigheDisegni(), prima);
        QCOMPARE(QDir(PercorsoFile()).entryList(QDir::Files), filePrima);
        QVERIFY(amb->Scatole.isEmpty());
    }

    void senza_nome_si_scrive_e_lo_stesso_nome_chiede() {
        Disegna();
        NomeDisegnoCorrente.clear();
        QVERIFY(Esporta(QStringLiteral("PRATO")).contains(QStringLiteral("« PRATO »")));
        QVERIFY(QFile::exists(Percorso(QStringLiteral("PRATO.pdf"))));
        // The same name again: the question, "Annulla" holding the ring, then
        // another name on the keyboard.
        QString domanda, tastiera;
        Copione c(*orologio);
        Scegli(c, 146);
        c.Tasto(Qt::Key_Return);
        ScriviConLeFrecce(c, QStringLiteral("PRATO"));
        c.Esegui([&] { domanda = TestoQuadroMessaggi; });
        c.Tasto(Qt::Key_Return);
        c.Esegui([&] { tastiera = FormScansione::InPrimoPiano()->windowTitle(); });
        ScriviConLeFrecce(c, QStringLiteral("BOSCO"));
        c.Tasto(Qt::Key_Return);
        Scegli(c, 140);
        Settaggi(c);
        QVERIFY2(domanda.contains(QStringLiteral("è già stato esportato.")), qPrintable(domanda));
        QCOMPARE(tastiera, QStringLiteral("Programma «ZANTO»  -  Nome del Disegno Esportato"));
        QVERIFY(QFile::exists(Percorso(QStringLiteral("BOSCO.zanto"))));
        // A name that could lead out of the folder stays inside it.
        QVERIFY(Esporta(QStringLiteral("../FUORI")).contains(QStringLiteral("(.png")));
        QVERIFY(!QFile::exists(RadiceDati + QStringLiteral("/FUORI.png")));
        QDir file(PercorsoFile());
        QCOMPARE(file.entryList({QStringLiteral("*FUORI*.zanto")}, QDir::Files).size(), 1);
    }

    void una_figura_del_disegno_non_si_copre_mai() {
        Disegna();
        // The drawing's name is its own picture's: the picture stays.
        NomeDisegnoCorrente = QStringLiteral("sole");
        const QByteArray figura = Leggi(figura_);
        QString avviso;
        Copione c(*orologio);
        Scegli(c, 146);
        c.Tasto(Qt::Key_Return);
        c.Esegui([&] { avviso = TestoQuadroMessaggi; });
        c.Tasto(Qt::Key_Return);
        ScriviConLeFrecce(c, QStringLiteral("CIELO"));
        c.Tasto(Qt::Key_Return);
        Scegli(c, 140);
        Settaggi(c);
        QVERIFY2(avviso.contains(QStringLiteral("c'è già")), qPrintable(avviso));
        QCOMPARE(Leggi(figura_), figura);
        QVERIFY(QFile::exists(Percorso(QStringLiteral("CIELO.zanto"))));
        QVERIFY(!QFile::exists(Percorso(QStringLiteral("sole.zanto"))));
    }

    void un_esportazione_fallita_lascia_i_file_di_prima() {
        Disegna();
        const FileEsportati file = PercorsiEsportazione(QStringLiteral("Giardino"), 0);
        EsportaDisegno(file, a->Quadro, QStringLiteral("Giardino"));
        const QByteArray png = Leggi(file.Png);
        // The exchange file cannot be written aside: nothing of the new export stays.
        QVERIFY(QDir().mkpath(file.Scambio + QStringLiteral(".nuovo.nuovo")));
        Azioni[1].ColLinea = 0x00FF00;
        RitracciaTutto(a->Quadro);
        QVERIFY_THROWS_EXCEPTION(ErroreZanto,
                                 EsportaDisegno(file, a->Quadro, QStringLiteral("Giardino")));
        QCOMPARE(Leggi(file.Png), png);
        for (const QString& percorso : file.Tutti())
            QVERIFY(!QFile::exists(percorso + QStringLiteral(".nuovo")));
    }

    void importa_come_nuovo_disegno_con_ogni_campo() {
        Disegna();
        NomeDisegnoCorrente = QStringLiteral("Giardino");
        Esporta();
        const int prima = RigheDisegni();
        QString messaggio;
        Importa(QStringLiteral("Giardino.zanto"), [&](Copione& c) {
            c.Esegui([&] { messaggio = TestoQuadroMessaggi; });
            c.Tasto(Qt::Key_Return);
        });
        QVERIFY2(messaggio.contains(QStringLiteral("« Giardino » è stato importato")),
                 qPrintable(messaggio));
        QCOMPARE(RigheDisegni(), prima + 1);
        const int32_t codice = CercaNomeDisegno(QStringLiteral("Giardino"), CodiceCartellaAttiva);
        QVERIFY(codice > 0);
        QList<RecordAzione> lette;
        int32_t numero = 0;
        LeggiAzioniDisegno(codice, lette, numero);
        QCOMPARE(numero, NumeroAzioni);
        // The same picture bytes are in the files folder already: it is named as it is.
        for (int32_t i = 1; i <= numero; ++i)
            QCOMPARE(lette.at(i), Azioni.at(i));
        // Its bitmap, drawn from the rows, is the canvas.
        const QImage bitmap(PercorsoBitmapDisegno(NomeCartellaAttiva, CodiceCartellaAttiva,
                                                  QStringLiteral("Giardino"), codice));
        QCOMPARE(bitmap.convertToFormat(QImage::Format_RGB32),
                 a->Quadro.Immagine().convertToFormat(QImage::Format_RGB32));
    }

    void un_nome_gia_usato_si_riscrive_e_la_figura_diversa_non_si_copre() {
        Disegna();
        NomeDisegnoCorrente = QStringLiteral("Giardino");
        Esporta();
        // Another picture under the same name: the import must not cover it.
        QImage luna(20, 20, QImage::Format_RGB32);
        luna.fill(Qt::white);
        QVERIFY(luna.save(figura_));
        const QByteArray diversa = Leggi(figura_);
        Importa(QStringLiteral("Giardino.zanto"), [](Copione& c) { c.Tasto(Qt::Key_Return); });
        QString avviso, tastiera;
        Importa(QStringLiteral("Giardino.zanto"), [&](Copione& c) {
            c.Esegui([&] { avviso = TestoQuadroMessaggi; });
            c.Tasto(Qt::Key_Return);
            c.Esegui([&] { tastiera = FormScansione::InPrimoPiano()->windowTitle(); });
            ScriviConLeFrecce(c, QStringLiteral("ORTO"));
            c.Tasto(Qt::Key_Return);
        });
        QVERIFY2(avviso.contains(QStringLiteral("c'è già")), qPrintable(avviso));
        QCOMPARE(tastiera, QStringLiteral("Programma «ZANTO»  -  Nome del Disegno Importato"));
        const int32_t orto = CercaNomeDisegno(QStringLiteral("ORTO"), CodiceCartellaAttiva);
        QVERIFY(orto > 0);
        QCOMPARE(Leggi(figura_), diversa);
        QList<RecordAzione> lette;
        int32_t numero = 0;
        LeggiAzioniDisegno(orto, lette, numero);
        const QString copia = lette.at(numero).NomeFileImmagine;
        QCOMPARE(copia, Percorso(QStringLiteral("sole-2.png")));
        QCOMPARE(QImage(copia).pixelColor(5, 5), QColor(255, 0, 255));
    }

    void un_file_guasto_lo_dice_e_non_cambia_nulla() {
        Disegna();
        NomeDisegnoCorrente = QStringLiteral("Giardino");
        Esporta();
        const QByteArray buono = Leggi(Percorso(QStringLiteral("Giardino.zanto")));
        QFile guasto(Percorso(QStringLiteral("Rotto.zanto")));
        QVERIFY(guasto.open(QIODevice::WriteOnly));
        guasto.write(buono.left(buono.size() / 2));
        guasto.close();
        const int prima = RigheDisegni();
        const QStringList fileprima = QDir(PercorsoFile()).entryList(QDir::Files);
        QString avviso;
        const int bip = ContatoreBip;
        Importa(QStringLiteral("Rotto.zanto"), [&](Copione& c) {
            c.Esegui([&] { avviso = TestoQuadroMessaggi; });
            c.Tasto(Qt::Key_Return);
        });
        QVERIFY2(avviso.contains(QStringLiteral("NON può essere importato")) &&
                     avviso.contains(QStringLiteral("danneggiato")),
                 qPrintable(avviso));
        QVERIFY(ContatoreBip > bip);
        QCOMPARE(RigheDisegni(), prima);
        QCOMPARE(QDir(PercorsoFile()).entryList(QDir::Files), fileprima);
        QVERIFY(amb->Scatole.isEmpty());
    }
};

QTEST_MAIN(ProvaEsportaImporta)
#include "test_esporta_importa.moc"
