#include "platform/linux/network/LinuxProxySettings.h"

#include "platform/linux/files/SystemFile.h"
#include "platform/linux/files/XdgFolders.h"

#include <cstdlib>
#include <utility>

namespace velmora {
namespace {

std::optional<std::string> variable(const std::string& name) {
    const char* const value = std::getenv(name.c_str());
    if (!value) return std::nullopt;
    return std::string(value);
}

}  // namespace

LinuxProxySettings::LinuxProxySettings() : LinuxProxySettings(xdgConfigHome(), variable) {}

LinuxProxySettings::LinuxProxySettings(const std::filesystem::path& configurationFolder,
                                       ProxyText::Environment environment)
    : m_kioFile(configurationFolder / "kioslaverc"),
      m_environment(std::move(environment)),
      m_desktop(ProxyText::desktopOf(m_environment("XDG_CURRENT_DESKTOP").value_or(std::string()))) {}

std::optional<ProxySettings> LinuxProxySettings::read() {
    if (auto settings = readDesktop()) return settings;
    return ProxyText::fromEnvironment(m_environment);
}

std::optional<ProxySettings> LinuxProxySettings::readDesktop() {
    switch (m_desktop) {
        case ProxyText::Desktop::gnomeFamily: {
            const auto gnome = m_gio.read();
            return gnome ? ProxyText::fromGnome(*gnome) : std::nullopt;
        }
        case ProxyText::Desktop::kde: {
            const auto text = readSystemFile(m_kioFile.string());
            const auto kio = text ? ProxyText::parseKio(*text) : ProxyText::KioSettings{};
            switch (kio.kind) {
                case ProxyText::KioSettings::Kind::manual:
                case ProxyText::KioSettings::Kind::automatic:
                    return kio.settings;
                case ProxyText::KioSettings::Kind::none:
                case ProxyText::KioSettings::Kind::environment:
                    return std::nullopt;
            }
            return std::nullopt;
        }
        case ProxyText::Desktop::other:
            return std::nullopt;
    }
    return std::nullopt;
}

}  // namespace velmora
