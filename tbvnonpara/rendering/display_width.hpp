#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace TBVNonPara::rendering {

/// How many columns of a terminal a UTF-8 text takes: none for a combining character, two for a wide one.
[[nodiscard]] std::size_t displayWidth(std::string_view text) noexcept;

/// The text as one line without any effect on a terminal: a line break or tab becomes a blank, any other
/// control character the replacement character.
[[nodiscard]] std::string onOneLine(std::string_view text);

/// The text without the blanks at its end.
[[nodiscard]] constexpr std::string_view withoutBlankEnd(std::string_view text) noexcept {
    return text.substr(0, text.find_last_not_of(' ') + 1);
}

}  // namespace TBVNonPara::rendering
