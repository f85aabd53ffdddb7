#include "settings/sidebars/SidebarDivider.h"

#include "look/Ink.h"
#include "settings/controls/SettingsScheme.h"

#include <QPainter>

namespace velmora {
namespace {

constexpr int kSides = 12;
constexpr int kAboveAndBelow = 8;
constexpr int kLine = 1;
constexpr double kOpacity = 0.1;

}  // namespace

SidebarDivider::SidebarDivider(QWidget* parent) : QWidget(parent) {
    setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
}

QSize SidebarDivider::sizeHint() const {
    return {2 * kSides, 2 * kAboveAndBelow + kLine};
}

void SidebarDivider::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.fillRect(QRect(kSides, kAboveAndBelow, width() - 2 * kSides, kLine),
                     Ink::primary(schemeOf(this), kOpacity));
}

}  // namespace velmora
