#pragma once

#include <QRect>
#include <QString>

class QLabel;
class QWidget;

// A label of a form: black Arial of `punti` points, placed in twips.
QLabel* ScrittaModulo(QWidget* genitore, const QString& testo, const QRect& postoTwips, int punti,
                      bool grassetto);
