#pragma once

#include <cstdint>

namespace TBVNonPara {

/// The tests. Any 32-bit value may be stored; one outside this list runs no test.
enum TBVNPMethod : std::int32_t {
    tbvNPMannU = 0,     ///< Mann-Whitney: two independent samples
    tbvNPWilcoxon = 1,  ///< Wilcoxon: the signed ranks of pairs
    tbvNPSpearman = 2,  ///< Spearman: the rank correlation of pairs
    tbvNPSign = 3,      ///< the signs of pairs, or signs themselves
    tbvNPMedian = 4,    ///< Mood's median test of groups
    tbvNPFriedman = 5,  ///< Friedman: treatments of the same blocks
    tbvNPKWallis = 6,   ///< Kruskal-Wallis: groups
    tbvNPWWRuns = 7,    ///< Wald-Wolfowitz: the runs of a sequence
};

/// The alternative of a test of two variables.
enum TBVNPTails : std::int32_t {
    tbvNPTwoTailed = 0,   ///< either
    tbvNPVar1GTVar2 = 1,  ///< the first is larger
    tbvNPVar1LTVar2 = 2,  ///< the first is smaller
};

/// What the errors of automation objects count from.
constexpr std::int32_t objectErrorBase = -2147221504;

/// The error numbers that clients are given names for.
enum tbvNonParaErrors : std::int32_t {
    tbvNPInvalidSignSymbols = objectErrorBase + 6000,  ///< a code of signs that is none
};

/// The library's own errors, raised as bare numbers.
enum OwnErrors : std::int32_t {
    tbvNPBadOutputRange = objectErrorBase + 5001,  ///< OutputRange cannot be read
    tbvNPBadYRange = objectErrorBase + 5009,       ///< YRange cannot be read
    tbvNPBadXRange = objectErrorBase + 5010,       ///< XRange cannot be read
    tbvNPNoYRange = objectErrorBase + 5011,        ///< there is no YRange
    tbvNPNoXRange = objectErrorBase + 5012,        ///< there is no XRange
    tbvNPUnequalPairs = objectErrorBase + 5018,    ///< YRange and XRange differ in rows
    tbvNPTooFewGroups = objectErrorBase + 5048,    ///< fewer than two groups
    tbvNPTooFewRows = objectErrorBase + 5050,      ///< too few rows of data
    tbvNPYRangeColumns = objectErrorBase + 5052,   ///< YRange has several columns
    tbvNPXRangeColumns = objectErrorBase + 5053,   ///< XRange has several columns
};

/// Raised, with a description, by a run that is called from inside another one.
constexpr std::int32_t tbvNPRunInProgress = objectErrorBase + 5062;

/// The errors of the data checks: in the library's band, on numbers of their own, always with a description.
enum DataCheckErrors : std::int32_t {
    tbvNPTextInData = objectErrorBase + 5020,          ///< a text that is no number
    tbvNPBooleanInData = objectErrorBase + 5021,       ///< True or False
    tbvNPErrorInData = objectErrorBase + 5022,         ///< an error value
    tbvNPBlankInData = objectErrorBase + 5023,         ///< a blank where none may be
    tbvNPNoData = objectErrorBase + 5024,              ///< no cell of data
    tbvNPOutputOffSheet = objectErrorBase + 5030,      ///< the report would not fit on the sheet
    tbvNPOutputOccupied = objectErrorBase + 5031,      ///< the report's place holds something
    tbvNPNoContingencyTable = objectErrorBase + 5040,  ///< no table of counts that can be tested
};

}  // namespace TBVNonPara
