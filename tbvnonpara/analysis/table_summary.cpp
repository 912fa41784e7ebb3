#include "tbvnonpara/analysis/table_summary.hpp"

#include <algorithm>
#include <unordered_set>

#include "tbvnonpara/analysis/column_address.hpp"
#include "tbvnonpara/analysis/table_column.hpp"
#include "tbvnonpara/core/conversions.hpp"
#include "tbvnonpara/ordering/selection.hpp"
#include "tbvnonpara/reshaping/missing.hpp"

namespace TBVNonPara::analysis {

namespace {

using reshaping::Column;
using reshaping::Missing;

bool mayBeHeader(const CellValue& value) {
    const auto* const text = std::get_if<Text>(&value);
    return isEmpty(value) || (text != nullptr && !readAsNumber(text->string()));
}

/// Whether the first row holds texts alone, and one at least.
bool beginsWithHeaders(const workbook::Sheet& sheet, Index top, const std::vector<Piece>& columns) {
    const auto first = [&](const Piece& piece) { return sheet.value(top, piece.cells.left); };
    return std::ranges::all_of(columns, [&](const Piece& piece) { return mayBeHeader(first(piece)); }) &&
           std::ranges::any_of(columns, [&](const Piece& piece) { return !isEmpty(first(piece)); });
}

/// Among TRUE and FALSE a value is missing as among numbers.
bool isLogical(const Column& column, const Missing& missing) {
    const auto isTruth = [](const CellValue& cell) { return std::holds_alternative<bool>(cell); };
    return std::ranges::any_of(column.cells, isTruth) &&
           std::ranges::all_of(column.cells, [&](const CellValue& cell) {
               return isTruth(cell) || missing.amongNumbers(cell);
           });
}

bool isOfTexts(const Column& column, const Missing& missing) {
    return std::ranges::all_of(column.cells, [&](const CellValue& cell) {
        return missing.amongNames(cell) || std::holds_alternative<Text>(cell);
    });
}

bool holdsNumber(const CellValue& cell) {
    const auto* const text = std::get_if<Text>(&cell);
    return std::holds_alternative<double>(cell) || (text != nullptr && readAsNumber(text->string()));
}

ColumnKind kindOf(const Column& column, const Missing& missing) {
    if (reshaping::holdsNumbers(column, missing)) {
        const bool numbers = std::ranges::any_of(column.cells, holdsNumber);
        return numbers ? ColumnKind::Numbers : ColumnKind::Dates;
    }
    if (isLogical(column, missing)) {
        return ColumnKind::Logical;
    }
    return isOfTexts(column, missing) ? ColumnKind::Texts : ColumnKind::Mixed;
}

void addNumbers(Column column, const Missing& missing, ColumnSummary& summary) {
    static_cast<void>(reshaping::makeNumbers(column, missing));
    std::vector<double> numbers;
    for (const CellValue& cell : column.cells) {
        if (const auto* const number = std::get_if<double>(&cell)) {
            numbers.push_back(*number);
        }
    }
    const auto [least, greatest] = std::ranges::minmax(numbers);
    summary.least = least;
    summary.median = medianOf(numbers);
    summary.greatest = greatest;
}

ColumnSummary summaryOf(const Column& column, const Missing& missing) {
    ColumnSummary summary;
    summary.number = column.place;
    summary.header = column.header;
    summary.kind = kindOf(column, missing);
    const bool numbers = summary.kind == ColumnKind::Numbers || summary.kind == ColumnKind::Dates;
    std::unordered_set<std::string> different;
    const bool codes = numbers || summary.kind == ColumnKind::Logical;
    for (const CellValue& cell : column.cells) {
        if (codes ? missing.amongNumbers(cell) : missing.amongNames(cell)) {
            summary.missing += 1;
        } else {
            summary.values += 1;
            different.insert(toText(cell));
        }
    }
    summary.different = different.size();
    if (numbers) {
        addNumbers(column, missing, summary);
    }
    return summary;
}

}  // namespace

std::string_view nameOf(ColumnKind kind) noexcept {
    switch (kind) {
        case ColumnKind::Numbers:
            return "numbers";
        case ColumnKind::Dates:
            return "dates";
        case ColumnKind::Texts:
            return "texts";
        case ColumnKind::Logical:
            return "logical";
        case ColumnKind::Mixed:
            break;
    }
    return "mixed";
}

TableSummary summaryOf(const workbook::Sheet& sheet, const Choices& choices) {
    TableSummary table;
    table.sheet = sheet.name();
    const auto used = sheet.usedArea();
    if (!used) {
        return table;
    }
    const std::vector<Piece> columns = columnsWithData(sheet);
    const Missing missing(choices.missingWords);
    table.headers = choices.headers.value_or(beginsWithHeaders(sheet, used->top, columns));
    table.rows = static_cast<std::size_t>(used->rows()) - (table.headers ? 1 : 0);
    for (const Piece& piece : columns) {
        table.columns.push_back(
            summaryOf(wholeColumn(sheet, *used, piece.cells.left, table.headers), missing));
    }
    return table;
}

std::vector<std::string> headersOf(const workbook::Sheet& sheet, const Choices& choices) {
    std::vector<std::string> headers;
    const auto used = sheet.usedArea();
    const std::vector<Piece> columns = columnsWithData(sheet);
    if (!used || !choices.headers.value_or(beginsWithHeaders(sheet, used->top, columns))) {
        return headers;
    }
    for (const Piece& piece : columns) {
        const CellValue& header = sheet.value(used->top, piece.cells.left);
        if (!isEmpty(header)) {
            headers.push_back(toText(header));
        }
    }
    return headers;
}

}  // namespace TBVNonPara::analysis
