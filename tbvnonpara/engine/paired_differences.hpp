#pragma once

#include "tbvnonpara/core/array.hpp"
#include "tbvnonpara/engine/engine_data.hpp"

namespace TBVNonPara {

/// The differences first - second of the rows in which both cells hold something. A difference goes through
/// single-precision text, so 5.1 - 5.0 is 0.1. Raises TypeMismatch for a cell that is no number.
[[nodiscard]] Array<double> pairedDifferences(const EngineData& first, const EngineData& second);

}  // namespace TBVNonPara
