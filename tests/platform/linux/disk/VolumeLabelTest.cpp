#include "platform/linux/disk/VolumeLabel.h"

#include <gtest/gtest.h>

#include <string>

namespace velmora {
namespace {

TEST(VolumeLabel, EncodedLabelIsDecoded) {
    EXPECT_EQ(parseVolumeLabel(
                  "S:disk/by-uuid/1\nE:ID_FS_LABEL=MY_STICK\nE:ID_FS_LABEL_ENC=MY\\x20STICK\\xc3\\xa4\n"),
              "MY STICK\u00e4");
}

TEST(VolumeLabel, RecordWithoutALabelGivesNothing) {
    EXPECT_EQ(parseVolumeLabel("S:disk/by-uuid/1\nE:ID_FS_LABEL=MY_STICK\nE:ID_FS_TYPE=ext4\n"),
              std::nullopt);
    EXPECT_EQ(parseVolumeLabel(""), std::nullopt);
}

TEST(VolumeLabel, EmptyOrBlankLabelGivesNothing) {
    EXPECT_EQ(parseVolumeLabel("E:ID_FS_LABEL_ENC=\n"), std::nullopt);
    EXPECT_EQ(parseVolumeLabel("E:ID_FS_LABEL_ENC=\\x20\\x20\n"), std::nullopt);
}

TEST(VolumeLabel, BrokenEscapeStaysAsItIs) {
    EXPECT_EQ(parseVolumeLabel("E:ID_FS_LABEL_ENC=a\\xZ1b\\x2\n"), "a\\xZ1b\\x2");
}

TEST(VolumeLabel, ForeignBytesAreReplaced) {
    EXPECT_EQ(parseVolumeLabel("E:ID_FS_LABEL_ENC=M\\xfcller\n"), "M\uFFFDller");
}

TEST(VolumeLabel, ControlLettersAreLeftOut) {
    EXPECT_EQ(parseVolumeLabel("E:ID_FS_LABEL_ENC=a\\x0ab\\x00c\\x7f\n"), "abc");
}

TEST(VolumeLabel, NulFilledRecordGivesNothing) {
    EXPECT_EQ(parseVolumeLabel(std::string(9000, '\0')), std::nullopt);
}

TEST(SystemName, NameIsReadInEveryQuoting) {
    EXPECT_EQ(parseSystemName("PRETTY_NAME=\"Debian 12\"\nNAME=\"Debian GNU/Linux\"\n"), "Debian GNU/Linux");
    EXPECT_EQ(parseSystemName("NAME=Fedora\n"), "Fedora");
    EXPECT_EQ(parseSystemName("NAME='Arch Linux'\r\n"), "Arch Linux");
    EXPECT_EQ(parseSystemName("NAME=\"The \\\"Real\\\" \\$1\""), "The \"Real\" $1");
}

TEST(SystemName, LastLineCounts) {
    EXPECT_EQ(parseSystemName("NAME=a\nNAME=b\n"), "b");
}

TEST(SystemName, OtherNamesDoNotCount) {
    EXPECT_EQ(parseSystemName("PRETTY_NAME=\"Debian\"\nCODENAME=x\n# NAME=y\n"), std::nullopt);
}

TEST(SystemName, EmptyOrUnclosedNameIsTakenAsFarAsItGoes) {
    EXPECT_EQ(parseSystemName("NAME=\n"), std::nullopt);
    EXPECT_EQ(parseSystemName("NAME=\"\"\n"), std::nullopt);
    EXPECT_EQ(parseSystemName("NAME=\"Open"), "Open");
    EXPECT_EQ(parseSystemName("NAME=\"Open\\"), "Open\\");
}

}  // namespace
}  // namespace velmora
