#include "tbvnonpara/statistics/comparisons.hpp"

#include <cmath>
#include <gtest/gtest.h>

namespace TBVNonPara::statistics {
namespace {

struct Adjusted {
    std::string name;
    Adjustment adjustment;
    std::vector<double> given;
    std::vector<double> expected;
};

TEST(Adjustments, AreThoseOfTheirAuthors) {
    // clang-format off
    const Adjusted cases[] = {
        {"Holm",          Adjustment::Holm,              {0.01, 0.04, 0.03, 0.005}, {0.03, 0.06, 0.06, 0.02}},
        {"Holm, at most 1", Adjustment::Holm,            {0.5, 0.75},               {1, 1}},
        {"Bonferroni",    Adjustment::Bonferroni,        {0.01, 0.04, 0.5},         {0.03, 0.12, 1}},
        {"rate",          Adjustment::BenjaminiHochberg, {0.01, 0.04, 0.03, 0.005}, {0.02, 0.04, 0.04, 0.02}},
        {"none",          Adjustment::None,              {0.01, 0.04},              {0.01, 0.04}},
        {"nothing",       Adjustment::Holm,              {},                        {}},
    };
    // clang-format on
    for (const auto& [name, adjustment, given, expected] : cases) {
        std::vector<Probability> probabilities;
        for (const double p : given) {
            probabilities.push_back(probability(p));
        }
        const std::vector<Probability> result = adjusted(probabilities, adjustment);
        ASSERT_EQ(result.size(), expected.size()) << name;
        for (std::size_t i = 0; i < expected.size(); ++i) {
            EXPECT_DOUBLE_EQ(result[i].value, expected[i]) << name;
            EXPECT_NEAR(result[i].log10, std::log10(expected[i]), 1e-14) << name;
        }
    }
}

TEST(Adjustments, OrderByLogarithmsBelowTheRangeOfDoubles) {
    const std::vector<Probability> result = adjusted({{0, -500}, {0, -400}}, Adjustment::Holm);
    EXPECT_DOUBLE_EQ(result[0].log10, -500 + std::log10(2.0));
    EXPECT_EQ(result[1].log10, -400);
}

struct Lettered {
    std::string name;
    std::vector<double> ranks;
    std::vector<GroupPair> differ;
    std::vector<std::string> letters;
};

TEST(Letters, AreSharedByGroupsThatDoNotDiffer) {
    // clang-format off
    const Lettered cases[] = {
        {"none differs",      {1, 2, 3},    {},                        {"a", "a", "a"}},
        {"all differ",        {1, 2, 3},    {{0, 1}, {0, 2}, {1, 2}},  {"c", "b", "a"}},
        {"the ends differ",   {1, 3, 2},    {{0, 1}},                  {"b", "a", "ab"}},
        {"two and two",       {4, 3, 2, 1}, {{0, 2}, {0, 3}, {1, 2}, {1, 3}}, {"a", "a", "b", "b"}},
        {"a chain",           {4, 3, 2, 1}, {{0, 2}, {0, 3}, {1, 3}},  {"a", "ab", "bc", "c"}},
    };
    // clang-format on
    for (const auto& [name, ranks, differ, letters] : cases) {
        EXPECT_EQ(lettersOf(ranks, differ), letters) << name;
    }
}

TEST(Letters, GoOnWithTwoAfterZ) {
    std::vector<GroupPair> all = pairsOfGroups(28, {});
    std::vector<double> ranks(28);
    for (std::size_t i = 0; i < ranks.size(); ++i) {
        ranks[i] = -static_cast<double>(i);
    }
    const auto letters = lettersOf(ranks, all);
    ASSERT_TRUE(letters);
    EXPECT_EQ(letters->at(25), "z");
    EXPECT_EQ(letters->at(26), "aa");
    EXPECT_EQ(letters->at(27), "ab");
}

TEST(Letters, AreNotGivenToMoreGroupsThanAnyoneReads) {
    EXPECT_FALSE(lettersOf(std::vector<double>(201), {}));
}

TEST(PairsOfGroups, HoldTheControlWhenThereIsOne) {
    EXPECT_EQ(pairsOfGroups(4, {}).size(), 6U);
    const std::vector<GroupPair> pairs = pairsOfGroups(3, 1);
    ASSERT_EQ(pairs.size(), 2U);
    EXPECT_EQ(pairs[0].first, 0U);
    EXPECT_EQ(pairs[0].second, 1U);
    EXPECT_EQ(pairs[1].first, 1U);
    EXPECT_EQ(pairs[1].second, 2U);
}

}  // namespace
}  // namespace TBVNonPara::statistics
