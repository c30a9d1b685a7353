#include "panels/ScrittaPannello.h"

#include "start/Misure.h"

#include <QFont>
#include <QLabel>
#include <QPalette>

QLabel* ScrittaPannello(QWidget* genitore, const QRect& postoTwips, const QString& testo,
                        double punti, Qt::Alignment allineamento) {
    auto* l = new QLabel(testo, genitore);
    l->setGeometry(
        RettangoloTwips(postoTwips.x(), postoTwips.y(), postoTwips.width(), postoTwips.height()));
    QFont f(QStringLiteral("Arial"));
    f.setPointSizeF(punti);
    f.setBold(true);
    l->setFont(f);
    QPalette p = l->palette();
    p.setColor(QPalette::WindowText, Qt::white);
    l->setPalette(p);
    l->setAlignment(allineamento | Qt::AlignVCenter);
    return l;
}
