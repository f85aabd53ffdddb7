#include "platform/linux/desktop/LogRing.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

namespace velmora {
namespace {

TEST(LogRing, LinesComeBackInTheirOrderWithTimeAndCategory) {
    LogRing ring;
    ring.append(Date{10}, "velmora", "first");
    ring.append(Date{11}, "qt", "second");
    EXPECT_EQ(ring.since(Date{0}),
              (std::vector<LogLine>{{Date{10}, "velmora", "first"}, {Date{11}, "qt", "second"}}));
}

TEST(LogRing, OnlyLinesAtAndAfterTheMomentAreGiven) {
    LogRing ring;
    for (int second = 1; second <= 3; ++second) ring.append(Date{double(second)}, "c", "line");
    EXPECT_EQ(ring.since(Date{2}).size(), 2u);
    EXPECT_EQ(ring.since(Date{2}).front().time, Date{2});
    EXPECT_TRUE(ring.since(Date{4}).empty());
}

TEST(LogRing, FullRingDropsItsOldestLines) {
    LogRing ring;
    const std::string text(1000, 'x');
    for (int second = 0; second < 5000; ++second) ring.append(Date{double(second)}, "c", text);
    const auto lines = ring.since(Date{0});
    std::size_t bytes = 0;
    for (const LogLine& line : lines) bytes += line.text.size() + line.category.size();
    EXPECT_LE(bytes, LogRing::kCapacity);
    EXPECT_GT(bytes, LogRing::kCapacity * 8 / 10);
    EXPECT_EQ(lines.back().time, Date{4999});
}

TEST(LogRing, EndlessLineIsCut) {
    LogRing ring;
    ring.append(Date{1}, "c", "short");
    ring.append(Date{2}, std::string(5000, 'c'), std::string(5 * LogRing::kCapacity, 'x'));
    const auto lines = ring.since(Date{0});
    ASSERT_EQ(lines.size(), 2u);
    EXPECT_LT(lines[1].text.size(), LogRing::kCapacity);
}

TEST(LogRing, EmptyLinesCannotFillTheMemory) {
    LogRing ring;
    for (int line = 0; line < 100'000; ++line) ring.append(Date{1}, "", "");
    EXPECT_LT(ring.since(Date{0}).size() * sizeof(LogLine), LogRing::kCapacity + 1);
}

TEST(LogRing, ThreadsMayAppendAtTheSameTime) {
    LogRing ring;
    std::vector<std::thread> threads;
    for (int thread = 0; thread < 4; ++thread) {
        threads.emplace_back([&] {
            for (int line = 0; line < 100; ++line) ring.append(Date{1}, "c", "text");
        });
    }
    for (std::thread& thread : threads) thread.join();
    EXPECT_EQ(ring.since(Date{0}).size(), 400u);
}

}  // namespace
}  // namespace velmora
