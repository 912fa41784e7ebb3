#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace TBVNonPara::workbook {

/// The character between fields, as the first lines of a text suggest it: the tab, semicolon, bar or comma
/// that divides most of them into equally many fields (in this order when several do). One that is missing in
/// the header and in half of all lines belongs to a text; commas that only ever stand between digits of one
/// column are decimal commas. Blanks divide a table whose labels, and names of rows, are in quotes. None when
/// nothing divides the lines: then there is one column. Lines that begin with the comment are not looked at.
[[nodiscard]] std::optional<char> sniffDelimiter(std::string_view text, std::string_view comment = {});

/// A first line such as "sep=;", which spreadsheets write and read to say what stands between fields.
struct DelimiterLine {
    char delimiter;
    std::size_t size;  ///< with the line's end
};
[[nodiscard]] std::optional<DelimiterLine> delimiterLine(std::string_view text) noexcept;

}  // namespace TBVNonPara::workbook
