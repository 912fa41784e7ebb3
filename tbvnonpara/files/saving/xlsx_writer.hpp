#pragma once

#include <string>
#include <vector>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/workbook/sheet.hpp"

namespace TBVNonPara::workbook {

/// A sheet of a new workbook and the block of it that is written.
struct WrittenSheet {
    const Sheet* sheet = nullptr;  ///< must outlive the call
    Rectangle area;                ///< which stands at the same place in the new sheet
};

/// The bytes of a new .xlsx workbook with these sheets, the first in front; the columns are wide enough for
/// what they hold. Numbers read back as exactly the same, in every locale.
///
/// O(cells). Raises the host's error for texts that no workbook can hold.
[[nodiscard]] TBVNONPARA_API std::string newWorkbook(const std::vector<WrittenSheet>& sheets);

}  // namespace TBVNonPara::workbook
