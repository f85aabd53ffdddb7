#pragma once

#include "look/Scheme.h"

#include <QScrollBar>

#include <memory>

class QStyle;

namespace velmora {

/// A scroll bar without a track: only its knob floats over what is scrolled. A scroll area that is given it
/// keeps no room free for it.
class BlendScroller final : public QScrollBar {
    Q_OBJECT
public:
    BlendScroller(Qt::Orientation orientation, Scheme scheme, QWidget* parent = nullptr);
    ~BlendScroller() override;

    void setScheme(Scheme scheme);

    /// The knob for the present value; empty where everything is in sight.
    QRectF knob() const;

protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    std::unique_ptr<QStyle> m_style;
    Scheme m_scheme;
};

}  // namespace velmora
