#include "cli/run_test.hpp"

#include <bit>
#include <gtest/gtest.h>

#include "cli/json_report.hpp"
#include "cli/results.hpp"
#include "data_sheet.hpp"

namespace TBVNonPara::cli {

namespace {

FinishedTest finished(const std::string& csv, const Arguments& arguments) {
    const auto application = workbookOf(csv);
    return runTest(application, arguments, chooseRanges(*application, arguments));
}

const std::string samples = "a,b\n1.1,4\n2.7,5.3\n3,9.1\n8,\n";

TEST(RunningATest, PutsTheReportOnASheetOfItsOwn) {
    const FinishedTest test = finished(samples, argumentsFor("mann-whitney"));
    EXPECT_EQ(test.address(), "Results!$A$1:$D$9");
    EXPECT_EQ(toText(test.report().value(1, 1)), "Mann-Whitney Test Results for:");
    EXPECT_EQ(toText(test.report().value(6, 1)), "U");
}

TEST(RunningATest, TakesAFreeNameWhenTheDataSheetIsCalledResults) {
    const ObjectRef<workbook::EmbeddedApplication> application = workbook::makeApplication();
    workbook::openCsvText(*application, "Results", samples);
    const Arguments arguments = argumentsFor("mann-whitney");
    const FinishedTest test = runTest(application, arguments, chooseRanges(*application, arguments));
    EXPECT_EQ(test.address(), "'Results (2)'!$A$1:$D$9");
    EXPECT_EQ(toText(test.report().value(2, 1)), "Set 1 Range = Results!$A$1:$A$5");
}

/// A number that went through the text of the program's JSON.
bool sameBits(const nlohmann::json& read, double number) {
    return std::bit_cast<std::uint64_t>(read.get<double>()) == std::bit_cast<std::uint64_t>(number);
}

nlohmann::json read(const OfferedTest& test, const FinishedTest& finished) {
    return nlohmann::json::parse(writtenBy([&](Output& output) {
        writeJson(test, finished.address(), finished.report(), namedResults(test.method, finished.engine()),
                  output);
    }));
}

TEST(JsonOfATest, NumbersAreThoseOfTheEngineBitForBit) {
    const FinishedTest test = finished(samples, argumentsFor("spearman", "A1:A4", "B1:B4"));
    const clsNonParaBO& engine = test.engine();
    const auto results = read(testNamed("spearman"), test)["results"];
    EXPECT_TRUE(sameBits(results["rs"], engine.GetWilcoxonT()));
    EXPECT_TRUE(sameBits(results["p"], engine.GetP()));
    EXPECT_TRUE(sameBits(results["z"], engine.GetAlternateStat()));
    EXPECT_TRUE(sameBits(results["zP"], engine.GetAlternateP()));
    EXPECT_EQ(results["df"], nlohmann::json({3}));
}

TEST(JsonOfATest, RowsAreTheReportsCellsBitForBit) {
    Arguments arguments = argumentsFor("mann-whitney");
    arguments.descriptives = true;
    const FinishedTest test = finished(samples, arguments);
    const ReportBlock report = test.report();
    const auto rows = read(testNamed("mann-whitney"), test)["report"]["rows"];
    ASSERT_EQ(rows.size(), static_cast<std::size_t>(report.rows()));
    for (Index row = 1; row <= report.rows(); ++row) {
        const auto& cells = rows[static_cast<std::size_t>(row - 1)];
        ASSERT_EQ(cells.size(), static_cast<std::size_t>(report.columns()));
        for (Index column = 1; column <= report.columns(); ++column) {
            const auto& cell = cells[static_cast<std::size_t>(column - 1)];
            const CellValue& value = report.value(row, column);
            if (const auto* number = std::get_if<double>(&value)) {
                EXPECT_TRUE(sameBits(cell, *number)) << row << ',' << column;
            } else {
                EXPECT_EQ(cell.is_null(), isEmpty(value)) << row << ',' << column;
            }
        }
    }
}

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
    const FinishedTest test = finished(GetParam().csv, argumentsFor(GetParam().test));
    const auto results = namedResults(testNamed(GetParam().test).method, test.engine());
    std::string text;
    for (const auto& [name, value] : results.items()) {
        text += (text.empty() ? "" : " ") + name;
    }
    EXPECT_EQ(text, GetParam().results);
}

const NamedResults namedResultsOfTests[] = {
    {"mann-whitney", "1,4\n2,5\n", "u df p"},
    {"wilcoxon", "1,4\n2,6\n", "method t n p positive negative zero"},
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

TEST(ResultsByName, OfALargeWilcoxonTestAreThoseOfTheApproximation) {
    std::string csv;
    for (int i = 1; i <= 51; ++i) {
        csv += std::to_string(i * i % 17) + ',' + std::to_string(i % 5) + '\n';
    }
    const FinishedTest test = finished(csv, argumentsFor("wilcoxon"));
    const auto results = namedResults(tbvNPWilcoxon, test.engine());
    EXPECT_EQ(results["method"], "approximate");
    EXPECT_EQ(results["z"], test.engine().GetAlternateStat());
    EXPECT_EQ(results["n"], 51);
    EXPECT_FALSE(results.contains("t"));
}

TEST(ResultsByName, OfRunsKeepNumbersAndTextsApart) {
    const FinishedTest test = finished("x\n1\nx\n1\n\"\"\n2\n", argumentsFor("runs"));
    const auto results = namedResults(tbvNPWWRuns, test.engine());
    EXPECT_EQ(results["categories"].dump(), R"(["x",1.0,null,2.0])");
    EXPECT_EQ(results["counts"].dump(), "[2,2,1,1]");
}

}  // namespace

}  // namespace TBVNonPara::cli
