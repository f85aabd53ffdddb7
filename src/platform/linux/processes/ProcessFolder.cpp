#include "platform/linux/processes/ProcessFolder.h"

#include "base/ParseNumber.h"

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstring>

#include <dirent.h>
#include <fcntl.h>
#include <limits.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <unistd.h>

namespace velmora {
namespace {

constexpr std::size_t kEntriesSize = 65536;
constexpr std::size_t kBufferSize = 16384;

/// "4711/stat" and the like with its terminator, without an allocation.
class ProcessPath {
public:
    ProcessPath(std::int32_t pid, std::string_view file) {
        char* end = std::to_chars(m_text.data(), m_text.data() + m_text.size(), pid).ptr;
        if (!file.empty()) {
            *end++ = '/';
            const auto room = static_cast<std::size_t>(m_text.data() + m_text.size() - end) - 1;
            end = std::copy_n(file.data(), std::min(file.size(), room), end);
        }
        *end = '\0';
    }
    const char* text() const { return m_text.data(); }

private:
    std::array<char, 32> m_text{};
};

struct DirectoryEntry {
    std::uint64_t inode;
    std::int64_t offset;
    std::uint16_t length;
    std::uint8_t type;
};
constexpr std::size_t kNameOffset = 19;

void addProcesses(const std::byte* entries, std::size_t size, std::vector<std::int32_t>& pids) {
    std::size_t position = 0;
    while (position + kNameOffset < size) {
        DirectoryEntry entry{};
        std::memcpy(&entry, entries + position, kNameOffset);
        const std::size_t length = std::min<std::size_t>(entry.length, size - position);
        if (length <= kNameOffset) return;
        const char* const name = reinterpret_cast<const char*>(entries + position + kNameOffset);
        const std::string_view text(name, ::strnlen(name, length - kNameOffset));
        const auto pid = parseNumber<std::int32_t>(text);
        if (pid && *pid > 0) pids.push_back(*pid);
        position += length;
    }
}

}  // namespace

ProcessFolder::ProcessFolder(const SystemRoot& root) : m_path(root.path("proc")) {}

bool ProcessFolder::open() {
    if (m_folder) return true;
    m_folder = FileDescriptor(::open(m_path.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
    return static_cast<bool>(m_folder);
}

bool ProcessFolder::list(std::vector<std::int32_t>& pids) {
    pids.clear();
    if (!open() || ::lseek(m_folder.get(), 0, SEEK_SET) < 0) return false;
    if (!m_entries) m_entries = std::make_unique_for_overwrite<std::byte[]>(kEntriesSize);
    for (;;) {
        const long size = ::syscall(SYS_getdents64, m_folder.get(), m_entries.get(), kEntriesSize);
        if (size < 0) return false;
        if (size == 0) break;
        addProcesses(m_entries.get(), static_cast<std::size_t>(size), pids);
    }
    // The kernel's own folder is in order already; a captured one is not.
    if (!std::ranges::is_sorted(pids)) std::ranges::sort(pids);
    return true;
}

std::optional<std::string_view> ProcessFolder::read(std::int32_t pid, std::string_view file) {
    if (!open()) return std::nullopt;
    if (!m_buffer) m_buffer = std::make_unique_for_overwrite<char[]>(kBufferSize);
    const ProcessPath path(pid, file);
    m_lastRead = FileDescriptor(::openat(m_folder.get(), path.text(), O_RDONLY | O_CLOEXEC));
    if (!m_lastRead) return std::nullopt;
    ssize_t length = 0;
    do {
        length = ::read(m_lastRead.get(), m_buffer.get(), kBufferSize);
    } while (length < 0 && errno == EINTR);
    if (length < 0) return std::nullopt;
    return std::string_view(m_buffer.get(), static_cast<std::size_t>(length));
}

std::optional<std::uint32_t> ProcessFolder::ownerOfLastRead() {
    struct stat status {};
    if (!m_lastRead || ::fstat(m_lastRead.get(), &status) != 0) return std::nullopt;
    return status.st_uid;
}

std::optional<std::uint32_t> ProcessFolder::owner(std::int32_t pid) const {
    struct stat status {};
    const ProcessPath path(pid, "");
    if (!m_folder || ::fstatat(m_folder.get(), path.text(), &status, 0) != 0) return std::nullopt;
    return status.st_uid;
}

std::string ProcessFolder::executable(std::int32_t pid) const {
    std::array<char, PATH_MAX> target{};
    const ProcessPath path(pid, "exe");
    const ssize_t length =
        m_folder ? ::readlinkat(m_folder.get(), path.text(), target.data(), target.size()) : -1;
    if (length <= 0) return {};
    std::string_view executable(target.data(), static_cast<std::size_t>(length));
    // Appended once the file was replaced, as every package upgrade does.
    constexpr std::string_view kReplaced = " (deleted)";
    if (executable.ends_with(kReplaced)) executable.remove_suffix(kReplaced.size());
    return std::string(executable);
}

}  // namespace velmora
