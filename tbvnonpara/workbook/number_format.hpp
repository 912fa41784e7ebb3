#pragma once

#include <string>
#include <string_view>

#include "tbvnonpara/core/cell_value.hpp"

namespace TBVNonPara::workbook {

/// The text that a sheet shows for a value under a number format. "0", "0.0", "0.0000" and so on show that
/// many decimals, "#,##0.00" thousands as well, a "%" at the end per cent: the number is taken at 15
/// significant digits and halves are rounded away from zero; what is rounded to zero has no sign. "0.00E+00"
/// shows a power of ten, "[<0.0001]0.00E+00;0.0000" the first below the limit and else the second. Any other
/// format, such as "General" and "@", shows up to 15 significant digits. Texts are shown as they are,
/// Booleans as TRUE and FALSE, an empty cell as nothing.
[[nodiscard]] std::string displayText(const CellValue& value, std::string_view format);

}  // namespace TBVNonPara::workbook
