#include "tbvnonpara/distributions/wilcoxon.hpp"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <gtest/gtest.h>
#include <random>

#include "tests/distributions/asked_normal.hpp"
#include "tests/support/raised.hpp"

namespace TBVNonPara {
namespace {

using Support::raisedBy;

struct ExactT {
    std::string name;
    std::vector<double> ranks;
    double T;
    bool oneTailed;
    double P;
};

class ExactWilcoxon : public testing::TestWithParam<ExactT> {};

TEST_P(ExactWilcoxon, IsAFractionOfTheSubsets) {
    const auto& [name, ranks, T, oneTailed, P] = GetParam();
    EXPECT_EQ(wilcoxonTDist(ranks, T, oneTailed), P);
}

// clang-format off
const ExactT exactT[] = {
    {"NoneOfFive",                          {1, 2, 3, 4, 5}, 0,    true,  1.0 / 32},
    {"NoneOfFive_TwoTailed",                {1, 2, 3, 4, 5}, 0,    false, 1.0 / 16},
    {"UpToThreeOfFive",                     {1, 2, 3, 4, 5}, 3,    true,  5.0 / 32},
    {"TiedRanksAreDoubled",                 {1.5, 1.5, 3},   1.5,  true,  3.0 / 8},
    {"TiedRanks_BelowTheSmallest",          {1.5, 1.5, 3},   1,    true,  1.0 / 8},
    {"TiedRanks_AllTheWay",                 {1.5, 1.5, 3},   6,    true,  1},
    {"WholeTiedRanksStayAsTheyAre",         {2, 2, 2},       2,    true,  4.0 / 8},
    {"UnrankedRowsAreSkipped",              {0, 0, 1, 2},    1,    true,  2.0 / 4},
    {"AboveHalf_TwoTailedIsClampedToOne",   {1, 2},          2,    false, 1},
    {"AboveTheSumOfAll",                    {1, 2},          99,   true,  1},
    {"BelowZero",                           {1, 2},          -1,   true,  0},
    {"NothingRanked",                       {0, 0},          0,    true,  1},
    {"NothingRanked_TwoTailed",             {},              0,    false, 1},
    {"FiftyRanks_None",                     std::vector<double>(50, 25.5), 0, true, 0x1p-50},
    {"FiftyRanks_One",                      std::vector<double>(50, 25.5), 25.5, true, 51 * 0x1p-50},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Of, ExactWilcoxon, testing::ValuesIn(exactT),
                         [](const auto& test) { return test.param.name; });

/// All 2^n ways to sign the ranks, one after the other.
double countedByHand(const std::vector<double>& ranks, double T) {
    const auto ways = std::uint32_t(1) << ranks.size();
    double reached = 0;
    for (std::uint32_t way = 0; way < ways; ++way) {
        double sum = 0;
        for (std::size_t i = 0; i < ranks.size(); ++i) {
            sum += (way >> i & 1U) != 0 ? ranks[i] : 0;
        }
        reached += sum <= T ? 1 : 0;
    }
    return reached / ways;
}

TEST(ExactWilcoxon, AgreesWithEnumerationForHalvesAndWholeRanks) {
    std::mt19937 random(50);
    for (int round = 0; round < 60; ++round) {
        std::vector<double> ranks(1 + random() % 11);
        for (double& rank : ranks) {
            rank = static_cast<double>(random() % 12 + 1) / 2;
        }
        for (double T = 0; T <= 33; T += 0.5) {
            ASSERT_EQ(wilcoxonTDist(ranks, T, true), countedByHand(ranks, T))
                << "round " << round << ", T " << T;
        }
    }
}

TEST(ExactWilcoxon, HasALowerTailOfItsOwn) {
    const std::vector<double> ranks{1, 2, 3};
    EXPECT_EQ(signedRankLowerTail(ranks, 3), 5.0 / 8);
    EXPECT_EQ(signedRankLowerTail(ranks, 6), 1);
    EXPECT_EQ(signedRankLowerTail(ranks, -1), 0);
}

TEST(ExactWilcoxon, RaisesOverflowWhereTheNumberOfSubsetsDoes) {
    EXPECT_EQ(raisedBy([] { (void)wilcoxonTDist(std::vector<double>(1024, 1), 5, true); }).number, 6);
}

struct NormalT {
    std::string name;
    RankedDifferences ranked;
    double T;
    bool oneTailed;
    double Z, P;
};

class NormalWilcoxon : public testing::TestWithParam<NormalT> {};

TEST_P(NormalWilcoxon, IsTheLowerTailWithoutContinuityCorrection) {
    const auto& [name, ranked, T, oneTailed, Z, P] = GetParam();
    double reported = 99;
    EXPECT_DOUBLE_EQ(wilcoxonZApprox(ranked, T, oneTailed, reported, normalLowerTail), P);
    EXPECT_DOUBLE_EQ(reported, Z);
}

// Standard deviations: three ranks sqrt(3.5); two zero differences among five ranks with two pairs of ties
// sqrt((330 - 30 - 12 / 2) / 24) = 3.5, mean (30 - 6) / 4 = 6. The probabilities are R's pnorm.
// clang-format off
const NormalT normalT[] = {
    // name                        {n, zeros, ties}  T    oneTailed  Z                   P
    {"ThreeRanks",                 {3, 0, 0},        0,   true,      3 / std::sqrt(3.5), 0.054404715020272838},
    {"ThreeRanks_TwoTailed",       {3, 0, 0},        0,   false,     3 / std::sqrt(3.5), 0.10880943004054568},
    {"ZIsReportedWithoutItsSign",  {3, 0, 0},        6,   true,      3 / std::sqrt(3.5), 0.94559528497972711},
    {"AboveOneIsClampedToOne",     {3, 0, 0},        6,   false,     3 / std::sqrt(3.5), 1},
    {"RankedZerosTakePart",        {5, 2, 12},       2.5, true,      1,                  0.15865525393145705},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Of, NormalWilcoxon, testing::ValuesIn(normalT),
                         [](const auto& test) { return test.param.name; });

TEST(NormalWilcoxon, RaisesWhatItsArithmeticAndItsNormalTailRaise) {
    Support::AskedNormal normal;
    double Z = 99;
    const auto numberOf = [&](const RankedDifferences& ranked, double T) {
        return raisedBy([&] { (void)wilcoxonZApprox(ranked, T, true, Z, normal.tail()); }).number;
    };
    EXPECT_EQ(numberOf({}, 0), 6) << "0 / 0";
    EXPECT_EQ(numberOf({}, 1), 11) << "1 / 0";
    EXPECT_EQ(numberOf({2, 2, 0}, 1), 11) << "nothing but zeros leaves no variance";
    EXPECT_EQ(numberOf({2, 2, 6}, 1), 5) << "and ties among them less than none";
    normal.failure = Support::hostError();
    EXPECT_EQ(numberOf({3, 0, 0}, 0), 1004);
    EXPECT_DOUBLE_EQ(Z, -3 / std::sqrt(3.5)) << "the signed Z stands before the tail is asked for";
}

}  // namespace
}  // namespace TBVNonPara
