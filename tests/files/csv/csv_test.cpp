#include <bit>
#include <cstdlib>
#include <random>

#include "tests/files/csv/csv_case.hpp"

namespace TBVNonPara::workbook {
namespace {

using namespace std::string_view_literals;

class Csv : public testing::TestWithParam<CsvCase> {};

TEST_P(Csv, IsReadAsItIsMeant) {
    EXPECT_EQ(shown(readCsv(GetParam().text).cells), GetParam().expected);
}

// clang-format off
const CsvCase cases[] = {
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
    {"BlanksBetweenQuotedLabels",   "\"a b\" \"c\"\n1 2\n3 4\n",      "ta b|tc/1|2/3|4"},
    {"BlanksBehindQuotedRowNames",  "\"x\"\n\"r 1\" 1.5\n\"r 2\" 2\n", "|tx/tr 1|1.5/tr 2|2"},
    {"BlanksBesideCommasInQuotes",  "\"a\" \"b\"\n\"x, y\" \"u, v\"\n", "ta|tb/tx, y|tu, v"},
    {"BlanksInTheTextsOfOneColumn", "\"a b\"\nvery good\nquite bad\n", "ta b/tvery good/tquite bad"},
    {"BlanksInQuotesAreTexts",      "\"a b\"\n\"c d\"\n\"e f\"\n",   "ta b/tc d/te f"},
    {"BlanksInSomeLinesOnly",       "\"a\" \"b\"\n1 2\n3\n",         "ta \"b\"/t1 2/3"},
    {"BlanksBehindCommas",          "\"a\", \"b\"\n1, 2\n3, 4\n",    "ta|t \"b\"/1|2/3|4"},
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

// The C library rounds every number exactly, on a way of its own.
TEST(CsvNumbers, AreWhatTheCLibraryReads) {
    std::mt19937_64 random(11);
    std::vector<std::string> numbers = {"0",
                                        "-0",
                                        "007",
                                        "-0.0",
                                        "9007199254740992",
                                        "9007199254740993",
                                        "0.3",
                                        "1.0",
                                        "4503599627370497.5",
                                        "9999999999999999999",
                                        "12345678901234567890",
                                        "0.0000000000000000001",
                                        "-0.1234567890123456789",
                                        "900719925474099.3"};
    for (int i = 0; i < 50'000; ++i) {
        const std::string figures = std::to_string(random() >> (random() % 60));
        const std::size_t point = random() % (figures.size() + 1);
        std::string number = (random() % 2 == 0 ? "-" : "") + (point == 0 ? "0" : figures.substr(0, point));
        number += point == figures.size() ? "" : "." + figures.substr(point);
        numbers.push_back(number);
    }
    std::string text;
    for (const std::string& number : numbers) {
        text += number + '\n';
    }
    const CellStore cells = readCsv(text).cells;
    for (std::size_t i = 0; i < numbers.size(); ++i) {
        const CellValue read = cells.at(static_cast<Index>(i) + 1, 1);
        ASSERT_TRUE(std::holds_alternative<double>(read)) << numbers[i];
        const double expected = std::strtod(numbers[i].c_str(), nullptr);
        ASSERT_EQ(std::bit_cast<std::uint64_t>(std::get<double>(read)),
                  std::bit_cast<std::uint64_t>(expected))
            << numbers[i];
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
