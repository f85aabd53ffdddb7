#include "settings/sidebars/SidebarScroll.h"

namespace velmora {

SidebarScroll::SidebarScroll(QWidget* content, Indicator indicator, QWidget* parent) : QScrollArea(parent) {
    setFrameShape(QFrame::NoFrame);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    if (indicator == Indicator::none) setVerticalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setFocusPolicy(Qt::NoFocus);
    setWidgetResizable(true);
    setWidget(content);
    // The sidebar's own ground shows through; asked for after the content, whose ground the area sets.
    viewport()->setAutoFillBackground(false);
    content->setAutoFillBackground(false);
}

}  // namespace velmora
