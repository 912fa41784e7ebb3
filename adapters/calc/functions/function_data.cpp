#include "adapters/calc/functions/function_data.hpp"

#include <algorithm>

namespace TBVNonPara::calc {

namespace {

using css::uno::Any;
using css::uno::Sequence;

CellValue cellOf(const Any& value) {
    double number = 0;
    if (value >>= number) {
        return number;
    }
    bool truth = false;
    if (value >>= truth) {
        return truth ? 1.0 : 0.0;  // as cells hold truths
    }
    OUString text;
    if ((value >>= text) && !text.isEmpty()) {
        return Text(toUtf8(text));
    }
    return Empty();
}

bool isNumber(const CellValue& cell) {
    return std::holds_alternative<double>(cell);
}

bool isInEvery(const CellColumns& columns, std::size_t row) {
    return std::ranges::all_of(columns, [row](const auto& column) { return isNumber(column[row]); });
}

/// Rows of which each column has a number.
CellColumns wholeRows(CellColumns columns) {
    const std::size_t rows = columns.empty() ? 0 : columns.front().size();
    if (!std::ranges::all_of(columns, [rows](const auto& column) { return column.size() == rows; })) {
        throw NotComputable{CellError::Value};
    }
    std::size_t kept = 0;
    for (std::size_t row = 0; row < rows; ++row) {
        if (!isInEvery(columns, row)) {
            continue;
        }
        for (auto& column : columns) {
            column[kept] = column[row];
        }
        ++kept;
    }
    for (auto& column : columns) {
        column.resize(kept);
    }
    return columns;
}

}  // namespace

CellColumns columnsOf(const Any& argument) {
    Sequence<Sequence<Any>> rows;
    if (!(argument >>= rows)) {
        return {{cellOf(argument)}};
    }
    CellColumns columns(rows.hasElements() ? static_cast<std::size_t>(rows[0].getLength()) : 0);
    for (auto& column : columns) {
        column.reserve(static_cast<std::size_t>(rows.getLength()));
    }
    for (const Sequence<Any>& row : std::as_const(rows)) {
        for (std::size_t c = 0; c < columns.size(); ++c) {
            columns[c].push_back(cellOf(row[static_cast<sal_Int32>(c)]));
        }
    }
    return columns;
}

std::vector<CellValue> cellsInOrder(const Any& argument) {
    CellColumns columns = columnsOf(argument);
    std::vector<CellValue> cells = columns.empty() ? std::vector<CellValue>() : std::move(columns.front());
    for (std::size_t c = 1; c < columns.size(); ++c) {
        std::ranges::move(columns[c], std::back_inserter(cells));
    }
    return cells;
}

CellColumns usedCells(DataShape shape, CellColumns columns) {
    if (takesRows(shape)) {
        return wholeRows(std::move(columns));
    }
    for (auto& column : columns) {
        std::erase_if(column, [shape](const CellValue& cell) {
            return shape == DataShape::Sequence ? isEmpty(cell) : !isNumber(cell);
        });
    }
    return columns;
}

}  // namespace TBVNonPara::calc
