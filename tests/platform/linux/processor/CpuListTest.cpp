#include "platform/linux/processor/CpuList.h"

#include <gtest/gtest.h>

namespace velmora {
namespace {

using Cpus = std::vector<int>;

TEST(CpuListTest, RangesAndSingleNumbersAreJoined) {
    EXPECT_EQ(parseCpuList("0-3,8\n"), (Cpus{0, 1, 2, 3, 8}));
    EXPECT_EQ(parseCpuList("5"), Cpus{5});
}

TEST(CpuListTest, EmptyListHasNoCpus) {
    EXPECT_EQ(parseCpuList(""), Cpus{});
    EXPECT_EQ(parseCpuList("\n"), Cpus{});
}

TEST(CpuListTest, NumbersComeAscendingAndOnce) {
    EXPECT_EQ(parseCpuList("4,1-2,2-4"), (Cpus{1, 2, 3, 4}));
}

TEST(CpuListTest, MalformedTextIsNoList) {
    for (const char* text : {"0-", "-3", "3-1", "a", "1,,2", "1,", ",1", "1 2", "0-99999999",
                             "99999999999999", "0-65535,0-65535,0-65535"}) {
        EXPECT_EQ(parseCpuList(text), std::nullopt) << text;
    }
}

}  // namespace
}  // namespace velmora
