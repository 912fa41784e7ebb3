#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "tbvnonpara/core/api.hpp"

namespace TBVNonPara::reshaping {

/// The text without blanks around it, and without quotes around the rest.
[[nodiscard]] TBVNONPARA_API std::string withoutQuotes(std::string_view text);

/// The parts between commas, each without quotes: a comma in quotes divides nothing.
[[nodiscard]] TBVNONPARA_API std::vector<std::string> listed(std::string_view text);

}  // namespace TBVNonPara::reshaping
