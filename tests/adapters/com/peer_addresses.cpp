#include "tests/adapters/com/peer_addresses.hpp"

#include "tbvnonpara/workbook/address.hpp"

namespace TBVNonPara::Peer {

namespace {

std::string inFront(const std::string& list) {
    return list.empty() ? "" : ",";
}

std::string shown(const Rectangle& cells) {
    const std::string left = '$' + columnLetters(cells.left);
    const std::string right = '$' + columnLetters(cells.right);
    if (cells.rows() == sheetRows) {
        return left + ':' + right;
    }
    if (cells.columns() == sheetColumns) {
        return '$' + std::to_string(cells.top) + ":$" + std::to_string(cells.bottom);
    }
    return absoluteAddress(cells);
}

}  // namespace

std::string asApplicationsReadIt(std::string_view address, std::string_view activeSheet) {
    std::string result;
    for (const AddressArea& area : workbook::parseAddress(address)) {
        const std::string sheet(area.sheet ? *area.sheet : activeSheet);
        result += inFront(result) + (sheet.empty() ? "" : quotedSheetName(sheet) + '!') +
                  absoluteAddress(area.cells);
    }
    return result;
}

std::string addressOf(const Range& range) {
    std::string result;
    for (const AddressArea& area : workbook::parseAddress(range.GetAddress())) {
        result += inFront(result) + shown(area.cells);
    }
    return result;
}

Rectangle placeOf(const Range& range) {
    return workbook::parseAddress(range.GetAddress()).front().cells;
}

RangeRef usedRange(const Worksheet& sheet) {
    const Rectangle rows = placeOf(*sheet.GetRange("A:XFD"));
    const Rectangle columns = placeOf(*sheet.GetRange("1:1048576"));
    return sheet.GetRange(absoluteAddress({rows.top, columns.left, rows.bottom, columns.right}));
}

}  // namespace TBVNonPara::Peer
