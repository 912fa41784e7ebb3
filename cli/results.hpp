#pragma once

#include <nlohmann/json.hpp>

#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/engine/clsNonParaBO.hpp"

namespace TBVNonPara::cli {

/// The results of a test by name, exactly as the engine holds them.
[[nodiscard]] nlohmann::ordered_json namedResults(TBVNPMethod method, const clsNonParaBO& engine);

}  // namespace TBVNonPara::cli
