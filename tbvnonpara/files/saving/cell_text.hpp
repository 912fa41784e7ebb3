#pragma once

#include <string>
#include <string_view>

#include "tbvnonpara/core/cell_value.hpp"
#include "tbvnonpara/core/rectangle.hpp"

namespace TBVNonPara::workbook {

/// The shortest digits that read back as the same number, at most 17: 9, 0.1, 1e+300.
void appendNumber(double number, std::string& text);

/// Adds a text with everything escaped that XML or a spreadsheet would read as something else: markup, a
/// carriage return, "_x0041_".
void appendEscaped(std::string_view text, std::string& xml);

/// Raises the host's error, which names the cell, for a text that no workbook can hold: control characters,
/// invalid UTF-8, more than 32767 characters.
void requireStorable(std::string_view text, std::string_view sheet, Index row, Index column);

/// The area that "H1" or "$H$1:$K$9" names; raises the host's error for anything else.
[[nodiscard]] Rectangle areaOf(std::string_view reference);

}  // namespace TBVNonPara::workbook
