#pragma once

#include <cstdint>

namespace TBVNonPara::calc {

/// The spreadsheet's own numbers of errors in cells.
constexpr std::int32_t valueFailure = 519;           ///< \#VALUE!
constexpr std::int32_t divisionFailure = 532;        ///< \#DIV/0!
constexpr std::int32_t notAvailableFailure = 32767;  ///< \#N/A

/// A formula that shows an error instead of a value; thrown.
struct FormulaFailure {
    std::int32_t number = valueFailure;
};

/// The failure that the exception being handled is for a cell. Call it in a handler only.
[[nodiscard]] FormulaFailure currentFailure();

/// The number by which the spreadsheet takes a function's value for an error: it is none, and the error's own
/// number stands in its lower half.
[[nodiscard]] double failureAsNumber(FormulaFailure failure) noexcept;

}  // namespace TBVNonPara::calc
