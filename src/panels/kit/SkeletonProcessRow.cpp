#include "panels/kit/SkeletonProcessRow.h"

#include "panels/kit/Series.h"
#include "panels/kit/Shapes.h"

#include <algorithm>

namespace velmora::SkeletonProcessRow {

std::array<Shape, 3> shapes(double width, double height) {
    constexpr double kIcon = 13;
    constexpr double kName = 96;
    constexpr double kFigure = 28;
    constexpr double kText = 7;
    constexpr double kSpacing = 6;
    constexpr double kNameLeft = kIcon + kSpacing;

    const double textTop = (height - kText) / 2;
    const double name = std::clamp(width - kNameLeft, 0.0, kName);
    const double figure = width >= kNameLeft + kName + kSpacing + kFigure ? kFigure : 0;
    return {Shape{{0, (height - kIcon) / 2, std::clamp(width, 0.0, kIcon), kIcon}, 3},
            Shape{{kNameLeft, textTop, name, kText}, 4}, Shape{{width - figure, textTop, figure, kText}, 4}};
}

void draw(QPainter& painter, const QRectF& row, Scheme scheme) {
    for (const Shape& shape : shapes(row.width(), row.height())) {
        const double radius = std::min(shape.radius, shape.rect.height() / 2);
        Shapes::roundedRect(painter, shape.rect.translated(row.topLeft()), radius, Tokens::track(scheme));
    }
}

}  // namespace velmora::SkeletonProcessRow
