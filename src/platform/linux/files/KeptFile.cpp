#include "platform/linux/files/KeptFile.h"

#include <algorithm>
#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace velmora {
namespace {

constexpr std::size_t kFirstCapacity = 4096;
/// No file that is kept comes near this; a longer one is cut.
constexpr std::size_t kLargestCapacity = std::size_t{16} << 20;

}  // namespace

KeptFile::KeptFile(std::string path) : m_path(std::move(path)) {}

std::optional<std::string_view> KeptFile::read(std::size_t limit) {
    const bool wasOpen = isOpen();
    if (!wasOpen && !open()) return std::nullopt;
    if (const auto text = readOpen(limit)) return text;
    m_descriptor.reset();
    // A descriptor from an earlier read may stand for a device that has come back since.
    if (!wasOpen || !open()) return std::nullopt;
    const auto text = readOpen(limit);
    if (!text) m_descriptor.reset();
    return text;
}

bool KeptFile::open() {
    m_descriptor = FileDescriptor(::open(m_path.c_str(), O_RDONLY | O_CLOEXEC));
    return isOpen();
}

std::optional<std::string_view> KeptFile::readOpen(std::size_t limit) {
    if (m_capacity == 0) grow();
    for (;;) {
        const std::size_t wanted = std::min(limit, m_capacity);
        const ssize_t length = ::pread(m_descriptor.get(), m_buffer.get(), wanted, 0);
        if (length < 0) {
            if (errno == EINTR) continue;
            return std::nullopt;
        }
        // A buffer filled to the brim may have cut the text. Reading on would be another moment's text.
        const auto size = static_cast<std::size_t>(length);
        if (size < m_capacity || size == limit || m_capacity >= kLargestCapacity)
            return std::string_view(m_buffer.get(), size);
        grow();
    }
}

void KeptFile::grow() {
    m_capacity = m_capacity == 0 ? kFirstCapacity : 4 * m_capacity;
    // The pages of the buffer that no read reaches are never touched, so they cost no memory.
    m_buffer = std::make_unique_for_overwrite<char[]>(m_capacity);
}

}  // namespace velmora
