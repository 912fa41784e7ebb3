#include "tests/files/csv/csv_case.hpp"
#include "tests/workbook/refused.hpp"

namespace TBVNonPara::workbook {
namespace {

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

}  // namespace
}  // namespace TBVNonPara::workbook
