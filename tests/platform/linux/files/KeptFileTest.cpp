#include "platform/linux/files/KeptFile.h"

#include "platform/linux/files/SystemTree.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace velmora {
namespace {

class KeptFileTest : public testing::Test {
protected:
    SystemTree tree;
    KeptFile file{tree.path("file")};
};

TEST_F(KeptFileTest, MissingFileGivesNothing) {
    EXPECT_EQ(file.read(), std::nullopt);
    EXPECT_FALSE(file.isOpen());
}

TEST_F(KeptFileTest, FileThatAppearsLaterIsRead) {
    file.read();
    tree.write("file", "text");
    EXPECT_EQ(file.read(), "text");
}

TEST_F(KeptFileTest, EachReadGivesThePresentContents) {
    tree.write("file", "first");
    EXPECT_EQ(file.read(), "first");
    tree.write("file", "then");
    EXPECT_EQ(file.read(), "then");
}

TEST_F(KeptFileTest, FileIsOpenedOnce) {
    tree.write("file", "kept");
    file.read();
    tree.remove("file");
    tree.write("file", "another file of the same name");
    EXPECT_EQ(file.read(), "kept");
}

TEST_F(KeptFileTest, EmptyFileIsAnEmptyText) {
    tree.write("file", "");
    EXPECT_EQ(file.read(), "");
}

TEST_F(KeptFileTest, TextLongerThanTheBufferIsReadWhole) {
    for (const std::size_t size : {4095U, 4096U, 4097U, 16384U, 100'000U}) {
        const std::string text(size, 'x');
        tree.write("file", text + "end");
        EXPECT_EQ(file.read(), text + "end") << size;
    }
}

TEST_F(KeptFileTest, LimitCutsTheText) {
    tree.write("file", "0123456789");
    EXPECT_EQ(file.read(4), "0123");
    EXPECT_EQ(file.read(), "0123456789");
}

TEST_F(KeptFileTest, LimitBeyondTheBufferMakesItGrow) {
    tree.write("file", std::string(10'000, 'x'));
    ASSERT_TRUE(file.read(5000));
    EXPECT_EQ(file.read(5000)->size(), 5000U);
}

TEST_F(KeptFileTest, DescriptorThatFailsIsReplacedByANewOne) {
    tree.write("file", "before");
    const int next = ::open("/dev/null", O_RDONLY);
    ::close(next);
    file.read();
    // The kept descriptor has the lowest free number. In its place comes one that cannot be read.
    const int unreadable = ::open("/dev/null", O_WRONLY);
    ASSERT_EQ(::dup2(unreadable, next), next);
    ::close(unreadable);
    tree.write("file", "after");
    EXPECT_EQ(file.read(), "after");
}

TEST_F(KeptFileTest, FileThatCannotBeReadGivesNothingEachTime) {
    std::filesystem::create_directory(tree.path("file"));
    EXPECT_EQ(file.read(), std::nullopt);
    EXPECT_EQ(file.read(), std::nullopt);
    EXPECT_FALSE(file.isOpen());
}

TEST_F(KeptFileTest, MovedFileKeepsItsContents) {
    tree.write("file", "text");
    file.read();
    KeptFile other = std::move(file);
    EXPECT_EQ(other.read(), "text");
    file = std::move(other);
    EXPECT_EQ(file.read(), "text");
}

TEST_F(KeptFileTest, KernelFileChangesUnderAKeptDescriptor) {
    KeptFile uptime("/proc/uptime");
    const std::string first(uptime.read().value_or(""));
    ASSERT_FALSE(first.empty());
    // It counts hundredths of a second, so a change comes soon.
    for (int round = 0; round < 10'000'000 && uptime.read() == first; ++round) {
    }
    EXPECT_NE(uptime.read(), first);
}

}  // namespace
}  // namespace velmora
