#include "tbvnonpara/report/detail_page.hpp"

#include <array>
#include <charconv>
#include <cmath>

namespace TBVNonPara {

namespace {

std::string withDecimals(double number, int decimals) {
    std::array<char, 400> text{};
    const auto end =
        std::to_chars(text.data(), text.data() + text.size(), number, std::chars_format::fixed, decimals);
    return {text.data(), end.ptr};
}

}  // namespace

std::string smallProbabilityText(double log10) {
    double exponent = std::floor(log10);
    double digits = std::pow(10, log10 - exponent);
    if (digits >= 9.995) {  // would be shown as 10.00
        digits /= 10;
        exponent += 1;
    }
    return withDecimals(digits, 2) + 'e' + withDecimals(exponent, 0);
}

CellValue sheetValue(const DetailCell& cell) {
    if (const auto* text = std::get_if<std::string>(&cell.value)) {
        return Text(*text);
    }
    const auto* number = std::get_if<double>(&cell.value);
    if (number == nullptr) {
        return {};
    }
    const bool ranOut = cell.form == DetailForm::Probability && *number < smallestProbability;
    return ranOut ? CellValue(Text(smallProbabilityText(cell.log10))) : CellValue(*number);
}

std::string sheetFormat(const DetailCell& cell) {
    switch (cell.form) {
        case DetailForm::Probability:
            return "[<0.0001]0.00E+00;0.0000";
        case DetailForm::Whole:
            return "0";
        case DetailForm::Percent:
            return "0%";
        case DetailForm::Share:
            return "0\" of " + withDecimals(cell.whole, 0) + '"';
        case DetailForm::Number:
            break;
    }
    return "0.0000";
}

}  // namespace TBVNonPara
