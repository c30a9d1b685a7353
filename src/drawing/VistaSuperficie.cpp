#include "drawing/VistaSuperficie.h"

#include "model/Superficie.h"

#include <QMouseEvent>
#include <QPainter>

VistaSuperficie::VistaSuperficie(Superficie& superficie, QWidget* genitore)
    : QWidget(genitore), superficie_(superficie) {
    setAttribute(Qt::WA_OpaquePaintEvent);
    superficie_.AvvisoSchermo = [this] { update(); };
}

VistaSuperficie::~VistaSuperficie() {
    superficie_.AvvisoSchermo = nullptr;
}

void VistaSuperficie::paintEvent(QPaintEvent*) {
    QPainter p(this);
    p.drawImage(QPoint(0, 0), superficie_.Schermo());
}

// The canvas takes no pointing: a click there does nothing, not even a beep.
void VistaSuperficie::mousePressEvent(QMouseEvent* evento) {
    evento->accept();
}
