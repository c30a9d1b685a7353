#include "text/LettoreRtf.h"

#include "base/FileRegolari.h"
#include "base/MappaErrori.h"

#include <QFile>
#include <QFileInfo>
#include <QStringDecoder>

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace {

// 321 is the run-time's "invalid file format": whatever is wrong inside a rich
// text file, for the user it is a file that cannot be read.
[[noreturn]] void Malformato(const char* motivo) {
    throw ErroreZanto{321,
                      QStringLiteral("Formato di file non valido: ") + QString::fromUtf8(motivo)};
}

// The code pages a document may name. Any other is read as 1252, so that at
// least the plain letters come through.
constexpr int PagineSingole[] = {437,  850,  874,  1250, 1251, 1252, 1253,
                                 1254, 1255, 1256, 1257, 1258, 10000};
constexpr int PagineDoppie[] = {932, 936, 949, 950, 1361};

bool PaginaNota(int64_t pagina) {
    return std::find(std::begin(PagineSingole), std::end(PagineSingole), pagina) !=
               std::end(PagineSingole) ||
           std::find(std::begin(PagineDoppie), std::end(PagineDoppie), pagina) !=
               std::end(PagineDoppie);
}

bool PaginaDoppia(int pagina) {
    return std::find(std::begin(PagineDoppie), std::end(PagineDoppie), pagina) !=
           std::end(PagineDoppie);
}

QByteArray NomePagina(int pagina) {
    if (pagina == 10000) return "macintosh";
    if (pagina == 437 || pagina == 850) return "IBM" + QByteArray::number(pagina);
    return "windows-" + QByteArray::number(pagina);
}

using Tabella = std::array<char16_t, 128>;

// Bytes 0x80 to 0xFF of each single-byte page, built once from the system's
// converter. Without one, a page falls back to Latin-1.
const Tabella& TabellaPagina(int pagina) {
    static const std::unordered_map<int, Tabella> tabelle = [] {
        std::unordered_map<int, Tabella> fatte;
        for (const int p : PagineSingole) {
            QStringDecoder decodifica(NomePagina(p).constData(), QStringDecoder::Flag::Stateless);
            Tabella& t = fatte[p];
            for (int b = 0; b < 128; ++b) {
                const char byte = char(0x80 + b);
                const QString s =
                    decodifica.isValid() ? decodifica(QByteArrayView(&byte, 1)) : QString();
                t[b] = s.size() == 1 ? s.at(0).unicode() : char16_t(0x80 + b);
            }
        }
        return fatte;
    }();
    const auto trovata = tabelle.find(pagina);
    return trovata != tabelle.end() ? trovata->second : tabelle.at(1252);
}

// The code page of a font's character set; 0 means the document's own page
// (ANSI, default and symbol fonts, and any set we do not know).
int PaginaDaCharset(int charset) {
    static constexpr std::pair<int, int> coppie[] = {
        {77, 10000}, {128, 932},  {129, 949},  {130, 1361}, {134, 936},  {136, 950},
        {161, 1253}, {162, 1254}, {163, 1258}, {177, 1255}, {178, 1256}, {186, 1257},
        {204, 1251}, {222, 874},  {238, 1250}, {254, 437},  {255, 850}};
    for (const auto& [set, pagina] : coppie)
        if (set == charset) return pagina;
    return 0;
}

enum class Azione : uint8_t {
    Carattere, // gives the character of the entry
    Salta,     // a destination with no text for the reader
    TabellaFont,
    Unicode,
    Uc,
    Bin,
    AnsiCpg,
    Ansi,
    Mac,
    Pc,
    Pca,
    Deff,
    F,
    FCharset,
    Cpg,
    Plain,
};

struct Parola {
    std::string_view Nome;
    Azione Cosa;
    char16_t Carattere = 0;
};

// Control words the reader acts on, in alphabetical order; the others change
// only the look of the text and are passed over.
// clang-format off
constexpr Parola Parole[] = {
    {"ansi", Azione::Ansi}, {"ansicpg", Azione::AnsiCpg}, {"bin", Azione::Bin},
    {"bullet", Azione::Carattere, u'\u2022'}, {"cell", Azione::Carattere, u'|'},
    {"cpg", Azione::Cpg}, {"deff", Azione::Deff},
    {"emdash", Azione::Carattere, u'\u2014'}, {"emspace", Azione::Carattere, u'\u2003'},
    {"endash", Azione::Carattere, u'\u2013'}, {"enspace", Azione::Carattere, u'\u2002'},
    {"f", Azione::F}, {"fcharset", Azione::FCharset}, {"fonttbl", Azione::TabellaFont},
    {"ldblquote", Azione::Carattere, u'\u201C'}, {"line", Azione::Carattere, u'\r'},
    {"lquote", Azione::Carattere, u'\u2018'}, {"ltrmark", Azione::Carattere, u'\u200E'},
    {"mac", Azione::Mac}, {"nestcell", Azione::Carattere, u'|'},
    {"nestrow", Azione::Carattere, u'\r'}, {"par", Azione::Carattere, u'\r'},
    {"pc", Azione::Pc}, {"pca", Azione::Pca}, {"plain", Azione::Plain},
    {"qmspace", Azione::Carattere, u'\u2005'}, {"rdblquote", Azione::Carattere, u'\u201D'},
    {"row", Azione::Carattere, u'\r'}, {"rquote", Azione::Carattere, u'\u2019'},
    {"rtlmark", Azione::Carattere, u'\u200F'}, {"sect", Azione::Carattere, u'\r'},
    {"tab", Azione::Carattere, u'\t'}, {"u", Azione::Unicode}, {"uc", Azione::Uc},
    {"zwj", Azione::Carattere, u'\u200D'}, {"zwnj", Azione::Carattere, u'\u200C'},
};
// clang-format on

// Destinations whose text is not part of the document's text: tables, styles,
// properties, pictures, objects, notes, headers and footers, field codes.
// clang-format off
constexpr std::string_view Destinazioni[] = {
    "aftncn", "aftnsep", "aftnsepc", "annotation", "atnauthor", "atnid", "author", "bkmkend",
    "bkmkstart", "buptim", "category", "colorschememapping", "colortbl", "comment", "company",
    "creatim", "datafield", "datastore", "defchp", "defpap", "doccomm", "docvar", "falt", "ffname",
    "filetbl", "fldinst", "fontemb", "fontfile", "footer", "footerf", "footerl", "footerr",
    "footnote", "ftncn", "ftnsep", "ftnsepc", "generator", "header", "headerf", "headerl",
    "headerr", "hlinkbase", "info", "keywords", "latentstyles", "listoverridetable", "listpicture",
    "listtable", "manager", "mmathPr", "nesttableprops", "nonesttables", "nonshppict", "objalias",
    "objclass", "objdata", "object", "objname", "objsect", "objtime", "operator", "panose",
    "passwordhash", "pgptbl", "pict", "pn", "pntext", "pntxta", "pntxtb", "printim", "private",
    "protusertbl", "revtbl", "revtim", "rsidtbl", "rxe", "shpinst", "shppict", "sp", "stylesheet",
    "subject", "tc", "template", "themedata", "title", "txe", "userprops", "wgrffmtfilter", "xe",
    "xmlnstbl",
};
// clang-format on

constexpr bool InOrdine() {
    for (size_t k = 1; k < std::size(Parole); ++k)
        if (!(Parole[k - 1].Nome < Parole[k].Nome)) return false;
    for (size_t k = 1; k < std::size(Destinazioni); ++k)
        if (!(Destinazioni[k - 1] < Destinazioni[k])) return false;
    return true;
}
static_assert(InOrdine(), "the tables of control words are searched by halves");

const Parola* CercaParola(std::string_view nome) {
    static constexpr Parola salta{"", Azione::Salta};
    const Parola* fine = std::end(Parole);
    const Parola* p =
        std::lower_bound(std::begin(Parole), fine, nome,
                         [](const Parola& a, std::string_view b) { return a.Nome < b; });
    if (p != fine && p->Nome == nome) return p;
    return std::binary_search(std::begin(Destinazioni), std::end(Destinazioni), nome) ? &salta
                                                                                      : nullptr;
}

enum class Destinazione : uint8_t { Testo, Salta, TabellaFont };

struct Stato {
    Destinazione Dest = Destinazione::Testo;
    int Uc = 1;    // characters of fallback after a \u
    int Font = -1; // -1: the document's default font
};

bool Lettera(unsigned char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
}
bool Cifra(unsigned char c) {
    return c >= '0' && c <= '9';
}
int Esadecimale(unsigned char c) {
    if (Cifra(c)) return c - '0';
    if (c >= 'a' && c <= 'f') return c - 'a' + 10;
    if (c >= 'A' && c <= 'F') return c - 'A' + 10;
    return -1;
}

// One pass over the bytes with an explicit stack of groups: no recursion, so
// the depth of a document costs memory we bound, never the program's stack.
class Lettore {
public:
    explicit Lettore(const QByteArray& dati)
        : d(reinterpret_cast<const unsigned char*>(dati.constData())), n(dati.size()) {
        testo.reserve(size_t(n));
    }
    QString Leggi();

private:
    void ParolaDiControllo();
    void SimboloDiControllo(unsigned char c);
    void Agisci(std::string_view nome, bool conParametro, int64_t parametro);
    void Byte(unsigned char b);
    void Unicode(int64_t valore);
    void Scrivi(char16_t c);
    void Metti(char16_t c);
    void Svuota();
    void Concludi();
    bool InTesto() const { return pila.back().Dest == Destinazione::Testo; }
    int PaginaCorrente() const;
    Stato& Gruppo() { return pila.back(); }

    const unsigned char* d;
    qsizetype n;
    qsizetype i = 0;
    std::vector<Stato> pila;
    std::u16string testo;
    int paginaDocumento = 1252;
    int fontPredefinito = 0;
    int fontInTabella = -1;
    std::unordered_map<int, int> paginaFont; // font number: code page, 0 = the document's
    int64_t daSaltare = 0;                   // fallback characters still to pass over
    char16_t altaSospesa = 0;                // high surrogate waiting for its low half
    std::string byteSospesi;                 // bytes of a double-byte page waiting
    int paginaSospesa = 0;
    std::unordered_map<int, std::unique_ptr<QStringDecoder>> doppie;
};

QString Lettore::Leggi() {
    if (n < 5 || std::string_view(reinterpret_cast<const char*>(d), 5) != "{\\rtf")
        Malformato("il documento non comincia con {\\rtf");
    // Word processors write data after the document's closing brace: groups
    // of their own, a last brace. What the top group held is the document;
    // what follows is read only to learn whether it holds text, which would be
    // a second document and is refused.
    bool chiuso = false;
    size_t fineDocumento = 0;
    const auto codaSenzaTesto = [&] {
        Concludi();
        for (size_t k = fineDocumento; k < testo.size(); ++k)
            if (testo[k] != u' ' && testo[k] != u'\r' && testo[k] != u'\t')
                Malformato("un secondo documento con testo dopo la fine del primo");
        testo.resize(fineDocumento);
    };
    while (i < n) {
        const unsigned char c = d[i];
        if (chiuso && pila.empty()) {
            // Between the groups after the end: padding, a signature, a brace of
            // too many; a control word there opens a group of its own.
            if (c == '\\') pila.push_back(Stato{});
            if (c != '{' && c != '\\') {
                ++i;
                continue;
            }
        }
        switch (c) {
        case '{':
            Svuota();
            if (int(pila.size()) >= ProfonditaMassimaRtf)
                Malformato("gruppi annidati troppo a fondo");
            pila.push_back(pila.empty() ? Stato{} : pila.back());
            daSaltare = 0;
            ++i;
            break;
        case '}':
            Svuota();
            pila.pop_back();
            daSaltare = 0;
            ++i;
            if (pila.empty()) {
                if (chiuso) {
                    codaSenzaTesto();
                } else {
                    Concludi();
                    chiuso = true;
                    fineDocumento = testo.size();
                }
            }
            break;
        case '\\':
            ParolaDiControllo();
            break;
        case '\r':
        case '\n':
            ++i;
            break;
        default:
            ++i;
            if (c < 0x20 && c != '\t') break; // control bytes are no text, as line ends
            if (daSaltare > 0) {
                --daSaltare;
            } else if (InTesto()) {
                if (c < 0x80 && byteSospesi.empty())
                    Scrivi(c);
                else
                    Byte(c);
            }
            break;
        }
    }
    if (!chiuso) Malformato("documento troncato: mancano parentesi di chiusura");
    // A group after the end cut short is still looked at for text.
    codaSenzaTesto();
    return QString(reinterpret_cast<const QChar*>(testo.data()), qsizetype(fineDocumento));
}

void Lettore::ParolaDiControllo() {
    if (i + 1 >= n) Malformato("barra rovescia alla fine del documento");
    const unsigned char c = d[i + 1];
    if (!Lettera(c)) {
        i += 2;
        SimboloDiControllo(c);
        return;
    }
    qsizetype j = i + 1;
    while (j < n && Lettera(d[j]))
        ++j;
    if (j - i - 1 > 32) Malformato("parola di controllo troppo lunga");
    const std::string_view nome(reinterpret_cast<const char*>(d + i + 1), size_t(j - i - 1));
    const bool negativo = j + 1 < n && d[j] == '-' && Cifra(d[j + 1]);
    if (negativo) ++j;
    const qsizetype inizioCifre = j;
    int64_t parametro = 0;
    for (; j < n && Cifra(d[j]); ++j) {
        if (j - inizioCifre >= 10) Malformato("parametro numerico troppo lungo");
        parametro = parametro * 10 + (d[j] - '0');
    }
    const bool conParametro = j > inizioCifre;
    if (negativo) parametro = -parametro;
    if (j < n && d[j] == ' ') ++j; // the blank that ends a word belongs to it
    i = j;
    Agisci(nome, conParametro, parametro);
}

void Lettore::SimboloDiControllo(unsigned char c) {
    if (c == '\'') {
        if (i + 2 > n) Malformato("carattere esadecimale troncato");
        const int alto = Esadecimale(d[i]);
        const int basso = Esadecimale(d[i + 1]);
        if (alto < 0 || basso < 0) Malformato("carattere esadecimale non valido");
        i += 2;
        if (daSaltare > 0)
            --daSaltare;
        else if (InTesto())
            Byte(static_cast<unsigned char>(alto * 16 + basso));
        return;
    }
    if (c == '*') { // a destination the reader may pass over: no reader of ours needs one
        Gruppo().Dest = Destinazione::Salta;
        return;
    }
    if (daSaltare > 0) {
        --daSaltare;
        return;
    }
    if (!InTesto()) return;
    switch (c) {
    case '\\':
    case '{':
    case '}':
        Scrivi(c);
        break;
    case '~':
        Scrivi(u'\u00A0');
        break;
    case '_':
        Scrivi(u'\u2011');
        break;
    case '-': // the optional hyphen: shown only where the line breaks
        Scrivi(u'\u00AD');
        break;
    case '\t':
        Scrivi(u'\t');
        break;
    case '\r':
    case '\n': // a backslash before a line end is a paragraph
        Scrivi(u'\r');
        break;
    default: // "\:" index entry, "\|" formula: nothing to see
        break;
    }
}

int Intero(int64_t valore) {
    return int(std::clamp<int64_t>(valore, -1000000000, 1000000000));
}

void Lettore::Agisci(std::string_view nome, bool conParametro, int64_t parametro) {
    const Parola* p = CercaParola(nome);
    if (p != nullptr && p->Cosa == Azione::Bin) {
        // Binary data is passed over by its count, even inside a skipped group.
        if (!conParametro || parametro < 0) Malformato("dati binari senza lunghezza valida");
        if (parametro > n - i) Malformato("dati binari oltre la fine del documento");
        i += qsizetype(parametro);
        if (daSaltare > 0) --daSaltare;
        return;
    }
    if (daSaltare > 0) {
        --daSaltare;
        return;
    }
    if (p == nullptr) return;
    Stato& s = Gruppo();
    switch (p->Cosa) {
    case Azione::Carattere:
        if (InTesto()) Scrivi(p->Carattere);
        break;
    case Azione::Salta:
        s.Dest = Destinazione::Salta;
        break;
    case Azione::TabellaFont:
        if (s.Dest == Destinazione::Testo) s.Dest = Destinazione::TabellaFont;
        break;
    case Azione::Unicode:
        if (InTesto() && conParametro) Unicode(parametro);
        daSaltare = s.Uc;
        break;
    case Azione::Uc:
        s.Uc = conParametro ? int(std::clamp<int64_t>(parametro, 0, 0xFFFF)) : 1;
        break;
    case Azione::AnsiCpg:
        paginaDocumento = PaginaNota(parametro) ? int(parametro) : 1252;
        break;
    case Azione::Ansi:
        paginaDocumento = 1252;
        break;
    case Azione::Mac:
        paginaDocumento = 10000;
        break;
    case Azione::Pc:
        paginaDocumento = 437;
        break;
    case Azione::Pca:
        paginaDocumento = 850;
        break;
    case Azione::Deff:
        fontPredefinito = Intero(parametro);
        break;
    case Azione::F:
        if (s.Dest == Destinazione::TabellaFont)
            fontInTabella = Intero(parametro);
        else
            s.Font = Intero(parametro);
        break;
    case Azione::FCharset:
    case Azione::Cpg:
        if (s.Dest == Destinazione::TabellaFont && fontInTabella >= 0) {
            const int pagina = p->Cosa == Azione::Cpg ? (PaginaNota(parametro) ? int(parametro) : 0)
                                                      : PaginaDaCharset(Intero(parametro));
            if (paginaFont.size() >= 10000 && !paginaFont.contains(fontInTabella))
                Malformato("troppi font nella tabella dei font");
            paginaFont[fontInTabella] = pagina;
        }
        break;
    case Azione::Plain:
        s.Font = -1;
        break;
    case Azione::Bin:
        break;
    }
}

int Lettore::PaginaCorrente() const {
    const int font = pila.back().Font >= 0 ? pila.back().Font : fontPredefinito;
    const auto trovato = paginaFont.find(font);
    return trovato != paginaFont.end() && trovato->second != 0 ? trovato->second : paginaDocumento;
}

void Lettore::Byte(unsigned char b) {
    const int pagina = PaginaCorrente();
    if (PaginaDoppia(pagina)) {
        // A character of two bytes may come as two escapes: gather the run.
        if (!byteSospesi.empty() && pagina != paginaSospesa) Svuota();
        paginaSospesa = pagina;
        byteSospesi.push_back(char(b));
        return;
    }
    Svuota();
    Metti(b < 0x80 ? char16_t(b) : TabellaPagina(pagina)[b - 0x80]);
}

void Lettore::Unicode(int64_t valore) {
    if (valore < 0) valore += 65536;
    if (valore == 0) return;
    if (valore < 0 || valore > 0x10FFFF) {
        Scrivi(u'\uFFFD');
    } else if (valore > 0xFFFF) {
        Scrivi(QChar::highSurrogate(char32_t(valore)));
        Scrivi(QChar::lowSurrogate(char32_t(valore)));
    } else {
        Scrivi(char16_t(valore));
    }
}

void Lettore::Scrivi(char16_t c) {
    Svuota();
    Metti(c);
}

// The two halves of a character beyond 0xFFFF come as two \u: a half without
// its partner is no character and becomes the replacement mark.
void Lettore::Metti(char16_t c) {
    if (altaSospesa != 0) {
        if (QChar::isLowSurrogate(c)) {
            testo.push_back(altaSospesa);
            testo.push_back(c);
            altaSospesa = 0;
            return;
        }
        testo.push_back(u'\uFFFD');
        altaSospesa = 0;
    }
    if (QChar::isHighSurrogate(c))
        altaSospesa = c;
    else if (QChar::isLowSurrogate(c))
        testo.push_back(u'\uFFFD');
    else if (c != 0)
        testo.push_back(c);
}

void Lettore::Svuota() {
    if (byteSospesi.empty()) return;
    auto& decodifica = doppie[paginaSospesa];
    if (!decodifica)
        decodifica = std::make_unique<QStringDecoder>(NomePagina(paginaSospesa).constData(),
                                                      QStringDecoder::Flag::Stateless);
    if (decodifica->isValid()) {
        const QString parte =
            (*decodifica)(QByteArrayView(byteSospesi.data(), qsizetype(byteSospesi.size())));
        for (const QChar c : parte)
            Metti(c.unicode());
    } else {
        for (const char b : byteSospesi)
            Metti(static_cast<unsigned char>(b) < 0x80 ? char16_t(b) : u'\uFFFD');
    }
    byteSospesi.clear();
}

void Lettore::Concludi() {
    Svuota();
    if (altaSospesa != 0) testo.push_back(u'\uFFFD');
    altaSospesa = 0;
}

} // namespace

QString TestoDaRtf(const QByteArray& dati) {
    return Lettore(dati).Leggi();
}

QString LeggiFileRtf(const QString& percorso) {
    QFile file(percorso);
    if (!file.exists()) throw ErroreFileAssente(percorso);
    // A pipe or a device named like a text would wait for ever.
    if (!QFileInfo(percorso).isDir() && !FileRegolare(percorso))
        throw ErroreZanto{321, QStringLiteral("Formato di file non valido: ") + percorso};
    if (!file.open(QIODevice::ReadOnly))
        throw ErroreFile(file.error(), percorso, file.errorString());
    // 7 is the run-time's "out of memory": a file this big is no text for a drawing,
    // and we refuse it before reading it. Read one byte beyond the bound, for files
    // whose size the system does not know in advance.
    const auto troppoGrande = [&] {
        return ErroreZanto{7, QStringLiteral("Memoria esaurita: il file ") + percorso +
                                  QStringLiteral(" supera i 16 MB")};
    };
    if (file.size() > DimensioneMassimaRtf) throw troppoGrande();
    const QByteArray dati = file.read(DimensioneMassimaRtf + 1);
    if (file.error() != QFileDevice::NoError)
        throw ErroreFile(QFileDevice::ReadError, percorso, file.errorString());
    if (dati.size() > DimensioneMassimaRtf) throw troppoGrande();
    return TestoDaRtf(dati);
}
