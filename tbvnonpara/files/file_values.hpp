#pragma once

#include <optional>
#include <string_view>

#include "tbvnonpara/core/cell_value.hpp"

namespace TBVNonPara::workbook {

/// The text without the blanks and line ends of XML around it.
[[nodiscard]] std::string_view withoutXmlBlanks(std::string_view text) noexcept;

/// The number that a file spells, exactly rounded: what is too small for a double is 0, what is too large the
/// error #NUM!. None for anything else than one number.
[[nodiscard]] std::optional<CellValue> numberInFile(std::string_view text) noexcept;

/// The whole number from 0 on that a file spells, none for anything else.
[[nodiscard]] std::optional<std::size_t> countInFile(std::string_view text) noexcept;

/// "#N/A" and its like, and the numbered errors of LibreOffice ("Err:502"), each as the nearest of the seven
/// that a cell knows. None for any other text.
[[nodiscard]] std::optional<CellError> errorInFile(std::string_view text) noexcept;

/// "1", "0", "true" and "false".
[[nodiscard]] std::optional<bool> truthInFile(std::string_view text) noexcept;

/// How days are counted: the day whose number is 0, and whether 1900 is taken for a leap year, which moves
/// the days before 1900-03-01 by one.
struct DateSystem {
    int year = 1899;
    unsigned month = 12;
    unsigned day = 30;
    bool leap1900 = false;
};

constexpr DateSystem dates1900{1899, 12, 30, true};
constexpr DateSystem dates1904{1904, 1, 1, false};

/// "2020-03-01", "2020-03-01T12:00:00.5" and "12:00:00" as the day's number with the time as its fraction. A
/// time zone is not applied: cells know none.
[[nodiscard]] std::optional<double> serialOfDate(std::string_view text, const DateSystem& system) noexcept;

/// "PT30H05M00.5S" in days.
[[nodiscard]] std::optional<double> serialOfDuration(std::string_view text) noexcept;

/// The day on which a system counts from 0, "1904-01-01".
[[nodiscard]] std::optional<DateSystem> dateSystemFrom(std::string_view day) noexcept;

}  // namespace TBVNonPara::workbook
