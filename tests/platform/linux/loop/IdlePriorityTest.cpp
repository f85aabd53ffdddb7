#include "platform/linux/loop/IdlePriority.h"

#include <gtest/gtest.h>

#include <sys/syscall.h>
#include <unistd.h>

namespace velmora {
namespace {

constexpr int kWhoIsProcess = 1;
constexpr int kIdleClass = 3;

int priorityOfThisThread() {
    return static_cast<int>(::syscall(SYS_ioprio_get, kWhoIsProcess, 0));
}

TEST(IdlePriority, ThreadReadsDisksLastWhileItLives) {
    const int before = priorityOfThisThread();
    // A sandbox may refuse such calls to its programs; the walk then goes on as any other reader.
    if (before < 0) GTEST_SKIP() << "this system tells no priorities of disk reads";
    {
        const IdlePriority idle;
        EXPECT_EQ(priorityOfThisThread() >> 13, kIdleClass);
    }
    EXPECT_EQ(priorityOfThisThread(), before);
}

}  // namespace
}  // namespace velmora
