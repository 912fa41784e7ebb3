#pragma once

#include "adapters/calc/uno.hpp"

namespace TBVNonPara::calc {

/// What a script passes, as the type that a member takes. Whole numbers arrive in every width and as doubles;
/// texts that read as numbers are numbers. Raises TypeMismatch, and Overflow outside 32 bits.
[[nodiscard]] std::int32_t toWholeNumber(const css::uno::Any& value);
[[nodiscard]] bool toBoolean(const css::uno::Any& value);
[[nodiscard]] OUString toAddress(const css::uno::Any& value);

}  // namespace TBVNonPara::calc
