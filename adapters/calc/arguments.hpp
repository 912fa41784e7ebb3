#pragma once

#include <span>

#include "adapters/calc/uno.hpp"

namespace TBVNonPara::calc {

/// What a script passes, as the type that a member takes. Whole numbers arrive in every width and as doubles;
/// texts that read as numbers are numbers. Raises TypeMismatch, and Overflow outside 32 bits.
[[nodiscard]] std::int32_t toWholeNumber(const css::uno::Any& value);
[[nodiscard]] bool toBoolean(const css::uno::Any& value);
[[nodiscard]] double toNumber(const css::uno::Any& value);
[[nodiscard]] OUString toOfficeText(const css::uno::Any& value);
[[nodiscard]] OUString toAddress(const css::uno::Any& value);

/// An argument of a method whose arguments have these names: given by its place, or by its name, which Basic
/// passes as a name with a value. Nothing where it was left out; raises InvalidProcedureCall for a name that
/// there is not.
[[nodiscard]] css::uno::Any argument(const css::uno::Sequence<css::uno::Any>& arguments, std::size_t place,
                                     std::span<const char* const> names);

}  // namespace TBVNonPara::calc
