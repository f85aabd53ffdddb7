#pragma once

#include "platform/linux/files/FileDescriptor.h"

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace velmora {

/// A file of the kernel that is read again and again and that the kernel writes record by record, such as
/// /proc/diskstats and the mount table. However large the buffer, one read gives no more than the records
/// that fit into a page, so that the rest takes further reads, each of which goes on where the last ended.
/// After an error the file is closed and opened anew.
class RecordFile {
public:
    /// Who knows a length that no record reaches saves the last read, which would give nothing.
    explicit RecordFile(std::string path, std::size_t longestRecord = kUnknown);

    /// The contents, valid until the next read; nothing if the file cannot be opened or read. No such file
    /// comes near 16 MiB; a longer one is cut.
    std::optional<std::string_view> read();

    const std::string& path() const { return m_path; }

private:
    static constexpr std::size_t kUnknown = std::size_t{1} << 30;

    bool open();
    bool readToEnd();

    std::string m_path;
    std::size_t m_longestRecord;
    FileDescriptor m_descriptor;
    std::string m_buffer;  ///< Grows to what the file needs and stays.
    std::size_t m_length = 0;
};

}  // namespace velmora
