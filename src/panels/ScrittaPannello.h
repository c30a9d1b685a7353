#pragma once

#include <QRect>
#include <QString>

class QLabel;
class QWidget;

// A caption of a panel: white bold Arial on the panel's grey, placed in twips.
QLabel* ScrittaPannello(QWidget* genitore, const QRect& postoTwips, const QString& testo,
                        double punti, Qt::Alignment allineamento);
