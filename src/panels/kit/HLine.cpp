#include "panels/kit/HLine.h"

#include "panels/kit/PixelGrid.h"

#include <QPen>

namespace velmora::HLine {

void draw(QPainter& painter, const QRectF& rect, double lineWidth, Dash dash, const QColor& color) {
    QLineF line = path(rect);
    const double top = PixelGrid(painter).y(line.y1() - lineWidth / 2);
    line.translate(0, top + lineWidth / 2 - line.y1());
    QPen pen(color, lineWidth, Qt::CustomDashLine, Qt::FlatCap);
    pen.setDashPattern({dash.on / lineWidth, dash.off / lineWidth});
    painter.setPen(pen);
    painter.drawLine(line);
}

}  // namespace velmora::HLine
