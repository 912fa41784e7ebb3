#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/core/error.hpp"

namespace TBVNonPara {

/// Why a request failed, as far as the number of its error and the test tell.
enum class Cause : std::uint8_t {
    Unknown,
    BadOutputRange,
    BadYRange,
    BadXRange,
    NoYRange,
    NoXRange,
    UnequalPairs,
    TooFewGroups,
    TooFewRows,
    SeveralYColumns,
    SeveralXColumns,
    NoSignCodes,
    TextInData,
    BooleanInData,
    ErrorInData,
    BlankInData,
    NoData,
    OutputOffSheet,
    OutputOccupied,
    NoContingencyTable,
    RunInProgress,  ///< a run inside another
    OutOfMemory,
    NoNumber,
    AllValuesEqual,          ///< of the samples: nothing to rank
    NoDifference,            ///< all pairs are equal
    NoDifferenceOrTooLarge,  ///< the same, or a difference beyond single precision
    NoCorrelation,           ///< a variable is constant, or nearly so
    BlocksAllTied,           ///< within every block
    BlocksAgreeWholly,       ///< every block ranks the treatments alike
    GroupEmptyOrAllEqual,
    TooFewValuesForF,
    RunsAreCertain,  ///< one category only, or as many as cells
};

/// What an explanation calls the test and its ranges. The ranges may be empty as long as they are not known.
struct RequestNames {
    std::string test = "the test";  ///< as in "the Friedman test"
    std::string y;
    std::string x;
};

/// The name of an error's number, "tbvNPNoYRange" or "Overflow"; empty for one that is not the library's.
[[nodiscard]] TBVNONPARA_API std::string_view errorName(std::int32_t number) noexcept;

/// What an error means. The same runtime error has different causes in different tests.
[[nodiscard]] TBVNONPARA_API Cause causeOf(std::int32_t number, std::optional<TBVNPMethod> method) noexcept;

/// Whether an error's own description says more than its number: those of the data checks and of a host do,
/// that of a runtime error does not.
[[nodiscard]] TBVNONPARA_API bool describesItself(const Error& error) noexcept;

/// A sentence or two on what happened, in English; empty for Unknown.
[[nodiscard]] TBVNONPARA_API std::string explanationOf(Cause cause, const RequestNames& names);

/// What to do about it; empty where the explanation says all. A front end may know better words.
[[nodiscard]] TBVNONPARA_API std::string_view adviceOn(Cause cause) noexcept;

}  // namespace TBVNonPara
