#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string_view>
#include <vector>

#include "tbvnonpara/core/a1.hpp"

namespace TBVNonPara::workbook {

/// A cell as most programs write it: <c r="B7" s="1"><v>0.25</v></c>.
struct PlainCell {
    std::optional<CellPlace> place;  ///< none where the cell follows the one before it
    bool isShared = false;           ///< whether the value is the number of a shared text
    bool hasValue = false;
    std::string_view value;
};

/// A row as most programs write it.
struct PlainRow {
    std::optional<std::string_view> number;
};

/// Reads rows without a parser, as long as they are of the usual kind: tags without blanks between them,
/// attributes and values of ASCII without a reference, numbers and shared texts without formulas. Whatever
/// else XML allows, it does not know and says so; what it takes is well formed.
class PlainRows {
 public:
    /// A row at the beginning of a text: how many bytes it takes, 0 where there is none of this kind, or not
    /// all of it. Its cells are there afterwards.
    [[nodiscard]] std::size_t take(std::string_view text);

    [[nodiscard]] const PlainRow& row() const noexcept { return m_Row; }
    [[nodiscard]] std::span<const PlainCell> cells() const noexcept { return m_Cells; }

 private:
    PlainRow m_Row;
    std::vector<PlainCell> m_Cells;
};

}  // namespace TBVNonPara::workbook
