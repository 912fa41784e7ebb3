#include "tbvnonpara/analysis/long_ranges.hpp"

#include <algorithm>
#include <utility>
#include <vector>

#include "tbvnonpara/analysis/column_address.hpp"
#include "tbvnonpara/analysis/refusal.hpp"
#include "tbvnonpara/analysis/table_column.hpp"
#include "tbvnonpara/analysis/user_range.hpp"
#include "tbvnonpara/core/a1.hpp"
#include "tbvnonpara/core/conversions.hpp"
#include "tbvnonpara/core/words.hpp"
#include "tbvnonpara/reshaping/missing.hpp"
#include "tbvnonpara/reshaping/refusal.hpp"

namespace TBVNonPara::analysis {

namespace {

using workbook::EmbeddedApplication;
using workbook::Sheet;

/// One column of a table, its rows still open where it was not named by an address.
struct LongColumn {
    std::shared_ptr<Sheet> sheet;
    Piece piece;
    bool byHeader = false;
};

std::string theTest(const Choices& choices) {
    return "the " + std::string(choices.test->title) + " test";
}

void requireLongForm(const Choices& choices) {
    const DataShape shape = choices.test->shape;
    if (shape == DataShape::Sequence) {
        refuse(tbvNPYRangeColumns, capitalised(theTest(choices)) +
                                       " takes one sequence in its order and compares no groups; name the "
                                       "sequence alone.");
    }
    if (takesRows(shape) && choices.block.empty()) {
        throw reshaping::Refusal(tbvNPUnequalPairs,
                                 capitalised(theTest(choices)) + " compares values that belong together" +
                                     (shape == DataShape::Blocks ? " in blocks." : " in pairs."),
                                 reshaping::Remedy::NameBlocks);
    }
    if (!takesRows(shape) && !choices.block.empty()) {
        refuse(tbvNPUnequalPairs, capitalised(theTest(choices)) +
                                      " compares independent groups, in which no values belong together; "
                                      "name no blocks, or take the Friedman test.");
    }
}

LongColumn columnFor(const EmbeddedApplication& application, const Choices& choices, const std::string& name,
                     std::string_view what) {
    NamedCells cells = findCells(application, name, lookupFor(choices.headers), tbvNPBadYRange);
    if (cells.pieces.size() != 1 || cells.pieces.front().cells.columns() != 1) {
        refuse(tbvNPYRangeColumns,
               inQuotes(name) + " is more than one column; " + std::string(what) + " stand in one.");
    }
    return {std::move(cells.sheet), cells.pieces.front(), cells.byHeader};
}

/// The rows of all columns: those of an address, else from the first to the last row with data.
std::pair<Index, Index> commonRows(const std::vector<LongColumn>& columns) {
    std::pair<Index, Index> rows{0, 0};
    for (const LongColumn& column : columns) {
        const Rectangle& cells = column.piece.cells;
        if (column.piece.wholeColumns) {
            continue;
        }
        if (rows.first != 0 && rows != std::pair(cells.top, cells.bottom)) {
            refuse(tbvNPUnequalPairs, "The ranges of values, groups and blocks stand in different rows: " +
                                          plainAddress(columns.front().piece.cells) + " and " +
                                          plainAddress(cells) + "; make them equally long.");
        }
        rows = {cells.top, cells.bottom};
    }
    if (rows.first != 0) {
        return rows;
    }
    rows.first = columns.front().sheet->usedArea()->top;
    for (const LongColumn& column : columns) {
        const Index left = column.piece.cells.left;
        rows.second = std::max(rows.second, column.sheet->values().lastUsedRow(left, left));
    }
    return rows;
}

/// The only column beside those that holds numbers.
LongColumn valuesBeside(const std::vector<LongColumn>& others, const Choices& choices) {
    const std::shared_ptr<Sheet>& sheet = others.front().sheet;
    const reshaping::Missing missing(choices.missingWords);
    const Rectangle used = sheet->usedArea().value_or(Rectangle());
    std::vector<LongColumn> found;
    std::string names;
    for (const Piece& piece : columnsWithData(*sheet)) {
        const Index number = piece.cells.left;
        const bool taken = std::ranges::any_of(
            others, [&](const LongColumn& other) { return other.piece.cells.left == number; });
        const reshaping::Column column = wholeColumn(*sheet, used, number, choices.headers.value_or(true));
        if (!taken && !(number == used.left && column.header.empty()) &&
            reshaping::holdsNumbers(column, missing)) {
            found.push_back({sheet, piece, !column.header.empty()});
            names += (names.empty() ? "" : ", ") + reshaping::nameOf(column);
        }
    }
    if (found.size() != 1) {
        refuse(tbvNPNoYRange, found.empty() ? "No other column of the table holds numbers."
                                            : "Name the column of values: " + names + '.');
    }
    return found.front();
}

std::string addressOf(const LongColumn& column, const std::pair<Index, Index>& rows) {
    const Index number = column.piece.cells.left;
    return quotedSheetName(column.sheet->name()) + '!' +
           plainAddress(Rectangle{rows.first, number, rows.second, number});
}

/// Whether the first row holds a header above the values.
bool beginsWithHeader(const Choices& choices, const std::vector<LongColumn>& columns, Index top) {
    if (choices.headers || std::ranges::any_of(columns, &LongColumn::byHeader)) {
        return choices.headers.value_or(true);
    }
    const LongColumn& values = columns.back();
    const CellValue first = values.sheet->value(top, values.piece.cells.left);
    const auto* const text = std::get_if<Text>(&first);
    return text != nullptr && !reshaping::Missing(choices.missingWords).amongNumbers(*text) &&
           !readAsNumber(text->string());
}

}  // namespace

ChosenRanges chooseLongRanges(const EmbeddedApplication& application, const Choices& choices) {
    requireLongForm(choices);
    std::vector<LongColumn> columns = {columnFor(application, choices, choices.by, "the names of groups")};
    if (!choices.block.empty()) {
        columns.push_back(columnFor(application, choices, choices.block, "the names of blocks"));
    }
    columns.push_back(choices.y.empty() ? valuesBeside(columns, choices)
                                        : columnFor(application, choices, choices.y, "the values"));
    const auto other = std::ranges::find_if(
        columns, [&](const LongColumn& column) { return column.sheet != columns.front().sheet; });
    if (other != columns.end()) {
        refuse(tbvNPBadYRange,
               "Values, groups and blocks stand on different sheets: " + columns.front().sheet->name() +
                   " and " + other->sheet->name() + "; name columns of one table.");
    }
    const std::pair<Index, Index> rows = commonRows(columns);
    ChosenRanges chosen;
    chosen.y = addressOf(columns.back(), rows);
    chosen.by = addressOf(columns.front(), rows);
    chosen.block = choices.block.empty() ? "" : addressOf(columns[1], rows);
    chosen.headers = beginsWithHeader(choices, columns, rows.first);
    const ChosenRanges known = asInTheFile(application, chosen);
    chosen.note = "using " + known.y + " by " + known.by +
                  (known.block.empty() ? "" : " in blocks of " + known.block) +
                  (chosen.headers ? " (first row is headers)" : " (no headers)");
    return chosen;
}

}  // namespace TBVNonPara::analysis
