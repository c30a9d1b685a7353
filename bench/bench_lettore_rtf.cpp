// The rich text reader on a document of one megabyte, as a word processor writes
// it: font and colour tables, a small picture, paragraphs with accents as \'hh
// and \uN, bold and italic groups. Measured against decoding the same bytes as
// Latin-1, the floor of any pass that turns them into a QString.

#include "Misura.h"

#include "text/LettoreRtf.h"

#include <QByteArray>
#include <QString>

#include <algorithm>
#include <cstdio>

namespace {

QByteArray DocumentoDiProva(qsizetype dimensione) {
    QByteArray d =
        "{\\rtf1\\ansi\\ansicpg1252\\deff0\\uc1"
        "{\\fonttbl{\\f0\\froman\\fcharset0\\fprq2{\\*\\panose 02020603050405020304}"
        "Times New Roman;}{\\f1\\fswiss\\fcharset0 Arial;}"
        "{\\f2\\fswiss\\fcharset238 Arial CE;}}"
        "{\\colortbl;\\red0\\green0\\blue0;\\red255\\green0\\blue0;\\red0\\green0\\blue255;}"
        "{\\stylesheet{\\s0\\ql\\f0\\fs24 Normal;}{\\s1\\sb240\\b\\fs32 heading 1;}}"
        "{\\info{\\title Prova}{\\author ZANTO}}"
        "\\paperw11906\\paperh16838\\margl1134\\margr1134\n";
    // A small picture: its hex digits are passed over, never read as text.
    d += "{\\pict\\pngblip\\picw64\\pich64\\picwgoal960\\pichgoal960\n";
    for (int k = 0; k < 64; ++k)
        d += "89504e470d0a1a0a0000000d4948445200000040000000400806000000aa6971de\n";
    d += "}\n";
    const QByteArray paragrafi[] = {
        "\\pard\\plain\\s0\\ql\\f0\\fs24 La citt\\'e0 \\'e8 pi\\'f9 bella d'estate: "
        "{\\b il caff\\'e8} costa poco e {\\i la libert\\'e0} non ha prezzo.\\par\n",
        "\\pard\\s0\\f1\\fs22\\cf2 Perch\\u233?, \\u8220?disse\\u8221?, la scuola "
        "\\u232? chiusa\\tab alle 16\\emdash e domani?\\par\n",
        "\\pard\\s0\\f2 \\'8a\\'e8kola v \\'c8esk\\'fdch Bud\\'ecjovic\\'edch "
        "{\\ul \\'9e\\'e1ci}\\line a u\\'e8itel\\'e9.\\par\n",
        "\\pard\\s1\\f0\\fs32\\b Capitolo {\\*\\bkmkstart c1}primo{\\*\\bkmkend c1}\\b0\\par\n",
    };
    for (int k = 0; d.size() < dimensione; ++k)
        d += paragrafi[k % 4];
    d += '}';
    return d;
}

// The best of `volte` runs, in milliseconds: the machine's noise only adds.
template <typename F> double MiglioreMs(int volte, F corpo) {
    double migliore = 1e300;
    for (int i = 0; i < volte; ++i)
        migliore = std::min(migliore, DurataMs(corpo));
    return migliore;
}

} // namespace

int main() {
    const QByteArray documento = DocumentoDiProva(1024 * 1024);
    qsizetype caratteri = 0;
    const double lettore = MiglioreMs(20, [&] { caratteri = TestoDaRtf(documento).size(); });
    qsizetype latino = 0;
    const double riferimento =
        MiglioreMs(20, [&] { latino = QString::fromLatin1(documento).size(); });
    qsizetype barre = 0;
    const double scansione =
        MiglioreMs(20, [&] { barre = std::count(documento.begin(), documento.end(), '\\'); });
    Stampa("documento_rtf", double(documento.size()) / (1024.0 * 1024.0), "MB");
    Stampa("caratteri_di_testo", double(caratteri), "char");
    Stampa("lettore_rtf_1mb", lettore, "ms");
    Stampa("latin1_1mb", riferimento, "ms");
    Stampa("scansione_barre_1mb", scansione, "ms");
    Stampa("rapporto_lettore_su_latin1", lettore / riferimento, "x");
    Stampa("rapporto_lettore_su_scansione", lettore / scansione, "x");
    // Keep the reference passes from being optimised away.
    return latino == documento.size() && barre > 0 ? 0 : 1;
}
