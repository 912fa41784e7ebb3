#include "adapters/calc/visible_rows.hpp"

#include <algorithm>
#include <com/sun/star/container/XIndexAccess.hpp>
#include <com/sun/star/sheet/XCellRangesQuery.hpp>
#include <com/sun/star/sheet/XSheetCellRanges.hpp>
#include <com/sun/star/table/XColumnRowRange.hpp>
#include <iterator>
#include <map>

namespace TBVNonPara::calc {

namespace {

bool flagOf(const Reference<css::container::XIndexAccess>& lines, std::int32_t position, const char* flag) {
    const Reference<css::beans::XPropertySet> line(lines->getByIndex(position), css::uno::UNO_QUERY_THROW);
    bool set = false;
    line->getPropertyValue(OUString::createFromAscii(flag)) >>= set;
    return set;
}

/// Cells of a hidden column are never visible: the rows are looked at in a column that is shown.
std::int32_t visibleColumn(const SheetRef& sheet) {
    const auto columns =
        query<css::container::XIndexAccess>(query<css::table::XColumnRowRange>(sheet)->getColumns());
    const std::int32_t count = columns->getCount();
    std::int32_t column = 0;
    while (column < count && !flagOf(columns, column, "IsVisible")) {
        column += 1;
    }
    return column < count ? column : -1;
}

bool anyFilteredIn(const Reference<css::container::XIndexAccess>& rows, const RowStretch& stretch) {
    for (std::int32_t row = stretch.first; row <= stretch.last; ++row) {
        if (flagOf(rows, row, "IsFiltered")) {
            return true;
        }
    }
    return false;
}

Reference<css::container::XIndexAccess> rowsOf(const SheetRef& sheet) {
    return query<css::container::XIndexAccess>(query<css::table::XColumnRowRange>(sheet)->getRows());
}

/// Stretches that touch or overlap become one.
std::vector<RowStretch> mergedStretches(std::vector<RowStretch> stretches) {
    std::ranges::sort(stretches, {}, &RowStretch::first);
    std::vector<RowStretch> result;
    for (const RowStretch& stretch : stretches) {
        if (!result.empty() && stretch.first <= result.back().last + 1) {
            result.back().last = std::max(result.back().last, stretch.last);
        } else {
            result.push_back(stretch);
        }
    }
    return result;
}

std::int32_t rowsIn(std::span<const RowStretch> stretches) {
    std::int32_t rows = 0;
    for (const RowStretch& stretch : stretches) {
        rows += stretch.last - stretch.first + 1;
    }
    return rows;
}

/// Whether one stretch of rows holds another; `stretches` do not overlap and are in order.
bool holds(std::span<const RowStretch> stretches, const RowStretch& rows) {
    const auto after = std::ranges::upper_bound(stretches, rows.first, {}, &RowStretch::first);
    return after != stretches.begin() && std::prev(after)->last >= rows.last;
}

bool continues(const CellArea& area, const CellArea& piece, std::span<const RowStretch> hidden) {
    return area.left == piece.left && area.right == piece.right && area.bottom + 1 < piece.top &&
           holds(hidden, {area.bottom + 1, piece.top - 1});
}

/// The last of the filtered rows that follow a row at once; the row itself where none does.
std::int32_t endOfFiltered(const SheetRef& sheet, std::int32_t row) {
    const auto rows = rowsOf(sheet);
    const std::int32_t last = rows->getCount() - 1;
    while (row < last && flagOf(rows, row + 1, "IsFiltered")) {
        row += 1;
    }
    return row;
}

}  // namespace

std::vector<RowStretch> visibleRows(const SheetRef& sheet, std::int32_t top, std::int32_t bottom) {
    const std::int32_t column = visibleColumn(sheet);
    if (column < 0) {
        return {{top, bottom}};
    }
    const auto cells =
        query<css::sheet::XCellRangesQuery>(sheet->getCellRangeByPosition(column, top, column, bottom));
    std::vector<RowStretch> stretches;
    for (const css::table::CellRangeAddress& address :
         given(cells->queryVisibleCells())->getRangeAddresses()) {
        stretches.push_back({address.StartRow, address.EndRow});
    }
    return mergedStretches(std::move(stretches));
}

std::vector<RowStretch> hiddenRows(const SheetRef& sheet, std::int32_t top, std::int32_t bottom) {
    std::vector<RowStretch> hidden;
    for (const RowStretch& shown : visibleRows(sheet, top, bottom)) {
        if (shown.first > top) {
            hidden.push_back({top, shown.first - 1});
        }
        top = shown.last + 1;
    }
    if (top <= bottom) {
        hidden.push_back({top, bottom});
    }
    return hidden;
}

bool isFiltered(const SheetRef& sheet, std::int32_t row) {
    return flagOf(rowsOf(sheet), row, "IsFiltered");
}

bool anyFiltered(const SheetRef& sheet, std::span<const RowStretch> stretches) {
    const auto rows = rowsOf(sheet);
    return std::ranges::any_of(stretches,
                               [&](const RowStretch& stretch) { return anyFilteredIn(rows, stretch); });
}

HiddenCount countHiddenRows(std::span<const SheetAreas> ranges) {
    std::map<std::int16_t, std::pair<SheetRef, std::vector<RowStretch>>> sheets;
    for (const SheetAreas& range : ranges) {
        auto& [sheet, rows] = sheets[positionOf(range.sheet)];
        sheet = range.sheet;
        for (const CellArea& area : range.areas) {
            rows.push_back({area.top, area.bottom});
        }
    }
    HiddenCount count;
    for (auto& [position, named] : sheets) {
        const SheetRef& sheet = named.first;
        for (const RowStretch& rows : mergedStretches(std::move(named.second))) {
            const std::vector<RowStretch> hidden = hiddenRows(sheet, rows.first, rows.last);
            count.all += rows.last - rows.first + 1;
            count.hidden += rowsIn(hidden);
            count.filtered = count.filtered || anyFiltered(sheet, hidden);
        }
    }
    return count;
}

std::vector<CellArea> acrossHiddenRows(const SheetRef& sheet, std::span<const CellArea> pieces) {
    const std::int32_t top = std::ranges::min(pieces, {}, &CellArea::top).top;
    const std::int32_t bottom = std::ranges::max(pieces, {}, &CellArea::bottom).bottom;
    const std::vector<RowStretch> hidden = hiddenRows(sheet, top, bottom);
    std::vector<CellArea> areas;
    for (const CellArea& piece : pieces) {
        const auto area =
            std::ranges::find_if(areas, [&](const CellArea& a) { return continues(a, piece, hidden); });
        if (area == areas.end()) {
            areas.push_back(piece);
        } else {
            area->bottom = piece.bottom;
        }
    }
    for (CellArea& area : areas) {
        area.bottom = endOfFiltered(sheet, area.bottom);
    }
    return areas;
}

}  // namespace TBVNonPara::calc
