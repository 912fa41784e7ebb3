#include <gtest/gtest.h>

#include "tbvnonpara/files/csv/reader.hpp"
#include "tests/workbook/refused.hpp"

namespace TBVNonPara::workbook {
namespace {

using namespace std::string_view_literals;

/// The cells as text, columns divided by bars and rows by slashes; the kind stands before all but numbers:
/// t for text, b for Boolean, e for error.
std::string shown(const CellStore& cells) {
    const auto used = cells.usedArea();
    std::string text;
    for (Index row = 1; used && row <= used->bottom; ++row) {
        text += row == 1 ? "" : "/";
        for (Index column = 1; column <= used->right; ++column) {
            const CellValue& value = cells.at(row, column);
            text += column == 1 ? "" : "|";
            text += std::holds_alternative<Text>(value)        ? "t"
                    : std::holds_alternative<bool>(value)      ? "b"
                    : std::holds_alternative<CellError>(value) ? "e"
                                                               : "";
            text += toText(value);
        }
    }
    return text;
}

struct Case {
    const char* name;
    std::string_view text;
    const char* expected;
};

std::string nameOf(const testing::TestParamInfo<Case>& info) {
    return info.param.name;
}

class Csv : public testing::TestWithParam<Case> {};

TEST_P(Csv, IsReadAsItIsMeant) {
    EXPECT_EQ(shown(readCsv(GetParam().text).cells), GetParam().expected);
}

// clang-format off
const Case cases[] = {
    {"Nothing",                     "",                              ""},
    {"TwoColumns",                  "a,b\n1,2.5\n-3,4e2\n",          "ta|tb/1|2.5/-3|400"},
    {"NoLineEndAtTheEnd",           "1,2\n3,4",                      "1|2/3|4"},
    {"CarriageReturnAndLineFeed",   "1,2\r\n3,4\r\n",                "1|2/3|4"},
    {"CarriageReturnsAlone",        "1,2\r3,4\r",                    "1|2/3|4"},
    {"MixedLineEnds",               "1\n2\r\n3\r4",                  "1/2/3/4"},
    {"ByteOrderMark",               "\xEF\xBB\xBF" "a,b\n1,2",       "ta|tb/1|2"},
    {"ByteOrderMarkAlone",          "\xEF\xBB\xBF",                  ""},
    {"BlankLinesAreRows",           "1\n\n2\n\n\n3\n",               "1//2///3"},
    {"EmptyFields",                 "1,,3\n,,\n,2,\n",               "1||3/||/|2|"},
    {"ShortRows",                   "1,2,3\n4\n",                    "1|2|3/4||"},
    {"QuotedDelimiter",             "\"a,b\",c\n",                   "ta,b|tc"},
    {"DoubledQuotes",               "\"say \"\"hi\"\"\",1\n",        "tsay \"hi\"|1"},
    {"OnlyDoubledQuotes",           "\"\"\"\"\n",                    "t\""},
    {"LineFeedInQuotes",            "\"a\nb\",1\n2,3",               "ta\nb|1/2|3"},
    {"CarriageReturnInQuotesStays", "\"a\r\nb\",1",                  "ta\r\nb|1"},
    {"EmptyQuotesAreEmpty",         "\"\",1",                        "|1"},
    {"TextBehindAClosingQuote",     "\"a\"b,1",                      "tab|1"},
    {"QuoteInsideAField",           "5\" pipe,1",                    "t5\" pipe|1"},
    {"QuotedNumbersAreNumbers",     "\"1.5\",\"-2\"",                "1.5|-2"},
    {"QuotedLeadingZerosAreText",   "\"007\",007,\"0.5\",\"0\"",     "t007|7|0.5|0"},
    {"QuotedBooleansAreText",       "\"TRUE\",TRUE,false,True",      "tTRUE|bTrue|bFalse|bTrue"},
    {"Errors",                      "#N/A,#DIV/0!,\"#N/A\",#other",  "e#N/A|e#DIV/0!|t#N/A|t#other"},
    {"BlanksAroundNumbers",         " 1 ,  2  ,+3",                  "1|2|3"},
    {"BlanksAroundTextStay",        " a ,b ",                        "t a |tb "},
    {"WhatOnlyBeginsLikeANumber",   "1a,1 2,--1,1e,.,+,-,1.2.3",     "t1a|t1 2|t--1|t1e|t.|t+|t-|t1.2.3"},
    {"NoInfinityNoHexadecimal",     "inf,nan,0x10,1e999,-inf",       "tinf|tnan|t0x10|t1e999|t-inf"},
    {"NA",                          "NA,n/a,-",                      "tNA|tn/a|t-"},
    {"Dates",                       "2019-01-02,1/2/2003",           "t2019-01-02|t1/2/2003"},
    {"Semicolons",                  "a;b\n1;2\n",                    "ta|tb/1|2"},
    {"Tabs",                        "a\tb\n1\t2\n",                  "ta|tb/1|2"},
    {"Bars",                        "a|b\n1|2\n",                    "ta|tb/1|2"},
    {"DecimalCommas",               "a;b\n1,5;2\n-0,25;1e3\n",       "ta|tb/1.5|2/-0.25|1000"},
    {"DecimalCommasWithoutHeading", "1,5;2,5\n3,5;4,5\n",            "1.5|2.5/3.5|4.5"},
    {"DecimalCommasAndTabs",        "1,5\t2,5\n",                    "1.5|2.5"},
    {"OneColumnOfDecimalCommas",    "Value\n1,5\n2,5\n3\n",          "tValue/1.5/2.5/3"},
    {"QuotedDecimalCommas",         "\"1,5\";\"2,5\"\n",             "1.5|2.5"},
    {"PointAfterDecimalCommas",     "1,5;2.5\n",                     "1.5|t2.5"},
    {"CommaAfterDecimalPoints",     "2.5;1,5\n",                     "2.5|t1,5"},
    {"BothMarksInOneNumber",        "1.234,5;1\n",                   "t1.234,5|1"},
    {"CommaInTheTextOfOneColumn",   "a;b\nx, y;1\nz;2\n",            "ta|tb/tx, y|1/tz|2"},
    {"SemicolonInTheTextOfOneColumn", "a,b\nx; y,1\nz,2\n",          "ta|tb/tx; y|1/tz|2"},
    {"DelimitersInQuotesDoNotCount", "\"a;b;c\",d\n\"e;f;g\",h\n",   "ta;b;c|td/te;f;g|th"},
    {"TitleLineFirst",              "My data\na,b\n1,2\n3,4\n",      "tMy data|/ta|tb/1|2/3|4"},
    {"OneColumn",                   "1\n2\n3\n",                     "1/2/3"},
    {"SemicolonsInHalfOfTheTexts",  "cat\ngood\nbad; late\ngood\nbad; early\ngood\n", "tcat/tgood/tbad; late/tgood/tbad; early/tgood"},
    {"CommaInOneTextOfOneColumn",   "cat\na\nb\nx, y\n",            "tcat/ta/tb/tx, y"},
    {"BarsInJustHalfOfTheLines",    "cat\na|b\nc\nd|e\nf\n",        "tcat/ta|b/tc/td|e/tf"},
    {"BarsInMoreThanHalfOfTheLines", "title\na|b\nc|d\ne\n",        "ttitle|/ta|tb/tc|td/te|"},
    {"LineThatNamesTheDelimiter",   "sep=;\na;b,c\n1;2\n",           "ta|tb,c/1|2"},
    {"LineThatNamesATab",           "SEP=\t\r\na;b\tc\r\n1\t2",       "ta;b|tc/1|2"},
    {"LineThatNamesBehindAMark",    "\xEF\xBB\xBF" "sep=|\ra|b,c,d",  "ta|tb,c,d"},
    {"LineThatNamesTheDelimiterAlone", "sep=,",                     ""},
    {"LineThatNamesTwoCharacters",  "sep=;;\n1;2",                   "tsep=|/1|2"},
    {"Utf16LittleEndian",           "\xFF\xFE" "a\0,\0\xE4\0\n\0" "1\0,\0" "2\0"sv, "ta|tä/1|2"},
    {"Utf16BigEndian",              "\xFE\xFF\0a\0;\x20\xAC\xD8\x3D\xDE\x00"sv, "ta|t€😀"},
    {"Umlauts",                     "größe,naïve\n1,2",              "tgröße|tnaïve/1|2"},
};
// clang-format on
INSTANTIATE_TEST_SUITE_P(Text, Csv, testing::ValuesIn(cases), nameOf);

TEST(CsvNumbers, AreRoundedExactly) {
    const CellStore cells =
        readCsv(
            "0.1\n5e-324\n1.7976931348623157e308\n0.500000000000000166533453693773481063544750213623046875\n"
            "9007199254740993\n")
            .cells;
    EXPECT_EQ(cells.at(1, 1), CellValue(0.1));
    EXPECT_EQ(cells.at(2, 1), CellValue(0x1p-1074));
    EXPECT_EQ(cells.at(3, 1), CellValue(0x1.fffffffffffffp1023));
    EXPECT_EQ(cells.at(4, 1), CellValue(0x1.0000000000002p-1));  // a half way, to the even neighbour
    EXPECT_EQ(cells.at(5, 1), CellValue(0x1p53));
}

TEST(CsvOptions, SettleWhatIsNotToBeFoundOut) {
    EXPECT_EQ(shown(readCsv("1,5;2", {.delimiter = ','}).cells), "1|t5;2");
    EXPECT_EQ(shown(readCsv("1 2\n3 4", {.delimiter = ' '}).cells), "1|2/3|4");
    EXPECT_EQ(shown(readCsv("1;2.5\n3;4,5", {.decimalMark = ','}).cells), "1|t2.5/3|4.5");
    EXPECT_EQ(shown(readCsv("1,5\n2,5", {.decimalMark = ','}).cells), "1.5/2.5");
    EXPECT_EQ(shown(readCsv("1,5\t2.5", {.decimalMark = '.'}).cells), "t1,5|2.5");
    EXPECT_EQ(shown(readCsv("a\tb;c", {.delimiter = ';'}).cells), "ta\tb|tc");
    EXPECT_EQ(shown(readCsv("sep=;\na;b,c", {.delimiter = ','}).cells), "ta;b|tc");
}

TEST(CsvOptions, NameAnOlderEncoding) {
    EXPECT_EQ(shown(readCsv("\xE4\x80,\xDF", {.encoding = Encoding::Latin1}).cells), "tä\xC2\x80|tß");
    EXPECT_EQ(shown(readCsv("\x80\x84,\xE4", {.encoding = Encoding::Windows1252}).cells), "t€„|tä");
    // A mark at the beginning says more than the option.
    EXPECT_EQ(shown(readCsv("\xEF\xBB\xBFä", {.encoding = Encoding::Latin1}).cells), "tä");
    expectRefused([] { (void)readCsv("a\x81", {.encoding = Encoding::Windows1252}, "old.csv"); },
                  "old.csv, byte 2 of the file: windows-1252 has no such character");
    EXPECT_THROW((void)readCsv("\xE4"), NotUtf8);
}

TEST(CsvOptions, LeaveCommentsOut) {
    EXPECT_EQ(shown(readCsv("# a;b;c\n# d;e\nx,y\n#\n1,2 # no\n", {.comment = "#"}).cells),
              "tx|ty/1|t2 # no");
    EXPECT_EQ(shown(readCsv("a\n\"#b\n#c\"\n#d\n", {.comment = "#"}).cells), "ta/t#b\n#c");
    EXPECT_EQ(shown(readCsv("//a\r\n/b", {.comment = "//"}).cells), "t/b");
    EXPECT_EQ(shown(readCsv("#a\n1").cells), "t#a/1");
    expectRefused([] { (void)readCsv("#\n#\n\"", {.comment = "#"}); }, "line 3, byte 1: the quote");
}

TEST(CsvOptions, DivideAtBlanksHoweverManyThereAre) {
    EXPECT_EQ(shown(readCsv("  a  b\t c \n 1 \t2   -3\n\n", {.delimiter = ' '}).cells), "ta|tb|tc/1|2|-3");
    EXPECT_EQ(shown(readCsv("\"a b\" \"c\"\n\"1\" 4 2\n\"2\" 7 9\n", {.delimiter = ' '}).cells),
              "|ta b|tc/1|4|2/2|7|9");
}

struct GroupedNumber {
    const char* text;
    char thousands;
    const char* expected;
};

TEST(CsvOptions, JoinGroupsOfThousands) {
    // clang-format off
    const GroupedNumber numbers[] = {
        {"1,234.5",       ',',  "1234.5"},
        {"-12,345,678",   ',',  "-12345678"},
        {"1.234,5",       '.',  "1234.5"},
        {"1'234.5",       '\'', "1234.5"},
        {"1’234",         '\'', "1234"},
        {"1 234,5",       ' ',  "1234.5"},
        {"1\xC2\xA0" "234\xE2\x80\xAF" "567", ' ', "1234567"},
        {"1234.5",        ',',  "1234.5"},
        {"1,234e2",       ',',  "123400"},
        {"1,23",          ',',  "t1,23"},
        {"1234,567",      ',',  "t1234,567"},
        {"1,2345",        ',',  "t1,2345"},
        {",123",          ',',  "t,123"},
        {"1,,234",        ',',  "t1,,234"},
        {"1.5.000",       '.',  "t1.5.000"},
        {"a,123",         ',',  "ta,123"},
    };
    // clang-format on
    for (const GroupedNumber& number : numbers) {
        EXPECT_EQ(shown(readCsv(number.text, {.delimiter = '|', .thousands = number.thousands}).cells),
                  number.expected)
            << number.text;
    }
    EXPECT_EQ(shown(readCsv("a,b\n\"1,234.5\",2\n", {.thousands = ','}).cells), "ta|tb/1234.5|2");
    EXPECT_EQ(shown(readCsv("1,234\n").cells), "1|234");
}

TEST(CsvOptions, ThatContradictThemselvesAreRefused) {
    expectRefused([] { (void)readCsv("1", {.decimalMark = '.', .thousands = '.'}); }, "The same character");
    expectRefused([] { (void)readCsv("1", {.thousands = '_'}); }, "Thousands are divided by");
    expectRefused([] { (void)readCsv("1", {.delimiter = ',', .decimalMark = ','}); }, "The same character");
    expectRefused([] { (void)readCsv("1", {.decimalMark = ';'}); }, "must be a point or a comma");
    expectRefused([] { (void)readCsv("sep=,\n1", {.decimalMark = ','}); }, "The same character");
    for (const char delimiter : {'"', '\n', '\r', '\0', '\xC3'}) {
        expectRefused([=] { (void)readCsv("1", {.delimiter = delimiter}); }, "cannot stand between fields");
    }
}

TEST(CsvData, TellsHowItWasRead) {
    const CsvData data = readCsv("a;b\n1,5;2\n");
    EXPECT_EQ(data.delimiter, ';');
    EXPECT_EQ(data.decimalMark, ',');
    EXPECT_EQ(readCsv("1,2\n").delimiter, ',');
    EXPECT_EQ(readCsv("sep=|\n1").delimiter, '|');
    EXPECT_EQ(readCsv("1\n").delimiter, std::nullopt);
    EXPECT_EQ(readCsv("1\n").decimalMark, '.');
}

TEST(CsvData, IsAlikeHoweverItsLinesEndAndItsFieldsAreQuoted) {
    const std::string plain = shown(readCsv("g,v\nx,1.5\ny,-2\n").cells);
    EXPECT_EQ(shown(readCsv("\"g\",\"v\"\r\n\"x\",\"1.5\"\r\n\"y\",\"-2\"").cells), plain);
    EXPECT_EQ(shown(readCsv("g\tv\rx\t1.5\ry\t-2").cells), plain);
    EXPECT_EQ(shown(readCsv("g;v\nx;1,5\ny;-2\n").cells), plain);
}

class BrokenCsv : public testing::TestWithParam<Case> {};

TEST_P(BrokenCsv, IsRefusedWithTheLine) {
    expectRefused([] { (void)readCsv(GetParam().text, {}, "data.csv"); }, GetParam().expected);
}

// clang-format off
const Case broken[] = {
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

struct HeaderCase {
    const char* name;
    std::string_view text;
    bool moved;
    const char* expected;
};

class CsvHeaders : public testing::TestWithParam<HeaderCase> {};

TEST_P(CsvHeaders, StandAboveTheirColumns) {
    const CsvData data = readCsv(GetParam().text);
    EXPECT_EQ(data.headerMoved, GetParam().moved);
    EXPECT_EQ(shown(data.cells), GetParam().expected);
}

// clang-format off
const HeaderCase headers[] = {
    {"OneShorterThanAllRows",       "\"a\"\t\"b\"\n\"1\"\t4\t2\n\"2\"\t7\t9\n", true,  "|ta|tb/1|4|2/2|7|9"},
    {"OneShorterAboveNames",        "a,b\nx,4,2\ny,7,9\n",         true,  "|ta|tb/tx|4|2/ty|7|9"},
    {"OneShorterBehindABlankLine",  "\na,b\nx,4,2\n\ny,7,9\n",     true,  "||/|ta|tb/tx|4|2/||/ty|7|9"},
    {"OneAboveCountedRows",         "\"a\"\n\"1\",4\n\"2\",7\n",       true,  "|ta/1|4/2|7"},
    {"OneAboveNamedRows",           "a\nx,4\ny,7\n",               true,  "|ta/tx|4/ty|7"},
    {"OneAboveTwoColumnsIsATitle",  "a\n3;4\n5;7\n",               false, "ta|/3|4/5|7"},
    {"ATitleAboveAHeader",          "My data\na,b\n1,2\n",         false, "tMy data|/ta|tb/1|2"},
    {"ATitleWithACommaAboveAHeader", "My data, new\na,b,c\n1,2,3\n", false, "tMy data|t new|/ta|tb|tc/1|2|3"},
    {"NumbersAreNoHeader",          "1,2\n3,4,5\n",                 false, "1|2|/3|4|5"},
    {"RowsOfUnequalLength",         "a,b\n1,2,3\n4,5\n",           false, "ta|tb|/1|2|3/4|5|"},
    {"DelimitersAtTheEndsOfLines",  "a,b\n1,2,\n3,4,\n",           false, "ta|tb/1|2/3|4"},
    {"OfTheSameLength",             "a,b\n1,2\n",                   false, "ta|tb/1|2"},
    {"Alone",                       "a,b\n",                        false, "ta|tb"},
    {"WithACommaAboveOneColumn",    "Weight, in kg\n1\n2\n",       false, "tWeight|t in kg/1|/2|"},
};
// clang-format on
INSTANTIATE_TEST_SUITE_P(Text, CsvHeaders, testing::ValuesIn(headers),
                         [](const auto& test) { return std::string(test.param.name); });

TEST(CsvHeaderRefused, OfAnyOtherLengthBecauseNoOneKnowsWhichLabelBelongsWhere) {
    expectRefused([] { (void)readCsv("a,b\n1,2,3,4\n5,6,7,8\n", {}, "data.csv"); },
                  "data.csv: the header row has 2 fields, and the rows below have 4; give every column a "
                  "header, or take the header row away.");
    expectRefused([] { (void)readCsv("a,b,c\n1,2\n5,6\n"); }, "has 3 fields, and the rows below have 2");
}

TEST(CsvTexts, ThatAreEqualAreShared) {
    std::string text;
    for (int i = 0; i < 6000; ++i) {
        text += "label " + std::to_string(i % 5000) + "\n";
    }
    const CellStore cells = readCsv(text).cells;
    EXPECT_EQ(&std::get<Text>(cells.at(1, 1)).string(), &std::get<Text>(cells.at(5001, 1)).string());
    EXPECT_EQ(cells.at(4999, 1), CellValue("label 4998"));
}

}  // namespace
}  // namespace TBVNonPara::workbook
