#include "tbvnonpara/engine/distributions.hpp"

#include <cmath>
#include <gtest/gtest.h>
#include <random>

#include "tbvnonpara/engine/ranking.hpp"
#include "tests/support/engine_fixture.hpp"
#include "tests/support/raised.hpp"
#include "tests/support/reference_rows.hpp"

namespace TBVNonPara {
namespace {

using Support::FakeApplication;
using Support::raisedBy;
using Support::referenceRows;

TEST(FactorialLog, IsZeroBelowOneAndTheLogarithmOfTheFactorial) {
    EXPECT_EQ(toDouble(FactorialLog(0)), 0);
    EXPECT_EQ(toDouble(FactorialLog(-3)), 0);
    EXPECT_EQ(toDouble(FactorialLog(1)), 0);
    EXPECT_EQ(toDouble(FactorialLog(5)), std::log(120.0));
}

TEST(FactorialLog, HasFifteenDecimalsAndALogarithmTwenty) {
    for (const auto& row : referenceRows("logarithms.csv")) {
        const Long n = std::stoi(row.at(0));
        const DoubleDouble ofNumber(std::stod(row.at(1)), std::stod(row.at(2)));
        const DoubleDouble ofFactorial(std::stod(row.at(3)), std::stod(row.at(4)));
        EXPECT_NEAR(toDouble(logarithm(n) - ofNumber), 0, 1e-21) << row.at(0);
        EXPECT_NEAR(toDouble(FactorialLog(n) - ofFactorial), 0, 1e-15) << row.at(0);
    }
}

TEST(DoubleDouble, KeepsWhatCancellationLeaves) {
    const DoubleDouble large = DoubleDouble(1e16) + DoubleDouble(1) + DoubleDouble(1e-14);
    EXPECT_EQ(toDouble(large - DoubleDouble(1e16)), 1 + 1e-14);
    EXPECT_EQ(toDouble(DoubleDouble(1) / 3 * 3 - DoubleDouble(1)), 0);
    EXPECT_EQ(toDouble(DoubleDouble(1) / 3 - DoubleDouble(1.0 / 3)), 1.0 / 3 * 0x1p-54);
}

/// A ranked table of differences: sign code and rank of each row.
DataTable ranked(const std::vector<std::pair<double, double>>& signsAndRanks) {
    DataTable table(Long(signsAndRanks.size()), 4);
    Long row = 0;
    for (const auto& [sign, rank] : signsAndRanks) {
        ++row;
        table(row, Group) = sign;
        table(row, Rank) = rank;
    }
    return table;
}

DataTable ranked(const std::vector<double>& ranks) {
    std::vector<std::pair<double, double>> rows;
    for (const double rank : ranks) {
        rows.emplace_back(Positive, rank);
    }
    return ranked(rows);
}

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
    EXPECT_EQ(WilcoxonTDist(ranked(ranks), T, oneTailed), P);
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

TEST(ExactWilcoxon, AgreesWithEnumerationForTiedRanks) {
    std::mt19937 random(50);
    for (int round = 0; round < 60; ++round) {
        std::vector<double> values(1 + random() % 11);
        for (double& value : values) {
            value = static_cast<double>(random() % 6 + 1);
        }
        std::ranges::sort(values);
        std::vector<double> ranks(values.size());
        RankValues(values, ranks, *createArrayUtility(), false);
        for (double T = 0; T <= 33; T += 0.5) {
            ASSERT_EQ(WilcoxonTDist(ranks, T, true), countedByHand(ranks, T))
                << "round " << round << ", T " << T;
        }
    }
}

TEST(ExactWilcoxon, RaisesOverflowWhereTheNumberOfSubsetsDoes) {
    EXPECT_EQ(raisedBy([] { (void)WilcoxonTDist(ranked(std::vector<double>(1024, 1)), 5, true); }).number, 6);
}

struct NormalT {
    std::string name;
    std::vector<std::pair<double, double>> rows;
    double T;
    bool oneTailed;
    double Z, P;
};

class NormalWilcoxon : public testing::TestWithParam<NormalT> {};

TEST_P(NormalWilcoxon, IsTheLowerTailWithoutContinuityCorrection) {
    const auto& [name, rows, T, oneTailed, Z, P] = GetParam();
    double reported = 99;
    const ObjectRef<WorksheetHost> host = makeObject<FakeApplication>();
    EXPECT_DOUBLE_EQ(WilcoxonZApprox(ranked(rows), T, oneTailed, reported, host), P);
    EXPECT_DOUBLE_EQ(reported, Z);
}

// Standard deviations: three ranks sqrt(3.5); two zero differences among five ranks with two pairs of ties
// sqrt((330 - 30 - 12 / 2) / 24) = 3.5, mean (30 - 6) / 4 = 6. The probabilities are R's pnorm.
// clang-format off
const NormalT normalT[] = {
    {"ThreeRanks",                 {{1, 1}, {1, 2}, {1, 3}},                           0,   true,  3 / std::sqrt(3.5), 0.054404715020272838},
    {"ThreeRanks_TwoTailed",       {{1, 1}, {1, 2}, {1, 3}},                           0,   false, 3 / std::sqrt(3.5), 0.10880943004054568},
    {"ZIsReportedWithoutItsSign",  {{1, 1}, {1, 2}, {1, 3}},                           6,   true,  3 / std::sqrt(3.5), 0.94559528497972711},
    {"AboveOneIsClampedToOne",     {{1, 1}, {1, 2}, {1, 3}},                           6,   false, 3 / std::sqrt(3.5), 1},
    {"RankedZerosTakePart",        {{3, 1.5}, {3, 1.5}, {1, 3.5}, {2, 3.5}, {1, 5}},   2.5, true,  1,                  0.15865525393145705},
    {"UnrankedZerosDoNot",         {{3, 0}, {3, 0}, {1, 1}, {1, 2}, {1, 3}},           0,   true,  3 / std::sqrt(3.5), 0.054404715020272838},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Of, NormalWilcoxon, testing::ValuesIn(normalT),
                         [](const auto& test) { return test.param.name; });

TEST(NormalWilcoxon, RaisesWhatItsArithmeticAndItsHostRaise) {
    const auto application = std::make_shared<FakeApplication>();
    double Z = 99;
    const auto numberOf = [&](const std::vector<double>& ranks, double T) {
        return raisedBy([&] {
                   (void)WilcoxonZApprox(ranked(ranks), T, true, Z, ObjectRef<WorksheetHost>(application));
               })
            .number;
    };
    EXPECT_EQ(numberOf({}, 0), 6) << "0 / 0";
    EXPECT_EQ(numberOf({}, 1), 11) << "1 / 0";
    EXPECT_EQ(numberOf(std::vector<double>(50, 1), 0), 0) << "all tied leaves a variance";
    application->functions.failure = Support::hostError();
    EXPECT_EQ(numberOf({1, 2, 3}, 0), 1004);
    EXPECT_DOUBLE_EQ(Z, -3 / std::sqrt(3.5)) << "the signed Z stands before the host is asked";
}

}  // namespace
}  // namespace TBVNonPara
