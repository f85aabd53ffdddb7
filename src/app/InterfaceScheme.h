#pragma once

#include "base/Published.h"
#include "base/Subscription.h"
#include "look/Scheme.h"

namespace velmora {

class DesktopColors;

/// Whether panels and windows are light or dark: what the desktop asks for, followed while they are open.
class InterfaceScheme {
public:
    explicit InterfaceScheme(DesktopColors& colors);
    InterfaceScheme(const InterfaceScheme&) = delete;
    InterfaceScheme& operator=(const InterfaceScheme&) = delete;

    /// Set only when it changes.
    const Published<Scheme>& scheme() const { return m_scheme; }

private:
    Published<Scheme> m_scheme;
    Subscription m_following;
};

}  // namespace velmora
