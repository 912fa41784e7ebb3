#include "tbvnonpara/distributions/jonckheere.hpp"

#include <gtest/gtest.h>
#include <vector>

#include "tbvnonpara/distributions/dealing_cost.hpp"
#include "tbvnonpara/distributions/long_count.hpp"

namespace TBVNonPara {
namespace {

constexpr double steps = 1e9;

/// Two groups of n different values each.
ValueCounts withoutTies(std::size_t n) {
    ValueCounts values;
    for (std::size_t i = 0; i < n; ++i) {
        values.push_back({1, 0});
        values.push_back({0, 1});
    }
    return values;
}

// 57,237 of 122,500 pairs rise. The ways were counted in whole numbers: the coefficients of the product of
// (1 - x^(350 + i)) / (1 - x^i), i = 1 ... 350.
TEST(Jonckheere, KeepsItsDigitsInLargeGroups) {
    const auto tails = jonckheereTails(withoutTies(350), Score(2) * 57237, steps);
    ASSERT_TRUE(tails);
    EXPECT_NEAR(tails->less, 0.06684418039582692, 1e-14);
    EXPECT_NEAR(tails->twoTailed, 2 * 0.06684418039582692, 2e-14);
    EXPECT_NEAR(tails->greater + tails->less - tails->point, 1, 1e-12);
    const auto middle = jonckheereTails(withoutTies(350), Score(350) * 350, steps);
    ASSERT_TRUE(middle);
    EXPECT_LE(middle->twoTailed, 1);
    EXPECT_NEAR(middle->twoTailed, 1, 1e-12);
}

TEST(Jonckheere, IsNotCountedWhereDigitsWouldBeLost) {
    for (const std::size_t n : {460U, 500U, 600U}) {
        EXPECT_FALSE(jonckheereTails(withoutTies(n), static_cast<Score>(n * n), steps)) << n;
    }
}

TEST(Jonckheere, GivesUpBeforeItBegins) {
    const ValueCounts values(30, {2, 2, 1});
    int told = 0;
    const CountWatch watch = [&](double) { told += 1; };
    const WatchedCounts watched(watch);
    EXPECT_FALSE(jonckheereTails(values, 7000, steps));
    EXPECT_EQ(told, 0);
}

// One value goes to the first or the second group: 2 dealings of 1 chance and 2 groups. Two more: each of the
// two states has one way, again 1 chance and 2 groups: 12 in all.
TEST(DealingValues, TakesStepsThatAreKnownBefore) {
    const std::vector<std::size_t> sizes = {2, 1};
    const std::vector<std::size_t> equal = {1, 2};
    EXPECT_TRUE(canBeDealt(sizes, equal, 12));
    EXPECT_FALSE(canBeDealt(sizes, equal, 11));
}

// Forty groups of two have more states than memory holds, however many steps there are.
TEST(DealingValues, TakesMemoryThatIsKnownBefore) {
    const std::vector<std::size_t> sizes(40, 2);
    EXPECT_FALSE(canBeDealt(sizes, std::vector<std::size_t>(80, 1), 1e300));
}

}  // namespace
}  // namespace TBVNonPara
