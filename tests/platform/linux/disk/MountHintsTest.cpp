#include "platform/linux/disk/MountHints.h"

#include <gtest/gtest.h>

#include <string>

namespace velmora {
namespace {

TEST(MountHints, FstabLineGivesItsHints) {
    MountHintTable table;
    addFstabHints(
        "# comment x-gvfs-hide\nUUID=1 /data ext4 defaults,x-gvfs-hide 0 2\n"
        "nas:/e\t/mnt/my\\040nas\tnfs\t_netdev,noauto,x-gvfs-show\n",
        table);
    EXPECT_EQ(table, (MountHintTable{{"/data", {.hides = true}},
                                     {"/mnt/my nas", {.shows = true, .needsNetwork = true}}}));
}

TEST(MountHints, MountWithoutHintsHasNoEntry) {
    MountHintTable table;
    addFstabHints("/dev/sda1 / ext4 defaults 0 1\n/dev/sda2 none swap sw 0 0\n", table);
    EXPECT_TRUE(table.empty());
}

TEST(MountHints, SlashAtTheEndOfAMountPointDoesNotCount) {
    MountHintTable table;
    addFstabHints("x /data/ ext4 x-gvfs-hide\nx / ext4 x-gvfs-show\n", table);
    EXPECT_TRUE(table.contains("/data"));
    EXPECT_TRUE(table.contains("/"));
}

TEST(MountHints, UtabLineGivesItsHints) {
    MountHintTable table;
    addUtabHints(
        "ID=33 SRC=/dev/sdb1 TARGET=/run/media/a\\040b ROOT=/ OPTS=uhelper=udisks2,x-gvfs-show\n"
        "SRC=nas:/e TARGET=/mnt/nas ROOT=/ ATTRS=_netdev OPTS=user\n",
        table);
    EXPECT_EQ(table,
              (MountHintTable{{"/run/media/a b", {.shows = true}}, {"/mnt/nas", {.needsNetwork = true}}}));
}

TEST(MountHints, HintsOfBothFilesAddUp) {
    MountHintTable table;
    addFstabHints("x /data ext4 x-gvfs-hide\n", table);
    addUtabHints("TARGET=/data OPTS=x-gvfs-show\n", table);
    EXPECT_EQ(table.at("/data"), (MountHints{.hides = true, .shows = true}));
}

TEST(MountHints, MalformedTextsGiveNothing) {
    for (const std::string& text :
         {std::string(), std::string("\n\n"), std::string("x"), std::string("x /data"),
          std::string("x /data ext4"), std::string("x data ext4 x-gvfs-hide"),
          std::string("TARGET= OPTS=x-gvfs-hide"), std::string("OPTS=x-gvfs-hide"), std::string(4000, '\0'),
          std::string("\xFF\xFE \x80 \xC0 \xC1")}) {
        MountHintTable table;
        addFstabHints(text, table);
        addUtabHints(text, table);
        EXPECT_TRUE(table.empty()) << text;
    }
}

}  // namespace
}  // namespace velmora
