#include "tbvnonpara/reshaping/wide_table.hpp"

#include <algorithm>
#include <utility>

#include "tbvnonpara/core/a1.hpp"
#include "tbvnonpara/core/conversions.hpp"
#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/reshaping/blocks.hpp"
#include "tbvnonpara/reshaping/refusal.hpp"

namespace TBVNonPara::reshaping {

namespace {

void dropTrailingBlanks(Column& column) {
    while (!column.cells.empty() && isEmpty(column.cells.back())) {
        column.cells.pop_back();
        column.rows.pop_back();
    }
}

/// The first cell of a column that holds texts and no number; its size where there is none such.
std::size_t firstName(const Column& column, const Missing& missing) {
    std::size_t first = column.cells.size();
    for (std::size_t cell = column.cells.size(); cell-- > 0;) {
        if (missing.amongNumbers(column.cells[cell])) {
            continue;
        }
        const auto* const text = std::get_if<Text>(&column.cells[cell]);
        if (text == nullptr || readAsNumber(text->string())) {
            return column.cells.size();
        }
        first = cell;
    }
    return first;
}

std::string labelOf(const Column& column) {
    return column.header.empty() ? columnLetters(column.place) : column.header;
}

/// Names beside numbers are those of groups: the table is a long one.
void requireNoNames(const std::vector<Column>& columns, const Missing& missing) {
    for (const Column& names : columns) {
        const std::size_t cell = firstName(names, missing);
        if (cell == names.cells.size() || names.turned) {
            continue;
        }
        const auto values =
            std::ranges::find_if(columns, [&](const Column& other) { return holdsNumbers(other, missing); });
        if (values != columns.end() && !holdsNumbers(names, missing)) {
            throw Refusal(tbvNPTextInData,
                          nameOfCell(names, cell) + " holds " + contentsOf(names.cells[cell]) + ", and " +
                              nameOf(names) + " no number; every value must be one.",
                          Remedy::SplitValues, {labelOf(*values), labelOf(names)})
                .about(Reason::NotANumber, {nameOfCell(names, cell)});
        }
    }
}

void settleSamples(Reshaped& result, const Wishes& wishes) {
    if (wishes.unit == Unit::Value) {
        requireNoNames(result.columns, wishes.missing);
    }
    for (Column& column : result.columns) {
        dropTrailingBlanks(column);
        result.account.units += column.cells.size();
        const MissingCells missing = wishes.unit == Unit::Element ? emptyMissing(column, wishes.missing)
                                                                  : makeNumbers(column, wishes.missing);
        settleMissing(column, missing, wishes);
        result.account.missing += dropEmpty(column);
    }
}

void settleRows(Reshaped& result, const Wishes& wishes) {
    const std::size_t rows = result.columns.front().cells.size();
    for (Column& column : result.columns) {
        requireEqualRows(result.columns.front(), column);
        settleMissing(column, makeNumbers(column, wishes.missing), wishes);
    }
    result.account.units = rows;
    result.account.missing = dropGaps(result.columns);
}

}  // namespace

Reshaped fromWide(std::vector<Column> columns, const Wishes& wishes) {
    Reshaped result;
    result.columns = std::move(columns);
    result.account.unit = wishes.unit;
    result.account.rows = result.columns.empty() ? 0 : result.columns.front().cells.size();
    const bool rowByRow = wishes.unit == Unit::Pair || wishes.unit == Unit::Block;
    rowByRow ? settleRows(result, wishes) : settleSamples(result, wishes);
    describeGroups(result);
    return result;
}

}  // namespace TBVNonPara::reshaping
