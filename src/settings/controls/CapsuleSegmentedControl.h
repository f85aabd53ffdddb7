#pragma once

#include "look/Scheme.h"

#include <QImage>
#include <QRectF>
#include <QString>
#include <QWidget>

#include <functional>
#include <optional>
#include <vector>

namespace velmora {

class SegmentIcon;

/// A few icons side by side of which one is selected. The size is fixed.
class CapsuleSegmentedControl final : public QWidget {
public:
    /// The images are templates: their alpha is drawn in the colour of the icon's state. An icon without an
    /// image stays empty. Tool tips belong to the images by index, and there may be fewer.
    CapsuleSegmentedControl(const std::vector<QImage>& images, const std::vector<QString>& tooltips,
                            int width, int height, std::optional<double> cornerRadius,
                            QWidget* parent = nullptr);

    int segmentCount() const { return static_cast<int>(m_iconViews.size()); }
    int selectedIndex() const { return m_selectedIndex; }
    /// Shows another selection without calling the action.
    void setSelectedIndex(int index);
    /// Called with the index when the user selects another segment.
    void onSelect(std::function<void(int index)> select) { m_onSelect = std::move(select); }

    /// The half of the height where no radius was given.
    double cornerRadius() const;
    /// The segment at a horizontal place, held within the valid range; 0 where there are no segments.
    int segmentAt(double x) const;
    QRectF selectionFrame() const;
    /// The lines between the segments.
    std::vector<QRectF> separatorFrames() const;
    /// The icon keeps its image's size, in the middle of its segment.
    QRectF iconFrame(int index) const;

protected:
    bool event(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    void select(int index);
    double segmentWidth() const;

    std::function<void(int)> m_onSelect;
    int m_selectedIndex = 0;
    std::optional<double> m_cornerRadius;
    std::vector<SegmentIcon*> m_iconViews;
    bool m_showsFocus = false;
};

}  // namespace velmora
