#pragma once

#include "platform/linux/files/FileDescriptor.h"
#include "platform/linux/files/SystemRoot.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace velmora {

/// The folder /proc as a walk over all processes needs it: kept open, listed in large blocks, files opened by
/// names relative to it and read into one buffer. One thread at a time.
class ProcessFolder {
public:
    explicit ProcessFolder(const SystemRoot& root);

    /// Replaces `pids` with the process ids, ascending. False if the folder cannot be read.
    bool list(std::vector<std::int32_t>& pids);

    /// The file of a process in one read, valid until the next one; cut at 16 KiB. Nothing if it cannot be
    /// read.
    std::optional<std::string_view> read(std::int32_t pid, std::string_view file);
    /// Owner of the file that was read last: the user of the process, or root for a process whose memory
    /// others must not see.
    std::optional<std::uint32_t> ownerOfLastRead();
    /// Owner of the folder of a process, which is always its user.
    std::optional<std::uint32_t> owner(std::int32_t pid) const;
    /// Where the `exe` link leads to, without " (deleted)"; empty if it cannot be read.
    std::string executable(std::int32_t pid) const;

private:
    bool open();

    std::string m_path;
    FileDescriptor m_folder;
    FileDescriptor m_lastRead;
    std::unique_ptr<std::byte[]> m_entries;
    std::unique_ptr<char[]> m_buffer;
};

}  // namespace velmora
