#include "tbvnonpara/files/file_values.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

#include "tbvnonpara/core/short_number.hpp"
#include "tbvnonpara/core/words.hpp"

namespace TBVNonPara::workbook {

namespace {

struct ErrorName {
    std::string_view text;
    CellError error;
};

/// Names that are not English: what an office with another language writes of an error that formulas give.
constexpr auto otherErrorNames = std::to_array<ErrorName>({
    {"#NV", CellError::NotAvailable},
    {"#WERT!", CellError::Value},
    {"#BEZUG!", CellError::Reference},
    {"#ZAHL!", CellError::Number},
    {"#GETTING_DATA", CellError::NotAvailable},
});

/// A number out of the range of doubles: does its exponent lead down to nothing?
bool isTiny(std::string_view digits) noexcept {
    const std::size_t exponent = digits.find_first_of("eE");
    if (exponent != std::string_view::npos) {
        return digits.substr(exponent + 1, 1) == "-";
    }
    const std::size_t first = digits.find_first_of("123456789");
    return digits.find('.') < first;
}

/// A letter of any alphabet, or a sign that some languages begin a name with ("¡").
bool isLetter(char c) noexcept {
    const char lower = static_cast<char>(c | 0x20);
    return (lower >= 'a' && lower <= 'z') || static_cast<unsigned char>(c) >= 0x80U;
}

}  // namespace

std::string_view withoutXmlBlanks(std::string_view text) noexcept {
    return trimmed(text, xmlBlanks);
}

std::optional<CellValue> numberInFile(std::string_view text) noexcept {
    if (const ShortNumber number = shortNumber(text); number.size > 0 && number.size == text.size()) {
        return number.value;
    }
    std::string_view digits = withoutXmlBlanks(text);
    if (digits.starts_with('+')) {
        digits.remove_prefix(1);
    }
    const std::size_t sign = digits.starts_with('-') ? 1 : 0;
    // Only digits: the words for infinity and for what is no number stand for no cell.
    if (digits.substr(sign).find_first_of("0123456789.") != 0 || (sign == 1 && text.find('+') == 0)) {
        return std::nullopt;
    }
    const char* const end = digits.data() + digits.size();
    double number = 0;
    const auto [stop, error] = std::from_chars(digits.data(), end, number);
    if (stop != end || error == std::errc::invalid_argument) {
        return std::nullopt;
    }
    if (error == std::errc::result_out_of_range || !std::isfinite(number)) {
        return isTiny(digits) ? CellValue(0.0) : CellValue(CellError::Number);
    }
    return number;
}

std::optional<std::size_t> countInFile(std::string_view text) noexcept {
    const std::string_view digits = withoutXmlBlanks(text);
    std::size_t count = 0;
    const auto [stop, error] = std::from_chars(digits.data(), digits.data() + digits.size(), count);
    if (error != std::errc() || stop != digits.data() + digits.size()) {
        return std::nullopt;
    }
    return count;
}

std::optional<CellError> errorInFile(std::string_view text) noexcept {
    constexpr std::string_view numbered = "Err:";
    if (text.starts_with(numbered)) {
        const auto number = countInFile(text.substr(numbered.size()));
        return officeError(number && *number <= 99'999 ? static_cast<std::int32_t>(*number) : 0);
    }
    const auto* const other = std::ranges::find(otherErrorNames, text, &ErrorName::text);
    return other != std::end(otherErrorNames) ? std::optional(other->error) : cellErrorNamed(text);
}

bool looksLikeError(std::string_view text) noexcept {
    if (text.size() < 2) {
        return false;
    }
    if (text.front() == '#') {
        return isLetter(text[1]);
    }
    // "Err:502": a word and a number of three digits, the first of which is a 5.
    constexpr std::size_t numberSize = 4;
    const std::size_t colon = text.size() - std::min(numberSize, text.size());
    const std::string_view number = text.substr(colon);
    return isLetter(text.front()) && number.starts_with(":5") && countInFile(number.substr(1));
}

std::optional<bool> truthInFile(std::string_view text) noexcept {
    if (text == "1" || text == "true") {
        return true;
    }
    if (text == "0" || text == "false") {
        return false;
    }
    return std::nullopt;
}

}  // namespace TBVNonPara::workbook
