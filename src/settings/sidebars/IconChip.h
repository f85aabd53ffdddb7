#pragma once

#include "core/SettingsRouter.h"

#include <QColor>
#include <QRectF>

#include <string_view>

class QPainter;

namespace velmora {

/// A coloured tile with a white symbol, as a tab has one in the sidebar.
struct IconChip {
    static constexpr int kSide = 26;

    std::string_view symbol;
    QColor top;
    QColor bottom;

    /// The tab's own.
    static IconChip of(SettingsTab tab);
    void paint(QPainter& painter, const QRectF& tile) const;
};

}  // namespace velmora
