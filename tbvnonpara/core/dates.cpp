#include "tbvnonpara/core/dates.hpp"

#include <charconv>
#include <chrono>

#include "tbvnonpara/core/words.hpp"

namespace TBVNonPara {

namespace {

constexpr double secondsADay = 86400;

/// Takes a date or a time apart, from left to right.
class Pieces {
 public:
    explicit Pieces(std::string_view text) : m_Rest(trimmed(text, " \t\r\n")) {}

    [[nodiscard]] bool atEnd() const noexcept { return m_Rest.empty(); }
    [[nodiscard]] std::string_view rest() const noexcept { return m_Rest; }

    bool take(char c) noexcept {
        if (!m_Rest.starts_with(c)) {
            return false;
        }
        m_Rest.remove_prefix(1);
        return true;
    }

    [[nodiscard]] std::optional<int> whole() noexcept {
        int number = 0;
        return convert(number, m_Rest.size()) ? std::optional(number) : std::nullopt;
    }

    [[nodiscard]] std::optional<double> fraction() noexcept {
        double number = 0;
        return convert(number, m_Rest.find_first_not_of("0123456789.")) ? std::optional(number)
                                                                        : std::nullopt;
    }

 private:
    template <typename Number>
    bool convert(Number& number, std::size_t length) noexcept {
        const std::string_view digits = m_Rest.substr(0, length);
        if (digits.find_first_of("0123456789") != 0) {
            return false;
        }
        const auto [stop, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
        m_Rest.remove_prefix(static_cast<std::size_t>(stop - digits.data()));
        return error == std::errc();
    }

    std::string_view m_Rest;
};

std::optional<std::chrono::sys_days> takeDay(Pieces& pieces) noexcept {
    const int sign = pieces.take('-') ? -1 : 1;
    const auto year = pieces.whole();
    const bool first = pieces.take('-');
    const auto month = pieces.whole();
    const bool second = pieces.take('-');
    const auto day = pieces.whole();
    if (!year || !month || !day || !first || !second || *year > 32000) {
        return std::nullopt;
    }
    const std::chrono::year_month_day date{std::chrono::year(sign * *year),
                                           std::chrono::month(static_cast<unsigned>(*month)),
                                           std::chrono::day(static_cast<unsigned>(*day))};
    return date.ok() ? std::optional(std::chrono::sys_days(date)) : std::nullopt;
}

/// Hours, minutes and seconds as a part of a day; a zone behind them may stand there.
std::optional<double> takeTime(Pieces& pieces) noexcept {
    const auto hours = pieces.whole();
    if (!hours || !pieces.take(':')) {
        return std::nullopt;
    }
    const auto minutes = pieces.whole();
    if (!minutes) {
        return std::nullopt;
    }
    const auto seconds = pieces.take(':') ? pieces.fraction() : std::optional(0.0);
    if (!seconds || *hours > 24 || *minutes > 59 || *seconds >= 61) {
        return std::nullopt;
    }
    const bool zoned =
        pieces.rest().starts_with('Z') || pieces.rest().starts_with('+') || pieces.rest().starts_with('-');
    if (!pieces.atEnd() && !zoned) {
        return std::nullopt;
    }
    return (*hours * 3600.0 + *minutes * 60.0 + *seconds) / secondsADay;
}

double serialOf(std::chrono::sys_days day, const DateSystem& system) noexcept {
    const std::chrono::year_month_day origin{std::chrono::year(system.year), std::chrono::month(system.month),
                                             std::chrono::day(system.day)};
    auto serial = static_cast<double>((day - std::chrono::sys_days(origin)).count());
    if (system.leap1900 && serial < 61 && serial > 0) {
        serial -= 1;
    }
    return serial;
}

}  // namespace

std::optional<double> serialOfDate(std::string_view text, const DateSystem& system) noexcept {
    Pieces timeOnly(text);
    if (text.find(':') < 3) {
        return takeTime(timeOnly);
    }
    Pieces pieces(text);
    const auto day = takeDay(pieces);
    if (!day) {
        return std::nullopt;
    }
    const double serial = serialOf(*day, system);
    if (pieces.atEnd() || pieces.rest().starts_with('Z')) {
        return serial;
    }
    const bool parted = pieces.take('T') || pieces.take(' ');
    const auto time = parted ? takeTime(pieces) : std::nullopt;
    return time ? std::optional(serial + *time) : std::nullopt;
}

std::optional<double> serialOfDuration(std::string_view text) noexcept {
    Pieces pieces(text);
    const double sign = pieces.take('-') ? -1 : 1;
    if (!pieces.take('P')) {
        return std::nullopt;
    }
    double seconds = 0;
    bool time = false;
    while (!pieces.atEnd()) {
        time = pieces.take('T') || time;
        const auto amount = pieces.fraction();
        if (!amount) {
            return std::nullopt;
        }
        if (!time && pieces.take('D')) {
            seconds += *amount * secondsADay;
        } else if (time && pieces.take('H')) {
            seconds += *amount * 3600;
        } else if (time && pieces.take('M')) {
            seconds += *amount * 60;
        } else if (!time || !pieces.take('S')) {
            return std::nullopt;
        } else {
            seconds += *amount;
        }
    }
    return sign * seconds / secondsADay;
}

std::optional<DateSystem> dateSystemFrom(std::string_view day) noexcept {
    Pieces pieces(day);
    const auto found = takeDay(pieces);
    if (!found) {
        return std::nullopt;
    }
    const std::chrono::year_month_day date(*found);
    return DateSystem{static_cast<int>(date.year()), static_cast<unsigned>(date.month()),
                      static_cast<unsigned>(date.day()), false};
}

}  // namespace TBVNonPara
