#include "platform/linux/desktop/LinuxDisplay.h"

#include "platform/linux/files/SystemFile.h"

namespace velmora {

LinuxDisplay::LinuxDisplay(const SystemRoot& root) : m_connectors(root.path("sys/class/drm")) {}

bool LinuxDisplay::isAsleep() const {
    bool anyConnected = false;
    for (const std::string& name : systemFolderEntries(m_connectors)) {
        // Only a connector, such as card0-eDP-1, has a status.
        const std::string connector = m_connectors + "/" + name;
        if (readSystemWord(connector + "/status") != "connected") continue;
        anyConnected = true;
        const bool isDark = readSystemWord(connector + "/dpms") == "Off" ||
                            readSystemWord(connector + "/enabled") == "disabled";
        if (!isDark) return false;
    }
    return anyConnected;
}

}  // namespace velmora
