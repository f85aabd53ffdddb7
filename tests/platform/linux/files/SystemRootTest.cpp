#include "platform/linux/files/SystemRoot.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(SystemRootTest, DefaultIsTheRunningSystem) {
    EXPECT_TRUE(SystemRoot().isRunningSystem());
    EXPECT_EQ(SystemRoot().path("proc/stat"), "/proc/stat");
}

TEST(SystemRootTest, FolderIsACapturedSystemWithOrWithoutASlash) {
    for (const char* folder : {"/tmp/machine", "/tmp/machine/"}) {
        const SystemRoot root(folder);
        EXPECT_FALSE(root.isRunningSystem());
        EXPECT_EQ(root.path("sys/block"), "/tmp/machine/sys/block");
    }
}

}  // namespace
}  // namespace velmora
