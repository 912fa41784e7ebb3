#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "tbvnonpara/core/cell_value.hpp"

namespace TBVNonPara::reshaping {

/// How the texts of a column write a date.
enum class DateOrder { YearFirst, DayFirst, MonthFirst };

/// The day's number of a date with or without a time, or the part of a day of a time: as sheets count them
/// (1899-12-30 is 0). "2020-03-01", "2020-03-01 12:30", "12:30:05", "1/3/2020", "01.03.2020 12:30".
[[nodiscard]] std::optional<double> dateIn(std::string_view text, DateOrder order) noexcept;

/// The one order in which all texts among the cells are dates or times; none when one of them is neither, or
/// when days and months cannot be told apart. Days stand first where dots divide them.
[[nodiscard]] std::optional<DateOrder> orderOfDates(const std::vector<CellValue>& cells);

}  // namespace TBVNonPara::reshaping
