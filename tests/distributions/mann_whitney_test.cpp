#include "tbvnonpara/distributions/mann_whitney.hpp"

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

/// The whole calculation is carried in 32 digits; what is left are the roundings of the result and the
/// quotient.
constexpr double exactTolerance = 1e-15 * 2;

struct ChosenU {
    std::string name;
    double U1, U2;
    TBVNPTails tails;
    double U;
};

TEST(ChooseU, TakesTheOneThatSpeaksForTheAlternative) {
    // clang-format off
    const ChosenU cases[] = {
        {"the larger",             4, 5, tbvNPTwoTailed,      5},
        {"the larger",             5, 4, tbvNPTwoTailed,      5},
        {"U2 for first greater",   5, 4, tbvNPVar1GTVar2,     4},
        {"U1 for first smaller",   4, 5, tbvNPVar1LTVar2,     4},
        {"as two-tailed",          4, 5, tailsOutsideTheList, 5},
    };
    // clang-format on
    for (const auto& [name, U1, U2, tails, U] : cases) {
        EXPECT_EQ(chooseU(U1, U2, tails), U) << name;
    }
}

struct ExactU {
    std::string name;
    Long n1, n2;
    double U1, U2;
    TBVNPTails tails;
    double P;
};

class ExactMannWhitney : public testing::TestWithParam<ExactU> {};

TEST_P(ExactMannWhitney, IsAFractionOfTheArrangements) {
    const auto& [name, n1, n2, U1, U2, tails, P] = GetParam();
    EXPECT_DOUBLE_EQ(mannWhitneyP(n1, n2, U1, U2, 0, tails, noNormal), P);
}

// clang-format off
const ExactU exactU[] = {
    // name                                    n1 n2  U1    U2   tails                P
    {"OneAgainstFour_IsUniform",               1, 4,  4,    0,   tbvNPTwoTailed,      2.0 / 5},
    {"FourAgainstOne_IsTheSame",               4, 1,  0,    4,   tbvNPTwoTailed,      2.0 / 5},
    {"OneAgainstFour_InTheMiddle",             1, 4,  2,    2,   tbvNPVar1LTVar2,     3.0 / 5},
    {"ThreeAgainstThree_Extreme",              3, 3,  9,    0,   tbvNPVar1LTVar2,     1.0 / 20},
    {"ThreeAgainstThree_ExtremeTwoTailed",     3, 3,  9,    0,   tbvNPTwoTailed,      2.0 / 20},
    {"ThreeAgainstThree_WrongDirection",       3, 3,  9,    0,   tbvNPVar1GTVar2,     1},
    {"TwoTailedAtTheMean_IsClampedToOne",      3, 3,  4.5,  4.5, tbvNPTwoTailed,      1},
    {"OneAgainstOne",                          1, 1,  1,    0,   tbvNPVar1LTVar2,     1.0 / 2},
    {"TiesAreIgnored_HalvesRoundToEven_Up",    2, 2,  0.5,  3.5, tbvNPVar1LTVar2,     5.0 / 6},
    {"TiesAreIgnored_HalvesRoundToEven_Down",  2, 2,  1.5,  2.5, tbvNPVar1LTVar2,     5.0 / 6},
    {"TailsOutsideTheList_AreOneTailed",       3, 3,  0,    9,   tailsOutsideTheList, 1.0 / 20},
    {"AboveTheLargestU_NothingIsLeft",         3, 1,  8,    -5,  tbvNPTwoTailed,      0},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Of, ExactMannWhitney, testing::ValuesIn(exactU),
                         [](const auto& test) { return test.param.name; });

TEST(MannWhitneyQuirks, ATailThatStartsBelowTheFirstFrequencyIsOutOfRange) {
    EXPECT_EQ(raisedBy([] { (void)mannWhitneyP(2, 2, -0.5, 4.5, 0, tbvNPVar1LTVar2, noNormal); }).number, 9);
    EXPECT_EQ(raisedBy([] { (void)mannWhitneyP(3, 1, 8, -5, 0, tbvNPVar1GTVar2, noNormal); }).number, 9);
    EXPECT_EQ(raisedBy([] { (void)mannWhitneyP(3, 0, 6, -6, 0, tbvNPTwoTailed, noNormal); }).number, 9);
}

TEST(ExactMannWhitney, AgreesWithWholeNumberCounts) {
    for (const auto& row : referenceRows("mann_whitney_exact.csv")) {
        const Long n1 = std::stoi(row.at(0));
        const Long n2 = std::stoi(row.at(1));
        const double U = std::stod(row.at(2));
        const double expected = std::stod(row.at(3));
        const double other = toDouble(n1 * n2) - U;
        EXPECT_NEAR(mannWhitneyP(n1, n2, other, U, 0, tbvNPVar1GTVar2, noNormal), expected,
                    exactTolerance * expected)
            << row.at(0) << " x " << row.at(1) << ", U = " << row.at(2);
    }
}

/// The arrangements of m and n with the statistic u, by the recursion of Mann and Whitney: the largest of all
/// values belongs to the first sample or to the second.
class Arrangements {
 public:
    explicit Arrangements(int most)
        : m_Most(most), m_Counts(static_cast<std::size_t>((most + 1) * (most + 1))) {
        for (int m = 0; m <= most; ++m) {
            for (int n = 0; n <= most; ++n) {
                auto& counts = of(m, n);
                counts.assign(static_cast<std::size_t>(m) * static_cast<std::size_t>(n) + 1,
                              m == 0 || n == 0 ? 1 : 0);
                for (int u = 0; u <= m * n && m > 0 && n > 0; ++u) {
                    counts[static_cast<std::size_t>(u)] = at(m - 1, n, u - n) + at(m, n - 1, u);
                }
            }
        }
    }

    double tail(int m, int n, int u) {
        double sum = 0;
        double all = 0;
        for (int v = 0; v <= m * n; ++v) {
            sum += v >= u ? static_cast<double>(at(m, n, v)) : 0;
            all += static_cast<double>(at(m, n, v));
        }
        return sum / all;
    }

 private:
    std::vector<std::int64_t>& of(int m, int n) {
        return m_Counts[static_cast<std::size_t>(m) * static_cast<std::size_t>(m_Most + 1) +
                        static_cast<std::size_t>(n)];
    }
    std::int64_t at(int m, int n, int u) {
        return u < 0 || u > m * n ? 0 : of(m, n)[static_cast<std::size_t>(u)];
    }

    int m_Most;
    std::vector<std::vector<std::int64_t>> m_Counts;
};

TEST(ExactMannWhitney, AgreesWithARecursionForAllSmallSizes) {
    constexpr int most = 12;
    Arrangements arrangements(most);
    for (int m = 1; m <= most; ++m) {
        for (int n = 1; n <= most; ++n) {
            for (int u = 0; u <= m * n; ++u) {
                const double P = mannWhitneyP(m, n, u, m * n - u, 0, tbvNPVar1LTVar2, noNormal);
                ASSERT_DOUBLE_EQ(P, arrangements.tail(m, n, u)) << m << " x " << n << ", U = " << u;
            }
        }
    }
}

TEST(ExactMannWhitney, HasAnUpperTailOfItsOwn) {
    EXPECT_DOUBLE_EQ(mannWhitneyUpperTail(3, 3, 9), 1.0 / 20);
    EXPECT_DOUBLE_EQ(mannWhitneyUpperTail(3, 3, 8.5), 1.0 / 20) << "a half rounds 9.5 to 10";
    EXPECT_DOUBLE_EQ(mannWhitneyUpperTail(3, 3, 7.5), 4.0 / 20) << "and 8.5 to 8";
    EXPECT_EQ(mannWhitneyUpperTail(3, 3, 0), 1);
    EXPECT_EQ(mannWhitneyUpperTail(3, 3, 10), 0);
}

TEST(MannWhitneyP, AsksForANormalTailFromFiftyThousandPairsOn) {
    AskedNormal normal;
    (void)mannWhitneyP(223, 224, 30000, 19952, 0, tbvNPTwoTailed, normal.tail());
    (void)mannWhitneyP(1, 49999, 30000, 19999, 0, tbvNPTwoTailed, normal.tail());
    EXPECT_TRUE(normal.asked.empty());
    (void)mannWhitneyP(1, 50000, 30000, 20000, 0, tbvNPTwoTailed, normal.tail());
    EXPECT_EQ(normal.asked.size(), 1);
}

struct NormalU {
    std::string name;
    double U1, U2, tieSum;
    TBVNPTails tails;
    double P;
};

class NormalMannWhitney : public testing::TestWithParam<NormalU> {};

TEST_P(NormalMannWhitney, CorrectsForTiesAndContinuity) {
    const auto& [name, U1, U2, tieSum, tails, P] = GetParam();
    // The normal tail comes from 1 - Phi, which keeps about 16 decimals.
    EXPECT_NEAR(mannWhitneyP(250, 200, U1, U2, tieSum, tails, normalLowerTail), P, 4e-16);
}

// 250 x 200, mean 25000: without ties the variance is 250 x 200 x 451 / 12 and 2000.5 above the mean are 2000
// / sd = 1.458973... standard deviations. The probabilities are R's pnorm of that.
// clang-format off
const NormalU normalU[] = {
    // name                                     U1       U2       tie sum   tails                P
    {"AtTheMean_IsClampedToOne",                25000,   25000,   0,        tbvNPTwoTailed,      1},
    {"AtTheMean_FirstGreater_IsBelowAHalf",     25000,   25000,   0,        tbvNPVar1GTVar2,     0.49985448846890779},
    {"AtTheMean_FirstSmaller_IsBelowAHalf",     25000,   25000,   0,        tbvNPVar1LTVar2,     0.49985448846890779},
    {"TwoTailed",                               27000.5, 22999.5, 0,        tbvNPTwoTailed,      0.14457245526431953},
    {"TwoTailed_TheOtherWay",                   22999.5, 27000.5, 0,        tbvNPTwoTailed,      0.14457245526431953},
    {"FirstSmaller_InItsDirection",             27000.5, 22999.5, 0,        tbvNPVar1LTVar2,     0.072286227632159764},
    {"FirstSmaller_AgainstItsDirection",        22999.5, 27000.5, 0,        tbvNPVar1LTVar2,     0.92771377236784025},
    {"FirstGreater_InItsDirection",             22999.5, 27000.5, 0,        tbvNPVar1GTVar2,     0.072286227632159764},
    {"FirstGreater_AgainstItsDirection",        27000.5, 22999.5, 0,        tbvNPVar1GTVar2,     0.92771377236784025},
    {"TailsOutsideTheList_AreOneTailed",        22999.5, 27000.5, 0,        tailsOutsideTheList, 0.072286227632159764},
    {"TiesMakeTheVarianceSmaller",              27000.5, 22999.5, 30000000, tbvNPTwoTailed,      0.07484996844535706},
    {"ANegativeTieSumCountsAsNone",             27000.5, 22999.5, -6,       tbvNPTwoTailed,      0.14457245526431953},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Of, NormalMannWhitney, testing::ValuesIn(normalU),
                         [](const auto& test) { return test.param.name; });

TEST(NormalMannWhitney, RaisesWhatItsArithmeticAndItsNormalTailRaise) {
    AskedNormal normal;
    const auto numberOf = [&](double tieSum) {
        return raisedBy(
                   [&] { (void)mannWhitneyP(250, 200, 25000, 25000, tieSum, tbvNPTwoTailed, normal.tail()); })
            .number;
    };
    constexpr double allTied = 450.0 * 450 * 450 - 450;
    EXPECT_EQ(numberOf(allTied), 11);
    EXPECT_EQ(numberOf(2 * allTied), 5);
    normal.failure = Support::hostError();
    EXPECT_EQ(numberOf(0), 1004);
}

TEST(MannWhitneyCounts, ThatAreKeptGiveTheSameToTheLastBit) {
    MannWhitneyCounts counts;
    for (const auto& [n1, n2] : {std::pair(3, 4), std::pair(40, 30), std::pair(30, 40), std::pair(3, 4)}) {
        for (const double U : {0.0, 5.0, 11.5, 12.0}) {
            EXPECT_EQ(counts.upperTail(n1, n2, U), mannWhitneyUpperTail(n1, n2, U))
                << n1 << ' ' << n2 << ' ' << U;
        }
    }
}

TEST(MannWhitneyCounts, AreDroppedWhenTheyGrowTooLarge) {
    MannWhitneyCounts counts;
    for (int n = 49900; n < 50000; ++n) {
        EXPECT_EQ(counts.upperTail(1, n, 0), 1) << n;
    }
}

TEST(MannWhitneyUpperTails, AreThoseOfEveryUAtOnce) {
    const std::vector<double> tails = mannWhitneyUpperTails(7, 5);
    ASSERT_EQ(tails.size(), 36U);
    for (std::size_t U = 0; U < tails.size(); ++U) {
        EXPECT_EQ(tails[U], mannWhitneyUpperTail(7, 5, static_cast<double>(U))) << U;
    }
}

}  // namespace
}  // namespace TBVNonPara
