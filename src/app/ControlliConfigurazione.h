#pragma once

#include <QRect>
#include <QString>

class QGroupBox;
class QRadioButton;
class QSpinBox;
class QWidget;

// The controls of the configuration form, placed in twips with its look.

// A round option of Arial 10 that never takes the focus.
QRadioButton* OpzioneModulo(QWidget* genitore, const QString& testo, const QRect& postoTwips);
// A frame with a bold title.
QGroupBox* QuadroModulo(QWidget* genitore, const QString& titolo, const QRect& postoTwips);
// A number box from `minimo` to `massimo`; `zero` is shown in place of the minimum.
QSpinBox* NumeroModulo(QWidget* genitore, const QRect& postoTwips, int minimo, int massimo,
                       int passo, const QString& unita, const QString& zero);
// Marks option `scelta` of a group: red and checked, the others black and not.
// The group is kept here, not by Qt, so that two groups may share a frame.
void ColoraGruppo(QRadioButton* const* opzioni, int quante, int scelta);
