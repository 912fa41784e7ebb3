#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/whole_numbers.hpp"

namespace TBVNonPara {

/// The number that a text spells, blanks around it allowed: sign, digits, decimal point, exponent. Nothing
/// else reads as a number: no thousands, no hexadecimal, no infinity.
[[nodiscard]] TBVNONPARA_API std::optional<double> readAsNumber(std::string_view text) noexcept;

/// The general text of a number: at most 15 significant digits, no trailing zeros, "1E+15" when large.
[[nodiscard]] TBVNONPARA_API std::string toText(double number);
[[nodiscard]] TBVNONPARA_API std::string toText(Long number);

/// The nearest whole number, halves to the even one; raises Overflow outside 32 bits.
[[nodiscard]] TBVNONPARA_API Long roundHalfToEven(double number);

/// The number read back from the text of its single-precision value (at most 7 significant digits), which
/// takes the noise out of a difference: 5.1 - 5.0 gives 0.1. Raises Overflow outside single precision.
[[nodiscard]] TBVNONPARA_API double throughSinglePrecisionText(double number);

}  // namespace TBVNonPara
