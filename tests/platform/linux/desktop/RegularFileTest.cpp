#include "platform/linux/desktop/RegularFile.h"

#include "platform/linux/files/TemporaryFolder.h"

#include <gtest/gtest.h>

#include <sys/stat.h>

namespace velmora {
namespace {

TEST(RegularFile, ContentsAreWhole) {
    const TemporaryFolder folder;
    const std::string text(100'000, 'x');
    EXPECT_EQ(readRegularFile(folder.write("file", text), 100'000), text);
    EXPECT_EQ(readRegularFile(folder.write("empty", ""), 10), "");
}

TEST(RegularFile, LargerThanTheLimitIsNothing) {
    const TemporaryFolder folder;
    EXPECT_EQ(readRegularFile(folder.write("file", "12345"), 4), std::nullopt);
}

TEST(RegularFile, KernelFileThatStatesNoSizeIsRead) {
    const auto text = readRegularFile("/proc/self/status", 65536);
    ASSERT_TRUE(text);
    EXPECT_NE(text->find("Pid:"), std::string::npos);
    EXPECT_EQ(readRegularFile("/proc/self/status", 10), std::nullopt);
}

TEST(RegularFile, PipeIsNotWaitedFor) {
    const TemporaryFolder folder;
    const std::string path = folder.path() / "pipe";
    ASSERT_EQ(::mkfifo(path.c_str(), 0600), 0);
    EXPECT_EQ(readRegularFile(path, 10), std::nullopt);
}

TEST(RegularFile, FoldersDevicesAndMissingFilesAreNothing) {
    const TemporaryFolder folder;
    EXPECT_EQ(readRegularFile(folder.path(), 10), std::nullopt);
    EXPECT_EQ(readRegularFile("/dev/zero", 10), std::nullopt);
    EXPECT_EQ(readRegularFile(folder.path() / "none", 10), std::nullopt);
}

}  // namespace
}  // namespace velmora
