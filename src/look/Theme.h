#pragma once

#include <QColor>

namespace velmora::Theme {

/// The accent colour of the whole interface.
inline constexpr QColor accent = QColor(10, 132, 255);

}  // namespace velmora::Theme
