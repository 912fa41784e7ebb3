#pragma once

#include <string>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/host/Range.hpp"
#include "tbvnonpara/report/clsNonParaOutput.hpp"

namespace TBVNonPara {

/// "Column " and the letters of a cell's column, from its local address: $AB$7 gives "Column AB".
[[nodiscard]] TBVNONPARA_API std::string columnName(const RangeRef& cell);

/// The name of a range's first column: its header's text, or the column's name without headers.
[[nodiscard]] TBVNONPARA_API std::string label(const RangeRef& range, bool headers);

/// The names of the first and of the second range.
[[nodiscard]] TBVNONPARA_API Labels pairLabels(const RangeRef& first, const RangeRef& second, bool headers);

/// One name per column of every area, in order.
[[nodiscard]] TBVNONPARA_API Labels groupLabels(const RangeRef& range, bool headers);

/// The range with its worksheet: Data!$A$1:$A$21.
[[nodiscard]] TBVNONPARA_API std::string rangeText(const RangeRef& range);

}  // namespace TBVNonPara
