#pragma once

#include "tbvnonpara/companion/ArrayUtility.hpp"
#include "tbvnonpara/core/object_ref.hpp"

namespace TBVNonPara {

/// The project's own array utility: sorts in O(n log n) whatever the data, leaves a sorted table as it is.
[[nodiscard]] ObjectRef<ArrayUtility> createArrayUtility();

}  // namespace TBVNonPara
