// The house: a one-switch user in mode 1, dwell 1000 ms, on the virtual
// clock, from the main menu with a folder active: a rectangle bent into place
// by its two corners, its inside filled red, "casa" written under it, the
// drawing saved as "casa". Presses and seconds, with a reaction time of 0 and
// of 400 ms; the word alone; and the mean reach of the 33 commands of the
// drawing screen from its ring's start. The archive is read back at the end:
// a house that did not come out gives no figures and a non-zero exit.
#include "Misura.h"
#include "UtenteUnTasto.h"

#include "app/MenuGenerale.h"
#include "archive/Archivi.h"
#include "archive/ArchivioAzioni.h"
#include "base/CartellaAttiva.h"
#include "base/Configurazione.h"
#include "base/Misure.h"
#include "drawing/AmbienteDisegno.h"
#include "drawing/CodiciComando.h"
#include "input/QuadroMessaggi.h"
#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"
#include "panels/QuadroSceltaColore1.h"
#include "panels/QuadroSceltaDirezione.h"
#include "panels/QuadroScriviTesto.h"
#include "support/AmbienteProva.h"

#include <QApplication>
#include <QSqlDatabase>
#include <QSqlQuery>

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <typeinfo>
#include <vector>

namespace {

constexpr int32_t Rosso = 0x0000FF; // as the program keeps colours
const QString Parola = QStringLiteral("casa");
constexpr int64_t Limite = 3 * 3600 * 1000;

struct Punto {
    int x = 0, y = 0;
};

// The corners the house asks for, in twips of the canvas.
Punto Angolo1() {
    return {Twips(200), Twips(150)};
}
Punto Angolo2() {
    return {Twips(500), Twips(400)};
}

[[noreturn]] void Fallisci(const QString& perche) {
    std::fflush(stdout);
    std::fprintf(stderr, "bench_casa: %s\n", qPrintable(perche));
    std::_Exit(1);
}

Bersaglio SulTasto(FormScansione* f, int16_t tasto) {
    return Bersaglio::Quando([f, tasto] {
        return FormScansione::InPrimoPiano() == f && f->Motore.TastoCorrente == tasto;
    });
}

const RecordAzione* AzioneDi(int32_t tipo) {
    for (int32_t i = 1; i <= NumeroAzioni; ++i)
        if (Azioni[i].TipoAzione == tipo) return &Azioni[i];
    return nullptr;
}

// How far the point the open command moves is from where the house wants it.
Punto Scarto() {
    const RecordAzione& e = ElementoInCostruzione;
    const RecordAzione* r = AzioneDi(TipiAzione::Rettangolo);
    switch (ComandoModifica) {
    case TastoDisegno::ModificaGrandezza1:
        return {Angolo1().x - e.XInizio, Angolo1().y - e.YInizio};
    case TastoDisegno::ModificaGrandezza2:
        return {Angolo2().x - e.XFine, Angolo2().y - e.YFine};
    case TastoDisegno::ColoraZona: {
        // Anywhere well inside the rectangle.
        const int margine = Twips(20);
        const int x = std::clamp(int(e.XCentro), r->XInizio + margine, r->XFine - margine);
        const int y = std::clamp(int(e.YCentro), r->YInizio + margine, r->YFine - margine);
        return {x - int(e.XCentro), y - int(e.YCentro)};
    }
    case TastoDisegno::MuoveElementoAttivo: {
        // The words under the rectangle, a little apart, and not beyond its sides.
        const bool sotto = e.XInizio >= r->XInizio && e.XFine <= r->XFine;
        const int dx = sotto ? 0 : (r->XInizio + r->XFine - e.XInizio - e.XFine) / 2;
        return {dx, r->YFine + Twips(10) - e.YInizio};
    }
    default:
        return {};
    }
}

bool Vicino(int d) {
    return std::abs(d) * 2 <= PassoSpostamento;
}

// The direction panel: the way still to go, or the end.
Bersaglio Direzione(QuadroSceltaDirezione* q) {
    const Punto d = Scarto();
    int16_t scelta = 5;
    if (!Vicino(d.x))
        scelta = d.x < 0 ? 1 : 2;
    else if (!Vicino(d.y))
        scelta = d.y < 0 ? 3 : 4;
    return SulTasto(q, int16_t(100 + scelta));
}

// A walk under way: stop when the point is there on its axis, or has passed it.
Bersaglio Cammino() {
    return Bersaglio::Quando([] {
        const Punto d = Scarto();
        switch (DirezioneScelta) {
        case 1:
            return Vicino(d.x) || d.x > 0;
        case 2:
            return Vicino(d.x) || d.x < 0;
        case 3:
            return Vicino(d.y) || d.y > 0;
        case 4:
            return Vicino(d.y) || d.y < 0;
        default:
            return true;
        }
    });
}

// The on-screen keyboard: `voluta` written, in its case, then confirmed.
Bersaglio Tastiera(QuadroScriviTesto* q, const QString& voluta) {
    QString scritto = q->Testo().Testo();
    scritto.remove(u'_');
    const bool lettere = q->TastieraAttiva() == 1;
    auto tasto = [q, lettere](int16_t letterale, int16_t funzione) -> Bersaglio {
        if (lettere) return SulTasto(q, letterale);
        return Bersaglio::Quando([q, funzione] {
            return FormScansione::InPrimoPiano() == q && q->TastoFunzioneCorrente() == funzione;
        });
    };
    constexpr int16_t Fn = 166;
    if (scritto == voluta) return lettere ? tasto(Fn, 0) : tasto(0, 101);
    if (!voluta.startsWith(scritto)) Fallisci(QStringLiteral("testo sbagliato: ") + scritto);
    const QChar c = voluta.at(scritto.size());
    const bool minuscola = c.isLower();
    if (c.isLetter() && minuscola != (q->MaiuscoleMinuscole == 2))
        return lettere ? tasto(Fn, 0) : tasto(0, 108);
    if (!lettere) return tasto(0, 102);
    if (c == u' ') return tasto(135, 0);
    const int posto = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZ").indexOf(c.toUpper());
    if (posto < 0) Fallisci(QStringLiteral("carattere senza tasto: ") + c);
    return tasto(int16_t(101 + posto), 0);
}

// The drawing screen with nothing walking: the next command of the house.
Bersaglio Schermo(AmbienteDisegno* a) {
    using namespace TastoDisegno;
    const RecordAzione& e = ElementoInCostruzione;
    if (AzioneDi(TipiAzione::Rettangolo) == nullptr) {
        if (PrimitivaAttiva != PrimitivaRettangolo) return SulTasto(a, PrimitivaRettangolo);
        if (!Vicino(Angolo1().x - e.XInizio) || !Vicino(Angolo1().y - e.YInizio))
            return SulTasto(a, ModificaGrandezza1);
        if (!Vicino(Angolo2().x - e.XFine) || !Vicino(Angolo2().y - e.YFine))
            return SulTasto(a, ModificaGrandezza2);
        return SulTasto(a, Fissa);
    }
    if (AzioneDi(TipiAzione::Colorazione) == nullptr) {
        if (PrimitivaAttiva == ColoraZona) return SulTasto(a, Fissa);
        if (ColoreZonaCorrente != Rosso) return SulTasto(a, SceltaColoreZona);
        return SulTasto(a, ColoraZona);
    }
    if (AzioneDi(TipiAzione::Testo) == nullptr)
        return SulTasto(a, PrimitivaAttiva == ScritturaTesti ? Fissa : ScritturaTesti);
    if (NomeDisegnoCorrente != Parola) return SulTasto(a, SalvaDisegno);
    return Bersaglio::Finito();
}

struct Misure {
    int Pressioni = 0;
    double Secondi = 0;
};

// The whole house from the main menu; the word measured on the way.
struct Casa {
    Misure Tutta, SoloParola;
    int pressioniParola = -1;
    int64_t inizioParola = 0;

    Bersaglio Politica(UtenteUnTasto& u) {
        FormScansione* f = FormScansione::InPrimoPiano();
        if (auto* m = dynamic_cast<MenuGenerale*>(f)) return SulTasto(m, 101);
        if (auto* q = dynamic_cast<QuadroMessaggi*>(f))
            return SulTasto(q, TipoQuadroMessaggi == 1 ? 102 : 101);
        if (auto* q = dynamic_cast<QuadroSceltaColore1*>(f))
            return Bersaglio::Quando([q] {
                return FormScansione::InPrimoPiano() == q &&
                       q->ColoreTasto(q->Motore.TastoCorrente) == Rosso;
            });
        if (auto* q = dynamic_cast<QuadroSceltaDirezione*>(f)) return Direzione(q);
        if (auto* q = dynamic_cast<QuadroScriviTesto*>(f)) {
            const bool testo = AzioneDi(TipiAzione::Testo) == nullptr;
            if (testo && pressioniParola < 0) {
                pressioniParola = u.Pressioni;
                inizioParola = u.Adesso();
            }
            Bersaglio b = Tastiera(q, Parola);
            if (testo && q->TastieraAttiva() == 2 &&
                QString(q->Testo().Testo()).remove(u'_') == Parola)
                b.AlPremere = [this, &u] {
                    SoloParola = {u.Pressioni - pressioniParola,
                                  double(u.Adesso() - inizioParola) / 1000.0};
                };
            return b;
        }
        if (auto* a = dynamic_cast<AmbienteDisegno*>(f)) {
            if (ComandoModifica > 0 && MovimentoAttivo == 1) return Cammino();
            return Schermo(a);
        }
        Fallisci(QStringLiteral("davanti un form che l'utente non conosce"));
    }
};

// The drawing "casa" as the archive holds it, checked against the task.
void VerificaArchivio() {
    QSqlQuery q(QSqlDatabase::database(ArchivioDisegni));
    q.prepare(QStringLiteral("SELECT CodiceDisegno FROM TabDisegni WHERE NomeDisegno = ? "
                             "AND CodiceCartella = ?"));
    q.addBindValue(Parola);
    q.addBindValue(CodiceCartellaAttiva);
    if (!q.exec() || !q.next()) Fallisci(QStringLiteral("nessun disegno «casa» nell'archivio"));
    QList<RecordAzione> lista;
    int32_t numero = 0;
    LeggiAzioniDisegno(q.value(0).toInt(), lista, numero);
    if (numero != 3) Fallisci(QStringLiteral("azioni salvate: %1, attese 3").arg(numero));
    const RecordAzione& r = lista[1];
    const RecordAzione& z = lista[2];
    const RecordAzione& t = lista[3];
    if (qEnvironmentVariableIsSet("ZANTO_BENCH_DETTAGLI"))
        for (int i = 1; i <= numero; ++i)
            std::printf("azione %d: tipo %d (%d, %d) (%d, %d) centro (%.0f, %.0f) zona %06X %s\n",
                        i, lista[i].TipoAzione, lista[i].XInizio, lista[i].YInizio, lista[i].XFine,
                        lista[i].YFine, double(lista[i].XCentro), double(lista[i].YCentro),
                        unsigned(lista[i].ColZona), qPrintable(lista[i].Testo));
    const int passo = PassoSpostamento;
    auto entro = [passo](int a, int b) { return std::abs(a - b) <= passo; };
    if (r.TipoAzione != TipiAzione::Rettangolo || !entro(r.XInizio, Angolo1().x) ||
        !entro(r.YInizio, Angolo1().y) || !entro(r.XFine, Angolo2().x) ||
        !entro(r.YFine, Angolo2().y))
        Fallisci(QStringLiteral("il rettangolo non ha gli angoli chiesti: (%1, %2) (%3, %4)")
                     .arg(r.XInizio)
                     .arg(r.YInizio)
                     .arg(r.XFine)
                     .arg(r.YFine));
    if (z.TipoAzione != TipiAzione::Colorazione || z.ColZona != Rosso ||
        z.XCentro <= float(r.XInizio) || z.XCentro >= float(r.XFine) ||
        z.YCentro <= float(r.YInizio) || z.YCentro >= float(r.YFine))
        Fallisci(QStringLiteral("manca la colorazione rossa dentro il rettangolo"));
    if (t.TipoAzione != TipiAzione::Testo || t.Testo != Parola || t.YInizio < r.YFine ||
        t.XFine < r.XInizio || t.XInizio > r.XFine)
        Fallisci(QStringLiteral("manca la scritta «casa» sotto il rettangolo"));
}

// A way of scanning: its name in the figures and the settings it takes. Each
// further way joins the list, alone and with the others, and is measured on
// the same task in the same run.
struct Scansione {
    const char* Nome;
    std::function<void()> Imposta;
};

// One world: a data folder installed with its archives, the clock, mode 1,
// and the way of scanning.
struct Mondo {
    AmbienteProva amb;
    OrologioAttese orologio;
    explicit Mondo(const Scansione& s) {
        amb.ApriArchivi();
        ModalitàFunzionamento = 1;
        TempoLatenzaScansione = 1000;
        s.Imposta();
    }
    ~Mondo() {
        DistruggiAmbienteDisegno();
        DistruggiMenùGenerale();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
};

Misure Controlla(UtenteUnTasto& u, bool riuscito, int64_t inizio) {
    if (!riuscito) {
        FormScansione* f = FormScansione::InPrimoPiano();
        Fallisci(QStringLiteral("l'utente si è fermato (%1), davanti %2 sul tasto %3")
                     .arg(u.Bloccato())
                     .arg(f != nullptr ? QString::fromLatin1(typeid(*f).name()) : QString())
                     .arg(f != nullptr ? f->Motore.TastoCorrente : 0));
    }
    return {u.Pressioni, double(u.Adesso() - inizio) / 1000.0};
}

Casa LaCasa(const Scansione& s, int64_t reazione) {
    Mondo m(s);
    CaricaMenùGenerale();
    QCoreApplication::processEvents();
    if (CodiceCartellaAttiva == 0) Fallisci(QStringLiteral("nessuna cartella attiva"));
    Casa casa;
    UtenteUnTasto u(m.orologio, reazione);
    const int64_t inizio = u.Adesso();
    const bool riuscito = u.Esegui([&] { return casa.Politica(u); }, Limite);
    casa.Tutta = Controlla(u, riuscito, inizio);
    if (casa.SoloParola.Pressioni == 0) Fallisci(QStringLiteral("la parola non è stata misurata"));
    VerificaArchivio();
    return casa;
}

// Each command of the drawing screen reached from a screen just opened.
Misure ComandoMedio(const Scansione& s, int64_t reazione) {
    Mondo m(s);
    CaricaMenùGenerale();
    QCoreApplication::processEvents();
    DistruggiMenùGenerale();
    Misure somma;
    for (int16_t c = TastoDisegno::Primo; c <= TastoDisegno::Ultimo; ++c) {
        AmbienteDisegno* a = CaricaAmbienteDisegno();
        QCoreApplication::processEvents();
        UtenteUnTasto u(m.orologio, reazione);
        const int64_t inizio = u.Adesso();
        const bool riuscito = u.Esegui(
            [a, c] {
                Bersaglio b = SulTasto(a, c);
                b.SoloRaggiungi = true;
                return b;
            },
            Limite);
        const Misure una = Controlla(u, riuscito, inizio);
        somma.Pressioni += una.Pressioni;
        somma.Secondi += una.Secondi;
        DistruggiAmbienteDisegno();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }
    return somma;
}

void Riporta(const char* nome, int pressioni, double secondi) {
    std::printf("%s_pressioni: %d presses\n", nome, pressioni);
    Stampa((std::string(nome) + "_secondi").c_str(), secondi, "s");
}

} // namespace

int main(int argc, char* argv[]) {
    if (qEnvironmentVariableIsEmpty("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication app(argc, argv);
    const std::vector<Scansione> scansioni = {{"definita", [] {}},
                                              {"ripresa", [] { RipresaSuccessiva = 1; }}};
    for (const Scansione& s : scansioni)
        for (const int64_t reazione : {0, 400}) {
            const Casa casa = LaCasa(s, reazione);
            const std::string coda =
                std::string("_") + s.Nome + "_reazione_" + std::to_string(reazione);
            Riporta(("casa" + coda).c_str(), casa.Tutta.Pressioni, casa.Tutta.Secondi);
            Riporta(("parola" + coda).c_str(), casa.SoloParola.Pressioni, casa.SoloParola.Secondi);
            const Misure comandi = ComandoMedio(s, reazione);
            const double n = TastoDisegno::Numero;
            std::printf("comando_medio%s_pressioni: %.3f presses\n", coda.c_str(),
                        comandi.Pressioni / n);
            Stampa(("comando_medio" + coda + "_secondi").c_str(), comandi.Secondi / n, "s");
        }
    return 0;
}
