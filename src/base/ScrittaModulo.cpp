#include "base/ScrittaModulo.h"

#include "base/Misure.h"

#include <QLabel>

QLabel* ScrittaModulo(QWidget* genitore, const QString& testo, const QRect& postoTwips, int punti,
                      bool grassetto) {
    auto* l = new QLabel(testo, genitore);
    l->setGeometry(
        RettangoloTwips(postoTwips.x(), postoTwips.y(), postoTwips.width(), postoTwips.height()));
    l->setFont(Carattere(QStringLiteral("Arial"), punti, grassetto));
    return l;
}
