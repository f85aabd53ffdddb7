#include "platform/linux/loop/IdlePriority.h"

#include <sys/syscall.h>
#include <unistd.h>

namespace velmora {
namespace {

// The numbers of ioprio_set(2). The kernel's own header names a parameter "class" in some versions, which is
// no C++.
constexpr int kWhoIsProcess = 1;
constexpr int kThisThread = 0;
constexpr int kIdleClass = 3 << 13;

}  // namespace

IdlePriority::IdlePriority() {
    m_previous = static_cast<int>(::syscall(SYS_ioprio_get, kWhoIsProcess, kThisThread));
    ::syscall(SYS_ioprio_set, kWhoIsProcess, kThisThread, kIdleClass);
}

IdlePriority::~IdlePriority() {
    if (m_previous >= 0) ::syscall(SYS_ioprio_set, kWhoIsProcess, kThisThread, m_previous);
}

}  // namespace velmora
