#pragma once

#include <QColor>
#include <QImage>
#include <QPainter>
#include <QWidget>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace velmora {

/// The widget as it is painted over a plain ground, at one pixel per point.
inline QImage paintedOver(QWidget& widget, const QColor& ground) {
    QImage picture(widget.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(ground);
    widget.render(&picture, QPoint(), QRegion(), QWidget::DrawChildren);
    return picture;
}

/// What a colour looks like over an opaque ground.
inline QColor blended(const QColor& color, const QColor& ground) {
    const auto channel = [&](float over, float under) {
        return over * color.alphaF() + under * (1 - color.alphaF());
    };
    return QColor::fromRgbF(channel(color.redF(), ground.redF()), channel(color.greenF(), ground.greenF()),
                            channel(color.blueF(), ground.blueF()));
}

/// Equal within what rounding in the painter makes of a colour.
inline testing::AssertionResult isColor(const QColor& actual, const QColor& wanted) {
    const int off =
        std::max({std::abs(actual.red() - wanted.red()), std::abs(actual.green() - wanted.green()),
                  std::abs(actual.blue() - wanted.blue())});
    if (off <= 2) return testing::AssertionSuccess();
    return testing::AssertionFailure()
           << qPrintable(actual.name()) << " is not " << qPrintable(wanted.name());
}

}  // namespace velmora
