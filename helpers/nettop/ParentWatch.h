#pragma once

#include "platform/linux/traffic/ParentMark.h"

#include <optional>

#include <sys/types.h>

namespace velmora {

/// Ties this process to the one that launched it: the kernel is asked to end it when that one dies, however
/// it dies. Death before the asking shows in another parent.
class ParentWatch {
public:
    ParentWatch();

    bool isAlive() const;

private:
    std::optional<ParentMark> m_mark;  ///< From the environment; nothing if a user called the tool himself.
    pid_t m_parent;
};

}  // namespace velmora
