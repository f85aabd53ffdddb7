#pragma once

#include "look/Scheme.h"

#include <QWidget>

namespace velmora {

/// The opaque ground of a panel, with a hair line around it. It lies below everything else in the panel's
/// window and takes no clicks.
class PanelBackdrop final : public QWidget {
    Q_OBJECT
public:
    enum class Corners { square, round };
    PanelBackdrop(Scheme scheme, Corners corners, QWidget* parent);

    void setScheme(Scheme scheme);

    /// The round corners' radius, and the width of the line in device pixels.
    static constexpr double kRadius = 10;
    static constexpr double kLine = 1;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Scheme m_scheme;
    Corners m_corners;
};

}  // namespace velmora
