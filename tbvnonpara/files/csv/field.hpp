#pragma once

#include <array>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "tbvnonpara/core/cell_value.hpp"
#include "tbvnonpara/core/short_number.hpp"

namespace TBVNonPara::workbook {

/// Turns the fields of a file into values. It remembers the decimal mark once a field has settled it, and
/// shares equal texts.
class CsvFieldReader {
 public:
    CsvFieldReader(std::optional<char> decimalMark, std::optional<char> thousands)
        : m_DecimalMark(decimalMark), m_Thousands(thousands) {}

    [[nodiscard]] CellValue plain(std::string_view field);
    [[nodiscard]] CellValue quoted(std::string_view field);

    /// Whether a whole field that was read as this number is that number.
    [[nodiscard]] bool takes(const ShortNumber& number) noexcept {
        if (number.size == 0 || m_Thousands || (number.hasPoint && m_DecimalMark == ',')) {
            return false;
        }
        if (number.hasPoint) {
            m_DecimalMark = '.';
        }
        return true;
    }

    /// None until a field has settled it.
    [[nodiscard]] std::optional<char> knownDecimalMark() const noexcept { return m_DecimalMark; }

 private:
    std::optional<double> number(std::string_view field);
    std::optional<double> numberWithoutGroups(std::string_view field);
    std::optional<double> numberWithComma(std::string_view field);
    Text text(std::string_view field);
    Text sharedText(std::string_view field);

    std::optional<char> m_DecimalMark;
    std::optional<char> m_Thousands;
    /// The keys are the texts' own characters.
    std::unordered_map<std::string_view, Text> m_Texts;
    /// The last text of each length, first and last character, which is found sooner.
    std::array<Text, 64> m_Recent;
    std::string m_Digits;
    std::string m_Ungrouped;
};

}  // namespace TBVNonPara::workbook
