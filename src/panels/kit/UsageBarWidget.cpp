#include "panels/kit/UsageBarWidget.h"

#include "base/FormatText.h"
#include "panels/kit/PanelText.h"
#include "panels/kit/Points.h"
#include "panels/kit/Shapes.h"

#include <QPainter>

namespace velmora {

int UsageBarWidget::heightForWidth(int) const {
    return Points::whole(value().height);
}

KitWidget::Spoken UsageBarWidget::spoken() const {
    const double percent = Points::fraction(value().fraction) * 100;
    return {QAccessible::Indicator, {}, PanelText::plain(formatText("%.0f%%", {percent}))};
}

void UsageBarWidget::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const double barHeight = Points::held(value().height);
    Shapes::bar(painter, QRectF(0, (height() - barHeight) / 2, width(), barHeight), value().fraction,
                value().tint, scheme());
}

}  // namespace velmora
