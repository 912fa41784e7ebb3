#include <cmath>
#include <gtest/gtest.h>

#include "tests/engine/k_samples.hpp"

namespace TBVNonPara {
namespace {

using namespace Support;

constexpr const char* inAnalyseKWallis = " Line 0 in TBVNonPara.clsNonParaBO.AnalyseKWallis";

using LoadedKruskalWallis = Samples<tbvNPKWallis>;
using AnalysedKruskalWallis = AnalysedSamples<tbvNPKWallis>;

TEST(KruskalWallis, RanksAllGroupsTogether) {
    const AnalysedKruskalWallis test(columns({{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}));
    // S = (36 + 225 + 576) / 3 = 279, H = 12 x 279 / 90 - 30
    EXPECT_DOUBLE_EQ(test.engine.GetChiSq(), 7.2);
    EXPECT_EQ(numbers(test.engine.GetDF()), (std::vector<double>{2}));
    EXPECT_NEAR(test.engine.GetP(), std::exp(-3.6), 1e-14);
    // The difference N - 1 - 7.2 loses one digit.
    EXPECT_NEAR(test.engine.GetAlternateStat(), 27, 1e-12);
    EXPECT_EQ(numbers(test.engine.GetAlternateDF()), (std::vector<double>{2, 5}));
    EXPECT_EQ(numbers(test.engine.GetSumsRank()), (std::vector<double>{6, 15, 24}));
}

TEST(KruskalWallis, AgreesWithR) {
    EXPECT_GE(compareWithR<tbvNPKWallis>("kruskal-wallis"), 28);
}

struct CorrectionCase {
    const char* name;
    std::vector<Cells> groups;
    double chiSquare;
    friend void PrintTo(const CorrectionCase& each, std::ostream* out) { *out << each.name; }
};

// clang-format off
const CorrectionCase correctionCases[] = {
    // H = 12 (9 + 49) / 2 / 20 - 15 = 2.4, CF = 1 - 12 / 60 = 0.8
    {"TwoTiedPairs_RaiseTheStatistic",   {{1, 1}, {2, 2}},             3},
    // Ranks 1 2.5 | 2.5 4: H = 12 (3.5^2 + 6.5^2) / 2 / 20 - 15 = 1.35, CF = 1 - 6 / 60 = 0.9
    {"ATieAcrossGroups",                 {{1, 2}, {2, 3}},             1.5},
    // S = 3 x 49 / 2, H = 12 S / 42 - 21 = 0
    {"EqualRankSums_AreZero",            {{1, 6}, {2, 5}, {3, 4}},     0},
    {"NegativeNumbersAndFractions",      {{-3, -2.5}, {-1, 0.25}},     2.4},
    {"TextsThatReadAsNumbers",           {{"1", " 2 "}, {"3e0", 4}},   2.4},
    {"TrueIsMinusOne",                   {{true, 2}, {3, 4}},          2.4},
};
// clang-format on

class KruskalWallisCorrection : public testing::TestWithParam<CorrectionCase> {};

TEST_P(KruskalWallisCorrection, GivesTheStatistic) {
    const AnalysedKruskalWallis test(columns(GetParam().groups));
    // The difference of two numbers of about 3 (N + 1), at most 21, keeps their rounding.
    EXPECT_NEAR(test.engine.GetChiSq(), GetParam().chiSquare, 1e-13);
}

INSTANTIATE_TEST_SUITE_P(, KruskalWallisCorrection, testing::ValuesIn(correctionCases),
                         [](const auto& instance) { return instance.param.name; });

TEST(KruskalWallis, WithoutTiesTheCorrectionIsExactlyOne) {
    const AnalysedKruskalWallis test(columns({{1, 4}, {2, 6, 7}, {3, 5}}));
    const double S = 25.0 / 2 + 225.0 / 3 + 64.0 / 2;
    EXPECT_EQ(test.engine.GetChiSq(), 12.0 * S / 56 - 24);
}

TEST(KruskalWallis, GroupsOfUnequalSizeAreCompacted) {
    const AnalysedKruskalWallis test(columns({{blank, 5, blank, 1}, {7}, {3, blank, 9}}));
    const clsNonParaBO& engine = test.engine;
    EXPECT_EQ(rowsOf(engine.GetData()), (Rows{{5, 7, 3}, {1, 0, 9}, {0, 0, 0}, {0, 0, 0}}));
    EXPECT_EQ(rowsOf(engine.GetRanks()), (Rows{{3, 4, 2}, {1, 0, 5}, {0, 0, 0}, {0, 0, 0}}));
    EXPECT_EQ(numbers(engine.GetNsRaw()), (std::vector<double>{2, 1, 2}));
    EXPECT_EQ(numbers(engine.GetNsRank()), (std::vector<double>{2, 1, 2}));
    EXPECT_EQ(numbers(engine.GetSumsRaw()), (std::vector<double>{6, 7, 12}));
    EXPECT_EQ(numbers(engine.GetSumsRank()), (std::vector<double>{4, 4, 7}));
    EXPECT_EQ(numbers(engine.GetMediansRaw()), (std::vector<double>{3, 7, 6}));
    EXPECT_EQ(numbers(engine.GetMediansRank()), (std::vector<double>{2, 4, 3.5}));
    EXPECT_EQ(numbers(engine.GetAlternateDF()), (std::vector<double>{2, 1}));
}

TEST(KruskalWallis, TiedValuesShareTheirMeanRankInEntryOrder) {
    const AnalysedKruskalWallis test(columns({{2, 9}, {2, 1}, {9, 2}}));
    EXPECT_EQ(rowsOf(test.engine.GetRanks()), (Rows{{3, 3, 5.5}, {5.5, 1, 3}}));
}

TEST(KruskalWallis, GroupsAreDescribedWhetherAskedForOrNot) {
    LoadedKruskalWallis test(columns({{1, 2}, {3, 5}}));
    test.engine.LetDescriptives(false);
    test.engine.Analyse();
    EXPECT_EQ(numbers(test.engine.GetMediansRaw()), (std::vector<double>{1.5, 4}));
}

TEST(KruskalWallis, TailsAndTiesSettingsChangeNothing) {
    LoadedKruskalWallis test(columns({{1, 1, 2}, {2, 3, 4}}));
    test.engine.LetTails(tbvNPVar1GTVar2);
    test.engine.LetIgnoreTies(true);
    test.engine.Analyse();
    const AnalysedKruskalWallis plain(columns({{1, 1, 2}, {2, 3, 4}}));
    EXPECT_EQ(test.engine.GetChiSq(), plain.engine.GetChiSq());
    EXPECT_EQ(test.engine.GetP(), plain.engine.GetP());
}

TEST(KruskalWallisQuirks, TheSecondDegreesOfFreedomAreOneBelowTheUsual) {
    const AnalysedKruskalWallis test(columns({{1, 5, 3}, {2, 6, 4}}));
    EXPECT_EQ(numbers(test.engine.GetAlternateDF()), (std::vector<double>{1, 3}));
}

TEST(KruskalWallisQuirks, FIsComputedFromTheStatisticCorrectedForTies) {
    // ChiSq 1.5 from H 1.35: F = 2 x 1.5 / ((4 - 1.5 - 1) x 1); from H it would be 1.63...
    const AnalysedKruskalWallis test(columns({{1, 2}, {2, 3}}));
    EXPECT_NEAR(test.engine.GetAlternateStat(), 2, 1e-12);
}

TEST(KruskalWallisQuirks, ZerosOfUnfilledCellsEnterTheSummaryOfAShortNegativeGroup) {
    const AnalysedKruskalWallis test(columns({{1, 2, 3}, {-5, -3}}));
    EXPECT_EQ(numbers(test.engine.GetSumsRaw()), (std::vector<double>{6, -3}));
    EXPECT_EQ(numbers(test.engine.GetMediansRaw()), (std::vector<double>{2, -1.5}));
    // Ranks are positive, so theirs is right, and with it the statistic.
    EXPECT_EQ(numbers(test.engine.GetSumsRank()), (std::vector<double>{12, 3}));
    EXPECT_NEAR(test.engine.GetChiSq(), 3, 1e-13);
}

// clang-format off
const SamplesFailure kruskalWallisFailures[] = {
    {"AGroupWithoutValues",                {{1, 2}, {blank, blank}, {3, 4}},  6},
    {"NoValueAtAll",                       {{blank}, {blank}},                6},
    {"AllValuesEqual",                     {{5, 5}, {5, 5, 5}},               6},
    {"OneValueInOneGroup",                 {{5}},                             6},
    {"ThreeGroupsOfOne_ZeroOverZeroInF",   {{1}, {2}, {3}},                   6},
    {"TextThatIsNoNumber",                 {{1, "n/a"}, {2, 3}},              13},
    {"AnErrorValue",                       {{1, CellValue(CellError::NotAvailable)}, {2, 3}}, 13},
    {"AnEmptyText",                        {{1, ""}, {2, 3}},                 13},
};
// clang-format on

class KruskalWallisFailure : public testing::TestWithParam<SamplesFailure> {};

TEST_P(KruskalWallisFailure, NamesTheProcedure) {
    EXPECT_EQ(failureOfSamples<tbvNPKWallis>(columns(GetParam().samples)),
              std::to_string(GetParam().number) + inAnalyseKWallis);
}

INSTANTIATE_TEST_SUITE_P(, KruskalWallisFailure, testing::ValuesIn(kruskalWallisFailures),
                         [](const auto& instance) { return instance.param.name; });

TEST(KruskalWallis, SeparatedGroupsOfEqualValuesDivideByZeroInF) {
    // Ranks 2 2 2 | 5 5 5: H = 12 x 87 / 42 - 21 = 27 / 7, CF = 1 - 48 / 210 = 27 / 35, ChiSq = 5 = N - 1.
    LoadedKruskalWallis test(columns({{1, 1, 1}, {2, 2, 2}}));
    EXPECT_EQ(failureOf([&] { test.engine.Analyse(); }), std::string("11") + inAnalyseKWallis);
    EXPECT_EQ(test.engine.GetChiSq(), 5);
}

TEST(KruskalWallis, WithoutAGridThereAreNoBounds) {
    clsNonParaBO engine(engineCompanions());
    engine.LetMethod(tbvNPKWallis);
    EXPECT_EQ(failureOf([&] { engine.Analyse(); }), std::string("9") + inAnalyseKWallis);
}

TEST(KruskalWallis, WithoutAnApplicationThereAreNoProbabilities) {
    clsNonParaBO engine(engineCompanions(nullptr));
    engine.LetMethod(tbvNPKWallis);
    engine.LetYs(columns({{1, 2}, {3, 5}}));
    EXPECT_EQ(failureOf([&] { engine.Analyse(); }), std::string("91") + inAnalyseKWallis);
}

TEST(KruskalWallis, ASingleGroupFailsInTheHostsDistribution) {
    LoadedKruskalWallis test(columns({{1, 2, 4}}));
    EXPECT_NE(failureOf([&] { test.engine.Analyse(); }), "none");
    EXPECT_EQ(test.application->functions.calls, (std::vector<std::string>{"ChiDist"}));
    EXPECT_EQ(numbers(test.engine.GetDF()), (std::vector<double>{0}));
}

TEST(KruskalWallis, AHostsErrorPassesThroughAndWhatWasStoredStays) {
    LoadedKruskalWallis test(columns({{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}));
    test.application->functions.failure = hostError();
    EXPECT_EQ(failureOf([&] { test.engine.Analyse(); }), std::string("1004") + inAnalyseKWallis);
    EXPECT_EQ(numbers(test.engine.GetSumsRank()), (std::vector<double>{6, 15, 24}));
    EXPECT_DOUBLE_EQ(test.engine.GetChiSq(), 7.2);
    EXPECT_EQ(numbers(test.engine.GetDF()), (std::vector<double>{2}));
    EXPECT_EQ(test.engine.GetP(), 0);
    EXPECT_EQ(test.engine.GetAlternateStat(), 0);
    EXPECT_FALSE(test.engine.GetAlternateDF().allocated());
}

TEST(KruskalWallis, AGroupWithoutValuesLeavesTheDescriptionOfTheGroups) {
    LoadedKruskalWallis test(columns({{1, 2}, {blank}}));
    EXPECT_NE(failureOf([&] { test.engine.Analyse(); }), "none");
    EXPECT_EQ(numbers(test.engine.GetNsRaw()), (std::vector<double>{2, 0}));
    EXPECT_EQ(numbers(test.engine.GetMediansRaw()), (std::vector<double>{1.5, 0}));
    EXPECT_FALSE(test.engine.GetDF().allocated());
}

TEST(KruskalWallis, ACellThatIsNoNumberLeavesEverythingAsItWas) {
    AnalysedKruskalWallis test(columns({{1, 2}, {3, 5}}));
    test.engine.LetYs(columns({{1, "n/a"}, {3, 5}}));
    EXPECT_EQ(failureOf([&] { test.engine.Analyse(); }), std::string("13") + inAnalyseKWallis);
    EXPECT_EQ(rowsOf(test.engine.GetData()), (Rows{{1, 3}, {2, 5}}));
    EXPECT_EQ(test.engine.GetChiSq(), AnalysedKruskalWallis(columns({{1, 2}, {3, 5}})).engine.GetChiSq());
}

TEST(KruskalWallis, ASecondRunOverwritesTheFirst) {
    AnalysedKruskalWallis test(columns({{1, 1, 2, 8}, {2, 3, 4, 4}, {7, 7, 0, 1}}));
    test.engine.LetYs(columns({{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}));
    test.engine.Analyse();
    EXPECT_DOUBLE_EQ(test.engine.GetChiSq(), 7.2);
    EXPECT_EQ(rowsOf(test.engine.GetRanks()), (Rows{{1, 4, 7}, {2, 5, 8}, {3, 6, 9}}));
}

TEST(KruskalWallis, AMillionRowsAreRankedTogether) {
    ValueGrid groups(333333, 3);
    double state = 1;
    for (Long g = 1; g <= groups.columns(); ++g) {
        for (CellValue& cell : groups.column(g)) {
            state = std::fmod(state * 16807, 2147483647);
            cell = state;
        }
    }
    LoadedKruskalWallis test(groups);
    test.engine.Analyse();
    EXPECT_GT(test.engine.GetP(), 0);
}

}  // namespace
}  // namespace TBVNonPara
