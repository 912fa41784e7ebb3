#pragma once

#include <string>
#include <vector>

#include "adapters/calc/addresses.hpp"

namespace TBVNonPara::calc {

/// The ranges that a selection suggests.
struct Suggestion {
    std::string first;
    std::string second;
    bool labels = false;
};

/// The cells selected in a document's view, whole columns trimmed; no areas where less than two cells are.
[[nodiscard]] SheetAreas selectedCells(const DocumentRef& document);

/// For two samples the first two columns or areas, for one sample the first, for groups everything.
[[nodiscard]] Suggestion suggest(const SheetAreas& selection, bool groups, bool twoRanges);

/// An area as the user reads it: $Data.$A$1:$A$9.
[[nodiscard]] std::string userAddress(const SheetRef& sheet, const CellArea& area);

}  // namespace TBVNonPara::calc
