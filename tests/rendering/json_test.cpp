#include <bit>
#include <gtest/gtest.h>
#include <limits>
#include <nlohmann/json.hpp>

#include "tbvnonpara/json/values.hpp"
#include "tbvnonpara/rendering/json_report.hpp"
#include "tests/analysis/data_sheet.hpp"
#include "tests/rendering/written.hpp"

namespace TBVNonPara::rendering {

namespace {

using analysis::Choices;
using analysis::choicesFor;
using analysis::finished;
using analysis::FinishedTest;

TEST(JsonValues, OfResultsAreWrittenOnOneLineInTheirOrder) {
    EXPECT_EQ(resultsInJson({{"u", 9.0}, {"df", Array<Long>{3, 3}}, {"p", 0.1}}),
              R"({"u": 9, "df": [3, 3], "p": 0.1})");
    EXPECT_EQ(resultsInJson({{"above", std::vector<double>{}}, {"warning", true}, {"method", "exact"}}),
              R"({"above": [], "warning": true, "method": "exact"})");
    EXPECT_EQ(resultsInJson({{"categories", Array<CellValue>{"x", 1.0, Empty()}}}),
              R"({"categories": ["x", 1, null]})");
    EXPECT_EQ(resultsInJson({}), "{}");
}

TEST(JsonValues, NamesWithTheSamePartBeforeADotBecomeOneObject) {
    EXPECT_EQ(
        resultsInJson({{"t", 0.0}, {"positive.sum", 1.5}, {"positive.n", Long(2)}, {"zero.n", Long(1)}}),
        R"({"t": 0, "positive": {"sum": 1.5, "n": 2}, "zero": {"n": 1}})");
    EXPECT_EQ(resultsInJson({{"a.n", Long(1)}, {"p", 0.5}}), R"({"a": {"n": 1}, "p": 0.5})");
}

TEST(JsonValues, ANumberThatJsonHasNoTextForIsNull) {
    EXPECT_EQ(numberInJson(std::numeric_limits<double>::infinity()), "null");
    EXPECT_EQ(numberInJson(std::numeric_limits<double>::quiet_NaN()), "null");
}

TEST(JsonValues, ATextIsEscapedAndBytesThatAreNoTextAreReplaced) {
    EXPECT_EQ(textInJson("\"\n前\033"), R"("\"\n前\u001b")");
    EXPECT_EQ(textInJson("a\xff"), "\"a\xEF\xBF\xBD\"");
}

TEST(JsonValues, WhatActsOnATerminalIsEscapedAndReadsAsTheSame) {
    const std::string text = "a\033\x7F\u009B\u2028\u202E\u2069 Größe 😀 אב\u200F";
    const std::string json = textInJson(text);
    EXPECT_EQ(json, R"("a\u001b\u007f\u009b\u2028\u202e\u2069 Größe 😀 אב)"
                    "\u200F\"");
    EXPECT_EQ(nlohmann::json::parse(json).get<std::string>(), text);
}

TEST(JsonValues, OfCellsKeepTheirKind) {
    EXPECT_EQ(cellInJson(Empty()), "null");
    EXPECT_EQ(cellInJson(2.5), "2.5");
    EXPECT_EQ(cellInJson("2.5"), "\"2.5\"");
    EXPECT_EQ(cellInJson(""), "\"\"");
    EXPECT_EQ(cellInJson(true), "true");
    EXPECT_EQ(cellInJson(CellError::NotAvailable), "\"#N/A\"");
}

TEST(JsonReport, HoldsTestAddressCellsAndResults) {
    const auto application = workbook::makeApplication();
    const auto sheet = application->addSheet("Results");
    sheet->GetRange("A1")->LetValue("U");
    sheet->GetRange("B2")->LetValue(0.1 + 0.2);
    const std::string text = writtenBy([&](Output& output) {
        writeJson("mann-whitney", "Results!$A$1:$B$2", {*sheet, {1, 1, 2, 2}}, {{"u", 9.0}}, output);
    });
    EXPECT_EQ(text, R"({
  "test": "mann-whitney",
  "report": {
    "address": "Results!$A$1:$B$2",
    "rows": [
      ["U", null],
      [null, 0.30000000000000004]
    ]
  },
  "results": {"u": 9}
}
)");
}

const std::string unequalSamples = "a,b\n1.1,4\n2.7,5.3\n3,9.1\n8,\n";

ReportBlock blockOf(const FinishedTest& test) {
    return {test.sheet(), test.block()};
}

/// A number that went through the text of the program's JSON.
bool sameBits(const nlohmann::json& read, double number) {
    return std::bit_cast<std::uint64_t>(read.get<double>()) == std::bit_cast<std::uint64_t>(number);
}

nlohmann::json read(std::string_view test, const FinishedTest& finished) {
    return nlohmann::json::parse(writtenBy([&](Output& output) {
        writeJson(test, finished.address(), blockOf(finished),
                  namedResults(analysis::testNamed(test).method, finished.engine()), output);
    }));
}

TEST(JsonOfATest, NumbersAreThoseOfTheEngineBitForBit) {
    const FinishedTest test = finished(unequalSamples, choicesFor("spearman", "A1:A4", "B1:B4"));
    const clsNonParaBO& engine = test.engine();
    const auto results = read("spearman", test)["results"];
    EXPECT_TRUE(sameBits(results["rs"], engine.GetWilcoxonT()));
    EXPECT_TRUE(sameBits(results["p"], engine.GetP()));
    EXPECT_TRUE(sameBits(results["z"], engine.GetAlternateStat()));
    EXPECT_TRUE(sameBits(results["zP"], engine.GetAlternateP()));
    EXPECT_EQ(results["df"], nlohmann::json({3}));
}

TEST(JsonOfATest, RowsAreTheReportsCellsBitForBit) {
    Choices choices = choicesFor("mann-whitney");
    choices.descriptives = true;
    const FinishedTest test = finished(unequalSamples, choices);
    const ReportBlock report = blockOf(test);
    const auto rows = read("mann-whitney", test)["report"]["rows"];
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

}  // namespace

}  // namespace TBVNonPara::rendering
