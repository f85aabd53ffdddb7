#pragma once

#include "platform/DiskPlaceSource.h"
#include "platform/linux/files/SystemRoot.h"

#include <sys/types.h>

#include <filesystem>
#include <optional>
#include <set>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// Where a Linux user's bytes lie.
///
/// A mount point inside a place is neither counted nor looked at, since the look at a dead server's folder
/// would not come back; nor is a link followed that leads to such a folder. Only if the home folder itself
/// lies on a server is that one trusted. No byte counts for two places: a place that lies in another is left
/// out of that.
class LinuxDiskPlaces final : public DiskPlaceSource {
public:
    /// Whose files are counted.
    struct User {
        std::filesystem::path home;
        std::filesystem::path configHome;  ///< `$XDG_CONFIG_HOME`
        std::filesystem::path dataHome;    ///< `$XDG_DATA_HOME`
        uid_t id = 0;
    };
    static User thisUser();

    explicit LinuxDiskPlaces(SystemRoot root = SystemRoot(), User user = thisUser());

    DiskPlaces places() override;
    std::int64_t dirSize(const std::string& folder, const std::stop_token& stop) override;

private:
    /// The folder behind links, which a user may put where a folder is expected; the path itself if it leads
    /// nowhere. Nothing if the way leads over a slow mount, of which nothing is looked at.
    std::optional<std::filesystem::path> reached(const std::filesystem::path& path) const;
    /// The folders behind links. Left out are folders inside another of them, what would take in the whole
    /// home folder, and what cannot be reached.
    std::vector<std::string> distinct(const std::vector<std::filesystem::path>& paths) const;
    std::vector<std::string> documents() const;
    std::vector<std::string> cloud() const;
    std::vector<std::string> trash() const;
    void readMounts();

    SystemRoot m_root;
    User m_user;
    std::filesystem::path m_home;  ///< Behind links.
    std::set<std::string> m_mountPoints;
    std::set<std::string> m_slowMountPoints;  ///< Other than the one that the home folder is on.
    std::vector<std::string> m_localVolumes;
    std::set<std::string> m_allPlaces;
};

}  // namespace velmora
