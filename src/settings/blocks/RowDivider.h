#pragma once

#include <QRectF>
#include <QWidget>

namespace velmora {

/// The hairline between two rows of a card, inset at the leading edge only.
class RowDivider final : public QWidget {
public:
    explicit RowDivider(QWidget* parent = nullptr);

    /// The line in this width at this pixel ratio: half a point high, but never less than one pixel.
    static QRectF line(double width, double ratio);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace velmora
