#include "tbvnonpara/files/csv/field.hpp"

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
    if (field.size() == 4 && equalIgnoringCase(field, "true")) {
        return true;
    }
    if (field.size() == 5 && equalIgnoringCase(field, "false")) {
        return false;
    }
    return std::nullopt;
}

bool hasLeadingZero(std::string_view field) {
    return field.size() > 1 && field[0] == '0' && field[1] >= '0' && field[1] <= '9';
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
    if (const auto error = cellErrorNamed(field)) {
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
