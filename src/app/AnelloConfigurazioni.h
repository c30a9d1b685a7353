#pragma once

#include "input/FormScansione.h"

#include <QRect>

#include <functional>

// "Chiudi" of the configuration form as a scanning screen of one button, laid
// inside the form where its "Chiudi" stands. The form itself does not scan: a
// user who reached it with the switch would find no way out but a mouse. With
// this ring the user's own choice key leads back to the menu, storing nothing,
// while everything else on the form stays as it is for whoever sets it up.
class AnelloConfigurazioni : public FormScansione {
public:
    // `tasto` is where "Chiudi" stands on the form, in twips; `chiudi` is the
    // form's Chiudi, `diretto` its direct keys given a Qt key (true if taken).
    AnelloConfigurazioni(QWidget* modulo, const QRect& tasto, std::function<void()> chiudi,
                         std::function<bool(int tastoQt)> diretto);

    TastoZanto* TastoChiudi() const { return Tasti.value(1); }

    void ClickTasto(int16_t indice) override;
    void RoutineTastoGiu(int codice, int modificatori) override;
    bool PredefinitoInModo3() const override { return false; }
    void PrimaAttivazione() override;
    // The ring as the mode now asks: walking in modes 1 and 2, still otherwise.
    void Riprendi();

    // Does this key go to the ring wherever the focus stands on the form?
    // The keys of the scan, never a digit or an arrow of the latency box.
    static bool TastoDelAnello(int codice);

private:
    std::function<void()> chiudi_;
    std::function<bool(int)> diretto_;
};
