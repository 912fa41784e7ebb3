#pragma once

#include <algorithm>
#include <cstdint>
#include <vector>

#include "tbvnonpara/core/whole_numbers.hpp"

namespace TBVNonPara {

/// The size of every sheet.
constexpr Index sheetRows = 1'048'576;
constexpr Index sheetColumns = 16'384;

/// A block of cells, both corners included, counted from 1.
struct Rectangle {
    Index top = 1;
    Index left = 1;
    Index bottom = 1;
    Index right = 1;

    [[nodiscard]] constexpr Index rows() const noexcept { return bottom - top + 1; }
    [[nodiscard]] constexpr Index columns() const noexcept { return right - left + 1; }
    [[nodiscard]] constexpr std::int64_t cells() const noexcept { return std::int64_t(rows()) * columns(); }
    [[nodiscard]] constexpr bool onSheet() const noexcept {
        return top >= 1 && left >= 1 && bottom <= sheetRows && right <= sheetColumns;
    }

    friend constexpr bool operator==(const Rectangle&, const Rectangle&) noexcept = default;
};

constexpr Rectangle wholeSheet{1, 1, sheetRows, sheetColumns};

/// The areas of a range, in the order in which they were named.
using Areas = std::vector<Rectangle>;

/// The smallest rectangle that holds both.
[[nodiscard]] constexpr Rectangle around(const Rectangle& a, const Rectangle& b) noexcept {
    return {std::min(a.top, b.top), std::min(a.left, b.left), std::max(a.bottom, b.bottom),
            std::max(a.right, b.right)};
}

[[nodiscard]] constexpr bool overlap(const Rectangle& a, const Rectangle& b) noexcept {
    return a.top <= b.bottom && b.top <= a.bottom && a.left <= b.right && b.left <= a.right;
}

}  // namespace TBVNonPara
