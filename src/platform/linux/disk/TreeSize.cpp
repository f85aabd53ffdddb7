#include "platform/linux/disk/TreeSize.h"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstddef>
#include <memory>
#include <string_view>
#include <unordered_set>
#include <utility>
#include <vector>

namespace velmora {
namespace {

/// Blocks are counted in this size on every file system.
constexpr std::int64_t kBlockBytes = 512;
/// Each level holds a descriptor, of which a process has a thousand.
constexpr std::size_t kDeepest = 200;

struct FolderCloser {
    void operator()(DIR* folder) const { ::closedir(folder); }
};
using Folder = std::unique_ptr<DIR, FolderCloser>;

class TreeWalk {
public:
    TreeWalk(const std::set<std::string>& leftOut, const std::stop_token& stop)
        : m_leftOut(leftOut), m_stop(stop) {}

    std::int64_t run(const std::string& folder) {
        m_path = folder;
        while (m_path.size() > 1 && m_path.ends_with('/')) m_path.pop_back();
        enter(AT_FDCWD, m_path.c_str(), Place::start);
        while (!m_levels.empty() && !m_stop.stop_requested()) visitNext();
        return m_bytes;
    }

private:
    enum class Place { start, below };
    struct Level {
        Folder folder;
        std::size_t pathLength;  ///< Of the folder's own path.
    };

    /// Opens the folder whose path `m_path` is; `name` is the same, seen from the folder above.
    void enter(int above, const char* name, Place place) {
        if (m_levels.size() == kDeepest) return;
        // A start may be reached through a link; below it a link that has just taken a folder's place is not.
        const int follow = place == Place::start ? 0 : O_NOFOLLOW;
        const int descriptor =
            ::openat(above, name, O_RDONLY | O_DIRECTORY | O_CLOEXEC | O_NONBLOCK | follow);
        if (descriptor < 0) return;
        struct stat status {};
        const bool isRead = ::fstat(descriptor, &status) == 0;
        if (place == Place::start) m_device = status.st_dev;
        Folder folder(isRead && status.st_dev == m_device ? ::fdopendir(descriptor) : nullptr);
        if (!folder) {
            ::close(descriptor);
            return;
        }
        m_levels.push_back({std::move(folder), m_path.size()});
    }

    void visitNext() {
        DIR* const folder = m_levels.back().folder.get();
        m_path.resize(m_levels.back().pathLength);
        const dirent* const entry = ::readdir(folder);
        if (!entry) {
            m_levels.pop_back();
            return;
        }
        const std::string_view name = entry->d_name;
        if (name == "." || name == "..") return;
        if (!m_leftOut.empty()) {
            if (m_path != "/") m_path.push_back('/');
            m_path += name;
            if (m_leftOut.contains(m_path)) return;
        }
        const int above = ::dirfd(folder);
        if (entry->d_type == DT_DIR) {
            enterUnlessPackage(above, entry->d_name);
            return;
        }
        struct stat status {};
        if (::fstatat(above, entry->d_name, &status, AT_SYMLINK_NOFOLLOW | AT_NO_AUTOMOUNT) != 0) return;
        // Some file systems do not say what an entry is.
        if (S_ISDIR(status.st_mode)) {
            enterUnlessPackage(above, entry->d_name);
        } else if (status.st_nlink <= 1 || m_counted.insert(status.st_ino).second) {
            m_bytes += status.st_blocks * kBlockBytes;
        }
    }

    void enterUnlessPackage(int above, const char* name) {
        if (!std::string_view(name).ends_with(".app")) enter(above, name, Place::below);
    }

    const std::set<std::string>& m_leftOut;
    const std::stop_token& m_stop;
    std::vector<Level> m_levels;
    std::string m_path;  ///< Below the start only kept while there is something to leave out.
    dev_t m_device = 0;
    std::unordered_set<ino_t> m_counted;  ///< Files with several names.
    std::int64_t m_bytes = 0;
};

}  // namespace

std::int64_t treeSize(const std::string& folder, const std::set<std::string>& leftOut,
                      const std::stop_token& stop) {
    return TreeWalk(leftOut, stop).run(folder);
}

}  // namespace velmora
