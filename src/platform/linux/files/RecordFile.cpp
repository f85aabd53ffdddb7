#include "platform/linux/files/RecordFile.h"

#include <cerrno>
#include <utility>

#include <fcntl.h>
#include <unistd.h>

namespace velmora {
namespace {

constexpr std::size_t kFirstCapacity = 8192;
/// Smaller than the pages of any machine that this runs on, or as large.
constexpr std::size_t kSmallestPage = 4096;
constexpr std::size_t kLargestCapacity = std::size_t{16} << 20;

}  // namespace

RecordFile::RecordFile(std::string path, std::size_t longestRecord)
    : m_path(std::move(path)), m_longestRecord(longestRecord) {}

std::optional<std::string_view> RecordFile::read() {
    const bool wasOpen = static_cast<bool>(m_descriptor);
    bool isRead = (wasOpen || open()) && readToEnd();
    if (!isRead && wasOpen) isRead = open() && readToEnd();
    if (isRead) return std::string_view(m_buffer).substr(0, m_length);
    m_descriptor.reset();
    return std::nullopt;
}

bool RecordFile::open() {
    m_descriptor = FileDescriptor(::open(m_path.c_str(), O_RDONLY | O_CLOEXEC));
    return static_cast<bool>(m_descriptor);
}

bool RecordFile::readToEnd() {
    m_length = 0;
    for (;;) {
        if (m_length == m_buffer.size()) {
            if (m_length >= kLargestCapacity) return true;
            m_buffer.resize(m_buffer.empty() ? kFirstCapacity : 2 * m_buffer.size());
        }
        const ssize_t count = ::pread(m_descriptor.get(), m_buffer.data() + m_length,
                                      m_buffer.size() - m_length, static_cast<off_t>(m_length));
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) return false;
        if (count == 0) return true;
        m_length += static_cast<std::size_t>(count);
        // A read ends before the page does only where the next record would not fit, or where there is none.
        if (static_cast<std::size_t>(count) + m_longestRecord < kSmallestPage) return true;
    }
}

}  // namespace velmora
