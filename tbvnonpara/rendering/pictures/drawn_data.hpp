#pragma once

#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/details/details.hpp"
#include "tbvnonpara/engine/clsNonParaBO.hpp"
#include "tbvnonpara/rendering/pictures/picture_data.hpp"
#include "tbvnonpara/rendering/pictures/svg.hpp"

namespace TBVNonPara::rendering {

/// The data of a test drawn: groups as points with box and median, pairs as their differences, a correlation
/// as a scatter of ranks, signs as counted bars, a sequence as it runs. Empty where there is nothing to draw.
[[nodiscard]] Drawing drawnData(TBVNPMethod method, const PictureData& data, const clsNonParaBO& engine,
                                const Details* details = nullptr);

}  // namespace TBVNonPara::rendering
