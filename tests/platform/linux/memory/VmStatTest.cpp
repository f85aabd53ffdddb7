#include "platform/linux/memory/VmStat.h"

#include <gtest/gtest.h>

#include <string>

namespace velmora {
namespace {

TEST(VmStatTest, LinesOfUseAreRead) {
    EXPECT_EQ(parseVmStat("nr_free_pages 5\nnr_zspages 7\npgpgin 11\npgpgout 13\npswpin 17\n"),
              (VmStat{7, 11, 13}));
}

TEST(VmStatTest, KernelWithoutCompressedPagesHasNone) {
    EXPECT_EQ(parseVmStat("pgpgin 11\npgpgout 13\n"), (VmStat{std::nullopt, 11, 13}));
}

TEST(VmStatTest, NameThatOnlyBeginsAlikeIsAnother) {
    EXPECT_EQ(parseVmStat("pgpgin_x 11\nxpgpgin 5\npgpgout 13\n").pagesIn, std::nullopt);
}

TEST(VmStatTest, UsedLengthEndsBehindTheLastLineOfUse) {
    const std::string used = "nr_zspages 7\npgpgin 11\npgpgout 13\n";
    std::size_t length = 0;
    parseVmStat(used + "pswpin 17\n", &length);
    EXPECT_EQ(length, used.size());
}

TEST(VmStatTest, CutMalformedAndHugeNumbersAreAbsent) {
    EXPECT_EQ(parseVmStat("pgpgin 1"), VmStat{});
    EXPECT_EQ(parseVmStat("pgpgin x\npgpgout 99999999999999999999999\nnr_zspages -1\n"), VmStat{});
    EXPECT_EQ(parseVmStat(""), VmStat{});
}

}  // namespace
}  // namespace velmora
