#include <algorithm>
#include <array>
#include <gtest/gtest.h>
#include <stdexcept>

#include "tbvnonpara/engine/named_results.hpp"
#include "tests/analysis/data_sheet.hpp"

namespace TBVNonPara::analysis {

namespace {

/// The names of the results of each test: promises to those who read them.
struct NamedResults {
    const char* test;
    const char* csv;
    const char* results;
};

void PrintTo(const NamedResults& results, std::ostream* out) {
    *out << results.test;
}

class ResultsByName : public testing::TestWithParam<NamedResults> {};

TEST_P(ResultsByName, AreThoseDocumented) {
    const FinishedTest test = finished(GetParam().csv, choicesFor(GetParam().test));
    const auto results = namedResults(testNamed(GetParam().test).method, test.engine());
    std::string text;
    for (const NamedResult& result : results) {
        text += (text.empty() ? "" : " ") + result.name;
    }
    EXPECT_EQ(text, GetParam().results);
}

const NamedResults namedResultsOfTests[] = {
    {"mann-whitney", "1,4\n2,5\n", "u df p"},
    {"wilcoxon", "1,4\n2,6\n",
     "method t n p positive.median positive.sum positive.n negative.median negative.sum negative.n "
     "zero.median zero.sum zero.n"},
    {"spearman", "1,4\n2,6\n3,5\n", "rs df p z zP"},
    {"sign", "1\n-1\n0\n", "positive neither negative p"},
    {"median", "1,4\n2,5\n",
     "grandMedian above notAbove df chiSquare p yates yatesP cochran cochranP logLikelihood logLikelihoodP "
     "warning"},
    {"median", "1,4,7\n2,5,8\n",
     "grandMedian above notAbove df chiSquare p logLikelihood logLikelihoodP warning"},
    {"friedman", "1,2,3\n1,3,2\n", "chiSquare df p f fDf fP"},
    {"kruskal-wallis", "1,4,3\n2,5,7\n6,9,8\n", "chiSquare df p f fDf fP"},
    {"runs", "1\n2\n1\n1\n", "runs expected z p categories counts"},
};

INSTANTIATE_TEST_SUITE_P(Tests, ResultsByName, testing::ValuesIn(namedResultsOfTests));

/// The result of that name; a test fails when there is none.
template <typename Value>
Value resultNamed(std::string_view name, const std::vector<NamedResult>& results) {
    const auto found = std::ranges::find(results, name, &NamedResult::name);
    return found == results.end() ? throw std::invalid_argument(std::string(name))
                                  : std::get<Value>(found->value);
}

TEST(ResultsByName, OfALargeWilcoxonTestAreThoseOfTheApproximation) {
    std::string csv;
    for (int i = 1; i <= 51; ++i) {
        csv += std::to_string(i * i % 17) + ',' + std::to_string(i % 5) + '\n';
    }
    const FinishedTest test = finished(csv, choicesFor("wilcoxon"));
    const auto results = namedResults(tbvNPWilcoxon, test.engine());
    EXPECT_EQ(resultNamed<std::string>("method", results), "approximate");
    EXPECT_EQ(resultNamed<double>("z", results), test.engine().GetAlternateStat());
    EXPECT_EQ(resultNamed<Long>("n", results), Long(51));
    EXPECT_THROW(static_cast<void>(resultNamed<double>("t", results)), std::invalid_argument);
}

TEST(ResultsByName, OfRunsKeepNumbersAndTextsApart) {
    const FinishedTest test = finished("x\n1\nx\n1\n\"\"\n2\n", choicesFor("runs"));
    const auto results = namedResults(tbvNPWWRuns, test.engine());
    const auto categories = resultNamed<Array<CellValue>>("categories", results);
    ASSERT_EQ(categories.size(), Long(4));
    EXPECT_EQ(categories(1), CellValue("x"));
    EXPECT_EQ(categories(2), CellValue(1.0));
    EXPECT_TRUE(isEmpty(categories(3)));
    EXPECT_EQ(categories(4), CellValue(2.0));
    const auto counts = resultNamed<Array<Long>>("counts", results);
    EXPECT_TRUE(std::ranges::equal(counts.elements(), std::array<Long, 4>{2, 2, 1, 1}));
}

}  // namespace

}  // namespace TBVNonPara::analysis
