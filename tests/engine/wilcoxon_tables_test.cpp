#include <cmath>
#include <gtest/gtest.h>

#include "tests/support/engine_fixture.hpp"
#include "tests/support/raised.hpp"

namespace TBVNonPara {
namespace {

using Support::engineCompanions;
using Support::raisedBy;

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
    rows.reserve(ranks.size());
    for (const double rank : ranks) {
        rows.emplace_back(Positive, rank);
    }
    return ranked(rows);
}

TEST(WilcoxonOfATable, CountsTheSubsetsOfItsRanks) {
    const clsNonParaBO engine(engineCompanions());
    EXPECT_EQ(engine.WilcoxonTDist(ranked({1, 2, 3}), 0, false), 2.0 / 8);
    EXPECT_EQ(engine.WilcoxonTDist(ranked({0, 0, 1, 2}), 1, true), 2.0 / 4) << "0 is no rank";
    EXPECT_EQ(engine.WilcoxonTDist(ranked({0, 0}), 0, true), 1);
    EXPECT_EQ(engine.WilcoxonTDist(DataTable(0, 4), 0, false), 1);
}

struct NormalT {
    std::string name;
    std::vector<std::pair<double, double>> rows;
    double T;
    bool oneTailed;
    double Z, P;
};

class NormalWilcoxonOfATable : public testing::TestWithParam<NormalT> {};

TEST_P(NormalWilcoxonOfATable, IsTheLowerTailWithoutContinuityCorrection) {
    const auto& [name, rows, T, oneTailed, Z, P] = GetParam();
    double reported = 99;
    const clsNonParaBO engine(engineCompanions());
    EXPECT_DOUBLE_EQ(engine.WilcoxonZApprox(ranked(rows), T, oneTailed, reported), P);
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

INSTANTIATE_TEST_SUITE_P(Of, NormalWilcoxonOfATable, testing::ValuesIn(normalT),
                         [](const auto& test) { return test.param.name; });

TEST(NormalWilcoxonOfATable, RaisesWhatItsArithmeticAndItsHostRaise) {
    const auto application = std::make_shared<Support::FakeApplication>();
    const clsNonParaBO engine(engineCompanions(application));
    double Z = 99;
    const auto numberOf = [&](const std::vector<double>& ranks, double T) {
        return raisedBy([&] { (void)engine.WilcoxonZApprox(ranked(ranks), T, true, Z); }).number;
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
