#include "adapters/calc/user_table.hpp"

#include <algorithm>
#include <com/sun/star/sheet/CellFlags.hpp>
#include <com/sun/star/sheet/XCellRangesQuery.hpp>
#include <com/sun/star/sheet/XSheetCellRanges.hpp>
#include <numeric>

#include "adapters/calc/reading.hpp"
#include "tbvnonpara/core/a1.hpp"
#include "tbvnonpara/reshaping/long_table.hpp"
#include "tbvnonpara/reshaping/wide_table.hpp"

namespace TBVNonPara::calc {

namespace {

using reshaping::Column;
using reshaping::Unit;

TableRange findRange(const DocumentRef& document, const std::string& address, DataRange range, DataRows* rows,
                     std::int32_t numberOfTheError) {
    TableRange found;
    if (address.empty()) {
        return found;
    }
    try {
        found.cells = resolve(document, activeSheet(document), address);
    } catch (...) {
        throw Error(numberOfTheError);
    }
    if (rows != nullptr) {
        found.rows = rows->name(range, found.cells);
    }
    return found;
}

/// The rows of an area that are read, counted from 0 on the sheet.
KeptRows rowsOf(const TableRange& range, std::size_t area) {
    if (!range.rows.empty()) {
        return *range.rows[area];
    }
    KeptRows all(static_cast<std::size_t>(range.cells.areas[area].rows()));
    std::iota(all.begin(), all.end(), range.cells.areas[area].top);
    return all;
}

Column columnOf(std::span<const CellValue> cells, std::int32_t top, std::span<const std::int32_t> rows,
                bool headers) {
    Column column;
    if (headers && !rows.empty()) {
        const CellValue& label = cells[static_cast<std::size_t>(rows.front() - top)];
        column.header = isEmpty(label) ? std::string() : toText(label);
        rows = rows.subspan(1);
    }
    for (const std::int32_t row : rows) {
        column.rows.push_back(row + 1);
        column.cells.push_back(cells[static_cast<std::size_t>(row - top)]);
    }
    return column;
}

void addColumns(const TableRange& range, bool headers, std::vector<Column>& columns) {
    for (std::size_t area = 0; area < range.cells.areas.size(); ++area) {
        const CellArea& cells = range.cells.areas[area];
        const ValueGrid values = readCells(range.cells.document, range.cells.sheet, cells);
        const KeptRows rows = rowsOf(range, area);
        for (std::int32_t column = 0; column < cells.columns(); ++column) {
            columns.push_back(columnOf(values.column(column + 1), cells.top, rows, headers));
            columns.back().sheet = toUtf8(nameOf(range.cells.sheet));
            columns.back().place = cells.left + column + 1;
        }
    }
}

Unit unitOf(const AnalysisSettings& settings) {
    const bool codes =
        settings.method == tbvNPSign && settings.secondRange.empty() && !settings.groupsInOneColumn;
    if (settings.method == tbvNPWWRuns || codes) {
        return Unit::Element;
    }
    if (settings.method == tbvNPFriedman) {
        return Unit::Block;
    }
    return takesBlocks(settings.method) ? Unit::Pair : Unit::Value;
}

reshaping::Wishes wishesOf(const AnalysisSettings& settings) {
    reshaping::Wishes wishes;
    wishes.unit = unitOf(settings);
    wishes.mostGroups = takesGroups(settings.method) ? static_cast<std::size_t>(sheetColumns) : 2;
    wishes.groups = settings.groups;
    wishes.omitMissing = settings.omitMissing;
    return wishes;
}

/// The one column of a range.
Column columnAt(const TableRange& range, bool headers) {
    if (range.cells.areas.size() != 1 || range.cells.areas.front().columns() != 1) {
        throw Error(tbvNPYRangeColumns);
    }
    std::vector<Column> columns;
    addColumns(range, headers, columns);
    return std::move(columns.front());
}

reshaping::Reshaped reshapeLong(const UserTable& table, const AnalysisSettings& settings) {
    reshaping::LongTable columns{columnAt(table.first, settings.headers),
                                 columnAt(table.groups, settings.headers), std::nullopt};
    if (takesBlocks(settings.method)) {
        columns.blocks = columnAt(table.blocks, settings.headers);
    }
    return reshaping::fromLong(std::move(columns), wishesOf(settings));
}

/// Looked up without reading the cells, which takes its time where there are many.
bool isNumbersAlone(const SheetRef& sheet, const CellArea& area) {
    namespace Flags = css::sheet::CellFlags;
    const auto cells = query<css::sheet::XCellRangesQuery>(
        sheet->getCellRangeByPosition(area.left, area.top, area.right, area.bottom));
    std::int64_t numbers = 0;
    for (const auto& part :
         given(cells->queryContentCells(Flags::VALUE | Flags::DATETIME))->getRangeAddresses()) {
        const CellArea block = normalised(part);
        numbers += std::int64_t{block.rows()} * block.columns();
    }
    return numbers == std::int64_t{area.rows()} * area.columns();
}

bool isNumbersAlone(const TableRange& range, bool headers) {
    return std::ranges::all_of(range.cells.areas, [&](CellArea area) {
        area.top += headers && area.top < area.bottom ? 1 : 0;
        return isNumbersAlone(range.cells.sheet, area);
    });
}

std::vector<reshaping::Group> groupsIn(const TableRange& range, const AnalysisSettings& settings) {
    constexpr std::size_t mostTicks = 1000;
    std::vector<reshaping::Group> groups =
        reshaping::groupsIn(columnAt(range, settings.headers), reshaping::Missing()).groups;
    return groups.size() > mostTicks ? std::vector<reshaping::Group>() : groups;
}

}  // namespace

UserTable findTable(const DocumentRef& document, const AnalysisSettings& settings, DataRows* rows) {
    if (settings.firstRange.empty()) {
        throw Error(tbvNPNoYRange);
    }
    return {findRange(document, settings.firstRange, DataRange::First, rows, tbvNPBadYRange),
            findRange(document, settings.secondRange, DataRange::Second, rows, tbvNPBadXRange),
            findRange(document, settings.groupRange, DataRange::Groups, rows, tbvNPBadXRange),
            findRange(document, settings.blockRange, DataRange::Blocks, rows, tbvNPBadXRange)};
}

reshaping::Reshaped reshape(const UserTable& table, const AnalysisSettings& settings) {
    if (settings.groupsInOneColumn) {
        return reshapeLong(table, settings);
    }
    std::vector<Column> columns;
    addColumns(table.first, settings.headers, columns);
    addColumns(table.second, settings.headers, columns);
    return reshaping::fromWide(std::move(columns), wishesOf(settings));
}

std::vector<reshaping::Group> groupsNamed(const DocumentRef& document, const AnalysisSettings& settings) try {
    DataRows rows;
    const UserTable table = findTable(document, settings, settings.visibleRowsOnly ? &rows : nullptr);
    rows.count(rowRules(settings));
    return groupsIn(table.groups, settings);
} catch (...) {
    return {};
}

reshaping::Account countMissing(const DocumentRef& document, AnalysisSettings settings) try {
    settings.omitMissing = true;
    DataRows rows;
    const UserTable table = findTable(document, settings, settings.visibleRowsOnly ? &rows : nullptr);
    if (!settings.groupsInOneColumn && isNumbersAlone(table.first, settings.headers) &&
        isNumbersAlone(table.second, settings.headers)) {
        return {};
    }
    rows.count(rowRules(settings));
    return reshape(table, settings).account;
} catch (...) {
    return {};
}

}  // namespace TBVNonPara::calc
