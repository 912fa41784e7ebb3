#include "tbvnonpara/engine/clsNonParaBO.hpp"

#include <gmock/gmock.h>

#include "tbvnonpara/companion/own/contingency_analysis.hpp"
#include "tests/support/engine_fixture.hpp"
#include "tests/support/raised.hpp"
#include "tests/support/release_order.hpp"

namespace TBVNonPara {
namespace {

using Support::blank;
using Support::column;
using Support::engineCompanions;
using Support::LoadedEngine;
using Support::numbers;
using Support::raisedBy;
using Support::rowsOf;

TEST(EngineInputs, ASingleValueIsOneByOne) {
    LoadedEngine loaded(tbvNPMannU, tbvNPVar1LTVar2, CellValue(5.0), column({7, 9}));
    loaded.engine.LetDescriptives(true);
    loaded.engine.Analyse();
    EXPECT_EQ(numbers(loaded.engine.GetDF()), (std::vector<double>{1, 2}));
    EXPECT_EQ(loaded.engine.GetData()(1, 1), 5);
}

TEST(EngineInputs, AListIsOneColumnInItsOrder) {
    const Array<CellValue> list{3.0, 1.0, 5.0, 2.0, 4.0};
    LoadedEngine loaded(tbvNPSpearman, tbvNPTwoTailed, list, Array<CellValue>{1.0, 2.0, 3.0, 4.0, 5.0});
    loaded.engine.Analyse();
    EXPECT_EQ(rowsOf(loaded.engine.GetData()), (Support::Rows{{3, 1}, {1, 2}, {5, 3}, {2, 4}, {4, 5}}));
}

TEST(EngineInputs, AGridStaysAsItIsWithItsEmptyCells) {
    LoadedEngine loaded(tbvNPMannU, tbvNPTwoTailed, column({1, blank, 3, blank}), column({5, blank}));
    loaded.engine.Analyse();
    EXPECT_EQ(numbers(loaded.engine.GetDF()), (std::vector<double>{4, 2}));
}

TEST(EngineInputs, WhatIsNoArrayIsOneEmptyValue) {
    const EngineInput nothing[] = {CellValue(), Array<CellValue>(), ValueGrid()};
    for (const EngineInput& input : nothing) {
        LoadedEngine loaded(tbvNPSign, tbvNPVar1GTVar2, column({1, 1}), input);
        loaded.engine.Analyse();
        EXPECT_EQ(loaded.engine.GetP(), 0.25) << "an empty first cell: the codes are read";
    }
}

TEST(EngineStart, EverythingIsZeroOrUnallocated) {
    const clsNonParaBO engine(engineCompanions());
    EXPECT_EQ(engine.GetU(), 0);
    EXPECT_EQ(engine.GetAlternateStat(), 0);
    EXPECT_EQ(engine.GetP(), 0);
    EXPECT_EQ(engine.GetAlternateP(), 0);
    EXPECT_EQ(engine.GetGrandMedian(), 0);
    EXPECT_EQ(engine.GetNumRuns(), Long(0));
    EXPECT_EQ(engine.ExpectedRuns(), 0);
    EXPECT_FALSE(engine.GetUseApprox());
    EXPECT_FALSE(engine.GetDF().allocated());
    EXPECT_FALSE(engine.GetAlternateDF().allocated());
    EXPECT_FALSE(engine.GetData().allocated());
    EXPECT_FALSE(engine.GetRanks().allocated());
    EXPECT_FALSE(engine.GetMediansRaw().allocated());
    EXPECT_FALSE(engine.GetSumsRaw().allocated());
    EXPECT_FALSE(engine.GetNsRaw().allocated());
    EXPECT_FALSE(engine.GetMediansRank().allocated());
    EXPECT_FALSE(engine.GetSumsRank().allocated());
    EXPECT_FALSE(engine.GetNsRank().allocated());
    EXPECT_TRUE(std::holds_alternative<Empty>(engine.GetOther()));
    EXPECT_FALSE(engine.GetContingencyResults().isSet());
}

TEST(EngineAccessors, OneStatisticHasFourNames) {
    LoadedEngine loaded(tbvNPMannU, tbvNPTwoTailed, column({1, 2, 3}), column({4, 5, 6}));
    loaded.engine.Analyse();
    const clsNonParaBO& engine = loaded.engine;
    EXPECT_THAT((std::vector{engine.GetU(), engine.GetWilcoxonT(), engine.GetZ(), engine.GetChiSq()}),
                testing::Each(9.0));
}

TEST(EngineAccessors, ReturnCopies) {
    LoadedEngine loaded(tbvNPMannU, tbvNPTwoTailed, column({1, 2, 3}), column({4, 5, 6}));
    loaded.engine.Analyse();
    Array<Long> DF = loaded.engine.GetDF();
    DF(1) = 99;
    EXPECT_EQ(numbers(loaded.engine.GetDF()), (std::vector<double>{3, 3}));
}

TEST(EngineMethods, AnyOtherMethodDoesNothing) {
    for (const int method : {-1, 8, 2147483647}) {
        LoadedEngine loaded(static_cast<TBVNPMethod>(method), tbvNPTwoTailed, column({1, 2}), column({3, 4}));
        loaded.engine.LetDescriptives(true);
        loaded.engine.Analyse();
        EXPECT_EQ(loaded.engine.GetP(), 0);
        EXPECT_FALSE(loaded.engine.GetDF().allocated());
        EXPECT_FALSE(loaded.engine.GetData().allocated());
        EXPECT_FALSE(loaded.engine.GetMediansRaw().allocated());
    }
}

TEST(EngineMethods, AMethodOutsideTheListKeepsEarlierResults) {
    LoadedEngine loaded(tbvNPMannU, tbvNPTwoTailed, column({1, 2, 3}), column({4, 5, 6}));
    loaded.engine.Analyse();
    loaded.engine.LetMethod(static_cast<TBVNPMethod>(8));
    loaded.engine.Analyse();
    EXPECT_EQ(loaded.engine.GetU(), 9);
    EXPECT_EQ(loaded.engine.GetP(), 0.1);
}

TEST(EngineMethods, AnalysingTwiceGivesTheSame) {
    LoadedEngine loaded(tbvNPWilcoxon, tbvNPTwoTailed, column({5, 4, 2, 7}), column({3, 4, 6, 1}));
    loaded.engine.Analyse();
    const double P = loaded.engine.GetP();
    const Grid<double> ranks = loaded.engine.GetRanks();
    loaded.engine.Analyse();
    EXPECT_EQ(loaded.engine.GetP(), P);
    EXPECT_EQ(loaded.engine.GetRanks(), ranks);
}

TEST(Engine, ReleasesItsContingencyTableBeforeItsArrayUtility) {
    std::vector<std::string> released;
    CompanionLibrary companions = engineCompanions();
    companions.createArrayUtility = [&] {
        return Support::noticed(createArrayUtility(), "utility", released);
    };
    companions.createContingencyAnalysis = [&, application = companions.application] {
        return Support::noticed(createContingencyAnalysis(application), "table", released);
    };
    {
        clsNonParaBO engine(companions);
        engine.LetMethod(tbvNPMedian);
        engine.LetYs(ValueGrid{{1.0, 4.0}, {2.0, 5.0}, {3.0, 6.0}});
        engine.Analyse();
    }
    EXPECT_EQ(released, (std::vector<std::string>{"table", "utility"}));
}

/// An array utility that fails with an error that already names a place.
class FailingUtility : public ArrayUtility {
 public:
    void SortRows(Grid<double>&, Long, Long) const override { fail(); }
    [[nodiscard]] ValueGrid MakeTwoDimensional(const Array<CellValue>&) const override { fail(); }
    [[nodiscard]] ValueGrid JoinColumns(const ValueGrid&, const ValueGrid&) const override { fail(); }

 private:
    [[noreturn]] static void fail() { throw Error(70, "Permission denied", "Line 12 in Arrays.Fail"); }
};

TEST(EngineErrors, AnInputAlwaysNamesItself) {
    CompanionLibrary companions = engineCompanions();
    companions.createArrayUtility = [] { return makeObject<FailingUtility>(); };
    clsNonParaBO engine(companions);
    EXPECT_EQ(raisedBy([&] { engine.LetYs(CellValue(1.0)); }), Support::in("clsNonParaBO.LetYs", 70));
    EXPECT_EQ(raisedBy([&] { engine.Letxs(CellValue(1.0)); }), Support::in("clsNonParaBO.Letxs", 70));
    EXPECT_EQ(raisedBy([&] { engine.LetYs(column({1})); }).number, 0) << "a grid needs no reshaping";
}

TEST(EngineErrors, ATestKeepsAPlaceThatIsAlreadyNamed) {
    CompanionLibrary companions = engineCompanions();
    companions.createArrayUtility = [] { return makeObject<FailingUtility>(); };
    clsNonParaBO engine(companions);
    engine.LetYs(column({1, 2}));
    engine.Letxs(column({3, 4}));
    for (const TBVNPMethod method : {tbvNPMannU, tbvNPWilcoxon, tbvNPSpearman}) {
        engine.LetMethod(method);
        EXPECT_EQ(raisedBy([&] { engine.Analyse(); }).source, "Line 12 in Arrays.Fail");
    }
}

TEST(EngineErrors, WithoutAnArrayUtilityNothingIsSorted) {
    CompanionLibrary companions = engineCompanions();
    companions.createArrayUtility = [] { return ObjectRef<ArrayUtility>(); };
    clsNonParaBO engine(companions);
    engine.LetYs(column({1, 2}));
    engine.Letxs(column({3, 4}));
    EXPECT_EQ(raisedBy([&] { engine.Analyse(); }), Support::in("clsNonParaBO.AnalyseMannWhitney", 91));
    EXPECT_EQ(raisedBy([&] { engine.LetYs(CellValue(1.0)); }), Support::in("clsNonParaBO.LetYs", 91));
}

TEST(EngineErrors, AFailingFactoryFailsTheEngine) {
    CompanionLibrary companions = engineCompanions();
    companions.createArrayUtility = []() -> ObjectRef<ArrayUtility> { throw Error(429, "No component"); };
    EXPECT_EQ(raisedBy([&] { clsNonParaBO engine(companions); }),
              Support::in("clsNonParaBO.Initialise", 429));
    companions.createArrayUtility = nullptr;
    EXPECT_EQ(raisedBy([&] { clsNonParaBO engine(companions); }), Support::in("clsNonParaBO.Initialise", 51));
}

}  // namespace
}  // namespace TBVNonPara
