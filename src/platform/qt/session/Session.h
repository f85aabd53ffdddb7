#pragma once

#include <cstdint>
#include <string_view>

namespace velmora {

/// What the program runs in, as far as the status bar depends on it.
struct Session {
    enum class WindowSystem : std::uint8_t {
        x11,        ///< A real X server: windows go where they want, the pointer is known.
        xwayland,   ///< Windows go where they want, the pointer is known only over our own windows.
        wayland,    ///< The compositor places windows.
        offscreen,  ///< Windows that nobody sees.
        native,     ///< Another system's own: windows go where they want.
    };
    enum class Desktop : std::uint8_t { gnome, plasma, xfce, other };

    WindowSystem windows = WindowSystem::native;
    Desktop desktop = Desktop::other;
    friend bool operator==(const Session&, const Session&) = default;

    /// Looks at the running application and its environment.
    static Session current();
    /// The desktop of a value of `XDG_CURRENT_DESKTOP`, a list with colons.
    static Desktop desktopNamed(std::string_view names);
};

}  // namespace velmora
