#pragma once

#include "base/Bip.h"

#include <QString>
#include <QStringList>

#include <atomic>
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

// A voice whose service answers later, from a thread of its own or a later
// turn of the clock. Each utterance takes its number when it is asked for, and
// a silence ends only those asked for before it: one that arrives after a newer
// name was asked must not count that name as already said.
class VoceDifferita : public Voce {
public:
    void Di(const QString& testo) final { Parla(testo, ++ultimo_); }
    void Taci() final { Ferma(ultimo_.load()); }
    bool StaParlando() const final { return concluso_.load() < ultimo_.load(); }

    // From the service, in any thread: utterance `numero` and all before it
    // are over. The service then tells FineVoce on the program's thread.
    void Concludi(int numero) {
        int visto = concluso_.load();
        while (visto < numero && !concluso_.compare_exchange_weak(visto, numero)) {
        }
    }
    // A newer utterance has been asked for since `numero`.
    bool Superato(int numero) const { return numero != ultimo_.load(); }

protected:
    // Delivered to the service, which answers later.
    virtual void Parla(const QString& testo, int numero) = 0;
    virtual void Ferma(int finoA) = 0;

private:
    std::atomic<int> ultimo_{0};
    std::atomic<int> concluso_{0};
};

// The voice in use; the system's unless a test has put its own.
Voce& VoceCorrente();
void ImpostaVoce(Voce* voce); // nullptr gives back the system's

// The program speaks through these two: a name asked for just after a beep
// waits until the beep has been heard (PausaDopoBip), and a newer name or
// silence replaces one still waiting.
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
