#pragma once

#include <cstdint>
#include <span>
#include <vector>

#include "adapters/calc/addresses.hpp"

namespace TBVNonPara::calc {

/// Consecutive rows of a sheet, counted from 0.
struct RowStretch {
    std::int32_t first;
    std::int32_t last;

    friend bool operator==(const RowStretch&, const RowStretch&) = default;
};

/// The rows from `top` to `bottom` that are shown, in stretches from top to bottom. Neither a filter's rows
/// nor those hidden by hand are shown, as SUBTOTAL(109) sees it.
[[nodiscard]] std::vector<RowStretch> visibleRows(const SheetRef& sheet, std::int32_t top,
                                                  std::int32_t bottom);

/// The rows that are not shown.
[[nodiscard]] std::vector<RowStretch> hiddenRows(const SheetRef& sheet, std::int32_t top,
                                                 std::int32_t bottom);

/// Whether a filter hides this row. A row that was hidden by hand is none of a filter's.
[[nodiscard]] bool isFiltered(const SheetRef& sheet, std::int32_t row);

/// Whether a filter hides any of these stretches' rows.
[[nodiscard]] bool anyFiltered(const SheetRef& sheet, std::span<const RowStretch> stretches);

/// How many rows of some ranges are not shown, and whether it is a filter that hides some of them.
struct HiddenCount {
    std::int32_t hidden = 0;
    std::int32_t all = 0;
    bool filtered = false;

    friend bool operator==(const HiddenCount&, const HiddenCount&) = default;
};

/// Of ranges of one document; a row that several of them share counts once.
[[nodiscard]] HiddenCount countHiddenRows(std::span<const SheetAreas> ranges);

/// The areas that a selection is about. What is selected over hidden rows comes in pieces without them:
/// pieces of the same columns with nothing but hidden rows between them are one area, which goes on through
/// the filtered rows below it.
[[nodiscard]] std::vector<CellArea> acrossHiddenRows(const SheetRef& sheet, std::span<const CellArea> pieces);

}  // namespace TBVNonPara::calc
