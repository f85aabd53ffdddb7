#include "platform/linux/files/SystemFile.h"

#include "platform/linux/files/SystemTree.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

TEST(SystemFileTest, FileIsReadUpToTheLimit) {
    const SystemTree tree;
    tree.write("file", std::string(10'000, 'a'));
    EXPECT_EQ(readSystemFile(tree.path("file"))->size(), 10'000U);
    EXPECT_EQ(readSystemFile(tree.path("file"), 5000)->size(), 5000U);
    EXPECT_EQ(readSystemFile(tree.path("none")), std::nullopt);
}

TEST(SystemFileTest, WordEndsAtTheFirstBlankOrNewline) {
    const SystemTree tree;
    tree.write("file", "suspended\nmore\n");
    EXPECT_EQ(readSystemWord(tree.path("file")), "suspended");
    tree.write("file", "");
    EXPECT_EQ(readSystemWord(tree.path("file")), "");
    EXPECT_EQ(readSystemWord(tree.path("none")), std::nullopt);
}

TEST(SystemFileTest, NumberIsTheWholeWord) {
    const SystemTree tree;
    tree.write("file", "1024\n");
    EXPECT_EQ(readSystemNumber(tree.path("file")), 1024U);
    for (const char* text : {"", "x", "-1", "12x", "99999999999999999999999"}) {
        tree.write("file", text);
        EXPECT_EQ(readSystemNumber(tree.path("file")), std::nullopt) << text;
    }
}

TEST(SystemFileTest, FolderEntriesAreSortedWithoutTheDots) {
    const SystemTree tree;
    tree.write("folder/b", "");
    tree.write("folder/a/c", "");
    EXPECT_EQ(systemFolderEntries(tree.path("folder")), (std::vector<std::string>{"a", "b"}));
    EXPECT_TRUE(systemFolderEntries(tree.path("none")).empty());
}

TEST(SystemFileTest, LinkNameIsTheLastComponentOfTheTarget) {
    const SystemTree tree;
    tree.link("driver", "../../bus/pci/drivers/amdgpu");
    tree.link("plain", "word");
    tree.write("file", "");
    EXPECT_EQ(systemLinkName(tree.path("driver")), "amdgpu");
    EXPECT_EQ(systemLinkName(tree.path("plain")), "word");
    EXPECT_EQ(systemLinkName(tree.path("file")), std::nullopt);
    EXPECT_EQ(systemLinkName(tree.path("none")), std::nullopt);
}

TEST(SystemFileTest, DigitsAreOneOrMore) {
    EXPECT_TRUE(isDigits("0123"));
    EXPECT_FALSE(isDigits(""));
    EXPECT_FALSE(isDigits("1a"));
    EXPECT_FALSE(isDigits("-1"));
}

}  // namespace
}  // namespace velmora
