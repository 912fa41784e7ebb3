#pragma once

#include "tbvnonpara/core/enumerations.hpp"

namespace TBVNonPara::Support {

/// Tails that no name stands for.
constexpr auto tailsOutsideTheList = static_cast<TBVNPTails>(3);

}  // namespace TBVNonPara::Support
