#include "start/ScrittaModulo.h"

#include "start/Misure.h"

#include <QLabel>

QLabel* ScrittaModulo(QWidget* genitore, const QString& testo, const QRect& postoTwips, int punti,
                      bool grassetto) {
    auto* l = new QLabel(testo, genitore);
    l->setGeometry(
        RettangoloTwips(postoTwips.x(), postoTwips.y(), postoTwips.width(), postoTwips.height()));
    QFont f(QStringLiteral("Arial"), punti);
    f.setBold(grassetto);
    l->setFont(f);
    return l;
}
