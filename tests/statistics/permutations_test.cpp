#include "tbvnonpara/statistics/permutations.hpp"

#include <array>
#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

#include "tests/statistics/tests_by_name.hpp"

namespace TBVNonPara::statistics {
namespace {

constexpr double absent = std::numeric_limits<double>::quiet_NaN();

/// Nothing is counted, so that random arrangements are drawn.
Options drawing(std::size_t permutations, std::uint64_t seed = 1) {
    Options options;
    options.missing = Missing::Omit;
    options.exactSteps = 0;
    options.permutations = permutations;
    options.seed = seed;
    return options;
}

struct Drawn {
    std::string test;
    Lists samples;
    std::string path;  ///< of the block
    std::string p;
};

const Drawn fiveByFive[] = {
    {"mann-whitney", {{1, 2, 3, 4, 5}, {2, 6, 7, 8, 9}}, "p.permutations", "two"},
    {"wilcoxon", {{1, 2, 3, 4, 5}, {2, 6, 7, 3, 9}}, "p.zerosLeftOut.permutations", "two"},
    {"spearman", {{1, 2, 3, 4, 5}, {2, 6, 7, 3, 9}}, "p.permutations", "two"},
    {"runs", {{1, 2, 2, 3, 1, 1, 3}}, "p.permutations", "two"},
    {"median", {{1, 2, 3, 4, 5}, {2, 6, 7, 8, 9}}, "p.permutations", "p"},
    {"kruskal-wallis", {{1, 2, 3, 4, 5}, {2, 6, 7, 8, 9}}, "p.permutations", "p"},
    {"friedman", {{1, 2, 3, 4, 5}, {2, 6, 7, 3, 9}, {1, 3, 2, 5, 4}}, "p.permutations", "p"},
};

TEST(RandomArrangements, AreDrawnOnlyWhereTheyAreAskedFor) {
    for (const auto& [test, samples, path, p] : fiveByFive) {
        EXPECT_FALSE(exists(figuresOfTest(test, samples, drawing(0)), path)) << test;
        EXPECT_EQ(numberAt(figuresOfTest(test, samples, drawing(20)), path + ".arrangements"), 20) << test;
    }
}

TEST(RandomArrangements, AreNotDrawnWherePWasCounted) {
    for (const auto& [test, samples, path, p] : fiveByFive) {
        Options options = drawing(20);
        options.exactSteps = 1e9;
        EXPECT_FALSE(exists(figuresOfTest(test, samples, options), path)) << test;
    }
}

TEST(RandomArrangements, CountTheObservedOneSoThatPIsNeverZero) {
    for (const auto& [test, samples, path, p] : fiveByFive) {
        const Figure figures = figuresOfTest(test, samples, drawing(1));
        const double value = numberAt(figures, path + '.' + p + ".value");
        EXPECT_TRUE(value == 0.5 || value == 1) << test << ' ' << value;
        EXPECT_DOUBLE_EQ(numberAt(figures, path + '.' + p + ".standardError"),
                         std::sqrt(value * (1 - value) / 2))
            << test;
    }
}

/// No arrangement has less spread than one whose rank sums are equal.
TEST(RandomArrangements, AreAllAsFarOutAsAnObservedOneWithoutSpread) {
    const Figure opposite = figuresOfTest("friedman", {{1, 2}, {2, 1}}, drawing(50));
    EXPECT_EQ(numberAt(opposite, "p.permutations.p.value"), 1);
    EXPECT_EQ(numberAt(opposite, "p.permutations.p.standardError"), 0);
    const Figure even = figuresOfTest("kruskal-wallis", {{1, 4}, {2, 3}}, drawing(50));
    EXPECT_EQ(numberAt(even, "p.permutations.p.value"), 1);
}

TEST(RandomArrangements, OfEqualValuesAreNone) {
    const Drawn cases[] = {
        {"mann-whitney", {{1, 1}, {1, 1, 1}}, "p.permutations", ""},
        {"wilcoxon", {{1, 2, 3}, {1, 2, 3}}, "p.zerosLeftOut.permutations", ""},
        {"spearman", {{1, 1, 1}, {1, 2, 3}}, "p.permutations", ""},
        {"runs", {{1, 1, 1, 1}}, "p.permutations", ""},
        {"median", {{1, 1}, {1, 1, 1}}, "p.permutations", ""},
        {"kruskal-wallis", {{1, 1}, {1, 1, 1}}, "p.permutations", ""},
        {"friedman", {{1, 2}, {1, 2}}, "p.permutations", ""},
    };
    for (const auto& [test, samples, path, p] : cases) {
        EXPECT_FALSE(exists(figuresOfTest(test, samples, drawing(20)), path)) << test;
    }
}

TEST(RandomArrangements, AreThoseOfTheValuesThatAreThere) {
    const Figure whole = figuresOfTest("kruskal-wallis", {{1, 5, 6}, {2, 3, 9}}, drawing(99));
    const Figure gaps = figuresOfTest("kruskal-wallis", {{1, absent, 5, 6}, {2, 3, 9, absent}}, drawing(99));
    EXPECT_EQ(numberAt(whole, "p.permutations.p.value"), numberAt(gaps, "p.permutations.p.value"));
}

TEST(RandomArrangements, OfIndependentSamplesDoNotDependOnTheOrderOfTheRows) {
    for (const std::string test : {"mann-whitney", "median", "kruskal-wallis"}) {
        const std::string path = test == "mann-whitney" ? "p.permutations.two" : "p.permutations.p";
        const Figure ascending = figuresOfTest(test, {{1, 4, 5, 8}, {2, 3, 9, 11}}, drawing(99));
        const Figure mixed = figuresOfTest(test, {{5, 1, 8, 4}, {3, 11, 9, 2}}, drawing(99));
        EXPECT_EQ(numberAt(ascending, path + ".value"), numberAt(mixed, path + ".value")) << test;
    }
}

TEST(RandomArrangements, OfAnotherSeedAreOthers) {
    const Lists samples = {{1, 4, 5, 8, 9, 12}, {2, 3, 6, 7, 10, 11}};
    const auto greater = [&](std::uint64_t seed) {
        return numberAt(figuresOfTest("mann-whitney", samples, drawing(999, seed)),
                        "p.permutations.greater.value");
    };
    EXPECT_EQ(greater(1), greater(1));
    EXPECT_NE(greater(1), greater(2));
}

/// A million values: the sums lie near what whole numbers hold.
TEST(RandomArrangements, OfAsManyValuesAsASheetHasRowsDoNotOverflow) {
    constexpr std::size_t rows = 1048576;
    std::vector<double> ranks(rows);
    for (std::size_t i = 0; i < rows; ++i) {
        ranks[i] = static_cast<double>(i + 1);
    }
    // The observed pairing is the farthest one there is, so that no other is as far.
    const SampledTails pairings = *sampledRankProducts(ranks, ranks, drawing(3));
    EXPECT_EQ(pairings.two.p.value, 0.25);
    EXPECT_EQ(pairings.greater.p.value, 0.25);
    EXPECT_EQ(pairings.less.p.value, 1);
    const std::array<std::size_t, 3> sizes = {rows / 2, rows / 4, rows / 4};
    EXPECT_EQ(sampledGroups(ranks, sizes, drawing(3))->p.p.value, 0.25);
}

}  // namespace
}  // namespace TBVNonPara::statistics
