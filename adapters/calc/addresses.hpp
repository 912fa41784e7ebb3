#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "adapters/calc/cell_area.hpp"
#include "adapters/calc/documents.hpp"

namespace TBVNonPara::calc {

/// Areas of one sheet, in the order in which they were named.
struct SheetAreas {
    DocumentRef document;
    SheetRef sheet;
    std::vector<CellArea> areas;
};

/// An address cut at its commas or semicolons, but not inside the quotes of a sheet's name.
[[nodiscard]] std::vector<std::string> splitAreas(std::string_view address);

/// Whether an area bears its sheet in front of an exclamation mark: Data!A1. The other notation is Data.A1.
[[nodiscard]] bool hasExclamationMark(std::string_view area) noexcept;

/// Whole columns and whole rows as far as the sheet is used; any other area as it is.
[[nodiscard]] CellArea endingWithTheUsedArea(const CellArea& area, const SheetRef& sheet);

/// The areas of an address: in either notation, or the name of a range of the document. An area without a
/// sheet lies on the sheet of the area before it, the first one on `sheet`. Whole columns and rows end with
/// the used area. Raises the host's error.
[[nodiscard]] SheetAreas resolve(const DocumentRef& document, const SheetRef& sheet,
                                 std::string_view address);

/// The same with whole columns and rows as they are.
[[nodiscard]] SheetAreas resolveWhole(const DocumentRef& document, const SheetRef& sheet,
                                      std::string_view address);

}  // namespace TBVNonPara::calc
