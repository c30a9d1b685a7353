#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>

// Where the names of what the ring arrives on are spoken: the system's speech
// service, or in the tests a recorder on the virtual clock.
class Voce {
public:
    enum class Servizio { InCerca, Presente, Assente };

    virtual ~Voce() = default;
    // Speaks `testo`, cutting short whatever is being spoken.
    virtual void Di(const QString& testo) = 0;
    // Silence at once: a beep must be heard.
    virtual void Taci() = 0;
    // Is an utterance still under way?
    virtual bool StaParlando() const = 0;
    // Whether a speech service has been found; looking starts at the first ask.
    virtual Servizio StatoServizio() = 0;
};

// The voice in use; the system's unless a test has put its own.
Voce& VoceCorrente();
void ImpostaVoce(Voce* voce); // nullptr gives back the system's

// The program speaks through these two: a name asked for just after a beep
// waits until the beep has been heard (PausaDopoBip), and a newer name or
// silence replaces one still waiting.
inline constexpr int64_t PausaDopoBip = 400;
inline int64_t IstanteUltimoBip = -PausaDopoBip;
void Pronuncia(const QString& testo);
void Zittisci();

// What a voice calls when an utterance ends, spoken out or cut short: a ring
// waiting on it may go on.
void FineVoce();

// The voices the system's speech service has for Italian (for any language
// when it has none), looked up in the calling thread; empty without a service.
QStringList VociDiSistema();

// The words for a key of the on-screen keyboard whose caption is a sign or a
// short code, so that the voice says "spazio" and not "underscore underscore".
QString NomeDelTasto(const QString& didascalia);
