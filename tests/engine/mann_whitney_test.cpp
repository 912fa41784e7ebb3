#include <gmock/gmock.h>

#include "tests/engine/two_samples.hpp"
#include "tests/support/tails_outside_the_list.hpp"

namespace TBVNonPara {
namespace {

using namespace Support;

struct MannWhitneyCase {
    std::string name;
    Cells ys;
    Cells xs;
    TBVNPTails tails;
    double U;
    double P;
};

class MannWhitney : public testing::TestWithParam<MannWhitneyCase> {};

TEST_P(MannWhitney, ReportsUAndItsProbability) {
    const auto& [name, ys, xs, tails, U, P] = GetParam();
    LoadedEngine loaded(tbvNPMannU, tails, column(ys), column(xs));
    loaded.engine.Analyse();
    EXPECT_EQ(loaded.engine.GetU(), U);
    EXPECT_DOUBLE_EQ(loaded.engine.GetP(), P);
    EXPECT_EQ(numbers(loaded.engine.GetDF()),
              (std::vector<double>{static_cast<double>(ys.size()), static_cast<double>(xs.size())}));
}

// clang-format off
const MannWhitneyCase mannWhitneyCases[] = {
    // name                                    ys               xs            tails                U    P
    {"FirstBelowSecond_TwoTailed",             {1, 2, 3},       {4, 5, 6},    tbvNPTwoTailed,      9,   0.1},
    {"FirstBelowSecond_FirstSmaller",          {1, 2, 3},       {4, 5, 6},    tbvNPVar1LTVar2,     9,   0.05},
    {"FirstBelowSecond_FirstGreater",          {1, 2, 3},       {4, 5, 6},    tbvNPVar1GTVar2,     0,   1},
    {"FirstAboveSecond_TwoTailed",             {4, 5, 6},       {1, 2, 3},    tbvNPTwoTailed,      9,   0.1},
    {"FirstAboveSecond_FirstGreater",          {4, 5, 6},       {1, 2, 3},    tbvNPVar1GTVar2,     9,   0.05},
    {"OneAgainstFour_IsUniform",               {9},             {1, 2, 3, 4}, tbvNPTwoTailed,      4,   0.4},
    {"AllValuesEqual_IsClampedToOne",          {5, 5},          {5, 5},       tbvNPTwoTailed,      2,   1},
    {"ZerosAreRankedLikeAnyValue",             {0, 0},          {-1, 1},      tbvNPTwoTailed,      2,   1},
    {"TailsOutsideTheList_AreOneTailed",       {4, 5, 6},       {1, 2, 3},    tailsOutsideTheList, 9,   0.05},
    {"TextsThatAreNumbers_AreNumbers",         {"1", "2", "3"}, {4, 5, 6},    tbvNPTwoTailed,      9,   0.1},
    // With a blank the sizes are 3 x 3, but five values are ranked: 1, 0 (the blank), 2 against 4, 5: R1 = 3 of
    // two values, U1 = 9 + 6 - 3.
    {"ABlankCountsAsAnObservation",            {1, blank, 3},   {4, 5, 6},    tbvNPTwoTailed,      12,  0},
    {"WithABlankUCanExceedTheLargestOfTwelve", {1, 2, 3, blank}, {4, 5, 6},   tbvNPTwoTailed,      16,  0},
    {"BlankCellsAtTheEndCountToo",             {1, blank, blank}, {2},        tbvNPTwoTailed,      8,   0},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Of, MannWhitney, testing::ValuesIn(mannWhitneyCases),
                         [](const auto& test) { return test.param.name; });

TEST(MannWhitneyReference, AgreesWithAnotherPackage) {
    const std::vector<ReferencePair> pairs = referencePairs("mann-whitney");
    EXPECT_EQ(pairs.size(), 16U);
    for (const ReferencePair& pair : pairs) {
        LoadedEngine loaded = pair.loaded(tbvNPMannU);
        loaded.engine.Analyse();
        EXPECT_EQ(loaded.engine.GetU(), pair.statistic) << pair.samples;
        EXPECT_NEAR(loaded.engine.GetP(), pair.P, 1e-12 * pair.P) << pair.samples;
    }
}

TEST(MannWhitneyDescriptives, AreTheSamplesWithTheirRanksAndSummaries) {
    LoadedEngine loaded(tbvNPMannU, tbvNPTwoTailed, column({7, 3, 3}), column({9, 3}));
    loaded.engine.LetDescriptives(true);
    loaded.engine.Analyse();
    const clsNonParaBO& engine = loaded.engine;
    EXPECT_EQ(rowsOf(engine.GetData()), (Rows{{7, 9}, {3, 3}, {3, 0}}));
    EXPECT_EQ(rowsOf(engine.GetRanks()), (Rows{{4, 5}, {2, 2}, {2, 0}}));
    expectSummaries(engine, {.mediansRaw = {3, 6},
                             .sumsRaw = {13, 12},
                             .nsRaw = {3, 2},
                             .mediansRank = {2, 3.5},
                             .sumsRank = {8, 7},
                             .nsRank = {3, 2}});
}

TEST(MannWhitneyDescriptives, StayUnallocatedWhenNotAskedForAndChangeNoResult) {
    LoadedEngine without(tbvNPMannU, tbvNPTwoTailed, column({7, 3, 3}), column({9, 3}));
    LoadedEngine with(tbvNPMannU, tbvNPTwoTailed, column({7, 3, 3}), column({9, 3}));
    with.engine.LetDescriptives(true);
    without.engine.Analyse();
    with.engine.Analyse();
    EXPECT_FALSE(without.engine.GetData().allocated());
    EXPECT_FALSE(without.engine.GetRanks().allocated());
    EXPECT_FALSE(without.engine.GetMediansRaw().allocated());
    EXPECT_FALSE(without.engine.GetNsRank().allocated());
    EXPECT_EQ(without.engine.GetU(), with.engine.GetU());
    EXPECT_EQ(without.engine.GetP(), with.engine.GetP());
}

TEST(MannWhitneyState, IgnoreTiesChangesNothing) {
    LoadedEngine loaded(tbvNPMannU, tbvNPTwoTailed, column({0, 3, 3}), column({0, 3, 8, 9}));
    loaded.engine.Analyse();
    const double U = loaded.engine.GetU();
    const double P = loaded.engine.GetP();
    loaded.engine.LetIgnoreTies(true);
    loaded.engine.Analyse();
    EXPECT_EQ(loaded.engine.GetU(), U);
    EXPECT_EQ(loaded.engine.GetP(), P);
}

TEST(MannWhitneyState, OtherResultsStayAsTheyAre) {
    LoadedEngine loaded(tbvNPMannU, tbvNPTwoTailed, column({1, 2}), column({3}));
    loaded.engine.Analyse();
    EXPECT_EQ(loaded.engine.GetAlternateStat(), 0);
    EXPECT_EQ(loaded.engine.GetAlternateP(), 0);
    EXPECT_FALSE(loaded.engine.GetAlternateDF().allocated());
    EXPECT_FALSE(loaded.engine.GetUseApprox());
}

TEST(MannWhitneyQuirks, ABlankWithDescriptivesReadsBeyondTheTable) {
    LoadedEngine loaded(tbvNPMannU, tbvNPTwoTailed, column({1, blank, 3}), column({4, 5}));
    loaded.engine.LetDescriptives(true);
    EXPECT_EQ(raisedBy([&] { loaded.engine.Analyse(); }), in("clsNonParaBO.AnalyseMannWhitney", 9));
    // The table holds 1 and the blank's 0, then 4 and 5: the samples are cut behind the third row of it.
    EXPECT_EQ(rowsOf(loaded.engine.GetData()), (Rows{{1, 5}, {0, 0}, {4, 0}}));
    EXPECT_FALSE(loaded.engine.GetDF().allocated()) << "what comes after the fault is not stored";
}

struct MannWhitneyFailure {
    std::string name;
    ValueGrid ys;
    ValueGrid xs;
    TBVNPTails tails;
    std::int32_t number;
};

ValueGrid sameValue(Long rows) {
    return ValueGrid(rows, 1, 5.0);
}

ValueGrid ascending(Long rows) {
    ValueGrid grid(rows, 1);
    for (Long i = 1; i <= rows; ++i) {
        grid(i, 1) = toDouble(i);
    }
    return grid;
}

TEST(MannWhitneyFailure, NamesTheProcedure) {
    const MannWhitneyFailure failures[] = {
        {"a text", column({"a", 2}), column({3}), tbvNPTwoTailed, 13},
        {"a U below 0", column({1, blank, blank}), column({2}), tbvNPVar1GTVar2, 9},
        {"no spread", sameValue(250), sameValue(200), tbvNPTwoTailed, 11},
        {"the host", ascending(250), ascending(200), tbvNPTwoTailed, 1004},
        {"no inputs", ValueGrid(0, 0), ValueGrid(0, 0), tbvNPTwoTailed, 0},
    };
    for (const auto& [name, ys, xs, tails, number] : failures) {
        LoadedEngine loaded(tbvNPMannU, tails, ys, xs);
        loaded.application->functions.failure = hostError();
        EXPECT_EQ(raisedBy([&] { loaded.engine.Analyse(); }),
                  number == 0 ? Raised() : in("clsNonParaBO.AnalyseMannWhitney", number))
            << name;
    }
}

TEST(MannWhitneyFailure, AnEngineThatWasNeverLoadedHasNoSamples) {
    clsNonParaBO engine(engineCompanions());
    EXPECT_EQ(raisedBy([&] { engine.Analyse(); }), in("clsNonParaBO.AnalyseMannWhitney", 9));
}

TEST(MannWhitneySizes, FiftyThousandRowsEachDoNotOverflow) {
    LoadedEngine loaded(tbvNPMannU, tbvNPTwoTailed, ascending(50000), sameValue(50000));
    loaded.engine.Analyse();
    // Four values lie below 5 and one is tied with all of the second sample.
    EXPECT_EQ(loaded.engine.GetU(), 50000.0 * 49995 + 25000);
    EXPECT_EQ(loaded.engine.GetP(), 0);
}

}  // namespace
}  // namespace TBVNonPara
