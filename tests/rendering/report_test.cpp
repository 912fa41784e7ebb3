#include <gtest/gtest.h>

#include "tbvnonpara/core/shortest.hpp"
#include "tbvnonpara/rendering/csv_report.hpp"
#include "tbvnonpara/rendering/text_report.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"
#include "tests/rendering/written.hpp"

namespace TBVNonPara::rendering {

namespace {

/// A sheet to lay a report out on by hand.
class Reports : public testing::Test {
 protected:
    void put(const char* address, const CellValue& value) { range(address)->LetValue(value); }
    RangeRef range(const char* address) { return m_Sheet->GetRange(address); }
    [[nodiscard]] ReportBlock block(Index rows, Index columns) const {
        return {m_Sheet->values(), m_Sheet->formats(), {1, 1, rows, columns}};
    }
    [[nodiscard]] std::string text(Index rows, Index columns, bool colour = false,
                                   std::size_t width = 0) const {
        return writtenBy([&](Output& output) { writeText(block(rows, columns), colour, output, width); });
    }
    [[nodiscard]] std::string csv(Index rows, Index columns) const {
        return writtenBy([&](Output& output) { writeCsv(block(rows, columns), output); });
    }

 private:
    ObjectRef<workbook::EmbeddedApplication> m_Application = workbook::makeApplication();
    std::shared_ptr<workbook::Sheet> m_Sheet = m_Application->addSheet("Results");
};

using TextReport = Reports;
using CsvReport = Reports;

TEST_F(TextReport, NumbersStandRightUnderTheirHeadings) {
    put("A1", "U");
    put("B1", "DF 1");
    put("A2", 12.5);
    put("B2", 3.0);
    range("A2")->LetNumberFormat("0.0000");
    EXPECT_EQ(text(2, 2),
              "      U  DF 1\n"
              "12.5000     3\n");
}

TEST_F(TextReport, LabelsStandLeft) {
    put("A1", "Median");
    put("B1", 1.5);
    put("A2", "N");
    put("B2", 10.0);
    EXPECT_EQ(text(2, 2),
              "Median  1.5\n"
              "N        10\n");
}

TEST_F(TextReport, ATitleWidensNoColumn) {
    put("A1", "A title that is much longer than its table");
    put("A2", "U");
    put("B2", "P");
    put("A3", 1.0);
    put("B3", 2.0);
    EXPECT_EQ(text(3, 2),
              "A title that is much longer than its table\n"
              "U  P\n"
              "1  2\n");
}

TEST_F(TextReport, SectionsBetweenBlankLinesHaveColumnsOfTheirOwn) {
    put("A1", "A long label");
    put("B1", 1.0);
    put("A4", "P");
    put("B4", 2.0);
    EXPECT_EQ(text(6, 2),
              "A long label  1\n"
              "\n"
              "\n"
              "P  2\n");
}

TEST_F(TextReport, AHeadingIsCentredAcrossItsEmptyCells) {
    put("B1", "Value");
    put("A2", "N");
    put("B2", 100000.0);
    put("C2", 200000.0);
    range("B1:C1")->LetHorizontalAlignment(AlignCentreAcrossSelection);
    EXPECT_EQ(text(2, 3),
              "       Value\n"
              "N  100000  200000\n");
}

TEST_F(TextReport, ALongCentredHeadingWidensTheColumnsItStandsOver) {
    put("A1", "Within Block Rank");
    put("A2", 1.0);
    put("B2", 2.0);
    range("A1:B1")->LetHorizontalAlignment(AlignCentreAcrossSelection);
    EXPECT_EQ(text(2, 2),
              "Within Block Rank\n"
              "      1         2\n");
}

TEST_F(TextReport, HeadingsOverCentredNumbersAreCentred) {
    put("A1", "1 > 2");
    put("B1", "1 = 2");
    put("A2", 3.0);
    put("B2", 10.0);
    range("A2:B2")->LetHorizontalAlignment(AlignCentre);
    EXPECT_EQ(text(2, 2),
              "1 > 2  1 = 2\n"
              "  3     10\n");
}

TEST_F(TextReport, ADashStandsLikeTheNumbersBelowIt) {
    put("A1", "DF 2");
    put("B1", "P");
    put("A2", "-");
    put("B2", 0.5);
    put("A3", 42.0);
    put("B3", 0.25);
    EXPECT_EQ(text(3, 2),
              "DF 2     P\n"
              "   -   0.5\n"
              "  42  0.25\n");
}

TEST_F(TextReport, HorizontalLinesBecomeRules) {
    put("A1", "U");
    put("B1", "P");
    put("A2", 10.0);
    put("B2", 0.5);
    range("A1:B1")->LetBorder(BorderEdge::Bottom, BorderLine::Thin);
    EXPECT_EQ(text(2, 2),
              " U    P\n"
              "───────\n"
              "10  0.5\n");
}

TEST_F(TextReport, ALineOnTopOfTheNextRowIsTheSameRule) {
    put("A1", "Title");
    put("A2", 1.0);
    put("B2", 2.0);
    range("A2:B2")->LetBorder(BorderEdge::Top, BorderLine::Thin);
    EXPECT_EQ(text(2, 2), "Title\n────\n1  2\n");
}

TEST_F(TextReport, OnlyTheSubscriptSIsLowered) {
    put("A1", "rss");
    put("A2", 0.5);
    put("B2", 1.0);
    range("A1")->LetCharactersFontSubscript(2, 1, true);
    EXPECT_EQ(text(2, 2), "rₛs\n0.5  1\n");
}

TEST_F(TextReport, WideAndCombiningCharactersKeepColumnsAligned) {
    put("A1", "前後");
    put("B1", "e\u0301t");
    put("A2", 1.0);
    put("B2", 2.0);
    EXPECT_EQ(text(2, 2),
              "前後  e\u0301t\n"
              "   1   2\n");
}

TEST_F(TextReport, HalvesAreShownAwayFromZero) {
    put("A1", 0.00005);
    put("B1", -2.5);
    range("A1")->LetNumberFormat("0.0000");
    range("B1")->LetNumberFormat("0");
    EXPECT_EQ(text(1, 2), "0.0001  -3\n");
}

TEST_F(TextReport, ControlCharactersOfALabelDoNotReachTheTerminal) {
    put("A1", "a\nb\033[2J");
    EXPECT_EQ(text(1, 1), "a b\uFFFD[2J\n");
}

TEST_F(TextReport, WithColourBoldCellsAreBoldAndRulesFaint) {
    put("A1", "P");
    put("A2", 0.5);
    put("B2", 1.0);
    range("A1")->LetFontBold(true);
    range("A1")->LetBorder(BorderEdge::Bottom, BorderLine::Thin);
    EXPECT_EQ(text(2, 2, true), "\033[1mP\033[0m\n\033[2m───\033[0m\n0.5  1\n");
    EXPECT_EQ(text(2, 2, false), "P\n───\n0.5  1\n");
}

TEST_F(TextReport, ColumnsThatDoNotFitFollowBelowBehindTheLabels) {
    put("A1", "Group");
    put("B1", "First");
    put("C1", "Second");
    put("A2", "Median");
    put("B2", 1.5);
    put("C2", 2.5);
    range("A1:C1")->LetBorder(BorderEdge::Bottom, BorderLine::Thin);
    EXPECT_EQ(text(2, 3, false, 14),
              "Group   First\n"
              "─────────────\n"
              "Median    1.5\n"
              "\n"
              "Group   Second\n"
              "──────────────\n"
              "Median     2.5\n");
    EXPECT_EQ(text(2, 3, false, 21), text(2, 3));
}

TEST_F(TextReport, AHeadingOverColumnsIsRepeatedOverThoseThatFollow) {
    put("A1", "Value");
    put("A2", 1.0);
    put("B2", 2.0);
    put("C2", 1234567.0);
    range("A1:C1")->LetHorizontalAlignment(AlignCentreAcrossSelection);
    EXPECT_EQ(text(2, 3, false, 8), "Value\n1   2\n\n Value\n1234567\n");
}

TEST_F(TextReport, AHeadingOverEmptyColumnsStaysWhenColumnsFollowBelow) {
    put("A1", "Group");
    put("B1", "Value");
    put("A2", "Median");
    put("D2", 1.5);
    range("B1:C1")->LetHorizontalAlignment(AlignCentreAcrossSelection);
    EXPECT_EQ(text(2, 4, false, 14), "Group   Value\nMedian\n\nGroup\nMedian  1.5\n");
}

TEST_F(TextReport, LongLabelsLeaveRoomForTheirNumbers) {
    put("A1", Text(std::string(60, 'x')));
    put("B1", 1.5);
    put("C1", 2.5);
    EXPECT_EQ(text(1, 3, false, 20), "xxxx…xxxx  1.5  2.5\n");
    EXPECT_EQ(text(1, 3, false, 70), std::string(60, 'x') + "  1.5  2.5\n");
    EXPECT_EQ(text(1, 3, false, 66), std::string(60, 'x') + "  1.5\n\n" + std::string(60, 'x') + "  2.5\n");
}

TEST_F(TextReport, NumbersAreNeverShortened) {
    put("A1", 123456789.0);
    put("B1", 1.5);
    EXPECT_EQ(text(1, 2, false, 4), "123456789\n\n1.5\n");
}

// As wide as a sheet: a part of the table that walked all columns would take half an hour.
TEST_F(TextReport, AsManyColumnsAsASheetHasFollowBelow) {
    constexpr Index columns = 16384;
    put("A1", "Group");
    put("A2", "Size");
    range("B1")->LetValue("Sizes of the groups");
    range("B1:XFD1")->LetHorizontalAlignment(AlignCentreAcrossSelection);
    range("A1:XFD1")->LetBorder(BorderEdge::Bottom, BorderLine::Thin);
    ValueGrid sizes(1, columns - 1);
    for (Index column = 1; column < columns; ++column) {
        sizes(1, column) = 10000.0 + static_cast<double>(column);
    }
    range("B2:XFD2")->LetValue(sizes);

    std::string expected;
    for (Index first = 1; first < columns; first += 3) {
        const bool last = first == columns - 1;
        expected += first == 1 ? "" : "\n";
        expected += last ? "Group  Sizes\n" : "Group  Sizes of the groups\n";
        for (int dash = 0; dash < (last ? 12 : 26); ++dash) {
            expected += "─";
        }
        expected += "\nSize ";
        for (Index column = first; column < std::min(first + 3, columns); ++column) {
            expected += "  " + std::to_string(10000 + column);
        }
        expected += "\n";
    }
    EXPECT_EQ(text(2, columns, false, 27), expected);
}

TEST_F(TextReport, ALineByItselfIsFolded) {
    put("A1", "Kruskal-Wallis Test Results for:");
    put("A2", 1.0);
    put("B2", 2.0);
    EXPECT_EQ(text(2, 2, false, 20), "Kruskal-Wallis Test\nResults for:\n1  2\n");
}

TEST_F(TextReport, LongTextsAreShortened) {
    put("A1", Text(std::string(10'000, 'x')));
    put("B1", 1.0);
    const std::string half(39, 'x');
    EXPECT_EQ(text(1, 2), half + "x…" + half + "  1\n");
}

TEST_F(TextReport, AnEmptyBlockWritesNothing) {
    EXPECT_EQ(text(3, 3), "");
}

TEST_F(CsvReport, HoldsEveryCellAndQuotesWhereNeeded) {
    put("A1", "Plain");
    put("B1", "a,b");
    put("A2", "say \"x\"");
    put("B2", "two\nlines");
    put("C2", 0.1);
    EXPECT_EQ(csv(3, 3),
              "Plain,\"a,b\",\r\n"
              "\"say \"\"x\"\"\",\"two\nlines\",0.1\r\n"
              ",,\r\n");
}

TEST_F(CsvReport, TextsThatReadAsFormulasAreMarkedWhenAskedFor) {
    put("A1", Text("=1+1"));
    put("B1", Text("+a,b"));
    put("C1", Text("-"));
    put("A2", -1.5);
    put("B2", Text("@x"));
    put("C2", Text("a=b"));
    const std::string text = writtenBy([&](Output& output) { writeCsv(block(2, 3), output, {true, false}); });
    EXPECT_EQ(text, "'=1+1,\"'+a,b\",-\r\n-1.5,'@x,a=b\r\n");
}

TEST_F(CsvReport, WhatActsOnATerminalIsShownWhenAskedFor) {
    put("A1", Text("a\033b\u202E"));
    const std::string text = writtenBy([&](Output& output) { writeCsv(block(1, 1), output, {false, true}); });
    EXPECT_EQ(text, "a\\x1Bb\\u202E\r\n");
}

TEST(Numbers, AreTheShortestThatReadBackAsTheSame) {
    EXPECT_EQ(shortest(9), "9");
    EXPECT_EQ(shortest(0.1), "0.1");
    EXPECT_EQ(shortest(0.1 + 0.2), "0.30000000000000004");
    EXPECT_EQ(shortest(5e-324), "5e-324");
    EXPECT_EQ(shortest(1e300), "1e+300");
    EXPECT_EQ(shortest(-0.0), "-0");
}

}  // namespace

}  // namespace TBVNonPara::rendering
