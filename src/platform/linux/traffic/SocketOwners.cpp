#include "platform/linux/traffic/SocketOwners.h"

#include "base/FormatText.h"
#include "base/ParseNumber.h"

#include <dirent.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <memory>

namespace velmora {
namespace {

struct Closer {
    void operator()(DIR* folder) const { ::closedir(folder); }
};

std::optional<std::uint32_t> inodeAt(int folder, const char* name) {
    std::array<char, 64> target{};
    const ssize_t length = ::readlinkat(folder, name, target.data(), target.size());
    if (length <= 0) return std::nullopt;
    return SocketOwners::inodeOfLink({target.data(), static_cast<std::size_t>(length)});
}

}  // namespace

SocketOwners::SocketOwners(const SystemRoot& root)
    : m_folder(root), m_procPath(root.path("proc")), m_user(::geteuid()) {}

std::optional<std::uint32_t> SocketOwners::inodeOfLink(std::string_view target) {
    constexpr std::string_view kBegin = "socket:[";
    if (!target.starts_with(kBegin) || !target.ends_with(']')) return std::nullopt;
    target.remove_prefix(kBegin.size());
    target.remove_suffix(1);
    return parseNumber<std::uint32_t>(target);
}

void SocketOwners::update(std::span<const std::uint32_t> inodes) {
    const std::unordered_set<std::uint32_t> present(inodes.begin(), inodes.end());
    std::erase_if(m_owners, [&present](const auto& entry) { return !present.contains(entry.first); });
    m_wanted.clear();
    for (const std::uint32_t inode : present) {
        if (inode != 0 && !m_owners.contains(inode)) m_wanted.insert(inode);
    }
    if (m_wanted.empty()) return;

    std::vector<std::int32_t> known;
    for (const auto& [inode, owner] : m_owners) {
        if (owner.pid != 0) known.push_back(owner.pid);
    }
    std::ranges::sort(known);
    known.erase(std::unique(known.begin(), known.end()), known.end());
    for (const std::int32_t pid : known) search(pid);
    if (!m_wanted.empty() && m_folder.list(m_pids)) {
        for (const std::int32_t pid : m_pids) {
            if (!std::ranges::binary_search(known, pid)) search(pid);
        }
    }
    for (const std::uint32_t inode : m_wanted) m_owners[inode] = Owner{};
}

void SocketOwners::search(std::int32_t pid) {
    if (m_wanted.empty()) return;
    const std::string path = formatText("%s/%d/fd", {m_procPath, pid});
    // That of another user cannot be opened, but root could open all.
    if (m_folder.owner(pid).value_or(m_user) != m_user) return;
    const std::unique_ptr<DIR, Closer> folder(::opendir(path.c_str()));
    if (!folder) return;
    while (const dirent* entry = ::readdir(folder.get())) {
        const auto descriptor = parseNumber<std::int32_t>(std::string_view(entry->d_name));
        if (!descriptor) continue;
        const auto inode = inodeAt(::dirfd(folder.get()), entry->d_name);
        if (!inode || m_wanted.erase(*inode) == 0) continue;
        m_owners[*inode] = Owner{pid, *descriptor};
        if (m_wanted.empty()) return;
    }
}

std::optional<std::int32_t> SocketOwners::owner(std::uint32_t inode) const {
    const auto found = m_owners.find(inode);
    if (found == m_owners.end() || found->second.pid == 0) return std::nullopt;
    return found->second.pid;
}

void SocketOwners::recheck(std::uint32_t inode) {
    const auto found = m_owners.find(inode);
    if (found == m_owners.end() || found->second.pid == 0) return;
    const std::string link =
        formatText("%s/%d/fd/%d", {m_procPath, found->second.pid, found->second.descriptor});
    std::array<char, 64> target{};
    const ssize_t length = ::readlink(link.c_str(), target.data(), target.size());
    if (length > 0 && inodeOfLink({target.data(), static_cast<std::size_t>(length)}) == inode) return;
    m_owners.erase(found);
}

}  // namespace velmora
