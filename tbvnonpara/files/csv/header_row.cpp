#include "tbvnonpara/files/csv/header_row.hpp"

#include <algorithm>
#include <string>

#include "tbvnonpara/workbook/host_error.hpp"

namespace TBVNonPara::workbook {

namespace {

bool allTexts(const CellStore& cells, Index row, Index columns) {
    for (Index column = 1; column <= columns; ++column) {
        if (!std::holds_alternative<Text>(cells.at(row, column))) {
            return false;
        }
    }
    return true;
}

/// Texts, or the numbers from 1 on, which R counts rows by.
bool holdsRowNames(const CellStore& cells, Index firstRow, Index lastRow) {
    double expected = 0;
    for (Index row = firstRow; row <= lastRow; ++row) {
        const CellValue& name = cells.at(row, 1);
        expected += isEmpty(name) ? 0 : 1;
        const auto* const number = std::get_if<double>(&name);
        const bool counts = number != nullptr && *number == expected;
        if (!counts && !isEmpty(name) && !std::holds_alternative<Text>(name)) {
            return false;
        }
    }
    return true;
}

void moveRight(CellStore& cells, Index row, Index columns) {
    for (Index column = columns; column >= 1; --column) {
        cells.set(row, column + 1, cells.at(row, column));
    }
    cells.set(row, 1, Empty());
}

[[noreturn]] void refuseLengths(std::string_view source, const RecordWidths& widths) {
    refuse(std::string(source) + ": the header row has " + std::to_string(widths.header) +
           " fields, and the rows below have " + std::to_string(widths.most) +
           "; give every column a header, or take the header row away.");
}

}  // namespace

void RecordWidths::add(Index row, Index fields) noexcept {
    if (headerRow == 0) {
        headerRow = row;
        header = fields;
        return;
    }
    fewest = secondRow == 0 ? fields : std::min(fewest, fields);
    most = std::max(most, fields);
    secondRow = secondRow == 0 ? row : secondRow;
}

void RecordWidths::join(const RecordWidths& below) noexcept {
    if (below.headerRow == 0) {
        return;
    }
    add(below.headerRow, below.header);
    if (below.secondRow != 0) {
        add(below.secondRow, below.fewest);
        most = std::max(most, below.most);
    }
}

bool alignHeader(CellStore& cells, const RecordWidths& widths, std::string_view source) {
    const Index header = widths.header;
    const Index fields = widths.most;
    if (fields == header || fields < 2 || widths.fewest != fields ||
        !allTexts(cells, widths.headerRow, header) || allTexts(cells, widths.secondRow, fields)) {
        return false;
    }
    // Fields behind the last label that hold nothing are delimiters at the ends of lines.
    if (fields > header && cells.lastUsedRow(header + 1, fields) == 0) {
        return false;
    }
    const bool one = header == 1;
    if (fields == header + 1 && (!one || holdsRowNames(cells, widths.secondRow, cells.lastUsedRow(1, 1)))) {
        moveRight(cells, widths.headerRow, header);
        return true;
    }
    // One label above several columns is a title.
    if (!one) {
        refuseLengths(source, widths);
    }
    return false;
}

}  // namespace TBVNonPara::workbook
