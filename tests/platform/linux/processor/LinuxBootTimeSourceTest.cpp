#include "platform/linux/processor/LinuxBootTimeSource.h"

#include "platform/linux/files/StatFile.h"
#include "platform/linux/files/SystemTree.h"
#include "platform/linux/processor/LinuxProcessorTicksSource.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

class LinuxBootTimeSourceTest : public testing::Test {
protected:
    void write(const char* bootTime) {
        tree.write("proc/stat", std::string("cpu0 1 2 3 4\nintr 5\nbtime ") + bootTime + "\nprocesses 1\n");
    }

    SystemTree tree;
    std::shared_ptr<StatFile> file = std::make_shared<StatFile>(tree.root());
    LinuxBootTimeSource source{file};
};

TEST_F(LinuxBootTimeSourceTest, BootTimeIsRead) {
    write("1700000000");
    EXPECT_EQ(source.bootTimeSeconds(), 1'700'000'000);
}

TEST_F(LinuxBootTimeSourceTest, MissingFileIsAbsent) {
    EXPECT_EQ(source.bootTimeSeconds(), std::nullopt);
}

TEST_F(LinuxBootTimeSourceTest, BootTimeThatMovesWithTheClockIsReadAnew) {
    write("1700000000");
    source.bootTimeSeconds();
    write("1700003600");
    EXPECT_EQ(source.bootTimeSeconds(), 1'700'003'600);
}

TEST_F(LinuxBootTimeSourceTest, TextOfTheTicksServesOnce) {
    write("1700000000");
    LinuxProcessorTicksSource ticks(file, {});
    std::vector<CoreTicks> cores;
    ASSERT_TRUE(ticks.read(cores));
    write("1700003600");
    EXPECT_EQ(source.bootTimeSeconds(), 1'700'000'000);
    EXPECT_EQ(source.bootTimeSeconds(), 1'700'003'600);
}

}  // namespace
}  // namespace velmora
