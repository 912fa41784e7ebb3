#include <gmock/gmock.h>

#include "tests/engine/two_samples.hpp"
#include "tests/support/tails_outside_the_list.hpp"

namespace TBVNonPara {
namespace {

using namespace Support;

double upperNormalTail(double z) {
    return 0.5 * std::erfc(z / std::sqrt(2.0));
}

struct SpearmanCase {
    std::string name;
    Cells ys;
    Cells xs;
    TBVNPTails tails;
    double rs;
    double P;
    double Z;
    double alternateP;
};

class Spearman : public testing::TestWithParam<SpearmanCase> {};

TEST_P(Spearman, ReportsTheCorrelationAndTwoProbabilities) {
    const auto& [name, ys, xs, tails, rs, P, Z, alternateP] = GetParam();
    LoadedEngine loaded(tbvNPSpearman, tails, column(ys), column(xs));
    loaded.engine.Analyse();
    const std::vector<double> n{static_cast<double>(ys.size())};
    EXPECT_DOUBLE_EQ(loaded.engine.GetWilcoxonT(), rs);
    EXPECT_DOUBLE_EQ(loaded.engine.GetP(), P);
    EXPECT_DOUBLE_EQ(loaded.engine.GetAlternateStat(), Z);
    EXPECT_DOUBLE_EQ(loaded.engine.GetAlternateP(), alternateP);
    EXPECT_EQ(numbers(loaded.engine.GetDF()), n);
    EXPECT_EQ(numbers(loaded.engine.GetAlternateDF()), n);
}

const Cells up{1, 2, 3, 4};
const Cells down{4, 3, 2, 1};
const double root3 = std::sqrt(3.0);
const double tied = 8 / std::sqrt(70.0);

// clang-format off
const SpearmanCase spearmanCases[] = {
    // name                                     ys            xs            tails                rs    P          Z             P of Z
    {"SameOrder_TwoTailed",                     up,           {2, 4, 6, 8}, tbvNPTwoTailed,      1,    1.0 / 12,  root3,        2 * upperNormalTail(root3)},
    {"SameOrder_Positive",                      up,           {2, 4, 6, 8}, tbvNPVar1GTVar2,     1,    1.0 / 24,  root3,        upperNormalTail(root3)},
    {"SameOrder_Negative",                      up,           {2, 4, 6, 8}, tbvNPVar1LTVar2,     1,    23.0 / 24, root3,        upperNormalTail(root3)},
    {"ReversedOrder_TwoTailedNormalIsAboveOne", up,           down,         tbvNPTwoTailed,      -1,   1.0 / 12,  -root3,       2 * upperNormalTail(-root3)},
    {"ReversedOrder_NormalTestsForPositive",    up,           down,         tbvNPVar1LTVar2,     -1,   1.0 / 24,  -root3,       upperNormalTail(-root3)},
    {"TailsOutsideTheList_AreOneTailed",        up,           down,         tailsOutsideTheList, -1,   1.0 / 24,  -root3,       upperNormalTail(-root3)},
    // D0 = 10 (1 + 8 / sqrt(70)) = 19.56: no permutation but the reversed one has as much.
    {"TiesAreDividedByTheNumberOfPairs",        {1, 2, 2, 3}, up,           tbvNPVar1GTVar2,     tied, 1.0 / 24,  root3 * tied, upperNormalTail(root3 * tied)},
    {"TiesInTheSecondVariable",                 up,           {1, 2, 2, 3}, tbvNPVar1GTVar2,     tied, 1.0 / 24,  root3 * tied, upperNormalTail(root3 * tied)},
    // The blank is the smallest value: 0, 2, 3, 4.
    {"ABlankIsReadAsZero",                      {blank, 2, 3, 4}, up,       tbvNPTwoTailed,      1,    1.0 / 12,  root3,        2 * upperNormalTail(root3)},
    {"ABlankInTheSecondIsReadAsZero",           up,           {-1, blank, 3, 4}, tbvNPTwoTailed, 1,    1.0 / 12,  root3,        2 * upperNormalTail(root3)},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Of, Spearman, testing::ValuesIn(spearmanCases),
                         [](const auto& test) { return test.param.name; });

TEST(SpearmanReference, AgreesWithAnotherPackage) {
    int compared = 0;
    for (const ReferencePair& pair : referencePairs("spearman")) {
        LoadedEngine loaded = pair.loaded(tbvNPSpearman);
        loaded.engine.Analyse();
        EXPECT_NEAR(loaded.engine.GetWilcoxonT(), pair.statistic, 4e-16) << pair.samples;
        // R's tail against the direction includes the value itself, the engine's is the rest: equal to each
        // other in the direction that the data lean to.
        if (pair.alternative == "two" || (pair.statistic > 0) == (pair.alternative == "greater")) {
            EXPECT_NEAR(loaded.engine.GetP(), pair.P, 1e-15) << pair.samples;
            ++compared;
        }
    }
    EXPECT_EQ(compared, 10);
}

TEST(SpearmanDescriptives, AreAlwaysFilledInEntryOrder) {
    LoadedEngine loaded(tbvNPSpearman, tbvNPTwoTailed, column({9, 2, 2, 5, 4}), column({10, 40, 20, 50, 30}));
    loaded.engine.Analyse();
    const clsNonParaBO& engine = loaded.engine;
    EXPECT_EQ(rowsOf(engine.GetData()), (Rows{{9, 10}, {2, 40}, {2, 20}, {5, 50}, {4, 30}}));
    EXPECT_EQ(rowsOf(engine.GetRanks()), (Rows{{5, 1}, {1.5, 4}, {1.5, 2}, {4, 5}, {3, 3}}));
    expectSummaries(engine, {.mediansRaw = {4, 30},
                             .sumsRaw = {22, 150},
                             .nsRaw = {5, 5},
                             .mediansRank = {3, 3},
                             .sumsRank = {15, 15},
                             .nsRank = {5, 5}});
}

TEST(SpearmanQuirks, HeavyTiesLeaveMinusOneToOne) {
    // Ranks 2, 2, 2, 4 twice: D = 0, K = 10, Tx = Ty = 24 / 4: rs = (10 - 12) / sqrt((-2) x (-2)).
    LoadedEngine loaded(tbvNPSpearman, tbvNPVar1GTVar2, column({1, 1, 1, 2}), column({1, 1, 1, 2}));
    loaded.engine.Analyse();
    EXPECT_EQ(loaded.engine.GetWilcoxonT(), -1);
    // Ranks 1.5, 1.5, 3 twice: K = 4, Tx = Ty = 2: rs = 0 / sqrt(0 x 0).
    loaded.load(tbvNPSpearman, tbvNPVar1GTVar2, column({1, 1, 2}), column({1, 1, 2}));
    EXPECT_EQ(raisedBy([&] { loaded.engine.Analyse(); }), in("clsNonParaBO.AnalyseSpearman", 6));
}

TEST(SpearmanFailure, NamesTheProcedure) {
    const PairFailure failures[] = {
        {"a single pair", {1}, {2}, 11},
        {"one value of the first variable alone", {1, 1}, {1, 2}, 5},
        {"0 / 0 of twelve equal values", Cells(12, 1), {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12}, 6},
        {"a shorter second variable", {1, 2, 3}, {1, 2}, 9},
        {"a text", {1, "x", 3}, {1, 2, 3}, 13},
        {"the host", {1, 2, 3}, {1, 2, 3}, 1004},
    };
    for (const auto& [name, ys, xs, number] : failures) {
        LoadedEngine loaded(tbvNPSpearman, tbvNPTwoTailed, column(ys), column(xs));
        loaded.application->functions.failure = hostError();
        EXPECT_EQ(raisedBy([&] { loaded.engine.Analyse(); }), in("clsNonParaBO.AnalyseSpearman", number))
            << name;
    }
}

TEST(SpearmanFailure, KeepsWhatWasStoredBeforeTheHostFailed) {
    LoadedEngine loaded(tbvNPSpearman, tbvNPTwoTailed, column(up), column(down));
    loaded.application->functions.failure = hostError();
    EXPECT_EQ(raisedBy([&] { loaded.engine.Analyse(); }).number, 1004);
    EXPECT_EQ(loaded.engine.GetWilcoxonT(), -1);
    EXPECT_DOUBLE_EQ(loaded.engine.GetP(), 1.0 / 12);
    EXPECT_DOUBLE_EQ(loaded.engine.GetAlternateStat(), -root3);
    EXPECT_EQ(loaded.engine.GetAlternateP(), 0);
    EXPECT_FALSE(loaded.engine.GetAlternateDF().allocated());
}

}  // namespace
}  // namespace TBVNonPara
