// Which button of the drawing screen acts in which state, in the four working
// modes: a button acts where its condition holds and refuses with a beep,
// changing nothing, where it fails. The conditions are read from
// dati/condizioni_tasti.txt, written from the screen's own table of buttons;
// the program is only asked what it does.
#include "app/MenuGenerale.h"
#include "archive/IstruzioniArchivio.h"
#include "base/Bip.h"
#include "base/Configurazione.h"
#include "drawing/AmbienteDisegno.h"
#include "drawing/CondizioniTasti.h"
#include "drawing/GuidaDisegno.h"
#include "model/RecordAzione.h"
#include "model/StatoAmbiente.h"
#include "panels/QuadroScriviTesto.h"
#include "panels/QuadroUndo.h"
#include "support/AmbienteProva.h"
#include "support/Copione.h"
#include "support/OrologioVirtuale.h"

#include <QtTest>

#include <functional>
#include <memory>
#include <optional>

namespace {

// What a condition may look at.
struct Stato {
    const char* Nome;
    int16_t P;                  // PrimitivaAttiva
    int16_t C;                  // ComandoModifica
    int16_t O;                  // OggettoAttivo
    int32_t N;                  // NumeroAzioni
    bool UltimaZona;            // the last action is a fill
    int16_t Attivi;             // NumeroElementiAttivi
    bool Copie;                 // a working copy exists: there is a history to go back to
    bool TestoRiaperto = false; // ElementoRiaperto 1 on a text
};

// What the program shows after a press.
struct Foto {
    int16_t P, C, O;
    int32_t N;
    int16_t Attivi, Riempimento, CopiaSposta;
    QList<RecordAzione> ListaAzioni, ListaAttivi;
    RecordAzione Elemento;
    int Bip;
    int32_t Zona; // the fill colour in use

    static Foto Ora() {
        return {PrimitivaAttiva,      ComandoModifica,       OggettoAttivo, NumeroAzioni,
                NumeroElementiAttivi, RiempimentoCorrente,   CopiaOSposta,  Azioni,
                ElementiAttivi,       ElementoInCostruzione, ContatoreBip,  ColoreZonaCorrente};
    }
    bool StessoStato(const Foto& f) const {
        return P == f.P && C == f.C && O == f.O && N == f.N && Attivi == f.Attivi &&
               Riempimento == f.Riempimento && CopiaSposta == f.CopiaSposta &&
               ListaAzioni == f.ListaAzioni && ListaAttivi == f.ListaAttivi &&
               Elemento == f.Elemento;
    }
};

// What opens above the screen when the button acts. Storia is the undo panel
// and then the question of the message panel; a question or a list is
// answered "no" or left by its last button, the keyboard by its close key.
// The colour panel is answered red.
enum class Pannello {
    Nessuno,
    Direzione,
    Ribaltamenti,
    Storia,
    Domanda,
    Lista,
    Immagini,
    Tastiera,
    Colore,
    Elementi,
    Settaggi
};

using Condizione = std::function<bool(const Stato&)>;
using Effetto = std::function<bool(int16_t tasto, const Foto& prima, const Foto& dopo)>;

struct Riga {
    int16_t Tasto;
    Effetto Fa;
    Pannello Apre = Pannello::Nessuno;
    // The states in which it acts through its panel; elsewhere it acts without one.
    Condizione ApreIn = [](const Stato&) { return true; };
};

const Effetto NonProvato = [](int16_t, const Foto&, const Foto&) { return true; };
const Effetto NienteCambia = [](int16_t, const Foto& p, const Foto& d) { return d.StessoStato(p); };

bool Libero(const Stato& s) {
    return s.C < 1 && s.P < 1;
}

const Effetto ApreElemento = [](int16_t t, const Foto&, const Foto& d) { return d.P == t; };
const Effetto ComandoRosso = [](int16_t t, const Foto&, const Foto& d) { return d.C == t; };

// What each button does when it acts, and the panel it opens; when it acts
// is the data's. 133 is answered "Annulla" and leaves the screen open.
const QList<Riga>& Tabella() {
    static const QList<Riga> tabella = {
        {101, ApreElemento},
        {102, ApreElemento},
        {103, ApreElemento},
        {104, ApreElemento},
        {105, ComandoRosso, Pannello::Direzione},
        {106, ComandoRosso, Pannello::Direzione},
        {107, ComandoRosso, Pannello::Direzione},
        {108, ComandoRosso, Pannello::Direzione},
        {109, ComandoRosso, Pannello::Direzione},
        {110, ComandoRosso, Pannello::Direzione},
        {111, ComandoRosso, Pannello::Direzione},
        {112, ComandoRosso, Pannello::Direzione},
        {113, ComandoRosso, Pannello::Direzione},
        {114, [](int16_t, const Foto&, const Foto& d) { return d.P == 114 && d.C == 114; },
         Pannello::Direzione},
        // Red on the colour panel: the fill colour changes, and nothing else.
        {115,
         [](int16_t, const Foto& p, const Foto& d) {
             return p.Zona != 0x0000FF && d.Zona == 0x0000FF && d.StessoStato(p);
         },
         Pannello::Colore},
        {116, [](int16_t, const Foto& p, const Foto& d) { return d.Riempimento != p.Riempimento; }},
        {117, [](int16_t, const Foto& p,
                 const Foto& d) { return d.P == 0 && (d.N != p.N || d.O != p.O); }},
        // With nothing open it goes back in the history: here to step 0,
        // confirmed, which empties the drawing.
        {118,
         [](int16_t, const Foto& p, const Foto& d) {
             return d.P == 0 && d.O == 0 && !d.StessoStato(p);
         },
         Pannello::Storia, [](const Stato& s) { return s.O != 1 && Libero(s); }},
        {119, NienteCambia, Pannello::Domanda},
        {120, [](int16_t, const Foto&, const Foto& d) { return d.P == 120 && d.C == 113; },
         Pannello::Direzione},
        {121, NienteCambia, Pannello::Elementi},
        {122, [](int16_t, const Foto& p,
                 const Foto& d) { return d.P == 100 + p.ListaAzioni[p.N].TipoAzione; }},
        {123,
         [](int16_t, const Foto& p, const Foto& d) {
             return d.O == 1 && d.ListaAttivi != p.ListaAttivi;
         },
         Pannello::Ribaltamenti},
        // The settings panel, closed at once: nothing changes.
        {124, NienteCambia, Pannello::Settaggi},
        {125, [](int16_t, const Foto&, const Foto& d) { return d.O == 1; }},
        {126, [](int16_t, const Foto& p, const Foto& d) { return d.CopiaSposta != p.CopiaSposta; }},
        {127, [](int16_t, const Foto& p, const Foto& d) { return d.O == 0 && d.N < p.N; }},
        {128, NienteCambia, Pannello::Tastiera},
        {129, NienteCambia, Pannello::Immagini},
        {130, NienteCambia, Pannello::Lista},
        {131, NienteCambia, Pannello::Domanda},
        // The first question of printing, answered "Annulla": nothing changes.
        {132, NienteCambia, Pannello::Domanda},
        {133, NienteCambia, Pannello::Domanda},
    };
    return tabella;
}

// The conditions of the 33 buttons, as the data file gives them.
const QHash<int16_t, CondizioniTasti::Voce>& Dati(QStringList* errori = nullptr) {
    static QStringList letti;
    static const QHash<int16_t, CondizioniTasti::Voce> dati =
        CondizioniTasti::Leggi(QStringLiteral(CONDIZIONI_TASTI), letti);
    if (errori != nullptr) *errori = letti;
    return dati;
}

// Does the button act now, by the data? (The red button, which ends its edit
// command before anything else, is the caller's.)
bool Agisce(int16_t tasto) {
    return Dati().value(tasto).AgisceCon(CondizioniTasti::ValoriOra());
}

// One step of the way to a state: a press, an edit command left open, or an
// edit command opened and ended.
enum class Via { Premi, Apri, ApriEChiudi };
struct Tappa {
    Via Come;
    int16_t Tasto;
};

struct StatoProva {
    Stato S;
    QList<Tappa> Strada;
};

constexpr Tappa P(int16_t t) {
    return {Via::Premi, t};
}
constexpr Tappa A(int16_t t) {
    return {Via::Apri, t};
}
constexpr Tappa AC(int16_t t) {
    return {Via::ApriEChiudi, t};
}

// The states of the screen that its keys can reach now, with the values of
// the three variables that name each.
const QList<StatoProva>& Stati() {
    static const QList<StatoProva> stati = {
        {{"Libero", 0, 0, 0, 0, false, 0, false}, {}},
        {{"Elemento aperto linea", 101, 0, 0, 0, false, 0, false}, {P(101)}},
        {{"Elemento aperto arco", 102, 0, 0, 0, false, 0, false}, {P(102)}},
        {{"Elemento aperto rettangolo", 103, 0, 0, 0, false, 0, false}, {P(103)}},
        {{"Elemento aperto ellisse", 104, 0, 0, 0, false, 0, false}, {P(104)}},
        {{"Elemento in movimento", 101, 106, 0, 0, false, 0, false}, {P(101), A(106)}},
        {{"Libero con un disegno", 0, 0, 0, 1, false, 0, true}, {P(103), P(117)}},
        {{"Zona in movimento", 114, 114, 0, 1, false, 0, true}, {P(103), P(117), A(114)}},
        {{"Zona ferma", 114, 0, 0, 1, false, 0, true}, {P(103), P(117), AC(114)}},
        {{"Libero dopo una zona", 0, 0, 0, 2, true, 0, true}, {P(103), P(117), AC(114), P(117)}},
        {{"Riquadro in movimento", 120, 113, 0, 1, false, 0, true}, {P(103), P(117), A(120)}},
        {{"Riquadro fermo", 120, 0, 0, 1, false, 0, true}, {P(103), P(117), AC(120)}},
        {{"Oggetto", 0, 0, 1, 1, false, 1, true}, {P(103), P(117), AC(120), P(117)}},
        {{"Oggetto in movimento", 0, 112, 1, 1, false, 1, true},
         {P(103), P(117), AC(120), P(117), A(112)}},
        {{"Libero dopo un oggetto", 0, 0, 0, 1, false, 1, true},
         {P(103), P(117), AC(120), P(117), P(118)}},
    };
    return stati;
}

int16_t Successivo(int16_t tasto, int passo) {
    int t = tasto + passo;
    if (t > 133) t = 101;
    if (t < 101) t = 133;
    return static_cast<int16_t>(t);
}

} // namespace

class ProvaTabellaComandi : public QObject {
    Q_OBJECT

    std::unique_ptr<AmbienteProva> amb;
    std::unique_ptr<OrologioVirtuale> orologio;
    AmbienteDisegno* a = nullptr;
    int16_t modo = 4;
    bool pannelloInatteso = false;
    QString pannelloVisto; // the title of the question or list that opened

    // The ring to the button as the mode moves it: on the clock in modes 1
    // and 2 (turned round in mode 2 when that is shorter), by the scan key in
    // mode 3, by the arrows in mode 4.
    void Raggiungi(int16_t tasto) {
        MotoreScansione& m = a->Motore;
        if (modo == 2) {
            const int avanti = (tasto - m.TastoCorrente + 33) % 33;
            const int indietro = (m.TastoCorrente - tasto + 33) % 33;
            const bool girare = m.PassoScansione == 1 ? indietro + 2 < avanti : avanti < indietro;
            if (girare) {
                const int16_t passo = m.PassoScansione;
                QVERIFY(PremiTasto(Qt::Key_Space));
                QCOMPARE(m.PassoScansione, int16_t(-passo));
            }
        }
        for (int giri = 0; m.TastoCorrente != tasto; ++giri) {
            QVERIFY2(giri < 34, "the ring never reaches the button");
            const int16_t da = m.TastoCorrente;
            switch (modo) {
            case 1:
            case 2:
                orologio->Avanza(TempoLatenzaScansione);
                QCOMPARE(m.TastoCorrente, Successivo(da, m.PassoScansione));
                break;
            case 3:
                QVERIFY(PremiTasto(Qt::Key_Space));
                QCOMPARE(m.TastoCorrente, Successivo(da, 1));
                break;
            default: {
                const bool avanti = (tasto - da + 33) % 33 <= 16;
                QVERIFY(PremiTasto(avanti ? Qt::Key_Right : Qt::Key_Left));
                QCOMPARE(m.TastoCorrente, Successivo(da, avanti ? 1 : -1));
                break;
            }
            }
        }
    }

    // The direction panel's ring to "Chiudi" and the choice of it.
    void ChiudiDirezione(Copione& c) {
        c.Esegui([this] {
            FormScansione* f = FormScansione::InPrimoPiano();
            for (int i = 0; f != nullptr && f != a && f->Motore.TastoCorrente != 105 && i < 10;
                 ++i) {
                if (modo == 3)
                    PremiTasto(Qt::Key_Space);
                else
                    orologio->Avanza(TempoLatenzaScansione);
            }
        });
        c.Tasto(Qt::Key_Return);
    }

    // The answer to the panel the button opens, as the table of buttons says.
    void Rispondi(Copione& c, Pannello apre) {
        if (apre == Pannello::Tastiera)
            c.Esegui([this] {
                auto* k = dynamic_cast<QuadroScriviTesto*>(FormScansione::InPrimoPiano());
                if (k == nullptr) return;
                pannelloVisto = k->windowTitle();
                k->ClickTasto(166); // to the function keys
                k->ClickTasto(107); // "close"
            });
        if (apre == Pannello::Domanda || apre == Pannello::Lista || apre == Pannello::Immagini ||
            apre == Pannello::Elementi)
            c.Esegui([this] {
                FormScansione* f = FormScansione::InPrimoPiano();
                if (f == nullptr || f == a) return;
                pannelloVisto = f->windowTitle();
                f->ClickTasto(f->Motore.Ultimo);
            });
        if (apre == Pannello::Settaggi)
            c.Esegui([this] {
                FormScansione* f = FormScansione::InPrimoPiano();
                if (f == nullptr || f == a) return;
                pannelloVisto = f->objectName();
                f->ClickTasto(140);
            });
        if (apre == Pannello::Colore)
            c.Esegui([this] {
                FormScansione* f = FormScansione::InPrimoPiano();
                if (f == nullptr || f == a) return;
                pannelloVisto = f->windowTitle();
                f->ClickTasto(104);
            });
        if (apre == Pannello::Storia) {
            // One step of the mode at a time: to step 0 on the time line, then
            // from "Annulla" to "OK" on the question.
            const auto passo = [this] {
                if (modo == 4)
                    PremiTasto(Qt::Key_Left);
                else if (modo == 3)
                    PremiTasto(Qt::Key_Space);
                else
                    orologio->Avanza(TempoLatenzaScansione);
            };
            c.Esegui([passo] {
                for (int i = 0; i < 40 && PassoUndo != 0; ++i)
                    passo();
            });
            c.Tasto(Qt::Key_Return);
            c.Esegui(passo);
            c.Tasto(Qt::Key_Return);
        }
    }

    // Fires the button the way the state lets a user reach it: by the ring
    // and the choice key (in mode 4 Enter on the ring), or, while an edit
    // command is open and holds the keys, by the mouse for any button but the
    // red one. `dentro` sees the screen while the direction panel is up.
    void Spara(int16_t tasto, Pannello apre, bool lasciaAperto, std::function<void()> dentro = {}) {
        const bool rosso = ComandoModifica > 0 && tasto == ComandoModifica;
        const bool mouse = ComandoModifica > 0 && !rosso;
        if (!mouse) {
            Raggiungi(tasto);
            if (QTest::currentTestFailed()) return;
        }
        Copione c(*orologio);
        if (mouse)
            c.Esegui([this, tasto] { QTest::mouseClick(a->Tasti.value(tasto), Qt::LeftButton); });
        else
            c.Tasto(Qt::Key_Return);
        if (rosso && modo == 3) ChiudiDirezione(c); // the panel asks again: it ends
        if (apre == Pannello::Ribaltamenti) c.Tasto(Qt::Key_Return); // the first axis
        Rispondi(c, apre);
        if (apre == Pannello::Direzione && modo != 4) {
            if (dentro) c.Esegui(dentro);
            // "Chiudi" as the first answer ends the edit command at once.
            ChiudiDirezione(c);
        }
        if (apre == Pannello::Direzione && !lasciaAperto && modo >= 3) {
            c.Tasto(Qt::Key_Return); // the red button, under the ring
            if (modo == 3) ChiudiDirezione(c);
        }
        // A panel nobody expected: note it and close it by its last button; a
        // walk it started in modes 1 and 2 is stopped and closed the same way.
        const auto via = [this] {
            FormScansione* f = FormScansione::InPrimoPiano();
            if (f == nullptr || f == a) return;
            pannelloInatteso = true;
            f->ClickTasto(f->Motore.Ultimo);
        };
        c.Esegui(via);
        c.Esegui([this] {
            if (pannelloInatteso && modo <= 2 && ComandoModifica > 0 && MovimentoAttivo == 1)
                PremiTasto(Qt::Key_Return);
        });
        c.Esegui(via);
        c.EseguiFinoAllaFine();
        QVERIFY2(c.Problemi.isEmpty(), qPrintable(c.Problemi.join(u'\n')));
    }

    void Prepara(const StatoProva& s) {
        if (a != nullptr) {
            DistruggiAmbienteDisegno();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
            a = nullptr;
        }
        EliminaCopieLavoro();
        a = GuidaDisegno::Apri(modo);
        const int bip = ContatoreBip;
        for (const Tappa& p : s.Strada) {
            const bool modifica = p.Come != Via::Premi;
            const Pannello apre = !modifica ? Pannello::Nessuno
                                  : p.Tasto == 120 || p.Tasto == 114 || p.Tasto <= 113
                                      ? Pannello::Direzione
                                      : Pannello::Nessuno;
            Spara(p.Tasto, apre, p.Come == Via::Apri);
            if (QTest::currentTestFailed()) return;
        }
        QVERIFY(!pannelloInatteso);
        QCOMPARE(ContatoreBip, bip);
        QCOMPARE(PrimitivaAttiva, s.S.P);
        QCOMPARE(ComandoModifica, s.S.C);
        QCOMPARE(OggettoAttivo, s.S.O);
        QCOMPARE(NumeroAzioni, s.S.N);
        QCOMPARE(NumeroElementiAttivi, s.S.Attivi);
        QCOMPARE(NumeroAzioni > 0 && Azioni[NumeroAzioni].TipoAzione == TipiAzione::Colorazione,
                 s.S.UltimaZona);
        QCOMPARE(CodiceCopiaLavoro > BaseCopieLavoro, s.S.Copie);
    }

    // One press and what must follow it.
    void Prova(const StatoProva& s, const Riga& r) {
        const Stato& st = s.S;
        const bool rosso = st.C > 0 && r.Tasto == st.C;
        const bool agisce = rosso || Agisce(r.Tasto);
        const Foto prima = Foto::Ora();
        pannelloVisto.clear();
        std::optional<Foto> dentro;
        const QString nome = QStringLiteral("tasto %1").arg(r.Tasto);
        const Pannello apre = agisce && !rosso && r.ApreIn(st) ? r.Apre : Pannello::Nessuno;
        Spara(r.Tasto, apre, true, [&dentro] { dentro = Foto::Ora(); });
        if (QTest::currentTestFailed()) return;
        QVERIFY2(!pannelloInatteso, qPrintable(nome + QStringLiteral(": a panel opened")));
        const Foto dopo = Foto::Ora();
        if (!agisce) {
            QVERIFY2(dopo.Bip == prima.Bip + 1, qPrintable(nome + QStringLiteral(": no beep")));
            QVERIFY2(dopo.StessoStato(prima), qPrintable(nome + QStringLiteral(": it acted")));
            if (modo <= 2) {
                // Scanning resumes on the same button.
                QVERIFY2(a->Motore.TastoCorrente == r.Tasto && a->Motore.ScansioneAttiva == 1,
                         qPrintable(nome + QStringLiteral(": the ring moved or stopped")));
            }
            return;
        }
        // A question sounds as it opens, as every question of the program does,
        // and so does the list of a folder with no drawing as it fills.
        const int bipAttesi =
            apre == Pannello::Storia || apre == Pannello::Domanda || apre == Pannello::Lista ? 1
                                                                                             : 0;
        QVERIFY2(dopo.Bip == prima.Bip + bipAttesi,
                 qPrintable(nome + QStringLiteral(": it beeped")));
        if (apre == Pannello::Domanda)
            QVERIFY2(pannelloVisto ==
                         QStringLiteral("Programma «ZANTO»  -  INFORMAZIONI  E  SCELTE"),
                     qPrintable(nome + QStringLiteral(": no question")));
        if (apre == Pannello::Colore)
            QVERIFY2(pannelloVisto == QStringLiteral("Programma «ZANTO»  -  Scelta Colore"),
                     qPrintable(nome + QStringLiteral(": no colour panel")));
        if (apre == Pannello::Lista)
            QVERIFY2(pannelloVisto == QStringLiteral("Programma «ZANTO» - Scelta Disegno"),
                     qPrintable(nome + QStringLiteral(": no list")));
        if (apre == Pannello::Immagini)
            QVERIFY2(pannelloVisto == QStringLiteral("Programma «ZANTO» - Scelta Immagine"),
                     qPrintable(nome + QStringLiteral(": no list of pictures")));
        if (apre == Pannello::Settaggi)
            QVERIFY2(pannelloVisto == QStringLiteral("QuadroSettaggi"),
                     qPrintable(nome + QStringLiteral(": no settings panel")));
        if (apre == Pannello::Elementi)
            QVERIFY2(pannelloVisto.startsWith(
                         QStringLiteral("Programma «ZANTO»  -  Selezione Elemento")),
                     qPrintable(nome + QStringLiteral(": no element panel")));
        if (apre == Pannello::Tastiera)
            QVERIFY2(pannelloVisto == QStringLiteral("Programma «ZANTO»  -  Scrittura Testi"),
                     qPrintable(nome + QStringLiteral(": no keyboard")));
        if (rosso) {
            QVERIFY2(dopo.C == 0 && dopo.P == prima.P,
                     qPrintable(nome + QStringLiteral(": the red button did not end it")));
            return;
        }
        QVERIFY2(r.Fa(r.Tasto, prima, dentro.value_or(dopo)),
                 qPrintable(nome + QStringLiteral(": not what it does")));
    }

private slots:
    void init() {
        amb = std::make_unique<AmbienteProva>();
        amb->ApriArchivi();
        orologio = std::make_unique<OrologioVirtuale>();
        TempoLatenzaScansione = 1000;
        pannelloInatteso = false;
        pannelloVisto.clear();
        a = nullptr;
    }
    void cleanup() {
        DistruggiAmbienteDisegno();
        DistruggiMenùGenerale();
        QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        a = nullptr;
        orologio.reset();
        amb.reset();
    }

    // The data names each of the 33 buttons once, with the tooltip the screen
    // shows, and every button is pressed below.
    void i_dati_danno_ogni_tasto_col_suo_suggerimento() {
        QStringList errori;
        const QHash<int16_t, CondizioniTasti::Voce>& dati = Dati(&errori);
        QVERIFY2(errori.isEmpty(), qPrintable(errori.join(u'\n')));
        QCOMPARE(dati.size(), 33);
        QCOMPARE(Tabella().size(), 33);
        for (int16_t t = 101; t <= 133; ++t) {
            QVERIFY2(dati.contains(t), qPrintable(QStringLiteral("tasto %1").arg(t)));
            QCOMPARE(dati.value(t).Suggerimento, SuggerimentoTastoDisegno(t));
            QCOMPARE(Tabella()[t - 101].Tasto, t);
        }
    }

    // In modes 1 and 2 an open edit command holds the keys for its walk: no
    // button can be fired then, and those states stay out.
    void ogni_tasto_in_ogni_stato_agisce_o_rifiuta_data() {
        QTest::addColumn<int>("modalita");
        QTest::addColumn<int>("stato");
        for (int m = 1; m <= 4; ++m)
            for (qsizetype i = 0; i < Stati().size(); ++i) {
                if (m <= 2 && Stati()[i].S.C != 0) continue;
                QTest::newRow(qPrintable(QStringLiteral("modo %1/%2")
                                             .arg(m)
                                             .arg(QString::fromLatin1(Stati()[i].S.Nome))))
                    << m << static_cast<int>(i);
            }
    }
    void ogni_tasto_in_ogni_stato_agisce_o_rifiuta() {
        QFETCH(int, modalita);
        QFETCH(int, stato);
        modo = static_cast<int16_t>(modalita);
        const StatoProva& s = Stati()[stato];
        Prepara(s);
        if (QTest::currentTestFailed()) return;
        // Refusals leave the state as it was: one screen serves them all. A
        // button that acts gets the state built afresh after it.
        QList<const Riga*> agiscono;
        for (const Riga& r : Tabella()) {
            const bool rosso = s.S.C > 0 && r.Tasto == s.S.C;
            if (rosso || Agisce(r.Tasto)) {
                agiscono.append(&r);
                continue;
            }
            Prova(s, r);
            if (QTest::currentTestFailed()) return;
        }
        const Foto pronta = Foto::Ora();
        for (const Riga* r : std::as_const(agiscono)) {
            if (!Foto::Ora().StessoStato(pronta) || FormScansione::InPrimoPiano() != a) {
                Prepara(s);
                if (QTest::currentTestFailed()) return;
            }
            Prova(s, *r);
            if (QTest::currentTestFailed()) return;
        }
    }
};

QTEST_MAIN(ProvaTabellaComandi)
#include "test_tabella_comandi.moc"
