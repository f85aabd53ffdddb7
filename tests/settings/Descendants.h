#pragma once

#include <QWidget>

#include <stdexcept>
#include <vector>

namespace velmora {

/// The widgets of a type inside a widget. The toolkit's own search knows only types with signals.
template <typename Widget>
std::vector<Widget*> descendants(const QWidget& root) {
    std::vector<Widget*> found;
    for (QWidget* child : root.findChildren<QWidget*>()) {
        if (auto* const match = dynamic_cast<Widget*>(child)) found.push_back(match);
    }
    return found;
}

/// The single one; throws if there are none or several.
template <typename Widget>
Widget& descendant(const QWidget& root) {
    const std::vector<Widget*> found = descendants<Widget>(root);
    if (found.size() != 1) throw std::runtime_error("not exactly one");
    return *found.front();
}

}  // namespace velmora
