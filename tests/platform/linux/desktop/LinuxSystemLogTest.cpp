#include "platform/linux/desktop/LinuxSystemLog.h"

#include "fakes/FakeClock.h"

#include <gtest/gtest.h>

#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

namespace velmora {
namespace {

TEST(LinuxSystemLog, LineGoesToStandardErrorWhole) {
    const FakeClock clock;
    ::unsetenv("JOURNAL_STREAM");
    LinuxSystemLog log(clock);
    ::testing::internal::CaptureStderr();
    log.write("Velmora: first");
    log.write("Velmora: 100% second");
    EXPECT_EQ(::testing::internal::GetCapturedStderr(), "Velmora: first\nVelmora: 100% second\n");
}

TEST(LinuxSystemLog, LineCanBeReadBackWithItsTime) {
    const FakeClock clock;
    LinuxSystemLog log(clock);
    ::testing::internal::CaptureStderr();
    log.write("Velmora: a line");
    log.write("qt", "a warning");
    ::testing::internal::GetCapturedStderr();
    EXPECT_EQ(log.ring().since(Date{0}), (std::vector<LogLine>{{clock.now(), "velmora", "Velmora: a line"},
                                                               {clock.now(), "qt", "a warning"}}));
}

TEST(LinuxSystemLog, StandardErrorThatIsTheJournalItselfGetsNoSecondCopy) {
    const FakeClock clock;
    ::testing::internal::CaptureStderr();
    struct stat status {};
    ASSERT_EQ(::fstat(STDERR_FILENO, &status), 0);
    // As a service manager tells it; here it is true of a plain file.
    ::setenv("JOURNAL_STREAM", (std::to_string(status.st_dev) + ":" + std::to_string(status.st_ino)).c_str(),
             1);
    LinuxSystemLog log(clock);
    log.write("Velmora: once");
    ::unsetenv("JOURNAL_STREAM");
    const std::string written = ::testing::internal::GetCapturedStderr();
    // Without the journal's library there is no other place, and the line must not be lost.
    EXPECT_TRUE(written.empty() || written == "Velmora: once\n");
    EXPECT_EQ(log.ring().since(Date{0}).size(), 1u);
}

}  // namespace
}  // namespace velmora
