#include "tbvnonpara/analysis/columns.hpp"

#include <algorithm>

#include "tbvnonpara/core/a1.hpp"
#include "tbvnonpara/core/conversions.hpp"
#include "tbvnonpara/workbook/sheet_range.hpp"

namespace TBVNonPara::analysis {

std::vector<LabelledColumn> columnsAt(const workbook::EmbeddedApplication& application,
                                      std::string_view address, bool headers) {
    const RangeRef range = application.GetRange(address);
    const workbook::SheetRange& own = workbook::ownRange(range);
    std::vector<LabelledColumn> columns;
    for (const Rectangle& area : own.areas()) {
        for (Index column = area.left; column <= area.right; ++column) {
            LabelledColumn one;
            one.label =
                headers ? toText(own.sheet()->value(area.top, column)) : "Column " + columnLetters(column);
            const Index first = area.top + (headers ? 1 : 0);
            one.cells.resize(static_cast<std::size_t>(std::max<Index>(area.bottom - first + 1, 0)));
            if (!one.cells.empty()) {
                own.sheet()->values().read(first, column, one.cells);
            }
            columns.push_back(std::move(one));
        }
    }
    return columns;
}

std::vector<LabelledColumn> columnsOf(const workbook::EmbeddedApplication& application,
                                      const ChosenRanges& ranges) {
    std::vector<LabelledColumn> columns = columnsAt(application, ranges.y, ranges.headers);
    if (!ranges.x.empty()) {
        std::ranges::move(columnsAt(application, ranges.x, ranges.headers), std::back_inserter(columns));
    }
    return columns;
}

}  // namespace TBVNonPara::analysis
