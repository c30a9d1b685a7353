#pragma once

#include "input/Voce.h"

#include <QList>

#include <cstdint>

// The voice of the tests: it writes down what it is asked to say and when, on
// the program's clock, and takes a fixed time per letter to say it.
class VoceRegistrata final : public Voce {
public:
    struct Detto {
        QString Testo;
        int64_t Quando;
    };

    ~VoceRegistrata() override;

    void Di(const QString& testo) override;
    void Taci() override;
    bool StaParlando() const override { return sveglia_ != 0; }
    Servizio StatoServizio() override { return Stato; }

    QStringList Testi() const;
    void Dimentica() { Detti.clear(); }

    QList<Detto> Detti;
    QList<int64_t> Tagli; // when an utterance was cut short
    int64_t MsPerLettera = 50;
    Servizio Stato = Servizio::Presente;

private:
    void Ferma();
    int sveglia_ = 0;
};
