#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "tbvnonpara/core/api.hpp"

namespace TBVNonPara {

/// How many columns of a terminal a UTF-8 text takes: none for a combining character, two for a wide one.
[[nodiscard]] TBVNONPARA_API std::size_t displayWidth(std::string_view text) noexcept;

/// A control character, or one that breaks a line or turns the direction of writing.
[[nodiscard]] TBVNONPARA_API bool actsOnTerminal(char32_t character) noexcept;

/// The text as one line without any effect on a terminal: a line break or tab becomes a blank, any other
/// control character, and what turns the direction of writing, the replacement character.
[[nodiscard]] TBVNONPARA_API std::string onOneLine(std::string_view text);

/// The text with everything that acts on a terminal in visible form: \n and \t, \x1B for other control
/// characters and bytes that are no UTF-8, \u202E for what breaks lines or turns the direction of writing.
[[nodiscard]] TBVNONPARA_API std::string escaped(std::string_view text);

/// At most so many columns of a text: its beginning and its end with "…" between them.
[[nodiscard]] TBVNONPARA_API std::string shortenedToWidth(const std::string& text, std::size_t most);

/// The text in lines of at most so many columns, cut at blanks where there are any.
[[nodiscard]] TBVNONPARA_API std::vector<std::string> folded(std::string_view text, std::size_t most);

/// The text without the blanks at its end.
[[nodiscard]] constexpr std::string_view withoutBlankEnd(std::string_view text) noexcept {
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

}  // namespace TBVNonPara
