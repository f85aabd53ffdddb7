#include "base/History.h"

#include <gtest/gtest.h>

#include <vector>

namespace velmora {
namespace {

template <typename T, std::size_t Cap>
std::vector<T> listOf(const History<T, Cap>& history) {
    return {history.begin(), history.end()};
}

TEST(History, NewOneIsEmpty) {
    const History<double, 3> history;
    EXPECT_TRUE(history.empty());
    EXPECT_EQ(history.size(), 0u);
    EXPECT_EQ(history.capacity(), 3u);
}

TEST(History, ElementsStandOldestFirst) {
    History<int, 3> history;
    history.append(1);
    history.append(2);
    EXPECT_EQ(listOf(history), (std::vector<int>{1, 2}));
    EXPECT_EQ(history.front(), 1);
    EXPECT_EQ(history.back(), 2);
}

TEST(History, FullOneDropsFromTheFront) {
    History<int, 3> history;
    for (int value = 1; value <= 5; ++value) history.append(value);
    EXPECT_EQ(listOf(history), (std::vector<int>{3, 4, 5}));
    EXPECT_EQ(history.size(), 3u);
}

TEST(History, ValuesAreOneBlock) {
    History<int, 3> history;
    for (int value = 1; value <= 4; ++value) history.append(value);
    const auto values = history.values();
    EXPECT_EQ(values.data() + 2, &history[2]);
    EXPECT_EQ(values.size(), 3u);
}

TEST(History, ClearForgetsTheElements) {
    History<int, 3> history;
    history.append(1);
    history.clear();
    EXPECT_TRUE(history.empty());
    history.append(9);
    EXPECT_EQ(listOf(history), std::vector<int>{9});
}

TEST(History, CopyKeepsItsPictureWhenTheOriginalGoesOn) {
    History<int, 2> history;
    history.append(1);
    const auto copy = history;
    history.append(2);
    history.append(3);
    EXPECT_EQ(listOf(copy), std::vector<int>{1});
}

TEST(History, EqualityLooksAtTheElementsAndNotAtWhatWasForgotten) {
    History<int, 3> left;
    History<int, 3> right;
    left.append(8);
    left.clear();
    left.append(1);
    right.append(1);
    EXPECT_EQ(left, right);
    right.append(2);
    EXPECT_NE(left, right);
}

TEST(History, OverwrittenElementsKeepTheirStorage) {
    History<std::vector<double>, 2> history;
    const std::vector<double> cores(8, 0.5);
    history.append(cores);
    history.append(cores);
    const std::vector<const double*> before = {history[0].data(), history[1].data()};
    history.append(cores);
    const std::vector<const double*> after = {history[1].data(), history[0].data()};
    EXPECT_EQ(before, after);
}

}  // namespace
}  // namespace velmora
