#include "cli/messages.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "tests/analysis/data_sheet.hpp"

namespace TBVNonPara::cli {

namespace {

using analysis::offeredTests;
using analysis::testNamed;
using testing::HasSubstr;
using testing::Not;

Circumstances of(std::string_view test) {
    return {&testNamed(test), {"Data!A1:A9", "Data!B1:B8", true, ""}};
}

// clang-format off
constexpr std::pair<std::int32_t, std::string_view> names[] = {
    {-2147216503, "tbvNPBadOutputRange"},   {-2147216495, "tbvNPBadYRange"},      {-2147216494, "tbvNPBadXRange"},
    {-2147216493, "tbvNPNoYRange"},         {-2147216492, "tbvNPNoXRange"},       {-2147216486, "tbvNPUnequalPairs"},
    {-2147216456, "tbvNPTooFewGroups"},     {-2147216454, "tbvNPTooFewRows"},     {-2147216452, "tbvNPYRangeColumns"},
    {-2147216451, "tbvNPXRangeColumns"},    {-2147215504, "tbvNPInvalidSignSymbols"},
    {-2147216484, "tbvNPTextInData"},       {-2147216483, "tbvNPBooleanInData"},  {-2147216482, "tbvNPErrorInData"},
    {-2147216481, "tbvNPBlankInData"},      {-2147216480, "tbvNPNoData"},         {-2147216474, "tbvNPOutputOffSheet"},
    {-2147216473, "tbvNPOutputOccupied"},   {-2147216464, "tbvNPNoContingencyTable"},
    {5, "InvalidProcedureCall"}, {6, "Overflow"}, {7, "OutOfMemory"}, {9, "SubscriptOutOfRange"},
    {11, "DivisionByZero"}, {13, "TypeMismatch"}, {51, "InternalError"}, {91, "ObjectNotSet"}, {1004, "HostError"},
    {12345, "Error"},
};
// clang-format on

TEST(Messages, EveryNumberHasItsName) {
    for (const auto& [number, name] : names) {
        EXPECT_EQ(errorName(number), name) << number;
    }
}

TEST(Messages, EveryBareNumberOfTheLibraryIsExplainedForEveryTest) {
    for (const analysis::OfferedTest& test : offeredTests()) {
        for (const auto& [number, name] : names) {
            if (number < 0) {
                const std::string sentence = explain(Error(number), of(test.name));
                EXPECT_THAT(sentence, Not(HasSubstr("{"))) << name;
                EXPECT_THAT(sentence, Not(HasSubstr("without a description"))) << name;
                EXPECT_TRUE(sentence.ends_with('.')) << name << ": " << sentence;
            }
        }
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
