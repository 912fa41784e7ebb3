// The files of made/ were written by four programs from the same cells: generators/make_files.py.

#include <gtest/gtest.h>

#include "tbvnonpara/files/reading/spreadsheet_file.hpp"
#include "tests/files/workbooks.hpp"

namespace TBVNonPara::workbook {
namespace {

constexpr double dayIn1900 = 43891;  // 2020-03-01
constexpr double dayIn1904 = 42429;

/// Column by column, as the script has them.
std::vector<std::vector<CellValue>> columns(double day) {
    const Empty none;
    const double turnOfTheYear = day - 7366;  // 1999-12-31
    return {
        {"number", 1.0, -2.5, 0.1, 1e300, 2.5e-308, 123456789012.0, 0.0, 0.333333333333333},
        {"text", "plain", " lead", "trail ", "two\nlines", "a  b", "<&>\"'",
         "\xCE\xA9\xCE\xBC\xCE\xAD\xCE\xB3\xCE\xB1 \xF0\x9F\x98\x80", "=no formula"},
        {"truth", true, false, none, none, none, none, none, true},
        {"error", CellError::NotAvailable, CellError::DivisionByZero, none, none, none, none, none,
         CellError::Number},
        {"date", day, day + 0.5, none, none, none, none, none, turnOfTheYear},
        {"time", 0.25, none, none, none, none, none, none, 0.78125},
        {"percent", 0.12, 0.5, none, none, none, none, none, 2.0},
        {"formula", 3.0, "ab", none, true, none, none, none, 0.25},
        {"same", "x", "x", "x", "x", 7.0, 7.0, 7.0, 7.0},
        {"rich text here"},
    };
}

std::string expectedCells(double day) {
    CellStore cells;
    Index column = 0;
    for (const std::vector<CellValue>& values : columns(day)) {
        column += 1;
        Index row = 0;
        for (const CellValue& value : values) {
            row += 1;
            cells.set(row, column, value);
        }
    }
    return shownCells(cells);
}

class Writers : public testing::TestWithParam<const char*> {};

void expectTheCells(const std::string& file, double day) {
    const FileContents contents = readSpreadsheet(madeFile(file));
    ASSERT_EQ(contents.sheets.size(), 3U);
    EXPECT_EQ(contents.sheets[0].name,
              "It's <2020> & Gr\xC3\xB6\xC3\x9F"
              "e");
    EXPECT_EQ(shownCells(contents.sheets[0].cells), expectedCells(day));
    EXPECT_EQ(contents.sheets[1].name, "Second");
    EXPECT_EQ(shownCells(contents.sheets[1].cells), "A1=\"second\"");
    EXPECT_EQ(contents.sheets[2].name, "Hidden");
    EXPECT_EQ(shownCells(contents.sheets[2].cells), "B3=42");
    EXPECT_EQ(contents.active, 0U);
    EXPECT_FALSE(contents.sheets[0].hidden);
    // Gnumeric does not say in an .xlsx file that a sheet is hidden.
    EXPECT_EQ(contents.sheets[2].hidden, !file.starts_with("gnumeric") || file.ends_with(".ods"));
}

TEST_P(Writers, GiveTheSameCells) {
    const std::string name = GetParam();
    const std::size_t ending = name.find('.');
    expectTheCells(name, dayIn1900);
    expectTheCells(name.substr(0, ending) + "_1904" + name.substr(ending), dayIn1904);
}

INSTANTIATE_TEST_SUITE_P(All, Writers, writersFiles, testNameOf);

TEST(OpenpyxlFormulas, HaveNoResults) {
    const FileContents contents = readSpreadsheet(madeFile("formulas_without_results.xlsx"));
    EXPECT_EQ(shownCells(contents.sheets.front().cells),
              "A1=\"before\" B1=\"after\" A2=1 B2=4 A3=2 B3=uncalculated A4=3 B4=6 B5=uncalculated");
}

TEST(ChartSheets, HaveNoCellsAndAreLeftOut) {
    const FileContents contents = readSpreadsheet(madeFile("chart_sheet.xlsx"));
    ASSERT_EQ(contents.sheets.size(), 1U);
    EXPECT_EQ(contents.sheets.front().name, "Numbers");
    EXPECT_EQ(contents.active, 0U);
}

}  // namespace
}  // namespace TBVNonPara::workbook
