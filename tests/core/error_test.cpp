#include "tbvnonpara/core/error.hpp"

#include <functional>
#include <gtest/gtest.h>
#include <new>
#include <stdexcept>

#include "tbvnonpara/core/enumerations.hpp"

namespace TBVNonPara {
namespace {

Error caught(const std::function<void()>& action) {
    try {
        action();
    } catch (const Error& error) {
        return error;
    }
    ADD_FAILURE() << "no error was raised";
    return Error(0);
}

void passingOn(const std::function<void()>& action) try { action(); } catch (...) {
    passOn("clsX.Outer");
}

void passingOnAs(const std::function<void()>& action) try { action(); } catch (...) {
    passOnAs("clsX.Setter");
}

void passingOnOwn(const std::function<void()>& action) try { action(); } catch (...) {
    passOnOwnOr(tbvNPBadYRange);
}

struct RuntimeCase {
    RuntimeError error;
    std::int32_t number;
    const char* description;
};

TEST(Errors, RuntimeErrorsCarryTheirNumberAndUsualDescription) {
    const RuntimeCase cases[] = {
        {RuntimeError::InvalidProcedureCall, 5, "Invalid procedure call or argument"},
        {RuntimeError::Overflow, 6, "Overflow"},
        {RuntimeError::OutOfMemory, 7, "Out of memory"},
        {RuntimeError::SubscriptOutOfRange, 9, "Subscript out of range"},
        {RuntimeError::DivisionByZero, 11, "Division by zero"},
        {RuntimeError::TypeMismatch, 13, "Type mismatch"},
        {RuntimeError::UserInterrupt, 18, "User interrupt occurred"},
        {RuntimeError::InternalError, 51, "Internal error"},
        {RuntimeError::ObjectNotSet, 91, "Object variable or With block variable not set"},
    };
    for (const RuntimeCase& expected : cases) {
        const Error error = caught([&] { raise(expected.error); });
        EXPECT_EQ(error.number(), expected.number);
        EXPECT_EQ(error.description(), expected.description);
        EXPECT_EQ(error.source(), "");
    }
}

TEST(Errors, OwnNumbersHaveTheValuesClientsKnow) {
    EXPECT_EQ(tbvNPInvalidSignSymbols, -2147215504);
    EXPECT_EQ(tbvNPBadOutputRange, -2147216503);
    EXPECT_EQ(tbvNPBadYRange, -2147216495);
    EXPECT_EQ(tbvNPBadXRange, -2147216494);
    EXPECT_EQ(tbvNPNoYRange, -2147216493);
    EXPECT_EQ(tbvNPNoXRange, -2147216492);
    EXPECT_EQ(tbvNPUnequalPairs, -2147216486);
    EXPECT_EQ(tbvNPTooFewGroups, -2147216456);
    EXPECT_EQ(tbvNPTooFewRows, -2147216454);
    EXPECT_EQ(tbvNPYRangeColumns, -2147216452);
    EXPECT_EQ(tbvNPXRangeColumns, -2147216451);
}

TEST(Errors, PassingOnNamesTheProcedure) {
    const Error error = caught([] { passingOn([] { raise(RuntimeError::Overflow); }); });
    EXPECT_EQ(error.number(), 6);
    EXPECT_EQ(error.description(), "Overflow");
    EXPECT_EQ(error.source(), "Line 0 in TBVNonPara.clsX.Outer");
}

TEST(Errors, TheInnermostNameWins) {
    const Error error =
        caught([] { passingOn([] { throw Error(6, "Overflow", "Line 0 in TBVNonPara.clsX.Inner"); }); });
    EXPECT_EQ(error.source(), "Line 0 in TBVNonPara.clsX.Inner");
}

TEST(Errors, AHostSourceIsReplaced) {
    const Error error = caught([] { passingOn([] { throw Error(1004, "No such sheet", "Workbook"); }); });
    EXPECT_EQ(error.number(), 1004);
    EXPECT_EQ(error.description(), "No such sheet");
    EXPECT_EQ(error.source(), "Line 0 in TBVNonPara.clsX.Outer");
}

TEST(Errors, SettersAndAccessorsAlwaysSetTheirOwnName) {
    const Error error =
        caught([] { passingOnAs([] { throw Error(6, "Overflow", "Line 0 in TBVNonPara.clsX.Inner"); }); });
    EXPECT_EQ(error.source(), "Line 0 in TBVNonPara.clsX.Setter");
}

TEST(Errors, TheFilterPassesTheBandUnchangedAndReplacesTheRest) {
    struct Case {
        std::int32_t raised;
        std::int32_t seen;
    };
    const Case cases[] = {
        {objectErrorBase + 5000, objectErrorBase + 5000}, {objectErrorBase + 5101, objectErrorBase + 5101},
        {objectErrorBase + 4999, tbvNPBadYRange},         {objectErrorBase + 5102, tbvNPBadYRange},
        {tbvNPInvalidSignSymbols, tbvNPBadYRange},        {91, tbvNPBadYRange},
    };
    for (const Case& expected : cases) {
        const Error error =
            caught([&] { passingOnOwn([&] { throw Error(expected.raised, "as it was", "here"); }); });
        EXPECT_EQ(error.number(), expected.seen) << expected.raised;
        const bool unchanged = expected.raised == expected.seen;
        EXPECT_EQ(error.description(), unchanged ? "as it was" : "");
        EXPECT_EQ(error.source(), unchanged ? "here" : "");
    }
}

TEST(Errors, ForeignExceptionsBecomeErrorsWithTheirText) {
    const Error foreign = caught([] { passingOn([] { throw std::runtime_error("disk on fire"); }); });
    EXPECT_EQ(foreign.number(), 51);
    EXPECT_EQ(foreign.description(), "disk on fire");
    EXPECT_EQ(foreign.source(), "Line 0 in TBVNonPara.clsX.Outer");

    EXPECT_EQ(caught([] { passingOn([] { throw std::bad_alloc(); }); }).number(), 7);
    EXPECT_EQ(caught([] { passingOn([] { throw std::length_error("vector"); }); }).number(), 7);
    EXPECT_EQ(caught([] { passingOn([] { throw 42; }); }).number(), 51);
}

}  // namespace
}  // namespace TBVNonPara
