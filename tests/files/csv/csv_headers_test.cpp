#include "tests/files/csv/csv_case.hpp"
#include "tests/workbook/refused.hpp"

namespace TBVNonPara::workbook {
namespace {

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

}  // namespace
}  // namespace TBVNonPara::workbook
