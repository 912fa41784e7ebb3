#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace TBVNonPara::cli {

/// A word as a shell reads it: in quotes where it needs them.
[[nodiscard]] std::string shellWord(std::string_view word);

/// The words of a call of the program as they are typed: "tbvnonpara sign 'my file.csv'".
[[nodiscard]] std::string asTyped(const std::vector<std::string_view>& words);

}  // namespace TBVNonPara::cli
