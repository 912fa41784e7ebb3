#include "adapters/calc/functions/data_columns.hpp"

#include <algorithm>
#include <com/sun/star/sheet/XCellRangeData.hpp>

#include "adapters/calc/functions/formula_failure.hpp"

namespace TBVNonPara::calc {

namespace {

using CellRows = css::uno::Sequence<css::uno::Sequence<css::uno::Any>>;

/// An empty cell comes as an empty text.
CellValue valueInFormula(const css::uno::Any& cell) {
    if (double number = 0; cell >>= number) {
        return number;
    }
    OUString text;
    cell >>= text;
    return text.isEmpty() ? CellValue(Empty()) : CellValue(Text(toUtf8(text)));
}

/// `failed` is told of a cell without a value, by column and row, and throws.
DataColumns columnsOfRows(const CellRows& rows, const auto& failed) {
    DataColumns columns(rows.hasElements() ? static_cast<std::size_t>(rows[0].getLength()) : 0);
    for (LabelledColumn& column : columns) {
        column.cells.reserve(static_cast<std::size_t>(rows.getLength()));
    }
    for (sal_Int32 row = 0; row < rows.getLength(); ++row) {
        for (sal_Int32 column = 0; column < rows[row].getLength(); ++column) {
            const css::uno::Any& cell = rows[row][column];
            if (!cell.hasValue()) {
                failed(column, row);
            }
            columns[static_cast<std::size_t>(column)].cells.push_back(valueInFormula(cell));
        }
    }
    return columns;
}

bool isNumber(const CellValue& cell) {
    return std::holds_alternative<double>(cell);
}

void keepCells(DataColumns& columns, bool (*usable)(const CellValue&)) {
    for (LabelledColumn& column : columns) {
        std::erase_if(column.cells, [&](const CellValue& cell) { return !usable(cell); });
    }
}

void keepWholeRows(DataColumns& columns) {
    const std::size_t rows = columns.front().cells.size();
    std::size_t kept = 0;
    for (std::size_t row = 0; row < rows; ++row) {
        if (std::ranges::all_of(columns, [=](const auto& column) { return isNumber(column.cells[row]); })) {
            for (LabelledColumn& column : columns) {
                column.cells[kept] = column.cells[row];
            }
            kept += 1;
        }
    }
    for (LabelledColumn& column : columns) {
        column.cells.resize(kept);
    }
}

/// A code of signs reads as one with fifteen digits.
bool isSign(const CellValue& cell) {
    const std::string text = toText(cell);
    return text == "1" || text == "-1" || text == "0";
}

bool fitsTest(const OfferedTest& test, const DataColumns& columns) {
    const std::size_t count = columns.size();
    switch (test.shape) {
        case DataShape::Sequence:
            return count == 1;
        case DataShape::CodesOrPairs:
            return count == 1 || count == 2;
        case DataShape::TwoSamples:
        case DataShape::Pairs:
            return count == 2;
        case DataShape::Groups:
        case DataShape::Blocks:
            break;
    }
    return count >= 2;
}

void require(bool condition, std::int32_t failure) {
    if (!condition) {
        throw FormulaFailure{failure};
    }
}

/// The report asks for two rows, too.
bool isEnough(const DataColumns& columns) {
    constexpr std::size_t fewestRows = 2;
    const auto rows = [](const LabelledColumn& column) { return column.cells.size(); };
    return std::ranges::all_of(
               columns, [](std::size_t n) { return n > 0; }, rows) &&
           std::ranges::any_of(
               columns, [](std::size_t n) { return n >= fewestRows; }, rows);
}

}  // namespace

DataColumns columnsOf(const Reference<css::table::XCellRange>& range) {
    const CellRows rows = query<css::sheet::XCellRangeData>(range)->getDataArray();
    return columnsOfRows(rows, [&](sal_Int32 column, sal_Int32 row) {
        throw FormulaFailure{range->getCellByPosition(column, row)->getError()};
    });
}

DataColumns columnsOf(const css::uno::Any& block) {
    CellRows rows;
    if (!(block >>= rows)) {
        rows = sequenceOf(sequenceOf(block));
    }
    return columnsOfRows(rows, [](sal_Int32, sal_Int32) { throw FormulaFailure{notAvailableFailure}; });
}

DataColumns usableColumns(const OfferedTest& test, DataColumns columns) {
    require(fitsTest(test, columns), valueFailure);
    if (test.shape == DataShape::Sequence) {
        keepCells(columns, [](const CellValue& cell) { return !isEmpty(cell); });
    } else if (takesRows(test.shape)) {
        const auto rows = [](const LabelledColumn& column) { return column.cells.size(); };
        require(std::ranges::adjacent_find(columns, std::ranges::not_equal_to(), rows) == columns.end(),
                valueFailure);
        keepWholeRows(columns);
    } else {
        keepCells(columns, isNumber);
    }
    require(isEnough(columns), notAvailableFailure);
    require(
        test.method != tbvNPSign || columns.size() == 2 || std::ranges::all_of(columns.front().cells, isSign),
        valueFailure);
    return columns;
}

}  // namespace TBVNonPara::calc
