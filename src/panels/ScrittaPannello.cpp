#include "panels/ScrittaPannello.h"

#include "base/Misure.h"

#include <QFont>
#include <QLabel>
#include <QPalette>

QLabel* ScrittaPannello(QWidget* genitore, const QRect& postoTwips, const QString& testo,
                        double punti, Qt::Alignment allineamento) {
    auto* l = new QLabel(testo, genitore);
    l->setGeometry(
        RettangoloTwips(postoTwips.x(), postoTwips.y(), postoTwips.width(), postoTwips.height()));
    l->setFont(Carattere(QStringLiteral("Arial"), punti, true));
    QPalette p = l->palette();
    p.setColor(QPalette::WindowText, Qt::white);
    l->setPalette(p);
    l->setAlignment(allineamento | Qt::AlignVCenter);
    return l;
}
