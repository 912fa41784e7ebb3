#include "tbvnonpara/core/conversions.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

#include "tbvnonpara/core/words.hpp"

namespace TBVNonPara {

namespace {

template <typename Number>
std::string generalText(Number number, int digits) {
    std::array<char, 32> buffer{};
    const auto end = std::to_chars(buffer.data(), buffer.data() + buffer.size(), number,
                                   std::chars_format::general, digits);
    return {buffer.data(), end.ptr};
}

/// The number read back from its text of seven digits, without the text, for numbers of everyday size. Both
/// steps are exact: 24 bits times a power of ten up to 10^12, whose odd part has 28 bits, fit in a double,
/// and a quotient of two whole numbers is the double nearest to the decimal fraction.
std::optional<double> roundToSevenDigits(float number) {
    constexpr double smallest = 1e6;
    constexpr double tooLarge = 1e7;
    constexpr double largestPower = 1e12;
    const double size = std::abs(static_cast<double>(number));
    if (!(size >= smallest / largestPower && size < tooLarge)) {
        return std::nullopt;
    }
    double power = 1;
    while (size * power < smallest) {
        power *= 10;
    }
    return std::copysign(std::nearbyint(size * power) / power, number);
}

}  // namespace

std::optional<double> readAsNumber(std::string_view text) noexcept {
    std::string_view digits = trimmed(text, " \t");
    if (digits.starts_with('+')) {
        digits.remove_prefix(1);
        if (digits.starts_with('-')) {
            return std::nullopt;
        }
    }
    double number = 0;
    const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), number);
    if (digits.empty() || error != std::errc() || end != digits.data() + digits.size() ||
        !std::isfinite(number)) {
        return std::nullopt;
    }
    return number;
}

std::string toText(double number) {
    std::string text = generalText(number == 0 ? 0.0 : number, 15);
    std::ranges::replace(text, 'e', 'E');
    return text;
}

std::string toText(Long number) {
    return std::to_string(number.value());
}

Long roundHalfToEven(double number) {
    const double whole = std::nearbyint(number);
    if (!(whole >= std::numeric_limits<std::int32_t>::min() &&
          whole <= std::numeric_limits<std::int32_t>::max())) {
        raise(RuntimeError::Overflow);
    }
    return Long(static_cast<std::int32_t>(whole));
}

double throughSinglePrecisionText(double number) {
    const auto single = static_cast<float>(number);
    if (!std::isfinite(single)) {
        raise(RuntimeError::Overflow);
    }
    if (const auto rounded = roundToSevenDigits(single)) {
        return *rounded;
    }
    const std::string text = generalText(single, 7);
    double result = 0;
    std::from_chars(text.data(), text.data() + text.size(), result);
    return result;
}

}  // namespace TBVNonPara
