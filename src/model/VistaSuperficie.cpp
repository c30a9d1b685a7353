#include "model/VistaSuperficie.h"

#include "model/Superficie.h"

#include <QMouseEvent>
#include <QPaintEvent>
#include <QPainter>

VistaSuperficie::VistaSuperficie(Superficie& superficie, QWidget* genitore)
    : QWidget(genitore), superficie_(superficie) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    superficie_.AvvisoSchermo = [this] { update(); };
}

VistaSuperficie::~VistaSuperficie() {
    superficie_.AvvisoSchermo = nullptr;
}

void VistaSuperficie::paintEvent(QPaintEvent* evento) {
    QPainter p(this);
    const QImage& immagine = superficie_.Schermo();
    if (immagine.size() == size()) {
        p.drawImage(evento->rect(), immagine, evento->rect());
        return;
    }
    // On a larger screen the bitmap is shown enlarged, pixel by pixel: a smoothed
    // copy would show colours the drawing does not have.
    p.setRenderHint(QPainter::SmoothPixmapTransform, false);
    p.drawImage(rect(), immagine);
}

// The canvas takes no pointing: a click there does nothing, not even a beep.
void VistaSuperficie::mousePressEvent(QMouseEvent* evento) {
    evento->accept();
}
