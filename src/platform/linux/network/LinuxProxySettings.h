#pragma once

#include "platform/NetworkConfigurationSource.h"
#include "platform/linux/network/GioProxySettings.h"
#include "platform/linux/network/ProxyText.h"

#include <filesystem>
#include <optional>
#include <string>

namespace velmora {

/// The proxy of the desktop's settings; where these ask for none, the one of the environment. Nothing is
/// looked for in the network.
class LinuxProxySettings final : public ProxySettingsSource {
public:
    /// Of the user who runs the program.
    LinuxProxySettings();
    LinuxProxySettings(const std::filesystem::path& configurationFolder, ProxyText::Environment environment);

    std::optional<ProxySettings> read() override;

private:
    std::optional<ProxySettings> readDesktop();

    std::filesystem::path m_kioFile;
    ProxyText::Environment m_environment;
    ProxyText::Desktop m_desktop;
    GioProxySettings m_gio;
};

}  // namespace velmora
