#include "cli/messages.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/analysis/data_sheet.hpp"

namespace TBVNonPara::cli {

namespace {

using analysis::testNamed;
using testing::HasSubstr;

Circumstances of(std::string_view test) {
    return {&testNamed(test), {"Data!A1:A9", "Data!B1:B8", true, ""}};
}

TEST(Messages, ANumberIsCalledByItsName) {
    EXPECT_THAT(errorText(Error(tbvNPNoYRange), {}), HasSubstr("(tbvNPNoYRange)"));
    EXPECT_THAT(errorText(Error(1004, "No such file."), {}), HasSubstr("error 1004 (HostError)"));
    EXPECT_THAT(errorText(Error(12345, "?"), {}), HasSubstr("error 12345 (Error)"));
}

TEST(Messages, AdviceNamesTheOptions) {
    const std::pair<std::int32_t, std::string_view> advice[] = {
        {tbvNPBadOutputRange, "--output"}, {tbvNPBadYRange, "--y"},
        {tbvNPBadXRange, "--x"},           {tbvNPNoYRange, "--y"},
        {tbvNPNoXRange, "--x B"},          {tbvNPTooFewGroups, "--y A:C"},
        {tbvNPTooFewRows, "--no-headers"}, {tbvNPYRangeColumns, "--y"},
        {tbvNPXRangeColumns, "--x"},       {tbvNPInvalidSignSymbols, "--x"},
        {tbvNPOutputOffSheet, "--output"}, {tbvNPOutputOccupied, "--overwrite"},
    };
    for (const auto& [number, option] : advice) {
        EXPECT_THAT(explain(Error(number), of("sign")), HasSubstr(option)) << number;
    }
}

TEST(Messages, ABareNumberNamesTheRangesAndTheOption) {
    EXPECT_EQ(
        explain(Error(tbvNPUnequalPairs), of("wilcoxon")),
        "The two ranges differ in their number of rows: Data!A1:A9 and Data!B1:B8. The Wilcoxon test takes "
        "pairs row by row; complete or remove the rows without a partner.");
    EXPECT_EQ(
        explain(Error(tbvNPTooFewGroups), of("friedman")),
        "The Friedman test compares several groups, and Data!A1:A9 is one column. Name two columns or more, "
        "for example --y A:C.");
    EXPECT_THAT(explain(Error(tbvNPNoXRange), of("spearman")), HasSubstr("--x B"));
}

TEST(Messages, ADescriptionOfTheLibraryIsNotReplaced) {
    EXPECT_EQ(explain(Error(tbvNPTextInData, "Data!B7 holds the text \"n/a\"."), of("sign")),
              "Data!B7 holds the text \"n/a\".");
}

TEST(Messages, ARuntimeErrorIsExplainedWhereItsCauseIsKnown) {
    EXPECT_EQ(
        explain(Error(11, "Division by zero"), of("runs")),
        "The cells of Data!A1:A9 are all equal, or all different, so the number of runs is certain. The test "
        "needs categories that repeat.");
    EXPECT_THAT(explain(Error(6, "Overflow"), of("kruskal-wallis")), HasSubstr("all values are equal"));
}

TEST(Messages, ARuntimeErrorWithoutAKnownCauseKeepsItsDescription) {
    EXPECT_EQ(explain(Error(9, "Subscript out of range"), of("sign")), "Subscript out of range");
    EXPECT_EQ(explain(Error(51, "bad_alloc"), {}), "bad_alloc");
}

TEST(Messages, BracesInARangesNameDoNoHarm) {
    Circumstances circumstances = of("friedman");
    circumstances.ranges.y = "'{0}'!A1:A9";
    EXPECT_THAT(explain(Error(tbvNPTooFewRows), circumstances), HasSubstr("'{0}'!A1:A9 has fewer"));
}

TEST(Messages, AnErrorWithoutASourceEndsWithItsName) {
    EXPECT_TRUE(errorText(Error(tbvNPTooFewGroups), of("median"))
                    .ends_with("\n  error -2147216456 (tbvNPTooFewGroups)\n"));
}

TEST(Messages, InJsonAnErrorHasNumberNameSourceAndDescription) {
    const Error error(tbvNPNoYRange, "", "Line 0 in TBVNonPara.clsNonPara.Results");
    EXPECT_EQ(errorInJson(error, of("runs")),
              "{\"error\": {\"number\": -2147216493, \"name\": \"tbvNPNoYRange\", "
              "\"source\": \"Line 0 in TBVNonPara.clsNonPara.Results\", "
              "\"description\": \"There is no data range. Name one with --y.\"}}\n");
    EXPECT_THAT(errorInJson(Error(1004, "\"a\\b\"\n"), {}), HasSubstr(R"("description": "\"a\\b\"\n")"));
}

TEST(Messages, TheTextForPeopleEndsWithNumberNameAndSource) {
    EXPECT_EQ(errorText(Error(tbvNPNoYRange, "", "Line 0 in TBVNonPara.clsNonPara.Results"), of("sign")),
              "tbvnonpara: There is no data range. Name one with --y.\n"
              "  error -2147216493 (tbvNPNoYRange): Line 0 in TBVNonPara.clsNonPara.Results\n");
}

}  // namespace

}  // namespace TBVNonPara::cli
