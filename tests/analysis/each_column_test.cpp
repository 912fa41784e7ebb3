#include "tbvnonpara/analysis/each_column.hpp"

#include <gtest/gtest.h>

#include "tbvnonpara/analysis/test_data.hpp"
#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/workbook/book.hpp"
#include "tests/analysis/data_sheet.hpp"
#include "tests/support/raised.hpp"

namespace TBVNonPara::analysis {

namespace {

using Support::raisedBy;

constexpr const char* threeColumns =
    "first,group,second,third\n1,x,4,k\n5,y,NA,k\n3,x,9,k\n4,y,8,k\n2,x,1,k\n";

Choices choicesByGroup(const std::string& test) {
    Choices choices = choicesFor(test);
    choices.by = "group";
    choices.each = true;
    return choices;
}

std::vector<ColumnTest> tested(const std::string& csv, const Choices& choices) {
    const auto application = workbookOf(csv);
    return testEach(*application, choices, chooseEach(*application, choices));
}

double numberOf(const ColumnTest& test, std::string_view name) {
    for (const NamedResult& result : test.results) {
        if (result.name == name) {
            return std::get<double>(result.value);
        }
    }
    raise(RuntimeError::SubscriptOutOfRange);
}

TEST(EachColumn, WithNumbersIsTestedAndNamed) {
    const std::vector<ColumnTest> tests = tested(threeColumns, choicesByGroup("mann-whitney"));
    ASSERT_EQ(tests.size(), 2U);
    EXPECT_EQ(tests[0].column, "first");
    EXPECT_EQ(tests[0].address, "Data!$A$1:$A$6");
    // x: 1, 3, 2; y: 5, 4. Every y lies above every x.
    EXPECT_EQ(numberOf(tests[0], "u"), 6);
    EXPECT_DOUBLE_EQ(numberOf(tests[0], "p"), 2.0 / 10);
    EXPECT_EQ(tests[1].column, "second");
    EXPECT_EQ(tests[1].error->number(), tbvNPTextInData);
}

TEST(EachColumn, MayLoseWhatIsMissing) {
    Choices choices = choicesByGroup("mann-whitney");
    choices.omitMissing = true;
    const std::vector<ColumnTest> tests = tested(threeColumns, choices);
    EXPECT_FALSE(tests[1].error);
    EXPECT_EQ(tests[1].account.missing, 1U);
    // x: 4, 9, 1; y: 8.
    EXPECT_EQ(numberOf(tests[1], "u"), 2);
}

TEST(EachColumn, IsTestedAsIfItWereAlone) {
    Choices choices = choicesByGroup("kruskal-wallis");
    choices.y = "first";
    const auto application = workbookOf(threeColumns);
    choices.each = false;
    choices.omitMissing = true;
    const TestData data(application, choices, chooseRanges(*application, choices));
    const auto alone = namedResults(tbvNPKWallis, runTest(application, choices, data.ranges()).engine());
    const std::vector<ColumnTest> tests = tested(threeColumns, choices);
    ASSERT_EQ(tests.size(), 1U);
    EXPECT_EQ(numberOf(tests[0], "chiSquare"), std::get<double>(alone[0].value));
}

TEST(EachColumn, TakesASecondVariableOrACut) {
    Choices spearman = choicesFor("spearman", "a,b", "c");
    spearman.each = true;
    const std::vector<ColumnTest> pairs = tested("a,b,c\n1,3,1\n2,2,2\n3,1,4\n4,0,3\n", spearman);
    EXPECT_DOUBLE_EQ(numberOf(pairs[0], "rs"), 0.8);
    EXPECT_DOUBLE_EQ(numberOf(pairs[1], "rs"), -0.8);
    Choices runs = choicesFor("runs");
    runs.each = true;
    runs.cut = Cut{CutAt::Median};
    const std::vector<ColumnTest> sequences = tested("a,b\n1,1\n4,2\n2,3\n3,4\n", runs);
    EXPECT_EQ(std::get<Long>(sequences[0].results[0].value), Long(4));
    EXPECT_EQ(std::get<Long>(sequences[1].results[0].value), Long(2));
}

TEST(EachColumn, IsReportedInOrderAndLeavesNoSheetBehind) {
    const auto application = workbookOf("first,group,second\n1,x,4\n5,y,2\n3,x,9\n4,y,8\n");
    const Choices choices = choicesByGroup("mann-whitney");
    std::string lines;
    const auto tests = reportEach(*application, choices, chooseEach(*application, choices),
                                  [&](const ColumnTest& test, const FinishedTest& finished) {
                                      lines +=
                                          test.column + ": " + toText(finished.sheet().value(3, 1)) + '\n';
                                  });
    EXPECT_EQ(lines, "first: Set 2 Range = Data!$A$1:$A$5\nsecond: Set 2 Range = Data!$C$1:$C$5\n");
    EXPECT_EQ(application->activeBook()->sheets().size(), 1U);
}

TEST(EachColumn, OfManyIsTestedWhateverTheThread) {
    std::string header = "group";
    std::string first = "x";
    std::string second = "y";
    for (int column = 0; column < 300; ++column) {
        header += ",gene" + std::to_string(column);
        first += ',' + std::to_string(column % 7);
        second += ',' + std::to_string(column % 5);
    }
    const std::string csv = header + '\n' + first + '\n' + second + '\n' + first + '\n';
    const std::vector<ColumnTest> tests = tested(csv, choicesByGroup("mann-whitney"));
    ASSERT_EQ(tests.size(), 300U);
    for (std::size_t column = 0; column < 300; ++column) {
        EXPECT_EQ(tests[column].column, "gene" + std::to_string(column));
        const double difference = static_cast<double>(column % 7) - static_cast<double>(column % 5);
        EXPECT_EQ(numberOf(tests[column], "u"), difference == 0 ? 1 : 2) << column;
    }
}

TEST(EachColumn, OfATestThatTakesAllAtOnceIsRefused) {
    Choices choices = choicesFor("friedman");
    choices.each = true;
    EXPECT_EQ(raisedBy([&] { static_cast<void>(tested("a,b\n1,2\n", choices)); }).number, tbvNPTooFewGroups);
    Choices texts = choicesFor("runs");
    texts.each = true;
    EXPECT_EQ(raisedBy([&] { static_cast<void>(tested("a\nx\n", texts)); }).number, tbvNPNoYRange);
}

TEST(SeveralColumns, BesideGroupsAreTestedEach) {
    const auto application = workbookOf(threeColumns);
    Choices choices = choicesByGroup("mann-whitney");
    choices.each = false;
    choices.y = "first,second";
    EXPECT_TRUE(testsEachColumn(*application, choices));
    choices.y = "first";
    EXPECT_FALSE(testsEachColumn(*application, choices));
    choices.by.clear();
    choices.y = "first,second";
    EXPECT_FALSE(testsEachColumn(*application, choices));
}

}  // namespace

}  // namespace TBVNonPara::analysis
