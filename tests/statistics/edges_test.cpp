#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <stdexcept>
#include <string>

#include "tbvnonpara/statistics/kruskal_wallis.hpp"
#include "tbvnonpara/statistics/mann_whitney.hpp"
#include "tbvnonpara/statistics/runs.hpp"
#include "tbvnonpara/statistics/sign.hpp"
#include "tests/statistics/tests_by_name.hpp"

namespace TBVNonPara::statistics {
namespace {

constexpr double missing = std::numeric_limits<double>::quiet_NaN();
constexpr double infinite = std::numeric_limits<double>::infinity();

struct Refusal {
    std::string test;
    Lists samples;
    std::string text;
};

TEST(Refusals, NameGroupAndPosition) {
    // clang-format off
    const Refusal cases[] = {
        {"mann-whitney",   {{1, missing}, {2}},           "Value 2 of the first sample is not a number."},
        {"mann-whitney",   {{1}, {2, 3, -infinite}},      "Value 3 of the second sample is infinite."},
        {"mann-whitney",   {{}, {2}},                     "The first sample has no values."},
        {"wilcoxon",       {{1, 2}, {missing, 2}},        "Value 1 of the second variable is not a number."},
        {"wilcoxon",       {{1, 2}, {2}},                 "Pairs need two variables of one length; these have 2 and 1 values."},
        {"wilcoxon",       {{}, {}},                      "There are no pairs of values."},
        {"spearman",       {{1, infinite}, {1, 2}},       "Value 2 of the first variable is infinite."},
        {"spearman",       {{1}, {1}},                    "A correlation needs at least two pairs of values."},
        {"sign",           {{1, missing}, {1, 2}},        "Value 2 of the first variable is not a number."},
        {"sign",           {{}, {}},                      "There are no pairs of values."},
        {"runs",           {{1, 2, missing}},             "Value 3 of the sequence is not a number."},
        {"runs",           {{}},                          "The sequence is empty."},
        {"median",         {{1, 2}, {3, missing}},        "Value 2 of group 2 is not a number."},
        {"kruskal-wallis", {{1, 2}, {3}, {4, infinite}},  "Value 2 of group 3 is infinite."},
        {"kruskal-wallis", {{1, 2}, {}},                  "The test compares groups, and fewer than two have values."},
        {"friedman",       {{1, 2}, {3, missing}},        "Value 2 of block 2 is not a number."},
        {"friedman",       {{1, 2}, {3}},                 "Treatments need one value a block: treatment 1 has 2 values, treatment 2 has 1."},
        {"friedman",       {{1, 2}},                      "The test compares treatments, and there are fewer than two."},
        {"friedman",       {{1}, {2}},                    "The test needs at least two complete blocks."},
    };
    // clang-format on
    for (const auto& [test, samples, text] : cases) {
        try {
            (void)figuresOfTest(test, samples);
            ADD_FAILURE() << test << " did not refuse: " << text;
        } catch (const std::invalid_argument& refusal) {
            EXPECT_EQ(refusal.what(), text) << test;
        }
    }
}

TEST(Refusals, OfALevelThatNoIntervalHas) {
    for (const double level : {0.49, 1.0, missing}) {
        EXPECT_THROW((void)figuresOfTest("sign", {{1}, {2}}, {.confidence = level}), std::invalid_argument)
            << level;
    }
}

struct Left {
    std::string test;
    Lists samples;
    double missing;
    std::string count;
    double left;
};

TEST(MissingValues, AreLeftOutAndCountedWhenAsked) {
    // clang-format off
    const Left cases[] = {
        {"mann-whitney",   {{1, missing, 2}, {missing, 5}},           2, "data.n.1",    2},
        {"wilcoxon",       {{1, missing, 2}, {missing, 5, 6}},        2, "data.n",      1},
        {"spearman",       {{1, missing, 2, 3}, {4, 5, 6, 7}},        1, "data.n",      3},
        {"sign",           {{1, missing, 2}, {4, 5, 6}},              1, "data.n",      2},
        {"runs",           {{1, missing, 1, 2}},                      1, "data.runs",   2},
        {"median",         {{1, missing, 1, 2}, {missing, 4}},        2, "data.n",      4},
        {"kruskal-wallis", {{missing}, {1, missing}, {4, 5}},         2, "data.n",      3},
        {"friedman",       {{1, missing, 3}, {4, 5, 6}},              1, "data.blocks", 2},
    };
    // clang-format on
    for (const auto& [test, samples, left, count, number] : cases) {
        const Figure figures = figuresOfTest(test, samples, {.missing = Missing::Omit});
        EXPECT_EQ(numberAt(figures, "data.missing"), left) << test;
        EXPECT_EQ(numberAt(figures, count), number) << test;
    }
}

struct Absent {
    std::string name;
    std::string test;
    Lists samples;
    std::vector<std::string> paths;
};

TEST(Figures, AreAbsentWhereThereAreNone) {
    // clang-format off
    const Absent cases[] = {
        {"all equal",         "mann-whitney",   {{3, 3}, {3, 3, 3}}, {"p.normal", "robust", "effect.superiority.low", "effect.shift.low"}},
        {"one value each",    "mann-whitney",   {{1}, {2}},          {"robust", "effect.shift.low", "groups.1.median.low"}},
        {"separated",         "mann-whitney",   {{1, 2}, {3, 4}},    {"robust"}},
        {"no difference",     "wilcoxon",       {{1, 2}, {1, 2}},    {"p.zerosLeftOut.exact", "p.zerosLeftOut.normal", "effect.rankBiserial"}},
        {"no zero",           "wilcoxon",       {{1, 2}, {3, 5}},    {"p.pratt", "effect.pseudomedian.low"}},
        {"one does not vary", "spearman",       {{1, 1}, {1, 2}},    {"p.exact", "p.t", "effect.rho"}},
        {"perfect",           "spearman",       {{1, 2, 3, 4}, {5, 6, 7, 8}}, {"p.t", "effect.rho.low", "p.series"}},
        {"no sign",           "sign",           {{1, 2}, {1, 2}},    {"p.exact", "p.normal", "effect.positiveShare"}},
        {"one category",      "runs",           {{4, 4, 4}},         {"p.normal"}},
        {"one cell",          "runs",           {{4}},               {"p.normal", "effect.equalNeighbours"}},
        {"all equal",         "median",         {{3, 3}, {3}},       {"p.exact", "p.chiSquare", "effect.cramerV", "letters"}},
        {"all equal",         "kruskal-wallis", {{3, 3}, {3}},       {"p.exact", "p.chiSquare", "p.f", "effect.epsilonSquared", "letters"}},
        {"separated",         "kruskal-wallis", {{1}, {2}},          {"p.f", "effect.epsilonSquared.low"}},
        {"all tied",          "friedman",       {{3, 5}, {3, 5}},    {"p.exact", "p.chiSquare", "p.f", "effect.kendallW", "letters"}},
        {"agreed",            "friedman",       {{1, 2, 3}, {4, 5, 6}}, {"p.f", "effect.kendallW.low"}},
        {"two blocks",        "friedman",       {{1, 2}, {4, 1}, {2, 5}}, {"effect.kendallW.low"}},
    };
    // clang-format on
    for (const auto& [name, test, samples, paths] : cases) {
        const Figure figures = figuresOfTest(test, samples);
        for (const std::string& path : paths) {
            EXPECT_NE(find(figures, path), nullptr) << test << ", " << name << ": " << path;
            EXPECT_FALSE(exists(figures, path)) << test << ", " << name << ": " << path;
        }
    }
}

TEST(ExactCounts, AreLeftOutWhenNoStepIsAllowed) {
    const Options none{.exactSteps = 0};
    for (const std::string test :
         {"mann-whitney", "wilcoxon", "spearman", "runs", "median", "kruskal-wallis", "friedman"}) {
        const Figure figures = figuresOfTest(test, {{1, 2, 2, 4, 9}, {2, 3, 1, 5, 5}}, none);
        const std::string path = test == "wilcoxon" ? "p.zerosLeftOut.exact" : "p.exact";
        EXPECT_FALSE(exists(figures, path)) << test;
        EXPECT_NE(std::get<std::string>(find(figures, "p.method")->value), "exact") << test;
    }
}

// 800 against 800 of two values, separated: the exact probability is below the range of doubles.
TEST(ExactCounts, GiveWayToAFormulaBelowTheRangeOfDoubles) {
    std::vector<double> zeros(800, 0);
    std::vector<double> ones(800, 1);
    const MannWhitney test = mannWhitney(zeros, ones, {.exactSteps = 1e10});
    EXPECT_FALSE(test.exact);
    ASSERT_TRUE(test.normal);
    EXPECT_LT(test.normal->plain.two.log10, -300);
}

TEST(Separated, SamplesReachTheEndOfTheScale) {
    const MannWhitney test = mannWhitney(std::vector<double>{4, 5, 6}, std::vector<double>{1, 2, 3});
    EXPECT_EQ(test.superiority.value, 1);
    EXPECT_EQ(test.superiority.high, 1);
    EXPECT_EQ(test.rankBiserial.high, 1);
    EXPECT_EQ(test.exact->greater.value, 0.05);
}

TEST(Sign, CountsCodesAsPairs) {
    const Sign codes = sign(std::vector<double>{1, -1, 0, 2, 3});
    EXPECT_EQ(codes.positive, 3U);
    EXPECT_EQ(codes.negative, 1U);
    EXPECT_EQ(codes.zero, 1U);
    EXPECT_EQ(codes.exact->two.value, 0.625);
    EXPECT_FALSE(codes.medianDifference);
}

TEST(Runs, OfATrillionToOneHaveALogarithm) {
    std::vector<std::size_t> cells(2000);
    std::fill(cells.begin() + 1000, cells.end(), 1);
    const Runs test = runs(cells);
    // 2 of the C(2000, 1000) orders have two runs.
    const double log10 = std::log10(2.0) - (std::lgamma(2001.0) - 2 * std::lgamma(1001.0)) / std::log(10.0);
    EXPECT_NEAR(test.exact->fewer.log10, log10, 1e-9);
    EXPECT_EQ(test.exact->fewer.value, 0);
}

TEST(Runs, RefusesNumbersOfCategoriesOutOfTheirOrder) {
    using Numbers = std::vector<std::size_t>;
    for (const Numbers& categories : {Numbers{1}, Numbers{0, 1, 3}, Numbers{0, std::size_t(-1)}}) {
        try {
            (void)runs(categories);
            ADD_FAILURE() << categories.back();
        } catch (const std::invalid_argument& error) {
            EXPECT_TRUE(
                std::string(error.what())
                    .starts_with("Categories are numbered from 0 in order of first appearance; cell "))
                << error.what();
        }
    }
}

TEST(Control, LeavesTheComparisonsWithIt) {
    const Lists lists = {{1, 2, 3}, {4, 5, 6}, {}, {2, 4, 6}};
    const std::vector<std::span<const double>> groups(lists.begin(), lists.end());
    const KruskalWallis test = kruskalWallis(groups, {}, 3);
    ASSERT_EQ(test.comparisons.size(), 2U);
    EXPECT_EQ(test.comparisons[0].first, 0U);
    EXPECT_EQ(test.comparisons[0].second, 2U);
    EXPECT_EQ(test.comparisons[1].first, 1U);
    EXPECT_EQ(test.groups[2].original, 3U);
    EXPECT_FALSE(test.letters);
    EXPECT_THROW((void)kruskalWallis(groups, {}, 2), std::invalid_argument);
}

}  // namespace
}  // namespace TBVNonPara::statistics
