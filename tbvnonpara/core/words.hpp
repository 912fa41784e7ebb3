#pragma once

#include <string>
#include <string_view>

#include "tbvnonpara/core/api.hpp"

namespace TBVNonPara {

/// The text without such characters at its beginning and end.
[[nodiscard]] constexpr std::string_view trimmed(std::string_view text,
                                                 std::string_view blanks = " ") noexcept {
    const std::size_t first = text.find_first_not_of(blanks);
    return first == std::string_view::npos ? std::string_view()
                                           : text.substr(first, text.find_last_not_of(blanks) - first + 1);
}

/// A name or another text of the user's inside a sentence: "Data".
[[nodiscard]] TBVNONPARA_API std::string inQuotes(std::string_view text);

/// With a capital, where the text begins with a letter from a to z.
[[nodiscard]] TBVNONPARA_API std::string capitalised(std::string_view text);

/// A text of more bytes as its beginning and "...", cut between two characters.
[[nodiscard]] TBVNONPARA_API std::string shortened(std::string_view text, std::size_t mostBytes);

}  // namespace TBVNonPara
