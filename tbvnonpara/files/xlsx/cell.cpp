#include "tbvnonpara/files/xlsx/cell.hpp"

#include <algorithm>
#include <array>
#include <utility>

#include "tbvnonpara/core/words.hpp"
#include "tbvnonpara/files/xlsx/text.hpp"
#include "tbvnonpara/workbook/cell_store.hpp"
#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::workbook {

namespace {

/// As much of a value as an error shows.
constexpr std::size_t shownBytes = 40;

template <typename Value>
CellValue required(const std::optional<Value>& value, const std::string& text, const char* expected) {
    if (!value) {
        refuse(inQuotes(shortened(text, shownBytes)) + " is no " + expected);
    }
    return *value;
}

CellValue sharedText(const XlsxCell& cell, const std::vector<Text>& shared) {
    const auto number = countInFile(cell.value);
    if (!number || *number >= shared.size()) {
        refuse("there is no shared text number " + inQuotes(shortened(cell.value, shownBytes)) + " among " +
               std::to_string(shared.size()));
    }
    return shared[*number];
}

}  // namespace

XlsxType typeNamed(std::string_view name) {
    constexpr auto types = std::to_array<std::pair<std::string_view, XlsxType>>({
        {"n", XlsxType::Number},
        {"s", XlsxType::SharedText},
        {"str", XlsxType::FormulaText},
        {"b", XlsxType::Boolean},
        {"inlineStr", XlsxType::InlineText},
        {"e", XlsxType::Error},
        {"d", XlsxType::Date},
    });
    const auto* const found = std::ranges::find(types, name, &std::pair<std::string_view, XlsxType>::first);
    return found == std::end(types) ? XlsxType::Unknown : found->second;
}

CellValue meaningOf(const XlsxCell& cell, const XlsxTexts& texts) {
    const bool mayBeEmpty = cell.type == XlsxType::FormulaText || cell.type == XlsxType::InlineText;
    if (!cell.hasValue || (cell.value.empty() && !mayBeEmpty)) {
        return cell.formula ? CellValue(uncalculated) : CellValue();
    }
    switch (cell.type) {
        case XlsxType::Number:
            return required(numberInFile(cell.value), cell.value, "number");
        case XlsxType::SharedText:
            return sharedText(cell, texts.shared);
        case XlsxType::FormulaText:
            return Text(unescapedXlsx(cell.value));
        case XlsxType::InlineText:
            return Text(cell.value);
        case XlsxType::Boolean:
            return required(truthInFile(withoutXmlBlanks(cell.value)), cell.value, "Boolean");
        case XlsxType::Error:
            // Errors younger than the seven that a cell knows have no better number.
            return errorInFile(withoutXmlBlanks(cell.value)).value_or(CellError::Value);
        case XlsxType::Date:
            return required(serialOfDate(cell.value, texts.dates), cell.value, "date");
        case XlsxType::Unknown:
            refuse("there is no type of cells " + inQuotes(shortened(cell.unknownType, shownBytes)));
    }
    return {};
}

}  // namespace TBVNonPara::workbook
