#pragma once

#include <cstdint>

namespace TBVNonPara {

/// The tests. Any 32-bit value may be stored; one outside this list runs no test.
enum TBVNPMethod : std::int32_t {
    tbvNPMannU = 0,
    tbvNPWilcoxon = 1,
    tbvNPSpearman = 2,
    tbvNPSign = 3,
    tbvNPMedian = 4,
    tbvNPFriedman = 5,
    tbvNPKWallis = 6,
    tbvNPWWRuns = 7,
};

/// The alternative of a test of two variables.
enum TBVNPTails : std::int32_t {
    tbvNPTwoTailed = 0,
    tbvNPVar1GTVar2 = 1,
    tbvNPVar1LTVar2 = 2,
};

constexpr std::int32_t objectErrorBase = -2147221504;

/// The error numbers that clients are given names for.
enum tbvNonParaErrors : std::int32_t {
    tbvNPInvalidSignSymbols = objectErrorBase + 6000,
};

/// The library's own errors, raised as bare numbers.
enum OwnErrors : std::int32_t {
    tbvNPBadOutputRange = objectErrorBase + 5001,
    tbvNPBadYRange = objectErrorBase + 5009,
    tbvNPBadXRange = objectErrorBase + 5010,
    tbvNPNoYRange = objectErrorBase + 5011,
    tbvNPNoXRange = objectErrorBase + 5012,
    tbvNPUnequalPairs = objectErrorBase + 5018,
    tbvNPTooFewGroups = objectErrorBase + 5048,
    tbvNPTooFewRows = objectErrorBase + 5050,
    tbvNPYRangeColumns = objectErrorBase + 5052,
    tbvNPXRangeColumns = objectErrorBase + 5053,
};

/// Raised, with a description, by a run that is called from inside another one.
constexpr std::int32_t tbvNPRunInProgress = objectErrorBase + 5062;

/// The errors of the data checks: in the library's band, on numbers of their own, always with a description.
enum DataCheckErrors : std::int32_t {
    tbvNPTextInData = objectErrorBase + 5020,
    tbvNPBooleanInData = objectErrorBase + 5021,
    tbvNPErrorInData = objectErrorBase + 5022,
    tbvNPBlankInData = objectErrorBase + 5023,
    tbvNPNoData = objectErrorBase + 5024,
    tbvNPOutputOffSheet = objectErrorBase + 5030,
    tbvNPOutputOccupied = objectErrorBase + 5031,
    tbvNPNoContingencyTable = objectErrorBase + 5040,
};

}  // namespace TBVNonPara
