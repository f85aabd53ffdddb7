#include "platform/linux/files/RecordFile.h"

#include "platform/linux/files/SystemTree.h"

#include <gtest/gtest.h>

#include <array>
#include <string>

#include <sys/mman.h>
#include <unistd.h>

namespace velmora {
namespace {

TEST(RecordFile, MissingFileGivesNothing) {
    const SystemTree tree;
    RecordFile file(tree.path("file"));
    EXPECT_EQ(file.read(), std::nullopt);
}

TEST(RecordFile, FileThatAppearsLaterIsRead) {
    const SystemTree tree;
    RecordFile file(tree.path("file"));
    file.read();
    tree.write("file", "text\n");
    EXPECT_EQ(file.read(), "text\n");
}

TEST(RecordFile, EachReadGivesThePresentContents) {
    const SystemTree tree;
    RecordFile file(tree.path("file"));
    tree.write("file", "a longer text\n");
    EXPECT_EQ(file.read(), "a longer text\n");
    tree.write("file", "short\n");
    EXPECT_EQ(file.read(), "short\n");
}

TEST(RecordFile, ContentsLargerThanTheFirstBufferAreWhole) {
    const SystemTree tree;
    const std::string text(100'000, 'x');
    tree.write("file", text);
    RecordFile file(tree.path("file"));
    EXPECT_EQ(file.read(), text);
    EXPECT_EQ(file.read(), text);
}

TEST(RecordFile, KnownLengthOfRecordsLosesNothing) {
    const SystemTree tree;
    for (const std::size_t length : {0, 1, 3583, 3584, 3585, 4096, 8192, 8193, 20'000}) {
        const std::string text(length, 'x');
        tree.write("file", text);
        RecordFile file(tree.path("file"), 512);
        EXPECT_EQ(file.read(), text) << length;
    }
}

TEST(RecordFile, EndlessFileIsCut) {
    RecordFile file("/dev/zero");
    const auto text = file.read();
    ASSERT_TRUE(text);
    EXPECT_EQ(text->size(), std::size_t{16} << 20);
}

TEST(RecordFile, FolderGivesNothing) {
    const SystemTree tree;
    tree.write("folder/file", "");
    RecordFile file(tree.path("folder"));
    EXPECT_EQ(file.read(), std::nullopt);
}

// A single read of such a file ended after a page, and with it the table of mounts after some thirty of them.
TEST(RecordFile, FileOfTheKernelThatIsLargerThanAPageIsWhole) {
    constexpr std::size_t kPages = 400;
    const auto page = static_cast<std::size_t>(::sysconf(_SC_PAGESIZE));
    void* const memory = ::mmap(nullptr, kPages * page, PROT_READ, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    ASSERT_NE(memory, MAP_FAILED);
    // Neighbours of another kind, so that each page has a line of its own.
    for (std::size_t index = 0; index < kPages; index += 2)
        ASSERT_EQ(::mprotect(static_cast<char*>(memory) + index * page, page, PROT_NONE), 0);
    RecordFile file("/proc/self/maps");
    const auto text = file.read();
    ASSERT_TRUE(text);
    EXPECT_GT(text->size(), 4 * page);
    EXPECT_NE(text->find("[stack]"), std::string_view::npos);
    EXPECT_TRUE(text->ends_with('\n'));
    ::munmap(memory, kPages * page);
}

}  // namespace
}  // namespace velmora
