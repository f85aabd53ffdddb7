#include "platform/linux/disk/LinuxDiskPlaces.h"

#include "base/FormatText.h"
#include "platform/linux/disk/LinuxMountTable.h"
#include "platform/linux/disk/MountFilter.h"
#include "platform/linux/disk/MountInfo.h"
#include "platform/linux/disk/TreeSize.h"
#include "platform/linux/files/SystemFile.h"
#include "platform/linux/files/UserDirs.h"
#include "platform/linux/files/XdgFolders.h"
#include "platform/linux/loop/IdlePriority.h"

#include <pwd.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <system_error>
#include <utility>

namespace velmora {
namespace {

namespace fs = std::filesystem;
using Folders = std::vector<std::string>;

/// What the folders of known programs are called that keep them in step with a server.
constexpr std::string_view kCloudFolders[] = {"Nextcloud", "ownCloud", "Dropbox",
                                              "OneDrive",  "MEGA",     "pCloudDrive"};

}  // namespace

LinuxDiskPlaces::User LinuxDiskPlaces::thisUser() {
    User user{.home = "/", .configHome = xdgConfigHome(), .dataHome = xdgDataHome(), .id = ::getuid()};
    if (const char* home = std::getenv("HOME"); home != nullptr && home[0] == '/') {
        user.home = home;
    } else if (const passwd* entry = ::getpwuid(user.id); entry != nullptr && entry->pw_dir != nullptr) {
        user.home = entry->pw_dir;
    }
    return user;
}

LinuxDiskPlaces::LinuxDiskPlaces(SystemRoot root, User user)
    : m_root(std::move(root)), m_user(std::move(user)) {}

DiskPlaces LinuxDiskPlaces::places() {
    readMounts();
    const fs::path& home = m_user.home;
    const fs::path flatpak = m_user.dataHome / "flatpak";
    DiskPlaces places;
    places.documents = documents();
    places.applications =
        distinct({m_root.path("opt"), m_root.path("var/lib/flatpak"), m_root.path("var/lib/snapd/snaps"),
                  flatpak, home / "Applications", home / "AppImages"});
    places.cloud = cloud();
    places.library =
        distinct({home / ".cache", m_user.configHome, home / ".local", m_user.dataHome, home / ".var"});
    places.library.insert(places.library.end(), places.cloud.begin(), places.cloud.end());
    places.trash = trash();

    m_allPlaces.clear();
    for (const Folders* folders :
         {&places.documents, &places.applications, &places.cloud, &places.library, &places.trash}) {
        m_allPlaces.insert(folders->begin(), folders->end());
    }
    return places;
}

std::int64_t LinuxDiskPlaces::dirSize(const std::string& folder, const std::stop_token& stop) {
    std::set<std::string> leftOut;
    for (const std::set<std::string>* paths : {&m_mountPoints, &m_allPlaces}) {
        for (const std::string& path : *paths) {
            if (path != folder && MountFilter::isAtOrBelow(path, folder)) leftOut.insert(path);
        }
    }
    const IdlePriority idle;
    return treeSize(folder, leftOut, stop);
}

std::optional<fs::path> LinuxDiskPlaces::reached(const fs::path& path) const {
    constexpr int kMostLinks = 40;
    std::vector<fs::path> steps;  // The next one stands last.
    const auto putInFront = [&steps](const fs::path& way) {
        const std::vector<fs::path> parts(way.begin(), way.end());
        steps.insert(steps.end(), parts.rbegin(), parts.rend());
    };
    putInFront(path);
    fs::path place = "/";
    for (int links = 0; !steps.empty();) {
        const fs::path step = std::exchange(steps.back(), {});
        steps.pop_back();
        if (step.empty() || step == ".") continue;
        if (step == "/" || step == "..") {
            place = step == "/" ? step : place.parent_path();
            continue;
        }
        const fs::path next = place / step;
        if (m_slowMountPoints.contains(next.string())) return std::nullopt;
        std::error_code noLink;
        const fs::path target = fs::read_symlink(next, noLink);
        if (noLink) {
            place = next;
        } else if (++links <= kMostLinks) {
            putInFront(target);
        } else {
            return std::nullopt;
        }
    }
    return place;
}

std::vector<std::string> LinuxDiskPlaces::distinct(const std::vector<fs::path>& paths) const {
    Folders folders;
    for (const fs::path& path : paths) {
        const auto folder = reached(path);
        if (folder && !MountFilter::isAtOrBelow(m_home.string(), folder->string()))
            folders.push_back(folder->string());
    }
    // A folder sorts before those inside it.
    const std::set<std::string> sorted(folders.begin(), folders.end());
    std::set<std::string> outermost;
    for (const std::string& folder : sorted) {
        const bool isInside = std::ranges::any_of(
            outermost, [&](const std::string& outer) { return MountFilter::isAtOrBelow(folder, outer); });
        if (!isInside) outermost.insert(folder);
    }
    return {outermost.begin(), outermost.end()};
}

std::vector<std::string> LinuxDiskPlaces::documents() const {
    // A switched-off folder is the home folder, which would have everything counted and is no place.
    const auto text = readSystemFile((m_user.configHome / "user-dirs.dirs").string());
    const auto named = parseUserDirs(text.value_or(""), m_user.home);
    constexpr std::array<std::pair<std::string_view, std::string_view>, 3> kFolders = {
        {{"DOCUMENTS", "Documents"}, {"DESKTOP", "Desktop"}, {"DOWNLOAD", "Downloads"}}};
    std::vector<fs::path> paths;
    for (const auto& [key, usual] : kFolders) {
        const auto entry = named.find(key);
        paths.push_back(entry == named.end() ? m_user.home / usual : entry->second);
    }
    return distinct(paths);
}

std::vector<std::string> LinuxDiskPlaces::cloud() const {
    std::vector<fs::path> paths;
    for (const std::string_view name : kCloudFolders) {
        const fs::path path = m_home / name;
        // A mount shows what lies on the server, not on this disk.
        if (m_mountPoints.contains(path.string())) continue;
        std::error_code error;
        if (fs::symlink_status(path, error).type() == fs::file_type::directory) paths.push_back(path);
    }
    return distinct(paths);
}

std::vector<std::string> LinuxDiskPlaces::trash() const {
    std::vector<fs::path> paths = {m_user.dataHome / "Trash"};
    for (const std::string& volume : m_localVolumes) {
        paths.push_back(fs::path(volume) / formatText(".Trash-%u", {m_user.id}));
    }
    return distinct(paths);
}

void LinuxDiskPlaces::readMounts() {
    m_mountPoints.clear();
    m_slowMountPoints.clear();
    m_localVolumes.clear();
    const auto pathOf = [this](std::string_view mountPoint) { return m_root.path(mountPoint.substr(1)); };
    const auto text = readSystemFile(m_root.path("proc/self/mountinfo"), std::size_t{16} << 20);
    const std::vector<MountEntry> entries = parseMountInfo(text.value_or(""));
    for (const MountEntry& entry : entries) m_mountPoints.insert(pathOf(entry.mountPoint));
    for (const std::string& point : MountFilter::slowMountPoints(entries, {}))
        m_slowMountPoints.insert(pathOf(point));
    for (const MountEntry& entry : LinuxMountTable(m_root).read()) {
        std::string path = pathOf(entry.mountPoint);
        if (entry.needsNetwork) m_slowMountPoints.insert(path);
        const bool isLocal = !entry.isBehindSlowMount && !MountFilter::isNetworkType(entry.type) &&
                             !m_slowMountPoints.contains(path);
        if (isLocal) m_localVolumes.push_back(std::move(path));
    }

    std::error_code error;
    m_home = fs::canonical(m_user.home, error);
    if (error) m_home = m_user.home.lexically_normal();
    std::erase_if(m_slowMountPoints, [this](const std::string& point) {
        return MountFilter::isAtOrBelow(m_home.string(), point);
    });
}

}  // namespace velmora
