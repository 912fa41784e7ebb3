#pragma once

#include <string>

#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/cell_value.hpp"

namespace TBVNonPara {

/// The shortest text that reads back as the same number: 9, 0.1, 1e+300.
[[nodiscard]] TBVNONPARA_API std::string shortest(double number);

}  // namespace TBVNonPara
