#include <cmath>
#include <gtest/gtest.h>

#include "tbvnonpara/companion/own/contingency_analysis.hpp"
#include "tests/support/engine_fixture.hpp"
#include "tests/support/reference_rows.hpp"

namespace TBVNonPara {
namespace {

using namespace Support;

constexpr const char* inAnalyseMedian = " Line 0 in TBVNonPara.clsNonParaBO.AnalyseMedian";

/// An engine for the median test whose contingency tables are the project's own.
struct MedianEngine {
    explicit MedianEngine(const ValueGrid& groups, bool descriptives = false)
        : engine(companions(application)) {
        engine.LetMethod(tbvNPMedian);
        engine.LetDescriptives(descriptives);
        engine.LetYs(groups);
    }

    static CompanionLibrary companions(const std::shared_ptr<FakeApplication>& application) {
        CompanionLibrary library = engineCompanions(application);
        library.createContingencyAnalysis = [application] { return createContingencyAnalysis(application); };
        return library;
    }

    std::shared_ptr<FakeApplication> application = std::make_shared<FakeApplication>();
    clsNonParaBO engine;
};

/// The same with the analysis done.
struct AnalysedMedian : MedianEngine {
    explicit AnalysedMedian(const ValueGrid& groups, bool descriptives = false)
        : MedianEngine(groups, descriptives) {
        engine.Analyse();
    }
};

ValueGrid countsOf(const clsNonParaBO& engine) {
    return std::get<ValueGrid>(engine.GetOther());
}

/// The counts without their labels.
Rows plainCounts(const clsNonParaBO& engine) {
    const ValueGrid counts = countsOf(engine);
    Rows rows(2);
    for (Long g = 2; g <= counts.columns(); ++g) {
        rows[0].push_back(std::get<double>(counts(2, g)));
        rows[1].push_back(std::get<double>(counts(3, g)));
    }
    return rows;
}

struct CountCase {
    const char* name;
    std::vector<Cells> groups;
    double median;
    Rows counts;
    friend void PrintTo(const CountCase& each, std::ostream* out) { *out << each.name; }
};

// clang-format off
const CountCase countCases[] = {
    {"OddNumber_TheMiddleValue",          {{1, 2, 3}, {4, 5, 6}, {7, 8, 9}},       5,     {{0, 1, 3}, {3, 2, 0}}},
    {"EvenNumber_TheMeanOfTheMiddleTwo",  {{1, 2}, {3, 6}},                        2.5,   {{0, 2}, {2, 0}}},
    {"TiesAtTheMedian_CountAsNotAbove",   {{5, 5, 5, 1}, {5, 5, 9, 9, 5}},         5,     {{0, 2}, {4, 3}}},
    {"AGroupWithoutValues_IsTwoZeros",    {{1, 2, 7}, {blank, blank}, {3, 9}},     3,     {{1, 0, 1}, {2, 0, 1}}},
    {"GapsInsideAGroup_AreSkipped",       {{1, blank, 8}, {blank, 4, 9}},          6,     {{1, 1}, {1, 1}}},
    {"NegativeNumbers",                   {{-4, -3}, {-2, -1}},                    -2.5,  {{0, 2}, {2, 0}}},
    {"TextsThatReadAsNumbers",            {{"1", " 2 "}, {"1e1", 6}},              4,     {{0, 2}, {2, 0}}},
    {"TrueIsMinusOne",                    {{true, 1}, {2, 0}},                     0.5,   {{1, 1}, {1, 1}}},
    {"AllValuesEqual_NoneIsAbove",        {{5, 5}, {5, 5}},                        5,     {{0, 0}, {2, 2}}},
    {"ZeroAndMinusZeroAreEqual",          {{0.0, -0.0, 0.0}, {-0.0, 1}},           0,     {{0, 1}, {3, 1}}},
};
// clang-format on

class MedianCounts : public testing::TestWithParam<CountCase> {};

TEST_P(MedianCounts, StandAboveTheMedianAndNotAboveIt) {
    const AnalysedMedian test(columns(GetParam().groups));
    EXPECT_EQ(test.engine.GetGrandMedian(), GetParam().median);
    EXPECT_EQ(plainCounts(test.engine), GetParam().counts);
}

INSTANTIATE_TEST_SUITE_P(, MedianCounts, testing::ValuesIn(countCases),
                         [](const auto& instance) { return instance.param.name; });

TEST(Median, TheTableOfCountsCarriesLabels) {
    const AnalysedMedian test(columns({{1, 2, 3}, {4, 5, 6}, {7, 8, 9}}));
    const ValueGrid expected{
        {Empty(), "COL1", "COL2", "COL3"}, {"ROW1", 0.0, 1.0, 3.0}, {"ROW2", 3.0, 2.0, 0.0}};
    EXPECT_EQ(countsOf(test.engine), expected);
}

TEST(Median, AgreesWithSciPy) {
    for (const auto& row : referenceRows("median.csv")) {
        const AnalysedMedian test(asColumns(numberLists(row.at(0))));
        const auto table = test.engine.GetContingencyResults();
        const std::string& result = row.at(1);
        const double actual = result == "grand_median" ? test.engine.GetGrandMedian()
                              : result == "chi_square" ? table->GetChiSquare().value
                              : result == "p"          ? table->GetChiSquare().p
                              : result == "g"          ? table->GetLogLikelihood().value
                              : result == "g_p"        ? table->GetLogLikelihood().p
                              : result == "yates"      ? table->GetYates().value
                                                       : table->GetYates().p;
        const double expected = std::stod(row.at(2));
        EXPECT_NEAR(actual, expected, 1e-12 * std::abs(expected)) << result << " of " << row.at(0);
    }
}

TEST(Median, TheContingencyTableHasTheDegreesOfFreedomOfAllGroups) {
    const AnalysedMedian test(columns({{1, 2, 7}, {blank}, {3, 9}}));
    EXPECT_EQ(test.engine.GetContingencyResults()->GetDF(), Long(2));
    EXPECT_EQ(test.application->functions.calls, (std::vector<std::string>{"ChiDist", "ChiDist"}));
}

TEST(Median, DescribesTheGroupsWhenAsked) {
    const AnalysedMedian test(columns({{blank, 5, 1}, {7}, {3, blank, 9}}), true);
    const clsNonParaBO& engine = test.engine;
    EXPECT_EQ(rowsOf(engine.GetData()), (Rows{{5, 7, 3}, {1, 0, 9}, {0, 0, 0}}));
    EXPECT_EQ(rowsOf(engine.GetRanks()), (Rows{{3, 4, 2}, {1, 0, 5}, {0, 0, 0}}));
    EXPECT_EQ(numbers(engine.GetNsRaw()), (std::vector<double>{2, 1, 2}));
    EXPECT_EQ(numbers(engine.GetSumsRank()), (std::vector<double>{4, 4, 7}));
    EXPECT_EQ(numbers(engine.GetMediansRaw()), (std::vector<double>{3, 7, 6}));
}

TEST(Median, WithoutDescriptivesDataAndRanksAreNotTouched) {
    const AnalysedMedian fresh(columns({{1, 2}, {3, 4}}));
    EXPECT_FALSE(fresh.engine.GetData().allocated());
    EXPECT_FALSE(fresh.engine.GetSumsRank().allocated());

    AnalysedMedian reused(columns({{1, 2}, {3, 4}}), true);
    reused.engine.LetDescriptives(false);
    reused.engine.LetYs(columns({{9, 9}, {8, 7}}));
    reused.engine.Analyse();
    EXPECT_EQ(reused.engine.GetGrandMedian(), 8.5);
    EXPECT_EQ(rowsOf(reused.engine.GetData()), (Rows{{1, 3}, {2, 4}}));
}

TEST(Median, LeavesTheResultsOfOtherTestsAlone) {
    MedianEngine test(columns({{1, 2, 3}, {4, 5, 7}}));
    test.engine.LetMethod(tbvNPKWallis);
    test.engine.Analyse();
    const double chiSq = test.engine.GetChiSq();
    const double P = test.engine.GetP();
    test.engine.LetMethod(tbvNPMedian);
    test.engine.Analyse();
    EXPECT_EQ(test.engine.GetChiSq(), chiSq);
    EXPECT_EQ(test.engine.GetP(), P);
    EXPECT_EQ(numbers(test.engine.GetDF()), (std::vector<double>{1}));
}

TEST(Median, EveryAnalysisHasATableOfItsOwn) {
    AnalysedMedian test(columns({{1, 2}, {3, 4}}));
    const auto first = test.engine.GetContingencyResults();
    test.engine.Analyse();
    EXPECT_NE(first.shared(), test.engine.GetContingencyResults().shared());
    EXPECT_EQ(first->GetChiSquare().value, 4);
    EXPECT_EQ(test.engine.GetContingencyResults().shared(), test.engine.GetContingencyResults().shared());
}

TEST(Median, BeforeAnyRunThereIsNoTable) {
    EXPECT_FALSE(MedianEngine(columns({{1}})).engine.GetContingencyResults().isSet());
}

TEST(MedianQuirks, WithoutAnyValueTheGrandMedianKeepsItsPreviousValue) {
    AnalysedMedian test(columns({{1, 2}, {3, 6}}));
    test.engine.LetYs(columns({{blank}, {blank}}));
    EXPECT_EQ(failureOf([&] { test.engine.Analyse(); }),
              std::to_string(tbvNPNoContingencyTable) + inAnalyseMedian);
    EXPECT_EQ(test.engine.GetGrandMedian(), 2.5);
    EXPECT_EQ(plainCounts(test.engine), (Rows{{0, 0}, {0, 0}}));
}

TEST(Median, OneGroupIsRefusedByTheContingencyTableWithADescription) {
    MedianEngine test(columns({{1, 2, 3}}));
    const std::optional<Error> error = errorOf([&] { test.engine.Analyse(); });
    ASSERT_TRUE(error.has_value());
    EXPECT_EQ(error->number(), tbvNPNoContingencyTable);
    EXPECT_NE(error->description(), "");
    EXPECT_EQ(' ' + error->source(), inAnalyseMedian);
    EXPECT_EQ(test.engine.GetGrandMedian(), 2);
    EXPECT_TRUE(test.engine.GetContingencyResults().isSet());
}

TEST(Median, ACellThatIsNoNumberIsATypeMismatch) {
    for (const Cell& cell : {Cell("n/a"), Cell(""), Cell(CellValue(CellError::Number))}) {
        MedianEngine test(columns({{1, cell}, {3, 4}}));
        EXPECT_EQ(failureOf([&] { test.engine.Analyse(); }), std::string("13") + inAnalyseMedian);
        EXPECT_TRUE(std::holds_alternative<Empty>(test.engine.GetOther()));
    }
}

TEST(Median, AHostsErrorPassesThroughAndTheCountsStay) {
    MedianEngine test(columns({{1, 2}, {3, 4}}), true);
    test.application->functions.failure = hostError();
    EXPECT_EQ(failureOf([&] { test.engine.Analyse(); }), std::string("1004") + inAnalyseMedian);
    EXPECT_EQ(test.engine.GetGrandMedian(), 2.5);
    EXPECT_EQ(plainCounts(test.engine), (Rows{{0, 2}, {2, 0}}));
    EXPECT_TRUE(test.engine.GetContingencyResults().isSet());
    EXPECT_FALSE(test.engine.GetData().allocated());
}

TEST(Median, WithoutAGridThereAreNoBounds) {
    clsNonParaBO engine(engineCompanions());
    engine.LetMethod(tbvNPMedian);
    EXPECT_EQ(failureOf([&] { engine.Analyse(); }), std::string("9") + inAnalyseMedian);
}

TEST(Median, AComponentThatIsNotCreatedIsAnObjectNotSet) {
    CompanionLibrary companions = engineCompanions();
    companions.createContingencyAnalysis = [] { return ObjectRef<ContingencyAnalysis>(); };
    clsNonParaBO engine(companions);
    engine.LetMethod(tbvNPMedian);
    engine.LetYs(columns({{1, 2}, {3, 4}}));
    EXPECT_EQ(failureOf([&] { engine.Analyse(); }), std::string("91") + inAnalyseMedian);
    EXPECT_EQ(engine.GetGrandMedian(), 2.5);
}

TEST(Median, TheMeanOfTheMiddleTwoMayOverflow) {
    MedianEngine test(columns({{1e308, 1.5e308}, {1, 1.6e308}}));
    EXPECT_EQ(failureOf([&] { test.engine.Analyse(); }), std::string("6") + inAnalyseMedian);
}

/// A component that notes what it is asked.
class NotingTable final : public ContingencyAnalysis {
 public:
    explicit NotingTable(std::vector<std::string>& calls) : m_Calls(calls) {}
    void LetObserved(const ValueGrid& table) override {
        m_Calls.push_back("Observed " + toText(table(1, 2)) + ' ' + toText(table(3, 2)));
    }
    void LetExpectedFrom(Long source) override {
        m_Calls.push_back("ExpectedFrom " + std::to_string(source.value()));
    }
    void LetLabels(bool labels) override { m_Calls.emplace_back(labels ? "Labels True" : "Labels False"); }
    void Calculate() override { m_Calls.emplace_back("Calculate"); }
    [[nodiscard]] Grid<double> GetExpected() const override { return {}; }
    [[nodiscard]] std::string GetWarning() const override { return {}; }
    [[nodiscard]] Long GetDF() const override { return 0; }
    [[nodiscard]] ContingencyStatistic GetChiSquare() const override { return {}; }
    [[nodiscard]] ContingencyStatistic GetLogLikelihood() const override { return {}; }
    [[nodiscard]] bool GetHasYates() const override { return false; }
    [[nodiscard]] ContingencyStatistic GetYates() const override { return {}; }
    [[nodiscard]] bool GetHasCochran() const override { return false; }
    [[nodiscard]] ContingencyStatistic GetCochran() const override { return {}; }

 private:
    std::vector<std::string>& m_Calls;
};

TEST(Median, GivesTheComponentTheTableTheOptionsAndTheOrderToCalculate) {
    std::vector<std::string> calls;
    CompanionLibrary companions = engineCompanions();
    companions.createContingencyAnalysis = [&calls] { return makeObject<NotingTable>(calls); };
    clsNonParaBO engine(companions);
    engine.LetMethod(tbvNPMedian);
    engine.LetYs(columns({{1, 2}, {3, 4}}));
    engine.Analyse();
    EXPECT_EQ(calls,
              (std::vector<std::string>{"Observed COL1 2", "ExpectedFrom 0", "Labels True", "Calculate"}));
}

}  // namespace
}  // namespace TBVNonPara
