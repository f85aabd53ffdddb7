#pragma once

#include "menubar/MenuBarRenderer.h"

#include <QRectF>
#include <QWidget>

#include <functional>

namespace velmora {

/// A piece of a status bar with the module's item in it, as it looks now.
class PreviewStrip final : public QWidget {
public:
    static constexpr int kHeight = 30;

    /// `render` draws the item at a pixel ratio; it is asked whenever the strip is painted.
    explicit PreviewStrip(std::function<MenuBarImage(double ratio)> render, QWidget* parent = nullptr);

    struct Frames {
        QRectF item;
        QRectF wifi;
        QRectF battery;
        QRectF clock;
    };
    /// Everything stands at the right, with the item leftmost. `item` and `clock` are sizes in points.
    static Frames frames(double width, const QSizeF& item, const QSizeF& clock);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    std::function<MenuBarImage(double)> m_render;
};

}  // namespace velmora
