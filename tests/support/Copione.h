#pragma once

#include "support/OrologioVirtuale.h"

#include <QList>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

// A switch user's session as a script: keys to the front form and time on the
// virtual clock. Each step runs from the event queue, so the script goes on
// inside whatever modal panel a step has opened.
class Copione {
public:
    explicit Copione(OrologioVirtuale& orologio) : orologio_(orologio) {}

    Copione& Tasto(int tastoQt, Qt::KeyboardModifiers modificatori = Qt::NoModifier);
    Copione& Attendi(int64_t ms);
    // A switch held down for `ms` on the virtual clock, then let go.
    Copione& Tieni(int tastoQt, int64_t ms);
    Copione& Esegui(std::function<void()> azione);

    // Starts the script; its steps run as the event loop turns.
    void Avvia();
    // Starts it and turns the event loop until the last step has run.
    void EseguiFinoAllaFine();
    bool Finito() const { return finito_; }

    QStringList Problemi; // steps that could not act (no form in front, ...)

private:
    void Prossimo();

    OrologioVirtuale& orologio_;
    QList<std::function<void()>> passi_;
    qsizetype indice_ = 0;
    bool finito_ = false;
    std::function<void()> allaFine_;
    // Steps still queued when the script is gone must find out and do nothing.
    std::shared_ptr<int> vita_ = std::make_shared<int>(0);
};

// Sends one key press and release to the front scanning form, as the keyboard would.
bool PremiTasto(int tastoQt, Qt::KeyboardModifiers modificatori = Qt::NoModifier);
// Presses a key on the front scanning form, lets `ms` pass and lets it go.
bool TieniTasto(OrologioVirtuale& orologio, int tastoQt, int64_t ms);
