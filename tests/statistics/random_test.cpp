#include "tbvnonpara/statistics/random.hpp"

#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <numeric>
#include <vector>

namespace TBVNonPara::statistics {
namespace {

TEST(RandomBits, AreThoseOfTheGenerator) {
    // Worked out with whole numbers of any size.
    RandomBits random(std::array<std::uint64_t, 4>{1, 2, 3, 4});
    EXPECT_EQ(random(), 11520U);
    EXPECT_EQ(random(), 0U);
    EXPECT_EQ(random(), 1509978240U);
    EXPECT_EQ(random(), 1215971899390074240U);
}

TEST(RandomBits, AreTheSameForASeedAndOthersForAnother) {
    RandomBits first(7);
    RandomBits again(7);
    RandomBits other(8);
    const std::uint64_t drawn = first();
    EXPECT_EQ(drawn, again());
    EXPECT_NE(drawn, other());
}

TEST(RandomNumbers, BelowACountAreAllAsLikely) {
    RandomBits random(1);
    std::array<int, 3> counts{};
    for (int i = 0; i < 30000; ++i) {
        counts.at(static_cast<std::size_t>(random.below(3))) += 1;
    }
    // Five standard deviations of a share of a third.
    for (const int count : counts) {
        EXPECT_NEAR(count, 10000, 410);
    }
    EXPECT_EQ(random.below(1), 0U);
}

TEST(AShuffle, KeepsTheValuesAndReachesEveryOrder) {
    RandomBits random(1);
    std::array<int, 3> values{0, 1, 2};
    std::array<int, 27> orders{};
    for (int i = 0; i < 6000; ++i) {
        shuffle(std::span<int>(values), random);
        const int order = 9 * values[0] + 3 * values[1] + values[2];
        orders.at(static_cast<std::size_t>(order)) += 1;
    }
    EXPECT_EQ(std::ranges::count(orders, 0), 21);
    for (const int order : orders) {
        EXPECT_TRUE(order == 0 || std::abs(order - 1000) < 145) << order;
    }
}

}  // namespace
}  // namespace TBVNonPara::statistics
