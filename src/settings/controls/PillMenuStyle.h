#pragma once

#include <QProxyStyle>

namespace velmora {

/// Measures and draws the menu of a dropdown: a mark for the item that is on, the item's image in its own
/// size, its title. All titles begin at the same place, behind the widest image.
class PillMenuStyle final : public QProxyStyle {
public:
    PillMenuStyle();

    int pixelMetric(PixelMetric metric, const QStyleOption* option, const QWidget* widget) const override;
    int styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
                  QStyleHintReturn* returnData) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption* option, const QSize& size,
                           const QWidget* widget) const override;
    void drawControl(ControlElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                       const QWidget* widget) const override;

    static constexpr double kCornerRadius = 8;
};

}  // namespace velmora
