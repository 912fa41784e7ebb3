#include "tbvnonpara/files/saving/cell_text.hpp"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "tbvnonpara/core/utf8.hpp"
#include "tbvnonpara/workbook/address.hpp"
#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::workbook {

namespace {

constexpr bool isHexadecimal(char c) noexcept {
    return (c >= '0' && c <= '9') || (c >= 'a' && c <= 'f') || (c >= 'A' && c <= 'F');
}

/// Whether a text begins with what stands for a character by its number: _x0041_.
bool beginsWithEscape(std::string_view text) noexcept {
    constexpr std::size_t length = 7;
    return text.size() >= length && text[0] == '_' && (text[1] == 'x' || text[1] == 'X') &&
           text[length - 1] == '_' && std::ranges::all_of(text.substr(2, 4), isHexadecimal);
}

/// The position of the first character that XML has no place for.
std::size_t firstForbidden(std::string_view text) noexcept {
    for (std::size_t i = 0; i < text.size(); ++i) {
        const auto c = static_cast<unsigned char>(text[i]);
        const bool control = c < 0x20U && c != '\t' && c != '\n' && c != '\r';
        const std::string_view three = text.substr(i, 3);
        if (control || three == "\xEF\xBF\xBE" || three == "\xEF\xBF\xBF") {
            return i;
        }
    }
    return std::string_view::npos;
}

}  // namespace

void appendNumber(double number, std::string& text) {
    if (number == 0 && std::signbit(number)) {
        text += "-0.0";  // readers take "-0" for a whole number, which has no sign
        return;
    }
    std::array<char, 32> digits{};
    char* const end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
    text.append(digits.data(), end);
}

void appendEscaped(std::string_view text, std::string& xml) {
    for (std::size_t i = 0; i < text.size(); ++i) {
        switch (text[i]) {
            case '&':
                xml += "&amp;";
                break;
            case '<':
                xml += "&lt;";
                break;
            case '>':
                xml += "&gt;";
                break;
            case '"':
                xml += "&quot;";
                break;
            case '\r':
                xml += "&#13;";
                break;
            default:
                xml += beginsWithEscape(text.substr(i)) ? "_x005F" : "";
                xml += text[i];
        }
    }
}

void requireStorable(std::string_view text, std::string_view sheet, Index row, Index column) {
    constexpr std::size_t longest = 32767;
    const auto refuseText = [&](const std::string& why) {
        refuse("The text in " + quotedSheetName(sheet) + '!' + plainAddress(row, column) +
               " cannot be saved in a workbook: " + why);
    };
    if (firstInvalidUtf8(text)) {
        refuseText("it is not valid UTF-8.");
    }
    const std::size_t forbidden = firstForbidden(text);
    if (forbidden != std::string_view::npos) {
        refuseText("character " + std::to_string(countCharacters(text.substr(0, forbidden)) + 1) +
                   " is a control character.");
    }
    if (text.size() > longest && countUtf16Units(text) > longest) {
        refuseText("it has more than 32767 characters.");
    }
}

Rectangle areaOf(std::string_view reference) {
    return parseAddress(reference).front().cells;
}

}  // namespace TBVNonPara::workbook
