#pragma once

#include "platform/linux/processes/ProcessFolder.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

namespace velmora {

/// Which process has a socket open. The kernel tells it the other way round only: each process's folder has a
/// link "socket:[inode]" for each of its sockets, and reading all of them is slow. So answers are kept, all
/// processes are searched only when an unknown socket appears, beginning with those that had sockets before,
/// and a socket that nobody of this user has open is not searched for again.
class SocketOwners {
public:
    explicit SocketOwners(const SystemRoot& root);

    /// Finds the owners of these inodes and forgets all others.
    void update(std::span<const std::uint32_t> inodes);
    /// Nothing for a socket of nobody, or of another user.
    std::optional<std::int32_t> owner(std::uint32_t inode) const;
    /// Forgets the owner if he has closed the socket, which may have passed to another process.
    void recheck(std::uint32_t inode);

    /// The inode in "socket:[4711]"; nothing for another link.
    static std::optional<std::uint32_t> inodeOfLink(std::string_view target);

private:
    struct Owner {
        std::int32_t pid = 0;  ///< 0 for nobody.
        std::int32_t descriptor = 0;
    };
    void search(std::int32_t pid);

    ProcessFolder m_folder;
    std::string m_procPath;
    const std::uint32_t m_user;
    std::unordered_map<std::uint32_t, Owner> m_owners;
    std::unordered_set<std::uint32_t> m_wanted;
    std::vector<std::int32_t> m_pids;
};

}  // namespace velmora
