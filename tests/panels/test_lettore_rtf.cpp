// The rich text reader: real documents against their expected texts, each
// feature on a small document of its own, and the faults hostile files get.

#include "base/GestioneErrori.h"
#include "text/LettoreRtf.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QTemporaryDir>
#include <QtTest>

#include <sys/stat.h>

namespace {

const QString CR(QChar(u'\r'));

QString Cartella() {
    return QStringLiteral(CARTELLA_RTF);
}

QByteArray Leggi(const QString& percorso) {
    QFile f(percorso);
    if (!f.open(QIODevice::ReadOnly)) qFatal("%s", qPrintable(percorso));
    return f.readAll();
}

// The expected texts end their lines with LF, ours with CR alone; and they show a
// hyperlink as its text followed by ("address"), where we keep the shown text only.
QString Normalizza(QString atteso) {
    atteso.replace(QStringLiteral("\r\n"), CR).replace(QChar(u'\n'), QChar(u'\r'));
    static const QRegularExpression collegamento(QStringLiteral("\\(\"[^\"\\r]*\"\\)"));
    return atteso.remove(collegamento);
}

// Where the whole file is refused, the reason, and the part of it that is a whole
// document: its expected text is the one up to `FineTesto`.
struct Rifiuto {
    const char* File;
    QByteArray FineDocumento;
    QString FineTesto;
    const char* Motivo;
};

const Rifiuto Rifiuti[] = {
    {"encoding", QByteArrayLiteral("\n\nText2:"), QStringLiteral("Text2:"),
     "a second {\\rtf document follows the first, with loose text between them"},
};

// The number of the fault `corpo` must end in, or -1 when it ends well.
template <typename F> int NumeroErrore(F corpo) {
    try {
        corpo();
    } catch (const ErroreZanto& e) {
        return e.Numero;
    }
    return -1;
}

int ErroreDi(const QByteArray& dati) {
    return NumeroErrore([&] { TestoDaRtf(dati); });
}

// Bytes of a literal, the NULs inside it included.
template <size_t N> QByteArray Byte(const char (&testo)[N]) {
    return QByteArray(testo, qsizetype(N - 1));
}

QString Rtf(const char* corpo) {
    return TestoDaRtf(QByteArray("{\\rtf1\\ansi ") + corpo + '}');
}

} // namespace

class ProvaLettoreRtf : public QObject {
    Q_OBJECT

private slots:
    void ogni_documento_del_corpus_da_il_suo_testo_data() {
        QTest::addColumn<QString>("nome");
        const QStringList documenti =
            QDir(Cartella()).entryList({QStringLiteral("*.rtf")}, QDir::Files, QDir::Name);
        int conTesto = 0;
        for (const QString& documento : documenti) {
            const QString nome = documento.chopped(4);
            if (!QFile::exists(Cartella() + '/' + nome + QStringLiteral(".txt"))) continue;
            QTest::newRow(qPrintable(nome)) << nome;
            ++conTesto;
        }
        QVERIFY2(conTesto >= 25, qPrintable(Cartella()));
    }
    void ogni_documento_del_corpus_da_il_suo_testo() {
        QFETCH(QString, nome);
        QByteArray dati = Leggi(Cartella() + '/' + nome + QStringLiteral(".rtf"));
        QString atteso = QString::fromUtf8(Leggi(Cartella() + '/' + nome + QStringLiteral(".txt")));
        for (const Rifiuto& r : Rifiuti) {
            if (nome != QLatin1String(r.File)) continue;
            qInfo("%s: rifiutato per intero (%s)", r.File, r.Motivo);
            QCOMPARE(ErroreDi(dati), 321);
            const qsizetype taglio = dati.indexOf(r.FineDocumento);
            QVERIFY(taglio > 0);
            dati.truncate(taglio);
            atteso.truncate(atteso.indexOf(r.FineTesto));
        }
        QCOMPARE(TestoDaRtf(dati), Normalizza(atteso));
    }

    void documenti_del_corpus_senza_testo_atteso_danno_le_loro_tabelle() {
        QCOMPARE(TestoDaRtf(Leggi(Cartella() + QStringLiteral("/minimal_table.rtf"))),
                 QStringLiteral("cell 1|cell 2|cell 3|\r"));
        const QString pagine =
            TestoDaRtf(Leggi(Cartella() + QStringLiteral("/pages_table_sample.rtf")));
        QVERIFY(pagine.startsWith(
            QStringLiteral("Hier steht normaler Text, dann kommt eine Tabelle.\r")));
        QVERIFY(pagine.contains(QStringLiteral("\rHeader A|Header B|Header C|\rA1|B1|C1|\r")));
        QVERIFY(pagine.endsWith(QStringLiteral("\rHier steht wieder normaler Text.")));
    }

    void gruppi_e_parole_di_controllo_lasciano_solo_il_testo() {
        QCOMPARE(Rtf("Ciao {\\b mondo}{\\i\\ul !}\\par"), QStringLiteral("Ciao mondo!\r"));
        // The blank after a word is part of it; a second blank is text.
        QCOMPARE(Rtf("\\fs24 a\\fs-2 b\\fs20  c\\b0\\i d"), QStringLiteral("ab cd"));
        // Line ends in the file are no text; a backslash before one is a paragraph.
        QCOMPARE(Rtf("a\r\nb\nc\\\nd\\\re"), QStringLiteral("abc\rd\re"));
        QCOMPARE(Rtf("a\\unknownword123 b\\xyz-5 c"), QStringLiteral("abc"));
    }

    void simboli_di_controllo() {
        QCOMPARE(Rtf("a\\~b\\-c\\_d\\{\\}\\\\e"), QStringLiteral("a\u00A0b\u00ADc\u2011d{}\\e"));
        QCOMPARE(Rtf("a\\:b\\|c"), QStringLiteral("abc"));
    }

    void righe_tabulazioni_e_celle() {
        QCOMPARE(Rtf("a\\par b\\line c\\tab d\\sect e"), QStringLiteral("a\rb\rc\td\re"));
        QCOMPARE(Rtf("\\trowd\\cellx100\\cellx200 \\intbl x\\cell y\\cell\\row z"),
                 QStringLiteral("x|y|\rz"));
        QCOMPARE(Rtf("a\tb"), QStringLiteral("a\tb"));
    }

    void caratteri_tipografici() {
        QCOMPARE(Rtf("\\emdash\\endash\\bullet\\lquote\\rquote\\ldblquote\\rdblquote"),
                 QStringLiteral("\u2014\u2013\u2022\u2018\u2019\u201C\u201D"));
        QCOMPARE(Rtf("\\emspace\\enspace\\qmspace\\zwj\\zwnj"),
                 QStringLiteral("\u2003\u2002\u2005\u200D\u200C"));
    }

    void unicode_con_il_suo_ripiego() {
        QCOMPARE(Rtf("\\u232?e"), QStringLiteral("\u00E8e"));
        QCOMPARE(Rtf("\\u-3913?"), QString(QChar(char16_t(65536 - 3913))));
        QCOMPARE(Rtf("\\uc2\\u232 abc"), QStringLiteral("\u00E8c"));
        QCOMPARE(Rtf("\\uc0\\u232 x"), QStringLiteral("\u00E8x"));
        // An escaped byte and a control word each count as one fallback character.
        QCOMPARE(Rtf("\\u269\\'e8 x"), QStringLiteral("\u010D x"));
        QCOMPARE(Rtf("\\uc2\\u269\\'e8\\par x"), QStringLiteral("\u010Dx"));
        // The count belongs to the group, and the skip ends with the group.
        QCOMPARE(Rtf("{\\uc2\\u232 ab}\\u233 xy"), QStringLiteral("\u00E8\u00E9y"));
        QCOMPARE(Rtf("\\uc3{\\u233 a}b"), QStringLiteral("\u00E9b"));
    }

    void due_unicode_fanno_una_coppia_di_surrogati() {
        QCOMPARE(Rtf("\\u-10179?\\u-8704?"), QStringLiteral("\U0001F600"));
        QCOMPARE(Rtf("\\u55357?\\u56832?"), QStringLiteral("\U0001F600"));
        // A half without its partner is no character.
        QCOMPARE(Rtf("\\u55357?x"), QStringLiteral("\uFFFDx"));
        QCOMPARE(Rtf("x\\u56832?"), QStringLiteral("x\uFFFD"));
        QCOMPARE(Rtf("\\u55357?"), QStringLiteral("\uFFFD"));
        QCOMPARE(Rtf("\\u0?a"), QStringLiteral("a"));
    }

    void byte_nella_pagina_di_codici_del_documento_data() {
        QTest::addColumn<QByteArray>("documento");
        QTest::addColumn<QString>("testo");
        const auto riga = [](const char* nome, const char* documento, const QString& testo) {
            QTest::newRow(nome) << QByteArray(documento) << testo;
        };
        riga("1252 predefinita", "{\\rtf1 \\'e8\\'80\\'93}", QStringLiteral("\u00E8\u20AC\u201C"));
        riga("1252 con ansicpg0", "{\\rtf1\\ansi\\ansicpg0 \\'e8}", QStringLiteral("\u00E8"));
        riga("1250", "{\\rtf1\\ansi\\ansicpg1250 \\'9a\\'e8\\'f9}",
             QStringLiteral("\u0161\u010D\u016F"));
        riga("1251", "{\\rtf1\\ansi\\ansicpg1251 \\'e4\\'e0}", QStringLiteral("\u0434\u0430"));
        riga("1253", "{\\rtf1\\ansi\\ansicpg1253 \\'e1\\'e2}", QStringLiteral("\u03B1\u03B2"));
        riga("1254", "{\\rtf1\\ansi\\ansicpg1254 \\'fd\\'f0}", QStringLiteral("\u0131\u011F"));
        riga("437", "{\\rtf1\\pc \\'82\\'c9}", QStringLiteral("\u00E9\u2554"));
        riga("437 con ansicpg", "{\\rtf1\\ansi\\ansicpg437 \\'82}", QStringLiteral("\u00E9"));
        riga("850", "{\\rtf1\\pca \\'d5\\'82}", QStringLiteral("\u0131\u00E9"));
        riga("10000 Mac", "{\\rtf1\\mac \\'8e\\'d2}", QStringLiteral("\u00E9\u201C"));
        riga("874 tailandese", "{\\rtf1\\ansi\\ansicpg874 \\'e0}", QStringLiteral("\u0E40"));
        riga("936 cinese a due byte", "{\\rtf1\\ansi\\ansicpg936 \\'d3\\'a1\\'cb\\'a2 ok}",
             QStringLiteral("\u5370\u5237 ok"));
        riga("byte alti non protetti", "{\\rtf1\\ansi\\ansicpg1250 \x9a\xe8}",
             QStringLiteral("\u0161\u010D"));
        riga("pagina sconosciuta come 1252", "{\\rtf1\\ansi\\ansicpg4242 \\'e8}",
             QStringLiteral("\u00E8"));
    }
    void byte_nella_pagina_di_codici_del_documento() {
        QFETCH(QByteArray, documento);
        QFETCH(QString, testo);
        QCOMPARE(TestoDaRtf(documento), testo);
    }

    void il_set_di_caratteri_del_font_sceglie_la_pagina() {
        const QByteArray tabella = "{\\fonttbl{\\f0\\fcharset0 Arial;}{\\f1\\fcharset238 Arial CE;}"
                                   "{\\f2\\fcharset204 Arial Cyr;}{\\f3\\fcharset161 Arial Greek;}"
                                   "{\\f4\\fcharset162 Arial Tur;}\\f5\\fcharset222 Thai;}";
        QCOMPARE(
            TestoDaRtf("{\\rtf1\\ansi\\ansicpg1252\\deff0" + tabella +
                       "\\f0\\'e8\\f1\\'e8\\f2\\'e8{\\f3\\'e1}\\f4\\'fd\\f5\\'e0\\plain\\'e8}"),
            QStringLiteral("\u00E8\u010D\u0438\u03B1\u0131\u0E40\u00E8"));
        // The default font's set counts until a font is named; 0 is the document's page.
        QCOMPARE(TestoDaRtf("{\\rtf1\\ansi\\deff1" + tabella + "\\'e8\\f0\\'e8}"),
                 QStringLiteral("\u010D\u00E8"));
        QCOMPARE(TestoDaRtf("{\\rtf1\\ansi\\ansicpg1251\\deff0" + tabella + "\\'e8}"),
                 QStringLiteral("\u0438"));
        QCOMPARE(TestoDaRtf("{\\rtf1\\ansi{\\fonttbl{\\f0\\cpg1253 Greca;}}\\f0\\'e1}"),
                 QStringLiteral("\u03B1"));
    }

    void destinazioni_senza_testo_sono_saltate() {
        QCOMPARE(Rtf("{\\fonttbl{\\f0\\froman Times;}}{\\colortbl;\\red255\\green0\\blue0;}"
                     "{\\stylesheet{\\s0 Normal;}}{\\info{\\title Titolo}{\\author Io}}"
                     "{\\header Testata\\par}{\\footerr Piede}{\\footnote Nota}"
                     "{\\*\\qualcosa di nuovo {\\b anche qui}}{\\*\\generator Programma;}testo"),
                 QStringLiteral("testo"));
        QCOMPARE(Rtf("a{\\pict\\pngblip\\picw10 89504e470d0a1a0a}b{\\object\\objemb"
                     "{\\*\\objdata 0102}{\\result R}}c{\\*\\shppict{\\pict "
                     "00}}{\\nonshppict{\\pict 00}}d"),
                 QStringLiteral("abcd"));
    }

    void campi_elenchi_e_numeri() {
        QCOMPARE(
            Rtf("vedi {\\field{\\*\\fldinst{HYPERLINK \"https://x.it\"}}{\\fldrslt{\\ul sito}}}."),
            QStringLiteral("vedi sito."));
        QCOMPARE(Rtf("{\\field{\\fldinst PAGE}{\\fldrslt 3}}"), QStringLiteral("3"));
        // The text of a list's number is kept, the old paragraph numbering is not.
        QCOMPARE(Rtf("{\\listtext 1.\\tab}uno\\par{\\pntext\\f1 2.\\tab}due"),
                 QStringLiteral("1.\tuno\rdue"));
    }

    void dati_binari_saltati_per_conteggio() {
        QCOMPARE(TestoDaRtf(Byte("{\\rtf1 a{\\pict\\bin4 }{\\\x00}b}")), QStringLiteral("ab"));
        QCOMPARE(Rtf("a\\bin3 {}\\b"), QStringLiteral("ab"));
        QCOMPARE(Rtf("a\\bin0 b"), QStringLiteral("ab"));
    }

    void quel_che_segue_la_fine_non_e_testo() {
        QCOMPARE(TestoDaRtf(Byte("{\\rtf1 a}\r\n\0\0 firma}")), QStringLiteral("a"));
        QCOMPARE(TestoDaRtf("{\\rtf1 a}}"), QStringLiteral("a"));
    }

    void byte_nulli_e_di_controllo_non_sono_testo() {
        QCOMPARE(TestoDaRtf(Byte("{\\rtf1 a\0b\x01\x1a"
                                 "c}")),
                 QStringLiteral("abc"));
        QCOMPARE(Rtf("a\\'00b"), QStringLiteral("ab"));
    }

    void dati_dopo_la_fine_del_documento_senza_testo_si_lasciano() {
        // A word processor closed the top group before its theme data and wrote
        // a last brace after them: the document is what the top group held.
        const QByteArray intero = Leggi(Cartella() + QStringLiteral("/issue_11.rtf"));
        const QString atteso = TestoDaRtf(intero);
        QVERIFY(!atteso.isEmpty());
        QByteArray spostato = intero;
        const qsizetype tema = spostato.indexOf("{\\*\\themedata");
        QVERIFY(tema > 0);
        spostato.insert(tema, '}');
        QCOMPARE(TestoDaRtf(spostato), atteso);
        QCOMPARE(Rtf("Ciao}{\\*\\datastore 0105}{\\*\\colorschememapping 3c3f}\r\n"),
                 QStringLiteral("Ciao"));
        QCOMPARE(TestoDaRtf("{\\rtf1 Ciao}\\par}"), QStringLiteral("Ciao"));
        QCOMPARE(TestoDaRtf("{\\rtf1 Ciao}{}{\\b  }}}"), QStringLiteral("Ciao"));
        // A group cut short after the end holds no text either.
        QCOMPARE(TestoDaRtf("{\\rtf1 Ciao}{\\*\\themedata 5045"), QStringLiteral("Ciao"));
        // A second document with text is refused whole.
        QCOMPARE(ErroreDi("{\\rtf1 Ciao}{\\rtf1 Mondo}"), 321);
        QCOMPARE(ErroreDi("{\\rtf1 Ciao}{\\*\\themedata 00}{\\b Mondo}"), 321);
        QCOMPARE(ErroreDi("{\\rtf1 Ciao}{\\*\\themedata 00}{\\b Mon"), 321);
    }

    void un_tubo_non_e_un_file_rtf_e_non_ferma_nulla() {
        QTemporaryDir cartella;
        const QString tubo = cartella.filePath(QStringLiteral("tubo.rtf"));
        QVERIFY(::mkfifo(QFile::encodeName(tubo).constData(), 0600) == 0);
        QCOMPARE(NumeroErrore([&] { LeggiFileRtf(tubo); }), 321);
    }

    void documenti_malformati_sono_errore_321_data() {
        QTest::addColumn<QByteArray>("dati");
        const auto riga = [](const char* nome, const QByteArray& dati) {
            QTest::newRow(nome) << dati;
        };
        riga("vuoto", "");
        riga("non rtf", "Caro amico, ti scrivo");
        riga("intestazione a meta", "{\\rt");
        riga("spazio prima", " {\\rtf1 a}");
        riga("manca la chiusura", "{\\rtf1 a{\\b b}");
        riga("manca la chiusura di un gruppo", "{\\rtf1 a{\\b b}{c");
        riga("chiusura di troppo prima di altro testo", "{\\rtf1 a}\\par b}");
        riga("chiusura di troppo prima di un gruppo", "{\\rtf1 {a}}{b}}");
        riga("esadecimale troncato", "{\\rtf1 \\'4");
        riga("esadecimale senza cifre", "{\\rtf1 \\'");
        riga("esadecimale non valido", "{\\rtf1 \\'4g}");
        riga("unicode alla fine", "{\\rtf1 \\u");
        riga("unicode con cifre alla fine", "{\\rtf1 \\u233");
        riga("barra alla fine", "{\\rtf1 a\\");
        riga("bin enorme", "{\\rtf1 \\bin999999999 x}");
        riga("bin oltre la fine", "{\\rtf1 \\bin5 abc}");
        riga("bin negativo", "{\\rtf1 \\bin-5 x}");
        riga("bin senza conteggio", "{\\rtf1 \\bin x}");
        riga("parametro di undici cifre", "{\\rtf1 \\fs12345678901 x}");
        riga("parola troppo lunga", "{\\rtf1 \\" + QByteArray(33, 'a') + " x}");
        riga("centomila gruppi annidati",
             "{\\rtf1 " + QByteArray(100000, '{') + 'x' + QByteArray(100000, '}') + '}');
        riga("centomila aperture", "{\\rtf1 " + QByteArray(100000, '{'));
    }
    void documenti_malformati_sono_errore_321() {
        QFETCH(QByteArray, dati);
        QCOMPARE(ErroreDi(dati), 321);
    }

    void la_profondita_massima_si_legge() {
        const int dentro = ProfonditaMassimaRtf - 1;
        const QByteArray dati =
            "{\\rtf1 " + QByteArray(dentro, '{') + "fondo" + QByteArray(dentro, '}') + '}';
        QCOMPARE(TestoDaRtf(dati), QStringLiteral("fondo"));
        QCOMPARE(ErroreDi("{\\rtf1 " + QByteArray(dentro + 1, '{') + QByteArray(dentro + 2, '}')),
                 321);
    }

    void un_documento_grande_si_legge_intero() {
        // Eight megabytes of paragraphs with accents: one pass, and every line comes out.
        const QByteArray riga =
            "Citt\\'e0 \\u232? caf\\'e9 {\\b grassetto} e testo semplice\\par\n";
        const int righe = 8 * 1024 * 1024 / riga.size();
        QByteArray dati = "{\\rtf1\\ansi\\ansicpg1252{\\fonttbl{\\f0 Arial;}}";
        dati.reserve(dati.size() + qsizetype(righe) * riga.size() + 1);
        for (int k = 0; k < righe; ++k)
            dati += riga;
        dati += '}';
        const QString testo = TestoDaRtf(dati);
        const QString attesa =
            QStringLiteral("Citt\u00E0 \u00E8 caf\u00E9 grassetto e testo semplice\r");
        QCOMPARE(testo.size(), qsizetype(righe) * attesa.size());
        QCOMPARE(testo.left(attesa.size()), attesa);
        QCOMPARE(testo.right(attesa.size()), attesa);
    }

    void leggi_file_rtf_legge_il_file() {
        QTemporaryDir cartella;
        QVERIFY(cartella.isValid());
        const QString percorso = cartella.filePath(QStringLiteral("lettera.rtf"));
        QFile f(percorso);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write("{\\rtf1\\ansi Caro \\'e8\\par}");
        f.close();
        QCOMPARE(LeggiFileRtf(percorso), QStringLiteral("Caro \u00E8\r"));
    }

    void file_assente_e_errore_53() {
        QTemporaryDir cartella;
        QCOMPARE(NumeroErrore([&] { LeggiFileRtf(cartella.filePath(QStringLiteral("no.rtf"))); }),
                 53);
    }

    void file_troppo_grande_e_errore_7_senza_leggerlo() {
        QTemporaryDir cartella;
        const QString percorso = cartella.filePath(QStringLiteral("enorme.rtf"));
        QFile f(percorso);
        QVERIFY(f.open(QIODevice::WriteOnly));
        f.write("{\\rtf1 ");
        // Sparse: the size is there, the disk blocks are not.
        QVERIFY(f.resize(50 * 1024 * 1024));
        f.close();
        QCOMPARE(NumeroErrore([&] { LeggiFileRtf(percorso); }), 7);
        QVERIFY(f.resize(DimensioneMassimaRtf + 1));
        QCOMPARE(NumeroErrore([&] { LeggiFileRtf(percorso); }), 7);
        // At the bound it is read, and its fault is then the document's.
        QVERIFY(f.resize(DimensioneMassimaRtf));
        QCOMPARE(NumeroErrore([&] { LeggiFileRtf(percorso); }), 321);
    }

    void una_cartella_non_e_un_file_rtf() {
        QTemporaryDir cartella;
        QCOMPARE(NumeroErrore([&] { LeggiFileRtf(cartella.path()); }), 75);
    }
};

QTEST_GUILESS_MAIN(ProvaLettoreRtf)
#include "test_lettore_rtf.moc"
