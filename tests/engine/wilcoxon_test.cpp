#include <gmock/gmock.h>

#include "tests/engine/two_samples.hpp"
#include "tests/support/tails_outside_the_list.hpp"

namespace TBVNonPara {
namespace {

using namespace Support;

struct WilcoxonCase {
    std::string name;
    Cells ys;
    Cells xs;
    bool ignoreTies;
    TBVNPTails tails;
    double T;
    double P;
    double DF;
};

class Wilcoxon : public testing::TestWithParam<WilcoxonCase> {};

TEST_P(Wilcoxon, ReportsTAndItsProbability) {
    const auto& [name, ys, xs, ignoreTies, tails, T, P, DF] = GetParam();
    LoadedEngine loaded(tbvNPWilcoxon, tails, column(ys), column(xs));
    loaded.engine.LetIgnoreTies(ignoreTies);
    loaded.engine.Analyse();
    EXPECT_EQ(loaded.engine.GetWilcoxonT(), T);
    EXPECT_EQ(loaded.engine.GetP(), P);
    EXPECT_EQ(numbers(loaded.engine.GetDF()), std::vector<double>{DF});
    EXPECT_EQ(numbers(loaded.engine.GetAlternateDF()), std::vector<double>{DF});
    EXPECT_EQ(loaded.engine.GetAlternateStat(), 0) << "not set by the exact test";
    EXPECT_EQ(loaded.engine.GetAlternateP(), 0);
    EXPECT_FALSE(loaded.engine.GetUseApprox());
}

const Cells first{5, 4, 2, 7};
const Cells second{3, 4, 6, 1};

// clang-format off
const WilcoxonCase wilcoxonCases[] = {
    // name                                  ys             xs             ignore tails                T    P         DF
    {"ZeroLeftOut_TwoTailed",                first,         second,        true,  tbvNPTwoTailed,      2,   6.0 / 8,  3},
    {"ZeroLeftOut_FirstGreater",             first,         second,        true,  tbvNPVar1GTVar2,     2,   3.0 / 8,  3},
    {"ZeroLeftOut_FirstSmaller",             first,         second,        true,  tbvNPVar1LTVar2,     4,   6.0 / 8,  3},
    {"ZeroRanked_TwoTailed",                 first,         second,        false, tbvNPTwoTailed,      3,   10.0 / 16, 4},
    {"ZeroRanked_FirstGreater",              first,         second,        false, tbvNPVar1GTVar2,     3,   5.0 / 16, 4},
    {"ZeroRanked_FirstSmaller",              first,         second,        false, tbvNPVar1LTVar2,     6,   11.0 / 16, 4},
    {"TailsOutsideTheList_AreOneTailed",     first,         second,        true,  tailsOutsideTheList, 2,   3.0 / 8,  3},
    {"EqualSums_TwoTailedIsClampedToOne",    {1, 2},        {2, 1},        true,  tbvNPTwoTailed,      1.5, 1,        2},
    {"NothingToRank_IsCertain",              {1, 2},        {1, 2},        true,  tbvNPTwoTailed,      0,   1,        0},
    {"NothingToRank_OneTailed",              {1, 2},        {1, 2},        true,  tbvNPVar1GTVar2,     0,   1,        0},
    {"ZerosAlone_AreRanked",                 {1, 2},        {1, 2},        false, tbvNPVar1GTVar2,     0,   1.0 / 4,  2},
    // 5.1 - 5.0 and 0.3 - 0.2 are both 0.1 and share a rank.
    {"DifferencesAreComparedWithoutNoise",   {5.1, 0.2, 9}, {5.0, 0.3, 8}, true,  tbvNPTwoTailed,      1.5, 6.0 / 8,  3},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Of, Wilcoxon, testing::ValuesIn(wilcoxonCases),
                         [](const auto& test) { return test.param.name; });

TEST(WilcoxonReference, AgreesWithAnotherPackage) {
    const std::vector<ReferencePair> pairs = referencePairs("wilcoxon");
    EXPECT_EQ(pairs.size(), 15U);
    for (const ReferencePair& pair : pairs) {
        LoadedEngine loaded = pair.loaded(tbvNPWilcoxon);
        loaded.engine.LetIgnoreTies(true);
        loaded.engine.Analyse();
        EXPECT_NEAR(loaded.engine.GetWilcoxonT(), pair.statistic, 1e-12 * pair.statistic) << pair.samples;
        EXPECT_NEAR(loaded.engine.GetP(), pair.P, 1e-12 * pair.P) << pair.samples;
    }
}

TEST(WilcoxonDescriptives, AreAlwaysFilled) {
    LoadedEngine loaded(tbvNPWilcoxon, tbvNPTwoTailed, column(first), column(second));
    loaded.engine.LetIgnoreTies(true);
    loaded.engine.Analyse();
    const clsNonParaBO& engine = loaded.engine;
    EXPECT_EQ(rowsOf(engine.GetData()), (Rows{{5, 3}, {4, 4}, {2, 6}, {7, 1}}));
    EXPECT_EQ(rowsOf(engine.GetRanks()), (Rows{{2, 1, 1}, {0, 0, 0}, {-4, 2, -2}, {6, 3, 3}}));
    expectSummaries(engine, {.mediansRaw = {4.5, 3.5},
                             .sumsRaw = {18, 14},
                             .nsRaw = {4, 4},
                             .mediansRank = {2, 2, 0},
                             .sumsRank = {4, 2, 0},
                             .nsRank = {2, 1, 1}});
}

TEST(WilcoxonDescriptives, ShowTheRankOfAZeroDifferenceWithoutASign) {
    LoadedEngine loaded(tbvNPWilcoxon, tbvNPTwoTailed, column(first), column(second));
    loaded.engine.Analyse();
    EXPECT_EQ(rowsOf(loaded.engine.GetRanks()), (Rows{{2, 2, 2}, {0, 1, 1}, {-4, 3, -3}, {6, 4, 4}}));
    EXPECT_EQ(numbers(loaded.engine.GetSumsRank()), (std::vector<double>{6, 3, 1}));
}

TEST(WilcoxonDescriptives, ShowPlainDifferencesAndSignedHalves) {
    LoadedEngine loaded(tbvNPWilcoxon, tbvNPTwoTailed, column({5.1, 1, 5, 1}), column({5.0, 9, 6, 2}));
    loaded.engine.Analyse();
    EXPECT_EQ(rowsOf(loaded.engine.GetRanks()),
              (Rows{{5.1 - 5.0, 1, 1}, {-8, 4, -4}, {-1, 2.5, -2.5}, {-1, 2.5, -2.5}}));
}

/// Pairs whose differences are 1..n, every third of them negative.
void loadPairs(LoadedEngine& loaded, int n) {
    Cells ys;
    for (int i = 1; i <= n; ++i) {
        ys.emplace_back(i % 3 == 0 ? -i : i);
    }
    loaded.load(tbvNPWilcoxon, tbvNPTwoTailed, column(ys), column(Cells(ys.size(), 0)));
}

TEST(WilcoxonSizes, FiftyPairsAreExactAndFiftyOneApproximate) {
    LoadedEngine loaded(tbvNPWilcoxon, tbvNPTwoTailed, column({1}), column({0}));
    loadPairs(loaded, 50);
    loaded.engine.Analyse();
    EXPECT_EQ(loaded.engine.GetWilcoxonT(), 408);
    EXPECT_FALSE(loaded.engine.GetUseApprox());
    EXPECT_TRUE(loaded.application->functions.calls.empty());

    loadPairs(loaded, 51);
    loaded.engine.Analyse();
    // T = 459, mean 51 x 52 / 4 = 663, variance 51 x 52 x 103 / 24 = 11381.5.
    EXPECT_TRUE(loaded.engine.GetUseApprox());
    EXPECT_DOUBLE_EQ(loaded.engine.GetWilcoxonT(), 204 / std::sqrt(11381.5));
    EXPECT_EQ(loaded.engine.GetAlternateStat(), loaded.engine.GetWilcoxonT());
    EXPECT_EQ(loaded.engine.GetAlternateP(), loaded.engine.GetP());
    EXPECT_DOUBLE_EQ(loaded.engine.GetP(), std::erfc(204 / std::sqrt(11381.5) / std::sqrt(2.0)));
}

TEST(WilcoxonSizes, ZeroDifferencesCountAmongTheFifty) {
    LoadedEngine loaded(tbvNPWilcoxon, tbvNPTwoTailed, column(Cells(51, 1)), column(Cells(50, 1)));
    Cells ys(51, 0);
    ys[0] = 4;
    loaded.load(tbvNPWilcoxon, tbvNPTwoTailed, column(ys), column(Cells(51, 0)));
    loaded.engine.LetIgnoreTies(true);
    loaded.engine.Analyse();
    EXPECT_TRUE(loaded.engine.GetUseApprox());
    EXPECT_EQ(numbers(loaded.engine.GetDF()), std::vector<double>{1});
    EXPECT_EQ(loaded.engine.GetWilcoxonT(), 1) << "T = 0, mean 1/2, standard deviation 1/2";
}

TEST(WilcoxonState, ALaterExactRunKeepsWhatTheApproximationLeft) {
    LoadedEngine loaded(tbvNPWilcoxon, tbvNPTwoTailed, column({1}), column({0}));
    loadPairs(loaded, 51);
    loaded.engine.Analyse();
    const double alternateP = loaded.engine.GetAlternateP();
    loadPairs(loaded, 3);
    loaded.engine.Analyse();
    EXPECT_TRUE(loaded.engine.GetUseApprox());
    EXPECT_EQ(loaded.engine.GetAlternateP(), alternateP);
    EXPECT_EQ(loaded.engine.GetWilcoxonT(), 3);
}

TEST(WilcoxonFailure, NamesTheProcedure) {
    const PairFailure failures[] = {
        {"a blank in the first variable", {1, blank, 3}, {3, 2, 1}, 9},
        {"a blank in the second variable", {1, 2, 3}, {3, blank, 1}, 9},
        {"a shorter second variable", {1, 2, 3}, {3, 2}, 9},
        {"a text", {1, "b"}, {3, 2}, 13},
        {"a difference beyond single precision", {1e39, 1}, {0, 0}, 6},
        {"nothing to rank among 51 pairs", Cells(51, 1), Cells(51, 1), 6},
        {"the host", Cells(51, 1), Cells(51, 2), 1004},
    };
    for (const auto& [name, ys, xs, number] : failures) {
        LoadedEngine loaded(tbvNPWilcoxon, tbvNPTwoTailed, column(ys), column(xs));
        loaded.engine.LetIgnoreTies(true);
        loaded.application->functions.failure = hostError();
        EXPECT_EQ(raisedBy([&] { loaded.engine.Analyse(); }), in("clsNonParaBO.AnalyseWilcoxon", number))
            << name;
        EXPECT_FALSE(loaded.engine.GetDF().allocated()) << name;
    }
}

}  // namespace
}  // namespace TBVNonPara
