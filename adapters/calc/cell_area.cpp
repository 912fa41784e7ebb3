#include "adapters/calc/cell_area.hpp"

#include <algorithm>
#include <iterator>

#include "tbvnonpara/core/a1.hpp"

namespace TBVNonPara::calc {

namespace {

/// The library counts from 1.
Rectangle rectangle(const CellArea& area) noexcept {
    return {area.top + 1, area.left + 1, area.bottom + 1, area.right + 1};
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
    return TBVNonPara::columnLetters(Index(column) + 1);
}

std::string absoluteAddress(const CellArea& area) {
    return TBVNonPara::absoluteAddress(rectangle(area));
}

std::string absoluteAddress(const std::vector<CellArea>& areas) {
    Areas rectangles;
    std::ranges::transform(areas, std::back_inserter(rectangles), rectangle);
    return TBVNonPara::absoluteAddress(rectangles);
}

}  // namespace TBVNonPara::calc
