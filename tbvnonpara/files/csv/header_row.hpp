#pragma once

#include <string_view>

#include "tbvnonpara/workbook/cell_store.hpp"

namespace TBVNonPara::workbook {

/// How many fields the records of a text have; blank lines are none.
struct RecordWidths {
    void add(Index row, Index fields) noexcept;
    /// Adds the records of the text that follows.
    void join(const RecordWidths& below) noexcept;

    Index headerRow = 0;
    Index header = 0;  ///< fields of the first record
    Index secondRow = 0;
    Index fewest = 0;  ///< of the records below the first
    Index most = 0;
};

/// A header row that is one field shorter than every record below it, as R writes one above row names: moves
/// it by one column, so that each label stands above its column, and tells whether it did. Nothing is done
/// where the first record has anything but labels, the second one labels as well (the first is a title then),
/// or the records differ in length. Raises the host's error for any other difference, because no one can know
/// which label belongs to which column.
[[nodiscard]] bool alignHeader(CellStore& cells, const RecordWidths& widths, std::string_view source);

}  // namespace TBVNonPara::workbook
