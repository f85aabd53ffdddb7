#include "ContactSheet.h"

#include <QPainter>

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <numeric>

namespace velmora {
namespace {

/// Around the sheet and between its pictures, in points.
constexpr double kMargin = 10;
constexpr double kGap = 6;

using Row = std::vector<const QImage*>;

std::vector<Row> rowsOf(const std::vector<Shot>& shots) {
    std::vector<Row> rows;
    const std::string* group = nullptr;
    for (const Shot& shot : shots) {
        if (!group || *group != shot.group) rows.emplace_back();
        group = &shot.group;
        rows.back().push_back(&shot.image);
    }
    return rows;
}

int heightOf(const Row& row) {
    int height = 0;
    for (const QImage* const image : row) height = std::max(height, image->height());
    return height;
}

std::vector<int> columnWidths(const std::vector<Row>& rows) {
    std::vector<int> widths;
    for (const Row& row : rows) {
        widths.resize(std::max(widths.size(), row.size()));
        for (std::size_t column = 0; column < row.size(); ++column) {
            widths[column] = std::max(widths[column], row[column]->width());
        }
    }
    return widths;
}

}  // namespace

QImage contactSheet(const std::vector<Shot>& shots, const ShotOptions& options) {
    const int margin = static_cast<int>(std::lround(kMargin * options.scale));
    const int gap = static_cast<int>(std::lround(kGap * options.scale));
    const std::vector<Row> rows = rowsOf(shots);
    const std::vector<int> widths = columnWidths(rows);
    int height = 2 * margin - gap;
    for (const Row& row : rows) height += heightOf(row) + gap;
    const int width = std::accumulate(widths.begin(), widths.end(), 2 * margin - gap) +
                      gap * static_cast<int>(widths.size());

    QImage sheet(std::max(width, 1), std::max(height, 1), QImage::Format_RGB32);
    sheet.fill(backdropOf(options.scheme));
    QPainter painter(&sheet);
    int y = margin;
    for (const Row& row : rows) {
        int x = margin;
        for (std::size_t column = 0; column < row.size(); ++column) {
            painter.drawImage(x, y, *row[column]);
            x += widths[column] + gap;
        }
        y += heightOf(row) + gap;
    }
    return sheet;
}

}  // namespace velmora
