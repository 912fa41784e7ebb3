#include "tbvnonpara/companion/own/contingency_statistics.hpp"

#include <gtest/gtest.h>

#include "tests/support/reference_rows.hpp"

namespace TBVNonPara {
namespace {

using Counts = std::vector<std::vector<double>>;

ContingencyTable tableOf(const Counts& counts) {
    return contingencyTable(Support::asRows(counts), false);
}

struct TwoByTwoCase {
    const char* name;
    double a, b, c, d;
    double chiSquare, yates, cochran;

    friend void PrintTo(const TwoByTwoCase& each, std::ostream* out) { *out << each.name; }
};

// clang-format off
const TwoByTwoCase twoByTwoCases[] = {
    // name                                       a   b   c   d    chi-square         Yates               Haber
    // ad - bc = -200, n = 100, margins 30 70 40 60; E = 12, O = 10, d = 2, D = 1.5
    {"DifferenceOnAMultiple_TakesTheNextBelow",  10, 20, 30, 40,  50.0 / 63,         25.0 / 56,          25.0 / 56},
    // ad - bc = 8, n = 8, all margins 4; E = 2, O = 3 <= 4, d = 1, D = 0.5
    {"AllMarginsAlike",                           3,  1,  1,  3,  2,                 0.5,                0.5},
    // ad - bc = 49, n = 31, margins 17 14 19 12; E = 168/31, O = 7 <= 336/31, d = 49/31, D = 1.5
    {"DifferenceBetweenMultiples_IsCutToTheOneBelow",
                                                 12,  5,  7,  7,  74431.0 / 54264,   139159.0 / 217056,  67029.75 / 54264},
    // ad - bc = 72, n = 18, margins 8 10 9 9; E = 4, O = 0, d = 4, D = 3.5
    {"AnEmptyCell",                               8,  0,  1,  9,  14.4,              11.025,             11.025},
    // ad - bc = 24, n = 12, margins 3 9 4 8; E = 1, O = 3 > 2, d = 2, D = 1.5
    {"AboveTwiceTheExpected_HalfIsTakenOff",      3,  0,  1,  8,  8,                 4.5,                4.5},
    // ad - bc = 24, n = 13, margins 3 10 5 8; E = 15/13, O = 3 > 30/13, d = 24/13, D = 35/26
    {"AboveTwiceTheExpected_DIsNoMultiple",       3,  0,  2,  8,  6.24,              637.0 / 192,        637.0 / 192},
    // |ad - bc| = 6, n = 12, margins 6 6 5 7: half of n; d = 1/2, D = 0
    {"DifferenceOfAHalf_LeavesNothing",           2,  4,  3,  3,  12.0 / 35,         0,                  0},
    {"Proportional_IsZeroThroughout",             2,  4,  3,  6,  0,                 0,                  0},
    {"AnEmptyRow_IsZeroThroughout",               0,  0,  3,  6,  0,                 0,                  0},
    {"AnEmptyColumn_IsZeroThroughout",            3,  0,  6,  0,  0,                 0,                  0},
    {"OneCellAlone_IsZeroThroughout",             7,  0,  0,  0,  0,                 0,                  0},
};
// clang-format on

class TwoByTwoTables : public testing::TestWithParam<TwoByTwoCase> {};

TEST_P(TwoByTwoTables, HavePearsonYatesAndCochran) {
    const TwoByTwoCase& expected = GetParam();
    const ContingencyTable table = tableOf({{expected.a, expected.b}, {expected.c, expected.d}});
    EXPECT_DOUBLE_EQ(pearsonChiSquare(table), expected.chiSquare);
    EXPECT_DOUBLE_EQ(yatesChiSquare(table), expected.yates);
    EXPECT_DOUBLE_EQ(cochranChiSquare(table), expected.cochran);
}

INSTANTIATE_TEST_SUITE_P(, TwoByTwoTables, testing::ValuesIn(twoByTwoCases),
                         [](const auto& instance) { return instance.param.name; });

TEST(ContingencyStatistics, CochranIsTheSameHoweverTheTableIsTurned) {
    for (const Counts& turned :
         {Counts{{3, 0}, {2, 8}}, {{0, 3}, {8, 2}}, {{2, 8}, {3, 0}}, {{8, 2}, {0, 3}}, {{3, 2}, {0, 8}}}) {
        // n = 13, D = 35 / 26, margins 3 10 5 8: 13^3 (35 / 26)^2 / 1200 = 637 / 192
        EXPECT_DOUBLE_EQ(cochranChiSquare(tableOf(turned)), 637.0 / 192);
    }
}

TEST(ContingencyStatistics, ALogLikelihoodIsNeverBelowZero) {
    for (int more = 0; more < 200; ++more) {
        const double count = 1000000 + 7919.0 * more;
        const ContingencyTable table = tableOf({{count, count + 1}, {count + 2, count + 3}});
        EXPECT_GE(logLikelihoodG(table), 0);
        // Near proportionality the two statistics agree in their leading digits.
        EXPECT_NEAR(logLikelihoodG(table) / pearsonChiSquare(table), 1, 1e-5);
    }
}

struct WarningCase {
    const char* name;
    Counts counts;
    bool warns;

    friend void PrintTo(const WarningCase& each, std::ostream* out) { *out << each.name; }
};

const WarningCase warningCases[] = {
    {"AllExpectedFive_IsEnough", {{5, 5}, {5, 5}}, false},
    {"OneOfFourBelowFive_IsMoreThanAFifth", {{4, 5}, {6, 9}}, true},
    {"FourOfTenBelowFive_IsMoreThanAFifth", {{4, 4, 10, 10, 10}, {4, 4, 10, 10, 10}}, true},
    {"TwoOfTenBelowFive_IsNotMoreThanAFifth", {{4, 10, 10, 10, 10}, {4, 10, 10, 10, 10}}, false},
    {"ExactlyOne_IsNotBelowOne", {{1, 99, 99, 99, 99}, {1, 99, 99, 99, 99}}, false},
    {"OneBelowOne_Warns", {{1, 99, 99, 99, 99, 99}, {0, 100, 100, 100, 100, 100}}, true},
    {"AnEmptyColumn_IsBelowOne", {{50, 50, 0}, {50, 50, 0}}, true},
};

class ContingencyWarning : public testing::TestWithParam<WarningCase> {};

TEST_P(ContingencyWarning, IsGivenForSmallExpectedFrequencies) {
    EXPECT_EQ(!warningOn(tableOf(GetParam().counts).expected).empty(), GetParam().warns);
}

INSTANTIATE_TEST_SUITE_P(, ContingencyWarning, testing::ValuesIn(warningCases),
                         [](const auto& instance) { return instance.param.name; });

TEST(ContingencyStatistics, TheWarningCountsTheCells) {
    EXPECT_EQ(
        warningOn(tableOf({{50, 50, 0}, {50, 50, 0}}).expected),
        "Of 6 expected frequencies 2 are below 5 and 2 are below 1; the probabilities may be inaccurate.");
}

}  // namespace
}  // namespace TBVNonPara
