#include <cmath>
#include <gtest/gtest.h>

#include "tbvnonpara/engine/clsNonParaBO.hpp"

namespace TBVNonPara {
namespace {

struct SheetlessCase {
    const char* name;
    TBVNPMethod method;
    ValueGrid ys;
    EngineInput xs;
    double P;
    friend void PrintTo(const SheetlessCase& each, std::ostream* out) { *out << each.name; }
};

class WithoutASheet : public testing::TestWithParam<SheetlessCase> {};

TEST_P(WithoutASheet, EveryTestRuns) {
    clsNonParaBO engine(ownCompanions(nullptr));
    engine.LetMethod(GetParam().method);
    engine.LetYs(GetParam().ys);
    engine.Letxs(GetParam().xs);
    engine.Analyse();
    EXPECT_NEAR(engine.GetP(), GetParam().P, 1e-12);
}

const ValueGrid lowYs{{1.0}, {2.0}, {3.0}};
const ValueGrid highYs{{4.0}, {5.0}, {6.0}};
const ValueGrid risingGroups{{1.0, 4.0, 7.0}, {2.0, 5.0, 8.0}, {3.0, 6.0, 9.0}};
const ValueGrid twoBlocks{{1.0, 2.0, 3.0}, {1.0, 3.0, 2.0}};
const ValueGrid changing{{1.0}, {0.0}, {1.0}};
const EngineInput noXs = CellValue(Empty());

// clang-format off
const SheetlessCase sheetlessCases[] = {
    {"MannWhitney_TwoOfTwentyOrders", tbvNPMannU,    lowYs,        highYs, 0.1},
    {"Wilcoxon_TwoOfEightSigns",      tbvNPWilcoxon, lowYs,        highYs, 0.25},
    {"Sign_TwoOfEightSigns",          tbvNPSign,     lowYs,        highYs, 0.25},
    // z = (|3 - 7/3| - 1/2) / sqrt(2/9) = 1 / sqrt 8
    {"Runs_ByTheNormal",              tbvNPWWRuns,   changing,     noXs,   std::erfc(0.25)},
    {"Spearman_TwoOfSixOrders",       tbvNPSpearman, lowYs,        highYs, 1 / 3.0},
    // S = 279, H = 12 x 279 / 90 - 30 = 7.2
    {"KruskalWallis_ByChiSquare",     tbvNPKWallis,  risingGroups, noXs,   std::exp(-3.6)},
    // Rank sums 2, 5, 5: chi-square = 12 x 54 / 24 - 24 = 3
    {"Friedman_ByChiSquare",          tbvNPFriedman, twoBlocks,    noXs,   std::exp(-1.5)},
};
// clang-format on
INSTANTIATE_TEST_SUITE_P(Cases, WithoutASheet, testing::ValuesIn(sheetlessCases),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(WithoutASheetMedian, TheTableOfCountsIsTested) {
    clsNonParaBO engine(ownCompanions(nullptr));
    engine.LetMethod(tbvNPMedian);
    engine.LetYs(risingGroups);
    engine.Analyse();
    // 0, 1 and 3 of 3 above the median of 5, where 4/3 are expected: 3.5 + 2.8
    EXPECT_NEAR(engine.GetContingencyResults()->GetChiSquare().p, std::exp(-3.15), 1e-12);
}

}  // namespace
}  // namespace TBVNonPara
