#include "platform/linux/files/StatFile.h"

#include "platform/linux/files/SystemRoot.h"

#include <utility>

namespace velmora {

StatFile::StatFile(const SystemRoot& root) : m_file(root.path("proc/stat")) {}

std::optional<std::string_view> StatFile::read() {
    m_unused = m_file.read();
    return m_unused;
}

std::optional<std::string_view> StatFile::readOrReuse() {
    if (m_unused) return std::exchange(m_unused, std::nullopt);
    return m_file.read();
}

}  // namespace velmora
