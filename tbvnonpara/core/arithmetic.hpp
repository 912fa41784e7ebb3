#pragma once

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/whole_numbers.hpp"

namespace TBVNonPara {

/// A result that must be a number: raises Overflow when it is infinite or not a number.
[[nodiscard]] TBVNONPARA_API double checked(double result);

/// dividend / divisor; raises DivisionByZero for x/0, Overflow for 0/0 and for a quotient out of range.
[[nodiscard]] TBVNONPARA_API double divide(double dividend, double divisor);

/// The square root; raises InvalidProcedureCall below zero.
[[nodiscard]] TBVNONPARA_API double squareRoot(double radicand);

/// n^3.
[[nodiscard]] constexpr double cubed(Long n) noexcept {
    return toDouble(n) * toDouble(n) * toDouble(n);
}

}  // namespace TBVNonPara
