#pragma once

#include "input/Voce.h"

#include <QList>

#include <cstdint>
#include <functional>

// The voice of the tests: it writes down what it is asked to say and when, on
// the program's clock, and takes a fixed time per letter to say it. Like the
// system's, it answers later: what it is asked reaches its service only after
// the caller has returned (Ritardo more milliseconds on the clock), and the end
// of an utterance is told then.
class VoceRegistrata final : public VoceDifferita {
public:
    struct Detto {
        QString Testo;
        int64_t Quando;
    };

    ~VoceRegistrata() override;

    Servizio StatoServizio() override { return Stato; }

    QStringList Testi() const;
    void Dimentica() { Detti.clear(); }

    QList<Detto> Detti;
    QList<int64_t> Tagli; // when an utterance was cut short
    int64_t MsPerLettera = 50;
    int64_t Ritardo = 0;
    Servizio Stato = Servizio::Presente;

private:
    void Parla(const QString& testo, int numero) override;
    void Ferma(int finoA) override;
    void Consegna(std::function<void()> azione);
    void Finita(int numero);

    QList<int> inViaggio_; // what the service has yet to receive
    int sveglia_ = 0;      // the end of the utterance being said
    int inCorso_ = 0;
};
