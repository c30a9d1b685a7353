#pragma once

#include <cstdint>
#include <functional>
#include <vector>

class QKeyEvent;

// Key codes as the key routines know them.
namespace CodiciTasto {
constexpr int Invio = 13;
constexpr int Spazio = 32;
constexpr int Sinistra = 37;
constexpr int Su = 38;
constexpr int Destra = 39;
constexpr int Giu = 40;
constexpr int F4 = 115;
constexpr int F5 = 116;
constexpr int F6 = 117;
constexpr int F7 = 118;
constexpr int F8 = 119;
constexpr int F9 = 120;
constexpr int F10 = 121;
constexpr int F11 = 122;
constexpr int F12 = 123;
} // namespace CodiciTasto

// The code of a Qt key event, 0 for keys the program does not know.
int CodiceTasto(const QKeyEvent* evento);
// Shift 1, Ctrl 2, Alt 4.
int MaschereModificatori(const QKeyEvent* evento);

// The scanning pattern of one screen: its fields, the loop on the clock, the
// key routine of the four modes and the inversion. The screen gives its
// redraw and its click routine, and may replace the ways of stepping.
class MotoreScansione {
public:
    MotoreScansione(int16_t primo, int16_t ultimo);
    ~MotoreScansione();
    MotoreScansione(const MotoreScansione&) = delete;
    MotoreScansione& operator=(const MotoreScansione&) = delete;

    int16_t ShiftPremuto = 0;
    int16_t CtrlPremuto = 0;
    int16_t AltPremuto = 0;
    int16_t FormAttivato = 0;
    int16_t VersoInversione = 0;
    int16_t PassoScansione = 0;
    int16_t ScansioneAttiva = 0;
    int16_t TastoCorrente = 0;
    int16_t Primo;
    int16_t Ultimo;
    // Buttons to a row when the live set is a grid: the arrows of mode 4 then
    // keep left and right within the row and move up and down by whole rows.
    int16_t Colonne = 0;

    std::function<void()> AggiornaCorone;
    std::function<void(int16_t)> Click;
    // What a tick of the loop does with PassoScansione; by default adds and wraps.
    std::function<void(int16_t)> PassoCiclo;
    // One step forward and back for the scan key and the arrows; by default with wrap.
    std::function<void()> Avanti;
    std::function<void()> Indietro;
    // Steps of one full round, for the rest after rounds with nobody pressing;
    // by default the live set's buttons.
    std::function<int()> PassiPerGiro;

    // Starts the ring: redraw, a full dwell, step, and again, until stopped.
    void AvviaScansione();
    // As AvviaScansione, but the ring first stands `dwell` dwells where it is
    // (three at most, never fewer than PrimaAttesa): a button meant to be picked
    // again and again keeps the ring a while, and still lets it go on.
    void AvviaScansioneConSosta(int dwell);
    static constexpr int SostaSulTasto = 3;
    // The choice: the ring stops at once and no tick will come.
    void FermaScansione();
    // Is a dwell running on the clock?
    bool InAttesa() const { return sveglia_ != 0; }
    // Has the ring stopped to rest after its rounds? The next ring key wakes it.
    bool InRiposo() const { return riposo_; }

    // A switch held down and not yet accepted: the ring holds still, so that the
    // choice falls where the press began; let go, the dwell goes on.
    void Trattieni();
    void Lascia();

    enum class Esito { Ignorato, Scelta, Inversione, Passo, Risveglio };
    // The key-down routine of a panel, for one key with its modifier mask.
    Esito RoutineTasti(int codice, int modificatori);
    // The direct keys F4-F9, F11, F12 of the main menu and the drawing screen.
    // Returns false for any other key. Writes the settings at once.
    bool TastoDiretto(int codice);
    void Inverti();

    // A form may hold more than one set of keys (the letters and the function
    // keys of a keyboard): one is live at a time; Primo, Ultimo, Colonne and
    // TastoCorrente are always the live set's, and each set keeps its own ring.
    int AggiungiInsieme(int16_t primo, int16_t ultimo, int16_t colonne, int16_t corrente);
    void AttivaInsieme(int insieme);
    int InsiemeAttivo() const { return attivo_; }
    int NumeroInsiemi() const { return static_cast<int>(insiemi_.size()); }
    int16_t TastoCorrenteDi(int insieme) const;

    // A panel stands above the form: its ring holds still where it stands, and
    // when the panel goes it starts again with a full dwell.
    void Sospendi();
    void RiprendiDopoPannello();
    bool Sospeso() const { return sospeso_; }

    static bool TastoDiScelta(int codice);
    static bool TastoDiScansione(int codice);
    // A new TempoLatenzaScansione counts on the dwell in progress of every screen.
    static void LatenzaCambiata();
    // The voice has ended an utterance: a ring waiting on it goes on.
    static void VoceFinita();
    // The longest a ring waits on a voice past its dwell: a service that never
    // says it has finished must not stop the ring.
    static constexpr int64_t LimiteAttesaVoce = 8000;

private:
    struct Insieme {
        int16_t Primo;
        int16_t Ultimo;
        int16_t Colonne;
        int16_t TastoCorrente;
    };

    // A dwell of `fattore` times TempoLatenzaScansione.
    void Attendi(int fattore);
    int64_t Durata() const;
    void Programma(int64_t ms);
    void Scatto();
    // The ring's rounds with nobody pressing: true when it must rest now.
    bool Stanco();
    bool PassoGriglia(int codice);

    std::vector<Insieme> insiemi_;
    int attivo_ = 0;
    bool sospeso_ = false;

    int sveglia_ = 0;
    int64_t inizioAttesa_ = 0;
    int fattore_ = 1;
    int passiSenzaTasti_ = 0;
    bool riposo_ = false;
    bool trattenuto_ = false;
    bool attesaInterrotta_ = false;
    int64_t inizioTrattenuta_ = 0;
    int64_t inizioVoce_ = -1; // when the dwell ended with the voice still speaking
};
