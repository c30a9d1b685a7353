#pragma once

#include <QPushButton>

#include <cstdint>

// A command button of a scanning screen: never takes the focus, never acts on
// Qt's own default-button logic. `Predefinito` is the program's default flag:
// the button that Enter fires while the focus rests on FocusFix.
class TastoZanto : public QPushButton {
public:
    TastoZanto(int16_t indice, QWidget* genitore);

    int16_t Indice() const { return indice_; }
    bool Predefinito = false;

    // Caption and tooltip; the accessible name follows the caption, or the tooltip.
    void ImpostaTesto(const QString& didascalia, const QString& suggerimento = {});
    void ImpostaColoreTesto(const QColor& colore);

private:
    int16_t indice_;
};
