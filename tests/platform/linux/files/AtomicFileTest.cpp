#include "platform/linux/files/AtomicFile.h"

#include "platform/linux/files/TemporaryFolder.h"

#include <signal.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace velmora {
namespace {

TEST(AtomicFile, ContentsAreReplacedWhole) {
    const TemporaryFolder folder;
    const auto file = folder.path() / "below" / "file.txt";
    EXPECT_FALSE(writeAtomically(file, "a long first text"));
    EXPECT_FALSE(writeAtomically(file, "short"));
    EXPECT_EQ(TemporaryFolder::contentsOf(file), "short");
    EXPECT_EQ(folder.names("below"), std::vector<std::string>{"file.txt"});
}

TEST(AtomicFile, FileIsReadableByAllAndWritableByItsOwner) {
    const TemporaryFolder folder;
    const auto file = folder.path() / "file.txt";
    EXPECT_FALSE(writeAtomically(file, "x"));
    struct stat status {};
    ASSERT_EQ(::stat(file.c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 0777u, 0644u);
}

TEST(AtomicFile, FullDiskLeavesTheOldContentsAndNoOtherFile) {
    const TemporaryFolder folder;
    const auto file = folder.write("file.txt", "old");
    const pid_t child = ::fork();
    if (child == 0) {
        ::signal(SIGXFSZ, SIG_IGN);
        const rlimit limit{10, 10};
        ::setrlimit(RLIMIT_FSIZE, &limit);
        ::_exit(writeAtomically(file, std::string(100, 'n')) ? 0 : 1);
    }
    int status = 0;
    ASSERT_EQ(::waitpid(child, &status, 0), child);
    EXPECT_EQ(status, 0) << "the failure was not told";
    EXPECT_EQ(TemporaryFolder::contentsOf(file), "old");
    EXPECT_EQ(folder.names(), std::vector<std::string>{"file.txt"});
}

}  // namespace
}  // namespace velmora
