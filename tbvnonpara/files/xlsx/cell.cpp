#include "tbvnonpara/files/xlsx/cell.hpp"

#include <algorithm>
#include <array>
#include <utility>

#include "tbvnonpara/files/xlsx/text.hpp"
#include "tbvnonpara/workbook/cell_store.hpp"
#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::workbook {

namespace {

/// Far outside a sheet, and far from overflowing.
constexpr Index outside = Index(1) << 31U;

std::string shortened(const std::string& value) {
    constexpr std::size_t enough = 40;
    return value.size() <= enough ? value : value.substr(0, enough) + "...";
}

template <typename Value>
CellValue required(const std::optional<Value>& value, const std::string& text, const char* expected) {
    if (!value) {
        refuse('"' + shortened(text) + "\" is no " + expected);
    }
    return *value;
}

CellValue sharedText(const XlsxCell& cell, const std::vector<Text>& shared) {
    const auto number = countInFile(cell.value);
    if (!number || *number >= shared.size()) {
        refuse("there is no shared text number \"" + shortened(cell.value) + "\" among " +
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
    if (found == std::end(types)) {
        refuse("there is no type of cells \"" + shortened(std::string(name)) + '"');
    }
    return found->second;
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
    }
    return {};
}

std::optional<CellPlace> placeOf(std::string_view reference) noexcept {
    CellPlace place;
    std::size_t i = 0;
    for (; i < reference.size(); ++i) {
        const char letter = static_cast<char>(reference[i] & ~0x20);
        if (letter < 'A' || letter > 'Z') {
            break;
        }
        place.column = std::min(place.column * 26 + (letter - 'A' + 1), outside);
    }
    const std::size_t letters = i;
    for (; i < reference.size(); ++i) {
        if (reference[i] < '0' || reference[i] > '9') {
            return std::nullopt;
        }
        place.row = std::min(place.row * 10 + (reference[i] - '0'), outside);
    }
    const bool complete = letters > 0 && letters < reference.size();
    return complete ? std::optional(place) : std::nullopt;
}

}  // namespace TBVNonPara::workbook
