#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "tbvnonpara/core/a1.hpp"
#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/cell_value.hpp"

namespace TBVNonPara::reshaping {

/// Cells that stand below one another on a user's sheet, as far as they still count. A table that was turned
/// over has its columns in the sheet's rows.
struct Column {
    std::string sheet;
    Index place = 1;                 ///< which column of the sheet, or row of a table that was turned over
    bool turned = false;             ///< whether the table was turned over
    std::string header;              ///< empty for none
    std::vector<std::int32_t> rows;  ///< where the cells stand, as many as there are cells
    std::vector<CellValue> cells;
};

/// "chickwts!weight" under a header, "Data!B" without one.
[[nodiscard]] TBVNONPARA_API std::string nameOf(const Column& column);

/// A cell of the column on the user's sheet, counted from 0: "chickwts!B7".
[[nodiscard]] TBVNONPARA_API std::string nameOfCell(const Column& column, std::size_t cell);

/// What a cell holds, for a sentence: the text "x", the error #N/A, TRUE.
[[nodiscard]] TBVNONPARA_API std::string contentsOf(const CellValue& value);

/// The column without the cells at the places where `keep` says no; as many answers as cells.
TBVNONPARA_API void keepCells(Column& column, const std::vector<bool>& keep);

/// "37 values", "1 value".
[[nodiscard]] TBVNONPARA_API std::string counted(std::size_t number, std::string_view one,
                                                 std::string_view several);

}  // namespace TBVNonPara::reshaping
