#include "settings/blocks/RowDivider.h"

#include "look/Ink.h"
#include "settings/controls/SettingsScheme.h"

#include <QPainter>

#include <algorithm>

namespace velmora {
namespace {

constexpr double kHeight = 0.5;
constexpr double kLeadingInset = 16;
constexpr double kOpacity = 0.08;

}  // namespace

RowDivider::RowDivider(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
}

QRectF RowDivider::line(double width, double ratio) {
    const double pixel = ratio > 0 ? 1 / ratio : 1;
    return {kLeadingInset, 0, std::max(width - kLeadingInset, 0.0), std::max(kHeight, pixel)};
}

QSize RowDivider::sizeHint() const {
    return {static_cast<int>(kLeadingInset), 1};
}

void RowDivider::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(line(width(), devicePixelRatioF()), Ink::primary(schemeOf(this), kOpacity));
}

}  // namespace velmora
