#include "tbvnonpara/files/xlsx/text.hpp"

#include <cstdint>
#include <optional>

#include "tbvnonpara/core/utf8.hpp"
#include "tbvnonpara/files/file_cells.hpp"

namespace TBVNonPara::workbook {

namespace {

constexpr std::size_t escapeSize = 7;

/// The four digits of the escape that begins at a position.
std::optional<std::uint32_t> escapeAt(std::string_view text, std::size_t at) noexcept {
    const std::string_view escape = text.substr(at, escapeSize);
    if (escape.size() < escapeSize || !escape.starts_with("_x") || escape.back() != '_') {
        return std::nullopt;
    }
    std::uint32_t unit = 0;
    for (const char c : escape.substr(2, 4)) {
        const bool digit = c >= '0' && c <= '9';
        const char lower = static_cast<char>(c | 0x20);
        if (!digit && (lower < 'a' || lower > 'f')) {
            return std::nullopt;
        }
        unit = unit * 16 + static_cast<std::uint32_t>(digit ? c - '0' : lower - 'a' + 10);
    }
    return unit;
}

constexpr bool isSurrogate(std::uint32_t unit) noexcept {
    return unit >= 0xD800U && unit <= 0xDFFFU;
}

/// Appends what the escape at a position stands for; returns how many characters of the text it took, 0 for
/// none.
std::size_t appendUnescaped(std::string& result, std::string_view text, std::size_t at) {
    const auto unit = escapeAt(text, at);
    if (!unit) {
        return 0;
    }
    if (!isSurrogate(*unit)) {
        appendCharacter(result, *unit);
        return escapeSize;
    }
    const auto low = escapeAt(text, at + escapeSize);
    if (*unit >= 0xDC00U || !low || *low < 0xDC00U || *low > 0xDFFFU) {
        return 0;
    }
    appendCharacter(result, 0x10000U + ((*unit - 0xD800U) << 10U) + (*low - 0xDC00U));
    return 2 * escapeSize;
}

}  // namespace

std::string unescapedXlsx(std::string text) {
    std::size_t at = text.find("_x");
    if (at == std::string::npos) {
        return text;
    }
    std::string result = text.substr(0, at);
    while (at < text.size()) {
        const std::size_t taken = text[at] == '_' ? appendUnescaped(result, text, at) : 0;
        if (taken == 0) {
            result += text[at];
        }
        at += taken == 0 ? 1 : taken;
    }
    return result;
}

void RichText::begin() {
    m_InRun = false;
    m_InCharacters = false;
    m_Text.clear();
}

bool RichText::start(std::string_view element) noexcept {
    if (m_InCharacters) {
        return false;
    }
    if (element == "t") {
        m_InCharacters = true;
        return true;
    }
    if (element == "r" && !m_InRun) {
        m_InRun = true;
        return true;
    }
    return false;
}

bool RichText::end() noexcept {
    if (m_InCharacters) {
        m_InCharacters = false;
        return true;
    }
    const bool inside = m_InRun;
    m_InRun = false;
    return inside;
}

void RichText::append(std::string_view piece) {
    if (m_InCharacters) {
        appendToText(m_Text, piece);
    }
}

}  // namespace TBVNonPara::workbook
