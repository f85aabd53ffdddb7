#pragma once

#include "platform/WindowBlur.h"

#include <QAbstractNativeEventFilter>

#include <cstdint>

struct xcb_connection_t;

namespace velmora {

/// The blur of compositors on X11 that announce "_KDE_NET_WM_BLUR_BEHIND_REGION": a property of that name on
/// the root window says that the effect runs, one on a window lists its blurred rectangles. Elsewhere nothing
/// is blurred.
class X11WindowBlur final : public WindowBlur, private QAbstractNativeEventFilter {
public:
    /// Needs the application object, and must go before it.
    X11WindowBlur();
    ~X11WindowBlur() override;

    bool isAvailable() const override;
    void setArea(std::uintptr_t window, const Area& area) override;

private:
    bool nativeEventFilter(const QByteArray& eventType, void* message, qintptr* result) override;

    xcb_connection_t* m_connection = nullptr;
    std::uint32_t m_root = 0;
    std::uint32_t m_region = 0;
    std::uint32_t m_compositor = 0;  ///< The selection that a compositor owns.
};

}  // namespace velmora
