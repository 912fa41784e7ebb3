#include "tbvnonpara/reshaping/wide_table.hpp"

#include <utility>

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

void settleSamples(Reshaped& result, const Wishes& wishes) {
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
        if (column.cells.size() != rows) {
            throw Refusal(tbvNPUnequalPairs, nameOf(result.columns.front()) + " has " +
                                                 counted(rows, "row", "rows") + ", " + nameOf(column) + ' ' +
                                                 std::to_string(column.cells.size()) +
                                                 "; rows belong together, so make them equally long.");
        }
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
