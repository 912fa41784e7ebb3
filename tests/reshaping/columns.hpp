#pragma once

#include <string>
#include <utility>
#include <vector>

#include "tbvnonpara/reshaping/column.hpp"
#include "tbvnonpara/reshaping/refusal.hpp"

namespace TBVNonPara::reshaping {

/// A column B of a sheet "Data" with its header in row 1.
inline Column columnOf(std::string header, std::vector<CellValue> cells, Index place = 2) {
    Column column;
    column.sheet = "Data";
    column.place = place;
    column.header = std::move(header);
    for (std::size_t i = 0; i < cells.size(); ++i) {
        column.rows.push_back(static_cast<std::int32_t>(i) + 2);
    }
    column.cells = std::move(cells);
    return column;
}

/// The cells of a column as texts, blanks as "_".
inline std::string cellsOf(const Column& column) {
    std::string text;
    for (const CellValue& cell : column.cells) {
        text += (text.empty() ? "" : " ") + (isEmpty(cell) ? "_" : toText(cell));
    }
    return text;
}

/// The refusal that an action raises; one without a description when it raises none.
template <typename Action>
Refusal refusedBy(const Action& action) {
    try {
        action();
    } catch (const Refusal& refusal) {
        return refusal;
    }
    return Refusal(0, "");
}

}  // namespace TBVNonPara::reshaping
