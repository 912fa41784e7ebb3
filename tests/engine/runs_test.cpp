#include <cmath>
#include <gtest/gtest.h>

#include "tbvnonpara/engine/categories.hpp"
#include "tests/support/engine_fixture.hpp"
#include "tests/support/reference_rows.hpp"

namespace TBVNonPara {
namespace {

using namespace Support;

constexpr const char* inAnalyseWWRuns = " Line 0 in TBVNonPara.clsNonParaBO.AnalyseWWRuns";

LoadedEngine loaded(const ValueGrid& sequence, TBVNPTails tails = tbvNPTwoTailed) {
    return {tbvNPWWRuns, tails, sequence, CellValue()};
}

/// An engine with the analysis done.
struct AnalysedRuns : LoadedEngine {
    explicit AnalysedRuns(const ValueGrid& sequence, TBVNPTails tails = tbvNPTwoTailed)
        : LoadedEngine(tbvNPWWRuns, tails, sequence, CellValue()) {
        engine.Analyse();
    }
};

ValueGrid sequenceOf(const std::string& text) {
    Cells cells;
    for (const std::string& category : fieldsOf(text, ' ')) {
        cells.emplace_back(category.c_str());
    }
    return column(cells);
}

Array<CellValue> categoriesOf(const clsNonParaBO& engine) {
    return std::get<Array<CellValue>>(engine.GetOther());
}

TEST(Runs, AgreeWithAListOfAllArrangements) {
    for (const auto& row : referenceRows("runs.csv")) {
        ASSERT_EQ(row.size(), 7U);
        const ValueGrid sequence = sequenceOf(row[0]);
        const AnalysedRuns two(sequence);
        EXPECT_EQ(two.engine.GetNumRuns(), Long(std::stoi(row[1]))) << row[0];
        EXPECT_DOUBLE_EQ(two.engine.ExpectedRuns(), std::stod(row[2])) << row[0];
        EXPECT_NEAR(two.engine.GetZ(), std::stod(row[3]), 1e-13) << row[0];
        EXPECT_NEAR(two.engine.GetP(), std::stod(row[4]), 1e-13) << row[0];
        EXPECT_NEAR(AnalysedRuns(sequence, tbvNPVar1GTVar2).engine.GetP(), std::stod(row[5]), 1e-13)
            << row[0];
        EXPECT_NEAR(AnalysedRuns(sequence, tbvNPVar1LTVar2).engine.GetP(), std::stod(row[6]), 1e-13)
            << row[0];
    }
}

TEST(Runs, AreCountedAgainstTheirExpectation) {
    const AnalysedRuns test(column({"A", "A", "B", "B", "A", "B"}));
    EXPECT_EQ(test.engine.GetNumRuns(), Long(4));
    EXPECT_EQ(test.engine.ExpectedRuns(), 4);
    EXPECT_DOUBLE_EQ(test.engine.GetZ(), -0.5 / std::sqrt(1.2));
    EXPECT_EQ(numbers(test.engine.GetNsRaw()), (std::vector<double>{3, 3}));
}

TEST(RunsQuirks, RunsWithinAHalfOfTheExpectationGiveANegativeStatisticAndPAboveOne) {
    const AnalysedRuns test(column({"A", "A", "B", "B", "A", "B"}));
    EXPECT_LT(test.engine.GetZ(), 0);
    EXPECT_GT(test.engine.GetP(), 1);
}

struct CategoryCase {
    const char* name;
    Cells sequence;
    int runs;
    Cells categories;
    std::vector<double> counts;
    friend void PrintTo(const CategoryCase& each, std::ostream* out) { *out << each.name; }
};

// clang-format off
const CategoryCase categoryCases[] = {
    {"ThreeCategories",                   {1, 2, 3, 1, 2, 3},                 6, {1, 2, 3},                  {2, 2, 2}},
    {"OrderOfFirstAppearance_NotSorted",  {9, 1, 1, 5, 9},                    4, {9, 1, 5},                  {2, 2, 1}},
    {"ANumberIsNotTheTextOfIt",           {1, "1", 1, "1"},                   4, {1, "1"},                   {2, 2}},
    {"TextsAreCaseSensitive",             {"a", "A", "a", "a"},               3, {"a", "A"},                 {3, 1}},
    {"BlanksInTextsCount",                {"a", "a ", "a"},                   3, {"a", "a "},                {2, 1}},
    {"AnEmptyCellIsACategory",            {1, blank, blank, 1},               3, {1, blank},                 {2, 2}},
    {"EmptyZeroAndNoTextDiffer",          {blank, 0, "", blank, 0, ""},       6, {blank, 0, ""},             {2, 2, 2}},
    {"ZeroAndMinusZeroAreOne",            {0.0, -0.0, 1, -0.0},               3, {0.0, 1},                   {3, 1}},
    {"NumbersCompareExactly",             {0.1 + 0.2, 0.3, 0.3},              2, {0.1 + 0.2, 0.3},           {1, 2}},
    {"ABooleanComparesAsItsNumber",       {true, -1, true, false, 0, "True"}, 3, {true, false, "True"},      {3, 2, 1}},
    {"ACategoryIsShownAsItIsSeenFirst",   {true, -1, 5},                      2, {true, 5},                  {2, 1}},
    {"ANumberSeenFirstStandsForABoolean", {0, false, 1, true},                3, {0, 1, true},               {2, 1, 1}},
    {"AnEmptyCellIsNoFalse",              {false, blank, false},              3, {false, blank},             {2, 1}},
};
// clang-format on

class RunsCategories : public testing::TestWithParam<CategoryCase> {};

TEST_P(RunsCategories, AreToldApart) {
    const CategoryCase& expected = GetParam();
    const AnalysedRuns test(column(expected.sequence));
    EXPECT_EQ(test.engine.GetNumRuns(), Long(expected.runs));
    EXPECT_EQ(numbers(test.engine.GetNsRaw()), expected.counts);
    const Array<CellValue> categories = categoriesOf(test.engine);
    ASSERT_EQ(categories.size(), Long(expected.categories.size()));
    for (std::size_t i = 0; i < expected.categories.size(); ++i) {
        EXPECT_EQ(categories(i + 1), expected.categories[i].value) << i;
    }
}

INSTANTIATE_TEST_SUITE_P(, RunsCategories, testing::ValuesIn(categoryCases),
                         [](const auto& instance) { return instance.param.name; });

TEST(Runs, ErrorValuesAreCategoriesToo) {
    const Cell missing = CellValue(CellError::NotAvailable);
    const Cell quotient = CellValue(CellError::DivisionByZero);
    const AnalysedRuns test(column({missing, missing, quotient, missing}));
    EXPECT_EQ(numbers(test.engine.GetNsRaw()), (std::vector<double>{3, 1}));
}

TEST(Runs, OnlyTheFirstColumnIsRead) {
    const AnalysedRuns test(columns({{"A", "A", "B", "A"}, {1, 2, 3, 4}}));
    EXPECT_EQ(numbers(test.engine.GetNsRaw()), (std::vector<double>{3, 1}));
}

TEST(Runs, ATailTheDataLeanAgainstTakesTheOtherSide) {
    const ValueGrid few = sequenceOf("A A A A A B B B B B");
    const double half = AnalysedRuns(few).engine.GetP() / 2;
    EXPECT_EQ(AnalysedRuns(few, tbvNPVar1GTVar2).engine.GetP(), half);
    EXPECT_EQ(AnalysedRuns(few, tbvNPVar1LTVar2).engine.GetP(), 1 - half);
    const ValueGrid many = sequenceOf("A B A B A B A B");
    const double otherHalf = AnalysedRuns(many).engine.GetP() / 2;
    EXPECT_EQ(AnalysedRuns(many, tbvNPVar1GTVar2).engine.GetP(), 1 - otherHalf);
    EXPECT_EQ(AnalysedRuns(many, tbvNPVar1LTVar2).engine.GetP(), otherHalf);
}

TEST(Runs, AtTheExpectationBothTailsAreHalves) {
    const ValueGrid level = sequenceOf("A A B B A B");
    const double half = AnalysedRuns(level).engine.GetP() / 2;
    EXPECT_EQ(AnalysedRuns(level, tbvNPVar1GTVar2).engine.GetP(), half);
    EXPECT_EQ(AnalysedRuns(level, tbvNPVar1LTVar2).engine.GetP(), half);
}

TEST(Runs, TailsOutsideTheListAreTwoTailed) {
    const ValueGrid few = sequenceOf("A A A A A B B B B B");
    for (const int tails : {3, -1, 99}) {
        EXPECT_EQ(AnalysedRuns(few, static_cast<TBVNPTails>(tails)).engine.GetP(),
                  AnalysedRuns(few).engine.GetP());
    }
}

struct FailureCase {
    const char* name;
    Cells sequence;
    int number;
    friend void PrintTo(const FailureCase& each, std::ostream* out) { *out << each.name; }
};

// clang-format off
const FailureCase runsFailures[] = {
    {"OneCategory_DividesByZero",        {"A", "A", "A"},        11},
    {"EmptyCellsAlone_AreOneCategory",   {blank, blank, blank},  11},
    {"NoTwoCellsAlike_DividesByZero",    {1, 2, 3, 4},           11},
    {"TwoDifferentCells_DivideByZero",   {"A", "B"},             11},
    {"OneCell_ZeroOverZero",             {"A"},                  6},
    {"NoCell_HasNoFirstOne",             {},                     9},
};
// clang-format on

class RunsFailure : public testing::TestWithParam<FailureCase> {};

TEST_P(RunsFailure, NamesTheProcedureAndStoresNothing) {
    LoadedEngine test = loaded(column(GetParam().sequence));
    EXPECT_EQ(failureOf([&] { test.engine.Analyse(); }), std::to_string(GetParam().number) + inAnalyseWWRuns);
    EXPECT_EQ(test.engine.GetNumRuns(), Long(0));
    EXPECT_FALSE(test.engine.GetNsRaw().allocated());
    EXPECT_TRUE(std::holds_alternative<Empty>(test.engine.GetOther()));
}

INSTANTIATE_TEST_SUITE_P(, RunsFailure, testing::ValuesIn(runsFailures),
                         [](const auto& instance) { return instance.param.name; });

TEST(Runs, WithoutAGridThereAreNoBounds) {
    clsNonParaBO engine(engineCompanions());
    engine.LetMethod(tbvNPWWRuns);
    EXPECT_EQ(failureOf([&] { engine.Analyse(); }), std::string("9") + inAnalyseWWRuns);
}

TEST(Runs, AHostsErrorPassesThroughAndEarlierResultsStay) {
    AnalysedRuns test(sequenceOf("A A B B A B"));
    test.engine.LetYs(sequenceOf("A B A B A B A B"));
    test.application->functions.failure = hostError();
    EXPECT_EQ(failureOf([&] { test.engine.Analyse(); }), std::string("1004") + inAnalyseWWRuns);
    EXPECT_EQ(test.engine.GetNumRuns(), Long(4));
    EXPECT_EQ(numbers(test.engine.GetNsRaw()), (std::vector<double>{3, 3}));
}

TEST(Runs, TheHostIsAskedOnce) {
    EXPECT_EQ(AnalysedRuns(sequenceOf("A A B B A B")).application->functions.calls,
              (std::vector<std::string>{"NORMSDIST"}));
}

TEST(Runs, ASecondRunOverwritesTheFirstAndLeavesOtherFieldsAlone) {
    LoadedEngine test = {tbvNPKWallis, tbvNPTwoTailed, columns({{1, 2}, {3, 5}}), CellValue()};
    test.engine.Analyse();
    test.load(tbvNPWWRuns, tbvNPTwoTailed, sequenceOf("A A A A B"), CellValue());
    test.engine.Analyse();
    EXPECT_DOUBLE_EQ(test.engine.ExpectedRuns(), 2.6);
    EXPECT_EQ(numbers(test.engine.GetNsRaw()), (std::vector<double>{4, 1}));
    EXPECT_EQ(numbers(test.engine.GetNsRank()), (std::vector<double>{2, 2}));
}

TEST(Runs, OneOddCellInAMillionHasTheVarianceOfTheTwoEnds) {
    // At an end (2 of N places) there are 2 runs, elsewhere 3: E = 3 - 2 / N, V = 2 / N (1 - 2 / N).
    constexpr int N = 1000000;
    ValueGrid sequence(N, 1, "A");
    sequence(1, 1) = "B";
    const AnalysedRuns test(sequence);
    const double p = 2.0 / N;
    EXPECT_EQ(test.engine.GetNumRuns(), Long(2));
    EXPECT_DOUBLE_EQ(test.engine.ExpectedRuns(), 3 - p);
    // |2 - E| - 0.5 = 0.5 - 2 / N carries the rounding of E.
    EXPECT_NEAR(test.engine.GetZ(), (0.5 - p) / std::sqrt(p * (1 - p)), 1e-12);
}

TEST(Runs, AMillionEqualCellsDivideByZeroAsThreeDo) {
    EXPECT_EQ(failureOf([] { (void)AnalysedRuns(ValueGrid(1000000, 1, "A")); }),
              std::string("11") + inAnalyseWWRuns);
}

TEST(Runs, AMillionDistinctValuesAreAMillionCategories) {
    ValueGrid sequence(1000000, 1);
    for (Long i = 1; i <= sequence.rows(); ++i) {
        sequence(i, 1) = toDouble(i) * 0.37;
    }
    const Categories categories = findCategories(sequence.column(1));
    EXPECT_EQ(categories.values.size(), Long(1000000));
    EXPECT_EQ(categories.values(777), sequence(777, 1));
    // Every arrangement has a million runs, so the variance is 0.
    EXPECT_EQ(failureOf([&] { (void)AnalysedRuns(sequence); }), std::string("11") + inAnalyseWWRuns);
}

}  // namespace
}  // namespace TBVNonPara
