#pragma once

#include <optional>
#include <string>
#include <vector>

#include "tbvnonpara/engine/clsNonParaBO.hpp"
#include "tbvnonpara/rendering/pictures/median_intervals.hpp"
#include "tbvnonpara/rendering/pictures/picture_data.hpp"
#include "tbvnonpara/rendering/pictures/svg.hpp"

namespace TBVNonPara::rendering {

/// The stretch of a drawing that data take, and the room for labels in front of it.
constexpr double plotLeft = 150;
constexpr double plotRight = 615;
constexpr double labelsEnd = plotLeft - 14;
constexpr double belowAxis = 28;
constexpr std::size_t labelLength = 14;

/// Drawings; empty ones when there is no number to draw. The engine has run the test. Intervals of
/// medians are drawn where they are given, or of this level.
[[nodiscard]] Drawing groupsPicture(const std::vector<PictureColumn>& y, const std::vector<PictureColumn>& x,
                                    const clsNonParaBO& engine, const MedianIntervals& intervals = {});
[[nodiscard]] Drawing differencesPicture(const std::string& y, const std::string& x,
                                         const clsNonParaBO& engine, std::optional<double> confidence = {});
[[nodiscard]] Drawing ranksPicture(const std::string& y, const std::string& x, const clsNonParaBO& engine);

}  // namespace TBVNonPara::rendering
