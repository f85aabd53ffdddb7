#include "settings/window/OverlayScrollers.h"

#include "panels/kit/BlendScroller.h"
#include "settings/controls/SettingsScheme.h"

#include <QAbstractScrollArea>

namespace velmora {
namespace {

void forceOverlay(QAbstractScrollArea& area) {
    const Scheme scheme = schemeOf(&area);
    const auto overlay = [scheme](QScrollBar* bar) {
        auto* const present = qobject_cast<BlendScroller*>(bar);
        if (present) present->setScheme(scheme);
        return present != nullptr;
    };
    if (!overlay(area.verticalScrollBar()))
        area.setVerticalScrollBar(new BlendScroller(Qt::Vertical, scheme, &area));
    if (!overlay(area.horizontalScrollBar()))
        area.setHorizontalScrollBar(new BlendScroller(Qt::Horizontal, scheme, &area));
}

}  // namespace

void forceOverlayScrollers(QWidget& root) {
    if (auto* const area = qobject_cast<QAbstractScrollArea*>(&root)) forceOverlay(*area);
    for (QAbstractScrollArea* const area : root.findChildren<QAbstractScrollArea*>()) forceOverlay(*area);
}

}  // namespace velmora
