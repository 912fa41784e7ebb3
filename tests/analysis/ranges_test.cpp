#include "tbvnonpara/analysis/ranges.hpp"

#include <chrono>
#include <gtest/gtest.h>

#include "tbvnonpara/analysis/column_address.hpp"
#include "tests/analysis/data_sheet.hpp"
#include "tests/support/raised.hpp"

namespace TBVNonPara::analysis {

namespace {

const std::string pairs = "Before,After\n1,4\n2,5\n3,6\n";
const std::string unequal = "Before,After\n1,4\n2,5\n3,\n";
const std::string groups = "A,B,C\n1,4,7\n2,5,8\n3,,9\n";
const std::string bare = "1,4\n2,5\n";

struct Case {
    const char* name;
    const char* test;
    std::string csv;
    const char* y;
    const char* x;
    const char* chosenY;
    const char* chosenX;
    bool headers;
};

void PrintTo(const Case& c, std::ostream* out) {
    *out << c.name;
}

class ChoosingRanges : public testing::TestWithParam<Case> {};

TEST_P(ChoosingRanges, GivesTheAddressesAndWhetherTheFirstRowIsHeaders) {
    const Case& c = GetParam();
    const ChosenRanges chosen = chooseRanges(*workbookOf(c.csv), choicesFor(c.test, c.y, c.x));
    EXPECT_EQ(chosen.y, c.chosenY);
    EXPECT_EQ(chosen.x, c.chosenX);
    EXPECT_EQ(chosen.headers, c.headers);
}

// clang-format off
const Case cases[] = {
    // name                                    test            csv      --y             --x         y                   x             headers
    {"TwoSamples_EachEndsWithItsOwnData",      "mann-whitney", unequal, "",             "",         "Data!A1:A4",       "Data!B1:B3", true},
    {"Pairs_EndEachByItself_SoThatOneIsSeen",  "wilcoxon",     unequal, "",             "",         "Data!A1:A4",       "Data!B1:B3", true},
    {"Signs_EndTogether_SoThatABlankIsSeen",   "sign",         unequal, "",             "",         "Data!A1:A4",       "Data!B1:B4", true},
    {"Signs_OneColumnOfCodes",                 "sign",         "Sign\n1\n-1\n", "",     "",         "Data!A1:A3",       "",           true},
    {"Signs_OneOfTwoColumns",                  "sign",         pairs,   "B",            "",         "Data!B1:B4",       "",           true},
    {"Groups_AreAllColumns",                   "median",       groups,  "",             "",         "Data!A1:C4",       "",           true},
    {"Blocks_AreAllColumns",                   "friedman",     groups,  "",             "",         "Data!A1:C4",       "",           true},
    {"Runs_TakeTheFirstColumn",                "runs",         pairs,   "",             "",         "Data!A1:A4",       "",           true},
    {"Runs_FirstTextThatRecursIsData",         "runs",         "a\nb\na\n", "",         "",         "Data!A1:A3",       "",           false},
    {"Runs_FirstTextThatDoesNotIsAHeader",     "runs",         "Coin\na\nb\na\n", "",   "",         "Data!A1:A4",       "",           true},
    {"NumbersAreNoHeaders",                    "mann-whitney", bare,    "",             "",         "Data!A1:A2",       "Data!B1:B2", false},
    {"ATextThatReadsAsANumberIsNoHeader",      "mann-whitney", "\"1\",4\n2,5\n", "",    "",         "Data!A1:A2",       "Data!B1:B2", false},
    {"ANumberBesideATextIsNoHeader",           "mann-whitney", "Year,2019\n2,5\n", "",  "",         "Data!A1:A2",       "Data!B1:B2", false},
    {"AMissingLabelIsAHeaderBesideAText",      "mann-whitney", "Year,\n2,5\n", "",      "",         "Data!A1:A2",       "Data!B1:B2", true},
    {"EmptyColumnsAreSkipped",                 "mann-whitney", "a,,b\n1,,4\n", "",      "",         "Data!A1:A2",       "Data!C1:C2", true},
    {"BlankLinesAtTheTopAreSkipped",           "mann-whitney", "\n\na,b\n1,4\n", "",    "",         "Data!A3:A4",       "Data!B3:B4", true},
    {"ByHeader",                               "mann-whitney", pairs,   "After",        "Before",   "Data!B1:B4",       "Data!A1:A4", true},
    {"ByLetters",                              "mann-whitney", pairs,   "b",            "A",        "Data!B1:B4",       "Data!A1:A4", true},
    {"ByAddress",                              "mann-whitney", pairs,   "A2:A4",        "$B$2:$B$4", "Data!A2:A4",      "Data!B2:B4", false},
    {"ByAddressWithHeaders",                   "mann-whitney", pairs,   "Data!A1:A3",   "B1:B4",    "Data!A1:A3",       "Data!B1:B4", true},
    {"WholeColumnsAreTrimmed",                 "mann-whitney", unequal, "A:A",          "B:B",      "Data!A1:A4",       "Data!B1:B3", true},
    {"GroupsByHeaders_SideBySide",             "median",       groups,  "B,C",          "",         "Data!B1:C4",       "",           true},
    {"GroupsByHeaders_Apart",                  "median",       groups,  "C,A",          "",         "Data!C1:C4,A1:A4", "",           true},
    {"GroupsByAreas",                          "median",       groups,  "A1:A4,C1:C3",  "",         "Data!A1:A4,C1:C3", "",           true},
    {"GroupsByWholeColumns",                   "median",       groups,  "A:B",          "",         "Data!A1:B4",       "",           true},
    {"AHeaderWithACommaIsOneHeader",           "mann-whitney", "\"a, b\",c\n1,2\n", "a, b", "c",    "Data!A1:A2",       "Data!B1:B2", true},
    {"AHeaderLikeAnEmptyColumnsLettersWins",   "mann-whitney", "Age,Sex\n1,2\n3,4\n", "Sex", "Age", "Data!B1:B3",       "Data!A1:A3", true},
    {"AHeaderLikeACellWins",                   "mann-whitney", "Q1,Q2\n1,2\n3,4\n", "Q2", "Q1",     "Data!B1:B3",       "Data!A1:A3", true},
    {"AHeaderOfTheColumnThatItsLettersName",   "mann-whitney", "A,B\n1,2\n3,4\n", "A",  "B",        "Data!A1:A3",       "Data!B1:B3", true},
};
// clang-format on

INSTANTIATE_TEST_SUITE_P(Cases, ChoosingRanges, testing::ValuesIn(cases),
                         [](const auto& test) { return std::string(test.param.name); });

/// The error of a choice.
Support::Raised refused(const std::string& csv, const Choices& choices) {
    const auto application = workbookOf(csv);
    return Support::raisedBy([&] { static_cast<void>(chooseRanges(*application, choices)); });
}

TEST(ChoosingRanges, AHeaderThatIsAlsoAnotherColumnsLettersIsRefusedNamingBoth) {
    const Support::Raised raised = refused("B,C\n1,2\n", choicesFor("mann-whitney", "B", "A"));
    EXPECT_EQ(raised.number, tbvNPBadYRange);
    EXPECT_EQ(raised.description,
              "\"B\" is the header of column A and the letters of column B; write A:A or B:B.");
}

TEST(FindingAColumn, WholeColumnsTellAHeaderFromLetters) {
    const auto application = workbookOf("B,C\n1,2\n");
    const auto found = [&](std::string_view text) {
        return findColumn(*application, text, HeaderLookup::Texts);
    };
    EXPECT_EQ(found("A:A"), Index(1));
    EXPECT_EQ(found("b:B"), Index(2));
    for (const char* none : {"A:B", "C:C", ":", "A:", "A1:A2"}) {
        EXPECT_FALSE(found(none)) << none;
    }
}

TEST(ChoosingRanges, TwoColumnsWithTheSameHeaderAreRefusedNamingBoth) {
    const Support::Raised raised = refused("n,n\n1,2\n", choicesFor("mann-whitney", "A", "n"));
    EXPECT_EQ(raised.number, tbvNPBadXRange);
    EXPECT_EQ(raised.description, "Two columns are headed \"n\": A and B; name one of them by its letters.");
}

TEST(ChoosingRanges, AnUnknownColumnIsRefusedListingThoseThereAre) {
    const Support::Raised raised = refused(pairs, choicesFor("mann-whitney", "Middle", "After"));
    EXPECT_EQ(raised.number, tbvNPBadYRange);
    EXPECT_EQ(
        raised.description,
        "There is no column \"Middle\". The columns are A (Before), B (After). Name one by its header or "
        "letters, or give an address such as A1:A9.");
}

TEST(ChoosingRanges, AColumnThatIsNotThereAmongOthersIsRefused) {
    EXPECT_EQ(refused(groups, choicesFor("median", "A,Z")).number, tbvNPBadYRange);
}

TEST(ChoosingRanges, AnUnknownSheetIsRefused) {
    EXPECT_EQ(refused(pairs, choicesFor("mann-whitney", "Other!A1:A4", "B")).number, tbvNPBadYRange);
}

TEST(ChoosingRanges, AnEmptySheetHoldsNoData) {
    const Support::Raised raised = refused("", choicesFor("runs"));
    EXPECT_EQ(raised.number, tbvNPNoData);
    EXPECT_EQ(raised.description, "The sheet \"Data\" holds no data.");
}

TEST(ChoosingRanges, SignRangesOfUnequalHeightAreRefused) {
    const Support::Raised raised = refused(pairs, choicesFor("sign", "A1:A4", "B1:B3"));
    EXPECT_EQ(raised.number, tbvNPUnequalPairs);
    EXPECT_EQ(raised.description,
              "The two ranges differ in their number of rows: Data!A1:A4 has 4, Data!B1:B3 has 3. Make them "
              "equally long.");
}

TEST(ChoosingRanges, BlocksInAreasOfUnequalHeightAreRefused) {
    EXPECT_EQ(refused(groups, choicesFor("friedman", "A1:A4,B1:B3")).number, tbvNPUnequalPairs);
}

TEST(ChoosingRanges, NumbersAreFoundAsHeadersOnlyWhenHeadersAreSaid) {
    const std::string years = "2019,2020\n1,4\n2,5\n";
    Choices choices = choicesFor("mann-whitney", "2020", "2019");
    EXPECT_EQ(refused(years, choices).number, tbvNPBadYRange);
    choices.headers = true;
    EXPECT_EQ(chooseRanges(*workbookOf(years), choices).y, "Data!B1:B3");
}

TEST(ChoosingRanges, WhatIsSaidAboutHeadersHolds) {
    Choices choices = choicesFor("mann-whitney");
    choices.headers = false;
    EXPECT_FALSE(chooseRanges(*workbookOf(pairs), choices).headers);
    choices.headers = true;
    EXPECT_TRUE(chooseRanges(*workbookOf(bare), choices).headers);
}

TEST(ChoosingRanges, TheNoteSaysWhatWasChosen) {
    EXPECT_EQ(chooseRanges(*workbookOf(unequal), choicesFor("mann-whitney")).note,
              "using Data!A1:A4 and Data!B1:B3 (first row is headers)");
    EXPECT_EQ(chooseRanges(*workbookOf(bare), choicesFor("runs")).note, "using Data!A1:A2 (no headers)");
}

const std::string rowNames = "\"\",\"speed\",\"dist\"\n\"1\",4,2\n\"2\",7,9\n\"3\",8,5\n";

TEST(ChoosingRanges, AFirstColumnThatAloneHasNoHeaderIsTakenForRowNames) {
    const ChosenRanges chosen = chooseRanges(*workbookOf(rowNames), choicesFor("spearman"));
    EXPECT_EQ(chosen.y + " " + chosen.x, "Data!B1:B4 Data!C1:C4");
    EXPECT_EQ(
        chosen.note,
        "using Data!B1:B4 and Data!C1:C4 (first row is headers; column A, which has no header, is taken "
        "for row names)");
    EXPECT_EQ(chooseRanges(*workbookOf(rowNames), choicesFor("friedman")).y, "Data!B1:C4");
    EXPECT_EQ(chooseRanges(*workbookOf(rowNames), choicesFor("runs")).y, "Data!B1:B4");
}

TEST(ChoosingRanges, RowNamesAreUsedWhenTheyAreNamed) {
    const ChosenRanges chosen = chooseRanges(*workbookOf(rowNames), choicesFor("spearman", "A", "speed"));
    EXPECT_EQ(chosen.y + " " + chosen.x, "Data!A1:A4 Data!B1:B4");
}

TEST(ChoosingRanges, AFirstColumnIsNoRowNamesWhereThereAreNoHeaders) {
    Choices choices = choicesFor("spearman");
    choices.headers = false;
    EXPECT_EQ(chooseRanges(*workbookOf(rowNames), choices).y, "Data!A1:A4");
    choices.headers = true;
    EXPECT_EQ(chooseRanges(*workbookOf(",2019,2020\n1,2,3\n4,5,6\n"), choices).y, "Data!B1:B3");
    for (const char* const csv : {",2\n3,4\n", ",,b\n1,2,3\n", ",a,\n1,2,3\n", "\"\"\n1\n", "n,a\n1,2\n"}) {
        EXPECT_EQ(chooseRanges(*workbookOf(csv), choicesFor("runs")).y.substr(0, 6), "Data!A") << csv;
    }
}

TEST(ChoosingRanges, ThereIsNoNoteWhenNothingWasLeftOpen) {
    Choices choices = choicesFor("mann-whitney", "A1:A4", "B1:B4");
    EXPECT_NE(chooseRanges(*workbookOf(pairs), choices).note, "");
    choices.headers = true;
    EXPECT_EQ(chooseRanges(*workbookOf(pairs), choices).note, "");
}

TEST(ChoosingRanges, AllColumnsOfAFullSheetAreFoundByTheirHeadersInNoTime) {
    std::string headers;
    std::string values;
    for (Index column = 1; column <= sheetColumns; ++column) {
        headers += (column == 1 ? "_" : ",_") + std::to_string(column);
        values += column == 1 ? "1" : ",1";
    }
    const auto application = workbookOf(headers + '\n' + values + '\n' + values + '\n');
    const auto begin = std::chrono::steady_clock::now();
    EXPECT_EQ(chooseRanges(*application, choicesFor("kruskal-wallis", headers)).y, "Data!A1:XFD3");
    // Milliseconds; minutes when each header is looked for among all columns.
    EXPECT_LT(std::chrono::steady_clock::now() - begin, std::chrono::seconds(5));
}

TEST(ChoosingRanges, ASheetNameWithBlanksIsQuoted) {
    ObjectRef<workbook::EmbeddedApplication> application = workbook::makeApplication();
    workbook::openCsvText(*application, "My data", bare);
    const ChosenRanges chosen = chooseRanges(*application, choicesFor("mann-whitney"));
    EXPECT_EQ(chosen.y, "'My data'!A1:A2");
    EXPECT_EQ(application->GetRange(chosen.y)->GetAddress(), "$A$1:$A$2");
}

}  // namespace

}  // namespace TBVNonPara::analysis
