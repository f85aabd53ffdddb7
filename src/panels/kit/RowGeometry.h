#pragma once

#include <vector>

/// Where the parts of a row stand from left to right, in points. Nothing overlaps, however narrow the row.
namespace velmora::RowGeometry {

struct Span {
    double left = 0;
    double width = 0;
    double right() const { return left + width; }
};

/// A text at the left edge and one at the right.
struct Ends {
    Span leading;
    Span trailing;
};
/// Where both do not fit, the trailing text, mostly a figure, keeps up to two thirds of the row and the
/// leading one gets the rest. A leading text always reaches as far as it may, so it does not depend on the
/// figure whether it is cut unless they would meet.
Ends ends(double width, double leadingWidth, double trailingWidth, double gap);

/// `count` columns of equal width.
std::vector<Span> columns(int count, double width, double spacing);
/// A column for each of some pairs of label and figure, which stand `spacing` apart as the columns do. A
/// label has its own width and the figures share what is left, so that no figure moves the column after it;
/// where that is too little for figures, the columns are of equal width.
std::vector<Span> labelledColumns(const std::vector<double>& labelWidths, double width, double spacing);
/// Two flexible columns, 10 apart and each at least 10 wide.
std::vector<Span> twoColumns(double width);

/// A label, a bar that takes what is left, and a figure in a column at the right edge, 8 apart.
struct BarRowPlaces {
    Span label;
    Span bar;
    Span value;
};
/// The bar keeps an eighth of the row before label and figure get more than that.
BarRowPlaces barRow(double width, double labelWidth, double valueWidth);

/// A process's icon and name, and its figures in boxes at the right edge.
struct ProcessPlaces {
    Span icon;
    Span name;
    std::vector<Span> values;
};
/// `valueWidths` from left to right; every part is 6 from its neighbour. The figures keep at most two thirds
/// of the row.
ProcessPlaces processRow(double width, const std::vector<double>& valueWidths);

/// Buttons of one size in the middle of as many rows as they need.
class ButtonRows {
public:
    ButtonRows(int count, int width, int side, int spacing);

    struct Corner {
        int x = 0;
        int y = 0;
    };
    Corner corner(int index) const;
    int height() const;

private:
    int m_count;
    int m_width;
    int m_side;
    int m_spacing;
    int m_perRow;
};

}  // namespace velmora::RowGeometry
