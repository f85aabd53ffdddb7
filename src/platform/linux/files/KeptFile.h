#pragma once

#include "platform/linux/files/FileDescriptor.h"

#include <cstddef>
#include <limits>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

namespace velmora {

/// A file of the kernel that is read again and again. It is opened once, and each read takes the whole
/// contents at offset 0 in one call, so that they belong to one moment, into a buffer that is reused. After
/// an error (a device that went away answers ENODEV for ever) it is closed and opened anew.
class KeptFile {
public:
    explicit KeptFile(std::string path);

    static constexpr std::size_t kWhole = std::numeric_limits<std::size_t>::max();

    /// The contents, valid until the next read; nothing if the file cannot be opened or read. With a limit
    /// the text may be cut there: some kernel files cost less when less is asked for.
    std::optional<std::string_view> read(std::size_t limit = kWhole);

    const std::string& path() const { return m_path; }
    bool isOpen() const { return static_cast<bool>(m_descriptor); }

private:
    bool open();
    std::optional<std::string_view> readOpen(std::size_t limit);
    void grow();

    std::string m_path;
    FileDescriptor m_descriptor;
    std::size_t m_capacity = 0;
    std::unique_ptr<char[]> m_buffer;
};

}  // namespace velmora
