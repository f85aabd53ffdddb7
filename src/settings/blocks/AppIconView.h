#pragma once

#include <QRectF>
#include <QWidget>

namespace velmora {

/// The program's icon, so large that its artwork fills the view.
class AppIconView final : public QWidget {
public:
    /// The side in points.
    explicit AppIconView(int size, QWidget* parent = nullptr);

protected:
    void paintEvent(QPaintEvent* event) override;
};

}  // namespace velmora
