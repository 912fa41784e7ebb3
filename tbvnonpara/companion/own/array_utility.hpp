#pragma once

#include <cstddef>

#include "tbvnonpara/companion/ArrayUtility.hpp"
#include "tbvnonpara/core/object_ref.hpp"

namespace TBVNonPara {

/// The project's own array utility: sorts in O(n log n) whatever the data, leaves a sorted table as it is. It
/// finds orders on up to so many threads; they are the same on any number.
[[nodiscard]] ObjectRef<ArrayUtility> createArrayUtility(std::size_t threads = 1);

}  // namespace TBVNonPara
