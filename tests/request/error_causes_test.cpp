#include "tbvnonpara/request/error_causes.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace TBVNonPara {

namespace {

using testing::HasSubstr;
using testing::Not;

// clang-format off
constexpr std::pair<std::int32_t, std::string_view> numbersAndNames[] = {
    {-2147216503, "tbvNPBadOutputRange"},   {-2147216495, "tbvNPBadYRange"},      {-2147216494, "tbvNPBadXRange"},
    {-2147216493, "tbvNPNoYRange"},         {-2147216492, "tbvNPNoXRange"},       {-2147216486, "tbvNPUnequalPairs"},
    {-2147216456, "tbvNPTooFewGroups"},     {-2147216454, "tbvNPTooFewRows"},     {-2147216452, "tbvNPYRangeColumns"},
    {-2147216451, "tbvNPXRangeColumns"},    {-2147215504, "tbvNPInvalidSignSymbols"},
    {-2147216484, "tbvNPTextInData"},       {-2147216483, "tbvNPBooleanInData"},  {-2147216482, "tbvNPErrorInData"},
    {-2147216481, "tbvNPBlankInData"},      {-2147216480, "tbvNPNoData"},         {-2147216474, "tbvNPOutputOffSheet"},
    {-2147216473, "tbvNPOutputOccupied"},   {-2147216464, "tbvNPNoContingencyTable"},
    {-2147216442, "tbvNPRunInProgress"},
    {5, "InvalidProcedureCall"}, {6, "Overflow"}, {7, "OutOfMemory"}, {9, "SubscriptOutOfRange"},
    {11, "DivisionByZero"}, {13, "TypeMismatch"}, {18, "UserInterrupt"}, {51, "InternalError"}, {91, "ObjectNotSet"}, {1004, ""},
    {12345, ""},
};
// clang-format on

TEST(ErrorCauses, EveryNumberHasItsName) {
    for (const auto& [number, name] : numbersAndNames) {
        EXPECT_EQ(errorName(number), name) << number;
    }
}

constexpr Cause lastCause = Cause::RunsAreCertain;

TEST(ErrorCauses, EveryNumberOfTheLibraryHasACauseWhateverTheTest) {
    for (const auto& [number, name] : numbersAndNames) {
        if (number < 0) {
            EXPECT_NE(causeOf(number, std::nullopt), Cause::Unknown) << name;
            EXPECT_EQ(causeOf(number, tbvNPFriedman), causeOf(number, std::nullopt)) << name;
        }
    }
}

TEST(ErrorCauses, EveryCauseIsExplainedInWholeSentencesThatNameNoOption) {
    for (int i = static_cast<int>(Cause::Unknown) + 1; i <= static_cast<int>(lastCause); ++i) {
        const std::string text = explanationOf(static_cast<Cause>(i), {"the sign test", "A1:A9", "B1:B9"}) +
                                 ' ' + std::string(adviceOn(static_cast<Cause>(i)));
        EXPECT_THAT(text, testing::AnyOf(testing::EndsWith("."), testing::EndsWith(". "))) << i;
        EXPECT_THAT(text, Not(HasSubstr("{"))) << i;
        EXPECT_THAT(text, Not(HasSubstr("--"))) << i;
    }
    EXPECT_EQ(explanationOf(Cause::Unknown, {}), "");
    EXPECT_EQ(adviceOn(Cause::Unknown), "");
}

struct FaultOfATest {
    TBVNPMethod method;
    RuntimeError error;
    Cause cause;
};

// clang-format off
constexpr FaultOfATest faultsOfTests[] = {
    {tbvNPMannU,    RuntimeError::DivisionByZero,       Cause::AllValuesEqual},
    {tbvNPWilcoxon, RuntimeError::DivisionByZero,       Cause::NoDifference},
    {tbvNPWilcoxon, RuntimeError::Overflow,             Cause::NoDifferenceOrTooLarge},
    {tbvNPSpearman, RuntimeError::InvalidProcedureCall, Cause::NoCorrelation},
    {tbvNPFriedman, RuntimeError::Overflow,             Cause::BlocksAllTied},
    {tbvNPFriedman, RuntimeError::DivisionByZero,       Cause::BlocksAgreeWholly},
    {tbvNPKWallis,  RuntimeError::Overflow,             Cause::GroupEmptyOrAllEqual},
    {tbvNPKWallis,  RuntimeError::DivisionByZero,       Cause::TooFewValuesForF},
    {tbvNPWWRuns,   RuntimeError::DivisionByZero,       Cause::RunsAreCertain},
    {tbvNPMedian,   RuntimeError::DivisionByZero,       Cause::Unknown},
    {tbvNPSign,     RuntimeError::SubscriptOutOfRange,  Cause::Unknown},
    {tbvNPSign,     RuntimeError::TypeMismatch,         Cause::NoNumber},
};
// clang-format on

TEST(ErrorCauses, ARuntimeErrorMeansInEachTestWhatItsComputationLacks) {
    for (const FaultOfATest& fault : faultsOfTests) {
        EXPECT_EQ(causeOf(static_cast<std::int32_t>(fault.error), fault.method), fault.cause)
            << fault.method << ' ' << static_cast<int>(fault.error);
    }
    EXPECT_EQ(causeOf(11, std::nullopt), Cause::Unknown);
}

TEST(ErrorCauses, AMissingContingencyTableMeansTooFewGroupsOrNoObservation) {
    const std::string text = explanationOf(causeOf(tbvNPNoContingencyTable, tbvNPMedian), {});
    EXPECT_THAT(text, HasSubstr("fewer than two groups"));
    EXPECT_THAT(text, HasSubstr("no group holds a value"));
}

TEST(ErrorCauses, OnlyADescriptionThatTellsMoreThanItsNumberStandsForItself) {
    EXPECT_TRUE(describesItself(Error(tbvNPTextInData, "Data!B7 holds the text \"n/a\".")));
    EXPECT_TRUE(describesItself(Error(1004, "The sheet is protected.")));
    EXPECT_FALSE(describesItself(Error(11, "Division by zero")));
    EXPECT_FALSE(describesItself(Error(tbvNPNoYRange)));
}

TEST(ErrorCauses, ASentenceBeginsWithACapitalLetter) {
    EXPECT_THAT(explanationOf(Cause::TooFewGroups, {"the median test", "A1:A9", ""}),
                testing::StartsWith("The median test compares"));
    EXPECT_THAT(explanationOf(Cause::NoXRange, {"the sign test", "A1:A9", ""}), HasSubstr(": the sign test"));
}

TEST(ErrorCauses, BracesInTheNameOfASheetAreNotReplaced) {
    EXPECT_THAT(explanationOf(Cause::UnequalPairs, {"the sign test", "'{x}'!A1:A9", "'{y}'!A1"}),
                HasSubstr("'{x}'!A1:A9 and '{y}'!A1."));
}

}  // namespace

}  // namespace TBVNonPara
