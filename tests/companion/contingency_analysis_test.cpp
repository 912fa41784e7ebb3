#include "tbvnonpara/companion/own/contingency_analysis.hpp"

#include <cmath>
#include <gtest/gtest.h>

#include "tbvnonpara/core/enumerations.hpp"
#include "tests/support/raised.hpp"
#include "tests/support/reference_rows.hpp"

namespace TBVNonPara {
namespace {

using Support::raisedBy;

/// The chi-square tail in closed form, and the host's refusal outside its domain.
class Functions final : public WorksheetFunction {
 public:
    [[nodiscard]] double NORMSDIST(double) const override { throw Error(1004); }
    [[nodiscard]] double FDist(double, Long, Long) const override { throw Error(1004); }
    [[nodiscard]] double CountIf(const RangeRef&, std::string_view) const override { throw Error(1004); }
    [[nodiscard]] double ChiDist(double x, Long df) const override {
        if (x < 0 || df < Long(1)) {
            throw Error(1004, "Unable to get the ChiDist property");
        }
        const bool odd = df.value() % 2 != 0;
        double tail = odd ? std::erfc(std::sqrt(x / 2)) : std::exp(-x / 2);
        double term = odd ? std::sqrt(2 * x / std::acos(-1.0)) * std::exp(-x / 2) : tail * x / 2;
        for (int reached = odd ? 1 : 2; reached < df.value(); reached += 2) {
            tail += term;
            term *= x / (reached + 2);
        }
        return tail;
    }
};

class HostOfFunctions final : public Application {
 public:
    [[nodiscard]] RangeRef GetRange(std::string_view) const override { return {}; }
    [[nodiscard]] RangeRef GetRange(const RangeRef&, const RangeRef&) const override { return {}; }
    [[nodiscard]] WorkbookRef GetWorkbooks(std::string_view) const override { return {}; }
    [[nodiscard]] WorksheetRef AddWorksheets() override { return {}; }
    void LetScreenUpdating(bool) override {}
    [[nodiscard]] const WorksheetFunction& GetWorksheetFunction() const override { return m_Functions; }

 private:
    Functions m_Functions;
};

ObjectRef<ContingencyAnalysis> newAnalysis() {
    return createContingencyAnalysis(makeObject<HostOfFunctions>());
}

using Counts = std::vector<std::vector<double>>;

ObjectRef<ContingencyAnalysis> analysed(const ValueGrid& counts) {
    ObjectRef<ContingencyAnalysis> analysis = newAnalysis();
    analysis->LetObserved(counts);
    analysis->LetExpectedFrom(0);
    analysis->LetLabels(false);
    analysis->Calculate();
    return analysis;
}

ObjectRef<ContingencyAnalysis> analysed(const Counts& counts) {
    return analysed(Support::asRows(counts));
}

// The last digit of a sum of a dozen terms, and of the probability, whose condition is about the statistic.
constexpr double rounding = 1e-12;

void expectRelative(double actual, double expected, const std::string& what) {
    EXPECT_NEAR(actual, expected, rounding * std::abs(expected)) << what;
}

double resultNamed(const ContingencyAnalysis& analysis, const std::string& name) {
    const bool isP = name.ends_with("_p");
    const std::string statistic = isP ? name.substr(0, name.size() - 2) : name;
    const ContingencyStatistic result = statistic == "chi_square" ? analysis.GetChiSquare()
                                        : statistic == "g"        ? analysis.GetLogLikelihood()
                                                                  : analysis.GetYates();
    return isP ? result.p : result.value;
}

TEST(ContingencyTables, AgreeWithOtherPackagesAndWithSixtyDigits) {
    for (const char* file : {"contingency.csv", "contingency_exact.csv"}) {
        for (const auto& row : Support::referenceRows(file)) {
            ASSERT_EQ(row.size(), 3U);
            const auto analysis = analysed(Support::numberLists(row[0]));
            expectRelative(resultNamed(*analysis, row[1]), std::stod(row[2]), row[0] + " " + row[1]);
        }
    }
}

TEST(ContingencyTables, ExpectedFrequenciesComeFromTheMargins) {
    const auto analysis = analysed(Counts{{0, 1, 3}, {3, 2, 0}});
    const Grid<double> expected{{12.0 / 9, 12.0 / 9, 12.0 / 9}, {15.0 / 9, 15.0 / 9, 15.0 / 9}};
    EXPECT_EQ(analysis->GetExpected(), expected);
    EXPECT_EQ(analysis->GetDF(), Long(2));
}

TEST(ContingencyTables, CorrectionsBelongToTwoByTwoTablesAlone) {
    for (const Counts& counts : {Counts{{1, 2, 3}, {3, 2, 1}}, {{1, 2}, {3, 1}, {2, 2}}}) {
        const auto analysis = analysed(counts);
        EXPECT_FALSE(analysis->GetHasYates());
        EXPECT_FALSE(analysis->GetHasCochran());
        EXPECT_EQ(analysis->GetYates().value, 0);
        EXPECT_EQ(analysis->GetCochran().p, 0);
        EXPECT_EQ(analysis->GetDF(), Long(2));
    }
}

TEST(ContingencyTables, TwoByTwoTablesHaveBothCorrectionsWithTheirProbabilities) {
    const auto analysis = analysed(Counts{{8, 0}, {1, 9}});
    EXPECT_EQ(analysis->GetDF(), Long(1));
    EXPECT_TRUE(analysis->GetHasYates());
    EXPECT_TRUE(analysis->GetHasCochran());
    EXPECT_DOUBLE_EQ(analysis->GetYates().value, 11.025);
    EXPECT_DOUBLE_EQ(analysis->GetCochran().value, 11.025);
    EXPECT_DOUBLE_EQ(analysis->GetYates().p, std::erfc(std::sqrt(11.025 / 2)));
    EXPECT_DOUBLE_EQ(analysis->GetCochran().p, std::erfc(std::sqrt(11.025 / 2)));
}

TEST(ContingencyTables, LabelsStandInTheFirstRowAndColumn) {
    const ValueGrid labelled{{Empty(), "COL1", "COL2"}, {"ROW1", 3.0, 1.0}, {"ROW2", 1.0, 3.0}};
    const auto analysis = newAnalysis();
    analysis->LetObserved(labelled);
    analysis->LetExpectedFrom(0);
    analysis->LetLabels(true);
    analysis->Calculate();
    EXPECT_EQ(analysis->GetExpected(), (Grid<double>{{2, 2}, {2, 2}}));
    EXPECT_EQ(analysis->GetChiSquare().value, 2);
}

TEST(ContingencyTables, AnEmptyRowOrColumnAddsNothingAndKeepsTheDegreesOfFreedom) {
    const auto full = analysed(Counts{{3, 1}, {1, 3}});
    const auto withGap = analysed(Counts{{3, 0, 1}, {1, 0, 3}, {0, 0, 0}});
    EXPECT_EQ(withGap->GetChiSquare().value, full->GetChiSquare().value);
    EXPECT_EQ(withGap->GetLogLikelihood().value, full->GetLogLikelihood().value);
    EXPECT_EQ(withGap->GetDF(), Long(4));
    // Upper tail of chi-square with 4 degrees of freedom at 2.
    expectRelative(withGap->GetChiSquare().p, std::exp(-1.0) * 2, "probability");
}

TEST(ContingencyTables, ACellWithoutObservationsAddsNothingToTheLogLikelihood) {
    // 2 (5 ln 2 + 5 ln 2): the two zero cells are left out.
    expectRelative(analysed(Counts{{0, 5}, {5, 0}})->GetLogLikelihood().value, 20 * std::log(2.0), "G");
}

struct RefusedCase {
    const char* name;
    ValueGrid counts;
    std::int32_t number;
    const char* description;

    friend void PrintTo(const RefusedCase& each, std::ostream* out) { *out << each.name; }
};

constexpr const char* noFreedom =
    "The contingency table has no degrees of freedom: it needs at least two rows and two columns of counts.";
constexpr const char* noObservation = "The contingency table holds no observation: every count is 0.";

// clang-format off
const RefusedCase refusedCases[] = {
    {"OneRow",             {{1.0, 2.0, 3.0}},              tbvNPNoContingencyTable, noFreedom},
    {"OneColumn",          {{1.0}, {2.0}},               tbvNPNoContingencyTable, noFreedom},
    {"NoRowAtAll",         ValueGrid(0, 0),          tbvNPNoContingencyTable, noFreedom},
    {"EveryCountZero",     {{0.0, 0.0}, {0.0, 0.0}},         tbvNPNoContingencyTable, noObservation},
    {"EmptyCellsAreZero",  ValueGrid(2, 3),          tbvNPNoContingencyTable, noObservation},
    {"ATextForACount",     {{1.0, "many"}, {2.0, 3.0}},    13,                      "Type mismatch"},
    {"ANegativeCount",     {{1.0, -2.0}, {2.0, 3.0}},        5,                       "Invalid procedure call or argument"},
    {"ATableNeverGiven",   ValueGrid(),              9,                       "Subscript out of range"},
};
// clang-format on

class RefusedContingencyTables : public testing::TestWithParam<RefusedCase> {};

TEST_P(RefusedContingencyTables, RaiseAnErrorWithADescription) {
    const Support::Raised raised = raisedBy([] { (void)analysed(GetParam().counts); });
    EXPECT_EQ(raised.number, GetParam().number);
    EXPECT_EQ(raised.description, GetParam().description);
}

INSTANTIATE_TEST_SUITE_P(, RefusedContingencyTables, testing::ValuesIn(refusedCases),
                         [](const auto& instance) { return instance.param.name; });

TEST(ContingencyTables, TheErrorNumberLiesInTheBandOfTheLibrary) {
    EXPECT_EQ(tbvNPNoContingencyTable, -2147221504 + 5040);
}

TEST(ContingencyTables, LabelsLeaveNoCountsInATableOfOneRow) {
    const auto analysis = newAnalysis();
    analysis->LetObserved({{Empty(), "COL1", "COL2"}});
    analysis->LetLabels(true);
    EXPECT_EQ(raisedBy([&] { analysis->Calculate(); }).number, tbvNPNoContingencyTable);
}

TEST(ContingencyTables, ResultsAreZerosBeforeTheCalculationAndAfterAFailedOne) {
    const auto analysis = newAnalysis();
    EXPECT_EQ(analysis->GetChiSquare().value, 0);
    EXPECT_EQ(analysis->GetDF(), Long(0));
    EXPECT_EQ(analysis->GetWarning(), "");
    EXPECT_FALSE(analysis->GetHasYates());
    EXPECT_FALSE(analysis->GetExpected().allocated());

    analysis->LetObserved({{3.0, 1.0}, {1.0, 3.0}});
    analysis->Calculate();
    EXPECT_EQ(analysis->GetChiSquare().value, 2);
    analysis->LetObserved({{0.0, 0.0}, {0.0, 0.0}});
    EXPECT_NE(raisedBy([&] { analysis->Calculate(); }).number, 0);
    EXPECT_EQ(analysis->GetChiSquare().value, 0);
    EXPECT_FALSE(analysis->GetHasYates());
    EXPECT_FALSE(analysis->GetExpected().allocated());
}

TEST(ContingencyTables, ExpectedFrequenciesHaveNoOtherSourceThanTheMargins) {
    EXPECT_EQ(raisedBy([] { newAnalysis()->LetExpectedFrom(1); }).number, 5);
}

TEST(ContingencyTables, WithoutAnApplicationThereAreNoProbabilities) {
    const auto analysis = createContingencyAnalysis({});
    analysis->LetObserved({{3.0, 1.0}, {1.0, 3.0}});
    EXPECT_EQ(raisedBy([&] { analysis->Calculate(); }).number, 91);
}

}  // namespace
}  // namespace TBVNonPara
