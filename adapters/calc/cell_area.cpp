#include "adapters/calc/cell_area.hpp"

#include <algorithm>

namespace TBVNonPara::calc {

namespace {

std::string absoluteCell(std::int32_t column, std::int32_t row) {
    return '$' + columnLetters(column) + '$' + std::to_string(row + 1);
}

}  // namespace

CellArea normalised(const com::sun::star::table::CellRangeAddress& address) noexcept {
    return {std::min(address.StartColumn, address.EndColumn), std::min(address.StartRow, address.EndRow),
            std::max(address.StartColumn, address.EndColumn), std::max(address.StartRow, address.EndRow)};
}

CellArea around(const CellArea& a, const CellArea& b) noexcept {
    return {std::min(a.left, b.left), std::min(a.top, b.top), std::max(a.right, b.right),
            std::max(a.bottom, b.bottom)};
}

std::string columnLetters(std::int32_t column) {
    std::string letters;
    for (std::int32_t rest = column + 1; rest > 0; rest = (rest - 1) / 26) {
        letters.insert(letters.begin(), static_cast<char>('A' + (rest - 1) % 26));
    }
    return letters;
}

std::string absoluteAddress(const CellArea& area) {
    const std::string first = absoluteCell(area.left, area.top);
    return area.isOneCell() ? first : first + ':' + absoluteCell(area.right, area.bottom);
}

std::string absoluteAddress(const std::vector<CellArea>& areas) {
    std::string address;
    for (const CellArea& area : areas) {
        if (!address.empty()) {
            address += ',';
        }
        address += absoluteAddress(area);
    }
    return address;
}

}  // namespace TBVNonPara::calc
