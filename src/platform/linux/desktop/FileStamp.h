#pragma once

#include <cstdint>
#include <string>

namespace velmora {

/// What tells that a file or a folder has changed since it was looked at last.
struct FileStamp {
    enum class Kind : std::uint8_t { absent, file, folder, other };

    Kind kind = Kind::absent;
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    std::int64_t size = 0;
    std::int64_t changeSeconds = 0;
    std::int64_t changeNanoseconds = 0;
    /// It had changed just before: a further change in the same moment may leave the same time behind.
    bool isFresh = false;

    /// Follows symbolic links; one that leads nowhere is absent.
    static FileStamp of(const std::string& path);
    /// True if what was read at that stamp still holds.
    bool isStill(const FileStamp& now) const;
};

}  // namespace velmora
