#include "printing/ServizioStampa.h"

#include "base/GestioneErrori.h"
#include "printing/Stampe.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QPageLayout>
#include <QPainter>
#include <QPdfWriter>
#include <QTemporaryFile>

#include <cups/cups.h>

#include <mutex>
#include <thread>

namespace {

// The answers' way back to the screen's thread, gone with the application: a
// worker that ends after it posts nothing.
std::mutex Guardia;
QObject* Ricevitore = nullptr;

void PreparaRicevitore() {
    std::lock_guard<std::mutex> chiave(Guardia);
    if (Ricevitore != nullptr || QCoreApplication::instance() == nullptr) return;
    Ricevitore = new QObject(QCoreApplication::instance());
    const auto chiudi = [] {
        std::lock_guard<std::mutex> chiave(Guardia);
        Ricevitore = nullptr;
    };
    // The end of the event loop comes before the application takes its fonts away.
    QObject::connect(QCoreApplication::instance(), &QCoreApplication::aboutToQuit, Ricevitore,
                     chiudi);
    QObject::connect(Ricevitore, &QObject::destroyed, chiudi);
}

void Consegna(std::function<void()> azione) {
    std::lock_guard<std::mutex> chiave(Guardia);
    if (Ricevitore == nullptr) return;
    QMetaObject::invokeMethod(
        Ricevitore, [azione = std::move(azione)] { EseguiProtetto(azione); }, Qt::QueuedConnection);
}

// One connection to the print service; each wait on it ends after `attesa`.
class Connessione {
public:
    explicit Connessione(int attesa)
        : http_(httpConnect2(cupsServer(), ippPort(), nullptr, AF_UNSPEC, cupsEncryption(), 1,
                             attesa, nullptr)) {
        if (http_ != nullptr) httpSetTimeout(http_, attesa / 1000.0, nullptr, nullptr);
    }
    ~Connessione() {
        if (http_ != nullptr) httpClose(http_);
    }
    Connessione(const Connessione&) = delete;
    Connessione& operator=(const Connessione&) = delete;
    http_t* Http() const { return http_; }

private:
    http_t* http_;
};

QString NomeDi(const cups_dest_t& d) {
    QString nome = QString::fromUtf8(d.name);
    if (d.instance != nullptr) nome += u'/' + QString::fromUtf8(d.instance);
    return nome;
}

// An empty answer that is the service's "nothing here", not a silence.
bool Risposto() {
    const ipp_status_t stato = cupsLastError();
    return stato <= IPP_STATUS_OK_EVENTS_COMPLETE || stato == IPP_STATUS_ERROR_NOT_FOUND;
}

RispostaStampanti LeggiStampanti(int attesa) {
    RispostaStampanti risposta;
    Connessione servizio(attesa);
    if (servizio.Http() == nullptr) return risposta;
    cups_dest_t* elenco = nullptr;
    const int quante = cupsGetDests2(servizio.Http(), &elenco);
    risposta.Raggiunto = quante > 0 || Risposto();
    for (int i = 0; i < quante; ++i) {
        risposta.Nomi << NomeDi(elenco[i]);
        if (elenco[i].is_default != 0) risposta.Predefinita = NomeDi(elenco[i]);
    }
    cupsFreeDests(quante, elenco);
    return risposta;
}

// The printer by name, or the system's default, or its first printer.
cups_dest_t* TrovaStampante(http_t* http, const QString& nome) {
    if (!nome.isEmpty()) {
        const QByteArray coda = nome.section(u'/', 0, 0).toUtf8();
        const QByteArray istanza = nome.section(u'/', 1).toUtf8();
        return cupsGetNamedDest(http, coda.constData(),
                                istanza.isEmpty() ? nullptr : istanza.constData());
    }
    if (cups_dest_t* predefinita = cupsGetNamedDest(http, nullptr, nullptr)) return predefinita;
    cups_dest_t* elenco = nullptr;
    const int quante = cupsGetDests2(http, &elenco);
    cups_dest_t* prima = nullptr;
    if (quante > 0) cupsCopyDest(&elenco[0], 0, &prima);
    cupsFreeDests(quante, elenco);
    return prima;
}

double Twips(int centesimiDiMm) {
    return centesimiDiMm / 100.0 / 25.4 * 1440.0;
}

// The paper the printer takes for the one asked (the printer's own when it
// has not that one) with its hardware margins, upright.
cups_size_t Carta(http_t* http, cups_dest_t* stampante, bool a3) {
    cups_size_t carta{};
    cups_dinfo_t* info = cupsCopyDestInfo(http, stampante);
    bool trovata = info != nullptr &&
                   cupsGetDestMediaByName(http, stampante, info, a3 ? CUPS_MEDIA_A3 : CUPS_MEDIA_A4,
                                          CUPS_MEDIA_FLAGS_DEFAULT, &carta) != 0;
    if (!trovata && info != nullptr)
        trovata =
            cupsGetDestMediaDefault(http, stampante, info, CUPS_MEDIA_FLAGS_DEFAULT, &carta) != 0;
    if (info != nullptr) cupsFreeDestInfo(info);
    if (!trovata) {
        // A printer that tells nothing of its paper gets the one asked, edge to edge.
        carta = cups_size_t{};
        qstrncpy(carta.media, a3 ? CUPS_MEDIA_A3 : CUPS_MEDIA_A4, sizeof carta.media);
        carta.width = a3 ? 29700 : 21000;
        carta.length = a3 ? 42000 : 29700;
    }
    return carta;
}

// The page into a PDF file for the paper, landscape. Under the guard: the
// application is not taken down while its fonts are in use here.
bool FaiPagina(const QString& file, const LavoroStampa& lavoro, const cups_size_t& carta) {
    std::lock_guard<std::mutex> chiave(Guardia);
    if (Ricevitore == nullptr) return false;
    const QSizeF millimetri(carta.width / 100.0, carta.length / 100.0);
    QPdfWriter pdf(file);
    pdf.setResolution(1200);
    pdf.setTitle(lavoro.TitoloLavoro);
    pdf.setCreator(QStringLiteral("ZANTO"));
    pdf.setPageLayout(QPageLayout(QPageSize(millimetri, QPageSize::Millimeter),
                                  QPageLayout::Landscape, QMarginsF(0, 0, 0, 0)));
    // Which short edge the printer turns to the top is its own: each margin
    // is taken at the larger of the two it may be.
    const double lungo = Twips(std::max(carta.width, carta.length));
    const double corto = Twips(std::min(carta.width, carta.length));
    const double lato = Twips(std::max(carta.top, carta.bottom));
    const double sopra = Twips(std::max(carta.left, carta.right));
    const QRectF stampabile(lato, sopra, lungo - 2 * lato, corto - 2 * sopra);
    QPainter pagina;
    if (!pagina.begin(&pdf)) return false;
    DisegnaPagina(pagina, pdf.resolution(), lavoro.Tela, lavoro.Titolo, stampabile);
    return pagina.end();
}

EsitoStampa Stampa(const LavoroStampa& lavoro, int attesa) {
    EsitoStampa esito;
    esito.Stampante = lavoro.Stampante;
    Connessione servizio(attesa);
    if (servizio.Http() == nullptr) return esito;
    cups_dest_t* stampante = TrovaStampante(servizio.Http(), lavoro.Stampante);
    if (stampante == nullptr) {
        if (Risposto())
            esito.Esito = EsitoStampa::NessunaStampante;
        else
            esito.Motivo = QString::fromUtf8(cupsLastErrorString());
        return esito;
    }
    esito.Stampante = NomeDi(*stampante);
    const QByteArray coda(stampante->name);
    const cups_size_t carta = Carta(servizio.Http(), stampante, lavoro.A3);
    cupsFreeDests(1, stampante);

    QTemporaryFile file(QDir::tempPath() + QStringLiteral("/zanto-stampa-XXXXXX.pdf"));
    if (!file.open()) {
        esito.Esito = EsitoStampa::Rifiutata;
        esito.Motivo = file.errorString();
        return esito;
    }
    file.close();
    if (!FaiPagina(file.fileName(), lavoro, carta)) {
        esito.Esito = EsitoStampa::Rifiutata;
        esito.Motivo = QStringLiteral("la pagina non si può preparare");
        return esito;
    }
    cups_option_t* opzioni = nullptr;
    int quante = cupsAddOption("media", carta.media, 0, &opzioni);
    quante = cupsAddOption("orientation-requested", "4", quante, &opzioni);
    const QByteArray titolo = lavoro.TitoloLavoro.toUtf8();
    const int numero = cupsPrintFile2(servizio.Http(), coda.constData(),
                                      QFile::encodeName(file.fileName()).constData(),
                                      titolo.constData(), quante, opzioni);
    cupsFreeOptions(quante, opzioni);
    if (numero > 0) {
        esito.Esito = EsitoStampa::Accettata;
    } else {
        esito.Esito = EsitoStampa::Rifiutata;
        esito.Motivo = QString::fromUtf8(cupsLastErrorString());
    }
    return esito;
}

} // namespace

void ChiediStampanti(std::function<void(const RispostaStampanti&)> risposta) {
    PreparaRicevitore();
    std::thread([risposta = std::move(risposta), attesa = AttesaServizioStampa] {
        try {
            RispostaStampanti r = LeggiStampanti(attesa);
            Consegna([risposta, r] { risposta(r); });
        } catch (...) {
            Consegna([risposta] { risposta(RispostaStampanti{}); });
        }
    }).detach();
}

void InviaStampa(LavoroStampa lavoro, std::function<void(const EsitoStampa&)> esito) {
    PreparaRicevitore();
    lavoro.Tela = lavoro.Tela.copy();
    std::thread([lavoro = std::move(lavoro), esito = std::move(esito),
                 attesa = AttesaServizioStampa] {
        EsitoStampa e;
        e.Stampante = lavoro.Stampante;
        try {
            e = Stampa(lavoro, attesa);
        } catch (...) {
            e.Esito = EsitoStampa::Rifiutata;
        }
        Consegna([esito, e] { esito(e); });
    }).detach();
}
