#pragma once

#include <string>
#include <string_view>

#include "tbvnonpara/analysis/columns.hpp"
#include "tbvnonpara/core/api.hpp"
#include "tbvnonpara/core/enumerations.hpp"
#include "tbvnonpara/details/details.hpp"
#include "tbvnonpara/engine/clsNonParaBO.hpp"
#include "tbvnonpara/rendering/pictures/picture_data.hpp"
#include "tbvnonpara/workbook/embedded_application.hpp"

namespace TBVNonPara::rendering {

/// @cond
using analysis::columnsAt;
/// @endcond

/// The columns at the addresses y and x; x may be empty. With headers the first row of each is its label.
/// O(cells). Raises the host's error for what is no address.
[[nodiscard]] TBVNONPARA_API PictureData pictureData(const workbook::EmbeddedApplication& application,
                                                     std::string_view y, std::string_view x, bool headers);

/// The data of a test as a figure of a page, drawn in SVG: groups as points with box and median, pairs as
/// their differences, a correlation as a scatter of ranks, signs as counted bars, a sequence as it runs.
/// Ranks, signs and medians are those of the engine that has run the test. Large data are thinned: the figure
/// stays below half a megabyte whatever the data. With details, the intervals of the medians are bars.
///
/// The engine must have run the method on these data. Empty where there is nothing to draw. O(n log n).
[[nodiscard]] TBVNONPARA_API std::string dataPicture(TBVNPMethod method, const PictureData& data,
                                                     const clsNonParaBO& engine,
                                                     const Details* details = nullptr);

}  // namespace TBVNonPara::rendering
