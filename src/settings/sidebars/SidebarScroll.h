#pragma once

#include <QScrollArea>

namespace velmora {

/// Scrolls its content up and down within a see-through frame. The content is as wide as the view and at
/// least as high.
class SidebarScroll final : public QScrollArea {
public:
    enum class Indicator { none, overlay };

    SidebarScroll(QWidget* content, Indicator indicator, QWidget* parent = nullptr);
};

}  // namespace velmora
