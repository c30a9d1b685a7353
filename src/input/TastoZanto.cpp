#include "input/TastoZanto.h"

TastoZanto::TastoZanto(int16_t indice, QWidget* genitore) : QPushButton(genitore), indice_(indice) {
    setFocusPolicy(Qt::NoFocus);
    setAutoDefault(false);
    setDefault(false);
}

void TastoZanto::ImpostaTesto(const QString& didascalia, const QString& suggerimento) {
    setText(didascalia);
    setToolTip(suggerimento);
    setAccessibleName(didascalia.isEmpty() ? suggerimento : didascalia);
    setAccessibleDescription(suggerimento);
}

void TastoZanto::ImpostaColoreTesto(const QColor& colore) {
    QPalette p = palette();
    p.setColor(QPalette::ButtonText, colore);
    setPalette(p);
}
