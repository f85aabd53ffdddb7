#pragma once

#include "platform/linux/files/KeptFile.h"

#include <optional>
#include <string_view>

namespace velmora {

class SystemRoot;

/// /proc/stat, shared by the two sources that live on it, since making its text is most of what a processor
/// sample costs.
class StatFile {
public:
    explicit StatFile(const SystemRoot& root);

    /// Reads afresh.
    std::optional<std::string_view> read();
    /// The text that `read` gave, once; without a `read` since the last call, reads afresh. A sample asks for
    /// the ticks first and the boot time afterwards.
    std::optional<std::string_view> readOrReuse();

private:
    KeptFile m_file;
    std::optional<std::string_view> m_unused;
};

}  // namespace velmora
