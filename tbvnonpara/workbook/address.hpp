#pragma once

#include <string_view>
#include <vector>

#include "tbvnonpara/core/a1.hpp"
#include "tbvnonpara/core/api.hpp"

namespace TBVNonPara::workbook {

/// The areas of an address. Raises the host's error, which names the part that cannot be read and shows what
/// an address looks like.
[[nodiscard]] TBVNONPARA_API std::vector<AddressArea> parseAddress(std::string_view address);

}  // namespace TBVNonPara::workbook
