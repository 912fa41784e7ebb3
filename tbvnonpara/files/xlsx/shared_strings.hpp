#pragma once

#include <string>
#include <vector>

#include "tbvnonpara/core/cell_value.hpp"
#include "tbvnonpara/files/container.hpp"

namespace TBVNonPara::workbook {

/// The texts that cells name by their number, from 0 on, in the order of the part that holds them.
[[nodiscard]] std::vector<Text> readSharedStrings(const Parts& parts, const std::string& part);

}  // namespace TBVNonPara::workbook
