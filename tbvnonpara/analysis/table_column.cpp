#include "tbvnonpara/analysis/table_column.hpp"

#include <algorithm>
#include <numeric>

#include "tbvnonpara/analysis/refusal.hpp"
#include "tbvnonpara/workbook/sheet_range.hpp"

namespace TBVNonPara::analysis {

namespace {

reshaping::Column columnOf(const workbook::Sheet& sheet, const Rectangle& cells, bool headers) {
    reshaping::Column column;
    column.sheet = sheet.name();
    column.place = cells.left;
    column.turned = sheet.turnedOver();
    const Index first = cells.top + (headers ? 1 : 0);
    if (headers && !isEmpty(sheet.value(cells.top, cells.left))) {
        column.header = toText(sheet.value(cells.top, cells.left));
    }
    const auto count = static_cast<std::size_t>(std::max<Index>(cells.bottom - first + 1, 0));
    column.cells.resize(count);
    sheet.values().read(first, cells.left, column.cells);
    column.rows.resize(count);
    std::iota(column.rows.begin(), column.rows.end(), static_cast<std::int32_t>(first));
    return column;
}

}  // namespace

reshaping::Column tableColumn(const workbook::Sheet& sheet, const Rectangle& cells, bool headers) try {
    workbook::requireCalculated(sheet, {cells});
    return columnOf(sheet, cells, headers);
} catch (const Error&) {
    refuseAsOwn();
}

reshaping::Column wholeColumn(const workbook::Sheet& sheet, const Rectangle& used, Index number,
                              bool headers) {
    return columnOf(sheet, {used.top, number, used.bottom, number}, headers);
}

}  // namespace TBVNonPara::analysis
