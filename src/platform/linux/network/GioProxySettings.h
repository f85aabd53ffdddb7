#pragma once

#include "platform/linux/network/ProxyText.h"

#include <memory>
#include <optional>

namespace velmora {

/// The proxy that GNOME and its relatives keep in GSettings. The library is looked for when it is first
/// needed, since other desktops are complete without it, and stays loaded.
class GioProxySettings {
public:
    GioProxySettings();
    ~GioProxySettings();
    GioProxySettings(const GioProxySettings&) = delete;
    GioProxySettings& operator=(const GioProxySettings&) = delete;

    /// Nothing without the library or without the settings' description.
    std::optional<ProxyText::GnomeSettings> read();

private:
    struct Library;

    std::unique_ptr<Library> m_library;
    bool m_looked = false;
};

}  // namespace velmora
