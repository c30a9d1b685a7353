#pragma once

#include <QWidget>

class Superficie;

// Shows what a surface's screen layer holds, and repaints when it changes.
class VistaSuperficie : public QWidget {
public:
    VistaSuperficie(Superficie& superficie, QWidget* genitore);
    ~VistaSuperficie() override;

protected:
    void paintEvent(QPaintEvent* evento) override;
    void mousePressEvent(QMouseEvent* evento) override;

private:
    Superficie& superficie_;
};
