#include "tests/files/csv/csv_case.hpp"
#include "tests/workbook/refused.hpp"

namespace TBVNonPara::workbook {
namespace {

using namespace std::string_view_literals;

class BrokenCsv : public testing::TestWithParam<CsvCase> {};

TEST_P(BrokenCsv, IsRefusedWithTheLine) {
    expectRefused([] { (void)readCsv(GetParam().text, {}, "data.csv"); }, GetParam().expected);
}

// clang-format off
const CsvCase broken[] = {
    {"OpenQuote",           "1,2\n3,\"a\nb\nc",   "data.csv, line 2, byte 3: the quote that opens here is never closed"},
    {"OpenDoubledQuote",    "\"a\"\"",            "data.csv, line 1, byte 1: the quote"},
    {"QuoteBehindALineThatNames", "sep=;\n\"a",      "data.csv, line 2, byte 1: the quote"},
    {"StrayByte",           "a\nb\xFF",           "data.csv, line 2, byte 2: not valid UTF-8"},
    {"Latin1",              "x\r\ngr\xF6\xDF" "e","data.csv, line 2, byte 3: not valid UTF-8"},
    {"CutCharacter",        "a\xE2\x82",          "line 1, byte 2: not valid UTF-8"},
    {"OverlongSlash",       "\xC0\xAF",           "line 1, byte 1: not valid UTF-8"},
    {"OverlongThreeBytes",  "\xE0\x80\xAF",       "line 1, byte 1: not valid UTF-8"},
    {"Surrogate",           "\xED\xA0\x80",       "line 1, byte 1: not valid UTF-8"},
    {"BeyondUnicode",       "\xF4\x90\x80\x80",   "line 1, byte 1: not valid UTF-8"},
    {"NulByte",             "a\rb\0c"sv,          "data.csv, line 2, byte 2: a NUL byte; this is no text file"},
    {"HalfAUnitOfUtf16",    "\xFF\xFE" "a\0b"sv,  "data.csv, byte 5 of the file: half a character of UTF-16"},
    {"HighSurrogateAlone",  "\xFE\xFF\xD8\x3D\0a"sv, "data.csv, byte 3 of the file: half a character of UTF-16"},
    {"LowSurrogateAlone",   "\xFE\xFF\xDE\0"sv,   "byte 3 of the file: half a character of UTF-16"},
    {"Utf32LittleEndian",   "\xFF\xFE\0\0a\0\0\0"sv, "data.csv is UTF-32 text; save it as UTF-8"},
    {"Utf32BigEndian",      "\0\0\xFE\xFF\0\0\0a"sv, "data.csv is UTF-32 text; save it as UTF-8"},
};
// clang-format on
INSTANTIATE_TEST_SUITE_P(Text, BrokenCsv, testing::ValuesIn(broken), nameOf);

TEST(CsvLimits, ValuesBeyondTheLastRowAreRefusedWithTheirLine) {
    std::string text;
    for (Index row = 1; row <= sheetRows; ++row) {
        text += "1\n";
    }
    const CellStore full = readCsv(text + "\n\n").cells;
    EXPECT_EQ(full.lastUsedRow(1, 1), sheetRows);
    expectRefused([&] { (void)readCsv(text + "\n2\n"); },
                  "the data, line 1048578: more rows than the 1048576 of a sheet");
}

TEST(CsvLimits, ValuesBeyondTheLastColumnAreRefusedWithTheirLine) {
    const std::string row(static_cast<std::size_t>(sheetColumns - 1), ',');
    EXPECT_EQ(readCsv("\"two\nlines\"\n" + row + "7,,,\n").cells.at(3, sheetColumns), CellValue());
    EXPECT_EQ(readCsv("\"two\nlines\"\n" + row + "7,,,\n").cells.at(2, sheetColumns), CellValue(7.0));
    expectRefused([&] { (void)readCsv("\"two\nlines\"\n" + row + "7,8\n"); },
                  "line 3: more columns than the 16384 of a sheet");
}

}  // namespace
}  // namespace TBVNonPara::workbook
