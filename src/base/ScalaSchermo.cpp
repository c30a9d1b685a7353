#include "base/ScalaSchermo.h"

#include "base/Misure.h"
#include "base/Sessione.h"

#include <QApplication>
#include <QFont>
#include <QProxyStyle>
#include <QScreen>
#include <QStyleFactory>

#include <algorithm>
#include <optional>

namespace {
// Room for the title bar and borders the desktop puts round a window: they do
// not grow with the scale, and a window with them must still stand whole.
constexpr int CorniceLarghezza = 16;
constexpr int CorniceAltezza = 40;

// The platform's style with the marks it draws by its own measures (the dot of
// an option, a scroll bar, a slider) grown by the one scale, like the rest.
class StileScalato : public QProxyStyle {
public:
    using QProxyStyle::QProxyStyle;
    int pixelMetric(PixelMetric misura, const QStyleOption* opzione,
                    const QWidget* widget) const override {
        const int valore = QProxyStyle::pixelMetric(misura, opzione, widget);
        switch (misura) {
        case PM_ExclusiveIndicatorWidth:
        case PM_ExclusiveIndicatorHeight:
        case PM_IndicatorWidth:
        case PM_IndicatorHeight:
        case PM_RadioButtonLabelSpacing:
        case PM_CheckBoxLabelSpacing:
        case PM_ScrollBarExtent:
        case PM_ScrollBarSliderMin:
        case PM_SliderThickness:
        case PM_SliderLength:
        case PM_SliderControlThickness:
        case PM_SliderTickmarkOffset:
            return static_cast<int>(valore * ScalaInterfaccia + 0.5);
        default:
            return valore;
        }
    }
};

// The font the application had before any scaling, to scale from and go back to.
std::optional<QFont>& FontOriginale() {
    static std::optional<QFont> f;
    return f;
}
} // namespace

double ScalaPerSchermo(int larghezza, int altezza) {
    if (DimensioneMinimaX <= 0 || DimensioneMinimaY <= 0) return 1.0;
    const double scala =
        std::min(double(larghezza) / DimensioneMinimaX, double(altezza) / DimensioneMinimaY);
    return std::max(1.0, scala);
}

void AdattaAlloSchermo(const QScreen& schermo) {
    // The free area, not the whole screen: a panel of the desktop must not cover a button.
    const QRect libera = schermo.availableGeometry();
    ScalaInterfaccia =
        ScalaPerSchermo(libera.width() - CorniceLarghezza, libera.height() - CorniceAltezza);
    DpiCaratteri = schermo.logicalDotsPerInchY() > 0 ? schermo.logicalDotsPerInchY() : 96.0;
    if (!FontOriginale()) FontOriginale() = QApplication::font();
    QFont f = *FontOriginale();
    if (f.pointSizeF() > 0)
        f.setPointSizeF(PuntiSchermo(f.pointSizeF()));
    else if (f.pixelSize() > 0)
        f.setPixelSize(std::max(1, int(f.pixelSize() * ScalaInterfaccia + 0.5)));
    QApplication::setFont(f);
    // Once: the style reads the scale whenever it measures, and at 1 it is the platform's own.
    if (dynamic_cast<StileScalato*>(QApplication::style()) == nullptr)
        QApplication::setStyle(
            new StileScalato(QStyleFactory::create(QApplication::style()->name())));
}

void RipristinaScala() {
    ScalaInterfaccia = 1.0;
    DpiCaratteri = 96.0;
    if (FontOriginale()) {
        QApplication::setFont(*FontOriginale());
        FontOriginale().reset();
    }
}
