#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/cell_value.hpp"
#include "tbvnonpara/engine/named_results.hpp"

namespace TBVNonPara {

/// Values as JSON on one line. Numbers are the shortest that read back as the same; a number that JSON has no
/// text for is null.
[[nodiscard]] TBVNONPARA_API std::string numberInJson(double number);
[[nodiscard]] TBVNONPARA_API std::string textInJson(std::string_view text);

/// A cell: null where it is empty, an error as its text.
[[nodiscard]] TBVNONPARA_API std::string cellInJson(const CellValue& value);

/// An object with a member for each name; names with the same part before a dot become one object.
[[nodiscard]] TBVNONPARA_API std::string resultsInJson(const std::vector<NamedResult>& results);

}  // namespace TBVNonPara
