#include "adapters/calc/selection.hpp"

#include <com/sun/star/frame/XModel.hpp>
#include <com/sun/star/sheet/XCellRangeAddressable.hpp>
#include <com/sun/star/sheet/XSheetCellRanges.hpp>
#include <span>

#include "adapters/calc/reading.hpp"

namespace TBVNonPara::calc {

namespace {

using css::table::CellRangeAddress;

std::vector<CellRangeAddress> addressesOf(const Reference<css::uno::XInterface>& selection) {
    if (const auto one = queryIfAny<css::sheet::XCellRangeAddressable>(selection); one.is()) {
        return {one->getRangeAddress()};
    }
    std::vector<CellRangeAddress> addresses;
    if (const auto several = queryIfAny<css::sheet::XSheetCellRanges>(selection); several.is()) {
        for (const CellRangeAddress& address : several->getRangeAddresses()) {
            addresses.push_back(address);
        }
    }
    return addresses;
}

bool areSeveral(std::span<const CellRangeAddress> addresses) {
    return addresses.size() > 1 || (addresses.size() == 1 && !normalised(addresses.front()).isOneCell());
}

std::string joined(const SheetRef& sheet, std::span<const CellArea> areas) {
    std::string text;
    for (const CellArea& area : areas) {
        if (!text.empty()) {
            text += ';';
        }
        text += userAddress(sheet, area);
    }
    return text;
}

std::vector<CellArea> columnsOf(const std::vector<CellArea>& areas, std::size_t most) {
    std::vector<CellArea> columns;
    for (const CellArea& area : areas) {
        for (std::int32_t column = area.left; column <= area.right && columns.size() < most; ++column) {
            columns.push_back({column, area.top, column, area.bottom});
        }
    }
    return columns;
}

/// A first row of texts names the columns below it.
bool hasLabels(const SheetAreas& cells, const CellArea& area) {
    const ValueGrid row = readCells(cells.document, cells.sheet, {area.left, area.top, area.right, area.top});
    for (Long column = 1; column <= row.columns(); ++column) {
        if (!std::holds_alternative<Text>(row(1, column))) {
            return false;
        }
    }
    return true;
}

}  // namespace

std::string userAddress(const SheetRef& sheet, const CellArea& area) {
    OUString name;
    property(sheet->getCellRangeByPosition(area.left, area.top, area.right, area.bottom), "AbsoluteName") >>=
        name;
    return toUtf8(name);
}

bool areSeveralCells(const Reference<css::uno::XInterface>& selection) {
    return areSeveral(addressesOf(selection));
}

SheetAreas selectedCells(const DocumentRef& document) {
    SheetAreas cells{document, {}, {}};
    const auto selection = addressesOf(query<css::frame::XModel>(document)->getCurrentSelection());
    if (!areSeveral(selection)) {
        return cells;
    }
    cells.sheet = sheetAt(document, selection.front().Sheet);
    std::vector<CellArea> pieces;
    pieces.reserve(selection.size());
    for (const CellRangeAddress& address : selection) {
        pieces.push_back(normalised(address));
    }
    for (const CellArea& area : acrossHiddenRows(cells.sheet, pieces)) {
        cells.areas.push_back(endingWithTheUsedArea(area, cells.sheet));
    }
    return cells;
}

std::optional<SheetAreas> cursorOf(const DocumentRef& document) {
    const auto selection = addressesOf(query<css::frame::XModel>(document)->getCurrentSelection());
    if (selection.empty()) {
        return std::nullopt;
    }
    const CellArea area = normalised(selection.front());
    return SheetAreas{
        document, sheetAt(document, selection.front().Sheet), {{area.left, area.top, area.left, area.top}}};
}

HiddenCount countHiddenRows(const DocumentRef& document, std::span<const std::string> addresses) {
    std::vector<SheetAreas> ranges;
    for (const std::string& address : addresses) {
        try {
            ranges.push_back(resolve(document, activeSheet(document), address));
        } catch (...) {
            // What is no range yet, while it is typed for example, has no rows.
        }
    }
    return countHiddenRows(ranges);
}

Suggestion suggest(const SheetAreas& selection, bool groups, bool twoRanges) {
    if (selection.areas.empty()) {
        return {};
    }
    Suggestion suggestion;
    suggestion.labels = hasLabels(selection, selection.areas.front());
    if (groups) {
        suggestion.first = joined(selection.sheet, selection.areas);
        return suggestion;
    }
    const std::vector<std::string> columns = columnAddresses(selection, 2);
    suggestion.first = columns.front();
    suggestion.second = twoRanges ? columns.back() : std::string();
    return suggestion;
}

std::vector<std::string> columnAddresses(const SheetAreas& selection, std::size_t number) {
    std::vector<std::string> addresses;
    for (const CellArea& column : columnsOf(selection.areas, number)) {
        addresses.push_back(userAddress(selection.sheet, column));
    }
    addresses.resize(number);
    return addresses;
}

}  // namespace TBVNonPara::calc
