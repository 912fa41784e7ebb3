#include "tbvnonpara/distributions/spearman.hpp"

#include <algorithm>
#include <gtest/gtest.h>

#include "tests/distributions/asked_normal.hpp"
#include "tests/support/raised.hpp"
#include "tests/support/reference_rows.hpp"
#include "tests/support/tails_outside_the_list.hpp"

namespace TBVNonPara {
namespace {

using Support::AskedNormal;
using Support::noNormal;
using Support::raisedBy;
using Support::referenceRows;
using Support::tailsOutsideTheList;

struct ExactRs {
    std::string name;
    Long n;
    double rs;
    TBVNPTails tails;
    double P;
};

class ExactSpearman : public testing::TestWithParam<ExactRs> {};

TEST_P(ExactSpearman, IsAFractionOfThePermutations) {
    const auto& [name, n, rs, tails, P] = GetParam();
    EXPECT_DOUBLE_EQ(spearmanP(n, rs, tails, noNormal), P);
}

// clang-format off
const ExactRs exactRs[] = {
    {"OfFourOnlyTheReversed",               4, 1,                  tbvNPVar1GTVar2,     1.0 / 24},
    {"OfFourOnlyTheReversed_TwoTailed",     4, 1,                  tbvNPTwoTailed,      1.0 / 12},
    {"OfFour_AgainstTheDirection",          4, 1,                  tbvNPVar1LTVar2,     23.0 / 24},
    {"OfFour_NegativeInTheDirection",       4, -1,                 tbvNPVar1LTVar2,     1.0 / 24},
    {"OfFour_NegativeAgainstTheDirection",  4, -1,                 tbvNPVar1GTVar2,     23.0 / 24},
    {"TailsOutsideTheListAreTheUpperTail",  4, -1,                 tailsOutsideTheList, 1.0 / 24},
    {"ZeroLiesInBothDirections_Greater",    4, 0,                  tbvNPVar1GTVar2,     13.0 / 24},
    {"ZeroLiesInBothDirections_Less",       4, 0,                  tbvNPVar1LTVar2,     13.0 / 24},
    {"ZeroTwoTailed_IsClampedToOne",        4, 0,                  tbvNPTwoTailed,      1},
    {"DifferencesWithRoundingAreWhole",     6, 1 - 6.0 * 6 / 210,  tbvNPVar1GTVar2,     21.0 / 720},
    {"AlsoOneUnitBelow",                    6, 0.82857142857142851, tbvNPVar1GTVar2,    21.0 / 720},
    {"AlsoOneUnitAbove",                    6, 0.82857142857142863, tbvNPVar1GTVar2,    21.0 / 720},
    {"AlsoWhenNegative",                    6, -0.82857142857142863, tbvNPVar1LTVar2,   21.0 / 720},
    {"OfSevenOnlyTheReversed",              7, 1,                  tbvNPVar1GTVar2,     1.0 / 5040},
    {"OfTwo",                               2, 1,                  tbvNPTwoTailed,      1},
    {"OfOneIsOneWhateverTheTails",          1, 0.3,                tbvNPVar1GTVar2,     1},
    {"OfOneIsOneWhateverTheTails_Less",     1, 0.3,                tbvNPVar1LTVar2,     1},
    {"OfNone",                              0, 0.3,                tbvNPTwoTailed,      1},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Of, ExactSpearman, testing::ValuesIn(exactRs),
                         [](const auto& test) { return test.param.name; });

TEST(SpearmanSeries, HasTheStatedTermsFromEightPairsOn) {
    for (const auto& row : referenceRows("spearman_series.csv")) {
        const Long n = std::stoi(row.at(0));
        const double rs = std::stod(row.at(1));
        const double Pu = std::stod(row.at(2));
        // 1 - Phi and the sum of the series keep about 16 decimals; outside 0..1 the series is cut off.
        const auto clamped = [](double P) { return std::clamp(P, 0.0, 1.0); };
        EXPECT_NEAR(spearmanP(n, rs, tailsOutsideTheList, normalLowerTail), clamped(Pu), 1e-15)
            << row.at(0) << ' ' << rs;
        EXPECT_NEAR(spearmanP(n, rs, tbvNPTwoTailed, normalLowerTail), clamped(2 * Pu), 2e-15)
            << row.at(0) << ' ' << rs;
        EXPECT_NEAR(spearmanP(n, rs, tbvNPVar1GTVar2, normalLowerTail), clamped(rs >= 0 ? Pu : 1 - Pu),
                    1e-15);
        EXPECT_NEAR(spearmanP(n, rs, tbvNPVar1LTVar2, normalLowerTail), clamped(rs <= 0 ? Pu : 1 - Pu),
                    1e-15);
    }
}

TEST(SpearmanSeries, AsksForANormalTailFromEightPairsOn) {
    AskedNormal normal;
    (void)spearmanP(7, 0.5, tbvNPTwoTailed, normal.tail());
    EXPECT_TRUE(normal.asked.empty());
    (void)spearmanP(8, 0.5, tbvNPTwoTailed, normal.tail());
    EXPECT_EQ(normal.asked.size(), 1);
    normal.failure = Support::hostError();
    EXPECT_EQ(raisedBy([&] { (void)spearmanP(8, 0.5, tbvNPTwoTailed, normal.tail()); }).number, 1004);
}

}  // namespace
}  // namespace TBVNonPara
