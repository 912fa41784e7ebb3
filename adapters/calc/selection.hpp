#pragma once

#include <optional>
#include <string>
#include <vector>

#include "adapters/calc/visible_rows.hpp"

namespace TBVNonPara::calc {

/// The ranges that a selection suggests.
struct Suggestion {
    std::string first;
    std::string second;
    bool labels = false;
};

/// The cells selected in a document's view, over filtered rows as the whole ranges that they belong to, whole
/// columns trimmed; no areas where less than two cells are.
[[nodiscard]] SheetAreas selectedCells(const DocumentRef& document);

/// Whether a selection is one of cells, of more than a single one.
[[nodiscard]] bool areSeveralCells(const Reference<css::uno::XInterface>& selection);

/// The first of the selected cells, where the cursor stands or the selection begins; none where something
/// else is selected.
[[nodiscard]] std::optional<SheetAreas> cursorOf(const DocumentRef& document);

/// How many rows of the ranges with these addresses are hidden; an address that is none counts nothing.
[[nodiscard]] HiddenCount countHiddenRows(const DocumentRef& document,
                                          std::span<const std::string> addresses);

/// For two samples the first two columns or areas, for one sample the first, for groups everything.
[[nodiscard]] Suggestion suggest(const SheetAreas& selection, bool groups, bool twoRanges);

/// The addresses of the first columns of a selection, as many as are asked for; empty where there are less.
[[nodiscard]] std::vector<std::string> columnAddresses(const SheetAreas& selection, std::size_t number);

/// An area as the user reads it: $Data.$A$1:$A$9.
[[nodiscard]] std::string userAddress(const SheetRef& sheet, const CellArea& area);

}  // namespace TBVNonPara::calc
