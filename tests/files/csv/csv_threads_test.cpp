#include <functional>
#include <gtest/gtest.h>
#include <random>
#include <string>

#include "tests/files/csv/csv_case.hpp"
#include "tests/support/raised.hpp"

namespace TBVNonPara::workbook {
namespace {

/// A text long enough for several threads, made line by line.
std::string longText(const std::function<std::string(std::mt19937&, int)>& line,
                     const std::string& end = "\n") {
    std::mt19937 random(2);
    std::string text;
    for (int row = 1; row <= 140'000; ++row) {
        text += line(random, row) + end;
    }
    return text;
}

std::string number(std::mt19937& random, char mark = '.') {
    std::string text = std::to_string(static_cast<int>(random() % 2000001) - 1000000);
    text.insert(text.size() > 3 ? text.size() - 2 : text.size(), text.size() > 3 ? std::string(1, mark) : "");
    return text;
}

struct LongText {
    const char* name;
    std::string text;
    CsvOptions options = {};
    friend void PrintTo(const LongText& each, std::ostream* out) { *out << each.name; }
};

class CsvOnThreads : public testing::TestWithParam<LongText> {};

TEST_P(CsvOnThreads, IsReadAsByOne) {
    CsvOptions options = GetParam().options;
    const CsvData expected = readCsv(GetParam().text, options);
    const auto used = expected.cells.usedArea();
    ASSERT_TRUE(used);
    for (const std::size_t threads : {std::size_t(2), std::size_t(3)}) {
        options.threads = threads;
        const CsvData read = readCsv(GetParam().text, options);
        EXPECT_EQ(read.delimiter, expected.delimiter);
        EXPECT_EQ(read.decimalMark, expected.decimalMark);
        EXPECT_EQ(read.headerMoved, expected.headerMoved);
        ASSERT_EQ(read.cells.usedArea(), used);
        for (Index row = 1; row <= used->bottom; ++row) {
            for (Index column = 1; column <= used->right; ++column) {
                ASSERT_EQ(read.cells.at(row, column), expected.cells.at(row, column)) << row << ' ' << column;
            }
        }
    }
}

const auto twoNumbers = [](std::mt19937& random, int) { return number(random) + "," + number(random); };
const auto mixed = [](std::mt19937& random, int row) {
    const char* const others[] = {"NA", "", "TRUE", "#N/A", "a text", "1e5", " 7 "};
    return (random() % 50 == 0 ? others[random() % 7] : number(random)) + "," +
           (row % 5000 == 0 ? "" : number(random));
};
const auto german = [](std::mt19937& random, int) { return number(random, ',') + ";" + number(random, ','); };

const LongText longTexts[] = {
    {"Numbers", "a,b\n" + longText(twoNumbers)},
    {"NumbersWithoutHeader", longText(twoNumbers)},
    {"EndsOfWindows", "a,b\r\n" + longText(twoNumbers, "\r\n")},
    {"EndsOfOldMacs", "a,b\r" + longText(twoNumbers, "\r")},
    {"NoLastEnd", "a,b\n" + longText(twoNumbers) + "1,2"},
    {"BlankLines",
     "a,b\n" + longText([](auto& random, int row) { return row % 7 == 0 ? "" : twoNumbers(random, row); })},
    {"AllKindsOfCells", "a,b\n" + longText(mixed)},
    {"DecimalCommas", "a;b\n" + longText(german)},
    {"DecimalCommaFarDown", "a;b\n" + longText([](auto& random, int row) {
                                return row < 120'000 ? std::string("12345;67890") : german(random, row);
                            })},
    {"DelimiterLine", "sep=;\na;b\n" + longText(german)},
    {"QuotedFields", "\"a\nb\",c\n" + longText(twoNumbers)},
    {"RowNames", "a,b\n" + longText([](auto& random, int row) {
                     return "r" + std::to_string(row) + "," + twoNumbers(random, row);
                 })},
    {"Comments",
     "# a\n" + longText([](auto& random, int row) { return row % 9 == 0 ? "# x" : twoNumbers(random, row); }),
     {.comment = "#"}},
    {"Blanks",
     "a b\n" +
         longText([](auto& random, int) { return " " + number(random) + "   " + number(random) + " "; }),
     {.delimiter = ' '}},
};
INSTANTIATE_TEST_SUITE_P(Texts, CsvOnThreads, testing::ValuesIn(longTexts),
                         [](const auto& test) { return std::string(test.param.name); });

// The first line that is wrong is named, whichever thread comes upon one first.
TEST(CsvOnThreadsErrors, AreThoseOfOne) {
    const std::string wide(static_cast<std::size_t>(sheetColumns) + 5, ',');
    for (const int row : {3, 60'000, 139'000}) {
        const std::string text = longText([&](auto& random, int each) {
            return each == row || each == 139'900 ? wide + "1" : twoNumbers(random, each);
        });
        CsvOptions options;
        const auto expected = Support::raisedBy([&] { (void)readCsv(text, options); });
        options.threads = 3;
        const auto raised = Support::raisedBy([&] { (void)readCsv(text, options); });
        EXPECT_EQ(raised, expected);
        EXPECT_EQ(raised.description, expected.description);
        EXPECT_NE(raised.description.find("line " + std::to_string(row) + ":"), std::string::npos)
            << raised.description;
    }
}

}  // namespace
}  // namespace TBVNonPara::workbook
