#pragma once

#include <string>
#include <vector>

#include "tbvnonpara/rendering/picture_data.hpp"

namespace TBVNonPara::rendering {

/// The stretch of a drawing that data take, and the room for labels in front of it.
constexpr double plotLeft = 150;
constexpr double plotRight = 615;
constexpr double labelsEnd = plotLeft - 14;
constexpr std::size_t labelLength = 14;

/// Figures of a page; empty texts when there is no number to draw.
[[nodiscard]] std::string groupsPicture(const std::vector<PictureColumn>& columns);
[[nodiscard]] std::string differencesPicture(const PictureColumn& y, const PictureColumn& x);
[[nodiscard]] std::string ranksPicture(const PictureColumn& y, const PictureColumn& x);

}  // namespace TBVNonPara::rendering
