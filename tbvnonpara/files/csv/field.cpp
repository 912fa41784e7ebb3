#include "tbvnonpara/files/csv/field.hpp"

#include <array>
#include <initializer_list>

#include "tbvnonpara/core/conversions.hpp"
#include "tbvnonpara/core/utf8.hpp"

namespace TBVNonPara::workbook {

namespace {

/// Labels repeat; a column of different texts would only fill the table.
constexpr std::size_t mostSharedTexts = 4096;

constexpr bool mayBeginNumber(char c) noexcept {
    return (c >= '0' && c <= '9') || std::string_view("+-., \t").find(c) != std::string_view::npos;
}

std::optional<bool> readAsBoolean(std::string_view field) {
    const char first = static_cast<char>(field.front() | 0x20);
    if (first == 't' && field.size() == 4 && equalIgnoringCase(field, "true")) {
        return true;
    }
    if (first == 'f' && field.size() == 5 && equalIgnoringCase(field, "false")) {
        return false;
    }
    return std::nullopt;
}

bool hasLeadingZero(std::string_view field) {
    return field.size() > 1 && field[0] == '0' && field[1] >= '0' && field[1] <= '9';
}

constexpr bool isFigure(char c) noexcept {
    return c >= '0' && c <= '9';
}

/// How many bytes the separator takes at the beginning of a text, 0 when it does not stand there. Blanks that
/// do not break and typographic apostrophes stand for their plain forms.
std::size_t separatorSize(std::string_view text, char separator) noexcept {
    const auto begins = [=](std::initializer_list<std::string_view> forms) -> std::size_t {
        for (const std::string_view form : forms) {
            if (text.starts_with(form)) {
                return form.size();
            }
        }
        return 0;
    };
    if (separator == ' ') {
        return begins({" ", "\xC2\xA0", "\xE2\x80\xAF", "\xE2\x80\x89"});
    }
    return separator == '\'' ? begins({"'", "\xE2\x80\x99"}) : begins({std::string_view(&separator, 1)});
}

/// The number without the separators between its groups of three digits; none when they stand elsewhere. A
/// number without separators is grouped well.
bool takeGroupsApart(std::string_view field, char separator, std::string& digits) {
    digits.clear();
    std::size_t at = field.find_first_of("0123456789");
    if (at == std::string_view::npos) {
        return false;
    }
    digits = field.substr(0, at);
    bool grouped = false;
    while (true) {
        std::size_t figures = 0;
        while (at + figures < field.size() && isFigure(field[at + figures])) {
            figures += 1;
        }
        constexpr std::size_t group = 3;
        const std::size_t size = separatorSize(field.substr(at + figures), separator);
        const bool another =
            size > 0 && at + figures + size < field.size() && isFigure(field[at + figures + size]);
        if ((grouped && figures != group) || (!grouped && another && figures > group)) {
            return false;
        }
        digits += field.substr(at, figures);
        at += figures;
        if (!another) {
            digits += field.substr(at);
            return true;
        }
        grouped = true;
        at += size;
    }
}

}  // namespace

CellValue CsvFieldReader::plain(std::string_view field) {
    if (field.empty()) {
        return Empty();
    }
    if (const auto value = number(field)) {
        return *value;
    }
    if (const auto truth = readAsBoolean(field)) {
        return *truth;
    }
    if (const auto error = field.front() == '#' ? cellErrorNamed(field) : std::nullopt) {
        return *error;
    }
    return text(field);
}

CellValue CsvFieldReader::quoted(std::string_view field) {
    if (field.empty()) {
        return Empty();
    }
    if (!hasLeadingZero(field)) {
        if (const auto value = number(field)) {
            return *value;
        }
    }
    return text(field);
}

std::optional<double> CsvFieldReader::number(std::string_view field) {
    if (!mayBeginNumber(field.front())) {
        return std::nullopt;
    }
    if (!m_Thousands) {
        return numberWithoutGroups(field);
    }
    return takeGroupsApart(field, *m_Thousands, m_Ungrouped) ? numberWithoutGroups(m_Ungrouped)
                                                             : std::nullopt;
}

std::optional<double> CsvFieldReader::numberWithoutGroups(std::string_view field) {
    if (m_DecimalMark == '.') {
        return readAsNumber(field);
    }
    if (field.find(',') != std::string_view::npos) {
        return numberWithComma(field);
    }
    const bool hasPoint = field.find('.') != std::string_view::npos;
    if (hasPoint && m_DecimalMark) {
        return std::nullopt;
    }
    const std::optional<double> number = readAsNumber(field);
    if (hasPoint && number) {
        m_DecimalMark = '.';
    }
    return number;
}

std::optional<double> CsvFieldReader::numberWithComma(std::string_view field) {
    if (field.find('.') != std::string_view::npos) {
        return std::nullopt;
    }
    m_Digits = field;
    m_Digits[m_Digits.find(',')] = '.';
    const std::optional<double> number = readAsNumber(m_Digits);
    if (number) {
        m_DecimalMark = ',';
    }
    return number;
}

Text CsvFieldReader::text(std::string_view field) {
    const std::size_t first = static_cast<unsigned char>(field.front());
    const std::size_t last = static_cast<unsigned char>(field.back());
    Text& recent = m_Recent.at((field.size() + 8 * first + last) % m_Recent.size());
    if (recent.string() != field) {
        recent = sharedText(field);
    }
    return recent;
}

Text CsvFieldReader::sharedText(std::string_view field) {
    if (const auto known = m_Texts.find(field); known != m_Texts.end()) {
        return known->second;
    }
    Text text(field);
    if (m_Texts.size() < mostSharedTexts) {
        m_Texts.emplace(text.string(), text);
    }
    return text;
}

}  // namespace TBVNonPara::workbook
