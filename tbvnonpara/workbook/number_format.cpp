#include "tbvnonpara/workbook/number_format.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <optional>

#include "tbvnonpara/core/conversions.hpp"

namespace TBVNonPara::workbook {

namespace {

constexpr int significantDigits = 15;

/// A format of fixed decimals.
struct FixedFormat {
    int decimals = 0;
    bool thousands = false;
    bool percent = false;
};

/// A number 0.d1d2d3... times 10 to the power `point`.
struct Decimal {
    std::string digits;
    int point = 0;
};

bool take(std::string_view& text, std::string_view prefix) {
    const bool there = text.starts_with(prefix);
    text.remove_prefix(there ? prefix.size() : 0);
    return there;
}

std::optional<FixedFormat> parseFormat(std::string_view format) {
    FixedFormat fixed;
    fixed.thousands = take(format, "#,##");
    if (!take(format, "0")) {
        return std::nullopt;
    }
    if (take(format, ".")) {
        while (take(format, "0")) {
            fixed.decimals += 1;
        }
        if (fixed.decimals == 0) {
            return std::nullopt;
        }
    }
    fixed.percent = take(format, "%");
    return format.empty() ? std::optional(fixed) : std::nullopt;
}

Decimal decimalOf(double number) {
    if (number == 0) {
        return {};
    }
    // d.dddde-05
    std::array<char, 32> text{};
    const auto written = std::to_chars(text.data(), text.data() + text.size(), std::abs(number),
                                       std::chars_format::scientific, significantDigits - 1);
    const std::string_view all(text.data(), static_cast<std::size_t>(written.ptr - text.data()));
    const std::size_t e = all.find('e');
    Decimal decimal;
    decimal.digits = std::string(1, all[0]).append(all.substr(2, e - 2));
    std::string_view exponent = all.substr(e + 1);
    take(exponent, "+");
    std::from_chars(exponent.data(), exponent.data() + exponent.size(), decimal.point);
    decimal.point += 1;
    return decimal;
}

/// Rounds to a number of decimals, halves away from zero, and pads with zeros up to them.
void roundTo(Decimal& decimal, int decimals) {
    const int kept = decimal.point + decimals;
    const bool up = kept >= 0 && static_cast<std::size_t>(kept) < decimal.digits.size() &&
                    decimal.digits[static_cast<std::size_t>(kept)] >= '5';
    decimal.digits.resize(static_cast<std::size_t>(std::max(kept, 0)), '0');
    if (!up) {
        return;
    }
    auto digit = decimal.digits.rbegin();
    for (; digit != decimal.digits.rend() && *digit == '9'; ++digit) {
        *digit = '0';
    }
    if (digit == decimal.digits.rend()) {
        decimal.digits.insert(0, 1, '1');
        decimal.point += 1;
    } else {
        *digit = static_cast<char>(*digit + 1);
    }
}

std::string wholePart(const Decimal& decimal, bool thousands) {
    const auto length = static_cast<std::size_t>(std::max(decimal.point, 0));
    std::string whole = decimal.digits.substr(0, length);
    whole = whole.empty() ? "0" : whole;
    if (thousands) {
        for (std::size_t i = whole.size(); i > 3; i -= 3) {
            whole.insert(i - 3, 1, ',');
        }
    }
    return whole;
}

std::string fixedText(double number, const FixedFormat& format) {
    Decimal decimal = decimalOf(number);
    decimal.point += format.percent ? 2 : 0;
    roundTo(decimal, format.decimals);
    const bool negative = number < 0 && decimal.digits.find_first_not_of('0') != std::string::npos;
    std::string text = negative ? "-" : "";
    text += wholePart(decimal, format.thousands);
    if (format.decimals > 0) {
        std::string fraction = decimal.point < 0
                                   ? decimal.digits
                                   : decimal.digits.substr(std::min(static_cast<std::size_t>(decimal.point),
                                                                    decimal.digits.size()));
        fraction.insert(0, static_cast<std::size_t>(format.decimals) - fraction.size(), '0');
        text.append(".").append(fraction);
    }
    return text.append(format.percent ? "%" : "");
}

/// "[<0.0001]A;B": A below the limit, else B.
std::string_view sectionFor(double number, std::string_view format) {
    const std::size_t end = format.find(']');
    const std::size_t between = format.find(';');
    double limit = 0;
    if (!format.starts_with("[<") || end == std::string_view::npos || between == std::string_view::npos ||
        between < end) {
        return format;
    }
    const auto read = std::from_chars(format.data() + 2, format.data() + end, limit);
    if (read.ec != std::errc() || read.ptr != format.data() + end) {
        return format;
    }
    return number < limit ? format.substr(end + 1, between - end - 1) : format.substr(between + 1);
}

/// "5.11E-07" of "0.00E+00".
std::string scientificText(double number) {
    constexpr int decimals = 2;
    std::array<char, 32> text{};
    const auto written = std::to_chars(text.data(), text.data() + text.size(), number,
                                       std::chars_format::scientific, decimals);
    std::string shown(text.data(), written.ptr);
    std::ranges::replace(shown, 'e', 'E');
    return shown;
}

}  // namespace

std::string displayText(const CellValue& value, std::string_view format) {
    if (const auto* truth = std::get_if<bool>(&value)) {
        return *truth ? "TRUE" : "FALSE";
    }
    const auto* number = std::get_if<double>(&value);
    if (number == nullptr || !std::isfinite(*number)) {
        return toText(value);
    }
    const std::string_view section = sectionFor(*number, format);
    if (section == "0.00E+00") {
        return scientificText(*number);
    }
    const std::optional<FixedFormat> fixed = parseFormat(section);
    return fixed ? fixedText(*number, *fixed) : toText(value);
}

}  // namespace TBVNonPara::workbook
