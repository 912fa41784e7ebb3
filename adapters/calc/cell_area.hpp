#pragma once

#include <com/sun/star/table/CellRangeAddress.hpp>
#include <cstdint>
#include <string>
#include <vector>

namespace TBVNonPara::calc {

/// A block of cells, both corners included, counted from 0 as the spreadsheet does.
struct CellArea {
    std::int32_t left = 0;
    std::int32_t top = 0;
    std::int32_t right = 0;
    std::int32_t bottom = 0;

    [[nodiscard]] std::int32_t rows() const noexcept { return bottom - top + 1; }
    [[nodiscard]] std::int32_t columns() const noexcept { return right - left + 1; }
    [[nodiscard]] bool isOneCell() const noexcept { return left == right && top == bottom; }
    [[nodiscard]] bool contains(const CellArea& other) const noexcept {
        return left <= other.left && top <= other.top && right >= other.right && bottom >= other.bottom;
    }

    [[nodiscard]] bool overlaps(const CellArea& other) const noexcept {
        return left <= other.right && other.left <= right && top <= other.bottom && other.top <= bottom;
    }

    friend bool operator==(const CellArea&, const CellArea&) = default;
};

/// The corners in order, in whichever order they were named.
[[nodiscard]] CellArea normalised(const com::sun::star::table::CellRangeAddress& address) noexcept;

[[nodiscard]] CellArea around(const CellArea& a, const CellArea& b) noexcept;

/// "A", "XFD".
[[nodiscard]] std::string columnLetters(std::int32_t column);

/// "$A$1" or "$A$1:$B$9"; several areas are joined by commas.
[[nodiscard]] std::string absoluteAddress(const CellArea& area);
[[nodiscard]] std::string absoluteAddress(const std::vector<CellArea>& areas);

}  // namespace TBVNonPara::calc
