#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace TBVNonPara::reshaping {

/// The text without blanks around it, and without quotes around the rest.
[[nodiscard]] std::string withoutQuotes(std::string_view text);

/// The parts between commas, each without quotes: a comma in quotes divides nothing.
[[nodiscard]] std::vector<std::string> listed(std::string_view text);

}  // namespace TBVNonPara::reshaping
