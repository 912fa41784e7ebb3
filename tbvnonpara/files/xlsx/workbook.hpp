#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tbvnonpara/core/dates.hpp"
#include "tbvnonpara/files/container.hpp"

namespace TBVNonPara::workbook {

/// What the workbook part says of the sheets.
struct XlsxSheet {
    std::string name;
    std::string part;
    bool hidden = false;
    /// Charts and dialogs stand among the sheets, too.
    bool hasCells = true;
};

struct XlsxWorkbook {
    std::vector<XlsxSheet> sheets;
    std::size_t active = 0;
    DateSystem dates = dates1900;
    std::optional<std::string> sharedStrings;
};

[[nodiscard]] XlsxWorkbook readXlsxWorkbook(const Parts& parts);

}  // namespace TBVNonPara::workbook
