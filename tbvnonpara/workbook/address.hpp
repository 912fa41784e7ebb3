#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "tbvnonpara/core/rectangle.hpp"

namespace TBVNonPara::workbook {

/// One area of an address as it is written. A whole column or row spans the sheet until it is trimmed.
struct AddressArea {
    std::optional<std::string> sheet;  ///< as written in front of this area, without quotes
    Rectangle cells;                   ///< corners in order
    bool wholeColumns = false;
    bool wholeRows = false;
};

/// Reads "A1", "$A$1:$B$9", "Data!A1:A9,C1:C9", "'It''s'!A:C", "2:5". Letters of either case, corners in any
/// order. Raises the host's error, which names the part that cannot be read and shows what an address looks
/// like.
[[nodiscard]] std::vector<AddressArea> parseAddress(std::string_view address);

/// "A", "XFD".
[[nodiscard]] std::string columnLetters(Index column);

/// "$A$1" or "$A$1:$B$9"; several areas are joined by commas.
[[nodiscard]] std::string absoluteAddress(const Rectangle& area);
[[nodiscard]] std::string absoluteAddress(const Areas& areas);

/// The name as it stands in front of an address: in quotes where it needs them.
[[nodiscard]] std::string quotedSheetName(std::string_view name);

}  // namespace TBVNonPara::workbook
