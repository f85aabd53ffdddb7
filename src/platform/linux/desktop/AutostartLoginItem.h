#pragma once

#include "platform/LoginItem.h"

#include <filesystem>
#include <string>
#include <utility>
#include <vector>

namespace velmora {

/// What an autostart entry is made of.
struct AutostartEntry {
    std::string identifier;            ///< Name of the entry's file, without ".desktop".
    std::string executable;            ///< Absolute path, with all of its characters as they are.
    std::filesystem::path userFolder;  ///< `<configuration folder>/autostart`.
    std::vector<std::filesystem::path> systemFolders;  ///< `/etc/xdg/autostart` …
};

/// Starting at login by the desktop's autostart folder (the XDG autostart rules): a
/// desktop entry there is started by GNOME, KDE, Xfce, LXQt, Cinnamon and MATE. Where the system's
/// administrator starts the program for everybody, an entry of the user that is hidden says no.
class AutostartLoginItem final : public LoginItem {
public:
    explicit AutostartLoginItem(AutostartEntry entry) : m_entry(std::move(entry)) {}

    std::optional<std::string> registerItem() override;
    std::optional<std::string> unregisterItem() override;

private:
    std::filesystem::path file() const;

    AutostartEntry m_entry;
};

}  // namespace velmora
