#pragma once

#include "platform/qt/x11/Strut.h"

#include <QtGui/qwindowdefs.h>
#include <QRect>

#include <cstdint>
#include <vector>

struct xcb_connection_t;

namespace velmora {

/// The X11 properties that make a window a dock. They are written to the server directly: what the toolkit
/// offers adds types of its own, and with more than one type some window managers push the window out of the
/// room that it reserves. Does nothing where the program does not run on X11.
class DockProperties {
public:
    explicit DockProperties(WId window);

    /// To be called before the window is shown for the first time.
    void declareDock();
    void setStrut(const Strut& strut);

    /// A dock among the windows that the window manager lists.
    struct Dock {
        WId window = 0;
        QRect geometry;  ///< In device pixels of the whole desktop.
    };
    /// Asks the server several times and waits for its answers, so never at a steady rate.
    static std::vector<Dock> allDocks();
    /// False where there is no X server.
    static bool serverHasExtension(const char* name);

private:
    void write(std::uint32_t property, std::uint32_t type, const std::uint32_t* values, std::uint32_t count);

    xcb_connection_t* m_connection = nullptr;
    std::uint32_t m_window = 0;
    std::uint32_t m_windowType = 0;
    std::uint32_t m_dock = 0;
    std::uint32_t m_strut = 0;
    std::uint32_t m_strutPartial = 0;
};

}  // namespace velmora
