#pragma once

#include "look/Scheme.h"
#include "panels/kit/Views.h"

#include <functional>

class QWidget;

namespace velmora {

class ProcessIcons;
class ViewWidget;

/// Makes the widget of each kind of view.
class ViewFactory {
public:
    /// `hoverChanged` is called when the pointer moves to another slot of a graph.
    ViewFactory(ProcessIcons& icons, std::function<void()> hoverChanged);

    ViewWidget* make(const PanelView& view, Scheme scheme, QWidget* parent) const;

private:
    ProcessIcons& m_icons;
    std::function<void()> m_hoverChanged;
};

}  // namespace velmora
