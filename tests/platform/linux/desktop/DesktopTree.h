#pragma once

#include "platform/linux/desktop/DesktopSurroundings.h"
#include "platform/linux/files/SystemTree.h"

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// A machine with a desktop: a test installs applications and programs in it.
class DesktopTree {
public:
    SystemTree& files() { return m_files; }

    DesktopSurroundings surroundings(std::vector<std::string> desktops = {}) const {
        return {.root = m_files.root(),
                .dataFolders = {"/home/ada/.local/share", "/usr/share"},
                .configurationFolders = {"/home/ada/.config", "/etc/xdg"},
                .programFolders = {"/usr/bin"},
                .desktops = std::move(desktops)};
    }

    /// The path of an entry of the system's, as the program reports it.
    std::string entryPath(std::string_view id) const { return m_files.path(relative("usr/share", id)); }
    std::string usersEntryPath(std::string_view id) const {
        return m_files.path(relative("home/ada/.local/share", id));
    }

    void addEntry(std::string_view id, std::string_view lines) const {
        m_files.write(relative("usr/share", id), entry(lines));
    }
    void addUsersEntry(std::string_view id, std::string_view lines) const {
        m_files.write(relative("home/ada/.local/share", id), entry(lines));
    }
    void removeEntry(std::string_view id) const { m_files.remove(relative("usr/share", id)); }

    void addProgram(const std::string& name) const {
        const std::string path = "usr/bin/" + name;
        m_files.write(path, "");
        std::filesystem::permissions(m_files.path(path), std::filesystem::perms::owner_all);
    }
    /// An entry with its program.
    void install(const std::string& id, const std::string& name, const std::string& program,
                 const std::string& further = "") const {
        addProgram(program);
        addEntry(id, "Name=" + name + "\nExec=" + program + "\n" + further);
    }

private:
    static std::string relative(std::string_view folder, std::string_view id) {
        return std::string(folder) + "/applications/" + std::string(id) + ".desktop";
    }
    static std::string entry(std::string_view lines) {
        return "[Desktop Entry]\nType=Application\n" + std::string(lines);
    }

    SystemTree m_files;
};

}  // namespace velmora
