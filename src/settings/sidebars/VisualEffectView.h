#pragma once

#include "look/Scheme.h"

#include <QColor>
#include <QWidget>

namespace velmora {

/// The ground of a sidebar. Where the desktop blurs what lies behind the window it is a light, see-through
/// tint; everywhere else it is opaque in the same tone.
class VisualEffectView : public QWidget {
public:
    enum class Material { sidebar };
    enum class Blending { behindWindow, withinWindow };

    VisualEffectView(Material material, Blending blending, QWidget* parent = nullptr);

    /// What is behind the window shows through, blurred by the desktop. Means nothing for a view that blends
    /// within its window.
    void setSeesThrough(bool seesThrough);
    /// The colour that the ground is painted in, with the opacity that it has now.
    QColor tint(Scheme scheme) const;

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    Material m_material;
    Blending m_blending;
    bool m_seesThrough = false;
};

}  // namespace velmora
