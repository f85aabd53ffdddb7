#pragma once

#include "look/Scheme.h"

#include <QColor>

/// The plain opaque ground behind a panel.
namespace velmora::MenuBackdrop {

inline QColor surface(Scheme scheme) {
    return scheme == Scheme::dark ? QColor(42, 42, 45) : QColor(255, 255, 255);
}

}  // namespace velmora::MenuBackdrop
