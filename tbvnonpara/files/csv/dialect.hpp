#pragma once

#include <optional>
#include <string_view>

namespace TBVNonPara::workbook {

/// The character between fields, as the first lines of a text suggest it: the tab, semicolon, bar or comma
/// that divides most of them into equally many fields (in this order when several do). Commas that only ever
/// stand between digits of one column are decimal commas, not delimiters. A semicolon when nothing divides
/// the lines: a comma further down is then a decimal comma or part of a text.
[[nodiscard]] char sniffDelimiter(std::string_view text);

}  // namespace TBVNonPara::workbook
