#pragma once

#include "tbvnonpara/companion/ArrayUtility.hpp"
#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/engine/clsNonParaBO.hpp"
#include "tbvnonpara/host/Application.hpp"

namespace TBVNonPara {

/// The values of a range's first area, without its first row when that is a header.
[[nodiscard]] TBVNONPARA_API ValueGrid readArea(const Application& application, const RangeRef& range,
                                                bool headers);

/// The same for the engine: numbers alone where the host says that nothing else is there.
[[nodiscard]] TBVNONPARA_API EngineInput readInput(const Application& application, const RangeRef& range,
                                                   bool headers);

/// The values of all areas side by side, for the engine; a shorter area is padded with empty cells.
[[nodiscard]] TBVNONPARA_API EngineInput readInputs(const Application& application,
                                                    const ArrayUtility& utility, const RangeRef& range,
                                                    bool headers);

}  // namespace TBVNonPara
