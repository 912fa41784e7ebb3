#pragma once

#include <optional>
#include <string_view>

#include "tbvnonpara/core/api.hpp"

namespace TBVNonPara {

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

/// "2020-03-01", "2020-03-01T12:00:00.5" (a blank may stand for the T) and "12:00:00" as the day's number
/// with the time as its fraction. A time zone is not applied: cells know none.
[[nodiscard]] TBVNONPARA_API std::optional<double> serialOfDate(std::string_view text,
                                                                const DateSystem& system) noexcept;

/// "PT30H05M00.5S" in days.
[[nodiscard]] TBVNONPARA_API std::optional<double> serialOfDuration(std::string_view text) noexcept;

/// The day on which a system counts from 0, "1904-01-01".
[[nodiscard]] TBVNONPARA_API std::optional<DateSystem> dateSystemFrom(std::string_view day) noexcept;

}  // namespace TBVNonPara
