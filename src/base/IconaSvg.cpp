#include "base/IconaSvg.h"

#include "base/Misure.h"

#include <QAbstractButton>
#include <QImage>
#include <QLoggingCategory>
#include <QPainter>
#include <QPixmap>
#include <QSvgRenderer>

Q_LOGGING_CATEGORY(lcIcone, "zanto.icone")

// Out of any namespace: the registration names a function of the global one.
void RegistraRisorse() {
    // The resources live in a static library: a panel may be the first to need them.
    static bool registrate = false;
    if (registrate) return;
    registrate = true;
    Q_INIT_RESOURCE(zanto);
}

QIcon IconaSvg(const QString& risorsa, QSize dimensione) {
    RegistraRisorse();
    QSvgRenderer svg(risorsa);
    if (!svg.isValid() || dimensione.isEmpty()) {
        qCWarning(lcIcone) << "immagine non disponibile:" << risorsa;
        return {};
    }
    svg.setAspectRatioMode(Qt::KeepAspectRatio);
    QImage immagine(dimensione, QImage::Format_ARGB32_Premultiplied);
    immagine.fill(Qt::transparent);
    {
        QPainter p(&immagine);
        p.setRenderHint(QPainter::Antialiasing);
        svg.render(&p);
    }
    return QIcon(QPixmap::fromImage(immagine));
}

void ImpostaIcona(QAbstractButton* tasto, const QString& risorsa) {
    // A small border of the face stays free, as on a pressed button.
    const int bordo = Px(90);
    const QSize dimensione(tasto->width() - bordo, tasto->height() - bordo);
    tasto->setIcon(IconaSvg(risorsa, dimensione));
    tasto->setIconSize(dimensione);
    tasto->setProperty(ProprietaRisorsaIcona, risorsa);
}
