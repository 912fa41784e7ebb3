#include <cmath>
#include <gtest/gtest.h>

#include "tests/engine/k_samples.hpp"

namespace TBVNonPara {
namespace {

using namespace Support;

constexpr const char* inAnalyseFriedman = " Line 0 in TBVNonPara.clsNonParaBO.AnalyseFriedman";

using LoadedFriedman = Samples<tbvNPFriedman>;
using AnalysedFriedman = AnalysedSamples<tbvNPFriedman>;

TEST(Friedman, RanksEachBlockByItself) {
    const AnalysedFriedman test(columns({{1, 10, 100, 21}, {2, 20, 200, 20}, {3, 30, 300, 22}}));
    const clsNonParaBO& engine = test.engine;
    EXPECT_EQ(rowsOf(engine.GetData()), (Rows{{1, 2, 3}, {10, 20, 30}, {100, 200, 300}, {21, 20, 22}}));
    EXPECT_EQ(rowsOf(engine.GetRanks()), (Rows{{1, 2, 3}, {1, 2, 3}, {1, 2, 3}, {2, 1, 3}}));
    EXPECT_EQ(numbers(engine.GetSumsRank()), (std::vector<double>{5, 7, 12}));
    EXPECT_EQ(numbers(engine.GetNsRaw()), (std::vector<double>{4, 4, 4}));
    EXPECT_EQ(numbers(engine.GetMediansRaw()), (std::vector<double>{15.5, 20, 26}));
    EXPECT_EQ(numbers(engine.GetMediansRank()), (std::vector<double>{1, 2, 3}));
    EXPECT_EQ(numbers(engine.GetSumsRaw()), (std::vector<double>{132, 242, 355}));
    // S = 218: X = 12 x 218 / 48 - 48, F = 3 x 6.5 / (8 - 6.5)
    EXPECT_EQ(engine.GetChiSq(), 6.5);
    EXPECT_EQ(numbers(engine.GetDF()), (std::vector<double>{2}));
    EXPECT_NEAR(engine.GetP(), std::exp(-3.25), 1e-15);
    EXPECT_EQ(engine.GetAlternateStat(), 13);
    EXPECT_EQ(numbers(engine.GetAlternateDF()), (std::vector<double>{2, 6}));
    // The upper tail of F with 2 and n degrees of freedom is (1 + 2 F / n)^(-n / 2).
    EXPECT_NEAR(engine.GetAlternateP(), std::pow(1 + 26.0 / 6, -3), 1e-15);
}

TEST(Friedman, AgreesWithR) {
    EXPECT_GE(compareWithR<tbvNPFriedman>("friedman"), 24);
}

struct StatisticCase {
    const char* name;
    std::vector<Cells> treatments;
    double chiSquare, F;
    friend void PrintTo(const StatisticCase& each, std::ostream* out) { *out << each.name; }
};

// clang-format off
const StatisticCase statisticCases[] = {
    // Ranks 1 2, 2 1, 1.5 1.5, 2 1: R = 6.5 5.5, S = 72.5, X = 870 / 24 - 36 = 0.25, CF = 1 - 6 / 24,
    // F = 3 x 0.25 / (4 - 0.25)
    {"ATiedBlock_RaisesTheStatisticButNotF",  {{1, 2, 2, 4}, {2, 1, 2, 3}},            1.0 / 3,  0.2},
    // Ranks 1 2 3, 3 2 1: equal rank sums
    {"OppositeBlocks_AreZero",                {{1, 3}, {2, 2}, {3, 1}},                0,        0},
    // 0 takes part: ranks 2 1 3, 1 2 3, S = 9 + 9 + 36, X = 648 / 24 - 24 = 3, F = 3 / (4 - 3)
    {"AnEmptyCell_CountsAsZero",              {{5, 1}, {blank, 2}, {7, 3}},            3,        3},
    {"TextsThatReadAsNumbers",                {{"5", 1}, {"0", " 2"}, {7, 3}},         3,        3},
    {"TrueIsMinusOne",                        {{5, 1}, {true, 2}, {7, 3}},             3,        3},
};
// clang-format on

class FriedmanStatistic : public testing::TestWithParam<StatisticCase> {};

TEST_P(FriedmanStatistic, IsCorrectedForTiesAndFIsNot) {
    const AnalysedFriedman test(columns(GetParam().treatments));
    EXPECT_NEAR(test.engine.GetChiSq(), GetParam().chiSquare, 1e-14);
    EXPECT_NEAR(test.engine.GetAlternateStat(), GetParam().F, 1e-14);
}

INSTANTIATE_TEST_SUITE_P(, FriedmanStatistic, testing::ValuesIn(statisticCases),
                         [](const auto& instance) { return instance.param.name; });

TEST(FriedmanQuirks, AnEmptyCellIsRankedAsZeroWithTheOthers) {
    const AnalysedFriedman test(columns({{-1, 4}, {blank, 2}, {1, blank}}));
    EXPECT_EQ(rowsOf(test.engine.GetData()), (Rows{{-1, 0, 1}, {4, 2, 0}}));
    EXPECT_EQ(rowsOf(test.engine.GetRanks()), (Rows{{1, 2, 3}, {3, 2, 1}}));
    EXPECT_EQ(numbers(test.engine.GetNsRaw()), (std::vector<double>{2, 2, 2}));
}

TEST(FriedmanQuirks, TwoUnequalBlocksOfTiesKeepTheAsymmetryOfF) {
    // Three treatments: ranks 1 2.5 2.5, 1 2 3: R = 2 4.5 5.5, S = 54.5, X = 654 / 24 - 24 = 3.25,
    // CF = 1 - 6 / 48, ChiSq = 26 / 7, F = 3.25 / 0.75 (from ChiSq it would be 13).
    const AnalysedFriedman test(columns({{1, 1}, {2, 2}, {2, 3}}));
    EXPECT_DOUBLE_EQ(test.engine.GetChiSq(), 26.0 / 7);
    EXPECT_DOUBLE_EQ(test.engine.GetAlternateStat(), 13.0 / 3);
}

// clang-format off
const SamplesFailure friedmanFailures[] = {
    {"EveryBlockWhollyTied",               {{5, 7}, {5, 7}, {5, 7}},     6},
    {"NothingButEmptyCells",               {{blank, blank}, {blank}},    6},
    {"OneTreatment",                       {{1, 2, 3}},                  6},
    {"OneBlockWithoutTies_ZeroOverZero",   {{1}, {2}, {3}},              6},
    {"OneOrderInEveryBlock",               {{1, 4}, {2, 5}, {3, 6}},     11},
    {"TextThatIsNoNumber",                 {{1, "n/a"}, {2, 3}},         13},
    {"AnErrorValue",                       {{1, CellValue(CellError::Value)}, {2, 3}}, 13},
};
// clang-format on

class FriedmanFailure : public testing::TestWithParam<SamplesFailure> {};

TEST_P(FriedmanFailure, NamesTheProcedure) {
    EXPECT_EQ(failureOfSamples<tbvNPFriedman>(columns(GetParam().samples)),
              std::to_string(GetParam().number) + inAnalyseFriedman);
}

INSTANTIATE_TEST_SUITE_P(, FriedmanFailure, testing::ValuesIn(friedmanFailures),
                         [](const auto& instance) { return instance.param.name; });

TEST(Friedman, OneOrderInEveryBlockFailsAfterItsProbabilityIsStored) {
    LoadedFriedman test(columns({{1, 4}, {2, 5}, {3, 6}}));
    EXPECT_EQ(failureOf([&] { test.engine.Analyse(); }), std::string("11") + inAnalyseFriedman);
    EXPECT_EQ(test.engine.GetChiSq(), 4);
    EXPECT_NEAR(test.engine.GetP(), std::exp(-2.0), 1e-15);
    EXPECT_FALSE(test.engine.GetAlternateDF().allocated());
}

TEST(Friedman, OneBlockWithATieHasNoSecondDegreesOfFreedomForTheHost) {
    LoadedFriedman test(columns({{1}, {2}, {2}}));
    EXPECT_NE(failureOf([&] { test.engine.Analyse(); }), "none");
    EXPECT_EQ(test.engine.GetAlternateStat(), 0);
    EXPECT_EQ(numbers(test.engine.GetAlternateDF()), (std::vector<double>{2, 0}));
    EXPECT_EQ(test.application->functions.calls, (std::vector<std::string>{"ChiDist", "FDist"}));
}

TEST(Friedman, WithoutAGridThereAreNoBounds) {
    clsNonParaBO engine(engineCompanions());
    engine.LetMethod(tbvNPFriedman);
    EXPECT_EQ(failureOf([&] { engine.Analyse(); }), std::string("9") + inAnalyseFriedman);
}

TEST(Friedman, AHostsErrorPassesThroughAndWhatWasStoredStays) {
    LoadedFriedman test(columns({{1, 3, 5}, {2, 1, 4}}));
    test.application->functions.failure = hostError();
    EXPECT_EQ(failureOf([&] { test.engine.Analyse(); }), std::string("1004") + inAnalyseFriedman);
    EXPECT_NEAR(test.engine.GetChiSq(), 1.0 / 3, 1e-14);
    EXPECT_EQ(numbers(test.engine.GetDF()), (std::vector<double>{1}));
    EXPECT_EQ(test.engine.GetP(), 0);
}

TEST(Friedman, AProductOfCountsBeyond32BitsOverflowsBehindTheDescription) {
    // 46341 x 1 x 46342 is the first product of its kind beyond 2,147,483,647.
    ValueGrid oneBlock(1, 46341);
    for (Long i = 1; i <= oneBlock.columns(); ++i) {
        oneBlock(1, i) = toDouble(i);
    }
    LoadedFriedman test(oneBlock);
    EXPECT_EQ(failureOf([&] { test.engine.Analyse(); }), std::string("6") + inAnalyseFriedman);
    EXPECT_EQ(test.engine.GetSumsRank()(46341), 46341);
    EXPECT_FALSE(test.engine.GetDF().allocated());
}

TEST(Friedman, OneTreatmentFewerStaysWithinTheRange) {
    ValueGrid oneBlock(1, 46340);
    for (Long i = 1; i <= oneBlock.columns(); ++i) {
        oneBlock(1, i) = toDouble(i);
    }
    LoadedFriedman test(oneBlock);
    EXPECT_NE(failureOf([&] { test.engine.Analyse(); }), "none");
    EXPECT_TRUE(test.engine.GetDF().allocated());
}

TEST(Friedman, TailsTiesAndDescriptivesSettingsChangeNothing) {
    const ValueGrid treatments = columns({{1, 2, 2, 4}, {2, 1, 2, 3}});
    LoadedFriedman test(treatments);
    test.engine.LetTails(tbvNPVar1LTVar2);
    test.engine.LetIgnoreTies(true);
    test.engine.LetDescriptives(false);
    test.engine.Analyse();
    EXPECT_NEAR(test.engine.GetChiSq(), 1.0 / 3, 1e-14);
    EXPECT_EQ(numbers(test.engine.GetSumsRank()), (std::vector<double>{6.5, 5.5}));
}

TEST(Friedman, FollowsKruskalWallisOnOneEngineWithoutATrace) {
    const ValueGrid treatments = columns({{1, 10, 100, 21}, {2, 20, 200, 20}, {3, 30, 300, 22}});
    LoadedEngine reused = {tbvNPKWallis, tbvNPTwoTailed, columns({{1, 5}, {2, 2, 9}}), CellValue()};
    reused.engine.Analyse();
    reused.load(tbvNPFriedman, tbvNPTwoTailed, treatments, CellValue());
    reused.engine.Analyse();
    const AnalysedFriedman fresh(treatments);
    EXPECT_EQ(reused.engine.GetRanks(), fresh.engine.GetRanks());
    EXPECT_EQ(reused.engine.GetNsRaw(), fresh.engine.GetNsRaw());
    EXPECT_EQ(reused.engine.GetAlternateDF(), fresh.engine.GetAlternateDF());
    EXPECT_EQ(reused.engine.GetAlternateP(), fresh.engine.GetAlternateP());
}

TEST(Friedman, AMillionBlocksAreRankedOneByOne) {
    ValueGrid treatments(1000000, 3);
    double state = 1;
    for (Long g = 1; g <= treatments.columns(); ++g) {
        for (CellValue& cell : treatments.column(g)) {
            state = std::fmod(state * 16807, 2147483647);
            cell = std::floor(state / 1e8);
        }
    }
    LoadedFriedman test(treatments);
    test.engine.Analyse();
    EXPECT_GT(test.engine.GetP(), 0);
}

TEST(FriedmanBlocks, AreRankedAlikeHoweverWideTheyAre) {
    for (const Long k : {Long(32), Long(33), Long(40)}) {
        ValueGrid block(2, k);
        for (Long i = 1; i <= k; ++i) {
            const double pair = std::ceil(toDouble(i) / 2);  // 1, 1, 2, 2, ...
            block(1, i) = pair;
            block(2, i) = -pair;
        }
        LoadedFriedman test(block);
        test.engine.Analyse();
        const Grid<double> ranks = test.engine.GetRanks();
        const bool lastIsAlone = k == Long(33);
        for (Long i = 1; i <= k; ++i) {
            const double rank = lastIsAlone && i == k ? toDouble(k) : 2 * std::ceil(toDouble(i) / 2) - 0.5;
            EXPECT_EQ(ranks(1, i), rank) << k.value() << " treatments";
            EXPECT_EQ(ranks(2, i), toDouble(k + 1) - rank) << k.value() << " treatments";
        }
    }
}

}  // namespace
}  // namespace TBVNonPara
