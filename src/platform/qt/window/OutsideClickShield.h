#pragma once

#include <QRegion>
#include <QWidget>

#include <functional>

namespace velmora {

/// An invisible window over the whole desktop that notices a click anywhere but in the holes. It stands in
/// for a pointer grab where none is possible: under XWayland a grab ends at the X11 windows.
class OutsideClickShield final : public QWidget {
public:
    /// `holes` are in the desktop's logical coordinates, as is the point of the click. `pressed` may
    /// delete the shield.
    OutsideClickShield(const QRegion& holes, std::function<void(QPoint at)> pressed);

    void setHoles(const QRegion& holes);

protected:
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    std::function<void(QPoint)> m_pressed;
};

}  // namespace velmora
