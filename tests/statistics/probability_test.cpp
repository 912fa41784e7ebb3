#include "tbvnonpara/statistics/probability.hpp"

#include <cmath>
#include <gtest/gtest.h>
#include <map>
#include <string>

#include "tests/support/reference_rows.hpp"

namespace TBVNonPara::statistics {
namespace {

Probability tailOf(const std::string& distribution, double value, double df1, double df2) {
    if (distribution == "normal") {
        return normalTail(value);
    }
    if (distribution == "chi-square") {
        return chiSquareTail(value, df1);
    }
    if (distribution == "student") {
        return studentTail(value, df1);
    }
    return distribution == "f" ? fTail(value, df1, df2) : fairCoinsAtLeast(value, df1);
}

// Ten digits: the logarithms of gamma functions of thousands cancel each other.
TEST(Tails, HaveLogarithmsWhereDoublesHaveEnded) {
    for (const auto& row : Support::referenceRows("tails.csv")) {
        const Probability tail = tailOf(row[0], std::stod(row[1]), std::stod(row[2]), std::stod(row[3]));
        const double expected = std::stod(row[4]);
        EXPECT_NEAR(tail.log10, expected, 1e-10 * std::abs(expected)) << row[0] << ' ' << row[1];
        EXPECT_NEAR(tail.value, std::pow(10, expected), 1e-10 * std::pow(10, expected))
            << row[0] << ' ' << row[1];
    }
}

// R: 2 * pnorm(-1.25), 2 * pnorm(-40, log.p = TRUE).
TEST(Tails, OfBothSidesAreTwiceOne) {
    EXPECT_NEAR(normalTwoTailed(1.25).value, 0.21129954733371048, 1e-15);
    EXPECT_NEAR(normalTwoTailed(-1.25).value, 0.21129954733371048, 1e-15);
    EXPECT_EQ(normalTwoTailed(0).value, 1);
    EXPECT_EQ(normalTwoTailed(0).log10, 0);
    EXPECT_NEAR(normalTwoTailed(40).log10, -349.13597646368186, 1e-10);
}

// Half a step toward the mean on either side, the two-tailed one from the distance that is left.
TEST(Tails, OfAnApproximationKeepToTheirSides) {
    for (const double distance : {2.0, -2.0, 0.25}) {
        const NormalApproximation tails = *normalApproximation(distance, 1, 1);
        EXPECT_EQ(tails.plain.greater.value, normalTail(distance).value);
        EXPECT_EQ(tails.plain.less.value, normalTail(-distance).value);
        EXPECT_EQ(tails.plain.two.value, normalTwoTailed(distance).value);
        EXPECT_EQ(tails.corrected.greater.value, normalTail(distance - 0.5).value);
        EXPECT_EQ(tails.corrected.less.value, normalTail(-distance - 0.5).value);
        EXPECT_EQ(tails.corrected.two.value, normalTwoTailed(std::max(std::abs(distance) - 0.5, 0.0)).value);
    }
}

TEST(Tails, OfLessThanNothingAreAll) {
    EXPECT_EQ(chiSquareTail(0, 3).value, 1);
    EXPECT_EQ(fTail(0, 3, 4).value, 1);
    EXPECT_EQ(fairCoinsAtLeast(0, 5).value, 1);
}

TEST(NormalApproximation, CorrectsEachDirectionAgainstItself) {
    const auto normal = normalApproximation(0.25, 1, 1);
    ASSERT_TRUE(normal);
    EXPECT_EQ(normal->plain.z, 0.25);
    EXPECT_EQ(normal->corrected.z, 0);
    EXPECT_EQ(normal->corrected.two.value, 1);
    EXPECT_EQ(normal->corrected.greater.value, normalTail(-0.25).value);
    EXPECT_EQ(normal->corrected.less.value, normalTail(-0.75).value);
}

TEST(NormalApproximation, NeedsASpread) {
    EXPECT_FALSE(normalApproximation(0, 0, 1));
}

TEST(NormalQuantile, LeavesHalfOfTheRestAbove) {
    EXPECT_NEAR(normalTail(normalQuantile(0.95)).value, 0.025, 1e-16);
    EXPECT_NEAR(normalQuantile(0.95), 1.959963984540054, 1e-15);
}

}  // namespace
}  // namespace TBVNonPara::statistics
