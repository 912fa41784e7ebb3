#pragma once

#include <optional>
#include <string_view>

#include "tbvnonpara/core/cell_value.hpp"

namespace TBVNonPara::workbook {

/// What XML counts as white space.
constexpr std::string_view xmlBlanks = " \t\r\n";

/// The text without the blanks and line ends of XML around it.
[[nodiscard]] std::string_view withoutXmlBlanks(std::string_view text) noexcept;

/// The number that a file spells, exactly rounded: what is too small for a double is 0, what is too large the
/// error #NUM!. None for anything else than one number.
[[nodiscard]] std::optional<CellValue> numberInFile(std::string_view text) noexcept;

/// The whole number from 0 on that a file spells, none for anything else.
[[nodiscard]] std::optional<std::size_t> countInFile(std::string_view text) noexcept;

/// "#N/A" and its like, in German too, and the numbered errors of LibreOffice ("Err:502"), each as the
/// nearest of the seven that a cell knows. None for any other text.
[[nodiscard]] std::optional<CellError> errorInFile(std::string_view text) noexcept;

/// Whether a text can be what a cell shows for an error in some language: "#VALOR!", "#ЗНАЧ!", "Fehler:502".
[[nodiscard]] bool looksLikeError(std::string_view text) noexcept;

/// "1", "0", "true" and "false".
[[nodiscard]] std::optional<bool> truthInFile(std::string_view text) noexcept;

}  // namespace TBVNonPara::workbook
