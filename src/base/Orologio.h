#pragma once

#include <cstdint>
#include <functional>

// All time of the program: the ring's dwell, the walk of a movement. The real
// clock runs on precise timers; the tests' clock is advanced by hand.
class Orologio {
public:
    virtual ~Orologio() = default;
    // Milliseconds since an arbitrary start.
    virtual int64_t Adesso() const = 0;
    // Calls `azione` once after `ms` milliseconds; returns an id for Annulla.
    virtual int Programma(int64_t ms, std::function<void()> azione) = 0;
    // Forgets a call not yet made; an unknown id is ignored.
    virtual void Annulla(int id) = 0;
};

// The clock in use; the real one unless a test has put its own.
Orologio& OrologioCorrente();
void ImpostaOrologio(Orologio* orologio); // nullptr gives back the real clock
