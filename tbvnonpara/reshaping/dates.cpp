#include "tbvnonpara/reshaping/dates.hpp"

#include <array>
#include <charconv>
#include <string>

#include "tbvnonpara/core/dates.hpp"
#include "tbvnonpara/core/words.hpp"

namespace TBVNonPara::reshaping {

namespace {

constexpr DateSystem sheetDays{};

/// "1/3/2020 12:30" taken apart.
struct ThreeNumbers {
    std::array<int, 3> numbers{};
    bool dots = false;
    std::string_view rest;  ///< the time
};

std::optional<int> takeNumber(std::string_view& text) noexcept {
    int number = 0;
    const auto [stop, error] = std::from_chars(text.data(), text.data() + text.size(), number);
    const auto length = static_cast<std::size_t>(stop - text.data());
    constexpr std::size_t mostDigits = 4;
    if (error != std::errc() || length > mostDigits || text.front() == '-') {
        return std::nullopt;
    }
    text.remove_prefix(length);
    return number;
}

std::optional<ThreeNumbers> threeNumbers(std::string_view text) noexcept {
    ThreeNumbers found;
    char divider = 0;
    for (int& number : found.numbers) {
        if (divider != 0) {
            if (!text.starts_with(divider)) {
                return std::nullopt;
            }
            text.remove_prefix(1);
        }
        const auto taken = takeNumber(text);
        if (!taken) {
            return std::nullopt;
        }
        number = *taken;
        divider = divider != 0 ? divider : text.empty() ? '\0' : text.front();
        if (divider != '/' && divider != '.' && divider != '-') {
            return std::nullopt;
        }
    }
    found.dots = divider == '.';
    found.rest = text;
    return found;
}

std::string twoDigits(int number) {
    const std::string digits = std::to_string(number);
    return number < 10 ? '0' + digits : digits;
}

std::optional<double> serial(int year, int month, int day, std::string_view time) {
    constexpr int firstYear = 1000;  // "20" may be 1920 or 2020
    if (year < firstYear || (!time.empty() && time.front() != ' ')) {
        return std::nullopt;
    }
    return serialOfDate(
        std::to_string(year) + '-' + twoDigits(month) + '-' + twoDigits(day) + std::string(time), sheetDays);
}

std::optional<double> yearLast(std::string_view text, DateOrder order) {
    const auto found = threeNumbers(text);
    if (!found) {
        return std::nullopt;
    }
    const auto [first, second, year] = found->numbers;
    const bool dayFirst = order == DateOrder::DayFirst;
    return serial(year, dayFirst ? second : first, dayFirst ? first : second, found->rest);
}

/// The orders that all dates of a column allow so far.
struct Allowed {
    bool yearFirst = true;
    bool dayFirst = true;
    bool monthFirst = true;

    void meet(std::string_view text) {
        const auto numbers = threeNumbers(text);
        yearFirst = yearFirst && dateIn(text, DateOrder::YearFirst);
        dayFirst = dayFirst && dateIn(text, DateOrder::DayFirst);
        monthFirst = monthFirst && dateIn(text, DateOrder::MonthFirst) && !(numbers && numbers->dots);
    }

    [[nodiscard]] std::optional<DateOrder> only() const noexcept {
        if (yearFirst) {
            return DateOrder::YearFirst;  // times alone stand in every order
        }
        if (dayFirst == monthFirst) {
            return std::nullopt;
        }
        return dayFirst ? DateOrder::DayFirst : DateOrder::MonthFirst;
    }
};

}  // namespace

std::optional<double> dateIn(std::string_view text, DateOrder order) noexcept try {
    const std::string_view date = trimmed(text);
    if (date.empty()) {
        return std::nullopt;
    }
    if (const auto iso = serialOfDate(date, sheetDays); iso && date.front() != '-') {
        return iso;
    }
    return order == DateOrder::YearFirst ? std::nullopt : yearLast(date, order);
} catch (...) {
    return std::nullopt;
}

std::optional<DateOrder> orderOfDates(const std::vector<CellValue>& cells) {
    Allowed allowed;
    bool any = false;
    for (const CellValue& cell : cells) {
        if (const auto* text = std::get_if<Text>(&cell)) {
            any = true;
            allowed.meet(text->string());
            if (!allowed.yearFirst && !allowed.dayFirst && !allowed.monthFirst) {
                return std::nullopt;
            }
        }
    }
    return any ? allowed.only() : std::nullopt;
}

}  // namespace TBVNonPara::reshaping
