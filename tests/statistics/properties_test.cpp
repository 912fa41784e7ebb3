#include <algorithm>
#include <cmath>
#include <gtest/gtest.h>
#include <random>

#include "tbvnonpara/statistics/friedman.hpp"
#include "tbvnonpara/statistics/kruskal_wallis.hpp"
#include "tbvnonpara/statistics/mann_whitney.hpp"
#include "tbvnonpara/statistics/spearman.hpp"
#include "tbvnonpara/statistics/wilcoxon.hpp"
#include "tests/statistics/tests_by_name.hpp"

namespace TBVNonPara::statistics {
namespace {

/// Samples of whole numbers, which a shift or a monotone transform leaves exact.
class Draws {
 public:
    std::vector<double> sample(std::size_t n, int largest) {
        std::vector<double> values(n);
        for (double& value : values) {
            value = static_cast<double>(m_Random() % static_cast<unsigned>(largest));
        }
        return values;
    }

 private:
    std::mt19937 m_Random{7};
};

std::vector<double> transformed(std::vector<double> values, double (*change)(double)) {
    std::ranges::transform(values, values.begin(), change);
    return values;
}

double cubed(double value) {
    return value * value * value + 1;
}
double tenMore(double value) {
    return value + 10;
}

TEST(Properties, SwappedSamplesAreMirrored) {
    Draws draws;
    for (const int largest : {3, 8, 1000}) {
        const std::vector<double> x = draws.sample(9, largest);
        const std::vector<double> y = draws.sample(13, largest);
        const MannWhitney there = mannWhitney(x, y);
        const MannWhitney back = mannWhitney(y, x);
        EXPECT_EQ(there.u[0], back.u[1]);
        EXPECT_NEAR(there.exact->two.value, back.exact->two.value, 1e-14);
        EXPECT_NEAR(there.exact->greater.value, back.exact->less.value, 1e-14);
        EXPECT_NEAR(*there.superiority.low, 1 - *back.superiority.high, 1e-14);
        EXPECT_EQ(there.shift.value, -back.shift.value);
        EXPECT_EQ(*there.shift.low, -*back.shift.high);
        EXPECT_NEAR(there.robust->t, -back.robust->t, 1e-12);
    }
}

TEST(Properties, SwappedPairsAreMirrored) {
    Draws draws;
    for (const int largest : {3, 8, 1000}) {
        const std::vector<double> x = draws.sample(12, largest);
        const std::vector<double> y = draws.sample(12, largest);
        const Wilcoxon there = wilcoxon(x, y);
        const Wilcoxon back = wilcoxon(y, x);
        EXPECT_EQ(there.zerosLeftOut.plus, back.zerosLeftOut.minus);
        EXPECT_EQ(there.zerosLeftOut.exact->greater.value, back.zerosLeftOut.exact->less.value);
        EXPECT_EQ(*there.pseudomedian.low, -*back.pseudomedian.high);
        EXPECT_NEAR(*there.rankBiserial->low, -*back.rankBiserial->high, 1e-15);
        EXPECT_EQ(spearman(x, y).rho->value, spearman(y, x).rho->value);
    }
}

TEST(Properties, RanksKnowNoScale) {
    Draws draws;
    const std::string rankFigures[] = {"p.exact.two.value",    "effect.superiority.low",
                                       "effect.rho.high",      "effect.epsilonSquared.low",
                                       "effect.kendallW.high", "effect.cramerV.value"};
    for (const std::string test : {"mann-whitney", "spearman", "kruskal-wallis", "friedman", "median"}) {
        const Lists samples = {draws.sample(7, 9), draws.sample(7, 9)};
        const Lists changed = {transformed(samples[0], cubed), transformed(samples[1], cubed)};
        const Figure before = figuresOfTest(test, samples);
        const Figure after = figuresOfTest(test, changed);
        for (const std::string& path : rankFigures) {
            if (exists(before, path)) {
                EXPECT_EQ(numberAt(before, path), numberAt(after, path)) << test << ' ' << path;
            }
        }
    }
}

TEST(Properties, AShiftMovesTheEstimatesOfShift) {
    Draws draws;
    const std::vector<double> x = draws.sample(11, 50);
    const std::vector<double> y = draws.sample(11, 50);
    const std::vector<double> moved = transformed(x, tenMore);
    EXPECT_EQ(mannWhitney(moved, y).shift.value, mannWhitney(x, y).shift.value + 10);
    EXPECT_EQ(*mannWhitney(moved, y).shift.high, *mannWhitney(x, y).shift.high + 10);
    EXPECT_EQ(wilcoxon(moved, y).pseudomedian.value, wilcoxon(x, y).pseudomedian.value + 10);
    EXPECT_EQ(*wilcoxon(moved, y).pseudomedian.low, *wilcoxon(x, y).pseudomedian.low + 10);
}

// Two groups are two samples: H is z squared, and so is Dunn's comparison.
TEST(Properties, TwoGroupsAreTwoSamples) {
    Draws draws;
    const std::vector<double> x = draws.sample(8, 6);
    const std::vector<double> y = draws.sample(5, 6);
    const std::vector<std::span<const double>> groups = {x, y};
    const MannWhitney two = mannWhitney(x, y);
    const KruskalWallis several = kruskalWallis(groups);
    EXPECT_NEAR(several.chiSquare->value, two.normal->plain.z * two.normal->plain.z, 1e-12);
    EXPECT_NEAR(several.comparisons[0].z, two.normal->plain.z, 1e-13);
    EXPECT_NEAR(several.comparisons[0].p.value, two.normal->plain.two.value, 1e-13);
    EXPECT_NEAR(several.exact->p.value, two.exact->two.value, 1e-13);
    EXPECT_EQ(several.comparisons[0].superiority, two.superiority.value);
}

TEST(Properties, ExactAndNormalApproachEachOther) {
    Draws draws;
    const MannWhitney two = mannWhitney(draws.sample(60, 20), draws.sample(70, 20));
    EXPECT_NEAR(two.exact->two.value, two.normal->corrected.two.value, 0.002);
    const Wilcoxon pairs = wilcoxon(draws.sample(90, 30), draws.sample(90, 30));
    EXPECT_NEAR(pairs.zerosLeftOut.exact->two.value, pairs.zerosLeftOut.normal->corrected.two.value, 0.002);
}

TEST(Properties, TheIntervalOfAShareHoldsAHalfAsTheTestDoes) {
    Draws draws;
    for (int sample = 0; sample < 20; ++sample) {
        const MannWhitney two = mannWhitney(draws.sample(10, 7), draws.sample(14, 9));
        const bool holdsAHalf = *two.superiority.low <= 0.5 && 0.5 <= *two.superiority.high;
        EXPECT_EQ(holdsAHalf, two.normal->plain.two.value >= 0.05);
    }
}

}  // namespace
}  // namespace TBVNonPara::statistics
