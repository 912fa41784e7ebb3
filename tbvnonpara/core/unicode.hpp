#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace TBVNonPara::workbook {

/// The position (from 0) of the first byte that does not belong to valid UTF-8, none when all do. Overlong
/// forms, surrogates and code points above U+10FFFF are not valid.
[[nodiscard]] std::optional<std::size_t> firstInvalidUtf8(std::string_view text) noexcept;

/// The number of characters (code points) of a UTF-8 text.
[[nodiscard]] std::size_t countCharacters(std::string_view text) noexcept;

/// At most the given number of characters from the start; no character is cut in two.
[[nodiscard]] std::string_view firstCharacters(std::string_view text, std::size_t count) noexcept;

/// The text in lower case for comparisons: Latin, Greek and Cyrillic letters; others stay as they are.
[[nodiscard]] std::string foldCase(std::string_view text);

[[nodiscard]] bool equalIgnoringCase(std::string_view a, std::string_view b);

}  // namespace TBVNonPara::workbook
