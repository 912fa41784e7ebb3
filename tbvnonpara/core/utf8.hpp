#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "tbvnonpara/core/api.hpp"

namespace TBVNonPara {

/// The position (from 0) of the first byte that does not belong to valid UTF-8, none when all do. Overlong
/// forms, surrogates and code points above U+10FFFF are not valid.
[[nodiscard]] TBVNONPARA_API std::optional<std::size_t> firstInvalidUtf8(std::string_view text) noexcept;

/// Takes the first character from the front of a text that holds some. A byte that does not belong to valid
/// UTF-8 counts as one character, U+FFFD.
TBVNONPARA_API char32_t takeCharacter(std::string_view& text) noexcept;

/// Adds a character in UTF-8.
TBVNONPARA_API void appendCharacter(std::string& text, char32_t character);

/// The number of characters (code points) of a UTF-8 text.
[[nodiscard]] TBVNONPARA_API std::size_t countCharacters(std::string_view text) noexcept;

/// The length in units of UTF-16, in which spreadsheets count: characters beyond the basic plane are two.
[[nodiscard]] TBVNONPARA_API std::size_t countUtf16Units(std::string_view text) noexcept;

/// At most the given number of characters from the start; no character is cut in two.
[[nodiscard]] TBVNONPARA_API std::string_view firstCharacters(std::string_view text,
                                                              std::size_t count) noexcept;

/// As many characters from the start as fit into so many bytes.
[[nodiscard]] TBVNONPARA_API std::string_view firstBytes(std::string_view text, std::size_t most) noexcept;

/// The text in lower case for comparisons: Latin, Greek and Cyrillic letters; others stay as they are.
[[nodiscard]] TBVNONPARA_API std::string foldCase(std::string_view text);

[[nodiscard]] TBVNONPARA_API bool equalIgnoringCase(std::string_view a, std::string_view b);

}  // namespace TBVNonPara
